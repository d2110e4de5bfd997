#ifndef APPS_CLI_CONTACT_SHEET_SHEET_PICTURES_H
#define APPS_CLI_CONTACT_SHEET_SHEET_PICTURES_H

#include "photolib/photolib.h"

#include <QMap>
#include <QSize>

namespace photocli
{

/// The thumbnail of one photo as a page has it.
struct SheetPicture {
    QSize size;     ///< pixels; invalid: there is none
    QByteArray uri; ///< "data:..." when the picture is asked for the first time, else empty

    bool isThere() const { return size.isValid(); }
    bool isFirst() const { return !uri.isEmpty(); }
};

/// Gives the thumbnails of a library, the bytes of each once. Keeps their sizes, not the bytes.
class SheetPictures
{
public:
    explicit SheetPictures(photo_manager_int &photoLibrary) : library(photoLibrary) {}

    SheetPicture take(qint64 photo);

    int taken() const { return sizes.size(); }   ///< different photos asked for
    int missing() const { return missingCount; } ///< those of them without a picture that can be shown

private:
    photo_manager_int &library;
    QMap<qint64, QSize> sizes;
    int missingCount = 0;
};

} // namespace photocli

#endif
