#include "apps/browser/page/library_page.h"

#include "apps/browser/library/background.h"
#include "apps/browser/page/photo_grid.h"
#include "apps/browser/page/side_bar.h"
#include "apps/browser/page/texts.h"
#include "tests/browser/page/made_thumbnails.h"
#include "tests/browser/support/opened_folder.h"
#include "tests/cli/sample/sample_folder.h"

#include <QAction>
#include <QClipboard>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QUrl>

#include <gmock/gmock.h>

namespace
{

using browser::LibraryPage;
using browser::PhotoGrid;
using browser::SideBar;

constexpr int patience = 30'000; // milliseconds, for a busy machine

class Page : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        folder = new SampleFolder;
        library = openFolder(folder->root());
    }
    static void TearDownTestSuite()
    {
        library.reset();
        delete folder;
        folder = nullptr;
    }

    void SetUp() override
    {
        ASSERT_NE(library, nullptr);
        page = std::make_unique<LibraryPage>(library, source);
        page->resize(1100, 800);
        page->show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return isActive(); }, patience)); // shortcuts want it
        grid = page->findChild<PhotoGrid *>(QStringLiteral("photoGrid"));
        sideBar = page->findChild<SideBar *>(QStringLiteral("sideBar"));
        grid->setFocus();
        ASSERT_GT(page->shownPhotos().size(), 100);
    }

    /// Asks for it, too: there may be no window manager, and another program's window may have come up.
    bool isActive() const
    {
        if (!page->isActiveWindow())
            page->activateWindow();
        return page->isActiveWindow();
    }

    static const browser::Photo &photoOf(qint64 id)
    {
        const browser::Snapshot &snapshot = library->snapshot();
        return snapshot.photos.at(static_cast<std::size_t>(snapshot.rows.value(id, -1)));
    }

    template <class Widget>
    Widget *child(const char *name) const
    {
        return page->findChild<Widget *>(QLatin1String(name));
    }

    QPoint middleOf(int row) const { return grid->visualRect(grid->model()->index(row, 0)).center(); }
    void click(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, modifiers, middleOf(row));
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(grid, static_cast<Qt::Key>(key), modifiers);
    }
    void drag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mousePress(grid->viewport(), Qt::LeftButton, modifiers, from);
        for (const QPoint &step : {(from + to) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, step, Qt::NoButton, Qt::LeftButton, modifiers);
            QCoreApplication::sendEvent(grid->viewport(), &move);
        }
        QTest::mouseRelease(grid->viewport(), Qt::LeftButton, modifiers, to);
    }
    QVector<qint64> shown(std::initializer_list<int> rows) const
    {
        const QVector<qint64> all = page->shownPhotos();
        QVector<qint64> ids;
        for (const int row : rows)
            ids += all[row];
        return ids;
    }
    bool type(const QString &text, int expected)
    {
        auto *field = child<QLineEdit>("searchField");
        field->clear();
        QTest::keyClicks(field, text);
        return QTest::qWaitFor([&] { return page->shownPhotos().size() == expected; }, patience);
    }
    int countWhere(const std::function<bool(const browser::Photo &)> &condition) const
    {
        const QVector<qint64> everything = page->shownPhotos();
        return static_cast<int>(
            std::count_if(everything.begin(), everything.end(), [&](qint64 id) { return condition(photoOf(id)); }));
    }
    void trigger(const char *menu, const QString &text)
    {
        const QList<QAction *> actions = child<QMenu>(menu)->actions();
        for (QAction *action : actions) {
            if (action->text() == text)
                return action->trigger();
        }
        FAIL() << qPrintable(text);
    }

    static SampleFolder *folder;
    static std::shared_ptr<browser::OpenedLibrary> library;
    std::shared_ptr<MadeThumbnails> source = std::make_shared<MadeThumbnails>();
    std::unique_ptr<LibraryPage> page;
    PhotoGrid *grid = nullptr;
    SideBar *sideBar = nullptr;
};

SampleFolder *Page::folder = nullptr;
std::shared_ptr<browser::OpenedLibrary> Page::library;

