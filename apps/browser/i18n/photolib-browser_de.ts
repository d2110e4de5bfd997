<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>About</name>
    <message>
        <source>About This Program</source>
        <translation>Über dieses Programm</translation>
    </message>
    <message>
        <source>Photo Library Browser %1</source>
        <translation>Fotobibliothek-Betrachter %1</translation>
    </message>
    <message>
        <source>Shows the photos and videos of a phone as the phone itself sorts them, and copies them to this computer. Nothing on the phone is ever changed.

Free software under the MIT licence.</source>
        <translation>Zeigt die Fotos und Videos eines Handys so, wie das Handy sie ordnet, und kopiert sie auf diesen Computer. Auf dem Handy wird nie etwas verändert.

Freie Software unter der MIT-Lizenz.</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Shows the photo library of a phone: its albums, people, places and every photo, and exports them.
Without DEVICE it lists the phones, backups and folders that there are.</source>
        <translation>Zeigt die Fotobibliothek eines Handys: seine Alben, Personen, Orte und jedes Foto, und exportiert sie.
Ohne DEVICE werden die vorhandenen Handys, Sicherungen und Ordner aufgelistet.</translation>
    </message>
    <message>
        <source>The media folder of a phone, a backup of a phone, or &quot;usb&quot; for the phone on the cable.</source>
        <translation>Der Medienordner eines Handys, die Sicherung eines Handys, oder „usb“ für das Handy am Kabel.</translation>
    </message>
    <message>
        <source>Take the first line of FILE (&quot;-&quot; is standard input) for the password of an encrypted backup.</source>
        <translation>Die erste Zeile von FILE („-“ ist die Standardeingabe) als Passwort einer verschlüsselten Sicherung nehmen.</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>Diese Hilfe anzeigen.</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>Die Version anzeigen.</translation>
    </message>
    <message>
        <source>Give one device at most.</source>
        <translation>Geben Sie höchstens ein Gerät an.</translation>
    </message>
    <message>
        <source>The password file %1 cannot be read: %2. Name another file.</source>
        <translation>Die Passwortdatei %1 kann nicht gelesen werden: %2. Nennen Sie eine andere Datei.</translation>
    </message>
    <message>
        <source>The password file %1 has no password in its first line. Name another file.</source>
        <translation>In der ersten Zeile der Passwortdatei %1 steht kein Passwort. Nennen Sie eine andere Datei.</translation>
    </message>
</context>
<context>
    <name>DeviceSearch</name>
    <message>
        <source>Phone without a name</source>
        <translation>Handy ohne Namen</translation>
    </message>
    <message>
        <source>New here: unlock it, and tap “Trust” when it asks</source>
        <translation>Neu hier: entsperren Sie es, und tippen Sie auf „Vertrauen“, wenn es fragt</translation>
    </message>
    <message>
        <source>Does not trust this computer: unplug it, connect it again, and tap “Trust”</source>
        <translation>Vertraut diesem Computer nicht: ziehen Sie es ab, schließen Sie es wieder an, und tippen Sie auf „Vertrauen“</translation>
    </message>
    <message>
        <source>Has to be paired again</source>
        <translation>Muss neu gekoppelt werden</translation>
    </message>
    <message>
        <source>Locked: unlock it first</source>
        <translation>Gesperrt: entsperren Sie es zuerst</translation>
    </message>
    <message>
        <source>Connected, iOS %1</source>
        <translation>Verbunden, iOS %1</translation>
    </message>
    <message>
        <source>Backup that was not finished</source>
        <translation>Sicherung, die nicht beendet wurde</translation>
    </message>
    <message>
        <source>Backup, protected by a password</source>
        <translation>Sicherung, durch ein Passwort geschützt</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Sicherung</translation>
    </message>
    <message>
        <source>Backup of %1, protected by a password</source>
        <translation>Sicherung vom %1, durch ein Passwort geschützt</translation>
    </message>
    <message>
        <source>Backup of %1</source>
        <translation>Sicherung vom %1</translation>
    </message>
