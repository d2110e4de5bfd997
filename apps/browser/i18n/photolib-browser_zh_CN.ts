<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>About</name>
    <message>
        <source>About This Program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Photo Library Browser %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the photos and videos of a phone as the phone itself sorts them, and copies them to this computer. Nothing on the phone is ever changed.

Free software under the MIT licence.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Shows the photo library of a phone: its albums, people, places and every photo, and exports them.
Without DEVICE it lists the phones, backups and folders that there are.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The media folder of a phone, a backup of a phone, or &quot;usb&quot; for the phone on the cable.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take the first line of FILE (&quot;-&quot; is standard input) for the password of an encrypted backup.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give one device at most.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password file %1 cannot be read: %2. Name another file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password file %1 has no password in its first line. Name another file.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DeviceSearch</name>
    <message>
        <source>Phone without a name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New here: unlock it, and tap “Trust” when it asks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Does not trust this computer: unplug it, connect it again, and tap “Trust”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Has to be paired again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Locked: unlock it first</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected, iOS %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backup that was not finished</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backup, protected by a password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backup of %1, protected by a password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backup of %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>OpeningFailure</name>
    <message>
        <source>The phone is locked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unlock the phone, keep its screen on, and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The phone asks whether to trust this computer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unlock the phone, tap “Trust” on its screen, and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The phone does not trust this computer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unplug the phone and connect it again. When it asks, tap “Trust”, and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The phone and this computer do not know each other any more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pair them again, and tap “Trust” when the phone asks.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The phone does not answer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unlock the phone, connect it again, and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The phone is no longer connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check the cable, connect the phone again, and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The phone does not give its photos away</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unlock the phone and try again. A phone that is managed by a company or a school may forbid it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No phones can be found on this computer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The service that looks for phones does not run. Install or start “usbmuxd”, and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not there</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check that the phone is connected and unlocked, or that the folder has not moved, and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are no photos of a phone in this folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose the folder that holds the folders “DCIM” and “PhotoData”, or a backup of a phone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is more than one to choose from</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Go back and choose one of those that are listed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The backup is damaged or not complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Make a new backup of the phone, or copy the backup again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The list of photos on the phone cannot be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unlock the phone, connect it again, and try again. A copy of a phone has to be copied again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no room left on this computer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete files that you do not need any more, and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This computer is short of memory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close other programs, and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The photos cannot be read</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WindowActions</name>
    <message>
        <source>&amp;Open Folder…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Choose Another Phone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phones</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Export Selected…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export &amp;All That Is Shown…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Read Again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close &amp;Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Full Screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Log…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About This Program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Re&amp;cent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tool Bar</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>browser::DeviceListModel</name>
    <message>
        <source>This version does not read phones over the cable. Open a folder or a backup instead.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phones cannot be found: the service “usbmuxd” does not run. Install it or start it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect a phone with its cable, unlock it, and tap “Trust” if it asks.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phones</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backups and copies on this computer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opened before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>a device and what is known of it</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>browser::LibraryRoom</name>
    <message>
        <source>The list of photos is damaged: some photos and albums may be missing. Unlock the phone, connect it again, and read it again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read &amp;Again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The list of photos is empty, as after a copy that was broken off. Connect the phone again or copy it again, and read it again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The list of photos is of a kind that is not known, so photos or albums are missing. Check that this is the folder of a phone, the one that holds “DCIM” and “PhotoData”.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are no photos or videos on this phone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No photo is selected. Select some first, or all with Ctrl+A.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The phone is no longer connected. You can still look at what is loaded.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the phone again…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The backup is protected by a password. Close it and open it again to give it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1. %2</source>
        <comment>what happened, and what to do</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>browser::LogWindow</name>
    <message>
        <source>Log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy All</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>browser::MainWindow</name>
    <message>
        <source>%1 (%2)</source>
        <comment>a device and its folder</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This one is open in another window already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is more than one. Choose one from the list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop the export?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Photos are still being exported. What is complete stays where it is.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Stop the Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Go On Exporting</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>browser::NoticeBar</name>
    <message>
        <source>Hide this message</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>browser::OpeningPage</name>
    <message>
        <source>&amp;Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This backup is protected by a password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password of the backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Unlock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Details</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Pair Again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Looking for the phone…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unlocking the backup…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the list of photos: %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the list of photos…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sorting the photos…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preparing the albums…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pairing: unlock the phone, and tap “Trust” on its screen…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This password does not fit. The passcode that unlocks the phone is another one: give the password that was set for backups.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give the password that was set when the backups of this phone were turned on. It is not kept.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>browser::StartPage</name>
    <message>
        <source>Choose a phone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its photos and videos are only read. Nothing on it is ever changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phones, backups and folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove from This List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open &amp;Folder…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A folder of a phone that is mounted or copied, or a backup of a phone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Remove from List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open the folder or backup of a phone</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
