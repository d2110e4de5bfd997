#ifndef APPS_BROWSER_VIEWER_HEIF_DECODER_H
#define APPS_BROWSER_VIEWER_HEIF_DECODER_H

#include "apps/browser/viewer/picture.h"

namespace browser
{

struct HeifImage {
    QImage image; ///< upright: the file's own transformations are obeyed
    PictureProblem problem = PictureProblem::None;
};

/// Whether the first bytes are those of a HEIF or AVIF file.
bool isHeif(const QByteArray &bytes);

/// The main picture. One of more pixels than that is TooLarge. Throws std::bad_alloc.
HeifImage decodeHeif(const QByteArray &bytes, qint64 mostPixels);

} // namespace browser

#endif
