<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Text</name>
    <message>
        <source>Did you mean %1?</source>
        <translation>Vouliez-vous dire %1 ?</translation>
    </message>
    <message>
        <source>Did you mean %1? &apos;%2 --help&apos; shows how it is used.</source>
        <translation>Vouliez-vous dire %1 ? &apos;%2 --help&apos; en montre l&apos;emploi.</translation>
    </message>
    <message>
        <source>The verbs are %1 and %2.</source>
        <translation>Les commandes sont %1 et %2.</translation>
    </message>
    <message>
        <source>What follows %1 is one of %2 and %3.</source>
        <translation>Après %1 vient %2 ou %3.</translation>
    </message>
    <message>
        <source>(unset)</source>
        <translation>(non définie)</translation>
    </message>
    <message>
        <source>STORE</source>
        <translation>STOCKAGE</translation>
    </message>
    <message>
        <source>KEY</source>
        <translation>CLÉ</translation>
    </message>
    <message>
        <source>NOW</source>
        <translation>MAINTENANT</translation>
    </message>
    <message>
        <source>IN THE BACKUP</source>
        <translation>DANS LA SAUVEGARDE</translation>
    </message>
    <message numerus="yes">
        <source>the %1 store of %2: %n values would change</source>
        <comment>the %1 store of %2: %n value would change</comment>
        <translation>
            <numerusform>stockage %1 du %2 : %n valeur changerait</numerusform>
            <numerusform>stockage %1 du %2 : %n valeurs changeraient</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the %1 store of %2: %n values differ from before</source>
        <comment>the %1 store of %2: %n value differs from before</comment>
        <translation>
            <numerusform>stockage %1 du %2 : %n valeur diffère d&apos;avant</numerusform>
            <numerusform>stockage %1 du %2 : %n valeurs diffèrent d&apos;avant</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; what was there is kept in %2</source>
        <translation>%1 ; ce qui s&apos;y trouvait est conservé dans %2</translation>
    </message>
    <message>
        <source>there is no store yet, so there is nothing to back up</source>
        <translation>il n&apos;existe encore aucun stockage, il n&apos;y a donc rien à sauvegarder</translation>
    </message>
    <message>
        <source>copying the stores</source>
        <translation>copie des stockages</translation>
    </message>
    <message>
        <source>reading the copy</source>
        <translation>lecture de la copie</translation>
    </message>
    <message numerus="yes">
        <source>the %1 store is backed up with %n values</source>
        <comment>the %1 store is backed up with %n value</comment>
        <translation>
            <numerusform>le stockage %1 est sauvegardé avec %n valeur</numerusform>
            <numerusform>le stockage %1 est sauvegardé avec %n valeurs</numerusform>
        </translation>
    </message>
    <message>
        <source>reading the backup</source>
        <translation>lecture de la sauvegarde</translation>
    </message>
    <message>
        <source>restoring the %1 store</source>
        <translation>restauration du stockage %1</translation>
    </message>
    <message>
        <source>the backup holds no %1 store, so that one stays as it is</source>
        <translation>la sauvegarde ne contient pas de stockage %1, celui-ci reste donc tel quel</translation>
    </message>
    <message>
        <source>%1 is written by the editor alone, so it cannot be set; &apos;editor-settings unset&apos; removes it</source>
        <translation>%1 n&apos;est écrite que par l&apos;éditeur et ne peut donc pas être définie ; &apos;editor-settings unset&apos; la supprime</translation>
    </message>
    <message>
        <source>%1 is kept in memory only by a product of this kind, so it cannot be set from outside the editor</source>
        <translation>un produit de ce genre ne garde %1 qu&apos;en mémoire, impossible donc de la définir en dehors de l&apos;éditeur</translation>
    </message>
    <message>
        <source>TYPE</source>
        <translation>TYPE</translation>
    </message>
    <message>
        <source>STATE</source>
        <translation>ÉTAT</translation>
    </message>
    <message>
        <source>VALUE</source>
        <translation>VALEUR</translation>
    </message>
    <message>
        <source>%1 holds a value of kind %2 that cannot be read, so the default is read; &apos;editor-settings explain %1&apos; shows both</source>
        <translation>%1 contient une valeur de genre %2 qui est illisible, la valeur par défaut est donc lue ; &apos;editor-settings explain %1&apos; montre les deux</translation>
    </message>
    <message>
        <source>%1 holds a value of kind %2, so the default is read; &apos;editor-settings explain %1&apos; shows both</source>
        <translation>%1 contient une valeur de genre %2, la valeur par défaut est donc lue ; &apos;editor-settings explain %1&apos; montre les deux</translation>
    </message>
    <message>
        <source>%1 was not set</source>
        <translation>%1 n&apos;était pas définie</translation>
    </message>
    <message>
        <source>key</source>
        <translation>clé</translation>
    </message>
    <message>
        <source>type</source>
        <translation>type</translation>
    </message>
    <message>
        <source>class</source>
        <translation>classe</translation>
    </message>
    <message>
        <source>store</source>
        <translation>stockage</translation>
    </message>
    <message>
        <source>file</source>
        <translation>fichier</translation>
    </message>
    <message>
        <source>state</source>
        <translation>état</translation>
    </message>
    <message>
        <source>stored</source>
        <translation>enregistrée</translation>
    </message>
    <message>
        <source>stored kind</source>
        <translation>genre enregistré</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>modifiée</translation>
    </message>
    <message>
        <source>default</source>
        <translation>valeur par défaut</translation>
    </message>
    <message>
        <source>computed by</source>
        <translation>calculée par</translation>
    </message>
    <message>
        <source>nothing: it is fixed</source>
        <translation>rien : elle est fixe</translation>
    </message>
    <message>
        <source>value</source>
        <translation>valeur</translation>
    </message>
    <message>
        <source>default name</source>
        <translation>nom par défaut</translation>
    </message>
    <message>
        <source>extensions</source>
        <translation>extensions</translation>
    </message>
    <message>
        <source>extension for saving</source>
        <translation>extension à l&apos;enregistrement</translation>
    </message>
    <message>
        <source>save filter</source>
        <translation>filtre d&apos;enregistrement</translation>
    </message>
    <message>
        <source>open filter</source>
        <translation>filtre d&apos;ouverture</translation>
    </message>
    <message>
        <source>sample project</source>
        <translation>projet d&apos;exemple</translation>
    </message>
    <message>
        <source>there is no sample project below %1</source>
        <translation>il n&apos;y a pas de projet d&apos;exemple sous %1</translation>
    </message>
    <message>
        <source>set HOME to the folder of the user whom the editor runs for</source>
        <translation>donner à HOME le dossier de l&apos;utilisateur pour qui l&apos;éditeur s&apos;exécute</translation>
    </message>
    <message>
        <source>looking at the %1 store</source>
        <translation>examen du stockage %1</translation>
    </message>
    <message>
        <source>looking at the names of recordings</source>
        <translation>examen des noms des enregistrements audio</translation>
    </message>
    <message>
        <source>looking at the names of freeze frames</source>
        <translation>examen des noms des arrêts sur image</translation>
    </message>
    <message>
        <source>looking at the names of stabilized clips</source>
        <translation>examen des noms des clips stabilisés</translation>
    </message>
    <message>
        <source>looking at the folders that the editor writes to</source>
        <translation>examen des dossiers où l&apos;éditeur écrit</translation>
    </message>
    <message>
        <source>opening the stores</source>
        <translation>ouverture des stockages</translation>
    </message>
    <message>
        <source>nothing else can be looked at without it: mend it, or name another with --product</source>
        <translation>rien d&apos;autre ne peut être examiné sans lui : le réparer, ou en indiquer un autre avec --product</translation>
    </message>
    <message>
        <source>note</source>
        <translation>note</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>avertissement</translation>
    </message>
    <message>
        <source>error</source>
        <translation>erreur</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>manquant</translation>
    </message>
    <message>
        <source>unusable</source>
        <translation>inutilisable</translation>
    </message>
    <message>
        <source>usable</source>
        <translation>utilisable</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>lecture seule</translation>
    </message>
    <message>
        <source>%1 (%2 store)</source>
        <translation>%1 (stockage %2)</translation>
    </message>
    <message>
        <source>%1, schema %2, journal mode %3</source>
        <translation>%1, schéma %2, mode du journal %3</translation>
    </message>
    <message>
        <source>%1, on %2</source>
        <translation>%1, sur %2</translation>
    </message>
    <message>
        <source>%1, on %2 at %3</source>
        <translation>%1, sur %2 en %3</translation>
    </message>
    <message numerus="yes">
        <source>%n errors</source>
        <comment>%n error</comment>
        <translation>
            <numerusform>%n erreur</numerusform>
            <numerusform>%n erreurs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warnings</source>
        <comment>%n warning</comment>
        <translation>
            <numerusform>%n avertissement</numerusform>
            <numerusform>%n avertissements</numerusform>
        </translation>
    </message>
    <message>
        <source>all is well</source>
        <translation>tout va bien</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>product file</source>
        <translation>fichier produit</translation>
    </message>
    <message>
        <source>%1 store</source>
        <translation>stockage %1</translation>
    </message>
    <message>
        <source>the folder of the store cannot be used: %1, so no store can be made</source>
        <translation>le dossier du stockage est inutilisable : %1, aucun stockage ne peut donc être créé</translation>
    </message>
    <message>
        <source>the folder of the store cannot be used: %1, so no change can be stored</source>
        <translation>le dossier du stockage est inutilisable : %1, aucun changement ne peut donc être enregistré</translation>
    </message>
    <message>
        <source>give this user the rights to the folder, or name another with --home</source>
        <translation>donner à cet utilisateur les droits sur le dossier, ou en indiquer un autre avec --home</translation>
    </message>
    <message>
        <source>nothing is stored there yet</source>
        <translation>rien n&apos;y est encore enregistré</translation>
    </message>
    <message>
        <source>nothing to do: the store is made when something is stored</source>
        <translation>rien à faire : le stockage est créé au premier enregistrement</translation>
    </message>
    <message>
        <source>other users may read or change it: its mode is %1</source>
        <translation>d&apos;autres utilisateurs peuvent le lire ou le modifier : son mode est %1</translation>
    </message>
    <message>
        <source>it belongs to another user, %1</source>
        <translation>il appartient à un autre utilisateur, %1</translation>
    </message>
    <message>
        <source>run this program and the editor as that user, or give the file to %1</source>
        <translation>exécuter ce programme et l&apos;éditeur sous cet utilisateur, ou donner le fichier à %1</translation>
    </message>
    <message>
        <source>a journal of %1 bytes lies there: its store is gone, and no new one is made beside it</source>
        <translation>un journal de %1 octets se trouve là : son stockage a disparu, et aucun nouveau n&apos;est créé à côté</translation>
    </message>
    <message>
        <source>bring the store back beside its journal, or move the journal away</source>
        <translation>remettre le stockage à côté de son journal, ou déplacer le journal ailleurs</translation>
    </message>
    <message>
        <source>a journal of %1 bytes lies there: a change is being made right now, or was interrupted</source>
        <translation>un journal de %1 octets se trouve là : un changement est en cours, ou a été interrompu</translation>
    </message>
    <message>
        <source>look again in a moment; where it stays, leave it beside the store and start the editor, which undoes the change</source>
        <translation>regarder de nouveau dans un instant ; s&apos;il reste, le laisser à côté du stockage et lancer l&apos;éditeur, qui annule le changement</translation>
    </message>
    <message>
        <source>a file system without a name</source>
        <translation>un système de fichiers sans nom</translation>
    </message>
    <message>
        <source>keep the stores on a local disk: move the data folder there (XDG_DATA_HOME), or name a folder with --home</source>
        <translation>garder les stockages sur un disque local : y déplacer le dossier des données (XDG_DATA_HOME), ou indiquer un dossier avec --home</translation>
    </message>
    <message>
        <source>it lies on %1, which may only be read, so nothing can be stored</source>
        <translation>il se trouve sur %1, accessible en lecture seule, rien ne peut donc être enregistré</translation>
    </message>
    <message>
        <source>mount it for writing, or name another folder with --home</source>
        <translation>le monter en écriture, ou indiquer un autre dossier avec --home</translation>
    </message>
    <message>
        <source>it lies on %1, where locks do not hold between machines, so that two editors can damage it</source>
        <translation>il se trouve sur %1, où les verrous ne valent pas entre machines : deux éditeurs peuvent donc l&apos;endommager</translation>
    </message>
    <message>
        <source>it lies on %1, which has no hard links, so that no store can be made there</source>
        <translation>il se trouve sur %1, qui n&apos;a pas de liens physiques : aucun stockage ne peut donc y être créé</translation>
    </message>
    <message>
        <source>it lies on %1, which is kept in memory, so that all is lost with a restart</source>
        <translation>il se trouve sur %1, gardé en mémoire : tout est donc perdu au redémarrage</translation>
    </message>
    <message>
        <source>it lies on %1, of which it cannot be told whether locks hold there</source>
        <translation>il se trouve sur %1, dont on ne peut savoir si les verrous y sont respectés</translation>
    </message>
    <message>
        <source>nothing to do where the disk is local; else %1</source>
        <translation>rien à faire si le disque est local ; sinon %1</translation>
    </message>
    <message>
        <source>it belongs in the %1 store and is not read here</source>
        <translation>sa place est dans le stockage %1 ; elle n&apos;est pas lue ici</translation>
    </message>
    <message>
        <source>&apos;editor-settings explain %1&apos; shows what is read; what lies here is kept</source>
        <translation>&apos;editor-settings explain %1&apos; montre ce qui est lu ; ce qui se trouve ici est conservé</translation>
    </message>
    <message>
        <source>the library knows no such key; it is kept</source>
        <translation>la bibliothèque ne connaît pas cette clé ; elle est conservée</translation>
    </message>
    <message>
        <source>nothing to do where a later version or another program stored it</source>
        <translation>rien à faire si cela vient d&apos;une version ultérieure ou d&apos;un autre programme</translation>
    </message>
    <message>
        <source>have the program that keeps it store it anew</source>
        <translation>le faire enregistrer de nouveau par le programme auquel il appartient</translation>
    </message>
    <message>
        <source>the rational has no %1, so a read mixes it with a default</source>
        <translation>il manque %1 au nombre rationnel, chaque lecture le mélange donc avec une valeur par défaut</translation>
    </message>
    <message>
        <source>the rational&apos;s %1 is no int, so a read mixes it with a default</source>
        <translation>%1 du nombre rationnel n&apos;est pas un int, chaque lecture le mélange donc avec une valeur par défaut</translation>
    </message>
    <message>
        <source>the rational&apos;s denominator is 0, so every read of it fails</source>
        <translation>le dénominateur du nombre rationnel est 0, chaque lecture échoue donc</translation>
    </message>
    <message>
        <source>the library knows no such rational; it is kept</source>
        <translation>la bibliothèque ne connaît pas ce nombre rationnel ; il est conservé</translation>
    </message>
    <message>
        <source>&apos;editor-settings unset %1&apos; removes it, so that the default holds</source>
        <translation>&apos;editor-settings unset %1&apos; supprime cette valeur : la valeur par défaut s&apos;applique alors</translation>
    </message>
    <message>
        <source>store it anew: &apos;editor-settings set %1 VALUE&apos;</source>
        <translation>enregistrer de nouveau la valeur : &apos;editor-settings set %1 VALUE&apos;</translation>
    </message>
    <message>
        <source>have the editor store it anew</source>
        <translation>faire enregistrer de nouveau la valeur par l&apos;éditeur</translation>
    </message>
    <message>
        <source>it holds a value of kind %1 where one of kind %2 is read, so the default is read</source>
        <translation>elle contient une valeur de genre %1 là où le genre %2 est lu, la valeur par défaut est donc lue</translation>
    </message>
    <message>
        <source>it holds a value of kind %1 that cannot be read, so the default is read</source>
        <translation>elle contient une valeur de genre %1 qui est illisible, la valeur par défaut est donc lue</translation>
    </message>
    <message>
        <source>it holds text that is not UTF-8, so it is not read as it is stored</source>
        <translation>elle contient du texte qui n&apos;est pas en UTF-8, il n&apos;est donc pas lu tel qu&apos;il est enregistré</translation>
    </message>
    <message>
        <source>the stored list would be another one when it is read and stored again, as it has empty elements or a part of the separator</source>
        <translation>lue puis enregistrée de nouveau, la liste ne serait plus la même, car elle a des éléments vides ou une partie du séparateur</translation>
    </message>
    <message>
        <source>it holds %1, at the edge of its range: counting on would leave it</source>
        <translation>elle contient %1, à la limite de son intervalle : compter plus loin en sortirait</translation>
    </message>
    <message>
        <source>move the file with the highest number out of the folder, or store another folder in %1</source>
        <translation>déplacer hors du dossier le fichier au numéro le plus élevé, ou donner un autre dossier à %1</translation>
    </message>
    <message>
        <source>the running number has passed 2147483647 and counts no further; the next is %1</source>
        <translation>le numéro d&apos;ordre a dépassé 2147483647 et n&apos;avance plus ; le prochain nom est %1</translation>
    </message>
    <message>
        <source>the running number nears its end at 2147483647; the next is %1</source>
        <translation>le numéro d&apos;ordre approche de sa fin, 2147483647 ; le prochain nom est %1</translation>
    </message>
    <message numerus="yes">
        <source>%n more names in the folder with numbers near 2147483647 were not looked at</source>
        <comment>%n more names in the folder with numbers near 2147483647 were not looked at</comment>
        <translation>
            <numerusform>%n autre nom du dossier, au numéro proche de 2147483647, n&apos;a pas été examiné</numerusform>
            <numerusform>%n autres noms du dossier, aux numéros proches de 2147483647, n&apos;ont pas été examinés</numerusform>
        </translation>
    </message>
    <message>
        <source>move them out of the folder, or look again when those above are mended</source>
        <translation>les déplacer hors du dossier, ou regarder de nouveau une fois les précédents corrigés</translation>
    </message>
    <message>
        <source>%1: the editor cannot write there: %2</source>
        <translation>%1 : l&apos;éditeur ne peut pas y écrire : %2</translation>
    </message>
    <message>
        <source>mend what is remarked: &apos;editor-settings paths --explain&apos; tells what decides, and a preference may be set to another folder</source>
        <translation>corriger ce qui est signalé : &apos;editor-settings paths --explain&apos; indique ce qui en décide, et une préférence peut désigner un autre dossier</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>make it readable, or set the preference to another folder</source>
        <translation>le rendre lisible, ou donner un autre dossier à la préférence</translation>
    </message>
    <message>
        <source>not there yet: %1</source>
        <translation>pas encore créés : %1</translation>
    </message>
    <message>
        <source>nothing to do: the editor makes them when it writes there</source>
        <translation>rien à faire : l&apos;éditeur les crée quand il y écrit</translation>
    </message>
    <message>
        <source>Every preference whose key ends in Path.</source>
        <translation>Toutes les préférences dont la clé se termine par Path.</translation>
    </message>
    <message>
        <source>What is stored, one preference a line, for a script.</source>
        <translation>Ce qui est enregistré, une préférence par ligne, pour un script.</translation>
    </message>
    <message>
        <source>The folder that the editor exports to.</source>
        <translation>Le dossier où l&apos;éditeur exporte.</translation>
    </message>
    <message>
        <source>A list in a form that every program reads alike.</source>
        <translation>Une liste sous une forme que tous les programmes lisent de la même façon.</translation>
    </message>
    <message>
        <source>Stores false.</source>
        <translation>Enregistre false.</translation>
    </message>
    <message>
        <source>Stores another folder; the editor makes it.</source>
        <translation>Enregistre un autre dossier ; l&apos;éditeur le crée.</translation>
    </message>
    <message>
        <source>Stores a list of two.</source>
        <translation>Enregistre une liste de deux éléments.</translation>
    </message>
    <message>
        <source>Stores a value that looks like an option.</source>
        <translation>Enregistre une valeur qui ressemble à une option.</translation>
    </message>
    <message>
        <source>From now on the default holds.</source>
        <translation>Désormais, la valeur par défaut s&apos;applique.</translation>
    </message>
    <message>
        <source>Whether it is stored, where and since when, and what the default is.</source>
        <translation>Si une valeur est enregistrée, où et depuis quand, et quelle est la valeur par défaut.</translation>
    </message>
    <message>
        <source>What a new project is called, and which files the editor opens.</source>
        <translation>Le nom d&apos;un nouveau projet, et les fichiers que l&apos;éditeur ouvre.</translation>
    </message>
    <message>
        <source>The favourites of the list &quot;fonts&quot;.</source>
        <translation>Les favoris de la liste &quot;fonts&quot;.</translation>
    </message>
    <message>
        <source>What is kept for the indication &quot;tour&quot;, in base64.</source>
        <translation>Ce qui est gardé pour l&apos;indication &quot;tour&quot;, en base64.</translation>
    </message>
    <message>
        <source>Stores the bytes of the file tour.state for it.</source>
        <translation>Enregistre pour elle les octets du fichier tour.state.</translation>
    </message>
    <message>
        <source>The finished ones, one a line.</source>
        <translation>Les tutoriels terminés, un par ligne.</translation>
    </message>
    <message>
        <source>Forgets them all.</source>
        <translation>Les oublie tous.</translation>
    </message>
    <message>
        <source>Stores these two in the place of those before.</source>
        <translation>Enregistre ces deux couleurs à la place des précédentes.</translation>
    </message>
    <message>
        <source>The text in which the editor keeps them.</source>
        <translation>Le texte sous lequel l&apos;éditeur les garde.</translation>
    </message>
    <message>
        <source>Every location whose name begins with stock.</source>
        <translation>Tous les emplacements dont le nom commence par stock.</translation>
    </message>
    <message>
        <source>What decides where exports go.</source>
        <translation>Ce qui décide de la destination des exports.</translation>
    </message>
    <message>
        <source>Whether the editor can write wherever it writes to.</source>
        <translation>Si l&apos;éditeur peut écrire partout où il doit écrire.</translation>
    </message>
    <message>
        <source>The file that the next recording goes into.</source>
        <translation>Le fichier où ira le prochain enregistrement audio.</translation>
    </message>
    <message>
        <source>Makes an empty file of the next name, and prints that.</source>
        <translation>Crée un fichier vide du prochain nom, et affiche ce nom.</translation>
    </message>
    <message>
        <source>The path on one line, whatever its folder is called.</source>
        <translation>Le chemin sur une seule ligne, quel que soit le nom de son dossier.</translation>
    </message>
    <message>
        <source>The next freeze frame of that film.</source>
        <translation>Le prochain arrêt sur image de ce film.</translation>
    </message>
    <message>
        <source>The next stabilized clip of it.</source>
        <translation>Son prochain clip stabilisé.</translation>
    </message>
    <message>
        <source>Copies both stores into that file.</source>
        <translation>Copie les deux stockages dans ce fichier.</translation>
    </message>
    <message>
        <source>What would be otherwise than now.</source>
        <translation>Ce qui serait différent de maintenant.</translation>
    </message>
    <message>
        <source>Brings the stores back, and tells where those of now are kept.</source>
        <translation>Restaure les stockages, et indique où ceux de maintenant sont conservés.</translation>
    </message>
    <message>
        <source>A line for each change, until Ctrl+C.</source>
        <translation>Une ligne par changement, jusqu&apos;à Ctrl+C.</translation>
    </message>
    <message>
        <source>What is wrong and what to do; exit status 0 where all is well.</source>
        <translation>Ce qui ne va pas et que faire ; code de retour 0 si tout va bien.</translation>
    </message>
    <message>
        <source>The same, for somebody who helps.</source>
        <translation>La même chose, pour quelqu&apos;un qui aide.</translation>
    </message>
    <message>
        <source>Writes all that is stored.</source>
        <translation>Écrit tout ce qui est enregistré.</translation>
    </message>
    <message>
        <source>The same without what is personal, on standard output.</source>
        <translation>La même chose sans ce qui est personnel, sur la sortie standard.</translation>
    </message>
    <message>
        <source>What would change.</source>
        <translation>Ce qui changerait.</translation>
    </message>
    <message>
        <source>Stores what belongs to the user rather than to the machine.</source>
        <translation>Enregistre ce qui appartient à l&apos;utilisateur plutôt qu&apos;à la machine.</translation>
    </message>
    <message>
        <source>What is stored otherwise than in the file; exit status 1, as something is.</source>
        <translation>Ce qui est enregistré autrement que dans le fichier ; code de retour 1, puisqu&apos;il y a des différences.</translation>
    </message>
    <message>
        <source>Nothing, as the two are alike.</source>
        <translation>Rien, puisque les deux sont identiques.</translation>
    </message>
    <message>
        <source>A script for bash: source editor-settings.bash</source>
        <translation>Un script pour bash : source editor-settings.bash</translation>
    </message>
    <message>
        <source>The page in a file: man ./editor-settings.1</source>
        <translation>La page dans un fichier : man ./editor-settings.1</translation>
    </message>
    <message>
        <source>Examples:</source>
        <translation>Exemples :</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>vide</translation>
    </message>
    <message>
        <source>holds a NUL, at which the system would cut it off</source>
        <translation>contient un caractère NUL, où le système le couperait</translation>
    </message>
    <message>
        <source>not absolute: it depends on the folder that the editor is started in</source>
        <translation>pas absolu : il dépend du dossier où l&apos;éditeur est lancé</translation>
    </message>
    <message>
        <source>dangling link to %1</source>
        <translation>lien cassé vers %1</translation>
    </message>
    <message>
        <source>missing, and %1: %2</source>
        <translation>manquant, et pour %1 : %2</translation>
    </message>
    <message>
        <source>missing, and %1 is not a folder</source>
        <translation>manquant, et %1 n&apos;est pas un dossier</translation>
    </message>
    <message>
        <source>missing, and %1 is not writable</source>
        <translation>manquant, et %1 n&apos;est pas accessible en écriture</translation>
    </message>
    <message>
        <source>missing; the editor can make it</source>
        <translation>manquant ; l&apos;éditeur peut le créer</translation>
    </message>
    <message>
        <source>not a folder</source>
        <translation>pas un dossier</translation>
    </message>
    <message>
        <source>not writable</source>
        <translation>pas accessible en écriture</translation>
    </message>
    <message>
        <source>not readable, so names are numbered as if it were empty</source>
        <translation>pas lisible, la numérotation se fait donc comme s&apos;il était vide</translation>
    </message>
    <message>
        <source>the home folder itself</source>
        <translation>le dossier personnel lui-même</translation>
    </message>
    <message>
        <source>HOME is not set, so / is taken for the home folder</source>
        <translation>HOME n&apos;est pas définie, / est donc pris pour dossier personnel</translation>
    </message>
    <message>
        <source>HOME is %1, which depends on the folder that a program is started in</source>
        <translation>HOME vaut %1, ce qui dépend du dossier où un programme est lancé</translation>
    </message>
    <message>
        <source>HOME is %1, which is not a folder</source>
        <translation>HOME vaut %1, qui n&apos;est pas un dossier</translation>
    </message>
    <message>
        <source>HOME is %1, which is not there</source>
        <translation>HOME vaut %1, qui n&apos;existe pas</translation>
    </message>
    <message>
        <source>cannot read %1 (%2); name a file that can be read, or give - for standard input</source>
        <translation>impossible de lire %1 (%2) ; indiquer un fichier lisible, ou - pour l&apos;entrée standard</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>c&apos;est un dossier</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>ce n&apos;est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>l&apos;entrée standard</translation>
    </message>
    <message>
        <source>%1 holds more than %2 bytes, which is too much; name a smaller one</source>
        <translation>%1 contient plus de %2 octets, c&apos;est trop ; indiquer un fichier plus petit</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1 :</translation>
    </message>
    <message>
        <source>watching both stores; Ctrl+C ends it</source>
        <translation>surveillance des deux stockages ; Ctrl+C y met fin</translation>
    </message>
    <message>
        <source>%1 is not UTF-8 without a byte order mark; give the name in UTF-8</source>
        <translation>%1 n&apos;est pas en UTF-8 sans indicateur d&apos;ordre des octets ; donner le nom en UTF-8</translation>
    </message>
    <message>
        <source>%1 is longer than a path can be; give the name of a file</source>
        <translation>%1 est plus long que ne peut l&apos;être un chemin ; donner le nom d&apos;un fichier</translation>
    </message>
    <message>
        <source>nothing can be reserved in %1, which is %2: %3; store another folder there, or mend that</source>
        <translation>rien ne peut être réservé dans %1, le dossier de %2 : %3 ; donner un autre dossier à la préférence, ou corriger cela</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile; try again</source>
        <translation>%1 a changé entre-temps ; réessayer</translation>
    </message>
    <message>
        <source>the name %1 would not lie in %2 as it is; take a format without &quot;/&quot; and NUL</source>
        <translation>le nom %1 ne se trouverait pas tel quel dans %2 ; prendre un format sans &quot;/&quot; ni NUL</translation>
    </message>
    <message>
        <source>take a source with a shorter name</source>
        <translation>prendre une source au nom plus court</translation>
    </message>
    <message>
        <source>&apos;editor-settings paths --check&apos; tells which folders can be used</source>
        <translation>&apos;editor-settings paths --check&apos; indique quels dossiers sont utilisables</translation>
    </message>
    <message>
        <source>cannot make the file %1 (%2); %3</source>
        <translation>impossible de créer le fichier %1 (%2) ; %3</translation>
    </message>
    <message>
        <source>cannot make the folder %1 (%2); %3</source>
        <translation>impossible de créer le dossier %1 (%2) ; %3</translation>
    </message>
    <message>
        <source>%1 is there already, though the editor would propose it</source>
        <translation>%1 existe déjà, alors que l&apos;éditeur le proposerait</translation>
    </message>
    <message>
        <source>%1 was taken by someone else meanwhile</source>
        <translation>%1 a été pris par quelqu&apos;un d&apos;autre entre-temps</translation>
    </message>
    <message>
        <source>%1; %2 is reserved instead</source>
        <translation>%1 ; %2 est réservé à la place</translation>
    </message>
    <message>
        <source>%1 is reserved, but standard output cannot be written; remove the file if it is not wanted</source>
        <translation>%1 est réservé, mais il est impossible d&apos;écrire sur la sortie standard ; supprimer le fichier s&apos;il n&apos;est pas voulu</translation>
    </message>
    <message>
        <source>%1 takes nothing after it</source>
        <translation>rien ne peut suivre %1</translation>
    </message>
    <message>
        <source>%1 is not UTF-8 without a byte order mark; give it as the editor does</source>
        <translation>%1 n&apos;est pas en UTF-8 sans indicateur d&apos;ordre des octets ; le donner comme le fait l&apos;éditeur</translation>
    </message>
    <message>
        <source>there is no location %1; %2&apos;editor-settings paths&apos; shows all</source>
        <translation>il n&apos;y a pas d&apos;emplacement %1 ; %2&apos;editor-settings paths&apos; les affiche tous</translation>
    </message>
    <message>
        <source>say what %1 is asked about: &apos;editor-settings paths %1 %2&apos;</source>
        <translation>préciser ce qui est demandé à %1 : &apos;editor-settings paths %1 %2&apos;</translation>
    </message>
    <message>
        <source>&apos; or &apos;</source>
        <translation>&apos; ou &apos;</translation>
    </message>
    <message>
        <source>nothing goes after a pattern; name one location</source>
        <translation>rien ne peut suivre un motif ; indiquer un seul emplacement</translation>
    </message>
    <message>
        <source>nothing else: an absolute path stands for itself</source>
        <translation>rien d&apos;autre : un chemin absolu se suffit à lui-même</translation>
    </message>
    <message>
        <source>%1 is stored in %2</source>
        <translation>%1 est enregistrée dans %2</translation>
    </message>
    <message>
        <source>%1 is stored with a value of another kind in %2, so %3 holds</source>
        <translation>%1 est enregistrée dans %2 avec une valeur d&apos;un autre genre, %3 s&apos;applique donc</translation>
    </message>
    <message>
        <source>%1 is not stored in %2, so %3 holds</source>
        <translation>%1 n&apos;est pas enregistrée dans %2, %3 s&apos;applique donc</translation>
    </message>
    <message>
        <source>location</source>
        <translation>emplacement</translation>
    </message>
    <message>
        <source>path</source>
        <translation>chemin</translation>
    </message>
    <message>
        <source>use</source>
        <translation>usage</translation>
    </message>
    <message>
        <source>decided by</source>
        <translation>décidé par</translation>
    </message>
    <message>
        <source>none found</source>
        <translation>introuvable</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>oui</translation>
    </message>
    <message>
        <source>no</source>
        <translation>non</translation>
    </message>
    <message>
        <source>LOCATION</source>
        <translation>EMPLACEMENT</translation>
    </message>
    <message>
        <source>EXISTS</source>
        <translation>EXISTE</translation>
    </message>
    <message>
        <source>WRITABLE</source>
        <translation>INSCRIPTIBLE</translation>
    </message>
    <message>
        <source>REMARK</source>
        <translation>REMARQUE</translation>
    </message>
    <message>
        <source>PATH</source>
        <translation>CHEMIN</translation>
    </message>
    <message>
        <source>the editor cannot write to %1; mend what is remarked: &apos;editor-settings paths NAME --explain&apos; tells what decides, and a preference may be set to another folder</source>
        <translation>l&apos;éditeur ne peut pas écrire ici : %1 ; corriger ce qui est signalé : &apos;editor-settings paths NAME --explain&apos; indique ce qui en décide, et une préférence peut désigner un autre dossier</translation>
    </message>
    <message>
        <source>unreadable</source>
        <translation>illisible</translation>
    </message>
    <message>
        <source>other kind</source>
        <translation>autre genre</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>supprimée</translation>
    </message>
    <message>
        <source>set</source>
        <translation>définie</translation>
    </message>
    <message>
        <source>added</source>
        <translation>ajoutée</translation>
    </message>
    <message>
        <source>step %1 of %2: %3</source>
        <translation>étape %1 sur %2 : %3</translation>
    </message>
    <message>
        <source>unset</source>
        <translation>non définie</translation>
    </message>
    <message>
        <source>set to default</source>
        <translation>définie au défaut</translation>
    </message>
    <message>
        <source>%1 is reserved: the editor neither reads nor writes it, so it cannot be reached</source>
        <translation>%1 est réservée : l&apos;éditeur ne la lit ni ne l&apos;écrit, elle n&apos;est donc pas accessible</translation>
    </message>
    <message>
        <source>%1 is a location and no preference; &apos;editor-settings paths %1&apos; shows it</source>
        <translation>%1 est un emplacement et non une préférence ; &apos;editor-settings paths %1&apos; l&apos;affiche</translation>
    </message>
    <message>
        <source>there is no preference %1; %2&apos;editor-settings list&apos; shows all</source>
        <translation>il n&apos;y a pas de préférence %1 ; %2&apos;editor-settings list&apos; les affiche toutes</translation>
    </message>
    <message>
        <source>the name %1 is not UTF-8 without a byte order mark; give it as the editor writes it</source>
        <translation>le nom %1 n&apos;est pas en UTF-8 sans indicateur d&apos;ordre des octets ; le donner comme l&apos;éditeur l&apos;écrit</translation>
    </message>
    <message>
        <source>(unreadable)</source>
        <translation>(illisible)</translation>
    </message>
    <message>
        <source>holds a value of kind %1 that this version cannot read</source>
        <translation>contient une valeur de genre %1 que cette version ne peut pas lire</translation>
    </message>
    <message>
        <source>has a NUL in its key</source>
        <translation>a un caractère NUL dans sa clé</translation>
    </message>
    <message>
        <source>reading the %1 store</source>
        <translation>lecture du stockage %1</translation>
    </message>
    <message>
        <source>a key in the %1 store holds the path of the home folder, so it is left out</source>
        <translation>une clé du stockage %1 contient le chemin du dossier personnel, elle est donc omise</translation>
    </message>
    <message>
        <source>%1 in the %2 store %3, so it is left out; &apos;editor-settings backup&apos; keeps it</source>
        <translation>%1 dans le stockage %2 %3, cette clé est donc omise ; &apos;editor-settings backup&apos; la conserve</translation>
    </message>
    <message>
        <source>writing the file</source>
        <translation>écriture du fichier</translation>
    </message>
    <message>
        <source>%1 is there already and was left as it is; name a new file, or move that one away</source>
        <translation>%1 existe déjà et a été laissé tel quel ; indiquer un nouveau fichier, ou déplacer celui-ci</translation>
    </message>
    <message>
        <source>%1 in the %2 store %3, so it is not compared</source>
        <translation>%1 dans le stockage %2 %3, cette clé n&apos;est donc pas comparée</translation>
    </message>
    <message>
        <source>comparing with the %1 store</source>
        <translation>comparaison avec le stockage %1</translation>
    </message>
    <message>
        <source>(absent)</source>
        <translation>(absente)</translation>
    </message>
    <message>
        <source>CHANGE</source>
        <translation>CHANGEMENT</translation>
    </message>
    <message>
        <source>STORED</source>
        <translation>ENREGISTRÉE</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>FICHIER</translation>
    </message>
    <message>
        <source>reading the file</source>
        <translation>lecture du fichier</translation>
    </message>
    <message numerus="yes">
        <source>%n redacted in the file, so not compared</source>
        <comment>%n redacted in the file, so not compared</comment>
        <translation>
            <numerusform>%n valeur masquée dans le fichier, donc pas comparée</numerusform>
            <numerusform>%n valeurs masquées dans le fichier, donc pas comparées</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; nothing was changed</source>
        <translation>%1 ; rien n&apos;a été modifié</translation>
    </message>
    <message>
        <source>the %1 store is as it was</source>
        <translation>le stockage %1 est comme avant</translation>
    </message>
    <message>
        <source>the %1 store holds the imported values</source>
        <translation>le stockage %1 contient les valeurs importées</translation>
    </message>
    <message>
        <source>the %1 store cannot be read</source>
        <translation>le stockage %1 est illisible</translation>
    </message>
    <message>
        <source>changing the %1 store</source>
        <translation>modification du stockage %1</translation>
    </message>
    <message>
        <source>%1; %2; then import the file again</source>
        <translation>%1 ; %2 ; importer ensuite de nouveau le fichier</translation>
    </message>
    <message numerus="yes">
        <source>%n would change</source>
        <comment>%n would change</comment>
        <translation>
            <numerusform>%n valeur changerait</numerusform>
            <numerusform>%n valeurs changeraient</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n changed</source>
        <comment>%n changed</comment>
        <translation>
            <numerusform>%n valeur modifiée</numerusform>
            <numerusform>%n valeurs modifiées</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n already as in the file</source>
        <comment>%n already as in the file</comment>
        <translation>
            <numerusform>%n valeur déjà comme dans le fichier</numerusform>
            <numerusform>%n valeurs déjà comme dans le fichier</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n redacted in the file and left alone</source>
        <comment>%n redacted in the file and left alone</comment>
        <translation>
            <numerusform>%n valeur masquée dans le fichier et laissée telle quelle</numerusform>
            <numerusform>%n valeurs masquées dans le fichier et laissées telles quelles</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is a bool and cannot be %2; %3</source>
        <translation>%1 est un bool et ne peut pas être %2 ; %3</translation>
    </message>
    <message>
        <source>%1 is an int and cannot be %2; %3</source>
        <translation>%1 est un int et ne peut pas être %2 ; %3</translation>
    </message>
    <message>
        <source>%1 is a text and cannot be %2; %3</source>
        <translation>%1 est un texte et ne peut pas être %2 ; %3</translation>
    </message>
    <message>
        <source>%1 holds bytes and cannot be %2; %3</source>
        <translation>%1 contient des octets et ne peut pas être %2 ; %3</translation>
    </message>
    <message>
        <source>%1 is a list and cannot be %2; %3</source>
        <translation>%1 est une liste et ne peut pas être %2 ; %3</translation>
    </message>
    <message>
        <source>give text in UTF-8 without a byte order mark, as anything else would not come back unchanged</source>
        <translation>donner du texte en UTF-8 sans indicateur d&apos;ordre des octets, car rien d&apos;autre ne reviendrait inchangé</translation>
    </message>
    <message>
        <source>give true or false (or yes, no, on, off, 1, 0)</source>
        <translation>donner true ou false (ou yes, no, on, off, 1, 0)</translation>
    </message>
    <message>
        <source>give a whole number from -2147483648 to 2147483647</source>
        <translation>donner un nombre entier de -2147483648 à 2147483647</translation>
    </message>
    <message>
        <source>%1: cannot read %2 (%3); %4</source>
        <translation>%1 : impossible de lire %2 (%3) ; %4</translation>
    </message>
    <message>
        <source>%1: cannot read standard input (%2); give it a file or a pipe</source>
        <translation>%1 : impossible de lire l&apos;entrée standard (%2) ; lui donner un fichier ou un tube</translation>
    </message>
    <message>
        <source>name a file that can be read after the @</source>
        <translation>indiquer après le @ un fichier lisible</translation>
    </message>
    <message>
        <source>give the bytes in base64, or @FILE to read them from a file</source>
        <translation>donner les octets en base64, ou @FILE pour les lire dans un fichier</translation>
    </message>
    <message>
        <source>an empty element is lost when the list is read back; leave it out (--empty stores an empty list)</source>
        <translation>un élément vide se perd quand la liste est relue ; l&apos;omettre (--empty enregistre une liste vide)</translation>
    </message>
    <message>
        <source>the element holds the separator of stored lists and would come back in pieces</source>
        <translation>l&apos;élément contient le séparateur des listes enregistrées et reviendrait en morceaux</translation>
    </message>
    <message>
        <source>together with the element before it, it makes up the separator of stored lists and would come back otherwise</source>
        <translation>avec l&apos;élément précédent, il forme le séparateur des listes enregistrées et reviendrait différent</translation>
    </message>
    <message>
        <source>%1 takes one value, not %2; %3</source>
        <translation>%1 prend une seule valeur, pas %2 ; %3</translation>
    </message>
    <message>
        <source>--empty is for lists</source>
        <translation>--empty est pour les listes</translation>
    </message>
    <message>
        <source>put quotes around a value with blanks</source>
        <translation>mettre entre guillemets une valeur qui a des espaces</translation>
    </message>
    <message>
        <source>name a file that can be read</source>
        <translation>indiquer un fichier lisible</translation>
    </message>
    <message>
        <source>Exit status</source>
        <translation>Code de retour</translation>
    </message>
    <message>
        <source>  0  done
  1  said no: unknown key, wrong value, trouble with a store or the product file, a folder that cannot be used,
     or doctor found something wrong
  2  wrong usage
