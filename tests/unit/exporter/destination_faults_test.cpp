// Every system call on the destination fails once, or from there on, in a first run and in one that finds changes: no
// wrong byte gets a name, a run that is called a success is one, and the next run leaves what an undisturbed one does.

#include "tests/unit/exporter/failing_files.h"
#include "tests/unit/exporter/fault_scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

using namespace exporter;
using namespace testkit;

namespace
{

struct Wrong {
    const char *name;
    int code;
    bool lasts;
    std::vector<RunEnd> ends; ///< how a run may end beside Completed
};

const Wrong wrongs[] = {
    {"FullOnce", ENOSPC, false, {RunEnd::DestinationFull, RunEnd::DestinationRefused}},
    {"Full", ENOSPC, true, {RunEnd::DestinationFull, RunEnd::DestinationRefused}},
    {"BrokenOnce", EIO, false, {RunEnd::DestinationRefused}},
    {"Broken", EIO, true, {RunEnd::DestinationRefused}},
    {"RefusedOnce", EACCES, false, {RunEnd::DestinationRefused}},
    {"Refused", EACCES, true, {RunEnd::DestinationRefused}},
    {"HalfOnce", FailingFiles::half, false, {}},
    {"Half", FailingFiles::half, true, {}},
};

const QString record = QStringLiteral(".photolib-export.sqlite");

enum class Which { FirstRun, LaterRun };

class DestinationFaults : public testing::TestWithParam<std::tuple<Wrong, Which>>
{
};

} // namespace

TEST_P(DestinationFaults, LeaveNoWrongByteAndTheNextRunIsWhole)
{
    const Wrong wrong = std::get<Wrong>(GetParam());
    int faults = 0;
    for (bool fired = true; fired; ++faults) {
        FaultScene scene;
        if (std::get<Which>(GetParam()) == Which::LaterRun) {
            ASSERT_TRUE(scene.run().isSuccess());
            scene.changeDevice();
        }
        fired = false;
        bool couldCleanUp = true;
        FailingFiles files;
        files.onCall = [&](FailingFiles::Call kind, int call) {
            const bool fails = call == faults + 1 || (wrong.lasts && call > faults);
            couldCleanUp = couldCleanUp && !(fails && kind == FailingFiles::Call::Unlink);
            fired = fired || fails;
            return fails ? wrong.code : 0;
        };
        scene.fixture.files = &files;
        const RunOutcome outcome = scene.run();
        scene.fixture.files = &scene.fixture.realFiles;
        scene.expectSound(outcome);
        EXPECT_TRUE(outcome.end == RunEnd::Completed ||
                    std::find(wrong.ends.begin(), wrong.ends.end(), outcome.end) != wrong.ends.end())
            << static_cast<int>(outcome.end) << ' ' << qPrintable(outcome.message);
        EXPECT_TRUE(outcome.isSuccess() || (fired && wrong.code != FailingFiles::half));
        if (outcome.isSuccess()) {
            EXPECT_EQ(scene.expected(), scene.fixture.tree()) << qPrintable(scene.fixture.lines().join('\n'));
        }
        const QStringList hidden = ExportFixture::hiddenFilesOf(scene.fixture.destination());
        EXPECT_TRUE(hidden.filter(QStringLiteral(".partial")).isEmpty() || !couldCleanUp);
        if (hidden.contains(record)) {
            const VerifyOutcome verified = scene.fixture.verify();
            EXPECT_TRUE(verified.isSuccess()) << qPrintable(verified.message);
            for (const VerifyFinding &finding : scene.fixture.listener->findings)
                ADD_FAILURE() << qPrintable(finding.destination) << ' ' << qPrintable(finding.reason);
        }
        const RunOutcome resumed = scene.run();
        EXPECT_TRUE(resumed.isSuccess()) << qPrintable(scene.fixture.lines().join('\n'));
        EXPECT_EQ(scene.expected(), scene.fixture.tree());
        scene.expectSound(resumed);
        EXPECT_EQ(QStringList{record}, ExportFixture::hiddenFilesOf(scene.fixture.destination()));
        EXPECT_TRUE(scene.fixture.verify().isSuccess());
        ASSERT_FALSE(HasFailure()) << "the fault at call " << faults + 1;
    }
    EXPECT_GT(faults, 70);
    RecordProperty("faults", faults - 1);
}

INSTANTIATE_TEST_SUITE_P(Kinds, DestinationFaults,
                         testing::Combine(testing::ValuesIn(wrongs), testing::Values(Which::FirstRun, Which::LaterRun)),
                         [](const auto &instance) {
                             const bool first = std::get<Which>(instance.param) == Which::FirstRun;
                             return std::get<Wrong>(instance.param).name + std::string(first ? "InAFirstRun" : "Later");
                         });
