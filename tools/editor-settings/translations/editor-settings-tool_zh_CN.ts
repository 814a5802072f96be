<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Text</name>
    <message>
        <source>Did you mean %1?</source>
        <translation>您是否想用 %1？</translation>
    </message>
    <message>
        <source>Did you mean %1? &apos;%2 --help&apos; shows how it is used.</source>
        <translation>您是否想用 %1？用法可用 &apos;%2 --help&apos; 查看。</translation>
    </message>
    <message>
        <source>The verbs are %1 and %2.</source>
        <translation>命令有 %1 和 %2。</translation>
    </message>
    <message>
        <source>What follows %1 is one of %2 and %3.</source>
        <translation>%1 之后须为 %2 和 %3 之一。</translation>
    </message>
    <message>
        <source>(unset)</source>
        <translation>(未设置)</translation>
    </message>
    <message>
        <source>STORE</source>
        <translation>存储库</translation>
    </message>
    <message>
        <source>KEY</source>
        <translation>键</translation>
    </message>
    <message>
        <source>NOW</source>
        <translation>当前</translation>
    </message>
    <message>
        <source>IN THE BACKUP</source>
        <translation>备份中</translation>
    </message>
    <message numerus="yes">
        <source>the %1 store of %2: %n values would change</source>
        <comment>the %1 store of %2: %n value would change</comment>
        <translation>
            <numerusform>%1 存储库（%2 的备份）：将有 %n 个值改变</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the %1 store of %2: %n values differ from before</source>
        <comment>the %1 store of %2: %n value differs from before</comment>
        <translation>
            <numerusform>%1 存储库（%2 的备份）：有 %n 个值与之前不同</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; what was there is kept in %2</source>
        <translation>%1；原有内容保留在 %2 中</translation>
    </message>
    <message>
        <source>there is no store yet, so there is nothing to back up</source>
        <translation>还没有存储库，因此没有可备份的内容</translation>
    </message>
    <message>
        <source>copying the stores</source>
        <translation>正在复制存储库</translation>
    </message>
    <message>
        <source>reading the copy</source>
        <translation>正在读取副本</translation>
    </message>
    <message numerus="yes">
        <source>the %1 store is backed up with %n values</source>
        <comment>the %1 store is backed up with %n value</comment>
        <translation>
            <numerusform>%1 存储库已备份，共 %n 个值</numerusform>
        </translation>
    </message>
    <message>
        <source>reading the backup</source>
        <translation>正在读取备份</translation>
    </message>
    <message>
        <source>restoring the %1 store</source>
        <translation>正在恢复 %1 存储库</translation>
    </message>
    <message>
        <source>the backup holds no %1 store, so that one stays as it is</source>
        <translation>备份中没有 %1 存储库，因此该存储库保持不变</translation>
    </message>
    <message>
        <source>%1 is written by the editor alone, so it cannot be set; &apos;editor-settings unset&apos; removes it</source>
        <translation>%1 只由编辑器写入，因此不能设置；&apos;editor-settings unset&apos; 可将其删除</translation>
    </message>
    <message>
        <source>%1 is kept in memory only by a product of this kind, so it cannot be set from outside the editor</source>
        <translation>在此类产品中，%1 只保存在内存中，因此不能从编辑器外部设置</translation>
    </message>
    <message>
        <source>TYPE</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>STATE</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>VALUE</source>
        <translation>值</translation>
    </message>
    <message>
        <source>%1 holds a value of kind %2 that cannot be read, so the default is read; &apos;editor-settings explain %1&apos; shows both</source>
        <translation>%1 含有无法读取的 %2 种类的值，因此读到的是默认值；&apos;editor-settings explain %1&apos; 会显示这两个值</translation>
    </message>
    <message>
        <source>%1 holds a value of kind %2, so the default is read; &apos;editor-settings explain %1&apos; shows both</source>
        <translation>%1 含有 %2 种类的值，因此读到的是默认值；&apos;editor-settings explain %1&apos; 会显示这两个值</translation>
    </message>
    <message>
        <source>%1 was not set</source>
        <translation>%1 原本就未设置</translation>
    </message>
    <message>
        <source>key</source>
        <translation>键</translation>
    </message>
    <message>
        <source>type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>class</source>
        <translation>类别</translation>
    </message>
    <message>
        <source>store</source>
        <translation>存储库</translation>
    </message>
    <message>
        <source>file</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>state</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>stored</source>
        <translation>已保存的值</translation>
    </message>
    <message>
        <source>stored kind</source>
        <translation>已保存的种类</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>已更改</translation>
    </message>
    <message>
        <source>default</source>
        <translation>默认值</translation>
    </message>
    <message>
        <source>computed by</source>
        <translation>计算来源</translation>
    </message>
    <message>
        <source>nothing: it is fixed</source>
        <translation>无：固定不变</translation>
    </message>
    <message>
        <source>value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>default name</source>
        <translation>默认名称</translation>
    </message>
    <message>
        <source>extensions</source>
        <translation>扩展名</translation>
    </message>
    <message>
        <source>extension for saving</source>
        <translation>保存时的扩展名</translation>
    </message>
    <message>
        <source>save filter</source>
        <translation>保存过滤器</translation>
    </message>
    <message>
        <source>open filter</source>
        <translation>打开过滤器</translation>
    </message>
    <message>
        <source>sample project</source>
        <translation>示例项目</translation>
    </message>
    <message>
        <source>there is no sample project below %1</source>
        <translation>%1 下没有示例项目</translation>
    </message>
    <message>
        <source>set HOME to the folder of the user whom the editor runs for</source>
        <translation>请将 HOME 设置为运行编辑器的用户的文件夹</translation>
    </message>
    <message>
        <source>looking at the %1 store</source>
        <translation>正在检查 %1 存储库</translation>
    </message>
    <message>
        <source>looking at the names of recordings</source>
        <translation>正在检查录音的名称</translation>
    </message>
    <message>
        <source>looking at the names of freeze frames</source>
        <translation>正在检查定格帧的名称</translation>
    </message>
    <message>
        <source>looking at the names of stabilized clips</source>
        <translation>正在检查防抖剪辑的名称</translation>
    </message>
    <message>
        <source>looking at the folders that the editor writes to</source>
        <translation>正在检查编辑器写入的文件夹</translation>
    </message>
    <message>
        <source>opening the stores</source>
        <translation>正在打开存储库</translation>
    </message>
    <message>
        <source>nothing else can be looked at without it: mend it, or name another with --product</source>
        <translation>没有它就无法检查其他内容：请修复它，或用 --product 指定另一个</translation>
    </message>
    <message>
        <source>note</source>
        <translation>附注</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>不存在</translation>
    </message>
    <message>
        <source>unusable</source>
        <translation>不可用</translation>
    </message>
    <message>
        <source>usable</source>
        <translation>可用</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>只读</translation>
    </message>
    <message>
        <source>%1 (%2 store)</source>
        <translation>%1（%2 存储库）</translation>
    </message>
    <message>
        <source>%1, schema %2, journal mode %3</source>
        <translation>%1，架构 %2，日志模式 %3</translation>
    </message>
    <message>
        <source>%1, on %2</source>
        <translation>%1，文件系统 %2</translation>
    </message>
    <message>
        <source>%1, on %2 at %3</source>
        <translation>%1，文件系统 %2，挂载点 %3</translation>
    </message>
    <message numerus="yes">
        <source>%n errors</source>
        <comment>%n error</comment>
        <translation>
            <numerusform>%n 个错误</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warnings</source>
        <comment>%n warning</comment>
        <translation>
            <numerusform>%n 个警告</numerusform>
        </translation>
    </message>
    <message>
        <source>all is well</source>
        <translation>一切正常</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>product file</source>
        <translation>产品文件</translation>
    </message>
    <message>
        <source>%1 store</source>
        <translation>%1 存储库</translation>
    </message>
    <message>
        <source>the folder of the store cannot be used: %1, so no store can be made</source>
        <translation>存储库所在的文件夹不可用：%1，因此无法创建存储库</translation>
    </message>
    <message>
        <source>the folder of the store cannot be used: %1, so no change can be stored</source>
        <translation>存储库所在的文件夹不可用：%1，因此无法保存更改</translation>
    </message>
    <message>
        <source>give this user the rights to the folder, or name another with --home</source>
        <translation>请授予此用户对该文件夹的权限，或用 --home 指定另一个文件夹</translation>
    </message>
    <message>
        <source>nothing is stored there yet</source>
        <translation>那里还没有保存任何内容</translation>
    </message>
    <message>
        <source>nothing to do: the store is made when something is stored</source>
        <translation>无需处理：保存内容时会创建存储库</translation>
    </message>
    <message>
        <source>other users may read or change it: its mode is %1</source>
        <translation>其他用户可以读取或更改它：其权限为 %1</translation>
    </message>
    <message>
        <source>it belongs to another user, %1</source>
        <translation>它属于另一个用户 %1</translation>
    </message>
    <message>
        <source>run this program and the editor as that user, or give the file to %1</source>
        <translation>请以该用户的身份运行本程序和编辑器，或将文件的所有者改为 %1</translation>
    </message>
    <message>
        <source>a journal of %1 bytes lies there: its store is gone, and no new one is made beside it</source>
        <translation>那里有一个 %1 字节的日志：它的存储库已不存在，并且不会在它旁边创建新的存储库</translation>
    </message>
    <message>
        <source>bring the store back beside its journal, or move the journal away</source>
        <translation>请将存储库放回其日志旁边，或移走日志</translation>
    </message>
    <message>
        <source>a journal of %1 bytes lies there: a change is being made right now, or was interrupted</source>
        <translation>那里有一个 %1 字节的日志：正在进行更改，或更改被中断</translation>
    </message>
    <message>
        <source>look again in a moment; where it stays, leave it beside the store and start the editor, which undoes the change</source>
        <translation>请稍后再看；如果日志仍在，请将它留在存储库旁边并启动编辑器，编辑器会撤销该更改</translation>
    </message>
    <message>
        <source>a file system without a name</source>
        <translation>没有名称的文件系统</translation>
    </message>
    <message>
        <source>keep the stores on a local disk: move the data folder there (XDG_DATA_HOME), or name a folder with --home</source>
        <translation>请将存储库放在本地磁盘上：将数据文件夹移到那里（XDG_DATA_HOME），或用 --home 指定一个文件夹</translation>
    </message>
    <message>
        <source>it lies on %1, which may only be read, so nothing can be stored</source>
        <translation>它位于 %1 上，该处只读，因此无法保存任何内容</translation>
    </message>
    <message>
        <source>mount it for writing, or name another folder with --home</source>
        <translation>请以可写方式挂载，或用 --home 指定另一个文件夹</translation>
    </message>
    <message>
        <source>it lies on %1, where locks do not hold between machines, so that two editors can damage it</source>
        <translation>它位于 %1 上，该处的锁在不同机器之间无效，因此两个编辑器同时使用可能会将其损坏</translation>
    </message>
    <message>
        <source>it lies on %1, which has no hard links, so that no store can be made there</source>
        <translation>它位于 %1 上，该处不支持硬链接，因此无法在那里创建存储库</translation>
    </message>
    <message>
        <source>it lies on %1, which is kept in memory, so that all is lost with a restart</source>
        <translation>它位于 %1 上，该处的内容保存在内存中，因此重启后会全部丢失</translation>
    </message>
    <message>
        <source>it lies on %1, of which it cannot be told whether locks hold there</source>
        <translation>它位于 %1 上，无法判断该处的锁是否有效</translation>
    </message>
    <message>
        <source>nothing to do where the disk is local; else %1</source>
        <translation>如果磁盘在本地，则无需处理；否则，%1</translation>
    </message>
    <message>
        <source>it belongs in the %1 store and is not read here</source>
        <translation>它属于 %1 存储库，不会从这里读取</translation>
    </message>
    <message>
        <source>&apos;editor-settings explain %1&apos; shows what is read; what lies here is kept</source>
        <translation>&apos;editor-settings explain %1&apos; 会显示读到的值；这里的内容会保留</translation>
    </message>
    <message>
        <source>the library knows no such key; it is kept</source>
        <translation>程序库中没有这个键；它会保留</translation>
    </message>
    <message>
        <source>nothing to do where a later version or another program stored it</source>
        <translation>如果它是由更新的版本或其他程序保存的，则无需处理</translation>
    </message>
    <message>
        <source>have the program that keeps it store it anew</source>
        <translation>请让保存它的程序重新保存</translation>
    </message>
    <message>
        <source>the rational has no %1, so a read mixes it with a default</source>
        <translation>此有理数缺少 %1，因此读取时会与默认值混在一起</translation>
    </message>
    <message>
        <source>the rational&apos;s %1 is no int, so a read mixes it with a default</source>
        <translation>此有理数的 %1 不是 int，因此读取时会与默认值混在一起</translation>
    </message>
    <message>
        <source>the rational&apos;s denominator is 0, so every read of it fails</source>
        <translation>此有理数的分母为 0，因此每次读取都会失败</translation>
    </message>
    <message>
        <source>the library knows no such rational; it is kept</source>
        <translation>程序库中没有这个有理数；它会保留</translation>
    </message>
    <message>
        <source>&apos;editor-settings unset %1&apos; removes it, so that the default holds</source>
        <translation>&apos;editor-settings unset %1&apos; 可将其删除，从而使用默认值</translation>
    </message>
    <message>
        <source>store it anew: &apos;editor-settings set %1 VALUE&apos;</source>
        <translation>请重新保存：&apos;editor-settings set %1 VALUE&apos;</translation>
    </message>
    <message>
        <source>have the editor store it anew</source>
        <translation>请让编辑器重新保存</translation>
    </message>
    <message>
        <source>it holds a value of kind %1 where one of kind %2 is read, so the default is read</source>
        <translation>它含有 %1 种类的值，而此处读取的是 %2 种类的值，因此读到的是默认值</translation>
    </message>
    <message>
        <source>it holds a value of kind %1 that cannot be read, so the default is read</source>
        <translation>它含有无法读取的 %1 种类的值，因此读到的是默认值</translation>
    </message>
    <message>
        <source>it holds text that is not UTF-8, so it is not read as it is stored</source>
        <translation>它含有非 UTF-8 的文本，因此读到的内容与保存的不同</translation>
    </message>
    <message>
        <source>the stored list would be another one when it is read and stored again, as it has empty elements or a part of the separator</source>
        <translation>已保存的列表含有空元素或分隔符的一部分，因此读取后再次保存会变成另一个列表</translation>
    </message>
    <message>
        <source>it holds %1, at the edge of its range: counting on would leave it</source>
        <translation>它的值为 %1，处于范围的边界：继续计数将超出范围</translation>
    </message>
    <message>
        <source>move the file with the highest number out of the folder, or store another folder in %1</source>
        <translation>请将编号最大的文件移出该文件夹，或在 %1 中保存另一个文件夹</translation>
    </message>
    <message>
        <source>the running number has passed 2147483647 and counts no further; the next is %1</source>
        <translation>流水号已超过 2147483647，不再递增；下一个是 %1</translation>
    </message>
    <message>
        <source>the running number nears its end at 2147483647; the next is %1</source>
        <translation>流水号已接近上限 2147483647；下一个是 %1</translation>
    </message>
    <message numerus="yes">
        <source>%n more names in the folder with numbers near 2147483647 were not looked at</source>
        <comment>%n more names in the folder with numbers near 2147483647 were not looked at</comment>
        <translation>
            <numerusform>该文件夹中还有 %n 个编号接近 2147483647 的名称未检查</numerusform>
        </translation>
    </message>
    <message>
        <source>move them out of the folder, or look again when those above are mended</source>
        <translation>请将它们移出该文件夹，或在修复以上问题后再次检查</translation>
    </message>
    <message>
        <source>%1: the editor cannot write there: %2</source>
        <translation>%1：编辑器无法写入该处：%2</translation>
    </message>
    <message>
        <source>mend what is remarked: &apos;editor-settings paths --explain&apos; tells what decides, and a preference may be set to another folder</source>
        <translation>请修复所指出的问题：&apos;editor-settings paths --explain&apos; 会说明决定因素，也可以将首选项设置为另一个文件夹</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>make it readable, or set the preference to another folder</source>
        <translation>请使其可读，或将首选项设置为另一个文件夹</translation>
    </message>
    <message>
        <source>not there yet: %1</source>
        <translation>尚不存在：%1</translation>
    </message>
    <message>
        <source>nothing to do: the editor makes them when it writes there</source>
        <translation>无需处理：编辑器写入时会创建它们</translation>
    </message>
    <message>
        <source>Every preference whose key ends in Path.</source>
        <translation>键以 Path 结尾的所有首选项。</translation>
    </message>
    <message>
        <source>What is stored, one preference a line, for a script.</source>
        <translation>已保存的内容，每行一个首选项，供脚本使用。</translation>
    </message>
    <message>
        <source>The folder that the editor exports to.</source>
        <translation>编辑器的导出文件夹。</translation>
    </message>
    <message>
        <source>A list in a form that every program reads alike.</source>
        <translation>以各种程序都能一致读取的形式显示列表。</translation>
    </message>
    <message>
        <source>Stores false.</source>
        <translation>保存 false。</translation>
    </message>
    <message>
        <source>Stores another folder; the editor makes it.</source>
        <translation>保存另一个文件夹；该文件夹由编辑器创建。</translation>
    </message>
    <message>
        <source>Stores a list of two.</source>
        <translation>保存含两个元素的列表。</translation>
    </message>
    <message>
        <source>Stores a value that looks like an option.</source>
        <translation>保存一个看起来像选项的值。</translation>
    </message>
    <message>
        <source>From now on the default holds.</source>
        <translation>从此使用默认值。</translation>
    </message>
    <message>
        <source>Whether it is stored, where and since when, and what the default is.</source>
        <translation>是否已保存、保存在何处、从何时起，以及默认值是什么。</translation>
    </message>
    <message>
        <source>What a new project is called, and which files the editor opens.</source>
        <translation>新项目的名称，以及编辑器可打开的文件。</translation>
    </message>
    <message>
        <source>The favourites of the list &quot;fonts&quot;.</source>
        <translation>列表 &quot;fonts&quot; 的收藏。</translation>
    </message>
    <message>
        <source>What is kept for the indication &quot;tour&quot;, in base64.</source>
        <translation>为提示 &quot;tour&quot; 保存的内容，以 base64 表示。</translation>
    </message>
    <message>
        <source>Stores the bytes of the file tour.state for it.</source>
        <translation>为它保存文件 tour.state 的字节。</translation>
    </message>
    <message>
        <source>The finished ones, one a line.</source>
        <translation>已完成的教程，每行一个。</translation>
    </message>
    <message>
        <source>Forgets them all.</source>
        <translation>将它们全部清除。</translation>
    </message>
    <message>
        <source>Stores these two in the place of those before.</source>
        <translation>保存这两种颜色，取代之前的颜色。</translation>
    </message>
    <message>
        <source>The text in which the editor keeps them.</source>
        <translation>编辑器用来保存它们的文本。</translation>
    </message>
    <message>
        <source>Every location whose name begins with stock.</source>
        <translation>名称以 stock 开头的所有位置。</translation>
    </message>
    <message>
        <source>What decides where exports go.</source>
        <translation>决定导出位置的因素。</translation>
    </message>
    <message>
        <source>Whether the editor can write wherever it writes to.</source>
        <translation>编辑器能否写入它要写入的所有位置。</translation>
    </message>
    <message>
        <source>The file that the next recording goes into.</source>
        <translation>下一次录音要写入的文件。</translation>
    </message>
    <message>
        <source>Makes an empty file of the next name, and prints that.</source>
        <translation>以下一个名称创建空文件，并输出该名称。</translation>
    </message>
    <message>
        <source>The path on one line, whatever its folder is called.</source>
        <translation>在一行内输出路径，无论其文件夹叫什么。</translation>
    </message>
    <message>
        <source>The next freeze frame of that film.</source>
        <translation>该影片的下一个定格帧。</translation>
    </message>
    <message>
        <source>The next stabilized clip of it.</source>
        <translation>该影片的下一个防抖剪辑。</translation>
    </message>
    <message>
        <source>Copies both stores into that file.</source>
        <translation>将两个存储库复制到该文件中。</translation>
    </message>
    <message>
        <source>What would be otherwise than now.</source>
        <translation>与现在不同之处。</translation>
    </message>
    <message>
        <source>Brings the stores back, and tells where those of now are kept.</source>
        <translation>恢复存储库，并告知现有内容保留在何处。</translation>
    </message>
    <message>
        <source>A line for each change, until Ctrl+C.</source>
        <translation>每次更改一行，直到按下 Ctrl+C。</translation>
    </message>
    <message>
        <source>What is wrong and what to do; exit status 0 where all is well.</source>
        <translation>有什么问题以及如何处理；一切正常时退出状态为 0。</translation>
    </message>
    <message>
        <source>The same, for somebody who helps.</source>
        <translation>同样的内容，供协助者查看。</translation>
    </message>
    <message>
        <source>Writes all that is stored.</source>
        <translation>导出所有已保存的内容。</translation>
    </message>
    <message>
        <source>The same without what is personal, on standard output.</source>
        <translation>同样的内容，但不含个人信息，写到标准输出。</translation>
    </message>
    <message>
        <source>What would change.</source>
        <translation>将会改变的内容。</translation>
    </message>
    <message>
        <source>Stores what belongs to the user rather than to the machine.</source>
        <translation>保存属于用户而非机器的内容。</translation>
    </message>
    <message>
        <source>What is stored otherwise than in the file; exit status 1, as something is.</source>
        <translation>已保存的内容中与文件不同之处；由于有不同，退出状态为 1。</translation>
    </message>
    <message>
        <source>Nothing, as the two are alike.</source>
        <translation>没有内容，因为两者相同。</translation>
    </message>
    <message>
        <source>A script for bash: source editor-settings.bash</source>
        <translation>用于 bash 的脚本：source editor-settings.bash</translation>
    </message>
    <message>
        <source>The page in a file: man ./editor-settings.1</source>
        <translation>存为文件的手册页：man ./editor-settings.1</translation>
    </message>
    <message>
        <source>Examples:</source>
        <translation>示例：</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>为空</translation>
    </message>
    <message>
        <source>holds a NUL, at which the system would cut it off</source>
        <translation>含有 NUL，系统会在该处将其截断</translation>
    </message>
    <message>
        <source>not absolute: it depends on the folder that the editor is started in</source>
        <translation>不是绝对路径：取决于启动编辑器时所在的文件夹</translation>
    </message>
    <message>
        <source>dangling link to %1</source>
        <translation>失效的链接，指向 %1</translation>
    </message>
    <message>
        <source>missing, and %1: %2</source>
        <translation>不存在，并且 %1：%2</translation>
    </message>
    <message>
        <source>missing, and %1 is not a folder</source>
        <translation>不存在，并且 %1 不是文件夹</translation>
    </message>
    <message>
        <source>missing, and %1 is not writable</source>
        <translation>不存在，并且 %1 不可写</translation>
    </message>
    <message>
        <source>missing; the editor can make it</source>
        <translation>不存在；编辑器可以创建</translation>
    </message>
    <message>
        <source>not a folder</source>
        <translation>不是文件夹</translation>
    </message>
    <message>
        <source>not writable</source>
        <translation>不可写</translation>
    </message>
    <message>
        <source>not readable, so names are numbered as if it were empty</source>
        <translation>不可读，因此按空文件夹编号</translation>
    </message>
    <message>
        <source>the home folder itself</source>
        <translation>就是主文件夹本身</translation>
    </message>
    <message>
        <source>HOME is not set, so / is taken for the home folder</source>
        <translation>HOME 未设置，因此将 / 视为主文件夹</translation>
    </message>
    <message>
        <source>HOME is %1, which depends on the folder that a program is started in</source>
        <translation>HOME 为 %1，取决于启动程序时所在的文件夹</translation>
    </message>
    <message>
        <source>HOME is %1, which is not a folder</source>
        <translation>HOME 为 %1，它不是文件夹</translation>
    </message>
    <message>
        <source>HOME is %1, which is not there</source>
        <translation>HOME 为 %1，它不存在</translation>
    </message>
    <message>
        <source>cannot read %1 (%2); name a file that can be read, or give - for standard input</source>
        <translation>无法读取 %1（%2）；请指定可读的文件，或用 - 表示标准输入</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>它是文件夹</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>它不是普通文件</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>标准输入</translation>
    </message>
    <message>
        <source>%1 holds more than %2 bytes, which is too much; name a smaller one</source>
        <translation>%1 超过 %2 字节，太大；请指定更小的文件</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1：</translation>
    </message>
    <message>
        <source>watching both stores; Ctrl+C ends it</source>
        <translation>正在监视两个存储库；按 Ctrl+C 结束</translation>
    </message>
    <message>
        <source>%1 is not UTF-8 without a byte order mark; give the name in UTF-8</source>
        <translation>%1 不是不带字节顺序标记的 UTF-8；请以 UTF-8 给出名称</translation>
    </message>
    <message>
        <source>%1 is longer than a path can be; give the name of a file</source>
        <translation>%1 超出了路径的最大长度；请给出文件的名称</translation>
    </message>
    <message>
        <source>nothing can be reserved in %1, which is %2: %3; store another folder there, or mend that</source>
        <translation>无法在 %1（即 %2）中预留名称：%3；请为该首选项保存另一个文件夹，或修复此问题</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile; try again</source>
        <translation>%1 在此期间已被更改；请重试</translation>
    </message>
    <message>
        <source>the name %1 would not lie in %2 as it is; take a format without &quot;/&quot; and NUL</source>
        <translation>名称 %1 无法原样放在 %2 中；请使用不含 &quot;/&quot; 和 NUL 的格式</translation>
    </message>
    <message>
        <source>take a source with a shorter name</source>
        <translation>请使用名称更短的源文件</translation>
    </message>
    <message>
        <source>&apos;editor-settings paths --check&apos; tells which folders can be used</source>
        <translation>&apos;editor-settings paths --check&apos; 会显示哪些文件夹可用</translation>
    </message>
    <message>
        <source>cannot make the file %1 (%2); %3</source>
        <translation>无法创建文件 %1（%2）；%3</translation>
    </message>
    <message>
        <source>cannot make the folder %1 (%2); %3</source>
        <translation>无法创建文件夹 %1（%2）；%3</translation>
    </message>
    <message>
        <source>%1 is there already, though the editor would propose it</source>
        <translation>%1 已存在，尽管编辑器仍会建议使用它</translation>
    </message>
    <message>
        <source>%1 was taken by someone else meanwhile</source>
        <translation>%1 在此期间已被占用</translation>
    </message>
    <message>
        <source>%1; %2 is reserved instead</source>
        <translation>%1；改为预留 %2</translation>
    </message>
    <message>
        <source>%1 is reserved, but standard output cannot be written; remove the file if it is not wanted</source>
        <translation>%1 已预留，但无法写入标准输出；如不需要，请删除该文件</translation>
    </message>
    <message>
        <source>%1 takes nothing after it</source>
        <translation>%1 之后不能有参数</translation>
    </message>
    <message>
        <source>%1 is not UTF-8 without a byte order mark; give it as the editor does</source>
        <translation>%1 不是不带字节顺序标记的 UTF-8；请按编辑器的写法给出</translation>
    </message>
    <message>
        <source>there is no location %1; %2&apos;editor-settings paths&apos; shows all</source>
        <translation>没有位置 %1；%2&apos;editor-settings paths&apos; 会显示所有位置</translation>
    </message>
    <message>
        <source>say what %1 is asked about: &apos;editor-settings paths %1 %2&apos;</source>
        <translation>请给出 %1 的参数：&apos;editor-settings paths %1 %2&apos;</translation>
    </message>
    <message>
        <source>&apos; or &apos;</source>
        <translation>&apos; 或 &apos;</translation>
    </message>
    <message>
        <source>nothing goes after a pattern; name one location</source>
        <translation>模式之后不能有参数；请指定一个位置</translation>
    </message>
    <message>
        <source>nothing else: an absolute path stands for itself</source>
        <translation>没有其他因素：绝对路径直接使用</translation>
    </message>
    <message>
        <source>%1 is stored in %2</source>
        <translation>%1 保存在 %2 中</translation>
    </message>
    <message>
        <source>%1 is stored with a value of another kind in %2, so %3 holds</source>
        <translation>%1 在 %2 中保存为另一种类的值，因此使用 %3</translation>
    </message>
    <message>
        <source>%1 is not stored in %2, so %3 holds</source>
        <translation>%1 未保存在 %2 中，因此使用 %3</translation>
    </message>
    <message>
        <source>location</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>path</source>
        <translation>路径</translation>
    </message>
    <message>
        <source>use</source>
        <translation>用途</translation>
    </message>
    <message>
        <source>decided by</source>
        <translation>决定因素</translation>
    </message>
    <message>
        <source>none found</source>
        <translation>未找到</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>no</source>
        <translation>否</translation>
    </message>
    <message>
        <source>LOCATION</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>EXISTS</source>
        <translation>存在</translation>
    </message>
    <message>
        <source>WRITABLE</source>
        <translation>可写</translation>
    </message>
    <message>
        <source>REMARK</source>
        <translation>备注</translation>
    </message>
    <message>
        <source>PATH</source>
        <translation>路径</translation>
    </message>
    <message>
        <source>the editor cannot write to %1; mend what is remarked: &apos;editor-settings paths NAME --explain&apos; tells what decides, and a preference may be set to another folder</source>
        <translation>编辑器无法写入 %1；请修复备注中的问题：&apos;editor-settings paths NAME --explain&apos; 会说明决定因素，也可以将首选项设置为另一个文件夹</translation>
    </message>
    <message>
        <source>unreadable</source>
        <translation>无法读取</translation>
    </message>
    <message>
        <source>other kind</source>
        <translation>其他种类</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>已删除</translation>
    </message>
    <message>
        <source>set</source>
        <translation>已设置</translation>
    </message>
    <message>
        <source>added</source>
        <translation>已添加</translation>
    </message>
    <message>
        <source>step %1 of %2: %3</source>
        <translation>第 %1 步，共 %2 步：%3</translation>
    </message>
    <message>
        <source>unset</source>
        <translation>未设置</translation>
    </message>
    <message>
        <source>set to default</source>
        <translation>设为默认值</translation>
    </message>
    <message>
        <source>%1 is reserved: the editor neither reads nor writes it, so it cannot be reached</source>
        <translation>%1 是保留的：编辑器既不读取也不写入它，因此无法访问</translation>
    </message>
    <message>
        <source>%1 is a location and no preference; &apos;editor-settings paths %1&apos; shows it</source>
        <translation>%1 是位置而不是首选项；&apos;editor-settings paths %1&apos; 会显示它</translation>
    </message>
    <message>
        <source>there is no preference %1; %2&apos;editor-settings list&apos; shows all</source>
        <translation>没有首选项 %1；%2&apos;editor-settings list&apos; 会显示所有首选项</translation>
    </message>
    <message>
        <source>the name %1 is not UTF-8 without a byte order mark; give it as the editor writes it</source>
        <translation>名称 %1 不是不带字节顺序标记的 UTF-8；请按编辑器的写法给出</translation>
    </message>
    <message>
        <source>(unreadable)</source>
        <translation>(无法读取)</translation>
    </message>
    <message>
        <source>holds a value of kind %1 that this version cannot read</source>
        <translation>含有本版本无法读取的 %1 种类的值</translation>
    </message>
    <message>
        <source>has a NUL in its key</source>
        <translation>的键中含有 NUL</translation>
    </message>
    <message>
        <source>reading the %1 store</source>
        <translation>正在读取 %1 存储库</translation>
    </message>
    <message>
        <source>a key in the %1 store holds the path of the home folder, so it is left out</source>
        <translation>%1 存储库中有一个键含有主文件夹的路径，因此已将其略去</translation>
    </message>
    <message>
        <source>%1 in the %2 store %3, so it is left out; &apos;editor-settings backup&apos; keeps it</source>
        <translation>%2 存储库中的 %1 %3，因此已将其略去；&apos;editor-settings backup&apos; 会保留它</translation>
    </message>
    <message>
        <source>writing the file</source>
        <translation>正在写入文件</translation>
    </message>
    <message>
        <source>%1 is there already and was left as it is; name a new file, or move that one away</source>
        <translation>%1 已存在，保持不变；请指定一个新文件，或移走现有文件</translation>
    </message>
    <message>
        <source>%1 in the %2 store %3, so it is not compared</source>
        <translation>%2 存储库中的 %1 %3，因此不作比较</translation>
    </message>
    <message>
        <source>comparing with the %1 store</source>
        <translation>正在与 %1 存储库比较</translation>
    </message>
    <message>
        <source>(absent)</source>
        <translation>(无)</translation>
    </message>
    <message>
        <source>CHANGE</source>
        <translation>更改</translation>
    </message>
    <message>
        <source>STORED</source>
        <translation>已保存</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>reading the file</source>
        <translation>正在读取文件</translation>
    </message>
    <message numerus="yes">
        <source>%n redacted in the file, so not compared</source>
        <comment>%n redacted in the file, so not compared</comment>
        <translation>
            <numerusform>文件中已隐去 %n 项，因此未作比较</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; nothing was changed</source>
        <translation>%1；未作任何更改</translation>
    </message>
    <message>
        <source>the %1 store is as it was</source>
        <translation>%1 存储库保持原样</translation>
    </message>
    <message>
        <source>the %1 store holds the imported values</source>
        <translation>%1 存储库已含有导入的值</translation>
    </message>
    <message>
        <source>the %1 store cannot be read</source>
        <translation>无法读取 %1 存储库</translation>
    </message>
    <message>
        <source>changing the %1 store</source>
        <translation>正在更改 %1 存储库</translation>
    </message>
    <message>
        <source>%1; %2; then import the file again</source>
        <translation>%1；%2；然后请再次导入该文件</translation>
    </message>
    <message numerus="yes">
        <source>%n would change</source>
        <comment>%n would change</comment>
        <translation>
            <numerusform>将更改 %n 项</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n changed</source>
        <comment>%n changed</comment>
        <translation>
            <numerusform>已更改 %n 项</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n already as in the file</source>
        <comment>%n already as in the file</comment>
        <translation>
            <numerusform>%n 项已与文件相同</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n redacted in the file and left alone</source>
        <comment>%n redacted in the file and left alone</comment>
        <translation>
            <numerusform>文件中已隐去 %n 项，保持不变</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is a bool and cannot be %2; %3</source>
        <translation>%1 是 bool 类型，不能为 %2；%3</translation>
    </message>
    <message>
        <source>%1 is an int and cannot be %2; %3</source>
        <translation>%1 是 int 类型，不能为 %2；%3</translation>
    </message>
    <message>
        <source>%1 is a text and cannot be %2; %3</source>
        <translation>%1 是 text 类型，不能为 %2；%3</translation>
    </message>
    <message>
        <source>%1 holds bytes and cannot be %2; %3</source>
        <translation>%1 是 bytes 类型，不能为 %2；%3</translation>
    </message>
    <message>
        <source>%1 is a list and cannot be %2; %3</source>
        <translation>%1 是 list 类型，不能为 %2；%3</translation>
    </message>
    <message>
        <source>give text in UTF-8 without a byte order mark, as anything else would not come back unchanged</source>
        <translation>请给出不带字节顺序标记的 UTF-8 文本，其他内容读回后会改变</translation>
    </message>
    <message>
        <source>give true or false (or yes, no, on, off, 1, 0)</source>
        <translation>请给出 true 或 false（也可用 yes、no、on、off、1、0）</translation>
    </message>
    <message>
        <source>give a whole number from -2147483648 to 2147483647</source>
        <translation>请给出 -2147483648 到 2147483647 之间的整数</translation>
    </message>
    <message>
        <source>%1: cannot read %2 (%3); %4</source>
        <translation>%1：无法读取 %2（%3）；%4</translation>
    </message>
    <message>
        <source>%1: cannot read standard input (%2); give it a file or a pipe</source>
        <translation>%1：无法读取标准输入（%2）；请提供文件或管道</translation>
    </message>
    <message>
        <source>name a file that can be read after the @</source>
        <translation>请在 @ 之后指定可读的文件</translation>
    </message>
    <message>
        <source>give the bytes in base64, or @FILE to read them from a file</source>
        <translation>请以 base64 给出字节，或用 @FILE 从文件读取</translation>
    </message>
    <message>
        <source>an empty element is lost when the list is read back; leave it out (--empty stores an empty list)</source>
        <translation>读回列表时空元素会丢失；请将其去掉（--empty 保存空列表）</translation>
    </message>
    <message>
        <source>the element holds the separator of stored lists and would come back in pieces</source>
        <translation>该元素含有已保存列表的分隔符，读回时会被拆开</translation>
    </message>
    <message>
        <source>together with the element before it, it makes up the separator of stored lists and would come back otherwise</source>
        <translation>它与前一个元素连在一起构成已保存列表的分隔符，读回时会有所不同</translation>
    </message>
    <message>
        <source>%1 takes one value, not %2; %3</source>
        <translation>%1 接受一个值，而不是 %2 个；%3</translation>
    </message>
    <message>
        <source>--empty is for lists</source>
        <translation>--empty 只用于列表</translation>
    </message>
    <message>
        <source>put quotes around a value with blanks</source>
        <translation>请给含有空格的值加上引号</translation>
    </message>
    <message>
        <source>name a file that can be read</source>
        <translation>请指定可读的文件</translation>
    </message>
    <message>
        <source>Exit status</source>
        <translation>退出状态</translation>
    </message>
    <message>
        <source>  0  done
  1  said no: unknown key, wrong value, trouble with a store or the product file, a folder that cannot be used,
     or doctor found something wrong
  2  wrong usage
