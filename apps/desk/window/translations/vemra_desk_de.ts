<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>VemraDesk</name>
    <message>
        <source>the path</source>
        <translation>den Weg</translation>
    </message>
    <message>
        <source>the path to %1</source>
        <translation>den Weg zu %1</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Outcomes are still being written. Close without them?</source>
        <translation>Es werden noch Ergebnisse geschrieben. Ohne sie schließen?</translation>
    </message>
</context>
</TS>
