#include "photolib/photo_manager.h"

#include "photolib/boundary.h"
#include "photolib/db/photos_db.h"
#include "photolib/host/handles.h"
#include "photolib/host/iipod.h"
#include "photolib/media/device_access.h"
#include "photolib/media/media_path.h"
#include "photolib/media/whole_file.h"

using namespace photolib;

int photo_manager::readPhotoFile(const qint64 *photoId, QByteArray *out)
{
    return guarded(0, [&] {
        if (cancelRequested || !photosDb)
            return 0;
        const assetRecord *asset = photosDb->findAsset(static_cast<quint64>(*photoId));
        if (!asset)
            return 0;
        const QByteArray path = mediaPath(QStringLiteral("/%1/%2"), asset->directory, asset->fileName);
        if (cancelRequested)
            return -1;
        const DeviceHandle device = openDeviceOrLog(hostDevice);
        if (!device)
            return -1;
        const FileHandle file(vFileOpen(device.get(), path.constData(), openForReading));
        return file && !cancelRequested && readWholeFile(file.get(), out) ? 1 : 0;
    });
}