</context>
<context>
    <name>OpeningFailure</name>
    <message>
        <source>The phone is locked</source>
        <translation>Das Handy ist gesperrt</translation>
    </message>
    <message>
        <source>Unlock the phone, keep its screen on, and try again.</source>
        <translation>Entsperren Sie das Handy, lassen Sie den Bildschirm an, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The phone asks whether to trust this computer</source>
        <translation>Das Handy fragt, ob es diesem Computer vertrauen soll</translation>
    </message>
    <message>
        <source>Unlock the phone, tap “Trust” on its screen, and try again.</source>
        <translation>Entsperren Sie das Handy, tippen Sie auf seinem Bildschirm auf „Vertrauen“, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The phone does not trust this computer</source>
        <translation>Das Handy vertraut diesem Computer nicht</translation>
    </message>
    <message>
        <source>Unplug the phone and connect it again. When it asks, tap “Trust”, and try again.</source>
        <translation>Ziehen Sie das Handy ab und schließen Sie es wieder an. Tippen Sie auf „Vertrauen“, wenn es fragt, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The phone and this computer do not know each other any more</source>
        <translation>Das Handy und dieser Computer kennen einander nicht mehr</translation>
    </message>
    <message>
        <source>Pair them again, and tap “Trust” when the phone asks.</source>
        <translation>Koppeln Sie beide neu, und tippen Sie auf „Vertrauen“, wenn das Handy fragt.</translation>
    </message>
    <message>
        <source>The phone does not answer</source>
        <translation>Das Handy antwortet nicht</translation>
    </message>
    <message>
        <source>Unlock the phone, connect it again, and try again.</source>
        <translation>Entsperren Sie das Handy, schließen Sie es neu an, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The phone is no longer connected</source>
        <translation>Das Handy ist nicht mehr verbunden</translation>
    </message>
    <message>
        <source>Check the cable, connect the phone again, and try again.</source>
        <translation>Prüfen Sie das Kabel, schließen Sie das Handy neu an, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The phone does not give its photos away</source>
        <translation>Das Handy gibt seine Fotos nicht heraus</translation>
    </message>
    <message>
        <source>Unlock the phone and try again. A phone that is managed by a company or a school may forbid it.</source>
        <translation>Entsperren Sie das Handy und versuchen Sie es noch einmal. Ein Handy, das von einer Firma oder Schule verwaltet wird, kann es verbieten.</translation>
    </message>
    <message>
        <source>No phones can be found on this computer</source>
        <translation>Auf diesem Computer können keine Handys gefunden werden</translation>
    </message>
    <message>
        <source>The service that looks for phones does not run. Install or start “usbmuxd”, and try again.</source>
        <translation>Der Dienst, der nach Handys sucht, läuft nicht. Installieren oder starten Sie „usbmuxd“, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>It is not there</source>
        <translation>Es ist nicht da</translation>
    </message>
    <message>
        <source>Check that the phone is connected and unlocked, or that the folder has not moved, and try again.</source>
        <translation>Prüfen Sie, ob das Handy verbunden und entsperrt ist, oder ob der Ordner noch an seinem Platz ist, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>There are no photos of a phone in this folder</source>
        <translation>In diesem Ordner sind keine Fotos eines Handys</translation>
    </message>
    <message>
        <source>Choose the folder that holds the folders “DCIM” and “PhotoData”, or a backup of a phone.</source>
        <translation>Wählen Sie den Ordner, der die Ordner „DCIM“ und „PhotoData“ enthält, oder die Sicherung eines Handys.</translation>
    </message>
    <message>
        <source>There is more than one to choose from</source>
        <translation>Es gibt mehr als eines zur Auswahl</translation>
    </message>
    <message>
        <source>Go back and choose one of those that are listed.</source>
        <translation>Gehen Sie zurück und wählen Sie eines aus der Liste.</translation>
    </message>
    <message>
        <source>The backup is damaged or not complete</source>
        <translation>Die Sicherung ist beschädigt oder unvollständig</translation>
    </message>
    <message>
        <source>Make a new backup of the phone, or copy the backup again.</source>
        <translation>Erstellen Sie eine neue Sicherung des Handys, oder kopieren Sie die Sicherung noch einmal.</translation>
    </message>
    <message>
        <source>The list of photos on the phone cannot be read</source>
        <translation>Die Fotoliste des Handys kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Unlock the phone, connect it again, and try again. A copy of a phone has to be copied again.</source>
        <translation>Entsperren Sie das Handy, schließen Sie es neu an, und versuchen Sie es noch einmal. Die Kopie eines Handys muss neu kopiert werden.</translation>
    </message>
    <message>
        <source>There is no room left on this computer</source>
        <translation>Auf diesem Computer ist kein Platz mehr</translation>
    </message>
    <message>
        <source>Delete files that you do not need any more, and try again.</source>
        <translation>Löschen Sie Dateien, die Sie nicht mehr brauchen, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>This computer is short of memory</source>
        <translation>Diesem Computer fehlt Arbeitsspeicher</translation>
    </message>
    <message>
        <source>Close other programs, and try again.</source>
        <translation>Schließen Sie andere Programme, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The photos cannot be read</source>
        <translation>Die Fotos können nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>WindowActions</name>
    <message>
        <source>&amp;Open Folder…</source>
        <translation>&amp;Ordner öffnen …</translation>
    </message>
    <message>
        <source>&amp;Choose Another Phone</source>
        <translation>Anderes Handy &amp;wählen</translation>
    </message>
    <message>
        <source>Phones</source>
        <translation>Handys</translation>
    </message>
    <message>
        <source>&amp;New Window</source>
        <translation>&amp;Neues Fenster</translation>
    </message>
    <message>
        <source>&amp;Export Selected…</source>
        <translation>Auswahl &amp;exportieren …</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exportieren …</translation>
    </message>
    <message>
        <source>Export &amp;All That Is Shown…</source>
        <translation>&amp;Alles Gezeigte exportieren …</translation>
    </message>
    <message>
        <source>&amp;Read Again</source>
        <translation>Neu &amp;lesen</translation>
    </message>
    <message>
        <source>Close &amp;Window</source>
        <translation>&amp;Fenster schließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Full Screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>&amp;Log…</source>
        <translation>&amp;Protokoll …</translation>
    </message>
    <message>
        <source>&amp;About This Program</source>
        <translation>Ü&amp;ber dieses Programm</translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation>Über &amp;Qt</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Open Re&amp;cent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
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
        <source>Tool Bar</source>
        <translation>Werkzeugleiste</translation>
    </message>
</context>
<context>
    <name>browser::BusySpinner</name>
    <message>
        <source>Loading</source>
        <translation>Wird geladen</translation>
    </message>
