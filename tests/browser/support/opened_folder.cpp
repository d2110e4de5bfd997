#include "tests/browser/support/opened_folder.h"

#include "devicehost/device_host.h"
#include "photolib/photolib.h"

std::shared_ptr<browser::OpenedLibrary> openFolder(const QString &folder)
{
    auto device = std::make_unique<devicehost::DeviceHost>(QStringLiteral("folder:") + folder);
    photo_manager_int *manager = getPhotolib(device.get());
    if (manager == nullptr)
        return nullptr;
    std::shared_ptr<const browser::Snapshot> snapshot;
    const std::atomic<bool> stop{false};
    if (manager->openLibrary())
        snapshot = browser::readSnapshot(*manager, stop);
    if (!snapshot) {
        releasePhotolib(&manager);
        return nullptr;
    }
    return std::make_shared<browser::OpenedLibrary>(std::move(device), manager, snapshot);
}
