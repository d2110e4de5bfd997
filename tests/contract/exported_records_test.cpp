#include "contract_host.h"
#include "exported_record.h"
#include "loaded_library.h"

#include "photolib/album_item.h"
#include "photolib/photo_item.h"

#include <gtest/gtest.h>

TEST(ExportedRecords, AlbumItemHasItsDefaultsAndUnequalCopies)
{
    ContractHost host;
    LoadedLibrary library;
    const ExportedMembers<albumItem> members(library, "9albumItem");
    Exported<albumItem> target(members);
    EXPECT_EQ(target->id, 0);
    EXPECT_EQ(target->entity, 19);
    EXPECT_EQ(target->kind, 1550);
    EXPECT_EQ(target->albumType, 2);
    EXPECT_TRUE(target->title.isNull());
    EXPECT_TRUE(target->photoIds.isEmpty());

    Exported<albumItem> source(members);
    source->kind = 2;
    source->albumType = 1;
    source->entity = 30;
    source->title = QStringLiteral("Trip");
    EXPECT_EQ(&members.assign(target.get(), source.get()), target.get());
    EXPECT_EQ(target->title, QStringLiteral("Trip"));
    EXPECT_EQ(target->albumType, 1);
    EXPECT_EQ(target->kind, 1550);
    EXPECT_EQ(target->entity, 19);

    Exported<albumItem> copy(members, source);
    EXPECT_EQ(copy->kind, 2);
    EXPECT_EQ(copy->entity, 30);
}

TEST(ExportedRecords, PhotoItemHasItsDefaultsAndUnequalCopies)
{
    ContractHost host;
    LoadedLibrary library;
    const ExportedMembers<photoItem> members(library, "9photoItem");
    Exported<photoItem> target(members);
    EXPECT_EQ(target->entity, 27);
    EXPECT_EQ(target->mediaType, 3);
    EXPECT_EQ(target->thumbnailIndex, -1);
    EXPECT_EQ(target->localResourcesState, 32);
    EXPECT_FALSE(target->uniformTypeIdentifier.isNull());

    Exported<photoItem> source(members);
    source->entity = 30;
    source->importSession = 7;
    members.assign(target.get(), source.get());
    EXPECT_EQ(target->entity, 27);
    EXPECT_EQ(target->importSession, 7);

    Exported<photoItem> copy(members, source);
    EXPECT_EQ(copy->entity, 30);
}