TEST_F(Page, ShowsAsManyPhotosOfEachCollectionAsTheSideBarCounts)
{
    const auto &collections = library->snapshot().collections;
    const auto *model = static_cast<const browser::CollectionModel *>(sideBar->model());
    for (int number = 0; number < int(collections.size()); ++number) {
        sideBar->choose(number);
        const QModelIndex index = model->indexOf(number);
        EXPECT_EQ(page->shownPhotos().size(), index.data(browser::CollectionModel::CountRole).toInt());
        EXPECT_FALSE(index.data().toString().isEmpty()) << number;
        EXPECT_TRUE(index.data(Qt::AccessibleTextRole).toString().contains(index.data().toString())) << number;
    }
}

TEST_F(Page, TheDeviceIsAskedWhichCloudPhotosItLacks)
{
    browser::LibraryThumbnails thumbnails(library);
    int absent = 0;
    for (const browser::Photo &photo : library->snapshot().photos) {
        const bool isThere = QFile::exists(folder->path(library->devicePath(photo.id)));
        EXPECT_EQ(thumbnails.lacksOriginal(photo.id), !isThere) << qPrintable(photo.fileName);
        absent += isThere ? 0 : 1;
    }
    EXPECT_EQ(absent, 6);
}

TEST_F(Page, BeginsWithTheNewestPhotos)
{
    const QVector<qint64> ids = page->shownPhotos();
    for (int row = 1; row < ids.size(); ++row)
        EXPECT_GE(photoOf(ids[row - 1]).created, photoOf(ids[row]).created);
}

TEST_F(Page, ClicksSelectOneToggleAndExtend)
{
    click(1);
    EXPECT_EQ(page->selectedPhotos(), shown({1}));
    click(3, Qt::ControlModifier);
    EXPECT_EQ(page->selectedPhotos(), shown({1, 3}));
    click(1, Qt::ControlModifier);
    EXPECT_EQ(page->selectedPhotos(), shown({3}));
    click(2);
    click(5, Qt::ShiftModifier);
    EXPECT_EQ(page->selectedPhotos(), shown({2, 3, 4, 5}));
    click(0, Qt::ShiftModifier);
    EXPECT_EQ(page->selectedPhotos(), shown({0, 1, 2}));
    click(4);
    EXPECT_EQ(page->selectedPhotos(), shown({4}));
}

TEST_F(Page, ABandSelectsWhatItTouches)
{
    const int columns = grid->arrangement().columns();
    const QRect first = grid->visualRect(grid->model()->index(0, 0));
    const QRect below = grid->visualRect(grid->model()->index(columns + 1, 0));
    const QPoint outside(first.left() - 6, first.top() + 10);
    drag(outside, below.center());
    EXPECT_EQ(page->selectedPhotos(), shown({0, 1, columns, columns + 1}));
    drag(outside, first.center(), Qt::ControlModifier);
    EXPECT_EQ(page->selectedPhotos(), shown({1, columns, columns + 1}));
    drag(outside, first.center(), Qt::ShiftModifier);
    EXPECT_EQ(page->selectedPhotos(), shown({0, 1, columns, columns + 1}));
    drag(outside, outside + QPoint(1, 1));
    EXPECT_TRUE(page->selectedPhotos().isEmpty());
}

TEST_F(Page, ABandShowsWhatItTouchesAndSelectsItOnceWhenItEnds)
{
    QSignalSpy changes(grid->selectionModel(), &QItemSelectionModel::selectionChanged);
    const QRect first = grid->visualRect(grid->model()->index(0, 0));
    const QPoint from(first.left() - 6, first.top() + 10);
    const qint64 id = page->shownPhotos().first();
    ASSERT_TRUE(QTest::qWaitFor([&] { return grid->thumbnails().find(id) != nullptr; }, patience));
    const QPixmap before = grid->viewport()->grab(first);
    QTest::mousePress(grid->viewport(), Qt::LeftButton, Qt::NoModifier, from);
    for (int x = first.left(); x < grid->viewport()->width() - 20; x += 10) {
        QMouseEvent move(QEvent::MouseMove, QPoint(x, first.bottom() + 200), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(grid->viewport(), &move);
    }
    EXPECT_EQ(changes.count(), 0);
    EXPECT_NE(grid->viewport()->grab(first).toImage(), before.toImage());
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, Qt::NoModifier, first.bottomRight() + QPoint(0, 200));
    EXPECT_EQ(changes.count(), 1);
    EXPECT_GT(page->selectedPhotos().size(), 3);
}

