#include "apps/cli/selection/group_name.h"

#include "apps/cli/failure.h"
#include "tests/cli/fake_library.h"

#include <gtest/gtest.h>

#include <functional>

namespace photocli
{

namespace
{

ExitCode codeOf(const std::function<void()> &call, QString *message = nullptr)
{
    try {
        call();
    } catch (const Failure &failure) {
        if (message != nullptr)
            *message = failure.message;
        return failure.code;
    }
    return ExitOk;
}

} // namespace

TEST(GroupName, CategoryAloneMeansAllItsGroups)
{
    const GroupName name = parseGroupName(QStringLiteral("People"));
    EXPECT_EQ(name.category, 4);
    EXPECT_TRUE(name.key.isNull());
}

TEST(GroupName, KeyIsAllThatFollowsTheFirstSlash)
{
    const GroupName name = parseGroupName(QStringLiteral("16/a/b"));
    EXPECT_EQ(name.category, 16);
    EXPECT_EQ(name.key, QStringLiteral("a/b"));
}

TEST(GroupName, UnknownCategoryIsAUsageFailureThatListsThem)
{
    QString message;
    EXPECT_EQ(codeOf([] { parseGroupName(QStringLiteral("pets/1")); }, &message), ExitUsage);
    EXPECT_TRUE(message.contains(QStringLiteral("\"pets\"")));
    EXPECT_TRUE(message.contains(QStringLiteral("recently-deleted")));
    EXPECT_EQ(codeOf([] { parseGroupName(QStringLiteral("people/")); }), ExitUsage);
    EXPECT_EQ(codeOf([] { parseGroupName(QString()); }), ExitUsage);
}

TEST(GroupName, KeysAreThoseOfTheCategoryOrTheNamedOne)
{
    FakeLibrary library;
    library.addGroup(4, QStringLiteral("7"), {1});
    library.addGroup(4, QStringLiteral("8"), {2});
    EXPECT_EQ(groupKeys(library, {4, QString()}), QStringList({"7", "8"}));
    EXPECT_EQ(groupKeys(library, {4, QStringLiteral("8")}), QStringList({"8"}));
    EXPECT_EQ(groupKeys(library, {7, QString()}), QStringList());
}

TEST(GroupName, KeyInOtherCaseIsFoundUnlessItIsAmbiguous)
{
    FakeLibrary library;
    library.addGroup(16, QStringLiteral("AB"), {1});
    EXPECT_EQ(groupKeys(library, {16, QStringLiteral("ab")}), QStringList({"AB"}));
    library.addGroup(16, QStringLiteral("Ab"), {1});
    EXPECT_EQ(codeOf([&library] { groupKeys(library, {16, QStringLiteral("ab")}); }), ExitSomeFailed);
}

TEST(GroupName, UnknownKeyIsAFailureThatListsTheKeys)
{
    FakeLibrary library;
    library.addGroup(4, QStringLiteral("7"), {1});
    QString message;
    EXPECT_EQ(codeOf([&library] { groupKeys(library, {4, QStringLiteral("9")}); }, &message), ExitSomeFailed);
    EXPECT_TRUE(message.contains(QStringLiteral("its keys are 7")));
    EXPECT_EQ(codeOf([&library] { groupKeys(library, {15, QStringLiteral("1")}); }, &message), ExitSomeFailed);
    EXPECT_TRUE(message.contains(QStringLiteral("no group of the category memories")));
}

} // namespace photocli
