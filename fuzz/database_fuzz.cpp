// The bytes are the device's database file as it stands.

#include "fuzz/device_folder.h"
#include "fuzz/library_run.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static fuzz::DeviceFolder device;
    device.put(QStringLiteral("/PhotoData/Photos.sqlite"),
               QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    fuzz::runLibrary(device.name());
    return 0;
}