diff ends with 0 where nothing differs, with 1 where something does, and with 2 for everything else.</source>
        <translation>  0  fait
  1  refusé : clé inconnue, mauvaise valeur, problème avec un stockage ou le fichier produit, dossier inutilisable,
     ou doctor a trouvé quelque chose
  2  mauvais usage
diff se termine avec 0 si rien ne diffère, avec 1 s&apos;il y a une différence, et avec 2 pour tout le reste.</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Sortie</translation>
    </message>
    <message>
        <source>Values are printed to standard output, reasons to standard error. With --plain a backslash is printed as \\, a tab
as \t, line breaks as \n and \r, other control characters and bytes that are not UTF-8 as \xHH, and a list as a JSON array.
A terminal is sent no control characters but tabs, line breaks and the codes of colours. An answer that could not be
printed whole is an error.</source>
        <translation>Les valeurs vont sur la sortie standard, les raisons sur l&apos;erreur standard. Avec --plain, une barre oblique inverse est
affichée \\, une tabulation \t, les sauts de ligne \n et \r, les autres caractères de contrôle et les octets qui ne sont
pas en UTF-8 \xHH, et une liste en tableau JSON. Un terminal ne reçoit d&apos;autres caractères de contrôle que tabulations,
sauts de ligne et codes de couleurs. Une réponse qui n&apos;a pas pu être affichée en entier est une erreur.</translation>
    </message>
    <message>
        <source>On a terminal</source>
        <translation>Sur un terminal</translation>
    </message>
    <message>
        <source>What is longer than the screen is shown by the program that EDITOR_SETTINGS_PAGER names, else PAGER, else
