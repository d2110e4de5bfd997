// The bytes are the write-ahead log beside a sound database, behind one byte that says whether the checksums are made
// to fit (even) or the log stands as it is (odd).

#include "devicehost/device_host.h"
#include "fuzz/device_folder.h"
#include "fuzz/library_run.h"
#include "fuzz/require.h"
#include "fuzz/small_library.h"
#include "fuzz/wal_checksums.h"
#include "photolib/photolib.h"

#include <cstdint>
#include <memory>

namespace
{

const QString walPath = QStringLiteral("/PhotoData/Photos.sqlite-wal");

bool readsTitle(const fuzz::DeviceFolder &device, const QString &title)
{
    devicehost::DeviceHost host(device.name());
    photo_manager_int *manager = getPhotolib(&host);
    bool found = false;
    if (manager != nullptr && manager->openLibrary()) {
        for (const qint64 id : manager->getAlbumList()) {
            albumItem album;
            found = (manager->getAlbumItem(&id, &album) && album.title == title) || found;
        }
    }
    releasePhotolib(&manager);
    return found;
}

std::unique_ptr<fuzz::DeviceFolder> deviceWithDatabase()
{
    auto device = std::make_unique<fuzz::DeviceFolder>();
    fuzz::SmallLibrary library = fuzz::smallLibrary(testkit::Era::Ios16);
    device->put(QStringLiteral("/PhotoData/Photos.sqlite"), library.database);
    // If SQLite did not take mended logs for sound, nothing would be tried here, and nothing would show it.
    for (int i = 24; i < 32; ++i)
        library.wal[i] = '\0';
    device->put(walPath, library.wal);
    fuzz::require(!readsTitle(*device, QStringLiteral("Later")), "a log with a wrong checksum is not read");
    fuzz::mendWal(&library.wal);
    device->put(walPath, library.wal);
    fuzz::require(readsTitle(*device, QStringLiteral("Later")), "a log that was mended is read");
    return device;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const std::unique_ptr<fuzz::DeviceFolder> device = deviceWithDatabase();
    if (size == 0)
        return 0;
    QByteArray wal(reinterpret_cast<const char *>(data + 1), static_cast<int>(size - 1));
    if ((data[0] & 1) == 0)
        fuzz::mendWal(&wal);
    device->put(walPath, wal);
    fuzz::runLibrary(device->name());
    return 0;
}
