#ifndef APPS_CLI_MEDIA_TYPE_H
#define APPS_CLI_MEDIA_TYPE_H

#include "photolib/photo_item.h"

namespace photocli
{

/// The values of photoItem::mediaType.
enum class MediaType : qint32 { Video = 1, AnimatedPicture = 2, Photo = 3 };

inline bool isVideo(const photoItem &photo)
{
    return photo.mediaType == static_cast<qint32>(MediaType::Video);
}

/// The type for people: "video", "gif" or "photo"; the number for one that is not known.
QString mediaTypeName(qint32 mediaType);

} // namespace photocli

#endif
