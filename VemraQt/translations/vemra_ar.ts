<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>VemraScreen</name>
    <message>
        <source>People worth considering</source>
        <translation>أشخاص جديرون بالاهتمام</translation>
    </message>
    <message>
        <source>Show source</source>
        <translation>عرض المصدر</translation>
    </message>
    <message>
        <source>Supported path</source>
        <translation>مسار مدعوم</translation>
    </message>
    <message>
        <source>See in Starfold</source>
        <translation>عرض في Starfold</translation>
    </message>
    <message>
        <source>Record outcome</source>
        <translation>تسجيل النتيجة</translation>
    </message>
    <message>
        <source>Correct</source>
        <translation>تصحيح</translation>
    </message>
    <message>
        <source>· corrected</source>
        <translation>· مصحَّح</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>النتيجة</translation>
    </message>
    <message>
        <source>Note (optional)</source>
        <translation>ملاحظة (اختياري)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>حفظ</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>No source evidence yet.</source>
        <translation>لا توجد أدلة من المصادر بعد.</translation>
    </message>
</context>
</TS>
