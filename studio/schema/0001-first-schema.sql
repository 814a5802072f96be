-- SPDX-License-Identifier: MIT
--
-- The first schema of a shared store: roles, tables, and the functions that are the only way to them.
--
-- The user's layer holds the values of one login, the studio's those of all. A change takes the lock of the layer's row and
-- keeps it to the commit. So the revisions of a layer are in the order of the commits, and a reader that asks for what is
-- above the last revision that it saw misses nothing. Numbers from a sequence are not: they are given out before the commit.
--
-- Users have no right to any table. Each function runs as the owner, who cannot log in, and row level security compares
-- every row with the login even then.
--
-- SQLSTATEs of its own:
--   ST001  the value is longer than 16 MiB
--   ST002  the key is longer than 4096 bytes, or the store's name longer than 255
--   ST003  the studio has locked the key
--   ST004  only a member of settings_admin may do this
--   ST005  an argument makes no sense
--   ST006  the server does not know the user or the client, who must say hello first
--   ST007  the studio has no value for the key, so there is nothing to lock
--   ST008  this server is a standby, which takes no changes

-- --- Roles, and the rights to the database ---

DO $$
DECLARE
    role name;
BEGIN
    FOREACH role IN ARRAY ARRAY['settings_owner', 'settings_user', 'settings_admin', 'settings_watch'] LOOP
        IF to_regrole(role::text) IS NULL THEN
            EXECUTE format('CREATE ROLE %I NOLOGIN', role);
        END IF;
    END LOOP;
    IF NOT pg_has_role(current_user, 'settings_owner', 'USAGE') THEN
        EXECUTE format('GRANT settings_owner TO %I', current_user);
    END IF;
    EXECUTE format('REVOKE ALL ON DATABASE %I FROM PUBLIC', current_database());
    EXECUTE format('GRANT CONNECT ON DATABASE %I TO settings_user, settings_watch', current_database());
    IF to_regnamespace('public') IS NOT NULL THEN
        REVOKE CREATE ON SCHEMA public FROM PUBLIC;
    END IF;
END $$;

GRANT settings_user TO settings_admin;

CREATE SCHEMA settings AUTHORIZATION settings_owner;
SET LOCAL ROLE settings_owner;
SET LOCAL search_path = pg_catalog, pg_temp;

GRANT USAGE ON SCHEMA settings TO settings_user, settings_watch;
ALTER DEFAULT PRIVILEGES FOR ROLE settings_owner REVOKE EXECUTE ON FUNCTIONS FROM PUBLIC;

-- --- Tables ---

-- The number is part of the channel and of the advisory lock that tell of the layer.
CREATE TABLE settings.layer (
    id integer GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
    kind text NOT NULL CHECK (kind IN ('studio', 'user')),
    name text COLLATE "C" NOT NULL, -- the login; empty for the studio
    revision bigint NOT NULL DEFAULT 0,
    UNIQUE (kind, name)
) WITH (fillfactor = 50);

-- Keys and values are bytes: they may hold NUL and what is no UTF-8, which text cannot. A value is readable text all the same,
-- such as "true" or "42". A removed key stays as a row without kind, or a reader that was away would never hear of it.
CREATE TABLE settings.value (
    layer integer NOT NULL REFERENCES settings.layer ON DELETE CASCADE,
    store text COLLATE "C" NOT NULL,
    key bytea NOT NULL,
    kind text,
    value bytea,
    locked boolean NOT NULL,
    revision bigint NOT NULL,
    client uuid,
    changed_at timestamptz NOT NULL, -- when its user changed it, by the server's clock
    changed_by text NOT NULL,
    changed_on text NOT NULL
);
-- A long key does not fit into an index, its hash does.
CREATE UNIQUE INDEX value_key ON settings.value (layer, store, sha256(key));
CREATE INDEX value_revision ON settings.value (layer, revision);

-- The values that lost a conflict.
CREATE TABLE settings.superseded (
    id bigint GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
    layer integer NOT NULL REFERENCES settings.layer ON DELETE CASCADE,
    store text COLLATE "C" NOT NULL,
    key bytea NOT NULL,
    kind text,
    value bytea,
    changed_at timestamptz NOT NULL,
    changed_by text NOT NULL,
    changed_on text NOT NULL,
    superseded_at timestamptz NOT NULL
);
CREATE INDEX superseded_at ON settings.superseded (layer, superseded_at);

