<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>Text</name>
    <message>
        <source>Did you mean %1?</source>
        <translation>¿Quiso decir %1?</translation>
    </message>
    <message>
        <source>Did you mean %1? &apos;%2 --help&apos; shows how it is used.</source>
        <translation>¿Quiso decir %1? &apos;%2 --help&apos; muestra cómo se usa.</translation>
    </message>
    <message>
        <source>The verbs are %1 and %2.</source>
        <translation>Las órdenes son %1 y %2.</translation>
    </message>
    <message>
        <source>What follows %1 is one of %2 and %3.</source>
        <translation>Después de %1 va %2 o %3.</translation>
    </message>
    <message>
        <source>(unset)</source>
        <translation>(sin definir)</translation>
    </message>
    <message>
        <source>STORE</source>
        <translation>ALMACÉN</translation>
    </message>
    <message>
        <source>KEY</source>
        <translation>CLAVE</translation>
    </message>
    <message>
        <source>NOW</source>
        <translation>AHORA</translation>
    </message>
    <message>
        <source>IN THE BACKUP</source>
        <translation>EN LA COPIA</translation>
    </message>
    <message numerus="yes">
        <source>the %1 store of %2: %n values would change</source>
        <comment>the %1 store of %2: %n value would change</comment>
        <translation>
            <numerusform>el almacén %1 del %2: cambiaría %n valor</numerusform>
            <numerusform>el almacén %1 del %2: cambiarían %n valores</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the %1 store of %2: %n values differ from before</source>
        <comment>the %1 store of %2: %n value differs from before</comment>
        <translation>
            <numerusform>el almacén %1 del %2: %n valor difiere de lo anterior</numerusform>
            <numerusform>el almacén %1 del %2: %n valores difieren de lo anterior</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; what was there is kept in %2</source>
        <translation>%1; lo que había se conserva en %2</translation>
    </message>
    <message>
        <source>there is no store yet, so there is nothing to back up</source>
        <translation>todavía no hay ningún almacén, así que no hay nada que copiar</translation>
    </message>
    <message>
        <source>copying the stores</source>
        <translation>copiando los almacenes</translation>
    </message>
    <message>
        <source>reading the copy</source>
        <translation>leyendo la copia</translation>
    </message>
    <message numerus="yes">
        <source>the %1 store is backed up with %n values</source>
        <comment>the %1 store is backed up with %n value</comment>
        <translation>
            <numerusform>el almacén %1 queda copiado con %n valor</numerusform>
            <numerusform>el almacén %1 queda copiado con %n valores</numerusform>
        </translation>
    </message>
    <message>
        <source>reading the backup</source>
        <translation>leyendo la copia de seguridad</translation>
    </message>
    <message>
        <source>restoring the %1 store</source>
        <translation>restaurando el almacén %1</translation>
    </message>
    <message>
        <source>the backup holds no %1 store, so that one stays as it is</source>
        <translation>la copia de seguridad no contiene ningún almacén %1, así que ese se queda como está</translation>
    </message>
    <message>
        <source>%1 is written by the editor alone, so it cannot be set; &apos;editor-settings unset&apos; removes it</source>
        <translation>%1 solo la escribe el editor, así que no se puede definir; &apos;editor-settings unset&apos; la elimina</translation>
    </message>
    <message>
        <source>%1 is kept in memory only by a product of this kind, so it cannot be set from outside the editor</source>
        <translation>un producto de este tipo guarda %1 solo en memoria, así que no se puede definir desde fuera del editor</translation>
    </message>
    <message>
        <source>TYPE</source>
        <translation>TIPO</translation>
    </message>
    <message>
        <source>STATE</source>
        <translation>ESTADO</translation>
    </message>
    <message>
        <source>VALUE</source>
        <translation>VALOR</translation>
    </message>
    <message>
        <source>%1 holds a value of kind %2 that cannot be read, so the default is read; &apos;editor-settings explain %1&apos; shows both</source>
        <translation>%1 contiene un valor de tipo %2 ilegible, así que se lee el valor predeterminado; &apos;editor-settings explain %1&apos; muestra ambos</translation>
    </message>
    <message>
        <source>%1 holds a value of kind %2, so the default is read; &apos;editor-settings explain %1&apos; shows both</source>
        <translation>%1 contiene un valor de tipo %2, así que se lee el valor predeterminado; &apos;editor-settings explain %1&apos; muestra ambos</translation>
    </message>
    <message>
        <source>%1 was not set</source>
        <translation>%1 no estaba definida</translation>
    </message>
    <message>
        <source>key</source>
        <translation>clave</translation>
    </message>
    <message>
        <source>type</source>
        <translation>tipo</translation>
    </message>
    <message>
        <source>class</source>
        <translation>clase</translation>
    </message>
    <message>
        <source>store</source>
        <translation>almacén</translation>
    </message>
    <message>
        <source>file</source>
        <translation>archivo</translation>
    </message>
    <message>
        <source>state</source>
        <translation>estado</translation>
    </message>
    <message>
        <source>stored</source>
        <translation>almacenado</translation>
    </message>
    <message>
        <source>stored kind</source>
        <translation>tipo almacenado</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>modificada</translation>
    </message>
    <message>
        <source>default</source>
        <translation>predeterminado</translation>
    </message>
    <message>
        <source>computed by</source>
        <translation>calculado por</translation>
    </message>
    <message>
        <source>nothing: it is fixed</source>
        <translation>nada: es fijo</translation>
    </message>
    <message>
        <source>value</source>
        <translation>valor</translation>
    </message>
    <message>
        <source>default name</source>
        <translation>nombre predeterminado</translation>
    </message>
    <message>
        <source>extensions</source>
        <translation>extensiones</translation>
    </message>
    <message>
        <source>extension for saving</source>
        <translation>extensión al guardar</translation>
    </message>
    <message>
        <source>save filter</source>
        <translation>filtro al guardar</translation>
    </message>
    <message>
        <source>open filter</source>
        <translation>filtro al abrir</translation>
    </message>
    <message>
        <source>sample project</source>
        <translation>proyecto de ejemplo</translation>
    </message>
    <message>
        <source>there is no sample project below %1</source>
        <translation>no hay ningún proyecto de ejemplo en %1</translation>
    </message>
    <message>
        <source>set HOME to the folder of the user whom the editor runs for</source>
        <translation>defina HOME con la carpeta del usuario para el que se ejecuta el editor</translation>
    </message>
    <message>
        <source>looking at the %1 store</source>
        <translation>examinando el almacén %1</translation>
    </message>
    <message>
        <source>looking at the names of recordings</source>
        <translation>examinando los nombres de las grabaciones</translation>
    </message>
    <message>
        <source>looking at the names of freeze frames</source>
        <translation>examinando los nombres de los fotogramas congelados</translation>
    </message>
    <message>
        <source>looking at the names of stabilized clips</source>
        <translation>examinando los nombres de los clips estabilizados</translation>
    </message>
    <message>
        <source>looking at the folders that the editor writes to</source>
        <translation>examinando las carpetas en las que escribe el editor</translation>
    </message>
    <message>
        <source>opening the stores</source>
        <translation>abriendo los almacenes</translation>
    </message>
    <message>
        <source>nothing else can be looked at without it: mend it, or name another with --product</source>
        <translation>sin él no se puede examinar nada más: corríjalo o indique otro con --product</translation>
    </message>
    <message>
        <source>note</source>
        <translation>nota</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>advertencia</translation>
    </message>
    <message>
        <source>error</source>
        <translation>error</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>no existe</translation>
    </message>
    <message>
        <source>unusable</source>
        <translation>inutilizable</translation>
    </message>
    <message>
        <source>usable</source>
        <translation>utilizable</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>solo lectura</translation>
    </message>
    <message>
        <source>%1 (%2 store)</source>
        <translation>%1 (almacén %2)</translation>
    </message>
    <message>
        <source>%1, schema %2, journal mode %3</source>
        <translation>%1, esquema %2, modo de diario %3</translation>
    </message>
    <message>
        <source>%1, on %2</source>
        <translation>%1, en %2</translation>
    </message>
    <message>
        <source>%1, on %2 at %3</source>
        <translation>%1, en %2, montado en %3</translation>
    </message>
    <message numerus="yes">
        <source>%n errors</source>
        <comment>%n error</comment>
        <translation>
            <numerusform>%n error</numerusform>
            <numerusform>%n errores</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warnings</source>
        <comment>%n warning</comment>
        <translation>
            <numerusform>%n advertencia</numerusform>
            <numerusform>%n advertencias</numerusform>
        </translation>
    </message>
    <message>
        <source>all is well</source>
        <translation>todo está bien</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>product file</source>
        <translation>archivo de producto</translation>
    </message>
    <message>
        <source>%1 store</source>
        <translation>almacén %1</translation>
    </message>
    <message>
        <source>the folder of the store cannot be used: %1, so no store can be made</source>
        <translation>no se puede usar la carpeta del almacén (%1), así que no se puede crear ningún almacén</translation>
    </message>
    <message>
        <source>the folder of the store cannot be used: %1, so no change can be stored</source>
        <translation>no se puede usar la carpeta del almacén (%1), así que no se puede almacenar ningún cambio</translation>
    </message>
    <message>
        <source>give this user the rights to the folder, or name another with --home</source>
        <translation>dé a este usuario permisos sobre la carpeta o indique otra con --home</translation>
    </message>
    <message>
        <source>nothing is stored there yet</source>
        <translation>ahí todavía no hay nada almacenado</translation>
    </message>
    <message>
        <source>nothing to do: the store is made when something is stored</source>
        <translation>nada que hacer: el almacén se crea cuando se almacena algo</translation>
    </message>
    <message>
        <source>other users may read or change it: its mode is %1</source>
        <translation>otros usuarios pueden leerlo o modificarlo: su modo es %1</translation>
    </message>
    <message>
        <source>it belongs to another user, %1</source>
        <translation>pertenece a otro usuario, %1</translation>
    </message>
    <message>
        <source>run this program and the editor as that user, or give the file to %1</source>
        <translation>ejecute este programa y el editor como ese usuario, o entregue el archivo a %1</translation>
    </message>
    <message>
        <source>a journal of %1 bytes lies there: its store is gone, and no new one is made beside it</source>
        <translation>hay un diario de %1 bytes: su almacén ha desaparecido y no se crea uno nuevo junto a él</translation>
    </message>
    <message>
        <source>bring the store back beside its journal, or move the journal away</source>
        <translation>vuelva a poner el almacén junto a su diario o mueva el diario a otro lugar</translation>
    </message>
    <message>
        <source>a journal of %1 bytes lies there: a change is being made right now, or was interrupted</source>
        <translation>hay un diario de %1 bytes: se está haciendo un cambio en este momento, o se interrumpió</translation>
    </message>
    <message>
        <source>look again in a moment; where it stays, leave it beside the store and start the editor, which undoes the change</source>
        <translation>vuelva a mirar dentro de un momento; si sigue ahí, déjelo junto al almacén e inicie el editor, que deshace el cambio</translation>
    </message>
    <message>
        <source>a file system without a name</source>
        <translation>un sistema de archivos sin nombre</translation>
    </message>
    <message>
        <source>keep the stores on a local disk: move the data folder there (XDG_DATA_HOME), or name a folder with --home</source>
        <translation>tenga los almacenes en un disco local: mueva allí la carpeta de datos (XDG_DATA_HOME) o indique una carpeta con --home</translation>
    </message>
    <message>
        <source>it lies on %1, which may only be read, so nothing can be stored</source>
        <translation>está en %1, que solo se puede leer, así que no se puede almacenar nada</translation>
    </message>
    <message>
        <source>mount it for writing, or name another folder with --home</source>
        <translation>móntelo con permiso de escritura o indique otra carpeta con --home</translation>
    </message>
    <message>
        <source>it lies on %1, where locks do not hold between machines, so that two editors can damage it</source>
        <translation>está en %1, donde los bloqueos no valen entre máquinas, así que dos editores pueden dañarlo</translation>
    </message>
    <message>
        <source>it lies on %1, which has no hard links, so that no store can be made there</source>
        <translation>está en %1, que no admite enlaces duros, así que ahí no se puede crear ningún almacén</translation>
    </message>
    <message>
        <source>it lies on %1, which is kept in memory, so that all is lost with a restart</source>
        <translation>está en %1, que reside en memoria, así que todo se pierde al reiniciar</translation>
    </message>
    <message>
        <source>it lies on %1, of which it cannot be told whether locks hold there</source>
        <translation>está en %1, donde no se puede saber si los bloqueos funcionan</translation>
    </message>
    <message>
        <source>nothing to do where the disk is local; else %1</source>
        <translation>nada que hacer si el disco es local; si no, %1</translation>
    </message>
    <message>
        <source>it belongs in the %1 store and is not read here</source>
        <translation>pertenece al almacén %1 y no se lee aquí</translation>
    </message>
    <message>
        <source>&apos;editor-settings explain %1&apos; shows what is read; what lies here is kept</source>
        <translation>&apos;editor-settings explain %1&apos; muestra lo que se lee; lo que hay aquí se conserva</translation>
    </message>
    <message>
        <source>the library knows no such key; it is kept</source>
        <translation>la biblioteca no conoce esa clave; se conserva</translation>
    </message>
    <message>
        <source>nothing to do where a later version or another program stored it</source>
        <translation>nada que hacer si la almacenó una versión posterior u otro programa</translation>
    </message>
    <message>
        <source>have the program that keeps it store it anew</source>
        <translation>haga que el programa que lo mantiene lo almacene de nuevo</translation>
    </message>
    <message>
        <source>the rational has no %1, so a read mixes it with a default</source>
        <translation>al racional le falta %1, así que al leerlo se mezcla con un valor predeterminado</translation>
    </message>
    <message>
        <source>the rational&apos;s %1 is no int, so a read mixes it with a default</source>
        <translation>el componente %1 del racional no es int, así que al leerlo se mezcla con un valor predeterminado</translation>
    </message>
    <message>
        <source>the rational&apos;s denominator is 0, so every read of it fails</source>
        <translation>el denominador del racional es 0, así que toda lectura falla</translation>
    </message>
    <message>
        <source>the library knows no such rational; it is kept</source>
        <translation>la biblioteca no conoce ese racional; se conserva</translation>
    </message>
    <message>
        <source>&apos;editor-settings unset %1&apos; removes it, so that the default holds</source>
        <translation>&apos;editor-settings unset %1&apos; la elimina, de modo que se aplica el valor predeterminado</translation>
    </message>
    <message>
        <source>store it anew: &apos;editor-settings set %1 VALUE&apos;</source>
        <translation>almacénela de nuevo: &apos;editor-settings set %1 VALUE&apos;</translation>
    </message>
    <message>
        <source>have the editor store it anew</source>
        <translation>haga que el editor la almacene de nuevo</translation>
    </message>
    <message>
        <source>it holds a value of kind %1 where one of kind %2 is read, so the default is read</source>
        <translation>contiene un valor de tipo %1 donde se lee uno de tipo %2, así que se lee el valor predeterminado</translation>
    </message>
    <message>
        <source>it holds a value of kind %1 that cannot be read, so the default is read</source>
        <translation>contiene un valor de tipo %1 que no se puede leer, así que se lee el valor predeterminado</translation>
    </message>
    <message>
        <source>it holds text that is not UTF-8, so it is not read as it is stored</source>
        <translation>contiene texto que no es UTF-8, así que no se lee tal como está almacenado</translation>
    </message>
    <message>
        <source>the stored list would be another one when it is read and stored again, as it has empty elements or a part of the separator</source>
        <translation>la lista almacenada sería otra al leerla y volver a almacenarla, pues tiene elementos vacíos o una parte del separador</translation>
    </message>
    <message>
        <source>it holds %1, at the edge of its range: counting on would leave it</source>
        <translation>contiene %1, en el límite de su intervalo: si se siguiera contando, se saldría de él</translation>
    </message>
    <message>
        <source>move the file with the highest number out of the folder, or store another folder in %1</source>
        <translation>saque de la carpeta el archivo con el número más alto o almacene otra carpeta en %1</translation>
    </message>
    <message>
        <source>the running number has passed 2147483647 and counts no further; the next is %1</source>
        <translation>el número correlativo ha pasado de 2147483647 y ya no sigue contando; el siguiente nombre es %1</translation>
    </message>
    <message>
        <source>the running number nears its end at 2147483647; the next is %1</source>
        <translation>el número correlativo se acerca a su final, 2147483647; el siguiente nombre es %1</translation>
    </message>
    <message numerus="yes">
        <source>%n more names in the folder with numbers near 2147483647 were not looked at</source>
        <comment>%n more names in the folder with numbers near 2147483647 were not looked at</comment>
        <translation>
            <numerusform>no se examinó %n nombre más de la carpeta con números cercanos a 2147483647</numerusform>
            <numerusform>no se examinaron %n nombres más de la carpeta con números cercanos a 2147483647</numerusform>
        </translation>
    </message>
    <message>
        <source>move them out of the folder, or look again when those above are mended</source>
        <translation>sáquelos de la carpeta o vuelva a mirar cuando los anteriores estén corregidos</translation>
    </message>
    <message>
        <source>%1: the editor cannot write there: %2</source>
        <translation>%1: el editor no puede escribir ahí: %2</translation>
    </message>
    <message>
        <source>mend what is remarked: &apos;editor-settings paths --explain&apos; tells what decides, and a preference may be set to another folder</source>
        <translation>corrija lo observado: &apos;editor-settings paths --explain&apos; indica qué lo decide, y se puede definir una preferencia con otra carpeta</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>make it readable, or set the preference to another folder</source>
        <translation>hágala legible o defina la preferencia con otra carpeta</translation>
    </message>
    <message>
        <source>not there yet: %1</source>
        <translation>todavía no existen: %1</translation>
    </message>
    <message>
        <source>nothing to do: the editor makes them when it writes there</source>
        <translation>nada que hacer: el editor las crea cuando escribe en ellas</translation>
    </message>
    <message>
        <source>Every preference whose key ends in Path.</source>
        <translation>Todas las preferencias cuya clave termina en Path.</translation>
    </message>
    <message>
        <source>What is stored, one preference a line, for a script.</source>
        <translation>Lo que está almacenado, una preferencia por línea, para un script.</translation>
    </message>
    <message>
        <source>The folder that the editor exports to.</source>
        <translation>La carpeta a la que exporta el editor.</translation>
    </message>
    <message>
        <source>A list in a form that every program reads alike.</source>
        <translation>Una lista en una forma que todo programa lee igual.</translation>
    </message>
    <message>
        <source>Stores false.</source>
        <translation>Almacena false.</translation>
    </message>
    <message>
        <source>Stores another folder; the editor makes it.</source>
        <translation>Almacena otra carpeta; el editor la crea.</translation>
    </message>
    <message>
        <source>Stores a list of two.</source>
        <translation>Almacena una lista de dos elementos.</translation>
    </message>
    <message>
        <source>Stores a value that looks like an option.</source>
        <translation>Almacena un valor que parece una opción.</translation>
    </message>
    <message>
        <source>From now on the default holds.</source>
        <translation>A partir de ahora se aplica el valor predeterminado.</translation>
    </message>
    <message>
        <source>Whether it is stored, where and since when, and what the default is.</source>
        <translation>Si está almacenada, dónde y desde cuándo, y cuál es el valor predeterminado.</translation>
    </message>
    <message>
        <source>What a new project is called, and which files the editor opens.</source>
        <translation>Cómo se llama un proyecto nuevo y qué archivos abre el editor.</translation>
    </message>
    <message>
        <source>The favourites of the list &quot;fonts&quot;.</source>
        <translation>Los favoritos de la lista &quot;fonts&quot;.</translation>
    </message>
    <message>
        <source>What is kept for the indication &quot;tour&quot;, in base64.</source>
        <translation>Lo que se guarda para la indicación &quot;tour&quot;, en base64.</translation>
    </message>
    <message>
        <source>Stores the bytes of the file tour.state for it.</source>
        <translation>Almacena para ella los bytes del archivo tour.state.</translation>
    </message>
    <message>
        <source>The finished ones, one a line.</source>
        <translation>Los terminados, uno por línea.</translation>
    </message>
    <message>
        <source>Forgets them all.</source>
        <translation>Los olvida todos.</translation>
    </message>
    <message>
        <source>Stores these two in the place of those before.</source>
        <translation>Almacena estos dos en lugar de los anteriores.</translation>
    </message>
    <message>
        <source>The text in which the editor keeps them.</source>
        <translation>El texto en que el editor los guarda.</translation>
    </message>
    <message>
        <source>Every location whose name begins with stock.</source>
        <translation>Todas las ubicaciones cuyo nombre empieza por stock.</translation>
    </message>
    <message>
        <source>What decides where exports go.</source>
        <translation>Qué decide adónde van las exportaciones.</translation>
    </message>
    <message>
        <source>Whether the editor can write wherever it writes to.</source>
        <translation>Si el editor puede escribir en todos los lugares en los que escribe.</translation>
    </message>
    <message>
        <source>The file that the next recording goes into.</source>
        <translation>El archivo en que se guardará la próxima grabación.</translation>
    </message>
    <message>
        <source>Makes an empty file of the next name, and prints that.</source>
        <translation>Crea un archivo vacío con el siguiente nombre y muestra ese nombre.</translation>
    </message>
    <message>
        <source>The path on one line, whatever its folder is called.</source>
        <translation>La ruta en una sola línea, se llame como se llame su carpeta.</translation>
    </message>
    <message>
        <source>The next freeze frame of that film.</source>
        <translation>El siguiente fotograma congelado de esa película.</translation>
    </message>
    <message>
        <source>The next stabilized clip of it.</source>
        <translation>El siguiente clip estabilizado de ella.</translation>
    </message>
    <message>
        <source>Copies both stores into that file.</source>
        <translation>Copia ambos almacenes en ese archivo.</translation>
    </message>
    <message>
        <source>What would be otherwise than now.</source>
        <translation>Qué sería distinto de como está ahora.</translation>
    </message>
    <message>
        <source>Brings the stores back, and tells where those of now are kept.</source>
        <translation>Restaura los almacenes e indica dónde se conservan los actuales.</translation>
    </message>
    <message>
        <source>A line for each change, until Ctrl+C.</source>
        <translation>Una línea por cada cambio, hasta pulsar Ctrl+C.</translation>
    </message>
    <message>
        <source>What is wrong and what to do; exit status 0 where all is well.</source>
        <translation>Qué está mal y qué hacer; estado de salida 0 si todo está bien.</translation>
    </message>
    <message>
        <source>The same, for somebody who helps.</source>
        <translation>Lo mismo, para alguien que presta ayuda.</translation>
    </message>
    <message>
        <source>Writes all that is stored.</source>
        <translation>Escribe todo lo almacenado.</translation>
    </message>
    <message>
        <source>The same without what is personal, on standard output.</source>
        <translation>Lo mismo sin los datos personales, en la salida estándar.</translation>
    </message>
    <message>
        <source>What would change.</source>
        <translation>Qué cambiaría.</translation>
    </message>
    <message>
        <source>Stores what belongs to the user rather than to the machine.</source>
        <translation>Almacena lo que pertenece al usuario y no a la máquina.</translation>
    </message>
    <message>
        <source>What is stored otherwise than in the file; exit status 1, as something is.</source>
        <translation>Lo almacenado que difiere del archivo; estado de salida 1, pues algo difiere.</translation>
    </message>
    <message>
        <source>Nothing, as the two are alike.</source>
        <translation>Nada, pues los dos son iguales.</translation>
    </message>
    <message>
        <source>A script for bash: source editor-settings.bash</source>
        <translation>Un script para bash: source editor-settings.bash</translation>
    </message>
    <message>
        <source>The page in a file: man ./editor-settings.1</source>
        <translation>La página en un archivo: man ./editor-settings.1</translation>
    </message>
    <message>
        <source>Examples:</source>
        <translation>Ejemplos:</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>vacía</translation>
    </message>
    <message>
        <source>holds a NUL, at which the system would cut it off</source>
        <translation>contiene un NUL, en el que el sistema la cortaría</translation>
    </message>
    <message>
        <source>not absolute: it depends on the folder that the editor is started in</source>
        <translation>no es absoluta: depende de la carpeta en la que se inicie el editor</translation>
    </message>
    <message>
        <source>dangling link to %1</source>
        <translation>enlace roto a %1</translation>
    </message>
    <message>
        <source>missing, and %1: %2</source>
        <translation>no existe, y %1: %2</translation>
    </message>
    <message>
        <source>missing, and %1 is not a folder</source>
        <translation>no existe, y %1 no es una carpeta</translation>
    </message>
    <message>
        <source>missing, and %1 is not writable</source>
        <translation>no existe, y en %1 no se puede escribir</translation>
    </message>
    <message>
        <source>missing; the editor can make it</source>
        <translation>no existe; el editor puede crearla</translation>
    </message>
    <message>
        <source>not a folder</source>
        <translation>no es una carpeta</translation>
    </message>
    <message>
        <source>not writable</source>
        <translation>no se puede escribir en ella</translation>
    </message>
    <message>
        <source>not readable, so names are numbered as if it were empty</source>
        <translation>no se puede leer, así que los nombres se numeran como si estuviera vacía</translation>
    </message>
    <message>
        <source>the home folder itself</source>
        <translation>la propia carpeta personal</translation>
    </message>
    <message>
        <source>HOME is not set, so / is taken for the home folder</source>
        <translation>HOME no está definida, así que se toma / como carpeta personal</translation>
    </message>
    <message>
        <source>HOME is %1, which depends on the folder that a program is started in</source>
        <translation>HOME es %1, que depende de la carpeta en la que se inicie cada programa</translation>
    </message>
    <message>
        <source>HOME is %1, which is not a folder</source>
        <translation>HOME es %1, que no es una carpeta</translation>
    </message>
    <message>
        <source>HOME is %1, which is not there</source>
        <translation>HOME es %1, que no existe</translation>
    </message>
    <message>
        <source>cannot read %1 (%2); name a file that can be read, or give - for standard input</source>
        <translation>no se puede leer %1 (%2); indique un archivo que se pueda leer, o - para la entrada estándar</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es una carpeta</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>no es un archivo normal</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>entrada estándar</translation>
    </message>
    <message>
        <source>%1 holds more than %2 bytes, which is too much; name a smaller one</source>
        <translation>%1 contiene más de %2 bytes, lo que es demasiado; indique uno más pequeño</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1:</translation>
    </message>
    <message>
        <source>watching both stores; Ctrl+C ends it</source>
        <translation>observando ambos almacenes; Ctrl+C termina</translation>
    </message>
    <message>
        <source>%1 is not UTF-8 without a byte order mark; give the name in UTF-8</source>
        <translation>%1 no es UTF-8 sin marca de orden de bytes; indique el nombre en UTF-8</translation>
    </message>
    <message>
        <source>%1 is longer than a path can be; give the name of a file</source>
        <translation>%1 es más largo de lo que puede ser una ruta; indique el nombre de un archivo</translation>
    </message>
    <message>
        <source>nothing can be reserved in %1, which is %2: %3; store another folder there, or mend that</source>
        <translation>no se puede reservar nada en %1, la carpeta de %2: %3; almacene ahí otra carpeta o corrija lo indicado</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile; try again</source>
        <translation>%1 se modificó entretanto; inténtelo de nuevo</translation>
    </message>
    <message>
        <source>the name %1 would not lie in %2 as it is; take a format without &quot;/&quot; and NUL</source>
        <translation>el nombre %1 no quedaría tal cual en %2; use un formato sin &quot;/&quot; ni NUL</translation>
    </message>
    <message>
        <source>take a source with a shorter name</source>
        <translation>use un archivo de origen con un nombre más corto</translation>
    </message>
    <message>
        <source>&apos;editor-settings paths --check&apos; tells which folders can be used</source>
        <translation>&apos;editor-settings paths --check&apos; indica qué carpetas se pueden usar</translation>
    </message>
    <message>
        <source>cannot make the file %1 (%2); %3</source>
        <translation>no se puede crear el archivo %1 (%2); %3</translation>
    </message>
    <message>
        <source>cannot make the folder %1 (%2); %3</source>
        <translation>no se puede crear la carpeta %1 (%2); %3</translation>
    </message>
    <message>
        <source>%1 is there already, though the editor would propose it</source>
        <translation>%1 ya existe, aunque el editor lo propondría</translation>
    </message>
    <message>
        <source>%1 was taken by someone else meanwhile</source>
        <translation>otro proceso ocupó %1 entretanto</translation>
    </message>
    <message>
        <source>%1; %2 is reserved instead</source>
        <translation>%1; en su lugar se reserva %2</translation>
    </message>
    <message>
        <source>%1 is reserved, but standard output cannot be written; remove the file if it is not wanted</source>
        <translation>%1 queda reservado, pero no se puede escribir en la salida estándar; elimine el archivo si no lo necesita</translation>
    </message>
    <message>
        <source>%1 takes nothing after it</source>
        <translation>%1 no admite nada detrás</translation>
    </message>
    <message>
        <source>%1 is not UTF-8 without a byte order mark; give it as the editor does</source>
        <translation>%1 no es UTF-8 sin marca de orden de bytes; indíquelo como lo hace el editor</translation>
    </message>
    <message>
        <source>there is no location %1; %2&apos;editor-settings paths&apos; shows all</source>
        <translation>no existe la ubicación %1; %2&apos;editor-settings paths&apos; las muestra todas</translation>
    </message>
    <message>
        <source>say what %1 is asked about: &apos;editor-settings paths %1 %2&apos;</source>
        <translation>indique sobre qué se consulta %1: &apos;editor-settings paths %1 %2&apos;</translation>
    </message>
    <message>
        <source>&apos; or &apos;</source>
        <translation>&apos; o &apos;</translation>
    </message>
    <message>
        <source>nothing goes after a pattern; name one location</source>
        <translation>detrás de un patrón no va nada; indique una sola ubicación</translation>
    </message>
    <message>
        <source>nothing else: an absolute path stands for itself</source>
        <translation>nada más: una ruta absoluta vale por sí misma</translation>
    </message>
    <message>
        <source>%1 is stored in %2</source>
        <translation>%1 está almacenada en %2</translation>
    </message>
    <message>
        <source>%1 is stored with a value of another kind in %2, so %3 holds</source>
        <translation>%1 está almacenada con un valor de otro tipo en %2, así que se aplica %3</translation>
    </message>
    <message>
        <source>%1 is not stored in %2, so %3 holds</source>
        <translation>%1 no está almacenada en %2, así que se aplica %3</translation>
    </message>
    <message>
        <source>location</source>
        <translation>ubicación</translation>
    </message>
    <message>
        <source>path</source>
        <translation>ruta</translation>
    </message>
    <message>
        <source>use</source>
        <translation>uso</translation>
    </message>
    <message>
        <source>decided by</source>
        <translation>lo decide</translation>
    </message>
    <message>
        <source>none found</source>
        <translation>no se encontró ninguna</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>sí</translation>
    </message>
    <message>
        <source>no</source>
        <translation>no</translation>
    </message>
    <message>
        <source>LOCATION</source>
        <translation>UBICACIÓN</translation>
    </message>
    <message>
        <source>EXISTS</source>
        <translation>EXISTE</translation>
    </message>
    <message>
        <source>WRITABLE</source>
        <translation>ESCRITURA</translation>
    </message>
    <message>
        <source>REMARK</source>
        <translation>OBSERVACIÓN</translation>
    </message>
    <message>
        <source>PATH</source>
        <translation>RUTA</translation>
    </message>
    <message>
        <source>the editor cannot write to %1; mend what is remarked: &apos;editor-settings paths NAME --explain&apos; tells what decides, and a preference may be set to another folder</source>
        <translation>el editor no puede escribir en %1; corrija lo observado: &apos;editor-settings paths NAME --explain&apos; indica qué lo decide, y se puede definir una preferencia con otra carpeta</translation>
    </message>
    <message>
        <source>unreadable</source>
        <translation>ilegible</translation>
    </message>
    <message>
        <source>other kind</source>
        <translation>otro tipo</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>eliminada</translation>
    </message>
    <message>
        <source>set</source>
        <translation>definida</translation>
    </message>
    <message>
        <source>added</source>
        <translation>añadida</translation>
    </message>
    <message>
        <source>step %1 of %2: %3</source>
        <translation>paso %1 de %2: %3</translation>
    </message>
    <message>
        <source>unset</source>
        <translation>sin definir</translation>
    </message>
    <message>
        <source>set to default</source>
        <translation>definida (predeterminado)</translation>
    </message>
    <message>
        <source>%1 is reserved: the editor neither reads nor writes it, so it cannot be reached</source>
        <translation>%1 está reservada: el editor no la lee ni la escribe, así que no se puede acceder a ella</translation>
    </message>
    <message>
        <source>%1 is a location and no preference; &apos;editor-settings paths %1&apos; shows it</source>
        <translation>%1 es una ubicación y no una preferencia; &apos;editor-settings paths %1&apos; la muestra</translation>
    </message>
    <message>
        <source>there is no preference %1; %2&apos;editor-settings list&apos; shows all</source>
        <translation>no existe la preferencia %1; %2&apos;editor-settings list&apos; las muestra todas</translation>
    </message>
    <message>
        <source>the name %1 is not UTF-8 without a byte order mark; give it as the editor writes it</source>
        <translation>el nombre %1 no es UTF-8 sin marca de orden de bytes; indíquelo como lo escribe el editor</translation>
    </message>
    <message>
        <source>(unreadable)</source>
        <translation>(ilegible)</translation>
    </message>
    <message>
        <source>holds a value of kind %1 that this version cannot read</source>
        <translation>contiene un valor de tipo %1 que esta versión no puede leer</translation>
    </message>
    <message>
        <source>has a NUL in its key</source>
        <translation>tiene un NUL en la clave</translation>
    </message>
    <message>
        <source>reading the %1 store</source>
        <translation>leyendo el almacén %1</translation>
    </message>
    <message>
        <source>a key in the %1 store holds the path of the home folder, so it is left out</source>
        <translation>una clave del almacén %1 contiene la ruta de la carpeta personal, así que se omite</translation>
    </message>
    <message>
        <source>%1 in the %2 store %3, so it is left out; &apos;editor-settings backup&apos; keeps it</source>
        <translation>%1, en el almacén %2, %3, así que se omite; &apos;editor-settings backup&apos; la conserva</translation>
    </message>
    <message>
        <source>writing the file</source>
        <translation>escribiendo el archivo</translation>
    </message>
    <message>
        <source>%1 is there already and was left as it is; name a new file, or move that one away</source>
        <translation>%1 ya existe y se dejó como estaba; indique un archivo nuevo o mueva ese a otro lugar</translation>
    </message>
    <message>
        <source>%1 in the %2 store %3, so it is not compared</source>
        <translation>%1, en el almacén %2, %3, así que no se compara</translation>
    </message>
    <message>
        <source>comparing with the %1 store</source>
        <translation>comparando con el almacén %1</translation>
    </message>
    <message>
        <source>(absent)</source>
        <translation>(ausente)</translation>
    </message>
    <message>
        <source>CHANGE</source>
        <translation>CAMBIO</translation>
    </message>
    <message>
        <source>STORED</source>
        <translation>ALMACENADO</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>ARCHIVO</translation>
    </message>
    <message>
        <source>reading the file</source>
        <translation>leyendo el archivo</translation>
    </message>
    <message numerus="yes">
        <source>%n redacted in the file, so not compared</source>
        <comment>%n redacted in the file, so not compared</comment>
        <translation>
            <numerusform>%n valor oculto en el archivo, por lo que no se compara</numerusform>
            <numerusform>%n valores ocultos en el archivo, por lo que no se comparan</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; nothing was changed</source>
        <translation>%1; no se cambió nada</translation>
    </message>
    <message>
        <source>the %1 store is as it was</source>
        <translation>el almacén %1 está como estaba</translation>
    </message>
    <message>
        <source>the %1 store holds the imported values</source>
        <translation>el almacén %1 contiene los valores importados</translation>
    </message>
    <message>
        <source>the %1 store cannot be read</source>
        <translation>el almacén %1 no se puede leer</translation>
    </message>
    <message>
        <source>changing the %1 store</source>
        <translation>modificando el almacén %1</translation>
    </message>
    <message>
        <source>%1; %2; then import the file again</source>
        <translation>%1; %2; después importe el archivo de nuevo</translation>
    </message>
    <message numerus="yes">
        <source>%n would change</source>
        <comment>%n would change</comment>
        <translation>
            <numerusform>cambiaría %n</numerusform>
            <numerusform>cambiarían %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n changed</source>
        <comment>%n changed</comment>
        <translation>
            <numerusform>%n modificado</numerusform>
            <numerusform>%n modificados</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n already as in the file</source>
        <comment>%n already as in the file</comment>
        <translation>
            <numerusform>%n ya igual que en el archivo</numerusform>
            <numerusform>%n ya iguales que en el archivo</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n redacted in the file and left alone</source>
        <comment>%n redacted in the file and left alone</comment>
        <translation>
            <numerusform>%n oculto en el archivo y sin tocar</numerusform>
            <numerusform>%n ocultos en el archivo y sin tocar</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is a bool and cannot be %2; %3</source>
        <translation>%1 es un bool y no puede ser %2; %3</translation>
    </message>
    <message>
        <source>%1 is an int and cannot be %2; %3</source>
        <translation>%1 es un int y no puede ser %2; %3</translation>
    </message>
    <message>
        <source>%1 is a text and cannot be %2; %3</source>
        <translation>%1 es un texto y no puede ser %2; %3</translation>
    </message>
    <message>
        <source>%1 holds bytes and cannot be %2; %3</source>
        <translation>%1 contiene bytes y no puede ser %2; %3</translation>
    </message>
    <message>
        <source>%1 is a list and cannot be %2; %3</source>
        <translation>%1 es una lista y no puede ser %2; %3</translation>
    </message>
    <message>
        <source>give text in UTF-8 without a byte order mark, as anything else would not come back unchanged</source>
        <translation>indique texto en UTF-8 sin marca de orden de bytes, pues cualquier otra cosa no se recuperaría intacta</translation>
    </message>
    <message>
        <source>give true or false (or yes, no, on, off, 1, 0)</source>
        <translation>indique true o false (o yes, no, on, off, 1, 0)</translation>
    </message>
    <message>
        <source>give a whole number from -2147483648 to 2147483647</source>
        <translation>indique un número entero de -2147483648 a 2147483647</translation>
    </message>
    <message>
        <source>%1: cannot read %2 (%3); %4</source>
        <translation>%1: no se puede leer %2 (%3); %4</translation>
    </message>
    <message>
        <source>%1: cannot read standard input (%2); give it a file or a pipe</source>
        <translation>%1: no se puede leer la entrada estándar (%2); conéctela a un archivo o a una tubería</translation>
    </message>
    <message>
        <source>name a file that can be read after the @</source>
        <translation>indique tras la @ un archivo que se pueda leer</translation>
    </message>
    <message>
        <source>give the bytes in base64, or @FILE to read them from a file</source>
        <translation>indique los bytes en base64, o @FILE para leerlos de un archivo</translation>
    </message>
    <message>
        <source>an empty element is lost when the list is read back; leave it out (--empty stores an empty list)</source>
        <translation>un elemento vacío se pierde al volver a leer la lista; omítalo (--empty almacena una lista vacía)</translation>
    </message>
    <message>
        <source>the element holds the separator of stored lists and would come back in pieces</source>
        <translation>el elemento contiene el separador de las listas almacenadas y se recuperaría en trozos</translation>
    </message>
    <message>
        <source>together with the element before it, it makes up the separator of stored lists and would come back otherwise</source>
        <translation>junto con el elemento anterior forma el separador de las listas almacenadas y se recuperaría de otra manera</translation>
    </message>
    <message>
        <source>%1 takes one value, not %2; %3</source>
        <translation>%1 admite un valor, no %2; %3</translation>
    </message>
    <message>
        <source>--empty is for lists</source>
        <translation>--empty es para listas</translation>
    </message>
    <message>
        <source>put quotes around a value with blanks</source>
        <translation>ponga entre comillas un valor con espacios</translation>
    </message>
    <message>
        <source>name a file that can be read</source>
        <translation>indique un archivo que se pueda leer</translation>
    </message>
    <message>
        <source>Exit status</source>
        <translation>Estado de salida</translation>
    </message>
    <message>
        <source>  0  done
  1  said no: unknown key, wrong value, trouble with a store or the product file, a folder that cannot be used,
     or doctor found something wrong
  2  wrong usage
