<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>Text</name>
    <message>
        <source>Did you mean %1?</source>
        <translation>هل قصدت %1؟</translation>
    </message>
    <message>
        <source>Did you mean %1? &apos;%2 --help&apos; shows how it is used.</source>
        <translation>هل قصدت %1؟ يبين &apos;%2 --help&apos; طريقة استخدامه.</translation>
    </message>
    <message>
        <source>The verbs are %1 and %2.</source>
        <translation>الأوامر هي %1 و %2.</translation>
    </message>
    <message>
        <source>What follows %1 is one of %2 and %3.</source>
        <translation>يأتي بعد %1 أحد هذه: %2 و %3.</translation>
    </message>
    <message>
        <source>(unset)</source>
        <translation>(غير معين)</translation>
    </message>
    <message>
        <source>STORE</source>
        <translation>المستودع</translation>
    </message>
    <message>
        <source>KEY</source>
        <translation>المفتاح</translation>
    </message>
    <message>
        <source>NOW</source>
        <translation>الآن</translation>
    </message>
    <message>
        <source>IN THE BACKUP</source>
        <translation>في النسخة الاحتياطية</translation>
    </message>
    <message numerus="yes">
        <source>the %1 store of %2: %n values would change</source>
        <comment>the %1 store of %2: %n value would change</comment>
        <translation>
            <numerusform>المستودع %1 بتاريخ %2: لن تتغير أي قيمة</numerusform>
            <numerusform>المستودع %1 بتاريخ %2: ستتغير قيمة واحدة</numerusform>
            <numerusform>المستودع %1 بتاريخ %2: ستتغير قيمتان</numerusform>
            <numerusform>المستودع %1 بتاريخ %2: ستتغير %n قيم</numerusform>
            <numerusform>المستودع %1 بتاريخ %2: ستتغير %n قيمة</numerusform>
            <numerusform>المستودع %1 بتاريخ %2: ستتغير %n قيمة</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the %1 store of %2: %n values differ from before</source>
        <comment>the %1 store of %2: %n value differs from before</comment>
        <translation>
            <numerusform>المستودع %1 بتاريخ %2: لا تختلف أي قيمة عما سبق</numerusform>
            <numerusform>المستودع %1 بتاريخ %2: تختلف قيمة واحدة عما سبق</numerusform>
            <numerusform>المستودع %1 بتاريخ %2: تختلف قيمتان عما سبق</numerusform>
            <numerusform>المستودع %1 بتاريخ %2: تختلف %n قيم عما سبق</numerusform>
            <numerusform>المستودع %1 بتاريخ %2: تختلف %n قيمة عما سبق</numerusform>
            <numerusform>المستودع %1 بتاريخ %2: تختلف %n قيمة عما سبق</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; what was there is kept in %2</source>
        <translation>%1؛ وما كان هناك محفوظ في %2</translation>
    </message>
    <message>
        <source>there is no store yet, so there is nothing to back up</source>
        <translation>لا يوجد مستودع بعد، فلا شيء لنسخه احتياطيا</translation>
    </message>
    <message>
        <source>copying the stores</source>
        <translation>جار نسخ المستودعين</translation>
    </message>
    <message>
        <source>reading the copy</source>
        <translation>جارية قراءة النسخة</translation>
    </message>
    <message numerus="yes">
        <source>the %1 store is backed up with %n values</source>
        <comment>the %1 store is backed up with %n value</comment>
        <translation>
            <numerusform>نسخ المستودع %1 احتياطيا دون أي قيمة</numerusform>
            <numerusform>نسخ المستودع %1 احتياطيا بقيمة واحدة</numerusform>
            <numerusform>نسخ المستودع %1 احتياطيا بقيمتين</numerusform>
            <numerusform>نسخ المستودع %1 احتياطيا وفيه %n قيم</numerusform>
            <numerusform>نسخ المستودع %1 احتياطيا وفيه %n قيمة</numerusform>
            <numerusform>نسخ المستودع %1 احتياطيا وفيه %n قيمة</numerusform>
        </translation>
    </message>
    <message>
        <source>reading the backup</source>
        <translation>جارية قراءة النسخة الاحتياطية</translation>
    </message>
    <message>
        <source>restoring the %1 store</source>
        <translation>جارية استعادة المستودع %1</translation>
    </message>
    <message>
        <source>the backup holds no %1 store, so that one stays as it is</source>
        <translation>لا تحوي النسخة الاحتياطية المستودع %1، فيبقى كما هو</translation>
    </message>
    <message>
        <source>%1 is written by the editor alone, so it cannot be set; &apos;editor-settings unset&apos; removes it</source>
        <translation>لا يكتب %1 إلا المحرر، فلا يمكن تعيينه؛ يزيله &apos;editor-settings unset&apos;</translation>
    </message>
    <message>
        <source>%1 is kept in memory only by a product of this kind, so it cannot be set from outside the editor</source>
        <translation>منتج من هذا النوع يحفظ %1 في الذاكرة فقط، فلا يمكن تعيينه من خارج المحرر</translation>
    </message>
    <message>
        <source>TYPE</source>
        <translation>النوع</translation>
    </message>
    <message>
        <source>STATE</source>
        <translation>الحالة</translation>
    </message>
    <message>
        <source>VALUE</source>
        <translation>القيمة</translation>
    </message>
    <message>
        <source>%1 holds a value of kind %2 that cannot be read, so the default is read; &apos;editor-settings explain %1&apos; shows both</source>
        <translation>يحوي %1 قيمة نوعها %2 لا يمكن قراءتها، فتقرأ القيمة الافتراضية؛ يعرض &apos;editor-settings explain %1&apos; كلتيهما</translation>
    </message>
    <message>
        <source>%1 holds a value of kind %2, so the default is read; &apos;editor-settings explain %1&apos; shows both</source>
        <translation>يحوي %1 قيمة نوعها %2، فتقرأ القيمة الافتراضية؛ يعرض &apos;editor-settings explain %1&apos; كلتيهما</translation>
    </message>
    <message>
        <source>%1 was not set</source>
        <translation>لم يكن %1 معينا</translation>
    </message>
    <message>
        <source>key</source>
        <translation>المفتاح</translation>
    </message>
    <message>
        <source>type</source>
        <translation>النوع</translation>
    </message>
    <message>
        <source>class</source>
        <translation>الصنف</translation>
    </message>
    <message>
        <source>store</source>
        <translation>المستودع</translation>
    </message>
    <message>
        <source>file</source>
        <translation>الملف</translation>
    </message>
    <message>
        <source>state</source>
        <translation>الحالة</translation>
    </message>
    <message>
        <source>stored</source>
        <translation>القيمة المخزنة</translation>
    </message>
    <message>
        <source>stored kind</source>
        <translation>النوع المخزن</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>مغير</translation>
    </message>
    <message>
        <source>default</source>
        <translation>الافتراضي</translation>
    </message>
    <message>
        <source>computed by</source>
        <translation>تحسبه</translation>
    </message>
    <message>
        <source>nothing: it is fixed</source>
        <translation>لا شيء: هو ثابت</translation>
    </message>
    <message>
        <source>value</source>
        <translation>القيمة</translation>
    </message>
    <message>
        <source>default name</source>
        <translation>الاسم الافتراضي</translation>
    </message>
    <message>
        <source>extensions</source>
        <translation>الامتدادات</translation>
    </message>
    <message>
        <source>extension for saving</source>
        <translation>امتداد الحفظ</translation>
    </message>
    <message>
        <source>save filter</source>
        <translation>مرشح الحفظ</translation>
    </message>
    <message>
        <source>open filter</source>
        <translation>مرشح الفتح</translation>
    </message>
    <message>
        <source>sample project</source>
        <translation>المشروع النموذجي</translation>
    </message>
    <message>
        <source>there is no sample project below %1</source>
        <translation>لا يوجد مشروع نموذجي تحت %1</translation>
    </message>
    <message>
        <source>set HOME to the folder of the user whom the editor runs for</source>
        <translation>عين HOME على مجلد المستخدم الذي يعمل المحرر لأجله</translation>
    </message>
    <message>
        <source>looking at the %1 store</source>
        <translation>جار فحص المستودع %1</translation>
    </message>
    <message>
        <source>looking at the names of recordings</source>
        <translation>جار فحص أسماء التسجيلات</translation>
    </message>
    <message>
        <source>looking at the names of freeze frames</source>
        <translation>جار فحص أسماء الإطارات المجمدة</translation>
    </message>
    <message>
        <source>looking at the names of stabilized clips</source>
        <translation>جار فحص أسماء المقاطع المثبتة</translation>
    </message>
    <message>
        <source>looking at the folders that the editor writes to</source>
        <translation>جار فحص المجلدات التي يكتب المحرر فيها</translation>
    </message>
    <message>
        <source>opening the stores</source>
        <translation>جار فتح المستودعين</translation>
    </message>
    <message>
        <source>nothing else can be looked at without it: mend it, or name another with --product</source>
        <translation>لا يمكن فحص غير ذلك من دونه: أصلحه، أو حدد غيره بالخيار --product</translation>
    </message>
    <message>
        <source>note</source>
        <translation>ملاحظة</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>تحذير</translation>
    </message>
    <message>
        <source>error</source>
        <translation>خطأ</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>غير موجود</translation>
    </message>
    <message>
        <source>unusable</source>
        <translation>غير صالح للاستخدام</translation>
    </message>
    <message>
        <source>usable</source>
        <translation>صالح للاستخدام</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>للقراءة فقط</translation>
    </message>
    <message>
        <source>%1 (%2 store)</source>
        <translation>%1 (المستودع %2)</translation>
    </message>
    <message>
        <source>%1, schema %2, journal mode %3</source>
        <translation>%1، المخطط %2، نمط السجل %3</translation>
    </message>
    <message>
        <source>%1, on %2</source>
        <translation>%1، على %2</translation>
    </message>
    <message>
        <source>%1, on %2 at %3</source>
        <translation>%1، على %2 عند %3</translation>
    </message>
    <message numerus="yes">
        <source>%n errors</source>
        <comment>%n error</comment>
        <translation>
            <numerusform>لا أخطاء</numerusform>
            <numerusform>خطأ واحد</numerusform>
            <numerusform>خطآن</numerusform>
            <numerusform>%n أخطاء</numerusform>
            <numerusform>%n خطأ</numerusform>
            <numerusform>%n خطأ</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n warnings</source>
        <comment>%n warning</comment>
        <translation>
            <numerusform>لا تحذيرات</numerusform>
            <numerusform>تحذير واحد</numerusform>
            <numerusform>تحذيران</numerusform>
            <numerusform>%n تحذيرات</numerusform>
            <numerusform>%n تحذيرا</numerusform>
            <numerusform>%n تحذير</numerusform>
        </translation>
    </message>
    <message>
        <source>all is well</source>
        <translation>كل شيء سليم</translation>
    </message>
    <message>
        <source>, </source>
        <translation>، </translation>
    </message>
    <message>
        <source>product file</source>
        <translation>ملف المنتج</translation>
    </message>
    <message>
        <source>%1 store</source>
        <translation>المستودع %1</translation>
    </message>
    <message>
        <source>the folder of the store cannot be used: %1, so no store can be made</source>
        <translation>لا يمكن استخدام مجلد المستودع (%1)، فلا يمكن إنشاء مستودع</translation>
    </message>
    <message>
        <source>the folder of the store cannot be used: %1, so no change can be stored</source>
        <translation>لا يمكن استخدام مجلد المستودع (%1)، فلا يمكن تخزين أي تغيير</translation>
    </message>
    <message>
        <source>give this user the rights to the folder, or name another with --home</source>
        <translation>امنح هذا المستخدم صلاحيات على المجلد، أو حدد مجلدا آخر بالخيار --home</translation>
    </message>
    <message>
        <source>nothing is stored there yet</source>
        <translation>لم يخزن شيء هناك بعد</translation>
    </message>
    <message>
        <source>nothing to do: the store is made when something is stored</source>
        <translation>لا شيء يلزم: ينشأ المستودع عندما يخزن شيء</translation>
    </message>
    <message>
        <source>other users may read or change it: its mode is %1</source>
        <translation>قد يقرؤه أو يغيره مستخدمون آخرون: أذوناته %1</translation>
    </message>
    <message>
        <source>it belongs to another user, %1</source>
        <translation>ملك لمستخدم آخر، هو %1</translation>
    </message>
    <message>
        <source>run this program and the editor as that user, or give the file to %1</source>
        <translation>شغل هذا البرنامج والمحرر بذلك المستخدم، أو اجعل الملف ملكا للمستخدم %1</translation>
    </message>
    <message>
        <source>a journal of %1 bytes lies there: its store is gone, and no new one is made beside it</source>
        <translation>يوجد هناك سجل حجمه %1 بايت: اختفى مستودعه، ولا ينشأ مستودع جديد بجانبه</translation>
    </message>
    <message>
        <source>bring the store back beside its journal, or move the journal away</source>
        <translation>أعد المستودع إلى جانب سجله، أو انقل السجل من مكانه</translation>
    </message>
    <message>
        <source>a journal of %1 bytes lies there: a change is being made right now, or was interrupted</source>
        <translation>يوجد هناك سجل حجمه %1 بايت: يجري تغيير الآن، أو أن تغييرا انقطع</translation>
    </message>
    <message>
        <source>look again in a moment; where it stays, leave it beside the store and start the editor, which undoes the change</source>
        <translation>انظر ثانية بعد لحظة؛ فإن بقي فاتركه بجانب المستودع وشغل المحرر، وهو يلغي التغيير</translation>
    </message>
    <message>
        <source>a file system without a name</source>
        <translation>نظام ملفات بلا اسم</translation>
    </message>
    <message>
        <source>keep the stores on a local disk: move the data folder there (XDG_DATA_HOME), or name a folder with --home</source>
        <translation>احفظ المستودعين على قرص محلي: انقل مجلد البيانات إليه (XDG_DATA_HOME)، أو حدد مجلدا بالخيار --home</translation>
    </message>
    <message>
        <source>it lies on %1, which may only be read, so nothing can be stored</source>
        <translation>يقع على %1، وهو للقراءة فقط، فلا يمكن تخزين شيء</translation>
    </message>
    <message>
        <source>mount it for writing, or name another folder with --home</source>
        <translation>أعد وصله بإذن الكتابة، أو حدد مجلدا آخر بالخيار --home</translation>
    </message>
    <message>
        <source>it lies on %1, where locks do not hold between machines, so that two editors can damage it</source>
        <translation>يقع على %1، ولا تسري الأقفال فيه بين الأجهزة، فقد يتلفه محرران يعملان معا</translation>
    </message>
    <message>
        <source>it lies on %1, which has no hard links, so that no store can be made there</source>
        <translation>يقع على %1، وليس فيه روابط صلبة، فلا يمكن إنشاء مستودع هناك</translation>
    </message>
    <message>
        <source>it lies on %1, which is kept in memory, so that all is lost with a restart</source>
        <translation>يقع على %1، وهو محفوظ في الذاكرة، فيضيع كل شيء عند إعادة التشغيل</translation>
    </message>
    <message>
        <source>it lies on %1, of which it cannot be told whether locks hold there</source>
        <translation>يقع على %1، ولا يمكن معرفة هل تسري الأقفال فيه</translation>
    </message>
    <message>
        <source>nothing to do where the disk is local; else %1</source>
        <translation>لا شيء يلزم إن كان القرص محليا؛ وإلا %1</translation>
    </message>
    <message>
        <source>it belongs in the %1 store and is not read here</source>
        <translation>مكانه المستودع %1 ولا يقرأ هنا</translation>
    </message>
    <message>
        <source>&apos;editor-settings explain %1&apos; shows what is read; what lies here is kept</source>
        <translation>يعرض &apos;editor-settings explain %1&apos; ما يقرأ؛ ويبقى ما هنا محفوظا</translation>
    </message>
    <message>
        <source>the library knows no such key; it is kept</source>
        <translation>لا تعرف المكتبة مفتاحا كهذا؛ وهو محفوظ</translation>
    </message>
    <message>
        <source>nothing to do where a later version or another program stored it</source>
        <translation>لا شيء يلزم إن خزنه إصدار أحدث أو برنامج آخر</translation>
    </message>
    <message>
        <source>have the program that keeps it store it anew</source>
        <translation>اجعل البرنامج الذي يحفظه يخزنه من جديد</translation>
    </message>
    <message>
        <source>the rational has no %1, so a read mixes it with a default</source>
        <translation>ينقص العدد الكسري %1، فتخلطه القراءة بقيمة افتراضية</translation>
    </message>
    <message>
        <source>the rational&apos;s %1 is no int, so a read mixes it with a default</source>
        <translation>ليس %1 في العدد الكسري من النوع int، فتخلطه القراءة بقيمة افتراضية</translation>
    </message>
    <message>
        <source>the rational&apos;s denominator is 0, so every read of it fails</source>
        <translation>مقام العدد الكسري 0، فتفشل كل قراءة له</translation>
    </message>
    <message>
        <source>the library knows no such rational; it is kept</source>
        <translation>لا تعرف المكتبة عددا كسريا كهذا؛ وهو محفوظ</translation>
    </message>
    <message>
        <source>&apos;editor-settings unset %1&apos; removes it, so that the default holds</source>
        <translation>يزيله &apos;editor-settings unset %1&apos;، فتسري القيمة الافتراضية</translation>
    </message>
    <message>
        <source>store it anew: &apos;editor-settings set %1 VALUE&apos;</source>
        <translation>خزنه من جديد: &apos;editor-settings set %1 VALUE&apos;</translation>
    </message>
    <message>
        <source>have the editor store it anew</source>
        <translation>اجعل المحرر يخزنه من جديد</translation>
    </message>
    <message>
        <source>it holds a value of kind %1 where one of kind %2 is read, so the default is read</source>
        <translation>يحوي قيمة نوعها %1 حيث تقرأ قيمة نوعها %2، فتقرأ القيمة الافتراضية</translation>
    </message>
    <message>
        <source>it holds a value of kind %1 that cannot be read, so the default is read</source>
        <translation>يحوي قيمة نوعها %1 لا يمكن قراءتها، فتقرأ القيمة الافتراضية</translation>
    </message>
    <message>
        <source>it holds text that is not UTF-8, so it is not read as it is stored</source>
        <translation>يحوي نصا ليس بترميز UTF-8، فلا يقرأ كما هو مخزن</translation>
    </message>
    <message>
        <source>the stored list would be another one when it is read and stored again, as it has empty elements or a part of the separator</source>
        <translation>ستصير القائمة المخزنة غيرها عند قراءتها وتخزينها ثانية، لأن فيها عناصر فارغة أو جزءا من الفاصل</translation>
    </message>
    <message>
        <source>it holds %1, at the edge of its range: counting on would leave it</source>
        <translation>يحوي %1، وهو على حد مجاله: مواصلة العد تخرجه منه</translation>
    </message>
    <message>
        <source>move the file with the highest number out of the folder, or store another folder in %1</source>
        <translation>انقل الملف ذا الرقم الأعلى خارج المجلد، أو خزن مجلدا آخر في %1</translation>
    </message>
    <message>
        <source>the running number has passed 2147483647 and counts no further; the next is %1</source>
        <translation>تجاوز الرقم المتسلسل 2147483647 ولم يعد يزيد؛ الاسم التالي هو %1</translation>
    </message>
    <message>
        <source>the running number nears its end at 2147483647; the next is %1</source>
        <translation>يقترب الرقم المتسلسل من نهايته عند 2147483647؛ الاسم التالي هو %1</translation>
    </message>
    <message numerus="yes">
        <source>%n more names in the folder with numbers near 2147483647 were not looked at</source>
        <comment>%n more names in the folder with numbers near 2147483647 were not looked at</comment>
        <translation>
            <numerusform>لم يترك اسم آخر في المجلد رقمه قريب من 2147483647 دون فحص</numerusform>
            <numerusform>لم يفحص اسم آخر في المجلد رقمه قريب من 2147483647</numerusform>
            <numerusform>لم يفحص اسمان آخران في المجلد رقماهما قريبان من 2147483647</numerusform>
            <numerusform>لم تفحص %n أسماء أخرى في المجلد أرقامها قريبة من 2147483647</numerusform>
            <numerusform>لم يفحص %n اسما آخر في المجلد أرقامها قريبة من 2147483647</numerusform>
            <numerusform>لم يفحص %n اسم آخر في المجلد أرقامها قريبة من 2147483647</numerusform>
        </translation>
    </message>
    <message>
        <source>move them out of the folder, or look again when those above are mended</source>
        <translation>انقلها خارج المجلد، أو انظر ثانية بعد إصلاح ما سبق</translation>
    </message>
    <message>
        <source>%1: the editor cannot write there: %2</source>
        <translation>%1: لا يستطيع المحرر الكتابة هناك: %2</translation>
    </message>
    <message>
        <source>mend what is remarked: &apos;editor-settings paths --explain&apos; tells what decides, and a preference may be set to another folder</source>
        <translation>أصلح ما ورد في الملاحظة: يبين &apos;editor-settings paths --explain&apos; ما يقرر المكان، ويمكن تعيين تفضيل على مجلد آخر</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>make it readable, or set the preference to another folder</source>
        <translation>اجعله قابلا للقراءة، أو عين التفضيل على مجلد آخر</translation>
    </message>
    <message>
        <source>not there yet: %1</source>
        <translation>غير موجودة بعد: %1</translation>
    </message>
    <message>
        <source>nothing to do: the editor makes them when it writes there</source>
        <translation>لا شيء يلزم: ينشئها المحرر عندما يكتب فيها</translation>
    </message>
    <message>
        <source>Every preference whose key ends in Path.</source>
        <translation>كل تفضيل ينتهي مفتاحه بالكلمة Path.</translation>
    </message>
    <message>
        <source>What is stored, one preference a line, for a script.</source>
        <translation>ما هو مخزن، تفضيل في كل سطر، للسكربتات.</translation>
    </message>
    <message>
        <source>The folder that the editor exports to.</source>
        <translation>المجلد الذي يصدر المحرر إليه.</translation>
    </message>
    <message>
        <source>A list in a form that every program reads alike.</source>
        <translation>قائمة بصيغة تقرؤها كل البرامج على نحو واحد.</translation>
    </message>
    <message>
        <source>Stores false.</source>
        <translation>يخزن false.</translation>
    </message>
    <message>
        <source>Stores another folder; the editor makes it.</source>
        <translation>يخزن مجلدا آخر؛ وينشئه المحرر.</translation>
    </message>
    <message>
        <source>Stores a list of two.</source>
        <translation>يخزن قائمة من عنصرين.</translation>
    </message>
    <message>
        <source>Stores a value that looks like an option.</source>
        <translation>يخزن قيمة تشبه خيارا.</translation>
    </message>
    <message>
        <source>From now on the default holds.</source>
        <translation>تسري القيمة الافتراضية من الآن.</translation>
    </message>
    <message>
        <source>Whether it is stored, where and since when, and what the default is.</source>
        <translation>هل هو مخزن، وأين ومنذ متى، وما القيمة الافتراضية.</translation>
    </message>
    <message>
        <source>What a new project is called, and which files the editor opens.</source>
        <translation>ما يسمى به المشروع الجديد، والملفات التي يفتحها المحرر.</translation>
    </message>
    <message>
        <source>The favourites of the list &quot;fonts&quot;.</source>
        <translation>مفضلات القائمة &quot;fonts&quot;.</translation>
    </message>
    <message>
        <source>What is kept for the indication &quot;tour&quot;, in base64.</source>
        <translation>ما يحفظ للمؤشر &quot;tour&quot;، بترميز base64.</translation>
    </message>
    <message>
        <source>Stores the bytes of the file tour.state for it.</source>
        <translation>يخزن له بايتات الملف tour.state.</translation>
    </message>
    <message>
        <source>The finished ones, one a line.</source>
        <translation>الدروس المنتهية، درس في كل سطر.</translation>
    </message>
    <message>
        <source>Forgets them all.</source>
        <translation>ينساها كلها.</translation>
    </message>
    <message>
        <source>Stores these two in the place of those before.</source>
        <translation>يخزن هذين اللونين مكان السابقة.</translation>
    </message>
    <message>
        <source>The text in which the editor keeps them.</source>
        <translation>النص الذي يحفظها المحرر به.</translation>
    </message>
    <message>
        <source>Every location whose name begins with stock.</source>
        <translation>كل موقع يبدأ اسمه بالكلمة stock.</translation>
    </message>
    <message>
        <source>What decides where exports go.</source>
        <translation>ما يقرر مكان التصدير.</translation>
    </message>
    <message>
        <source>Whether the editor can write wherever it writes to.</source>
        <translation>هل يستطيع المحرر الكتابة في كل ما يكتب فيه.</translation>
    </message>
    <message>
        <source>The file that the next recording goes into.</source>
        <translation>الملف الذي سيذهب إليه التسجيل التالي.</translation>
    </message>
    <message>
        <source>Makes an empty file of the next name, and prints that.</source>
        <translation>ينشئ ملفا فارغا بالاسم التالي، ويطبع ذلك الاسم.</translation>
    </message>
    <message>
        <source>The path on one line, whatever its folder is called.</source>
        <translation>المسار في سطر واحد، أيا كان اسم مجلده.</translation>
    </message>
    <message>
        <source>The next freeze frame of that film.</source>
        <translation>الإطار المجمد التالي من ذلك الفيلم.</translation>
    </message>
    <message>
        <source>The next stabilized clip of it.</source>
        <translation>المقطع المثبت التالي منه.</translation>
    </message>
    <message>
        <source>Copies both stores into that file.</source>
        <translation>ينسخ المستودعين كليهما إلى ذلك الملف.</translation>
    </message>
    <message>
        <source>What would be otherwise than now.</source>
        <translation>ما سيختلف عما هو الآن.</translation>
    </message>
    <message>
        <source>Brings the stores back, and tells where those of now are kept.</source>
        <translation>يستعيد المستودعين، ويذكر أين يحفظ ما هما عليه الآن.</translation>
    </message>
    <message>
        <source>A line for each change, until Ctrl+C.</source>
        <translation>سطر لكل تغيير، حتى Ctrl+C.</translation>
    </message>
    <message>
        <source>What is wrong and what to do; exit status 0 where all is well.</source>
        <translation>ما الخلل وما العمل؛ حالة الخروج 0 إن كان كل شيء سليما.</translation>
    </message>
    <message>
        <source>The same, for somebody who helps.</source>
        <translation>مثله، لمن يقدم المساعدة.</translation>
    </message>
    <message>
        <source>Writes all that is stored.</source>
        <translation>يكتب كل ما هو مخزن.</translation>
    </message>
    <message>
        <source>The same without what is personal, on standard output.</source>
        <translation>مثله دون ما هو شخصي، على الخرج القياسي.</translation>
    </message>
    <message>
        <source>What would change.</source>
        <translation>ما سيتغير.</translation>
    </message>
    <message>
        <source>Stores what belongs to the user rather than to the machine.</source>
        <translation>يخزن ما يخص المستخدم لا الجهاز.</translation>
    </message>
    <message>
        <source>What is stored otherwise than in the file; exit status 1, as something is.</source>
        <translation>ما خزن مختلفا عما في الملف؛ حالة الخروج 1، لوجود اختلاف.</translation>
    </message>
    <message>
        <source>Nothing, as the two are alike.</source>
        <translation>لا شيء، فالاثنان متماثلان.</translation>
    </message>
    <message>
        <source>A script for bash: source editor-settings.bash</source>
        <translation>سكربت للصدفة bash: source editor-settings.bash</translation>
    </message>
    <message>
        <source>The page in a file: man ./editor-settings.1</source>
        <translation>الصفحة في ملف: man ./editor-settings.1</translation>
    </message>
    <message>
        <source>Examples:</source>
        <translation>أمثلة:</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>فارغ</translation>
    </message>
    <message>
        <source>holds a NUL, at which the system would cut it off</source>
        <translation>يحوي محرف NUL، والنظام يقطعه عنده</translation>
    </message>
    <message>
        <source>not absolute: it depends on the folder that the editor is started in</source>
        <translation>ليس مطلقا: يتوقف على المجلد الذي يشغل المحرر منه</translation>
    </message>
    <message>
        <source>dangling link to %1</source>
        <translation>رابط مقطوع إلى %1</translation>
    </message>
    <message>
        <source>missing, and %1: %2</source>
        <translation>غير موجود، و %1: %2</translation>
    </message>
    <message>
        <source>missing, and %1 is not a folder</source>
        <translation>غير موجود، و %1 ليس مجلدا</translation>
    </message>
    <message>
        <source>missing, and %1 is not writable</source>
        <translation>غير موجود، و %1 غير قابل للكتابة</translation>
    </message>
    <message>
        <source>missing; the editor can make it</source>
        <translation>غير موجود؛ ويستطيع المحرر إنشاءه</translation>
    </message>
    <message>
        <source>not a folder</source>
        <translation>ليس مجلدا</translation>
    </message>
    <message>
        <source>not writable</source>
        <translation>غير قابل للكتابة</translation>
    </message>
    <message>
        <source>not readable, so names are numbered as if it were empty</source>
        <translation>غير قابل للقراءة، فترقم الأسماء كأنه فارغ</translation>
    </message>
    <message>
        <source>the home folder itself</source>
        <translation>مجلد المنزل نفسه</translation>
    </message>
    <message>
        <source>HOME is not set, so / is taken for the home folder</source>
        <translation>المتغير HOME غير معين، فيؤخذ / مجلدا للمنزل</translation>
    </message>
    <message>
        <source>HOME is %1, which depends on the folder that a program is started in</source>
        <translation>المتغير HOME هو %1، وهو يتوقف على المجلد الذي يشغل البرنامج منه</translation>
    </message>
    <message>
        <source>HOME is %1, which is not a folder</source>
        <translation>المتغير HOME هو %1، وهو ليس مجلدا</translation>
    </message>
    <message>
        <source>HOME is %1, which is not there</source>
        <translation>المتغير HOME هو %1، وهو غير موجود</translation>
    </message>
    <message>
        <source>cannot read %1 (%2); name a file that can be read, or give - for standard input</source>
        <translation>لا تمكن قراءة %1 (%2)؛ حدد ملفا يمكن قراءته، أو - للدخل القياسي</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>هو مجلد</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>ليس ملفا عاديا</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>الدخل القياسي</translation>
    </message>
    <message>
        <source>%1 holds more than %2 bytes, which is too much; name a smaller one</source>
        <translation>يحوي %1 أكثر من %2 بايت، وهذا كثير؛ حدد ملفا أصغر</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1:</translation>
    </message>
    <message>
        <source>watching both stores; Ctrl+C ends it</source>
        <translation>جارية مراقبة المستودعين؛ Ctrl+C ينهيها</translation>
    </message>
    <message>
        <source>%1 is not UTF-8 without a byte order mark; give the name in UTF-8</source>
        <translation>ليس %1 بترميز UTF-8 دون علامة ترتيب البايتات؛ أعط الاسم بترميز UTF-8</translation>
    </message>
    <message>
        <source>%1 is longer than a path can be; give the name of a file</source>
        <translation>%1 أطول مما يمكن أن يكون المسار؛ أعط اسم ملف</translation>
    </message>
    <message>
        <source>nothing can be reserved in %1, which is %2: %3; store another folder there, or mend that</source>
        <translation>لا يمكن حجز شيء في %1، وهو قيمة %2: %3؛ خزن مجلدا آخر هناك، أو أصلح ذلك</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile; try again</source>
        <translation>تغير %1 في الأثناء؛ حاول مرة أخرى</translation>
    </message>
    <message>
        <source>the name %1 would not lie in %2 as it is; take a format without &quot;/&quot; and NUL</source>
        <translation>لن يقع الاسم %1 كما هو في %2؛ استخدم تنسيقا خاليا من &quot;/&quot; و NUL</translation>
    </message>
    <message>
        <source>take a source with a shorter name</source>
        <translation>استخدم ملفا أصليا اسمه أقصر</translation>
    </message>
    <message>
        <source>&apos;editor-settings paths --check&apos; tells which folders can be used</source>
        <translation>يبين &apos;editor-settings paths --check&apos; المجلدات التي يمكن استخدامها</translation>
    </message>
    <message>
        <source>cannot make the file %1 (%2); %3</source>
        <translation>لا يمكن إنشاء الملف %1 (%2)؛ %3</translation>
    </message>
    <message>
        <source>cannot make the folder %1 (%2); %3</source>
        <translation>لا يمكن إنشاء المجلد %1 (%2)؛ %3</translation>
    </message>
    <message>
        <source>%1 is there already, though the editor would propose it</source>
        <translation>%1 موجود من قبل، مع أن المحرر يقترحه</translation>
    </message>
    <message>
        <source>%1 was taken by someone else meanwhile</source>
        <translation>حجز برنامج آخر %1 في الأثناء</translation>
    </message>
    <message>
        <source>%1; %2 is reserved instead</source>
        <translation>%1؛ وحجز %2 بدلا منه</translation>
    </message>
    <message>
        <source>%1 is reserved, but standard output cannot be written; remove the file if it is not wanted</source>
        <translation>تم حجز %1، لكن لا تمكن الكتابة إلى الخرج القياسي؛ أزل الملف إن لم ترده</translation>
    </message>
    <message>
        <source>%1 takes nothing after it</source>
        <translation>لا يقبل %1 شيئا بعده</translation>
    </message>
    <message>
        <source>%1 is not UTF-8 without a byte order mark; give it as the editor does</source>
        <translation>ليس %1 بترميز UTF-8 دون علامة ترتيب البايتات؛ أعطه كما يعطيه المحرر</translation>
    </message>
    <message>
        <source>there is no location %1; %2&apos;editor-settings paths&apos; shows all</source>
        <translation>لا يوجد موقع %1؛ %2&apos;editor-settings paths&apos; يعرضها كلها</translation>
    </message>
    <message>
        <source>say what %1 is asked about: &apos;editor-settings paths %1 %2&apos;</source>
        <translation>حدد ما يسأل %1 عنه: &apos;editor-settings paths %1 %2&apos;</translation>
    </message>
    <message>
        <source>&apos; or &apos;</source>
        <translation>&apos; أو &apos;</translation>
    </message>
    <message>
        <source>nothing goes after a pattern; name one location</source>
        <translation>لا يأتي شيء بعد نمط؛ حدد موقعا واحدا</translation>
    </message>
    <message>
        <source>nothing else: an absolute path stands for itself</source>
        <translation>لا شيء آخر: المسار المطلق قائم بذاته</translation>
    </message>
    <message>
        <source>%1 is stored in %2</source>
        <translation>%1 مخزن في %2</translation>
    </message>
    <message>
        <source>%1 is stored with a value of another kind in %2, so %3 holds</source>
        <translation>%1 مخزن في %2 بقيمة من نوع آخر، فيسري %3</translation>
    </message>
    <message>
        <source>%1 is not stored in %2, so %3 holds</source>
        <translation>%1 غير مخزن في %2، فيسري %3</translation>
    </message>
    <message>
        <source>location</source>
        <translation>الموقع</translation>
    </message>
    <message>
        <source>path</source>
        <translation>المسار</translation>
    </message>
    <message>
        <source>use</source>
        <translation>الاستخدام</translation>
    </message>
    <message>
        <source>decided by</source>
        <translation>يقرره</translation>
    </message>
    <message>
        <source>none found</source>
        <translation>لم يعثر على شيء</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>نعم</translation>
    </message>
    <message>
        <source>no</source>
        <translation>لا</translation>
    </message>
    <message>
        <source>LOCATION</source>
        <translation>الموقع</translation>
    </message>
    <message>
        <source>EXISTS</source>
        <translation>موجود</translation>
    </message>
    <message>
        <source>WRITABLE</source>
        <translation>قابل للكتابة</translation>
    </message>
    <message>
        <source>REMARK</source>
        <translation>ملاحظة</translation>
    </message>
    <message>
        <source>PATH</source>
        <translation>المسار</translation>
    </message>
    <message>
        <source>the editor cannot write to %1; mend what is remarked: &apos;editor-settings paths NAME --explain&apos; tells what decides, and a preference may be set to another folder</source>
        <translation>لا يستطيع المحرر الكتابة في %1؛ أصلح ما ورد في الملاحظة: يبين &apos;editor-settings paths NAME --explain&apos; ما يقرر المكان، ويمكن تعيين تفضيل على مجلد آخر</translation>
    </message>
    <message>
        <source>unreadable</source>
        <translation>غير مقروء</translation>
    </message>
    <message>
        <source>other kind</source>
        <translation>نوع آخر</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>مزال</translation>
    </message>
    <message>
        <source>set</source>
        <translation>معين</translation>
    </message>
    <message>
        <source>added</source>
        <translation>مضاف</translation>
    </message>
    <message>
        <source>step %1 of %2: %3</source>
        <translation>الخطوة %1 من %2: %3</translation>
    </message>
    <message>
        <source>unset</source>
        <translation>غير معين</translation>
    </message>
    <message>
        <source>set to default</source>
        <translation>معين على الافتراضي</translation>
    </message>
    <message>
        <source>%1 is reserved: the editor neither reads nor writes it, so it cannot be reached</source>
        <translation>%1 محجوز: لا يقرؤه المحرر ولا يكتبه، فلا يمكن الوصول إليه</translation>
    </message>
    <message>
        <source>%1 is a location and no preference; &apos;editor-settings paths %1&apos; shows it</source>
        <translation>%1 موقع وليس تفضيلا؛ يعرضه &apos;editor-settings paths %1&apos;</translation>
    </message>
    <message>
        <source>there is no preference %1; %2&apos;editor-settings list&apos; shows all</source>
        <translation>لا يوجد تفضيل %1؛ %2&apos;editor-settings list&apos; يعرضها كلها</translation>
    </message>
    <message>
        <source>the name %1 is not UTF-8 without a byte order mark; give it as the editor writes it</source>
        <translation>ليس الاسم %1 بترميز UTF-8 دون علامة ترتيب البايتات؛ أعطه كما يكتبه المحرر</translation>
    </message>
    <message>
        <source>(unreadable)</source>
        <translation>(غير مقروء)</translation>
    </message>
    <message>
        <source>holds a value of kind %1 that this version cannot read</source>
        <translation>يحوي قيمة نوعها %1 لا يستطيع هذا الإصدار قراءتها</translation>
    </message>
    <message>
        <source>has a NUL in its key</source>
        <translation>في مفتاحه محرف NUL</translation>
    </message>
    <message>
        <source>reading the %1 store</source>
        <translation>جارية قراءة المستودع %1</translation>
    </message>
    <message>
        <source>a key in the %1 store holds the path of the home folder, so it is left out</source>
        <translation>يحوي مفتاح في المستودع %1 مسار مجلد المنزل، لذا استبعد</translation>
    </message>
    <message>
        <source>%1 in the %2 store %3, so it is left out; &apos;editor-settings backup&apos; keeps it</source>
        <translation>%1 في المستودع %2 %3، لذا استبعد؛ ويحفظه &apos;editor-settings backup&apos;</translation>
    </message>
    <message>
        <source>writing the file</source>
        <translation>جارية كتابة الملف</translation>
    </message>
    <message>
        <source>%1 is there already and was left as it is; name a new file, or move that one away</source>
        <translation>%1 موجود من قبل وترك كما كان؛ حدد ملفا جديدا، أو انقل ذاك من مكانه</translation>
    </message>
    <message>
        <source>%1 in the %2 store %3, so it is not compared</source>
        <translation>%1 في المستودع %2 %3، لذا لا يقارن</translation>
    </message>
    <message>
        <source>comparing with the %1 store</source>
        <translation>جارية المقارنة مع المستودع %1</translation>
    </message>
    <message>
        <source>(absent)</source>
        <translation>(غائب)</translation>
    </message>
    <message>
        <source>CHANGE</source>
        <translation>التغيير</translation>
    </message>
    <message>
        <source>STORED</source>
        <translation>القيمة المخزنة</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>الملف</translation>
    </message>
    <message>
        <source>reading the file</source>
        <translation>جارية قراءة الملف</translation>
    </message>
    <message numerus="yes">
        <source>%n redacted in the file, so not compared</source>
        <comment>%n redacted in the file, so not compared</comment>
        <translation>
            <numerusform>لا قيم محجوبة في الملف</numerusform>
            <numerusform>قيمة واحدة محجوبة في الملف، لذا لم تقارن</numerusform>
            <numerusform>قيمتان محجوبتان في الملف، لذا لم تقارنا</numerusform>
            <numerusform>%n قيم محجوبة في الملف، لذا لم تقارن</numerusform>
            <numerusform>%n قيمة محجوبة في الملف، لذا لم تقارن</numerusform>
            <numerusform>%n قيمة محجوبة في الملف، لذا لم تقارن</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; nothing was changed</source>
        <translation>%1؛ لم يتغير شيء</translation>
    </message>
    <message>
        <source>the %1 store is as it was</source>
        <translation>المستودع %1 كما كان</translation>
    </message>
    <message>
        <source>the %1 store holds the imported values</source>
        <translation>يحوي المستودع %1 القيم المستوردة</translation>
    </message>
    <message>
        <source>the %1 store cannot be read</source>
        <translation>لا تمكن قراءة المستودع %1</translation>
    </message>
    <message>
        <source>changing the %1 store</source>
        <translation>جار تغيير المستودع %1</translation>
    </message>
    <message>
        <source>%1; %2; then import the file again</source>
        <translation>%1؛ %2؛ ثم استورد الملف ثانية</translation>
    </message>
    <message numerus="yes">
        <source>%n would change</source>
        <comment>%n would change</comment>
        <translation>
            <numerusform>لن يتغير شيء</numerusform>
            <numerusform>ستتغير قيمة واحدة</numerusform>
            <numerusform>ستتغير قيمتان</numerusform>
            <numerusform>ستتغير %n قيم</numerusform>
            <numerusform>ستتغير %n قيمة</numerusform>
            <numerusform>ستتغير %n قيمة</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n changed</source>
        <comment>%n changed</comment>
        <translation>
            <numerusform>لم يتغير شيء</numerusform>
            <numerusform>تغيرت قيمة واحدة</numerusform>
            <numerusform>تغيرت قيمتان</numerusform>
            <numerusform>تغيرت %n قيم</numerusform>
            <numerusform>تغيرت %n قيمة</numerusform>
            <numerusform>تغيرت %n قيمة</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n already as in the file</source>
        <comment>%n already as in the file</comment>
        <translation>
            <numerusform>لا شيء مطابق لما في الملف</numerusform>
            <numerusform>قيمة واحدة كما في الملف من قبل</numerusform>
            <numerusform>قيمتان كما في الملف من قبل</numerusform>
            <numerusform>%n قيم كما في الملف من قبل</numerusform>
            <numerusform>%n قيمة كما في الملف من قبل</numerusform>
            <numerusform>%n قيمة كما في الملف من قبل</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n redacted in the file and left alone</source>
        <comment>%n redacted in the file and left alone</comment>
        <translation>
            <numerusform>لا قيم محجوبة في الملف</numerusform>
            <numerusform>قيمة واحدة محجوبة في الملف وتركت كما هي</numerusform>
            <numerusform>قيمتان محجوبتان في الملف وتركتا كما هما</numerusform>
            <numerusform>%n قيم محجوبة في الملف وتركت كما هي</numerusform>
            <numerusform>%n قيمة محجوبة في الملف وتركت كما هي</numerusform>
            <numerusform>%n قيمة محجوبة في الملف وتركت كما هي</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is a bool and cannot be %2; %3</source>
        <translation>%1 من النوع bool ولا يمكن أن يكون %2؛ %3</translation>
    </message>
    <message>
        <source>%1 is an int and cannot be %2; %3</source>
        <translation>%1 من النوع int ولا يمكن أن يكون %2؛ %3</translation>
    </message>
    <message>
        <source>%1 is a text and cannot be %2; %3</source>
        <translation>%1 نص ولا يمكن أن يكون %2؛ %3</translation>
    </message>
    <message>
        <source>%1 holds bytes and cannot be %2; %3</source>
        <translation>يحوي %1 بايتات ولا يمكن أن يكون %2؛ %3</translation>
    </message>
    <message>
        <source>%1 is a list and cannot be %2; %3</source>
        <translation>%1 قائمة ولا يمكن أن تكون %2؛ %3</translation>
    </message>
    <message>
        <source>give text in UTF-8 without a byte order mark, as anything else would not come back unchanged</source>
        <translation>أعط نصا بترميز UTF-8 دون علامة ترتيب البايتات، فغيره لا يرجع كما كان</translation>
    </message>
    <message>
        <source>give true or false (or yes, no, on, off, 1, 0)</source>
        <translation>أعط true أو false (أو yes أو no أو on أو off أو 1 أو 0)</translation>
    </message>
    <message>
        <source>give a whole number from -2147483648 to 2147483647</source>
        <translation>أعط عددا صحيحا من -2147483648 إلى 2147483647</translation>
    </message>
    <message>
        <source>%1: cannot read %2 (%3); %4</source>
        <translation>%1: لا تمكن قراءة %2 (%3)؛ %4</translation>
    </message>
    <message>
        <source>%1: cannot read standard input (%2); give it a file or a pipe</source>
        <translation>%1: لا تمكن قراءة الدخل القياسي (%2)؛ صله بملف أو أنبوب</translation>
    </message>
    <message>
        <source>name a file that can be read after the @</source>
        <translation>حدد ملفا تمكن قراءته بعد @</translation>
    </message>
    <message>
        <source>give the bytes in base64, or @FILE to read them from a file</source>
        <translation>أعط البايتات بترميز base64، أو @FILE لقراءتها من ملف</translation>
    </message>
    <message>
        <source>an empty element is lost when the list is read back; leave it out (--empty stores an empty list)</source>
        <translation>يضيع العنصر الفارغ عند قراءة القائمة ثانية؛ فلا تكتبه (الخيار --empty يخزن قائمة فارغة)</translation>
    </message>
    <message>
        <source>the element holds the separator of stored lists and would come back in pieces</source>
        <translation>يحوي العنصر فاصل القوائم المخزنة وسيرجع مجزأ</translation>
    </message>
    <message>
        <source>together with the element before it, it makes up the separator of stored lists and would come back otherwise</source>
        <translation>يكون مع العنصر السابق فاصل القوائم المخزنة وسيرجع على غير ما كان</translation>
    </message>
    <message>
        <source>%1 takes one value, not %2; %3</source>
        <translation>يقبل %1 قيمة واحدة، لا %2؛ %3</translation>
    </message>
    <message>
        <source>--empty is for lists</source>
        <translation>الخيار --empty للقوائم</translation>
    </message>
    <message>
        <source>put quotes around a value with blanks</source>
        <translation>ضع علامتي اقتباس حول قيمة فيها مسافات</translation>
    </message>
    <message>
        <source>name a file that can be read</source>
        <translation>حدد ملفا تمكن قراءته</translation>
    </message>
    <message>
        <source>Exit status</source>
        <translation>حالة الخروج</translation>
    </message>
    <message>
        <source>  0  done
  1  said no: unknown key, wrong value, trouble with a store or the product file, a folder that cannot be used,
     or doctor found something wrong
  2  wrong usage
