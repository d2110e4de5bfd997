#ifndef TESTING_COUNTING_IPOD_H
#define TESTING_COUNTING_IPOD_H

#include "photolib/host/iipod.h"

#include <array>
#include <atomic>

namespace testkit
{

/// A device object that counts the calls of every slot. A call of a slot that the library must not call is a test
/// failure, at once. Threads: any.
class CountingIPod : public IIPod
{
public:
    static constexpr int slotCount = 57;

    /// How often the slot with this number (0 to 56) was called.
    int slotCalls(int slot) const { return calls.at(static_cast<std::size_t>(slot)); }

    CountingIPod(const CountingIPod &) = delete;
    CountingIPod &operator=(const CountingIPod &) = delete;

protected:
    CountingIPod() = default;
    ~CountingIPod() = default;

    /// Counts a call; answers how many there were, this one included.
    int count(int slot) { return ++calls.at(static_cast<std::size_t>(slot)); }

private:
    void countReserved(int slot);

    void reserved0() final { countReserved(0); }
    void reserved1() final { countReserved(1); }
    void reserved2() final { countReserved(2); }
    void reserved3() final { countReserved(3); }
    void reserved4() final { countReserved(4); }
    void reserved5() final { countReserved(5); }
    void reserved6() final { countReserved(6); }
    void reserved8() final { countReserved(8); }
    void reserved9() final { countReserved(9); }
    void reserved10() final { countReserved(10); }
    void reserved11() final { countReserved(11); }
    void reserved12() final { countReserved(12); }
    void reserved13() final { countReserved(13); }
    void reserved14() final { countReserved(14); }
    void reserved15() final { countReserved(15); }
    void reserved17() final { countReserved(17); }
    void reserved18() final { countReserved(18); }
    void reserved19() final { countReserved(19); }
    void reserved20() final { countReserved(20); }
    void reserved21() final { countReserved(21); }
    void reserved22() final { countReserved(22); }
    void reserved23() final { countReserved(23); }
    void reserved24() final { countReserved(24); }
    void reserved25() final { countReserved(25); }
    void reserved26() final { countReserved(26); }
    void reserved27() final { countReserved(27); }
    void reserved28() final { countReserved(28); }
    void reserved29() final { countReserved(29); }
    void reserved30() final { countReserved(30); }
    void reserved31() final { countReserved(31); }
    void reserved32() final { countReserved(32); }
    void reserved33() final { countReserved(33); }
    void reserved34() final { countReserved(34); }
    void reserved35() final { countReserved(35); }
    void reserved36() final { countReserved(36); }
    void reserved37() final { countReserved(37); }
    void reserved38() final { countReserved(38); }
    void reserved39() final { countReserved(39); }
    void reserved40() final { countReserved(40); }
    void reserved41() final { countReserved(41); }
    void reserved42() final { countReserved(42); }
    void reserved43() final { countReserved(43); }
    void reserved44() final { countReserved(44); }
    void reserved45() final { countReserved(45); }
    void reserved47() final { countReserved(47); }
    void reserved48() final { countReserved(48); }
    void reserved49() final { countReserved(49); }
    void reserved50() final { countReserved(50); }
    void reserved51() final { countReserved(51); }
    void reserved52() final { countReserved(52); }
    void reserved53() final { countReserved(53); }
    void reserved54() final { countReserved(54); }
    void reserved55() final { countReserved(55); }

    std::array<std::atomic<int>, slotCount> calls{};
};

} // namespace testkit

#endif
