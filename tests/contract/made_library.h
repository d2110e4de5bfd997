#ifndef TESTS_CONTRACT_MADE_LIBRARY_H
#define TESTS_CONTRACT_MADE_LIBRARY_H

#include <QByteArray>
#include <QString>

/// The content of a Photos.sqlite with album 5 (kind 2, holding photo 7), photo 7 in the camera roll and photo 9
/// synced, both with this index of their thumbnail. It is made as a file in `folder`. Empty, after a failed
/// expectation, when it cannot be made.
QByteArray makeLibrary(const QString &folder, int thumbnailIndex = -1);

#endif
