// A fault at every operation on the device, one after the other. Leaks and handles left open fail by themselves.

#include "tests/unit/photolib/media/containers.h"
#include "tests/unit/photolib/media/opened_media.h"

#include "testing/faulty_device.h"

using testkit::FakeDevice;
using testkit::Fault;
using testkit::FaultyDevice;
using testkit::forEveryFault;

namespace
{

constexpr char second[] = "/PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_0001.JPG/5003.JPG";
constexpr char photo[] = "/DCIM/100APPLE/IMG_0001.JPG";
constexpr char notReached[] = "PHOTOLIB 2 Can seek to offset 0 while getting ithmb";
constexpr char shortFrame[] = "PHOTOLIB 2 Can not read ithmb data";
constexpr char shortTrailer[] = "PHOTOLIB 2 Can not read ithmb info";
constexpr Container container = containers[7];

struct Outcome {
    int result;
    QByteArray out;
    QStringList lines;
};

const QByteArray untouched = "untouched";

QByteArray record()
{
    return QByteArray(8192, '\x55') + trailerOf(2, 1);
}

/// What the bitmap of record() appends.
QByteArray bitmap()
{
    return QByteArray::fromHex("424d3e0000000000000036000000"
                               "2800000002000000010000000100180000000000080000000000000000000000"
                               "0000000000000000"
                               "a850a8a850a80000");
}

Outcome jpeg()
{
    return {0, "JPEG", {}};
}

Outcome frame(const QStringList &lines = {})
{
    return {0, untouched + bitmap(), lines};
}

Outcome failure(const QStringList &lines)
{
    return {-1, untouched, lines};
}

/// Runs `slot` with the fault at every operation; the outcomes are those of the faults in order, the last one that
/// without a fault.
void expectOutcomes(const Fault &fault, const QList<Outcome> &outcomes, bool withFile,
                    const std::function<int(OpenedMedia &, QByteArray *)> &slot)
{
    int run = 0;
    const int faults = forEveryFault(fault, [&](FakeDevice &device, FaultyDevice &faulty) {
        device.addFile(container.path, record());
        if (withFile) {
            device.addFile(second, "JPEG");
            device.addFile(photo, "CONTENT");
        }
        OpenedMedia library(device);
        library.setPhoto("DCIM/100APPLE", "IMG_0001.JPG", 0, 0);
        QByteArray out = untouched;
        const int result = slot(library, &out);
        const QStringList lines = library.log.takeAll();
        EXPECT_EQ(device.openHandles(), QStringList());
        ASSERT_LT(run, outcomes.size());
        const Outcome &expected = outcomes[run++];
        EXPECT_EQ(result, expected.result);
        EXPECT_EQ(out, expected.out);
        EXPECT_EQ(lines, expected.lines);

        if (!faulty.fired() || fault.effect == Fault::Effect::DeviceGone)
            return;
        out = untouched;
        EXPECT_EQ(slot(library, &out), outcomes.last().result) << "the fault passes";
        EXPECT_EQ(out, outcomes.last().out);
    });
    EXPECT_EQ(faults, outcomes.size() - 1);
}

int thumbnail(OpenedMedia &library, QByteArray *out)
{
    return library.thumbnail(out);
}

int file(OpenedMedia &library, QByteArray *out)
{
    return library.file(out);
}

} // namespace

TEST(MediaFaults, OfAThumbnailFileLeadToTheContainer)
{
    const Outcome gone = frame({disconnected});
    const Outcome emptied = {0, "", {}}; // the seek to the end failed silently, and the size told is 0
    expectOutcomes(Fault(), {gone, jpeg(), gone, frame(), emptied, frame(), frame(), frame(), jpeg()}, true, thumbnail);
}

TEST(MediaFaults, OfAThumbnailFileOnADeviceThatStaysAwayFail)
{
    const Outcome gone = failure({disconnected, noContainer});
    expectOutcomes(Fault(testkit::faultableOperations, Fault::Effect::DeviceGone),
                   {gone, gone, gone, gone, gone, gone, gone, gone, jpeg()}, true, thumbnail);
}

