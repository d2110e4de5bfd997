#include "apps/browser/exporting/drag_copy.h"
#include "apps/browser/exporting/drag_out.h"
#include "tests/browser/exporting/exporting_device.h"

#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QUrl>

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
    const std::vector<qint64> ids = firstHere(5);
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
    const QByteArray list = dataOf(firstHere(2))->data(QStringLiteral("text/uri-list"));
    EXPECT_EQ(list.count("file:///"), 2);
    EXPECT_TRUE(list.endsWith("\r\n"));
}

TEST_F(Dragging, GivesNamesThatAreTakenANumber)
{
    const QList<QUrl> urls = dataOf({here[0], here[0]})->urls();
    ASSERT_EQ(urls.size(), 2);
    EXPECT_NE(urls[0], urls[1]);
    EXPECT_TRUE(urls[1].fileName().contains(QStringLiteral(" (1)."))) << urls[1].fileName().toStdString();
}

TEST_F(Dragging, LeavesOutWhatCannotBeReadAndSaysSo)
{
    const QList<QUrl> urls = dataOf({here[0], absent[0], 999'999})->urls();
    EXPECT_EQ(urls.size(), 1);
    EXPECT_TRUE(message().startsWith(QStringLiteral("2 "))) << message().toStdString();
}

TEST_F(Dragging, OfTooManyPhotosGivesNothingAndSaysWhatToDo)
{
    const std::vector<qint64> many(browser::mostDraggedPhotos + 1, here[0]);
    EXPECT_TRUE(dataOf(many)->urls().isEmpty());
    EXPECT_TRUE(message().contains(QStringLiteral("Export")));
}

TEST_F(Dragging, CancelledGivesNothing)
{
    browser::DragCopy copy(library, asVector(some));
    copy.cancel();
    copy.start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return copy.isFinished(); }, patience));
    EXPECT_TRUE(copy.files().isEmpty());
}

TEST_F(Dragging, EndsWhileFilesAreRead)
{
    auto copy = std::make_unique<browser::DragCopy>(library, asVector(some));
    copy->start();
    copy.reset();
    QCoreApplication::processEvents();
}

} // namespace
