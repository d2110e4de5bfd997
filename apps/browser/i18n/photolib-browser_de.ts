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
        <source>The backup is protected by a password. Close it and open it again to give it.</source>
        <translation>Die Sicherung ist durch ein Passwort geschützt. Schließen und öffnen Sie sie noch einmal, um es einzugeben.</translation>
    </message>
    <message>
        <source>%1. %2</source>
        <comment>what happened, and what to do</comment>
        <translation>%1. %2</translation>
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
</TS>
