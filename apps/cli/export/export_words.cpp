#include "apps/cli/export/export_words.h"

#include "apps/cli/output/text.h"

#include <QStringList>

namespace photocli
{

using exporter::FileStatus;
using exporter::Role;

QString roleName(Role role)
{
    switch (role) {
    case Role::Original:
        return QStringLiteral("original");
    case Role::Film:
        return QStringLiteral("film");
    case Role::EditNotes:
        return QStringLiteral("edit-notes");
    case Role::Edited:
        return QStringLiteral("edited");
    case Role::EditedFilm:
        return QStringLiteral("edited-film");
    }
    return {};
}

QString statusName(FileStatus status, bool dryRun)
{
    switch (status) {
    case FileStatus::Exported:
        return dryRun ? QStringLiteral("planned") : QStringLiteral("exported");
    case FileStatus::Adopted:
        return QStringLiteral("adopted");
    case FileStatus::Skipped:
        return QStringLiteral("skipped");
    case FileStatus::Missing:
        return QStringLiteral("missing");
    case FileStatus::Failed:
        return QStringLiteral("failed");
    }
    return {};
}

QString fileName(const exporter::FileReport &file)
{
    return file.devicePath.isEmpty() ? QStringLiteral("photo %1").arg(file.photoId) : file.devicePath;
}

QString summaryLine(const exporter::RunOutcome &outcome, bool dryRun)
{
    QStringList parts;
    parts +=
        QStringLiteral("%1 %2 (%3)")
            .arg(counted(outcome.count(FileStatus::Exported), "file", "files"),
                 dryRun ? QStringLiteral("to export") : QStringLiteral("exported"), humanSize(outcome.bytesExported));
    const auto add = [&](FileStatus status, const char *text) {
        if (const qint64 count = outcome.count(status); count > 0)
            parts += QStringLiteral("%1 %2").arg(count).arg(QLatin1String(text));
    };
    add(FileStatus::Adopted, "found there and taken over");
    add(FileStatus::Skipped, "already there");
    add(FileStatus::Missing, "not on the device");
    add(FileStatus::Failed, "failed");
    if (outcome.albums > 0)
        parts += counted(outcome.albums, "album", "albums");
    if (outcome.albumsFailed > 0)
        parts += counted(outcome.albumsFailed, "album failed", "albums failed");
    const bool complete = outcome.photosDone == outcome.photosTotal;
    const QString photos = complete ? counted(outcome.photosTotal, "photo or video", "photos and videos")
                                    : QStringLiteral("%1 of %2")
                                          .arg(outcome.photosDone)
                                          .arg(counted(outcome.photosTotal, "photo or video", "photos and videos"));
    return QStringLiteral("%1: %2").arg(photos, parts.join(QStringLiteral(", ")));
}

} // namespace photocli
