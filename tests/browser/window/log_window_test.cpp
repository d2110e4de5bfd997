// The log while it grows.

#include "apps/browser/window/log_book.h"
#include "apps/browser/window/log_window.h"
#include "photolib/host/log.h"
#include "tests/browser/support/opening.h"

#include <QPlainTextEdit>

#include <gtest/gtest.h>

namespace
{

using browser::LogBook;
using browser::LogWindow;

class LogWindowTest : public testing::Test
{
protected:
    static void write(int line) { Log("PHOTOLIB", 1, "line %d.", line); }

    LogBook book;
};

TEST_F(LogWindowTest, ShowsEachLineOnceAndKeepsWhatIsSelected)
{
    write(1);
    LogWindow window(book);
    auto *const text = window.findChild<QPlainTextEdit *>(QStringLiteral("logText"));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->blockCount(), 1);
    text->moveCursor(QTextCursor::Start);
    ASSERT_TRUE(text->find(QStringLiteral("line")));
    write(2);
    write(3);
    ASSERT_TRUE(comesTrueSoon([text] { return text->toPlainText().contains(QStringLiteral("line 3.")); }));
    EXPECT_EQ(text->blockCount(), 3);
    EXPECT_EQ(text->toPlainText().count(QStringLiteral("line 1.")), 1);
    EXPECT_EQ(text->textCursor().selectedText(), QStringLiteral("line"));
}

TEST_F(LogWindowTest, KeepsTheNewestLines)
{
    for (int line = 0; line < LogBook::mostLines; ++line)
        write(line);
    LogWindow window(book);
    auto *const text = window.findChild<QPlainTextEdit *>(QStringLiteral("logText"));
    EXPECT_EQ(text->blockCount(), LogBook::mostLines);
    for (int line = LogBook::mostLines; line < LogBook::mostLines + 7; ++line)
        write(line);
    const QString newest = QStringLiteral("line %1.").arg(LogBook::mostLines + 6);
    ASSERT_TRUE(comesTrueSoon([&] { return text->toPlainText().contains(newest); }));
    EXPECT_EQ(text->blockCount(), LogBook::mostLines);
    EXPECT_FALSE(text->toPlainText().contains(QStringLiteral("line 6.")));
    EXPECT_TRUE(text->toPlainText().contains(QStringLiteral("line 7.")));
}

} // namespace