diff ends with 0 where nothing differs, with 1 where something does, and with 2 for everything else.</source>
        <translation>  0  完成
  1  拒绝：未知的键、错误的值、存储库或产品文件有问题、文件夹不可用，
     或 doctor 发现问题
  2  用法错误
diff 在没有不同时以 0 结束，有不同时以 1 结束，其他情况以 2 结束。</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>Values are printed to standard output, reasons to standard error. With --plain a backslash is printed as \\, a tab
as \t, line breaks as \n and \r, other control characters and bytes that are not UTF-8 as \xHH, and a list as a JSON array.
A terminal is sent no control characters but tabs, line breaks and the codes of colours. An answer that could not be
printed whole is an error.</source>
        <translation>值输出到标准输出，原因输出到标准错误。使用 --plain 时，反斜杠输出为 \\，制表符为 \t，换行符为 \n 和 \r，
其他控制字符和非 UTF-8 的字节为 \xHH，列表为 JSON 数组。
除制表符、换行符和颜色代码外，不向终端发送控制字符。
未能完整输出的答复视为错误。</translation>
    </message>
    <message>
        <source>On a terminal</source>
        <translation>在终端上</translation>
    </message>
    <message>
        <source>What is longer than the screen is shown by the program that EDITOR_SETTINGS_PAGER names, else PAGER, else
