<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>VemraScreen</name>
    <message>
        <source>People worth considering</source>
        <translation>Menschen, die infrage kommen</translation>
    </message>
    <message>
        <source>Show source</source>
        <translation>Quelle anzeigen</translation>
    </message>
    <message>
        <source>Supported path</source>
        <translation>Belegter Weg</translation>
    </message>
    <message>
        <source>See in Starfold</source>
        <translation>In Starfold ansehen</translation>
    </message>
    <message>
        <source>No source evidence yet.</source>
        <translation>Noch keine Belege aus Quellen.</translation>
    </message>
    <message>
        <source>Record outcome</source>
        <translation>Ergebnis festhalten</translation>
    </message>
    <message>
        <source>· corrected</source>
        <translation>· korrigiert</translation>
    </message>
    <message>
        <source>Correct</source>
        <translation>Korrigieren</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Note (optional)</source>
        <translation>Notiz (optional)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
</TS>
