// A window that is closed, or is to show another phone, while photos are exported from it.

#include "tests/browser/window/window_fixture.h"

#include "apps/browser/exporting/export_job.h"
#include "apps/browser/exporting/export_window.h"
#include "apps/browser/page/library_page.h"
#include "tests/cli/sample/sample_folder.h"

#include <QAction>
#include <QComboBox>
#include <QDirIterator>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace
{

using browser::ExportWindow;
using browser::LibraryPage;
using browser::MainWindow;

class ExportQuestion : public WindowTest
{
protected:
    static void SetUpTestSuite()
    {
        WindowTest::SetUpTestSuite();
        phone(); // before a test has a folder of its own for temporary files
    }

    QString target() const { return place.filePath(QStringLiteral("target")); }

    /// A window whose export of everything has begun and is paused.
    MainWindow *openExporting()
    {
        MainWindow *const window = openWindow();
        window->openDevice(phone().root());
        EXPECT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
        openExport(window);
        startExport(true);
        EXPECT_TRUE(exporting->isRunning());
        return window;
    }

    void openExport(MainWindow *window)
    {
        window->findChild<QAction *>(QStringLiteral("exportShownAction"))->trigger();
        exporting = window->findChild<ExportWindow *>();
        exporting->findChild<QComboBox *>(QStringLiteral("destinationBox"))->setEditText(target());
    }

    /// Paused, it copies nothing before it is told to go on.
    void startExport(bool paused = false)
    {
        auto *const next = exporting->findChild<QPushButton *>(QStringLiteral("nextButton"));
        EXPECT_TRUE(comesTrueSoon([next] { return next->isEnabled(); }));
        next->click();
        EXPECT_NE(waitForShown<QPushButton>(exporting, "backButton"), nullptr);
        if (paused)
            exporting->findChild<browser::ExportJob *>()->pause();
        next->click();
    }

    bool isAsking(MainWindow *window) const { return shown<QWidget>(window, "exportQuestion") != nullptr; }

    static QPushButton *answer(MainWindow *window, const QString &text)
    {
        for (auto *const button : shown<QWidget>(window, "exportQuestion")->findChildren<QPushButton *>())
            if (button->text() == text)
                return button;
        return nullptr;
    }
    static QPushButton *stopButton(MainWindow *window) { return answer(window, QStringLiteral("&Stop the Export")); }
    static QPushButton *goOnButton(MainWindow *window) { return answer(window, QStringLiteral("&Go On Exporting")); }

    int exportedFiles() const
    {
        int count = 0;
        QDirIterator all(target(), QDir::Files, QDirIterator::Subdirectories);
        while (all.hasNext())
            count += all.next().contains(QStringLiteral(".photolib-export")) ? 0 : 1;
        return count;
    }

    static SampleFolder &phone()
    {
        static SampleFolder folder;
        return folder;
    }

    QPointer<ExportWindow> exporting;
};

TEST_F(ExportQuestion, StaysOpenAndGoesOnWhenAskedTo)
{
    MainWindow *const window = openExporting();
    window->close();
    ASSERT_TRUE(isAsking(window));
    EXPECT_TRUE(window->isVisible());
    goOnButton(window)->click();
    EXPECT_TRUE(comesTrueSoon([&] { return !isAsking(window); }));
    EXPECT_TRUE(window->isVisible());
    ASSERT_TRUE(exporting && exporting->isRunning());
    exporting->findChild<QPushButton *>(QStringLiteral("pauseButton"))->click();
    EXPECT_TRUE(comesTrueSoon([this] { return !exporting->isRunning(); }));
    EXPECT_NE(shown<QPushButton>(exporting, "folderButton"), nullptr);
    EXPECT_GT(exportedFiles(), 100);
    const QPointer<MainWindow> watched = window;
    window->close();
    EXPECT_TRUE(comesTrueSoon([&] { return watched.isNull(); })) << "nothing is left to ask about";
}

TEST_F(ExportQuestion, EndsTheExportAndClosesWhenAskedTo)
{
    const QPointer<MainWindow> window = openExporting();
    window->close();
    ASSERT_TRUE(isAsking(window));
    stopButton(window)->click();
    EXPECT_FALSE(isSeen(window));
    ASSERT_FALSE(exporting.isNull()) << "it was waited for";
    EXPECT_FALSE(isSeen(exporting));
    EXPECT_TRUE(comesTrueSoon([&] { return window.isNull(); }));
    EXPECT_TRUE(comesTrueSoon([this] { return exporting.isNull(); }));
    EXPECT_EQ(exportedFiles(), 0) << "it went on after it was ended";
}

TEST_F(ExportQuestion, AsksBeforeAnotherPhoneIsChosen)
{
    MainWindow *const window = openExporting();
    auto *const choose = window->findChild<QAction *>(QStringLiteral("chooseAction"));
    choose->trigger();
    ASSERT_TRUE(isAsking(window));
    EXPECT_NE(shown<QWidget>(window, "libraryRoom"), nullptr);
    stopButton(window)->click();
    EXPECT_NE(shown<QWidget>(window, "startPage"), nullptr);
    ASSERT_FALSE(exporting.isNull()) << "it was waited for";
    EXPECT_FALSE(isSeen(exporting));
    EXPECT_TRUE(comesTrueSoon([this] { return exporting.isNull(); }));
    EXPECT_LT(exportedFiles(), 100) << "it went on after it was ended";
}

// The program may end before the export has: it is told to end then.
TEST_F(ExportQuestion, EndsTheExportWithTheLastWindow)
{
    MainWindow *const window = openExporting();
    window->close();
    ASSERT_TRUE(isAsking(window));
    stopButton(window)->click();
    ASSERT_FALSE(exporting.isNull());
    keeper.reset();
    EXPECT_TRUE(exporting.isNull());
}

TEST_F(ExportQuestion, ExportsFromWhatWasShownBeforeThePhoneWasReadAgain)
{
    MainWindow *const window = openWindow();
    window->openDevice(phone().root());
    ASSERT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
    openExport(window);
    const QPointer<LibraryPage> before = window->findChild<LibraryPage *>();
    window->findChild<QAction *>(QStringLiteral("readAgainAction"))->trigger();
    ASSERT_TRUE(comesTrueSoon([&] { return !isSeen(before); }));
    startExport();
    EXPECT_TRUE(comesTrueSoon([this] { return shown<QPushButton>(exporting, "folderButton") != nullptr; }));
    EXPECT_GT(exportedFiles(), 100);
    exporting->close();
    EXPECT_TRUE(comesTrueSoon([&] { return before.isNull(); })) << "nobody needs it any more";
}

} // namespace
