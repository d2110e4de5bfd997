#include "apps/cli/opening_deadline.h"

#include "apps/cli/interrupt.h"
#include "apps/cli/progress_bar.h"
#include "devicehost/device_host.h"
#include "testing/patience.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <unistd.h>

namespace photocli
{

namespace
{

using testkit::comesTrue;

constexpr std::chrono::milliseconds none{0};

bool yes()
{
    return true;
}

// An opening that does not hear of the request, in a process of its own.
[[noreturn]] void openForEver(const QString &temporary)
{
    constexpr int notPrepared = 9;
    qputenv("TMPDIR", temporary.toUtf8());
    devicehost::DeviceHost host(QStringLiteral("folder:/"));
    const InterruptScope interrupts(host);
    ProgressBar bar;
    const QDir first(host.localDataFolder());
    const QDir second(host.localDataFolder());
    for (const QString &name : {first.filePath("Photos.sqlite"), second.filePath("Photos.sqlite-wal")}) {
        QFile copy(name);
        if (!copy.open(QIODevice::WriteOnly) || copy.write(QByteArray(100000, 'p')) != 100000)
            ::_exit(notPrepared);
    }
    const OpeningDeadline deadline(interruptRequested, [&] { endInterruptedOpening(host, bar); });
    std::raise(SIGINT);
    for (;;)
        ::pause();
}

} // namespace

TEST(OpeningDeadline, EndsWhatDoesNotReturnAfterTheRequest)
{
    std::atomic<bool> requested{false};
    std::atomic<int> ended{0};
    const OpeningDeadline deadline([&] { return requested.load(); }, [&] { ++ended; }, none);
    requested = true;
    EXPECT_TRUE(comesTrue([&] { return ended == 1; }));
}

TEST(OpeningDeadline, LeavesWhatReturnsInTimeAlone)
{
    std::atomic<int> looks{0};
    std::atomic<int> ended{0};
    {
        const OpeningDeadline deadline(
            [&] {
                ++looks;
                return true;
            },
            [&] { ++ended; }, testkit::forever);
        EXPECT_TRUE(comesTrue([&] { return looks == 1; }));
    } // at once, not when the time is over
    EXPECT_EQ(ended, 0);
}

TEST(OpeningDeadline, LeavesWhatNobodyInterruptsAlone)
{
    std::atomic<int> looks{0};
    std::atomic<int> ended{0};
    {
        const OpeningDeadline deadline(
            [&] {
                ++looks;
                return false;
            },
            [&] { ++ended; }, none);
        EXPECT_TRUE(comesTrue([&] { return looks > 3; }));
    }
    EXPECT_EQ(ended, 0);
}

// What the one takes down the other must not use, or take down as well.
TEST(OpeningDeadline, WhatReturnsWhileTheProcessIsEndedWaits)
{
    std::atomic<bool> begun{false};
    std::atomic<bool> returned{false};
    std::atomic<bool> overtaken{false};
    {
        const OpeningDeadline deadline(
            yes,
            [&] {
                begun = true;
                std::this_thread::sleep_for(testkit::opportunity);
                overtaken = returned.load();
            },
            none);
        EXPECT_TRUE(comesTrue([&] { return begun.load(); }));
    }
    returned = true;
    EXPECT_FALSE(overtaken);
}

// A read of a slow mount has to be interrupted by them.
TEST(OpeningDeadline, SignalsAreLeftToTheOtherThreads)
{
    std::atomic<int> taken{-1};
    const OpeningDeadline deadline(
        yes,
        [&] {
            sigset_t blocked;
            ::pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
            int count = 0;
            for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP, SIGQUIT})
                count += ::sigismember(&blocked, signalNumber) == 1 ? 0 : 1;
            taken = count;
        },
        none);
    EXPECT_TRUE(comesTrue([&] { return taken == 0; })) << taken;
    sigset_t own;
    ::pthread_sigmask(SIG_SETMASK, nullptr, &own);
    EXPECT_EQ(::sigismember(&own, SIGINT), 0);
}

TEST(OpeningDeadline, AnInterruptedOpeningLeavesNothingBehind)
{
    GTEST_FLAG_SET(death_test_style, "fast"); // the child shares the folder
    const QTemporaryDir temporary;
    EXPECT_EXIT(openForEver(temporary.path()), testing::ExitedWithCode(130), "^photolib: interrupted\n$");
    EXPECT_TRUE(QDir(temporary.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

} // namespace photocli
