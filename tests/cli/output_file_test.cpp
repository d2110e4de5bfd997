#include "apps/cli/device_place.h"
#include "apps/cli/failure.h"
#include "apps/cli/output/output_file.h"
#include "apps/cli/picture.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <unistd.h>

namespace photocli
{

namespace
{

class OutputFileIn : public testing::Test
{
protected:
    QString file(const QString &name) const { return folder.path() + QChar('/') + name; }

    QStringList names() const
    {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    void put(const QString &name, const QByteArray &content) const
    {
        QFile target(file(name));
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(content);
    }

    QByteArray content(const QString &name) const
    {
        QFile source(file(name));
        return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray("(none)");
    }

    // The message of the Failure that is thrown; empty without one.
    template <typename Action>
    QString failure(const Action &action)
    {
        try {
            action();
        } catch (const Failure &thrown) {
            EXPECT_EQ(thrown.code, ExitOutputFailed);
            return thrown.message;
        }
        return {};
    }

    const QTemporaryDir folder;
};

} // namespace

TEST_F(OutputFileIn, NameAppearsWithTheWholeContent)
{
    OutputFile output(file("a"), Existing::Keep);
    output.out().write("text");
    output.out().flush();
    EXPECT_EQ(names().size(), 1);
    EXPECT_FALSE(names().contains("a"));
    output.commit();
    EXPECT_EQ(names(), QStringList{"a"});
    EXPECT_EQ(content("a"), QByteArray("text"));
}

TEST_F(OutputFileIn, WhatIsNotCommittedGoes)
{
    put("old", "old");
    for (const char *name : {"new", "old"}) {
        OutputFile output(file(name), Existing::Replace);
        output.out().write("text");
        output.out().flush();
    }
    EXPECT_EQ(names(), QStringList{"old"});
    EXPECT_EQ(content("old"), QByteArray("old"));
}

TEST_F(OutputFileIn, FileThatAppearsMeanwhileIsKept)
{
    OutputFile output(file("a"), Existing::Keep);
    output.out().write("text");
    put("a", "theirs");
    EXPECT_TRUE(failure([&] { output.commit(); }).contains("there is a file of this name"));
    EXPECT_EQ(content("a"), QByteArray("theirs"));
}

TEST_F(OutputFileIn, ReplacedFileKeepsTheLinkThatLeadsToIt)
{
    put("real", "old");
    QFile::link(file("real"), file("link"));
    OutputFile output(file("link"), Existing::Replace);
    output.out().write("new");
    output.commit();
    EXPECT_EQ(content("real"), QByteArray("new"));
    EXPECT_TRUE(QFileInfo(file("link")).isSymLink());
}

TEST_F(OutputFileIn, SecondWriterOfAFileIsRefused)
{
    OutputFile first(file("a"), Existing::Replace);
    EXPECT_TRUE(failure([&] { OutputFile second(file("a"), Existing::Replace); }).contains("another process"));
    OutputFile other(file("b"), Existing::Replace);
    first.out().write("1");
    first.commit();
    EXPECT_EQ(content("a"), QByteArray("1"));
}

TEST_F(OutputFileIn, RestOfAKilledProcessIsTakenOver)
{
    QString left;
    {
        OutputFile killed(file("a"), Existing::Keep);
        left = names().value(0);
    }
    put(left, QByteArray(1000, 'x'));
    OutputFile output(file("a"), Existing::Keep);
    output.out().write("text");
    output.commit();
    EXPECT_EQ(names(), QStringList{"a"});
    EXPECT_EQ(content("a"), QByteArray("text"));
}

TEST_F(OutputFileIn, EveryReasonIsNamed)
{
    put("file", "");
    EXPECT_TRUE(failure([&] { OutputFile::check(file("file"), Existing::Keep); }).contains("--force"));
    EXPECT_EQ(failure([&] { OutputFile::check(file("file"), Existing::Replace); }), QString());
    EXPECT_TRUE(failure([&] { OutputFile::check(folder.path(), Existing::Replace); }).contains("it is a folder"));
    EXPECT_TRUE(failure([&] { OutputFile::check(file("no/such"), Existing::Keep); }).contains("no folder for it"));
    EXPECT_TRUE(failure([&] { OutputFile::check(file("file/x"), Existing::Keep); }).contains("no folder for it"));
    EXPECT_EQ(failure([&] { OutputFile::check(QStringLiteral("-"), Existing::Keep); }), QString());
    EXPECT_THROW(OutputFile::check(QString(), Existing::Keep), Failure);
    EXPECT_EQ(names(), QStringList{"file"});
}

TEST_F(OutputFileIn, FolderIsFoundWhereverItLies)
{
    QDir(folder.path()).mkpath("phone/DCIM");
    QDir(folder.path()).mkpath("phone2");
    QFile::link(file("phone/DCIM"), file("link"));
    const QString device = "folder:" + file("phone");
    EXPECT_EQ(placeOf(file("phone"), device), Place::Within);
    EXPECT_EQ(placeOf(file("phone/"), device), Place::Within);
    EXPECT_EQ(placeOf(file("phone/DCIM/new/folder"), device), Place::Within);
    EXPECT_EQ(placeOf(file("link/new"), device), Place::Within);
    EXPECT_EQ(placeOf(file("phone2/../phone/x"), device), Place::Within);
    EXPECT_EQ(placeOf(folder.path(), device), Place::Around);
    EXPECT_EQ(placeOf(QStringLiteral("/"), device), Place::Around);
    EXPECT_EQ(placeOf(file("phone2"), device), Place::Apart);
    EXPECT_EQ(placeOf(file("phone-new"), device), Place::Apart);
    EXPECT_EQ(placeOf(file("phone"), QStringLiteral("usb:1234")), Place::Apart);
    EXPECT_THROW(refuseToWriteToDevice(file("phone/x"), device), Failure);
}

TEST(Picture, FormatIsToldByTheFirstBytes)
{
    EXPECT_EQ(formatOf("\xFF\xD8\xFF\xE0"), PictureFormat::Jpeg);
    EXPECT_EQ(formatOf("BM"), PictureFormat::Bmp);
    EXPECT_EQ(formatOf("\x89PNG\r\n\x1A\n"), PictureFormat::Png);
    EXPECT_EQ(formatOf("GIF89a"), PictureFormat::Unknown);
    EXPECT_EQ(formatOf(""), PictureFormat::Unknown);
    EXPECT_EQ(formatName(PictureFormat::Unknown), QStringLiteral("picture"));
}

TEST(Picture, WhatIsFarTooLargeIsNotDecoded)
{
    QByteArray header("BM\x36\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0", 18);
    header += QByteArray("\x10\x27\0\0\x10\x27\0\0\x01\0\x18\0", 12); // 10000 x 10000
    header += QByteArray(24, '\0');
    EXPECT_EQ(sizeOf(header), QSize(10000, 10000));
    EXPECT_EQ(converted(header, PictureFormat::Png), QByteArray());
    EXPECT_EQ(converted("BM", PictureFormat::Png), QByteArray());
    EXPECT_EQ(converted("nothing", PictureFormat::Png), QByteArray());
    EXPECT_FALSE(sizeOf("nothing").isValid());
}

} // namespace photocli
