// A thumbnail container: one of the eight that devices have, made of frames from the bytes or of the bytes as they
// stand, and a photo whose frame is asked for.

#include "devicehost/device_host.h"
#include "fuzz/byte_reader.h"
#include "fuzz/device_folder.h"
#include "fuzz/frame_trailer.h"
#include "fuzz/require.h"
#include "photolib/media/thumbnail_places.h"
#include "photolib/photolib.h"
#include "testing/library_builder.h"

#include <QtEndian>

#include <limits>

namespace
{

/// A device with an open library; its photos ask for frames that are there, missing, and out of every file.
class OpenDevice
{
public:
    OpenDevice() : host(folder.name())
    {
        testkit::BuilderOptions options;
        options.builtinAlbums = false;
        testkit::LibraryBuilder builder(testkit::Era::Ios16, options);
        for (const qint64 index : {0, 1, 2, 5, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
            testkit::AssetRow row;
            row.thumbnailIndex = index;
            row.directory = QStringLiteral("DCIM/101APPLE");
            builder.addAsset(row);
        }
        folder.put(QStringLiteral("/PhotoData/Photos.sqlite"), builder.bytes().database);
        manager = getPhotolib(&host);
        fuzz::require(manager != nullptr && manager->openLibrary(), "a sound library opens");
    }

    ~OpenDevice() { releasePhotolib(&manager); }
    OpenDevice(const OpenDevice &) = delete;
    OpenDevice &operator=(const OpenDevice &) = delete;

    fuzz::DeviceFolder folder;
    devicehost::DeviceHost host;
    photo_manager_int *manager = nullptr;
};

constexpr int mostFrames = 3;

QByteArray frames(const ithmbGeometry &geometry, fuzz::ByteReader *in)
{
    QByteArray content;
    const int count = in->choice(mostFrames + 1);
    const int missing = in->seldom(4) ? in->choice(300) : 0;
    for (int i = 0; i < count; ++i) {
        const QByteArray trailer = fuzz::anyTrailer(in);
        const QByteArray pixels = in->text() + "pixels";
        content += pixels.repeated(geometry.frameBytes / pixels.size() + 1).left(geometry.frameBytes) + trailer;
    }
    content.chop(missing);
    return content;
}

void check(int result, const QByteArray &picture)
{
    if (result != 0) {
        // The header is there when memory runs short behind it.
        fuzz::require(picture.isEmpty() || picture.size() == static_cast<int>(photolib::bitmapHeaderBytes),
                      "a failure leaves no picture");
        return;
    }
    fuzz::require(picture.startsWith("BM"), "the frame becomes a bitmap");
    fuzz::require(qFromLittleEndian<qint32>(picture.data() + 2) == picture.size(), "the header tells the size");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static OpenDevice device;
    fuzz::ByteReader in(data, size);
    const auto &containers = photolib::thumbnailContainers();
    const auto &container = containers[static_cast<std::size_t>(in.choice(static_cast<int>(containers.size())))];
    const qint64 photo = 1 + in.choice(7);
    const QString path = QString::fromLatin1(container.path);
    const bool asItStands = in.seldom(8);
    device.folder.put(path, asItStands ? in.rest() : frames(container.geometry, &in));
    QByteArray picture;
    const int result = device.manager->getThumbnail(&photo, &picture);
    check(result, picture);
    device.folder.remove(path);
    return 0;
}
