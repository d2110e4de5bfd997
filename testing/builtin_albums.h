#ifndef TESTING_BUILTIN_ALBUMS_H
#define TESTING_BUILTIN_ALBUMS_H

#include "testing/era.h"

#include <QString>
#include <QVector>

namespace testkit
{

struct BuiltinAlbum {
    int kind;
    QString title; ///< null: NULL
};

/// In the order of their keys; the project root (3998) and the root folder (3999) come first. Of iOS 11 and 12 the list
/// is not known; they get that of iOS 13.
QVector<BuiltinAlbum> builtinAlbumsOf(Era era);

/// The entity number of an album of `kind`; Album's for a kind that is not known or whose entity the era lacks.
int albumEntityOf(Era era, int kind);

} // namespace testkit

#endif
