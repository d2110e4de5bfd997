<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>About</name>
    <message>
        <source>About This Program</source>
        <translation>关于本程序</translation>
    </message>
    <message>
        <source>Photo Library Browser %1</source>
        <translation>照片图库浏览器 %1</translation>
    </message>
    <message>
        <source>Shows the photos and videos of a phone as the phone itself sorts them, and copies them to this computer. Nothing on the phone is ever changed.

Free software under the MIT licence.</source>
        <translation>按照手机自身的分类显示其照片和视频，并将它们复制到这台电脑。绝不更改手机上的任何内容。

以 MIT 许可证发布的自由软件。</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Shows the photo library of a phone: its albums, people, places and every photo, and exports them.
Without DEVICE it lists the phones, backups and folders that there are.</source>
        <translation>显示手机的照片图库：相簿、人物、地点和每一张照片，并可导出。
不给出 DEVICE 时，列出现有的手机、备份和文件夹。</translation>
    </message>
    <message>
        <source>The media folder of a phone, a backup of a phone, or &quot;usb&quot; for the phone on the cable.</source>
        <translation>手机的媒体文件夹、手机的备份，或用“usb”表示数据线上的手机。</translation>
    </message>
    <message>
        <source>Take the first line of FILE (&quot;-&quot; is standard input) for the password of an encrypted backup.</source>
        <translation>将 FILE（“-”表示标准输入）的第一行用作加密备份的密码。</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>显示此帮助。</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>显示版本。</translation>
    </message>
    <message>
        <source>Give one device at most.</source>
        <translation>最多只能指定一个设备。</translation>
    </message>
    <message>
        <source>The password file %1 cannot be read: %2. Name another file.</source>
        <translation>无法读取密码文件 %1：%2。请指定另一个文件。</translation>
    </message>
    <message>
        <source>The password file %1 has no password in its first line. Name another file.</source>
        <translation>密码文件 %1 的第一行没有密码。请指定另一个文件。</translation>
    </message>
</context>
<context>
    <name>DeviceSearch</name>
    <message>
        <source>Phone without a name</source>
        <translation>未命名的手机</translation>
    </message>
    <message>
        <source>New here: unlock it, and tap “Trust” when it asks</source>
        <translation>首次连接：请解锁手机，并在询问时点按“信任”</translation>
    </message>
    <message>
        <source>Does not trust this computer: unplug it, connect it again, and tap “Trust”</source>
        <translation>不信任这台电脑：请拔下手机，重新连接，然后点按“信任”</translation>
    </message>
    <message>
        <source>Has to be paired again</source>
        <translation>需要重新配对</translation>
    </message>
    <message>
        <source>Locked: unlock it first</source>
        <translation>已锁定：请先解锁</translation>
    </message>
    <message>
        <source>Connected, iOS %1</source>
        <translation>已连接，iOS %1</translation>
    </message>
    <message>
        <source>Backup that was not finished</source>
        <translation>未完成的备份</translation>
    </message>
    <message>
        <source>Backup, protected by a password</source>
        <translation>备份，受密码保护</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>备份</translation>
    </message>
    <message>
        <source>Backup of %1, protected by a password</source>
        <translation>%1的备份，受密码保护</translation>
    </message>
    <message>
        <source>Backup of %1</source>
        <translation>%1的备份</translation>
    </message>
