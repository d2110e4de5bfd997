#include "photolib/photo_item.h"

#include "testing/qt_printers.h"
#include "tests/unit/photolib/photo_item_fields.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace
{

bool isEntity(const PhotoField &field)
{
    return std::string(field.name) == "entity";
}

photoItem changedIn(const PhotoField &field)
{
    photoItem photo;
    field.change(photo);
    return photo;
}

photoItem changedInEveryField()
{
    photoItem photo;
    for (const PhotoField &field : photoFields())
        field.change(photo);
    return photo;
}

} // namespace

TEST(PhotoItem, EveryFieldHasItsDefault)
{
    const photoItem photo;
    for (const PhotoField &field : photoFields())
        EXPECT_TRUE(field.hasDefault(photo)) << field.name;
}

TEST(PhotoItem, CopyConstructorCopiesEveryField)
{
    for (const PhotoField &field : photoFields()) {
        const photoItem photo = changedIn(field);
        const photoItem copy(photo);
        EXPECT_FALSE(field.hasDefault(copy)) << field.name;
        EXPECT_TRUE(field.isSame(copy, photo)) << field.name;
    }
}

TEST(PhotoItem, AssignmentCopiesEveryFieldButTheEntity)
{
    for (const PhotoField &field : photoFields()) {
        const photoItem source = changedIn(field);
        photoItem target;
        EXPECT_EQ(&(target = source), &target);
        EXPECT_EQ(field.isSame(target, source), !isEntity(field)) << field.name;
        EXPECT_EQ(field.hasDefault(target), isEntity(field)) << field.name;
    }
}

TEST(PhotoItem, AssignmentReplacesOldValuesByDefaultsToo)
{
    photoItem target = changedInEveryField();
    target = photoItem();
    for (const PhotoField &field : photoFields())
        EXPECT_EQ(field.hasDefault(target), !isEntity(field)) << field.name;
}

TEST(PhotoItem, AssignmentMixesNoFieldsUp)
{
    for (const PhotoField &field : photoFields()) {
        photoItem target;
        target = changedIn(field);
        for (const PhotoField &other : photoFields()) {
            if (other.offset == field.offset)
                continue;
            EXPECT_TRUE(other.hasDefault(target)) << field.name << " changed " << other.name;
        }
    }
}

TEST(PhotoItem, SelfAssignmentChangesNothing)
{
    photoItem photo = changedInEveryField();
    const photoItem &itself = photo;
    photo = itself;
    for (const PhotoField &field : photoFields())
        EXPECT_TRUE(field.isSame(photo, changedInEveryField())) << field.name;
}

TEST(PhotoItem, FieldsStandInTheOrderOfTheBinaryInterface)
{
    const std::vector<PhotoField> &fields = photoFields();
    EXPECT_EQ(fields.size(), 40U);
    EXPECT_EQ(fields.front().offset, 0U);
    for (std::size_t i = 1; i < fields.size(); ++i)
        EXPECT_LT(fields[i - 1].offset, fields[i].offset) << fields[i].name;
    static_assert(!std::is_polymorphic_v<photoItem>, "hosts see no table of virtual functions");
}

TEST(PhotoItem, DefaultTypeIdentifierIsEmptyButNotNull)
{
    const photoItem photo;
    EXPECT_FALSE(photo.uniformTypeIdentifier.isNull());
    EXPECT_TRUE(photo.uniformTypeIdentifier.isEmpty());
    EXPECT_TRUE(photo.fileName.isNull());
}

TEST(PhotoItem, CopiesShareTheirDataUntilOneSideWrites)
{
    const photoItem photo = changedInEveryField();
    photoItem copy(photo);
    photoItem assigned;
    assigned = photo;
    for (const photoItem *other : {&copy, &assigned}) {
        EXPECT_TRUE(other->uuid.isSharedWith(photo.uuid));
        EXPECT_TRUE(other->fileName.isSharedWith(photo.fileName));
        EXPECT_TRUE(other->directory.isSharedWith(photo.directory));
        EXPECT_TRUE(other->metadataPath.isSharedWith(photo.metadataPath));
        EXPECT_TRUE(other->avalancheUuid.isSharedWith(photo.avalancheUuid));
        EXPECT_TRUE(other->uniformTypeIdentifier.isSharedWith(photo.uniformTypeIdentifier));
    }
    copy.fileName.append("!");
    EXPECT_EQ(photo.fileName, QString("IMG_0001.JPG"));
}
