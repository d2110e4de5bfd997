#include "apps/browser/exporting/drag_copy.h"
#include "apps/browser/exporting/drag_folder.h"
#include "apps/browser/exporting/drag_out.h"
#include "apps/browser/exporting/reading_window.h"
#include "tests/browser/exporting/exporting_device.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressDialog>
#include <QTest>
#include <QUrl>

#include <algorithm>
#include <chrono>

namespace
{

class Dragging : public ExportingDevice
{
protected:
    void TearDown() override
    {
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (widget->objectName() == QLatin1String("dragMessage"))
                widget->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static QString message()
    {
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (const auto *box = qobject_cast<QMessageBox *>(widget); box != nullptr && box->isVisible())
                return box->text();
        return {};
    }

    /// The first photos of the device that are still photos, have no edits and no film: one file each.
    std::vector<qint64> plain(std::size_t count)
    {
        std::vector<qint64> ids;
        for (const qint64 id : here)
            if (const auto photo = library->item(id);
                photo->kindSubtype == 0 && photo->hasAdjustments == 0 && ids.size() < count)
                ids.push_back(id);
        return ids;
    }

    QStringList namesOf(const QList<QUrl> &urls) const
    {
        QStringList names;
        for (const QUrl &url : urls)
            names += url.fileName();
        return names;
    }

    std::unique_ptr<QMimeData> dataOf(const std::vector<qint64> &ids)
    {
        return std::unique_ptr<QMimeData>(browser::dragData(library, asVector(ids)));
    }
};

TEST_F(Dragging, OffersFilesAndReadsNothingBeforeTheyAreWanted)
{
    library->stop(); // nothing can be read
    const auto data = dataOf(firstHere(2));
    EXPECT_TRUE(data->hasUrls());
    EXPECT_EQ(data->formats(), QStringList{QStringLiteral("text/uri-list")});
    EXPECT_TRUE(message().isEmpty());
}

TEST_F(Dragging, GivesCopiesOfTheOriginals)
{
    const std::vector<qint64> ids = plain(5);
    const auto data = dataOf(ids);
    const QList<QUrl> urls = data->urls();
    ASSERT_EQ(urls.size(), 5);
    for (int i = 0; i < urls.size(); ++i) {
        const qint64 id = ids[static_cast<std::size_t>(i)];
        const QString copy = urls[i].toLocalFile();
        EXPECT_EQ(read(copy), read(originalOf(id)));
        EXPECT_FALSE(QFileInfo(copy).canonicalFilePath().startsWith(QFileInfo(device().root()).canonicalFilePath()));
        EXPECT_EQ(QFileInfo(copy).lastModified().toSecsSinceEpoch(), library->item(id)->dateCreated.toSecsSinceEpoch());
    }
    EXPECT_EQ(data->urls(), urls) << "read once";
}

TEST_F(Dragging, WritesTheListAsFileManagersReadIt)
{
    const QByteArray list = dataOf(plain(2))->data(QStringLiteral("text/uri-list"));
    EXPECT_EQ(list.count("file:///"), 2);
    EXPECT_TRUE(list.endsWith("\r\n"));
}

TEST_F(Dragging, GivesNamesThatAreTakenANumber)
{
    const QList<QUrl> urls = dataOf({plain(1)[0], plain(1)[0]})->urls();
    ASSERT_EQ(urls.size(), 2);
    EXPECT_NE(urls[0], urls[1]);
    EXPECT_TRUE(urls[1].fileName().contains(QStringLiteral(" (1)."))) << urls[1].fileName().toStdString();
}

TEST_F(Dragging, LeavesOutWhatCannotBeReadAndSaysSo)
{
    const QList<QUrl> urls = dataOf({plain(1)[0], absent[0], 999'999})->urls();
    EXPECT_EQ(urls.size(), 1);
    EXPECT_TRUE(message().startsWith(QStringLiteral("2 "))) << message().toStdString();
}

TEST_F(Dragging, OfTooManyPhotosGivesNothingAndSaysWhatToDo)
{
    const std::vector<qint64> many(browser::mostDraggedPhotos + 1, here[0]);
    EXPECT_TRUE(dataOf(many)->urls().isEmpty());
    EXPECT_TRUE(message().contains(QStringLiteral("Export")));
}

TEST_F(Dragging, GivesTheFilmsOfLivePhotosAndWhatWasEdited)
{
    constexpr int livePhoto = 2;
    bool hadFilm = false, hadEdited = false;
    for (const qint64 id : here) {
        const auto photo = library->item(id);
        const QFileInfo original(originalOf(id));
        const QString stem = original.completeBaseName();
        const bool isLive = photo->kindSubtype == livePhoto;
        if (!(isLive && !hadFilm) && !(photo->hasAdjustments != 0 && !hadEdited))
            continue;
        const QStringList names = namesOf(dataOf({id})->urls());
        EXPECT_TRUE(names.contains(original.fileName()));
        hadFilm = hadFilm || (isLive && names.contains(stem + QStringLiteral(".MOV")));
        hadEdited = hadEdited || (photo->hasAdjustments != 0 && names.size() > 1 &&
                                  names.filter(stem + QStringLiteral("_edited.")).size() > 0);
    }
    EXPECT_TRUE(hadFilm);
    EXPECT_TRUE(hadEdited);
}

TEST_F(Dragging, NumbersAPhotoAndItsEditAlike)
{
    const auto edited =
        std::find_if(here.begin(), here.end(), [this](qint64 id) { return library->item(id)->hasAdjustments != 0; });
    ASSERT_NE(edited, here.end());
    const QString stem = QFileInfo(originalOf(*edited)).completeBaseName();
    const QStringList names = namesOf(dataOf({*edited, *edited})->urls());
    for (const char *name : {".", "_edited.", " (1).", " (1)_edited."})
        EXPECT_EQ(names.filter(stem + QLatin1String(name)).size(), 1) << name;
}

TEST_F(Dragging, GivesNothingWhenItsWindowGoesWhileFilesAreRead)
{
    auto *const window = new QWidget;
    window->show();
    QApplication::setActiveWindow(window);
    ASSERT_EQ(QApplication::activeWindow(), window);
    bool hadProgress = false;
    QMetaObject::invokeMethod(
        window,
        [window, &hadProgress] {
            hadProgress = window->findChild<QProgressDialog *>(QStringLiteral("dragProgress")) != nullptr;
            delete window;
        },
        Qt::QueuedConnection);
    EXPECT_TRUE(dataOf(some)->urls().isEmpty());
    EXPECT_TRUE(hadProgress);
    EXPECT_TRUE(message().isEmpty());
}

TEST_F(Dragging, MayLoseItsDataWhileFilesAreRead)
{
    auto data = dataOf(some);
    QMetaObject::invokeMethod(
        qApp, [&data] { data.reset(); }, Qt::QueuedConnection);
    EXPECT_TRUE(data->hasFormat(QStringLiteral("text/uri-list")));
    const QMimeData *const dragged = data.get();
    EXPECT_GE(dragged->urls().size(), int(some.size()));
    EXPECT_EQ(data, nullptr);
}

TEST_F(Dragging, KeepsCopiesForAWhileAfterTheDropAndThenRemovesThem)
{
    using std::chrono::steady_clock;
    auto data = dataOf(plain(1));
    const QString copy = data->urls().value(0).toLocalFile();
    ASSERT_TRUE(QFile::exists(copy));
    browser::removeDragFolders(steady_clock::now() + std::chrono::hours(48));
    EXPECT_TRUE(QFile::exists(copy)) << "the data is still offered";
    data.reset();
    browser::removeDragFolders(steady_clock::now() + std::chrono::minutes(5));
    EXPECT_TRUE(QFile::exists(copy));
    browser::removeDragFolders(steady_clock::now() + std::chrono::minutes(20));
    EXPECT_FALSE(QFile::exists(copy));
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(copy).path()));
}

TEST_F(Dragging, CancelledGivesNothing)
{
    browser::DragCopy copy(library, asVector(some));
    copy.cancel();
    copy.start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return copy.isFinished(); }, patience));
    EXPECT_TRUE(copy.result().files.isEmpty());
    EXPECT_EQ(copy.result().folder, nullptr);
}

TEST_F(Dragging, CancelledAfterTheLastBlockGivesNothing)
{
    browser::DragCopy copy(library, asVector(plain(1)));
    copy.start();
    ASSERT_TRUE(browser::waitForBackground(std::chrono::milliseconds(patience)));
    copy.cancel();
    ASSERT_TRUE(QTest::qWaitFor([&] { return copy.isFinished(); }, patience));
    EXPECT_TRUE(copy.result().files.isEmpty());
    EXPECT_EQ(copy.result().failures, 0);
}

TEST_F(Dragging, EndsWhileFilesAreRead)
{
    auto copy = std::make_unique<browser::DragCopy>(library, asVector(some));
    copy->start();
    copy.reset();
    QCoreApplication::processEvents();
}

} // namespace
