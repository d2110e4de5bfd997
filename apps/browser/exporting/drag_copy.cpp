#include "apps/browser/exporting/drag_copy.h"

#include "apps/browser/media/device_read.h"
#include "devicehost/device_host.h"
#include "devicehost/private_folder.h"

#include <QFile>
#include <QFileInfo>

#include <list>
#include <mutex>
#include <new>

namespace browser
{

namespace
{

// Until the program ends.
QString newFolder()
{
    static std::mutex mutex;
    static std::list<devicehost::PrivateFolder> folders;
    const std::lock_guard<std::mutex> lock(mutex);
    return QString::fromUtf8(folders.emplace_back().path());
}

// A name in the folder that is not taken.
QString freeName(const QString &folder, const QString &wanted)
{
    QString name = wanted;
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    if (name.isEmpty() || name.startsWith(QLatin1Char('.')))
        name.prepend(QLatin1Char('_'));
    const QFileInfo parts(name);
    const QString suffix = parts.suffix().isEmpty() ? QString() : QLatin1Char('.') + parts.suffix();
    for (int number = 1; QFile::exists(folder + name); ++number)
        name = QStringLiteral("%1 (%2)%3").arg(parts.completeBaseName()).arg(number).arg(suffix);
    return folder + name;
}

void setTime(const QString &path, const QDateTime &time)
{
    QFile file(path);
    if (time.isValid() && file.open(QIODevice::ReadWrite))
        file.setFileTime(time, QFileDevice::FileModificationTime);
}

} // namespace

DragCopy::DragCopy(std::shared_ptr<OpenedLibrary> library, QVector<qint64> ids, QObject *parent)
    : QObject(parent), opened(std::move(library)), photos(std::move(ids))
{
}

DragCopy::~DragCopy()
{
    cancel();
    if (thread.joinable())
        thread.join();
}

void DragCopy::start()
{
    thread = std::thread([this] { work(); });
}

void DragCopy::work()
{
    try {
        const QString folder = newFolder();
        if (folder.isEmpty()) {
            failed = static_cast<int>(photos.size());
            failure = CopyEnd::CannotWrite;
        }
        for (int i = 0; i < photos.size() && !folder.isEmpty() && !cancelled.load(); ++i)
            if (!copyOne(photos[i], i, folder))
                ++failed;
        if (cancelled.load())
            copies.clear();
    } catch (const std::bad_alloc &) {
        ++failed;
        failure = CopyEnd::ReadFailed;
    }
    QMetaObject::invokeMethod(this, [this] {
        thread.join();
        done = true;
        Q_EMIT finished();
    });
}

bool DragCopy::copyOne(qint64 id, int number, const QString &folder)
{
    const std::optional<photoItem> photo = opened->item(id);
    const QString path = photo ? originalPathOf(*photo) : QString();
    CopyResult result{CopyEnd::Absent, {}};
    QString target;
    int told = -1;
    if (!path.isEmpty()) {
        target = freeName(folder, photo->fileName);
        result = copyDeviceFile(opened->host(), path, target, [&](qint64 bytes, qint64 total) {
            const int part = total > 0 ? static_cast<int>(bytes * 1000 / total) : 0;
            if (part / 10 != told / 10) {
                told = part;
                QMetaObject::invokeMethod(this, [this, number, part] { Q_EMIT progress(number, part); });
            }
            return !cancelled.load();
        });
    }
    if (result.end == CopyEnd::Complete) {
        setTime(target, photo->dateCreated);
        copies += target;
        return true;
    }
    failure = result.end;
    if (!target.isEmpty())
        QFile::remove(target);
    return false;
}

} // namespace browser
