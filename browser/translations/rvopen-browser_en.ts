<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
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
        <source>%n picture(s) were written</source>
        <translation>
            <numerusform>%n picture was written</numerusform>
            <numerusform>%n pictures were written</numerusform>
        </translation>
    </message>
</context>
</TS>
