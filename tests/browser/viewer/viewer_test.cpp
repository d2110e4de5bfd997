#include "apps/browser/viewer/overlays.h"
#include "apps/browser/viewer/picture_view.h"
#include "apps/browser/viewer/viewer.h"
#include "apps/browser/viewer/viewer_texts.h"
#include "photolib/photolib.h"
#include "tests/browser/support/opened_folder.h"
#include "tests/browser/viewer/gated_pictures.h"
#include "tests/browser/viewer/shared_sample.h"

#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace
{

using browser::PictureView;
using browser::Viewer;

constexpr int patience = 30'000;

class OpenedViewer : public testing::Test
{
protected:
    void SetUp() override
    {
        library = openFolder(folder.root());
        ASSERT_NE(library, nullptr);
        for (const browser::Photo &photo : library->snapshot().photos)
            ids.append(photo.id);
        ASSERT_GT(ids.size(), 5);
    }

    std::unique_ptr<Viewer> makeViewer(std::shared_ptr<browser::PictureSource> source = nullptr)
    {
        auto viewer = source ? std::make_unique<Viewer>(library, source) : std::make_unique<Viewer>(library);
        viewer->resize(800, 600);
        viewer->show();
        return viewer;
    }

    int indexOf(const QString &extension)
    {
        for (int i = 0; i < ids.size(); ++i)
            if (library->item(ids[i])->fileName.endsWith(extension) &&
                QFile::exists(folder.path(library->devicePath(ids[i]))))
                return i;
        return -1;
    }

    SampleFolder &folder = sharedSample();
    std::shared_ptr<browser::OpenedLibrary> library;
    QVector<qint64> ids;
};

PictureView &viewOf(Viewer &viewer)
{
    return *viewer.findChild<PictureView *>(QStringLiteral("pictureView"));
}

bool waitForPicture(Viewer &viewer)
{
    return QTest::qWaitFor([&] { return viewOf(viewer).hasPicture(); }, patience);
}

QString textOf(Viewer &viewer, const char *label)
{
    return viewer.findChild<QLabel *>(QLatin1String(label))->text();
}

bool waitForProblem(Viewer &viewer)
{
    auto *panel = viewer.findChild<browser::ProblemPanel *>();
    return QTest::qWaitFor([panel] { return panel->isVisible(); }, patience);
}

TEST_F(OpenedViewer, ShowsEveryKindOfPictureOfADevice)
{
    const auto viewer = makeViewer();
    for (const char *extension : {".JPG", ".PNG", ".GIF"}) {
        const int at = indexOf(QLatin1String(extension));
        ASSERT_GE(at, 0) << extension;
        viewer->showPhotos(ids, at);
        ASSERT_TRUE(waitForPicture(*viewer)) << extension;
        EXPECT_EQ(textOf(*viewer, "photoName"), library->item(ids[at])->fileName);
    }
}

TEST_F(OpenedViewer, GoesForwardAndBackAndStopsAtTheEnds)
{
    const auto viewer = makeViewer(std::make_shared<GatedPictures>());
    QSignalSpy current(viewer.get(), &Viewer::currentChanged);
    viewer->showPhotos(ids, 0);
    const auto press = [&](Qt::Key key) { QTest::keyClick(&viewOf(*viewer), key); };
    const auto now = [&] { return current.isEmpty() ? 0 : current.last().first().toLongLong(); };
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_PageUp, Qt::Key_Home}) {
        press(key);
        EXPECT_EQ(now(), ids.first());
    }
    EXPECT_FALSE(viewer->findChild<QToolButton *>(QStringLiteral("previousButton"))->isEnabled());
    press(Qt::Key_Right);
    EXPECT_EQ(now(), ids[1]);
    press(Qt::Key_Space);
    EXPECT_EQ(now(), ids[2]);
    press(Qt::Key_PageDown);
    press(Qt::Key_Left);
    EXPECT_EQ(now(), ids[2]);
    press(Qt::Key_End);
    EXPECT_EQ(now(), ids.last());
    EXPECT_EQ(textOf(*viewer, "photoPosition"), QStringLiteral("%1 of %1").arg(ids.size()));
    const int count = current.count();
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Space, Qt::Key_PageDown, Qt::Key_End})
        press(key);
    EXPECT_EQ(current.count(), count);
    EXPECT_FALSE(viewer->findChild<QToolButton *>(QStringLiteral("nextButton"))->isEnabled());
}

