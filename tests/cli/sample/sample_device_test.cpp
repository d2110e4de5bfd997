#include "tests/cli/sample/sample_folder.h"

#include "apps/cli/sample/library_writer.h"
#include "apps/cli/sample/property_lists.h"
#include "testing/era.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>
#include <gtest/gtest.h>
#include <plist/plist.h>

using sample::SampleOutcome;

namespace
{

SampleOutcome writeInto(const QString &folder, QString &error, const QString &era = QString(),
                        const sample::SampleProgress &progress = {})
{
    sample::SampleOptions options;
    options.directory = folder;
    options.era = era;
    return sample::writeSampleDevice(options, &error, nullptr, progress);
}

void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QStringList entriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(SampleDevice, SameOptionsGiveTheSameMedia)
{
    const SampleFolder first, second;
    ASSERT_TRUE(first.written()) << qPrintable(first.error());
    ASSERT_TRUE(second.written()) << qPrintable(second.error());
    QMap<QString, QByteArray> ours = first.contents(), theirs = second.contents();
    EXPECT_EQ(first.report().files, ours.size());
    EXPECT_TRUE(ours.contains(QStringLiteral("Photos/Sync/CurrentLibraryUUID.plist")));
    qint64 bytes = 0;
    for (const QByteArray &content : ours)
        bytes += content.size();
    EXPECT_EQ(first.report().bytes, bytes);
    EXPECT_LT(bytes, 27'000'000);
    ASSERT_EQ(ours.keys(), theirs.keys());
    // A write-ahead log carries random salts.
    for (const QString &name : ours.keys())
        if (!name.startsWith(QLatin1String("PhotoData/Photos.sqlite"))) {
            EXPECT_TRUE(ours.value(name) == theirs.value(name)) << qPrintable(name);
        }
    const QString all = QStringLiteral("SELECT * FROM ZASSET");
    EXPECT_TRUE(first.rows(all) == second.rows(all));
}

TEST(SampleDevice, RowsAreMissingWithoutTheWriteAheadLog)
{
    const SampleFolder device(QString(), SampleParts::DatabaseOnly);
    ASSERT_TRUE(device.written()) << qPrintable(device.error());
    const QString assets = QStringLiteral("SELECT count(*) FROM ZASSET");
    const qint64 all = numberOf(device.rows(assets).at(0).at(0));
    EXPECT_EQ(all, device.report().assets);
    EXPECT_GE(all, 200);
    const qint64 checkpointed = numberOf(device.rows(assets, false).at(0).at(0));
    EXPECT_GT(checkpointed, 0);
    EXPECT_LT(checkpointed, all);
    const QString memories = QStringLiteral("SELECT count(*) FROM ZMEMORY");
    EXPECT_EQ(numberOf(device.rows(memories).at(0).at(0)), device.report().memories);
    EXPECT_EQ(numberOf(device.rows(memories, false).at(0).at(0)), 0);
    EXPECT_FALSE(device.read(QStringLiteral("PhotoData/Photos.sqlite-shm")).isEmpty());
}

TEST(SampleDevice, MarkerIsAPropertyListWithTheLibraryUuid)
{
    const QString uuid = QStringLiteral("0A1B2C3D-4E5F-4071-8293-A4B5C6D7E8F9");
    const QByteArray xml = sample::currentLibraryList(uuid);
    plist_t list = nullptr;
    plist_from_xml(xml.constData(), static_cast<uint32_t>(xml.size()), &list);
    ASSERT_NE(list, nullptr);
    char *text = nullptr;
    plist_get_string_val(plist_dict_get_item(list, "libraryUUID"), &text);
    EXPECT_EQ(QString::fromUtf8(text), uuid);
    std::free(text);
    plist_free(list);
}

TEST(SampleDevice, FolderWithSomethingInItIsRefusedAndLeftAlone)
{
    const QTemporaryDir folder;
    const QString hidden = folder.filePath(QStringLiteral(".keep"));
    put(hidden, "mine");
    QString error;
    EXPECT_EQ(writeInto(folder.path(), error), SampleOutcome::Failed);
    EXPECT_TRUE(error.contains(folder.path())) << qPrintable(error);
    EXPECT_TRUE(error.contains(QStringLiteral("not empty"))) << qPrintable(error);
    EXPECT_EQ(entriesOf(folder.path()), QStringList(QStringLiteral(".keep")));
}

TEST(SampleDevice, FileThatAppearsMeanwhileIsNeitherReplacedNorRemoved)
{
    const QTemporaryDir folder;
    sample::FileStore files(folder.path());
    files.write(QStringLiteral("PhotoData/mine"), "x");
    const QString database = folder.filePath(QStringLiteral("PhotoData/Photos.sqlite"));
    put(database, "precious");
    const sample::Plan plan = sample::makePlan(testkit::Era::Ios15);
    sample::SampleReport report;
    EXPECT_THROW(sample::writeLibrary(files, plan, testkit::Era::Ios15, report), sample::FileError);
    EXPECT_THROW(files.write(QStringLiteral("PhotoData/Photos.sqlite"), "x"), sample::FileError);
    EXPECT_FALSE(files.removeAll());
    EXPECT_EQ(entriesOf(folder.filePath(QStringLiteral("PhotoData"))), QStringList(QStringLiteral("Photos.sqlite")));
    EXPECT_EQ(contentOf(database), "precious");
}

TEST(SampleDevice, StopLeavesNothingOfWhatWasWritten)
{
    const QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("new/device"));
    QVector<int> seen;
    bool pictures = false;
    QString error;
    const auto stopAtFourth = [&](int done, int total) {
        EXPECT_GT(total, 200);
        seen.append(done);
        pictures = !entriesOf(target).filter(QStringLiteral("PhotoData")).isEmpty();
        return done < 3;
    };
    EXPECT_EQ(writeInto(target, error, QString(), stopAtFourth), SampleOutcome::Stopped);
    EXPECT_EQ(seen, QVector<int>({0, 1, 2, 3}));
    EXPECT_TRUE(pictures);
    EXPECT_EQ(error, QStringLiteral("what was written to %1 is removed").arg(target));
    EXPECT_TRUE(entriesOf(folder.path()).isEmpty());
}

