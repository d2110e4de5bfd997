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
    <name>browser::BusySpinner</name>
    <message>
        <source>Loading</source>
        <translation>正在载入</translation>
    </message>
</context>
<context>
    <name>browser::ChoicesPage</name>
    <message>
        <source>Also as &amp;edited on the device, beside the original</source>
        <translation>同时导出在设备上编辑后的版本，与原件放在一起(&amp;E)</translation>
    </message>
    <message>
        <source>Also a folder for each &amp;album, with links to the files</source>
        <translation>同时为每个相簿建立文件夹，其中是指向文件的链接(&amp;A)</translation>
    </message>
    <message>
        <source>Folder for the export</source>
        <translation>导出文件夹</translation>
    </message>
    <message>
        <source>&amp;Choose…</source>
        <translation>选择(&amp;C)…</translation>
    </message>
    <message>
        <source>Export &amp;to:</source>
        <translation>导出到(&amp;T)：</translation>
    </message>
    <message>
        <source>My own arrangement</source>
        <translation>自定义排列</translation>
    </message>
    <message>
        <source>My own arrangement of folders and names</source>
        <translation>自定义文件夹和文件名的排列</translation>
    </message>
    <message>
        <source>&amp;Arrange:</source>
        <translation>排列方式(&amp;A)：</translation>
    </message>
    <message>
        <source>Include:</source>
        <translation>包括：</translation>
    </message>
    <message>
        <source>No file that is there already is ever replaced: what was exported before is recognised and not copied again, and a different file of the same name gets a number.</source>
        <translation>绝不替换已有文件：以前导出过的文件会被识别，不会再次复制；同名的不同文件会加上编号。</translation>
    </message>
    <message>
        <source>Existing files:</source>
        <translation>已有文件：</translation>
    </message>
    <message>
        <source>Choose a folder for the export</source>
        <translation>选择导出文件夹</translation>
    </message>
    <message>
        <source>%1 free there, about %2 to export</source>
        <translation>可用空间 %1，约需导出 %2</translation>
    </message>
    <message>
        <source>%1 free there</source>
        <translation>可用空间 %1</translation>
    </message>
    <message>
        <source>For example: %1</source>
        <translation>例如：%1</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden or recently deleted photo(s) are left out. To export those, choose “Hidden” or “Recently deleted” in the list of albums.</source>
        <translation>
            <numerusform>有 %Ln 张已隐藏或最近删除的照片不在其中。要导出它们，请在相簿列表中选择“已隐藏”或“最近删除”。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>browser::CollectionModel</name>
    <message>
        <source>%1, %2</source>
        <comment>title of a collection, number of its photos</comment>
        <translation>%1，%2</translation>
    </message>
</context>
<context>
    <name>browser::CollectionTitles</name>
    <message>
        <source>Library</source>
        <translation>图库</translation>
    </message>
    <message>
        <source>People</source>
        <translation>人物</translation>
    </message>
    <message>
        <source>Places</source>
        <translation>地点</translation>
    </message>
    <message>
        <source>Memories</source>
        <translation>回忆</translation>
    </message>
    <message>
        <source>Kinds</source>
        <translation>媒体类型</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>相簿</translation>
    </message>
    <message>
        <source>Shared albums</source>
        <translation>共享相簿</translation>
    </message>
    <message>
        <source>More</source>
        <translation>更多</translation>
    </message>
    <message>
        <source>All photos</source>
        <translation>所有照片</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>视频</translation>
    </message>
    <message>
        <source>Favorites</source>
        <translation>个人收藏</translation>
    </message>
    <message>
        <source>Portraits</source>
        <translation>人像</translation>
    </message>
    <message>
        <source>Panoramas</source>
        <translation>全景照片</translation>
    </message>
    <message>
        <source>Live Photos</source>
        <translation>实况照片</translation>
    </message>
    <message>
        <source>Time-lapse</source>
        <translation>延时摄影</translation>
    </message>
    <message>
        <source>Screen recordings</source>
        <translation>录屏</translation>
    </message>
    <message>
        <source>Slow motion</source>
        <translation>慢动作</translation>
    </message>
    <message>
        <source>Animated</source>
        <translation>动图</translation>
    </message>
    <message>
        <source>Bursts</source>
        <translation>连拍快照</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>截屏</translation>
    </message>
    <message>
        <source>Selfies</source>
        <translation>自拍</translation>
    </message>
    <message>
        <source>Recently deleted</source>
        <translation>最近删除</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>已隐藏</translation>
    </message>
    <message>
        <source>Imported</source>
        <translation>已导入</translation>
    </message>
    <message>
        <source>RAW photos</source>
        <translation>RAW 照片</translation>
    </message>
    <message>
        <source>Duplicates</source>
        <translation>重复项目</translation>
    </message>
    <message>
        <source>Cinematic</source>
        <translation>电影效果</translation>
    </message>
    <message>
        <source>Camera roll</source>
        <translation>相机胶卷</translation>
    </message>
    <message>
        <source>All shared albums</source>
        <translation>所有共享相簿</translation>
    </message>
    <message>
        <source>From the cloud</source>
        <translation>来自云端</translation>
    </message>
    <message>
        <source>From a computer</source>
        <translation>来自电脑</translation>
    </message>
    <message>
        <source>Photo stream</source>
        <translation>照片流</translation>
    </message>
    <message>
        <source>Person %1</source>
        <translation>人物 %1</translation>
    </message>
    <message>
        <source>Memory</source>
        <translation>回忆</translation>
    </message>
    <message>
        <source>Memory of %1</source>
        <comment>date</comment>
        <translation>%1的回忆</translation>
    </message>
    <message>
        <source>No date</source>
        <translation>无日期</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>导入</translation>
    </message>
    <message>
        <source>Import of %1</source>
        <comment>date</comment>
        <translation>%1导入</translation>
    </message>
