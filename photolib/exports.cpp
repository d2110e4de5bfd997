#include "photolib/photolib.h"

#include "photolib/host/iipod.h"
#include "photolib/host/log.h"
#include "photolib/logging.h"
#include "photolib/photo_manager.h"

#include <new>

using namespace photolib;

photo_manager_int::photo_manager_int(IIPod *) {}

photo_manager_int::photo_manager_int(const photo_manager_int &) {}

photo_manager_int &photo_manager_int::operator=(const photo_manager_int &)
{
    return *this;
}

photo_manager_int::~photo_manager_int() = default;

namespace
{

photo_manager_int *makeManager(IIPod *device)
{
    try {
        return new photo_manager(device);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

} // namespace

photo_manager_int *getPhotolib(IIPod *device)
{
    photo_manager_int *manager = device->isAvailable() ? makeManager(device) : nullptr;
    if (!manager)
        Log(logTag, logError, "Can not malloc photo manager");
    return manager;
}

void releasePhotolib(photo_manager_int **manager)
{
    if (!manager || !*manager)
        return;
    delete *manager;
    *manager = nullptr;
}