TEST(MediaFaults, OfAContainerAreLogged)
{
    QList<Outcome> outcomes;
    for (int candidate = 0; candidate < 5; ++candidate)
        outcomes << frame({disconnected}) << frame();
    outcomes << failure({noContainer});
    for (int missing = 0; missing < 7; ++missing)
        outcomes << frame();
    outcomes << failure({noContainer}) << failure({notReached}) << failure({shortFrame}) << failure({shortTrailer})
             << frame();
    expectOutcomes(Fault(), outcomes, false, thumbnail);
}

TEST(MediaFaults, OfAContainerOnADeviceThatStaysAwayAreLogged)
{
    QList<Outcome> outcomes;
    for (int operation = 1; operation < 10; ++operation)
        outcomes << failure({disconnected, noContainer});
    for (int operation = 10; operation < 20; ++operation)
        outcomes << failure({noContainer});
    outcomes << failure({notReached}) << failure({shortFrame}) << failure({shortTrailer}) << frame();
    expectOutcomes(Fault(testkit::faultableOperations, Fault::Effect::DeviceGone), outcomes, false, thumbnail);
}

TEST(MediaFaults, ShortAndTruncatedReadsAreNoThumbnail)
{
    for (const Fault::Effect effect : {Fault::Effect::ShortTransfer, Fault::Effect::Truncate}) {
        const Fault fault(testkit::OperationKind::Read, effect);
        expectOutcomes(fault, {frame(), jpeg()}, true, thumbnail);
        expectOutcomes(fault, {failure({shortFrame}), failure({shortTrailer}), frame()}, false, thumbnail);
    }
}

TEST(MediaFaults, OfAFileAreNothingReadExceptForTheDevice)
{
    const Outcome nothing = {0, untouched, {}};
    const Outcome emptied = {1, "", {}};
    const Outcome whole = {1, "CONTENT", {}};
    expectOutcomes(Fault(), {failure({disconnected}), nothing, emptied, nothing, nothing, nothing, whole}, true, file);
    expectOutcomes(Fault(testkit::faultableOperations, Fault::Effect::DeviceGone),
                   {failure({disconnected}), nothing, nothing, nothing, nothing, nothing, whole}, true, file);
    for (const Fault::Effect effect : {Fault::Effect::ShortTransfer, Fault::Effect::Truncate})
        expectOutcomes(Fault(testkit::OperationKind::Read, effect), {nothing, whole}, true, file);
}

TEST(MediaFaults, AWrongPositionIsNoThumbnailAndNoFile)
{
    const Fault fault(testkit::OperationKind::Seek, Fault::Effect::WrongPosition);
    expectOutcomes(fault, {frame(), frame(), jpeg()}, true, thumbnail);
    expectOutcomes(fault, {failure({notReached}), frame()}, false, thumbnail);
    const Outcome nothing = {0, untouched, {}};
    const Outcome whole = {1, "CONTENT", {}};
    expectOutcomes(fault, {nothing, nothing, whole}, true, file);
}

TEST(MediaFaults, AnErrorAnsweredAfterTheOperationIsOneExceptFromASeekInAFile)
{
    using Kind = testkit::OperationKind;
    const Fault fault(Kind::Read | Kind::Seek | Kind::Tell, Fault::Effect::Answer);
    expectOutcomes(fault, {jpeg(), frame(), jpeg(), frame(), jpeg()}, true, thumbnail);
    expectOutcomes(fault, {failure({notReached}), failure({shortFrame}), failure({shortTrailer}), frame()}, false,
                   thumbnail);
    const Outcome nothing = {0, untouched, {}};
    const Outcome whole = {1, "CONTENT", {}};
    expectOutcomes(fault, {whole, nothing, whole, nothing, whole}, true, file);
}
