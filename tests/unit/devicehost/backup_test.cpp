// Backups as a device: how they are found, unlocked and read, and what damaged and hostile ones can do.

#include "support.h"

#include "devicehost/device_host.h"
#include "devicehost/open_error.h"
#include "devicehost/resolve_device.h"
#include "testing/backup_builder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

using devicehost::DeviceHost;
using devicehost::DeviceStatus;
using devicehost::ResolvedDevice;
using devicehost::resolveDevice;
using devicehost::Unlocking;
using testing::HasSubstr;
using testkit::BackupBuilder;
using testkit::BackupOptions;

namespace
{

constexpr const char *photo = "/DCIM/100APPLE/IMG_0001.JPG";
const QByteArray password = "pässword";

BackupOptions encryptedOptions()
{
    BackupOptions options;
    options.password = password;
    return options;
}

class BackupTest : public testing::Test
{
protected:
    QString path(const char *name) const { return folder.filePath(QString::fromUtf8(name)); }
    static QString nameOf(const QString &path) { return QStringLiteral("backup:") + path; }

    BackupBuilder made(const char *name, const BackupOptions &options = {}) const
    {
        BackupBuilder builder(path(name), options);
        builder.addFile("/PhotoData/Photos.sqlite", "database");
        builder.addFile(photo, content());
        builder.write();
        return builder;
    }

    static QByteArray content()
    {
        QByteArray bytes;
        for (int i = 0; i < 5001; ++i)
            bytes += static_cast<char>(i * 7 + i / 256);
        return bytes;
    }

    static Device open(const QString &path) { return Device(vDevOpen(VDevDevice, nameOf(path).toUtf8().constData())); }

    /// Why a host cannot open this device.
    static std::string failureOf(const QString &path)
    {
        DeviceHost host(nameOf(path));
        EXPECT_FALSE(host.isAvailable());
        return host.failure().toStdString();
    }

