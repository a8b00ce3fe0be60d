<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>AddTrialForm</name>
    <message>
        <source>Service name</source>
        <extracomment>Caption of the field for the name of the service whose trial it is; a screen reader says it of the field.</extracomment>
        <translation>اسم الخدمة</translation>
    </message>
    <message>
        <source>e.g. Netflix, Canva Pro</source>
        <extracomment>Shown in the empty field for the name of the service. The names stay as they are.</extracomment>
        <translation>مثلًا Netflix، ‏Canva Pro</translation>
    </message>
    <message>
        <source>Trial ends</source>
        <extracomment>Caption of the fields for the day and the time at which the trial ends.</extracomment>
        <translation>نهاية الفترة التجريبية</translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <extracomment>Caption of the field for what the service costs a month once the trial has ended.</extracomment>
        <translation>التكلفة الشهرية بعد الفترة التجريبية</translation>
    </message>
</context>
<context>
    <name>AlertContent</name>
    <message>
        <source>Remove &quot;%@&quot; from Norvane?</source>
        <extracomment>Explains the question whether to delete a trial. %@ is the name of the service; keep the straight quotes.</extracomment>
        <translation>هل تريد إزالة &quot;%@&quot; من Norvane؟</translation>
    </message>
    <message>
        <source>Delete</source>
        <extracomment>Button that deletes the trial, below the question.</extracomment>
        <translation>حذف</translation>
    </message>
    <message>
        <source>Cancel</source>
        <extracomment>Button that keeps the trial, below the question whether to delete it.</extracomment>
        <translation>إلغاء</translation>
    </message>
</context>
<context>
    <name>ContentView</name>
    <message>
        <source>%@ added</source>
        <extracomment>What a screen reader says once a trial was added. %@ is its name.</extracomment>
        <translation>تمت إضافة %@</translation>
    </message>
    <message>
        <source>%@ deleted</source>
        <extracomment>What a screen reader says once a trial was deleted. %@ is its name.</extracomment>
        <translation>تم حذف %@</translation>
    </message>
</context>
<context>
    <name>CostRow</name>
    <message>
        <source>$</source>
        <extracomment>Currency sign before the field for the cost. It is the same in every language.</extracomment>
        <translation>$</translation>
    </message>
    <message>
        <source>0.00</source>
        <extracomment>Shown in the empty field for the cost. The decimal mark is always a point.</extracomment>
        <translation>0.00</translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <extracomment>What a screen reader says of the field for the cost; the same as its caption.</extracomment>
        <translation>التكلفة الشهرية بعد الفترة التجريبية</translation>
    </message>
</context>
<context>
    <name>DateTimeField</name>
    <message>
        <source>Day</source>
        <extracomment>Which of the two fields for the end of the trial this is: the one for the date.</extracomment>
        <translation>اليوم</translation>
    </message>
    <message>
        <source>Choose a day</source>
        <extracomment>What a screen reader says of the button that opens the calendar.</extracomment>
        <translation>اختيار يوم</translation>
    </message>
    <message>
        <source>Time</source>
        <extracomment>Which of the two fields for the end of the trial this is: the one for the time of day.</extracomment>
        <translation>الوقت</translation>
    </message>
</context>
<context>
    <name>DayCell</name>
    <message>
        <source>%@, today</source>
        <extracomment>What a screen reader says of the calendar&apos;s cell that is today. %@ is the date.</extracomment>
        <translation>%@، اليوم</translation>
    </message>
    <message>
        <source>%@, selected</source>
        <extracomment>What a screen reader says of the calendar&apos;s cell that is the chosen day. %@ is the date.</extracomment>
        <translation>%@، محدد</translation>
    </message>
</context>
<context>
    <name>DeleteAlert</name>
    <message>
        <source>Delete Trial?</source>
        <extracomment>Title of the question whether to delete a trial.</extracomment>
        <translation>هل تريد حذف الفترة التجريبية؟</translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>No trials tracked</source>
        <extracomment>Stands in the place of the list while it is empty.</extracomment>
        <translation>لا توجد فترات تجريبية متابَعة</translation>
    </message>
    <message>
        <source>Add a free trial to get started</source>
        <extracomment>Stands below &quot;No trials tracked&quot;.</extracomment>
        <translation>أضف فترة تجريبية مجانية للبدء</translation>
    </message>
</context>
<context>
    <name>FormActions</name>
    <message>
        <source>Cancel</source>
        <extracomment>Button that closes the form without adding a trial.</extracomment>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>Track Trial</source>
        <extracomment>Button that adds the trial which was entered in the form.</extracomment>
        <translation>متابعة الفترة التجريبية</translation>
    </message>
</context>
<context>
    <name>MonthCalendar</name>
    <message>
        <source>Choose a day</source>
        <extracomment>What a screen reader says of the calendar when it opens.</extracomment>
        <translation>اختيار يوم</translation>
    </message>
