#include "devicehost/log_sink.h"

#include "photolib/host/log.h"
#include "support.h"

#include <QLoggingCategory>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>
#include <vector>

using devicehost::LogLine;
using devicehost::setLogFile;
using devicehost::setLogListener;

namespace
{

struct QtMessage {
    QtMsgType type;
    QString category;
    QString text;
};

std::vector<QtMessage> qtMessages;

void keepQtMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    qtMessages.push_back({type, QString::fromUtf8(context.category), text});
}

class LogSink : public testing::Test
{
protected:
    LogSink()
    {
        qtMessages.clear();
        before = qInstallMessageHandler(&keepQtMessage);
        setLogListener([this](const LogLine &line) { lines.push_back(line); });
    }
    ~LogSink() override
    {
        qInstallMessageHandler(before);
        QLoggingCategory::setFilterRules(QString());
        setLogListener({});
        setLogFile({}, nullptr);
    }

    QString file() const { return folder.filePath(QStringLiteral("log")); }

    QTemporaryDir folder;
    std::vector<LogLine> lines;
    QtMessageHandler before = nullptr;
};

TEST_F(LogSink, TheListenerGetsEveryCallFormatted)
{
    Log("PHOTOLIB", 1, "load %s: %d", "x", 7);
    Log("OTHER", 2, "100%%");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].tag, QStringLiteral("PHOTOLIB"));
    EXPECT_EQ(lines[0].level, 1);
    EXPECT_EQ(lines[0].message, QStringLiteral("load x: 7"));
    EXPECT_EQ(lines[1].tag, QStringLiteral("OTHER"));
    EXPECT_EQ(lines[1].level, 2);
    EXPECT_EQ(lines[1].message, QStringLiteral("100%"));
}

TEST_F(LogSink, AnEmptyListenerEndsIt)
{
    setLogListener({});
    Log("PHOTOLIB", 1, "unheard");
    EXPECT_TRUE(lines.empty());
}

TEST_F(LogSink, AListenerMayLog)
{
    setLogListener([this](const LogLine &line) {
        lines.push_back(line);
        if (lines.size() == 1)
            Log("INNER", 1, "again");
    });
    Log("OUTER", 1, "first");
    EXPECT_EQ(lines.size(), 2U);
}

TEST_F(LogSink, MessagesMayBeLongAndForeign)
{
    const QByteArray text = QByteArray("\xE5\x86\x99").repeated(100000);
    Log("PHOTOLIB", 1, "%s", text.constData());
    Log("PHOTOLIB", 1, "%s", "\xFF\xFE");
    Log("PHOTOLIB", 1, "%s", "");
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_TRUE(lines[0].message == QString::fromUtf8(text));
    EXPECT_EQ(lines[1].message, QString::fromUtf8("\xFF\xFE"));
    EXPECT_TRUE(lines[2].message.isEmpty());
}

TEST_F(LogSink, NullsAreAccepted)
{
    const char *const none = nullptr;
    Log(none, 1, "message");
    Log("PHOTOLIB", 1, none);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_TRUE(lines[0].tag.isEmpty());
}

TEST_F(LogSink, TheFileGetsOneLineACall)
{
    writeFile(file(), "before\n");
    ASSERT_TRUE(setLogFile(file(), nullptr));
    Log("PHOTOLIB", 1, "load ATHCameraDB");
    Log("PHOTOLIB", 2, "Can not open file: %s", "/a\nPHOTOLIB 1 forged\r\x1b[31m");
    EXPECT_EQ(contentOf(file()), "before\nPHOTOLIB 1 load ATHCameraDB\n"
                                 "PHOTOLIB 2 Can not open file: /a\\nPHOTOLIB 1 forged\\r\\x1b[31m\n");
    ASSERT_TRUE(setLogFile({}, nullptr));
    Log("PHOTOLIB", 1, "unwritten");
    EXPECT_FALSE(contentOf(file()).contains("unwritten"));
}

TEST_F(LogSink, AFileThatCannotBeOpenedIsToldAndChangesNothing)
{
    ASSERT_TRUE(setLogFile(file(), nullptr));
    QString error;
    EXPECT_FALSE(setLogFile(folder.filePath(QStringLiteral("none/log")), &error));
    EXPECT_EQ(error, QStringLiteral("No such file or directory"));
    EXPECT_FALSE(setLogFile(folder.path(), nullptr));
    Log("PHOTOLIB", 1, "still here");
    EXPECT_EQ(contentOf(file()), "PHOTOLIB 1 still here\n");
}

TEST_F(LogSink, TheCategoryIsSilentUnlessAskedFor)
{
    Log("PHOTOLIB", 1, "progress");
    Log("PHOTOLIB", 2, "error");
    EXPECT_TRUE(qtMessages.empty());
    QLoggingCategory::setFilterRules(QStringLiteral("photolib=true"));
    Log("PHOTOLIB", 1, "progress \"x\"");
    Log("PHOTOLIB", 2, "error\n");
    ASSERT_EQ(qtMessages.size(), 2U);
    EXPECT_EQ(qtMessages[0].type, QtInfoMsg);
    EXPECT_EQ(qtMessages[0].category, QStringLiteral("photolib"));
    EXPECT_EQ(qtMessages[0].text, QStringLiteral("PHOTOLIB progress \"x\""));
    EXPECT_EQ(qtMessages[1].type, QtWarningMsg);
    EXPECT_EQ(qtMessages[1].text, QStringLiteral("PHOTOLIB error\\n"));
}

TEST_F(LogSink, LinesOfSeveralThreadsDoNotMix)
{
    setLogListener({});
    ASSERT_TRUE(setLogFile(file(), nullptr));
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([i] {
            for (int line = 0; line < 100; ++line)
                Log("PHOTOLIB", 1, "%s", QByteArray(200, static_cast<char>('a' + i)).constData());
        });
    for (std::thread &thread : threads)
        thread.join();
    const QList<QByteArray> written = contentOf(file()).split('\n');
    ASSERT_EQ(written.size(), 401);
    for (int i = 0; i < 400; ++i)
        EXPECT_EQ(written[i], "PHOTOLIB 1 " + QByteArray(200, written[i].right(1).at(0)));
}

} // namespace