TEST_F(Page, KeysMoveAndExtendTheSelection)
{
    const int columns = grid->arrangement().columns();
    const int last = page->shownPhotos().size() - 1;
    press(Qt::Key_Home);
    EXPECT_EQ(page->selectedPhotos(), shown({0}));
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    EXPECT_EQ(page->selectedPhotos(), shown({columns + 1}));
    press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(page->selectedPhotos(), shown({columns, columns + 1}));
    press(Qt::Key_End);
    EXPECT_EQ(page->selectedPhotos(), shown({last}));
    EXPECT_GE(grid->visibleRows().second, last + 1);
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(page->selectedPhotos(), shown({last}));
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(page->selectedPhotos(), shown({0, last}));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(page->selectedPhotos(), page->shownPhotos());
    press(Qt::Key_Escape);
    EXPECT_TRUE(page->selectedPhotos().isEmpty());
}

TEST_F(Page, PageKeysPassEveryLineOnce)
{
    press(Qt::Key_Home);
    int presses = 0;
    for (int before = -1; grid->currentIndex().row() != before && presses < 1000; ++presses) {
        before = grid->currentIndex().row();
        const int seenUpTo = grid->visibleRows().second;
        press(Qt::Key_PageDown);
        EXPECT_LE(grid->visibleRows().first, seenUpTo);
    }
    EXPECT_GT(grid->visibleRows().second, page->shownPhotos().size() - 1);
    EXPECT_GT(presses, 3);
}

TEST_F(Page, AMonthIsSelectedByItsButtonAndByKeys)
{
    const auto [first, behind] = grid->arrangement().range(0);
    const QPoint button = grid->headingButton(0).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, button);
    EXPECT_EQ(page->selectedPhotos(), page->shownPhotos().mid(first, behind - first));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, grid->headingButton(0).center());
    EXPECT_TRUE(page->selectedPhotos().isEmpty());
    press(Qt::Key_Home);
    press(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(page->selectedPhotos(), page->shownPhotos().mid(first, behind - first));
}

TEST_F(Page, TypingTheBeginningOfANameGoesThere)
{
    const QString name = photoOf(page->shownPhotos()[30]).fileName;
    QElapsedTimer typing;
    do { // the grid forgets what was typed a second ago; a machine may stand still for so long
        QTest::qWait(typing.isValid() ? 1100 : 0);
        typing.start();
        QTest::keyClicks(grid, name.toLower());
    } while (typing.hasExpired(900));
    EXPECT_EQ(page->selectedPhotos(), shown({30}));
}

TEST_F(Page, EnterAndDoubleClickActivateWithAllThatAreShown)
{
    QSignalSpy activated(page.get(), &LibraryPage::photosActivated);
    press(Qt::Key_Home);
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    ASSERT_EQ(activated.count(), 1);
    EXPECT_EQ(activated[0][0].value<QVector<qint64>>(), page->shownPhotos());
    EXPECT_EQ(activated[0][1].toInt(), 1);
    click(3);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(3));
    ASSERT_EQ(activated.count(), 2);
    EXPECT_EQ(activated[1][1].toInt(), 3);
}

TEST_F(Page, ExportAndCopyingNamesTakeTheSelectedPhotos)
{
    QSignalSpy exported(page.get(), &LibraryPage::exportRequested);
    page->findChild<QAction *>(QStringLiteral("exportAction"))->trigger();
    EXPECT_EQ(exported.count(), 0);
    click(0);
    click(2, Qt::ControlModifier);
    page->findChild<QAction *>(QStringLiteral("exportAction"))->trigger();
    ASSERT_EQ(exported.count(), 1);
    EXPECT_EQ(exported[0][0].value<QVector<qint64>>(), shown({0, 2}));
    page->findChild<QAction *>(QStringLiteral("copyNameAction"))->trigger();
    const QVector<qint64> ids = shown({0, 2});
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              photoOf(ids[0]).fileName + QLatin1Char('\n') + photoOf(ids[1]).fileName);
}

