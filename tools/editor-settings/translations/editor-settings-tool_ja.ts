<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>Text</name>
    <message>
        <source>Did you mean %1?</source>
        <translation>%1 のことですか?</translation>
    </message>
    <message>
        <source>Did you mean %1? &apos;%2 --help&apos; shows how it is used.</source>
        <translation>%1 のことですか? 使い方は &apos;%2 --help&apos; で分かります。</translation>
    </message>
    <message>
        <source>The verbs are %1 and %2.</source>
        <translation>コマンドは %1, %2 です。</translation>
    </message>
    <message>
        <source>What follows %1 is one of %2 and %3.</source>
        <translation>%1 の後には %2, %3 のいずれかを指定します。</translation>
    </message>
    <message>
        <source>(unset)</source>
        <translation>(未設定)</translation>
    </message>
    <message>
        <source>STORE</source>
        <translation>設定ストア</translation>
    </message>
    <message>
        <source>KEY</source>
        <translation>キー</translation>
    </message>
    <message>
        <source>NOW</source>
        <translation>現在</translation>
    </message>
    <message>
        <source>IN THE BACKUP</source>
        <translation>バックアップ内</translation>
    </message>
    <message numerus="yes">
        <source>the %1 store of %2: %n values would change</source>
        <comment>the %1 store of %2: %n value would change</comment>
        <translation>
            <numerusform>%1 設定ストア (%2 のバックアップ): %n 個の値が変わります</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the %1 store of %2: %n values differ from before</source>
        <comment>the %1 store of %2: %n value differs from before</comment>
        <translation>
            <numerusform>%1 設定ストア (%2 のバックアップ): %n 個の値が以前と異なります</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; what was there is kept in %2</source>
        <translation>%1。以前の内容は %2 に保管されています</translation>
    </message>
    <message>
        <source>there is no store yet, so there is nothing to back up</source>
        <translation>設定ストアがまだないため、バックアップするものがありません</translation>
    </message>
    <message>
        <source>copying the stores</source>
        <translation>設定ストアのコピー</translation>
    </message>
    <message>
        <source>reading the copy</source>
        <translation>コピーの読み取り</translation>
    </message>
    <message numerus="yes">
        <source>the %1 store is backed up with %n values</source>
        <comment>the %1 store is backed up with %n value</comment>
        <translation>
            <numerusform>%1 設定ストアを %n 個の値とともにバックアップしました</numerusform>
        </translation>
    </message>
    <message>
        <source>reading the backup</source>
        <translation>バックアップの読み取り</translation>
    </message>
    <message>
        <source>restoring the %1 store</source>
        <translation>%1 設定ストアの復元</translation>
    </message>
    <message>
        <source>the backup holds no %1 store, so that one stays as it is</source>
        <translation>バックアップに %1 設定ストアが含まれていないため、この設定ストアはそのまま残ります</translation>
    </message>
    <message>
        <source>%1 is written by the editor alone, so it cannot be set; &apos;editor-settings unset&apos; removes it</source>
        <translation>%1 に書き込むのはエディターだけなので、設定できません。&apos;editor-settings unset&apos; で削除できます</translation>
    </message>
    <message>
        <source>%1 is kept in memory only by a product of this kind, so it cannot be set from outside the editor</source>
        <translation>この種類の製品では %1 はメモリー内にのみ保持されるため、エディターの外からは設定できません</translation>
    </message>
    <message>
        <source>TYPE</source>
        <translation>型</translation>
    </message>
    <message>
        <source>STATE</source>
        <translation>状態</translation>
    </message>
    <message>
        <source>VALUE</source>
        <translation>値</translation>
    </message>
    <message>
        <source>%1 holds a value of kind %2 that cannot be read, so the default is read; &apos;editor-settings explain %1&apos; shows both</source>
        <translation>%1 に保存されている種類 %2 の値は読み取れないため、既定値が読み取られます。両方の値は &apos;editor-settings explain %1&apos; で分かります</translation>
    </message>
    <message>
        <source>%1 holds a value of kind %2, so the default is read; &apos;editor-settings explain %1&apos; shows both</source>
        <translation>%1 に種類 %2 の値が保存されているため、既定値が読み取られます。両方の値は &apos;editor-settings explain %1&apos; で分かります</translation>
    </message>
    <message>
        <source>%1 was not set</source>
        <translation>%1 は設定されていませんでした</translation>
    </message>
    <message>
        <source>key</source>
        <translation>キー</translation>
    </message>
    <message>
        <source>type</source>
        <translation>型</translation>
    </message>
    <message>
        <source>class</source>
        <translation>分類</translation>
    </message>
    <message>
        <source>store</source>
        <translation>設定ストア</translation>
    </message>
    <message>
        <source>file</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>state</source>
        <translation>状態</translation>
    </message>
    <message>
        <source>stored</source>
        <translation>保存された値</translation>
    </message>
    <message>
        <source>stored kind</source>
        <translation>保存された種類</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>変更</translation>
    </message>
    <message>
        <source>default</source>
        <translation>既定値</translation>
    </message>
    <message>
        <source>computed by</source>
        <translation>算出元</translation>
    </message>
    <message>
        <source>nothing: it is fixed</source>
        <translation>なし (固定値)</translation>
    </message>
    <message>
        <source>value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>default name</source>
        <translation>既定の名前</translation>
    </message>
    <message>
        <source>extensions</source>
        <translation>拡張子</translation>
    </message>
    <message>
        <source>extension for saving</source>
        <translation>保存時の拡張子</translation>
    </message>
    <message>
        <source>save filter</source>
        <translation>保存用フィルター</translation>
    </message>
    <message>
        <source>open filter</source>
        <translation>読み込み用フィルター</translation>
    </message>
    <message>
        <source>sample project</source>
        <translation>サンプルプロジェクト</translation>
    </message>
    <message>
        <source>there is no sample project below %1</source>
        <translation>%1 以下にサンプルプロジェクトがありません</translation>
    </message>
    <message>
        <source>set HOME to the folder of the user whom the editor runs for</source>
        <translation>エディターを実行するユーザーのフォルダーを HOME に設定してください</translation>
    </message>
    <message>
        <source>looking at the %1 store</source>
        <translation>%1 設定ストアの確認</translation>
    </message>
    <message>
        <source>looking at the names of recordings</source>
        <translation>録音の名前の確認</translation>
    </message>
    <message>
        <source>looking at the names of freeze frames</source>
        <translation>フリーズフレームの名前の確認</translation>
    </message>
    <message>
        <source>looking at the names of stabilized clips</source>
        <translation>手ブレ補正済みクリップの名前の確認</translation>
    </message>
    <message>
        <source>looking at the folders that the editor writes to</source>
        <translation>エディターが書き込むフォルダーの確認</translation>
    </message>
    <message>
        <source>opening the stores</source>
        <translation>設定ストアを開く</translation>
    </message>
    <message>
        <source>nothing else can be looked at without it: mend it, or name another with --product</source>
        <translation>これがないと、ほかには何も確認できません。直すか、--product で別のものを指定してください</translation>
    </message>
    <message>
        <source>note</source>
        <translation>注記</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>unusable</source>
        <translation>使用不可</translation>
    </message>
    <message>
        <source>usable</source>
        <translation>使用可</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>読み取り専用</translation>
    </message>
    <message>
        <source>%1 (%2 store)</source>
        <translation>%1 (%2 設定ストア)</translation>
    </message>
    <message>
        <source>%1, schema %2, journal mode %3</source>
        <translation>%1、スキーマ %2、ジャーナルモード %3</translation>
    </message>
    <message>
        <source>%1, on %2</source>
        <translation>%1、ファイルシステム %2</translation>
    </message>
    <message>
        <source>%1, on %2 at %3</source>
        <translation>%1、ファイルシステム %2 (マウント先 %3)</translation>
    </message>
    <message numerus="yes">
        <source>%n errors</source>
        <comment>%n error</comment>
        <translation>
            <numerusform>エラー %n 件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warnings</source>
        <comment>%n warning</comment>
        <translation>
            <numerusform>警告 %n 件</numerusform>
        </translation>
    </message>
    <message>
        <source>all is well</source>
        <translation>問題はありません</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>product file</source>
        <translation>製品ファイル</translation>
    </message>
    <message>
        <source>%1 store</source>
        <translation>%1 設定ストア</translation>
    </message>
    <message>
        <source>the folder of the store cannot be used: %1, so no store can be made</source>
        <translation>設定ストアのフォルダーを使えないため (%1)、設定ストアを作成できません</translation>
    </message>
    <message>
        <source>the folder of the store cannot be used: %1, so no change can be stored</source>
        <translation>設定ストアのフォルダーを使えないため (%1)、変更を保存できません</translation>
    </message>
    <message>
        <source>give this user the rights to the folder, or name another with --home</source>
        <translation>このユーザーにフォルダーの権限を与えるか、--home で別のフォルダーを指定してください</translation>
    </message>
    <message>
        <source>nothing is stored there yet</source>
        <translation>まだ何も保存されていません</translation>
    </message>
    <message>
        <source>nothing to do: the store is made when something is stored</source>
        <translation>対処は不要です。設定ストアは、何かが保存されたときに作成されます</translation>
    </message>
    <message>
        <source>other users may read or change it: its mode is %1</source>
        <translation>ほかのユーザーが読み取りまたは変更できます (モード %1)</translation>
    </message>
    <message>
        <source>it belongs to another user, %1</source>
        <translation>別のユーザー %1 の所有です</translation>
    </message>
    <message>
        <source>run this program and the editor as that user, or give the file to %1</source>
        <translation>このプログラムとエディターをそのユーザーで実行するか、ファイルの所有者を %1 に変更してください</translation>
    </message>
    <message>
        <source>a journal of %1 bytes lies there: its store is gone, and no new one is made beside it</source>
        <translation>%1 バイトのジャーナルがあります。対応する設定ストアがなくなっており、その隣に新しい設定ストアは作成されません</translation>
    </message>
    <message>
        <source>bring the store back beside its journal, or move the journal away</source>
        <translation>設定ストアをジャーナルの隣に戻すか、ジャーナルを別の場所に移してください</translation>
    </message>
    <message>
        <source>a journal of %1 bytes lies there: a change is being made right now, or was interrupted</source>
        <translation>%1 バイトのジャーナルがあります。変更の最中か、変更が中断されています</translation>
    </message>
    <message>
        <source>look again in a moment; where it stays, leave it beside the store and start the editor, which undoes the change</source>
        <translation>しばらくしてから確認し直してください。残っている場合は、設定ストアの隣に置いたままエディターを起動すると、変更が取り消されます</translation>
    </message>
    <message>
        <source>a file system without a name</source>
        <translation>名前のないファイルシステム</translation>
    </message>
    <message>
        <source>keep the stores on a local disk: move the data folder there (XDG_DATA_HOME), or name a folder with --home</source>
        <translation>設定ストアはローカルディスクに置いてください。データフォルダーをそこへ移す (XDG_DATA_HOME) か、--home でフォルダーを指定します</translation>
    </message>
    <message>
        <source>it lies on %1, which may only be read, so nothing can be stored</source>
        <translation>読み取り専用の %1 上にあるため、何も保存できません</translation>
    </message>
    <message>
        <source>mount it for writing, or name another folder with --home</source>
        <translation>書き込み可能でマウントするか、--home で別のフォルダーを指定してください</translation>
    </message>
    <message>
        <source>it lies on %1, where locks do not hold between machines, so that two editors can damage it</source>
        <translation>%1 上にあります。マシン間でロックが効かないため、2 つのエディターが同時に使うと壊れるおそれがあります</translation>
    </message>
    <message>
        <source>it lies on %1, which has no hard links, so that no store can be made there</source>
        <translation>%1 上にあります。ハードリンクを使えないため、そこには設定ストアを作成できません</translation>
    </message>
    <message>
        <source>it lies on %1, which is kept in memory, so that all is lost with a restart</source>
        <translation>%1 上にあります。メモリー内に保持されるため、再起動するとすべて失われます</translation>
    </message>
    <message>
        <source>it lies on %1, of which it cannot be told whether locks hold there</source>
        <translation>%1 上にあります。そこでロックが効くかどうかは分かりません</translation>
    </message>
    <message>
        <source>nothing to do where the disk is local; else %1</source>
        <translation>ディスクがローカルなら対処は不要です。そうでない場合: %1</translation>
    </message>
    <message>
        <source>it belongs in the %1 store and is not read here</source>
        <translation>%1 設定ストアに属するキーであり、ここからは読み取られません</translation>
    </message>
    <message>
        <source>&apos;editor-settings explain %1&apos; shows what is read; what lies here is kept</source>
        <translation>読み取られる値は &apos;editor-settings explain %1&apos; で分かります。ここにあるものはそのまま残ります</translation>
    </message>
    <message>
        <source>the library knows no such key; it is kept</source>
        <translation>ライブラリにこのキーはありません。そのまま残ります</translation>
    </message>
    <message>
        <source>nothing to do where a later version or another program stored it</source>
        <translation>新しいバージョンや別のプログラムが保存したものなら、対処は不要です</translation>
    </message>
    <message>
        <source>have the program that keeps it store it anew</source>
        <translation>これを保存しているプログラムで保存し直してください</translation>
    </message>
    <message>
        <source>the rational has no %1, so a read mixes it with a default</source>
        <translation>有理数に %1 がないため、読み取ると既定値と混ざります</translation>
    </message>
    <message>
        <source>the rational&apos;s %1 is no int, so a read mixes it with a default</source>
        <translation>有理数の %1 が int ではないため、読み取ると既定値と混ざります</translation>
    </message>
    <message>
        <source>the rational&apos;s denominator is 0, so every read of it fails</source>
        <translation>有理数の分母が 0 のため、読み取りは必ず失敗します</translation>
    </message>
    <message>
        <source>the library knows no such rational; it is kept</source>
        <translation>ライブラリにこの有理数はありません。そのまま残ります</translation>
    </message>
    <message>
        <source>&apos;editor-settings unset %1&apos; removes it, so that the default holds</source>
        <translation>&apos;editor-settings unset %1&apos; で削除すると、既定値が使われます</translation>
    </message>
    <message>
        <source>store it anew: &apos;editor-settings set %1 VALUE&apos;</source>
        <translation>保存し直してください: &apos;editor-settings set %1 VALUE&apos;</translation>
    </message>
    <message>
        <source>have the editor store it anew</source>
        <translation>エディターで保存し直してください</translation>
    </message>
    <message>
        <source>it holds a value of kind %1 where one of kind %2 is read, so the default is read</source>
        <translation>種類 %2 の値を読み取るところに種類 %1 の値があるため、既定値が読み取られます</translation>
    </message>
    <message>
        <source>it holds a value of kind %1 that cannot be read, so the default is read</source>
        <translation>種類 %1 の値を読み取れないため、既定値が読み取られます</translation>
    </message>
    <message>
        <source>it holds text that is not UTF-8, so it is not read as it is stored</source>
        <translation>UTF-8 でないテキストのため、保存されたとおりには読み取られません</translation>
    </message>
    <message>
        <source>the stored list would be another one when it is read and stored again, as it has empty elements or a part of the separator</source>
        <translation>空の要素または区切りの一部を含むため、保存されたリストは読み取って保存し直すと別のものになります</translation>
    </message>
    <message>
        <source>it holds %1, at the edge of its range: counting on would leave it</source>
        <translation>値が範囲の端の %1 です。これ以上数えると範囲を外れます</translation>
    </message>
    <message>
        <source>move the file with the highest number out of the folder, or store another folder in %1</source>
        <translation>番号が最大のファイルをフォルダーの外に移すか、%1 に別のフォルダーを保存してください</translation>
    </message>
    <message>
        <source>the running number has passed 2147483647 and counts no further; the next is %1</source>
        <translation>連番が 2147483647 を超えており、これ以上進みません。次は %1 です</translation>
    </message>
    <message>
        <source>the running number nears its end at 2147483647; the next is %1</source>
        <translation>連番が上限の 2147483647 に近づいています。次は %1 です</translation>
    </message>
    <message numerus="yes">
        <source>%n more names in the folder with numbers near 2147483647 were not looked at</source>
        <comment>%n more names in the folder with numbers near 2147483647 were not looked at</comment>
        <translation>
            <numerusform>フォルダーには番号が 2147483647 に近い名前がほかに %n 個ありますが、確認していません</numerusform>
        </translation>
    </message>
    <message>
        <source>move them out of the folder, or look again when those above are mended</source>
        <translation>フォルダーの外に移すか、上の問題を直してから確認し直してください</translation>
    </message>
    <message>
        <source>%1: the editor cannot write there: %2</source>
        <translation>%1: エディターはそこに書き込めません: %2</translation>
    </message>
    <message>
        <source>mend what is remarked: &apos;editor-settings paths --explain&apos; tells what decides, and a preference may be set to another folder</source>
        <translation>指摘された点を直してください。決定元は &apos;editor-settings paths --explain&apos; で分かり、設定項目に別のフォルダーを設定することもできます</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>make it readable, or set the preference to another folder</source>
        <translation>読み取れるようにするか、設定項目に別のフォルダーを設定してください</translation>
    </message>
    <message>
        <source>not there yet: %1</source>
        <translation>まだないもの: %1</translation>
    </message>
    <message>
        <source>nothing to do: the editor makes them when it writes there</source>
        <translation>対処は不要です。エディターが書き込むときに作成されます</translation>
    </message>
    <message>
        <source>Every preference whose key ends in Path.</source>
        <translation>キーが Path で終わるすべての設定項目。</translation>
    </message>
    <message>
        <source>What is stored, one preference a line, for a script.</source>
        <translation>保存されているもの。スクリプト向けに 1 行に 1 項目。</translation>
    </message>
    <message>
        <source>The folder that the editor exports to.</source>
        <translation>エディターの書き出し先フォルダー。</translation>
    </message>
    <message>
        <source>A list in a form that every program reads alike.</source>
        <translation>どのプログラムでも同じように読み取れる形式のリスト。</translation>
    </message>
    <message>
        <source>Stores false.</source>
        <translation>false を保存します。</translation>
    </message>
    <message>
        <source>Stores another folder; the editor makes it.</source>
        <translation>別のフォルダーを保存します。フォルダーはエディターが作成します。</translation>
    </message>
    <message>
        <source>Stores a list of two.</source>
        <translation>2 個の要素からなるリストを保存します。</translation>
    </message>
    <message>
        <source>Stores a value that looks like an option.</source>
        <translation>オプションのように見える値を保存します。</translation>
    </message>
    <message>
        <source>From now on the default holds.</source>
        <translation>以後は既定値が使われます。</translation>
    </message>
    <message>
        <source>Whether it is stored, where and since when, and what the default is.</source>
        <translation>保存されているかどうか、その場所と日時、そして既定値。</translation>
    </message>
    <message>
        <source>What a new project is called, and which files the editor opens.</source>
        <translation>新しいプロジェクトの名前と、エディターが開くファイル。</translation>
    </message>
    <message>
        <source>The favourites of the list &quot;fonts&quot;.</source>
        <translation>リスト &quot;fonts&quot; のお気に入り。</translation>
    </message>
    <message>
        <source>What is kept for the indication &quot;tour&quot;, in base64.</source>
        <translation>案内表示 &quot;tour&quot; のために保存されている内容 (base64)。</translation>
    </message>
    <message>
        <source>Stores the bytes of the file tour.state for it.</source>
        <translation>そのためにファイル tour.state のバイト列を保存します。</translation>
    </message>
    <message>
        <source>The finished ones, one a line.</source>
        <translation>完了したもの。1 行に 1 つ。</translation>
    </message>
    <message>
        <source>Forgets them all.</source>
        <translation>すべて忘れます。</translation>
    </message>
    <message>
        <source>Stores these two in the place of those before.</source>
        <translation>以前のものに代えて、この 2 つを保存します。</translation>
    </message>
    <message>
        <source>The text in which the editor keeps them.</source>
        <translation>エディターがこれらを保存しているテキスト。</translation>
    </message>
    <message>
        <source>Every location whose name begins with stock.</source>
        <translation>名前が stock で始まるすべての場所。</translation>
    </message>
    <message>
        <source>What decides where exports go.</source>
        <translation>書き出し先を決めているもの。</translation>
    </message>
    <message>
        <source>Whether the editor can write wherever it writes to.</source>
        <translation>エディターがすべての書き込み先に書き込めるかどうか。</translation>
    </message>
    <message>
        <source>The file that the next recording goes into.</source>
        <translation>次の録音が書き込まれるファイル。</translation>
    </message>
    <message>
        <source>Makes an empty file of the next name, and prints that.</source>
        <translation>次の名前で空のファイルを作成し、その名前を出力します。</translation>
    </message>
    <message>
        <source>The path on one line, whatever its folder is called.</source>
        <translation>フォルダーの名前が何であっても、パスを 1 行で出力します。</translation>
    </message>
    <message>
        <source>The next freeze frame of that film.</source>
        <translation>その映像の次のフリーズフレーム。</translation>
    </message>
    <message>
        <source>The next stabilized clip of it.</source>
        <translation>その映像の次の手ブレ補正済みクリップ。</translation>
    </message>
    <message>
        <source>Copies both stores into that file.</source>
        <translation>両方の設定ストアをそのファイルにコピーします。</translation>
    </message>
    <message>
        <source>What would be otherwise than now.</source>
        <translation>現在と変わる点。</translation>
    </message>
    <message>
        <source>Brings the stores back, and tells where those of now are kept.</source>
        <translation>設定ストアを元に戻し、現在の内容の保管先を知らせます。</translation>
    </message>
    <message>
        <source>A line for each change, until Ctrl+C.</source>
        <translation>Ctrl+C を押すまで、変更ごとに 1 行。</translation>
    </message>
    <message>
        <source>What is wrong and what to do; exit status 0 where all is well.</source>
        <translation>問題点とその対処。問題がなければ終了ステータスは 0。</translation>
    </message>
    <message>
        <source>The same, for somebody who helps.</source>
        <translation>同じ内容を、手助けしてくれる人のために。</translation>
    </message>
    <message>
        <source>Writes all that is stored.</source>
        <translation>保存されているものをすべてエクスポートします。</translation>
    </message>
    <message>
        <source>The same without what is personal, on standard output.</source>
        <translation>同じ内容から個人的なものを除いて、標準出力へ。</translation>
    </message>
    <message>
        <source>What would change.</source>
        <translation>変わる点。</translation>
    </message>
    <message>
        <source>Stores what belongs to the user rather than to the machine.</source>
        <translation>マシンではなくユーザーに属するものを保存します。</translation>
    </message>
    <message>
        <source>What is stored otherwise than in the file; exit status 1, as something is.</source>
        <translation>ファイルと異なって保存されているもの。違いがあるので終了ステータスは 1。</translation>
    </message>
    <message>
        <source>Nothing, as the two are alike.</source>
        <translation>両者は同じなので、何もありません。</translation>
    </message>
    <message>
        <source>A script for bash: source editor-settings.bash</source>
        <translation>bash 用のスクリプト: source editor-settings.bash</translation>
    </message>
    <message>
        <source>The page in a file: man ./editor-settings.1</source>
        <translation>ファイルに保存したページ: man ./editor-settings.1</translation>
    </message>
    <message>
        <source>Examples:</source>
        <translation>例:</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>空です</translation>
    </message>
    <message>
        <source>holds a NUL, at which the system would cut it off</source>
        <translation>NUL を含むため、システムによってそこで切られます</translation>
    </message>
    <message>
        <source>not absolute: it depends on the folder that the editor is started in</source>
        <translation>絶対パスではありません。エディターを起動したフォルダーによって変わります</translation>
    </message>
    <message>
        <source>dangling link to %1</source>
        <translation>リンク切れ (リンク先 %1)</translation>
    </message>
    <message>
        <source>missing, and %1: %2</source>
        <translation>ありません。さらに %1: %2</translation>
    </message>
    <message>
        <source>missing, and %1 is not a folder</source>
        <translation>ありません。さらに %1 はフォルダーではありません</translation>
    </message>
    <message>
        <source>missing, and %1 is not writable</source>
        <translation>ありません。さらに %1 には書き込めません</translation>
    </message>
    <message>
        <source>missing; the editor can make it</source>
        <translation>ありません (エディターが作成できます)</translation>
    </message>
    <message>
        <source>not a folder</source>
        <translation>フォルダーではありません</translation>
    </message>
    <message>
        <source>not writable</source>
        <translation>書き込めません</translation>
    </message>
    <message>
        <source>not readable, so names are numbered as if it were empty</source>
        <translation>読み取れないため、空とみなして番号が付けられます</translation>
    </message>
    <message>
        <source>the home folder itself</source>
        <translation>ホームフォルダーそのものです</translation>
    </message>
    <message>
        <source>HOME is not set, so / is taken for the home folder</source>
        <translation>HOME が設定されていないため、/ がホームフォルダーとみなされます</translation>
    </message>
    <message>
        <source>HOME is %1, which depends on the folder that a program is started in</source>
        <translation>HOME が %1 になっており、プログラムを起動したフォルダーによって変わります</translation>
    </message>
    <message>
        <source>HOME is %1, which is not a folder</source>
        <translation>HOME が %1 になっていますが、フォルダーではありません</translation>
    </message>
    <message>
        <source>HOME is %1, which is not there</source>
        <translation>HOME が %1 になっていますが、存在しません</translation>
    </message>
    <message>
        <source>cannot read %1 (%2); name a file that can be read, or give - for standard input</source>
        <translation>%1 を読み取れません (%2)。読み取れるファイルを指定するか、標準入力を使うには - を指定してください</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>フォルダーです</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>通常のファイルではありません</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>標準入力</translation>
    </message>
    <message>
        <source>%1 holds more than %2 bytes, which is too much; name a smaller one</source>
        <translation>%1 は %2 バイトを超えており、大きすぎます。もっと小さいものを指定してください</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1:</translation>
    </message>
    <message>
        <source>watching both stores; Ctrl+C ends it</source>
        <translation>両方の設定ストアを監視しています。Ctrl+C で終了します</translation>
    </message>
    <message>
        <source>%1 is not UTF-8 without a byte order mark; give the name in UTF-8</source>
        <translation>%1 はバイトオーダーマークなしの UTF-8 ではありません。名前を UTF-8 で指定してください</translation>
    </message>
    <message>
        <source>%1 is longer than a path can be; give the name of a file</source>
        <translation>%1 はパスの最大長を超えています。ファイルの名前を指定してください</translation>
    </message>
    <message>
        <source>nothing can be reserved in %1, which is %2: %3; store another folder there, or mend that</source>
        <translation>%1 (%2) には何も予約できません: %3。設定項目に別のフォルダーを保存するか、問題を直してください</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile; try again</source>
        <translation>%1 はその間に変更されました。もう一度試してください</translation>
    </message>
    <message>
        <source>the name %1 would not lie in %2 as it is; take a format without &quot;/&quot; and NUL</source>
        <translation>名前 %1 はそのままでは %2 に収まりません。&quot;/&quot; と NUL を含まない形式を指定してください</translation>
    </message>
    <message>
        <source>take a source with a shorter name</source>
        <translation>元のファイルにもっと短い名前のものを指定してください</translation>
    </message>
    <message>
        <source>&apos;editor-settings paths --check&apos; tells which folders can be used</source>
        <translation>使えるフォルダーは &apos;editor-settings paths --check&apos; で分かります</translation>
    </message>
    <message>
        <source>cannot make the file %1 (%2); %3</source>
        <translation>ファイル %1 を作成できません (%2)。%3</translation>
    </message>
    <message>
        <source>cannot make the folder %1 (%2); %3</source>
        <translation>フォルダー %1 を作成できません (%2)。%3</translation>
    </message>
    <message>
        <source>%1 is there already, though the editor would propose it</source>
        <translation>エディターは %1 を次の名前としますが、すでに存在します</translation>
    </message>
    <message>
        <source>%1 was taken by someone else meanwhile</source>
        <translation>%1 はその間にほかで使われました</translation>
    </message>
    <message>
        <source>%1; %2 is reserved instead</source>
        <translation>%1。代わりに %2 を予約しました</translation>
    </message>
    <message>
        <source>%1 is reserved, but standard output cannot be written; remove the file if it is not wanted</source>
        <translation>%1 を予約しましたが、標準出力に書き込めません。不要ならこのファイルを削除してください</translation>
    </message>
    <message>
        <source>%1 takes nothing after it</source>
        <translation>%1 に引数は指定できません</translation>
    </message>
    <message>
        <source>%1 is not UTF-8 without a byte order mark; give it as the editor does</source>
        <translation>%1 はバイトオーダーマークなしの UTF-8 ではありません。エディターと同じように指定してください</translation>
    </message>
    <message>
        <source>there is no location %1; %2&apos;editor-settings paths&apos; shows all</source>
        <translation>場所 %1 はありません。%2すべての場所は &apos;editor-settings paths&apos; で分かります</translation>
    </message>
    <message>
        <source>say what %1 is asked about: &apos;editor-settings paths %1 %2&apos;</source>
        <translation>%1 に渡す引数を指定してください: &apos;editor-settings paths %1 %2&apos;</translation>
    </message>
    <message>
        <source>&apos; or &apos;</source>
        <translation>&apos; または &apos;</translation>
    </message>
    <message>
        <source>nothing goes after a pattern; name one location</source>
        <translation>パターンの後に引数は指定できません。場所を 1 つ指定してください</translation>
    </message>
    <message>
        <source>nothing else: an absolute path stands for itself</source>
        <translation>ほかにはなし: 絶対パスはそのまま使われます</translation>
    </message>
    <message>
        <source>%1 is stored in %2</source>
        <translation>%1 は %2 に保存されています</translation>
    </message>
    <message>
        <source>%1 is stored with a value of another kind in %2, so %3 holds</source>
        <translation>%1 は %2 に別の種類の値で保存されているため、%3 が使われます</translation>
    </message>
    <message>
        <source>%1 is not stored in %2, so %3 holds</source>
        <translation>%1 は %2 に保存されていないため、%3 が使われます</translation>
    </message>
    <message>
        <source>location</source>
        <translation>場所</translation>
    </message>
    <message>
        <source>path</source>
        <translation>パス</translation>
    </message>
    <message>
        <source>use</source>
        <translation>用途</translation>
    </message>
    <message>
        <source>decided by</source>
        <translation>決定元</translation>
    </message>
    <message>
        <source>none found</source>
        <translation>見つかりません</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>no</source>
        <translation>いいえ</translation>
    </message>
    <message>
        <source>LOCATION</source>
        <translation>場所</translation>
    </message>
    <message>
        <source>EXISTS</source>
        <translation>存在</translation>
    </message>
    <message>
        <source>WRITABLE</source>
        <translation>書き込み</translation>
    </message>
    <message>
        <source>REMARK</source>
        <translation>備考</translation>
    </message>
    <message>
        <source>PATH</source>
        <translation>パス</translation>
    </message>
    <message>
        <source>the editor cannot write to %1; mend what is remarked: &apos;editor-settings paths NAME --explain&apos; tells what decides, and a preference may be set to another folder</source>
        <translation>エディターは %1 に書き込めません。備考にある点を直してください。決定元は &apos;editor-settings paths NAME --explain&apos; で分かり、設定項目に別のフォルダーを設定することもできます</translation>
    </message>
    <message>
        <source>unreadable</source>
        <translation>読み取り不可</translation>
    </message>
    <message>
        <source>other kind</source>
        <translation>別の種類</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>set</source>
        <translation>設定済み</translation>
    </message>
    <message>
        <source>added</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>step %1 of %2: %3</source>
        <translation>ステップ %1/%2: %3</translation>
    </message>
    <message>
        <source>unset</source>
        <translation>未設定</translation>
    </message>
    <message>
        <source>set to default</source>
        <translation>既定値に設定</translation>
    </message>
    <message>
        <source>%1 is reserved: the editor neither reads nor writes it, so it cannot be reached</source>
        <translation>%1 は予約されています。エディターは読み取りも書き込みもしないため、操作できません</translation>
    </message>
    <message>
        <source>%1 is a location and no preference; &apos;editor-settings paths %1&apos; shows it</source>
        <translation>%1 は設定項目ではなく場所です。&apos;editor-settings paths %1&apos; で表示できます</translation>
    </message>
    <message>
        <source>there is no preference %1; %2&apos;editor-settings list&apos; shows all</source>
        <translation>設定項目 %1 はありません。%2すべての設定項目は &apos;editor-settings list&apos; で分かります</translation>
    </message>
    <message>
        <source>the name %1 is not UTF-8 without a byte order mark; give it as the editor writes it</source>
        <translation>名前 %1 はバイトオーダーマークなしの UTF-8 ではありません。エディターが書くとおりに指定してください</translation>
    </message>
    <message>
        <source>(unreadable)</source>
        <translation>(読み取り不可)</translation>
    </message>
    <message>
        <source>holds a value of kind %1 that this version cannot read</source>
        <translation>このバージョンでは読み取れない種類 %1 の値を持つ</translation>
    </message>
    <message>
        <source>has a NUL in its key</source>
        <translation>キーに NUL を含む</translation>
    </message>
    <message>
        <source>reading the %1 store</source>
        <translation>%1 設定ストアの読み取り</translation>
    </message>
    <message>
        <source>a key in the %1 store holds the path of the home folder, so it is left out</source>
        <translation>%1 設定ストアのキーにホームフォルダーのパスを含むものがあるため、除外しました</translation>
    </message>
    <message>
        <source>%1 in the %2 store %3, so it is left out; &apos;editor-settings backup&apos; keeps it</source>
        <translation>%2 設定ストアの %1 は、%3ため除外しました。&apos;editor-settings backup&apos; には含まれます</translation>
    </message>
    <message>
        <source>writing the file</source>
        <translation>ファイルの書き込み</translation>
    </message>
    <message>
        <source>%1 is there already and was left as it is; name a new file, or move that one away</source>
        <translation>%1 はすでに存在するため、そのままにしました。新しいファイルを指定するか、既存のものを移してください</translation>
    </message>
    <message>
        <source>%1 in the %2 store %3, so it is not compared</source>
        <translation>%2 設定ストアの %1 は、%3ため比較していません</translation>
    </message>
    <message>
        <source>comparing with the %1 store</source>
        <translation>%1 設定ストアとの比較</translation>
    </message>
    <message>
        <source>(absent)</source>
        <translation>(なし)</translation>
    </message>
    <message>
        <source>CHANGE</source>
        <translation>変更</translation>
    </message>
    <message>
        <source>STORED</source>
        <translation>保存された値</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>ファイルの値</translation>
    </message>
    <message>
        <source>reading the file</source>
        <translation>ファイルの読み取り</translation>
    </message>
    <message numerus="yes">
        <source>%n redacted in the file, so not compared</source>
        <comment>%n redacted in the file, so not compared</comment>
        <translation>
            <numerusform>ファイルで伏せられている %n 件は比較していません</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; nothing was changed</source>
        <translation>%1。何も変更していません</translation>
    </message>
    <message>
        <source>the %1 store is as it was</source>
        <translation>%1 設定ストアは元のままです</translation>
    </message>
    <message>
        <source>the %1 store holds the imported values</source>
        <translation>%1 設定ストアにはインポートした値が入っています</translation>
    </message>
    <message>
        <source>the %1 store cannot be read</source>
        <translation>%1 設定ストアを読み取れません</translation>
    </message>
    <message>
        <source>changing the %1 store</source>
        <translation>%1 設定ストアの変更</translation>
    </message>
    <message>
        <source>%1; %2; then import the file again</source>
        <translation>%1。%2。その後で、ファイルをもう一度インポートしてください</translation>
    </message>
    <message numerus="yes">
        <source>%n would change</source>
        <comment>%n would change</comment>
        <translation>
            <numerusform>変更予定 %n 件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n changed</source>
        <comment>%n changed</comment>
        <translation>
            <numerusform>変更 %n 件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n already as in the file</source>
        <comment>%n already as in the file</comment>
        <translation>
            <numerusform>すでにファイルと同じ %n 件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n redacted in the file and left alone</source>
        <comment>%n redacted in the file and left alone</comment>
        <translation>
            <numerusform>ファイルで伏せられているため変更なし %n 件</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is a bool and cannot be %2; %3</source>
        <translation>%1 は bool 型なので、%2 にはできません。%3</translation>
    </message>
    <message>
        <source>%1 is an int and cannot be %2; %3</source>
        <translation>%1 は int 型なので、%2 にはできません。%3</translation>
    </message>
    <message>
        <source>%1 is a text and cannot be %2; %3</source>
        <translation>%1 は text 型なので、%2 にはできません。%3</translation>
    </message>
    <message>
        <source>%1 holds bytes and cannot be %2; %3</source>
        <translation>%1 は bytes 型なので、%2 にはできません。%3</translation>
    </message>
    <message>
        <source>%1 is a list and cannot be %2; %3</source>
        <translation>%1 は list 型なので、%2 にはできません。%3</translation>
    </message>
    <message>
        <source>give text in UTF-8 without a byte order mark, as anything else would not come back unchanged</source>
        <translation>バイトオーダーマークなしの UTF-8 のテキストを指定してください。それ以外は元のとおりには読み取れません</translation>
    </message>
    <message>
        <source>give true or false (or yes, no, on, off, 1, 0)</source>
        <translation>true または false (あるいは yes、no、on、off、1、0) を指定してください</translation>
    </message>
    <message>
        <source>give a whole number from -2147483648 to 2147483647</source>
        <translation>-2147483648 から 2147483647 までの整数を指定してください</translation>
    </message>
    <message>
        <source>%1: cannot read %2 (%3); %4</source>
        <translation>%1: %2 を読み取れません (%3)。%4</translation>
    </message>
    <message>
        <source>%1: cannot read standard input (%2); give it a file or a pipe</source>
        <translation>%1: 標準入力を読み取れません (%2)。ファイルかパイプをつないでください</translation>
    </message>
    <message>
        <source>name a file that can be read after the @</source>
        <translation>読み取れるファイルを @ の後に指定してください</translation>
    </message>
    <message>
        <source>give the bytes in base64, or @FILE to read them from a file</source>
        <translation>バイト列を base64 で指定するか、ファイルから読み取るには @FILE と指定してください</translation>
    </message>
    <message>
        <source>an empty element is lost when the list is read back; leave it out (--empty stores an empty list)</source>
        <translation>空の要素は、リストを読み取るときに失われます。省いてください (--empty は空のリストを保存します)</translation>
    </message>
    <message>
        <source>the element holds the separator of stored lists and would come back in pieces</source>
        <translation>要素が保存リストの区切りを含むため、読み取ると分割されてしまいます</translation>
    </message>
    <message>
        <source>together with the element before it, it makes up the separator of stored lists and would come back otherwise</source>
        <translation>直前の要素とつながって保存リストの区切りになるため、読み取ると別のものになってしまいます</translation>
    </message>
    <message>
        <source>%1 takes one value, not %2; %3</source>
        <translation>%1 に指定できる値は 1 個です (%2 個ではありません)。%3</translation>
    </message>
    <message>
        <source>--empty is for lists</source>
        <translation>--empty はリスト用です</translation>
    </message>
    <message>
        <source>put quotes around a value with blanks</source>
        <translation>空白を含む値は引用符で囲んでください</translation>
    </message>
    <message>
        <source>name a file that can be read</source>
        <translation>読み取れるファイルを指定してください</translation>
    </message>
    <message>
        <source>Exit status</source>
        <translation>終了ステータス</translation>
    </message>
    <message>
        <source>  0  done
  1  said no: unknown key, wrong value, trouble with a store or the product file, a folder that cannot be used,
     or doctor found something wrong
  2  wrong usage
