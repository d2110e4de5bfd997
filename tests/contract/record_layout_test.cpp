#include "contract_host.h"
#include "loaded_library.h"

#include "photolib/host/vdev.h"
#include "photolib/photolib.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstring>

// Where each field of the exported records lies, in bytes. Hosts that were built earlier have these numbers in their
// machine code: whoever must change one changes the library's soname.
#if defined(__LP64__)

static_assert(offsetof(albumItem, id) == 0);
static_assert(offsetof(albumItem, entity) == 8);
static_assert(offsetof(albumItem, kind) == 12);
static_assert(offsetof(albumItem, trashedState) == 16);
static_assert(offsetof(albumItem, uuid) == 24);
static_assert(offsetof(albumItem, title) == 32);
static_assert(offsetof(albumItem, albumType) == 40);
static_assert(offsetof(albumItem, photoIds) == 48);
static_assert(sizeof(albumItem) == 56);

static_assert(offsetof(photoItem, id) == 0);
static_assert(offsetof(photoItem, entity) == 8);
static_assert(offsetof(photoItem, uuid) == 16);
static_assert(offsetof(photoItem, fileName) == 24);
static_assert(offsetof(photoItem, mediaType) == 32);
static_assert(offsetof(photoItem, directory) == 40);
static_assert(offsetof(photoItem, metadataPath) == 48);
static_assert(offsetof(photoItem, orientation) == 56);
static_assert(offsetof(photoItem, height) == 60);
static_assert(offsetof(photoItem, width) == 64);
static_assert(offsetof(photoItem, duration) == 68);
static_assert(offsetof(photoItem, fileSize) == 72);
static_assert(offsetof(photoItem, dateCreated) == 80);
static_assert(offsetof(photoItem, modificationDate) == 88);
static_assert(offsetof(photoItem, trashedDate) == 96);
static_assert(offsetof(photoItem, trashedState) == 104);
static_assert(offsetof(photoItem, avalancheUuid) == 112);
static_assert(offsetof(photoItem, avalanchePickType) == 120);
static_assert(offsetof(photoItem, sortToken) == 128);
static_assert(offsetof(photoItem, visibilityState) == 136);
static_assert(offsetof(photoItem, faceAreaPoints) == 144);
static_assert(offsetof(photoItem, favorite) == 152);
static_assert(offsetof(photoItem, kindSubtype) == 156);
static_assert(offsetof(photoItem, latitude) == 160);
static_assert(offsetof(photoItem, longitude) == 168);
static_assert(offsetof(photoItem, duplicateAssetVisibilityState) == 176);
static_assert(offsetof(photoItem, duplicateMetadataMatchingAlbum) == 180);
static_assert(offsetof(photoItem, duplicatePerceptualMatchingAlbum) == 184);
static_assert(offsetof(photoItem, packedBadgeAttributes) == 188);
static_assert(offsetof(photoItem, depthType) == 192);
static_assert(offsetof(photoItem, moment) == 196);
static_assert(offsetof(photoItem, thumbnailIndex) == 200);
static_assert(offsetof(photoItem, uniformTypeIdentifier) == 208);
static_assert(offsetof(photoItem, localResourcesState) == 216);
static_assert(offsetof(photoItem, customRenderedValue) == 224);
static_assert(offsetof(photoItem, cameraCaptureDevice) == 232);
static_assert(offsetof(photoItem, hasAdjustments) == 236);
static_assert(offsetof(photoItem, hidden) == 240);
static_assert(offsetof(photoItem, cloudLocalState) == 244);
static_assert(offsetof(photoItem, importSession) == 248);
static_assert(sizeof(photoItem) == 256);

static_assert(offsetof(photoGroup, category) == 0);
static_assert(offsetof(photoGroup, key) == 8);
static_assert(offsetof(photoGroup, title) == 16);
static_assert(offsetof(photoGroup, coverAssetId) == 24);
static_assert(offsetof(photoGroup, favorite) == 32);
static_assert(offsetof(photoGroup, assetIds) == 40);
static_assert(sizeof(photoGroup) == 48);

#endif

static_assert(VDevLocal == 0 && VDevDevice == 2 && sizeof(VDevType) == 4);

#if defined(__LP64__)

namespace
{

constexpr unsigned char untouched = 0xA5;

/// Raw memory that the library's constructor of a record was called on.
template <std::size_t size>
struct RawRecord {
    alignas(8) std::array<unsigned char, size + 8> bytes;

    RawRecord(const LoadedLibrary &library, const char *constructor)
    {
        bytes.fill(untouched);
        reinterpret_cast<void (*)(void *)>(library.symbol(constructor))(bytes.data());
    }

    template <typename Number>
    Number at(std::size_t offset) const
    {
        Number number;
        std::memcpy(&number, bytes.data() + offset, sizeof number);
        return number;
    }

    bool endsAtItsSize() const { return at<quint64>(size) == 0xA5A5A5A5A5A5A5A5; }
};

} // namespace

TEST(RecordLayout, TheBuiltLibraryPutsAlbumDefaultsWhereHostsLookForThem)
{
    ContractHost host;
    LoadedLibrary library;
    const RawRecord<56> album(library, "_ZN9albumItemC1Ev");
    EXPECT_EQ(album.at<qint64>(0), 0);            // id
    EXPECT_EQ(album.at<qint32>(8), 19);           // entity
    EXPECT_EQ(album.at<qint32>(12), 1550);        // kind
    EXPECT_EQ(album.at<quint32>(16), 0xA5A5A5A5); // trashedState
    EXPECT_EQ(album.at<qint32>(40), 2);           // albumType
    EXPECT_TRUE(album.endsAtItsSize());
}

TEST(RecordLayout, TheBuiltLibraryPutsPhotoDefaultsWhereHostsLookForThem)
{
    ContractHost host;
    LoadedLibrary library;
    const RawRecord<256> photo(library, "_ZN9photoItemC1Ev");
    EXPECT_EQ(photo.at<qint64>(0), 0);        // id
    EXPECT_EQ(photo.at<qint32>(8), 27);       // entity
    EXPECT_EQ(photo.at<qint32>(32), 3);       // mediaType
    EXPECT_EQ(photo.at<qint64>(72), 0);       // fileSize
    EXPECT_EQ(photo.at<double>(160), -180.0); // latitude
    EXPECT_EQ(photo.at<double>(168), -180.0); // longitude
    EXPECT_EQ(photo.at<qint32>(200), -1);     // thumbnailIndex
    EXPECT_EQ(photo.at<qint64>(216), 32);     // localResourcesState
    EXPECT_EQ(photo.at<qint32>(248), 0);      // importSession
    EXPECT_TRUE(photo.endsAtItsSize());
}

#endif
