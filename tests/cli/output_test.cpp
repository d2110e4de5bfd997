#include "apps/cli/failure.h"
#include "apps/cli/output/output.h"
#include "tests/cli/written.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace photocli
{

TEST(Output, BytesBeyondTheBufferArriveInOrder)
{
    QByteArray expected;
    const QByteArray text = written([&expected](Output &out) {
        for (int i = 0; i < 20000; ++i) {
            const QByteArray part = QByteArray::number(i) + ' ';
            out.write(part);
            out.put('-');
            expected += part + '-';
        }
        const QByteArray large(200 * 1024, 'x');
        out.write(large);
        expected += large;
    });
    EXPECT_EQ(text, expected);
}

TEST(Output, FullDeviceIsAFailureWithCodeFive)
{
    const int full = ::open("/dev/full", O_WRONLY);
    ASSERT_GE(full, 0);
    Output out(full);
    out.write("text");
    EXPECT_TRUE(out.wanted());
    try {
        out.finish();
        ADD_FAILURE() << "no failure";
    } catch (const Failure &failure) {
        EXPECT_EQ(failure.code, ExitOutputFailed);
        EXPECT_TRUE(failure.message.contains(QStringLiteral("No space left")));
    }
    EXPECT_FALSE(out.wanted());
    ::close(full);
}

TEST(Output, ClosedPipeIsNoFailure)
{
    ::signal(SIGPIPE, SIG_IGN);
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    ::close(ends[0]);
    Output out(ends[1]);
    out.write("text");
    EXPECT_NO_THROW(out.finish());
    EXPECT_FALSE(out.wanted());
    ::close(ends[1]);
}

} // namespace photocli
