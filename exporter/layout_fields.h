#ifndef EXPORTER_LAYOUT_FIELDS_H
#define EXPORTER_LAYOUT_FIELDS_H

#include "photolib/photo_item.h"

#include <QString>

#include <vector>

namespace exporter
{

/// A field of a layout: exactly one of `date` and `text` is set.
struct LayoutField {
    const char *name;
    const char *description;
    QDateTime (*date)(const photoItem &photo); ///< null when not known
    QString (*text)(const photoItem &photo);
};

const std::vector<LayoutField> &layoutFields();

/// False for a date that is null, and for the zero that the library reads where its database has none.
bool isKnownDate(const QDateTime &date);

} // namespace exporter

#endif