TEST_F(Page, KeysCopyTheSelectedPhotosAsFiles)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    const QVector<qint64> all = page->shownPhotos();
    const auto isPlain = [&](qint64 id) {
        return photoOf(id).kind == browser::MediaKind::Photo && photoOf(id).traits == 0U;
    };
    const auto plain = std::find_if(all.begin(), all.end(), isPlain);
    ASSERT_NE(plain, all.end());
    page->setCurrentPhoto(*plain);
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    const auto copied = [] { return QGuiApplication::clipboard()->mimeData()->urls(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return !copied().isEmpty(); }, patience));
    ASSERT_EQ(copied().size(), 1);
    EXPECT_EQ(copied()[0].fileName(), photoOf(*plain).fileName);
    QGuiApplication::clipboard()->clear();
    EXPECT_TRUE(browser::waitForBackground(std::chrono::milliseconds(patience)));
}

TEST_F(Page, ARightClickOpensTheMenuForThePhotoBelowIt)
{
    click(0);
    QTest::mouseClick(grid->viewport(), Qt::RightButton, Qt::NoModifier, middleOf(2));
    EXPECT_EQ(page->selectedPhotos(), shown({2}));
    QContextMenuEvent event(QContextMenuEvent::Mouse, middleOf(2), grid->viewport()->mapToGlobal(middleOf(2)));
    QCoreApplication::sendEvent(grid->viewport(), &event);
    auto *menu = child<QMenu>("photoMenu");
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menu->actions().contains(page->findChild<QAction *>(QStringLiteral("exportAction"))));
    menu->close();
}

TEST_F(Page, TheMenuOpensThePhotoThatWasClickedAmongSelectedOnes)
{
    QSignalSpy activated(page.get(), &LibraryPage::photosActivated);
    click(1);
    click(4, Qt::ControlModifier);
    const qint64 clicked = shown({1}).first();
    QTest::mouseClick(grid->viewport(), Qt::RightButton, Qt::NoModifier, middleOf(1));
    EXPECT_EQ(page->selectedPhotos(), shown({1, 4}));
    QContextMenuEvent event(QContextMenuEvent::Mouse, middleOf(1), grid->viewport()->mapToGlobal(middleOf(1)));
    QCoreApplication::sendEvent(grid->viewport(), &event);
    auto *menu = child<QMenu>("photoMenu");
    ASSERT_NE(menu, nullptr);
    trigger("sortMenu", QStringLiteral("&First or smallest first")); // as a search that ends meanwhile
    menu->defaultAction()->trigger();
    menu->close();
    ASSERT_EQ(activated.count(), 1);
    const auto ids = activated[0][0].value<QVector<qint64>>();
    EXPECT_EQ(ids, page->shownPhotos());
    EXPECT_EQ(ids.value(activated[0][1].toInt()), clicked);
}

TEST_F(Page, GoingToAPhotoKeepsASelectionOfSeveral)
{
    click(1);
    click(4, Qt::ControlModifier);
    const QVector<qint64> selected = page->selectedPhotos();
    page->setCurrentPhoto(selected.first());
    EXPECT_EQ(page->selectedPhotos(), selected);
    EXPECT_EQ(grid->currentIndex().row(), 1);
    page->setCurrentPhoto(shown({6}).first());
    EXPECT_EQ(page->selectedPhotos(), selected);
    click(2);
    page->setCurrentPhoto(shown({6}).first());
    EXPECT_EQ(page->selectedPhotos(), shown({6}));
}

TEST_F(Page, SearchNarrowsWhatIsShownAndClearingShowsAllAgain)
{
    const int all = page->shownPhotos().size();
    const int films = countWhere([](const browser::Photo &photo) { return photo.fileName.contains(".MOV"); });
    ASSERT_GT(films, 0);
    ASSERT_TRUE(type(QStringLiteral(".mov"), films));
    ASSERT_TRUE(type(QStringLiteral("no such photo"), 0));
    EXPECT_TRUE(child<QLabel>("emptyText")->isVisible());
    EXPECT_TRUE(child<QLabel>("emptyText")->text().contains(QStringLiteral("no such photo")));
    QTest::mouseClick(child<QWidget>("clearSearchButton"), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return page->shownPhotos().size() == all; }, patience));
    EXPECT_TRUE(grid->isVisible());
}

