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
    <message>
        <source>an unknown failure</source>
        <translation>ein unbekannter Fehler</translation>
    </message>
    <message>
        <source>The goals could not be loaded.</source>
        <translation>Die Ziele konnten nicht geladen werden.</translation>
    </message>
    <message>
        <source>The goal could not be loaded.</source>
        <translation>Das Ziel konnte nicht geladen werden.</translation>
    </message>
    <message>
        <source>The person could not be looked up.</source>
        <translation>Die Person konnte nicht nachgeschlagen werden.</translation>
    </message>
    <message>
        <source>The source could not be looked up.</source>
        <translation>Die Quelle konnte nicht nachgeschlagen werden.</translation>
    </message>
    <message>
        <source>The people on the path could not be looked up.</source>
        <translation>Die Menschen auf dem Weg konnten nicht nachgeschlagen werden.</translation>
    </message>
    <message>
        <source>The sample goals were not added.</source>
        <translation>Die Beispielziele wurden nicht hinzugefügt.</translation>
    </message>
    <message>
        <source>The store could not be read.</source>
        <translation>Der Speicher konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The store is shown as it is now, after it could not be read.</source>
        <translation>Der Speicher wird gezeigt, wie er jetzt ist; vorher konnte er nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Outcomes of an earlier time may wait in a journal that cannot be used.</source>
        <translation>Vielleicht warten Ergebnisse in einem Journal, das nicht verwendet werden kann.</translation>
    </message>
    <message>
        <source>The store is open for reading only.</source>
        <translation>Der Speicher ist nur zum Lesen geöffnet.</translation>
    </message>
    <message>
        <source>Not stored yet:</source>
        <translation>Noch nicht gespeichert:</translation>
    </message>
    <message>
        <source>Not stored yet (%1):</source>
        <translation>Noch nicht gespeichert (%1):</translation>
    </message>
    <message>
        <source>It would be lost if the program ended now.</source>
        <translation>Es ginge verloren, wenn das Programm jetzt endete.</translation>
    </message>
    <message>
        <source>“%1” for %2 (%3)</source>
        <translation>„%1“ für %2 (%3)</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Discard…</source>
        <translation>Verwerfen …</translation>
    </message>
    <message>
        <source>What is not stored yet is kept beside the store, and stored when the store is opened again.</source>
        <translation>Was noch nicht gespeichert ist, wird neben dem Speicher aufbewahrt und gespeichert, sobald er wieder geöffnet wird.</translation>
    </message>
    <message>
        <source>What is not stored yet would be lost.</source>
        <translation>Was noch nicht gespeichert ist, ginge verloren.</translation>
    </message>
    <message>
        <source>Outcomes are not stored yet. Close now?</source>
        <translation>Ergebnisse sind noch nicht gespeichert. Jetzt schließen?</translation>
    </message>
    <message>
        <source>Wait until stored</source>
        <translation>Warten, bis gespeichert ist</translation>
    </message>
    <message>
        <source>Close now</source>
        <translation>Jetzt schließen</translation>
    </message>
    <message>
        <source>The window closes as soon as everything is stored.</source>
        <translation>Das Fenster schließt sich, sobald alles gespeichert ist.</translation>
    </message>
    <message>
        <source>Discard what is not stored yet?</source>
        <translation>Verwerfen, was noch nicht gespeichert ist?</translation>
    </message>
    <message>
        <source>This store cannot be opened</source>
        <translation>Dieser Speicher kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Nothing in it was changed.</source>
        <translation>Nichts darin wurde geändert.</translation>
    </message>
    <message>
        <source>Open another store…</source>
        <translation>Anderen Speicher öffnen …</translation>
    </message>
    <message>
        <source>Open for reading only</source>
        <translation>Nur zum Lesen öffnen</translation>
    </message>
    <message>
        <source>Open for recording</source>
        <translation>Zum Festhalten öffnen</translation>
    </message>
    <message>
        <source>This store is open for reading only. Nothing can be recorded in it.</source>
        <translation>Dieser Speicher ist nur zum Lesen geöffnet. Es kann nichts darin festgehalten werden.</translation>
    </message>
    <message>
        <source>Open a store</source>
        <translation>Einen Speicher öffnen</translation>
    </message>
    <message>
        <source>Stores (*.sqlite)</source>
        <translation>Speicher (*.sqlite)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
</context>
</TS>
