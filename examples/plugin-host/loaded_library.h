#ifndef LOADED_LIBRARY_H
#define LOADED_LIBRARY_H

#include <new>
#include <stdexcept>
#include <string>

class IIPod;
class photo_manager_int;

/// libphotolib.so, loaded; unloaded with the object, so no manager and no record may outlive it.
class LoadedLibrary
{
public:
    explicit LoadedLibrary(const char *path);
    ~LoadedLibrary();
    LoadedLibrary(const LoadedLibrary &) = delete;
    LoadedLibrary &operator=(const LoadedLibrary &) = delete;

    /// Why the library cannot be used; empty when it can.
    const std::string &error() const { return problem; }

    photo_manager_int *getPhotolib(IIPod *device) const { return getFunction(device); }
    void releasePhotolib(photo_manager_int **manager) const { releaseFunction(manager); }

    /// A function by its decorated name, such as "_ZN9albumItemC1Ev"; null when the library has none of that name.
    void *symbol(const std::string &decoratedName) const;

private:
    void *handle;
    photo_manager_int *(*getFunction)(IIPod *) = nullptr;
    void (*releaseFunction)(photo_manager_int **) = nullptr;
    std::string problem;
};

/// A record that the library makes and destroys. A program that is not linked with the library cannot write
/// "albumItem album;", as the constructor is in the library: it calls that by its decorated name.
template <typename Record>
class LoadedRecord
{
public:
    /// `name` is the record's name as it is decorated: its length and the name, such as "9albumItem".
    LoadedRecord(const LoadedLibrary &library, const std::string &name)
        : construct(reinterpret_cast<void (*)(void *)>(library.symbol("_ZN" + name + "C1Ev"))),
          destroy(reinterpret_cast<void (*)(void *)>(library.symbol("_ZN" + name + "D1Ev")))
    {
        if (!construct || !destroy)
            throw std::runtime_error("the library has no " + name);
        construct(storage);
    }
    ~LoadedRecord() { destroy(storage); }
    LoadedRecord(const LoadedRecord &) = delete;
    LoadedRecord &operator=(const LoadedRecord &) = delete;

    Record *get() { return std::launder(reinterpret_cast<Record *>(storage)); }
    Record *operator->() { return get(); }

private:
    void (*construct)(void *);
    void (*destroy)(void *);
    alignas(Record) unsigned char storage[sizeof(Record)];
};

#endif
