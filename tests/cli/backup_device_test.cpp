// The command on computer backups, plain and encrypted.

#include "testing/backup_builder.h"
#include "tests/cli/command_run.h"
#include "tests/cli/media_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

namespace clitest
{

namespace
{

using testing::HasSubstr;
using testing::Not;

constexpr const char *secret = "correct horse";

class BackupDevice : public testing::Test
{
protected:
    QString path(const QString &name) const { return folder.filePath(name); }

    void makeBackup(const QString &name, const QString &device, const QByteArray &password = {},
                    const QByteArray &state = "finished") const
    {
        testkit::BackupOptions options;
        options.password = password;
        options.snapshotState = state;
        testkit::BackupBuilder builder(path(name), options);
        builder.addTree(device);
        builder.write();
    }

    /// "--password-file FILE" with this content.
    QStringList passwordFile(const QByteArray &content) const
    {
        QFile file(path(QStringLiteral("password")));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("the password cannot be written");
        return {"--password-file", file.fileName()};
    }

    /// A device of three photos, its backup "plain" and its encrypted backup "locked".
    void makeSmallBackups()
    {
        device.addPhotos(3, 2000);
        device.write();
        makeBackup("plain", device.path());
        makeBackup("locked", device.path(), secret);
    }

    MediaDevice device;
    const QTemporaryDir folder;
};

TEST_F(BackupDevice, EveryWayToTheSameDeviceGivesTheSameLibrary)
{
    ASSERT_EQ(run({"sample", path("phone")}).code, 0);
    makeBackup("plain", path("phone"));
    makeBackup("locked", path("phone"), secret);
    const RunResult expected = run({"dump", path("phone")});
    ASSERT_EQ(expected.code, 0) << expected.err.toStdString();
    const RunResult plain = run({"dump", path("plain")});
    EXPECT_EQ(plain.code, 0) << plain.err.toStdString();
    EXPECT_TRUE(plain.out == expected.out);
    const RunResult locked = run(QStringList{"dump", path("locked")} + passwordFile(QByteArray(secret) + "\n"));
    EXPECT_EQ(locked.code, 0) << locked.err.toStdString();
    EXPECT_TRUE(locked.out == expected.out);
    for (const RunResult &result : {plain, locked}) {
        EXPECT_EQ(result.err, QByteArray());
        EXPECT_TRUE(result.leftovers.isEmpty());
    }
}

TEST_F(BackupDevice, EveryWayToTheSameDeviceExportsTheSameFiles)
{
    ASSERT_EQ(run({"sample", path("phone")}).code, 0);
    makeBackup("plain", path("phone"));
    makeBackup("locked", path("phone"), secret);
    const QStringList options = {"--layout", "dcim", "--albums", "--edited", "--deleted"};
    const RunResult expected = run(QStringList{"export", path("phone"), path("1")} + options);
    const RunResult plain = run(QStringList{"export", path("plain"), path("2")} + options);
    const RunResult locked =
        run(QStringList{"export", path("locked"), path("3"), "--verify"} + options + passwordFile(secret));
    EXPECT_EQ(plain.code, expected.code) << plain.err.toStdString();
    EXPECT_EQ(locked.code, expected.code) << locked.err.toStdString();
    const auto files = treeOf(path("1"));
    ASSERT_GT(files.size(), 3);
    EXPECT_TRUE(treeOf(path("2")) == files);
    EXPECT_TRUE(treeOf(path("3")) == files);
    EXPECT_TRUE(locked.leftovers.isEmpty());
}

TEST_F(BackupDevice, AnInterruptedOneIsReadWithAWarning)
{
    device.addPhotos(3, 2000);
    device.write();
    makeBackup("partial", device.path(), {}, "uploading");
    const RunResult result = run({"info", path("partial")});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err.count('\n'), 1) << result.err.toStdString();
    EXPECT_THAT(result.err.toStdString(), HasSubstr("partial: the backup was interrupted before its end"));
}

TEST_F(BackupDevice, OneThatIsBeingWrittenIsNotReached)
{
    makeSmallBackups();
    QFile log(path("plain/Manifest.db-wal"));
    ASSERT_TRUE(log.open(QIODevice::WriteOnly) && log.write("changes") == 7 && log.flush());
    const RunResult result = run({"info", path("plain")});
    EXPECT_EQ(result.code, 3);
    EXPECT_EQ(result.err.count('\n'), 1) << result.err.toStdString();
    EXPECT_THAT(result.err.toStdString(), HasSubstr("Manifest.db-wal beside its Manifest.db; wait until"));
}

TEST_F(BackupDevice, AWrongPasswordIsSaidAtOnce)
{
    makeSmallBackups();
    for (const QByteArray &wrong : {QByteArray("incorrect horse\n"), QByteArray(), QByteArray("\ncorrect horse")}) {
        const RunResult result = run(QStringList{"info", path("locked")} + passwordFile(wrong));
        EXPECT_EQ(result.code, 3);
        EXPECT_EQ(result.out, QByteArray());
        EXPECT_EQ(result.err, "photolib: backup:" + path("locked").toUtf8() +
                                  ": the password is wrong; give the password that was set for backups of this device; "
                                  "its passcode is another thing\n");
    }
}

TEST_F(BackupDevice, WithoutATerminalThePasswordComesFromAFile)
{
    makeSmallBackups();
    const RunResult result = run({"info", path("locked")});
    EXPECT_EQ(result.code, 3);
    EXPECT_THAT(result.err.toStdString(),
                HasSubstr("is encrypted, and there is no terminal to ask for its password on; "
                          "give it with --password-file FILE"));
    const QStringList password = passwordFile(QByteArray(secret) + "\r\nsecond line");
    EXPECT_EQ(run(QStringList{"info", path("locked")} + password).code, 0);
    EXPECT_EQ(run(password + QStringList{"info", path("locked")}).code, 0);
    EXPECT_EQ(run(QStringList{"info", path("plain")} + password).code, 0);
    const RunResult none = run({"info", path("locked"), "--password-file", path("none")});
    EXPECT_EQ(none.code, 2);
    EXPECT_THAT(none.err.toStdString(), HasSubstr("the password cannot be read from \"" + path("none").toStdString() +
                                                  "\": No such file or directory; name a file"));
    EXPECT_EQ(run({"info", path("locked"), "--password-file", "/dev/zero"}).code, 2);
}

TEST_F(BackupDevice, ThePasswordMayComeThroughAPipe)
{
    makeSmallBackups();
    CommandProcess process;
    process.startCommand({"info", path("locked"), "--password-file", "-"});
    process.write(QByteArray(secret) + '\n');
    process.closeWriteChannel();
    EXPECT_EQ(process.wait().code, 0);
}

/// A terminal, seen from the side of the person.
class Terminal
{
public:
    Terminal() : master(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        if (master < 0 || ::grantpt(master) != 0 || ::unlockpt(master) != 0)
            qFatal("there are no terminals");
        slave = ::open(::ptsname(master), O_RDWR | O_NOCTTY | O_CLOEXEC);
    }
    ~Terminal()
    {
        ::close(slave);
        ::close(master);
    }
    Terminal(const Terminal &) = delete;
    Terminal &operator=(const Terminal &) = delete;