TEST_F(OpenedViewer, MovesOverAZoomedPictureWithTheArrows)
{
    const auto viewer = makeViewer(std::make_shared<GatedPictures>());
    viewer->showPhotos(ids, 1);
    ASSERT_TRUE(waitForPicture(*viewer));
    QSignalSpy current(viewer.get(), &Viewer::currentChanged);
    PictureView &view = viewOf(*viewer);
    for (int i = 0; i < 8; ++i)
        QTest::keyClick(&view, Qt::Key_Plus);
    const double left = view.transform().toPicture({0, 0}).x();
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_GT(view.transform().toPicture({0, 0}).x(), left);
    EXPECT_TRUE(current.isEmpty());
    QTest::keyClick(&view, Qt::Key_0);
    EXPECT_TRUE(view.transform().isFitted());
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_EQ(current.count(), 1);
}

TEST_F(OpenedViewer, SaysWhichPhotoWasLastWhenItIsLeft)
{
    const auto viewer = makeViewer(std::make_shared<GatedPictures>());
    viewer->showPhotos(ids, 3);
    QSignalSpy closed(viewer.get(), &Viewer::closed);
    QTest::keyClick(&viewOf(*viewer), Qt::Key_Escape);
    ASSERT_EQ(closed.count(), 1);
    EXPECT_EQ(closed.first().first().toLongLong(), ids[3]);
}

TEST_F(OpenedViewer, LeavesFullScreenBeforeItIsLeft)
{
    const auto viewer = makeViewer(std::make_shared<GatedPictures>());
    viewer->showPhotos(ids, 3);
    QSignalSpy closed(viewer.get(), &Viewer::closed);
    QSignalSpy full(viewer.get(), &Viewer::fullScreenChanged);
    QTest::keyClick(&viewOf(*viewer), Qt::Key_F11);
    EXPECT_TRUE(viewer->isFullScreen());
    QTest::keyClick(&viewOf(*viewer), Qt::Key_Escape);
    EXPECT_FALSE(viewer->isFullScreen());
    EXPECT_EQ(full.count(), 2);
    EXPECT_TRUE(closed.isEmpty());
}

TEST_F(OpenedViewer, AsksForTheExportOfWhatItShows)
{
    const auto viewer = makeViewer(std::make_shared<GatedPictures>());
    viewer->showPhotos(ids, 2);
    QSignalSpy wanted(viewer.get(), &Viewer::exportRequested);
    viewer->findChild<QToolButton *>(QStringLiteral("exportButton"))->click();
    ASSERT_EQ(wanted.count(), 1);
    EXPECT_EQ(wanted.first().first().value<QVector<qint64>>(), QVector<qint64>(1, ids[2]));
}

TEST_F(OpenedViewer, ShowsTheThumbnailAndStaysAliveWhileAPictureHangs)
{
    const auto source = std::make_shared<GatedPictures>();
    source->hold(ids[0]);
    const auto viewer = makeViewer(source);
    viewer->showPhotos(ids, 0);
    auto *spinner = viewer->findChild<browser::BusySpinner *>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !viewOf(*viewer).isEmpty() && spinner->isVisible(); }, patience));
    EXPECT_FALSE(viewOf(*viewer).hasPicture());
    QTest::keyClick(&viewOf(*viewer), Qt::Key_Right);
    EXPECT_TRUE(waitForPicture(*viewer));
    EXPECT_FALSE(spinner->isVisible());
    EXPECT_EQ(textOf(*viewer, "photoName"), library->item(ids[1])->fileName);
}

TEST_F(OpenedViewer, GoesAwayWhileAPictureHangs)
{
    const auto source = std::make_shared<GatedPictures>();
    source->hold(ids[0]);
    auto viewer = makeViewer(source);
    viewer->showPhotos(ids, 0);
    ASSERT_TRUE(source->waitUntilHeld(ids[0]));
    viewer.reset();
    QCoreApplication::processEvents();
}

