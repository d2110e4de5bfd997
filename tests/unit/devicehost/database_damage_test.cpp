// Errors inside the statements that the library steps itself, as SQLite's error log tells them.

#include "sqlite_files.h"
#include "support.h"

#include "devicehost/device_host.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using devicehost::DeviceHost;

namespace
{

// Before any test uses SQLite, as main() does in an application.
const bool watched = devicehost::watchDatabaseErrors();

class DatabaseDamage : public testing::Test
{
protected:
    static void makeDamaged(const QString &path)
    {
        makeRows(path, 1000);
        QByteArray content = contentOf(path);
        for (int page = 20; page < 40; ++page)
            content.replace(page * 4096, 4096, QByteArray(4096, '\xff'));
        writeFile(path, content);
    }

    DeviceHost host{QStringLiteral("folder:/")};
    QString path = host.localDataFolder() + QStringLiteral("Photos.sqlite");
};

TEST_F(DatabaseDamage, IsSeenWhileStatementsAreStepped)
{
    ASSERT_TRUE(watched);
    makeDamaged(path);
    const Connection db = openThroughHost(path);
    ASSERT_NE(db, nullptr);
    EXPECT_TRUE(host.databaseDamage().isEmpty());
    EXPECT_EQ(rowCount(db, "SELECT * FROM rows"), -1);
    EXPECT_EQ(host.databaseDamage(), QStringLiteral("database disk image is malformed"));
    EXPECT_TRUE(host.failure().isEmpty());
}

TEST_F(DatabaseDamage, AHealthyDatabaseHasNone)
{
    makeRows(path, 1000);
    const Connection db = openThroughHost(path);
    EXPECT_EQ(rowCount(db, "SELECT * FROM rows"), 1000);
    EXPECT_EQ(rowCount(db, "SELECT \"0\" FROM rows"), 1000); // SQLite warns of the quotes
    EXPECT_EQ(rowCount(db, "SELECT * FROM nothing"), -1);
    EXPECT_EQ(rowCount(db, "no statement"), -1);
    EXPECT_TRUE(host.databaseDamage().isEmpty());
}

TEST_F(DatabaseDamage, AnInterruptionIsNone)
{
    makeRows(path, 1000);
    const Connection db = openThroughHost(path);
    host.requestStop();
    EXPECT_EQ(rowCount(db, "SELECT a.id FROM rows a, rows b"), -1);
    EXPECT_TRUE(host.databaseDamage().isEmpty());
}

TEST_F(DatabaseDamage, OfTheApplicationsOwnDatabasesIsNotTheDevices)
{
    QTemporaryDir folder;
    const QString own = folder.filePath(QStringLiteral("own"));
    makeDamaged(own);
    makeRows(path, 10);
    EXPECT_EQ(rowCount(openThroughHost(path), "SELECT * FROM rows"), 10); // opened, read and closed
    EXPECT_EQ(rowCount(makeDatabase(own, "SELECT 1"), "SELECT * FROM rows"), -1);
    EXPECT_TRUE(host.databaseDamage().isEmpty());
}

TEST_F(DatabaseDamage, BelongsToTheHostThatReads)
{
    DeviceHost other{QStringLiteral("folder:/")};
    const QString otherPath = other.localDataFolder() + QStringLiteral("Photos.sqlite");
    makeRows(path, 10);
    makeDamaged(otherPath);
    {
        const Connection db = openThroughHost(path);
        EXPECT_EQ(rowCount(db, "SELECT * FROM rows"), 10);
    }
    const Connection db = openThroughHost(otherPath);
    EXPECT_EQ(rowCount(db, "SELECT * FROM rows"), -1);
    EXPECT_TRUE(host.databaseDamage().isEmpty());
    EXPECT_FALSE(other.databaseDamage().isEmpty());
}

TEST_F(DatabaseDamage, CanBeWatchedBeforeAnythingUsesSqliteOnly)
{
    makeRows(path, 1);
    EXPECT_FALSE(devicehost::watchDatabaseErrors());
}

} // namespace
