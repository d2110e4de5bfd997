#include "apps/browser/exporting/drag_copy.h"

#include "apps/browser/exporting/drag_folder.h"
#include "apps/browser/library/background.h"
#include "devicehost/device_host.h"
#include "exporter/asset_files.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <functional>
#include <new>
#include <vector>

namespace browser
{

namespace
{

using exporter::Role;

void setTime(const QString &path, const QDateTime &time)
{
    QFile file(path);
    if (time.isValid() && file.open(QIODevice::ReadWrite))
        file.setFileTime(time, QFileDevice::FileModificationTime);
}

std::vector<Role> companionsOf(const photoItem &photo)
{
    constexpr qint32 livePhoto = 2;
    std::vector<Role> roles;
    if (photo.kindSubtype == livePhoto)
        roles.push_back(Role::Film);
    if (photo.hasAdjustments != 0)
        roles.push_back(Role::Edited);
    if (photo.kindSubtype == livePhoto && photo.hasAdjustments != 0)
        roles.push_back(Role::EditedFilm);
    return roles;
}

// Everything that the thread needs, and nothing of the object that started it.
class Copier
{
public:
    using Progress = std::function<void(int photos, int thousandths)>;

    Copier(std::shared_ptr<OpenedLibrary> library, std::vector<qint64> ids,
           std::shared_ptr<std::atomic<bool>> cancelFlag, Progress toTell)
        : opened(std::move(library)), photos(std::move(ids)), cancelled(std::move(cancelFlag)),
          progress(std::move(toTell))
    {
    }

    DragCopies run()
    {
        try {
            copyAll();
        } catch (const std::bad_alloc &) {
            result.failures += static_cast<int>(photos.size()) - number;
            result.failure = CopyEnd::ReadFailed;
        }
        if (cancelled->load())
            result = {};
        else if (result.files.isEmpty())
            result.folder.reset();
        return std::move(result);
    }

private:
    void copyAll()
    {
        const int count = static_cast<int>(photos.size());
        result.folder = std::make_shared<DragFolder>();
        if (result.folder->path().isEmpty()) {
            result.failures = count;
            result.failure = CopyEnd::CannotWrite;
            return;
        }
        for (number = 0; number < count && !cancelled->load(); ++number) {
            told = 0;
            if (!copyPhoto(photos[static_cast<std::size_t>(number)]))
                ++result.failures;
            if (result.failure == CopyEnd::DeviceGone) {
                result.failures += count - number - 1;
                return;
            }
        }
    }

    bool copyPhoto(qint64 id)
    {
        const std::optional<photoItem> photo = opened->item(id);
        if (!photo) {
            result.failure = CopyEnd::Absent;
            return false;
        }
        const QString stem = freeStem(*photo);
        const CopyEnd original = copyFirst({exporter::originalPath(*photo)}, stem, *photo);
        bool isGood = original == CopyEnd::Complete;
        if (!isGood)
            result.failure = original;
        if (original == CopyEnd::DeviceGone)
            return false;
        const std::vector<Role> companions = companionsOf(*photo);
        for (const Role role : companions) {
            const CopyEnd end =
                copyFirst(exporter::companionPaths(*photo, role), stem + exporter::suffixOf(role), *photo);
            if (end == CopyEnd::Complete || end == CopyEnd::Absent)
                continue;
            isGood = false;
            result.failure = end;
        }
        return isGood;
    }

    // The first of the files that is there.
    CopyEnd copyFirst(const QStringList &paths, const QString &stem, const photoItem &photo)
    {
        for (const QString &path : paths) {
            if (path.isEmpty() || cancelled->load())
                break;
            const CopyEnd end = copyFile(path, stem, photo);
            if (end != CopyEnd::Absent)
                return end;
        }
        return CopyEnd::Absent;
    }

    CopyEnd copyFile(const QString &path, const QString &stem, const photoItem &photo)
    {
        const QString extension = QFileInfo(path).suffix();
        const QString target =
            result.folder->path() + (extension.isEmpty() ? stem : stem + QLatin1Char('.') + extension);
        const CopyResult copied = copyDeviceFile(opened->host(), path, target, [this](qint64 done, qint64 total) {
            tell(total > 0 ? static_cast<int>(done * 1000 / total) : 0);
            return !cancelled->load();
        });
        if (copied.end != CopyEnd::Complete) {
            QFile::remove(target);
            return copied.end;
        }
        setTime(target, photo.dateCreated);
        result.files += target;
        result.bytes += QFileInfo(target).size();
        return CopyEnd::Complete;
    }

    void tell(int part)
    {
        if (part / 10 <= told / 10) // also the later files of a photo, which begin anew
            return;
        told = part;
        progress(number, part);
    }

    // The files of one photo share a name; the same name once more gets a number.
    QString freeStem(const photoItem &photo)
    {
        const QString fileName = QString(photo.fileName).replace(QLatin1Char('/'), QLatin1Char('_'));
        QString wanted = QFileInfo(fileName).completeBaseName();
        if (wanted.isEmpty() || wanted.startsWith(QLatin1Char('.')))
            wanted.prepend(QLatin1Char('_'));
        QStringList suffixes{QString()};
        if (photo.hasAdjustments != 0)
            suffixes += exporter::suffixOf(Role::Edited);
        QString stem = wanted;
        const auto isTaken = [&](const QString &suffix) { return stems.contains((stem + suffix).toLower()); };
        for (int next = 1; std::any_of(suffixes.cbegin(), suffixes.cend(), isTaken); ++next)
            stem = QStringLiteral("%1 (%2)").arg(wanted).arg(next);
        for (const QString &suffix : qAsConst(suffixes))
            stems.insert((stem + suffix).toLower());
        return stem;
    }

    const std::shared_ptr<OpenedLibrary> opened;
    const std::vector<qint64> photos;
    const std::shared_ptr<std::atomic<bool>> cancelled;
    const Progress progress;
    DragCopies result;
    QSet<QString> stems;
    int number = 0; ///< of the photo in hand
    int told = 0;   ///< thousandths of it
};

} // namespace

DragCopy::DragCopy(std::shared_ptr<OpenedLibrary> library, const QVector<qint64> &ids, QObject *parent)
    : QObject(parent), opened(std::move(library)), photos(ids.begin(), ids.end())
{
    copies.failures = ids.size(); // what remains when this computer has no room for a thread
    copies.failure = CopyEnd::ReadFailed;
}

DragCopy::~DragCopy()
{
    cancel();
}

void DragCopy::start()
{
    const auto *const box = new Reply(this);
    const auto tell = [this, mailbox = box->mailbox](int number, int part) {
        mailbox->post([this, number, part] { Q_EMIT progress(number, part); });
    };
    const auto copier = std::make_shared<Copier>(std::move(opened), photos, cancelled, tell);
    inBackground<std::shared_ptr<DragCopies>>(
        this, [copier] { return std::make_shared<DragCopies>(copier->run()); },
        [this](const std::shared_ptr<DragCopies> &ended) {
            if (cancelled->load()) // also after the last block
                copies = {};
            else if (ended)
                copies = std::move(*ended);
            if (copies.folder)
                copies.folder->lend(copies.bytes);
            if (ended && ended->folder) // nobody gets it; removing it can take a while
                startBackground([folder = std::move(ended->folder)] {});
            done = true;
            Q_EMIT finished();
        });
}

} // namespace browser
