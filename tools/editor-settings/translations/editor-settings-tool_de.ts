<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Text</name>
    <message>
        <source>Did you mean %1?</source>
        <translation>Meinten Sie %1?</translation>
    </message>
    <message>
        <source>Did you mean %1? &apos;%2 --help&apos; shows how it is used.</source>
        <translation>Meinten Sie %1? &apos;%2 --help&apos; zeigt, wie es verwendet wird.</translation>
    </message>
    <message>
        <source>The verbs are %1 and %2.</source>
        <translation>Die Befehle sind %1 und %2.</translation>
    </message>
    <message>
        <source>What follows %1 is one of %2 and %3.</source>
        <translation>Auf %1 folgt %2 oder %3.</translation>
    </message>
    <message>
        <source>(unset)</source>
        <translation>(nicht gesetzt)</translation>
    </message>
    <message>
        <source>STORE</source>
        <translation>SPEICHER</translation>
    </message>
    <message>
        <source>KEY</source>
        <translation>SCHLÜSSEL</translation>
    </message>
    <message>
        <source>NOW</source>
        <translation>JETZT</translation>
    </message>
    <message>
        <source>IN THE BACKUP</source>
        <translation>IN DER SICHERUNG</translation>
    </message>
    <message numerus="yes">
        <source>the %1 store of %2: %n values would change</source>
        <comment>the %1 store of %2: %n value would change</comment>
        <translation>
            <numerusform>Speicher %1 vom %2: %n Wert würde sich ändern</numerusform>
            <numerusform>Speicher %1 vom %2: %n Werte würden sich ändern</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the %1 store of %2: %n values differ from before</source>
        <comment>the %1 store of %2: %n value differs from before</comment>
        <translation>
            <numerusform>Speicher %1 vom %2: %n Wert ist anders als vorher</numerusform>
            <numerusform>Speicher %1 vom %2: %n Werte sind anders als vorher</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; what was there is kept in %2</source>
        <translation>%1; was vorher dort war, liegt in %2</translation>
    </message>
    <message>
        <source>there is no store yet, so there is nothing to back up</source>
        <translation>es gibt noch keinen Speicher, also auch nichts zu sichern</translation>
    </message>
    <message>
        <source>copying the stores</source>
        <translation>Speicher werden kopiert</translation>
    </message>
    <message>
        <source>reading the copy</source>
        <translation>Kopie wird gelesen</translation>
    </message>
    <message numerus="yes">
        <source>the %1 store is backed up with %n values</source>
        <comment>the %1 store is backed up with %n value</comment>
        <translation>
            <numerusform>der Speicher %1 ist mit %n Wert gesichert</numerusform>
            <numerusform>der Speicher %1 ist mit %n Werten gesichert</numerusform>
        </translation>
    </message>
    <message>
        <source>reading the backup</source>
        <translation>Sicherung wird gelesen</translation>
    </message>
    <message>
        <source>restoring the %1 store</source>
        <translation>Speicher %1 wird wiederhergestellt</translation>
    </message>
    <message>
        <source>the backup holds no %1 store, so that one stays as it is</source>
        <translation>die Sicherung enthält keinen Speicher %1, er bleibt daher, wie er ist</translation>
    </message>
    <message>
        <source>%1 is written by the editor alone, so it cannot be set; &apos;editor-settings unset&apos; removes it</source>
        <translation>%1 wird nur vom Editor geschrieben und kann nicht gesetzt werden; &apos;editor-settings unset&apos; entfernt den Wert</translation>
    </message>
    <message>
        <source>%1 is kept in memory only by a product of this kind, so it cannot be set from outside the editor</source>
        <translation>ein Produkt dieser Art hält %1 nur im Arbeitsspeicher, daher lässt es sich nicht von außerhalb des Editors setzen</translation>
    </message>
    <message>
        <source>TYPE</source>
        <translation>TYP</translation>
    </message>
    <message>
        <source>STATE</source>
        <translation>ZUSTAND</translation>
    </message>
    <message>
        <source>VALUE</source>
        <translation>WERT</translation>
    </message>
    <message>
        <source>%1 holds a value of kind %2 that cannot be read, so the default is read; &apos;editor-settings explain %1&apos; shows both</source>
        <translation>%1 enthält einen Wert der Art %2, der nicht lesbar ist, daher wird der Standardwert gelesen; &apos;editor-settings explain %1&apos; zeigt beide</translation>
    </message>
    <message>
        <source>%1 holds a value of kind %2, so the default is read; &apos;editor-settings explain %1&apos; shows both</source>
        <translation>%1 enthält einen Wert der Art %2, daher wird der Standardwert gelesen; &apos;editor-settings explain %1&apos; zeigt beide</translation>
    </message>
    <message>
        <source>%1 was not set</source>
        <translation>%1 war nicht gesetzt</translation>
    </message>
    <message>
        <source>key</source>
        <translation>Schlüssel</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>class</source>
        <translation>Klasse</translation>
    </message>
    <message>
        <source>store</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>state</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>stored</source>
        <translation>gespeichert</translation>
    </message>
    <message>
        <source>stored kind</source>
        <translation>gespeicherte Art</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>default</source>
        <translation>Standardwert</translation>
    </message>
    <message>
        <source>computed by</source>
        <translation>berechnet von</translation>
    </message>
    <message>
        <source>nothing: it is fixed</source>
        <translation>nichts: Er steht fest</translation>
    </message>
    <message>
        <source>value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>default name</source>
        <translation>Standardname</translation>
    </message>
    <message>
        <source>extensions</source>
        <translation>Endungen</translation>
    </message>
    <message>
        <source>extension for saving</source>
        <translation>Endung beim Speichern</translation>
    </message>
    <message>
        <source>save filter</source>
        <translation>Filter beim Speichern</translation>
    </message>
    <message>
        <source>open filter</source>
        <translation>Filter beim Öffnen</translation>
    </message>
    <message>
        <source>sample project</source>
        <translation>Beispielprojekt</translation>
    </message>
    <message>
        <source>there is no sample project below %1</source>
        <translation>unter %1 gibt es kein Beispielprojekt</translation>
    </message>
    <message>
        <source>set HOME to the folder of the user whom the editor runs for</source>
        <translation>setzen Sie HOME auf den persönlichen Ordner des Benutzers, für den der Editor läuft</translation>
    </message>
    <message>
        <source>looking at the %1 store</source>
        <translation>Speicher %1 wird geprüft</translation>
    </message>
    <message>
        <source>looking at the names of recordings</source>
        <translation>Namen der Aufnahmen werden geprüft</translation>
    </message>
    <message>
        <source>looking at the names of freeze frames</source>
        <translation>Namen der Standbilder werden geprüft</translation>
    </message>
    <message>
        <source>looking at the names of stabilized clips</source>
        <translation>Namen der stabilisierten Clips werden geprüft</translation>
    </message>
    <message>
        <source>looking at the folders that the editor writes to</source>
        <translation>Ordner, in die der Editor schreibt, werden geprüft</translation>
    </message>
    <message>
        <source>opening the stores</source>
        <translation>Speicher werden geöffnet</translation>
    </message>
    <message>
        <source>nothing else can be looked at without it: mend it, or name another with --product</source>
        <translation>ohne sie lässt sich nichts weiter prüfen: Reparieren Sie sie oder nennen Sie mit --product eine andere</translation>
    </message>
    <message>
        <source>note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>unusable</source>
        <translation>unbrauchbar</translation>
    </message>
    <message>
        <source>usable</source>
        <translation>brauchbar</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>schreibgeschützt</translation>
    </message>
    <message>
        <source>%1 (%2 store)</source>
        <translation>%1 (Speicher %2)</translation>
    </message>
    <message>
        <source>%1, schema %2, journal mode %3</source>
        <translation>%1, Schema %2, Journalmodus %3</translation>
    </message>
    <message>
        <source>%1, on %2</source>
        <translation>%1, auf %2</translation>
    </message>
    <message>
        <source>%1, on %2 at %3</source>
        <translation>%1, auf %2 unter %3</translation>
    </message>
    <message numerus="yes">
        <source>%n errors</source>
        <comment>%n error</comment>
        <translation>
            <numerusform>%n Fehler</numerusform>
            <numerusform>%n Fehler</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warnings</source>
        <comment>%n warning</comment>
        <translation>
            <numerusform>%n Warnung</numerusform>
            <numerusform>%n Warnungen</numerusform>
        </translation>
    </message>
    <message>
        <source>all is well</source>
        <translation>alles ist in Ordnung</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>product file</source>
        <translation>Produktdatei</translation>
    </message>
    <message>
        <source>%1 store</source>
        <translation>Speicher %1</translation>
    </message>
    <message>
        <source>the folder of the store cannot be used: %1, so no store can be made</source>
        <translation>der Ordner des Speichers ist unbrauchbar: %1, daher kann kein Speicher angelegt werden</translation>
    </message>
    <message>
        <source>the folder of the store cannot be used: %1, so no change can be stored</source>
        <translation>der Ordner des Speichers ist unbrauchbar: %1, daher kann keine Änderung gespeichert werden</translation>
    </message>
    <message>
        <source>give this user the rights to the folder, or name another with --home</source>
        <translation>geben Sie diesem Benutzer die Rechte an dem Ordner oder nennen Sie mit --home einen anderen</translation>
    </message>
    <message>
        <source>nothing is stored there yet</source>
        <translation>dort ist noch nichts gespeichert</translation>
    </message>
    <message>
        <source>nothing to do: the store is made when something is stored</source>
        <translation>nichts zu tun: Der Speicher entsteht, wenn etwas gespeichert wird</translation>
    </message>
    <message>
        <source>other users may read or change it: its mode is %1</source>
        <translation>andere Benutzer dürfen die Datei lesen oder ändern, denn ihr Modus ist %1</translation>
    </message>
    <message>
        <source>it belongs to another user, %1</source>
        <translation>gehört einem anderen Benutzer, %1</translation>
    </message>
    <message>
        <source>run this program and the editor as that user, or give the file to %1</source>
        <translation>führen Sie dieses Programm und den Editor als dieser Benutzer aus oder übergeben Sie die Datei an %1</translation>
    </message>
    <message>
        <source>a journal of %1 bytes lies there: its store is gone, and no new one is made beside it</source>
        <translation>ein Journal von %1 Byte liegt hier: Sein Speicher ist weg, und daneben wird kein neuer angelegt</translation>
    </message>
    <message>
        <source>bring the store back beside its journal, or move the journal away</source>
        <translation>stellen Sie den Speicher wieder neben sein Journal oder verschieben Sie das Journal an einen anderen Ort</translation>
    </message>
    <message>
        <source>a journal of %1 bytes lies there: a change is being made right now, or was interrupted</source>
        <translation>ein Journal von %1 Byte liegt hier: Eine Änderung findet gerade statt oder wurde unterbrochen</translation>
    </message>
    <message>
        <source>look again in a moment; where it stays, leave it beside the store and start the editor, which undoes the change</source>
        <translation>sehen Sie gleich noch einmal nach; bleibt es, lassen Sie es neben dem Speicher und starten Sie den Editor, der die Änderung zurücknimmt</translation>
    </message>
    <message>
        <source>a file system without a name</source>
        <translation>einem Dateisystem ohne Namen</translation>
    </message>
    <message>
        <source>keep the stores on a local disk: move the data folder there (XDG_DATA_HOME), or name a folder with --home</source>
        <translation>halten Sie die Speicher auf einer lokalen Platte: Verlegen Sie den Datenordner dorthin (XDG_DATA_HOME) oder nennen Sie mit --home einen Ordner</translation>
    </message>
    <message>
        <source>it lies on %1, which may only be read, so nothing can be stored</source>
        <translation>liegt auf %1, von dem nur gelesen werden darf, daher kann nichts gespeichert werden</translation>
    </message>
    <message>
        <source>mount it for writing, or name another folder with --home</source>
        <translation>hängen Sie es zum Schreiben ein oder nennen Sie mit --home einen anderen Ordner</translation>
    </message>
    <message>
        <source>it lies on %1, where locks do not hold between machines, so that two editors can damage it</source>
        <translation>liegt auf %1, wo Sperren nicht zwischen Rechnern gelten, daher können zwei Editoren den Speicher beschädigen</translation>
    </message>
    <message>
        <source>it lies on %1, which has no hard links, so that no store can be made there</source>
        <translation>liegt auf %1, das keine harten Links kennt, daher kann dort kein Speicher angelegt werden</translation>
    </message>
    <message>
        <source>it lies on %1, which is kept in memory, so that all is lost with a restart</source>
        <translation>liegt auf %1, das im Arbeitsspeicher gehalten wird, daher geht bei einem Neustart alles verloren</translation>
    </message>
    <message>
        <source>it lies on %1, of which it cannot be told whether locks hold there</source>
        <translation>liegt auf %1; ob Sperren dort gelten, lässt sich nicht feststellen</translation>
    </message>
    <message>
        <source>nothing to do where the disk is local; else %1</source>
        <translation>nichts zu tun, wenn die Platte lokal ist; sonst: %1</translation>
    </message>
    <message>
        <source>it belongs in the %1 store and is not read here</source>
        <translation>gehört in den Speicher %1 und wird hier nicht gelesen</translation>
    </message>
    <message>
        <source>&apos;editor-settings explain %1&apos; shows what is read; what lies here is kept</source>
        <translation>&apos;editor-settings explain %1&apos; zeigt, was gelesen wird; was hier liegt, bleibt erhalten</translation>
    </message>
    <message>
        <source>the library knows no such key; it is kept</source>
        <translation>die Bibliothek kennt keinen solchen Schlüssel; er bleibt erhalten</translation>
    </message>
    <message>
        <source>nothing to do where a later version or another program stored it</source>
        <translation>nichts zu tun, wenn das von einer späteren Version oder einem anderen Programm stammt</translation>
    </message>
    <message>
        <source>have the program that keeps it store it anew</source>
        <translation>lassen Sie das Programm, dem sie gehört, sie neu speichern</translation>
    </message>
    <message>
        <source>the rational has no %1, so a read mixes it with a default</source>
        <translation>der rationalen Zahl fehlt %1, daher vermischt jedes Lesen sie mit einem Standardwert</translation>
    </message>
    <message>
        <source>the rational&apos;s %1 is no int, so a read mixes it with a default</source>
        <translation>%1 der rationalen Zahl ist kein int, daher vermischt jedes Lesen sie mit einem Standardwert</translation>
    </message>
    <message>
        <source>the rational&apos;s denominator is 0, so every read of it fails</source>
        <translation>der Nenner der rationalen Zahl ist 0, daher scheitert jedes Lesen</translation>
    </message>
    <message>
        <source>the library knows no such rational; it is kept</source>
        <translation>die Bibliothek kennt keine solche rationale Zahl; sie bleibt erhalten</translation>
    </message>
    <message>
        <source>&apos;editor-settings unset %1&apos; removes it, so that the default holds</source>
        <translation>&apos;editor-settings unset %1&apos; entfernt den Wert, sodass der Standardwert gilt</translation>
    </message>
    <message>
        <source>store it anew: &apos;editor-settings set %1 VALUE&apos;</source>
        <translation>speichern Sie den Wert neu: &apos;editor-settings set %1 VALUE&apos;</translation>
    </message>
    <message>
        <source>have the editor store it anew</source>
        <translation>lassen Sie den Editor den Wert neu speichern</translation>
    </message>
    <message>
        <source>it holds a value of kind %1 where one of kind %2 is read, so the default is read</source>
        <translation>enthält einen Wert der Art %1, wo einer der Art %2 gelesen wird, daher wird der Standardwert gelesen</translation>
    </message>
    <message>
        <source>it holds a value of kind %1 that cannot be read, so the default is read</source>
        <translation>enthält einen Wert der Art %1, der nicht lesbar ist, daher wird der Standardwert gelesen</translation>
    </message>
    <message>
        <source>it holds text that is not UTF-8, so it is not read as it is stored</source>
        <translation>enthält Text, der kein UTF-8 ist, und wird daher anders gelesen, als er gespeichert ist</translation>
    </message>
    <message>
        <source>the stored list would be another one when it is read and stored again, as it has empty elements or a part of the separator</source>
        <translation>die gespeicherte Liste wäre nach dem Lesen und erneuten Speichern eine andere, da sie leere Elemente oder einen Teil des Trennzeichens enthält</translation>
    </message>
    <message>
        <source>it holds %1, at the edge of its range: counting on would leave it</source>
        <translation>enthält %1, am Rand des Wertebereichs: Weiterzählen würde ihn verlassen</translation>
    </message>
    <message>
        <source>move the file with the highest number out of the folder, or store another folder in %1</source>
        <translation>verschieben Sie die Datei mit der höchsten Nummer aus dem Ordner oder setzen Sie %1 auf einen anderen Ordner</translation>
    </message>
    <message>
        <source>the running number has passed 2147483647 and counts no further; the next is %1</source>
        <translation>die laufende Nummer hat 2147483647 überschritten und zählt nicht weiter; die nächste ist %1</translation>
    </message>
    <message>
        <source>the running number nears its end at 2147483647; the next is %1</source>
        <translation>die laufende Nummer nähert sich ihrem Ende bei 2147483647; die nächste ist %1</translation>
    </message>
    <message numerus="yes">
        <source>%n more names in the folder with numbers near 2147483647 were not looked at</source>
        <comment>%n more names in the folder with numbers near 2147483647 were not looked at</comment>
        <translation>
            <numerusform>%n weiterer Name im Ordner mit Nummern nahe 2147483647 wurde nicht geprüft</numerusform>
            <numerusform>%n weitere Namen im Ordner mit Nummern nahe 2147483647 wurden nicht geprüft</numerusform>
        </translation>
    </message>
    <message>
        <source>move them out of the folder, or look again when those above are mended</source>
        <translation>verschieben Sie sie aus dem Ordner oder prüfen Sie noch einmal, wenn die obigen behoben sind</translation>
    </message>
    <message>
        <source>%1: the editor cannot write there: %2</source>
        <translation>%1: Der Editor kann dort nicht schreiben: %2</translation>
    </message>
    <message>
        <source>mend what is remarked: &apos;editor-settings paths --explain&apos; tells what decides, and a preference may be set to another folder</source>
        <translation>beheben Sie, was bemängelt wird: &apos;editor-settings paths --explain&apos; zeigt, was den Ort bestimmt, und eine Einstellung lässt sich auf einen anderen Ordner setzen</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>make it readable, or set the preference to another folder</source>
        <translation>machen Sie ihn lesbar oder setzen Sie die Einstellung auf einen anderen Ordner</translation>
    </message>
    <message>
        <source>not there yet: %1</source>
        <translation>noch nicht vorhanden: %1</translation>
    </message>
    <message>
        <source>nothing to do: the editor makes them when it writes there</source>
        <translation>nichts zu tun: Der Editor legt sie an, wenn er dorthin schreibt</translation>
    </message>
    <message>
        <source>Every preference whose key ends in Path.</source>
        <translation>Alle Einstellungen, deren Schlüssel auf Path endet.</translation>
    </message>
    <message>
        <source>What is stored, one preference a line, for a script.</source>
        <translation>Was gespeichert ist, eine Einstellung je Zeile, für ein Skript.</translation>
    </message>
    <message>
        <source>The folder that the editor exports to.</source>
        <translation>Der Ordner, in den der Editor exportiert.</translation>
    </message>
    <message>
        <source>A list in a form that every program reads alike.</source>
        <translation>Eine Liste in einer Form, die jedes Programm gleich liest.</translation>
    </message>
    <message>
        <source>Stores false.</source>
        <translation>Speichert false.</translation>
    </message>
    <message>
        <source>Stores another folder; the editor makes it.</source>
        <translation>Speichert einen anderen Ordner; der Editor legt ihn an.</translation>
    </message>
    <message>
        <source>Stores a list of two.</source>
        <translation>Speichert eine Liste mit zwei Elementen.</translation>
    </message>
    <message>
        <source>Stores a value that looks like an option.</source>
        <translation>Speichert einen Wert, der wie eine Option aussieht.</translation>
    </message>
    <message>
        <source>From now on the default holds.</source>
        <translation>Von nun an gilt der Standardwert.</translation>
    </message>
    <message>
        <source>Whether it is stored, where and since when, and what the default is.</source>
        <translation>Ob ein Wert gespeichert ist, wo und seit wann, und was der Standardwert ist.</translation>
    </message>
    <message>
        <source>What a new project is called, and which files the editor opens.</source>
        <translation>Wie ein neues Projekt heißt und welche Dateien der Editor öffnet.</translation>
    </message>
    <message>
        <source>The favourites of the list &quot;fonts&quot;.</source>
        <translation>Die Favoriten der Liste &quot;fonts&quot;.</translation>
    </message>
    <message>
        <source>What is kept for the indication &quot;tour&quot;, in base64.</source>
        <translation>Was für die Anzeige &quot;tour&quot; aufbewahrt wird, in base64.</translation>
    </message>
    <message>
        <source>Stores the bytes of the file tour.state for it.</source>
        <translation>Speichert dafür die Bytes der Datei tour.state.</translation>
    </message>
    <message>
        <source>The finished ones, one a line.</source>
        <translation>Die abgeschlossenen Lernprogramme, eines je Zeile.</translation>
    </message>
    <message>
        <source>Forgets them all.</source>
        <translation>Vergisst sie alle.</translation>
    </message>
    <message>
        <source>Stores these two in the place of those before.</source>
        <translation>Speichert diese beiden anstelle der bisherigen.</translation>
    </message>
    <message>
        <source>The text in which the editor keeps them.</source>
        <translation>Der Text, in dem der Editor sie aufbewahrt.</translation>
    </message>
    <message>
        <source>Every location whose name begins with stock.</source>
        <translation>Alle Orte, deren Name mit stock beginnt.</translation>
    </message>
    <message>
        <source>What decides where exports go.</source>
        <translation>Was bestimmt, wohin exportiert wird.</translation>
    </message>
    <message>
        <source>Whether the editor can write wherever it writes to.</source>
        <translation>Ob der Editor überall dort schreiben kann, wohin er schreiben soll.</translation>
    </message>
    <message>
        <source>The file that the next recording goes into.</source>
        <translation>Die Datei, in die die nächste Aufnahme kommt.</translation>
    </message>
    <message>
        <source>Makes an empty file of the next name, and prints that.</source>
        <translation>Legt eine leere Datei mit dem nächsten Namen an und gibt ihn aus.</translation>
    </message>
    <message>
        <source>The path on one line, whatever its folder is called.</source>
        <translation>Der Pfad auf einer Zeile, wie auch immer sein Ordner heißt.</translation>
    </message>
    <message>
        <source>The next freeze frame of that film.</source>
        <translation>Das nächste Standbild aus diesem Film.</translation>
    </message>
    <message>
        <source>The next stabilized clip of it.</source>
        <translation>Der nächste stabilisierte Clip davon.</translation>
    </message>
    <message>
        <source>Copies both stores into that file.</source>
        <translation>Kopiert beide Speicher in diese Datei.</translation>
    </message>
    <message>
        <source>What would be otherwise than now.</source>
        <translation>Was danach anders wäre als jetzt.</translation>
    </message>
    <message>
        <source>Brings the stores back, and tells where those of now are kept.</source>
        <translation>Stellt die Speicher wieder her und nennt, wo die jetzigen aufbewahrt werden.</translation>
    </message>
    <message>
        <source>A line for each change, until Ctrl+C.</source>
        <translation>Eine Zeile für jede Änderung, bis Strg+C.</translation>
    </message>
    <message>
        <source>What is wrong and what to do; exit status 0 where all is well.</source>
        <translation>Was nicht stimmt und was zu tun ist; Rückgabewert 0, wenn alles in Ordnung ist.</translation>
    </message>
    <message>
        <source>The same, for somebody who helps.</source>
        <translation>Dasselbe, für jemanden, der hilft.</translation>
    </message>
    <message>
        <source>Writes all that is stored.</source>
        <translation>Schreibt alles, was gespeichert ist.</translation>
    </message>
    <message>
        <source>The same without what is personal, on standard output.</source>
        <translation>Dasselbe ohne Persönliches, auf die Standardausgabe.</translation>
    </message>
    <message>
        <source>What would change.</source>
        <translation>Was sich ändern würde.</translation>
    </message>
    <message>
        <source>Stores what belongs to the user rather than to the machine.</source>
        <translation>Speichert, was eher zum Benutzer gehört als zum Rechner.</translation>
    </message>
    <message>
        <source>What is stored otherwise than in the file; exit status 1, as something is.</source>
        <translation>Was anders gespeichert ist als in der Datei; Rückgabewert 1, da etwas abweicht.</translation>
    </message>
    <message>
        <source>Nothing, as the two are alike.</source>
        <translation>Nichts, da beide gleich sind.</translation>
    </message>
    <message>
        <source>A script for bash: source editor-settings.bash</source>
        <translation>Ein Skript für bash: source editor-settings.bash</translation>
    </message>
    <message>
        <source>The page in a file: man ./editor-settings.1</source>
        <translation>Die Seite in einer Datei: man ./editor-settings.1</translation>
    </message>
    <message>
        <source>Examples:</source>
        <translation>Beispiele:</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>holds a NUL, at which the system would cut it off</source>
        <translation>enthält ein NUL-Zeichen, an dem das System ihn abschneiden würde</translation>
    </message>
    <message>
        <source>not absolute: it depends on the folder that the editor is started in</source>
        <translation>nicht absolut: hängt vom Ordner ab, in dem der Editor gestartet wird</translation>
    </message>
    <message>
        <source>dangling link to %1</source>
        <translation>Link ins Leere auf %1</translation>
    </message>
    <message>
        <source>missing, and %1: %2</source>
        <translation>fehlt, und bei %1: %2</translation>
    </message>
    <message>
        <source>missing, and %1 is not a folder</source>
        <translation>fehlt, und %1 ist kein Ordner</translation>
    </message>
    <message>
        <source>missing, and %1 is not writable</source>
        <translation>fehlt, und %1 ist nicht beschreibbar</translation>
    </message>
    <message>
        <source>missing; the editor can make it</source>
        <translation>fehlt; der Editor kann ihn anlegen</translation>
    </message>
    <message>
        <source>not a folder</source>
        <translation>kein Ordner</translation>
    </message>
    <message>
        <source>not writable</source>
        <translation>nicht beschreibbar</translation>
    </message>
    <message>
        <source>not readable, so names are numbered as if it were empty</source>
        <translation>nicht lesbar, daher wird nummeriert, als wäre er leer</translation>
    </message>
    <message>
        <source>the home folder itself</source>
        <translation>der persönliche Ordner selbst</translation>
    </message>
    <message>
        <source>HOME is not set, so / is taken for the home folder</source>
        <translation>HOME ist nicht gesetzt, daher gilt / als persönlicher Ordner</translation>
    </message>
    <message>
        <source>HOME is %1, which depends on the folder that a program is started in</source>
        <translation>HOME ist %1 und hängt damit vom Ordner ab, in dem ein Programm gestartet wird</translation>
    </message>
    <message>
        <source>HOME is %1, which is not a folder</source>
        <translation>HOME ist %1, aber das ist kein Ordner</translation>
    </message>
    <message>
        <source>HOME is %1, which is not there</source>
        <translation>HOME ist %1, aber das gibt es nicht</translation>
    </message>
    <message>
        <source>cannot read %1 (%2); name a file that can be read, or give - for standard input</source>
        <translation>%1 lässt sich nicht lesen (%2); nennen Sie eine lesbare Datei oder geben Sie - für die Standardeingabe an</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>ist ein Ordner</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>ist keine reguläre Datei</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>Standardeingabe</translation>
    </message>
    <message>
        <source>%1 holds more than %2 bytes, which is too much; name a smaller one</source>
        <translation>%1 enthält mehr als %2 Byte, das ist zu viel; nennen Sie eine kleinere Datei</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1:</translation>
    </message>
    <message>
        <source>watching both stores; Ctrl+C ends it</source>
        <translation>beide Speicher werden beobachtet; Strg+C beendet das</translation>
    </message>
    <message>
        <source>%1 is not UTF-8 without a byte order mark; give the name in UTF-8</source>
        <translation>%1 ist kein UTF-8 ohne Byte-Order-Mark; geben Sie den Namen in UTF-8 an</translation>
    </message>
    <message>
        <source>%1 is longer than a path can be; give the name of a file</source>
        <translation>%1 ist länger, als ein Pfad sein kann; geben Sie den Namen einer Datei an</translation>
    </message>
    <message>
        <source>nothing can be reserved in %1, which is %2: %3; store another folder there, or mend that</source>
        <translation>in %1, dem Ordner von %2, kann nichts reserviert werden: %3; setzen Sie die Einstellung auf einen anderen Ordner oder beheben Sie das</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile; try again</source>
        <translation>%1 wurde inzwischen geändert; versuchen Sie es noch einmal</translation>
    </message>
    <message>
        <source>the name %1 would not lie in %2 as it is; take a format without &quot;/&quot; and NUL</source>
        <translation>der Name %1 läge so nicht in %2; nehmen Sie ein Format ohne &quot;/&quot; und NUL</translation>
    </message>
    <message>
        <source>take a source with a shorter name</source>
        <translation>nehmen Sie eine Quelle mit einem kürzeren Namen</translation>
    </message>
    <message>
        <source>&apos;editor-settings paths --check&apos; tells which folders can be used</source>
        <translation>&apos;editor-settings paths --check&apos; zeigt, welche Ordner brauchbar sind</translation>
    </message>
    <message>
        <source>cannot make the file %1 (%2); %3</source>
        <translation>die Datei %1 lässt sich nicht anlegen (%2); %3</translation>
    </message>
    <message>
        <source>cannot make the folder %1 (%2); %3</source>
        <translation>der Ordner %1 lässt sich nicht anlegen (%2); %3</translation>
    </message>
    <message>
        <source>%1 is there already, though the editor would propose it</source>
        <translation>%1 ist schon vorhanden, obwohl der Editor es vorschlagen würde</translation>
    </message>
    <message>
        <source>%1 was taken by someone else meanwhile</source>
        <translation>%1 wurde inzwischen anderweitig vergeben</translation>
    </message>
    <message>
        <source>%1; %2 is reserved instead</source>
        <translation>%1; stattdessen ist %2 reserviert</translation>
    </message>
    <message>
        <source>%1 is reserved, but standard output cannot be written; remove the file if it is not wanted</source>
        <translation>%1 ist reserviert, aber die Standardausgabe lässt sich nicht beschreiben; entfernen Sie die Datei, wenn Sie sie nicht brauchen</translation>
    </message>
    <message>
        <source>%1 takes nothing after it</source>
        <translation>nach %1 darf nichts mehr folgen</translation>
    </message>
    <message>
        <source>%1 is not UTF-8 without a byte order mark; give it as the editor does</source>
        <translation>%1 ist kein UTF-8 ohne Byte-Order-Mark; geben Sie es so an wie der Editor</translation>
    </message>
    <message>
        <source>there is no location %1; %2&apos;editor-settings paths&apos; shows all</source>
        <translation>es gibt keinen Ort %1; %2&apos;editor-settings paths&apos; zeigt alle</translation>
    </message>
    <message>
        <source>say what %1 is asked about: &apos;editor-settings paths %1 %2&apos;</source>
        <translation>geben Sie an, wonach bei %1 gefragt wird: &apos;editor-settings paths %1 %2&apos;</translation>
    </message>
    <message>
        <source>&apos; or &apos;</source>
        <translation>&apos; oder &apos;</translation>
    </message>
    <message>
        <source>nothing goes after a pattern; name one location</source>
        <translation>nach einem Muster darf nichts mehr folgen; nennen Sie einen einzelnen Ort</translation>
    </message>
    <message>
        <source>nothing else: an absolute path stands for itself</source>
        <translation>nichts weiter: Ein absoluter Pfad steht für sich selbst</translation>
    </message>
    <message>
        <source>%1 is stored in %2</source>
        <translation>%1 ist in %2 gespeichert</translation>
    </message>
    <message>
        <source>%1 is stored with a value of another kind in %2, so %3 holds</source>
        <translation>%1 ist in %2 mit einem Wert anderer Art gespeichert, daher gilt %3</translation>
    </message>
    <message>
        <source>%1 is not stored in %2, so %3 holds</source>
        <translation>%1 ist in %2 nicht gespeichert, daher gilt %3</translation>
    </message>
    <message>
        <source>location</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>use</source>
        <translation>Verwendung</translation>
    </message>
    <message>
        <source>decided by</source>
        <translation>bestimmt durch</translation>
    </message>
    <message>
        <source>none found</source>
        <translation>nicht gefunden</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>LOCATION</source>
        <translation>ORT</translation>
    </message>
    <message>
        <source>EXISTS</source>
        <translation>VORHANDEN</translation>
    </message>
    <message>
        <source>WRITABLE</source>
        <translation>BESCHREIBBAR</translation>
    </message>
    <message>
        <source>REMARK</source>
        <translation>BEMERKUNG</translation>
    </message>
    <message>
        <source>PATH</source>
        <translation>PFAD</translation>
    </message>
    <message>
        <source>the editor cannot write to %1; mend what is remarked: &apos;editor-settings paths NAME --explain&apos; tells what decides, and a preference may be set to another folder</source>
        <translation>der Editor kann hier nicht schreiben: %1; beheben Sie, was bemängelt wird: &apos;editor-settings paths NAME --explain&apos; zeigt, was den Ort bestimmt, und eine Einstellung lässt sich auf einen anderen Ordner setzen</translation>
    </message>
    <message>
        <source>unreadable</source>
        <translation>unlesbar</translation>
    </message>
    <message>
        <source>other kind</source>
        <translation>andere Art</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>entfernt</translation>
    </message>
    <message>
        <source>set</source>
        <translation>gesetzt</translation>
    </message>
    <message>
        <source>added</source>
        <translation>hinzugefügt</translation>
    </message>
    <message>
        <source>step %1 of %2: %3</source>
        <translation>Schritt %1 von %2: %3</translation>
    </message>
    <message>
        <source>unset</source>
        <translation>nicht gesetzt</translation>
    </message>
    <message>
        <source>set to default</source>
        <translation>auf Standard gesetzt</translation>
    </message>
    <message>
        <source>%1 is reserved: the editor neither reads nor writes it, so it cannot be reached</source>
        <translation>%1 ist reserviert: Der Editor liest und schreibt diesen Schlüssel nicht, daher ist er nicht zugänglich</translation>
    </message>
    <message>
        <source>%1 is a location and no preference; &apos;editor-settings paths %1&apos; shows it</source>
        <translation>%1 ist ein Ort und keine Einstellung; &apos;editor-settings paths %1&apos; zeigt ihn</translation>
    </message>
    <message>
        <source>there is no preference %1; %2&apos;editor-settings list&apos; shows all</source>
        <translation>es gibt keine Einstellung %1; %2&apos;editor-settings list&apos; zeigt alle</translation>
    </message>
    <message>
        <source>the name %1 is not UTF-8 without a byte order mark; give it as the editor writes it</source>
        <translation>der Name %1 ist kein UTF-8 ohne Byte-Order-Mark; geben Sie ihn so an, wie der Editor ihn schreibt</translation>
    </message>
    <message>
        <source>(unreadable)</source>
        <translation>(unlesbar)</translation>
    </message>
    <message>
        <source>holds a value of kind %1 that this version cannot read</source>
        <translation>enthält einen Wert der Art %1, den diese Version nicht lesen kann</translation>
    </message>
    <message>
        <source>has a NUL in its key</source>
        <translation>hat ein NUL-Zeichen im Schlüssel</translation>
    </message>
    <message>
        <source>reading the %1 store</source>
        <translation>Speicher %1 wird gelesen</translation>
    </message>
    <message>
        <source>a key in the %1 store holds the path of the home folder, so it is left out</source>
        <translation>ein Schlüssel im Speicher %1 enthält den Pfad des persönlichen Ordners und wird daher weggelassen</translation>
    </message>
    <message>
        <source>%1 in the %2 store %3, so it is left out; &apos;editor-settings backup&apos; keeps it</source>
        <translation>%1 im Speicher %2 %3, daher wird der Schlüssel weggelassen; &apos;editor-settings backup&apos; sichert ihn mit</translation>
    </message>
    <message>
        <source>writing the file</source>
        <translation>Datei wird geschrieben</translation>
    </message>
    <message>
        <source>%1 is there already and was left as it is; name a new file, or move that one away</source>
        <translation>%1 ist schon vorhanden und wurde nicht angetastet; nennen Sie eine neue Datei oder verschieben Sie die vorhandene</translation>
    </message>
    <message>
        <source>%1 in the %2 store %3, so it is not compared</source>
        <translation>%1 im Speicher %2 %3, daher wird der Schlüssel nicht verglichen</translation>
    </message>
    <message>
        <source>comparing with the %1 store</source>
        <translation>Vergleich mit dem Speicher %1</translation>
    </message>
    <message>
        <source>(absent)</source>
        <translation>(nicht enthalten)</translation>
    </message>
    <message>
        <source>CHANGE</source>
        <translation>ÄNDERUNG</translation>
    </message>
    <message>
        <source>STORED</source>
        <translation>GESPEICHERT</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>DATEI</translation>
    </message>
    <message>
        <source>reading the file</source>
        <translation>Datei wird gelesen</translation>
    </message>
    <message numerus="yes">
        <source>%n redacted in the file, so not compared</source>
        <comment>%n redacted in the file, so not compared</comment>
        <translation>
            <numerusform>%n Wert in der Datei geschwärzt, daher nicht verglichen</numerusform>
            <numerusform>%n Werte in der Datei geschwärzt, daher nicht verglichen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; nothing was changed</source>
        <translation>%1; nichts wurde geändert</translation>
    </message>
    <message>
        <source>the %1 store is as it was</source>
        <translation>der Speicher %1 ist, wie er war</translation>
    </message>
    <message>
        <source>the %1 store holds the imported values</source>
        <translation>der Speicher %1 enthält die importierten Werte</translation>
    </message>
    <message>
        <source>the %1 store cannot be read</source>
        <translation>der Speicher %1 lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>changing the %1 store</source>
        <translation>Speicher %1 wird geändert</translation>
    </message>
    <message>
        <source>%1; %2; then import the file again</source>
        <translation>%1; %2; importieren Sie die Datei danach noch einmal</translation>
    </message>
    <message numerus="yes">
        <source>%n would change</source>
        <comment>%n would change</comment>
        <translation>
            <numerusform>%n Wert würde sich ändern</numerusform>
            <numerusform>%n Werte würden sich ändern</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n changed</source>
        <comment>%n changed</comment>
        <translation>
            <numerusform>%n Wert geändert</numerusform>
            <numerusform>%n Werte geändert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n already as in the file</source>
        <comment>%n already as in the file</comment>
        <translation>
            <numerusform>%n Wert schon wie in der Datei</numerusform>
            <numerusform>%n Werte schon wie in der Datei</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n redacted in the file and left alone</source>
        <comment>%n redacted in the file and left alone</comment>
        <translation>
            <numerusform>%n Wert in der Datei geschwärzt und nicht angetastet</numerusform>
            <numerusform>%n Werte in der Datei geschwärzt und nicht angetastet</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is a bool and cannot be %2; %3</source>
        <translation>%1 ist ein bool und kann nicht %2 sein; %3</translation>
    </message>
    <message>
        <source>%1 is an int and cannot be %2; %3</source>
        <translation>%1 ist ein int und kann nicht %2 sein; %3</translation>
    </message>
    <message>
        <source>%1 is a text and cannot be %2; %3</source>
        <translation>%1 ist ein Text und kann nicht %2 sein; %3</translation>
    </message>
    <message>
        <source>%1 holds bytes and cannot be %2; %3</source>
        <translation>%1 enthält Bytes und kann nicht %2 sein; %3</translation>
    </message>
    <message>
        <source>%1 is a list and cannot be %2; %3</source>
        <translation>%1 ist eine Liste und kann nicht %2 sein; %3</translation>
    </message>
    <message>
        <source>give text in UTF-8 without a byte order mark, as anything else would not come back unchanged</source>
        <translation>geben Sie Text in UTF-8 ohne Byte-Order-Mark an, denn alles andere käme nicht unverändert zurück</translation>
    </message>
    <message>
        <source>give true or false (or yes, no, on, off, 1, 0)</source>
        <translation>geben Sie true oder false an (oder yes, no, on, off, 1, 0)</translation>
    </message>
    <message>
        <source>give a whole number from -2147483648 to 2147483647</source>
        <translation>geben Sie eine ganze Zahl von -2147483648 bis 2147483647 an</translation>
    </message>
    <message>
        <source>%1: cannot read %2 (%3); %4</source>
        <translation>%1: %2 lässt sich nicht lesen (%3); %4</translation>
    </message>
    <message>
        <source>%1: cannot read standard input (%2); give it a file or a pipe</source>
        <translation>%1: Die Standardeingabe lässt sich nicht lesen (%2); geben Sie ihr eine Datei oder eine Pipe</translation>
    </message>
    <message>
        <source>name a file that can be read after the @</source>
        <translation>nennen Sie nach dem @ eine lesbare Datei</translation>
    </message>
    <message>
        <source>give the bytes in base64, or @FILE to read them from a file</source>
        <translation>geben Sie die Bytes in base64 an oder @FILE, um sie aus einer Datei zu lesen</translation>
    </message>
    <message>
        <source>an empty element is lost when the list is read back; leave it out (--empty stores an empty list)</source>
        <translation>ein leeres Element geht verloren, wenn die Liste wieder gelesen wird; lassen Sie es weg (--empty speichert eine leere Liste)</translation>
    </message>
    <message>
        <source>the element holds the separator of stored lists and would come back in pieces</source>
        <translation>das Element enthält das Trennzeichen gespeicherter Listen und käme in Stücken zurück</translation>
    </message>
    <message>
        <source>together with the element before it, it makes up the separator of stored lists and would come back otherwise</source>
        <translation>zusammen mit dem Element davor ergibt es das Trennzeichen gespeicherter Listen und käme anders zurück</translation>
    </message>
    <message>
        <source>%1 takes one value, not %2; %3</source>
        <translation>%1 nimmt einen einzigen Wert, nicht %2; %3</translation>
    </message>
    <message>
        <source>--empty is for lists</source>
        <translation>--empty ist für Listen</translation>
    </message>
    <message>
        <source>put quotes around a value with blanks</source>
        <translation>setzen Sie einen Wert mit Leerzeichen in Anführungszeichen</translation>
    </message>
    <message>
        <source>name a file that can be read</source>
        <translation>nennen Sie eine lesbare Datei</translation>
    </message>
    <message>
        <source>Exit status</source>
        <translation>Rückgabewert</translation>
    </message>
    <message>
        <source>  0  done
  1  said no: unknown key, wrong value, trouble with a store or the product file, a folder that cannot be used,
     or doctor found something wrong
  2  wrong usage
