// Opening devices off the user-interface thread.

#include "apps/browser/library/background.h"
#include "apps/browser/library/log_notes.h"
#include "apps/browser/library/opening_attempt.h"
#include "devicehost/log_sink.h"
#include "testing/backup_builder.h"
#include "testing/library_builder.h"
#include "tests/browser/support/opening.h"
#include "tests/cli/sample/sample_folder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <thread>

namespace
{

using browser::FailureKind;
using browser::Shortcoming;
using Stage = browser::OpeningProgress::Stage;

// What openings leave in the folder for local copies.
class OpenerTest : public testing::Test
{
protected:
    static void SetUpTestSuite() { folder = new SampleFolder({}, SampleParts::DatabaseOnly); }
    static void TearDownTestSuite()
    {
        delete folder;
        folder = nullptr;
    }

    OpenerTest()
    {
        qputenv("TMPDIR", QFile::encodeName(local.path()));
        devicehost::setLogListener([](const devicehost::LogLine &line) { browser::noteLogLine(line.message); });
    }
    ~OpenerTest() override
    {
        EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
        devicehost::setLogListener({});
        qunsetenv("TMPDIR");
    }

    QStringList leftovers() const { return QDir(local.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); }

    // A device whose database has these bytes.
    QString deviceWith(const QByteArray &database)
    {
        QDir(device.path()).mkpath(QStringLiteral("PhotoData"));
        QFile file(device.filePath(QStringLiteral("PhotoData/Photos.sqlite")));
        file.open(QIODevice::WriteOnly);
        file.write(database);
        return device.path();
    }

    FailureKind failureOf(const QString &argument)
    {
        Opening opening(argument);
        EXPECT_TRUE(opening.ends());
        EXPECT_TRUE(opening.failure.has_value()) << argument.toStdString();
        if (!opening.failure)
            return FailureKind::Other;
        EXPECT_FALSE(opening.failure->technical.isEmpty());
        return opening.failure->kind;
    }

    static SampleFolder *folder;
    QTemporaryDir local;
    QTemporaryDir device;
};

SampleFolder *OpenerTest::folder = nullptr;

TEST_F(OpenerTest, OpensAFolderAndTellsHowFarItIs)
{
    {
        Opening opening(folder->root());
        ASSERT_TRUE(opening.ends());
        ASSERT_TRUE(opening.opened.has_value());
        EXPECT_EQ(opening.opened->library->deviceName(), QStringLiteral("folder:") + folder->root());
        EXPECT_EQ(opening.opened->title, QStringLiteral("device"));
        EXPECT_EQ(opening.opened->shortcoming, Shortcoming::None);
        EXPECT_GT(opening.opened->library->snapshot().photos.size(), 100U);
        EXPECT_EQ(leftovers().size(), 1);
        for (const Stage stage : {Stage::Finding, Stage::Connecting, Stage::Sorting, Stage::Preparing})
            EXPECT_TRUE(opening.hasReached(stage)) << static_cast<int>(stage);
    }
    EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1))); // the opening's thread has the library, too
    browser::waitForRetired();
    EXPECT_EQ(leftovers(), QStringList());
}

TEST_F(OpenerTest, SaysWhatIsWrongWithAnArgument)
{
    EXPECT_EQ(failureOf(device.filePath(QStringLiteral("nowhere"))), FailureKind::NotFound);
    EXPECT_EQ(failureOf(device.path()), FailureKind::NoLibrary);
    EXPECT_EQ(leftovers(), QStringList());
}

TEST_F(OpenerTest, SaysThatADatabaseIsDamaged)
{
    EXPECT_EQ(failureOf(deviceWith(QByteArray("this is no database, but a line of text. ").repeated(200))),
              FailureKind::Damaged);
    EXPECT_TRUE(comesTrueSoon([this] { return leftovers().isEmpty(); }));
}

TEST_F(OpenerTest, OpensAnEmptyDatabaseWithAShortcoming)
{
    Opening opening(deviceWith({}));
    ASSERT_TRUE(opening.ends());
    ASSERT_TRUE(opening.opened.has_value());
    EXPECT_EQ(opening.opened->shortcoming, Shortcoming::EmptyDatabase);
}

TEST_F(OpenerTest, OpensWhatCanBeReadOfADamagedDatabase)
{
    testkit::BuilderOptions options;
    options.indices = false;
    testkit::LibraryBuilder builder(testkit::Era::Ios15, options);
    for (int i = 0; i < 3000; ++i)
        builder.addAsset();
    QByteArray bytes = builder.bytes().database;
    for (int at = bytes.size() / 2 / 4096 * 4096; at < bytes.size(); at += 4096)
        bytes.replace(at, 64, QByteArray(64, '\x5A'));
    Opening opening(deviceWith(bytes));
    ASSERT_TRUE(opening.ends());
    ASSERT_TRUE(opening.opened.has_value());
    EXPECT_EQ(opening.opened->shortcoming, Shortcoming::ReadInPart);
    EXPECT_FALSE(opening.opened->technical.isEmpty());
}

