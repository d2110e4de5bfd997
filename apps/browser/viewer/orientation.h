#ifndef APPS_BROWSER_VIEWER_ORIENTATION_H
#define APPS_BROWSER_VIEWER_ORIENTATION_H

#include <QByteArray>
#include <QImage>

#include <optional>

namespace browser
{

/// The picture upright, from pixels stored in one of EXIF's orientations, 1 to 8. Any other number changes nothing.
QImage upright(const QImage &stored, int orientation);

/// Size of the upright picture.
QSize uprightSize(const QSize &stored, int orientation);

/// The orientation, 1 to 8, that the EXIF data of a JPEG file names; none when there is none.
std::optional<int> jpegOrientation(const QByteArray &jpeg);

} // namespace browser

#endif