</context>
<context>
    <name>OpeningFailure</name>
    <message>
        <source>The phone is locked</source>
        <translation>手机已锁定</translation>
    </message>
    <message>
        <source>Unlock the phone, keep its screen on, and try again.</source>
        <translation>请解锁手机并保持屏幕亮起，然后重试。</translation>
    </message>
    <message>
        <source>The phone asks whether to trust this computer</source>
        <translation>手机正在询问是否信任这台电脑</translation>
    </message>
    <message>
        <source>Unlock the phone, tap “Trust” on its screen, and try again.</source>
        <translation>请解锁手机，在屏幕上点按“信任”，然后重试。</translation>
    </message>
    <message>
        <source>The phone does not trust this computer</source>
        <translation>手机不信任这台电脑</translation>
    </message>
    <message>
        <source>Unplug the phone and connect it again. When it asks, tap “Trust”, and try again.</source>
        <translation>请拔下手机并重新连接。询问时点按“信任”，然后重试。</translation>
    </message>
    <message>
        <source>The phone and this computer do not know each other any more</source>
        <translation>手机与这台电脑之间的配对已失效</translation>
    </message>
    <message>
        <source>Pair them again, and tap “Trust” when the phone asks.</source>
        <translation>请重新配对，并在手机询问时点按“信任”。</translation>
    </message>
    <message>
        <source>The phone does not answer</source>
        <translation>手机没有响应</translation>
    </message>
    <message>
        <source>Unlock the phone, connect it again, and try again.</source>
        <translation>请解锁手机，重新连接，然后重试。</translation>
    </message>
    <message>
        <source>The phone is no longer connected</source>
        <translation>手机已断开连接</translation>
    </message>
    <message>
        <source>Check the cable, connect the phone again, and try again.</source>
        <translation>请检查数据线，重新连接手机，然后重试。</translation>
    </message>
    <message>
        <source>The phone does not give its photos away</source>
        <translation>手机不允许读取其照片</translation>
    </message>
    <message>
        <source>Unlock the phone and try again. A phone that is managed by a company or a school may forbid it.</source>
        <translation>请解锁手机后重试。由公司或学校管理的手机可能会禁止此操作。</translation>
    </message>
    <message>
        <source>No phones can be found on this computer</source>
        <translation>这台电脑无法查找手机</translation>
    </message>
    <message>
        <source>The service that looks for phones does not run. Install or start “usbmuxd”, and try again.</source>
        <translation>查找手机的服务未运行。请安装或启动“usbmuxd”，然后重试。</translation>
    </message>
    <message>
        <source>It is not there</source>
        <translation>找不到它</translation>
    </message>
    <message>
        <source>Check that the phone is connected and unlocked, or that the folder has not moved, and try again.</source>
        <translation>请检查手机是否已连接并解锁，或文件夹是否仍在原处，然后重试。</translation>
    </message>
    <message>
        <source>There are no photos of a phone in this folder</source>
        <translation>此文件夹中没有手机照片</translation>
    </message>
    <message>
        <source>Choose the folder that holds the folders “DCIM” and “PhotoData”, or a backup of a phone.</source>
        <translation>请选择包含“DCIM”和“PhotoData”文件夹的文件夹，或手机的备份。</translation>
    </message>
    <message>
        <source>There is more than one to choose from</source>
        <translation>有多个可供选择</translation>
    </message>
    <message>
        <source>Go back and choose one of those that are listed.</source>
        <translation>请返回并从列表中选择一个。</translation>
    </message>
    <message>
        <source>The backup is damaged or not complete</source>
        <translation>备份已损坏或不完整</translation>
    </message>
    <message>
        <source>Make a new backup of the phone, or copy the backup again.</source>
        <translation>请为手机创建新的备份，或重新复制该备份。</translation>
    </message>
    <message>
        <source>The list of photos on the phone cannot be read</source>
        <translation>无法读取手机上的照片列表</translation>
    </message>
    <message>
        <source>Unlock the phone, connect it again, and try again. A copy of a phone has to be copied again.</source>
        <translation>请解锁手机，重新连接，然后重试。如果是手机的副本，则需要重新复制。</translation>
    </message>
    <message>
        <source>There is no room left on this computer</source>
        <translation>这台电脑的空间不足</translation>
    </message>
    <message>
        <source>Delete files that you do not need any more, and try again.</source>
        <translation>请删除不再需要的文件，然后重试。</translation>
    </message>
    <message>
        <source>This computer is short of memory</source>
        <translation>这台电脑的内存不足</translation>
    </message>
    <message>
        <source>Close other programs, and try again.</source>
        <translation>请关闭其他程序，然后重试。</translation>
    </message>
    <message>
        <source>The photos cannot be read</source>
        <translation>无法读取照片</translation>
    </message>
