#include "apps/browser/exporting/copy_files.h"

#include "apps/browser/exporting/drag_copy.h"
#include "apps/browser/exporting/drag_folder.h"
#include "apps/browser/exporting/reading_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QProgressDialog>
#include <QUrl>

namespace browser
{

namespace
{

// Keeps the copies as long as the clipboard offers them.
class CopiedFiles final : public QMimeData
{
public:
    explicit CopiedFiles(const DragCopies &copies) : folder(copies.folder)
    {
        QList<QUrl> urls;
        QByteArray list("copy"); // as against "cut"
        for (const QString &file : copies.files) {
            urls += QUrl::fromLocalFile(file);
            list += '\n' + urls.last().toEncoded();
        }
        setUrls(urls);
        setData(QStringLiteral("x-special/gnome-copied-files"), list); // some file managers paste no other kind
    }

private:
    const std::shared_ptr<DragFolder> folder;
};

} // namespace

void copyFiles(std::shared_ptr<OpenedLibrary> library, const QVector<qint64> &ids, QWidget *parent)
{
    if (ids.isEmpty() || refusesSoMany(ids.size(), parent))
        return;
    const QString name = QStringLiteral("copyFiles");
    delete parent->findChild<DragCopy *>(name, Qt::FindDirectChildrenOnly);
    auto *const copy = new DragCopy(std::move(library), ids, parent);
    copy->setObjectName(name);
    auto *const window = makeReadingWindow(*copy, ids.size(), parent);
    QObject::connect(copy, &QObject::destroyed, window, &QObject::deleteLater);
    QObject::connect(window, &QProgressDialog::canceled, copy, &DragCopy::cancel);
    QObject::connect(window, &QProgressDialog::canceled, copy, &QObject::deleteLater);
    QObject::connect(copy, &DragCopy::finished, parent, [copy, parent] {
        const DragCopies &copies = copy->result();
        if (!copies.files.isEmpty())
            QGuiApplication::clipboard()->setMimeData(new CopiedFiles(copies));
        tellFailures(copies, parent);
        copy->deleteLater();
    });
    copy->start();
}

} // namespace browser