</context>
<context>
    <name>browser::ChoicesPage</name>
    <message>
        <source>Also as &amp;edited on the device, beside the original</source>
        <translation>Auch &amp;bearbeitete Fassungen, neben dem Original</translation>
    </message>
    <message>
        <source>Also a folder for each &amp;album, with links to the files</source>
        <translation>Auch ein Ordner für jedes A&amp;lbum, mit Verknüpfungen zu den Dateien</translation>
    </message>
    <message>
        <source>Folder for the export</source>
        <translation>Ordner für den Export</translation>
    </message>
    <message>
        <source>&amp;Choose…</source>
        <translation>A&amp;uswählen …</translation>
    </message>
    <message>
        <source>Export &amp;to:</source>
        <translation>Exportieren &amp;nach:</translation>
    </message>
    <message>
        <source>My own arrangement</source>
        <translation>Eigene Anordnung</translation>
    </message>
    <message>
        <source>My own arrangement of folders and names</source>
        <translation>Eigene Anordnung von Ordnern und Namen</translation>
    </message>
    <message>
        <source>&amp;Arrange:</source>
        <translation>An&amp;ordnung:</translation>
    </message>
    <message>
        <source>Include:</source>
        <translation>Mit exportieren:</translation>
    </message>
    <message>
        <source>No file that is there already is ever replaced: what was exported before is recognised and not copied again, and a different file of the same name gets a number.</source>
        <translation>Vorhandene Dateien werden nie ersetzt: was schon exportiert wurde, wird erkannt und nicht noch einmal kopiert, und eine andere Datei mit gleichem Namen erhält eine Nummer.</translation>
    </message>
    <message>
        <source>Existing files:</source>
        <translation>Vorhandene Dateien:</translation>
    </message>
    <message>
        <source>Choose a folder for the export</source>
        <translation>Ordner für den Export wählen</translation>
    </message>
    <message>
        <source>%1 free there, about %2 to export</source>
        <translation>%1 dort frei, etwa %2 zu exportieren</translation>
    </message>
    <message>
        <source>%1 free there</source>
        <translation>%1 dort frei</translation>
    </message>
    <message>
        <source>For example: %1</source>
        <translation>Zum Beispiel: %1</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden or recently deleted photo(s) are left out. To export those, choose “Hidden” or “Recently deleted” in the list of albums.</source>
        <translation>
            <numerusform>%Ln ausgeblendetes oder zuletzt gelöschtes Foto ist nicht dabei. Um es zu exportieren, wählen Sie „Ausgeblendet“ oder „Zuletzt gelöscht“ in der Liste der Alben.</numerusform>
            <numerusform>%Ln ausgeblendete oder zuletzt gelöschte Fotos sind nicht dabei. Um sie zu exportieren, wählen Sie „Ausgeblendet“ oder „Zuletzt gelöscht“ in der Liste der Alben.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>browser::CollectionModel</name>
    <message>
        <source>%1, %2</source>
        <comment>title of a collection, number of its photos</comment>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>browser::CollectionTitles</name>
    <message>
        <source>Library</source>
        <translation>Mediathek</translation>
    </message>
    <message>
        <source>People</source>
        <translation>Personen</translation>
    </message>
    <message>
        <source>Places</source>
        <translation>Orte</translation>
    </message>
    <message>
        <source>Memories</source>
        <translation>Rückblicke</translation>
    </message>
    <message>
        <source>Kinds</source>
        <translation>Medienarten</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Alben</translation>
    </message>
    <message>
        <source>Shared albums</source>
        <translation>Geteilte Alben</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Weitere</translation>
    </message>
    <message>
        <source>All photos</source>
        <translation>Alle Fotos</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Videos</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>Favoriten</translation>
    </message>
    <message>
        <source>Portraits</source>
        <translation>Porträts</translation>
    </message>
    <message>
        <source>Panoramas</source>
        <translation>Panoramen</translation>
    </message>
    <message>
        <source>Live Photos</source>
        <translation>Live Photos</translation>
    </message>
    <message>
        <source>Time-lapse</source>
        <translation>Zeitraffer</translation>
    </message>
    <message>
        <source>Screen recordings</source>
        <translation>Bildschirmaufnahmen</translation>
    </message>
    <message>
        <source>Slow motion</source>
        <translation>Zeitlupe</translation>
    </message>
    <message>
        <source>Animated</source>
        <translation>Animiert</translation>
    </message>
    <message>
        <source>Bursts</source>
        <translation>Serien</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>Bildschirmfotos</translation>
    </message>
    <message>
        <source>Selfies</source>
        <translation>Selfies</translation>
    </message>
    <message>
        <source>Recently deleted</source>
        <translation>Zuletzt gelöscht</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Ausgeblendet</translation>
    </message>
    <message>
        <source>Imported</source>
        <translation>Importiert</translation>
    </message>
    <message>
        <source>RAW photos</source>
        <translation>RAW-Fotos</translation>
    </message>
    <message>
        <source>Duplicates</source>
        <translation>Duplikate</translation>
    </message>
    <message>
        <source>Cinematic</source>
        <translation>Kinomodus</translation>
    </message>
    <message>
        <source>Camera roll</source>
        <translation>Aufnahmen</translation>
    </message>
    <message>
        <source>All shared albums</source>
        <translation>Alle geteilten Alben</translation>
    </message>
    <message>
        <source>From the cloud</source>
        <translation>Aus der Cloud</translation>
    </message>
    <message>
        <source>From a computer</source>
        <translation>Von einem Computer</translation>
    </message>
    <message>
        <source>Photo stream</source>
        <translation>Fotostream</translation>
    </message>
    <message>
        <source>Person %1</source>
        <translation>Person %1</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>Rückblick</translation>
    </message>
    <message>
        <source>Memory of %1</source>
        <comment>date</comment>
        <translation>Rückblick vom %1</translation>
    </message>
    <message>
        <source>No date</source>
        <translation>Ohne Datum</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>Import of %1</source>
        <comment>date</comment>
        <translation>Import vom %1</translation>
    </message>
</context>
<context>
    <name>browser::DestinationChecker</name>
    <message>
        <source>Choose a folder for the export.</source>
        <translation>Wählen Sie einen Ordner für den Export.</translation>
    </message>
    <message>
        <source>The name of the folder must begin with “/”. Choose the folder with the button beside it.</source>
        <translation>Der Name des Ordners muss mit „/“ beginnen. Wählen Sie den Ordner mit der Taste daneben.</translation>
    </message>
    <message>
        <source>This folder belongs to the device, to which nothing is ever written. Choose another folder.</source>
        <translation>Dieser Ordner gehört zum Gerät, auf das nie geschrieben wird. Wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>This folder holds the device&apos;s own folder, to which nothing is ever written. Choose a folder beside that.</source>
        <translation>Dieser Ordner enthält den Ordner des Geräts, auf das nie geschrieben wird. Wählen Sie einen Ordner daneben.</translation>
    </message>
    <message>
        <source>“%1” is a file, not a folder. Choose another folder.</source>
        <translation>„%1“ ist eine Datei und kein Ordner. Wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>You may not write into “%1”. Choose another folder.</source>
        <translation>Sie dürfen nicht in „%1“ schreiben. Wählen Sie einen anderen Ordner.</translation>
    </message>
</context>
<context>
    <name>browser::DeviceListModel</name>
    <message>
        <source>This version does not read phones over the cable. Open a folder or a backup instead.</source>
        <translation>Diese Version liest keine Handys über das Kabel. Öffnen Sie stattdessen einen Ordner oder eine Sicherung.</translation>
    </message>
    <message>
        <source>Phones cannot be found: the service “usbmuxd” does not run. Install it or start it.</source>
        <translation>Handys können nicht gefunden werden: der Dienst „usbmuxd“ läuft nicht. Installieren oder starten Sie ihn.</translation>
    </message>
    <message>
        <source>Connect a phone with its cable, unlock it, and tap “Trust” if it asks.</source>
        <translation>Schließen Sie ein Handy mit seinem Kabel an, entsperren Sie es, und tippen Sie auf „Vertrauen“, falls es fragt.</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Phones</source>
        <translation>Handys</translation>
    </message>
    <message>
        <source>Backups and copies on this computer</source>
        <translation>Sicherungen und Kopien auf diesem Computer</translation>
    </message>
    <message>
        <source>Opened before</source>
        <translation>Früher geöffnet</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>a device and what is known of it</comment>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>browser::DragFiles</name>
    <message numerus="yes">
        <source>More than %Ln photo(s) are better exported. Choose Export instead of dragging or copying them.</source>
        <translation>
            <numerusform>Mehr als %Ln Foto sollte exportiert werden. Wählen Sie „Exportieren“, statt es zu ziehen oder zu kopieren.</numerusform>
            <numerusform>Mehr als %Ln Fotos sollten exportiert werden. Wählen Sie „Exportieren“, statt sie zu ziehen oder zu kopieren.</numerusform>
        </translation>
    </message>
    <message>
        <source>There is not enough room for temporary files on this computer. Choose Export instead, with a folder on another disk.</source>
        <translation>Auf diesem Computer ist nicht genug Platz für temporäre Dateien. Wählen Sie stattdessen „Exportieren“ und einen Ordner auf einem anderen Datenträger.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photo(s) could not be read from the device and are missing. Choose Export to see why.</source>
        <translation>
            <numerusform>%Ln Foto konnte nicht vom Gerät gelesen werden und fehlt. Wählen Sie „Exportieren“, um den Grund zu sehen.</numerusform>
            <numerusform>%Ln Fotos konnten nicht vom Gerät gelesen werden und fehlen. Wählen Sie „Exportieren“, um den Grund zu sehen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reading %Ln photo(s) from the device…</source>
        <translation>
            <numerusform>%Ln Foto wird vom Gerät gelesen …</numerusform>
            <numerusform>%Ln Fotos werden vom Gerät gelesen …</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Copy photos</source>
        <translation>Fotos kopieren</translation>
    </message>
