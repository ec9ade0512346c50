<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Start</name>
    <message>
        <source>Choose and edit presets and snapshots by their pictures</source>
        <translation>Vorlagen und Aufnahmen nach ihren Bildern auswählen und bearbeiten</translation>
    </message>
    <message>
        <source>Remember in this file instead of the user&apos;s</source>
        <translation>In dieser Datei merken, nicht in der des Benutzers</translation>
    </message>
    <message>
        <source>Archives, documents and folders; without any what was open before</source>
        <translation>Archive, Dokumente und Ordner; ohne Angabe, was zuletzt geöffnet war</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::CompareWindow</name>
    <message>
        <source>new</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>gone</source>
        <translation>entfernt</translation>
    </message>
    <message>
        <source>moved</source>
        <translation>verschoben</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>%1 and %2</source>
        <translation>%1 und %2</translation>
    </message>
    <message>
        <source>Picture of %1</source>
        <translation>Bild von %1</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Wo</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Differences</source>
        <translation>Unterschiede</translation>
    </message>
    <message>
        <source>Nothing differs</source>
        <translation>Kein Unterschied</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Details</name>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilddateien</translation>
    </message>
    <message>
        <source>Nothing is chosen</source>
        <translation>Nichts ausgewählt</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>%1 fehlt</translation>
    </message>
    <message>
        <source>Images (%1)</source>
        <translation>Bilddateien (%1)</translation>
    </message>
    <message>
        <source>References</source>
        <translation>Verweise</translation>
    </message>
    <message>
        <source>%1 %2 is missing</source>
        <translation>%1 %2 fehlt</translation>
    </message>
    <message>
        <source>References (%1)</source>
        <translation>Verweise (%1)</translation>
    </message>
    <message>
        <source>Values, images, references and labels</source>
        <translation>Werte, Bilder, Verweise und Angaben</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Angaben</translation>
    </message>
    <message>
        <source>%1 is the reference name of another preset</source>
        <translation>%1 ist der Verweisname einer anderen Vorlage</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::EditedFile</name>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>Wiederherstellen</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Exports</name>
    <message>
        <source>There is nothing to show on a sheet</source>
        <translation>Für einen Bogen ist nichts zu zeigen</translation>
    </message>
    <message>
        <source>That is too much for one picture: take PDF, or smaller pictures, of %1 pixels</source>
        <translation>Das ist zu viel für ein Bild: nehmen Sie PDF, oder kleinere Bilder, von %1 Pixeln</translation>
    </message>
    <message numerus="yes">
        <source>%1 has %n picture(s)</source>
        <translation>
            <numerusform>%1 hat %n Bild</numerusform>
            <numerusform>%1 hat %n Bilder</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n picture(s) were written</source>
        <translation>
            <numerusform>%n Bild wurde geschrieben</numerusform>
            <numerusform>%n Bilder wurden geschrieben</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Findings</name>
    <message>
        <source>Finding</source>
        <translation>Befund</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Wo</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Befunde</translation>
    </message>
    <message>
        <source>Mend</source>
        <translation>Beheben</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Grid</name>
    <message>
        <source>Presets</source>
        <translation>Vorlagen</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Labels</name>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>Schlagwort</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Reference name</source>
        <translation>Verweisname</translation>
    </message>
    <message>
        <source>Describe</source>
        <translation>Beschreiben</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::MainWindow</name>
    <message>
        <source>%1 was edited until %2 and not saved.</source>
        <translation>%1 wurde bis %2 bearbeitet und nicht gespeichert.</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) were edited.</source>
        <translation>
            <numerusform>%n Datei wurde bearbeitet.</numerusform>
            <numerusform>%n Dateien wurden bearbeitet.</numerusform>
        </translation>
    </message>
    <message>
        <source>Save and close</source>
        <translation>Speichern und schließen</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Ohne Speichern schließen</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Bleiben</translation>
    </message>
    <message>
        <source>File that is edited</source>
        <translation>Datei in Bearbeitung</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Vorlage</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Befunde</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search names, categories, descriptions</source>
        <translation>Namen, Kategorien und Beschreibungen durchsuchen</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Look for a colour, the nearest first; a colour or a picture can be dropped on the presets, too</source>
        <translation>Nach einer Farbe suchen, die ähnlichste zuerst; eine Farbe oder ein Bild kann auch auf die Vorlagen gezogen werden</translation>
    </message>
    <message>
        <source>Size of the pictures</source>
        <translation>Größe der Bilder</translation>
    </message>
    <message>
        <source>Edits are not kept for after a crash: %1</source>
        <translation>Änderungen werden nicht für die Zeit nach einem Absturz aufgehoben: %1</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message numerus="yes">
        <source>%n preset(s)</source>
        <translation>
            <numerusform>%n Vorlage</numerusform>
            <numerusform>%n Vorlagen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1[*] – rvopen</source>
        <translation>%1[*] – rvopen</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Vorlagen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>New &amp;Archive…</source>
        <translation>Neues &amp;Archiv…</translation>
    </message>
    <message>
        <source>New &amp;Snapshot Document…</source>
        <translation>Neues &amp;Aufnahmedokument…</translation>
    </message>
    <message>
        <source>&amp;Open Files…</source>
        <translation>Dateien ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>Open &amp;Folder…</source>
        <translation>O&amp;rdner öffnen…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save A&amp;ll</source>
        <translation>A&amp;lle speichern</translation>
    </message>
    <message>
        <source>&amp;Export Pictures…</source>
        <translation>Bilder &amp;exportieren…</translation>
    </message>
    <message>
        <source>&amp;Close File</source>
        <translation>Datei s&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
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
        <translation>&amp;Wiederholen</translation>
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
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>&amp;Duplizieren</translation>
    </message>
    <message>
        <source>Rena&amp;me</source>
        <translation>U&amp;mbenennen</translation>
    </message>
    <message>
        <source>De&amp;lete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Move U&amp;p</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Move Do&amp;wn</source>
        <translation>Nach &amp;unten</translation>
    </message>
    <message>
        <source>&amp;Sort by Name</source>
        <translation>Nach Namen &amp;sortieren</translation>
    </message>
    <message>
        <source>&amp;Favourite</source>
        <translation>&amp;Favorit</translation>
    </message>
    <message>
        <source>F&amp;ind</source>
        <translation>Su&amp;chen</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Werkzeuge</translation>
    </message>
    <message>
        <source>&amp;Check File</source>
        <translation>Datei &amp;prüfen</translation>
    </message>
    <message>
        <source>Check &amp;All Files</source>
        <translation>&amp;Alle Dateien prüfen</translation>
    </message>
    <message>
        <source>&amp;Mend</source>
        <translation>&amp;Beheben</translation>
    </message>
    <message>
        <source>C&amp;ompare</source>
        <translation>&amp;Vergleichen</translation>
    </message>
    <message>
        <source>Apply &amp;to</source>
        <translation>An&amp;wenden auf</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About rvopen</source>
        <translation>Ü&amp;ber rvopen</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Choose a preset, a folder or a section first</source>
        <translation>Wählen Sie zuerst eine Vorlage, einen Ordner oder einen Abschnitt</translation>
    </message>
    <message numerus="yes">
        <source>%n element(s) were deleted; Undo brings them back</source>
        <translation>
            <numerusform>%n Element wurde gelöscht; Rückgängig holt es zurück</numerusform>
            <numerusform>%n Elemente wurden gelöscht; Rückgängig holt sie zurück</numerusform>
        </translation>
    </message>
    <message>
        <source>This cannot be duplicated</source>
        <translation>Das kann nicht dupliziert werden</translation>
    </message>
    <message>
        <source>That cannot stand here: choose a section or a folder for it</source>
        <translation>Das kann hier nicht stehen: Wählen Sie einen Abschnitt oder Ordner dafür</translation>
    </message>
    <message>
        <source>%1 is a favourite</source>
        <translation>%1 ist ein Favorit</translation>
    </message>
    <message>
        <source>%1 is no favourite any more</source>
        <translation>%1 ist kein Favorit mehr</translation>
    </message>
    <message numerus="yes">
        <source>%n finding(s) were mended; Undo brings them back</source>
        <translation>
            <numerusform>%n Befund wurde behoben; Rückgängig holt ihn zurück</numerusform>
            <numerusform>%n Befunde wurden behoben; Rückgängig holt sie zurück</numerusform>
        </translation>
    </message>
    <message>
        <source>Choose one preset, and open the document that it is to be used in</source>
        <translation>Wählen Sie eine Vorlage und öffnen Sie das Dokument, in dem sie verwendet werden soll</translation>
    </message>
    <message>
        <source>%1 was applied to %2</source>
        <translation>%1 wurde auf %2 angewandt</translation>
    </message>
    <message>
        <source>%1 cannot be applied there</source>
        <translation>%1 kann dort nicht angewandt werden</translation>
    </message>
    <message>
        <source>rvopen %1: presets and snapshots to choose from, and to edit</source>
        <translation>rvopen %1: Vorlagen und Aufnahmen zum Auswählen und Bearbeiten</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>Dateien öffnen</translation>
    </message>
    <message>
        <source>Archives and documents (*.rvx *.xml)</source>
        <translation>Archive und Dokumente (*.rvx *.xml)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>New Archive</source>
        <translation>Neues Archiv</translation>
    </message>
    <message>
        <source>Archives (*.rvx)</source>
        <translation>Archive (*.rvx)</translation>
    </message>
    <message>
        <source>New Snapshot Document</source>
        <translation>Neues Aufnahmedokument</translation>
    </message>
    <message>
        <source>Snapshot documents (*.xml)</source>
        <translation>Aufnahmedokumente (*.xml)</translation>
    </message>
    <message>
        <source>%1 was edited.</source>
        <translation>%1 wurde bearbeitet.</translation>
    </message>
    <message>
        <source>%1 was changed by another program.</source>
        <translation>%1 wurde von einem anderen Programm geändert.</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>Keep mine</source>
        <translation>Meine behalten</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Vergleichen</translation>
    </message>
    <message>
        <source>%1 on disk</source>
        <translation>%1 auf der Platte</translation>
    </message>
    <message>
        <source>%1 here</source>
        <translation>%1 hier</translation>
    </message>
    <message numerus="yes">
        <source>Folder for %n picture(s)</source>
        <translation>
            <numerusform>Ordner für %n Bild</numerusform>
            <numerusform>Ordner für %n Bilder</numerusform>
        </translation>
    </message>
    <message>
        <source>Snapshots</source>
        <translation>Aufnahmen</translation>
    </message>
    <message>
        <source>&amp;Remove from the List</source>
        <translation>Aus der &amp;Liste entfernen</translation>
    </message>
    <message>
        <source>This cannot be renamed</source>
        <translation>Das kann nicht umbenannt werden</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importieren…</translation>
    </message>
    <message>
        <source>Mer&amp;ge…</source>
        <translation>&amp;Zusammenführen…</translation>
    </message>
    <message>
        <source>Collect with I&amp;mages…</source>
        <translation>Mit &amp;Bildern sammeln…</translation>
    </message>
    <message>
        <source>Export S&amp;heet…</source>
        <translation>B&amp;ogen exportieren…</translation>
    </message>
    <message>
        <source>Export Page for &amp;Browsers…</source>
        <translation>Seite für Bro&amp;wser exportieren…</translation>
    </message>
    <message>
        <source>Find &amp;Uses</source>
        <translation>&amp;Verwendungen finden</translation>
    </message>
    <message>
        <source>Find Missing &amp;Images…</source>
        <translation>Fehlende &amp;Bilder finden…</translation>
    </message>
    <message>
        <source>&amp;Embed Pictures</source>
        <translation>Bilder &amp;einbetten</translation>
    </message>
    <message>
        <source>&amp;Set the Value for All Chosen</source>
        <translation>Wert für alle gewählten &amp;setzen</translation>
    </message>
    <message numerus="yes">
        <source>Sheet of %n picture(s)</source>
        <translation>
            <numerusform>Bogen mit %n Bild</numerusform>
            <numerusform>Bogen mit %n Bildern</numerusform>
        </translation>
    </message>
    <message>
        <source>To print (*.pdf)</source>
        <translation>Zum Drucken (*.pdf)</translation>
    </message>
    <message>
        <source>One picture (*.png)</source>
        <translation>Ein Bild (*.png)</translation>
    </message>
    <message numerus="yes">
        <source>Empty folder for a page of %n picture(s)</source>
        <translation>
            <numerusform>Leerer Ordner für eine Seite mit %n Bild</numerusform>
            <numerusform>Leerer Ordner für eine Seite mit %n Bildern</numerusform>
        </translation>
    </message>
    <message>
        <source>Choose a preset or a file first</source>
        <translation>Wählen Sie zuerst eine Vorlage oder eine Datei</translation>
    </message>
    <message>
        <source>Import into %1</source>
        <translation>In %1 importieren</translation>
    </message>
    <message numerus="yes">
        <source>%n element(s) are there with another content.</source>
        <translation>
            <numerusform>%n Element ist mit anderem Inhalt schon da.</numerusform>
            <numerusform>%n Elemente sind mit anderem Inhalt schon da.</numerusform>
        </translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Take under other names</source>
        <translation>Unter anderen Namen übernehmen</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>Lassen</translation>
    </message>
    <message>
        <source>Merge into %1</source>
        <translation>In %1 zusammenführen</translation>
    </message>
    <message>
        <source>What both come from</source>
        <translation>Woher beide stammen</translation>
    </message>
    <message>
        <source>Is there a version that both come from?</source>
        <translation>Gibt es eine Fassung, von der beide stammen?</translation>
    </message>
    <message>
        <source>Choose it…</source>
        <translation>Wählen…</translation>
    </message>
    <message>
        <source>There is none</source>
        <translation>Es gibt keine</translation>
    </message>
    <message>
        <source>Do not merge</source>
        <translation>Nicht zusammenführen</translation>
    </message>
    <message>
        <source>Folder for %1 and its images</source>
        <translation>Ordner für %1 und seine Bilder</translation>
    </message>
    <message>
        <source>Some images lie elsewhere on this machine.</source>
        <translation>Einige Bilder liegen anderswo auf diesem Rechner.</translation>
    </message>
    <message>
        <source>Take them along</source>
        <translation>Mitnehmen</translation>
    </message>
    <message>
        <source>Leave them out</source>
        <translation>Weglassen</translation>
    </message>
    <message>
        <source>Do not collect</source>
        <translation>Nicht sammeln</translation>
    </message>
    <message>
        <source>Folder that the missing images are in, or below</source>
        <translation>Ordner, in oder unter dem die fehlenden Bilder liegen</translation>
    </message>
    <message>
        <source>Choose presets first</source>
        <translation>Wählen Sie zuerst Vorlagen</translation>
    </message>
    <message>
        <source>Choose several presets, and the value that all of them are to have</source>
        <translation>Wählen Sie mehrere Vorlagen, und den Wert, den alle haben sollen</translation>
    </message>
    <message>
        <source>Choose one preset that has a reference name</source>
        <translation>Wählen Sie eine Vorlage, die einen Verweisnamen hat</translation>
    </message>
    <message>
        <source>As the &amp;Desktop</source>
        <translation>Wie der Des&amp;ktop</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>Dar&amp;k</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>Something else is being done: try again when it has ended</source>
        <translation>Etwas anderes läuft noch: versuchen Sie es, wenn es fertig ist</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::MessageLine</name>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Close this message</source>
        <translation>Diese Meldung schließen</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Sidebar</name>
    <message>
        <source>Filters</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Files, kinds, categories and tags to choose presets by</source>
        <translation>Dateien, Arten, Kategorien und Schlagwörter zum Auswählen von Vorlagen</translation>
    </message>
    <message>
        <source>All presets</source>
        <translation>Alle Vorlagen</translation>
    </message>
    <message>
        <source>Favourites</source>
        <translation>Favoriten</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Zuletzt verwendet</translation>
    </message>
    <message>
        <source>Kinds</source>
        <translation>Arten</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>Kategorien</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Schlagwörter</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::SnapShotStrip</name>
    <message>
        <source>Snapshots</source>
        <translation>Aufnahmen</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::Workspace</name>
    <message>
        <source>%1 is not there</source>
        <translation>%1 ist nicht vorhanden</translation>
    </message>
    <message>
        <source>%1: not all of its edits could be recovered</source>
        <translation>%1: Nicht alle Änderungen konnten wiederhergestellt werden</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::edits</name>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Neuer Ordner</translation>
    </message>
    <message>
        <source>New %1</source>
        <translation>Neu: %1</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Sort</source>
        <translation>Sortieren</translation>
    </message>