-- The last operation of each client of a user: what is sent twice is done once.
CREATE TABLE settings.client (
    layer integer NOT NULL REFERENCES settings.layer ON DELETE CASCADE,
    id uuid NOT NULL,
    last_op bigint NOT NULL,
    PRIMARY KEY (layer, id)
);

-- One row for each step. A schema with fewer or more objects than it was made with is damaged.
CREATE TABLE settings.schema_version (
    version integer PRIMARY KEY,
    objects bigint NOT NULL,
    migrated_at timestamptz NOT NULL DEFAULT now(),
    migrated_by text NOT NULL DEFAULT session_user
);

INSERT INTO settings.layer (kind, name) VALUES ('studio', '');

-- --- The second wall: rows of the login only, also for the owner of the tables ---

ALTER TABLE settings.layer ENABLE ROW LEVEL SECURITY, FORCE ROW LEVEL SECURITY;
ALTER TABLE settings.value ENABLE ROW LEVEL SECURITY, FORCE ROW LEVEL SECURITY;
ALTER TABLE settings.superseded ENABLE ROW LEVEL SECURITY, FORCE ROW LEVEL SECURITY;
ALTER TABLE settings.client ENABLE ROW LEVEL SECURITY, FORCE ROW LEVEL SECURITY;

-- An administrator sees that a layer exists and at which revision it is, which is no secret, but no value in it.
CREATE POLICY seen ON settings.layer FOR SELECT USING (
    kind = 'studio' OR name = session_user::text
    OR pg_has_role(session_user, 'settings_admin', 'MEMBER') OR pg_has_role(session_user, 'settings_watch', 'MEMBER'));
CREATE POLICY made ON settings.layer FOR INSERT WITH CHECK (kind = 'user' AND name = session_user::text);
CREATE POLICY changed ON settings.layer FOR UPDATE USING (
    (kind = 'user' AND name = session_user::text) OR (kind = 'studio' AND pg_has_role(session_user, 'settings_admin', 'MEMBER')));
CREATE POLICY forgotten ON settings.layer FOR DELETE USING (kind = 'user' AND pg_has_role(session_user, 'settings_admin', 'MEMBER'));

CREATE POLICY seen ON settings.value FOR SELECT USING (
    layer = ANY (ARRAY(SELECT id FROM settings.layer AS l WHERE l.kind = 'studio' OR l.name = session_user::text)));
CREATE POLICY made ON settings.value FOR INSERT WITH CHECK (layer = ANY (ARRAY(
    SELECT id FROM settings.layer AS l
    WHERE (l.kind = 'user' AND l.name = session_user::text)
        OR (l.kind = 'studio' AND pg_has_role(session_user, 'settings_admin', 'MEMBER')))));
CREATE POLICY changed ON settings.value FOR UPDATE USING (layer = ANY (ARRAY(
    SELECT id FROM settings.layer AS l
    WHERE (l.kind = 'user' AND l.name = session_user::text)
        OR (l.kind = 'studio' AND pg_has_role(session_user, 'settings_admin', 'MEMBER')))));

CREATE POLICY own ON settings.superseded USING (layer = ANY (ARRAY(
    SELECT id FROM settings.layer AS l
    WHERE (l.kind = 'user' AND l.name = session_user::text)
        OR (l.kind = 'studio' AND pg_has_role(session_user, 'settings_admin', 'MEMBER')))));

CREATE POLICY own ON settings.client USING (layer = ANY (ARRAY(
    SELECT id FROM settings.layer AS l WHERE l.kind = 'user' AND l.name = session_user::text)));

-- --- What the functions share; nobody may call it ---

-- Raises where the login is no administrator.
CREATE FUNCTION settings.demand_admin() RETURNS void
LANGUAGE plpgsql SET search_path = pg_catalog, pg_temp AS $$
BEGIN
    IF NOT pg_has_role(session_user, 'settings_admin', 'MEMBER') THEN
        RAISE EXCEPTION USING ERRCODE = 'ST004', MESSAGE = 'only an administrator of the settings may do this',
            HINT = 'ask one, or have the role settings_admin granted';
    END IF;
END $$;

-- Raises where the arguments of `put_v1` make no sense. No constraint of a table says it first: that would put the row into the log.
CREATE FUNCTION settings.check_put(client uuid, op bigint, studio boolean, store text, key bytea, kind text, value bytea, locked boolean,
    age bigint, base bigint) RETURNS void
