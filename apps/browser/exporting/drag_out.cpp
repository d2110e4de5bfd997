#include "apps/browser/exporting/drag_out.h"

#include "apps/browser/exporting/drag_copy.h"
#include "apps/browser/exporting/drag_folder.h"
#include "apps/browser/exporting/reading_window.h"

#include <QApplication>
#include <QEventLoop>
#include <QMimeData>
#include <QPointer>
#include <QProgressDialog>
#include <QUrl>

namespace browser
{

namespace
{

class DragFiles final : public QMimeData
{
public:
    DragFiles(std::shared_ptr<OpenedLibrary> library, const QVector<qint64> &ids)
        : opened(std::move(library)), photos(ids)
    {
    }
    ~DragFiles() override { retire(std::move(opened)); }
    DragFiles(const DragFiles &) = delete;
    DragFiles &operator=(const DragFiles &) = delete;

    QStringList formats() const override { return {uriList()}; }
    bool hasFormat(const QString &format) const override { return format == uriList(); }

protected:
    QVariant retrieveData(const QString &format, QVariant::Type) const override
    {
        if (format != uriList() || state->busy)
            return {};
        const std::shared_ptr<State> kept = state; // the drag may end, and this object go, while files are read
        if (!kept->fetched)
            fetch(*kept);
        return kept->urls;
    }

private:
    struct State {
        QVariantList urls;
        std::shared_ptr<DragFolder> folder;
        bool fetched = false;
        bool busy = false;
    };

    static QString uriList() { return QStringLiteral("text/uri-list"); }

    void fetch(State &reading) const
    {
        reading.fetched = true;
        if (refusesSoMany(photos.size(), QApplication::activeWindow()))
            return;
        reading.busy = true;
        DragCopy copy(opened, photos);
        wait(copy, photos.size()); // this object may be gone afterwards
        reading.busy = false;
        if (!copy.isFinished())
            return;
        const DragCopies &copies = copy.result();
        reading.folder = copies.folder;
        for (const QString &file : copies.files)
            reading.urls.append(QUrl::fromLocalFile(file));
        tellFailures(copies, QApplication::activeWindow());
    }

    // Until the copy is finished or nobody wants it any more: the person, the window, or the program.
    static void wait(DragCopy &copy, int count)
    {
        const QPointer<QProgressDialog> window = makeReadingWindow(copy, count, QApplication::activeWindow());
        QEventLoop loop;
        QObject::connect(&copy, &DragCopy::finished, &loop, &QEventLoop::quit);
        QObject::connect(window, &QProgressDialog::canceled, &loop, &QEventLoop::quit);
        QObject::connect(window, &QObject::destroyed, &loop, &QEventLoop::quit);
        copy.start();
        loop.exec();
        delete window.data();
    }

    std::shared_ptr<OpenedLibrary> opened;
    const QVector<qint64> photos;
    const std::shared_ptr<State> state = std::make_shared<State>();
};

} // namespace

QMimeData *dragData(std::shared_ptr<OpenedLibrary> library, const QVector<qint64> &ids)
{
    return new DragFiles(std::move(library), ids);
}

} // namespace browser
