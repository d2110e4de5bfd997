#include "testing/patience.h"
#include "tests/unit/photolib/edited_library.h"

#include <functional>

using testkit::comesTrue;
using testkit::ends;
using testkit::isReady;

namespace
{

struct Edit {
    const char *name;
    std::function<int(photo_manager_int &)> run;
};

void PrintTo(const Edit &edit, std::ostream *out)
{
    *out << edit.name;
}

int addNewPhoto(photo_manager_int &manager)
{
    const qint64 album = 7;
    photoItem photo;
    return manager.addPhoto(&photo, &album);
}

int addPhotoToAlbum(photo_manager_int &manager)
{
    photoItem photo;
    albumItem album;
    return manager.addPhotoToAlbum(&photo, &album);
}

int createAlbum(photo_manager_int &manager)
{
    albumItem album;
    album.trashedState = 0;
    return manager.createAlbum(&album);
}

int deleteAlbum(photo_manager_int &manager)
{
    const qint64 album = 7;
    return manager.deleteAlbum(&album);
}

int updateAlbum(photo_manager_int &manager)
{
    albumItem album;
    album.id = 7;
    return manager.updateAlbum(&album);
}

int deletePhoto(photo_manager_int &manager)
{
    const qint64 photo = 1;
    return manager.deletePhoto(&photo);
}

std::string nameOf(const testing::TestParamInfo<Edit> &info)
{
    return info.param.name;
}

class EditLocks : public EditedLibrary, public testing::WithParamInterface<Edit>
{
};

class GeneratorLocks : public EditedLibrary, public testing::WithParamInterface<Edit>
{
};

class EditMutex : public EditedLibrary
{
};

/// Answers to addPhoto() as a test says, and looks around meanwhile.
class OverridingManager final : public photo_manager
{
public:
    OverridingManager() : photo_manager(nullptr) {}
    int addPhoto(photoItem *photo, const qint64 *albumId) override
    {
        locked = isHeld(PhotoManagerProbe(*this).editMutex());
        photo->id = 500;
        key = *albumId;
        return answer;
    }

    int answer = 0;
    qint64 key = -1;
    bool locked = false;
};

const Edit newAlbumEdit{"CreateAlbum", createAlbum};
const Edit newPhotoEdit{"AddPhoto", addNewPhoto};
const Edit photoToAlbumEdit{"AddPhotoToAlbum", addPhotoToAlbum};

} // namespace

INSTANTIATE_TEST_SUITE_P(Of, EditLocks,
                         testing::Values(newAlbumEdit, newPhotoEdit, photoToAlbumEdit, Edit{"DeleteAlbum", deleteAlbum},
                                         Edit{"UpdateAlbum", updateAlbum}, Edit{"DeletePhoto", deletePhoto}),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Of, GeneratorLocks, testing::Values(newAlbumEdit, newPhotoEdit, photoToAlbumEdit), nameOf);

TEST_P(EditLocks, AnEditWaitsForAnotherToEndAndLeavesTheMutexFree)
{
    probe.editMutex().lock();
    std::future<int> edit = std::async(std::launch::async, [this] { return GetParam().run(*manager); });
    EXPECT_FALSE(isReady(edit));
    probe.editMutex().unlock();
    ASSERT_TRUE(ends(edit));
    EXPECT_EQ(edit.get(), 0);
    EXPECT_FALSE(isHeld(probe.editMutex()));
    EXPECT_FALSE(isHeld(probe.uuidMutex()));
}

TEST_P(EditLocks, AnEditMayRunInsideAnotherOnTheSameThread)
{
    const QMutexLocker outer(&probe.editMutex());
    EXPECT_EQ(GetParam().run(*manager), 0); // would never return if the mutex were not recursive
}

// In the other order an edit and a generator that ran at once could wait for each other for ever.
TEST_P(GeneratorLocks, TheEditMutexIsTakenBeforeTheGeneratorsMutex)
{
    probe.uuidMutex().lock();
    std::future<int> edit = std::async(std::launch::async, [this] { return GetParam().run(*manager); });
    EXPECT_TRUE(comesTrue([this] { return isHeld(probe.editMutex()); }));
    EXPECT_FALSE(isReady(edit)) << "it waits for the generator";
    probe.uuidMutex().unlock();
    ASSERT_TRUE(ends(edit));
    EXPECT_EQ(edit.get(), 0);
}

TEST_F(EditMutex, EditsWithoutANewRecordDoNotWaitForTheGenerator)
{
    const QMutexLocker generator(&probe.uuidMutex());
    std::future<int> edits = std::async(std::launch::async, [this] {
        const qint64 album = 7;
        photoItem known = photo(3);
        return manager->addPhoto(&known, &album) + updateAlbum(*manager) + deletePhoto(*manager) +
               deleteAlbum(*manager);
    });
    ASSERT_TRUE(ends(edits));
    EXPECT_EQ(edits.get(), 0);
}

TEST_F(EditMutex, DeletingANullPhotoDoesNotWaitForAnEdit)
{
    const QMutexLocker edit(&probe.editMutex());
    std::future<int> deletion = std::async(std::launch::async, [this] { return manager->deletePhoto(nullptr); });
    ASSERT_TRUE(ends(deletion));
    EXPECT_EQ(deletion.get(), 0);
}

TEST_F(EditMutex, IsHeldWhileAnEditLogs)
{
    int lines = 0;
    log.onLine([&](const QString &) {
        ++lines;
        EXPECT_TRUE(isHeld(probe.editMutex()));
    });
    const qint64 album = 7;
    EXPECT_EQ(manager->addPhoto(nullptr, &album), -1);
    EXPECT_EQ(manager->createAlbum(nullptr), -1);
    EXPECT_EQ(manager->updateAlbum(nullptr), -1);
    EXPECT_EQ(lines, 3);
    EXPECT_EQ(log.takeAll().size(), 3);
    EXPECT_FALSE(isHeld(probe.editMutex()));
}

TEST_F(EditMutex, CancelDoesNotWaitForAnEdit)
{
    const QMutexLocker edit(&probe.editMutex());
    std::future<void> cancelling = std::async(std::launch::async, [this] { manager->cancel(); });
    ASSERT_TRUE(ends(cancelling));
    EXPECT_TRUE(manager->isCancelled());
}

TEST(AddPhotoToAlbum, GoesThroughTheAddPhotoOfASubclassHoldingTheMutex)
{
    OverridingManager manager;
    photoItem photo;
    albumItem album;
    album.id = 31;
    EXPECT_EQ(manager.addPhotoToAlbum(&photo, &album), 0);
    EXPECT_EQ(manager.key, 31);
    EXPECT_TRUE(manager.locked);
    EXPECT_EQ(album.photoIds, QList<qint64>{500});
    EXPECT_EQ(manager.addPhotoToAlbum(&photo, nullptr), 0);
    EXPECT_EQ(manager.key, 0);
}

TEST(AddPhotoToAlbum, EveryFailureOfASubclassIsMinusOneAndAddsNothing)
{
    OverridingManager manager;
    photoItem photo;
    albumItem album;
    for (const int answer : {-1, 1, 5}) {
        manager.answer = answer;
        EXPECT_EQ(manager.addPhotoToAlbum(&photo, &album), -1);
    }
    EXPECT_TRUE(album.photoIds.isEmpty());
}
