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
        <source>Remember in this file instead of the user's</source>
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
        <source>Values and images</source>
        <translation>Werte und Bilddateien</translation>
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
    <message numerus="yes">
        <source>%n picture(s) were written</source>
        <translation>
            <numerusform>%n Bild wurde geschrieben</numerusform>
            <numerusform>%n Bilder wurden geschrieben</numerusform>
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