TEST(SampleDevice, StopAtTheVeryEndRemovesTheDatabaseToo)
{
    const QTemporaryDir folder;
    QString error;
    bool database = false;
    const auto stopAtEnd = [&](int done, int total) {
        database = QFile::exists(folder.filePath(QStringLiteral("PhotoData/Photos.sqlite-wal")));
        return done < total;
    };
    EXPECT_EQ(writeInto(folder.path(), error, QString(), stopAtEnd), SampleOutcome::Stopped);
    EXPECT_TRUE(database);
    // The folder itself was there before.
    EXPECT_TRUE(QDir(folder.path()).exists());
    EXPECT_TRUE(entriesOf(folder.path()).isEmpty());
}

TEST(SampleDevice, StopLeavesWhatOthersPutIntoTheFolder)
{
    const QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("device"));
    QString error;
    const auto stop = [&](int done, int) {
        if (done == 1)
            put(target + QStringLiteral("/theirs"), "x");
        return done < 1;
    };
    EXPECT_EQ(writeInto(target, error, QString(), stop), SampleOutcome::Stopped);
    EXPECT_EQ(error, QStringLiteral("remove what is left in %1").arg(target));
    EXPECT_EQ(entriesOf(target), QStringList(QStringLiteral("theirs")));
}

TEST(SampleDevice, FailureLeavesNothingOfWhatWasWritten)
{
    const QTemporaryDir folder;
    QString error;
    const QString inTheWay = folder.filePath(QStringLiteral("PhotoData/Photos.sqlite"));
    const auto block = [&](int done, int) {
        if (done == 1)
            QDir().mkpath(inTheWay);
        return true;
    };
    EXPECT_EQ(writeInto(folder.path(), error, QString(), block), SampleOutcome::Failed);
    EXPECT_TRUE(error.contains(inTheWay)) << qPrintable(error);
    EXPECT_EQ(entriesOf(folder.path()), QStringList(QStringLiteral("PhotoData")));
    EXPECT_EQ(entriesOf(folder.filePath(QStringLiteral("PhotoData"))), QStringList(QStringLiteral("Photos.sqlite")));
}

TEST(SampleDevice, NoNameIsRefused)
{
    QString error;
    EXPECT_EQ(writeInto(QString(), error), SampleOutcome::Failed);
    EXPECT_EQ(error, QStringLiteral("no folder was named; name a new or an empty folder"));
}

TEST(SampleDevice, FileInPlaceOfTheFolderIsNamed)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("file"));
    put(file, "x");
    QString error;
    EXPECT_EQ(writeInto(file, error), SampleOutcome::Failed);
    EXPECT_EQ(error, file + QStringLiteral(" is not a folder; name a new or an empty folder"));
    EXPECT_EQ(writeInto(file + QStringLiteral("/below"), error), SampleOutcome::Failed);
    EXPECT_TRUE(error.contains(file)) << qPrintable(error);
    EXPECT_EQ(contentOf(file), "x");
}

TEST(SampleDevice, UnknownEraIsRefusedWithAListOfAllBeforeAnythingIsWritten)
{
    const QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("device"));
    QString error;
    EXPECT_EQ(writeInto(target, error, QStringLiteral("ios3")), SampleOutcome::Failed);
    EXPECT_TRUE(error.contains(QStringLiteral("\"ios3\""))) << qPrintable(error);
    for (const char *era : {"ios13", "ios15", "ios18"})
        EXPECT_TRUE(error.contains(QLatin1String(era))) << qPrintable(error);
    EXPECT_FALSE(QDir(target).exists());
}

class SampleEra : public testing::TestWithParam<const char *>
{
};

TEST_P(SampleEra, HoldsTheSameContentInTheShapeOfItsRelease)
{
    const QString name = QString::fromLatin1(GetParam());
    const SampleFolder device(name, SampleParts::DatabaseOnly);
    ASSERT_TRUE(device.written()) << qPrintable(device.error());
    const testkit::EraFacts &facts = testkit::factsOf(*testkit::eraFromName(name));
    const QString table = QString::fromLatin1(facts.assetTable);
    const auto rows =
        device.rows(QStringLiteral("SELECT ZUUID, ZDIRECTORY, ZFILENAME FROM %1 ORDER BY Z_PK").arg(table));
    const SampleFolder usual(QString(), SampleParts::DatabaseOnly);
    EXPECT_TRUE(rows == usual.rows(QStringLiteral("SELECT ZUUID, ZDIRECTORY, ZFILENAME FROM ZASSET ORDER BY Z_PK")));
    EXPECT_EQ(device.report().faces, usual.report().faces);
    const auto members = device.rows(QStringLiteral("SELECT count(*) FROM %1").arg(facts.albumJoinTable()));
    EXPECT_GT(numberOf(members.at(0).at(0)), 100);
}

INSTANTIATE_TEST_SUITE_P(Eras, SampleEra,
                         testing::Values("ios11", "ios12", "ios13", "ios14", "ios16", "ios17", "ios18", "ios26"));
