-- SPDX-License-Identifier: MIT
--
-- The second schema: a poll is one cheap statement, and clients that are gone for good leave no row.
--
-- What the first schema offers stays as it is. A client of it goes on, and one of this schema asks hello_v1 which one it meets.

SET LOCAL ROLE settings_owner;
SET LOCAL search_path = pg_catalog, pg_temp;

-- The same as before, planned once for a session and not for each call.
CREATE OR REPLACE FUNCTION settings.epoch(layer integer) RETURNS text
LANGUAGE plpgsql SET search_path = pg_catalog, pg_temp AS $$
BEGIN
    RETURN concat_ws('-', (SELECT system_identifier FROM pg_control_system()), left(pg_walfile_name(pg_current_wal_lsn()), 8),
        'settings.value'::regclass::oid, epoch.layer);
END $$;

-- When the client said hello last, to the day.
ALTER TABLE settings.client ADD COLUMN seen date NOT NULL DEFAULT current_date;

-- Notes that a client of the user's is here, and forgets those that were not for a year. One that comes back later is new to the
-- server: what it sends once more loses against what was changed since, and changes nothing else.
CREATE FUNCTION settings.see_client(layer integer, client uuid) RETURNS void
LANGUAGE plpgsql SET search_path = pg_catalog, pg_temp AS $$
BEGIN
    INSERT INTO settings.client AS c VALUES (see_client.layer, see_client.client, 0)
        ON CONFLICT ON CONSTRAINT client_pkey DO UPDATE SET seen = current_date WHERE c.seen <> current_date;
    IF FOUND THEN
        DELETE FROM settings.client AS c WHERE c.layer = see_client.layer AND c.seen < current_date - 365;
    END IF;
END $$;

-- As the first schema has it, but for the client.
CREATE OR REPLACE FUNCTION settings.hello_v1(client uuid, backend integer)
RETURNS TABLE (schema integer, epoch text, studio_layer integer, user_layer integer, last_op bigint, hears boolean)
LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp SET lock_timeout = '2s' AS $$
#variable_conflict use_column
BEGIN
    IF pg_is_in_recovery() THEN
        RAISE EXCEPTION USING ERRCODE = 'ST008', MESSAGE = 'this server is a standby, which takes no changes',
            HINT = 'name all servers in the connection string, with target_session_attrs=read-write';
    ELSIF client IS NULL THEN
        RAISE EXCEPTION USING ERRCODE = 'ST005', MESSAGE = 'an argument of hello_v1 makes no sense', HINT = 'update the program that sent it';
    END IF;
    LOOP -- until the layer is there and stays: an administrator may forget the user meanwhile
        INSERT INTO settings.layer (kind, name) SELECT 'user', session_user::text
            WHERE NOT EXISTS (SELECT FROM settings.layer AS l WHERE l.kind = 'user' AND l.name = session_user::text)
            ON CONFLICT (kind, name) DO NOTHING;
        SELECT id INTO user_layer FROM settings.layer AS l WHERE l.kind = 'user' AND l.name = session_user::text FOR KEY SHARE;
        EXIT WHEN FOUND;
    END LOOP;
    SELECT id INTO studio_layer FROM settings.layer AS l WHERE l.kind = 'studio';
    PERFORM settings.see_client(user_layer, client);
    SELECT c.last_op INTO last_op FROM settings.client AS c WHERE c.layer = user_layer AND c.id = client;
    SELECT max(version) INTO schema FROM settings.schema_version;
    epoch := settings.epoch(user_layer);
    hears := coalesce(backend, 0) = pg_backend_pid() AND settings.has_announced(user_layer);
    RETURN NEXT;
END $$;

-- As changes_v1, with the epoch in each row, and without a look at the values where no layer has news. The function sees the moment at which
-- its statement began, so the epoch may be newer than the changes, and is never older.
CREATE FUNCTION settings.changes_v2(user_since bigint, studio_since bigint)
RETURNS TABLE (studio boolean, layer_revision bigint, store text, key bytea, kind text, value bytea, locked boolean, revision bigint,
    changed_at timestamptz, changed_by text, epoch text)
LANGUAGE plpgsql STABLE SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $$
#variable_conflict use_column
DECLARE
    own integer;
    of_user bigint;
    of_studio bigint;
BEGIN
    IF pg_is_in_recovery() THEN
        RAISE EXCEPTION USING ERRCODE = 'ST008', MESSAGE = 'this server is a standby, which takes no changes',
            HINT = 'name all servers in the connection string, with target_session_attrs=read-write';
    END IF;
    SELECT u.id, u.revision, s.revision INTO own, of_user, of_studio
        FROM settings.layer AS s LEFT JOIN settings.layer AS u ON u.kind = 'user' AND u.name = session_user::text
        WHERE s.kind = 'studio' AND s.name = '';
    epoch := settings.epoch(own);
    IF of_user = user_since AND of_studio = studio_since THEN
        studio := true;
        layer_revision := of_studio;
        RETURN NEXT;
        studio := false;
        layer_revision := of_user;
        RETURN NEXT;
    ELSE
        RETURN QUERY SELECT c.*, changes_v2.epoch FROM settings.changes_v1(user_since, studio_since) AS c;
    END IF;
END $$;

REVOKE ALL ON ALL FUNCTIONS IN SCHEMA settings FROM PUBLIC;
GRANT EXECUTE ON FUNCTION settings.changes_v2 TO settings_user;

-- The last statement, so that a schema without this version is incomplete.
INSERT INTO settings.schema_version (version, objects) VALUES (2, settings.objects());
RESET ROLE;