diff ends with 0 where nothing differs, with 1 where something does, and with 2 for everything else.</source>
        <translation>  0  hecho
  1  rechazado: clave desconocida, valor erróneo, problema con un almacén o el archivo de producto, una carpeta
     que no se puede usar, o doctor encontró algo mal
  2  uso erróneo
diff termina con 0 si nada difiere, con 1 si algo difiere y con 2 en cualquier otro caso.</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Salida</translation>
    </message>
    <message>
        <source>Values are printed to standard output, reasons to standard error. With --plain a backslash is printed as \\, a tab
as \t, line breaks as \n and \r, other control characters and bytes that are not UTF-8 as \xHH, and a list as a JSON array.
A terminal is sent no control characters but tabs, line breaks and the codes of colours. An answer that could not be
printed whole is an error.</source>
        <translation>Los valores van a la salida estándar y los motivos, al error estándar. Con --plain, una barra inversa se escribe \\,
un tabulador \t, los saltos de línea \n y \r, otros caracteres de control y bytes que no son UTF-8 \xHH, y una lista,
como array JSON. A un terminal no se envían más caracteres de control que tabuladores, saltos de línea y códigos de
color. Una respuesta que no se pudo mostrar entera es un error.</translation>
    </message>
    <message>
        <source>On a terminal</source>
        <translation>En un terminal</translation>
    </message>
    <message>
        <source>What is longer than the screen is shown by the program that EDITOR_SETTINGS_PAGER names, else PAGER, else
