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
    bool addFirst(Role role, const QString &stem, const QStringList &extensions, const std::set<QString> &except = {});
    void addEdited(const QString &stem);

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

bool Finder::addFirst(Role role, const QString &stem, const QStringList &extensions, const std::set<QString> &except)
{
    for (const QString &extension : extensions) {
        const QString path = stem + QLatin1Char('.') + extension;
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

void Finder::addEdited(const QString &stem)
{
    const QString base = QStringLiteral("/PhotoData/Mutations") + stem + QStringLiteral("/Adjustments/FullSizeRender");
    static const QStringList films{QStringLiteral("mov"), QStringLiteral("MOV"), QStringLiteral("mp4"),
                                   QStringLiteral("MP4")};
    static const QStringList pictures{QStringLiteral("jpg"),  QStringLiteral("heic"), QStringLiteral("JPG"),
                                      QStringLiteral("HEIC"), QStringLiteral("png"),  QStringLiteral("PNG"),
                                      QStringLiteral("jpeg"), QStringLiteral("gif"),  QStringLiteral("GIF")};
    if (photo.mediaType == videoMedia) {
        addFirst(Role::Edited, base, films);
    } else {
        addFirst(Role::Edited, base, pictures);
        addFirst(Role::EditedFilm, base, films);
    }
}

std::vector<AssetFile> Finder::find(bool edited, const std::set<QString> &videos)
{
    original = originalPath(photo);
    files.push_back(look(Role::Original, original));
    if (files.front().presence == Presence::Absent && !source.isAlive())
        throw DeviceProblem(QStringLiteral("the device does not answer any more"));
    const int nameStart = original.lastIndexOf(QLatin1Char('/')) + 1;
    const QString stem = original.left(nameStart) + stemOf(original.mid(nameStart));
    if (photo.mediaType != videoMedia)
        addFirst(Role::Film, stem, {QStringLiteral("MOV"), QStringLiteral("mov")}, videos);
    const bool hasNotes = addFirst(Role::EditNotes, stem, {QStringLiteral("AAE")});
    if (edited && (photo.hasAdjustments != 0 || hasNotes))
        addEdited(stem);
    return std::move(files);
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

std::vector<AssetFile> findAssetFiles(DeviceSource &source, const photoItem &photo, bool edited,
                                      const std::set<QString> &videos)
{
    return Finder(source, photo).find(edited, videos);
}

} // namespace exporter
