#ifndef TESTS_CONTRACT_EXPORTED_RECORD_H
#define TESTS_CONTRACT_EXPORTED_RECORD_H

#include "loaded_library.h"

#include <new>
#include <string>

/// The special members of an exported record, called at the addresses that the loaded library exports: the program has
/// none of its own. `name` is the record's decorated name.
template <typename Record>
struct ExportedMembers {
    using Constructor = void (*)(void *);
    using Copy = void (*)(void *, const Record *);
    using Assign = Record &(*)(Record *, const Record *);
    using Destructor = void (*)(Record *);

    Constructor construct;
    Copy copy;
    Assign assign;
    Destructor destroy;

    ExportedMembers(const LoadedLibrary &library, const std::string &name)
        : construct(reinterpret_cast<Constructor>(library.symbol(("_ZN" + name + "C1Ev").c_str()))),
          copy(reinterpret_cast<Copy>(library.symbol(("_ZN" + name + "C1ERKS_").c_str()))),
          assign(reinterpret_cast<Assign>(library.symbol(("_ZN" + name + "aSERKS_").c_str()))),
          destroy(reinterpret_cast<Destructor>(library.symbol(("_ZN" + name + "D1Ev").c_str())))
    {
    }
};

/// A record made and destroyed by the library.
template <typename Record>
class Exported
{
public:
    explicit Exported(const ExportedMembers<Record> &members) : members(members) { members.construct(storage); }
    Exported(const ExportedMembers<Record> &members, Exported &other) : members(members)
    {
        members.copy(storage, other.get());
    }
    ~Exported() { members.destroy(get()); }
    Exported(const Exported &) = delete;
    Exported &operator=(const Exported &) = delete;
    Record *get() { return std::launder(reinterpret_cast<Record *>(storage)); }
    Record *operator->() { return get(); }

private:
    const ExportedMembers<Record> &members;
    alignas(Record) unsigned char storage[sizeof(Record)] = {};
};

#endif
