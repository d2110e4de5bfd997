#include "exporter/asset_files.h"

#include "exporter/errors.h"
#include "exporter/media_type.h"
#include "exporter/safe_name.h"
#include "photolib/photo_item.h"

#include <QStringList>

namespace exporter
{

namespace
{

using Presence = AssetFile::Presence;

class Finder
{
public:
    Finder(DeviceSource &deviceSource, const photoItem &item) : source(deviceSource), photo(item) {}

    std::vector<AssetFile> find(bool edited, const std::set<QString> &videos);

private:
    AssetFile look(Role role, const QString &path);
    /// Adds the first of the files that is there, or cannot be looked at. True when one was added.
    bool addFirst(Role role, const std::set<QString> &except = {});

    DeviceSource &source;
    const photoItem &photo;
    QString original;
    std::vector<AssetFile> files;
};

AssetFile Finder::look(Role role, const QString &path)
{
    AssetFile file;
    file.role = role;
    file.devicePath = path;
    file.extension = safeExtension(extensionOf(path.mid(path.lastIndexOf(QLatin1Char('/')) + 1)));
    try {
        source.withRetries([&] {
            if (const auto opened = source.open(path)) {
                file.presence = Presence::Here;
                file.size = opened->size();
            }
        });
    } catch (const DeviceProblem &problem) {
        file.presence = Presence::Unusable;
        file.problem = problem.text;
    }
    return file;
}

bool Finder::addFirst(Role role, const std::set<QString> &except)
{
    const QStringList paths = companionPaths(photo, role);
    for (const QString &path : paths) {
        if (path.compare(original, Qt::CaseInsensitive) == 0 || except.count(path) != 0)
            continue;
        AssetFile file = look(role, path);
        if (file.presence == Presence::Absent)
            continue;
        files.push_back(std::move(file));
        return true;
    }
    return false;
}

std::vector<AssetFile> Finder::find(bool edited, const std::set<QString> &videos)
{
    original = originalPath(photo);
    files.push_back(look(Role::Original, original));
    if (files.front().presence == Presence::Absent && !source.isAlive())
        throw DeviceProblem(QStringLiteral("the device does not answer any more"));
    addFirst(Role::Film, videos);
    const bool hasNotes = addFirst(Role::EditNotes);
    if (edited && (photo.hasAdjustments != 0 || hasNotes)) {
        addFirst(Role::Edited);
        addFirst(Role::EditedFilm);
    }
    return std::move(files);
}

QStringList extensionsOf(Role role, bool isVideo)
{
    static const QStringList pictures{QStringLiteral("jpg"),  QStringLiteral("heic"), QStringLiteral("JPG"),
                                      QStringLiteral("HEIC"), QStringLiteral("png"),  QStringLiteral("PNG"),
                                      QStringLiteral("jpeg"), QStringLiteral("gif"),  QStringLiteral("GIF")};
    static const QStringList films{QStringLiteral("mov"), QStringLiteral("MOV"), QStringLiteral("mp4"),
                                   QStringLiteral("MP4")};
    switch (role) {
    case Role::Original:
        return {};
    case Role::Film:
        return isVideo ? QStringList() : QStringList{QStringLiteral("MOV"), QStringLiteral("mov")};
    case Role::EditNotes:
        return {QStringLiteral("AAE")};
    case Role::Edited:
        return isVideo ? films : pictures;
    case Role::EditedFilm:
        return isVideo ? QStringList() : films;
    }
    return {};
}

} // namespace

QString suffixOf(Role role)
{
    return role == Role::Edited || role == Role::EditedFilm ? QStringLiteral("_edited") : QString();
}

QString originalPath(const photoItem &photo)
{
    const QString path = QLatin1Char('/') + photo.directory + QLatin1Char('/') + photo.fileName;
    const bool leadsElsewhere = path.split(QLatin1Char('/')).contains(QStringLiteral(".."));
    if (photo.fileName.isEmpty() || photo.fileName.contains(QLatin1Char('/')) || leadsElsewhere ||
        path.contains(QChar(0)))
        return QString();
    return photo.directory.isEmpty() ? QLatin1Char('/') + photo.fileName : path;
}

QStringList companionPaths(const photoItem &photo, Role role)
{
    const QString original = originalPath(photo);
    if (original.isEmpty())
        return {};
    const int nameStart = original.lastIndexOf(QLatin1Char('/')) + 1;
    QString stem = original.left(nameStart) + stemOf(original.mid(nameStart));
    if (role == Role::Edited || role == Role::EditedFilm)
        stem = QStringLiteral("/PhotoData/Mutations") + stem + QStringLiteral("/Adjustments/FullSizeRender");
    QStringList paths;
    const QStringList extensions = extensionsOf(role, photo.mediaType == videoMedia);
    for (const QString &extension : extensions)
        paths += stem + QLatin1Char('.') + extension;
    return paths;
}

std::vector<AssetFile> findAssetFiles(DeviceSource &source, const photoItem &photo, bool edited,
                                      const std::set<QString> &videos)
{
    return Finder(source, photo).find(edited, videos);
}

} // namespace exporter
