#ifndef EXPORTER_MEDIA_TYPE_H
#define EXPORTER_MEDIA_TYPE_H

#include <QtGlobal>

namespace exporter
{

/// `photoItem::mediaType` of a video.
inline constexpr qint32 videoMedia = 1;

} // namespace exporter

#endif
