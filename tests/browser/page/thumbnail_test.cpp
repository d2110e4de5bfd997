#include "apps/browser/library/background.h"
#include "apps/browser/page/thumbnail_cache.h"
#include "apps/browser/page/thumbnail_decoder.h"
#include "apps/browser/page/thumbnail_loader.h"
#include "tests/browser/page/made_thumbnails.h"

#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <thread>

#include <gmock/gmock.h>

namespace
{

using browser::LoadedThumbnail;
using browser::ThumbnailCache;
using browser::ThumbnailLoader;

constexpr int patience = 30'000; // milliseconds, for a busy machine

QVector<qint64> numbers(qint64 first, qint64 last)
{
    QVector<qint64> ids;
    for (qint64 id = first; id <= last; ++id)
        ids += id;
    return ids;
}

class Loading : public testing::Test
{
protected:
    Loading()
    {
        QObject::connect(&loader, &ThumbnailLoader::loaded, [this](const QVector<LoadedThumbnail> &thumbnails) {
            for (const LoadedThumbnail &thumbnail : thumbnails)
                loaded += thumbnail;
        });
    }

    bool waitForLoaded(int count)
    {
        return QTest::qWaitFor([&] { return loaded.size() >= count; }, patience);
    }
    bool waitForRequests(int count)
    {
        return QTest::qWaitFor([&] { return source->requests().size() >= count; }, patience);
    }

