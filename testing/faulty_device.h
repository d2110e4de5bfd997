#ifndef TESTING_FAULTY_DEVICE_H
#define TESTING_FAULTY_DEVICE_H

#include "testing/fake_device.h"
#include "testing/operation_layer.h"

#include <atomic>
#include <functional>
#include <set>

namespace testkit
{

/// What goes wrong, and when: at the `at`-th operation (from 1) that is of one of `kinds` and that `where` accepts.
struct Fault {
    enum class Effect {
        /// The operation is not carried out and answers failure.
        Fail,
        /// A read or write of half the bytes; the next one goes on behind them.
        ShortTransfer,
        /// The file ends in the middle of this read: its later reads answer 0.
        Truncate,
        /// The device is gone: this and every later operation on its side fails. Closing still works.
        DeviceGone,
        /// Seek moves one byte further than asked, and says so.
        WrongPosition,
        /// Read, Write, Seek, Tell or CreateFolder is carried out, but answers `answer`.
        Answer,
    };

    /// Implicit, so that a set of kinds stands for "one of these fails".
    Fault(OperationKinds faultKinds = faultableOperations, Effect faultEffect = Effect::Fail, int operationNumber = 1)
        : kinds(faultKinds), effect(faultEffect), at(operationNumber)
    {
    }
    Fault(OperationKind faultKind, Effect faultEffect = Effect::Fail, int operationNumber = 1)
        : Fault(OperationKinds(faultKind), faultEffect, operationNumber)
    {
    }

    OperationKinds kinds;
    Effect effect;
    int at;
    qint64 answer = -1;
    std::function<bool(const Operation &)> where = [](const Operation &) { return true; };
};

/// Lets one fault happen on a device while it is alive. Several may lie over one another, each counting the
/// operations that reach it; they must go in reverse order of making, and before the device.
class FaultyDevice final : public OperationLayer
{
public:
    FaultyDevice(FakeDevice &device, Fault fault);
    FaultyDevice(const FaultyDevice &) = delete;
    FaultyDevice &operator=(const FaultyDevice &) = delete;
    ~FaultyDevice();

    /// Whether the fault has happened.
    bool fired() const { return hasFired; }

    /// The operation that it happened to, with its pointers null; only when fired().
    Operation firedOperation() const;

    void perform(Operation &operation) override;

private:
    void apply(Operation &operation);
    void transferHalf(Operation &operation);
    bool isGone(const Operation &operation) const;

    HostSession &session;
    OperationLayer &below;
    const Fault fault;
    mutable std::mutex mutex;
    int seen = 0;
    std::set<int> truncatedFiles;
    Operation firedAt;
    std::atomic<bool> hasFired{false};
};

/// Runs `body` again and again, each time on a new device on which the fault happens one operation later (`fault.at`
/// is the first), until a run has met no fault. `body` fills the device and uses the library. Answers the number of
/// runs that met the fault; a fault that never happens at all is a test failure, for it proves nothing. Stops after a
/// fatal failure.
int forEveryFault(Fault fault, const std::function<void(FakeDevice &, FaultyDevice &)> &body);

} // namespace testkit

#endif