</context>
<context>
    <name>MonthPage</name>
    <message>
        <source>Previous month</source>
        <extracomment>Button of the calendar, an arrow.</extracomment>
        <translation>الشهر السابق</translation>
    </message>
    <message>
        <source>Next month</source>
        <extracomment>Button of the calendar, an arrow.</extracomment>
        <translation>الشهر التالي</translation>
    </message>
</context>
<context>
    <name>NorvaneApp</name>
    <message>
        <source>Norvane is already running in another session of this user.</source>
        <extracomment>Shown as a notification before the program ends, because of the other session.</extracomment>
        <translation>يعمل Norvane بالفعل في جلسة أخرى لهذا المستخدم.</translation>
    </message>
</context>
<context>
    <name>PanelFooter</name>
    <message>
        <source>Add Trial</source>
        <extracomment>Button that opens the form for a new trial.</extracomment>
        <translation>إضافة فترة تجريبية</translation>
    </message>
    <message>
        <source>Quit</source>
        <extracomment>Button that ends the program.</extracomment>
        <translation>إنهاء</translation>
    </message>
</context>
<context>
    <name>PanelHeader</name>
    <message>
        <source>Norvane</source>
        <extracomment>The name of the program. It is the same in every language.</extracomment>
        <translation>Norvane</translation>
    </message>
    <message numerus="yes">
        <source>%lld active</source>
        <extracomment>How many trials have not ended yet. %lld is their number.</extracomment>
        <translation>
            <numerusform>النشطة: %lld</numerusform>
            <numerusform>النشطة: %lld</numerusform>
            <numerusform>النشطة: %lld</numerusform>
            <numerusform>النشطة: %lld</numerusform>
            <numerusform>النشطة: %lld</numerusform>
            <numerusform>النشطة: %lld</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TextMenu</name>
    <message>
        <source>Undo</source>
        <extracomment>Entry of a text field&apos;s context menu.</extracomment>
        <translation>تراجع</translation>
    </message>
    <message>
        <source>Cut</source>
        <extracomment>Entry of a text field&apos;s context menu.</extracomment>
        <translation>قص</translation>
    </message>
    <message>
        <source>Copy</source>
        <extracomment>Entry of a text field&apos;s context menu.</extracomment>
        <translation>نسخ</translation>
    </message>
    <message>
        <source>Paste</source>
        <extracomment>Entry of a text field&apos;s context menu.</extracomment>
        <translation>لصق</translation>
    </message>
    <message>
        <source>Delete</source>
        <extracomment>Entry of a text field&apos;s context menu: deletes the selected text.</extracomment>
        <translation>حذف</translation>
    </message>
    <message>
        <source>Select All</source>
        <extracomment>Entry of a text field&apos;s context menu: selects the whole text.</extracomment>
        <translation>تحديد الكل</translation>
    </message>
</context>
<context>
    <name>TrayMenu</name>
    <message>
        <source>Open Norvane</source>
        <extracomment>The one entry of the menu of the icon in the tray.</extracomment>
        <translation>فتح Norvane</translation>
    </message>
</context>
<context>
    <name>TrialList</name>
    <message>
        <source>Trials</source>
        <extracomment>What a screen reader says of the list.</extracomment>
        <translation>الفترات التجريبية</translation>
    </message>
    <message numerus="yes">
        <source>%lld in total</source>
        <extracomment>What a screen reader says of the list after its name. %lld is the number of trials in it.</extracomment>
        <translation>
            <numerusform>المجموع: %lld</numerusform>
            <numerusform>المجموع: %lld</numerusform>
            <numerusform>المجموع: %lld</numerusform>
            <numerusform>المجموع: %lld</numerusform>
            <numerusform>المجموع: %lld</numerusform>
            <numerusform>المجموع: %lld</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TrialRow</name>
    <message>
        <source>Delete</source>
        <extracomment>What a screen reader says of a row&apos;s trash button.</extracomment>
        <translation>حذف</translation>
    </message>
    <message>
        <source>%@ of %lld</source>
        <extracomment>The place of a trial in the list, as in &quot;3 of 12&quot;: %@ is the place, %lld the size of the list.</extracomment>
        <translation>%@ من %lld</translation>
    </message>
    <message numerus="yes">
        <source>%lldd left</source>
        <extracomment>How many days a trial has left, as short as can be; %lld is their number, also a negative one.</extracomment>
        <translation>
            <numerusform>متبقٍّ: ⁦%lld⁩ ي</numerusform>
            <numerusform>متبقٍّ: ⁦%lld⁩ ي</numerusform>
            <numerusform>متبقٍّ: ⁦%lld⁩ ي</numerusform>
            <numerusform>متبقٍّ: ⁦%lld⁩ ي</numerusform>
            <numerusform>متبقٍّ: ⁦%lld⁩ ي</numerusform>
            <numerusform>متبقٍّ: ⁦%lld⁩ ي</numerusform>
        </translation>
    </message>
</context>
</TS>
