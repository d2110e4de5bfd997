#include "photolib/photo_manager.h"

#include "photolib/boundary.h"
#include "photolib/db/photos_db.h"
#include "photolib/host/handles.h"
#include "photolib/host/iipod.h"
#include "photolib/host/log.h"
#include "photolib/logging.h"
#include "photolib/media/device_access.h"
#include "photolib/media/media_path.h"
#include "photolib/media/thumbnail_places.h"
#include "photolib/media/whole_file.h"

#include <array>
#include <cstring>
#include <new>
#include <vector>

using namespace photolib;

namespace
{

qint64 recordOffset(const ithmbGeometry &geometry, qint32 index)
{
    return (geometry.frameBytes + static_cast<qint64>(frameTrailerBytes)) * index;
}

bool readTrailer(VFile *container, unsigned char *trailer)
{
    constexpr auto size = static_cast<int>(frameTrailerBytes);
    return vFileRead(container, trailer, size) >= size && isBitmapSize(pictureSizeOf(trailer));
}

// In place, and for a large picture without the room that a growing array takes ahead: a trailer of 28 bytes may ask
// for a bitmap of 2 GiB, which a container holds no pixels for.
unsigned char *appendZeros(QByteArray *out, int count)
{
    constexpr int large = 1 << 20;
    const int before = out->size();
    if (count > largestByteArray - before)
        throw std::bad_alloc();
    if (count > large)
        out->reserve(before + count);
    out->resize(before + count);
    std::memset(out->data() + before, 0, static_cast<std::size_t>(count));
    return reinterpret_cast<unsigned char *>(out->data()) + before;
}

} // namespace

// 0 also where nothing was done: hosts take it as "no picture, no fault" and look at `out`.
int photo_manager::getThumbnail(const qint64 *photoId, QByteArray *out)
{
    return guarded(-1, [&] {
        if (cancelRequested || !photosDb)
            return 0;
        const assetRecord *asset = photosDb->findAsset(static_cast<quint64>(*photoId));
        if (!asset || readV2Thumbnail(*asset, out))
            return 0;
        if (cancelRequested)
            return -1;
        if (asset->thumbnailIndex < 0) {
            Log(logTag, logProgress, "This is a newly added photo?");
            return -1;
        }
        return readIthmbThumbnail(asset->thumbnailIndex, out) ? 0 : -1;
    });
}

// The device is opened afresh for each candidate, so that one that comes back in between is found.
bool photo_manager::readV2Thumbnail(const assetRecord &asset, QByteArray *out)
{
    for (const QByteArray &path : thumbnailFiles(asset)) {
        if (cancelRequested)
            return false;
        const DeviceHandle device = openDeviceOrLog(hostDevice);
        if (!device)
            return false;
        const FileHandle file(vFileOpen(device.get(), path.constData(), openForReading));
        if (file && !cancelRequested && readWholeFile(file.get(), out))
            return true;
    }
    return false;
}

bool photo_manager::readIthmbThumbnail(qint32 index, QByteArray *out)
{
    DeviceHandle device(vDevOpen(VDevDevice, hostDevice->devicePath().toLocal8Bit().constData()));
    FileHandle container(openIthmbFile(&ithmbGeometry, device.get()));
    const auto close = [&] {
        container.reset();
        if (device)
            device.reset();
        else
            vDevClose(nullptr); // hosts count their closes against their opens, failed ones included
    };
    if (!container) {
        close();
        Log(logTag, logError, "Can not decide teh iThmb file");
        return false;
    }
    if (cancelRequested)
        return false;
    const qint64 offset = recordOffset(ithmbGeometry, index);
    if (vFileSeek(container.get(), offset, fromStart) != offset) {
        close();
        Log(logTag, logError, "Can seek to offset %lld while getting ithmb", static_cast<long long>(offset));
        return false;
    }
    std::vector<unsigned char> frame(static_cast<std::size_t>(ithmbGeometry.frameBytes) + frameTrailerBytes);
    if (vFileRead(container.get(), frame.data(), ithmbGeometry.frameBytes) < ithmbGeometry.frameBytes) {
        close();
        Log(logTag, logError, "Can not read ithmb data");
        return false;
    }
    if (!readTrailer(container.get(), frame.data() + ithmbGeometry.frameBytes)) {
        close();
        Log(logTag, logError, "Can not read ithmb info");
        return false;
    }
    return appendBitmap(frame.data(), out);
}

// A request to cancel is honoured before the pixels are made; the header is in `out` by then.
bool photo_manager::appendBitmap(const unsigned char *frame, QByteArray *out)
{
    const PictureSize size = pictureSizeOf(frame + ithmbGeometry.frameBytes);
    std::array<unsigned char, bitmapHeaderBytes> header;
    writeBitmapHeader(size, header.data());
    out->append(reinterpret_cast<const char *>(header.data()), static_cast<int>(header.size()));
    if (cancelRequested)
        return false;
    unsigned char *const pixels = appendZeros(out, bitmapPixelBytes(size));
    convertIthmbFrame(frame, ithmbGeometry, pixels);
    return true;
}

// The first container that is there wins, whichever layout the asset's frame was written for.
VFile *photo_manager::openIthmbFile(struct ithmbGeometry *geometry, VDev *device)
{
    if (!device)
        return nullptr;
    for (const ThumbnailContainer &container : thumbnailContainers()) {
        if (VFile *file = vFileOpen(device, container.path, openForReading)) {
            *geometry = container.geometry;
            return file;
        }
    }
    return nullptr;
}
