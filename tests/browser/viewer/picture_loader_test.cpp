#include "apps/browser/library/background.h"
#include "apps/browser/viewer/picture_loader.h"
#include "tests/browser/viewer/gated_pictures.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace
{

using browser::PictureLoader;
using browser::PictureRequest;
using browser::SharedPicture;

class Loading : public testing::Test
{
protected:
    Loading()
    {
        QObject::connect(&loader, &PictureLoader::pictureLoaded,
                         [this](qint64 id, const SharedPicture &) { loaded.push_back(id); });
    }

    bool waitFor(std::size_t count)
    {
        return QTest::qWaitFor([&] { return loaded.size() >= count; }, patience);
    }

    static constexpr int patience = 30'000;
    std::shared_ptr<GatedPictures> source = std::make_shared<GatedPictures>();
    std::vector<qint64> loaded;
    PictureLoader loader{source};
};

TEST_F(Loading, BringsTheCurrentPictureBeforeItsNeighbours)
{
    loader.load({5}, {{6}, {4}});
    ASSERT_TRUE(waitFor(3));
    EXPECT_EQ(loaded, (std::vector<qint64>{5, 6, 4}));
    EXPECT_NE(loader.cached(6), nullptr);
    EXPECT_EQ(loader.cached(7), nullptr);
}

TEST_F(Loading, ReadsNothingThatIsKept)
{
    loader.load({5}, {{6}});
    ASSERT_TRUE(waitFor(2));
    loader.load({6}, {{5}});
    loader.load({7}, {});
    ASSERT_TRUE(waitFor(3));
    EXPECT_EQ(source->reads(), (std::vector<qint64>{5, 6, 7}));
}

TEST_F(Loading, GivesUpAPictureThatNobodyWaitsForAnyMore)
{
    source->hold(1);
    loader.load({1}, {});
    ASSERT_TRUE(source->waitUntilHeld(1));
    loader.load({2}, {});
    ASSERT_TRUE(waitFor(1));
    EXPECT_EQ(loaded, (std::vector<qint64>{2}));
    EXPECT_EQ(loader.cached(1), nullptr);
}

TEST_F(Loading, LoadsAnewWhatWasGivenUp)
{
    source->hold(1);
    loader.load({1}, {});
    ASSERT_TRUE(source->waitUntilHeld(1));
    loader.load({2}, {});
    source->release(1);
    loader.load({1}, {});
    ASSERT_TRUE(QTest::qWaitFor([&] { return loader.cached(1) != nullptr; }, patience));
}

TEST_F(Loading, OfAFilmBringsItsThumbnailOnly)
{
    QSignalSpy thumbnails(&loader, &PictureLoader::thumbnailLoaded);
    loader.load({1, true}, {{2, true}});
    ASSERT_TRUE(QTest::qWaitFor([&] { return thumbnails.count() == 1; }, patience));
    loader.load({3}, {});
    ASSERT_TRUE(waitFor(1));
    EXPECT_EQ(source->reads(), (std::vector<qint64>{3}));
}

TEST_F(Loading, ForgetsEverything)
{
    loader.load({5}, {});
    ASSERT_TRUE(waitFor(1));
    loader.forgetAll();
    EXPECT_EQ(loader.cached(5), nullptr);
}

TEST_F(Loading, TellsOfAPictureForWhichMemoryRanShort)
{
    source->failWithNoMemory(9);
    SharedPicture answer;
    QObject::connect(&loader, &PictureLoader::pictureLoaded, [&](qint64, const SharedPicture &p) { answer = p; });
    loader.load({9}, {});
    ASSERT_TRUE(waitFor(1));
    EXPECT_EQ(answer->problem, browser::PictureProblem::OutOfMemory);
    EXPECT_EQ(loader.cached(9), nullptr);
}

TEST_F(Loading, KeepsTheVersionsOfAPhotoApart)
{
    loader.load({5, false, browser::PictureVersion::Latest}, {});
    ASSERT_TRUE(waitFor(1));
    EXPECT_EQ(loader.cached(5, browser::PictureVersion::Original), nullptr);
    loader.load({5, false, browser::PictureVersion::Original}, {});
    ASSERT_TRUE(waitFor(2));
    EXPECT_EQ(source->lastVersion(), browser::PictureVersion::Original);
    EXPECT_NE(loader.cached(5, browser::PictureVersion::Original), loader.cached(5));
}

TEST(PictureLoader, WaitsForNoPictureThatCannotBeGivenUp)
{
    const auto source = std::make_shared<GatedPictures>();
    source->hold(1);
    source->beDeaf(true);
    auto loader = std::make_unique<PictureLoader>(source);
    loader->load({1}, {});
    ASSERT_TRUE(source->waitUntilHeld(1));
    loader.reset();
    source->release(1);
    EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    EXPECT_EQ(source.use_count(), 1);
}

TEST(PictureLoader, EndsWhileAPictureIsBeingLoaded)
{
    const auto source = std::make_shared<GatedPictures>();
    source->hold(1);
    auto loader = std::make_unique<PictureLoader>(source);
    bool told = false;
    QObject::connect(loader.get(), &PictureLoader::pictureLoaded, [&] { told = true; });
    loader->load({1}, {{2}});
    ASSERT_TRUE(source->waitUntilHeld(1));
    loader.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(told);
}

} // namespace