TEST_F(OpenedViewer, SaysWhatIsWrongAndTriesAgain)
{
    const auto source = std::make_shared<GatedPictures>();
    source->failWith(ids[0], browser::PictureProblem::DeviceGone);
    const auto viewer = makeViewer(source);
    QSignalSpy failed(viewer.get(), &Viewer::readFailed);
    viewer->showPhotos(ids, 0);
    ASSERT_TRUE(waitForProblem(*viewer));
    EXPECT_EQ(failed.count(), 1);
    EXPECT_TRUE(viewer->findChild<browser::ProblemPanel *>()->text().contains(QStringLiteral("cable")));
    source->failWith(0, browser::PictureProblem::None);
    QTest::mouseClick(viewer->findChild<QWidget *>(QStringLiteral("tryAgainButton")), Qt::LeftButton);
    EXPECT_TRUE(waitForPicture(*viewer));
    EXPECT_FALSE(viewer->findChild<browser::ProblemPanel *>()->isVisible());
}

TEST_F(OpenedViewer, TellsOfAnOriginalThatIsNotOnTheDevice)
{
    int absent = -1;
    for (int i = 0; i < ids.size(); ++i)
        if (!QFile::exists(folder.path(library->devicePath(ids[i]))) && library->item(ids[i])->mediaType != 1)
            absent = i;
    ASSERT_GE(absent, 0);
    const auto viewer = makeViewer();
    QSignalSpy failed(viewer.get(), &Viewer::readFailed);
    viewer->showPhotos(ids, absent);
    ASSERT_TRUE(waitForProblem(*viewer));
    EXPECT_TRUE(
        viewer->findChild<browser::ProblemPanel *>()->text().contains(library->item(ids[absent])->fileName.left(20)));
    EXPECT_TRUE(failed.isEmpty()) << "the device is there";
}

TEST_F(OpenedViewer, SaysThatNothingCanBeReadAnyMore)
{
    const auto viewer = makeViewer();
    QSignalSpy failed(viewer.get(), &Viewer::readFailed);
    library->stop();
    viewer->showPhotos(ids, indexOf(QStringLiteral(".JPG")));
    ASSERT_TRUE(waitForProblem(*viewer));
    EXPECT_EQ(failed.count(), 1);
}

TEST_F(OpenedViewer, ShowsAnEditedPhotoAsTheDeviceDoesAndItsOriginalOnDemand)
{
    int edited = -1, plain = -1;
    for (int i = 0; i < ids.size(); ++i) {
        const photoItem item = *library->item(ids[i]);
        const bool isHere = QFile::exists(folder.path(library->devicePath(ids[i])));
        if (isHere && item.mediaType == 3)
            (item.hasAdjustments != 0 ? edited : plain) = i;
    }
    ASSERT_GE(edited, 0);
    const auto viewer = makeViewer();
    auto *original = viewer->findChild<QToolButton *>(QStringLiteral("originalButton"));
    const auto waitForNote = [&](const char *text) {
        const auto isShown = [&] { return textOf(*viewer, "photoDetails").startsWith(QString::fromUtf8(text)); };
        return QTest::qWaitFor(isShown, patience);
    };
    const auto isGrey = [&] {
        const QImage image = viewOf(*viewer).grab().toImage();
        const QRgb middle = image.pixel(image.rect().center() + QPoint(20, 30));
        return qRed(middle) == qGreen(middle) && qGreen(middle) == qBlue(middle);
    };
    viewer->showPhotos(ids, edited);
    ASSERT_TRUE(waitForNote("edited on the device —"));
    EXPECT_TRUE(original->isVisible());
    EXPECT_TRUE(isGrey()) << "the edit took the colours away";
    QTest::keyClick(&viewOf(*viewer), Qt::Key_O);
    ASSERT_TRUE(waitForNote("original; edited on the device —"));
    EXPECT_FALSE(isGrey());
    original->click();
    ASSERT_TRUE(waitForNote("edited on the device —"));
    EXPECT_TRUE(isGrey());
    viewer->showPhotos(ids, plain);
    ASSERT_TRUE(waitForPicture(*viewer));
    EXPECT_FALSE(original->isVisible());
}