TEST_F(Page, FiltersAndOrdersAreInTheirMenus)
{
    const int favorites = countWhere([](const browser::Photo &photo) { return photo.is(browser::Favorite); });
    child<QAction>("onlyFavorites")->trigger();
    EXPECT_EQ(page->shownPhotos().size(), favorites);
    child<QAction>("onlyFavorites")->trigger();
    child<QAction>("onlyVideos")->trigger();
    child<QAction>("onlyPhotos")->trigger();
    EXPECT_FALSE(child<QAction>("onlyVideos")->isChecked());
    child<QAction>("onlyPhotos")->trigger();
    trigger("sortMenu", QStringLiteral("&Size"));
    trigger("sortMenu", QStringLiteral("&First or smallest first"));
    const QVector<qint64> ids = page->shownPhotos();
    for (int row = 1; row < ids.size(); ++row)
        EXPECT_LE(photoOf(ids[row - 1]).fileSize, photoOf(ids[row]).fileSize);
}

TEST_F(Page, ANewOrderKeepsTheSelectionAndANewCollectionDoesNot)
{
    click(2);
    click(4, Qt::ControlModifier);
    const QVector<qint64> selected = page->selectedPhotos();
    trigger("sortMenu", QStringLiteral("&First or smallest first"));
    QVector<qint64> kept = page->selectedPhotos();
    std::reverse(kept.begin(), kept.end());
    EXPECT_EQ(kept, selected);
    sideBar->choose(1);
    EXPECT_TRUE(page->selectedPhotos().isEmpty());
}

TEST_F(Page, FactsOfTheCurrentPhotoAreShownOnDemand)
{
    EXPECT_FALSE(child<QWidget>("factsPane")->isVisible());
    press(Qt::Key_F9);
    ASSERT_TRUE(child<QWidget>("factsPane")->isVisible());
    int row = 0;
    while (!photoOf(page->shownPhotos()[row]).is(browser::Located))
        ++row;
    const qint64 id = page->shownPhotos()[row];
    page->setCurrentPhoto(id);
    const browser::Photo &photo = photoOf(id);
    ASSERT_TRUE(QTest::qWaitFor([&] { return child<QLabel>("factTitle")->text() == photo.fileName; }, patience));
    EXPECT_EQ(child<QLabel>("factPath")->text(), library->devicePath(id));
    child<QToolButton>("copyPlaceButton")->click();
    const QStringList copied = QGuiApplication::clipboard()->text().split(QStringLiteral(", "));
    ASSERT_EQ(copied.size(), 2);
    EXPECT_NEAR(copied[0].toDouble(), library->item(id)->latitude, 0.0001);
    EXPECT_NEAR(copied[1].toDouble(), library->item(id)->longitude, 0.0001);
}

TEST_F(Page, TheSizeInTheFactsIsThatOfTheFileOnTheDevice)
{
    const qint64 id = page->shownPhotos()[3];
    const QString path = folder->path(library->devicePath(id));
    const qint64 before = QFileInfo(path).size();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write(QByteArray(3'000'000, 'x'));
    file.close();
    press(Qt::Key_F9);
    page->setCurrentPhoto(id);
    const QString exact = browser::Texts::size(before + 3'000'000);
    EXPECT_TRUE(QTest::qWaitFor([&] { return child<QLabel>("factSize")->text() == exact; }, patience));
    ASSERT_TRUE(QFile::resize(path, before));
}

TEST_F(Page, TheFactsTellThatAnOriginalIsNotOnTheDevice)
{
    qint64 away = 0;
    const QVector<qint64> ids = page->shownPhotos();
    for (const qint64 id : ids) {
        if (photoOf(id).is(browser::InCloud) && !QFile::exists(folder->path(library->devicePath(id))))
            away = id;
    }
    ASSERT_NE(away, 0);
    press(Qt::Key_F9);
    page->setCurrentPhoto(away);
    const auto isTold = [&] {
        return child<QLabel>("factMarks")->text().contains(QStringLiteral("Only in the cloud"));
    };
    EXPECT_TRUE(QTest::qWaitFor(isTold, patience));
    EXPECT_FALSE(child<QLabel>("factSize")->isVisible());
}