</context>
<context>
    <name>browser::ExportChoices</name>
    <message>
        <source>The arrangement is wrong at character %1: %2.</source>
        <translation>Die Anordnung ist bei Zeichen %1 falsch: %2.</translation>
    </message>
    <message>
        <source>A folder for each year</source>
        <translation>Ein Ordner für jedes Jahr</translation>
    </message>
    <message>
        <source>A folder for each month</source>
        <translation>Ein Ordner für jeden Monat</translation>
    </message>
    <message>
        <source>A folder for each day</source>
        <translation>Ein Ordner für jeden Tag</translation>
    </message>
    <message>
        <source>All in one folder, by date and time</source>
        <translation>Alles in einem Ordner, nach Datum und Zeit</translation>
    </message>
    <message>
        <source>As on the device</source>
        <translation>Wie auf dem Gerät</translation>
    </message>
</context>
<context>
    <name>browser::ExportTexts</name>
    <message numerus="yes">
        <source>%Ln file(s) to copy, %1</source>
        <translation>
            <numerusform>%Ln Datei zu kopieren, %1</numerusform>
            <numerusform>%Ln Dateien zu kopieren, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) copied, %1</source>
        <translation>
            <numerusform>%Ln Datei kopiert, %1</numerusform>
            <numerusform>%Ln Dateien kopiert, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) of the same name and size are there; they will be compared</source>
        <translation>
            <numerusform>%Ln Datei mit gleichem Namen und gleicher Größe ist vorhanden; sie wird verglichen</numerusform>
            <numerusform>%Ln Dateien mit gleichem Namen und gleicher Größe sind vorhanden; sie werden verglichen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) with the same content were there already</source>
        <translation>
            <numerusform>%Ln Datei mit gleichem Inhalt war schon vorhanden</numerusform>
            <numerusform>%Ln Dateien mit gleichem Inhalt waren schon vorhanden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) already there from an earlier export</source>
        <translation>
            <numerusform>%Ln Datei ist von einem früheren Export vorhanden</numerusform>
            <numerusform>%Ln Dateien sind von einem früheren Export vorhanden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln original(s) not on the device, only in the cloud</source>
        <translation>
            <numerusform>%Ln Original ist nicht auf dem Gerät, nur in der Cloud</numerusform>
            <numerusform>%Ln Originale sind nicht auf dem Gerät, nur in der Cloud</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) cannot be read</source>
        <translation>
            <numerusform>%Ln Datei kann nicht gelesen werden</numerusform>
            <numerusform>%Ln Dateien können nicht gelesen werden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) failed</source>
        <translation>
            <numerusform>%Ln Datei fehlgeschlagen</numerusform>
            <numerusform>%Ln Dateien fehlgeschlagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln album folder(s)</source>
        <translation>
            <numerusform>%Ln Albumordner</numerusform>
            <numerusform>%Ln Albumordner</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln album folder(s) could not be made</source>
        <translation>
            <numerusform>%Ln Albumordner konnte nicht angelegt werden</numerusform>
            <numerusform>%Ln Albumordner konnten nicht angelegt werden</numerusform>
        </translation>
    </message>
    <message>
        <source>The export is done, but not everything worked.</source>
        <translation>Der Export ist fertig, aber nicht alles hat geklappt.</translation>
    </message>
    <message>
        <source>Everything is exported.</source>
        <translation>Alles ist exportiert.</translation>
    </message>
    <message>
        <source>Everything that is on the device is exported.</source>
        <translation>Alles, was auf dem Gerät ist, ist exportiert.</translation>
    </message>
    <message>
        <source>The export was cancelled.</source>
        <translation>Der Export wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The device went away.</source>
        <translation>Das Gerät ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The disk is full.</source>
        <translation>Der Datenträger ist voll.</translation>
    </message>
    <message>
        <source>The folder cannot be written.</source>
        <translation>In den Ordner kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The folder&apos;s record of earlier exports cannot be used.</source>
        <translation>Die Aufzeichnung früherer Exporte in diesem Ordner kann nicht verwendet werden.</translation>
    </message>
    <message>
        <source>The arrangement of the folders is not valid.</source>
        <translation>Die Anordnung der Ordner ist nicht gültig.</translation>
    </message>
    <message>
        <source>Memory ran short.</source>
        <translation>Der Arbeitsspeicher reicht nicht aus.</translation>
    </message>
    <message>
        <source>Every file that is there is complete. Export the same photos again to go on where this stopped.</source>
        <translation>Jede vorhandene Datei ist vollständig. Exportieren Sie dieselben Fotos noch einmal, um hier weiterzumachen.</translation>
    </message>
    <message>
        <source>%1/s</source>
        <comment>bytes in a second</comment>
        <translation>%1/s</translation>
    </message>
    <message>
        <source>less than a minute left</source>
        <translation>noch weniger als eine Minute</translation>
    </message>
    <message numerus="yes">
        <source>about %Ln minute(s) left</source>
        <translation>
            <numerusform>noch etwa %Ln Minute</numerusform>
            <numerusform>noch etwa %Ln Minuten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %Ln hour(s) left</source>
        <translation>
            <numerusform>noch etwa %Ln Stunde</numerusform>
            <numerusform>noch etwa %Ln Stunden</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>how fast, and how long</comment>
        <translation>%1, %2</translation>
    </message>
    <message numerus="yes">
        <source>%Ln original(s) not in this backup, but in the cloud</source>
        <translation>
            <numerusform>%Ln Original ist nicht in dieser Sicherung, aber in der Cloud</numerusform>
            <numerusform>%Ln Originale sind nicht in dieser Sicherung, aber in der Cloud</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln original(s) not in this backup</source>
        <translation>
            <numerusform>%Ln Original fehlt in dieser Sicherung</numerusform>
            <numerusform>%Ln Originale fehlen in dieser Sicherung</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln original(s) not on the device</source>
        <translation>
            <numerusform>%Ln Original fehlt auf dem Gerät</numerusform>
            <numerusform>%Ln Originale fehlen auf dem Gerät</numerusform>
        </translation>
    </message>
    <message>
        <source>Originals are missing in this backup, which may have been broken off. Make a new backup, or connect the device itself, and export again: only what is new is copied.</source>
        <translation>In dieser Sicherung fehlen Originale; vielleicht wurde sie abgebrochen. Erstellen Sie eine neue Sicherung oder schließen Sie das Gerät selbst an, und exportieren Sie noch einmal: Kopiert wird nur, was neu ist.</translation>
    </message>
    <message>
        <source>Originals are missing on the device, though its list of photos names them. Connect the device again and export again: only what is new is copied.</source>
        <translation>Auf dem Gerät fehlen Originale, die in seiner Fotoliste stehen. Schließen Sie das Gerät neu an und exportieren Sie noch einmal: Kopiert wird nur, was neu ist.</translation>
    </message>
    <message>
        <source>Everything that is in this backup is exported.</source>
        <translation>Alles, was in dieser Sicherung ist, ist exportiert.</translation>
    </message>
