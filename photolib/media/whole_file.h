#ifndef PHOTOLIB_MEDIA_WHOLE_FILE_H
#define PHOTOLIB_MEDIA_WHOLE_FILE_H

#include <QByteArray>

struct VFile;

namespace photolib
{

/// Reads an open file from its start to its end with one request and replaces `out` with its bytes. False, with `out`
/// as it was, when fewer bytes came than the file is long, and for a size that no byte array can have.
bool readWholeFile(VFile *file, QByteArray *out);

} // namespace photolib

#endif
