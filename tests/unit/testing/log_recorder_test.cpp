#include "testing/log_recorder.h"

#include "photolib/host/log.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

using testkit::LogRecorder;

TEST(LogRecorder, ConsumesLinesInOrder)
{
    LogRecorder log;
    Log("PHOTOLIB", 1, "load ATHCameraDB");
    Log("PHOTOLIB", 2, "Can not open file: %s", "/a%b");
    Log("PHOTOLIB", 2, "offset %lld", 1LL << 40);
    EXPECT_EQ(log.lines().size(), 3);
    log.expectLine("PHOTOLIB 1 load ATHCameraDB");
    log.expectLines({"PHOTOLIB 2 Can not open file: /a%b", "PHOTOLIB 2 offset 1099511627776"});
    EXPECT_EQ(log.lines(), QStringList());
}

TEST(LogRecorder, FormatsMessagesOfAnyLength)
{
    LogRecorder log;
    const QByteArray text(100000, 'x');
    Log("PHOTOLIB", 1, "%s", text.constData());
    Log("PHOTOLIB", 1, "%s", "");
    EXPECT_EQ(log.takeAll(), QStringList({"PHOTOLIB 1 " + QString(text), "PHOTOLIB 1 "}));
}

TEST(LogRecorder, ShowsUtf8AsTextAndOtherBytesAsHexadecimal)
{
    LogRecorder log;
    Log("PHOTOLIB", 2, "%s",
        "gr\xC3\xB6\xC3\x9F"
        "e \xE4 \xE2\x82");
    log.expectLine(QString::fromUtf8("PHOTOLIB 2 größe \\xE4 \\xE2\\x82"));
}

TEST(LogRecorder, UnconsumedLineFailsTheTest)
{
    auto log = std::make_unique<LogRecorder>();
    Log("PHOTOLIB", 1, "forgotten");
    EXPECT_NONFATAL_FAILURE(log.reset(), "unexpected log line: PHOTOLIB 1 forgotten");
}

TEST(LogRecorder, AnotherLineThanTheExpectedOneFailsTheTestAndStays)
{
    LogRecorder log;
    Log("PHOTOLIB", 1, "first");
    Log("PHOTOLIB", 1, "second");
    EXPECT_NONFATAL_FAILURE(log.expectLine("PHOTOLIB 1 second"), "the next one is: PHOTOLIB 1 first");
    log.expectLine("PHOTOLIB 1 first");
    log.expectLine("PHOTOLIB 1 second");
    EXPECT_NONFATAL_FAILURE(log.expectLine("PHOTOLIB 1 third"), "no log line is left, expected: PHOTOLIB 1 third");
}

TEST(LogRecorder, LineWithoutARecorderFailsTheTest)
{
    EXPECT_NONFATAL_FAILURE(Log("PHOTOLIB", 2, "lost"), "no LogRecorder alive: PHOTOLIB 2 lost");
}

TEST(LogRecorder, TakesMatchingLinesOutOfTheOthers)
{
    LogRecorder log;
    for (const char *message : {"keep 1", "drop 1", "keep 2", "drop 2"})
        Log("PHOTOLIB", 1, "%s", message);
    EXPECT_EQ(log.consumeMatching("drop"), QStringList({"PHOTOLIB 1 drop 1", "PHOTOLIB 1 drop 2"}));
    EXPECT_EQ(log.takeAll(), QStringList({"PHOTOLIB 1 keep 1", "PHOTOLIB 1 keep 2"}));
}

TEST(LogRecorder, NewestRecorderReceives)
{
    LogRecorder outer;
    {
        LogRecorder inner;
        Log("PHOTOLIB", 1, "inside");
        inner.expectLine("PHOTOLIB 1 inside");
    }
    Log("PHOTOLIB", 1, "outside");
    outer.expectLine("PHOTOLIB 1 outside");
}

TEST(LogRecorder, HookSeesEachLineAndMayUseTheRecorder)
{
    LogRecorder log;
    QStringList seen;
    log.onLine([&](const QString &line) { seen = log.takeAll() << line; });
    Log("PHOTOLIB", 1, "x");
    EXPECT_EQ(seen, QStringList({"PHOTOLIB 1 x", "PHOTOLIB 1 x"}));
}

TEST(LogRecorder, ReceivesFromManyThreads)
{
    constexpr int threadCount = 4;
    constexpr int rounds = 200;
    LogRecorder log;
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([i] {
            for (int round = 0; round < rounds; ++round)
                Log("PHOTOLIB", 1, "thread %d", i);
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(log.takeAll().filter("thread 2").size(), rounds);
}