    std::shared_ptr<MadeThumbnails> source = std::make_shared<MadeThumbnails>();
    QVector<LoadedThumbnail> loaded;
    ThumbnailLoader loader{source};
};

TEST_F(Loading, GivesSquaresOfWhatIsWanted)
{
    loader.want({7, 9}, 32);
    ASSERT_TRUE(waitForLoaded(2));
    for (const LoadedThumbnail &thumbnail : qAsConst(loaded)) {
        EXPECT_TRUE(thumbnail.id == 7 || thumbnail.id == 9);
        EXPECT_EQ(thumbnail.side, 32);
        EXPECT_EQ(thumbnail.square.size(), QSize(32, 32));
    }
}

TEST_F(Loading, TellsWhichOriginalsAreNotOnTheDevice)
{
    loader.want({source->away, source->away + 1}, 32);
    ASSERT_TRUE(waitForLoaded(2));
    for (const LoadedThumbnail &thumbnail : qAsConst(loaded))
        EXPECT_EQ(thumbnail.lacksOriginal, thumbnail.id == source->away);
}

TEST_F(Loading, ReadsInTheOrderInWhichTheyAreWanted)
{
    source->hold(true);
    loader.want(numbers(1, 40), 32);
    ASSERT_TRUE(waitForRequests(2));
    QVector<qint64> first = source->requests();
    std::sort(first.begin(), first.end()); // by two threads
    EXPECT_EQ(first, numbers(1, 2));
    for (int count = 3; count <= 40; ++count) {
        source->letOneEnd();
        ASSERT_TRUE(waitForRequests(count));
        EXPECT_EQ(source->requests().last(), count);
    }
    source->hold(false);
    EXPECT_TRUE(waitForLoaded(40));
}

TEST_F(Loading, WhatWasScrolledAwayIsNeverRead)
{
    source->hold(true);
    loader.want(numbers(1, 50), 32);
    ASSERT_TRUE(waitForRequests(2));
    loader.want(numbers(100, 103), 32);
    source->hold(false);
    ASSERT_TRUE(waitForLoaded(6));
    QVector<qint64> requests = source->requests();
    std::sort(requests.begin(), requests.end());
    EXPECT_EQ(requests, QVector<qint64>({1, 2, 100, 101, 102, 103}));
}

TEST_F(Loading, WhatIsBeingReadIsNotReadTwice)
{
    source->hold(true);
    loader.want({1, 2}, 32);
    ASSERT_TRUE(waitForRequests(2));
    loader.want({1, 2, 3}, 32);
    source->hold(false);
    ASSERT_TRUE(waitForLoaded(3));
    EXPECT_EQ(source->requests().size(), 3);
}

TEST_F(Loading, TellsOfManyFailuresInARowAgainAndAgain)
{
    QSignalSpy failing(&loader, &ThumbnailLoader::readsFailing);
    source->fail(true);
    loader.want(numbers(1, 8), 32);
    ASSERT_TRUE(waitForLoaded(8));
    EXPECT_EQ(failing.count(), 1);
    EXPECT_TRUE(loaded.front().square.isNull());
    EXPECT_TRUE(loaded.front().failed);
    loader.want(numbers(9, 15), 32);
    ASSERT_TRUE(waitForLoaded(15));
    EXPECT_EQ(failing.count(), 1);
    loader.want({16}, 32);
    ASSERT_TRUE(waitForLoaded(16));
    EXPECT_EQ(failing.count(), 2);
    source->fail(false);
    loader.want({17}, 32);
    ASSERT_TRUE(waitForLoaded(17));
    source->fail(true);
    loader.want(numbers(18, 24), 32);
    ASSERT_TRUE(waitForLoaded(24));
    EXPECT_EQ(failing.count(), 2);
}

// They look the same where the folder of a device is left and the device is not.
TEST_F(Loading, TellsOfAFailureAfterPhotosWithoutThumbnails)
{
    QSignalSpy failing(&loader, &ThumbnailLoader::readsFailing);
    source->lack(true);
    loader.want(numbers(1, 10), 32);
    ASSERT_TRUE(waitForLoaded(10));
    EXPECT_EQ(failing.count(), 1);
    EXPECT_FALSE(loaded.front().failed);
    source->lack(false);
    source->fail(true);
    loader.want(numbers(11, 16), 32);
    ASSERT_TRUE(waitForLoaded(16));
    EXPECT_EQ(failing.count(), 2);
}

TEST_F(Loading, TellsNothingOfPhotosOnceTheLibraryIsStopped)
{
    source->hold(true);
    loader.want(numbers(1, 4), 32);
    ASSERT_TRUE(waitForRequests(2));
    source->stop();
    ASSERT_TRUE(waitForRequests(4));
    QCoreApplication::processEvents();
    EXPECT_TRUE(loaded.isEmpty());
}

TEST(LoaderDestruction, WaitsForNoReadThatHangs)
{
    const auto source = std::make_shared<MadeThumbnails>();
    auto loader = std::make_unique<ThumbnailLoader>(source);
    bool told = false;
    QObject::connect(loader.get(), &ThumbnailLoader::loaded, [&told] { told = true; });
    source->hold(true);
    loader->want(numbers(1, 10), 32);
    ASSERT_TRUE(QTest::qWaitFor([&] { return source->requests().size() == 2; }, patience));
    loader.reset();
    source->hold(false);
    ASSERT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    EXPECT_EQ(source->requests().size(), 2);
    EXPECT_EQ(source.use_count(), 1);
    QCoreApplication::processEvents();
    EXPECT_FALSE(told);
}

TEST(LoaderDestruction, ForgetsWhatWasReadButNotDelivered)
{
    const auto source = std::make_shared<MadeThumbnails>();
    {
        ThumbnailLoader loader(source);
        loader.want(numbers(1, 3), 32);
        while (source->requests().size() < 3)
            std::this_thread::yield();
    }
    ASSERT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    QCoreApplication::processEvents();
    EXPECT_EQ(source.use_count(), 1);
}

TEST(SquareThumbnail, IsTheMiddleOfThePicture)
{
    QImage picture = plainPicture(300, 100, Qt::white);
    for (int y = 0; y < 100; ++y) {
        for (int x = 100; x < 200; ++x)
            picture.setPixel(x, y, qRgb(0, 0, 0));
    }
    const QImage square = browser::squareThumbnail(pictureBytes(picture), 50);
    ASSERT_EQ(square.size(), QSize(50, 50));
    EXPECT_LT(qGray(square.pixel(25, 25)), 40);
    EXPECT_LT(qGray(square.pixel(3, 25)), 60);
}

TEST(SquareThumbnail, EnlargesNothing)
{
    EXPECT_EQ(browser::squareThumbnail(pictureBytes(plainPicture(40, 30, Qt::red)), 200).size(), QSize(30, 30));
}

TEST(SquareThumbnail, ReadsBitmapsToo)
{
    const QImage square = browser::squareThumbnail(pictureBytes(plainPicture(120, 120, Qt::blue), "BMP"), 60);
    ASSERT_EQ(square.size(), QSize(60, 60));
    EXPECT_EQ(square.pixel(30, 30), qRgb(0, 0, 255));
}

TEST(SquareThumbnail, OfAnythingElseIsNull)
{
    const QByteArray jpeg = pictureBytes(plainPicture(100, 100, Qt::red));
    EXPECT_TRUE(browser::squareThumbnail(QByteArray(), 50).isNull());
    EXPECT_TRUE(browser::squareThumbnail("no picture at all", 50).isNull());
    EXPECT_TRUE(browser::squareThumbnail(jpeg.left(20), 50).isNull());
    EXPECT_TRUE(browser::squareThumbnail(pictureBytes(plainPicture(10, 10, Qt::red), "PNG"), 50).isNull());
    EXPECT_TRUE(browser::squareThumbnail("BM" + QByteArray(52, '\0'), 50).isNull());
}

TEST(SquareThumbnail, OfATooLargePictureIsNullAndNeverDecoded)
{
    EXPECT_TRUE(browser::squareThumbnail(pictureBytes(plainPicture(5000, 8, Qt::red)), 50).isNull());
    QByteArray bitmap = pictureBytes(plainPicture(10, 10, Qt::red), "BMP");
    bitmap.replace(18, 4, QByteArray("\xFF\xFF\xFF\x0F", 4)); // a width of 268,435,455
    EXPECT_TRUE(browser::squareThumbnail(bitmap, 50).isNull());
}

TEST(Cache, HoldsNoMoreThanItsLimitAndForgetsWhatWasNotLookedAt)
{
    ThumbnailCache cache(100 * 1024);
    const QImage square = plainPicture(64, 64, Qt::green); // 16 KiB
    for (qint64 id = 1; id <= 50; ++id) {
        cache.insert({id, 64, square, false});
        EXPECT_LE(cache.bytes(), cache.limit());
        EXPECT_NE(cache.find(1), nullptr) << id;
    }
    EXPECT_EQ(cache.find(2), nullptr);
    EXPECT_NE(cache.find(50), nullptr);
    EXPECT_LT(cache.count(), 7);
}

TEST(Cache, KnowsPhotosWithoutAPicture)
{
    ThumbnailCache cache(100 * 1024);
    cache.insert({1, 64, QImage(), false});
    ASSERT_NE(cache.find(1), nullptr);
    EXPECT_TRUE(cache.find(1)->square.isNull());
}

} // namespace
