#include "support.h"

#include "devicehost/resolve_device.h"

#include <QDir>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using devicehost::DeviceStatus;
using devicehost::ResolvedDevice;
using devicehost::resolveDevice;
using testing::HasSubstr;

namespace
{

class ResolveDevice : public testing::Test
{
protected:
    QString path(const char *name) const { return folder.path() + QLatin1Char('/') + QString::fromUtf8(name); }

    static std::string message(const ResolvedDevice &resolved)
    {
        EXPECT_NE(resolved.status, DeviceStatus::Found);
        EXPECT_TRUE(resolved.devicePath.isEmpty());
        EXPECT_FALSE(resolved.message.contains(QLatin1Char('\n')));
        EXPECT_FALSE(resolved.message.endsWith(QLatin1Char('.')));
        return resolved.message.toStdString();
    }

    void addLibrary(const char *name) const
    {
        writeFile(path(name) + QStringLiteral("/PhotoData/Photos.sqlite"), "database");
    }

    QTemporaryDir folder;
};

TEST_F(ResolveDevice, AFolderWithADatabaseIsFound)
{
    addLibrary("phone");
    for (const QString &argument : {path("phone"), path("phone/"), path("./phone"), path("phone//"),
                                    QStringLiteral("folder:") + path("phone"), path("x/../phone")}) {
        QDir().mkpath(path("x"));
        const ResolvedDevice resolved = resolveDevice(argument);
        EXPECT_EQ(resolved.status, DeviceStatus::Found) << argument.toStdString();
        EXPECT_EQ(resolved.devicePath, QStringLiteral("folder:") + path("phone")) << argument.toStdString();
        EXPECT_TRUE(resolved.message.isEmpty());
    }
}

TEST_F(ResolveDevice, WhatIsFoundCanBeOpened)
{
    writeFile(path("Müller's phone: 写真/PhotoData/Photos.sqlite"), "database");
    const ResolvedDevice resolved = resolveDevice(path("Müller's phone: 写真"));
    ASSERT_EQ(resolved.status, DeviceStatus::Found);
    const Device device(vDevOpen(VDevDevice, resolved.devicePath.toUtf8().constData()));
    EXPECT_EQ(readFrom(device.get(), "/PhotoData/Photos.sqlite"), "database");
}

TEST_F(ResolveDevice, RelativePathsBecomeAbsolute)
{
    addLibrary("phone");
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    EXPECT_EQ(resolveDevice(QStringLiteral("phone")).devicePath, QStringLiteral("folder:") + path("phone"));
    EXPECT_EQ(resolveDevice(QStringLiteral("folder:phone")).devicePath, QStringLiteral("folder:") + path("phone"));
    ASSERT_TRUE(QDir::setCurrent(path("phone")));
    EXPECT_EQ(resolveDevice(QStringLiteral(".")).devicePath, QStringLiteral("folder:") + path("phone"));
    QDir::setCurrent(QStringLiteral("/"));
}

TEST_F(ResolveDevice, NamesThatMeanSomethingElseInsideProgramsAreFolders)
{
    addLibrary(":phone");
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    EXPECT_EQ(resolveDevice(QStringLiteral(":phone")).devicePath, QStringLiteral("folder:") + path(":phone"));
    QDir::setCurrent(QStringLiteral("/"));
}

TEST_F(ResolveDevice, AMissingFolderIsUnreachable)
{
    const ResolvedDevice resolved = resolveDevice(path("none"));
    EXPECT_EQ(resolved.status, DeviceStatus::Unreachable);
    EXPECT_THAT(message(resolved), HasSubstr("there is no folder " + path("none").toStdString()));
}

TEST_F(ResolveDevice, AFileIsNoDevice)
{
    writeFile(path("file"), "content");
    const ResolvedDevice resolved = resolveDevice(path("file"));
    EXPECT_EQ(resolved.status, DeviceStatus::Unreachable);
    EXPECT_THAT(message(resolved), HasSubstr(path("file").toStdString() + " is a file, not a folder; give the"));
    EXPECT_EQ(resolveDevice(path("file/below")).status, DeviceStatus::Unreachable);
}

TEST_F(ResolveDevice, AFolderWithoutADatabaseHoldsNoLibrary)
{
    QDir().mkpath(path("empty"));
    const ResolvedDevice resolved = resolveDevice(path("empty"));
    EXPECT_EQ(resolved.status, DeviceStatus::NoLibrary);
    EXPECT_EQ(message(resolved), path("empty").toStdString() +
                                     " holds no photo library: there is no PhotoData/Photos.sqlite in it; give the "
                                     "device's media root, the folder that holds DCIM and PhotoData");
}

TEST_F(ResolveDevice, TheFolderToGiveIsNamed)
{
    addLibrary("phone");
    const std::string advice = "give the device's media root, here " + path("phone").toStdString();
    const ResolvedDevice inner = resolveDevice(path("phone/PhotoData"));
    EXPECT_EQ(inner.status, DeviceStatus::NoLibrary);
    EXPECT_THAT(message(inner), HasSubstr(advice));
    const ResolvedDevice file = resolveDevice(path("phone/PhotoData/Photos.sqlite"));
    EXPECT_EQ(file.status, DeviceStatus::NoLibrary);
    EXPECT_EQ(message(file), path("phone/PhotoData/Photos.sqlite").toStdString() +
                                 " is the photo database itself, not a folder; " + advice);
}

TEST_F(ResolveDevice, ADatabaseMustBeAFile)
{
    QDir().mkpath(path("a/PhotoData/Photos.sqlite"));
    QDir().mkpath(path("b/PhotoData"));
    ASSERT_EQ(::mkfifo(path("b/PhotoData/Photos.sqlite").toUtf8().constData(), 0600), 0);
    QDir().mkpath(path("c/PhotoData"));
    ASSERT_EQ(::symlink("Photos.sqlite", path("c/PhotoData/Photos.sqlite").toUtf8().constData()), 0);
    for (const char *name : {"a", "b", "c"}) {
        const ResolvedDevice resolved = resolveDevice(path(name));
        EXPECT_EQ(resolved.status, DeviceStatus::NoLibrary) << name;
        EXPECT_THAT(message(resolved), HasSubstr("PhotoData/Photos.sqlite cannot be used: ")) << name;
    }
}

TEST_F(ResolveDevice, ADatabaseOutsideTheDeviceIsNotFollowed)
{
    writeFile(path("elsewhere/Photos.sqlite"), "database");
    QDir().mkpath(path("folder"));
    ASSERT_EQ(::symlink("../elsewhere", path("folder/PhotoData").toUtf8().constData()), 0);
    QDir().mkpath(path("file/PhotoData"));
    const QByteArray absolute = path("elsewhere/Photos.sqlite").toUtf8();
    ASSERT_EQ(::symlink(absolute.constData(), path("file/PhotoData/Photos.sqlite").toUtf8().constData()), 0);
    const auto expected = [this](const char *phone, const char *link) {
        return path(phone).toStdString() + " holds no photo library: " + path(phone).toStdString() + link +
               " is a link that leads out of the folder and is not followed; a copy of the device must hold the files "
               "themselves";
    };
    EXPECT_EQ(resolveDevice(path("folder")).status, DeviceStatus::NoLibrary);
    EXPECT_EQ(message(resolveDevice(path("folder"))), expected("folder", "/PhotoData"));
    EXPECT_EQ(resolveDevice(path("file")).status, DeviceStatus::NoLibrary);
    EXPECT_EQ(message(resolveDevice(path("file"))), expected("file", "/PhotoData/Photos.sqlite"));
}

TEST_F(ResolveDevice, ALinkInsideTheDeviceIsFollowed)
{
    writeFile(path("phone/kept/Photos.sqlite"), "database");
    QDir().mkpath(path("phone/PhotoData"));
    ASSERT_EQ(::symlink("../kept/Photos.sqlite", path("phone/PhotoData/Photos.sqlite").toUtf8().constData()), 0);
    EXPECT_EQ(resolveDevice(path("phone")).status, DeviceStatus::Found);
}

TEST_F(ResolveDevice, AnAbsoluteLinkStartsAtTheDevicesRoot)
{
    writeFile(path("phone/kept/Photos.sqlite"), "database");
    QDir().mkpath(path("phone/PhotoData"));
    const QByteArray link = path("phone/PhotoData/Photos.sqlite").toUtf8();
    ASSERT_EQ(::symlink(path("phone/kept/Photos.sqlite").toUtf8().constData(), link.constData()), 0);
    EXPECT_EQ(message(resolveDevice(path("phone"))),
              path("phone").toStdString() + " holds no photo library: " + link.toStdString() +
                  " is a link that cannot be followed within the folder; a copy of the device must hold the files "
                  "themselves");
}

TEST_F(ResolveDevice, ALinkThatLeadsToAFolderWithoutADatabaseIsNotBlamed)
{
    QDir().mkpath(path("phone/Kept"));
    ASSERT_EQ(::symlink("Kept", path("phone/PhotoData").toUtf8().constData()), 0);
    EXPECT_THAT(message(resolveDevice(path("phone"))), HasSubstr("there is no PhotoData/Photos.sqlite in it; give"));
}

TEST_F(ResolveDevice, ALinkToNothingIsCalledSo)
{
    QDir().mkpath(path("phone/PhotoData"));
    ASSERT_EQ(::symlink("gone", path("phone/PhotoData/Photos.sqlite").toUtf8().constData()), 0);
    const ResolvedDevice resolved = resolveDevice(path("phone"));
    EXPECT_EQ(resolved.status, DeviceStatus::NoLibrary);
    EXPECT_EQ(message(resolved), path("phone").toStdString() +
                                     " holds no photo library: " + path("phone/PhotoData/Photos.sqlite").toStdString() +
                                     " is a link to nothing; a copy of the device must hold the files themselves");
}

TEST_F(ResolveDevice, AFolderWhoseNameLooksLikeASchemeIsAFolder)
{
    addLibrary("a:b");
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    EXPECT_EQ(resolveDevice(QStringLiteral("a:b")).devicePath, QStringLiteral("folder:") + path("a:b"));
    QDir().mkpath(path("a:empty"));
    EXPECT_EQ(resolveDevice(QStringLiteral("a:empty")).status, DeviceStatus::NoLibrary);
    QDir::setCurrent(QStringLiteral("/"));
}

TEST_F(ResolveDevice, ANameThatIsNotUtf8IsCalledSo)
{
    const QByteArray name = folder.path().toUtf8() + "/M\xFCller";
    ASSERT_EQ(::mkdir(name.constData(), 0700), 0);
    const ResolvedDevice resolved = resolveDevice(QString::fromUtf8(name));
    EXPECT_EQ(resolved.status, DeviceStatus::Unreachable);
    EXPECT_EQ(message(resolved), path("M\xEF\xBF\xBDller").toStdString() +
                                     " cannot be found: the name is not UTF-8; mount or link it under another name");
    addLibrary("M\xEF\xBF\xBDller"); // a name like any other
    EXPECT_EQ(resolveDevice(QString::fromUtf8(name)).status, DeviceStatus::Found);
}

TEST_F(ResolveDevice, MissingPermissionsAreNamed)
{
    addLibrary("phone");
    const QByteArray root = folder.path().toUtf8();
    ASSERT_EQ(::chmod(root.constData(), 0755), 0);
    const auto ask = [this] {
        const ResolvedDevice resolved = resolveDevice(path("phone"));
        return (resolved.status == DeviceStatus::Unreachable ? QStringLiteral("unreachable: ")
                                                             : QStringLiteral("no library: ")) +
               resolved.message;
    };
    const QByteArray phone = path("phone").toUtf8();
    const QByteArray database = phone + "/PhotoData/Photos.sqlite";
    ASSERT_EQ(::chmod(phone.constData(), 0), 0);
    EXPECT_THAT(inUnprivilegedChild(ask).toStdString(),
                HasSubstr("unreachable: " + phone.toStdString() + " cannot be entered: Permission denied; "));
    ASSERT_EQ(::chmod(phone.constData(), 0755), 0);
    ASSERT_EQ(::chmod((phone + "/PhotoData").constData(), 0), 0);
    EXPECT_THAT(inUnprivilegedChild(ask).toStdString(),
                HasSubstr("unreachable: " + database.toStdString() + " cannot be opened: Permission denied; "));
    ASSERT_EQ(::chmod((phone + "/PhotoData").constData(), 0755), 0);
    ASSERT_EQ(::chmod(database.constData(), 0), 0);
    EXPECT_THAT(inUnprivilegedChild(ask).toStdString(),
                HasSubstr("no library: " + database.toStdString() + " cannot be opened: Permission denied; "));
}

TEST_F(ResolveDevice, UnknownKindsAreNamed)
{
    const ResolvedDevice resolved = resolveDevice(QStringLiteral("ftp:/x"));
    EXPECT_EQ(resolved.status, DeviceStatus::Unreachable);
    EXPECT_THAT(message(resolved), HasSubstr("there is no kind of device named \"ftp\""));
}

TEST_F(ResolveDevice, NothingIsNoDevice)
{
    for (const char *argument : {"", "folder:"}) {
        const ResolvedDevice resolved = resolveDevice(QString::fromUtf8(argument));
        EXPECT_EQ(resolved.status, DeviceStatus::Malformed);
        EXPECT_EQ(message(resolved), "no device folder is named; give the device's media root, the folder that holds "
                                     "DCIM and PhotoData");
    }
}

} // namespace
