#include "support.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

class LocalDevice : public testing::Test
{
protected:
    QByteArray path(const char *name) const { return (folder.path() + QLatin1Char('/')).toUtf8() + name; }

    QTemporaryDir folder;
    Device device{vDevOpen(VDevLocal, "")};
};

TEST_F(LocalDevice, ANullPathIsTheWholeFileSystem)
{
    writeFile(folder.filePath(QStringLiteral("a")), "content");
    const Device whole(vDevOpen(VDevLocal, nullptr));
    EXPECT_EQ(readFrom(whole.get(), path("a")), "content");
}

TEST_F(LocalDevice, WrittenBytesAreInTheFile)
{
    QByteArray content(5 * 1024 * 1024, 'a');
    content[1] = '\0';
    {
        const File file(vFileOpen(device.get(), path("a").constData(), 1));
        ASSERT_NE(file, nullptr);
        EXPECT_EQ(vFileWrite(file.get(), content.constData(), content.size()), content.size());
        EXPECT_EQ(vFileTell(file.get()), content.size());
        EXPECT_EQ(vFileSeek(file.get(), 2, 0), 2);
        EXPECT_EQ(vFileWrite(file.get(), "b", 1), 1);
        EXPECT_EQ(vFileWrite(file.get(), "b", 0), 0);
        EXPECT_LT(vFileWrite(file.get(), "b", -1), 0);
        EXPECT_LT(vFileWrite(file.get(), nullptr, 1), 0);
    }
    content[2] = 'b';
    EXPECT_TRUE(contentOf(folder.filePath(QStringLiteral("a"))) == content);
}

TEST_F(LocalDevice, AnExistingFileIsEmptied)
{
    writeFile(folder.filePath(QStringLiteral("a")), "long old content");
    {
        const File file(vFileOpen(device.get(), path("a").constData(), 1));
        EXPECT_EQ(vFileWrite(file.get(), "new", 3), 3);
    }
    EXPECT_EQ(contentOf(folder.filePath(QStringLiteral("a"))), "new");
}

TEST_F(LocalDevice, CreatedThingsArePrivate)
{
    const mode_t before = ::umask(0);
    EXPECT_EQ(vDevCreateDir(device.get(), path("one/two").constData()), 0);
    const File file(vFileOpen(device.get(), path("one/two/a").constData(), 1));
    ::umask(before);
    EXPECT_EQ(modeOf(folder.filePath(QStringLiteral("one"))), 0700);
    EXPECT_EQ(modeOf(folder.filePath(QStringLiteral("one/two"))), 0700);
    EXPECT_EQ(modeOf(folder.filePath(QStringLiteral("one/two/a"))), 0600);
}

TEST_F(LocalDevice, AFileOpenedForWritingIsNotRead)
{
    const File file(vFileOpen(device.get(), path("a").constData(), 1));
    char byte = 0;
    EXPECT_LT(vFileRead(file.get(), &byte, 1), 0);
}

TEST_F(LocalDevice, ALinkIsNotWrittenThrough)
{
    writeFile(folder.filePath(QStringLiteral("target")), "kept");
    ASSERT_EQ(::symlink("target", path("link").constData()), 0);
    EXPECT_EQ(vFileOpen(device.get(), path("link").constData(), 1), nullptr);
    EXPECT_EQ(contentOf(folder.filePath(QStringLiteral("target"))), "kept");
}

TEST_F(LocalDevice, OnlyRegularFilesAreOpened)
{
    ASSERT_EQ(::mkfifo(path("pipe").constData(), 0600), 0);
    for (const int mode : {0, 1}) {
        EXPECT_EQ(vFileOpen(device.get(), path("pipe").constData(), mode), nullptr);
        EXPECT_EQ(vFileOpen(device.get(), path("").constData(), mode), nullptr);
        EXPECT_EQ(vFileOpen(device.get(), "/dev/null", mode), nullptr);
    }
}

TEST_F(LocalDevice, ExistingFoldersNeedNotBeMade)
{
    EXPECT_EQ(vDevCreateDir(device.get(), path("a/b").constData()), 0);
    EXPECT_EQ(vDevCreateDir(device.get(), path("a/b").constData()), 0);
    EXPECT_EQ(vDevCreateDir(device.get(), path("a//b/").constData()), 0);
    EXPECT_EQ(vDevCreateDir(device.get(), "/"), 0);
    EXPECT_TRUE(QDir(folder.filePath(QStringLiteral("a/b"))).exists());
}

TEST_F(LocalDevice, AFolderCannotBeMadeOfAFile)
{
    writeFile(folder.filePath(QStringLiteral("a")), "content");
    EXPECT_NE(vDevCreateDir(device.get(), path("a").constData()), 0);
    EXPECT_NE(vDevCreateDir(device.get(), path("a/b").constData()), 0);
    EXPECT_NE(vDevCreateDir(device.get(), ""), 0);
}

TEST_F(LocalDevice, RelativeNamesStartInTheCurrentFolder)
{
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    EXPECT_EQ(vDevCreateDir(device.get(), "one/two"), 0);
    {
        const File file(vFileOpen(device.get(), "one/two/a", 1));
        EXPECT_EQ(vFileWrite(file.get(), "x", 1), 1);
    }
    EXPECT_EQ(readFrom(device.get(), "one/two/a"), "x");
    EXPECT_EQ(contentOf(folder.filePath(QStringLiteral("one/two/a"))), "x");
    QDir::setCurrent(QStringLiteral("/"));
}

} // namespace
