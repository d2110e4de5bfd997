#include "apps/cli/media_type.h"

namespace photocli
{

QString mediaTypeName(qint32 mediaType)
{
    switch (static_cast<MediaType>(mediaType)) {
    case MediaType::Video:
        return QStringLiteral("video");
    case MediaType::AnimatedPicture:
        return QStringLiteral("gif");
    case MediaType::Photo:
        return QStringLiteral("photo");
    }
    return QString::number(mediaType);
}

} // namespace photocli