diff ends with 0 where nothing differs, with 1 where something does, and with 2 for everything else.</source>
        <translation>  0  تم
  1  رفض: مفتاح مجهول، أو قيمة خاطئة، أو مشكلة في مستودع أو في ملف المنتج، أو مجلد لا يمكن استخدامه،
     أو وجد doctor خللا
  2  استخدام خاطئ
ينتهي diff بالقيمة 0 إن لم يختلف شيء، وبالقيمة 1 إن اختلف شيء، وبالقيمة 2 في كل ما سوى ذلك.</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>الخرج</translation>
    </message>
    <message>
        <source>Values are printed to standard output, reasons to standard error. With --plain a backslash is printed as \\, a tab
as \t, line breaks as \n and \r, other control characters and bytes that are not UTF-8 as \xHH, and a list as a JSON array.
A terminal is sent no control characters but tabs, line breaks and the codes of colours. An answer that could not be
printed whole is an error.</source>
        <translation>تطبع القيم على الخرج القياسي، والأسباب على خرج الأخطاء القياسي. مع --plain تطبع الشرطة المائلة العكسية هكذا \\
وعلامة الجدولة \t وفواصل الأسطر \n و \r وسائر محارف التحكم والبايتات غير UTF-8 بالصورة \xHH، والقائمة مصفوفة JSON.
لا يرسل إلى الطرفية من محارف التحكم سوى علامات الجدولة وفواصل الأسطر ورموز الألوان. والجواب الذي لم يمكن
طبعه كاملا خطأ.</translation>
    </message>
    <message>
        <source>On a terminal</source>
        <translation>على طرفية</translation>
    </message>
    <message>
        <source>What is longer than the screen is shown by the program that EDITOR_SETTINGS_PAGER names, else PAGER, else
