#ifndef APPS_BROWSER_VIEWER_VIEWER_TEXTS_H
#define APPS_BROWSER_VIEWER_VIEWER_TEXTS_H

#include "apps/browser/viewer/film_copy.h"
#include "apps/browser/viewer/picture.h"

namespace browser
{

/// What has to be known of a photo to say why it cannot be shown.
struct PhotoPlace {
    QString fileName;
    bool onlyInCloud = false;
    bool inBackup = false; ///< the device is a backup on this computer
};

/// What happened and what to do next, in sentences. Empty for PictureProblem::None and GivenUp.
QString problemText(const Picture &picture, const PhotoPlace &place);

/// The same for a film; empty for CopyEnd::Complete and Cancelled.
QString problemText(const Film &film, const PhotoPlace &place);

/// There is no program for films.
QString noPlayerText();

} // namespace browser

#endif