LANGUAGE plpgsql SET search_path = pg_catalog, pg_temp AS $$
BEGIN
    IF octet_length(value) > 16777216 THEN
        RAISE EXCEPTION USING ERRCODE = 'ST001', MESSAGE = 'the value is longer than 16 MiB', HINT = 'store a shorter one';
    ELSIF octet_length(key) > 4096 OR octet_length(store) > 255 THEN
        RAISE EXCEPTION USING ERRCODE = 'ST002', MESSAGE = 'the key is longer than 4096 bytes, or the store''s name longer than 255',
            HINT = 'use a shorter one';
    ELSIF client IS NULL OR op IS NULL OR op < 1 OR studio IS NULL OR store IS NULL OR store = '' OR key IS NULL OR locked IS NULL
        OR age IS NULL OR base IS NULL OR (kind IS NULL) <> (value IS NULL) OR kind NOT IN ('bool', 'int', 'string', 'bytes')
        OR (locked AND (kind IS NULL OR NOT studio)) THEN
        RAISE EXCEPTION USING ERRCODE = 'ST005', MESSAGE = 'an argument of put_v1 makes no sense', HINT = 'update the program that sent it';
    END IF;
END $$;

-- Raises where the studio has locked the key.
CREATE FUNCTION settings.demand_unlocked(store text, key bytea) RETURNS void
LANGUAGE plpgsql SET search_path = pg_catalog, pg_temp AS $$
BEGIN
    IF EXISTS (SELECT FROM settings.value AS v JOIN settings.layer AS l ON l.id = v.layer AND l.kind = 'studio'
               WHERE v.store = demand_unlocked.store AND sha256(v.key) = sha256(demand_unlocked.key) AND v.locked) THEN
        RAISE EXCEPTION USING ERRCODE = 'ST003', MESSAGE = 'the studio has locked this preference',
            HINT = 'ask an administrator of the settings to unlock it';
    END IF;
END $$;

-- The row of the user's own layer, or of the studio's, locked to the end of the transaction.
CREATE FUNCTION settings.locked_layer(studio boolean) RETURNS settings.layer
LANGUAGE plpgsql SET search_path = pg_catalog, pg_temp AS $$
DECLARE
    result settings.layer;
BEGIN
    SELECT * INTO result FROM settings.layer AS l
        WHERE l.kind = CASE WHEN studio THEN 'studio' ELSE 'user' END AND l.name = CASE WHEN studio THEN '' ELSE session_user::text END
        FOR NO KEY UPDATE; -- a hello may add a client meanwhile
    IF NOT FOUND THEN
        RAISE EXCEPTION USING ERRCODE = 'ST006', MESSAGE = 'the server does not know this user or this client', HINT = 'call hello_v1 first';
    END IF;
    RETURN result;
END $$;

-- The row of one of the user's clients, locked to the end of the transaction.
CREATE FUNCTION settings.locked_client(client uuid) RETURNS settings.client
LANGUAGE plpgsql SET search_path = pg_catalog, pg_temp AS $$
DECLARE
    result settings.client;
BEGIN
    SELECT c.* INTO result FROM settings.client AS c
        JOIN settings.layer AS l ON l.id = c.layer AND l.kind = 'user' AND l.name = session_user::text
        WHERE c.id = locked_client.client FOR UPDATE OF c;
    IF NOT FOUND THEN
        RAISE EXCEPTION USING ERRCODE = 'ST006', MESSAGE = 'the server does not know this user or this client', HINT = 'call hello_v1 first';
    END IF;
    RETURN result;
END $$;

-- A user can switch it off for the own role, but what is answered "stored" must be on disk.
CREATE FUNCTION settings.demand_durable_commit() RETURNS void
LANGUAGE plpgsql SET search_path = pg_catalog, pg_temp AS $$
BEGIN
    IF current_setting('synchronous_commit') <> 'remote_apply' THEN
        PERFORM set_config('synchronous_commit', 'on', true);
    END IF;
END $$;

-- Gives a locked layer its next revision and returns it. Listeners are notified at the commit. Each session that listens to a user's
-- layer holds the advisory lock shared, so who gets it alone has nobody to tell; a newcomer waits for it to the commit, and then
-- reads the change. The payload is only a hint to look, as any login may send one. A notification takes a lock of the whole
-- cluster, which is why it is not sent for nobody.
CREATE FUNCTION settings.next_revision(target settings.layer) RETURNS bigint
LANGUAGE plpgsql SET search_path = pg_catalog, pg_temp AS $$
DECLARE
    given bigint := target.revision + 1;