&quot;less&quot;; an empty name and &quot;cat&quot; stand for none. Columns line up there; elsewhere a tab stands between each two. Colours say
nothing that the words do not say; NO_COLOR, or &quot;dumb&quot; in TERM, leaves them out. What takes longer than a second tells
meanwhile which step it is at, where standard error is a terminal.</source>
        <translation>Ce qui dépasse l&apos;écran est affiché par le programme que nomme EDITOR_SETTINGS_PAGER, sinon PAGER, sinon &quot;less&quot; ; un nom
vide et &quot;cat&quot; n&apos;en désignent aucun. Les colonnes y sont alignées ; ailleurs, une tabulation les sépare.
Les couleurs ne disent rien de plus que les mots ; NO_COLOR, ou &quot;dumb&quot; dans TERM,
les supprime. Ce qui dure plus d&apos;une seconde indique l&apos;étape en cours, si l&apos;erreur standard est un terminal.</translation>
    </message>
    <message>
        <source>Words that look like options</source>
        <translation>Mots qui ressemblent à des options</translation>
    </message>
    <message>
        <source>A value that begins with &quot;-&quot; goes after &quot;--&quot;: editor-settings set lastTarget -- -x</source>
        <translation>Une valeur qui commence par &quot;-&quot; se met après &quot;--&quot; : editor-settings set lastTarget -- -x</translation>
    </message>
    <message>
        <source>the name is empty; name a file</source>
        <translation>le nom est vide ; indiquer un fichier</translation>
    </message>
    <message>
        <source>the name is empty; leave the option out for the default</source>
        <translation>le nom est vide ; omettre l&apos;option pour la valeur par défaut</translation>
    </message>
    <message>
        <source>As JSON</source>
        <translation>En JSON</translation>
    </message>
    <message>
        <source>As JSON; bytes in base64</source>
        <translation>En JSON ; octets en base64</translation>
    </message>
    <message>
        <source>Tab-separated, one record a line, nothing shortened; for scripts</source>
        <translation>Séparé par des tabulations, un enregistrement par ligne, rien d&apos;abrégé ; pour les scripts</translation>
    </message>
    <message>
        <source>Stores an empty list</source>
        <translation>Enregistre une liste vide</translation>
    </message>
    <message>
        <source>Writes what is stored to a new file, in JSON: for another machine, or for somebody who helps</source>
        <translation>Écrit ce qui est enregistré dans un nouveau fichier, en JSON : pour une autre machine, ou pour quelqu&apos;un qui aide</translation>
    </message>
    <message>
        <source>Stores what an exported file holds, all of it or nothing; what it does not name stays</source>
        <translation>Enregistre ce que contient un fichier exporté, tout ou rien ; ce qu&apos;il ne nomme pas reste</translation>
    </message>
    <message>
        <source>The differences between what is stored and what an exported file holds</source>
        <translation>Les différences entre ce qui est enregistré et ce que contient un fichier exporté</translation>
    </message>
    <message>
        <source>The new file; - for standard output</source>
        <translation>Le nouveau fichier ; - pour la sortie standard</translation>
    </message>
    <message>
        <source>The file; - for standard input</source>
        <translation>Le fichier ; - pour l&apos;entrée standard</translation>
    </message>
    <message>
        <source>Only keys of this class; may be given several times</source>
        <translation>Seulement les clés de cette classe ; peut être donnée plusieurs fois</translation>
    </message>
    <message>
        <source>Leaves out personal values, those of unknown keys, and whatever holds the path of the home folder</source>
        <translation>Omet les valeurs personnelles, celles des clés inconnues, et tout ce qui contient le chemin du dossier personnel</translation>
    </message>
    <message>
        <source>Takes keys that the editor does not know as they are</source>
        <translation>Accepte telles quelles les clés que l&apos;éditeur ne connaît pas</translation>
    </message>
    <message>
        <source>Tells what would change, as diff does, and changes nothing</source>
        <translation>Indique ce qui changerait, comme le fait diff, et ne change rien</translation>
    </message>
    <message>
        <source>With --dry-run: as JSON; bytes in base64</source>
        <translation>Avec --dry-run : en JSON ; octets en base64</translation>
    </message>
    <message>
        <source>Run with --help for more information.</source>
        <translation>Plus d&apos;informations avec --help.</translation>
    </message>
    <message>
        <source>bash, zsh or fish</source>
        <translation>bash, zsh ou fish</translation>
    </message>
    <message>
        <source>Name a product file with &apos;--product FILE&apos;, or in EDITOR_SETTINGS_PRODUCT.</source>
        <translation>Indiquer un fichier produit avec &apos;--product FILE&apos;, ou dans EDITOR_SETTINGS_PRODUCT.</translation>
    </message>
    <message>
        <source>Run &apos;editor-settings doctor&apos; with the same options to see what is wrong; &apos;editor-settings restore FILE&apos; brings a backup back.</source>
        <translation>&apos;editor-settings doctor&apos; avec les mêmes options montre ce qui ne va pas ; &apos;editor-settings restore FILE&apos; restaure une sauvegarde.</translation>
    </message>
    <message>
        <source>A verb</source>
        <translation>Une commande</translation>
    </message>
    <message>
        <source>Colours: auto for a terminal alone, always, or never; default: auto</source>
        <translation>Couleurs : auto pour un terminal seulement, always toujours, never jamais ; par défaut : auto</translation>
    </message>
    <message>
        <source>Long answers as they are, not a screen at a time</source>
        <translation>Affiche les longues réponses d&apos;un seul tenant, et non écran par écran</translation>
    </message>
    <message>
        <source>The product file, in JSON; default: the one that is installed with this program</source>
        <translation>Le fichier produit, en JSON ; par défaut : celui qui est installé avec ce programme</translation>
    </message>
    <message>
        <source>The folder of both stores; default: the product&apos;s data folder and the vendor&apos;s</source>
        <translation>Le dossier des deux stockages ; par défaut : le dossier des données du produit et celui du fabricant</translation>
    </message>
    <message>
        <source>Only keys that match, such as &apos;*Path&apos;</source>
        <translation>Seulement les clés qui correspondent, par exemple &apos;*Path&apos;</translation>
    </message>
    <message>
        <source>Only what is stored</source>
        <translation>Seulement ce qui est enregistré</translation>
    </message>
    <message>
        <source>Only what is not stored</source>
        <translation>Seulement ce qui n&apos;est pas enregistré</translation>
    </message>
    <message>
        <source>Only one store</source>
        <translation>Un seul stockage</translation>
    </message>
    <message>
        <source>The preference</source>
        <translation>La préférence</translation>
    </message>
    <message>
        <source>A bool as true or false, an int in decimal, text in UTF-8, bytes in base64 or as @FILE, a list as one word for each element</source>
        <translation>Un bool comme true ou false, un int en décimal, du texte en UTF-8, des octets en base64 ou par @FILE, une liste à raison d&apos;un mot par élément</translation>
    </message>
    <message>
        <source>Stores what the file holds, or standard input where it is -: byte for byte, but for a list one element on each line</source>
        <translation>Enregistre ce que contient le fichier, ou l&apos;entrée standard avec - : octet pour octet, mais pour une liste un élément par ligne</translation>
    </message>
    <message>
        <source>One location, or those that match, such as &apos;stock*&apos;</source>
        <translation>Un emplacement, ou ceux qui correspondent, par exemple &apos;stock*&apos;</translation>
    </message>
    <message>
        <source>What the location is asked about, where it takes that</source>
        <translation>Ce qui est demandé à l&apos;emplacement, s&apos;il faut le préciser</translation>
    </message>
    <message>
        <source>What decides where a location lies</source>
        <translation>Ce qui décide d&apos;un emplacement</translation>
    </message>
    <message>
        <source>Whether they exist and can be used; exit status 1 where the editor cannot write to one that it writes to</source>
        <translation>S&apos;ils existent et sont utilisables ; code de retour 1 si l&apos;éditeur ne peut pas écrire à l&apos;un de ceux où il écrit</translation>
    </message>
    <message>
        <source>Makes the file, empty, so that nobody else gets the name; the folder too, and a free number where needed</source>
        <translation>Crée le fichier, vide, pour que personne d&apos;autre ne prenne le nom ; au besoin aussi le dossier, et avec un numéro libre</translation>
    </message>
    <message>
        <source>The file that it is made of; only its name counts</source>
        <translation>Le fichier dont il est tiré ; seul son nom compte</translation>
    </message>
    <message>
        <source>The extension, such as mp4</source>
        <translation>L&apos;extension, par exemple mp4</translation>
    </message>
    <message>
        <source>The name that the editor keeps it under</source>
        <translation>Le nom sous lequel l&apos;éditeur le garde</translation>
    </message>
    <message>
        <source>Stores these bytes: in base64, or @FILE</source>
        <translation>Enregistre ces octets : en base64, ou @FILE</translation>
    </message>
    <message>
        <source>Stores this list, one word for each element</source>
        <translation>Enregistre cette liste, un mot par élément</translation>
    </message>
    <message>
        <source>Stores this text</source>
        <translation>Enregistre ce texte</translation>
    </message>
    <message>
        <source>The new file</source>
        <translation>Le nouveau fichier</translation>
    </message>
    <message>
        <source>A file that backup has written</source>
        <translation>Un fichier écrit par backup</translation>
    </message>
    <message>
        <source>Only tells what would change</source>
        <translation>Indique seulement ce qui changerait</translation>
    </message>
    <message>
        <source>markdown: the page of the reference, the same on every machine</source>
        <translation>markdown : la page de la référence, la même sur toutes les machines</translation>
    </message>
    <message>
        <source>%1; set HOME to your folder, or name one for the stores with --home</source>
        <translation>%1 ; donner à HOME votre dossier, ou en indiquer un pour les stockages avec --home</translation>
    </message>
    <message>
        <source>%1; set HOME to your folder</source>
        <translation>%1 ; donner à HOME votre dossier</translation>
    </message>
    <message>
        <source>only for reading: %1</source>
        <translation>en lecture seule : %1</translation>
    </message>
    <message>
        <source>Reads, changes and explains the preferences, folders and file names of Lumora Video Editor.</source>
        <translation>Lit, modifie et explique les préférences, les dossiers et les noms de fichiers de Lumora Video Editor.</translation>
    </message>
    <message>
        <source>All preferences with their values, sorted by key</source>
        <translation>Toutes les préférences avec leurs valeurs, triées par clé</translation>
    </message>
    <message>
        <source>The value that the editor reads now</source>
        <translation>La valeur que l&apos;éditeur lit maintenant</translation>
    </message>
    <message>
        <source>Stores a value</source>
        <translation>Enregistre une valeur</translation>
    </message>
    <message>
        <source>Removes the stored value, so that the default holds again</source>
        <translation>Supprime la valeur enregistrée, la valeur par défaut s&apos;applique de nouveau</translation>
    </message>
    <message>
        <source>Where a value comes from: what is stored, since when, and the default</source>
        <translation>D&apos;où vient une valeur : ce qui est enregistré, depuis quand, et la valeur par défaut</translation>
    </message>
    <message>
        <source>Where the editor&apos;s files and folders lie</source>
        <translation>Où se trouvent les fichiers et les dossiers de l&apos;éditeur</translation>
    </message>
    <message>
        <source>The name that the editor gives the next file of a kind</source>
        <translation>Le nom que l&apos;éditeur donne au prochain fichier d&apos;une sorte donnée</translation>
    </message>
    <message>
        <source>An audio recording</source>
        <translation>Un enregistrement audio</translation>
    </message>
    <message>
        <source>A freeze frame</source>
        <translation>Un arrêt sur image</translation>
    </message>
    <message>
        <source>A stabilized clip</source>
        <translation>Un clip stabilisé</translation>
    </message>
    <message>
        <source>Default name, extensions and filters of projects, and the sample project</source>
        <translation>Nom par défaut, extensions et filtres des projets, et le projet d&apos;exemple</translation>
    </message>
    <message>
        <source>The favourites of one list</source>
        <translation>Les favoris d&apos;une liste</translation>
    </message>
    <message>
        <source>What the editor keeps for an indication, or stores it</source>
        <translation>Affiche ou enregistre ce que l&apos;éditeur garde pour une indication</translation>
    </message>
    <message>
        <source>The finished tutorials, or stores them</source>
        <translation>Affiche ou enregistre les tutoriels terminés</translation>
    </message>
    <message>
        <source>The user&apos;s own colours, or stores them</source>
        <translation>Affiche ou enregistre les couleurs personnalisées de l&apos;utilisateur</translation>
    </message>
    <message>
        <source>The recent export targets, or stores them</source>
        <translation>Affiche ou enregistre les destinations d&apos;export récentes</translation>
    </message>
    <message>
        <source>Copies both stores into one file, also while the editor runs</source>
        <translation>Copie les deux stockages dans un fichier, même pendant que l&apos;éditeur s&apos;exécute</translation>
    </message>
    <message>
        <source>Brings the stores of a backup back, and keeps what was there</source>
        <translation>Restaure les stockages d&apos;une sauvegarde, et conserve ce qui s&apos;y trouvait</translation>
    </message>
    <message>
        <source>Prints the changes that other processes make, as they happen</source>
        <translation>Affiche les changements que font d&apos;autres processus, dès qu&apos;ils se produisent</translation>
    </message>
    <message>
        <source>What is wrong with the stores, what they hold and the folders; exit status 1 where something is</source>
        <translation>Ce qui ne va pas dans les stockages, leur contenu et les dossiers ; code de retour 1 si quelque chose ne va pas</translation>
    </message>
    <message>
        <source>A completion script for a shell, to be sourced</source>
        <translation>Un script de complétion pour un shell, à charger avec source</translation>
    </message>
    <message>
        <source>The manual page, for man</source>
        <translation>La page de manuel, pour man</translation>
    </message>
    <message>
        <source>One JSON object a line; bytes in base64</source>
        <translation>Un objet JSON par ligne ; octets en base64</translation>
    </message>
    <message>
        <source>cannot write to standard output: %1</source>
        <translation>impossible d&apos;écrire sur la sortie standard : %1</translation>
    </message>
    <message>
        <source>%1 is reserved: the editor neither reads nor writes it; remove it, or give --with-unknown</source>
        <translation>%1 est réservée : l&apos;éditeur ne la lit ni ne l&apos;écrit ; supprimer cette clé, ou donner --with-unknown</translation>
    </message>
    <message>
        <source>%1 is no preference of the editor; %2correct or remove it, or give --with-unknown to take such keys as they are</source>
        <translation>%1 n&apos;est pas une préférence de l&apos;éditeur ; %2corriger ou supprimer cette clé, ou donner --with-unknown pour accepter ces clés telles quelles</translation>
    </message>
    <message>
        <source>%1 is kept in the other store; move it to stores.%2</source>
        <translation>%1 a sa place dans l&apos;autre stockage ; déplacer cette clé vers stores.%2</translation>
    </message>
    <message>
        <source>%1 is &quot;%2&quot;, which the editor would not read; give a value of kind &quot;%3&quot;</source>
        <translation>%1 est &quot;%2&quot;, que l&apos;éditeur ne lirait pas ; donner une valeur de genre &quot;%3&quot;</translation>
    </message>
    <message>
        <source> or </source>
        <translation> ou </translation>
    </message>
    <message>
        <source>did you mean %1?</source>
        <translation>vouliez-vous dire %1 ?</translation>
    </message>
    <message>
        <source>%1 is not set, so %2</source>
        <translation>%1 n&apos;est pas définie, donc %2</translation>
    </message>
    <message>
        <source>%1 is empty, so %2</source>
        <translation>%1 est vide, donc %2</translation>
    </message>
    <message>
        <source>%1=%2 in the environment</source>
        <translation>%1=%2 dans l&apos;environnement</translation>
    </message>
    <message>
        <source>%1 in the home folder</source>
        <translation>%1 dans le dossier personnel</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1, ligne %2</translation>
    </message>
    <message>
        <source>%1=%2 in %3</source>
        <translation>%1=%2 dans %3</translation>
    </message>
    <message>
        <source>no %1 in %2, so %3</source>
        <translation>pas de %1 dans %2, donc %3</translation>
    </message>
    <message>
        <source>%1 cannot be read (%2), so %3</source>
        <translation>%1 est illisible (%2), donc %3</translation>
    </message>
    <message>
        <source>there is no %1, so %2</source>
        <translation>%1 n&apos;existe pas, donc %2</translation>
    </message>
    <message>
        <source>%1 gives %2</source>
        <translation>%1 donne %2</translation>
    </message>
    <message>
        <source>resourcesRoot of %1, which is %2</source>
        <translation>resourcesRoot de %1, c&apos;est-à-dire %2</translation>
    </message>
    <message>
        <source>nothing: the text is fixed</source>
        <translation>rien : le texte est fixe</translation>
    </message>
    <message>
        <source>%1 %2 in %3</source>
        <translation>%1 %2 dans %3</translation>
    </message>
    <message>
        <source>the document</source>
        <translation>le document</translation>
    </message>
    <message>
        <source>line %1, column %2:</source>
        <translation>ligne %1, colonne %2 :</translation>
    </message>
    <message>
        <source>%1 is nested too deeply; give a file that &apos;editor-settings export&apos; made</source>
        <translation>%1 est imbriqué trop profondément ; donner un fichier créé par &apos;editor-settings export&apos;</translation>
    </message>
    <message>
        <source>%1 stands there twice; keep one of the two</source>
        <translation>%1 s&apos;y trouve deux fois ; n&apos;en garder qu&apos;un</translation>
    </message>
    <message>
        <source>a number is too large</source>
        <translation>un nombre est trop grand</translation>
    </message>
    <message>
        <source>%1 %2; mend it there, or export the file again</source>
        <translation>%1 %2 ; corriger à cet endroit, ou exporter de nouveau le fichier</translation>
    </message>
    <message>
        <source>%1 a byte order mark stands before the text; save the file as UTF-8 without it</source>
        <translation>%1 un indicateur d&apos;ordre des octets précède le texte ; enregistrer le fichier en UTF-8 sans celui-ci</translation>
    </message>
    <message>
        <source>the document is a database; where &apos;editor-settings backup&apos; made it, &apos;editor-settings restore&apos; takes it</source>
        <translation>le document est une base de données ; si elle vient de &apos;editor-settings backup&apos;, &apos;editor-settings restore&apos; l&apos;accepte</translation>
    </message>
    <message>
        <source>%1 a NUL stands there, which no text holds; save the file as UTF-8, or export it again</source>
        <translation>%1 il s&apos;y trouve un caractère NUL, qu&apos;aucun texte ne contient ; enregistrer le fichier en UTF-8, ou l&apos;exporter de nouveau</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>un objet</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>un tableau</translation>
    </message>
    <message>
        <source>%1 is %2; give %3</source>
        <translation>%1 est %2 ; donner %3</translation>
    </message>
    <message>
        <source>an object, between { and }</source>
        <translation>un objet, entre { et }</translation>
    </message>
    <message>
        <source>%1 means nothing; remove it: what stands there is %2</source>
        <translation>%1 n&apos;a pas de sens ici ; à supprimer : sont prévus ici %2</translation>
    </message>
    <message>
        <source>%1 is missing; give a file that &apos;editor-settings export&apos; made</source>
        <translation>%1 est absent ; donner un fichier créé par &apos;editor-settings export&apos;</translation>
    </message>
    <message>
        <source>a text, in quotes</source>
        <translation>un texte, entre guillemets</translation>
    </message>
    <message>
        <source>%1 is not how a key is written: a backslash is doubled, and only a byte that is not UTF-8 stands as \xHH, in small letters; write it so</source>
        <translation>%1 n&apos;est pas l&apos;écriture d&apos;une clé : une barre oblique inverse est doublée, et seul un octet qui n&apos;est pas en UTF-8 s&apos;écrit \xHH, en minuscules ; l&apos;écrire ainsi</translation>
    </message>
    <message>
        <source>%1 holds a NUL, which no key can; remove it</source>
        <translation>%1 contient un caractère NUL, ce qu&apos;aucune clé ne peut ; supprimer cette clé</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true ou false</translation>
    </message>
    <message>
        <source>a whole number from -2147483648 to 2147483647</source>
        <translation>un nombre entier de -2147483648 à 2147483647</translation>
    </message>
    <message>
        <source>bytes in base64</source>
        <translation>des octets en base64</translation>
    </message>
    <message>
        <source>&quot;base64&quot;, or leave the field out</source>
        <translation>&quot;base64&quot;, ou omettre le champ</translation>
    </message>
    <message>
        <source>bool, int, string or bytes</source>
        <translation>bool, int, string ou bytes</translation>
    </message>
    <message>
        <source>%1 is for the kind string only; remove it</source>
        <translation>%1 n&apos;est que pour le genre string ; supprimer ce champ</translation>
    </message>
    <message>
        <source>%1 stands beside &quot;redacted&quot;; keep one of the two</source>
        <translation>%1 se trouve à côté de &quot;redacted&quot; ; n&apos;en garder qu&apos;un des deux</translation>
    </message>
    <message>
        <source>true, or a value in its place</source>
        <translation>true, ou une valeur à la place</translation>
    </message>
    <message>
        <source>format is %1, so this is no export of settings; give a file that &apos;editor-settings export&apos; made</source>
        <translation>format est %1, ce n&apos;est donc pas un export de réglages ; donner un fichier créé par &apos;editor-settings export&apos;</translation>
    </message>
    <message>
        <source>format is missing, so this is no export of settings; give a file that &apos;editor-settings export&apos; made</source>
        <translation>format est absent, ce n&apos;est donc pas un export de réglages ; donner un fichier créé par &apos;editor-settings export&apos;</translation>
    </message>
    <message>
        <source>version is %1, and this program reads up to %2: a newer one wrote the file; update this program</source>
        <translation>version est %1, et ce programme lit jusqu&apos;à %2 : une version plus récente a écrit le fichier ; mettre à jour ce programme</translation>
    </message>
    <message>
        <source>default of a preference</source>
        <translation>valeur par défaut d&apos;une préférence</translation>
    </message>
    <message>
        <source>written to</source>
        <translation>l&apos;éditeur y écrit</translation>
    </message>
    <message>
        <source>shipped with the product</source>
        <translation>livré avec le produit</translation>
    </message>
    <message>
        <source>joined to a folder by the editor</source>
        <translation>ajouté à un dossier par l&apos;éditeur</translation>
    </message>
    <message>
        <source>inside the editor&apos;s program</source>
        <translation>dans le programme de l&apos;éditeur</translation>
    </message>
    <message>
        <source>%1 is required</source>
        <translation>%1 est obligatoire</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>Cet argument n&apos;est pas attendu : %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>Ces arguments ne sont pas attendus : %1</translation>
    </message>
    <message>
        <source>%1 excludes %2</source>
        <translation>%1 exclut %2</translation>
    </message>
    <message>
        <source>%1: %2 required %3 missing</source>
        <translation>%1 : il manque %3 (nombre attendu : %2)</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Utilisation</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPTIONS</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>SOUS-COMMANDE</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Arguments</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>OBLIGATOIRE</translation>
    </message>
    <message>
        <source>Env</source>
        <translation>Environnement</translation>
    </message>
    <message>
        <source>Excludes</source>
        <translation>Exclut</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Affiche cette aide et quitte</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>Sous-commandes</translation>
    </message>
    <message>
        <source>%1 not in %2</source>
        <translation>%1 n&apos;est pas dans %2</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>Affiche la version du programme et quitte</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Langue</translation>
    </message>
    <message>
        <source>Texts are in the language that LANGUAGE names, else LC_ALL, LC_MESSAGES or LANG, where there is a translation and the
locale is in UTF-8. What the system and the stores tell is always English; so are all texts with --plain, --json or --format, the
manual page and the completion scripts.</source>
        <translation>Les textes sont dans la langue que nomme LANGUAGE, sinon LC_ALL, LC_MESSAGES ou LANG, s&apos;il en existe une traduction et
que les paramètres régionaux sont en UTF-8. Ce que disent le système et les stockages est toujours en anglais, de même
que tous les textes avec --plain, --json ou --format, la page de manuel et les scripts de complétion.</translation>
    </message>
</context>
</TS>