TEST_F(Page, WhatTurnsOutNotToBeOnTheDeviceLeavesThatFilterAndNothingMoves)
{
    child<QAction>("onlyOnDevice")->trigger();
    const qint64 away = source->away;
    const int row = page->shownPhotos().indexOf(away);
    ASSERT_GT(row, 0);
    const int columns = grid->arrangement().columns();
    grid->scrollTo(grid->model()->index(std::max(0, row - columns), 0), PhotoGrid::PositionAtTop);
    const int first = grid->visibleRows().first;
    const qint64 top = page->shownPhotos()[first];
    ASSERT_NE(top, away);
    const int height = middleOf(first).y();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !page->shownPhotos().contains(away); }, patience));
    EXPECT_EQ(middleOf(page->shownPhotos().indexOf(top)).y(), height);
    child<QAction>("onlyOnDevice")->trigger();
    const int shownAgain = page->shownPhotos().indexOf(away);
    const QModelIndex index = grid->model()->index(shownAgain, 0);
    EXPECT_TRUE(index.data(Qt::AccessibleTextRole).toString().contains(QStringLiteral("cloud")));
}

TEST_F(Page, TheSearchFieldSaysWhereItSearches)
{
    auto *field = child<QLineEdit>("searchField");
    const QString everywhere = field->placeholderText();
    sideBar->choose(1);
    const QString title = sideBar->model()->data(sideBar->currentIndex()).toString();
    EXPECT_TRUE(field->placeholderText().contains(title)) << qPrintable(field->placeholderText());
    sideBar->choose(0);
    EXPECT_EQ(field->placeholderText(), everywhere);
}

TEST_F(Page, ScreenReadersAreToldWhatTheMarksInACellSay)
{
    const QVector<qint64> ids = page->shownPhotos();
    int favorites = 0, videos = 0;
    for (int row = 0; row < ids.size(); ++row) {
        const browser::Photo &photo = photoOf(ids[row]);
        const QString text = grid->model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
        EXPECT_EQ(text.contains(QStringLiteral("Favorite")), photo.is(browser::Favorite));
        EXPECT_EQ(text.contains(QStringLiteral("Part of a burst")), photo.is(browser::Burst));
        const bool isVideo = photo.kind == browser::MediaKind::Video;
        EXPECT_TRUE(!isVideo || text.contains(browser::Texts::duration(photo.duration))) << qPrintable(text);
        favorites += photo.is(browser::Favorite) ? 1 : 0;
        videos += isVideo ? 1 : 0;
    }
    EXPECT_GT(favorites, 0);
    EXPECT_GT(videos, 0);
}

TEST(PageTexts, TimesOfDayAreWrittenAsTheLocaleWritesThem)
{
    const qint64 afternoon = QDateTime(QDate(2019, 6, 24), QTime(15, 4, 5)).toMSecsSinceEpoch();
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_TRUE(browser::Texts::dateAndTime(afternoon).contains(QStringLiteral("3:04:05 PM")));
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_TRUE(browser::Texts::dateAndTime(afternoon).contains(QStringLiteral("15:04:05")));
    QLocale::setDefault(before);
}

TEST_F(Page, StatusCountsPhotosAndTheSelectedOnes)
{
    QSignalSpy status(page.get(), &LibraryPage::statusChanged);
    click(0);
    click(1, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !status.isEmpty(); }, patience));
    const QString text = status.last()[0].toString();
    EXPECT_TRUE(text.contains(QLocale().toString(page->shownPhotos().size()))) << qPrintable(text);
    EXPECT_TRUE(text.contains(QStringLiteral("2 selected (about "))) << qPrintable(text);
}

TEST_F(Page, ZoomingKeepsWhatIsInTheMiddleAndStaysWithinLimits)
{
    page->setCurrentPhoto(page->shownPhotos()[120]);
    const int before = grid->cellSize();
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(grid->cellSize(), before);
    EXPECT_LE(grid->visibleRows().first, 120);
    EXPECT_GT(grid->visibleRows().second, 120);
    for (int i = 0; i < 20; ++i)
        press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(grid->cellSize(), PhotoGrid::smallestCell);
    EXPECT_LE(grid->visibleRows().first, 120);
    EXPECT_GT(grid->visibleRows().second, 120);
}

TEST_F(Page, ThumbnailsOnTheScreenAreReadFirstAndFromTheTop)
{
    ASSERT_TRUE(QTest::qWaitFor([&] { return grid->thumbnails().count() > 0; }, patience));
    const QVector<qint64> requests = source->requests();
    EXPECT_TRUE(shown({0, 1}).contains(requests[0]));
    const QVector<qint64> onScreen = page->shownPhotos().mid(0, grid->visibleRows().second);
    ASSERT_TRUE(QTest::qWaitFor([&] { return source->requests().size() > onScreen.size(); }, patience));
    for (int at = 0; at < onScreen.size() - 1; ++at)
        EXPECT_TRUE(onScreen.contains(source->requests()[at])) << at;
}

