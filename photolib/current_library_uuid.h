#ifndef PHOTOLIB_CURRENT_LIBRARY_UUID_H
#define PHOTOLIB_CURRENT_LIBRARY_UUID_H

#include <QByteArray>

class IIPod;

namespace photolib
{

/// Reads the UUID of the library that the device uses now, from a marker file (an XML property list) on the device,
/// into `*uuid`. Silent, with `*uuid` untouched, when the device, the file or the value is missing or not understood,
/// or the file is larger than any marker (64 KiB).
void readCurrentLibraryUuid(IIPod *device, QByteArray *uuid);

} // namespace photolib

#endif