</context>
<context>
    <name>browser::DestinationChecker</name>
    <message>
        <source>Choose a folder for the export.</source>
        <translation>请选择导出文件夹。</translation>
    </message>
    <message>
        <source>The name of the folder must begin with “/”. Choose the folder with the button beside it.</source>
        <translation>文件夹名称必须以“/”开头。请用旁边的按钮选择文件夹。</translation>
    </message>
    <message>
        <source>This folder belongs to the device, to which nothing is ever written. Choose another folder.</source>
        <translation>此文件夹属于设备，绝不会向设备写入任何内容。请选择其他文件夹。</translation>
    </message>
    <message>
        <source>This folder holds the device&apos;s own folder, to which nothing is ever written. Choose a folder beside that.</source>
        <translation>此文件夹包含设备自己的文件夹，绝不会向其写入任何内容。请选择它旁边的文件夹。</translation>
    </message>
    <message>
        <source>“%1” is a file, not a folder. Choose another folder.</source>
        <translation>“%1”是文件而不是文件夹。请选择其他文件夹。</translation>
    </message>
    <message>
        <source>You may not write into “%1”. Choose another folder.</source>
        <translation>您没有写入“%1”的权限。请选择其他文件夹。</translation>
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
    <name>browser::DragFiles</name>
    <message numerus="yes">
        <source>More than %Ln photo(s) are better exported. Choose Export instead of dragging or copying them.</source>
        <translation>
            <numerusform>超过 %Ln 张照片时最好导出。请选择“导出”，而不要拖动或复制。</numerusform>
        </translation>
    </message>
    <message>
        <source>There is not enough room for temporary files on this computer. Choose Export instead, with a folder on another disk.</source>
        <translation>这台电脑上没有足够的空间存放临时文件。请改用“导出”，并选择其他磁盘上的文件夹。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photo(s) could not be read from the device and are missing. Choose Export to see why.</source>
        <translation>
            <numerusform>有 %Ln 张照片无法从设备读取，因此缺失。请选择“导出”查看原因。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reading %Ln photo(s) from the device…</source>
        <translation>
            <numerusform>正在从设备读取 %Ln 张照片…</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Copy photos</source>
        <translation>复制照片</translation>
    </message>
</context>
<context>
    <name>browser::ExportChoices</name>
    <message>
        <source>The arrangement is wrong at character %1: %2.</source>
        <translation>排列方式在第 %1 个字符处有误：%2。</translation>
    </message>
    <message>
        <source>A folder for each year</source>
        <translation>每年一个文件夹</translation>
    </message>
    <message>
        <source>A folder for each month</source>
        <translation>每月一个文件夹</translation>
    </message>
    <message>
        <source>A folder for each day</source>
        <translation>每天一个文件夹</translation>
    </message>
    <message>
        <source>All in one folder, by date and time</source>
        <translation>全部放在一个文件夹，按日期和时间</translation>
    </message>
    <message>
        <source>As on the device</source>
        <translation>与设备上相同</translation>
    </message>
