#ifndef TESTS_CONTRACT_LOADED_LIBRARY_H
#define TESTS_CONTRACT_LOADED_LIBRARY_H

class IIPod;
class photo_manager_int;

/// The library, loaded with dlopen; unloaded with the object.
class LoadedLibrary
{
public:
    LoadedLibrary();
    ~LoadedLibrary();
    LoadedLibrary(const LoadedLibrary &) = delete;
    LoadedLibrary &operator=(const LoadedLibrary &) = delete;

    /// Whether the library is in this process now.
    static bool isLoaded();

    /// The address of an exported function, by its decorated name; null when it is not exported.
    void *symbol(const char *decoratedName) const;

    photo_manager_int *getPhotolib(IIPod *device) const;
    void releasePhotolib(photo_manager_int **manager) const;

private:
    void *handle;
};

#endif
