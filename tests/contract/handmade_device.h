#ifndef TESTS_CONTRACT_HANDMADE_DEVICE_H
#define TESTS_CONTRACT_HANDMADE_DEVICE_H

#include "photolib/host/iipod.h"

#include <QTemporaryDir>

#include <array>
#include <cstdint>
#include <typeinfo>
#include <utility>

/// A device object whose table of virtual functions is put together by hand, entry by entry: it shows which positions
/// the library really calls. One is alive at a time.
class HandmadeDevice
{
public:
    static constexpr std::size_t slotCount = 57;

    HandmadeDevice()
    {
        alive = this;
        fillReserved(std::make_index_sequence<slotCount>());
        setSlot(7, &shouldStop);
        setSlot(16, &devicePath);
        setSlot(46, &isAvailable);
        setSlot(56, &localDataFolder);
        table = entries.data() + headerEntries;
    }
    ~HandmadeDevice() { alive = nullptr; }
    HandmadeDevice(const HandmadeDevice &) = delete;
    HandmadeDevice &operator=(const HandmadeDevice &) = delete;

    IIPod *get() { return reinterpret_cast<IIPod *>(&table); }

    std::array<int, slotCount> calls{}; ///< how often each slot was called
    bool stopAnswer = false;
    bool availableAnswer = true;
    QTemporaryDir folder;

private:
    static constexpr std::size_t headerEntries = 2; // offset to top, type information

    template <typename Function>
    void setSlot(std::size_t slot, Function *function)
    {
        entries[headerEntries + slot] = reinterpret_cast<std::uintptr_t>(function);
    }

    template <std::size_t... slot>
    void fillReserved(std::index_sequence<slot...>)
    {
        entries[1] = reinterpret_cast<std::uintptr_t>(&typeid(IIPod));
        (setSlot(slot, &reserved<slot>), ...);
    }

    template <std::size_t slot>
    static void reserved(void *)
    {
        ++alive->calls[slot];
    }
    static bool shouldStop(void *)
    {
        ++alive->calls[7];
        return alive->stopAnswer;
    }
    static QString devicePath(void *)
    {
        ++alive->calls[16];
        return QStringLiteral("handmade");
    }
    static bool isAvailable(void *)
    {
        ++alive->calls[46];
        return alive->availableAnswer;
    }
    static QString localDataFolder(void *)
    {
        ++alive->calls[56];
        return alive->folder.path() + QLatin1Char('/');
    }

    static inline HandmadeDevice *alive = nullptr;
    std::uintptr_t *table; // the first word of the object that the library sees
    std::array<std::uintptr_t, headerEntries + slotCount> entries{};
};

#endif