&quot;less&quot;; an empty name and &quot;cat&quot; stand for none. Columns line up there; elsewhere a tab stands between each two. Colours say
nothing that the words do not say; NO_COLOR, or &quot;dumb&quot; in TERM, leaves them out. What takes longer than a second tells
meanwhile which step it is at, where standard error is a terminal.</source>
        <translation>超出屏幕的内容由 EDITOR_SETTINGS_PAGER 指定的程序显示，否则由 PAGER 指定的程序显示，再否则由 &quot;less&quot; 显示；
空名称和 &quot;cat&quot; 表示不使用。在终端上各列对齐；在其他地方各列以制表符分隔。
颜色所表示的，文字都会说明；设置了 NO_COLOR 或 TERM 为 &quot;dumb&quot; 时，不使用颜色。
耗时超过一秒时，如果标准错误是终端，则显示当前进行到哪一步。</translation>
    </message>
    <message>
        <source>Words that look like options</source>
        <translation>看起来像选项的词</translation>
    </message>
    <message>
        <source>A value that begins with &quot;-&quot; goes after &quot;--&quot;: editor-settings set lastTarget -- -x</source>
        <translation>以 &quot;-&quot; 开头的值要放在 &quot;--&quot; 之后：editor-settings set lastTarget -- -x</translation>
    </message>
    <message>
        <source>the name is empty; name a file</source>
        <translation>名称为空；请指定文件</translation>
    </message>
    <message>
        <source>the name is empty; leave the option out for the default</source>
        <translation>名称为空；如需使用默认值，请去掉该选项</translation>
    </message>
    <message>
        <source>As JSON</source>
        <translation>以 JSON 输出</translation>
    </message>
    <message>
        <source>As JSON; bytes in base64</source>
        <translation>以 JSON 输出；字节用 base64 表示</translation>
    </message>
    <message>
        <source>Tab-separated, one record a line, nothing shortened; for scripts</source>
        <translation>以制表符分隔，每行一条记录，不作缩略；供脚本使用</translation>
    </message>
    <message>
        <source>Stores an empty list</source>
        <translation>保存空列表</translation>
    </message>
    <message>
        <source>Writes what is stored to a new file, in JSON: for another machine, or for somebody who helps</source>
        <translation>将已保存的内容以 JSON 导出到新文件：供另一台机器或协助者使用</translation>
    </message>
    <message>
        <source>Stores what an exported file holds, all of it or nothing; what it does not name stays</source>
        <translation>保存导出文件中的内容，要么全部保存，要么都不保存；文件中没有的保持不变</translation>
    </message>
    <message>
        <source>The differences between what is stored and what an exported file holds</source>
        <translation>已保存的内容与导出文件之间的差异</translation>
    </message>
    <message>
        <source>The new file; - for standard output</source>
        <translation>新文件；- 表示标准输出</translation>
    </message>
    <message>
        <source>The file; - for standard input</source>
        <translation>文件；- 表示标准输入</translation>
    </message>
    <message>
        <source>Only keys of this class; may be given several times</source>
        <translation>只包括此类别的键；可多次给出</translation>
    </message>
    <message>
        <source>Leaves out personal values, those of unknown keys, and whatever holds the path of the home folder</source>
        <translation>略去属于个人的值、未知键的值，以及所有含有主文件夹路径的内容</translation>
    </message>
    <message>
        <source>Takes keys that the editor does not know as they are</source>
        <translation>原样接受编辑器不认识的键</translation>
    </message>
    <message>
        <source>Tells what would change, as diff does, and changes nothing</source>
        <translation>像 diff 一样显示将会改变的内容，但不作任何更改</translation>
    </message>
    <message>
        <source>With --dry-run: as JSON; bytes in base64</source>
        <translation>与 --dry-run 一起使用：以 JSON 输出；字节用 base64 表示</translation>
    </message>
    <message>
        <source>Run with --help for more information.</source>
        <translation>使用 --help 运行可了解更多信息。</translation>
    </message>
    <message>
        <source>bash, zsh or fish</source>
        <translation>bash、zsh 或 fish</translation>
    </message>
    <message>
        <source>Name a product file with &apos;--product FILE&apos;, or in EDITOR_SETTINGS_PRODUCT.</source>
        <translation>请用 &apos;--product FILE&apos; 或在 EDITOR_SETTINGS_PRODUCT 中指定产品文件。</translation>
    </message>
    <message>
        <source>Run &apos;editor-settings doctor&apos; with the same options to see what is wrong; &apos;editor-settings restore FILE&apos; brings a backup back.</source>
        <translation>请用相同的选项运行 &apos;editor-settings doctor&apos; 来查看问题所在；&apos;editor-settings restore FILE&apos; 可恢复备份。</translation>
    </message>
    <message>
        <source>A verb</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Colours: auto for a terminal alone, always, or never; default: auto</source>
        <translation>颜色：auto（仅在终端上）、always（总是）或 never（从不）；默认值：auto</translation>
    </message>
    <message>
        <source>Long answers as they are, not a screen at a time</source>
        <translation>将长答复原样输出，而不是逐屏显示</translation>
    </message>
    <message>
        <source>The product file, in JSON; default: the one that is installed with this program</source>
        <translation>JSON 格式的产品文件；默认值：随本程序安装的产品文件</translation>
    </message>
    <message>
        <source>The folder of both stores; default: the product&apos;s data folder and the vendor&apos;s</source>
        <translation>两个存储库的文件夹；默认值：产品的数据文件夹和厂商的数据文件夹</translation>
    </message>
    <message>
        <source>Only keys that match, such as &apos;*Path&apos;</source>
        <translation>只包括匹配的键，例如 &apos;*Path&apos;</translation>
    </message>
    <message>
        <source>Only what is stored</source>
        <translation>只包括已保存的</translation>
    </message>
    <message>
        <source>Only what is not stored</source>
        <translation>只包括未保存的</translation>
    </message>
    <message>
        <source>Only one store</source>
        <translation>只包括一个存储库</translation>
    </message>
    <message>
        <source>The preference</source>
        <translation>首选项</translation>
    </message>
    <message>
        <source>A bool as true or false, an int in decimal, text in UTF-8, bytes in base64 or as @FILE, a list as one word for each element</source>
        <translation>bool 为 true 或 false，int 为十进制，text 为 UTF-8，bytes 为 base64 或 @FILE，list 为每个元素一个词</translation>
    </message>
    <message>
        <source>Stores what the file holds, or standard input where it is -: byte for byte, but for a list one element on each line</source>
        <translation>保存文件的内容，若为 - 则保存标准输入：逐字节保存，但 list 为每行一个元素</translation>
    </message>
    <message>
        <source>One location, or those that match, such as &apos;stock*&apos;</source>
        <translation>一个位置，或匹配的位置，例如 &apos;stock*&apos;</translation>
    </message>
    <message>
        <source>What the location is asked about, where it takes that</source>
        <translation>位置的参数（如果该位置接受参数）</translation>
    </message>
    <message>
        <source>What decides where a location lies</source>
        <translation>决定位置所在之处的因素</translation>
    </message>
    <message>
        <source>Whether they exist and can be used; exit status 1 where the editor cannot write to one that it writes to</source>
        <translation>它们是否存在、是否可用；如果编辑器无法写入它要写入的某个位置，退出状态为 1</translation>
    </message>
    <message>
        <source>Makes the file, empty, so that nobody else gets the name; the folder too, and a free number where needed</source>
        <translation>创建空文件，以免名称被占用；必要时还会创建文件夹，并选用空闲的编号</translation>
    </message>
    <message>
        <source>The file that it is made of; only its name counts</source>
        <translation>用来生成它的源文件；只用到其名称</translation>
    </message>
    <message>
        <source>The extension, such as mp4</source>
        <translation>扩展名，例如 mp4</translation>
    </message>
    <message>
        <source>The name that the editor keeps it under</source>
        <translation>编辑器保存它时所用的名称</translation>
    </message>
    <message>
        <source>Stores these bytes: in base64, or @FILE</source>
        <translation>保存这些字节：base64，或 @FILE</translation>
    </message>
    <message>
        <source>Stores this list, one word for each element</source>
        <translation>保存此列表，每个元素一个词</translation>
    </message>
    <message>
        <source>Stores this text</source>
        <translation>保存此文本</translation>
    </message>
    <message>
        <source>The new file</source>
        <translation>新文件</translation>
    </message>
    <message>
        <source>A file that backup has written</source>
        <translation>由 backup 写入的文件</translation>
    </message>
    <message>
        <source>Only tells what would change</source>
        <translation>只显示将会改变的内容</translation>
    </message>
    <message>
        <source>markdown: the page of the reference, the same on every machine</source>
        <translation>markdown：参考手册的页面，在每台机器上都相同</translation>
    </message>
    <message>
        <source>%1; set HOME to your folder, or name one for the stores with --home</source>
        <translation>%1；请将 HOME 设置为您的文件夹，或用 --home 为存储库指定一个文件夹</translation>
    </message>
    <message>
        <source>%1; set HOME to your folder</source>
        <translation>%1；请将 HOME 设置为您的文件夹</translation>
    </message>
    <message>
        <source>only for reading: %1</source>
        <translation>只供读取：%1</translation>
    </message>
    <message>
        <source>Reads, changes and explains the preferences, folders and file names of Lumora Video Editor.</source>
        <translation>读取、更改和解释 Lumora Video Editor 的首选项、文件夹和文件名。</translation>
    </message>
    <message>
        <source>All preferences with their values, sorted by key</source>
        <translation>所有首选项及其值，按键排序</translation>
    </message>
    <message>
        <source>The value that the editor reads now</source>
        <translation>编辑器当前读到的值</translation>
    </message>
    <message>
        <source>Stores a value</source>
        <translation>保存一个值</translation>
    </message>
    <message>
        <source>Removes the stored value, so that the default holds again</source>
        <translation>删除已保存的值，从而重新使用默认值</translation>
    </message>
    <message>
        <source>Where a value comes from: what is stored, since when, and the default</source>
        <translation>值的来源：保存了什么、从何时起，以及默认值</translation>
    </message>
    <message>
        <source>Where the editor&apos;s files and folders lie</source>
        <translation>编辑器的文件和文件夹所在的位置</translation>
    </message>
    <message>
        <source>The name that the editor gives the next file of a kind</source>
        <translation>编辑器给某种文件的下一个名称</translation>
    </message>
    <message>
        <source>An audio recording</source>
        <translation>录音</translation>
    </message>
    <message>
        <source>A freeze frame</source>
        <translation>定格帧</translation>
    </message>
    <message>
        <source>A stabilized clip</source>
        <translation>防抖剪辑</translation>
    </message>
    <message>
        <source>Default name, extensions and filters of projects, and the sample project</source>
        <translation>项目的默认名称、扩展名和过滤器，以及示例项目</translation>
    </message>
    <message>
        <source>The favourites of one list</source>
        <translation>一个列表的收藏</translation>
    </message>
    <message>
        <source>What the editor keeps for an indication, or stores it</source>
        <translation>显示或保存编辑器为某个提示保留的内容</translation>
    </message>
    <message>
        <source>The finished tutorials, or stores them</source>
        <translation>显示或保存已完成的教程</translation>
    </message>
    <message>
        <source>The user&apos;s own colours, or stores them</source>
        <translation>显示或保存用户自己的颜色</translation>
    </message>
    <message>
        <source>The recent export targets, or stores them</source>
        <translation>显示或保存最近的导出目标</translation>
    </message>
    <message>
        <source>Copies both stores into one file, also while the editor runs</source>
        <translation>将两个存储库复制到一个文件中，编辑器运行时也可以</translation>
    </message>
    <message>
        <source>Brings the stores of a backup back, and keeps what was there</source>
        <translation>恢复备份中的存储库，并保留原有内容</translation>
    </message>
    <message>
        <source>Prints the changes that other processes make, as they happen</source>
        <translation>实时输出其他进程所作的更改</translation>
    </message>
    <message>
        <source>What is wrong with the stores, what they hold and the folders; exit status 1 where something is</source>
        <translation>存储库、其内容和文件夹有什么问题；有问题时退出状态为 1</translation>
    </message>
    <message>
        <source>A completion script for a shell, to be sourced</source>
        <translation>用于 shell 的补全脚本，用 source 载入</translation>
    </message>
    <message>
        <source>The manual page, for man</source>
        <translation>手册页，供 man 使用</translation>
    </message>
    <message>
        <source>One JSON object a line; bytes in base64</source>
        <translation>每行一个 JSON 对象；字节用 base64 表示</translation>
    </message>
    <message>
        <source>cannot write to standard output: %1</source>
        <translation>无法写入标准输出：%1</translation>
    </message>
    <message>
        <source>%1 is reserved: the editor neither reads nor writes it; remove it, or give --with-unknown</source>
        <translation>%1 是保留的：编辑器既不读取也不写入它；请将其删除，或使用 --with-unknown</translation>
    </message>
    <message>
        <source>%1 is no preference of the editor; %2correct or remove it, or give --with-unknown to take such keys as they are</source>
        <translation>%1 不是编辑器的首选项；%2请改正或删除它，或使用 --with-unknown 来原样接受这样的键</translation>
    </message>
    <message>
        <source>%1 is kept in the other store; move it to stores.%2</source>
        <translation>%1 应保存在另一个存储库中；请将其移到 stores.%2</translation>
    </message>
    <message>
        <source>%1 is &quot;%2&quot;, which the editor would not read; give a value of kind &quot;%3&quot;</source>
        <translation>%1 为 &quot;%2&quot;，编辑器不会读取它；请给出 &quot;%3&quot; 种类的值</translation>
    </message>
    <message>
        <source> or </source>
        <translation> 或 </translation>
    </message>
    <message>
        <source>did you mean %1?</source>
        <translation>您是否想用 %1？</translation>
    </message>
    <message>
        <source>%1 is not set, so %2</source>
        <translation>%1 未设置，因此使用 %2</translation>
    </message>
    <message>
        <source>%1 is empty, so %2</source>
        <translation>%1 为空，因此使用 %2</translation>
    </message>
    <message>
        <source>%1=%2 in the environment</source>
        <translation>环境变量 %1=%2</translation>
    </message>
    <message>
        <source>%1 in the home folder</source>
        <translation>主文件夹中的 %1</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1 第 %2 行</translation>
    </message>
    <message>
        <source>%1=%2 in %3</source>
        <translation>%3 中的 %1=%2</translation>
    </message>
    <message>
        <source>no %1 in %2, so %3</source>
        <translation>%2 中没有 %1，因此使用 %3</translation>
    </message>
    <message>
        <source>%1 cannot be read (%2), so %3</source>
        <translation>无法读取 %1（%2），因此使用 %3</translation>
    </message>
    <message>
        <source>there is no %1, so %2</source>
        <translation>%1 不存在，因此使用 %2</translation>
    </message>
    <message>
        <source>%1 gives %2</source>
        <translation>%1 返回 %2</translation>
    </message>
    <message>
        <source>resourcesRoot of %1, which is %2</source>
        <translation>%1 的 resourcesRoot，即 %2</translation>
    </message>
    <message>
        <source>nothing: the text is fixed</source>
        <translation>无：文本是固定的</translation>
    </message>
    <message>
        <source>%1 %2 in %3</source>
        <translation>%3 中的 %1 %2</translation>
    </message>
    <message>
        <source>the document</source>
        <translation>该文档</translation>
    </message>
    <message>
        <source>line %1, column %2:</source>
        <translation>第 %1 行第 %2 列：</translation>
    </message>
    <message>
        <source>%1 is nested too deeply; give a file that &apos;editor-settings export&apos; made</source>
        <translation>%1 嵌套过深；请给出由 &apos;editor-settings export&apos; 生成的文件</translation>
    </message>
    <message>
        <source>%1 stands there twice; keep one of the two</source>
        <translation>%1 出现了两次；请只保留其中一个</translation>
    </message>
    <message>
        <source>a number is too large</source>
        <translation>数字过大</translation>
    </message>
    <message>
        <source>%1 %2; mend it there, or export the file again</source>
        <translation>%1%2；请在该处修复，或重新导出文件</translation>
    </message>
    <message>
        <source>%1 a byte order mark stands before the text; save the file as UTF-8 without it</source>
        <translation>%1文本之前有字节顺序标记；请将文件保存为不带该标记的 UTF-8</translation>
    </message>
    <message>
        <source>the document is a database; where &apos;editor-settings backup&apos; made it, &apos;editor-settings restore&apos; takes it</source>
        <translation>该文档是数据库；如果它是由 &apos;editor-settings backup&apos; 生成的，可用 &apos;editor-settings restore&apos; 恢复</translation>
    </message>
    <message>
        <source>%1 a NUL stands there, which no text holds; save the file as UTF-8, or export it again</source>
        <translation>%1该处有 NUL，文本中不能含有它；请将文件保存为 UTF-8，或重新导出</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>数组</translation>
    </message>
    <message>
        <source>%1 is %2; give %3</source>
        <translation>%1 为 %2；应为：%3</translation>
    </message>
    <message>
        <source>an object, between { and }</source>
        <translation>放在 { 和 } 之间的对象</translation>
    </message>
    <message>
        <source>%1 means nothing; remove it: what stands there is %2</source>
        <translation>%1 没有意义；请将其删除：该处可以有 %2</translation>
    </message>
    <message>
        <source>%1 is missing; give a file that &apos;editor-settings export&apos; made</source>
        <translation>缺少 %1；请给出由 &apos;editor-settings export&apos; 生成的文件</translation>
    </message>
    <message>
        <source>a text, in quotes</source>
        <translation>带引号的文本</translation>
    </message>
    <message>
        <source>%1 is not how a key is written: a backslash is doubled, and only a byte that is not UTF-8 stands as \xHH, in small letters; write it so</source>
        <translation>%1 不符合键的写法：反斜杠要写两个，并且只有非 UTF-8 的字节才用小写写成 \xHH；请照此书写</translation>
    </message>
    <message>
        <source>%1 holds a NUL, which no key can; remove it</source>
        <translation>%1 含有 NUL，而键中不能有它；请将其删除</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true 或 false</translation>
    </message>
    <message>
        <source>a whole number from -2147483648 to 2147483647</source>
        <translation>-2147483648 到 2147483647 之间的整数</translation>
    </message>
    <message>
        <source>bytes in base64</source>
        <translation>base64 表示的字节</translation>
    </message>
    <message>
        <source>&quot;base64&quot;, or leave the field out</source>
        <translation>&quot;base64&quot;，或省略该字段</translation>
    </message>
    <message>
        <source>bool, int, string or bytes</source>
        <translation>bool、int、string 或 bytes</translation>
    </message>
    <message>
        <source>%1 is for the kind string only; remove it</source>
        <translation>%1 只用于 string 种类；请将其删除</translation>
    </message>
    <message>
        <source>%1 stands beside &quot;redacted&quot;; keep one of the two</source>
        <translation>%1 与 &quot;redacted&quot; 同时出现；请只保留其中一个</translation>
    </message>
    <message>
        <source>true, or a value in its place</source>
        <translation>true，或改为给出值</translation>
    </message>
    <message>
        <source>format is %1, so this is no export of settings; give a file that &apos;editor-settings export&apos; made</source>
        <translation>format 为 %1，因此这不是导出的设置；请给出由 &apos;editor-settings export&apos; 生成的文件</translation>
    </message>
    <message>
        <source>format is missing, so this is no export of settings; give a file that &apos;editor-settings export&apos; made</source>
        <translation>缺少 format，因此这不是导出的设置；请给出由 &apos;editor-settings export&apos; 生成的文件</translation>
    </message>
    <message>
        <source>version is %1, and this program reads up to %2: a newer one wrote the file; update this program</source>
        <translation>version 为 %1，而本程序最高可读取 %2：该文件由更新的程序写入；请更新本程序</translation>
    </message>
    <message>
        <source>default of a preference</source>
        <translation>首选项的默认值</translation>
    </message>
    <message>
        <source>written to</source>
        <translation>写入目标</translation>
    </message>
    <message>
        <source>shipped with the product</source>
        <translation>随产品提供</translation>
    </message>
    <message>
        <source>joined to a folder by the editor</source>
        <translation>由编辑器接在文件夹之后</translation>
    </message>
    <message>
        <source>inside the editor&apos;s program</source>
        <translation>在编辑器的程序内部</translation>
    </message>
    <message>
        <source>%1 is required</source>
        <translation>缺少 %1</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>多余的参数：%1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>多余的参数：%1</translation>
    </message>
    <message>
        <source>%1 excludes %2</source>
        <translation>%1 与 %2 不能同时使用</translation>
    </message>
    <message>
        <source>%1: %2 required %3 missing</source>
        <translation>%1：缺少 %2 个必需的 %3</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>用法</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>子命令</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>位置参数</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>必需</translation>
    </message>
    <message>
        <source>Env</source>
        <translation>环境变量</translation>
    </message>
    <message>
        <source>Excludes</source>
        <translation>不可同用</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>显示此帮助信息并退出</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>子命令</translation>
    </message>
    <message>
        <source>%1 not in %2</source>
        <translation>%1 不在 %2 之中</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>显示程序的版本信息并退出</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Texts are in the language that LANGUAGE names, else LC_ALL, LC_MESSAGES or LANG, where there is a translation and the
locale is in UTF-8. What the system and the stores tell is always English; so are all texts with --plain, --json or --format, the
manual page and the completion scripts.</source>
        <translation>文本使用 LANGUAGE 指定的语言，否则使用 LC_ALL、LC_MESSAGES 或 LANG 指定的语言，前提是有翻译且区域设置为 UTF-8。
系统和存储库给出的内容始终为英语；使用 --plain、--json 或 --format 时的所有文本，以及手册页和补全脚本，
也都是英语。</translation>
    </message>
</context>
</TS>
