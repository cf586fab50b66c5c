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
        <source>Discard</source>
        <translation>Verwerfen</translation>
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
        <source>The next pane</source>
        <translation>Der nächste Bereich</translation>
    </message>
    <message>
        <source>The previous pane</source>
        <translation>Der vorige Bereich</translation>
    </message>
    <message>
        <source>The next goal</source>
        <translation>Das nächste Ziel</translation>
    </message>
    <message>
        <source>The previous goal</source>
        <translation>Das vorige Ziel</translation>
    </message>
    <message>
        <source>Up, Down, Home, End</source>
        <translation>Auf, Ab, Pos1, Ende</translation>
    </message>
    <message>
        <source>Another goal, in the list</source>
        <translation>Ein anderes Ziel, in der Liste</translation>
    </message>
    <message>
        <source>The next control</source>
        <translation>Das nächste Bedienelement</translation>
    </message>
    <message>
        <source>Space, Return</source>
        <translation>Leertaste, Eingabe</translation>
    </message>
    <message>
        <source>Press the control</source>
        <translation>Das Bedienelement drücken</translation>
    </message>
    <message>
        <source>The next person who was found</source>
        <translation>Der nächste Treffer</translation>
    </message>
    <message>
        <source>The previous person who was found</source>
        <translation>Der vorige Treffer</translation>
    </message>
    <message>
        <source>Close the details</source>
        <translation>Die Einzelheiten schließen</translation>
    </message>
    <message>
        <source>The menus</source>
        <translation>Die Menüs</translation>
    </message>
    <message>
        <source>Larger text</source>
        <translation>Größerer Text</translation>
    </message>
    <message>
        <source>Smaller text</source>
        <translation>Kleinerer Text</translation>
    </message>
    <message>
        <source>Usual text</source>
        <translation>Üblicher Text</translation>
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
        <source>Unnamed source</source>
        <translation>Quelle ohne Namen</translation>
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
        <source>The store holds nothing more about this person.</source>
        <translation>Mehr enthält der Speicher über diese Person nicht.</translation>
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
        <source>A path without people</source>
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
    <message>
        <source>is in use by another program that does not let go of it</source>
        <translation>wird von einem anderen Programm benutzt und nicht freigegeben</translation>
    </message>
    <message>
        <source>has no goal with the id %1</source>
        <translation>enthält kein Ziel mit der Kennung %1</translation>
    </message>
    <message>
        <source>is damaged</source>
        <translation>ist beschädigt</translation>
    </message>
    <message>
        <source>is damaged: the %1 is not part of a store</source>
        <translation>ist beschädigt: %1 gehört in keinen Speicher</translation>
    </message>
    <message>
        <source>is damaged: the %1 is not as a store has it</source>
        <translation>ist beschädigt: %1 ist anders als in einem Speicher</translation>
    </message>
    <message>
        <source>is damaged: the %1 is missing</source>
        <translation>ist beschädigt: %1 fehlt</translation>
    </message>
    <message>
        <source>is damaged: it has no version</source>
        <translation>ist beschädigt: die Version fehlt</translation>
    </message>
    <message>
        <source>is damaged: it has no tables</source>
        <translation>ist beschädigt: die Tabellen fehlen</translation>
    </message>
    <message>
        <source>is damaged: it ends too early</source>
        <translation>ist beschädigt: die Datei endet zu früh</translation>
    </message>
    <message>
        <source>is damaged: a goal is gone</source>
        <translation>ist beschädigt: ein Ziel fehlt</translation>
    </message>
    <message>
        <source>is damaged: coverage has no row of the goal %1</source>
        <translation>ist beschädigt: coverage hat keine Zeile des Ziels %1</translation>
    </message>
    <message>
        <source>is damaged: SQLite found %1</source>
        <translation>ist beschädigt: SQLite meldet %1</translation>
    </message>
    <message>
        <source>is damaged: %1: expected %2; found %3</source>
        <translation>ist beschädigt: %1: erwartet: %2; gefunden: %3</translation>
    </message>
    <message>
        <source>table %1</source>
        <translation>die Tabelle %1</translation>
    </message>
    <message>
        <source>index %1</source>
        <translation>der Index %1</translation>
    </message>
    <message>
        <source>trigger %1</source>
        <translation>der Trigger %1</translation>
    </message>
    <message>
        <source>view %1</source>
        <translation>die Sicht %1</translation>
    </message>
    <message>
        <source>is an SQLite database, but not a store of goals</source>
        <translation>ist eine SQLite-Datenbank, aber kein Speicher für Ziele</translation>
    </message>
    <message>
        <source>is not an SQLite database</source>
        <translation>ist keine SQLite-Datenbank</translation>
    </message>
    <message>
        <source>was written by a newer vemra-desk: its version is %1, this one knows %2</source>
        <translation>wurde von einem neueren vemra-desk geschrieben: in der Version %1, dieses kennt %2</translation>
    </message>
    <message>
        <source>has no place: there is no home folder</source>
        <translation>hat keinen Platz: es gibt keinen persönlichen Ordner</translation>
    </message>
    <message>
        <source>is not the name of a file</source>
        <translation>ist kein Name einer Datei</translation>
    </message>
    <message>
        <source>is a symbolic link to %1, where there is no file</source>
        <translation>ist ein symbolischer Verweis auf %1, wo es keine Datei gibt</translation>
    </message>
    <message>
        <source>is read-only</source>
        <translation>ist schreibgeschützt</translation>
    </message>
    <message>
        <source>is open for reading only</source>
        <translation>ist nur zum Lesen geöffnet</translation>
    </message>
    <message>
        <source>is not there, or is empty</source>
        <translation>fehlt oder ist leer</translation>
    </message>
    <message>
        <source>is empty, and was a store before</source>
        <translation>ist leer und war vorher ein Speicher</translation>
    </message>
    <message>
        <source>has changes in a log beside it, which only its owner can take up</source>
        <translation>hat Änderungen in einem Protokoll daneben, die nur der Besitzer aufnehmen kann</translation>
    </message>
    <message>
        <source>has changes in a log beside it, which cannot be read in a folder that is read-only</source>
        <translation>hat Änderungen in einem Protokoll daneben, das sich in einem schreibgeschützten Ordner nicht lesen lässt</translation>
    </message>
    <message>
        <source>was changed by another program while it was read</source>
        <translation>wurde von einem anderen Programm geändert, während er gelesen wurde</translation>
    </message>
    <message>
        <source>was moved or removed while it was open</source>
        <translation>wurde verschoben oder entfernt, während er geöffnet war</translation>
    </message>
    <message>
        <source>was replaced by another file while it was open</source>
        <translation>wurde durch eine andere Datei ersetzt, während er geöffnet war</translation>
    </message>
    <message>
        <source>was open while the file %1 beside it was moved, removed or replaced</source>
        <translation>war geöffnet, während die Datei %1 daneben verschoben, entfernt oder ersetzt wurde</translation>
    </message>
    <message>
        <source>is not the store that the outcome was saved in</source>
        <translation>ist nicht der Speicher, für den das Ergebnis gedacht war</translation>
    </message>
    <message>
        <source>has another outcome of the id %1, which stays</source>
        <translation>hat unter der Kennung %1 schon ein anderes Ergebnis, das bleibt</translation>
    </message>
    <message>
        <source>takes in texts in UTF-8 only; found %1</source>
        <translation>nimmt nur Texte in UTF-8 auf; gefunden: %1</translation>
    </message>
    <message>
        <source>does not take in the result of the goal %1: %2: expected %3; found %4</source>
        <translation>nimmt das Resultat des Ziels %1 nicht auf: %2: erwartet: %3; gefunden: %4</translation>
    </message>
    <message>
        <source>holds a result that cannot be shown, of the goal %1: %2: expected %3; found %4</source>
        <translation>enthält ein Resultat des Ziels %1, das sich nicht zeigen lässt: %2: erwartet: %3; gefunden: %4</translation>
    </message>
    <message>
        <source>cannot be made: %1</source>
        <translation>kann nicht angelegt werden: %1</translation>
    </message>
    <message>
        <source>cannot be opened: %1</source>
        <translation>kann nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>cannot be opened</source>
        <translation>kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>cannot be opened for writing: %1</source>
        <translation>kann nicht zum Schreiben geöffnet werden: %1</translation>
    </message>
    <message>
        <source>not a file</source>
        <translation>keine Datei</translation>
    </message>
    <message>
        <source>its folder may be read-only</source>
        <translation>der Ordner ist vielleicht schreibgeschützt</translation>
    </message>
    <message>
        <source>its log cannot be made</source>
        <translation>das Protokoll daneben kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>cannot be changed: its folder is read-only</source>
        <translation>kann nicht geändert werden: der Ordner ist schreibgeschützt</translation>
    </message>
    <message>
        <source>cannot be changed: the disk is full</source>
        <translation>kann nicht geändert werden: der Datenträger ist voll</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>cannot be locked</source>
        <translation>kann nicht gesperrt werden</translation>
    </message>
    <message>
        <source>cannot be locked: %1</source>
        <translation>kann nicht gesperrt werden: %1</translation>
    </message>
    <message>
        <source>cannot be written</source>
        <translation>kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>cannot be written: %1</source>
        <translation>kann nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>cannot be written, and may end in half a line: %1</source>
        <translation>kann nicht geschrieben werden und endet vielleicht mitten in einer Zeile: %1</translation>
    </message>
    <message>
        <source>cannot be rewritten: %1</source>
        <translation>kann nicht neu geschrieben werden: %1</translation>
    </message>
    <message>
        <source>cannot be removed: %1</source>
        <translation>kann nicht entfernt werden: %1</translation>
    </message>
    <message>
        <source>cannot be examined: %1</source>
        <translation>kann nicht untersucht werden: %1</translation>
    </message>
    <message>
        <source>needs more memory than there is</source>
        <translation>braucht mehr Arbeitsspeicher, als es gibt</translation>
    </message>
    <message>
        <source>cannot hold a text as long as that</source>
        <translation>kann keinen so langen Text aufnehmen</translation>
    </message>
    <message>
        <source>failed: %1</source>
        <translation>ist fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>is not a file</source>
        <translation>ist keine Datei</translation>
    </message>
    <message>
        <source>is longer than 64 MiB</source>
        <translation>ist länger als 64 MiB</translation>
    </message>
    <message>
        <source>has no room for more</source>
        <translation>hat keinen Platz für mehr</translation>
    </message>
    <message>
        <source>belongs to another user</source>
        <translation>gehört einem anderen Benutzer</translation>
    </message>
    <message>
        <source>may be written by other users</source>
        <translation>kann von anderen Benutzern geschrieben werden</translation>
    </message>
    <message>
        <source>belongs to another user (user id %1)</source>
        <translation>gehört einem anderen Benutzer (Nummer %1)</translation>
    </message>
    <message>
        <source>belongs to another user (user id %1), and everybody may write it or its folder, so its content may be anybody's; use a copy in a folder of your own</source>
        <translation>gehört einem anderen Benutzer (Nummer %1), und alle können ihn oder seinen Ordner ändern, sodass sein Inhalt von jedem stammen kann; benutzen Sie eine Kopie in einem eigenen Ordner</translation>
    </message>
    <message>
        <source>belongs to another user (user id %1), and a whole group may write it; it can be read, and for recording use a store of your own</source>
        <translation>gehört einem anderen Benutzer (Nummer %1), und eine ganze Gruppe kann ihn ändern; lesen lässt er sich, und zum Aufzeichnen benutzen Sie einen eigenen Speicher</translation>
    </message>
    <message>
        <source>cannot be used with the file %1 beside it, which %2; find out who put it there, and remove it</source>
        <translation>kann mit der Datei %1 daneben nicht benutzt werden: sie %2; finden Sie heraus, von wem sie ist, und entfernen Sie sie</translation>
    </message>
    <message>
        <source>is a symbolic link</source>
        <translation>ist ein symbolischer Verweis</translation>
    </message>
    <message>
        <source>is not a regular file</source>
        <translation>ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>the outcome %1 is recorded with another content, which stays</source>
        <translation>das Ergebnis %1 ist mit anderem Inhalt aufgezeichnet, der bleibt</translation>
    </message>
    <message>
        <source>expected %1; found %2</source>
        <translation>erwartet: %1; gefunden: %2</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>a file of at most 1 GiB</source>
        <translation>eine Datei von höchstens 1 GiB</translation>
    </message>
    <message>
        <source>a longer one</source>
        <translation>eine längere</translation>
    </message>
    <message>
        <source>a file that can be read</source>
        <translation>eine lesbare Datei</translation>
    </message>
    <message>
        <source>an error: %1</source>
        <translation>ein Fehler: %1</translation>
    </message>
    <message>
        <source>UTF-8 without a byte-order mark</source>
        <translation>UTF-8 ohne Bytereihenfolge-Zeichen</translation>
    </message>
    <message>
        <source>a control character to be written as an escape</source>
        <translation>ein Steuerzeichen in Escape-Schreibweise</translation>
    </message>
    <message>
        <source>the end of the string</source>
        <translation>das Ende der Zeichenkette</translation>
    </message>
    <message>
        <source>both halves of a surrogate pair</source>
        <translation>beide Hälften eines Ersatzpaares</translation>
    </message>
    <message>
        <source>one of the escapes %1</source>
        <translation>eine der Escape-Folgen %1</translation>
    </message>
    <message>
        <source>four hexadecimal digits after \u</source>
        <translation>vier Hexadezimalziffern nach \u</translation>
    </message>
    <message>
        <source>a digit</source>
        <translation>eine Ziffer</translation>
    </message>
    <message>
        <source>a number without leading zeros</source>
        <translation>eine Zahl ohne führende Nullen</translation>
    </message>
    <message>
        <source>the end of the document</source>
        <translation>das Ende des Dokuments</translation>
    </message>
    <message>
        <source>the end of the file</source>
        <translation>das Ende der Datei</translation>
    </message>
    <message>
        <source>the byte %1</source>
        <translation>das Byte %1</translation>
    </message>
    <message>
        <source>a value</source>
        <translation>ein Wert</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>eine Liste</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>ein Objekt</translation>
    </message>
    <message>
        <source>a key</source>
        <translation>ein Schlüssel</translation>
    </message>
    <message>
        <source>a string</source>
        <translation>eine Zeichenkette</translation>
    </message>
    <message>
        <source>a string or null</source>
        <translation>eine Zeichenkette oder null</translation>
    </message>
    <message>
        <source>an integer</source>
        <translation>eine ganze Zahl</translation>
    </message>
    <message>
        <source>an integer from %1 to %2, without fraction or exponent</source>
        <translation>eine ganze Zahl von %1 bis %2, ohne Nachkommastellen oder Exponent</translation>
    </message>
    <message>
        <source>an integer from %1, which a screen can show</source>
        <translation>eine ganze Zahl ab %1, die sich zeigen lässt</translation>
    </message>
    <message>
        <source>at most %1 texts in the lists of a result</source>
        <translation>höchstens %1 Texte in den Listen eines Resultats</translation>
    </message>
    <message>
        <source>%1 up to here</source>
        <translation>%1 bis hier</translation>
    </message>
    <message>
        <source>each key once</source>
        <translation>jeder Schlüssel einmal</translation>
    </message>
    <message>
        <source>%1 again</source>
        <translation>%1 noch einmal</translation>
    </message>
    <message>
        <source>one of the keys %1</source>
        <translation>einer der Schlüssel %1</translation>
    </message>
    <message>
        <source>one of waiting, settled</source>
        <translation>waiting oder settled</translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation>eines von %1</translation>
    </message>
    <message>
        <source>the key %1</source>
        <translation>der Schlüssel %1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>no such key with the kind %1, which has %2</source>
        <translation>kein solcher Schlüssel bei der Art %1; sie hat %2</translation>
    </message>
    <message>
        <source>no such key with the kind %1</source>
        <translation>kein solcher Schlüssel bei der Art %1</translation>
    </message>
    <message>
        <source>another version</source>
        <translation>eine andere Version</translation>
    </message>
    <message>
        <source>another entry</source>
        <translation>ein anderer Eintrag</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>ein Text</translation>
    </message>
    <message>
        <source>a text in UTF-8</source>
        <translation>ein Text in UTF-8</translation>
    </message>
    <message>
        <source>a text or NULL</source>
        <translation>ein Text oder NULL</translation>
    </message>
    <message>
        <source>0 or more</source>
        <translation>0 oder mehr</translation>
    </message>
    <message>
        <source>a blob</source>
        <translation>ein BLOB</translation>
    </message>
    <message>
        <source>something that the goal has</source>
        <translation>etwas, das zum Ziel gehört</translation>
    </message>
    <message>
        <source>a number that leaves one for another outcome</source>
        <translation>eine Nummer, die eine für ein weiteres Ergebnis übrig lässt</translation>
    </message>
    <message>
        <source>a number that leaves one for another goal</source>
        <translation>eine Nummer, die eine für ein weiteres Ziel übrig lässt</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Datei oder Ordner nicht gefunden</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>keine Berechtigung</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>nicht erlaubt</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>kein Platz auf dem Datenträger</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>das Kontingent des Datenträgers ist erschöpft</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>das Dateisystem ist schreibgeschützt</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Ein- oder Ausgabefehler</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>es ist kein Ordner</translation>
    </message>
    <message>
        <source>File exists</source>
        <translation>die Datei gibt es schon</translation>
    </message>
    <message>
        <source>File name too long</source>
        <translation>der Dateiname ist zu lang</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>zu viele offene Dateien</translation>
    </message>
    <message>
        <source>Too many levels of symbolic links</source>
        <translation>zu viele symbolische Verweise</translation>
    </message>
    <message>
        <source>std::bad_alloc</source>
        <translation>der Arbeitsspeicher reicht nicht</translation>
    </message>
    <message>
        <source>it is read-only</source>
        <translation>sie ist schreibgeschützt</translation>
    </message>
    <message>
        <source>%1: the recording has ended: %2</source>
        <translation>%1: Die Aufnahme ist beendet: %2</translation>
    </message>
    <message>
        <source>a file of this name is there already</source>
        <translation>eine Datei dieses Namens gibt es schon</translation>
    </message>
    <message>
        <source>the locale or the time zone has changed, which a case cannot hold</source>
        <translation>Sprache oder Zeitzone haben sich geändert; das kann ein Fall nicht festhalten</translation>
    </message>
    <message>
        <source>Names, reasons and notes</source>
        <translation>Namen, Gründe und Notizen</translation>
    </message>
    <message>
        <source>Find people</source>
        <translation>Menschen suchen</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Go there</source>
        <translation>Hingehen</translation>
    </message>
    <message>
        <source>Searching…</source>
        <translation>Suche läuft …</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>&amp;Find…</source>
        <translation>&amp;Suchen …</translation>
    </message>
    <message>
        <source>Find &amp;Next</source>
        <translation>&amp;Weitersuchen</translation>
    </message>
    <message>
        <source>Find Pre&amp;vious</source>
        <translation>&amp;Rückwärts weitersuchen</translation>
    </message>
    <message>
        <source>&amp;Colours</source>
        <translation>&amp;Farben</translation>
    </message>
    <message>
        <source>Like the &amp;System</source>
        <translation>Wie das &amp;System</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>Stored: %1</source>
        <translation>Gespeichert: %1</translation>
    </message>
    <message>
        <source>“%1” for %2</source>
        <translation>„%1“ für %2</translation>
    </message>
    <message>
        <source>Recorded by another program: %1.</source>
        <translation>Von einem anderen Programm festgehalten: %1.</translation>
    </message>
    <message>
        <source>Text size: %1 %</source>
        <translation>Textgröße: %1 %</translation>
    </message>
    <message>
        <source>New goals: %1.</source>
        <translation>Neue Ziele: %1.</translation>
    </message>
    <message>
        <source>New in this goal: %1.</source>
        <translation>Neu in diesem Ziel: %1.</translation>
    </message>
    <message>
        <source>No longer in this goal: %1.</source>
        <translation>Nicht mehr in diesem Ziel: %1.</translation>
    </message>
    <message>
        <source>This goal has changed.</source>
        <translation>Dieses Ziel hat sich geändert.</translation>
    </message>
    <message>
        <source>Discard drafts and close now</source>
        <translation>Entwürfe verwerfen und jetzt schließen</translation>
    </message>
    <message>
        <source>Discard drafts and open now</source>
        <translation>Entwürfe verwerfen und jetzt öffnen</translation>
    </message>
    <message>
        <source>Discard drafts and wait until stored</source>
        <translation>Entwürfe verwerfen und warten, bis gespeichert ist</translation>
    </message>
    <message>
        <source>The window closes as soon as everything is stored that does not need your decision.</source>
        <translation>Das Fenster schließt sich, sobald alles gespeichert ist, was keine Entscheidung von Ihnen braucht.</translation>
    </message>
    <message>
        <source>The other store is opened as soon as everything is stored that does not need your decision.</source>
        <translation>Der andere Speicher wird geöffnet, sobald alles gespeichert ist, was keine Entscheidung von Ihnen braucht.</translation>
    </message>
</context>
</TS>
