#include "apps/cli/output/text.h"

#include <gtest/gtest.h>

#include <limits>

namespace photocli
{

TEST(TerminalText, ControlCharactersBecomeVisibleSymbols)
{
    EXPECT_EQ(harmless(QStringLiteral("a\033[31mb")), QString::fromUtf8("a␛[31mb"));
    EXPECT_EQ(harmless(QStringLiteral("a\nb\tc\x7f")), QString::fromUtf8("a␊b␉c␡"));
    EXPECT_EQ(harmless(QString(QChar(0x9b))), QString(QChar(0xFFFD)));
}

TEST(TerminalText, DirectionMarksAndLineSeparatorsAreReplaced)
{
    const QString text = QStringLiteral("a") + QChar(0x202E) + QChar(0x2028) + QChar(0x2066);
    EXPECT_EQ(harmless(text), QStringLiteral("a") + QString(3, QChar(0xFFFD)));
}

TEST(TerminalText, PairsStayAndLoneSurrogatesAreReplaced)
{
    const QString emoji = QString::fromUtf8("😀");
    EXPECT_EQ(harmless(emoji), emoji);
    EXPECT_EQ(harmless(emoji.left(1)), QString(QChar(0xFFFD)));
    EXPECT_EQ(harmless(emoji.mid(1) + QChar('x')), QString(QChar(0xFFFD)) + QChar('x'));
}

TEST(TerminalText, WideCharactersTakeTwoCellsAndMarksNone)
{
    EXPECT_EQ(displayWidth(QStringLiteral("abc")), 3);
    EXPECT_EQ(displayWidth(QString::fromUtf8("東京")), 4);
    EXPECT_EQ(displayWidth(QString::fromUtf8("한국")), 4);
    EXPECT_EQ(displayWidth(QString::fromUtf8("😀")), 2);
    EXPECT_EQ(displayWidth(QStringLiteral("e") + QChar(0x0301)), 1);
    EXPECT_EQ(displayWidth(QString()), 0);
}

TEST(TerminalText, SizesHaveOneDecimal)
{
    EXPECT_EQ(humanSize(0), QStringLiteral("0 B"));
    EXPECT_EQ(humanSize(999), QStringLiteral("999 B"));
    EXPECT_EQ(humanSize(1000), QStringLiteral("1.0 kB"));
    EXPECT_EQ(humanSize(999960), QStringLiteral("1.0 MB"));
    EXPECT_EQ(humanSize(1500000), QStringLiteral("1.5 MB"));
    EXPECT_EQ(humanSize(std::numeric_limits<qint64>::max()), QStringLiteral("9.2 EB"));
    EXPECT_EQ(humanSize(-5), QStringLiteral("-5 B"));
}

TEST(UuidText, BytesThatAreNoUtf8BecomeHexadecimal)
{
    EXPECT_EQ(uuidText("ABC-1"), QByteArray("ABC-1"));
    EXPECT_EQ(uuidText("\xC3\xA9"), QByteArray("\xC3\xA9"));
    EXPECT_EQ(uuidText(QByteArray("\xFF\x00\x0A", 3)), QByteArray("hex:ff000a"));
    EXPECT_EQ(uuidText("\xED\xA0\x80"), QByteArray("hex:eda080")); // a surrogate
    EXPECT_EQ(uuidText("\xC0\x80"), QByteArray("hex:c080"));       // longer than need be
    EXPECT_EQ(uuidText("a\xC3"), QByteArray("hex:61c3"));          // cut off
    EXPECT_EQ(uuidText("\xEF\xBB\xBFx"), QByteArray("\xEF\xBB\xBFx"));
    EXPECT_EQ(uuidText(QByteArray()), QByteArray());
}

TEST(Text, CutKeepsWholeCharacters)
{
    EXPECT_EQ(cutToWidth(QStringLiteral("abc"), 2), QStringLiteral("ab"));
    EXPECT_EQ(cutToWidth(QStringLiteral("abc"), 3), QStringLiteral("abc"));
    EXPECT_EQ(cutToWidth(QString::fromUtf8("a東b"), 2), QStringLiteral("a"));
    EXPECT_EQ(cutToWidth(QString::fromUtf8("😀b"), 2), QString::fromUtf8("😀"));
    EXPECT_EQ(cutToWidth(QString::fromUtf8("e\u0301x"), 1), QString::fromUtf8("e\u0301"));
    EXPECT_EQ(cutToWidth(QStringLiteral("abc"), -1), QString());
}

} // namespace photocli
