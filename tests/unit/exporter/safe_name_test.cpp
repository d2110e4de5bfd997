#include "exporter/safe_name.h"
#include "testing/qt_printers.h"

#include <gtest/gtest.h>

using namespace exporter;

TEST(SafeName, OrdinaryNamesStayAsTheyAre)
{
    for (const char *name : {"IMG_0001", "Ferien in Köln", "a.b.c", "日本", "100APPLE", "x (1)", "CONCERT", "COM10"})
        EXPECT_EQ(QString(name), safeName(name));
}

TEST(SafeName, SeparatorsAndReservedCharactersBecomeUnderscores)
{
    EXPECT_EQ(QString("a_b_c_d_e_f_g_h_i_j"), safeName("a/b\\c:d*e?f\"g<h>i|j"));
    EXPECT_EQ(QString("a_b_c_d"), safeName(QString("a") + QChar(0) + "b\nc" + QChar(0x7f) + "d"));
}

TEST(SafeName, NoNameIsEmptyOrLeadsUpOrIsHidden)
{
    EXPECT_EQ(QString("_"), safeName(""));
    EXPECT_EQ(QString("_"), safeName("."));
    EXPECT_EQ(QString("_"), safeName(".."));
    EXPECT_EQ(QString("_"), safeName(" . . "));
    EXPECT_EQ(QString("_.x"), safeName("..x"));
    EXPECT_EQ(QString("_photolib-export.sqlite"), safeName(".photolib-export.sqlite"));
}

TEST(SafeName, DotsAndBlanksAtTheEndGo)
{
    EXPECT_EQ(QString("a"), safeName(" a . . "));
}

TEST(SafeName, WindowsDeviceNamesAreMadeHarmless)
{
    EXPECT_EQ(QString("CON_"), safeName("CON"));
    EXPECT_EQ(QString("nul_.tar.gz"), safeName("nul.tar.gz"));
    EXPECT_EQ(QString("Com1_"), safeName("Com1"));
    EXPECT_EQ(QString("aux_ .x"), safeName("aux .x").replace(" _", "_ "));
}

TEST(SafeName, CharactersThatTurnTextGoAndThoseOfEmojiStay)
{
    EXPECT_EQ(QString("gpj.exe"), safeName(QString::fromUtf8("\u202Egpj.exe")));
    EXPECT_EQ(QString::fromUtf8("👨‍👩‍👧"), safeName(QString::fromUtf8("👨‍👩‍👧")));
}

TEST(SafeName, NamesAreComposed)
{
    EXPECT_EQ(QString::fromUtf8("\u00e4"), safeName(QString::fromUtf8("a\u0308")));
}

TEST(SafeName, HalfSurrogatesBecomeUnderscores)
{
    EXPECT_EQ(QString("a_b"), safeName(QString("a") + QChar(0xD83D) + "b"));
    EXPECT_EQ(QString("a_"), safeName(QString("a") + QChar(0xDE00)));
}

TEST(SafeName, LongNamesAreCutAtACharacter)
{
    const QString name = safeName(QString::fromUtf8("ä😀").repeated(100));
    EXPECT_LE(name.toUtf8().size(), maximalNameBytes);
    EXPECT_GE(name.toUtf8().size(), maximalNameBytes - 8);
    EXPECT_EQ(name, QString::fromUtf8(name.toUtf8()));
    EXPECT_FALSE(name.contains(QChar::ReplacementCharacter));
}

// Composing all of it would take a time that grows with the square of its length.
TEST(SafeName, NameOfMegabytesIsCutBeforeItIsComposed)
{
    const QString decomposed = QString("e") + QChar(0x301);
    EXPECT_EQ(QString("é").repeated(100), safeName(decomposed.repeated(1 << 20)));
    EXPECT_EQ(QString("é").repeated(8), safeExtension(decomposed.repeated(1 << 20)));
}

TEST(SafeName, CuttingMakesNoDotAtTheEnd)
{
    EXPECT_EQ(QString("ab"), safeName("ab. cd", 4));
}

TEST(SafeExtension, IsCutAndMadeSafe)
{
    EXPECT_EQ(QString("HEIC"), safeExtension("HEIC"));
    EXPECT_EQ(QString("j_g"), safeExtension("j/g. "));
    EXPECT_EQ(QString(), safeExtension(""));
    EXPECT_EQ(maximalExtensionBytes, safeExtension(QString("x").repeated(300)).size());
}

TEST(FoldedName, IsEqualForNamesThatFileSystemsTakeForTheSame)
{
    EXPECT_EQ(foldedName("IMG_1.jpg"), foldedName("img_1.JPG"));
    EXPECT_EQ(foldedName(QString::fromUtf8("STRASSE")), foldedName(QString::fromUtf8("straße")));
    EXPECT_EQ(foldedName(QString::fromUtf8("\u00c4")), foldedName(QString::fromUtf8("a\u0308")));
    EXPECT_NE(foldedName("a"), foldedName("b"));
}