diff ends with 0 where nothing differs, with 1 where something does, and with 2 for everything else.</source>
        <translation>  0  erledigt
  1  abgelehnt: unbekannter Schlüssel, falscher Wert, Probleme mit einem Speicher oder der Produktdatei,
     ein unbrauchbarer Ordner, oder doctor hat etwas gefunden
  2  falscher Aufruf
diff endet mit 0, wenn nichts abweicht, mit 1, wenn etwas abweicht, und mit 2 in allen anderen Fällen.</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Values are printed to standard output, reasons to standard error. With --plain a backslash is printed as \\, a tab
as \t, line breaks as \n and \r, other control characters and bytes that are not UTF-8 as \xHH, and a list as a JSON array.
A terminal is sent no control characters but tabs, line breaks and the codes of colours. An answer that could not be
printed whole is an error.</source>
        <translation>Werte stehen auf der Standardausgabe, Gründe auf der Standardfehlerausgabe. Mit --plain erscheint ein Backslash als \\,
ein Tabulator als \t, Zeilenumbrüche als \n und \r, andere Steuerzeichen und Bytes, die kein UTF-8 sind, als \xHH, eine
Liste als JSON-Array. Ein Terminal erhält keine Steuerzeichen außer Tabulatoren, Zeilenumbrüchen und Farbcodes. Eine
Antwort, die nicht vollständig ausgegeben werden konnte, ist ein Fehler.</translation>
    </message>
    <message>
        <source>On a terminal</source>
        <translation>Auf einem Terminal</translation>
    </message>
    <message>
        <source>What is longer than the screen is shown by the program that EDITOR_SETTINGS_PAGER names, else PAGER, else
