// What programs that were killed leave among the temporary files, and who removes it.

#include "support.h"

#include "devicehost/device_host.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

using devicehost::DeviceHost;

namespace
{

const QString mark = QStringLiteral(".photolib-in-use");

class StaleFolders : public testing::Test
{
protected:
    StaleFolders() { qputenv("TMPDIR", temporary.path().toUtf8()); }

    QString path(const char *name) const { return temporary.filePath(QString::fromUtf8(name)); }

    /// A child process that has made a database copy in its private folder and waits.
    pid_t startReader() const
    {
        std::array<int, 2> ends = {};
        EXPECT_EQ(::pipe(ends.data()), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            DeviceHost host(QStringLiteral("folder:/"));
            writeFile(host.localDataFolder() + QStringLiteral("Photos.sqlite"), "private");
            ::close(ends[1]);
            for (;;)
                ::pause();
        }
        ::close(ends[1]);
        char none = 0;
        EXPECT_EQ(::read(ends[0], &none, 1), 0); // closed: the copy is there
        ::close(ends[0]);
        return child;
    }

    static void kill(pid_t child)
    {
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
    }

    /// Names of the folders among the temporary files.
    QStringList folders() const { return QDir(temporary.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot); }

    static void makeFolderOnce()
    {
        DeviceHost host(QStringLiteral("folder:/"));
        host.localDataFolder();
    }

    /// A folder as a killed program leaves it.
    void leaveFolder(const QString &folder) const
    {
        QDir().mkpath(folder);
        writeFile(folder + QStringLiteral("/Photos.sqlite"), "private");
        writeFile(folder + QLatin1Char('/') + mark, "");
        ASSERT_EQ(::chmod(folder.toUtf8().constData(), 0700), 0);
        ASSERT_EQ(::chmod((folder + QLatin1Char('/') + mark).toUtf8().constData(), 0600), 0);
    }

    QTemporaryDir temporary;
    QTemporaryDir elsewhere;
};

TEST_F(StaleFolders, TheCopyOfAKilledProcessIsRemovedByTheNext)
{
    const pid_t child = startReader();
    ASSERT_EQ(folders().size(), 1);
    kill(child);
    ASSERT_EQ(folders().size(), 1);
    makeFolderOnce();
    EXPECT_TRUE(folders().isEmpty());
}

TEST_F(StaleFolders, TheCopyOfALivingProcessStays)
{
    const pid_t child = startReader();
    makeFolderOnce();
    ASSERT_EQ(folders().size(), 1);
    EXPECT_EQ(contentOf(temporary.filePath(folders().first()) + QStringLiteral("/Photos.sqlite")), "private");
    kill(child);
}

TEST_F(StaleFolders, FoldersOfOtherHostsInTheProcessStay)
{
    DeviceHost first(QStringLiteral("folder:/"));
    const QString a = first.localDataFolder();
    DeviceHost second(QStringLiteral("folder:/"));
    const QString b = second.localDataFolder();
    makeFolderOnce();
    for (const QString &folder : {a, b})
        EXPECT_TRUE(QDir(folder).exists());
}

TEST_F(StaleFolders, OneWithAMarkThatNobodyHoldsIsRemoved)
{
    leaveFolder(path("photolib-abcdef"));
    makeFolderOnce();
    EXPECT_TRUE(folders().isEmpty());
}

TEST_F(StaleFolders, WhatIsNotSurelyAPrivateFolderStays)
{
    leaveFolder(path("photolib-abcdefg")); // another name
    leaveFolder(path("photolib-export"));  // a name by chance, without a mark
    ASSERT_TRUE(QFile::remove(path("photolib-export/") + mark));
    leaveFolder(path("photolib-public")); // others may enter it
    ASSERT_EQ(::chmod(path("photolib-public").toUtf8().constData(), 0755), 0);
    leaveFolder(path("photolib-linked")); // the mark is a link
    ASSERT_TRUE(QFile::remove(path("photolib-linked/") + mark));
    writeFile(elsewhere.filePath(mark), "");
    ASSERT_TRUE(QFile::link(elsewhere.filePath(mark), path("photolib-linked/") + mark));
    const QStringList before = folders();
    makeFolderOnce();
    EXPECT_EQ(folders(), before);
    for (const QString &folder : before)
        EXPECT_EQ(contentOf(temporary.filePath(folder) + QStringLiteral("/Photos.sqlite")), "private");
}

TEST_F(StaleFolders, LinksAreNotFollowed)
{
    const QString outer = elsewhere.filePath(QStringLiteral("outer"));
    leaveFolder(outer);
    ASSERT_TRUE(QFile::link(outer, path("photolib-abcdef")));
    leaveFolder(path("photolib-ghijkl"));
    ASSERT_TRUE(QFile::link(outer + QStringLiteral("/Photos.sqlite"), path("photolib-ghijkl/link")));
    ASSERT_TRUE(QFile::link(outer, path("photolib-ghijkl/folder")));
    makeFolderOnce();
    EXPECT_FALSE(QDir(path("photolib-ghijkl")).exists());
    EXPECT_EQ(contentOf(outer + QStringLiteral("/Photos.sqlite")), "private");
    EXPECT_TRUE(QFile::exists(outer + QLatin1Char('/') + mark));
}

TEST_F(StaleFolders, FoldersBelowAreNotEntered)
{
    leaveFolder(path("photolib-abcdef"));
    writeFile(path("photolib-abcdef/below/file"), "kept");
    makeFolderOnce();
    EXPECT_FALSE(QFile::exists(path("photolib-abcdef/Photos.sqlite")));
    EXPECT_EQ(contentOf(path("photolib-abcdef/below/file")), "kept");
}

TEST_F(StaleFolders, FoldersOfOtherUsersStay)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "only root can make a folder of another user";
    leaveFolder(path("photolib-abcdef"));
    ASSERT_EQ(::chown(path("photolib-abcdef").toUtf8().constData(), 65534, 65534), 0);
    makeFolderOnce();
    EXPECT_TRUE(QFile::exists(path("photolib-abcdef/Photos.sqlite")));
}

} // namespace
