#include "apps/browser/viewer/film_copy.h"

#include "apps/browser/library/background.h"
#include "apps/browser/media/device_read.h"
#include "devicehost/device_host.h"
#include "devicehost/private_folder.h"

#include <QFileInfo>
#include <QStringList>

namespace browser
{

namespace
{

constexpr qint32 videoType = 1; // photoItem::mediaType

// What the system opens with a player, and never runs.
bool hasFilmName(const QString &path)
{
    static const QStringList extensions{QStringLiteral("mov"), QStringLiteral("mp4"), QStringLiteral("m4v"),
                                        QStringLiteral("avi"), QStringLiteral("3gp"), QStringLiteral("3g2"),
                                        QStringLiteral("mkv"), QStringLiteral("mpg"), QStringLiteral("mpeg")};
    return extensions.contains(QFileInfo(path).suffix().toLower());
}

// In this order; an edited video as the device shows it, where it has the result of the edits.
QStringList candidates(OpenedLibrary &library, qint64 id, FilmPart part)
{
    const std::optional<photoItem> photo = library.item(id);
    const QString original = photo ? originalPathOf(*photo) : QString();
    if (original.isEmpty())
        return {};
    if (part == FilmPart::Original)
        return photo->mediaType == videoType ? renderedPathsOf(*photo) << original : QStringList(original);
    const QFileInfo file(original);
    const QString stem = file.path() + QLatin1Char('/') + file.completeBaseName();
    return {stem + QStringLiteral(".MOV"), stem + QStringLiteral(".mov")};
}

QString nameFor(const QString &path)
{
    const QFileInfo file(path);
    QString stem = file.completeBaseName();
    if (stem.isEmpty() || stem.startsWith(QLatin1Char('.')))
        stem.prepend(QStringLiteral("film"));
    return stem.left(80) + QLatin1Char('.') + (hasFilmName(path) ? file.suffix() : QStringLiteral("mov"));
}

// Wherever the last one who holds it lets it go: it may take long to remove gigabytes.
void removeBesides(devicehost::PrivateFolder *folder)
{
    try {
        if (startBackground([folder] { delete folder; }))
            return;
    } catch (const std::bad_alloc &) {
    }
    delete folder;
}

Film copied(OpenedLibrary &library, const QString &path, const CopyProgress &progress)
{
    Film film;
    film.folder.reset(new devicehost::PrivateFolder, removeBesides);
    film.path = QString::fromUtf8(film.folder->path()) + nameFor(path);
    if (film.folder->path().isEmpty()) {
        film.state = CopyEnd::CannotWrite;
        film.reason = qt_error_string(film.folder->error());
        return film;
    }
    const CopyResult result = copyDeviceFile(library.host(), path, film.path, progress);
    film.state = result.end;
    film.reason = result.reason;
    return film;
}

} // namespace

Film fetchFilm(OpenedLibrary &library, qint64 id, FilmPart part, const CopyProgress &progress)
{
    Film film;
    for (const QString &path : candidates(library, id, part)) {
        film = copied(library, path, progress);
        if (film.state != CopyEnd::Absent)
            return film;
    }
    return film;
}

} // namespace browser