</context>
<context>
    <name>browser::ExportTexts</name>
    <message numerus="yes">
        <source>%Ln file(s) to copy, %1</source>
        <translation>
            <numerusform>要复制 %Ln 个文件，%1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) copied, %1</source>
        <translation>
            <numerusform>已复制 %Ln 个文件，%1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) of the same name and size are there; they will be compared</source>
        <translation>
            <numerusform>已有 %Ln 个名称和大小相同的文件，将进行比较</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) with the same content were there already</source>
        <translation>
            <numerusform>已有 %Ln 个内容相同的文件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) already there from an earlier export</source>
        <translation>
            <numerusform>已有 %Ln 个以前导出的文件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln original(s) not on the device, only in the cloud</source>
        <translation>
            <numerusform>%Ln 个原件不在设备上，仅在云端</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) cannot be read</source>
        <translation>
            <numerusform>%Ln 个文件无法读取</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) failed</source>
        <translation>
            <numerusform>%Ln 个文件失败</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln album folder(s)</source>
        <translation>
            <numerusform>%Ln 个相簿文件夹</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln album folder(s) could not be made</source>
        <translation>
            <numerusform>%Ln 个相簿文件夹无法建立</numerusform>
        </translation>
    </message>
    <message>
        <source>The export is done, but not everything worked.</source>
        <translation>导出已完成，但有部分项目未成功。</translation>
    </message>
    <message>
        <source>Everything is exported.</source>
        <translation>已全部导出。</translation>
    </message>
    <message>
        <source>Everything that is on the device is exported.</source>
        <translation>设备上的内容已全部导出。</translation>
    </message>
    <message>
        <source>The export was cancelled.</source>
        <translation>导出已取消。</translation>
    </message>
    <message>
        <source>The device went away.</source>
        <translation>设备已断开。</translation>
    </message>
    <message>
        <source>The disk is full.</source>
        <translation>磁盘已满。</translation>
    </message>
    <message>
        <source>The folder cannot be written.</source>
        <translation>无法写入该文件夹。</translation>
    </message>
    <message>
        <source>The folder&apos;s record of earlier exports cannot be used.</source>
        <translation>该文件夹中以前的导出记录无法使用。</translation>
    </message>
    <message>
        <source>The arrangement of the folders is not valid.</source>
        <translation>文件夹的排列方式无效。</translation>
    </message>
    <message>
        <source>Memory ran short.</source>
        <translation>内存不足。</translation>
    </message>
    <message>
        <source>Every file that is there is complete. Export the same photos again to go on where this stopped.</source>
        <translation>已有的每个文件都是完整的。再次导出相同的照片即可从中断处继续。</translation>
    </message>
    <message>
        <source>%1/s</source>
        <comment>bytes in a second</comment>
        <translation>%1/秒</translation>
    </message>
    <message>
        <source>less than a minute left</source>
        <translation>剩余不到一分钟</translation>
    </message>
    <message numerus="yes">
        <source>about %Ln minute(s) left</source>
        <translation>
            <numerusform>剩余约 %Ln 分钟</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %Ln hour(s) left</source>
        <translation>
            <numerusform>剩余约 %Ln 小时</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>how fast, and how long</comment>
        <translation>%1，%2</translation>
    </message>
    <message numerus="yes">
        <source>%Ln original(s) not in this backup, but in the cloud</source>
        <translation>
            <numerusform>%Ln 个原件不在此备份中，但在云端</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln original(s) not in this backup</source>
        <translation>
            <numerusform>%Ln 个原件不在此备份中</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln original(s) not on the device</source>
        <translation>
            <numerusform>%Ln 个原件不在设备上</numerusform>
        </translation>
    </message>
    <message>
        <source>Originals are missing in this backup, which may have been broken off. Make a new backup, or connect the device itself, and export again: only what is new is copied.</source>
        <translation>此备份中缺少原件，备份可能曾被中断。请制作新的备份，或连接设备本身，然后再次导出：只会复制新的内容。</translation>
    </message>
    <message>
        <source>Originals are missing on the device, though its list of photos names them. Connect the device again and export again: only what is new is copied.</source>
        <translation>设备的照片列表中有一些原件，但设备上找不到它们。请重新连接设备并再次导出：只会复制新的内容。</translation>
    </message>
    <message>
        <source>Everything that is in this backup is exported.</source>
        <translation>此备份中的所有内容均已导出。</translation>
    </message>
