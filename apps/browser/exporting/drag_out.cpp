#include "apps/browser/exporting/drag_out.h"

#include "apps/browser/exporting/drag_copy.h"
#include "apps/browser/exporting/drag_folder.h"

#include <QApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QProgressDialog>
#include <QUrl>

namespace browser
{

namespace
{

constexpr int quickEnough = 400; // milliseconds: what takes less shows no window
constexpr int steps = 1000;      // of one photo

class DragFiles final : public QMimeData
{
    Q_DECLARE_TR_FUNCTIONS(browser::DragFiles)

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

    // Never modal, and never waits: the drop is still going on.
    static void tell(const QString &text)
    {
        auto *box = new QMessageBox(QMessageBox::Information, tr("Drag to a folder"), text, QMessageBox::Ok,
                                    QApplication::activeWindow());
        box->setObjectName(QStringLiteral("dragMessage"));
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->setWindowModality(Qt::NonModal);
        box->show();
    }

    void fetch(State &reading) const
    {
        reading.fetched = true;
        if (photos.size() > mostDraggedPhotos) {
            tell(tr("More than %Ln photo(s) are better exported. Choose Export instead of dragging them.", nullptr,
                    mostDraggedPhotos));
            return;
        }
        reading.busy = true;
        DragCopy copy(opened, photos);
        wait(copy, static_cast<int>(photos.size())); // this object may be gone afterwards
        reading.busy = false;
        if (!copy.isFinished())
            return;
        const DragCopies &copies = copy.result();
        reading.folder = copies.folder;
        for (const QString &file : copies.files)
            reading.urls.append(QUrl::fromLocalFile(file));
        if (copies.failures > 0)
            tell(failureText(copies));
    }

    static QString failureText(const DragCopies &copies)
    {
        if (copies.failure == CopyEnd::NoRoom)
            return tr("There is not enough room for temporary files on this computer. Choose Export instead, with a "
                      "folder on another disk.");
        return tr("%Ln photo(s) could not be read from the device and are missing. Choose Export to see why.", nullptr,
                  copies.failures);
    }

    // Until the copy is finished or nobody wants it any more: the person, the window, or the program.
    static void wait(DragCopy &copy, int count)
    {
        const QPointer<QProgressDialog> window =
            new QProgressDialog(tr("Reading %Ln photo(s) from the device…", nullptr, count), tr("Cancel"), 0,
                                count * steps, QApplication::activeWindow());
        window->setObjectName(QStringLiteral("dragProgress"));
        window->setWindowModality(Qt::NonModal);
        window->setMinimumDuration(quickEnough);
        window->setAutoClose(false);
        window->setAutoReset(false);
        QEventLoop loop;
        QObject::connect(&copy, &DragCopy::progress, window.data(),
                         [window](int done, int part) { window->setValue(done * steps + part); });
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