</context>
<context>
    <name>rvopen::browser::works</name>
    <message>
        <source>%1 was edited meanwhile: nothing was done</source>
        <translation>%1 wurde inzwischen bearbeitet: nichts wurde getan</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message numerus="yes">
        <source>%n element(s) were taken over</source>
        <translation>
            <numerusform>%n Element wurde übernommen</numerusform>
            <numerusform>%n Elemente wurden übernommen</numerusform>
        </translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>Zusammenführen</translation>
    </message>
    <message>
        <source>Both changed: before %1, here %2, there %3</source>
        <translation>Beide geändert: vorher %1, hier %2, dort %3</translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) were taken, </source>
        <translation>
            <numerusform>%n Änderung wurde übernommen, </numerusform>
            <numerusform>%n Änderungen wurden übernommen, </numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n conflict(s) are to be looked at</source>
        <translation>
            <numerusform>%n Widerspruch ist anzusehen</numerusform>
            <numerusform>%n Widersprüche sind anzusehen</numerusform>
        </translation>
    </message>
    <message>
        <source>Find Images</source>
        <translation>Bilder finden</translation>
    </message>
    <message numerus="yes">
        <source>%n image(s) were found, </source>
        <translation>
            <numerusform>%n Bild wurde gefunden, </numerusform>
            <numerusform>%n Bilder wurden gefunden, </numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n are missing still</source>
        <translation>
            <numerusform>%n fehlt noch</numerusform>
            <numerusform>%n fehlen noch</numerusform>
        </translation>
    </message>
    <message>
        <source>Embed Pictures</source>
        <translation>Bilder einbetten</translation>
    </message>
    <message numerus="yes">
        <source>%n picture(s) were embedded</source>
        <translation>
            <numerusform>%n Bild wurde eingebettet</numerusform>
            <numerusform>%n Bilder wurden eingebettet</numerusform>
        </translation>
    </message>
    <message>
        <source>Set for All</source>
        <translation>Für alle setzen</translation>
    </message>
    <message numerus="yes">
        <source>The value was set in %n preset(s)</source>
        <translation>
            <numerusform>Der Wert wurde in %n Vorlage gesetzt</numerusform>
            <numerusform>Der Wert wurde in %n Vorlagen gesetzt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, and %n cannot have it</source>
        <translation>
            <numerusform>, und %n kann ihn nicht haben</numerusform>
            <numerusform>, und %n können ihn nicht haben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 has the file and %n image(s)</source>
        <translation>
            <numerusform>%1 hat die Datei und %n Bild</numerusform>
            <numerusform>%1 hat die Datei und %n Bilder</numerusform>
        </translation>
    </message>
    <message>
        <source>Uses %1 %2</source>
        <translation>Verwendet %1 %2</translation>
    </message>
    <message numerus="yes">
        <source>%1 is used in %n place(s)</source>
        <translation>
            <numerusform>%1 wird an %n Stelle verwendet</numerusform>
            <numerusform>%1 wird an %n Stellen verwendet</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::ColourEditor</name>
    <message>
        <source>Choose a colour</source>
        <translation>Farbe auswählen</translation>
    </message>
    <message>
        <source>swatch</source>
        <translation>Farbfeld</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::FileEditor</name>
    <message>
        <source>Choose a folder</source>
        <translation>Ordner auswählen</translation>
    </message>
    <message>
        <source>Choose a file</source>
        <translation>Datei auswählen</translation>
    </message>
    <message>
        <source>dialog</source>
        <translation>Dialog</translation>
    </message>
    <message>
        <source>preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>No image</source>
        <translation>Kein Bild</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::NodeModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::NumberEditor</name>
    <message>
        <source>slider</source>
        <translation>Schieberegler</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::ParamEditor</name>
    <message>
        <source>red</source>
        <translation>rot</translation>
    </message>
    <message>
        <source>green</source>
        <translation>grün</translation>
    </message>
    <message>
        <source>blue</source>
        <translation>blau</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::ParamModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Meaning</source>
        <translation>Bedeutung</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::PresetModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Sub-category</source>
        <translation>Unterkategorie</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
</context>
<context>
    <name>rvopen::widgets::UndoRecorder</name>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
</context>
</TS>
