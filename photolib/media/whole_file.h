#ifndef PHOTOLIB_MEDIA_WHOLE_FILE_H
#define PHOTOLIB_MEDIA_WHOLE_FILE_H

#include <QByteArray>

#include <limits>

struct VFile;

namespace photolib
{

/// Bytes that a QByteArray can have: it counts its own header and the byte behind its end with the same 32 bits.
constexpr qint64 largestByteArray = std::numeric_limits<int>::max() - static_cast<qint64>(sizeof(QArrayData)) - 1;

/// Reads an open file from its start to its end with one request and replaces `out` with its bytes. False, with `out`
/// as it was, when fewer bytes came than the file is long, and for a size that no byte array can have.
bool readWholeFile(VFile *file, QByteArray *out);

} // namespace photolib

#endif
