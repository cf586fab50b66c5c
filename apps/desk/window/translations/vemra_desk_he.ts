<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="he_IL" sourcelanguage="en">
<context>
    <name>VemraDesk</name>
    <message>
        <source>the path</source>
        <translation>המסלול</translation>
    </message>
    <message>
        <source>the path to %1</source>
        <translation>המסלול אל %1</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>ועוד %1</translation>
    </message>
    <message>
        <source>Outcomes are still being written. Close without them?</source>
        <translation>תוצאות עדיין נכתבות. לסגור בלעדיהן?</translation>
    </message>
    <message>
        <source>an unknown failure</source>
        <translation>תקלה לא ידועה</translation>
    </message>
    <message>
        <source>The goals could not be loaded.</source>
        <translation>לא ניתן היה לטעון את המטרות.</translation>
    </message>
    <message>
        <source>The goal could not be loaded.</source>
        <translation>לא ניתן היה לטעון את המטרה.</translation>
    </message>
    <message>
        <source>The person could not be looked up.</source>
        <translation>לא ניתן היה לאתר את האדם.</translation>
    </message>
    <message>
        <source>The source could not be looked up.</source>
        <translation>לא ניתן היה לאתר את המקור.</translation>
    </message>
    <message>
        <source>The people on the path could not be looked up.</source>
        <translation>לא ניתן היה לאתר את האנשים שבמסלול.</translation>
    </message>
    <message>
        <source>The sample goals were not added.</source>
        <translation>המטרות לדוגמה לא נוספו.</translation>
    </message>
    <message>
        <source>The store could not be read.</source>
        <translation>לא ניתן היה לקרוא את המאגר.</translation>
    </message>
    <message>
        <source>The store is shown as it is now, after it could not be read.</source>
        <translation>המאגר מוצג כפי שהוא עכשיו, לאחר שלא ניתן היה לקרוא אותו.</translation>
    </message>
    <message>
        <source>Outcomes of an earlier time may wait in a journal that cannot be used.</source>
        <translation>ייתכן שתוצאות ממועד קודם ממתינות ביומן שלא ניתן להשתמש בו.</translation>
    </message>
    <message>
        <source>The store is open for reading only.</source>
        <translation>המאגר פתוח לקריאה בלבד.</translation>
    </message>
    <message>
        <source>The journal is not there.</source>
        <translation>היומן איננו.</translation>
    </message>
    <message>
        <source>It could not be discarded.</source>
        <translation>לא ניתן היה למחוק זאת.</translation>
    </message>
    <message>
        <source>Not stored yet:</source>
        <translation>טרם נשמר:</translation>
    </message>
    <message>
        <source>Not stored yet (%1):</source>
        <translation>טרם נשמרו (%1):</translation>
    </message>
    <message>
        <source>It would be lost if the program ended now.</source>
        <translation>זה יאבד אם התוכנית תיסגר עכשיו.</translation>
    </message>
    <message>
        <source>“%1” for %2 (%3)</source>
        <translation>„%1” עבור %2 (%3)</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>ניסיון נוסף</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>הסתרה</translation>
    </message>
    <message>
        <source>Discard…</source>
        <translation>מחיקה…</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>מחיקה</translation>
    </message>
    <message>
        <source>What is not stored yet is kept beside the store, and stored when the store is opened again.</source>
        <translation>מה שטרם נשמר מוחזק ליד המאגר, ויישמר כשהמאגר ייפתח שוב.</translation>
    </message>
    <message>
        <source>What is not stored yet would be lost.</source>
        <translation>מה שטרם נשמר יאבד.</translation>
    </message>
    <message>
        <source>Outcomes are not stored yet. Close now?</source>
        <translation>תוצאות טרם נשמרו. לסגור עכשיו?</translation>
    </message>
    <message>
        <source>Wait until stored</source>
        <translation>המתנה עד לשמירה</translation>
    </message>
    <message>
        <source>Close now</source>
        <translation>סגירה עכשיו</translation>
    </message>
    <message>
        <source>The window closes as soon as everything is stored.</source>
        <translation>החלון ייסגר ברגע שהכול יישמר.</translation>
    </message>
    <message>
        <source>Discard what is not stored yet?</source>
        <translation>למחוק את מה שטרם נשמר?</translation>
    </message>
    <message>
        <source>This store cannot be opened</source>
        <translation>לא ניתן לפתוח את המאגר הזה</translation>
    </message>
    <message>
        <source>Nothing in it was changed.</source>
        <translation>דבר לא השתנה בו.</translation>
    </message>
    <message>
        <source>Open another store…</source>
        <translation>פתיחת מאגר אחר…</translation>
    </message>
    <message>
        <source>Open for reading only</source>
        <translation>פתיחה לקריאה בלבד</translation>
    </message>
    <message>
        <source>Open for recording</source>
        <translation>פתיחה לרישום</translation>
    </message>
    <message>
        <source>This store is open for reading only. Nothing can be recorded in it.</source>
        <translation>המאגר הזה פתוח לקריאה בלבד. לא ניתן לרשום בו דבר.</translation>
    </message>
    <message>
        <source>Open a store</source>
        <translation>פתיחת מאגר</translation>
    </message>
    <message>
        <source>Stores (*.sqlite)</source>
        <translation>מאגרים (*.sqlite)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>כל הקבצים (*)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;קובץ</translation>
    </message>
    <message>
        <source>&amp;Open Store…</source>
        <translation>&amp;פתיחת מאגר…</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;ייבוא…</translation>
    </message>
    <message>
        <source>&amp;Export Goal…</source>
        <translation>יי&amp;צוא מטרה…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;סגירה</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>יציא&amp;ה</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;תצוגה</translation>
    </message>
    <message>
        <source>&amp;Larger Text</source>
        <translation>טקסט &amp;גדול יותר</translation>
    </message>
    <message>
        <source>&amp;Smaller Text</source>
        <translation>טקסט &amp;קטן יותר</translation>
    </message>
    <message>
        <source>&amp;Usual Text</source>
        <translation>טקסט &amp;רגיל</translation>
    </message>
    <message>
        <source>Close &amp;Details</source>
        <translation>סגירת ה&amp;פרטים</translation>
    </message>
    <message>
        <source>&amp;Go</source>
        <translation>&amp;מעבר</translation>
    </message>
    <message>
        <source>&amp;Next Goal</source>
        <translation>המטרה ה&amp;באה</translation>
    </message>
    <message>
        <source>&amp;Previous Goal</source>
        <translation>המטרה ה&amp;קודמת</translation>
    </message>
    <message>
        <source>Next P&amp;ane</source>
        <translation>החלונית הב&amp;אה</translation>
    </message>
    <message>
        <source>Previous Pan&amp;e</source>
        <translation>החלונית הקו&amp;דמת</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>עזר&amp;ה</translation>
    </message>
    <message>
        <source>&amp;Keyboard</source>
        <translation>&amp;מקלדת</translation>
    </message>
    <message>
        <source>&amp;About Vemra Desk</source>
        <translation>&amp;אודות Vemra Desk</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;עריכה</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;ביטול הפעולה</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>ביצוע חו&amp;זר</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;גזירה</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>ה&amp;עתקה</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>ה&amp;דבקה</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>בחירת ה&amp;כול</translation>
    </message>
    <message>
        <source>Reading documents…</source>
        <translation>מסמכים נקראים…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>ביטול</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>ייבוא</translation>
    </message>
    <message>
        <source>Storing…</source>
        <translation>מתבצעת שמירה…</translation>
    </message>
    <message>
        <source>Nothing was imported.</source>
        <translation>דבר לא יובא.</translation>
    </message>
    <message>
        <source>Documents imported: %1.</source>
        <translation>מסמכים שיובאו: %1.</translation>
    </message>
    <message>
        <source>About Vemra Desk</source>
        <translation>אודות Vemra Desk</translation>
    </message>
    <message>
        <source>Vemra Desk %1</source>
        <translation>Vemra Desk %1</translation>
    </message>
    <message>
        <source>Shows goals, the people who may help with them, and what came of it.</source>
        <translation>מציג מטרות, את האנשים שעשויים לעזור בהן ומה יצא מזה.</translation>
    </message>
    <message>
        <source>The next pane</source>
        <translation>החלונית הבאה</translation>
    </message>
    <message>
        <source>The previous pane</source>
        <translation>החלונית הקודמת</translation>
    </message>
    <message>
        <source>The next goal</source>
        <translation>המטרה הבאה</translation>
    </message>
    <message>
        <source>The previous goal</source>
        <translation>המטרה הקודמת</translation>
    </message>
    <message>
        <source>Up, Down, Home, End</source>
        <translation>חץ למעלה, חץ למטה, Home, End</translation>
    </message>
    <message>
        <source>Another goal, in the list</source>
        <translation>מטרה אחרת, ברשימה</translation>
    </message>
    <message>
        <source>The next control</source>
        <translation>הפקד הבא</translation>
    </message>
    <message>
        <source>Space, Return</source>
        <translation>רווח, Enter</translation>
    </message>
    <message>
        <source>Press the control</source>
        <translation>לחיצה על הפקד</translation>
    </message>
    <message>
        <source>The next person who was found</source>
        <translation>התוצאה הבאה</translation>
    </message>
    <message>
        <source>The previous person who was found</source>
        <translation>התוצאה הקודמת</translation>
    </message>
    <message>
        <source>Close the details</source>
        <translation>סגירת הפרטים</translation>
    </message>
    <message>
        <source>The menus</source>
        <translation>התפריטים</translation>
    </message>
    <message>
        <source>Larger text</source>
        <translation>טקסט גדול יותר</translation>
    </message>
    <message>
        <source>Smaller text</source>
        <translation>טקסט קטן יותר</translation>
    </message>
    <message>
        <source>Usual text</source>
        <translation>טקסט בגודל הרגיל</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>מקלדת</translation>
    </message>
    <message>
        <source>Keys of this window</source>
        <translation>המקשים של החלון הזה</translation>
    </message>
    <message>
        <source>Import documents</source>
        <translation>ייבוא מסמכים</translation>
    </message>
    <message>
        <source>Result documents (*.json)</source>
        <translation>מסמכי תוצאה (*.json)</translation>
    </message>
    <message>
        <source>Export the goal</source>
        <translation>ייצוא המטרה</translation>
    </message>
    <message>
        <source>The goal was exported to %1</source>
        <translation>המטרה יוצאה אל %1</translation>
    </message>
    <message>
        <source>The goal was not exported.</source>
        <translation>המטרה לא יוצאה.</translation>
    </message>
    <message>
        <source>No goals yet</source>
        <translation>אין עדיין מטרות</translation>
    </message>
    <message>
        <source>Goals come from result documents. Import them, or drop them here.</source>
        <translation>מטרות מגיעות ממסמכי תוצאה. ניתן לייבא אותם או לגרור אותם לכאן.</translation>
    </message>
    <message>
        <source>To look around first, add the sample goals. Nothing else is changed.</source>
        <translation>כדי להתרשם תחילה, ניתן להוסיף את המטרות לדוגמה. דבר אחר לא ישתנה.</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>ייבוא…</translation>
    </message>
    <message>
        <source>Add sample goals</source>
        <translation>הוספת מטרות לדוגמה</translation>
    </message>
    <message>
        <source>The goal could not be loaded</source>
        <translation>לא ניתן היה לטעון את המטרה</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>קשור</translation>
    </message>
    <message>
        <source>Sources: %1</source>
        <translation>מקורות: %1</translation>
    </message>
    <message>
        <source>Unnamed source</source>
        <translation>מקור ללא שם</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>סגירה</translation>
    </message>
    <message>
        <source>As %1</source>
        <translation>בשם %1</translation>
    </message>
    <message>
        <source>· corrected</source>
        <translation>· תוקן</translation>
    </message>
    <message>
        <source>Person</source>
        <translation>אדם</translation>
    </message>
    <message>
        <source>Worth considering for</source>
        <translation>כדאי לשקול עבור</translation>
    </message>
    <message>
        <source>the goals</source>
        <translation>המטרות</translation>
    </message>
    <message>
        <source>The person to reach for</source>
        <translation>האדם שיש להגיע אליו עבור</translation>
    </message>
    <message>
        <source>On a path for</source>
        <translation>במסלול עבור</translation>
    </message>
    <message>
        <source>Recorded</source>
        <translation>נרשם</translation>
    </message>
    <message>
        <source>the outcomes</source>
        <translation>התוצאות</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>מקור</translation>
    </message>
    <message>
        <source>What it says</source>
        <translation>מה נאמר בו</translation>
    </message>
    <message>
        <source>the statements</source>
        <translation>האמירות</translation>
    </message>
    <message>
        <source>Whom it speaks for</source>
        <translation>בעד מי הוא מעיד</translation>
    </message>
    <message>
        <source>the people</source>
        <translation>האנשים</translation>
    </message>
    <message>
        <source>The strongest source for them</source>
        <translation>המקור החזק ביותר עבורם</translation>
    </message>
    <message>
        <source>One of several sources</source>
        <translation>אחד מכמה מקורות</translation>
    </message>
    <message>
        <source>The store holds nothing more about this person.</source>
        <translation>המאגר אינו מכיל דבר נוסף על האדם הזה.</translation>
    </message>
    <message>
        <source>The store holds nothing more about this source.</source>
        <translation>המאגר אינו מכיל דבר נוסף על המקור הזה.</translation>
    </message>
    <message>
        <source>Nobody</source>
        <translation>אף אחד</translation>
    </message>
    <message>
        <source>Path to %1</source>
        <translation>המסלול אל %1</translation>
    </message>
    <message>
        <source>Show more</source>
        <translation>הצגת עוד</translation>
    </message>
    <message>
        <source>Show more of %1</source>
        <translation>הצגת עוד: %1</translation>
    </message>
    <message>
        <source>, then </source>
        <translation>, ואז </translation>
    </message>
    <message>
        <source>A path without people</source>
        <translation>מסלול ללא אנשים</translation>
    </message>
    <message>
        <source>Goals</source>
        <translation>מטרות</translation>
    </message>
    <message>
        <source>(no title)</source>
        <translation>(ללא כותרת)</translation>
    </message>
    <message>
        <source>the text</source>
        <translation>הטקסט</translation>
    </message>
    <message>
        <source>What is not stored yet is kept beside the store, until you try again or discard it.</source>
        <translation>מה שטרם נשמר מוחזק ליד המאגר, עד לניסיון נוסף או למחיקה.</translation>
    </message>
    <message>
        <source>What is not stored yet is kept beside the store. Some of it is stored when the store is opened again; the rest waits until you try again or discard it.</source>
        <translation>מה שטרם נשמר מוחזק ליד המאגר. חלקו יישמר כשהמאגר ייפתח שוב; השאר ממתין לניסיון נוסף או למחיקה.</translation>
    </message>
    <message>
        <source>Outcomes are still being written. Open the other store without them?</source>
        <translation>תוצאות עדיין נכתבות. לפתוח את המאגר האחר בלעדיהן?</translation>
    </message>
    <message>
        <source>Outcomes are not stored yet. Open the other store now?</source>
        <translation>תוצאות טרם נשמרו. לפתוח עכשיו את המאגר האחר?</translation>
    </message>
    <message>
        <source>Open now</source>
        <translation>פתיחה עכשיו</translation>
    </message>
    <message>
        <source>The other store is opened as soon as everything is stored.</source>
        <translation>המאגר האחר ייפתח ברגע שהכול יישמר.</translation>
    </message>
    <message>
        <source>It would be lost if the program ended now: %1.</source>
        <translation>זה יאבד אם התוכנית תיסגר עכשיו: %1.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>is in use by another program that does not let go of it</source>
        <translation>נמצא בשימוש של תוכנית אחרת שאינה משחררת אותו</translation>
    </message>
    <message>
        <source>has no goal with the id %1</source>
        <translation>אינו מכיל מטרה עם המזהה %1</translation>
    </message>
    <message>
        <source>is damaged</source>
        <translation>פגום</translation>
    </message>
    <message>
        <source>is damaged: the %1 is not part of a store</source>
        <translation>פגום: %1 אינו חלק ממאגר</translation>
    </message>
    <message>
        <source>is damaged: the %1 is not as a store has it</source>
        <translation>פגום: %1 אינו כפי שהוא במאגר</translation>
    </message>
    <message>
        <source>is damaged: the %1 is missing</source>
        <translation>פגום: %1 חסר</translation>
    </message>
    <message>
        <source>is damaged: it has no version</source>
        <translation>פגום: אין לו גרסה</translation>
    </message>
    <message>
        <source>is damaged: it has no tables</source>
        <translation>פגום: אין בו טבלאות</translation>
    </message>
    <message>
        <source>is damaged: it ends too early</source>
        <translation>פגום: הוא נגמר מוקדם מדי</translation>
    </message>
    <message>
        <source>is damaged: a goal is gone</source>
        <translation>פגום: מטרה נעלמה</translation>
    </message>
    <message>
        <source>is damaged: coverage has no row of the goal %1</source>
        <translation>פגום: ב-coverage אין שורה של המטרה %1</translation>
    </message>
    <message>
        <source>is damaged: SQLite found %1</source>
        <translation>פגום: SQLite מצא %1</translation>
    </message>
    <message>
        <source>is damaged: %1: expected %2; found %3</source>
        <translation>פגום: %1: צפוי: %2; נמצא: %3</translation>
    </message>
    <message>
        <source>table %1</source>
        <translation>הרכיב „טבלה %1”</translation>
    </message>
    <message>
        <source>index %1</source>
        <translation>הרכיב „אינדקס %1”</translation>
    </message>
    <message>
        <source>trigger %1</source>
        <translation>הרכיב „טריגר %1”</translation>
    </message>
    <message>
        <source>view %1</source>
        <translation>הרכיב „תצוגה %1”</translation>
    </message>
    <message>
        <source>is an SQLite database, but not a store of goals</source>
        <translation>הוא מסד נתונים של SQLite, אך לא מאגר של מטרות</translation>
    </message>
    <message>
        <source>is not an SQLite database</source>
        <translation>אינו מסד נתונים של SQLite</translation>
    </message>
    <message>
        <source>was written by a newer vemra-desk: its version is %1, this one knows %2</source>
        <translation>נכתב בידי vemra-desk חדש יותר: הגרסה שלו היא %1, וזה מכיר את %2</translation>
    </message>
    <message>
        <source>has no place: there is no home folder</source>
        <translation>אין לו מקום: אין תיקיית בית</translation>
    </message>
    <message>
        <source>is not the name of a file</source>
        <translation>אינו שם של קובץ</translation>
    </message>
    <message>
        <source>is a symbolic link to %1, where there is no file</source>
        <translation>הוא קישור סמלי אל %1, שם אין קובץ</translation>
    </message>
    <message>
        <source>is read-only</source>
        <translation>מוגן מפני כתיבה</translation>
    </message>
    <message>
        <source>is open for reading only</source>
        <translation>פתוח לקריאה בלבד</translation>
    </message>
    <message>
        <source>is not there, or is empty</source>
        <translation>אינו קיים, או ריק</translation>
    </message>
    <message>
        <source>is empty, and was a store before</source>
        <translation>ריק, ובעבר היה מאגר</translation>
    </message>
    <message>
        <source>has changes in a log beside it, which only its owner can take up</source>
        <translation>יש לו שינויים ביומן שלידו, שרק בעליו יכול לקלוט</translation>
    </message>
    <message>
        <source>has changes in a log beside it, which cannot be read in a folder that is read-only</source>
        <translation>יש לו שינויים ביומן שלידו, שלא ניתן לקרוא בתיקייה המוגנת מפני כתיבה</translation>
    </message>
    <message>
        <source>was changed by another program while it was read</source>
        <translation>השתנה בידי תוכנית אחרת בזמן שנקרא</translation>
    </message>
    <message>
        <source>was moved or removed while it was open</source>
        <translation>הועבר או הוסר בזמן שהיה פתוח</translation>
    </message>
    <message>
        <source>was replaced by another file while it was open</source>
        <translation>הוחלף בקובץ אחר בזמן שהיה פתוח</translation>
    </message>
    <message>
        <source>was open while the file %1 beside it was moved, removed or replaced</source>
        <translation>היה פתוח בזמן שהקובץ %1 שלידו הועבר, הוסר או הוחלף</translation>
    </message>
    <message>
        <source>is not the store that the outcome was saved in</source>
        <translation>אינו המאגר שהתוצאה נשמרה בו</translation>
    </message>
    <message>
        <source>has another outcome of the id %1, which stays</source>
        <translation>יש בו תוצאה אחרת עם המזהה %1, והיא נשארת</translation>
    </message>
    <message>
        <source>takes in texts in UTF-8 only; found %1</source>
        <translation>קולט רק טקסטים ב-UTF-8; נמצא: %1</translation>
    </message>
    <message>
        <source>does not take in the result of the goal %1: %2: expected %3; found %4</source>
        <translation>אינו קולט את התוצאה של המטרה %1: %2: צפוי: %3; נמצא: %4</translation>
    </message>
    <message>
        <source>holds a result that cannot be shown, of the goal %1: %2: expected %3; found %4</source>
        <translation>מכיל תוצאה שלא ניתן להציג, של המטרה %1: %2: צפוי: %3; נמצא: %4</translation>
    </message>
    <message>
        <source>cannot be made: %1</source>
        <translation>לא ניתן ליצור אותו: %1</translation>
    </message>
    <message>
        <source>cannot be opened: %1</source>
        <translation>לא ניתן לפתוח אותו: %1</translation>
    </message>
    <message>
        <source>cannot be opened</source>
        <translation>לא ניתן לפתוח אותו</translation>
    </message>
    <message>
        <source>cannot be opened for writing: %1</source>
        <translation>לא ניתן לפתוח אותו לכתיבה: %1</translation>
    </message>
    <message>
        <source>not a file</source>
        <translation>לא קובץ</translation>
    </message>
    <message>
        <source>its folder may be read-only</source>
        <translation>ייתכן שהתיקייה שלו מוגנת מפני כתיבה</translation>
    </message>
    <message>
        <source>its log cannot be made</source>
        <translation>לא ניתן ליצור את היומן שלו</translation>
    </message>
    <message>
        <source>cannot be changed: its folder is read-only</source>
        <translation>לא ניתן לשנות אותו: התיקייה שלו מוגנת מפני כתיבה</translation>
    </message>
    <message>
        <source>cannot be changed: the disk is full</source>
        <translation>לא ניתן לשנות אותו: הדיסק מלא</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>לא ניתן לקרוא אותו</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>לא ניתן לקרוא אותו: %1</translation>
    </message>
    <message>
        <source>cannot be locked</source>
        <translation>לא ניתן לנעול אותו</translation>
    </message>
    <message>
        <source>cannot be locked: %1</source>
        <translation>לא ניתן לנעול אותו: %1</translation>
    </message>
    <message>
        <source>cannot be written</source>
        <translation>לא ניתן לכתוב אותו</translation>
    </message>
    <message>
        <source>cannot be written: %1</source>
        <translation>לא ניתן לכתוב אותו: %1</translation>
    </message>
    <message>
        <source>cannot be written, and may end in half a line: %1</source>
        <translation>לא ניתן לכתוב אותו, וייתכן שהוא נגמר בחצי שורה: %1</translation>
    </message>
    <message>
        <source>cannot be rewritten: %1</source>
        <translation>לא ניתן לכתוב אותו מחדש: %1</translation>
    </message>
    <message>
        <source>cannot be removed: %1</source>
        <translation>לא ניתן להסיר אותו: %1</translation>
    </message>
    <message>
        <source>cannot be examined: %1</source>
        <translation>לא ניתן לבדוק אותו: %1</translation>
    </message>
    <message>
        <source>needs more memory than there is</source>
        <translation>דורש יותר זיכרון ממה שיש</translation>
    </message>
    <message>
        <source>cannot hold a text as long as that</source>
        <translation>אינו יכול להכיל טקסט ארוך כל כך</translation>
    </message>
    <message>
        <source>failed: %1</source>
        <translation>נכשל: %1</translation>
    </message>
    <message>
        <source>is not a file</source>
        <translation>אינו קובץ</translation>
    </message>
    <message>
        <source>is longer than 64 MiB</source>
        <translation>ארוך מ-64 MiB</translation>
    </message>
    <message>
        <source>has no room for more</source>
        <translation>אין בו מקום לעוד</translation>
    </message>
    <message>
        <source>belongs to another user</source>
        <translation>שייך למשתמש אחר</translation>
    </message>
    <message>
        <source>may be written by other users</source>
        <translation>משתמשים אחרים רשאים לכתוב אותו</translation>
    </message>
    <message>
        <source>belongs to another user (user id %1)</source>
        <translation>שייך למשתמש אחר (מזהה משתמש %1)</translation>
    </message>
    <message>
        <source>belongs to another user (user id %1), and everybody may write it or its folder, so its content may be anybody's; use a copy in a folder of your own</source>
        <translation>שייך למשתמש אחר (מזהה משתמש %1), וכל אחד רשאי לכתוב אותו או את התיקייה שלו, כך שתוכנו עשוי להיות של כל אחד; יש להשתמש בעותק בתיקייה משלך</translation>
    </message>
    <message>
        <source>belongs to another user (user id %1), and a whole group may write it; it can be read, and for recording use a store of your own</source>
        <translation>שייך למשתמש אחר (מזהה משתמש %1), וקבוצה שלמה רשאית לכתוב אותו; ניתן לקרוא אותו, ולרישום יש להשתמש במאגר משלך</translation>
    </message>
    <message>
        <source>cannot be used with the file %1 beside it, which %2; find out who put it there, and remove it</source>
        <translation>לא ניתן להשתמש בו עם הקובץ %1 שלידו, אשר %2; יש לברר מי שם אותו שם, ולהסיר אותו</translation>
    </message>
    <message>
        <source>is a symbolic link</source>
        <translation>הוא קישור סמלי</translation>
    </message>
    <message>
        <source>is not a regular file</source>
        <translation>אינו קובץ רגיל</translation>
    </message>
    <message>
        <source>the outcome %1 is recorded with another content, which stays</source>
        <translation>התוצאה %1 רשומה עם תוכן אחר, והיא נשארת</translation>
    </message>
    <message>
        <source>expected %1; found %2</source>
        <translation>צפוי: %1; נמצא: %2</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>שורה %1</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>שורה %1, עמודה %2</translation>
    </message>
    <message>
        <source>a file of at most 1 GiB</source>
        <translation>קובץ של 1 GiB לכל היותר</translation>
    </message>
    <message>
        <source>a longer one</source>
        <translation>קובץ ארוך יותר</translation>
    </message>
    <message>
        <source>a file that can be read</source>
        <translation>קובץ שניתן לקרוא</translation>
    </message>
    <message>
        <source>an error: %1</source>
        <translation>שגיאה: %1</translation>
    </message>
    <message>
        <source>UTF-8 without a byte-order mark</source>
        <translation>UTF-8 ללא סימן סדר בתים</translation>
    </message>
    <message>
        <source>a control character to be written as an escape</source>
        <translation>תו בקרה שכתוב כרצף מילוט</translation>
    </message>
    <message>
        <source>the end of the string</source>
        <translation>סוף המחרוזת</translation>
    </message>
    <message>
        <source>both halves of a surrogate pair</source>
        <translation>שני החצאים של זוג פונדקאים</translation>
    </message>
    <message>
        <source>one of the escapes %1</source>
        <translation>אחד מרצפי המילוט %1</translation>
    </message>
    <message>
        <source>four hexadecimal digits after \u</source>
        <translation>ארבע ספרות הקסדצימליות אחרי \u</translation>
    </message>
    <message>
        <source>a digit</source>
        <translation>ספרה</translation>
    </message>
    <message>
        <source>a number without leading zeros</source>
        <translation>מספר ללא אפסים מובילים</translation>
    </message>
    <message>
        <source>the end of the document</source>
        <translation>סוף המסמך</translation>
    </message>
    <message>
        <source>the end of the file</source>
        <translation>סוף הקובץ</translation>
    </message>
    <message>
        <source>the byte %1</source>
        <translation>הבית %1</translation>
    </message>
    <message>
        <source>a value</source>
        <translation>ערך</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>מערך</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>אובייקט</translation>
    </message>
    <message>
        <source>a key</source>
        <translation>מפתח</translation>
    </message>
    <message>
        <source>a string</source>
        <translation>מחרוזת</translation>
    </message>
    <message>
        <source>a string or null</source>
        <translation>מחרוזת או null</translation>
    </message>
    <message>
        <source>an integer</source>
        <translation>מספר שלם</translation>
    </message>
    <message>
        <source>an integer from %1 to %2, without fraction or exponent</source>
        <translation>מספר שלם מ-%1 עד %2, ללא שבר או מעריך</translation>
    </message>
    <message>
        <source>an integer from %1, which a screen can show</source>
        <translation>מספר שלם מ-%1 ומעלה, שמסך יכול להציג</translation>
    </message>
    <message>
        <source>at most %1 texts in the lists of a result</source>
        <translation>%1 טקסטים לכל היותר ברשימות של תוצאה</translation>
    </message>
    <message>
        <source>%1 up to here</source>
        <translation>%1 עד כאן</translation>
    </message>
    <message>
        <source>each key once</source>
        <translation>כל מפתח פעם אחת</translation>
    </message>
    <message>
        <source>%1 again</source>
        <translation>שוב %1</translation>
    </message>
    <message>
        <source>one of the keys %1</source>
        <translation>אחד מהמפתחות %1</translation>
    </message>
    <message>
        <source>one of waiting, settled</source>
        <translation>אחד מאלה: waiting, settled</translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation>אחד מאלה: %1</translation>
    </message>
    <message>
        <source>the key %1</source>
        <translation>המפתח %1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>אין</translation>
    </message>
    <message>
        <source>no such key with the kind %1, which has %2</source>
        <translation>אין מפתח כזה בסוג %1, שיש לו %2</translation>
    </message>
    <message>
        <source>no such key with the kind %1</source>
        <translation>אין מפתח כזה בסוג %1</translation>
    </message>
    <message>
        <source>another version</source>
        <translation>גרסה אחרת</translation>
    </message>
    <message>
        <source>another entry</source>
        <translation>ערך אחר</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>טקסט</translation>
    </message>
    <message>
        <source>a text in UTF-8</source>
        <translation>טקסט ב-UTF-8</translation>
    </message>
    <message>
        <source>a text or NULL</source>
        <translation>טקסט או NULL</translation>
    </message>
    <message>
        <source>0 or more</source>
        <translation>0 או יותר</translation>
    </message>
    <message>
        <source>a blob</source>
        <translation>BLOB</translation>
    </message>
    <message>
        <source>something that the goal has</source>
        <translation>דבר ששייך למטרה</translation>
    </message>
    <message>
        <source>a number that leaves one for another outcome</source>
        <translation>מספר שמשאיר מספר לתוצאה נוספת</translation>
    </message>
    <message>
        <source>a number that leaves one for another goal</source>
        <translation>מספר שמשאיר מספר למטרה נוספת</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>אין קובץ או תיקייה כאלה</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>אין הרשאה</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>הפעולה אינה מותרת</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>לא נותר מקום בהתקן</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>מכסת הדיסק נוצלה</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>מערכת הקבצים מוגנת מפני כתיבה</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>שגיאת קלט או פלט</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>זו תיקייה</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>זו אינה תיקייה</translation>
    </message>
    <message>
        <source>File exists</source>
        <translation>הקובץ כבר קיים</translation>
    </message>
    <message>
        <source>File name too long</source>
        <translation>שם הקובץ ארוך מדי</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>יותר מדי קבצים פתוחים</translation>
    </message>
    <message>
        <source>Too many levels of symbolic links</source>
        <translation>יותר מדי קישורים סמליים</translation>
    </message>
    <message>
        <source>std::bad_alloc</source>
        <translation>אין מספיק זיכרון</translation>
    </message>
    <message>
        <source>it is read-only</source>
        <translation>הוא מוגן מפני כתיבה</translation>
    </message>
    <message>
        <source>%1: the recording has ended: %2</source>
        <translation>%1: ההקלטה הסתיימה: %2</translation>
    </message>
    <message>
        <source>a file of this name is there already</source>
        <translation>קובץ בשם זה כבר קיים</translation>
    </message>
    <message>
        <source>the locale or the time zone has changed, which a case cannot hold</source>
        <translation>השפה או אזור הזמן השתנו, ומקרה אינו יכול להחזיק זאת</translation>
    </message>
    <message>
        <source>Names, reasons and notes</source>
        <translation>שמות, סיבות והערות</translation>
    </message>
    <message>
        <source>Find people</source>
        <translation>חיפוש אנשים</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>הקודם</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>הבא</translation>
    </message>
    <message>
        <source>Go there</source>
        <translation>מעבר לשם</translation>
    </message>
    <message>
        <source>Searching…</source>
        <translation>מתבצע חיפוש…</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>לא נמצא</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 מתוך %2</translation>
    </message>
    <message>
        <source>&amp;Find…</source>
        <translation>&amp;חיפוש…</translation>
    </message>
    <message>
        <source>Find &amp;Next</source>
        <translation>חיפוש הב&amp;א</translation>
    </message>
    <message>
        <source>Find Pre&amp;vious</source>
        <translation>חיפוש ה&amp;קודם</translation>
    </message>
    <message>
        <source>&amp;Colours</source>
        <translation>&amp;צבעים</translation>
    </message>
    <message>
        <source>Like the &amp;System</source>
        <translation>כמו ה&amp;מערכת</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;בהיר</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;כהה</translation>
    </message>
    <message>
        <source>Stored: %1</source>
        <translation>נשמר: %1</translation>
    </message>
    <message>
        <source>“%1” for %2</source>
        <translation>„%1” עבור %2</translation>
    </message>
    <message>
        <source>Recorded by another program: %1.</source>
        <translation>נרשם על ידי תוכנית אחרת: %1.</translation>
    </message>
    <message>
        <source>Text size: %1 %</source>
        <translation>גודל הטקסט: %1 %</translation>
    </message>
    <message>
        <source>New goals: %1.</source>
        <translation>מטרות חדשות: %1.</translation>
    </message>
    <message>
        <source>New in this goal: %1.</source>
        <translation>חדש במטרה הזאת: %1.</translation>
    </message>
    <message>
        <source>No longer in this goal: %1.</source>
        <translation>כבר לא במטרה הזאת: %1.</translation>
    </message>
    <message>
        <source>This goal has changed.</source>
        <translation>המטרה הזאת השתנתה.</translation>
    </message>
    <message>
        <source>Discard drafts and close now</source>
        <translation>מחיקת הטיוטות וסגירה עכשיו</translation>
    </message>
    <message>
        <source>Discard drafts and open now</source>
        <translation>מחיקת הטיוטות ופתיחה עכשיו</translation>
    </message>
    <message>
        <source>Discard drafts and wait until stored</source>
        <translation>מחיקת הטיוטות והמתנה עד לשמירה</translation>
    </message>
    <message>
        <source>The window closes as soon as everything is stored that does not need your decision.</source>
        <translation>החלון ייסגר ברגע שיישמר כל מה שאינו דורש את החלטתך.</translation>
    </message>
    <message>
        <source>The other store is opened as soon as everything is stored that does not need your decision.</source>
        <translation>המאגר האחר ייפתח ברגע שיישמר כל מה שאינו דורש את החלטתך.</translation>
    </message>
</context>
</TS>