BEGIN
    UPDATE settings.layer AS l SET revision = given WHERE l.id = target.id;
    IF target.kind = 'studio' THEN
        PERFORM pg_notify('settings_studio', given::text);
    ELSIF NOT pg_try_advisory_xact_lock(1397052500, target.id) THEN
        PERFORM pg_notify('settings_u' || target.id, given::text);
    END IF;
    RETURN given;
END $$;

-- Keeps a value that lost, for 90 days.
CREATE FUNCTION settings.keep(lost settings.value) RETURNS void
LANGUAGE sql SET search_path = pg_catalog, pg_temp AS $$
    DELETE FROM settings.superseded AS s WHERE s.layer = lost.layer AND s.superseded_at < clock_timestamp() - interval '90 days';
    INSERT INTO settings.superseded (layer, store, key, kind, value, changed_at, changed_by, changed_on, superseded_at)
        VALUES (lost.layer, lost.store, lost.key, lost.kind, lost.value, lost.changed_at, lost.changed_by, lost.changed_on, clock_timestamp())
$$;

-- Where the change came from, for people.
CREATE FUNCTION settings.origin() RETURNS text
LANGUAGE sql STABLE SET search_path = pg_catalog, pg_temp AS $$ SELECT coalesce(host(inet_client_addr()), 'local') $$;

-- Stores `wanted` in its layer, or keeps it as superseded. Returns the outcome.
CREATE FUNCTION settings.resolve(wanted settings.value, base bigint, now timestamptz) RETURNS text
LANGUAGE plpgsql SET search_path = pg_catalog, pg_temp AS $$
DECLARE
    stored settings.value;
    is_unseen boolean;
BEGIN
    SELECT * INTO stored FROM settings.value AS v
        WHERE v.layer = wanted.layer AND v.store = wanted.store AND sha256(v.key) = sha256(wanted.key);
    -- A client has seen its own earlier change, although its base was taken before the server had it.
    is_unseen := FOUND AND stored.revision > base AND stored.client IS DISTINCT FROM wanted.client
        AND (stored.kind, stored.value) IS DISTINCT FROM (wanted.kind, wanted.value);
    -- Where the server's clock was set back, a row of the future counts as changed just now.
    IF is_unseen AND least(stored.changed_at, now) > wanted.changed_at THEN
        PERFORM settings.keep(wanted);
        RETURN 'superseded';
    ELSIF is_unseen THEN
        PERFORM settings.keep(stored);
    END IF;
    INSERT INTO settings.value VALUES (wanted.*)
    ON CONFLICT (layer, store, sha256(key)) DO UPDATE SET
        kind = excluded.kind, value = excluded.value, locked = excluded.locked, revision = excluded.revision, client = excluded.client,
        changed_at = excluded.changed_at, changed_by = excluded.changed_by, changed_on = excluded.changed_on;
    RETURN 'stored';
END $$;

-- The log's timeline is current right after a failover, where the control file's still is the old one. The table has another
-- number after a restored backup.
CREATE FUNCTION settings.epoch(layer integer) RETURNS text
LANGUAGE sql SET search_path = pg_catalog, pg_temp AS $$
    SELECT concat_ws('-', (SELECT system_identifier FROM pg_control_system()), left(pg_walfile_name(pg_current_wal_lsn()), 8),
        'settings.value'::regclass::oid, epoch.layer)
$$;

-- Takes the lock that tells writers of a listener. Any login can hold it alone, so it is not waited for long.
CREATE FUNCTION settings.has_announced(layer integer) RETURNS boolean
LANGUAGE plpgsql SET search_path = pg_catalog, pg_temp AS $$
BEGIN
    PERFORM pg_advisory_lock_shared(1397052500, layer);
    RETURN true;
EXCEPTION WHEN lock_not_available THEN
    RETURN false;
END $$;

-- How many tables, functions and rules of row security the schema holds: what stays the same after a whole restore.
CREATE FUNCTION settings.objects() RETURNS bigint
LANGUAGE sql STABLE SET search_path = pg_catalog, pg_temp AS $$
    SELECT (SELECT count(*) FROM pg_class WHERE relnamespace = 'settings'::regnamespace AND relkind IN ('r', 'S', 'v'))
         + (SELECT count(*) FROM pg_proc WHERE pronamespace = 'settings'::regnamespace)
         + (SELECT count(*) FROM pg_policies WHERE schemaname = 'settings')
