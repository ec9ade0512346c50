<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>rvopen::browser::Exports</name>
    <message numerus="yes">
        <source>%1 has %n picture(s)</source>
        <translation>
            <numerusform>%1 has %n picture</numerusform>
            <numerusform>%1 has %n pictures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n picture(s) were written</source>
        <translation>
            <numerusform>%n picture was written</numerusform>
            <numerusform>%n pictures were written</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>rvopen::browser::MainWindow</name>
    <message numerus="yes">
        <source>%n file(s) were edited.</source>
        <translation>
            <numerusform>%n file was edited.</numerusform>
            <numerusform>%n files were edited.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n preset(s)</source>
        <translation>
            <numerusform>%n preset</numerusform>
            <numerusform>%n presets</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n element(s) were deleted; Undo brings them back</source>
        <translation>
            <numerusform>%n element was deleted; Undo brings it back</numerusform>
            <numerusform>%n elements were deleted; Undo brings them back</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n finding(s) were mended; Undo brings them back</source>
        <translation>
            <numerusform>%n finding was mended; Undo brings it back</numerusform>
            <numerusform>%n findings were mended; Undo brings them back</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Folder for %n picture(s)</source>
        <translation>
            <numerusform>Folder for %n picture</numerusform>
            <numerusform>Folder for %n pictures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Sheet of %n picture(s)</source>
        <translation>
            <numerusform>Sheet of %n picture</numerusform>
            <numerusform>Sheet of %n pictures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Empty folder for a page of %n picture(s)</source>
        <translation>
            <numerusform>Empty folder for a page of %n picture</numerusform>
            <numerusform>Empty folder for a page of %n pictures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n element(s) are there with another content.</source>
        <translation>
            <numerusform>%n element is there with another content.</numerusform>
            <numerusform>%n elements are there with another content.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>rvopen::browser::works</name>
    <message numerus="yes">
        <source>%n element(s) were taken over</source>
        <translation>
            <numerusform>%n element was taken over</numerusform>
            <numerusform>%n elements were taken over</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) were taken, </source>
        <translation>
            <numerusform>%n change was taken, </numerusform>
            <numerusform>%n changes were taken, </numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n conflict(s) are to be looked at</source>
        <translation>
            <numerusform>%n conflict is to be looked at</numerusform>
            <numerusform>%n conflicts are to be looked at</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n image(s) were found, </source>
        <translation>
            <numerusform>%n image was found, </numerusform>
            <numerusform>%n images were found, </numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n are missing still</source>
        <translation>
            <numerusform>%n is missing still</numerusform>
            <numerusform>%n are missing still</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n picture(s) were embedded</source>
        <translation>
            <numerusform>%n picture was embedded</numerusform>
            <numerusform>%n pictures were embedded</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The value was set in %n preset(s)</source>
        <translation>
            <numerusform>The value was set in %n preset</numerusform>
            <numerusform>The value was set in %n presets</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, and %n cannot have it</source>
        <translation>
            <numerusform>, and %n cannot have it</numerusform>
            <numerusform>, and %n cannot have it</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 has the file and %n image(s)</source>
        <translation>
            <numerusform>%1 has the file and %n image</numerusform>
            <numerusform>%1 has the file and %n images</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 is used in %n place(s)</source>
        <translation>
            <numerusform>%1 is used in %n place</numerusform>
            <numerusform>%1 is used in %n places</numerusform>
        </translation>
    </message>
</context>
</TS>
