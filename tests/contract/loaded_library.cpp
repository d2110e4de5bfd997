#include "loaded_library.h"

#include <dlfcn.h>

#include <stdexcept>

LoadedLibrary::LoadedLibrary() : handle(dlopen(PHOTOLIB_LIBRARY, RTLD_NOW | RTLD_LOCAL))
{
    if (!handle)
        throw std::runtime_error(dlerror());
}

LoadedLibrary::~LoadedLibrary()
{
    dlclose(handle);
}

bool LoadedLibrary::isLoaded()
{
    void *found = dlopen(PHOTOLIB_LIBRARY, RTLD_LAZY | RTLD_NOLOAD);
    if (found)
        dlclose(found);
    return found;
}

void *LoadedLibrary::symbol(const char *decoratedName) const
{
    return dlsym(handle, decoratedName);
}

photo_manager_int *LoadedLibrary::getPhotolib(IIPod *device) const
{
    using Function = photo_manager_int *(*)(IIPod *);
    return reinterpret_cast<Function>(symbol("_Z11getPhotolibP5IIPod"))(device);
}

void LoadedLibrary::releasePhotolib(photo_manager_int **manager) const
{
    using Function = void (*)(photo_manager_int **);
    reinterpret_cast<Function>(symbol("_Z15releasePhotolibPP17photo_manager_int"))(manager);
}