$$;

-- --- The interface of version 1 ---

-- The first call of a session; makes what is missing of the user. `client` names the program's queue of changes, and `backend` is
-- the process that the client's connection believes to talk to, or 0.
--
--   schema        the version of the schema
--   epoch         changes where revisions may have gone back: another server, a failover, a restored backup, a forgotten user
--   studio_layer  the number of the studio's layer; told of on the channel settings_studio
--   user_layer    the number of the user's layer; told of on the channel settings_u and the number
--   last_op       the last operation of the client that the server has; 0 for none
--   hears         whether changes will be notified. If not, a pooler is between or a stranger holds the lock: poll
--
-- A client that wants to hear listens next, in a statement of its own, and then calls changes_v1.
CREATE FUNCTION settings.hello_v1(client uuid, backend integer)
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
    INSERT INTO settings.client VALUES (user_layer, client, 0) ON CONFLICT (layer, id) DO NOTHING;
    SELECT c.last_op INTO last_op FROM settings.client AS c WHERE c.layer = user_layer AND c.id = client;
    SELECT max(version) INTO schema FROM settings.schema_version;
    epoch := settings.epoch(user_layer);
    hears := coalesce(backend, 0) = pg_backend_pid() AND settings.has_announced(user_layer);
    RETURN NEXT;
END $$;

-- Every row above both revisions, of one moment. 0 asks for all that is there, without what was removed.
-- A layer without news has one row, in which everything behind layer_revision is null. A layer_revision below the one that was asked for
-- belongs to another history: ask again with 0. Kind null: removed. The functions do not look into values: check them.
CREATE FUNCTION settings.changes_v1(user_since bigint, studio_since bigint)
RETURNS TABLE (studio boolean, layer_revision bigint, store text, key bytea, kind text, value bytea, locked boolean, revision bigint,
    changed_at timestamptz, changed_by text)
LANGUAGE plpgsql STABLE SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $$
#variable_conflict use_column
BEGIN
    RETURN QUERY
        SELECT l.kind = 'studio', l.revision, v.store, v.key, v.kind, v.value, v.locked, v.revision, v.changed_at, v.changed_by
        FROM settings.layer AS l
        CROSS JOIN LATERAL (SELECT CASE l.kind WHEN 'studio' THEN studio_since ELSE user_since END AS since) AS asked
        LEFT JOIN settings.value AS v ON v.layer = l.id AND v.revision > asked.since AND (asked.since > 0 OR v.kind IS NOT NULL)
        WHERE l.kind = 'studio' OR (l.kind = 'user' AND l.name = session_user::text)
        ORDER BY v.revision;
END $$;

-- Changes a value, or removes it where kind and value are null. Returns the outcome, and the revision at which the layer is then.
--
--   client  the name that hello_v1 was called with
--   op      numbers the operations of a client upwards; one that the server has is answered "repeated", without effect
--   studio  whether for all users: only for administrators. `locked` then keeps users from changing it
--   age     the milliseconds since the user made the change, by a clock of the workstation that nobody sets
--   base    the revision of the layer that the client knew then
--
-- A change made in knowledge of the stored value wins, of others the later one; the loser is kept. The answer is "stored" or
-- "superseded". Clocks of two machines are never compared. With autocommit the server has the change on disk when it answers.
CREATE FUNCTION settings.put_v1(client uuid, op bigint, studio boolean, store text, key bytea, kind text, value bytea, locked boolean,
    age bigint, base bigint)
RETURNS TABLE (outcome text, revision bigint)
LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $$
DECLARE
    target settings.layer;
    sender settings.client;
    now timestamptz;
BEGIN
    PERFORM settings.check_put(client, op, studio, store, key, kind, value, locked, age, base);
    IF studio THEN
        PERFORM settings.demand_admin();
    END IF;
    PERFORM settings.demand_durable_commit();
    target := settings.locked_layer(studio);
    now := clock_timestamp(); -- before the lock it would be out of the order of the commits
    sender := settings.locked_client(client);
    revision := target.revision;
    outcome := 'repeated';
    IF sender.last_op < op THEN
        IF NOT studio THEN
            PERFORM settings.demand_unlocked(store, key);
        END IF;
        outcome := settings.resolve(ROW(target.id, store, key, kind, value, locked, target.revision + 1, client,
            now - least(greatest(age, 0), 315576000000) * interval '1 ms', session_user, settings.origin()), base, now);
        UPDATE settings.client AS c SET last_op = op WHERE c.layer = sender.layer AND c.id = sender.id;
    END IF;
    IF outcome = 'stored' THEN
        revision := settings.next_revision(target);
    END IF;
    RETURN NEXT;
