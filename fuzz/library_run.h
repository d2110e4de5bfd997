#ifndef FUZZ_LIBRARY_RUN_H
#define FUZZ_LIBRARY_RUN_H

#include <QString>

namespace fuzz
{

/// Opens the library of a device through the reference host, asks everything, reads some pictures and files, edits,
/// and closes it. Whatever the device holds, the answers must agree with each other, and no file outside of the device
/// is read; require() watches over that.
void runLibrary(const QString &deviceName);

} // namespace fuzz

#endif