</context>
<context>
    <name>browser::ExportWindow</name>
    <message numerus="yes">
        <source>Export %Ln photo(s) and video(s)</source>
        <translation>
            <numerusform>%Ln Foto oder Video exportieren</numerusform>
            <numerusform>%Ln Fotos und Videos exportieren</numerusform>
        </translation>
    </message>
    <message>
        <source>Show in &amp;folder</source>
        <translation>Im &amp;Ordner zeigen</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Pause</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Starten</translation>
    </message>
    <message>
        <source>&amp;Continue</source>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>There is not enough room: %1 free in “%2”. Choose another folder, or make room first.</source>
        <translation>Der Platz reicht nicht: %1 frei in „%2“. Wählen Sie einen anderen Ordner, oder schaffen Sie zuerst Platz.</translation>
    </message>
    <message>
        <source>There is nothing to copy.</source>
        <translation>Es gibt nichts zu kopieren.</translation>
    </message>
    <message>
        <source>To: %1</source>
        <translation>Nach: %1</translation>
    </message>
    <message>
        <source>This will be done:</source>
        <translation>Das wird getan:</translation>
    </message>
    <message>
        <source>&amp;Export again what failed</source>
        <translation>&amp;Fehlgeschlagenes noch einmal exportieren</translation>
    </message>
    <message>
        <source>&amp;Go on</source>
        <translation>&amp;Fortsetzen</translation>
    </message>
    <message>
        <source>&amp;Resume</source>
        <translation>&amp;Fortsetzen</translation>
    </message>
    <message>
        <source>No file manager could be opened. The files are in %1.</source>
        <translation>Es konnte kein Dateimanager geöffnet werden. Die Dateien sind in %1.</translation>
    </message>
    <message>
        <source>An export is running. Cancel it? What is complete stays.</source>
        <translation>Ein Export läuft. Abbrechen? Was fertig ist, bleibt erhalten.</translation>
    </message>
</context>
<context>
    <name>browser::FactsPane</name>
    <message>
        <source>Facts of the current photo</source>
        <translation>Angaben zum aktuellen Foto</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Taken</source>
        <translation>Aufgenommen</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>Gelöscht</translation>
    </message>
    <message>
        <source>Dimensions</source>
        <translation>Maße</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Marks</source>
        <translation>Merkmale</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Copy coordinates</source>
        <translation>Koordinaten kopieren</translation>
    </message>
    <message>
        <source>In</source>
        <translation>In</translation>
    </message>
    <message>
        <source>On the device</source>
        <translation>Auf dem Gerät</translation>
    </message>
    <message>
        <source>Choose a photo to see its facts.</source>
        <translation>Wählen Sie ein Foto, um die Angaben dazu zu sehen.</translation>
    </message>
    <message>
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 Pixel</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>Favorit</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Ausgeblendet</translation>
    </message>
    <message>
        <source>Recently deleted</source>
        <translation>Zuletzt gelöscht</translation>
    </message>
    <message>
        <source>Edited on the device</source>
        <translation>Auf dem Gerät bearbeitet</translation>
    </message>
    <message>
        <source>Part of a burst</source>
        <translation>Teil einer Serie</translation>
    </message>
    <message>
        <source>Taken with the front camera</source>
        <translation>Mit der Frontkamera aufgenommen</translation>
    </message>
    <message>
        <source>Taken in portrait mode</source>
        <translation>Im Porträtmodus aufgenommen</translation>
    </message>
    <message>
        <source>Only in the cloud, not on the device</source>
        <translation>Nur in der Cloud, nicht auf dem Gerät</translation>
    </message>
    <message>
        <source>File type</source>
        <translation>Dateityp</translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Upright</source>
        <translation>Aufrecht</translation>
    </message>
    <message>
        <source>Mirrored</source>
        <translation>Gespiegelt</translation>
    </message>
    <message>
        <source>Stored upside down</source>
        <translation>Auf dem Kopf gespeichert</translation>
    </message>
    <message>
        <source>Stored upside down, mirrored</source>
        <translation>Auf dem Kopf und gespiegelt gespeichert</translation>
    </message>
    <message>
        <source>Stored on its side, mirrored</source>
        <translation>Auf der Seite liegend und gespiegelt gespeichert</translation>
    </message>
    <message>
        <source>Stored on its side</source>
        <translation>Auf der Seite liegend gespeichert</translation>
    </message>
</context>
<context>
    <name>browser::FilmPanel</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Getting %1 from the device…</source>
        <translation>%1 wird vom Gerät geholt …</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>browser::LibraryPage</name>
    <message>
        <source>&amp;Clear search and filters</source>
        <translation>Suche und Filter &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren …</translation>
    </message>
    <message>
        <source>&amp;Copy file name</source>
        <translation>Dateinamen &amp;kopieren</translation>
    </message>
    <message>
        <source>Show &amp;facts</source>
        <translation>&amp;Angaben zeigen</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>There are no photos here.</source>
        <translation>Hier sind keine Fotos.</translation>
    </message>
    <message>
        <source>Nothing matches the filters.</source>
        <translation>Nichts passt zu den Filtern.</translation>
    </message>
    <message>
        <source>Nothing matches “%1”.</source>
        <translation>Nichts passt zu „%1“.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln selected (%1)</source>
        <comment>photos</comment>
        <translation>
            <numerusform>%Ln ausgewählt (%1)</numerusform>
            <numerusform>%Ln ausgewählt (%1)</numerusform>
        </translation>
    </message>
    <message>
        <source>%1  ·  %2</source>
        <comment>photos shown, photos selected</comment>
        <translation>%1  ·  %2</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Copy &amp;photos</source>
        <translation>&amp;Fotos kopieren</translation>
    </message>
