#include "apps/browser/exporting/export_job.h"
#include "apps/browser/exporting/export_window.h"
#include "tests/browser/exporting/exporting_device.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QTest>
#include <QTimer>

namespace
{

using browser::ExportWindow;

class ExportingWindow : public ExportingDevice
{
protected:
    void open(const std::vector<qint64> &ids)
    {
        QSettings().clear();
        window = std::make_unique<ExportWindow>(library, asVector(ids));
        window->show();
        find<QComboBox>("destinationBox")->setEditText(target());
    }

    template <class Widget>
    Widget *find(const char *name)
    {
        return window->findChild<Widget *>(QLatin1String(name));
    }
    QPushButton *button(const char *name) { return find<QPushButton>(name); }
    QString label(const char *name) { return find<QLabel>(name)->text(); }

    bool waitForVisible(const char *name)
    {
        return QTest::qWaitFor([&] { return find<QWidget>(name)->isVisible(); }, patience);
    }

    bool waitForEnabled(const char *name)
    {
        return QTest::qWaitFor([&] { return find<QWidget>(name)->isVisible() && find<QWidget>(name)->isEnabled(); },
                               patience);
    }

    /// From the choices to the summary.
    void plan()
    {
        ASSERT_TRUE(waitForEnabled("nextButton"));
        button("nextButton")->click();
        ASSERT_TRUE(waitForVisible("backButton"));
    }

