#include "loaded_library.h"

#include <dlfcn.h>

// RTLD_NOW: a function of the host that the program lacks, or hides, is told now, and not in the midst of a call.
LoadedLibrary::LoadedLibrary(const char *path) : handle(dlopen(path, RTLD_NOW | RTLD_LOCAL))
{
    if (!handle) {
        problem = dlerror();
        return;
    }
    // C++ functions carry their parameters in their names: this is getPhotolib(IIPod *).
    getFunction = reinterpret_cast<decltype(getFunction)>(symbol("_Z11getPhotolibP5IIPod"));
    releaseFunction = reinterpret_cast<decltype(releaseFunction)>(symbol("_Z15releasePhotolibPP17photo_manager_int"));
    if (!getFunction || !releaseFunction)
        problem = std::string(path) + " has no getPhotolib() and releasePhotolib()";
}

LoadedLibrary::~LoadedLibrary()
{
    if (handle)
        dlclose(handle);
}

void *LoadedLibrary::symbol(const std::string &decoratedName) const
{
    return dlsym(handle, decoratedName.c_str());
}