</context>
<context>
    <name>browser::ExportWindow</name>
    <message numerus="yes">
        <source>Export %Ln photo(s) and video(s)</source>
        <translation>
            <numerusform>导出 %Ln 个照片和视频</numerusform>
        </translation>
    </message>
    <message>
        <source>Show in &amp;folder</source>
        <translation>在文件夹中显示(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>返回(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>暂停(&amp;P)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>开始(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Continue</source>
        <translation>继续(&amp;C)</translation>
    </message>
    <message>
        <source>There is not enough room: %1 free in “%2”. Choose another folder, or make room first.</source>
        <translation>空间不足：“%2”中可用空间为 %1。请选择其他文件夹，或先腾出空间。</translation>
    </message>
    <message>
        <source>There is nothing to copy.</source>
        <translation>没有要复制的内容。</translation>
    </message>
    <message>
        <source>To: %1</source>
        <translation>到：%1</translation>
    </message>
    <message>
        <source>This will be done:</source>
        <translation>将执行以下操作：</translation>
    </message>
    <message>
        <source>&amp;Export again what failed</source>
        <translation>重新导出失败的项目(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Go on</source>
        <translation>继续导出(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Resume</source>
        <translation>恢复(&amp;R)</translation>
    </message>
    <message>
        <source>No file manager could be opened. The files are in %1.</source>
        <translation>无法打开文件管理器。文件位于 %1。</translation>
    </message>
    <message>
        <source>An export is running. Cancel it? What is complete stays.</source>
        <translation>正在导出。要取消吗？已完成的内容会保留。</translation>
    </message>
</context>
<context>
    <name>browser::FactsPane</name>
    <message>
        <source>Facts of the current photo</source>
        <translation>当前照片的信息</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>种类</translation>
    </message>
    <message>
        <source>Taken</source>
        <translation>拍摄时间</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>修改时间</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>删除时间</translation>
    </message>
    <message>
        <source>Dimensions</source>
        <translation>尺寸</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>时长</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Marks</source>
        <translation>标记</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>地点</translation>
    </message>
    <message>
        <source>Copy coordinates</source>
        <translation>拷贝坐标</translation>
    </message>
    <message>
        <source>In</source>
        <translation>所属</translation>
    </message>
    <message>
        <source>On the device</source>
        <translation>设备上的位置</translation>
    </message>
    <message>
        <source>Choose a photo to see its facts.</source>
        <translation>选择一张照片以查看其信息。</translation>
    </message>
    <message>
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 像素</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>个人收藏</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>已隐藏</translation>
    </message>
    <message>
        <source>Recently deleted</source>
        <translation>最近删除</translation>
    </message>
    <message>
        <source>Edited on the device</source>
        <translation>在设备上编辑过</translation>
    </message>
    <message>
        <source>Part of a burst</source>
        <translation>连拍快照之一</translation>
    </message>
    <message>
        <source>Taken with the front camera</source>
        <translation>使用前置摄像头拍摄</translation>
    </message>
    <message>
        <source>Taken in portrait mode</source>
        <translation>使用人像模式拍摄</translation>
    </message>
    <message>
        <source>Only in the cloud, not on the device</source>
        <translation>仅在云端，不在设备上</translation>
    </message>
    <message>
        <source>File type</source>
        <translation>文件类型</translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation>方向</translation>
    </message>
    <message>
        <source>Upright</source>
        <translation>正立</translation>
    </message>
    <message>
        <source>Mirrored</source>
        <translation>镜像</translation>
    </message>
    <message>
        <source>Stored upside down</source>
        <translation>上下颠倒存储</translation>
    </message>
    <message>
        <source>Stored upside down, mirrored</source>
        <translation>上下颠倒并镜像存储</translation>
    </message>
    <message>
        <source>Stored on its side, mirrored</source>
        <translation>侧放并镜像存储</translation>
    </message>
    <message>
        <source>Stored on its side</source>
        <translation>侧放存储</translation>
    </message>
</context>
<context>
    <name>browser::FilmPanel</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Getting %1 from the device…</source>
        <translation>正在从设备获取 %1…</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
</context>
<context>
    <name>browser::LibraryPage</name>
    <message>
        <source>&amp;Clear search and filters</source>
        <translation>清除搜索和筛选(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>导出(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;Copy file name</source>
        <translation>拷贝文件名(&amp;C)</translation>
    </message>
    <message>
        <source>Show &amp;facts</source>
        <translation>显示信息(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>搜索(&amp;S)</translation>
    </message>
    <message>
        <source>There are no photos here.</source>
        <translation>这里没有照片。</translation>
    </message>
    <message>
        <source>Nothing matches the filters.</source>
        <translation>没有符合筛选条件的项目。</translation>
    </message>
    <message>
        <source>Nothing matches “%1”.</source>
        <translation>没有与“%1”匹配的项目。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln selected (%1)</source>
        <comment>photos</comment>
        <translation>
            <numerusform>已选择 %Ln 项（%1）</numerusform>
        </translation>
    </message>
    <message>
        <source>%1  ·  %2</source>
        <comment>photos shown, photos selected</comment>
        <translation>%1  ·  %2</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>打开(&amp;O)</translation>
    </message>
    <message>
        <source>Copy &amp;photos</source>
        <translation>复制照片(&amp;P)</translation>
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
        <source>%1. %2</source>
        <comment>what happened, and what to do</comment>
        <translation>%1。%2</translation>
    </message>
    <message>
        <source>This backup was interrupted before its end: photos may be missing or out of date. Make a new backup of the phone.</source>
        <translation>此备份在完成前被中断：可能缺少照片，或照片不是最新的。请重新备份手机。</translation>
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
    <name>browser::PageBar</name>
    <message>
        <source>Sort</source>
        <translation>排序</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>Show or hide all facts of the current photo (F9)</source>
        <translation>显示或隐藏当前照片的全部信息 (F9)</translation>
    </message>
    <message>
        <source>Search photos</source>
        <translation>搜索照片</translation>
    </message>
    <message>
        <source>Search name, album or date</source>
        <translation>搜索名称、相簿或日期</translation>
    </message>
    <message>
        <source>Names of files, titles of albums, and dates such as June 2019 or 2019-06 (Ctrl+F)</source>
        <translation>文件名、相簿标题，以及 2019年6月 或 2019-06 这样的日期 (Ctrl+F)</translation>
    </message>
    <message>
        <source>Size of the thumbnails</source>
        <translation>缩略图大小</translation>
    </message>
    <message>
        <source>Size of the thumbnails (Ctrl++ and Ctrl+-)</source>
        <translation>缩略图大小（Ctrl++ 和 Ctrl+-）</translation>
    </message>
    <message>
        <source>Date &amp;taken</source>
        <translation>拍摄日期(&amp;T)</translation>
    </message>
    <message>
        <source>Date &amp;added</source>
        <translation>添加日期(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>名称(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>大小(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Kind</source>
        <translation>种类(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Last or largest first</source>
        <translation>最后或最大的在前(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;First or smallest first</source>
        <translation>最先或最小的在前(&amp;F)</translation>
    </message>
    <message>
        <source>Only &amp;photos</source>
        <translation>仅照片(&amp;P)</translation>
    </message>
    <message>
        <source>Only &amp;videos</source>
        <translation>仅视频(&amp;V)</translation>
    </message>
    <message>
        <source>Only &amp;favorites</source>
        <translation>仅个人收藏(&amp;F)</translation>
    </message>
    <message>
        <source>Only &amp;Live Photos</source>
        <translation>仅实况照片(&amp;L)</translation>
    </message>
    <message>
        <source>Only &amp;edited ones</source>
        <translation>仅编辑过的(&amp;E)</translation>
    </message>
    <message>
        <source>Only with a p&amp;lace</source>
        <translation>仅有地点的(&amp;A)</translation>
    </message>
    <message>
        <source>Only what is on the &amp;device</source>
        <translation>仅在设备上的(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Clear filters</source>
        <translation>清除筛选(&amp;C)</translation>
    </message>
    <message>
        <source>Filtered</source>
        <translation>已筛选</translation>
    </message>
    <message>
        <source>Search in “%1”</source>
        <translation>在“%1”中搜索</translation>
    </message>
</context>
<context>
    <name>browser::PhotoGrid</name>
    <message>
        <source>Photos</source>
        <translation>照片</translation>
    </message>
    <message>
        <source>Deselect</source>
        <translation>取消选择</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>选择</translation>
    </message>
</context>
<context>
    <name>browser::PlayButton</name>
    <message>
        <source>Play the video</source>
        <translation>播放视频</translation>
    </message>
    <message>
        <source>Play in this computer&apos;s video player (Enter)</source>
        <translation>用这台电脑的视频播放器播放 (Enter)</translation>
    </message>
</context>
<context>
    <name>browser::ProblemModel</name>
    <message>
        <source>Failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>Only in the cloud</source>
        <translation>仅在云端</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>open it on the device once, so that it is downloaded, and export it again</source>
        <translation>请先在设备上打开一次以便下载，然后重新导出</translation>
    </message>
    <message>
        <source>What</source>
        <translation>情况</translation>
    </message>
    <message>
        <source>File on the device</source>
        <translation>设备上的文件</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>In the cloud</source>
        <translation>在云端</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>缺失</translation>
    </message>
    <message>
        <source>this backup does not hold it</source>
        <translation>此备份不包含它</translation>
    </message>
    <message>
        <source>the device does not hold it</source>
        <translation>设备上没有它</translation>
    </message>
</context>
<context>
    <name>browser::ProblemPanel</name>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
</context>
<context>
    <name>browser::ProgressPage</name>
    <message>
        <source>Progress of the export</source>
        <translation>导出进度</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>已暂停</translation>
    </message>
    <message>
        <source>Looking at the files on the device…</source>
        <translation>正在查看设备上的文件…</translation>
    </message>
    <message>
        <source>Making album folders…</source>
        <translation>正在建立相簿文件夹…</translation>
    </message>
    <message>
        <source>Copying to “%1”…</source>
        <translation>正在复制到“%1”…</translation>
    </message>
    <message>
        <source>%1 of %2 albums</source>
        <translation>%1 / %2 个相簿</translation>
    </message>
    <message>
        <source>%1 of %2 photos and videos</source>
        <translation>%1 / %2 个照片和视频</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>sizes</comment>
        <translation>%1 / %2</translation>
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
        <translation>未成功的项目</translation>
    </message>
    <message>
        <source>Copy the &amp;list</source>
        <translation>拷贝列表(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Save the list…</source>
        <translation>存储列表(&amp;S)…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more not listed</source>
        <translation>
            <numerusform>另有 %Ln 项未列出</numerusform>
        </translation>
    </message>
    <message>
        <source>Save the list</source>
        <translation>存储列表</translation>
    </message>
    <message>
        <source>export.csv</source>
        <translation>export.csv</translation>
    </message>
    <message>
        <source>Tables (*.csv);;All files (*)</source>
        <translation>表格 (*.csv);;所有文件 (*)</translation>
    </message>
    <message>
        <source>“%1” could not be written: %2. Choose another place.</source>
        <translation>无法写入“%1”：%2。请选择其他位置。</translation>
    </message>
</context>
<context>
    <name>browser::SideBar</name>
    <message>
        <source>Albums and groups</source>
        <translation>相簿和分组</translation>
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
<context>
    <name>browser::Texts</name>
    <message>
        <source>No date</source>
        <translation>无日期</translation>
    </message>
    <message>
        <source>MMMM yyyy</source>
        <comment>month and year, as QDate formats them</comment>
        <translation>yyyy年M月</translation>
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
        <translation>%1°S %2°W</translation>
    </message>
    <message>
        <source>%1° S, %2° E</source>
        <translation>%1°S %2°E</translation>
    </message>
    <message>
        <source>%1° N, %2° W</source>
        <translation>%1°N %2°W</translation>
    </message>
    <message>
        <source>%1° N, %2° E</source>
        <translation>%1°N %2°E</translation>
    </message>
    <message>
        <source>Live Photo</source>
        <translation>实况照片</translation>
    </message>
    <message>
        <source>Screenshot</source>
        <translation>截屏</translation>
    </message>
    <message>
        <source>Panorama</source>
        <translation>全景照片</translation>
    </message>
    <message>
        <source>Slow-motion video</source>
        <translation>慢动作视频</translation>
    </message>
    <message>
        <source>Time-lapse video</source>
        <translation>延时摄影视频</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>视频</translation>
    </message>
    <message>
        <source>Animated picture</source>
        <translation>动图</translation>
    </message>
    <message>
        <source>RAW photo</source>
        <translation>RAW 照片</translation>
    </message>
    <message>
        <source>Photo</source>
        <translation>照片</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photo(s)</source>
        <translation>
            <numerusform>%Ln 张照片</numerusform>
        </translation>
    </message>
    <message>
        <source>about %1</source>
        <comment>size of a file</comment>
        <translation>约 %1</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>个人收藏</translation>
    </message>
    <message>
        <source>Part of a burst</source>
        <translation>连拍快照之一</translation>
    </message>
    <message>
        <source>Only in the cloud, not on the device</source>
        <translation>仅在云端，不在设备上</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between facts of a photo</comment>
        <translation>，</translation>
    </message>
</context>
<context>
    <name>browser::Viewer</name>
    <message>
        <source>Unknown date</source>
        <translation>未知日期</translation>
    </message>
    <message>
        <source>preview of a RAW photo</source>
        <translation>RAW 照片的预览</translation>
    </message>
    <message>
        <source>edited on the device</source>
        <translation>已在设备上编辑</translation>
    </message>
    <message>
        <source>original; edited on the device</source>
        <translation>原件；已在设备上编辑</translation>
    </message>
</context>
<context>
    <name>browser::ViewerBar</name>
    <message>
        <source>Back to the library</source>
        <translation>返回图库</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>上一张</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一张</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Fit into the window</source>
        <translation>适合窗口</translation>
    </message>
    <message>
        <source>Actual size</source>
        <translation>实际大小</translation>
    </message>
    <message>
        <source>Play the Live Photo</source>
        <translation>播放实况照片</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>导出…</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>全屏</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>what a button does, and its key</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>number of the photo and of all photos</comment>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>%1 %</source>
        <comment>size of the picture</comment>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Show the original</source>
        <translation>显示原件</translation>
    </message>
    <message>
        <source>Facts</source>
        <translation>信息</translation>
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
        <translation>%1 仅在云端，不在此设备上。请先在设备上打开一次以便下载，然后重试。</translation>
    </message>
    <message>
        <source>%1 is not in this backup. Connect the device itself, or make a new backup.</source>
        <translation>%1 不在此备份中。请连接设备本身，或制作新的备份。</translation>
    </message>
    <message>
        <source>%1 is not on the device any more.</source>
        <translation>%1 已不在设备上。</translation>
    </message>
    <message>
        <source>The device cannot be reached any more. Check the cable, unlock the device, and try again.</source>
        <translation>无法再访问设备。请检查数据线，解锁设备，然后重试。</translation>
    </message>
    <message>
        <source>%1 could not be read from the device. Check the cable, unlock the device, and try again.</source>
        <translation>无法从设备读取 %1。请检查数据线，解锁设备，然后重试。</translation>
    </message>
    <message>
        <source>%1 could not be read: %2.</source>
        <translation>无法读取 %1：%2。</translation>
    </message>
    <message>
        <source>%1 is an empty file. There is nothing to show.</source>
        <translation>%1 是空文件，没有可显示的内容。</translation>
    </message>
    <message>
        <source>%1 has a format that cannot be shown here. Export it to open it with another program.</source>
        <translation>%1 的格式无法在此显示。请将其导出，用其他程序打开。</translation>
    </message>
    <message>
        <source>%1 is a RAW photo without a preview in it. Export it to develop it with another program.</source>
        <translation>%1 是不含预览的 RAW 照片。请将其导出，用其他程序处理。</translation>
    </message>
    <message>
        <source>%1 is too large to be shown here. Export it to open it with another program.</source>
        <translation>%1 太大，无法在此显示。请将其导出，用其他程序打开。</translation>
    </message>
    <message>
        <source>%1 could not be loaded, as memory is short. Close other programs and try again.</source>
        <translation>内存不足，无法载入 %1。请关闭其他程序，然后重试。</translation>
    </message>
    <message>
        <source>%1 is damaged and cannot be shown.</source>
        <translation>%1 已损坏，无法显示。</translation>
    </message>
    <message>
        <source>There is not enough room on this computer&apos;s disk to open the video. Make room and try again.</source>
        <translation>这台电脑的磁盘空间不足，无法打开视频。请腾出空间，然后重试。</translation>
    </message>
    <message>
        <source>The video could not be copied to this computer&apos;s folder for temporary files: %1. Check that folder and try again.</source>
        <translation>无法将视频复制到这台电脑的临时文件夹：%1。请检查该文件夹，然后重试。</translation>
    </message>
    <message>
        <source>No program on this computer plays this video. Install a video player, or export the video.</source>
        <translation>这台电脑上没有可播放此视频的程序。请安装视频播放器，或导出视频。</translation>
    </message>
</context>
</TS>
