<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>browser::ChoicesPage</name>
    <message numerus="yes">
        <source>%Ln hidden or recently deleted photo(s) are left out. To export those, choose “Hidden” or “Recently deleted” in the list of albums.</source>
        <translation>
            <numerusform>%Ln hidden or recently deleted photo is left out. To export it, choose “Hidden” or “Recently deleted” in the list of albums.</numerusform>
            <numerusform>%Ln hidden or recently deleted photos are left out. To export those, choose “Hidden” or “Recently deleted” in the list of albums.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>browser::DragFiles</name>
    <message numerus="yes">
        <source>More than %Ln photo(s) are better exported. Choose Export instead of dragging or copying them.</source>
        <translation>
            <numerusform>More than %Ln photo is better exported. Choose Export instead of dragging or copying it.</numerusform>
            <numerusform>More than %Ln photos are better exported. Choose Export instead of dragging or copying them.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photo(s) could not be read from the device and are missing. Choose Export to see why.</source>
        <translation>
            <numerusform>%Ln photo could not be read from the device and is missing. Choose Export to see why.</numerusform>
            <numerusform>%Ln photos could not be read from the device and are missing. Choose Export to see why.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reading %Ln photo(s) from the device…</source>
        <translation>
            <numerusform>Reading %Ln photo from the device…</numerusform>
            <numerusform>Reading %Ln photos from the device…</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>browser::ExportTexts</name>
    <message numerus="yes">
        <source>%Ln file(s) to copy, %1</source>
        <translation>
            <numerusform>%Ln file to copy, %1</numerusform>
            <numerusform>%Ln files to copy, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) copied, %1</source>
        <translation>
            <numerusform>%Ln file copied, %1</numerusform>
            <numerusform>%Ln files copied, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) of the same name and size are there; they will be compared</source>
        <translation>
            <numerusform>%Ln file of the same name and size is there; it will be compared</numerusform>
            <numerusform>%Ln files of the same name and size are there; they will be compared</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) with the same content were there already</source>
        <translation>
            <numerusform>%Ln file with the same content was there already</numerusform>
            <numerusform>%Ln files with the same content were there already</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) already there from an earlier export</source>
        <translation>
            <numerusform>%Ln file already there from an earlier export</numerusform>
            <numerusform>%Ln files already there from an earlier export</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln original(s) not on the device, only in the cloud</source>
        <translation>
            <numerusform>%Ln original not on the device, only in the cloud</numerusform>
            <numerusform>%Ln originals not on the device, only in the cloud</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) cannot be read</source>
        <translation>
            <numerusform>%Ln file cannot be read</numerusform>
            <numerusform>%Ln files cannot be read</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) failed</source>
        <translation>
            <numerusform>%Ln file failed</numerusform>
            <numerusform>%Ln files failed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln album folder(s)</source>
        <translation>
            <numerusform>%Ln album folder</numerusform>
            <numerusform>%Ln album folders</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln album folder(s) could not be made</source>
        <translation>
            <numerusform>%Ln album folder could not be made</numerusform>
            <numerusform>%Ln album folders could not be made</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %Ln minute(s) left</source>
        <translation>
            <numerusform>about %Ln minute left</numerusform>
            <numerusform>about %Ln minutes left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %Ln hour(s) left</source>
        <translation>
            <numerusform>about %Ln hour left</numerusform>
            <numerusform>about %Ln hours left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln original(s) not in this backup, but in the cloud</source>
        <translation>
            <numerusform>%Ln original is not in this backup, but in the cloud</numerusform>
            <numerusform>%Ln originals are not in this backup, but in the cloud</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln original(s) not in this backup</source>
        <translation>
            <numerusform>%Ln original is missing in this backup</numerusform>
            <numerusform>%Ln originals are missing in this backup</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln original(s) not on the device</source>
        <translation>
            <numerusform>%Ln original is missing on the device</numerusform>
            <numerusform>%Ln originals are missing on the device</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>browser::ExportWindow</name>
    <message numerus="yes">
        <source>Export %Ln photo(s) and video(s)</source>
        <translation>
            <numerusform>Export %Ln photo or video</numerusform>
            <numerusform>Export %Ln photos and videos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>browser::LibraryPage</name>
    <message numerus="yes">
        <source>%Ln selected (%1)</source>
        <comment>photos</comment>
        <translation>
            <numerusform>%Ln selected (%1)</numerusform>
            <numerusform>%Ln selected (%1)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>browser::ResultPage</name>
    <message numerus="yes">
        <source>%Ln more not listed</source>
        <translation>
            <numerusform>%Ln more not listed</numerusform>
            <numerusform>%Ln more not listed</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>browser::Texts</name>
    <message numerus="yes">
        <source>%Ln photo(s)</source>
        <translation>
            <numerusform>%Ln photo</numerusform>
            <numerusform>%Ln photos</numerusform>
        </translation>
    </message>
</context>
</TS>
