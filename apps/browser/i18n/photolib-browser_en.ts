<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>browser::DragFiles</name>
    <message numerus="yes">
        <source>More than %n photo(s) are better exported. Choose Export instead of dragging them.</source>
        <translation>
            <numerusform>More than %n photo is better exported. Choose Export instead of dragging.</numerusform>
            <numerusform>More than %n photos are better exported. Choose Export instead of dragging them.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n photo(s) could not be read from the device and are missing. Choose Export to see why.</source>
        <translation>
            <numerusform>%n photo could not be read from the device and is missing. Choose Export to see why.</numerusform>
            <numerusform>%n photos could not be read from the device and are missing. Choose Export to see why.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reading %n photo(s) from the device…</source>
        <translation>
            <numerusform>Reading %n photo from the device…</numerusform>
            <numerusform>Reading %n photos from the device…</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>browser::ExportTexts</name>
    <message numerus="yes">
        <source>%n file(s) to copy, %1</source>
        <translation>
            <numerusform>%n file to copy, %1</numerusform>
            <numerusform>%n files to copy, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) copied, %1</source>
        <translation>
            <numerusform>%n file copied, %1</numerusform>
            <numerusform>%n files copied, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) of the same name and size are there; they will be compared</source>
        <translation>
            <numerusform>%n file of the same name and size is there; it will be compared</numerusform>
            <numerusform>%n files of the same name and size are there; they will be compared</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) with the same content were there already</source>
        <translation>
            <numerusform>%n file with the same content was there already</numerusform>
            <numerusform>%n files with the same content were there already</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) already there from an earlier export</source>
        <translation>
            <numerusform>%n file already there from an earlier export</numerusform>
            <numerusform>%n files already there from an earlier export</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n original(s) not on the device, only in the cloud</source>
        <translation>
            <numerusform>%n original not on the device, only in the cloud</numerusform>
            <numerusform>%n originals not on the device, only in the cloud</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) cannot be read</source>
        <translation>
            <numerusform>%n file cannot be read</numerusform>
            <numerusform>%n files cannot be read</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) failed</source>
        <translation>
            <numerusform>%n file failed</numerusform>
            <numerusform>%n files failed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n album folder(s)</source>
        <translation>
            <numerusform>%n album folder</numerusform>
            <numerusform>%n album folders</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n album folder(s) could not be made</source>
        <translation>
            <numerusform>%n album folder could not be made</numerusform>
            <numerusform>%n album folders could not be made</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n minute(s) left</source>
        <translation>
            <numerusform>about %n minute left</numerusform>
            <numerusform>about %n minutes left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n hour(s) left</source>
        <translation>
            <numerusform>about %n hour left</numerusform>
            <numerusform>about %n hours left</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>browser::ExportWindow</name>
    <message numerus="yes">
        <source>Export %n photo(s) and video(s)</source>
        <translation>
            <numerusform>Export %n photo or video</numerusform>
            <numerusform>Export %n photos and videos</numerusform>
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
        <source>%n more not listed</source>
        <translation>
            <numerusform>%n more not listed</numerusform>
            <numerusform>%n more not listed</numerusform>
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
