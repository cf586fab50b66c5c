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
        <source>The journal is not there.</source>
        <translation>Das Journal ist nicht da.</translation>
    </message>
    <message>
        <source>It could not be discarded.</source>
        <translation>Es konnte nicht verworfen werden.</translation>
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
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open Store…</source>
        <translation>Speicher ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importieren …</translation>
    </message>
    <message>
        <source>&amp;Export Goal…</source>
        <translation>Ziel &amp;exportieren …</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Larger Text</source>
        <translation>&amp;Größerer Text</translation>
    </message>
    <message>
        <source>&amp;Smaller Text</source>
        <translation>&amp;Kleinerer Text</translation>
    </message>
    <message>
        <source>&amp;Usual Text</source>
        <translation>&amp;Üblicher Text</translation>
    </message>
    <message>
        <source>Close &amp;Details</source>
        <translation>&amp;Einzelheiten schließen</translation>
    </message>
    <message>
        <source>&amp;Go</source>
        <translation>&amp;Gehe zu</translation>
    </message>
    <message>
        <source>&amp;Next Goal</source>
        <translation>&amp;Nächstes Ziel</translation>
    </message>
    <message>
        <source>&amp;Previous Goal</source>
        <translation>&amp;Voriges Ziel</translation>
    </message>
    <message>
        <source>Next P&amp;ane</source>
        <translation>Nächster &amp;Bereich</translation>
    </message>
    <message>
        <source>Previous Pan&amp;e</source>
        <translation>Voriger B&amp;ereich</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Keyboard</source>
        <translation>&amp;Tastatur</translation>
    </message>
    <message>
        <source>&amp;About Vemra Desk</source>
        <translation>Ü&amp;ber Vemra Desk</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>A&amp;lles auswählen</translation>
    </message>
    <message>
        <source>Reading documents…</source>
        <translation>Dokumente werden gelesen …</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Storing…</source>
        <translation>Wird gespeichert …</translation>
    </message>
    <message>
        <source>Nothing was imported.</source>
        <translation>Nichts wurde importiert.</translation>
    </message>
    <message>
        <source>Documents imported: %1.</source>
        <translation>Importierte Dokumente: %1.</translation>
    </message>
    <message>
        <source>About Vemra Desk</source>
        <translation>Über Vemra Desk</translation>
    </message>
    <message>
        <source>Vemra Desk %1</source>
        <translation>Vemra Desk %1</translation>
    </message>
    <message>
        <source>Shows goals, the people who may help with them, and what came of it.</source>
        <translation>Zeigt Ziele, die Menschen, die dabei helfen können, und was daraus wurde.</translation>
    </message>
    <message>
        <source>%1: the next pane; %2: the one before it</source>
        <translation>%1: der nächste Bereich; %2: der davor</translation>
    </message>
    <message>
        <source>%1: the next goal; %2: the one before it</source>
        <translation>%1: das nächste Ziel; %2: das davor</translation>
    </message>
    <message>
        <source>Up, Down, Home, End in the list: another goal</source>
        <translation>Auf, Ab, Pos1, Ende in der Liste: ein anderes Ziel</translation>
    </message>
    <message>
        <source>Tab: the next control; Space: press it</source>
        <translation>Tab: das nächste Bedienelement; Leertaste: es drücken</translation>
    </message>
    <message>
        <source>%1: close the details</source>
        <translation>%1: die Einzelheiten schließen</translation>
    </message>
    <message>
        <source>%1: the menus</source>
        <translation>%1: die Menüs</translation>
    </message>
    <message>
        <source>%1, %2, %3: larger, smaller and usual text</source>
        <translation>%1, %2, %3: größerer, kleinerer und üblicher Text</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>Tastatur</translation>
    </message>
    <message>
        <source>Keys of this window</source>
        <translation>Tasten dieses Fensters</translation>
    </message>
    <message>
        <source>Import documents</source>
        <translation>Dokumente importieren</translation>
    </message>
    <message>
        <source>Result documents (*.json)</source>
        <translation>Ergebnisdokumente (*.json)</translation>
    </message>
    <message>
        <source>Export the goal</source>
        <translation>Das Ziel exportieren</translation>
    </message>
    <message>
        <source>The goal was exported to %1</source>
        <translation>Das Ziel wurde exportiert: %1</translation>
    </message>
    <message>
        <source>The goal was not exported.</source>
        <translation>Das Ziel wurde nicht exportiert.</translation>
    </message>
    <message>
        <source>No goals yet</source>
        <translation>Noch keine Ziele</translation>
    </message>
    <message>
        <source>Goals come from result documents. Import them, or drop them here.</source>
        <translation>Ziele kommen aus Ergebnisdokumenten. Importieren Sie welche, oder ziehen Sie sie hierher.</translation>
    </message>
    <message>
        <source>To look around first, add the sample goals. Nothing else is changed.</source>
        <translation>Um sich erst umzusehen, fügen Sie die Beispielziele hinzu. Sonst wird nichts geändert.</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>Importieren …</translation>
    </message>
    <message>
        <source>Add sample goals</source>
        <translation>Beispielziele hinzufügen</translation>
    </message>
    <message>
        <source>The goal could not be loaded</source>
        <translation>Das Ziel konnte nicht geladen werden</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>Sources: %1</source>
        <translation>Quellen: %1</translation>
    </message>
    <message>
        <source>the sources</source>
        <translation>die Quellen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>As %1</source>
        <translation>Als %1</translation>
    </message>
    <message>
        <source>· corrected</source>
        <translation>· korrigiert</translation>
    </message>
    <message>
        <source>Person</source>
        <translation>Mensch</translation>
    </message>
    <message>
        <source>Reference: %1</source>
        <translation>Kennung: %1</translation>
    </message>
    <message>
        <source>Worth considering for</source>
        <translation>Kommt infrage für</translation>
    </message>
    <message>
        <source>the goals</source>
        <translation>die Ziele</translation>
    </message>
    <message>
        <source>The person to reach for</source>
        <translation>Soll erreicht werden für</translation>
    </message>
    <message>
        <source>On a path for</source>
        <translation>Auf einem Weg für</translation>
    </message>
    <message>
        <source>Recorded</source>
        <translation>Festgehalten</translation>
    </message>
    <message>
        <source>the outcomes</source>
        <translation>die Ergebnisse</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>What it says</source>
        <translation>Was darin steht</translation>
    </message>
    <message>
        <source>the statements</source>
        <translation>die Aussagen</translation>
    </message>
    <message>
        <source>Whom it speaks for</source>
        <translation>Für wen sie spricht</translation>
    </message>
    <message>
        <source>the people</source>
        <translation>die Menschen</translation>
    </message>
    <message>
        <source>The strongest source for them</source>
        <translation>Die stärkste Quelle dafür</translation>
    </message>
    <message>
        <source>One of several sources</source>
        <translation>Eine von mehreren Quellen</translation>
    </message>
    <message>
        <source>The store holds nothing more about this source.</source>
        <translation>Mehr enthält der Speicher über diese Quelle nicht.</translation>
    </message>
    <message>
        <source>Nobody</source>
        <translation>Niemand</translation>
    </message>
    <message>
        <source>Path to %1</source>
        <translation>Weg zu %1</translation>
    </message>
    <message>
        <source>Show more</source>
        <translation>Mehr zeigen</translation>
    </message>
    <message>
        <source>Show more of %1</source>
        <translation>Mehr zeigen: %1</translation>
    </message>
    <message>
        <source>, then </source>
        <translation>, dann </translation>
    </message>
    <message>
        <source>A path over nobody</source>
        <translation>Ein Weg über niemanden</translation>
    </message>
    <message>
        <source>Goals</source>
        <translation>Ziele</translation>
    </message>
    <message>
        <source>(no title)</source>
        <translation>(ohne Titel)</translation>
    </message>
    <message>
        <source>the text</source>
        <translation>den Text</translation>
    </message>
    <message>
        <source>What is not stored yet is kept beside the store, until you try again or discard it.</source>
        <translation>Was noch nicht gespeichert ist, bleibt neben dem Speicher aufbewahrt, bis Sie es noch einmal versuchen oder verwerfen.</translation>
    </message>
    <message>
        <source>What is not stored yet is kept beside the store. Some of it is stored when the store is opened again; the rest waits until you try again or discard it.</source>
        <translation>Was noch nicht gespeichert ist, wird neben dem Speicher aufbewahrt. Ein Teil wird gespeichert, sobald der Speicher wieder geöffnet wird; der Rest wartet, bis Sie es noch einmal versuchen oder ihn verwerfen.</translation>
    </message>
    <message>
        <source>Outcomes are still being written. Open the other store without them?</source>
        <translation>Es werden noch Ergebnisse geschrieben. Den anderen Speicher ohne sie öffnen?</translation>
    </message>
    <message>
        <source>Outcomes are not stored yet. Open the other store now?</source>
        <translation>Ergebnisse sind noch nicht gespeichert. Den anderen Speicher jetzt öffnen?</translation>
    </message>
    <message>
        <source>Open now</source>
        <translation>Jetzt öffnen</translation>
    </message>
    <message>
        <source>The other store is opened as soon as everything is stored.</source>
        <translation>Der andere Speicher wird geöffnet, sobald alles gespeichert ist.</translation>
    </message>
    <message>
        <source>It would be lost if the program ended now: %1.</source>
        <translation>Beim Ende des Programms ginge das jetzt verloren: %1.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
</TS>
