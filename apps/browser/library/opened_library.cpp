#include "apps/browser/library/opened_library.h"

#include "apps/browser/library/device_presence.h"
#include "devicehost/device_host.h"
#include "photolib/photolib.h"

#include <algorithm>
#include <thread>
#include <vector>

namespace browser
{

namespace
{

// The threads that free libraries.
class Retirement
{
public:
    ~Retirement() { wait(); }

    void add(std::shared_ptr<OpenedLibrary> library)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        threads.emplace_back([leaving = std::move(library)]() mutable { leaving.reset(); });
    }

    void wait()
    {
        std::vector<std::thread> leaving;
        {
            const std::lock_guard<std::mutex> lock(mutex);
            leaving.swap(threads);
        }
        for (std::thread &thread : leaving)
            thread.join();
    }

private:
    std::mutex mutex;
    std::vector<std::thread> threads;
};

Retirement &retirement()
{
    static Retirement instance;
    return instance;
}

} // namespace

void OpenedLibrary::Releaser::operator()(photo_manager_int *manager) const
{
    releasePhotolib(&manager);
}

OpenedLibrary::OpenedLibrary(std::unique_ptr<devicehost::DeviceHost> openedDevice, photo_manager_int *openedManager,
                             std::shared_ptr<const Snapshot> snapshot)
    : name(openedDevice->devicePath()), contents(std::move(snapshot)), device(std::move(openedDevice)),
      manager(openedManager)
{
}

OpenedLibrary::~OpenedLibrary() = default;

std::optional<photoItem> OpenedLibrary::item(qint64 id)
{
    photoItem item;
    if (!manager->getPhotoItem(&id, &item))
        return std::nullopt;
    return item;
}

QByteArray OpenedLibrary::thumbnail(qint64 id)
{
    const std::lock_guard<std::mutex> lock(thumbnails);
    QByteArray picture;
    if (manager->getThumbnail(&id, &picture) != 0)
        picture.clear(); // the beginning of a bitmap may have been left in it
    return picture;
}

std::optional<QByteArray> OpenedLibrary::file(qint64 id)
{
    QByteArray bytes;
    if (manager->readPhotoFile(&id, &bytes) != 1)
        return std::nullopt;
    return bytes;
}

QString OpenedLibrary::devicePath(qint64 id)
{
    const std::optional<photoItem> photo = item(id);
    return photo ? photo->directory + QLatin1Char('/') + photo->fileName : QString();
}

bool OpenedLibrary::isAvailable()
{
    return isDeviceThere(*device);
}

void OpenedLibrary::stop()
{
    stopped.store(true);
    device->requestStop();
    manager->cancel();
}

void retire(std::shared_ptr<OpenedLibrary> library)
{
    if (library)
        retirement().add(std::move(library));
}

void waitForRetired()
{
    retirement().wait();
}

} // namespace browser
