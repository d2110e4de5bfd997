#include "photolib/removed_members.h"

#include "testing/qt_printers.h"

#include <gtest/gtest.h>

#include <numeric>

using photolib::RemovedMembers;

namespace
{

constexpr int shortLength = 100;
constexpr int longLength = 10'000;

QList<qint64> upTo(int length)
{
    QList<qint64> list;
    for (int i = 1; i <= length; ++i)
        list.append(i);
    return list;
}

} // namespace

TEST(RemovedMembers, OfAShortListAreGoneAtOnce)
{
    QList<qint64> list = upTo(shortLength);
    RemovedMembers removed;
    removed.remove(&list, 7);
    EXPECT_EQ(list.size(), shortLength - 1);
    EXPECT_FALSE(list.contains(7));
}

TEST(RemovedMembers, OfALongListAreNotAmongWhatRemains)
{
    QList<qint64> list = upTo(longLength);
    RemovedMembers removed;
    for (const qint64 member : {1, 5000, longLength, longLength + 1})
        removed.remove(&list, member);
    QList<qint64> expected = upTo(longLength);
    for (const qint64 member : {1, 5000, longLength})
        expected.removeAll(member);
    EXPECT_EQ(removed.remains(list), expected);
}

TEST(RemovedMembers, AreTakenOutEachTimeTheyAreListed)
{
    QList<qint64> list = upTo(longLength) + upTo(longLength);
    RemovedMembers removed;
    removed.remove(&list, 3);
    EXPECT_EQ(removed.remains(list).count(3), 0);
    EXPECT_EQ(removed.remains(list).size(), 2 * longLength - 2);
}

TEST(RemovedMembers, LeaveTheListItselfWhenTheyAreApplied)
{
    QList<qint64> list = upTo(longLength);
    RemovedMembers removed;
    removed.remove(&list, 3);
    removed.apply(&list);
    EXPECT_FALSE(list.contains(3));
    list.append(3);
    EXPECT_TRUE(removed.remains(list).contains(3)) << "what was applied is forgotten";
}

TEST(RemovedMembers, OneByOneLeaveNothing)
{
    QList<qint64> list = upTo(longLength);
    RemovedMembers removed;
    for (qint64 member = 1; member <= longLength; ++member) {
        removed.remove(&list, member);
        if (member % 1000 == 0) {
            EXPECT_EQ(removed.remains(list).size(), longLength - member);
        }
    }
    EXPECT_TRUE(removed.remains(list).isEmpty());
}

TEST(RemovedMembers, WithoutAnyTheListIsShared)
{
    const QList<qint64> list = upTo(longLength);
    EXPECT_TRUE(RemovedMembers().remains(list).isSharedWith(list));
}
