// Two names for one device.

#include "apps/browser/library/device_identity.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace
{

using browser::deviceIdentity;

class DeviceIdentity : public testing::Test
{
protected:
    QString made(const QString &name) const
    {
        QDir(place.path()).mkpath(name);
        return QStringLiteral("folder:") + place.filePath(name);
    }

    QTemporaryDir place;
};

TEST_F(DeviceIdentity, IsTheSameForAFolderByWhateverWayItIsReached)
{
    const QString phone = made(QStringLiteral("phone"));
    QFile::link(place.filePath(QStringLiteral("phone")), place.filePath(QStringLiteral("link")));
    EXPECT_EQ(deviceIdentity(QStringLiteral("folder:") + place.filePath(QStringLiteral("link"))),
              deviceIdentity(phone));
    EXPECT_EQ(deviceIdentity(phone + QStringLiteral("/.")), deviceIdentity(phone));
    EXPECT_NE(deviceIdentity(made(QStringLiteral("other"))), deviceIdentity(phone));
}

TEST_F(DeviceIdentity, IsTheSameForAPhoneOnTheCableAndWhereTheDesktopHasMountedIt)
{
    const QString mount = made(QStringLiteral("gvfs/afc:host=00001111-000A2222333344EE"));
    EXPECT_EQ(deviceIdentity(mount), deviceIdentity(QStringLiteral("afc:00001111-000A2222333344EE")));
    EXPECT_NE(deviceIdentity(mount), deviceIdentity(QStringLiteral("afc:00001111-000A2222333344EF")));
}

TEST_F(DeviceIdentity, OfTheFilesOfAProgramOnThePhoneIsTheirOwn)
{
    const QString programs = made(QStringLiteral("gvfs/afc:host=00001111,port=3"));
    EXPECT_NE(deviceIdentity(programs), deviceIdentity(QStringLiteral("afc:00001111")));
}

TEST_F(DeviceIdentity, OfWhatIsGoneIsItsName)
{
    EXPECT_EQ(deviceIdentity(QStringLiteral("folder:/nowhere/at all")), QStringLiteral("folder:/nowhere/at all"));
}

} // namespace
