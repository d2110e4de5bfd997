#include "apps/browser/exporting/copy_files.h"
#include "apps/browser/exporting/reading_window.h"
#include "tests/browser/exporting/exporting_device.h"

#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressDialog>
#include <QTest>
#include <QUrl>
#include <QWidget>

namespace
{

class CopyingFiles : public ExportingDevice
{
protected:
    void SetUp() override
    {
        ExportingDevice::SetUp();
        QApplication::clipboard()->setText(QStringLiteral("before"));
    }
    void TearDown() override { QApplication::clipboard()->clear(); }

    static QList<QUrl> onClipboard() { return QApplication::clipboard()->mimeData()->urls(); }
    QString message() const
    {
        const auto *const box = page.findChild<QMessageBox *>(QStringLiteral("dragMessage"));
        return box != nullptr ? box->text() : QString();
    }
    bool isReading() const
    {
        return page.findChild<browser::DragCopy *>() != nullptr || page.findChild<QProgressDialog *>() != nullptr;
    }
    bool waitForEnd()
    {
        return QTest::qWaitFor([this] { return !isReading(); }, patience);
    }

    QWidget page;
};

TEST_F(CopyingFiles, PutsThemOnTheClipboardForFileManagers)
{
    browser::copyFiles(library, asVector(firstHere(2)), &page);
    ASSERT_TRUE(waitForEnd());
    const QList<QUrl> urls = onClipboard();
    ASSERT_GE(urls.size(), 2);
    EXPECT_EQ(read(urls[0].toLocalFile()), read(originalOf(here[0])));
    const QByteArray list = QApplication::clipboard()->mimeData()->data(QStringLiteral("x-special/gnome-copied-files"));
    EXPECT_TRUE(list.startsWith("copy\nfile:///")) << list.toStdString();
    EXPECT_EQ(list.count('\n'), urls.size());
    EXPECT_TRUE(message().isEmpty());
}

TEST_F(CopyingFiles, LeavesTheClipboardAloneWhenItIsCancelled)
{
    browser::copyFiles(library, asVector(some), &page);
    auto *const window = page.findChild<QProgressDialog *>(QStringLiteral("dragProgress"));
    ASSERT_NE(window, nullptr);
    Q_EMIT window->canceled();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("before"));
}

TEST_F(CopyingFiles, OnceMoreGivesUpTheCopyInHand)
{
    browser::copyFiles(library, asVector(some), &page);
    browser::copyFiles(library, {here[0]}, &page);
    ASSERT_TRUE(waitForEnd());
    EXPECT_LT(onClipboard().size(), int(some.size()));
    EXPECT_FALSE(onClipboard().isEmpty());
}

TEST_F(CopyingFiles, TellsWhatIsMissingAndWhatIsTooMuch)
{
    browser::copyFiles(library, {here[0], absent[0]}, &page);
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(message().startsWith(QStringLiteral("1 "))) << message().toStdString();
    EXPECT_FALSE(onClipboard().isEmpty());
    delete page.findChild<QMessageBox *>();
    browser::copyFiles(library, QVector<qint64>(browser::mostDraggedPhotos + 1, here[0]), &page);
    EXPECT_FALSE(isReading());
    EXPECT_TRUE(message().contains(QStringLiteral("Export")));
}

TEST_F(CopyingFiles, EndsWithItsPage)
{
    auto *const gone = new QWidget;
    browser::copyFiles(library, asVector(some), gone);
    delete gone;
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("before"));
}

} // namespace
