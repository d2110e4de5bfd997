// Every operation on the device that an export uses goes wrong once: no wrong byte gets a name, nothing stays open, and
// the next run in the same opening of the library leaves what an undisturbed one does.

#include "tests/unit/exporter/fault_scene.h"

#include "testing/faulty_device.h"
#include "testing/log_recorder.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace exporter;
using namespace testkit;

namespace
{

struct Wrong {
    const char *name;
    OperationKinds kinds;
    Fault::Effect effect;
    qint64 answer;
    int least; ///< operations that can go wrong so in one run, at the least
};

const Wrong wrongs[] = {
    {"Fails", faultableOperations, Fault::Effect::Fail, 0, 60},
    {"DeviceGone", faultableOperations, Fault::Effect::DeviceGone, 0, 60},
    {"ShortRead", OperationKind::Read, Fault::Effect::ShortTransfer, 0, 12},
    {"Truncated", OperationKind::Read, Fault::Effect::Truncate, 0, 12},
    {"WrongPosition", OperationKind::Seek, Fault::Effect::WrongPosition, 0, 20},
    {"NegativeAnswer", OperationKind::Read | OperationKind::Seek | OperationKind::Tell, Fault::Effect::Answer, -5, 40},
    {"AnswersZero", OperationKind::Read | OperationKind::Tell, Fault::Effect::Answer, 0, 20},
    {"AnswersLess", OperationKind::Read | OperationKind::Seek | OperationKind::Tell, Fault::Effect::Answer, 3, 40},
    {"AnswersMoreThanAsked", OperationKind::Read, Fault::Effect::Answer, Q_INT64_C(0x7fffffff), 12},
};

class DeviceFaults : public testing::TestWithParam<std::tuple<Wrong, int>>
{
};

} // namespace

TEST_P(DeviceFaults, LeaveNoWrongByteAndTheNextRunIsWhole)
{
    const Wrong wrong = std::get<Wrong>(GetParam());
    int faults = 0;
    for (;; ++faults) {
        FaultScene scene;
        scene.fixture.options.retries = std::get<int>(GetParam());
        bool fired = false;
        {
            LogRecorder log;
            Fault fault(wrong.kinds, wrong.effect, faults + 1);
            fault.answer = wrong.answer;
            const FaultyDevice faulty(scene.fixture.device, fault);
            const RunOutcome outcome = scene.run();
            fired = faulty.fired();
            EXPECT_EQ(QStringList(), log.takeAll()) << "the exporter reports to its observer only";
            scene.expectSound(outcome);
            const bool mayFail = wrong.effect == Fault::Effect::DeviceGone || scene.fixture.options.retries == 0;
            EXPECT_TRUE(outcome.end == RunEnd::Completed ||
                        (wrong.effect == Fault::Effect::DeviceGone && outcome.end == RunEnd::DeviceGone));
            EXPECT_TRUE(!fired || mayFail || outcome.isSuccess()) << qPrintable(scene.fixture.lines().join('\n'));
            if (outcome.isSuccess()) {
                EXPECT_EQ(scene.expected(), scene.fixture.tree());
            }
        }
        EXPECT_TRUE(scene.fixture.verify().isSuccess());
        const RunOutcome resumed = scene.run();
        EXPECT_TRUE(resumed.isSuccess()) << qPrintable(scene.fixture.lines().join('\n'));
        EXPECT_EQ(scene.expected(), scene.fixture.tree());
        scene.expectSound(resumed);
        EXPECT_EQ(QStringList{".photolib-export.sqlite"}, ExportFixture::hiddenFilesOf(scene.fixture.destination()));
        if (!fired)
            break;
        ASSERT_FALSE(HasFailure()) << "the fault at operation " << faults + 1;
    }
    EXPECT_GE(faults, wrong.least);
    RecordProperty("faults", faults);
}

INSTANTIATE_TEST_SUITE_P(Kinds, DeviceFaults, testing::Combine(testing::ValuesIn(wrongs), testing::Values(0, 1)),
                         [](const auto &instance) {
                             return std::get<Wrong>(instance.param).name +
                                    std::string(std::get<int>(instance.param) == 0 ? "WithoutRetry" : "WithRetry");
                         });