TEST_F(Page, SettingsComeBack)
{
    QTemporaryDir place;
    QSettings settings(place.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat);
    grid->setCellSize(224);
    trigger("sortMenu", QStringLiteral("&Name"));
    press(Qt::Key_F9);
    page->saveState(settings);
    LibraryPage other(library, source);
    other.restoreState(settings);
    EXPECT_EQ(other.findChild<PhotoGrid *>()->cellSize(), 224);
    EXPECT_EQ(other.shownPhotos(), page->shownPhotos());
    EXPECT_TRUE(other.findChild<QAction *>(QStringLiteral("factsAction"))->isChecked());
}

TEST_F(Page, IsDestroyedWhileItsSourceHangs)
{
    const auto hanging = std::make_shared<MadeThumbnails>();
    hanging->hold(true);
    auto other = std::make_unique<LibraryPage>(library, hanging);
    other->resize(800, 600);
    other->show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !hanging->requests().isEmpty(); }, patience));
    other.reset();
    hanging->hold(false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return hanging.use_count() == 1; }, patience));
}

TEST_F(Page, ASourceThatFailsLeavesThePageUsableAndIsTold)
{
    const auto broken = std::make_shared<MadeThumbnails>();
    broken->fail(true);
    LibraryPage other(library, broken);
    QSignalSpy failing(&other, &LibraryPage::readsFailing);
    other.resize(1100, 800);
    other.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return failing.count() == 1; }, patience));
    EXPECT_EQ(other.shownPhotos(), page->shownPhotos());
}

TEST_F(Page, AThumbnailThatFailedIsReadWhenItIsWantedAgain)
{
    const auto broken = std::make_shared<MadeThumbnails>();
    broken->fail(true);
    LibraryPage other(library, broken);
    QSignalSpy failing(&other, &LibraryPage::readsFailing);
    other.resize(1100, 800);
    other.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return failing.count() > 0; }, patience));
    auto *photos = other.findChild<PhotoGrid *>();
    EXPECT_EQ(photos->thumbnails().count(), 0);
    broken->fail(false);
    photos->setCellSize(photos->cellSize() + 16);
    const qint64 first = other.shownPhotos().first();
    ASSERT_TRUE(QTest::qWaitFor([&] { return photos->thumbnails().find(first) != nullptr; }, patience));
    EXPECT_FALSE(photos->thumbnails().find(first)->square.isNull());
}

TEST_F(Page, OfAFolderThatTheDeviceLeftFailsToReadThumbnailsInsteadOfLackingThem)
{
    browser::LibraryThumbnails thumbnails(library);
    const qint64 id = page->shownPhotos().first();
    EXPECT_FALSE(thumbnails.thumbnail(id).bytes.isEmpty());
    const QString parts = folder->path(QStringLiteral("PhotoData"));
    ASSERT_TRUE(QFile::rename(parts, parts + QStringLiteral("-away")));
    const browser::ThumbnailAnswer answer = thumbnails.thumbnail(id);
    ASSERT_TRUE(QFile::rename(parts + QStringLiteral("-away"), parts));
    EXPECT_TRUE(answer.bytes.isEmpty());
    EXPECT_TRUE(answer.failed);
}

TEST_F(Page, EverythingThatTakesTheFocusHasANameForScreenReaders)
{
    press(Qt::Key_F9);
    ASSERT_TRUE(child<QWidget>("factsPane")->isVisible());
    const QList<QWidget *> widgets = page->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        const bool isTabStop = widget->focusPolicy() & Qt::TabFocus && widget->isVisible() && !widget->focusProxy();
        const bool isPartOfAnother = widget->objectName().startsWith(QLatin1String("qt_"));
        const bool isNamed = !widget->accessibleName().isEmpty() || widget->inherits("QPushButton");
        EXPECT_TRUE(!isTabStop || isPartOfAnother || isNamed)
            << widget->metaObject()->className() << ' ' << qPrintable(widget->objectName());
    }
}

} // namespace