TEST_F(OpenerTest, SaysThatADatabaseLacksItsTables)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15);
    builder.dropTable(builder.facts().assetTable);
    Opening opening(deviceWith(builder.bytes().database));
    ASSERT_TRUE(opening.ends());
    ASSERT_TRUE(opening.opened.has_value());
    EXPECT_EQ(opening.opened->shortcoming, Shortcoming::NoTables);
}

TEST_F(OpenerTest, AsksForTheRightPasswordOfABackup)
{
    testkit::BackupOptions options;
    options.password = "sea and sand";
    testkit::BackupBuilder backup(device.filePath(QStringLiteral("backup")), options);
    backup.addTree(folder->root());
    backup.write();

    Opening opening(backup.path());
    ASSERT_TRUE(opening.ends());
    EXPECT_EQ(opening.passwordAsked, std::optional<bool>(false));
    ASSERT_TRUE(opening.endsAfter([&opening] {
        opening.opener.setPassword("1234");
        opening.opener.proceed();
    }));
    EXPECT_EQ(opening.passwordAsked, std::optional<bool>(true));
    ASSERT_TRUE(opening.endsAfter([&opening] {
        opening.opener.setPassword("sea and sand");
        opening.opener.proceed();
    }));
    ASSERT_TRUE(opening.opened.has_value());
    EXPECT_EQ(opening.opened->title, QStringLiteral("Anna's phone"));

    QDir(backup.path()).remove(QStringLiteral("Manifest.db"));
    EXPECT_EQ(failureOf(backup.path()), FailureKind::BackupDamaged);
}

TEST_F(OpenerTest, TakesOneStepAfterTheOther)
{
    browser::Opener receiver(folder->root());
    QStringList told;
    QObject::connect(&receiver, &browser::Opener::progressed, &receiver, [&told](const browser::OpeningProgress &now) {
        if (now.stage == Stage::Connecting)
            told += QStringLiteral("begun");
    });
    QObject::connect(&receiver, &browser::Opener::opened, &receiver, [&told] { told += QStringLiteral("ended"); });
    browser::OpeningAttempt attempt(&receiver, folder->root());
    attempt.run(&browser::OpeningAttempt::find);
    std::thread one([&attempt] { attempt.run(&browser::OpeningAttempt::open); });
    std::thread other([&attempt] { attempt.run(&browser::OpeningAttempt::open); });
    one.join();
    other.join();
    EXPECT_TRUE(comesTrueSoon([&told] { return told.count(QStringLiteral("ended")) == 2; }));
    EXPECT_EQ(told.join(QLatin1Char(' ')).toStdString(), "begun ended begun ended");
    browser::waitForRetired();
}

// Each answer may be followed by the next step before the step that gave it has ended.
TEST_F(OpenerTest, GoesOnAtOnceWhenItIsAnswered)
{
    testkit::BackupOptions options;
    options.password = "sea and sand";
    testkit::BackupBuilder backup(device.filePath(QStringLiteral("backup")), options);
    backup.addTree(folder->root());
    backup.write();
    for (int pass = 0; pass < 5; ++pass) {
        Opening opening(backup.path());
        bool answered = false;
        QObject::connect(&opening.opener, &browser::Opener::passwordNeeded, &opening.opener, [&](bool wasWrong) {
            opening.passwordAsked.reset();
            answered = !wasWrong;
            opening.opener.setPassword("sea and sand");
            opening.opener.proceed();
        });
        ASSERT_TRUE(opening.ends());
        EXPECT_TRUE(answered);
        EXPECT_TRUE(opening.opened.has_value());
    }
}

TEST_F(OpenerTest, SaysThatABackupWasInterrupted)
{
    testkit::BackupOptions options;
    options.snapshotState = "new";
    testkit::BackupBuilder backup(device.filePath(QStringLiteral("backup")), options);
    backup.addTree(folder->root());
    backup.write();
    Opening opening(backup.path());
    ASSERT_TRUE(opening.ends());
    ASSERT_TRUE(opening.opened.has_value());
    EXPECT_EQ(opening.opened->shortcoming, Shortcoming::UnfinishedBackup);
    EXPECT_TRUE(opening.opened->technical.contains(QStringLiteral("interrupted")));
}

TEST_F(OpenerTest, SaysThatThereAreSeveralBackups)
{
    for (const char *name : {"one", "two"})
        testkit::BackupBuilder(device.filePath(QLatin1String(name))).write();
    EXPECT_EQ(failureOf(device.path()), FailureKind::SeveralChoices);
}

TEST_F(OpenerTest, LeavesNothingBehindWhenItIsGivenUpAtAnyTime)
{
    for (int pass = 0; pass < 20; ++pass) {
        Opening opening(folder->root());
        const int wanted = pass % 6;
        opening.opener.start();
        ASSERT_TRUE(comesTrueSoon([&] { return opening.progress.size() > wanted || opening.hasEnded(); }));
        if (!opening.hasEnded())
            opening.opener.cancel();
        EXPECT_TRUE(opening.hasEnded());
    }
    EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    browser::waitForRetired();
    EXPECT_EQ(leftovers(), QStringList());
}

} // namespace