</context>
<context>
    <name>WindowActions</name>
    <message>
        <source>&amp;Open Folder…</source>
        <translation>打开文件夹(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Choose Another Phone</source>
        <translation>选择其他手机(&amp;C)</translation>
    </message>
    <message>
        <source>Phones</source>
        <translation>手机</translation>
    </message>
    <message>
        <source>&amp;New Window</source>
        <translation>新建窗口(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Export Selected…</source>
        <translation>导出所选项(&amp;E)…</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>导出…</translation>
    </message>
    <message>
        <source>Export &amp;All That Is Shown…</source>
        <translation>导出显示的全部项目(&amp;A)…</translation>
    </message>
    <message>
        <source>&amp;Read Again</source>
        <translation>重新读取(&amp;R)</translation>
    </message>
    <message>
        <source>Close &amp;Window</source>
        <translation>关闭窗口(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Full Screen</source>
        <translation>全屏(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Log…</source>
        <translation>日志(&amp;L)…</translation>
    </message>
    <message>
        <source>&amp;About This Program</source>
        <translation>关于本程序(&amp;A)</translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation>关于 Qt(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>Open Re&amp;cent</source>
        <translation>最近打开(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>Tool Bar</source>
        <translation>工具栏</translation>
    </message>
</context>
<context>
    <name>browser::DeviceListModel</name>
    <message>
        <source>This version does not read phones over the cable. Open a folder or a backup instead.</source>
        <translation>此版本不支持通过数据线读取手机。请改为打开文件夹或备份。</translation>
    </message>
    <message>
        <source>Phones cannot be found: the service “usbmuxd” does not run. Install it or start it.</source>
        <translation>无法查找手机：服务“usbmuxd”未运行。请安装或启动它。</translation>
    </message>
    <message>
        <source>Connect a phone with its cable, unlock it, and tap “Trust” if it asks.</source>
        <translation>请用数据线连接手机并解锁，如有询问请点按“信任”。</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>Phones</source>
        <translation>手机</translation>
    </message>
    <message>
        <source>Backups and copies on this computer</source>
        <translation>这台电脑上的备份和副本</translation>
    </message>
    <message>
        <source>Opened before</source>
        <translation>以前打开过</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>a device and what is known of it</comment>
        <translation>%1，%2</translation>
    </message>
</context>
<context>
    <name>browser::LibraryRoom</name>
    <message>
        <source>The list of photos is damaged: some photos and albums may be missing. Unlock the phone, connect it again, and read it again.</source>
        <translation>照片列表已损坏：可能缺少部分照片和相簿。请解锁手机，重新连接，然后重新读取。</translation>
    </message>
    <message>
        <source>Read &amp;Again</source>
        <translation>重新读取(&amp;A)</translation>
    </message>
    <message>
        <source>The list of photos is empty, as after a copy that was broken off. Connect the phone again or copy it again, and read it again.</source>
        <translation>照片列表为空，可能是复制中断所致。请重新连接手机或重新复制，然后重新读取。</translation>
    </message>
    <message>
        <source>The list of photos is of a kind that is not known, so photos or albums are missing. Check that this is the folder of a phone, the one that holds “DCIM” and “PhotoData”.</source>
        <translation>照片列表的类型未知，因此缺少照片或相簿。请检查这是否为手机的文件夹，即包含“DCIM”和“PhotoData”的文件夹。</translation>
    </message>
    <message>
        <source>There are no photos or videos on this phone.</source>
        <translation>此手机上没有照片或视频。</translation>
    </message>
    <message>
        <source>No photo is selected. Select some first, or all with Ctrl+A.</source>
        <translation>未选择照片。请先选择一些，或按 Ctrl+A 全选。</translation>
    </message>
    <message>
        <source>The phone is no longer connected. You can still look at what is loaded.</source>
        <translation>手机已断开连接。您仍可查看已加载的内容。</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>重试(&amp;T)</translation>
    </message>
    <message>
        <source>Reading the phone again…</source>
        <translation>正在重新读取手机…</translation>
    </message>
    <message>
        <source>The backup is protected by a password. Close it and open it again to give it.</source>
        <translation>备份受密码保护。请关闭后重新打开以输入密码。</translation>
    </message>
    <message>
        <source>%1. %2</source>
        <comment>what happened, and what to do</comment>
        <translation>%1。%2</translation>
    </message>
</context>
<context>
    <name>browser::LogWindow</name>
    <message>
        <source>Log</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>&amp;Copy All</source>
        <translation>全部复制(&amp;C)</translation>
    </message>
</context>
<context>
    <name>browser::MainWindow</name>
    <message>
        <source>%1 (%2)</source>
        <comment>a device and its folder</comment>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>This one is open in another window already.</source>
        <translation>它已在另一个窗口中打开。</translation>
    </message>
    <message>
        <source>There is more than one. Choose one from the list.</source>
        <translation>有多个。请从列表中选择一个。</translation>
    </message>
    <message>
        <source>Stop the export?</source>
        <translation>停止导出？</translation>
    </message>
    <message>
        <source>Photos are still being exported. What is complete stays where it is.</source>
        <translation>仍在导出照片。已完成的部分会保留。</translation>
    </message>
    <message>
        <source>&amp;Stop the Export</source>
        <translation>停止导出(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Go On Exporting</source>
        <translation>继续导出(&amp;G)</translation>
    </message>
</context>
<context>
    <name>browser::NoticeBar</name>
    <message>
        <source>Hide this message</source>
        <translation>隐藏此消息</translation>
    </message>
</context>
<context>
    <name>browser::OpeningPage</name>
    <message>
        <source>&amp;Cancel</source>
        <translation>取消(&amp;C)</translation>
    </message>
    <message>
        <source>This backup is protected by a password</source>
        <translation>此备份受密码保护</translation>
    </message>
    <message>
        <source>Password of the backup</source>
        <translation>备份的密码</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>返回(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Unlock</source>
        <translation>解锁(&amp;U)</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>详细信息</translation>
    </message>
    <message>
        <source>&amp;Pair Again</source>
        <translation>重新配对(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>重试(&amp;T)</translation>
    </message>
    <message>
        <source>Looking for the phone…</source>
        <translation>正在查找手机…</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>正在连接…</translation>
    </message>
    <message>
        <source>Unlocking the backup…</source>
        <translation>正在解锁备份…</translation>
    </message>
    <message>
        <source>Reading the list of photos: %1 of %2</source>
        <translation>正在读取照片列表：%1 / %2</translation>
    </message>
    <message>
        <source>Reading the list of photos…</source>
        <translation>正在读取照片列表…</translation>
    </message>
    <message>
        <source>Sorting the photos…</source>
        <translation>正在整理照片…</translation>
    </message>
    <message>
        <source>Preparing the albums…</source>
        <translation>正在准备相簿…</translation>
    </message>
    <message>
        <source>Pairing: unlock the phone, and tap “Trust” on its screen…</source>
        <translation>正在配对：请解锁手机，并在屏幕上点按“信任”…</translation>
    </message>
    <message>
        <source>This password does not fit. The passcode that unlocks the phone is another one: give the password that was set for backups.</source>
        <translation>密码不正确。它不是解锁手机的密码：请输入为备份设置的密码。</translation>
    </message>
    <message>
        <source>Give the password that was set when the backups of this phone were turned on. It is not kept.</source>
        <translation>请输入为此手机启用备份时设置的密码。密码不会被保存。</translation>
    </message>
</context>
<context>
    <name>browser::StartPage</name>
    <message>
        <source>Choose a phone</source>
        <translation>选择手机</translation>
    </message>
    <message>
        <source>Its photos and videos are only read. Nothing on it is ever changed.</source>
        <translation>仅读取其中的照片和视频，绝不更改手机上的任何内容。</translation>
    </message>
    <message>
        <source>Phones, backups and folders</source>
        <translation>手机、备份和文件夹</translation>
    </message>
    <message>
        <source>Remove from This List</source>
        <translation>从此列表中移除</translation>
    </message>
    <message>
        <source>Open &amp;Folder…</source>
        <translation>打开文件夹(&amp;F)…</translation>
    </message>
    <message>
        <source>A folder of a phone that is mounted or copied, or a backup of a phone</source>
        <translation>已挂载或已复制的手机文件夹，或手机的备份</translation>
    </message>
    <message>
        <source>&amp;Remove from List</source>
        <translation>从列表中移除(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>打开(&amp;O)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Open the folder or backup of a phone</source>
        <translation>打开手机的文件夹或备份</translation>
    </message>
</context>
</TS>