    QTemporaryDir folder;
};

TEST_F(BackupTest, AFolderWithAManifestIsFound)
{
    made("plain");
    made("locked", encryptedOptions());
    for (const char *name : {"plain", "locked"}) {
        for (const QString &argument : {path(name), nameOf(path(name)), path(name) + QLatin1Char('/')}) {
            const ResolvedDevice resolved = resolveDevice(argument);
            EXPECT_EQ(resolved.status, DeviceStatus::Found) << resolved.message.toStdString();
            EXPECT_EQ(resolved.devicePath, nameOf(path(name)));
        }
    }
}

TEST_F(BackupTest, AFolderOfBackupsIsListed)
{
    BackupOptions options = encryptedOptions();
    options.deviceName = QStringLiteral("Müllers Fön");
    options.snapshotState = "uploading";
    made("all/b", options);
    made("all/a");
    QDir().mkpath(path("all/c"));
    writeFile(path("all/d/Manifest.plist"), "damaged");
    for (const QString &argument : {path("all"), nameOf(path("all"))}) {
        const ResolvedDevice resolved = resolveDevice(argument);
        EXPECT_EQ(resolved.status, DeviceStatus::Unreachable);
        EXPECT_EQ(resolved.message,
                  path("all") + QStringLiteral(" is a folder of backups; give one of them instead, by "
                                               "the name in front of the brackets"));
        EXPECT_EQ(resolved.choices,
                  QStringList({path("all/a") + QStringLiteral("  (Anna's phone, iPhone10,4, iOS 16.3, 2023-04-01 18:30 "
                                                              "UTC, not encrypted)"),
                               path("all/b") + QStringLiteral("  (Müllers Fön, iPhone10,4, iOS 16.3, 2023-04-01 18:30 "
                                                              "UTC, encrypted, interrupted before its end)"),
                               path("all/d") + QStringLiteral("  (the backup's Manifest.plist is damaged)")}));
    }
}

TEST_F(BackupTest, WhatIsNoBackupIsSaidToBeNone)
{
    QDir().mkpath(path("empty"));
    writeFile(path("file"), "content");
    writeFile(path("old/Manifest.mbdb"), "mbdb");
    writeFile(path("partial/Manifest.plist"), "list");
    const std::vector<std::pair<QString, const char *>> cases = {
        {nameOf(path("empty")), "is no backup: there is no Manifest.db in it"},
        {nameOf(path("none")), "cannot be entered: No such file"},
        {nameOf(path("file")), "is a file, not a folder; give the folder of a backup"},
        {path("old"), "is a backup of iOS 9 or older"},
        {path("partial"), "is an incomplete backup: there is no Manifest.db in it"},
    };
    for (const auto &[argument, expected] : cases) {
        const ResolvedDevice resolved = resolveDevice(argument);
        EXPECT_EQ(resolved.status, DeviceStatus::Unreachable);
        EXPECT_THAT(resolved.message.toStdString(), HasSubstr(expected));
        EXPECT_FALSE(resolved.message.contains(QLatin1Char('\n')));
    }
    EXPECT_EQ(resolveDevice(QStringLiteral("backup:")).status, DeviceStatus::Malformed);
}

TEST_F(BackupTest, AnEncryptedOneWantsItsPassword)
{
    made("locked", encryptedOptions());
    made("plain");
    EXPECT_FALSE(DeviceHost(nameOf(path("plain"))).needsPassword());
    EXPECT_FALSE(DeviceHost(QStringLiteral("folder:") + path("plain")).needsPassword());
    DeviceHost host(nameOf(path("locked")));
    EXPECT_TRUE(host.needsPassword());
    EXPECT_EQ(open(path("locked")), nullptr);
    const devicehost::UnlockResult wrong = host.unlock("password");
    EXPECT_EQ(wrong.status, Unlocking::WrongPassword);
    EXPECT_THAT(wrong.message.toStdString(), HasSubstr("the password is wrong; give the password that was set for"));
    EXPECT_TRUE(host.needsPassword());
    EXPECT_FALSE(host.isAvailable());
    EXPECT_EQ(host.unlock(password).status, Unlocking::Unlocked);
    EXPECT_FALSE(host.needsPassword());
    EXPECT_TRUE(host.isAvailable());
    EXPECT_EQ(readFrom(open(path("locked")).get(), photo), content());
}

TEST_F(BackupTest, KeysGoWithTheHost)
{
    made("locked", encryptedOptions());
    {
        DeviceHost host(nameOf(path("locked")));
        ASSERT_EQ(host.unlock(password).status, Unlocking::Unlocked);
        ASSERT_NE(open(path("locked")), nullptr);
    }
    EXPECT_EQ(open(path("locked")), nullptr);
    EXPECT_THAT(failureOf(path("locked")), HasSubstr("the backup is encrypted and its password was not given"));
}

TEST_F(BackupTest, AnyPlaceOfAnEncryptedFileIsRead)
{
    made("locked", encryptedOptions());
    DeviceHost host(nameOf(path("locked")));
    ASSERT_EQ(host.unlock(password).status, Unlocking::Unlocked);
    const Device device = open(path("locked"));
    const File file(vFileOpen(device.get(), photo, 0));
    ASSERT_NE(file, nullptr);
    const QByteArray expected = content();
    for (const int begin : {4990, 0, 1, 15, 16, 17, 31, 32, 33, 2000, 4985, 5000, 5001}) {
        for (const int size : {1, 15, 16, 17, 100}) {
            QByteArray buffer(size, '\0');
            ASSERT_EQ(vFileSeek(file.get(), begin, 0), begin);
            const int count = vFileRead(file.get(), buffer.data(), size);
            EXPECT_EQ(buffer.left(count), expected.mid(begin, size)) << begin << ' ' << size;
        }
    }
}

TEST_F(BackupTest, AFileThatIsNotInTheBackupIsAbsent)
{
    made("plain");
    const Device device = open(path("plain"));
    for (const char *name : {"/DCIM/100APPLE/IMG_0002.JPG", "/DCIM/100apple/IMG_0001.JPG", "/DCIM/other",
                             "/Library/Preferences/a.plist"}) {
        EXPECT_EQ(vFileOpen(device.get(), name, 0), nullptr) << name;
        EXPECT_TRUE(devicehost::lastOpenError().absent) << name;
    }
}

TEST_F(BackupTest, AFileThatIsListedAndMissingIsAnIncompleteBackup)
{
    for (const bool encrypted : {false, true}) {
        BackupBuilder builder = made("b", encrypted ? encryptedOptions() : BackupOptions());
        DeviceHost host(nameOf(path("b")));
        ASSERT_EQ(host.unlock(password).status, Unlocking::Unlocked);
        const Device device = open(path("b"));
        const QString stored = path("b") + QLatin1Char('/') + BackupBuilder::storedName(photo);
        ASSERT_TRUE(QFile::resize(stored, 4000));
        EXPECT_EQ(vFileOpen(device.get(), photo, 0), nullptr);
        EXPECT_FALSE(devicehost::lastOpenError().absent);
        EXPECT_THAT(devicehost::lastOpenError().text.toStdString(), HasSubstr("the backup is incomplete: its file "));
        ASSERT_TRUE(QFile::remove(stored));
        EXPECT_EQ(vFileOpen(device.get(), photo, 0), nullptr);
        EXPECT_FALSE(devicehost::lastOpenError().absent);
        EXPECT_EQ(
            devicehost::lastOpenError().text,
            QStringLiteral("the backup is incomplete: its file %1 is missing").arg(BackupBuilder::storedName(photo)));
        EXPECT_THAT(devicehost::lastOpenError().advice.toStdString(), HasSubstr("make a new backup"));
    }
}

TEST_F(BackupTest, AFileThatIsNotAsLongAsItsRecordSaysIsNotRead)
{
    for (const bool encrypted : {false, true}) {
        BackupBuilder builder = made("b", encrypted ? encryptedOptions() : BackupOptions());
        for (const int bytes : {0, 1, 15, 16, 17, 4096})
            builder.addFile("/" + QByteArray::number(bytes), content().left(bytes));
        builder.write();
        DeviceHost host(nameOf(path("b")));
        ASSERT_EQ(host.unlock(password).status, Unlocking::Unlocked);
        const Device device = open(path("b"));
        const int unit = encrypted ? 16 : 1;
        for (const int bytes : {0, 1, 15, 16, 17, 4096}) {
            SCOPED_TRACE(bytes);
            const QByteArray name = "/" + QByteArray::number(bytes);
            const QString stored = path("b") + QLatin1Char('/') + BackupBuilder::storedName(name);
            const QByteArray before = contentOf(stored);
            EXPECT_EQ(readFrom(device.get(), name.constData()), content().left(bytes));
            writeFile(stored, before + QByteArray(unit, 'x'));
            EXPECT_EQ(vFileOpen(device.get(), name.constData(), 0), nullptr);
            EXPECT_THAT(devicehost::lastOpenError().text.toStdString(),
                        HasSubstr("holds more than the " + std::to_string(bytes) + " bytes that its Manifest.db"));
            EXPECT_THAT(devicehost::lastOpenError().advice.toStdString(), HasSubstr("make a new backup"));
            // Padding fills up to a block, or is one: a block less is too short only where it held content.
            const int less = before.size() - unit;
            if (less < 0 || (encrypted && bytes <= less))
                continue;
            writeFile(stored, before.left(less));
            EXPECT_EQ(vFileOpen(device.get(), name.constData(), 0), nullptr);
            EXPECT_THAT(devicehost::lastOpenError().text.toStdString(), HasSubstr("the backup is incomplete"));
        }
    }
}

TEST_F(BackupTest, ABackupThatIsBeingWrittenIsNotRead)
{
    for (const bool encrypted : {false, true}) {
        for (const char *name : {"b/Manifest.db-wal", "b/Manifest.db-journal"}) {
            made("b", encrypted ? encryptedOptions() : BackupOptions());
            DeviceHost host(nameOf(path("b")));
            ASSERT_EQ(host.unlock(password).status, Unlocking::Unlocked);
            ASSERT_TRUE(host.isAvailable());
            writeFile(path(name), "");
            EXPECT_TRUE(host.isAvailable()); // nothing is in it
            writeFile(path(name), "changes");
            EXPECT_FALSE(host.isAvailable());
            EXPECT_THAT(host.failure().toStdString(), HasSubstr("the backup is being written, or was not finished: "));
            EXPECT_THAT(host.failure().toStdString(), HasSubstr("; wait until the backup is finished, or make a new"));
            {
                DeviceHost later(nameOf(path("b")));
                const devicehost::UnlockResult unlocked = later.unlock(password);
                EXPECT_EQ(unlocked.status == Unlocking::Unlocked, !encrypted);
                EXPECT_EQ(unlocked.message.contains(QStringLiteral("wait until the backup is finished")), encrypted);
                EXPECT_FALSE(later.isAvailable());
            }
            ASSERT_TRUE(QFile::remove(path(name)));
            ASSERT_EQ(::symlink("../nowhere", path(name).toUtf8().constData()), 0);
            EXPECT_FALSE(host.isAvailable());
            ASSERT_TRUE(QFile::remove(path(name)));
            EXPECT_TRUE(host.isAvailable());
        }
    }
}

TEST_F(BackupTest, AnInterruptedBackupIsReadAndCalledSo)
{
    BackupOptions options;
    options.snapshotState = "uploading";
    made("partial", options);
    made("whole");
    DeviceHost whole(nameOf(path("whole")));
    DeviceHost partial(nameOf(path("partial")));
    EXPECT_EQ(partial.notice(), QString()); // nobody knows before it was opened
    EXPECT_TRUE(whole.isAvailable());
    EXPECT_TRUE(partial.isAvailable());
    EXPECT_EQ(whole.notice(), QString());
    EXPECT_THAT(partial.notice().toStdString(), HasSubstr("the backup was interrupted before its end"));
    EXPECT_THAT(partial.notice().toStdString(), HasSubstr("; make a new backup"));
}

TEST_F(BackupTest, AManifestLargerThanAnyIsRefusedWithAdvice)
{
    made("plain");
    ASSERT_TRUE(QFile::resize(path("plain/Manifest.db"), (1LL << 30) + 1)); // a hole: no room is taken
    EXPECT_THAT(failureOf(path("plain")), HasSubstr("it is larger than that of any backup; make a new backup of the"));
}

TEST_F(BackupTest, AFileThatShrinksWhileItIsReadIsAnError)
{
    made("locked", encryptedOptions());
    DeviceHost host(nameOf(path("locked")));
    ASSERT_EQ(host.unlock(password).status, Unlocking::Unlocked);
    const Device device = open(path("locked"));
    const File file(vFileOpen(device.get(), photo, 0));
    ASSERT_TRUE(QFile::resize(path("locked") + QLatin1Char('/') + BackupBuilder::storedName(photo), 4000));
    QByteArray buffer(6000, '\0');
    EXPECT_EQ(vFileRead(file.get(), buffer.data(), buffer.size()), -1);
}

TEST_F(BackupTest, LinksPipesAndFoldersAreNotOpened)
{
    BackupBuilder builder = made("plain");
    builder.addFolder("/DCIM/folder");
    builder.addLink("/DCIM/link");
    for (const char *name : {"/pipe", "/symlink", "/directory"})
        builder.addFile(name, "content");
    builder.write();
    writeFile(path("secret"), "secret");
    const auto stored = [this](const char *name) {
        return path("plain") + QLatin1Char('/') + BackupBuilder::storedName(name);
    };
    for (const char *name : {"/pipe", "/symlink", "/directory"})
        ASSERT_TRUE(QFile::remove(stored(name)));
    ASSERT_EQ(::mkfifo(stored("/pipe").toUtf8().constData(), 0600), 0);
    ASSERT_EQ(
        ::symlink(QFile::encodeName(path("plain/Manifest.plist")).constData(), stored("/symlink").toUtf8().constData()),
        0);
    ASSERT_TRUE(QDir().mkpath(stored("/directory")));
    const Device device = open(path("plain"));
    ASSERT_NE(device, nullptr);
    for (const char *name : {"/DCIM/folder", "/DCIM/link", "/pipe", "/symlink", "/directory", "/../secret",
                             "/DCIM/../DCIM/100APPLE/IMG_0001.JPG", "/DCIM/.."})
        EXPECT_EQ(vFileOpen(device.get(), name, 0), nullptr) << name;
    EXPECT_EQ(readFrom(device.get(), photo), content());
}

TEST_F(BackupTest, ALinkInsideTheBackupIsNotFollowedEither)
{
    made("plain");
    const QString stored = path("plain") + QLatin1Char('/') + BackupBuilder::storedName(photo);
    ASSERT_TRUE(QFile::rename(stored, path("plain/moved")));
    ASSERT_EQ(::symlink("../moved", stored.toUtf8().constData()), 0);
    EXPECT_EQ(vFileOpen(open(path("plain")).get(), photo, 0), nullptr);
    ASSERT_TRUE(QFile::rename(path("plain/Manifest.db"), path("plain/db")));
    ASSERT_EQ(::symlink("db", path("plain/Manifest.db").toUtf8().constData()), 0);
    EXPECT_EQ(open(path("plain")), nullptr);
}

TEST_F(BackupTest, NamesOfFilesThatAreNoHashesAreNotOpened)
{
    made("plain");
    writeFile(path("secret"), "secret");
    writeFile(path("plain/AB/AB"), "secret");
    const QByteArray file = path("plain/Manifest.db").toUtf8();
    const QByteArray upper = QByteArray("AB").repeated(20);
    for (const QByteArray &id : {QByteArray("../secret"), upper, QByteArray(), QByteArray(39, 'a'), QByteArray(41, 'a'),
                                 QByteArray(39, 'a') + '/', QByteArray(39, 'a') + '\0'}) {
        sqlite3 *db = nullptr;
        sqlite3_stmt *update = nullptr;
        ASSERT_EQ(sqlite3_open(file.constData(), &db), SQLITE_OK);
        ASSERT_EQ(sqlite3_prepare_v2(db, "UPDATE Files SET fileID = ? WHERE relativePath LIKE '%IMG_0001.JPG'", -1,
                                     &update, nullptr),
                  SQLITE_OK);
        sqlite3_bind_text(update, 1, id.constData(), id.size(), SQLITE_STATIC);
        EXPECT_EQ(sqlite3_step(update), SQLITE_DONE);
        EXPECT_EQ(sqlite3_changes(db), 1);
        sqlite3_finalize(update);
        sqlite3_close(db);
        const Device device = open(path("plain"));
        ASSERT_NE(device, nullptr);
        EXPECT_EQ(vFileOpen(device.get(), photo, 0), nullptr) << id.constData();
    }
}

/// What SQLite does to Manifest.db before it is opened.
void change(const QString &file, const char *sql)
{
    sqlite3 *db = nullptr;
    ASSERT_EQ(sqlite3_open(file.toUtf8().constData(), &db), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(db, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
    sqlite3_close(db);
}

TEST_F(BackupTest, AHostileManifestIsRefused)
{
    const char *const tricks[] = {
        "DROP TABLE Files",
        "ALTER TABLE Files RENAME TO f; CREATE VIEW Files AS SELECT rowid, * FROM f",
        "ALTER TABLE Files RENAME TO f; CREATE TABLE Files (fileID TEXT PRIMARY KEY, domain, relativePath, flags, "
        "file) "
        "WITHOUT ROWID",
        "ALTER TABLE Files RENAME TO f; CREATE TABLE Files (fileID, domain, flags, file, relativePath AS "
        "(zeroblob(1000000000)))",
    };
    for (const char *trick : tricks) {
        made("plain");
        change(path("plain/Manifest.db"), trick);
        EXPECT_THAT(failureOf(path("plain")), HasSubstr("the backup's Manifest.db is damaged (")) << trick;
        ASSERT_TRUE(QFile::remove(path("plain/Manifest.db")));
    }
}

TEST_F(BackupTest, AManifestInLogModeIsRead)
{
    made("plain");
    change(path("plain/Manifest.db"), "PRAGMA journal_mode = WAL");
    EXPECT_EQ(readFrom(open(path("plain")).get(), photo), content());
}

TEST_F(BackupTest, ADamagedManifestIsCalledSo)
{
    const BackupBuilder builder = made("plain");
    for (const int size : {0, 1, 15, 99, 100, 511, 512, 4096, builder.plainManifest().size() / 2}) {
        writeFile(path("plain/Manifest.db"), builder.plainManifest().left(size));
        EXPECT_THAT(failureOf(path("plain")), HasSubstr("the backup's Manifest.db is damaged (")) << size;
    }
    ASSERT_TRUE(QFile::remove(path("plain/Manifest.db")));
    EXPECT_THAT(failureOf(path("plain")), HasSubstr("the backup's Manifest.db cannot be read: No such file"));
}

TEST_F(BackupTest, ADamagedManifestPlistIsCalledSo)
{
    for (const bool encrypted : {false, true}) {
        made("b", encrypted ? encryptedOptions() : BackupOptions());
        const QByteArray bytes = contentOf(path("b/Manifest.plist"));
        // At every byte: PropertyListTest, KeyBagTest.
        for (int size = 0; size < bytes.size(); size += size < 50 ? 1 : 53) {
            writeFile(path("b/Manifest.plist"), bytes.left(size));
            const ResolvedDevice resolved = resolveDevice(path("b"));
            ASSERT_EQ(resolved.status, DeviceStatus::Unreachable) << size;
            ASSERT_THAT(resolved.message.toStdString(),
                        HasSubstr("the backup's Manifest.plist is damaged; make a new"));
        }
        ASSERT_TRUE(QFile::remove(path("b/Manifest.plist")));
        EXPECT_THAT(resolveDevice(path("b")).message.toStdString(),
                    HasSubstr("Manifest.plist cannot be read: No such"));
    }
}

// Its files would pass for pictures.
TEST_F(BackupTest, AnEncryptedOneThatDoesNotSaySoIsNotRead)
{
    made("b", encryptedOptions());
    writeFile(path("b/Manifest.plist"), "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict/></plist>");
    const ResolvedDevice resolved = resolveDevice(path("b"));
    EXPECT_EQ(resolved.status, DeviceStatus::Unreachable);
    EXPECT_THAT(resolved.message.toStdString(), HasSubstr("does not say whether it is encrypted"));
}

TEST_F(BackupTest, ADamagedKeyIsCalledSo)
{
    made("locked", encryptedOptions());
    const QByteArray list = contentOf(path("locked/Manifest.plist"));
    const QByteArray bag = testkit::BackupKeyBag(password, {}).bytes();
    const auto messageFor = [this](const QByteArray &changed) {
        writeFile(path("locked/Manifest.plist"), changed);
        return DeviceHost(nameOf(path("locked"))).unlock(password).message.toStdString();
    };
    ASSERT_TRUE(list.contains(bag));
    EXPECT_THAT(messageFor(QByteArray(list).replace("WPKY", "XXXX")),
                HasSubstr("key bag in the backup's Manifest.plist"));
    EXPECT_THAT(
        messageFor(QByteArray(list).replace(QByteArray("DPIC\0\0\0\4\0", 9), QByteArray("DPIC\0\0\0\4\x7f", 9))),
        HasSubstr("asks for more than 50000000 rounds"));
    const QByteArray key = testkit::BackupKeyBag::wrapped(testkit::madeUpKey("manifest"), 4);
    ASSERT_TRUE(list.contains(key));
    EXPECT_THAT(messageFor(QByteArray(list).replace(key, QByteArray(key.size(), 'x'))),
                HasSubstr("the ManifestKey in"));
    EXPECT_EQ(messageFor(list), "");
}

TEST_F(BackupTest, ABackupThatChangesIsNotMixedWithItsOldSelf)
{
    BackupBuilder builder = made("plain");
    DeviceHost host(nameOf(path("plain")));
    ASSERT_TRUE(host.isAvailable());
    builder.addFile("/new", "new");
    builder.write();
    EXPECT_FALSE(host.isAvailable());
    EXPECT_THAT(host.failure().toStdString(), HasSubstr("the backup was changed after it had been opened"));
    ASSERT_TRUE(QDir(path("plain")).removeRecursively());
    EXPECT_FALSE(host.isAvailable());
}

} // namespace
