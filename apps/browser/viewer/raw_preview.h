#ifndef APPS_BROWSER_VIEWER_RAW_PREVIEW_H
#define APPS_BROWSER_VIEWER_RAW_PREVIEW_H

#include <QByteArray>

namespace browser
{

/// What a file of the TIFF family holds of a camera's sensor data.
struct RawFile {
    bool isRaw = false;
    int orientation = 1;    ///< EXIF, of all pictures in it
    QByteArray previewJpeg; ///< the largest ready picture in it; empty when there is none
};

/// Looks at the structure only: no pixels are decoded.
RawFile examineRaw(const QByteArray &bytes, const QString &fileName);

} // namespace browser

#endif
