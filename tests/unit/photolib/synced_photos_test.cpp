#include "tests/unit/photolib/edited_library.h"

namespace
{

class ManySyncedPhotos : public EditedLibrary
{
protected:
    static constexpr qint64 firstId = 100'000;
    static constexpr int count = 5000;

    ManySyncedPhotos()
    {
        QList<qint64> &ids = probe.groups()[28]["0"].assetIds;
        ids.clear();
        for (int i = 0; i < count; ++i)
            ids.append(firstId + i);
    }

    QList<qint64> synced() const { return manager->getPhotoGroup(28, "0").assetIds; }
};

} // namespace

TEST_F(ManySyncedPhotos, AreGoneFromTheirGroupAsSoonAsTheyAreDeleted)
{
    for (const qint64 id : {firstId, firstId + 17, firstId + count - 1}) {
        ASSERT_TRUE(synced().contains(id));
        EXPECT_EQ(manager->deletePhoto(&id), 0);
        EXPECT_FALSE(synced().contains(id));
    }
    EXPECT_EQ(synced().size(), count - 3);
    EXPECT_EQ(synced().first(), firstId + 1);
}

TEST_F(ManySyncedPhotos, ThatWereDeletedComeBackWithTheModelOfAnotherOpening)
{
    assetRecord *photo = new assetRecord;
    photo->pk = firstId;
    photo->uuid = "SYNCED";
    photo->directory = QStringLiteral("PhotoData/Sync/100SYNCD");
    photo->fileName = QStringLiteral("A.JPG");
    EXPECT_EQ(manager->deletePhoto(&photo->pk), 0);
    probe.reader()->addAsset(photo);
    probe.buildModel();
    EXPECT_EQ(synced().count(firstId), 1);
    EXPECT_EQ(synced().last(), firstId);
}