END $$;

-- Locks a value of the studio against changes by users, or unlocks it. Only for administrators. Returns the revision of the studio's layer.
CREATE FUNCTION settings.lock_v1(store text, key bytea, locked boolean) RETURNS bigint
LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $$
DECLARE
    target settings.layer;
BEGIN
    PERFORM settings.demand_admin();
    IF locked IS NULL THEN
        RAISE EXCEPTION USING ERRCODE = 'ST005', MESSAGE = 'an argument of lock_v1 makes no sense', HINT = 'update the program that sent it';
    END IF;
    PERFORM settings.demand_durable_commit();
    target := settings.locked_layer(true);
    UPDATE settings.value AS v SET locked = lock_v1.locked, revision = target.revision + 1, client = NULL, changed_at = clock_timestamp(),
        changed_by = session_user, changed_on = settings.origin()
        WHERE v.layer = target.id AND v.store = lock_v1.store AND sha256(v.key) = sha256(lock_v1.key) AND v.kind IS NOT NULL;
    IF NOT FOUND THEN
        RAISE EXCEPTION USING ERRCODE = 'ST007', MESSAGE = 'the studio has no value for this preference', HINT = 'set one for the studio first';
    END IF;
    RETURN settings.next_revision(target);
END $$;

-- The values that lost a conflict in the last 90 days, in the order in which they lost: the user's own, or the studio's, which only
-- administrators see. Kind null: a removal lost.
CREATE FUNCTION settings.superseded_v1(studio boolean)
RETURNS TABLE (store text, key bytea, kind text, value bytea, changed_at timestamptz, changed_by text, changed_on text,
    superseded_at timestamptz)
LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $$
#variable_conflict use_column
BEGIN
    IF superseded_v1.studio THEN
        PERFORM settings.demand_admin();
    END IF;
    RETURN QUERY
        SELECT s.store, s.key, s.kind, s.value, s.changed_at, s.changed_by, s.changed_on, s.superseded_at
        FROM settings.superseded AS s JOIN settings.layer AS l ON l.id = s.layer
        WHERE CASE WHEN superseded_v1.studio THEN l.kind = 'studio' ELSE l.kind = 'user' AND l.name = session_user::text END
            AND s.superseded_at >= clock_timestamp() - interval '90 days'
        ORDER BY s.superseded_at, s.id;
END $$;

-- The revisions of some layers, for a program that polls for many users: numbers, which are no secret.
CREATE FUNCTION settings.revisions_v1(layers integer[]) RETURNS TABLE (layer integer, revision bigint)
LANGUAGE plpgsql STABLE SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $$
#variable_conflict use_column
BEGIN
    RETURN QUERY SELECT l.id, l.revision FROM settings.layer AS l WHERE l.id = ANY (layers) ORDER BY l.id;
END $$;

-- Forgets a user with all values, before the login's name is given to somebody else. Only for administrators. Returns whether there
-- was something to forget.
CREATE FUNCTION settings.forget_user_v1(name text) RETURNS boolean
LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $$
BEGIN
    PERFORM settings.demand_admin();
    PERFORM settings.demand_durable_commit();
    DELETE FROM settings.layer AS l WHERE l.kind = 'user' AND l.name = forget_user_v1.name;
    RETURN FOUND;
END $$;

-- --- Who may call what ---

REVOKE ALL ON ALL TABLES IN SCHEMA settings FROM PUBLIC;
REVOKE ALL ON ALL FUNCTIONS IN SCHEMA settings FROM PUBLIC;
GRANT EXECUTE ON FUNCTION settings.hello_v1, settings.changes_v1, settings.put_v1, settings.superseded_v1 TO settings_user;
GRANT EXECUTE ON FUNCTION settings.lock_v1, settings.forget_user_v1 TO settings_admin;
GRANT EXECUTE ON FUNCTION settings.revisions_v1 TO settings_watch;

-- The last statement, so that a schema without a version is incomplete.
INSERT INTO settings.schema_version (version, objects) VALUES (1, settings.objects());
RESET ROLE;