    QString name() const { return QString::fromLocal8Bit(::ptsname(master)); }
    int screen() const { return slave; }

    bool echoes() const
    {
        termios mode = {};
        ::tcgetattr(slave, &mode);
        return (mode.c_lflag & ECHO) != 0;
    }

    /// Waits until this was shown; what is shown until then.
    QByteArray waitFor(const QByteArray &text)
    {
        while (!shown.contains(text)) {
            char bytes[512];
            const ssize_t count = ::read(master, bytes, sizeof bytes);
            if (count <= 0)
                return shown;
            shown.append(bytes, static_cast<int>(count));
        }
        return shown;
    }

    void type(const QByteArray &text)
    {
        EXPECT_EQ(::write(master, text.constData(), size_t(text.size())), text.size());
    }

private:
    int master = -1;
    int slave = -1;
    QByteArray shown;
};

TEST_F(BackupDevice, OnATerminalThePasswordIsAskedForAndNotShown)
{
    makeSmallBackups();
    Terminal terminal;
    CommandProcess process;
    process.setStandardInputFile(terminal.name());
    process.setError(terminal.screen());
    process.startCommand({"info", path("locked"), "--no-progress"});
    terminal.waitFor("locked: ");
    EXPECT_FALSE(terminal.echoes());
    terminal.type(QByteArray(secret) + '\n');
    const RunResult result = process.wait();
    EXPECT_EQ(result.code, 0);
    EXPECT_THAT(result.out.toStdString(), HasSubstr("3"));
    EXPECT_TRUE(terminal.echoes());
    const QByteArray shown = terminal.waitFor("\n");
    EXPECT_EQ(shown, "Password of backup:" + path("locked").toUtf8() + ": \r\n");
}

TEST_F(BackupDevice, ASignalWhileThePasswordIsAskedForLeavesTheTerminalAsItWas)
{
    makeSmallBackups();
    Terminal terminal;
    CommandProcess process;
    process.setStandardInputFile(terminal.name());
    process.setError(terminal.screen());
    process.startCommand({"info", path("locked")});
    terminal.waitFor("locked: ");
    EXPECT_FALSE(terminal.echoes());
    process.terminate();
    EXPECT_EQ(process.wait().code, 130);
    EXPECT_TRUE(terminal.echoes());
}

TEST_F(BackupDevice, AFolderOfBackupsIsListed)
{
    makeSmallBackups();
    const RunResult result = run({"info", folder.path()});
    EXPECT_EQ(result.code, 3);
    EXPECT_EQ(result.out, QByteArray());
    const QByteArrayList lines = result.err.split('\n');
    ASSERT_EQ(lines.size(), 4) << result.err.toStdString();
    const QByteArray phone = "  (Anna's phone, iPhone10,4, iOS 16.3, 2023-04-01 18:30 UTC, ";
    EXPECT_EQ(lines[0], path("locked").toUtf8() + phone + "encrypted)");
    EXPECT_EQ(lines[1], path("plain").toUtf8() + phone + "not encrypted)");
    EXPECT_THAT(lines[2].toStdString(), HasSubstr("is a folder of backups; give one of them instead"));
}

TEST_F(BackupDevice, FilesThatTheBackupLacksFailOneByOneWithAReason)
{
    makeSmallBackups();
    const QString stored = testkit::BackupBuilder::storedName("/DCIM/100APPLE/IMG_0002.JPG");
    for (const QString &name : {QStringLiteral("plain"), QStringLiteral("locked")}) {
        ASSERT_TRUE(QFile::remove(path(name + QChar('/') + stored)));
        const RunResult result =
            run(QStringList{"export", path(name), path(name + ".export"), "--layout", "dcim"} + passwordFile(secret));
        EXPECT_EQ(result.code, 1);
        EXPECT_EQ(result.err.count("the backup is incomplete: its file " + stored.toUtf8() + " is missing; make a new"),
                  1)
            << result.err.toStdString();
        EXPECT_EQ(result.err.count("photolib: this is a backup; it does not hold most thumbnails"), 1);
        EXPECT_EQ(treeOf(path(name + ".export")).size(), 2);
    }
}

TEST_F(BackupDevice, ThumbnailsThatTheBackupLacksAreExplainedOnce)
{
    makeSmallBackups();
    const RunResult thumbnail = run({"thumbnail", path("plain"), "1", "-o", path("1.jpg")});
    EXPECT_EQ(thumbnail.code, 1);
    EXPECT_THAT(thumbnail.err.toStdString(), HasSubstr("this is a backup; it does not hold most thumbnails"));
    const RunResult sheet = run({"contact-sheet", path("plain"), "-o", path("sheet.html")});
    EXPECT_EQ(sheet.code, 1);
    EXPECT_EQ(sheet.err.count("this is a backup"), 1) << sheet.err.toStdString();
    const RunResult folder = run({"thumbnail", device.path(), "1", "-o", path("1.jpg")});
    EXPECT_THAT(folder.err.toStdString(), Not(HasSubstr("this is a backup")));
}

TEST_F(BackupDevice, ABackupWithoutALibraryIsALibraryThatCannotBeRead)
{
    QDir().mkpath(path("phone/DCIM"));
    makeBackup("plain", path("phone"));
    const RunResult result = run({"info", path("plain")});
    EXPECT_EQ(result.code, 4);
    EXPECT_THAT(result.err.toStdString(),
                HasSubstr("/PhotoData/Photos.sqlite on the device cannot be opened: the backup holds no such file"));
}

TEST_F(BackupDevice, ADamagedManifestIsADeviceThatCannotBeReached)
{
    makeSmallBackups();
    for (const char *name : {"plain", "locked"}) {
        QFile manifest(path(QLatin1String(name)) + "/Manifest.db");
        ASSERT_TRUE(manifest.resize(manifest.size() / 2 / 4096 * 4096));
        const RunResult result = run(QStringList{"info", path(QLatin1String(name))} + passwordFile(secret));
        EXPECT_EQ(result.code, 3);
        EXPECT_THAT(result.err.toStdString(), HasSubstr("the backup's Manifest.db is damaged ("));
        EXPECT_THAT(result.err.toStdString(), HasSubstr("; make a new backup of the device, or copy the backup again"));
    }
}

TEST_F(BackupDevice, NothingIsWrittenIntoTheBackup)
{
    makeSmallBackups();
    const auto before = treeOf(path("locked"));
    EXPECT_EQ(run(QStringList{"export", path("locked"), path("out")} + passwordFile(secret)).code, 0);
    const RunResult inside = run(QStringList{"export", path("locked"), path("locked/out")} + passwordFile(secret));
    EXPECT_EQ(inside.code, 2);
    EXPECT_TRUE(treeOf(path("locked")) == before);
}

} // namespace

} // namespace clitest