diff ends with 0 where nothing differs, with 1 where something does, and with 2 for everything else.</source>
        <translation>  0  完了
  1  拒否: 未知のキー、誤った値、設定ストアや製品ファイルの問題、使えないフォルダー、
     または doctor が問題を見つけた場合
  2  使い方の誤り
diff は、違いがなければ 0、違いがあれば 1、それ以外はすべて 2 で終了します。</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>出力</translation>
    </message>
    <message>
        <source>Values are printed to standard output, reasons to standard error. With --plain a backslash is printed as \\, a tab
as \t, line breaks as \n and \r, other control characters and bytes that are not UTF-8 as \xHH, and a list as a JSON array.
A terminal is sent no control characters but tabs, line breaks and the codes of colours. An answer that could not be
printed whole is an error.</source>
        <translation>値は標準出力に、理由は標準エラー出力に出力します。--plain では、バックスラッシュは \\、タブは \t、改行は \n と \r、
その他の制御文字と UTF-8 でないバイトは \xHH、リストは JSON 配列として出力します。
端末には、タブ、改行、色のコードを除いて、制御文字を送りません。
答えを最後まで出力できなかった場合はエラーになります。</translation>
    </message>
    <message>
        <source>On a terminal</source>
        <translation>端末での表示</translation>
    </message>
    <message>
        <source>What is longer than the screen is shown by the program that EDITOR_SETTINGS_PAGER names, else PAGER, else
