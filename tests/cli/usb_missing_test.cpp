// What a command says that was built without devices on USB.

#ifndef PHOTOLIB_AFC

#include "tests/cli/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace clitest
{

TEST(UsbMissing, CommandsSayWhatTheyWereBuiltWithout)
{
    const QList<QStringList> lines = {
        {"info", "usb"}, {"info", "afc:"}, {"dump", "afc:0123"}, {"devices"}, {"devices", "--json"}};
    for (const QStringList &line : lines) {
        const RunResult result = run(line);
        EXPECT_EQ(result.code, 3);
        EXPECT_EQ(result.out, QByteArray());
        EXPECT_EQ(result.err.count('\n'), 1);
        EXPECT_THAT(result.err.toStdString(),
                    testing::HasSubstr("this photolib was built without devices on USB (libimobiledevice); use one"));
    }
}

} // namespace clitest

#endif
