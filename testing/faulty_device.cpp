#include "testing/faulty_device.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace testkit
{

FaultyDevice::FaultyDevice(FakeDevice &device, Fault newFault)
    : session(device.hostSession()), below(*session.top()), fault(std::move(newFault))
{
    session.setTop(this);
}

FaultyDevice::~FaultyDevice()
{
    session.setTop(&below);
}

Operation FaultyDevice::firedOperation() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return firedAt;
}

bool FaultyDevice::isGone(const Operation &operation) const
{
    return hasFired && fault.effect == Fault::Effect::DeviceGone && operation.fileSystem == VDevDevice &&
           faultableOperations.testFlag(operation.kind);
}

void FaultyDevice::perform(Operation &operation)
{
    if (operation.kind == OperationKind::CloseFile)
        truncatedFiles.erase(operation.file);
    const bool counts =
        fault.kinds.testFlag(operation.kind) && faultableOperations.testFlag(operation.kind) && fault.where(operation);
    if (counts && ++seen == fault.at) {
        apply(operation);
        const std::lock_guard<std::mutex> lock(mutex);
        firedAt = operation;
        firedAt.destination = nullptr;
        firedAt.source = nullptr;
        firedAt.connection = nullptr;
        firedAt.openedConnection = nullptr;
        firedAt.statement = nullptr;
        firedAt.tail = nullptr;
        hasFired = true;
    } else if (isGone(operation)) {
        operation.fail();
    } else if (operation.kind == OperationKind::Read && truncatedFiles.count(operation.file) != 0) {
        operation.result = 0;
    } else {
        below.perform(operation);
    }
}

void FaultyDevice::transferHalf(Operation &operation)
{
    if (operation.kind == OperationKind::Write) {
        const int asked = operation.size;
        operation.size = asked / 2;
        below.perform(operation);
        operation.size = asked;
        return;
    }
    below.perform(operation);
    if (operation.kind != OperationKind::Read || operation.result <= 0)
        return;
    const qint64 kept = operation.result / 2;
    Operation back = operation;
    back.kind = OperationKind::Tell;
    below.perform(back);
    back.kind = OperationKind::Seek;
    back.offset = back.result - (operation.result - kept);
    back.origin = 0;
    below.perform(back);
    std::fill_n(static_cast<char *>(operation.destination) + kept, operation.result - kept, '\xEE');
    operation.result = kept;
}

void FaultyDevice::apply(Operation &operation)
{
    switch (fault.effect) {
    case Fault::Effect::Fail:
        operation.fail();
        // The connection's error message shall be one, as after a real failure.
        if (operation.kind == OperationKind::PrepareSqlite)
            sqlite3_prepare_v2(operation.connection, "injected fault", -1, operation.statement, nullptr);
        break;
    case Fault::Effect::DeviceGone:
        if (operation.fileSystem == VDevDevice)
            operation.fail();
        else
            below.perform(operation);
        break;
    case Fault::Effect::ShortTransfer:
        transferHalf(operation);
        break;
    case Fault::Effect::Truncate:
        transferHalf(operation);
        truncatedFiles.insert(operation.file);
        break;
    case Fault::Effect::WrongPosition:
        operation.offset += operation.kind == OperationKind::Seek ? 1 : 0;
        below.perform(operation);
        operation.offset -= operation.kind == OperationKind::Seek ? 1 : 0;
        break;
    case Fault::Effect::Answer:
        below.perform(operation);
        operation.result = fault.answer;
        break;
    }
}

int forEveryFault(Fault fault, const std::function<void(FakeDevice &, FaultyDevice &)> &body)
{
    constexpr int mostRuns = 100000;
    int fired = 0;
    for (; fired < mostRuns && !testing::Test::HasFatalFailure(); ++fired, ++fault.at) {
        SCOPED_TRACE("fault at operation " + std::to_string(fault.at));
        FakeDevice device;
        FaultyDevice faulty(device, fault);
        body(device, faulty);
        if (!faulty.fired())
            break;
    }
    if (fired == 0)
        ADD_FAILURE() << "the fault never happened";
    if (fired == mostRuns)
        ADD_FAILURE() << "the fault happened in " << mostRuns << " runs without end";
    return fired;
}

} // namespace testkit