</context>
<context>
    <name>browser::LibraryRoom</name>
    <message>
        <source>The list of photos is damaged: some photos and albums may be missing. Unlock the phone, connect it again, and read it again.</source>
        <translation>Die Fotoliste ist beschädigt: einige Fotos und Alben fehlen vielleicht. Entsperren Sie das Handy, schließen Sie es neu an, und lesen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Read &amp;Again</source>
        <translation>Noch einmal &amp;lesen</translation>
    </message>
    <message>
        <source>The list of photos is empty, as after a copy that was broken off. Connect the phone again or copy it again, and read it again.</source>
        <translation>Die Fotoliste ist leer, wie nach einer abgebrochenen Kopie. Schließen Sie das Handy neu an oder kopieren Sie es neu, und lesen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The list of photos is of a kind that is not known, so photos or albums are missing. Check that this is the folder of a phone, the one that holds “DCIM” and “PhotoData”.</source>
        <translation>Die Fotoliste ist von unbekannter Art, daher fehlen Fotos oder Alben. Prüfen Sie, ob dies der Ordner eines Handys ist, der „DCIM“ und „PhotoData“ enthält.</translation>
    </message>
    <message>
        <source>There are no photos or videos on this phone.</source>
        <translation>Auf diesem Handy sind keine Fotos oder Videos.</translation>
    </message>
    <message>
        <source>No photo is selected. Select some first, or all with Ctrl+A.</source>
        <translation>Es ist kein Foto ausgewählt. Wählen Sie zuerst einige aus, oder alle mit Strg+A.</translation>
    </message>
    <message>
        <source>The phone is no longer connected. You can still look at what is loaded.</source>
        <translation>Das Handy ist nicht mehr verbunden. Was geladen ist, können Sie weiter ansehen.</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>Noch einmal &amp;versuchen</translation>
    </message>
    <message>
        <source>Reading the phone again…</source>
        <translation>Das Handy wird neu gelesen …</translation>
    </message>
    <message>
        <source>%1. %2</source>
        <comment>what happened, and what to do</comment>
        <translation>%1. %2</translation>
    </message>
    <message>
        <source>This backup was interrupted before its end: photos may be missing or out of date. Make a new backup of the phone.</source>
        <translation>Diese Sicherung wurde vor ihrem Ende abgebrochen: Fotos können fehlen oder veraltet sein. Machen Sie eine neue Sicherung des Handys.</translation>
    </message>
</context>
<context>
    <name>browser::LogWindow</name>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>&amp;Copy All</source>
        <translation>Alles &amp;kopieren</translation>
    </message>
</context>
<context>
    <name>browser::MainWindow</name>
    <message>
        <source>%1 (%2)</source>
        <comment>a device and its folder</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>This one is open in another window already.</source>
        <translation>Dieses ist schon in einem anderen Fenster geöffnet.</translation>
    </message>
    <message>
        <source>There is more than one. Choose one from the list.</source>
        <translation>Es gibt mehr als eines. Wählen Sie eines aus der Liste.</translation>
    </message>
    <message>
        <source>Stop the export?</source>
        <translation>Den Export anhalten?</translation>
    </message>
    <message>
        <source>Photos are still being exported. What is complete stays where it is.</source>
        <translation>Es werden noch Fotos exportiert. Was fertig ist, bleibt erhalten.</translation>
    </message>
    <message>
        <source>&amp;Stop the Export</source>
        <translation>Export &amp;anhalten</translation>
    </message>
    <message>
        <source>&amp;Go On Exporting</source>
        <translation>&amp;Weiter exportieren</translation>
    </message>
</context>
<context>
    <name>browser::NoticeBar</name>
    <message>
        <source>Hide this message</source>
        <translation>Diese Meldung ausblenden</translation>
    </message>
</context>
<context>
    <name>browser::OpeningPage</name>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>This backup is protected by a password</source>
        <translation>Diese Sicherung ist durch ein Passwort geschützt</translation>
    </message>
    <message>
        <source>Password of the backup</source>
        <translation>Passwort der Sicherung</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>&amp;Unlock</source>
        <translation>&amp;Entsperren</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>&amp;Pair Again</source>
        <translation>Neu &amp;koppeln</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>Noch einmal &amp;versuchen</translation>
    </message>
    <message>
        <source>Looking for the phone…</source>
        <translation>Das Handy wird gesucht …</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Verbindung wird hergestellt …</translation>
    </message>
    <message>
        <source>Unlocking the backup…</source>
        <translation>Die Sicherung wird entsperrt …</translation>
    </message>
    <message>
        <source>Reading the list of photos: %1 of %2</source>
        <translation>Die Fotoliste wird gelesen: %1 von %2</translation>
    </message>
    <message>
        <source>Reading the list of photos…</source>
        <translation>Die Fotoliste wird gelesen …</translation>
    </message>
    <message>
        <source>Sorting the photos…</source>
        <translation>Die Fotos werden geordnet …</translation>
    </message>
    <message>
        <source>Preparing the albums…</source>
        <translation>Die Alben werden vorbereitet …</translation>
    </message>
    <message>
        <source>Pairing: unlock the phone, and tap “Trust” on its screen…</source>
        <translation>Koppeln: entsperren Sie das Handy, und tippen Sie auf seinem Bildschirm auf „Vertrauen“ …</translation>
    </message>
    <message>
        <source>This password does not fit. The passcode that unlocks the phone is another one: give the password that was set for backups.</source>
        <translation>Dieses Passwort passt nicht. Der Code, der das Handy entsperrt, ist ein anderer: geben Sie das Passwort ein, das für Sicherungen festgelegt wurde.</translation>
    </message>
    <message>
        <source>Give the password that was set when the backups of this phone were turned on. It is not kept.</source>
        <translation>Geben Sie das Passwort ein, das beim Einschalten der Sicherungen dieses Handys festgelegt wurde. Es wird nicht gespeichert.</translation>
    </message>