&quot;less&quot;; an empty name and &quot;cat&quot; stand for none. Columns line up there; elsewhere a tab stands between each two. Colours say
nothing that the words do not say; NO_COLOR, or &quot;dumb&quot; in TERM, leaves them out. What takes longer than a second tells
meanwhile which step it is at, where standard error is a terminal.</source>
        <translation>画面に収まらないものは EDITOR_SETTINGS_PAGER、なければ PAGER が示すプログラム、それもなければ &quot;less&quot; で表示します。
名前が空、または &quot;cat&quot; なら使いません。端末では列を揃え、それ以外ではタブで区切ります。
色が示すことは言葉でも分かり、NO_COLOR または TERM の &quot;dumb&quot; で色を消せます。
1 秒より長くかかる処理では、標準エラー出力が端末であれば、どの段階にあるかを表示します。</translation>
    </message>
    <message>
        <source>Words that look like options</source>
        <translation>オプションのように見える単語</translation>
    </message>
    <message>
        <source>A value that begins with &quot;-&quot; goes after &quot;--&quot;: editor-settings set lastTarget -- -x</source>
        <translation>&quot;-&quot; で始まる値は &quot;--&quot; の後に置きます: editor-settings set lastTarget -- -x</translation>
    </message>
    <message>
        <source>the name is empty; name a file</source>
        <translation>名前が空です。ファイルを指定してください</translation>
    </message>
    <message>
        <source>the name is empty; leave the option out for the default</source>
        <translation>名前が空です。既定のものを使うにはオプションを省いてください</translation>
    </message>
    <message>
        <source>As JSON</source>
        <translation>JSON で出力します</translation>
    </message>
    <message>
        <source>As JSON; bytes in base64</source>
        <translation>JSON で出力します。バイト列は base64</translation>
    </message>
    <message>
        <source>Tab-separated, one record a line, nothing shortened; for scripts</source>
        <translation>タブ区切り、1 行に 1 件、省略なしで出力します (スクリプト向け)</translation>
    </message>
    <message>
        <source>Stores an empty list</source>
        <translation>空のリストを保存します</translation>
    </message>
    <message>
        <source>Writes what is stored to a new file, in JSON: for another machine, or for somebody who helps</source>
        <translation>保存されているものを JSON で新しいファイルにエクスポートします。別のマシンや、手助けしてくれる人のため</translation>
    </message>
    <message>
        <source>Stores what an exported file holds, all of it or nothing; what it does not name stays</source>
        <translation>エクスポートしたファイルの内容を、すべて保存するか、何も保存しません。ファイルにないものはそのまま残ります</translation>
    </message>
    <message>
        <source>The differences between what is stored and what an exported file holds</source>
        <translation>保存されているものと、エクスポートしたファイルの内容との違い</translation>
    </message>
    <message>
        <source>The new file; - for standard output</source>
        <translation>新しいファイル。- は標準出力</translation>
    </message>
    <message>
        <source>The file; - for standard input</source>
        <translation>ファイル。- は標準入力</translation>
    </message>
    <message>
        <source>Only keys of this class; may be given several times</source>
        <translation>この分類のキーのみ。繰り返し指定できます</translation>
    </message>
    <message>
        <source>Leaves out personal values, those of unknown keys, and whatever holds the path of the home folder</source>
        <translation>個人的な値、未知のキーの値、ホームフォルダーのパスを含むものを除きます</translation>
    </message>
    <message>
        <source>Takes keys that the editor does not know as they are</source>
        <translation>エディターが知らないキーもそのまま取り込みます</translation>
    </message>
    <message>
        <source>Tells what would change, as diff does, and changes nothing</source>
        <translation>diff と同じように変わる点を示すだけで、何も変更しません</translation>
    </message>
    <message>
        <source>With --dry-run: as JSON; bytes in base64</source>
        <translation>--dry-run とともに: JSON で出力します。バイト列は base64</translation>
    </message>
    <message>
        <source>Run with --help for more information.</source>
        <translation>詳しくは --help を付けて実行してください。</translation>
    </message>
    <message>
        <source>bash, zsh or fish</source>
        <translation>bash、zsh、fish のいずれか</translation>
    </message>
    <message>
        <source>Name a product file with &apos;--product FILE&apos;, or in EDITOR_SETTINGS_PRODUCT.</source>
        <translation>&apos;--product FILE&apos; または EDITOR_SETTINGS_PRODUCT で製品ファイルを指定してください。</translation>
    </message>
    <message>
        <source>Run &apos;editor-settings doctor&apos; with the same options to see what is wrong; &apos;editor-settings restore FILE&apos; brings a backup back.</source>
        <translation>何が問題かは、同じオプションで &apos;editor-settings doctor&apos; を実行すると分かります。&apos;editor-settings restore FILE&apos; でバックアップを復元できます。</translation>
    </message>
    <message>
        <source>A verb</source>
        <translation>コマンド</translation>
    </message>
    <message>
        <source>Colours: auto for a terminal alone, always, or never; default: auto</source>
        <translation>色: auto (端末のみ)、always (常に)、never (なし)。既定値: auto</translation>
    </message>
    <message>
        <source>Long answers as they are, not a screen at a time</source>
        <translation>長い答えを 1 画面ずつではなく、そのまま出力します</translation>
    </message>
    <message>
        <source>The product file, in JSON; default: the one that is installed with this program</source>
        <translation>JSON の製品ファイル。既定値: このプログラムとともにインストールされたもの</translation>
    </message>
    <message>
        <source>The folder of both stores; default: the product&apos;s data folder and the vendor&apos;s</source>
        <translation>両方の設定ストアのフォルダー。既定値: 製品のデータフォルダーとベンダーのデータフォルダー</translation>
    </message>
    <message>
        <source>Only keys that match, such as &apos;*Path&apos;</source>
        <translation>&apos;*Path&apos; のようなパターンに一致するキーのみ</translation>
    </message>
    <message>
        <source>Only what is stored</source>
        <translation>保存されているもののみ</translation>
    </message>
    <message>
        <source>Only what is not stored</source>
        <translation>保存されていないもののみ</translation>
    </message>
    <message>
        <source>Only one store</source>
        <translation>一方の設定ストアのみ</translation>
    </message>
    <message>
        <source>The preference</source>
        <translation>設定項目</translation>
    </message>
    <message>
        <source>A bool as true or false, an int in decimal, text in UTF-8, bytes in base64 or as @FILE, a list as one word for each element</source>
        <translation>bool は true か false、int は十進数、text は UTF-8、bytes は base64 か @FILE、list は要素ごとに 1 語</translation>
    </message>
    <message>
        <source>Stores what the file holds, or standard input where it is -: byte for byte, but for a list one element on each line</source>
        <translation>ファイルの内容 (- なら標準入力) を保存します。バイト単位でそのまま、ただし list は 1 行に 1 要素</translation>
    </message>
    <message>
        <source>One location, or those that match, such as &apos;stock*&apos;</source>
        <translation>1 つの場所、または &apos;stock*&apos; のようなパターンに一致する場所</translation>
    </message>
    <message>
        <source>What the location is asked about, where it takes that</source>
        <translation>場所に渡す引数 (指定できる場合)</translation>
    </message>
    <message>
        <source>What decides where a location lies</source>
        <translation>場所がどこになるかを決めているもの</translation>
    </message>
    <message>
        <source>Whether they exist and can be used; exit status 1 where the editor cannot write to one that it writes to</source>
        <translation>存在し、使えるかどうか。エディターが書き込み先に書き込めなければ終了ステータスは 1</translation>
    </message>
    <message>
        <source>Makes the file, empty, so that nobody else gets the name; the folder too, and a free number where needed</source>
        <translation>ほかに名前を取られないよう、空のファイルを作成します。必要ならフォルダーも作成し、空いている番号を使います</translation>
    </message>
    <message>
        <source>The file that it is made of; only its name counts</source>
        <translation>元になるファイル。使われるのは名前だけです</translation>
    </message>
    <message>
        <source>The extension, such as mp4</source>
        <translation>mp4 などの拡張子</translation>
    </message>
    <message>
        <source>The name that the editor keeps it under</source>
        <translation>エディターが保存に使う名前</translation>
    </message>
    <message>
        <source>Stores these bytes: in base64, or @FILE</source>
        <translation>このバイト列を保存します: base64 または @FILE</translation>
    </message>
    <message>
        <source>Stores this list, one word for each element</source>
        <translation>このリストを保存します。要素ごとに 1 語</translation>
    </message>
    <message>
        <source>Stores this text</source>
        <translation>このテキストを保存します</translation>
    </message>
    <message>
        <source>The new file</source>
        <translation>新しいファイル</translation>
    </message>
    <message>
        <source>A file that backup has written</source>
        <translation>backup で作成したファイル</translation>
    </message>
    <message>
        <source>Only tells what would change</source>
        <translation>変わる点を示すだけにします</translation>
    </message>
    <message>
        <source>markdown: the page of the reference, the same on every machine</source>
        <translation>markdown: リファレンスのページ。どのマシンでも同じ内容</translation>
    </message>
    <message>
        <source>%1; set HOME to your folder, or name one for the stores with --home</source>
        <translation>%1。HOME に自分のフォルダーを設定するか、--home で設定ストアのフォルダーを指定してください</translation>
    </message>
    <message>
        <source>%1; set HOME to your folder</source>
        <translation>%1。HOME に自分のフォルダーを設定してください</translation>
    </message>
    <message>
        <source>only for reading: %1</source>
        <translation>読み取り専用: %1</translation>
    </message>
    <message>
        <source>Reads, changes and explains the preferences, folders and file names of Lumora Video Editor.</source>
        <translation>Lumora Video Editor の設定項目、フォルダー、ファイル名を読み取り、変更し、説明します。</translation>
    </message>
    <message>
        <source>All preferences with their values, sorted by key</source>
        <translation>すべての設定項目とその値 (キー順)</translation>
    </message>
    <message>
        <source>The value that the editor reads now</source>
        <translation>エディターが現在読み取る値</translation>
    </message>
    <message>
        <source>Stores a value</source>
        <translation>値を保存します</translation>
    </message>
    <message>
        <source>Removes the stored value, so that the default holds again</source>
        <translation>保存された値を削除し、既定値に戻します</translation>
    </message>
    <message>
        <source>Where a value comes from: what is stored, since when, and the default</source>
        <translation>値がどこから来ているか: 保存された値、その日時、既定値</translation>
    </message>
    <message>
        <source>Where the editor&apos;s files and folders lie</source>
        <translation>エディターのファイルとフォルダーがある場所</translation>
    </message>
    <message>
        <source>The name that the editor gives the next file of a kind</source>
        <translation>ある種類の次のファイルにエディターが付ける名前</translation>
    </message>
    <message>
        <source>An audio recording</source>
        <translation>録音</translation>
    </message>
    <message>
        <source>A freeze frame</source>
        <translation>フリーズフレーム</translation>
    </message>
    <message>
        <source>A stabilized clip</source>
        <translation>手ブレ補正済みクリップ</translation>
    </message>
    <message>
        <source>Default name, extensions and filters of projects, and the sample project</source>
        <translation>プロジェクトの既定の名前、拡張子、フィルターと、サンプルプロジェクト</translation>
    </message>
    <message>
        <source>The favourites of one list</source>
        <translation>1 つのリストのお気に入り</translation>
    </message>
    <message>
        <source>What the editor keeps for an indication, or stores it</source>
        <translation>エディターが案内表示のために保存している内容を示すか、保存します</translation>
    </message>
    <message>
        <source>The finished tutorials, or stores them</source>
        <translation>完了したチュートリアルを示すか、保存します</translation>
    </message>
    <message>
        <source>The user&apos;s own colours, or stores them</source>
        <translation>ユーザー独自の色を示すか、保存します</translation>
    </message>
    <message>
        <source>The recent export targets, or stores them</source>
        <translation>最近の書き出し先を示すか、保存します</translation>
    </message>
    <message>
        <source>Copies both stores into one file, also while the editor runs</source>
        <translation>両方の設定ストアを 1 つのファイルにコピーします。エディターの実行中でも可能です</translation>
    </message>
    <message>
        <source>Brings the stores of a backup back, and keeps what was there</source>
        <translation>バックアップの設定ストアを復元し、以前の内容を保管します</translation>
    </message>
    <message>
        <source>Prints the changes that other processes make, as they happen</source>
        <translation>ほかのプロセスによる変更を、その都度出力します</translation>
    </message>
    <message>
        <source>What is wrong with the stores, what they hold and the folders; exit status 1 where something is</source>
        <translation>設定ストア、その内容、フォルダーの問題点。問題があれば終了ステータスは 1</translation>
    </message>
    <message>
        <source>A completion script for a shell, to be sourced</source>
        <translation>シェルの補完スクリプト (source で読み込みます)</translation>
    </message>
    <message>
        <source>The manual page, for man</source>
        <translation>man 用のマニュアルページ</translation>
    </message>
    <message>
        <source>One JSON object a line; bytes in base64</source>
        <translation>1 行に 1 つの JSON オブジェクト。バイト列は base64</translation>
    </message>
    <message>
        <source>cannot write to standard output: %1</source>
        <translation>標準出力に書き込めません: %1</translation>
    </message>
    <message>
        <source>%1 is reserved: the editor neither reads nor writes it; remove it, or give --with-unknown</source>
        <translation>%1 は予約されています。エディターは読み取りも書き込みもしません。削除するか、--with-unknown を指定してください</translation>
    </message>
    <message>
        <source>%1 is no preference of the editor; %2correct or remove it, or give --with-unknown to take such keys as they are</source>
        <translation>%1 はエディターの設定項目ではありません。%2修正または削除するか、--with-unknown でこのようなキーをそのまま取り込んでください</translation>
    </message>
    <message>
        <source>%1 is kept in the other store; move it to stores.%2</source>
        <translation>%1 はもう一方の設定ストアに保存されるものです。stores.%2 に移してください</translation>
    </message>
    <message>
        <source>%1 is &quot;%2&quot;, which the editor would not read; give a value of kind &quot;%3&quot;</source>
        <translation>%1 が &quot;%2&quot; になっていますが、エディターはこれを読み取りません。種類 &quot;%3&quot; の値を指定してください</translation>
    </message>
    <message>
        <source> or </source>
        <translation> または </translation>
    </message>
    <message>
        <source>did you mean %1?</source>
        <translation>%1 のことですか?</translation>
    </message>
    <message>
        <source>%1 is not set, so %2</source>
        <translation>%1 が設定されていないため、%2 が使われます</translation>
    </message>
    <message>
        <source>%1 is empty, so %2</source>
        <translation>%1 が空のため、%2 が使われます</translation>
    </message>
    <message>
        <source>%1=%2 in the environment</source>
        <translation>環境変数 %1=%2</translation>
    </message>
    <message>
        <source>%1 in the home folder</source>
        <translation>ホームフォルダーの %1</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1 の %2 行目</translation>
    </message>
    <message>
        <source>%1=%2 in %3</source>
        <translation>%3 の %1=%2</translation>
    </message>
    <message>
        <source>no %1 in %2, so %3</source>
        <translation>%2 に %1 がないため、%3 が使われます</translation>
    </message>
    <message>
        <source>%1 cannot be read (%2), so %3</source>
        <translation>%1 を読み取れないため (%2)、%3 が使われます</translation>
    </message>
    <message>
        <source>there is no %1, so %2</source>
        <translation>%1 がないため、%2 が使われます</translation>
    </message>
    <message>
        <source>%1 gives %2</source>
        <translation>%1 が返す %2</translation>
    </message>
    <message>
        <source>resourcesRoot of %1, which is %2</source>
        <translation>%1 の resourcesRoot (値は %2)</translation>
    </message>
    <message>
        <source>nothing: the text is fixed</source>
        <translation>なし: 固定のテキストです</translation>
    </message>
    <message>
        <source>%1 %2 in %3</source>
        <translation>%3 の %1 %2</translation>
    </message>
    <message>
        <source>the document</source>
        <translation>この文書</translation>
    </message>
    <message>
        <source>line %1, column %2:</source>
        <translation>%1 行目 %2 列目:</translation>
    </message>
    <message>
        <source>%1 is nested too deeply; give a file that &apos;editor-settings export&apos; made</source>
        <translation>%1 の入れ子が深すぎます。&apos;editor-settings export&apos; で作成したファイルを指定してください</translation>
    </message>
    <message>
        <source>%1 stands there twice; keep one of the two</source>
        <translation>%1 が 2 回現れます。どちらか一方だけにしてください</translation>
    </message>
    <message>
        <source>a number is too large</source>
        <translation>数値が大きすぎます</translation>
    </message>
    <message>
        <source>%1 %2; mend it there, or export the file again</source>
        <translation>%1 %2。そこを直すか、ファイルをもう一度エクスポートしてください</translation>
    </message>
    <message>
        <source>%1 a byte order mark stands before the text; save the file as UTF-8 without it</source>
        <translation>%1 テキストの前にバイトオーダーマークがあります。バイトオーダーマークなしの UTF-8 でファイルを保存してください</translation>
    </message>
    <message>
        <source>the document is a database; where &apos;editor-settings backup&apos; made it, &apos;editor-settings restore&apos; takes it</source>
        <translation>この文書はデータベースです。&apos;editor-settings backup&apos; で作成したものなら、&apos;editor-settings restore&apos; で復元できます</translation>
    </message>
    <message>
        <source>%1 a NUL stands there, which no text holds; save the file as UTF-8, or export it again</source>
        <translation>%1 テキストには含められない NUL があります。ファイルを UTF-8 で保存するか、もう一度エクスポートしてください</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>オブジェクト</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>配列</translation>
    </message>
    <message>
        <source>%1 is %2; give %3</source>
        <translation>%1 が %2 になっています。指定できるもの: %3</translation>
    </message>
    <message>
        <source>an object, between { and }</source>
        <translation>{ と } で囲んだオブジェクト</translation>
    </message>
    <message>
        <source>%1 means nothing; remove it: what stands there is %2</source>
        <translation>%1 には意味がありません。削除してください。ここに書けるもの: %2</translation>
    </message>
    <message>
        <source>%1 is missing; give a file that &apos;editor-settings export&apos; made</source>
        <translation>%1 がありません。&apos;editor-settings export&apos; で作成したファイルを指定してください</translation>
    </message>
    <message>
        <source>a text, in quotes</source>
        <translation>引用符で囲んだテキスト</translation>
    </message>
    <message>
        <source>%1 is not how a key is written: a backslash is doubled, and only a byte that is not UTF-8 stands as \xHH, in small letters; write it so</source>
        <translation>%1 はキーの書き方に合っていません。バックスラッシュは 2 つ重ね、UTF-8 でないバイトだけを小文字の \xHH で書いてください</translation>
    </message>
    <message>
        <source>%1 holds a NUL, which no key can; remove it</source>
        <translation>%1 が NUL を含みますが、キーには含められません。削除してください</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true または false</translation>
    </message>
    <message>
        <source>a whole number from -2147483648 to 2147483647</source>
        <translation>-2147483648 から 2147483647 までの整数</translation>
    </message>
    <message>
        <source>bytes in base64</source>
        <translation>base64 のバイト列</translation>
    </message>
    <message>
        <source>&quot;base64&quot;, or leave the field out</source>
        <translation>&quot;base64&quot;、またはこのフィールドの省略</translation>
    </message>
    <message>
        <source>bool, int, string or bytes</source>
        <translation>bool、int、string、bytes のいずれか</translation>
    </message>
    <message>
        <source>%1 is for the kind string only; remove it</source>
        <translation>%1 は種類が string の場合にのみ使えます。削除してください</translation>
    </message>
    <message>
        <source>%1 stands beside &quot;redacted&quot;; keep one of the two</source>
        <translation>%1 と &quot;redacted&quot; が両方あります。どちらか一方だけにしてください</translation>
    </message>
    <message>
        <source>true, or a value in its place</source>
        <translation>true、または代わりの値</translation>
    </message>
    <message>
        <source>format is %1, so this is no export of settings; give a file that &apos;editor-settings export&apos; made</source>
        <translation>format が %1 になっているため、設定のエクスポートではありません。&apos;editor-settings export&apos; で作成したファイルを指定してください</translation>
    </message>
    <message>
        <source>format is missing, so this is no export of settings; give a file that &apos;editor-settings export&apos; made</source>
        <translation>format がないため、設定のエクスポートではありません。&apos;editor-settings export&apos; で作成したファイルを指定してください</translation>
    </message>
    <message>
        <source>version is %1, and this program reads up to %2: a newer one wrote the file; update this program</source>
        <translation>version は %1 ですが、このプログラムが読み取れるのは %2 までです。新しいプログラムで書かれたファイルなので、このプログラムを更新してください</translation>
    </message>
    <message>
        <source>default of a preference</source>
        <translation>設定項目の既定値</translation>
    </message>
    <message>
        <source>written to</source>
        <translation>書き込み先</translation>
    </message>
    <message>
        <source>shipped with the product</source>
        <translation>製品に同梱</translation>
    </message>
    <message>
        <source>joined to a folder by the editor</source>
        <translation>エディターがフォルダーに付け足すもの</translation>
    </message>
    <message>
        <source>inside the editor&apos;s program</source>
        <translation>エディターのプログラム内</translation>
    </message>
    <message>
        <source>%1 is required</source>
        <translation>%1 が必要です</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>予期しない引数が指定されています: %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>予期しない引数が指定されています: %1</translation>
    </message>
    <message>
        <source>%1 excludes %2</source>
        <translation>%1 と %2 は同時に指定できません</translation>
    </message>
    <message>
        <source>%1: %2 required %3 missing</source>
        <translation>%1: 必要な %3 が %2 個足りません</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>使い方</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>オプション</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>サブコマンド</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>位置引数</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>必須</translation>
    </message>
    <message>
        <source>Env</source>
        <translation>環境変数</translation>
    </message>
    <message>
        <source>Excludes</source>
        <translation>併用不可</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>このヘルプを表示して終了します</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>オプション</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>サブコマンド</translation>
    </message>
    <message>
        <source>%1 not in %2</source>
        <translation>%1 は %2 のいずれでもありません</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>プログラムのバージョン情報を表示して終了します</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>言語</translation>
    </message>
    <message>
        <source>Texts are in the language that LANGUAGE names, else LC_ALL, LC_MESSAGES or LANG, where there is a translation and the
locale is in UTF-8. What the system and the stores tell is always English; so are all texts with --plain, --json or --format, the
manual page and the completion scripts.</source>
        <translation>テキストの言語は LANGUAGE、なければ LC_ALL、LC_MESSAGES、LANG によります (翻訳があり、ロケールが UTF-8 の場合)。
システムと設定ストアからのメッセージは常に英語です。--plain、--json、--format を指定したときのテキスト、
マニュアルページ、補完スクリプトも、すべて英語です。</translation>
    </message>
</context>
</TS>