    std::unique_ptr<ExportWindow> window;
};

TEST_F(ExportingWindow, SaysWhatItWillDoThenDoesIt)
{
    open(firstHere(10));
    plan();
    EXPECT_TRUE(label("resultCounts").contains(QStringLiteral("to copy"))) << label("resultCounts").toStdString();
    EXPECT_FALSE(QFile::exists(target()));
    EXPECT_FALSE(window->isRunning());
    button("nextButton")->click();
    ASSERT_TRUE(waitForVisible("folderButton"));
    EXPECT_GE(filesIn(target()).size(), 10);
    EXPECT_FALSE(button("againButton")->isVisible());
    EXPECT_TRUE(label("resultCounts").contains(QStringLiteral("copied")));
    EXPECT_EQ(QSettings().value(QStringLiteral("export/recentDestinations")).toStringList().first(), target());
}

TEST_F(ExportingWindow, KnowsWhatIsThereAlready)
{
    for (const char *words : {"to copy", "already there"}) {
        open(firstHere(5));
        plan();
        EXPECT_TRUE(label("resultCounts").contains(QLatin1String(words))) << label("resultCounts").toStdString();
        button("nextButton")->click();
        ASSERT_TRUE(waitForVisible("folderButton"));
    }
}

TEST_F(ExportingWindow, DoesNotCallItEverythingWhenOriginalsAreLost)
{
    const qint64 taken = firstBelow("DCIM/");
    const Absence lost(originalOf(taken));
    open({taken, here.back()});
    plan();
    EXPECT_TRUE(label("resultNote").contains(QStringLiteral("missing"))) << label("resultNote").toStdString();
    button("nextButton")->click();
    ASSERT_TRUE(waitForVisible("folderButton"));
    EXPECT_FALSE(label("resultTitle").contains(QStringLiteral("Everything"))) << label("resultTitle").toStdString();
    EXPECT_FALSE(label("resultCounts").contains(QStringLiteral("cloud"))) << label("resultCounts").toStdString();
    EXPECT_TRUE(label("resultNote").contains(QStringLiteral("missing")));
}

TEST_F(ExportingWindow, SaysHowManyPhotosEverythingLeavesOut)
{
    const browser::Snapshot &snapshot = library->snapshot();
    const QList<qint64> everything = snapshot.collections.front().photoIds;
    const int leftOut = int(snapshot.photos.size()) - everything.size();
    ASSERT_GT(leftOut, 0);
    open({everything.begin(), everything.end()});
    EXPECT_TRUE(find<QLabel>("leftOutNote")->isVisible());
    EXPECT_TRUE(label("leftOutNote").startsWith(QString::number(leftOut))) << label("leftOutNote").toStdString();
    open({std::next(everything.begin()), everything.end()});
    EXPECT_FALSE(find<QLabel>("leftOutNote")->isVisible()) << "it is a selection";
    const QList<qint64> all = library->library().getPhotoList();
    open({all.begin(), all.end()});
    EXPECT_FALSE(find<QLabel>("leftOutNote")->isVisible());
}

TEST_F(ExportingWindow, RefusesTheDevicesOwnFolder)
{
    open(firstHere(2));
    ASSERT_TRUE(waitForEnabled("nextButton"));
    find<QComboBox>("destinationBox")->setEditText(device().root() + QStringLiteral("/DCIM"));
    EXPECT_FALSE(button("nextButton")->isEnabled()) << "until it was looked at";
    ASSERT_TRUE(QTest::qWaitFor([&] { return label("destinationNote").contains(QStringLiteral("device")); }, patience));
    EXPECT_FALSE(button("nextButton")->isEnabled());
}

TEST_F(ExportingWindow, ShowsWhereFilesGoAndWhatIsWrongWithAnArrangement)
{
    open(firstHere(1));
    auto *layouts = find<QComboBox>("layoutBox");
    const QString first = label("layoutNote");
    layouts->setCurrentIndex(1);
    EXPECT_NE(label("layoutNote"), first);
    EXPECT_FALSE(find<QLineEdit>("layoutEdit")->isVisible());
    layouts->setCurrentIndex(layouts->count() - 1);
    EXPECT_TRUE(find<QLineEdit>("layoutEdit")->isVisible());
    ASSERT_TRUE(waitForEnabled("nextButton"));
    find<QLineEdit>("layoutEdit")->setText(QStringLiteral("{nothing}"));
    EXPECT_FALSE(button("nextButton")->isEnabled());
    EXPECT_TRUE(label("layoutNote").contains(QStringLiteral("wrong")));
    find<QLineEdit>("layoutEdit")->setText(QStringLiteral("all/{fileName}"));
    EXPECT_TRUE(button("nextButton")->isEnabled());
    EXPECT_TRUE(label("layoutNote").contains(QStringLiteral("all/")));
}

TEST_F(ExportingWindow, ListsWhatFailedAndTriesItAgain)
{
    const qint64 hidden = here[3];
    const QString path = originalOf(hidden), kept = path + QStringLiteral(".kept");
    open({here[2], hidden, absent[0]});
    plan();
    ASSERT_TRUE(QFile::rename(path, kept));
    ASSERT_TRUE(QDir().mkdir(path)); // is there, and cannot be read
    button("nextButton")->click();
    ASSERT_TRUE(waitForVisible("folderButton"));
    ASSERT_TRUE(QDir().rmdir(path));
    ASSERT_TRUE(QFile::rename(kept, path));
    EXPECT_EQ(find<QTableView>("problemTable")->model()->rowCount(), 2);
    button("copyProblemsButton")->click();
    EXPECT_TRUE(QApplication::clipboard()->text().contains(QFileInfo(path).fileName()));
    ASSERT_TRUE(button("againButton")->isVisible());
    button("againButton")->click();
    ASSERT_TRUE(waitForVisible("folderButton"));
    EXPECT_FALSE(button("againButton")->isVisible());
    EXPECT_EQ(find<QTableView>("problemTable")->model()->rowCount(), 0);
    EXPECT_TRUE(find<QWidget>("resultTitle")->isVisible());
}

TEST_F(ExportingWindow, CanBePausedAndResumed)
{
    open(here);
    plan();
    button("nextButton")->click();
    EXPECT_TRUE(window->isRunning());
    button("pauseButton")->click();
    EXPECT_EQ(label("progressTitle"), QStringLiteral("Paused"));
    EXPECT_TRUE(window->isRunning());
    button("pauseButton")->click();
    EXPECT_NE(label("progressTitle"), QStringLiteral("Paused"));
    ASSERT_TRUE(waitForVisible("folderButton"));
    EXPECT_GE(filesIn(target()).size(), int(here.size()));
}

TEST_F(ExportingWindow, CanBeCancelledAndTriedAgain)
{
    open(here);
    plan();
    window->findChild<browser::ExportJob *>()->pause(); // before it begins, so that it does not end before
    button("nextButton")->click();
    button("cancelButton")->click();
    ASSERT_TRUE(waitForVisible("folderButton"));
    EXPECT_FALSE(window->isRunning());
    EXPECT_TRUE(label("resultTitle").contains(QStringLiteral("cancelled")));
    button("againButton")->click();
    ASSERT_TRUE(waitForVisible("folderButton"));
    EXPECT_GE(filesIn(target()).size(), int(here.size()));
}

TEST_F(ExportingWindow, AsksBeforeItIsClosedWhileItRuns)
{
    open(here);
    plan();
    window->findChild<browser::ExportJob *>()->pause(); // before it begins, so that it does not end meanwhile
    button("nextButton")->click();
    const auto answer = [this](QMessageBox::StandardButton wanted) {
        QTimer::singleShot(0, window.get(), [wanted] {
            qobject_cast<QMessageBox *>(QApplication::activeModalWidget())->button(wanted)->click();
        });
        window->close();
    };
    answer(QMessageBox::No);
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(window->isRunning());
    answer(QMessageBox::Yes);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window->isVisible(); }, patience));
    EXPECT_FALSE(window->isRunning());
}

TEST_F(ExportingWindow, EndsInGoodOrderWhenItIsWaitedFor)
{
    open(here);
    plan();
    button("nextButton")->click();
    button("pauseButton")->click();
    window->cancelAndWait();
    EXPECT_FALSE(window->isRunning());
    for (const QString &file : filesIn(target()))
        EXPECT_GT(QFileInfo(file).size(), 0);
}

TEST_F(ExportingWindow, GoesAwayWhileItRunsAndStopsTheReadsOfItsLibrary)
{
    open(some);
    plan();
    EXPECT_FALSE(library->isStopped());
    button("nextButton")->click();
    button("pauseButton")->click();
    window.reset();
    QCoreApplication::processEvents();
    EXPECT_TRUE(library->isStopped());
}

TEST_F(ExportingWindow, LeavesItsLibraryAloneWhenNothingRuns)
{
    open(firstHere(2));
    plan();
    window->cancelAndWait();
    window.reset();
    EXPECT_FALSE(library->isStopped());
}

} // namespace