TEST_F(OpenedViewer, ShowsTheFactsOfThePhotoOnDemand)
{
    const auto viewer = makeViewer(std::make_shared<GatedPictures>());
    auto *facts = viewer->findChild<QWidget *>(QStringLiteral("factsPane"));
    viewer->showPhotos(ids, 0);
    EXPECT_FALSE(facts->isVisible());
    QTest::keyClick(&viewOf(*viewer), Qt::Key_F9);
    EXPECT_TRUE(facts->isVisible());
    EXPECT_EQ(textOf(*viewer, "factTitle"), library->item(ids[0])->fileName);
    QTest::keyClick(&viewOf(*viewer), Qt::Key_Right);
    EXPECT_EQ(textOf(*viewer, "factTitle"), library->item(ids[1])->fileName);
    viewer->findChild<QToolButton *>(QStringLiteral("viewerFactsButton"))->click();
    EXPECT_FALSE(facts->isVisible());
}

TEST_F(OpenedViewer, SaysSoWhenOnlyTheOriginalOfAnEditedPhotoIsThere)
{
    const QString edits = folder.path(QStringLiteral("PhotoData/Mutations"));
    ASSERT_TRUE(QFile::rename(edits, edits + QStringLiteral("-away")));
    const auto viewer = makeViewer();
    for (int i = 0; i < ids.size(); ++i) {
        const photoItem item = *library->item(ids[i]);
        if (item.hasAdjustments != 0 && QFile::exists(folder.path(library->devicePath(ids[i]))))
            viewer->showPhotos(ids, i);
    }
    const auto isSaid = [&] {
        return textOf(*viewer, "photoDetails").startsWith(QStringLiteral("original; edited on the device"));
    };
    EXPECT_TRUE(QTest::qWaitFor(isSaid, patience));
    ASSERT_TRUE(QFile::rename(edits + QStringLiteral("-away"), edits));
}

TEST_F(OpenedViewer, HasAButtonThatPlaysAFilmOrTheLivePhoto)
{
    const auto viewer = makeViewer(std::make_shared<GatedPictures>());
    const auto isShown = [&](const char *name) {
        return viewer->findChild<QWidget *>(QLatin1String(name))->isVisible();
    };
    for (int i = 0; i < ids.size(); ++i) {
        const photoItem item = *library->item(ids[i]);
        viewer->showPhotos(ids, i);
        EXPECT_EQ(isShown("playButton"), item.mediaType == 1) << i;
        EXPECT_EQ(isShown("playLiveButton"), item.mediaType != 1 && item.kindSubtype == 2) << i;
    }
}

TEST_F(OpenedViewer, CanShowNothing)
{
    const auto viewer = makeViewer();
    viewer->showPhotos({}, 0);
    QTest::keyClick(&viewOf(*viewer), Qt::Key_Right);
    viewer->showPhotos({999'999}, 7);
    EXPECT_TRUE(waitForProblem(*viewer));
}

TEST(ViewerTexts, SayWhatToDoNext)
{
    const browser::PhotoPlace onDevice{QStringLiteral("A.HEIC"), false, false};
    const auto absent = browser::noPicture(browser::PictureProblem::OriginalAbsent);
    EXPECT_TRUE(problemText(*absent, onDevice).contains(QStringLiteral("A.HEIC")));
    EXPECT_TRUE(problemText(*absent, {QStringLiteral("A"), true, false}).contains(QStringLiteral("cloud")));
    EXPECT_TRUE(problemText(*absent, {QStringLiteral("A"), false, true}).contains(QStringLiteral("backup")));
    for (int i = 1; i <= static_cast<int>(browser::PictureProblem::OutOfMemory); ++i) {
        const auto problem = static_cast<browser::PictureProblem>(i);
        EXPECT_EQ(problemText(*browser::noPicture(problem), onDevice).isEmpty(),
                  problem == browser::PictureProblem::GivenUp)
            << i;
    }
}

} // namespace