</context>
<context>
    <name>browser::PageBar</name>
    <message>
        <source>Sort</source>
        <translation>Sortieren</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Show or hide all facts of the current photo (F9)</source>
        <translation>Alle Angaben zum aktuellen Foto zeigen oder verbergen (F9)</translation>
    </message>
    <message>
        <source>Search photos</source>
        <translation>Fotos suchen</translation>
    </message>
    <message>
        <source>Search name, album or date</source>
        <translation>Name, Album oder Datum suchen</translation>
    </message>
    <message>
        <source>Names of files, titles of albums, and dates such as June 2019 or 2019-06 (Ctrl+F)</source>
        <translation>Dateinamen, Albumtitel und Daten wie Juni 2019 oder 2019-06 (Strg+F)</translation>
    </message>
    <message>
        <source>Size of the thumbnails</source>
        <translation>Größe der Miniaturbilder</translation>
    </message>
    <message>
        <source>Size of the thumbnails (Ctrl++ and Ctrl+-)</source>
        <translation>Größe der Miniaturbilder (Strg++ und Strg+-)</translation>
    </message>
    <message>
        <source>Date &amp;taken</source>
        <translation>&amp;Aufnahmedatum</translation>
    </message>
    <message>
        <source>Date &amp;added</source>
        <translation>&amp;Hinzugefügt am</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>&amp;Größe</translation>
    </message>
    <message>
        <source>&amp;Kind</source>
        <translation>A&amp;rt</translation>
    </message>
    <message>
        <source>&amp;Last or largest first</source>
        <translation>&amp;Letzte oder größte zuerst</translation>
    </message>
    <message>
        <source>&amp;First or smallest first</source>
        <translation>&amp;Erste oder kleinste zuerst</translation>
    </message>
    <message>
        <source>Only &amp;photos</source>
        <translation>Nur &amp;Fotos</translation>
    </message>
    <message>
        <source>Only &amp;videos</source>
        <translation>Nur &amp;Videos</translation>
    </message>
    <message>
        <source>Only &amp;favorites</source>
        <translation>Nur Favo&amp;riten</translation>
    </message>
    <message>
        <source>Only &amp;Live Photos</source>
        <translation>Nur &amp;Live Photos</translation>
    </message>
    <message>
        <source>Only &amp;edited ones</source>
        <translation>Nur &amp;bearbeitete</translation>
    </message>
    <message>
        <source>Only with a p&amp;lace</source>
        <translation>Nur mit &amp;Ort</translation>
    </message>
    <message>
        <source>Only what is on the &amp;device</source>
        <translation>Nur was auf dem &amp;Gerät ist</translation>
    </message>
    <message>
        <source>&amp;Clear filters</source>
        <translation>Filter &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Filtered</source>
        <translation>Gefiltert</translation>
    </message>
    <message>
        <source>Search in “%1”</source>
        <translation>In „%1“ suchen</translation>
    </message>
</context>
<context>
    <name>browser::PhotoGrid</name>
    <message>
        <source>Photos</source>
        <translation>Fotos</translation>
    </message>
    <message>
        <source>Deselect</source>
        <translation>Auswahl aufheben</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
</context>
<context>
    <name>browser::PlayButton</name>
    <message>
        <source>Play the video</source>
        <translation>Video abspielen</translation>
    </message>
    <message>
        <source>Play in this computer&apos;s video player (Enter)</source>
        <translation>Im Videoplayer dieses Computers abspielen (Eingabe)</translation>
    </message>
</context>
<context>
    <name>browser::ProblemModel</name>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Only in the cloud</source>
        <translation>Nur in der Cloud</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>open it on the device once, so that it is downloaded, and export it again</source>
        <translation>öffnen Sie es einmal auf dem Gerät, damit es geladen wird, und exportieren Sie es noch einmal</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>File on the device</source>
        <translation>Datei auf dem Gerät</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Warum</translation>
    </message>
    <message>
        <source>In the cloud</source>
        <translation>In der Cloud</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Fehlt</translation>
    </message>
    <message>
        <source>this backup does not hold it</source>
        <translation>diese Sicherung enthält es nicht</translation>
    </message>
    <message>
        <source>the device does not hold it</source>
        <translation>das Gerät enthält es nicht</translation>
    </message>
</context>
<context>
    <name>browser::ProblemPanel</name>
    <message>
        <source>Try again</source>
        <translation>Noch einmal versuchen</translation>
    </message>
</context>
<context>
    <name>browser::ProgressPage</name>
    <message>
        <source>Progress of the export</source>
        <translation>Fortschritt des Exports</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Looking at the files on the device…</source>
        <translation>Die Dateien auf dem Gerät werden angesehen …</translation>
    </message>
    <message>
        <source>Making album folders…</source>
        <translation>Albumordner werden angelegt …</translation>
    </message>
    <message>
        <source>Copying to “%1”…</source>
        <translation>Nach „%1“ wird kopiert …</translation>
    </message>
    <message>
        <source>%1 of %2 albums</source>
        <translation>%1 von %2 Alben</translation>
    </message>
    <message>
        <source>%1 of %2 photos and videos</source>
        <translation>%1 von %2 Fotos und Videos</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>sizes</comment>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 — %2</source>
        <comment>how much, and how fast</comment>
        <translation>%1 — %2</translation>
    </message>
</context>
<context>
    <name>browser::ResultPage</name>
    <message>
        <source>What did not work</source>
        <translation>Was nicht geklappt hat</translation>
    </message>
    <message>
        <source>Copy the &amp;list</source>
        <translation>&amp;Liste kopieren</translation>
    </message>
    <message>
        <source>&amp;Save the list…</source>
        <translation>Liste &amp;sichern …</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more not listed</source>
        <translation>
            <numerusform>%Ln weiterer ist nicht aufgeführt</numerusform>
            <numerusform>%Ln weitere sind nicht aufgeführt</numerusform>
        </translation>
    </message>
    <message>
        <source>Save the list</source>
        <translation>Liste sichern</translation>
    </message>
    <message>
        <source>export.csv</source>
        <translation>export.csv</translation>
    </message>
    <message>
        <source>Tables (*.csv);;All files (*)</source>
        <translation>Tabellen (*.csv);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>“%1” could not be written: %2. Choose another place.</source>
        <translation>„%1“ konnte nicht geschrieben werden: %2. Wählen Sie einen anderen Ort.</translation>
    </message>
</context>
<context>
    <name>browser::SideBar</name>
    <message>
        <source>Albums and groups</source>
        <translation>Alben und Gruppen</translation>
    </message>
</context>
<context>
    <name>browser::StartPage</name>
    <message>
        <source>Choose a phone</source>
        <translation>Wählen Sie ein Handy</translation>
    </message>
    <message>
        <source>Its photos and videos are only read. Nothing on it is ever changed.</source>
        <translation>Seine Fotos und Videos werden nur gelesen. Auf ihm wird nie etwas verändert.</translation>
    </message>
    <message>
        <source>Phones, backups and folders</source>
        <translation>Handys, Sicherungen und Ordner</translation>
    </message>
    <message>
        <source>Remove from This List</source>
        <translation>Aus dieser Liste entfernen</translation>
    </message>
    <message>
        <source>Open &amp;Folder…</source>
        <translation>&amp;Ordner öffnen …</translation>
    </message>
    <message>
        <source>A folder of a phone that is mounted or copied, or a backup of a phone</source>
        <translation>Der Ordner eines eingehängten oder kopierten Handys, oder die Sicherung eines Handys</translation>
    </message>
    <message>
        <source>&amp;Remove from List</source>
        <translation>Aus der Liste &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Open the folder or backup of a phone</source>
        <translation>Den Ordner oder die Sicherung eines Handys öffnen</translation>
    </message>