&quot;less&quot;; an empty name and &quot;cat&quot; stand for none. Columns line up there; elsewhere a tab stands between each two. Colours say
nothing that the words do not say; NO_COLOR, or &quot;dumb&quot; in TERM, leaves them out. What takes longer than a second tells
meanwhile which step it is at, where standard error is a terminal.</source>
        <translation>Was länger ist als der Bildschirm, zeigt das Programm, das EDITOR_SETTINGS_PAGER nennt, sonst PAGER, sonst &quot;less&quot;; ein
leerer Name und &quot;cat&quot; bedeuten keines. Spalten stehen dort untereinander; anderswo trennt sie ein Tabulator.
Farben sagen nichts, was nicht auch Worte sagen; NO_COLOR oder &quot;dumb&quot; in TERM
schalten sie ab. Was länger als eine Sekunde dauert, nennt seinen Schritt, wenn die Fehlerausgabe ein Terminal ist.</translation>
    </message>
    <message>
        <source>Words that look like options</source>
        <translation>Wörter, die wie Optionen aussehen</translation>
    </message>
    <message>
        <source>A value that begins with &quot;-&quot; goes after &quot;--&quot;: editor-settings set lastTarget -- -x</source>
        <translation>Ein Wert, der mit &quot;-&quot; beginnt, steht nach &quot;--&quot;: editor-settings set lastTarget -- -x</translation>
    </message>
    <message>
        <source>the name is empty; name a file</source>
        <translation>der Name ist leer; nennen Sie eine Datei</translation>
    </message>
    <message>
        <source>the name is empty; leave the option out for the default</source>
        <translation>der Name ist leer; lassen Sie die Option weg, damit der Standardwert gilt</translation>
    </message>
    <message>
        <source>As JSON</source>
        <translation>Als JSON</translation>
    </message>
    <message>
        <source>As JSON; bytes in base64</source>
        <translation>Als JSON; Bytes in base64</translation>
    </message>
    <message>
        <source>Tab-separated, one record a line, nothing shortened; for scripts</source>
        <translation>Durch Tabulatoren getrennt, ein Datensatz je Zeile, nichts gekürzt; für Skripte</translation>
    </message>
    <message>
        <source>Stores an empty list</source>
        <translation>Speichert eine leere Liste</translation>
    </message>
    <message>
        <source>Writes what is stored to a new file, in JSON: for another machine, or for somebody who helps</source>
        <translation>Schreibt, was gespeichert ist, als JSON in eine neue Datei: für einen anderen Rechner oder für jemanden, der hilft</translation>
    </message>
    <message>
        <source>Stores what an exported file holds, all of it or nothing; what it does not name stays</source>
        <translation>Speichert, was eine exportierte Datei enthält, ganz oder gar nicht; was sie nicht nennt, bleibt</translation>
    </message>
    <message>
        <source>The differences between what is stored and what an exported file holds</source>
        <translation>Die Unterschiede zwischen dem, was gespeichert ist, und dem, was eine exportierte Datei enthält</translation>
    </message>
    <message>
        <source>The new file; - for standard output</source>
        <translation>Die neue Datei; - für die Standardausgabe</translation>
    </message>
    <message>
        <source>The file; - for standard input</source>
        <translation>Die Datei; - für die Standardeingabe</translation>
    </message>
    <message>
        <source>Only keys of this class; may be given several times</source>
        <translation>Nur Schlüssel dieser Klasse; darf mehrmals angegeben werden</translation>
    </message>
    <message>
        <source>Leaves out personal values, those of unknown keys, and whatever holds the path of the home folder</source>
        <translation>Lässt persönliche Werte weg, die unbekannter Schlüssel und alles, was den Pfad des persönlichen Ordners enthält</translation>
    </message>
    <message>
        <source>Takes keys that the editor does not know as they are</source>
        <translation>Nimmt Schlüssel, die der Editor nicht kennt, so, wie sie sind</translation>
    </message>
    <message>
        <source>Tells what would change, as diff does, and changes nothing</source>
        <translation>Zeigt wie diff, was sich ändern würde, und ändert nichts</translation>
    </message>
    <message>
        <source>With --dry-run: as JSON; bytes in base64</source>
        <translation>Mit --dry-run: als JSON; Bytes in base64</translation>
    </message>
    <message>
        <source>Run with --help for more information.</source>
        <translation>Mehr dazu mit --help.</translation>
    </message>
    <message>
        <source>bash, zsh or fish</source>
        <translation>bash, zsh oder fish</translation>
    </message>
    <message>
        <source>Name a product file with &apos;--product FILE&apos;, or in EDITOR_SETTINGS_PRODUCT.</source>
        <translation>Nennen Sie mit &apos;--product FILE&apos; oder in EDITOR_SETTINGS_PRODUCT eine Produktdatei.</translation>
    </message>
    <message>
        <source>Run &apos;editor-settings doctor&apos; with the same options to see what is wrong; &apos;editor-settings restore FILE&apos; brings a backup back.</source>
        <translation>&apos;editor-settings doctor&apos; mit denselben Optionen zeigt, was nicht stimmt; &apos;editor-settings restore FILE&apos; stellt eine Sicherung wieder her.</translation>
    </message>
    <message>
        <source>A verb</source>
        <translation>Ein Befehl</translation>
    </message>
    <message>
        <source>Colours: auto for a terminal alone, always, or never; default: auto</source>
        <translation>Farben: auto nur für ein Terminal, always immer, never nie; Standard: auto</translation>
    </message>
    <message>
        <source>Long answers as they are, not a screen at a time</source>
        <translation>Lange Antworten am Stück, nicht bildschirmweise</translation>
    </message>
    <message>
        <source>The product file, in JSON; default: the one that is installed with this program</source>
        <translation>Die Produktdatei, in JSON; Standard: die mit diesem Programm installierte</translation>
    </message>
    <message>
        <source>The folder of both stores; default: the product&apos;s data folder and the vendor&apos;s</source>
        <translation>Der Ordner beider Speicher; Standard: der Datenordner des Produkts und der des Herstellers</translation>
    </message>
    <message>
        <source>Only keys that match, such as &apos;*Path&apos;</source>
        <translation>Nur passende Schlüssel, zum Beispiel &apos;*Path&apos;</translation>
    </message>
    <message>
        <source>Only what is stored</source>
        <translation>Nur, was gespeichert ist</translation>
    </message>
    <message>
        <source>Only what is not stored</source>
        <translation>Nur, was nicht gespeichert ist</translation>
    </message>
    <message>
        <source>Only one store</source>
        <translation>Nur ein Speicher</translation>
    </message>
    <message>
        <source>The preference</source>
        <translation>Die Einstellung</translation>
    </message>
    <message>
        <source>A bool as true or false, an int in decimal, text in UTF-8, bytes in base64 or as @FILE, a list as one word for each element</source>
        <translation>Ein bool als true oder false, ein int dezimal, Text in UTF-8, Bytes in base64 oder als @FILE, eine Liste als ein Wort je Element</translation>
    </message>
    <message>
        <source>Stores what the file holds, or standard input where it is -: byte for byte, but for a list one element on each line</source>
        <translation>Speichert den Inhalt der Datei, bei - den der Standardeingabe: Byte für Byte, bei Listen aber ein Element je Zeile</translation>
    </message>
    <message>
        <source>One location, or those that match, such as &apos;stock*&apos;</source>
        <translation>Ein Ort oder alle, die passen, zum Beispiel &apos;stock*&apos;</translation>
    </message>
    <message>
        <source>What the location is asked about, where it takes that</source>
        <translation>Wonach bei dem Ort gefragt wird, wenn er das verlangt</translation>
    </message>
    <message>
        <source>What decides where a location lies</source>
        <translation>Was bestimmt, wo ein Ort liegt</translation>
    </message>
    <message>
        <source>Whether they exist and can be used; exit status 1 where the editor cannot write to one that it writes to</source>
        <translation>Ob sie vorhanden und brauchbar sind; Rückgabewert 1, wenn der Editor an einen Ort nicht schreiben kann, an den er schreibt</translation>
    </message>
    <message>
        <source>Makes the file, empty, so that nobody else gets the name; the folder too, and a free number where needed</source>
        <translation>Legt die Datei leer an, damit niemand sonst den Namen bekommt; bei Bedarf auch den Ordner und mit einer freien Nummer</translation>
    </message>
    <message>
        <source>The file that it is made of; only its name counts</source>
        <translation>Die Datei, aus der sie entsteht; nur ihr Name zählt</translation>
    </message>
    <message>
        <source>The extension, such as mp4</source>
        <translation>Die Endung, zum Beispiel mp4</translation>
    </message>
    <message>
        <source>The name that the editor keeps it under</source>
        <translation>Der Name, unter dem der Editor es aufbewahrt</translation>
    </message>
    <message>
        <source>Stores these bytes: in base64, or @FILE</source>
        <translation>Speichert diese Bytes: in base64 oder als @FILE</translation>
    </message>
    <message>
        <source>Stores this list, one word for each element</source>
        <translation>Speichert diese Liste, ein Wort je Element</translation>
    </message>
    <message>
        <source>Stores this text</source>
        <translation>Speichert diesen Text</translation>
    </message>
    <message>
        <source>The new file</source>
        <translation>Die neue Datei</translation>
    </message>
    <message>
        <source>A file that backup has written</source>
        <translation>Eine Datei, die backup geschrieben hat</translation>
    </message>
    <message>
        <source>Only tells what would change</source>
        <translation>Zeigt nur, was sich ändern würde</translation>
    </message>
    <message>
        <source>markdown: the page of the reference, the same on every machine</source>
        <translation>markdown: die Seite des Referenzhandbuchs, auf jedem Rechner gleich</translation>
    </message>
    <message>
        <source>%1; set HOME to your folder, or name one for the stores with --home</source>
        <translation>%1; setzen Sie HOME auf Ihren Ordner oder nennen Sie mit --home einen für die Speicher</translation>
    </message>
    <message>
        <source>%1; set HOME to your folder</source>
        <translation>%1; setzen Sie HOME auf Ihren Ordner</translation>
    </message>
    <message>
        <source>only for reading: %1</source>
        <translation>nur zum Lesen: %1</translation>
    </message>
    <message>
        <source>Reads, changes and explains the preferences, folders and file names of Lumora Video Editor.</source>
        <translation>Liest, ändert und erklärt die Einstellungen, Ordner und Dateinamen von Lumora Video Editor.</translation>
    </message>
    <message>
        <source>All preferences with their values, sorted by key</source>
        <translation>Alle Einstellungen mit ihren Werten, nach Schlüssel sortiert</translation>
    </message>
    <message>
        <source>The value that the editor reads now</source>
        <translation>Der Wert, den der Editor jetzt liest</translation>
    </message>
    <message>
        <source>Stores a value</source>
        <translation>Speichert einen Wert</translation>
    </message>
    <message>
        <source>Removes the stored value, so that the default holds again</source>
        <translation>Entfernt den gespeicherten Wert, sodass wieder der Standardwert gilt</translation>
    </message>
    <message>
        <source>Where a value comes from: what is stored, since when, and the default</source>
        <translation>Woher ein Wert kommt: was gespeichert ist, seit wann, und der Standardwert</translation>
    </message>
    <message>
        <source>Where the editor&apos;s files and folders lie</source>
        <translation>Wo die Dateien und Ordner des Editors liegen</translation>
    </message>
    <message>
        <source>The name that the editor gives the next file of a kind</source>
        <translation>Der Name, den der Editor der nächsten Datei einer Art gibt</translation>
    </message>
    <message>
        <source>An audio recording</source>
        <translation>Eine Tonaufnahme</translation>
    </message>
    <message>
        <source>A freeze frame</source>
        <translation>Ein Standbild</translation>
    </message>
    <message>
        <source>A stabilized clip</source>
        <translation>Ein stabilisierter Clip</translation>
    </message>
    <message>
        <source>Default name, extensions and filters of projects, and the sample project</source>
        <translation>Standardname, Endungen und Filter von Projekten sowie das Beispielprojekt</translation>
    </message>
    <message>
        <source>The favourites of one list</source>
        <translation>Die Favoriten einer Liste</translation>
    </message>
    <message>
        <source>What the editor keeps for an indication, or stores it</source>
        <translation>Zeigt oder speichert, was der Editor für eine Anzeige aufbewahrt</translation>
    </message>
    <message>
        <source>The finished tutorials, or stores them</source>
        <translation>Zeigt oder speichert die abgeschlossenen Lernprogramme</translation>
    </message>
    <message>
        <source>The user&apos;s own colours, or stores them</source>
        <translation>Zeigt oder speichert die eigenen Farben des Benutzers</translation>
    </message>
    <message>
        <source>The recent export targets, or stores them</source>
        <translation>Zeigt oder speichert die letzten Exportziele</translation>
    </message>
    <message>
        <source>Copies both stores into one file, also while the editor runs</source>
        <translation>Kopiert beide Speicher in eine Datei, auch während der Editor läuft</translation>
    </message>
    <message>
        <source>Brings the stores of a backup back, and keeps what was there</source>
        <translation>Stellt die Speicher aus einer Sicherung wieder her und bewahrt auf, was dort war</translation>
    </message>
    <message>
        <source>Prints the changes that other processes make, as they happen</source>
        <translation>Gibt Änderungen anderer Prozesse aus, sobald sie geschehen</translation>
    </message>
    <message>
        <source>What is wrong with the stores, what they hold and the folders; exit status 1 where something is</source>
        <translation>Was mit den Speichern, ihrem Inhalt und den Ordnern nicht stimmt; Rückgabewert 1, wenn es etwas gibt</translation>
    </message>
    <message>
        <source>A completion script for a shell, to be sourced</source>
        <translation>Ein Vervollständigungsskript für eine Shell, zum Einlesen mit source</translation>
    </message>
    <message>
        <source>The manual page, for man</source>
        <translation>Die Handbuchseite, für man</translation>
    </message>
    <message>
        <source>One JSON object a line; bytes in base64</source>
        <translation>Ein JSON-Objekt je Zeile; Bytes in base64</translation>
    </message>
    <message>
        <source>cannot write to standard output: %1</source>
        <translation>auf die Standardausgabe lässt sich nicht schreiben: %1</translation>
    </message>
    <message>
        <source>%1 is reserved: the editor neither reads nor writes it; remove it, or give --with-unknown</source>
        <translation>%1 ist reserviert: Der Editor liest und schreibt diesen Schlüssel nicht; entfernen Sie ihn oder geben Sie --with-unknown an</translation>
    </message>
    <message>
        <source>%1 is no preference of the editor; %2correct or remove it, or give --with-unknown to take such keys as they are</source>
        <translation>%1 ist keine Einstellung des Editors; %2berichtigen oder entfernen Sie den Schlüssel, oder übernehmen Sie solche Schlüssel mit --with-unknown, wie sie sind</translation>
    </message>
    <message>
        <source>%1 is kept in the other store; move it to stores.%2</source>
        <translation>%1 gehört in den anderen Speicher; verschieben Sie es nach stores.%2</translation>
    </message>
    <message>
        <source>%1 is &quot;%2&quot;, which the editor would not read; give a value of kind &quot;%3&quot;</source>
        <translation>%1 ist &quot;%2&quot;, was der Editor nicht lesen würde; geben Sie einen Wert der Art &quot;%3&quot; an</translation>
    </message>
    <message>
        <source> or </source>
        <translation> oder </translation>
    </message>
    <message>
        <source>did you mean %1?</source>
        <translation>meinten Sie %1?</translation>
    </message>
    <message>
        <source>%1 is not set, so %2</source>
        <translation>%1 ist nicht gesetzt, daher %2</translation>
    </message>
    <message>
        <source>%1 is empty, so %2</source>
        <translation>%1 ist leer, daher %2</translation>
    </message>
    <message>
        <source>%1=%2 in the environment</source>
        <translation>%1=%2 in der Umgebung</translation>
    </message>
    <message>
        <source>%1 in the home folder</source>
        <translation>%1 im persönlichen Ordner</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1, Zeile %2</translation>
    </message>
    <message>
        <source>%1=%2 in %3</source>
        <translation>%1=%2 in %3</translation>
    </message>
    <message>
        <source>no %1 in %2, so %3</source>
        <translation>kein %1 in %2, daher %3</translation>
    </message>
    <message>
        <source>%1 cannot be read (%2), so %3</source>
        <translation>%1 lässt sich nicht lesen (%2), daher %3</translation>
    </message>
    <message>
        <source>there is no %1, so %2</source>
        <translation>%1 gibt es nicht, daher %2</translation>
    </message>
    <message>
        <source>%1 gives %2</source>
        <translation>%1 liefert %2</translation>
    </message>
    <message>
        <source>resourcesRoot of %1, which is %2</source>
        <translation>resourcesRoot in %1, das ist %2</translation>
    </message>
    <message>
        <source>nothing: the text is fixed</source>
        <translation>nichts: Der Text steht fest</translation>
    </message>
    <message>
        <source>%1 %2 in %3</source>
        <translation>%1 %2 in %3</translation>
    </message>
    <message>
        <source>the document</source>
        <translation>das Dokument</translation>
    </message>
    <message>
        <source>line %1, column %2:</source>
        <translation>Zeile %1, Spalte %2:</translation>
    </message>
    <message>
        <source>%1 is nested too deeply; give a file that &apos;editor-settings export&apos; made</source>
        <translation>%1 ist zu tief verschachtelt; geben Sie eine Datei an, die &apos;editor-settings export&apos; erzeugt hat</translation>
    </message>
    <message>
        <source>%1 stands there twice; keep one of the two</source>
        <translation>%1 kommt zweimal vor; behalten Sie eines von beiden</translation>
    </message>
    <message>
        <source>a number is too large</source>
        <translation>eine Zahl ist zu groß</translation>
    </message>
    <message>
        <source>%1 %2; mend it there, or export the file again</source>
        <translation>%1 %2; beheben Sie das dort oder exportieren Sie die Datei neu</translation>
    </message>
    <message>
        <source>%1 a byte order mark stands before the text; save the file as UTF-8 without it</source>
        <translation>%1 Vor dem Text steht ein Byte-Order-Mark; speichern Sie die Datei als UTF-8 ohne dieses</translation>
    </message>
    <message>
        <source>the document is a database; where &apos;editor-settings backup&apos; made it, &apos;editor-settings restore&apos; takes it</source>
        <translation>das Dokument ist eine Datenbank; hat &apos;editor-settings backup&apos; sie erzeugt, nimmt &apos;editor-settings restore&apos; sie an</translation>
    </message>
    <message>
        <source>%1 a NUL stands there, which no text holds; save the file as UTF-8, or export it again</source>
        <translation>%1 Dort steht ein NUL-Zeichen, das in keinem Text vorkommt; speichern Sie die Datei als UTF-8 oder exportieren Sie sie neu</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>ein Objekt</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>ein Array</translation>
    </message>
    <message>
        <source>%1 is %2; give %3</source>
        <translation>%1 ist %2; erwartet wird: %3</translation>
    </message>
    <message>
        <source>an object, between { and }</source>
        <translation>ein Objekt, zwischen { und }</translation>
    </message>
    <message>
        <source>%1 means nothing; remove it: what stands there is %2</source>
        <translation>%1 hat hier keine Bedeutung; entfernen Sie es: Vorgesehen sind %2</translation>
    </message>
    <message>
        <source>%1 is missing; give a file that &apos;editor-settings export&apos; made</source>
        <translation>%1 fehlt; geben Sie eine Datei an, die &apos;editor-settings export&apos; erzeugt hat</translation>
    </message>
    <message>
        <source>a text, in quotes</source>
        <translation>ein Text, in Anführungszeichen</translation>
    </message>
    <message>
        <source>%1 is not how a key is written: a backslash is doubled, and only a byte that is not UTF-8 stands as \xHH, in small letters; write it so</source>
        <translation>%1 ist nicht die Schreibweise eines Schlüssels: Ein Backslash wird verdoppelt, und nur ein Byte, das kein UTF-8 ist, steht als \xHH, in Kleinbuchstaben; schreiben Sie es so</translation>
    </message>
    <message>
        <source>%1 holds a NUL, which no key can; remove it</source>
        <translation>%1 enthält ein NUL-Zeichen, das in keinem Schlüssel stehen kann; entfernen Sie es</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true oder false</translation>
    </message>
    <message>
        <source>a whole number from -2147483648 to 2147483647</source>
        <translation>eine ganze Zahl von -2147483648 bis 2147483647</translation>
    </message>
    <message>
        <source>bytes in base64</source>
        <translation>Bytes in base64</translation>
    </message>
    <message>
        <source>&quot;base64&quot;, or leave the field out</source>
        <translation>&quot;base64&quot;, oder lassen Sie das Feld weg</translation>
    </message>
    <message>
        <source>bool, int, string or bytes</source>
        <translation>bool, int, string oder bytes</translation>
    </message>
    <message>
        <source>%1 is for the kind string only; remove it</source>
        <translation>%1 ist nur für die Art string gedacht; entfernen Sie es</translation>
    </message>
    <message>
        <source>%1 stands beside &quot;redacted&quot;; keep one of the two</source>
        <translation>%1 steht neben &quot;redacted&quot;; behalten Sie eines von beiden</translation>
    </message>
    <message>
        <source>true, or a value in its place</source>
        <translation>true oder stattdessen ein Wert</translation>
    </message>
    <message>
        <source>format is %1, so this is no export of settings; give a file that &apos;editor-settings export&apos; made</source>
        <translation>format ist %1, daher ist das kein Export von Einstellungen; geben Sie eine Datei an, die &apos;editor-settings export&apos; erzeugt hat</translation>
    </message>
    <message>
        <source>format is missing, so this is no export of settings; give a file that &apos;editor-settings export&apos; made</source>
        <translation>format fehlt, daher ist das kein Export von Einstellungen; geben Sie eine Datei an, die &apos;editor-settings export&apos; erzeugt hat</translation>
    </message>
    <message>
        <source>version is %1, and this program reads up to %2: a newer one wrote the file; update this program</source>
        <translation>version ist %1, und dieses Programm liest bis %2: Eine neuere Version hat die Datei geschrieben; aktualisieren Sie dieses Programm</translation>
    </message>
    <message>
        <source>default of a preference</source>
        <translation>Standardwert einer Einstellung</translation>
    </message>
    <message>
        <source>written to</source>
        <translation>wird beschrieben</translation>
    </message>
    <message>
        <source>shipped with the product</source>
        <translation>mit dem Produkt geliefert</translation>
    </message>
    <message>
        <source>joined to a folder by the editor</source>
        <translation>vom Editor an einen Ordner angehängt</translation>
    </message>
    <message>
        <source>inside the editor&apos;s program</source>
        <translation>im Programm des Editors</translation>
    </message>
    <message>
        <source>%1 is required</source>
        <translation>%1 fehlt</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>Dieses Argument wird nicht erwartet: %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>Diese Argumente werden nicht erwartet: %1</translation>
    </message>
    <message>
        <source>%1 excludes %2</source>
        <translation>%1 schließt %2 aus</translation>
    </message>
    <message>
        <source>%1: %2 required %3 missing</source>
        <translation>%1: %2-mal %3 erforderlich, aber nicht angegeben</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Aufruf</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPTIONEN</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>UNTERBEFEHL</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Argumente</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>ERFORDERLICH</translation>
    </message>
    <message>
        <source>Env</source>
        <translation>Umgebung</translation>
    </message>
    <message>
        <source>Excludes</source>
        <translation>Nicht mit</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Zeigt diese Hilfe</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>Unterbefehle</translation>
    </message>
    <message>
        <source>%1 not in %2</source>
        <translation>%1 ist keines von %2</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>Zeigt die Version des Programms</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Texts are in the language that LANGUAGE names, else LC_ALL, LC_MESSAGES or LANG, where there is a translation and the
locale is in UTF-8. What the system and the stores tell is always English; so are all texts with --plain, --json or --format, the
manual page and the completion scripts.</source>
        <translation>Texte stehen in der Sprache, die LANGUAGE nennt, sonst LC_ALL, LC_MESSAGES oder LANG, wenn es eine Übersetzung gibt und
die Locale UTF-8 verwendet. Meldungen des Systems und der Speicher sind immer englisch, ebenso alle Texte mit --plain,
--json oder --format, die Handbuchseite und die Vervollständigungsskripte.</translation>
    </message>
</context>
</TS>
