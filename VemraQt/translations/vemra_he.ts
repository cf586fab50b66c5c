<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="he_IL" sourcelanguage="en">
<context>
    <name>VemraScreen</name>
    <message>
        <source>People worth considering</source>
        <translation>אנשים שכדאי לשקול</translation>
    </message>
    <message>
        <source>Show source</source>
        <translation>הצגת המקור</translation>
    </message>
    <message>
        <source>Supported path</source>
        <translation>מסלול מבוסס</translation>
    </message>
    <message>
        <source>See in Starfold</source>
        <translation>הצגה ב-Starfold</translation>
    </message>
    <message>
        <source>No source evidence yet.</source>
        <translation>אין עדיין ראיות ממקורות.</translation>
    </message>
    <message>
        <source>Record outcome</source>
        <translation>רישום תוצאה</translation>
    </message>
    <message>
        <source>· corrected</source>
        <translation>· תוקן</translation>
    </message>
    <message>
        <source>Correct</source>
        <translation>תיקון</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>תוצאה</translation>
    </message>
    <message>
        <source>Note (optional)</source>
        <translation>הערה (רשות)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>שמירה</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>ביטול</translation>
    </message>
</context>
</TS>