&quot;less&quot;; an empty name and &quot;cat&quot; stand for none. Columns line up there; elsewhere a tab stands between each two. Colours say
nothing that the words do not say; NO_COLOR, or &quot;dumb&quot; in TERM, leaves them out. What takes longer than a second tells
meanwhile which step it is at, where standard error is a terminal.</source>
        <translation>Lo que no cabe en la pantalla lo muestra el paginador que indica EDITOR_SETTINGS_PAGER; si no, PAGER; si no, &quot;less&quot;;
un nombre vacío y &quot;cat&quot; indican ninguno. Allí las columnas se alinean; en otro lugar las separa un tabulador.
Los colores no añaden nada al texto; NO_COLOR o &quot;dumb&quot; en TERM los omiten.
Lo que tarda más de un segundo indica entretanto en qué paso está, si el error estándar es un terminal.</translation>
    </message>
    <message>
        <source>Words that look like options</source>
        <translation>Palabras que parecen opciones</translation>
    </message>
    <message>
        <source>A value that begins with &quot;-&quot; goes after &quot;--&quot;: editor-settings set lastTarget -- -x</source>
        <translation>Un valor que empieza por &quot;-&quot; va después de &quot;--&quot;: editor-settings set lastTarget -- -x</translation>
    </message>
    <message>
        <source>the name is empty; name a file</source>
        <translation>el nombre está vacío; indique un archivo</translation>
    </message>
    <message>
        <source>the name is empty; leave the option out for the default</source>
        <translation>el nombre está vacío; omita la opción para usar el valor predeterminado</translation>
    </message>
    <message>
        <source>As JSON</source>
        <translation>Como JSON</translation>
    </message>
    <message>
        <source>As JSON; bytes in base64</source>
        <translation>Como JSON; los bytes, en base64</translation>
    </message>
    <message>
        <source>Tab-separated, one record a line, nothing shortened; for scripts</source>
        <translation>Separado por tabuladores, un registro por línea, nada acortado; para scripts</translation>
    </message>
    <message>
        <source>Stores an empty list</source>
        <translation>Almacena una lista vacía</translation>
    </message>
    <message>
        <source>Writes what is stored to a new file, in JSON: for another machine, or for somebody who helps</source>
        <translation>Escribe lo almacenado en un archivo nuevo, en JSON: para otra máquina o para alguien que presta ayuda</translation>
    </message>
    <message>
        <source>Stores what an exported file holds, all of it or nothing; what it does not name stays</source>
        <translation>Almacena lo que contiene un archivo exportado, todo o nada; lo que no menciona se queda como está</translation>
    </message>
    <message>
        <source>The differences between what is stored and what an exported file holds</source>
        <translation>Las diferencias entre lo almacenado y lo que contiene un archivo exportado</translation>
    </message>
    <message>
        <source>The new file; - for standard output</source>
        <translation>El archivo nuevo; - para la salida estándar</translation>
    </message>
    <message>
        <source>The file; - for standard input</source>
        <translation>El archivo; - para la entrada estándar</translation>
    </message>
    <message>
        <source>Only keys of this class; may be given several times</source>
        <translation>Solo claves de esta clase; se puede indicar varias veces</translation>
    </message>
    <message>
        <source>Leaves out personal values, those of unknown keys, and whatever holds the path of the home folder</source>
        <translation>Omite los valores personales, los de claves desconocidas y todo lo que contenga la ruta de la carpeta personal</translation>
    </message>
    <message>
        <source>Takes keys that the editor does not know as they are</source>
        <translation>Toma tal cual las claves que el editor no conoce</translation>
    </message>
    <message>
        <source>Tells what would change, as diff does, and changes nothing</source>
        <translation>Indica qué cambiaría, como lo hace diff, y no cambia nada</translation>
    </message>
    <message>
        <source>With --dry-run: as JSON; bytes in base64</source>
        <translation>Con --dry-run: como JSON; los bytes, en base64</translation>
    </message>
    <message>
        <source>Run with --help for more information.</source>
        <translation>Ejecute con --help para más información.</translation>
    </message>
    <message>
        <source>bash, zsh or fish</source>
        <translation>bash, zsh o fish</translation>
    </message>
    <message>
        <source>Name a product file with &apos;--product FILE&apos;, or in EDITOR_SETTINGS_PRODUCT.</source>
        <translation>Indique un archivo de producto con &apos;--product FILE&apos; o en EDITOR_SETTINGS_PRODUCT.</translation>
    </message>
    <message>
        <source>Run &apos;editor-settings doctor&apos; with the same options to see what is wrong; &apos;editor-settings restore FILE&apos; brings a backup back.</source>
        <translation>Ejecute &apos;editor-settings doctor&apos; con las mismas opciones para ver qué falla; &apos;editor-settings restore FILE&apos; restaura una copia.</translation>
    </message>
    <message>
        <source>A verb</source>
        <translation>una orden</translation>
    </message>
    <message>
        <source>Colours: auto for a terminal alone, always, or never; default: auto</source>
        <translation>Colores: auto solo en un terminal, always siempre, never nunca; predeterminado: auto</translation>
    </message>
    <message>
        <source>Long answers as they are, not a screen at a time</source>
        <translation>Las respuestas largas tal cual, no pantalla a pantalla</translation>
    </message>
    <message>
        <source>The product file, in JSON; default: the one that is installed with this program</source>
        <translation>El archivo de producto, en JSON; predeterminado: el que se instala con este programa</translation>
    </message>
    <message>
        <source>The folder of both stores; default: the product&apos;s data folder and the vendor&apos;s</source>
        <translation>La carpeta de ambos almacenes; predeterminado: la carpeta de datos del producto y la del fabricante</translation>
    </message>
    <message>
        <source>Only keys that match, such as &apos;*Path&apos;</source>
        <translation>Solo claves que coincidan, como &apos;*Path&apos;</translation>
    </message>
    <message>
        <source>Only what is stored</source>
        <translation>Solo lo que está almacenado</translation>
    </message>
    <message>
        <source>Only what is not stored</source>
        <translation>Solo lo que no está almacenado</translation>
    </message>
    <message>
        <source>Only one store</source>
        <translation>Solo un almacén</translation>
    </message>
    <message>
        <source>The preference</source>
        <translation>La preferencia</translation>
    </message>
    <message>
        <source>A bool as true or false, an int in decimal, text in UTF-8, bytes in base64 or as @FILE, a list as one word for each element</source>
        <translation>Un bool como true o false, un int en decimal, texto en UTF-8, bytes en base64 o @FILE, una lista con una palabra por elemento</translation>
    </message>
    <message>
        <source>Stores what the file holds, or standard input where it is -: byte for byte, but for a list one element on each line</source>
        <translation>Almacena lo que contiene el archivo, o la entrada estándar si es -: byte por byte; en una lista, un elemento por línea</translation>
    </message>
    <message>
        <source>One location, or those that match, such as &apos;stock*&apos;</source>
        <translation>Una ubicación, o las que coincidan, como &apos;stock*&apos;</translation>
    </message>
    <message>
        <source>What the location is asked about, where it takes that</source>
        <translation>Sobre qué se consulta la ubicación, si lo admite</translation>
    </message>
    <message>
        <source>What decides where a location lies</source>
        <translation>Qué decide dónde está una ubicación</translation>
    </message>
    <message>
        <source>Whether they exist and can be used; exit status 1 where the editor cannot write to one that it writes to</source>
        <translation>Si existen y se pueden usar; estado de salida 1 si el editor no puede escribir en una en la que escribe</translation>
    </message>
    <message>
        <source>Makes the file, empty, so that nobody else gets the name; the folder too, and a free number where needed</source>
        <translation>Crea el archivo, vacío, para que nadie más obtenga el nombre; también la carpeta, y un número libre si hace falta</translation>
    </message>
    <message>
        <source>The file that it is made of; only its name counts</source>
        <translation>El archivo del que se parte; solo cuenta su nombre</translation>
    </message>
    <message>
        <source>The extension, such as mp4</source>
        <translation>La extensión, como mp4</translation>
    </message>
    <message>
        <source>The name that the editor keeps it under</source>
        <translation>El nombre con que el editor lo guarda</translation>
    </message>
    <message>
        <source>Stores these bytes: in base64, or @FILE</source>
        <translation>Almacena estos bytes: en base64, o @FILE</translation>
    </message>
    <message>
        <source>Stores this list, one word for each element</source>
        <translation>Almacena esta lista, una palabra por elemento</translation>
    </message>
    <message>
        <source>Stores this text</source>
        <translation>Almacena este texto</translation>
    </message>
    <message>
        <source>The new file</source>
        <translation>El archivo nuevo</translation>
    </message>
    <message>
        <source>A file that backup has written</source>
        <translation>Un archivo que backup haya escrito</translation>
    </message>
    <message>
        <source>Only tells what would change</source>
        <translation>Solo indica qué cambiaría</translation>
    </message>
    <message>
        <source>markdown: the page of the reference, the same on every machine</source>
        <translation>markdown: la página de la referencia, igual en todas las máquinas</translation>
    </message>
    <message>
        <source>%1; set HOME to your folder, or name one for the stores with --home</source>
        <translation>%1; defina HOME con su carpeta o indique una para los almacenes con --home</translation>
    </message>
    <message>
        <source>%1; set HOME to your folder</source>
        <translation>%1; defina HOME con su carpeta</translation>
    </message>
    <message>
        <source>only for reading: %1</source>
        <translation>solo lectura: %1</translation>
    </message>
    <message>
        <source>Reads, changes and explains the preferences, folders and file names of Lumora Video Editor.</source>
        <translation>Lee, cambia y explica las preferencias, carpetas y nombres de archivo de Lumora Video Editor.</translation>
    </message>
    <message>
        <source>All preferences with their values, sorted by key</source>
        <translation>Todas las preferencias con sus valores, ordenadas por clave</translation>
    </message>
    <message>
        <source>The value that the editor reads now</source>
        <translation>El valor que el editor lee ahora</translation>
    </message>
    <message>
        <source>Stores a value</source>
        <translation>Almacena un valor</translation>
    </message>
    <message>
        <source>Removes the stored value, so that the default holds again</source>
        <translation>Elimina el valor almacenado, de modo que vuelve a aplicarse el valor predeterminado</translation>
    </message>
    <message>
        <source>Where a value comes from: what is stored, since when, and the default</source>
        <translation>De dónde procede un valor: lo almacenado, desde cuándo, y el valor predeterminado</translation>
    </message>
    <message>
        <source>Where the editor&apos;s files and folders lie</source>
        <translation>Dónde están los archivos y carpetas del editor</translation>
    </message>
    <message>
        <source>The name that the editor gives the next file of a kind</source>
        <translation>El nombre que el editor da al próximo archivo de un tipo</translation>
    </message>
    <message>
        <source>An audio recording</source>
        <translation>Una grabación de audio</translation>
    </message>
    <message>
        <source>A freeze frame</source>
        <translation>Un fotograma congelado</translation>
    </message>
    <message>
        <source>A stabilized clip</source>
        <translation>Un clip estabilizado</translation>
    </message>
    <message>
        <source>Default name, extensions and filters of projects, and the sample project</source>
        <translation>Nombre predeterminado, extensiones y filtros de los proyectos, y el proyecto de ejemplo</translation>
    </message>
    <message>
        <source>The favourites of one list</source>
        <translation>Los favoritos de una lista</translation>
    </message>
    <message>
        <source>What the editor keeps for an indication, or stores it</source>
        <translation>Lo que el editor guarda para una indicación, o lo almacena</translation>
    </message>
    <message>
        <source>The finished tutorials, or stores them</source>
        <translation>Los tutoriales terminados, o los almacena</translation>
    </message>
    <message>
        <source>The user&apos;s own colours, or stores them</source>
        <translation>Los colores propios del usuario, o los almacena</translation>
    </message>
    <message>
        <source>The recent export targets, or stores them</source>
        <translation>Los destinos de exportación recientes, o los almacena</translation>
    </message>
    <message>
        <source>Copies both stores into one file, also while the editor runs</source>
        <translation>Copia ambos almacenes en un archivo, también con el editor en marcha</translation>
    </message>
    <message>
        <source>Brings the stores of a backup back, and keeps what was there</source>
        <translation>Restaura los almacenes de una copia de seguridad y conserva lo que había</translation>
    </message>
    <message>
        <source>Prints the changes that other processes make, as they happen</source>
        <translation>Muestra los cambios que hacen otros procesos, en cuanto ocurren</translation>
    </message>
    <message>
        <source>What is wrong with the stores, what they hold and the folders; exit status 1 where something is</source>
        <translation>Qué está mal en los almacenes, su contenido y las carpetas; estado de salida 1 si algo lo está</translation>
    </message>
    <message>
        <source>A completion script for a shell, to be sourced</source>
        <translation>Un script de autocompletado para un intérprete de órdenes, para cargarlo con source</translation>
    </message>
    <message>
        <source>The manual page, for man</source>
        <translation>La página de manual, para man</translation>
    </message>
    <message>
        <source>One JSON object a line; bytes in base64</source>
        <translation>Un objeto JSON por línea; los bytes, en base64</translation>
    </message>
    <message>
        <source>cannot write to standard output: %1</source>
        <translation>no se puede escribir en la salida estándar: %1</translation>
    </message>
    <message>
        <source>%1 is reserved: the editor neither reads nor writes it; remove it, or give --with-unknown</source>
        <translation>%1 está reservada: el editor no la lee ni la escribe; elimínela o use --with-unknown</translation>
    </message>
    <message>
        <source>%1 is no preference of the editor; %2correct or remove it, or give --with-unknown to take such keys as they are</source>
        <translation>%1 no es una preferencia del editor; %2corríjala o elimínela, o use --with-unknown para tomar tales claves como están</translation>
    </message>
    <message>
        <source>%1 is kept in the other store; move it to stores.%2</source>
        <translation>%1 se guarda en el otro almacén; muévala a stores.%2</translation>
    </message>
    <message>
        <source>%1 is &quot;%2&quot;, which the editor would not read; give a value of kind &quot;%3&quot;</source>
        <translation>%1 es &quot;%2&quot;, que el editor no leería; indique un valor de tipo &quot;%3&quot;</translation>
    </message>
    <message>
        <source> or </source>
        <translation> o </translation>
    </message>
    <message>
        <source>did you mean %1?</source>
        <translation>¿quiso decir %1?</translation>
    </message>
    <message>
        <source>%1 is not set, so %2</source>
        <translation>%1 no está definida, así que se usa %2</translation>
    </message>
    <message>
        <source>%1 is empty, so %2</source>
        <translation>%1 está vacía, así que se usa %2</translation>
    </message>
    <message>
        <source>%1=%2 in the environment</source>
        <translation>%1=%2 en el entorno</translation>
    </message>
    <message>
        <source>%1 in the home folder</source>
        <translation>%1 en la carpeta personal</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1, línea %2</translation>
    </message>
    <message>
        <source>%1=%2 in %3</source>
        <translation>%1=%2 en %3</translation>
    </message>
    <message>
        <source>no %1 in %2, so %3</source>
        <translation>no hay %1 en %2, así que se usa %3</translation>
    </message>
    <message>
        <source>%1 cannot be read (%2), so %3</source>
        <translation>%1 no se puede leer (%2), así que se usa %3</translation>
    </message>
    <message>
        <source>there is no %1, so %2</source>
        <translation>no existe %1, así que se usa %2</translation>
    </message>
    <message>
        <source>%1 gives %2</source>
        <translation>%1 devuelve %2</translation>
    </message>
    <message>
        <source>resourcesRoot of %1, which is %2</source>
        <translation>resourcesRoot de %1, que es %2</translation>
    </message>
    <message>
        <source>nothing: the text is fixed</source>
        <translation>nada: el texto es fijo</translation>
    </message>
    <message>
        <source>%1 %2 in %3</source>
        <translation>%1 %2 en %3</translation>
    </message>
    <message>
        <source>the document</source>
        <translation>el documento</translation>
    </message>
    <message>
        <source>line %1, column %2:</source>
        <translation>línea %1, columna %2:</translation>
    </message>
    <message>
        <source>%1 is nested too deeply; give a file that &apos;editor-settings export&apos; made</source>
        <translation>%1 está anidado en exceso; use un archivo que haya creado &apos;editor-settings export&apos;</translation>
    </message>
    <message>
        <source>%1 stands there twice; keep one of the two</source>
        <translation>%1 está dos veces; conserve solo una</translation>
    </message>
    <message>
        <source>a number is too large</source>
        <translation>un número es demasiado grande</translation>
    </message>
    <message>
        <source>%1 %2; mend it there, or export the file again</source>
        <translation>%1 %2; corríjalo ahí o vuelva a exportar el archivo</translation>
    </message>
    <message>
        <source>%1 a byte order mark stands before the text; save the file as UTF-8 without it</source>
        <translation>%1 hay una marca de orden de bytes antes del texto; guarde el archivo como UTF-8 sin ella</translation>
    </message>
    <message>
        <source>the document is a database; where &apos;editor-settings backup&apos; made it, &apos;editor-settings restore&apos; takes it</source>
        <translation>el documento es una base de datos; si la creó &apos;editor-settings backup&apos;, &apos;editor-settings restore&apos; la acepta</translation>
    </message>
    <message>
        <source>%1 a NUL stands there, which no text holds; save the file as UTF-8, or export it again</source>
        <translation>%1 hay un NUL, que ningún texto contiene; guarde el archivo como UTF-8 o expórtelo de nuevo</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>un objeto</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>un array</translation>
    </message>
    <message>
        <source>%1 is %2; give %3</source>
        <translation>%1 es %2; indique %3</translation>
    </message>
    <message>
        <source>an object, between { and }</source>
        <translation>un objeto, entre { y }</translation>
    </message>
    <message>
        <source>%1 means nothing; remove it: what stands there is %2</source>
        <translation>%1 no significa nada; elimínelo: lo que va ahí es %2</translation>
    </message>
    <message>
        <source>%1 is missing; give a file that &apos;editor-settings export&apos; made</source>
        <translation>falta %1; use un archivo que haya creado &apos;editor-settings export&apos;</translation>
    </message>
    <message>
        <source>a text, in quotes</source>
        <translation>un texto, entre comillas</translation>
    </message>
    <message>
        <source>%1 is not how a key is written: a backslash is doubled, and only a byte that is not UTF-8 stands as \xHH, in small letters; write it so</source>
        <translation>%1 no está escrita como una clave: la barra inversa se duplica y solo un byte no UTF-8 se escribe \xHH, en minúsculas; escríbala así</translation>
    </message>
    <message>
        <source>%1 holds a NUL, which no key can; remove it</source>
        <translation>%1 contiene un NUL, que ninguna clave puede contener; elimínelo</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true o false</translation>
    </message>
    <message>
        <source>a whole number from -2147483648 to 2147483647</source>
        <translation>un número entero de -2147483648 a 2147483647</translation>
    </message>
    <message>
        <source>bytes in base64</source>
        <translation>bytes en base64</translation>
    </message>
    <message>
        <source>&quot;base64&quot;, or leave the field out</source>
        <translation>&quot;base64&quot;, u omita el campo</translation>
    </message>
    <message>
        <source>bool, int, string or bytes</source>
        <translation>bool, int, string o bytes</translation>
    </message>
    <message>
        <source>%1 is for the kind string only; remove it</source>
        <translation>%1 es solo para el tipo string; elimínelo</translation>
    </message>
    <message>
        <source>%1 stands beside &quot;redacted&quot;; keep one of the two</source>
        <translation>%1 está junto a &quot;redacted&quot;; conserve uno de los dos</translation>
    </message>
    <message>
        <source>true, or a value in its place</source>
        <translation>true, o un valor en su lugar</translation>
    </message>
    <message>
        <source>format is %1, so this is no export of settings; give a file that &apos;editor-settings export&apos; made</source>
        <translation>format es %1, así que esto no es una exportación de preferencias; use un archivo que haya creado &apos;editor-settings export&apos;</translation>
    </message>
    <message>
        <source>format is missing, so this is no export of settings; give a file that &apos;editor-settings export&apos; made</source>
        <translation>falta format, así que esto no es una exportación de preferencias; use un archivo que haya creado &apos;editor-settings export&apos;</translation>
    </message>
    <message>
        <source>version is %1, and this program reads up to %2: a newer one wrote the file; update this program</source>
        <translation>version es %1, y este programa lee hasta %2: uno más reciente escribió el archivo; actualice este programa</translation>
    </message>
    <message>
        <source>default of a preference</source>
        <translation>valor predeterminado de una preferencia</translation>
    </message>
    <message>
        <source>written to</source>
        <translation>se escribe en ella</translation>
    </message>
    <message>
        <source>shipped with the product</source>
        <translation>se entrega con el producto</translation>
    </message>
    <message>
        <source>joined to a folder by the editor</source>
        <translation>el editor la añade a una carpeta</translation>
    </message>
    <message>
        <source>inside the editor&apos;s program</source>
        <translation>dentro del programa del editor</translation>
    </message>
    <message>
        <source>%1 is required</source>
        <translation>Se requiere %1</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>No se esperaba este argumento: %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>No se esperaban estos argumentos: %1</translation>
    </message>
    <message>
        <source>%1 excludes %2</source>
        <translation>%1 excluye %2</translation>
    </message>
    <message>
        <source>%1: %2 required %3 missing</source>
        <translation>%1: falta %3 (se requieren: %2)</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Uso</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPCIONES</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>SUBORDEN</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Argumentos</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>OBLIGATORIO</translation>
    </message>
    <message>
        <source>Env</source>
        <translation>Entorno</translation>
    </message>
    <message>
        <source>Excludes</source>
        <translation>Excluye</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Muestra esta ayuda y termina</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Opciones</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>Subórdenes</translation>
    </message>
    <message>
        <source>%1 not in %2</source>
        <translation>%1 no está en %2</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>Muestra la versión del programa y termina</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Idioma</translation>
    </message>
    <message>
        <source>Texts are in the language that LANGUAGE names, else LC_ALL, LC_MESSAGES or LANG, where there is a translation and the
locale is in UTF-8. What the system and the stores tell is always English; so are all texts with --plain, --json or --format, the
manual page and the completion scripts.</source>
        <translation>Los textos están en el idioma que indica LANGUAGE; si no, LC_ALL, LC_MESSAGES o LANG, si hay traducción y la
configuración regional usa UTF-8. Lo que indican el sistema y los almacenes está siempre en inglés; también todo texto
con --plain, --json o --format, la página de manual y los scripts de autocompletado.</translation>
    </message>
</context>
</TS>
