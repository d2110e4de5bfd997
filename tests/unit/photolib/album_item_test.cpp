#include "photolib/album_item.h"
#include "testing/qt_printers.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <new>
#include <type_traits>

namespace
{

albumItem sharedAlbum()
{
    albumItem album;
    album.id = 7;
    album.entity = 30;
    album.kind = 2;
    album.trashedState = 1;
    album.uuid = "AB-12";
    album.title = "Trip";
    album.albumType = 1;
    album.photoIds = {5, 3, 9};
    return album;
}

/// A record made in memory that was filled with one byte value before.
class AlbumOnFilledMemory
{
public:
    explicit AlbumOnFilledMemory(unsigned char fill)
    {
        volatile unsigned char *bytes = storage; // volatile: the filling must not be optimised away
        for (std::size_t i = 0; i < sizeof storage; ++i)
            bytes[i] = fill;
        album = new (storage) albumItem;
    }
    AlbumOnFilledMemory(const AlbumOnFilledMemory &) = delete;
    AlbumOnFilledMemory &operator=(const AlbumOnFilledMemory &) = delete;
    ~AlbumOnFilledMemory() { album->~albumItem(); }

    std::array<unsigned char, sizeof(qint32)> trashedStateBytes() const
    {
        std::array<unsigned char, sizeof(qint32)> bytes;
        std::memcpy(bytes.data(), storage + offsetof(albumItem, trashedState), bytes.size());
        return bytes;
    }

private:
    alignas(albumItem) unsigned char storage[sizeof(albumItem)];
    albumItem *album;
};

} // namespace

TEST(AlbumItem, HasItsDefaults)
{
    const albumItem album;
    EXPECT_EQ(album.id, 0);
    EXPECT_EQ(album.entity, 19);
    EXPECT_EQ(album.kind, 1550);
    EXPECT_TRUE(album.uuid.isNull());
    EXPECT_TRUE(album.title.isNull());
    EXPECT_EQ(album.albumType, 2);
    EXPECT_TRUE(album.photoIds.isEmpty());
}

TEST(AlbumItem, ConstructorLeavesTrashedStateAsItFindsIt)
{
    constexpr std::array<unsigned char, 2> fills = {0x5A, 0xA5};
    for (const unsigned char fill : fills) {
        const AlbumOnFilledMemory filled(fill);
        EXPECT_EQ(filled.trashedStateBytes(), (std::array<unsigned char, 4>{fill, fill, fill, fill}));
    }
}

TEST(AlbumItem, CopyConstructorCopiesEveryField)
{
    const albumItem album = sharedAlbum();
    const albumItem copy(album);
    EXPECT_EQ(copy.id, 7);
    EXPECT_EQ(copy.entity, 30);
    EXPECT_EQ(copy.kind, 2);
    EXPECT_EQ(copy.trashedState, 1);
    EXPECT_EQ(copy.uuid, QByteArray("AB-12"));
    EXPECT_EQ(copy.title, QString("Trip"));
    EXPECT_EQ(copy.albumType, 1);
    EXPECT_EQ(copy.photoIds, (QList<qint64>{5, 3, 9}));
}

TEST(AlbumItem, AssignmentCopiesAllButEntityKindAndTrashedState)
{
    albumItem target;
    target.trashedState = 77;
    const albumItem source = sharedAlbum();
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.id, 7);
    EXPECT_EQ(target.uuid, QByteArray("AB-12"));
    EXPECT_EQ(target.title, QString("Trip"));
    EXPECT_EQ(target.albumType, 1);
    EXPECT_EQ(target.photoIds, (QList<qint64>{5, 3, 9}));

    EXPECT_EQ(target.entity, 19);
    EXPECT_EQ(target.kind, 1550);
    EXPECT_EQ(target.trashedState, 77);
}

TEST(AlbumItem, SelfAssignmentChangesNothing)
{
    albumItem album = sharedAlbum();
    const albumItem &itself = album;
    album = itself;
    EXPECT_EQ(album.id, 7);
    EXPECT_EQ(album.entity, 30);
    EXPECT_EQ(album.kind, 2);
    EXPECT_EQ(album.trashedState, 1);
    EXPECT_EQ(album.uuid, QByteArray("AB-12"));
    EXPECT_EQ(album.title, QString("Trip"));
    EXPECT_EQ(album.albumType, 1);
    EXPECT_EQ(album.photoIds, (QList<qint64>{5, 3, 9}));
}

TEST(AlbumItem, CopiesShareTheirDataUntilOneSideWrites)
{
    const albumItem album = sharedAlbum();
    albumItem copy(album);
    albumItem assigned = sharedAlbum();
    assigned = album;
    for (const albumItem *other : {&copy, &assigned}) {
        EXPECT_TRUE(other->title.isSharedWith(album.title));
        EXPECT_TRUE(other->uuid.isSharedWith(album.uuid));
        EXPECT_TRUE(other->photoIds.isSharedWith(album.photoIds));
    }
    copy.photoIds.append(1);
    copy.title.append("!");
    EXPECT_EQ(album.photoIds, (QList<qint64>{5, 3, 9}));
    EXPECT_EQ(album.title, QString("Trip"));
}

TEST(AlbumItem, FieldsStandInTheOrderOfTheBinaryInterface)
{
    const std::array<std::size_t, 8> offsets = {
        offsetof(albumItem, id),           offsetof(albumItem, entity),   offsetof(albumItem, kind),
        offsetof(albumItem, trashedState), offsetof(albumItem, uuid),     offsetof(albumItem, title),
        offsetof(albumItem, albumType),    offsetof(albumItem, photoIds),
    };
    for (std::size_t i = 1; i < offsets.size(); ++i)
        EXPECT_LT(offsets[i - 1], offsets[i]) << "field " << i;
    static_assert(!std::is_polymorphic_v<albumItem>, "hosts see no table of virtual functions");
}
