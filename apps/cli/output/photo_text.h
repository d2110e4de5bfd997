#ifndef APPS_CLI_OUTPUT_PHOTO_TEXT_H
#define APPS_CLI_OUTPUT_PHOTO_TEXT_H

#include "photolib/photo_item.h"

#include <QStringList>

namespace photocli
{

/// What people or the device marked the photo as: "favorite", "hidden", "deleted"; empty for nothing.
QStringList marksOf(const photoItem &photo);

/// A length such as "1:05" or "1:00:09"; empty for none.
QString durationText(qint32 seconds);

/// What a photo is, for people: "Live Photo", "panorama", "screenshot", "slow motion", ..., else its media type.
QString kindText(const photoItem &photo);

} // namespace photocli

#endif
