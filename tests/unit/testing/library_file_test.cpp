#include "testing/library_builder.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace testkit
{

namespace
{

class LibraryFile : public testing::Test
{
protected:
    QString path(const char *name = "Photos.sqlite") const { return folder.filePath(QLatin1String(name)); }

    static qint64 count(SqlConnection &database, const char *table)
    {
        const auto rows = database.rows(QStringLiteral("select count(*) from ") + QLatin1String(table));
        return std::get<qint64>(rows.front().front().storage());
    }

    // The same database without the files beside it.
    QString mainFileOnly() const
    {
        QFile::copy(path(), path("alone.sqlite"));
        return path("alone.sqlite");
    }

    QTemporaryDir folder;
};

TEST_F(LibraryFile, CheckpointedLibraryIsOneFileInWalMode)
{
    LibraryBuilder builder(Era::Ios16);
    builder.addAsset();
    builder.write(path());
    EXPECT_FALSE(QFileInfo::exists(path("Photos.sqlite-wal")));
    EXPECT_FALSE(QFileInfo::exists(path("Photos.sqlite-shm")));
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray header = file.read(100);
    EXPECT_EQ(header.left(16), QByteArray("SQLite format 3\0", 16));
    EXPECT_EQ(header.mid(16, 2), QByteArray("\x10\x00", 2)); // page size 4096
    EXPECT_EQ(header.mid(18, 2), QByteArray("\x02\x02"));    // WAL
    EXPECT_EQ(SqlConnection(path()).rows(QStringLiteral("pragma auto_vacuum")).front().front(), SqlValue(2));
}

TEST_F(LibraryFile, WithoutItsWalTheLibraryIsEmpty)
{
    LibraryBuilder builder(Era::Ios16);
    builder.addAsset();
    const qint64 albums = builder.addAlbum();
    builder.write(path(), WalMode::WithContent);
    ASSERT_GT(QFileInfo(path("Photos.sqlite-wal")).size(), 4096);
    EXPECT_TRUE(QFileInfo::exists(path("Photos.sqlite-shm")));

    SqlConnection alone(mainFileOnly());
    EXPECT_EQ(count(alone, "ZASSET"), 0);
    EXPECT_EQ(count(alone, "ZGENERICALBUM"), 0);
    EXPECT_EQ(count(alone, "Z_METADATA"), 1);
    EXPECT_EQ(count(alone, "Z_PRIMARYKEY where Z_MAX <> 0"), 0);
    SqlConnection whole(path());
    EXPECT_EQ(count(whole, "ZASSET"), 1);
    EXPECT_EQ(count(whole, "ZGENERICALBUM"), albums);
    EXPECT_EQ(count(whole, "Z_PRIMARYKEY where Z_MAX <> 0"), 3);
}

TEST_F(LibraryFile, RowsBeforeTheCheckpointAreInTheMainFile)
{
    LibraryBuilder builder(Era::Ios13);
    builder.addAsset();
    builder.addAsset();
    builder.checkpoint();
    builder.addAsset();
    builder.exec(QStringLiteral("delete from ZGENERICASSET where Z_PK = 1"));
    builder.write(path(), WalMode::WithContent);

    SqlConnection alone(mainFileOnly());
    EXPECT_EQ(count(alone, "ZGENERICASSET"), 2);
    SqlConnection whole(path());
    EXPECT_EQ(count(whole, "ZGENERICASSET where Z_PK in (2, 3)"), 2);
    EXPECT_EQ(count(whole, "ZGENERICASSET"), 2);
}

TEST_F(LibraryFile, BothModesAreSound)
{
    for (const WalMode mode : {WalMode::None, WalMode::WithContent}) {
        LibraryBuilder builder(Era::Ios26);
        for (int i = 0; i < 500; ++i)
            builder.addAsset();
        builder.write(path(), mode);
        SqlConnection database(path());
        EXPECT_EQ(database.rows(QStringLiteral("pragma integrity_check")).front().front(), SqlValue("ok"));
    }
}

TEST_F(LibraryFile, WritingReplacesAllFilesOfTheEarlierLibrary)
{
    LibraryBuilder first(Era::Ios16);
    first.addAsset();
    first.write(path(), WalMode::WithContent);
    LibraryBuilder second(Era::Ios13);
    second.write(path());
    EXPECT_FALSE(QFileInfo::exists(path("Photos.sqlite-wal")));
    SqlConnection database(path());
    EXPECT_EQ(count(database, "ZGENERICASSET"), 0);
}

TEST_F(LibraryFile, FolderThatDoesNotExistIsAnError)
{
    LibraryBuilder builder(Era::Ios16);
    EXPECT_THROW(builder.write(path("no/such/folder.sqlite")), LibraryError);
    builder.write(path());
    EXPECT_TRUE(QFileInfo::exists(path()));
}

TEST_F(LibraryFile, SameCallsGiveTheSameBytes)
{
    const auto build = [] {
        LibraryBuilder builder(Era::Ios17);
        for (int i = 0; i < 50; ++i)
            builder.addToAlbum(1, builder.addAsset());
        MemoryRow memory;
        memory.curatedAssets = {1, 2};
        builder.addMemory(memory);
        builder.addFace({});
        return builder.bytes();
    };
    const LibraryBytes first = build();
    EXPECT_GT(first.database.size(), 4096);
    EXPECT_TRUE(first.wal.isEmpty());
    EXPECT_TRUE(first.shm.isEmpty());
    EXPECT_TRUE(first.database == build().database);
}

TEST_F(LibraryFile, BytesHoldTheThreeFiles)
{
    LibraryBuilder builder(Era::Ios16);
    builder.addAsset();
    const LibraryBytes bytes = builder.bytes(WalMode::WithContent);
    const auto put = [&](const char *name, const QByteArray &content) {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    };
    put("Photos.sqlite", bytes.database);
    put("Photos.sqlite-wal", bytes.wal);
    put("Photos.sqlite-shm", bytes.shm);
    SqlConnection database(path());
    EXPECT_EQ(count(database, "ZASSET"), 1);
}

} // namespace

} // namespace testkit