&quot;less&quot;; an empty name and &quot;cat&quot; stand for none. Columns line up there; elsewhere a tab stands between each two. Colours say
nothing that the words do not say; NO_COLOR, or &quot;dumb&quot; in TERM, leaves them out. What takes longer than a second tells
meanwhile which step it is at, where standard error is a terminal.</source>
        <translation>ما زاد على الشاشة يعرضه عارض الصفحات الذي يسميه EDITOR_SETTINGS_PAGER، وإلا PAGER، وإلا &quot;less&quot;؛ والاسم الفارغ
و &quot;cat&quot; يعنيان عدم استخدام أي عارض. وتصطف الأعمدة هناك، ويفصل بينها في غير ذلك محرف جدولة.
لا تقول الألوان ما لا تقوله الكلمات؛ ويلغيها NO_COLOR أو &quot;dumb&quot; في TERM.
وما استغرق أكثر من ثانية يبين أثناء ذلك الخطوة التي بلغها، إن كان خرج الأخطاء القياسي طرفية.</translation>
    </message>
    <message>
        <source>Words that look like options</source>
        <translation>كلمات تشبه الخيارات</translation>
    </message>
    <message>
        <source>A value that begins with &quot;-&quot; goes after &quot;--&quot;: editor-settings set lastTarget -- -x</source>
        <translation>القيمة التي تبدأ بالمحرف &quot;-&quot; تكتب بعد &quot;--&quot;: editor-settings set lastTarget -- -x</translation>
    </message>
    <message>
        <source>the name is empty; name a file</source>
        <translation>الاسم فارغ؛ حدد ملفا</translation>
    </message>
    <message>
        <source>the name is empty; leave the option out for the default</source>
        <translation>الاسم فارغ؛ لا تكتب الخيار إن أردت القيمة الافتراضية</translation>
    </message>
    <message>
        <source>As JSON</source>
        <translation>بصيغة JSON</translation>
    </message>
    <message>
        <source>As JSON; bytes in base64</source>
        <translation>بصيغة JSON؛ والبايتات بترميز base64</translation>
    </message>
    <message>
        <source>Tab-separated, one record a line, nothing shortened; for scripts</source>
        <translation>مفصول بعلامات الجدولة، مدخل في كل سطر، دون اختصار؛ للسكربتات</translation>
    </message>
    <message>
        <source>Stores an empty list</source>
        <translation>يخزن قائمة فارغة</translation>
    </message>
    <message>
        <source>Writes what is stored to a new file, in JSON: for another machine, or for somebody who helps</source>
        <translation>يكتب ما هو مخزن في ملف جديد، بصيغة JSON: لجهاز آخر، أو لمن يقدم المساعدة</translation>
    </message>
    <message>
        <source>Stores what an exported file holds, all of it or nothing; what it does not name stays</source>
        <translation>يخزن ما يحويه ملف تصدير، كله أو لا شيء منه؛ وما لا يذكره يبقى</translation>
    </message>
    <message>
        <source>The differences between what is stored and what an exported file holds</source>
        <translation>الفروق بين ما هو مخزن وما يحويه ملف تصدير</translation>
    </message>
    <message>
        <source>The new file; - for standard output</source>
        <translation>الملف الجديد؛ - للخرج القياسي</translation>
    </message>
    <message>
        <source>The file; - for standard input</source>
        <translation>الملف؛ - للدخل القياسي</translation>
    </message>
    <message>
        <source>Only keys of this class; may be given several times</source>
        <translation>مفاتيح هذا الصنف فقط؛ ويمكن تكراره</translation>
    </message>
    <message>
        <source>Leaves out personal values, those of unknown keys, and whatever holds the path of the home folder</source>
        <translation>يستبعد القيم الشخصية، وقيم المفاتيح المجهولة، وكل ما يحوي مسار مجلد المنزل</translation>
    </message>
    <message>
        <source>Takes keys that the editor does not know as they are</source>
        <translation>يأخذ المفاتيح التي لا يعرفها المحرر كما هي</translation>
    </message>
    <message>
        <source>Tells what would change, as diff does, and changes nothing</source>
        <translation>يبين ما سيتغير، كما يفعل diff، ولا يغير شيئا</translation>
    </message>
    <message>
        <source>With --dry-run: as JSON; bytes in base64</source>
        <translation>مع --dry-run: بصيغة JSON؛ والبايتات بترميز base64</translation>
    </message>
    <message>
        <source>Run with --help for more information.</source>
        <translation>شغل الأمر مع --help لمعلومات أكثر.</translation>
    </message>
    <message>
        <source>bash, zsh or fish</source>
        <translation>bash أو zsh أو fish</translation>
    </message>
    <message>
        <source>Name a product file with &apos;--product FILE&apos;, or in EDITOR_SETTINGS_PRODUCT.</source>
        <translation>حدد ملف المنتج بالخيار &apos;--product FILE&apos;، أو في EDITOR_SETTINGS_PRODUCT.</translation>
    </message>
    <message>
        <source>Run &apos;editor-settings doctor&apos; with the same options to see what is wrong; &apos;editor-settings restore FILE&apos; brings a backup back.</source>
        <translation>شغل &apos;editor-settings doctor&apos; بالخيارات نفسها لمعرفة الخلل؛ ويستعيد &apos;editor-settings restore FILE&apos; نسخة احتياطية.</translation>
    </message>
    <message>
        <source>A verb</source>
        <translation>أمر</translation>
    </message>
    <message>
        <source>Colours: auto for a terminal alone, always, or never; default: auto</source>
        <translation>الألوان: auto لطرفية وحدها، أو always دائما، أو never أبدا؛ الافتراضي: auto</translation>
    </message>
    <message>
        <source>Long answers as they are, not a screen at a time</source>
        <translation>الأجوبة الطويلة كما هي، لا شاشة فشاشة</translation>
    </message>
    <message>
        <source>The product file, in JSON; default: the one that is installed with this program</source>
        <translation>ملف المنتج، بصيغة JSON؛ الافتراضي: المثبت مع هذا البرنامج</translation>
    </message>
    <message>
        <source>The folder of both stores; default: the product&apos;s data folder and the vendor&apos;s</source>
        <translation>مجلد المستودعين كليهما؛ الافتراضي: مجلد بيانات المنتج ومجلد بيانات الشركة المنتجة</translation>
    </message>
    <message>
        <source>Only keys that match, such as &apos;*Path&apos;</source>
        <translation>المفاتيح المطابقة فقط، مثل &apos;*Path&apos;</translation>
    </message>
    <message>
        <source>Only what is stored</source>
        <translation>ما هو مخزن فقط</translation>
    </message>
    <message>
        <source>Only what is not stored</source>
        <translation>ما ليس مخزنا فقط</translation>
    </message>
    <message>
        <source>Only one store</source>
        <translation>مستودع واحد فقط</translation>
    </message>
    <message>
        <source>The preference</source>
        <translation>التفضيل</translation>
    </message>
    <message>
        <source>A bool as true or false, an int in decimal, text in UTF-8, bytes in base64 or as @FILE, a list as one word for each element</source>
        <translation>نوع bool بصورة true أو false، ونوع int بالنظام العشري، والنص بترميز UTF-8، والبايتات بترميز base64 أو @FILE، والقائمة كلمة لكل عنصر</translation>
    </message>
    <message>
        <source>Stores what the file holds, or standard input where it is -: byte for byte, but for a list one element on each line</source>
        <translation>يخزن ما يحويه الملف، أو الدخل القياسي إن كان -: بايتا بايتا، أما القائمة فعنصر في كل سطر</translation>
    </message>
    <message>
        <source>One location, or those that match, such as &apos;stock*&apos;</source>
        <translation>موقع واحد، أو المواقع المطابقة، مثل &apos;stock*&apos;</translation>
    </message>
    <message>
        <source>What the location is asked about, where it takes that</source>
        <translation>ما يسأل الموقع عنه، إن كان يقبل ذلك</translation>
    </message>
    <message>
        <source>What decides where a location lies</source>
        <translation>ما يقرر مكان الموقع</translation>
    </message>
    <message>
        <source>Whether they exist and can be used; exit status 1 where the editor cannot write to one that it writes to</source>
        <translation>هل هي موجودة ويمكن استخدامها؛ حالة الخروج 1 إن لم يستطع المحرر الكتابة في موقع يكتب فيه</translation>
    </message>
    <message>
        <source>Makes the file, empty, so that nobody else gets the name; the folder too, and a free number where needed</source>
        <translation>ينشئ الملف فارغا، فلا يحصل غيرك على الاسم؛ والمجلد أيضا، ورقما شاغرا عند الحاجة</translation>
    </message>
    <message>
        <source>The file that it is made of; only its name counts</source>
        <translation>الملف الذي يصنع منه؛ ولا يهم منه سوى اسمه</translation>
    </message>
    <message>
        <source>The extension, such as mp4</source>
        <translation>الامتداد، مثل mp4</translation>
    </message>
    <message>
        <source>The name that the editor keeps it under</source>
        <translation>الاسم الذي يحفظه المحرر به</translation>
    </message>
    <message>
        <source>Stores these bytes: in base64, or @FILE</source>
        <translation>يخزن هذه البايتات: بترميز base64، أو @FILE</translation>
    </message>
    <message>
        <source>Stores this list, one word for each element</source>
        <translation>يخزن هذه القائمة، كلمة لكل عنصر</translation>
    </message>
    <message>
        <source>Stores this text</source>
        <translation>يخزن هذا النص</translation>
    </message>
    <message>
        <source>The new file</source>
        <translation>الملف الجديد</translation>
    </message>
    <message>
        <source>A file that backup has written</source>
        <translation>ملف كتبه backup</translation>
    </message>
    <message>
        <source>Only tells what would change</source>
        <translation>يبين ما سيتغير فقط</translation>
    </message>
    <message>
        <source>markdown: the page of the reference, the same on every machine</source>
        <translation>markdown: صفحة المرجع، وهي نفسها على كل جهاز</translation>
    </message>
    <message>
        <source>%1; set HOME to your folder, or name one for the stores with --home</source>
        <translation>%1؛ عين HOME على مجلدك، أو حدد مجلدا للمستودعين بالخيار --home</translation>
    </message>
    <message>
        <source>%1; set HOME to your folder</source>
        <translation>%1؛ عين HOME على مجلدك</translation>
    </message>
    <message>
        <source>only for reading: %1</source>
        <translation>للقراءة فقط: %1</translation>
    </message>
    <message>
        <source>Reads, changes and explains the preferences, folders and file names of Lumora Video Editor.</source>
        <translation>يقرأ تفضيلات Lumora Video Editor ومجلداته وأسماء ملفاته، ويغيرها ويشرحها.</translation>
    </message>
    <message>
        <source>All preferences with their values, sorted by key</source>
        <translation>كل التفضيلات بقيمها، مرتبة حسب المفتاح</translation>
    </message>
    <message>
        <source>The value that the editor reads now</source>
        <translation>القيمة التي يقرؤها المحرر الآن</translation>
    </message>
    <message>
        <source>Stores a value</source>
        <translation>يخزن قيمة</translation>
    </message>
    <message>
        <source>Removes the stored value, so that the default holds again</source>
        <translation>يزيل القيمة المخزنة، فتسري القيمة الافتراضية ثانية</translation>
    </message>
    <message>
        <source>Where a value comes from: what is stored, since when, and the default</source>
        <translation>مصدر القيمة: ما هو مخزن، ومنذ متى، والقيمة الافتراضية</translation>
    </message>
    <message>
        <source>Where the editor&apos;s files and folders lie</source>
        <translation>أين تقع ملفات المحرر ومجلداته</translation>
    </message>
    <message>
        <source>The name that the editor gives the next file of a kind</source>
        <translation>الاسم الذي يعطيه المحرر للملف التالي من نوع ما</translation>
    </message>
    <message>
        <source>An audio recording</source>
        <translation>تسجيل صوتي</translation>
    </message>
    <message>
        <source>A freeze frame</source>
        <translation>إطار مجمد</translation>
    </message>
    <message>
        <source>A stabilized clip</source>
        <translation>مقطع مثبت</translation>
    </message>
    <message>
        <source>Default name, extensions and filters of projects, and the sample project</source>
        <translation>الاسم الافتراضي للمشاريع وامتداداتها ومرشحاتها، والمشروع النموذجي</translation>
    </message>
    <message>
        <source>The favourites of one list</source>
        <translation>مفضلات قائمة واحدة</translation>
    </message>
    <message>
        <source>What the editor keeps for an indication, or stores it</source>
        <translation>ما يحفظه المحرر لمؤشر، أو يخزنه</translation>
    </message>
    <message>
        <source>The finished tutorials, or stores them</source>
        <translation>الدروس المنتهية، أو يخزنها</translation>
    </message>
    <message>
        <source>The user&apos;s own colours, or stores them</source>
        <translation>ألوان المستخدم الخاصة، أو يخزنها</translation>
    </message>
    <message>
        <source>The recent export targets, or stores them</source>
        <translation>وجهات التصدير الأخيرة، أو يخزنها</translation>
    </message>
    <message>
        <source>Copies both stores into one file, also while the editor runs</source>
        <translation>ينسخ المستودعين كليهما إلى ملف واحد، والمحرر يعمل أيضا</translation>
    </message>
    <message>
        <source>Brings the stores of a backup back, and keeps what was there</source>
        <translation>يستعيد مستودعي نسخة احتياطية، ويحفظ ما كان هناك</translation>
    </message>
    <message>
        <source>Prints the changes that other processes make, as they happen</source>
        <translation>يطبع التغييرات التي تجريها عمليات أخرى، فور وقوعها</translation>
    </message>
    <message>
        <source>What is wrong with the stores, what they hold and the folders; exit status 1 where something is</source>
        <translation>ما الخلل في المستودعين ومحتواهما والمجلدات؛ حالة الخروج 1 إن وجد خلل</translation>
    </message>
    <message>
        <source>A completion script for a shell, to be sourced</source>
        <translation>سكربت إكمال لصدفة، يحمل بالأمر source</translation>
    </message>
    <message>
        <source>The manual page, for man</source>
        <translation>صفحة الدليل، للأمر man</translation>
    </message>
    <message>
        <source>One JSON object a line; bytes in base64</source>
        <translation>كائن JSON في كل سطر؛ والبايتات بترميز base64</translation>
    </message>
    <message>
        <source>cannot write to standard output: %1</source>
        <translation>لا تمكن الكتابة إلى الخرج القياسي: %1</translation>
    </message>
    <message>
        <source>%1 is reserved: the editor neither reads nor writes it; remove it, or give --with-unknown</source>
        <translation>%1 محجوز: لا يقرؤه المحرر ولا يكتبه؛ أزله، أو استخدم --with-unknown</translation>
    </message>
    <message>
        <source>%1 is no preference of the editor; %2correct or remove it, or give --with-unknown to take such keys as they are</source>
        <translation>ليس %1 من تفضيلات المحرر؛ %2صححه أو أزله، أو استخدم --with-unknown لأخذ مثل هذه المفاتيح كما هي</translation>
    </message>
    <message>
        <source>%1 is kept in the other store; move it to stores.%2</source>
        <translation>%1 محفوظ في المستودع الآخر؛ انقله إلى stores.%2</translation>
    </message>
    <message>
        <source>%1 is &quot;%2&quot;, which the editor would not read; give a value of kind &quot;%3&quot;</source>
        <translation>%1 هو &quot;%2&quot;، ولن يقرأه المحرر؛ أعط قيمة نوعها &quot;%3&quot;</translation>
    </message>
    <message>
        <source> or </source>
        <translation> أو </translation>
    </message>
    <message>
        <source>did you mean %1?</source>
        <translation>هل قصدت %1؟</translation>
    </message>
    <message>
        <source>%1 is not set, so %2</source>
        <translation>المتغير %1 غير معين، فيستخدم %2</translation>
    </message>
    <message>
        <source>%1 is empty, so %2</source>
        <translation>المتغير %1 فارغ، فيستخدم %2</translation>
    </message>
    <message>
        <source>%1=%2 in the environment</source>
        <translation>%1=%2 في البيئة</translation>
    </message>
    <message>
        <source>%1 in the home folder</source>
        <translation>%1 في مجلد المنزل</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1، السطر %2</translation>
    </message>
    <message>
        <source>%1=%2 in %3</source>
        <translation>%1=%2 في %3</translation>
    </message>
    <message>
        <source>no %1 in %2, so %3</source>
        <translation>لا يوجد %1 في %2، فيستخدم %3</translation>
    </message>
    <message>
        <source>%1 cannot be read (%2), so %3</source>
        <translation>لا تمكن قراءة %1 (%2)، فيستخدم %3</translation>
    </message>
    <message>
        <source>there is no %1, so %2</source>
        <translation>لا يوجد %1، فيستخدم %2</translation>
    </message>
    <message>
        <source>%1 gives %2</source>
        <translation>يعطي %1 القيمة %2</translation>
    </message>
    <message>
        <source>resourcesRoot of %1, which is %2</source>
        <translation>الحقل resourcesRoot في %1، وهو %2</translation>
    </message>
    <message>
        <source>nothing: the text is fixed</source>
        <translation>لا شيء: النص ثابت</translation>
    </message>
    <message>
        <source>%1 %2 in %3</source>
        <translation>%1 %2 في %3</translation>
    </message>
    <message>
        <source>the document</source>
        <translation>المستند</translation>
    </message>
    <message>
        <source>line %1, column %2:</source>
        <translation>السطر %1، العمود %2:</translation>
    </message>
    <message>
        <source>%1 is nested too deeply; give a file that &apos;editor-settings export&apos; made</source>
        <translation>%1 متداخل أعمق مما ينبغي؛ أعط ملفا أنشأه &apos;editor-settings export&apos;</translation>
    </message>
    <message>
        <source>%1 stands there twice; keep one of the two</source>
        <translation>يرد %1 هناك مرتين؛ أبق واحدا منهما</translation>
    </message>
    <message>
        <source>a number is too large</source>
        <translation>عدد كبير جدا</translation>
    </message>
    <message>
        <source>%1 %2; mend it there, or export the file again</source>
        <translation>%1 %2؛ أصلحه هناك، أو صدر الملف ثانية</translation>
    </message>
    <message>
        <source>%1 a byte order mark stands before the text; save the file as UTF-8 without it</source>
        <translation>%1 توجد علامة ترتيب البايتات قبل النص؛ احفظ الملف بترميز UTF-8 دونها</translation>
    </message>
    <message>
        <source>the document is a database; where &apos;editor-settings backup&apos; made it, &apos;editor-settings restore&apos; takes it</source>
        <translation>المستند قاعدة بيانات؛ إن أنشأها &apos;editor-settings backup&apos; فالأمر &apos;editor-settings restore&apos; يقبلها</translation>
    </message>
    <message>
        <source>%1 a NUL stands there, which no text holds; save the file as UTF-8, or export it again</source>
        <translation>%1 يوجد محرف NUL هناك، ولا يحويه أي نص؛ احفظ الملف بترميز UTF-8، أو صدره ثانية</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>كائن</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>مصفوفة</translation>
    </message>
    <message>
        <source>%1 is %2; give %3</source>
        <translation>%1 هو %2؛ أعط %3</translation>
    </message>
    <message>
        <source>an object, between { and }</source>
        <translation>كائنا بين { و }</translation>
    </message>
    <message>
        <source>%1 means nothing; remove it: what stands there is %2</source>
        <translation>لا معنى لـ %1؛ أزله: ما يكتب هناك هو %2</translation>
    </message>
    <message>
        <source>%1 is missing; give a file that &apos;editor-settings export&apos; made</source>
        <translation>%1 غير موجود؛ أعط ملفا أنشأه &apos;editor-settings export&apos;</translation>
    </message>
    <message>
        <source>a text, in quotes</source>
        <translation>نصا بين علامتي اقتباس</translation>
    </message>
    <message>
        <source>%1 is not how a key is written: a backslash is doubled, and only a byte that is not UTF-8 stands as \xHH, in small letters; write it so</source>
        <translation>لا يكتب المفتاح كما في %1: تضاعف الشرطة المائلة العكسية، ولا يكتب \xHH بحروف صغيرة إلا لبايت ليس UTF-8؛ اكتبه هكذا</translation>
    </message>
    <message>
        <source>%1 holds a NUL, which no key can; remove it</source>
        <translation>في %1 محرف NUL، ولا يمكن أن يحويه مفتاح؛ أزله</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>القيمة true أو false</translation>
    </message>
    <message>
        <source>a whole number from -2147483648 to 2147483647</source>
        <translation>عددا صحيحا من -2147483648 إلى 2147483647</translation>
    </message>
    <message>
        <source>bytes in base64</source>
        <translation>بايتات بترميز base64</translation>
    </message>
    <message>
        <source>&quot;base64&quot;, or leave the field out</source>
        <translation>القيمة &quot;base64&quot;، أو اترك الحقل</translation>
    </message>
    <message>
        <source>bool, int, string or bytes</source>
        <translation>النوع bool أو int أو string أو bytes</translation>
    </message>
    <message>
        <source>%1 is for the kind string only; remove it</source>
        <translation>%1 للنوع string فقط؛ أزله</translation>
    </message>
    <message>
        <source>%1 stands beside &quot;redacted&quot;; keep one of the two</source>
        <translation>يرد %1 إلى جانب &quot;redacted&quot;؛ أبق واحدا منهما</translation>
    </message>
    <message>
        <source>true, or a value in its place</source>
        <translation>القيمة true، أو قيمة مكانه</translation>
    </message>
    <message>
        <source>format is %1, so this is no export of settings; give a file that &apos;editor-settings export&apos; made</source>
        <translation>الحقل format هو %1، فليس هذا تصديرا للإعدادات؛ أعط ملفا أنشأه &apos;editor-settings export&apos;</translation>
    </message>
    <message>
        <source>format is missing, so this is no export of settings; give a file that &apos;editor-settings export&apos; made</source>
        <translation>الحقل format غير موجود، فليس هذا تصديرا للإعدادات؛ أعط ملفا أنشأه &apos;editor-settings export&apos;</translation>
    </message>
    <message>
        <source>version is %1, and this program reads up to %2: a newer one wrote the file; update this program</source>
        <translation>الحقل version هو %1، وهذا البرنامج يقرأ حتى %2: كتب الملف برنامج أحدث؛ حدث هذا البرنامج</translation>
    </message>
    <message>
        <source>default of a preference</source>
        <translation>القيمة الافتراضية لتفضيل</translation>
    </message>
    <message>
        <source>written to</source>
        <translation>يكتب فيه</translation>
    </message>
    <message>
        <source>shipped with the product</source>
        <translation>موزع مع المنتج</translation>
    </message>
    <message>
        <source>joined to a folder by the editor</source>
        <translation>يضمه المحرر إلى مجلد</translation>
    </message>
    <message>
        <source>inside the editor&apos;s program</source>
        <translation>داخل برنامج المحرر</translation>
    </message>
    <message>
        <source>%1 is required</source>
        <translation>مطلوب: %1</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>لم يكن هذا الوسيط متوقعا: %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>لم تكن هذه الوسائط متوقعة: %1</translation>
    </message>
    <message>
        <source>%1 excludes %2</source>
        <translation>لا يجتمع %1 مع %2</translation>
    </message>
    <message>
        <source>%1: %2 required %3 missing</source>
        <translation>%1: المطلوب %2 وينقص %3</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>الاستخدام</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>خيارات</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>أمر فرعي</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>الوسائط</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>مطلوب</translation>
    </message>
    <message>
        <source>Env</source>
        <translation>البيئة</translation>
    </message>
    <message>
        <source>Excludes</source>
        <translation>لا يجتمع مع</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>يطبع رسالة المساعدة هذه وينتهي</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>الخيارات</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>الأوامر الفرعية</translation>
    </message>
    <message>
        <source>%1 not in %2</source>
        <translation>ليس %1 في %2</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>يعرض إصدار البرنامج وينتهي</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>اللغة</translation>
    </message>
    <message>
        <source>Texts are in the language that LANGUAGE names, else LC_ALL, LC_MESSAGES or LANG, where there is a translation and the
locale is in UTF-8. What the system and the stores tell is always English; so are all texts with --plain, --json or --format, the
manual page and the completion scripts.</source>
        <translation>النصوص باللغة التي يسميها LANGUAGE، وإلا LC_ALL أو LC_MESSAGES أو LANG، إن وجدت ترجمة وكانت الإعدادات
المحلية بترميز UTF-8. وما يقوله النظام والمستودعان بالإنجليزية دائما؛ وكذلك كل النصوص مع --plain أو --json أو --format،
وصفحة الدليل وسكربتات الإكمال.</translation>
    </message>
</context>
</TS>