</context>
<context>
    <name>browser::Texts</name>
    <message>
        <source>No date</source>
        <translation>Ohne Datum</translation>
    </message>
    <message>
        <source>MMMM yyyy</source>
        <comment>month and year, as QDate formats them</comment>
        <translation>MMMM yyyy</translation>
    </message>
    <message>
        <source>%1:%2</source>
        <comment>minutes and seconds</comment>
        <translation>%1:%2</translation>
    </message>
    <message>
        <source>%1:%2:%3</source>
        <comment>hours, minutes and seconds</comment>
        <translation>%1:%2:%3</translation>
    </message>
    <message>
        <source>%1° S, %2° W</source>
        <translation>%1° S, %2° W</translation>
    </message>
    <message>
        <source>%1° S, %2° E</source>
        <translation>%1° S, %2° O</translation>
    </message>
    <message>
        <source>%1° N, %2° W</source>
        <translation>%1° N, %2° W</translation>
    </message>
    <message>
        <source>%1° N, %2° E</source>
        <translation>%1° N, %2° O</translation>
    </message>
    <message>
        <source>Live Photo</source>
        <translation>Live Photo</translation>
    </message>
    <message>
        <source>Screenshot</source>
        <translation>Bildschirmfoto</translation>
    </message>
    <message>
        <source>Panorama</source>
        <translation>Panorama</translation>
    </message>
    <message>
        <source>Slow-motion video</source>
        <translation>Zeitlupenvideo</translation>
    </message>
    <message>
        <source>Time-lapse video</source>
        <translation>Zeitraffervideo</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Animated picture</source>
        <translation>Animiertes Bild</translation>
    </message>
    <message>
        <source>RAW photo</source>
        <translation>RAW-Foto</translation>
    </message>
    <message>
        <source>Photo</source>
        <translation>Foto</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photo(s)</source>
        <translation>
            <numerusform>%Ln Foto</numerusform>
            <numerusform>%Ln Fotos</numerusform>
        </translation>
    </message>
    <message>
        <source>about %1</source>
        <comment>size of a file</comment>
        <translation>etwa %1</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>Favorit</translation>
    </message>
    <message>
        <source>Part of a burst</source>
        <translation>Teil einer Serie</translation>
    </message>
    <message>
        <source>Only in the cloud, not on the device</source>
        <translation>Nur in der Cloud, nicht auf dem Gerät</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between facts of a photo</comment>
        <translation>, </translation>
    </message>
</context>
<context>
    <name>browser::Viewer</name>
    <message>
        <source>Unknown date</source>
        <translation>Unbekanntes Datum</translation>
    </message>
    <message>
        <source>preview of a RAW photo</source>
        <translation>Vorschau eines RAW-Fotos</translation>
    </message>
    <message>
        <source>edited on the device</source>
        <translation>auf dem Gerät bearbeitet</translation>
    </message>
    <message>
        <source>original; edited on the device</source>
        <translation>Original; auf dem Gerät bearbeitet</translation>
    </message>
</context>
<context>
    <name>browser::ViewerBar</name>
    <message>
        <source>Back to the library</source>
        <translation>Zurück zur Mediathek</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Vorheriges</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Nächstes</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Fit into the window</source>
        <translation>In das Fenster einpassen</translation>
    </message>
    <message>
        <source>Actual size</source>
        <translation>Originalgröße</translation>
    </message>
    <message>
        <source>Play the Live Photo</source>
        <translation>Live Photo abspielen</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exportieren …</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>what a button does, and its key</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>number of the photo and of all photos</comment>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 %</source>
        <comment>size of the picture</comment>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Show the original</source>
        <translation>Original zeigen</translation>
    </message>
    <message>
        <source>Facts</source>
        <translation>Angaben</translation>
    </message>
    <message>
        <source>%1 — %2</source>
        <comment>a note about the photo, and its date</comment>
        <translation>%1 — %2</translation>
    </message>
</context>
<context>
    <name>browser::ViewerTexts</name>
    <message>
        <source>%1 is only in the cloud, not on this device. Open it on the device once, so that it is downloaded, and try again.</source>
        <translation>%1 ist nur in der Cloud, nicht auf diesem Gerät. Öffnen Sie es einmal auf dem Gerät, damit es geladen wird, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>%1 is not in this backup. Connect the device itself, or make a new backup.</source>
        <translation>%1 ist nicht in dieser Sicherung. Schließen Sie das Gerät selbst an, oder erstellen Sie eine neue Sicherung.</translation>
    </message>
    <message>
        <source>%1 is not on the device any more.</source>
        <translation>%1 ist nicht mehr auf dem Gerät.</translation>
    </message>
    <message>
        <source>The device cannot be reached any more. Check the cable, unlock the device, and try again.</source>
        <translation>Das Gerät ist nicht mehr erreichbar. Prüfen Sie das Kabel, entsperren Sie das Gerät, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>%1 could not be read from the device. Check the cable, unlock the device, and try again.</source>
        <translation>%1 konnte nicht vom Gerät gelesen werden. Prüfen Sie das Kabel, entsperren Sie das Gerät, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>%1 could not be read: %2.</source>
        <translation>%1 konnte nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>%1 is an empty file. There is nothing to show.</source>
        <translation>%1 ist eine leere Datei. Es gibt nichts zu zeigen.</translation>
    </message>
    <message>
        <source>%1 has a format that cannot be shown here. Export it to open it with another program.</source>
        <translation>%1 hat ein Format, das hier nicht gezeigt werden kann. Exportieren Sie es, um es mit einem anderen Programm zu öffnen.</translation>
    </message>
    <message>
        <source>%1 is a RAW photo without a preview in it. Export it to develop it with another program.</source>
        <translation>%1 ist ein RAW-Foto ohne eingebettete Vorschau. Exportieren Sie es, um es mit einem anderen Programm zu entwickeln.</translation>
    </message>
    <message>
        <source>%1 is too large to be shown here. Export it to open it with another program.</source>
        <translation>%1 ist zu groß, um hier gezeigt zu werden. Exportieren Sie es, um es mit einem anderen Programm zu öffnen.</translation>
    </message>
    <message>
        <source>%1 could not be loaded, as memory is short. Close other programs and try again.</source>
        <translation>%1 konnte nicht geladen werden, da der Arbeitsspeicher nicht ausreicht. Schließen Sie andere Programme, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>%1 is damaged and cannot be shown.</source>
        <translation>%1 ist beschädigt und kann nicht gezeigt werden.</translation>
    </message>
    <message>
        <source>There is not enough room on this computer&apos;s disk to open the video. Make room and try again.</source>
        <translation>Auf der Festplatte dieses Computers ist nicht genug Platz, um das Video zu öffnen. Schaffen Sie Platz, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The video could not be copied to this computer&apos;s folder for temporary files: %1. Check that folder and try again.</source>
        <translation>Das Video konnte nicht in den Ordner für temporäre Dateien dieses Computers kopiert werden: %1. Prüfen Sie diesen Ordner, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>No program on this computer plays this video. Install a video player, or export the video.</source>
        <translation>Kein Programm auf diesem Computer spielt dieses Video ab. Installieren Sie einen Videoplayer, oder exportieren Sie das Video.</translation>
    </message>
</context>
</TS>
