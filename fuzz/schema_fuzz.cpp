// The bytes decide how a database is built; SQLite builds it.

#include "fuzz/device_folder.h"
#include "fuzz/library_run.h"
#include "fuzz/made_library.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static fuzz::DeviceFolder device;
    fuzz::ByteReader in(data, size);
    device.put(QStringLiteral("/PhotoData/Photos.sqlite"), fuzz::madeLibrary(&in));
    fuzz::runLibrary(device.name());
    return 0;
}
