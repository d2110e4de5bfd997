#include "apps/browser/exporting/destination_check.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <unistd.h>

namespace
{

class Destination : public testing::Test
{
protected:
    Destination()
    {
        QDir(folder.path()).mkpath(QStringLiteral("device/DCIM"));
        QDir(folder.path()).mkpath(QStringLiteral("there"));
    }

    QString path(const char *name) const { return folder.filePath(QLatin1String(name)); }
    QString problem(const QString &place) const { return browser::checkDestination(place, device()).problem; }
    QString device() const { return QStringLiteral("folder:") + path("device"); }

    QTemporaryDir folder;
};

TEST_F(Destination, MayBeThereOrNot)
{
    for (const char *name : {"there", "there/", "new", "new/with/parents"}) {
        const browser::DestinationState state = browser::checkDestination(path(name), device());
        EXPECT_TRUE(state.problem.isEmpty()) << name << state.problem.toStdString();
        EXPECT_GT(state.freeBytes, 0) << name;
    }
}

TEST_F(Destination, IsNeverOnTheDeviceOrAroundIt)
{
    for (const QString &place : {path("device"), path("device/DCIM"), path("device/new"), path("there/../device/x"),
                                 folder.path(), QStringLiteral("/")})
        EXPECT_TRUE(problem(place).contains(QStringLiteral("device"))) << place.toStdString();
}

TEST_F(Destination, IsAFolderWithItsWholeName)
{
    QFile file(path("file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(problem(path("file")).isEmpty());
    EXPECT_FALSE(problem(path("file/below")).isEmpty());
    EXPECT_FALSE(problem(QString()).isEmpty());
    EXPECT_FALSE(problem(QStringLiteral("relative/folder")).isEmpty());
}

TEST_F(Destination, CanBeWritten)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "root may write everywhere";
    ASSERT_TRUE(QFile::setPermissions(path("there"), QFile::ReadOwner | QFile::ExeOwner));
    EXPECT_FALSE(problem(path("there/new")).isEmpty());
    QFile::setPermissions(path("there"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(Destination, AskedForLastIsAnswered)
{
    browser::DestinationChecker checker(device());
    QString last;
    QObject::connect(&checker, &browser::DestinationChecker::checked,
                     [&](const browser::DestinationState &state) { last = state.path; });
    for (int i = 0; i < 100; ++i)
        checker.request(path("there") + QString::number(i));
    EXPECT_TRUE(QTest::qWaitFor([&] { return last == path("there99"); }, 30'000));
}

} // namespace
