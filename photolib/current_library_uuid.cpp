#include "photolib/current_library_uuid.h"

#include "photolib/host/handles.h"
#include "photolib/host/iipod.h"

#include <plist/plist.h>

#include <array>
#include <cstdint>
#include <memory>

namespace photolib
{

namespace
{

constexpr char markerPath[] = "/Photos/Sync/CurrentLibraryUUID.plist";
constexpr int readSize = 1024;

// Markers of devices are below 1 KiB. A larger file is no marker: parsing it could take for ever, or more stack than
// there is.
constexpr int largestMarker = 64 * 1024;

struct FreePlist {
    void operator()(void *plist) const { plist_free(plist); }
};

QByteArray readToEnd(VFile *file)
{
    QByteArray content;
    std::array<char, readSize> buffer;
    while (content.size() <= largestMarker) {
        const int count = vFileRead(file, buffer.data(), readSize);
        if (count <= 0)
            return content;
        content.append(buffer.data(), count);
    }
    return QByteArray();
}

void parseMarker(const QByteArray &xml, QByteArray *uuid)
{
    plist_t parsed = nullptr;
    plist_from_xml(xml.constData(), static_cast<std::uint32_t>(xml.size()), &parsed);
    if (!parsed)
        return;
    const std::unique_ptr<void, FreePlist> root(parsed);
    plist_t item = plist_dict_get_item(root.get(), "libraryUUID");
    if (!item)
        return;
    // Not plist_get_string_val(): that one ends the program at a text with a zero character.
    if (const char *value = plist_get_string_ptr(item, nullptr))
        *uuid = QByteArray(value);
}

} // namespace

void readCurrentLibraryUuid(IIPod *device, QByteArray *uuid)
{
    DeviceHandle deviceSide(vDevOpen(VDevDevice, device->devicePath().toLocal8Bit().constData()));
    if (!deviceSide) {
        vDevClose(nullptr); // hosts count their closes against their opens, failed ones included
        return;
    }
    FileHandle marker(vFileOpen(deviceSide.get(), markerPath, openForReading));
    if (!marker)
        return;
    const QByteArray xml = readToEnd(marker.get());
    marker.reset();
    parseMarker(xml, uuid);
}

} // namespace photolib
