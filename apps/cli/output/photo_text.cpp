#include "apps/cli/output/photo_text.h"

#include "apps/cli/media_type.h"

namespace photocli
{

namespace
{

struct SubtypeName {
    qint32 subtype;
    const char *name;
};

constexpr SubtypeName subtypeNames[] = {
    {1, "panorama"},      {2, "Live Photo"},   {10, "screenshot"},
    {101, "slow motion"}, {102, "time-lapse"}, {103, "screen recording"},
};

} // namespace

QStringList marksOf(const photoItem &photo)
{
    QStringList marks;
    if (photo.favorite == 1)
        marks += QStringLiteral("favorite");
    if (photo.hidden != 0)
        marks += QStringLiteral("hidden");
    if (photo.trashedState == 1)
        marks += QStringLiteral("deleted");
    return marks;
}

QString durationText(qint32 seconds)
{
    if (seconds <= 0)
        return {};
    const QString rest = QString::number(seconds % 60).rightJustified(2, QChar('0'));
    if (seconds < 3600)
        return QStringLiteral("%1:%2").arg(seconds / 60).arg(rest);
    const QString minutes = QString::number(seconds / 60 % 60).rightJustified(2, QChar('0'));
    return QStringLiteral("%1:%2:%3").arg(seconds / 3600).arg(minutes, rest);
}

QString kindText(const photoItem &photo)
{
    for (const SubtypeName &entry : subtypeNames) {
        if (photo.kindSubtype == entry.subtype)
            return QLatin1String(entry.name);
    }
    return mediaTypeName(photo.mediaType);
}

} // namespace photocli
