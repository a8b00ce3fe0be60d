<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>AddTrialForm</name>
    <message>
        <source>Service name</source>
        <translation>اسم الخدمة</translation>
    </message>
    <message>
        <source>e.g. Netflix, Canva Pro</source>
        <translation>مثلًا Netflix، ‏Canva Pro</translation>
    </message>
    <message>
        <source>Trial ends</source>
        <translation>نهاية الفترة التجريبية</translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <translation>التكلفة الشهرية بعد الفترة التجريبية</translation>
    </message>
</context>
<context>
    <name>AlertContent</name>
    <message>
        <source>Remove &quot;%@&quot; from Norvane?</source>
        <translation>هل تريد إزالة &quot;⁨%@⁩&quot; من Norvane؟</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>حذف</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
</context>
<context>
    <name>ContentView</name>
    <message>
        <source>%@ added</source>
        <translation>تمت إضافة ⁨%@⁩</translation>
    </message>
    <message>
        <source>%@ deleted</source>
        <translation>تم حذف ⁨%@⁩</translation>
    </message>
</context>
<context>
    <name>CostRow</name>
    <message>
        <source>$</source>
        <translation>$</translation>
    </message>
    <message>
        <source>0.00</source>
        <translation>0.00</translation>
    </message>
    <message>
        <source>Monthly cost after trial</source>
        <translation>التكلفة الشهرية بعد الفترة التجريبية</translation>
    </message>
</context>
<context>
    <name>DateTimeField</name>
    <message>
        <source>Day</source>
        <translation>اليوم</translation>
    </message>
    <message>
        <source>Choose a day</source>
        <translation>اختيار يوم</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>الوقت</translation>
    </message>
</context>
<context>
    <name>DayCell</name>
    <message>
        <source>Today</source>
        <translation>اليوم</translation>
    </message>
</context>
<context>
    <name>DeleteAlert</name>
    <message>
        <source>Delete Trial?</source>
        <translation>هل تريد حذف الفترة التجريبية؟</translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>No trials tracked</source>
        <translation>لا توجد فترات تجريبية متابَعة</translation>
    </message>
    <message>
        <source>Add a free trial to get started</source>
        <translation>أضف فترة تجريبية مجانية للبدء</translation>
    </message>
</context>
<context>
    <name>FormActions</name>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>Track Trial</source>
        <translation>متابعة الفترة التجريبية</translation>
    </message>
</context>
<context>
    <name>MonthPage</name>
    <message>
        <source>Previous month</source>
        <translation>الشهر السابق</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>الشهر التالي</translation>
    </message>
</context>
<context>
    <name>NorvaneApp</name>
    <message>
        <source>Norvane is already running in another session of this user.</source>
        <translation>يعمل Norvane بالفعل في جلسة أخرى لهذا المستخدم.</translation>
    </message>
</context>
<context>
    <name>PanelFooter</name>
    <message>
        <source>Add Trial</source>
        <translation>إضافة فترة تجريبية</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>إنهاء</translation>
    </message>
</context>
<context>
    <name>PanelHeader</name>
    <message>
        <source>Norvane</source>
        <translation>Norvane</translation>
    </message>
    <message>
        <source>%lld active</source>
        <translation>النشطة: %lld</translation>
    </message>
</context>
<context>
    <name>TrayMenu</name>
    <message>
        <source>Open Norvane</source>
        <translation>فتح Norvane</translation>
    </message>
</context>
<context>
    <name>TrialList</name>
    <message>
        <source>Trials</source>
        <translation>الفترات التجريبية</translation>
    </message>
    <message>
        <source>%lld in total</source>
        <translation>المجموع: %lld</translation>
    </message>
</context>
<context>
    <name>TrialRow</name>
    <message>
        <source>Delete</source>
        <translation>حذف</translation>
    </message>
    <message>
        <source>%@ of %lld</source>
        <translation>%@ من %lld</translation>
    </message>
    <message>
        <source>%lldd left</source>
        <translation>متبقٍّ: ⁦%lld⁩ ي</translation>
    </message>
</context>
</TS>
