#include "support.h"

#include "devicehost/device_host.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextCodec>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <atomic>
#include <csignal>
#include <memory>
#include <thread>
#include <vector>

using devicehost::DeviceHost;

namespace
{

class DeviceHostTest : public testing::Test
{
protected:
    DeviceHostTest()
    {
        qputenv("TMPDIR", temporary.path().toUtf8());
        writeFile(root() + QStringLiteral("/PhotoData/Photos.sqlite"), QByteArray(1000000, 'd'));
    }

    QString root() const { return folder.filePath(QStringLiteral("phone")); }
    QString name() const { return QStringLiteral("folder:") + root(); }

    static Device open(DeviceHost &host)
    {
        return Device(vDevOpen(VDevDevice, host.devicePath().toUtf8().constData()));
    }

    QTemporaryDir folder;
    QTemporaryDir temporary;
};

TEST_F(DeviceHostTest, TheNameIsTheOneGiven)
{
    DeviceHost host(name());
    EXPECT_EQ(host.devicePath(), name());
    EXPECT_TRUE(host.failure().isEmpty());
    EXPECT_TRUE(host.databaseDamage().isEmpty());
}

TEST_F(DeviceHostTest, ADeviceIsAvailableWhileItCanBeOpened)
{
    DeviceHost host(name());
    EXPECT_TRUE(host.isAvailable());
    EXPECT_TRUE(host.failure().isEmpty());
    ASSERT_TRUE(QDir(root()).removeRecursively());
    EXPECT_FALSE(host.isAvailable());
    EXPECT_EQ(host.failure().toStdString(),
              "the device " + name().toStdString() +
                  " cannot be opened: No such file or directory; check that the "
                  "device is still connected and mounted, and that the copy of it is whole");
}

TEST_F(DeviceHostTest, LocalFoldersArePrivateAndFreshEachTime)
{
    DeviceHost host(name());
    const QString first = host.localDataFolder();
    const QString second = host.localDataFolder();
    EXPECT_NE(first, second);
    for (const QString &local : {first, second}) {
        EXPECT_TRUE(local.startsWith(temporary.path() + QLatin1Char('/')));
        EXPECT_TRUE(local.endsWith(QLatin1Char('/')));
        EXPECT_EQ(modeOf(local), 0700);
        EXPECT_TRUE(QDir(local).isEmpty());
    }
}

TEST_F(DeviceHostTest, LocalFoldersGoWithTheHost)
{
    writeFile(folder.filePath(QStringLiteral("kept/file")), "kept");
    {
        DeviceHost host(name());
        const QString local = host.localDataFolder();
        writeFile(local + QStringLiteral("Photos.sqlite"), "copy");
        writeFile(local + QStringLiteral("below/file"), "more");
        ASSERT_EQ(::symlink(folder.filePath(QStringLiteral("kept")).toUtf8().constData(),
                            (local + QStringLiteral("link")).toUtf8().constData()),
                  0);
        host.localDataFolder();
    }
    EXPECT_TRUE(QDir(temporary.path()).isEmpty());
    EXPECT_EQ(contentOf(folder.filePath(QStringLiteral("kept/file"))), "kept");
}

TEST_F(DeviceHostTest, LocalFoldersCanBeDiscardedWhileTheyAreUsed)
{
    DeviceHost host(name());
    const QString local = host.localDataFolder();
    writeFile(local + QStringLiteral("Photos.sqlite"), "copy");
    host.localDataFolder();
    const Device device(vDevOpen(VDevLocal, ""));
    const File file(vFileOpen(device.get(), (local + QStringLiteral("Photos.sqlite-wal")).toUtf8().constData(), 1));
    ASSERT_NE(file, nullptr);
    std::thread([&host] { host.discardLocalData(); }).join();
    EXPECT_TRUE(QDir(temporary.path()).isEmpty());
    EXPECT_EQ(vFileWrite(file.get(), "copy", 4), 4);
    EXPECT_NE(host.localDataFolder(), local);
    EXPECT_FALSE(QDir(temporary.path()).isEmpty());
    host.discardLocalData();
    EXPECT_TRUE(QDir(temporary.path()).isEmpty());
}

TEST_F(DeviceHostTest, WithoutAPrivateFolderNothingIsCopied)
{
    qputenv("TMPDIR", folder.filePath(QStringLiteral("none")).toUtf8());
    DeviceHost host(name());
    const QString local = host.localDataFolder();
    EXPECT_TRUE(local.endsWith(QLatin1Char('/')));
    const Device device(vDevOpen(VDevLocal, ""));
    EXPECT_NE(vDevCreateDir(device.get(), local.toUtf8().constData()), 0);
    EXPECT_EQ(vFileOpen(device.get(), (local + QStringLiteral("Photos.sqlite")).toUtf8().constData(), 1), nullptr);
    EXPECT_THAT(host.failure().toStdString(),
                testing::MatchesRegex("no private folder for the database copy can be made in .*/none: "
                                      "No such file or directory; set TMPDIR to a folder that you can write "
                                      "to; it is .*/none now"));
}

TEST_F(DeviceHostTest, AStopRequestEndsReads)
{
    DeviceHost host(name());
    const Device device = open(host);
    const File file(vFileOpen(device.get(), "/PhotoData/Photos.sqlite", 0));
    char byte = 0;
    EXPECT_FALSE(host.shouldStop());
    EXPECT_EQ(vFileRead(file.get(), &byte, 1), 1);
    host.requestStop();
    EXPECT_TRUE(host.shouldStop());
    EXPECT_LT(vFileRead(file.get(), &byte, 1), 0);
    EXPECT_TRUE(host.failure().isEmpty());
}

TEST_F(DeviceHostTest, AStopRequestEndsARunningRead)
{
    DeviceHost host(name());
    qint64 seen = 0;
    host.setProgress([&](const devicehost::Progress &progress) {
        seen = progress.bytesRead;
        host.requestStop();
    });
    const Device device = open(host);
    const File file(vFileOpen(device.get(), "/PhotoData/Photos.sqlite", 0));
    QByteArray buffer(1000000, '\0');
    EXPECT_LT(vFileRead(file.get(), buffer.data(), buffer.size()), 0);
    EXPECT_GT(seen, 0);
    EXPECT_LT(seen, 1000000);
}

DeviceHost *hostOfTheSignal = nullptr;

TEST_F(DeviceHostTest, AStopMayBeRequestedInASignalHandler)
{
    DeviceHost host(name());
    hostOfTheSignal = &host;
    const auto before = std::signal(SIGUSR1, [](int) { hostOfTheSignal->requestStop(); });
    std::raise(SIGUSR1);
    std::signal(SIGUSR1, before);
    EXPECT_TRUE(host.shouldStop());
}

TEST_F(DeviceHostTest, AStopConcernsItsOwnDeviceOnly)
{
    QDir().mkpath(folder.filePath(QStringLiteral("other")));
    DeviceHost other(QStringLiteral("folder:") + folder.filePath(QStringLiteral("other")));
    DeviceHost host(name());
    other.requestStop();
    const Device device = open(host);
    EXPECT_EQ(readFrom(device.get(), "/PhotoData/Photos.sqlite").size(), 1000000);
    EXPECT_FALSE(host.shouldStop());
}

TEST_F(DeviceHostTest, TheNewestHostOfADeviceIsAsked)
{
    DeviceHost older(name());
    {
        DeviceHost newer(name());
        newer.requestStop();
        EXPECT_TRUE(readFrom(open(newer).get(), "/PhotoData/Photos.sqlite").isEmpty());
    }
    EXPECT_EQ(readFrom(open(older).get(), "/PhotoData/Photos.sqlite").size(), 1000000);
}

TEST_F(DeviceHostTest, HandlesOutliveTheHost)
{
    auto host = std::make_unique<DeviceHost>(name());
    const Device device = open(*host);
    const File file(vFileOpen(device.get(), "/PhotoData/Photos.sqlite", 0));
    host.reset();
    char byte = 0;
    EXPECT_EQ(vFileRead(file.get(), &byte, 1), 1);
}

TEST_F(DeviceHostTest, ProgressEndsWithTheWholeFile)
{
    DeviceHost host(name());
    std::vector<devicehost::Progress> reports;
    host.setProgress([&](const devicehost::Progress &progress) { reports.push_back(progress); });
    readFrom(open(host).get(), "/PhotoData/Photos.sqlite");
    ASSERT_FALSE(reports.empty());
    EXPECT_EQ(reports.back().path, QStringLiteral("/PhotoData/Photos.sqlite"));
    EXPECT_EQ(reports.back().bytesRead, 1000000);
    int ends = 0;
    for (const devicehost::Progress &report : reports) {
        EXPECT_EQ(report.totalBytes, 1000000);
        ends += report.bytesRead == report.totalBytes ? 1 : 0;
    }
    EXPECT_EQ(ends, 1);
}

TEST_F(DeviceHostTest, AnEmptyFileEndsAtOnce)
{
    writeFile(root() + QStringLiteral("/empty"), "");
    DeviceHost host(name());
    int reports = 0;
    host.setProgress([&](const devicehost::Progress &progress) {
        EXPECT_EQ(progress.totalBytes, 0);
        ++reports;
    });
    readFrom(open(host).get(), "/empty");
    EXPECT_EQ(reports, 1);
}

TEST_F(DeviceHostTest, NamesInTheLocalEncodingAreUnderstood)
{
    const QString umlaut = folder.filePath(QString::fromUtf8("M\xC3\xBCller"));
    writeFile(umlaut + QStringLiteral("/a"), "content");
    DeviceHost host(QStringLiteral("folder:") + umlaut);
    QTextCodec *const before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    DeviceHost later(QStringLiteral("folder:") + umlaut);
    const QByteArray local = later.devicePath().toLocal8Bit();
    QTextCodec::setCodecForLocale(before);
    ASSERT_NE(local, later.devicePath().toUtf8());
    EXPECT_EQ(readFrom(Device(vDevOpen(VDevDevice, local.constData())).get(), "/a"), "content");
    EXPECT_EQ(readFrom(open(host).get(), "/a"), "content");
}

TEST_F(DeviceHostTest, OperationsRunOnSeveralThreads)
{
    DeviceHost host(name());
    const Device device = open(host);
    std::vector<std::thread> threads;
    std::atomic<int> complete{0};
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            host.localDataFolder();
            complete += readFrom(device.get(), "/PhotoData/Photos.sqlite").size() == 1000000 ? 1 : 0;
            DeviceHost another(name());
        });
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(complete, 4);
}

} // namespace
