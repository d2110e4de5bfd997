#include "apps/browser/page/grid_layout.h"

#include <gmock/gmock.h>

namespace
{

using browser::GridLayout;
using browser::GridMetrics;
using browser::PhotoList;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

// Cells of 100 with gaps of 10: four in a line of 460.
class GridPlaces : public testing::Test
{
protected:
    static GridMetrics metrics()
    {
        GridMetrics metrics;
        metrics.width = 460;
        metrics.cell = 100;
        metrics.spacing = 10;
        metrics.margin = 15;
        metrics.heading = 40;
        return metrics;
    }

    void arrange(std::initializer_list<int> counts)
    {
        list.hasHeadings = true;
        int first = 0;
        for (const int count : counts) {
            list.sections.push_back({first, count, QDate(2020, 1, 1)});
            first += count;
        }
        layout.arrange(&list, metrics());
    }

    PhotoList list;
    GridLayout layout;
};

TEST_F(GridPlaces, FillsLinesBelowTheHeadingOfTheirSection)
{
    arrange({5, 2});
    EXPECT_EQ(layout.columns(), 4);
    EXPECT_EQ(layout.cell(0), QRect(15, 40, 100, 100));
    EXPECT_EQ(layout.cell(3), QRect(345, 40, 100, 100));
    EXPECT_EQ(layout.cell(4), QRect(15, 150, 100, 100));
    EXPECT_EQ(layout.heading(1).top(), 260);
    EXPECT_EQ(layout.cell(5), QRect(15, 300, 100, 100));
    EXPECT_EQ(layout.height(), 425);
}

TEST_F(GridPlaces, EveryCellIsFoundAtItsCornersAndNoWhereElse)
{
    arrange({5, 2, 9});
    for (int position = 0; position < 16; ++position) {
        EXPECT_EQ(layout.at(layout.cell(position).topLeft()), position);
        EXPECT_EQ(layout.at(layout.cell(position).bottomRight()), position);
        EXPECT_EQ(layout.at(layout.cell(position).topRight() + QPoint(1, 0)), -1);
        EXPECT_EQ(layout.at(layout.cell(position).bottomLeft() + QPoint(0, 1)), -1);
    }
    EXPECT_EQ(layout.at(QPoint(130, 160)), -1); // behind the last of its section
    EXPECT_EQ(layout.at(QPoint(20, 5000)), -1);
    EXPECT_EQ(layout.at(QPoint(20, -5)), -1);
}

TEST_F(GridPlaces, HeadingsAreFoundWhereTheyAre)
{
    arrange({5, 2});
    EXPECT_EQ(layout.headingAt(QPoint(20, 10)), 0);
    EXPECT_EQ(layout.headingAt(QPoint(20, 299)), 1);
    EXPECT_EQ(layout.headingAt(QPoint(20, 300)), -1);
}

TEST_F(GridPlaces, TouchingCountsWholeLines)
{
    arrange({5, 2});
    EXPECT_THAT(layout.touching(0, 39), Pair(0, 0));
    EXPECT_THAT(layout.touching(0, 40), Pair(0, 4));
    EXPECT_THAT(layout.touching(150, 151), Pair(4, 5));
    EXPECT_THAT(layout.touching(0, 10'000), Pair(0, 7));
    EXPECT_THAT(layout.touching(265, 300), Pair(5, 7));
}

TEST_F(GridPlaces, ARectangleHoldsTheCellsThatItTouches)
{
    arrange({8, 3});
    EXPECT_THAT(layout.inside(QRect(QPoint(20, 45), QPoint(30, 50))), ElementsAre(Pair(0, 0)));
    EXPECT_THAT(layout.inside(QRect(QPoint(120, 45), QPoint(240, 160))), ElementsAre(Pair(1, 2), Pair(5, 6)));
    EXPECT_THAT(layout.inside(QRect(QPoint(0, 0), QPoint(460, 1000))), ElementsAre(Pair(0, 10)));
    EXPECT_THAT(layout.inside(QRect(QPoint(116, 50), QPoint(124, 60))), IsEmpty()); // between two columns
    EXPECT_THAT(layout.inside(QRect(QPoint(20, 141), QPoint(90, 149))), IsEmpty()); // between two lines
}

TEST_F(GridPlaces, GoingDownKeepsTheColumnAcrossSections)
{
    arrange({5, 2, 8});
    EXPECT_EQ(layout.lineDown(0, 1), 4);
    EXPECT_EQ(layout.lineDown(3, 1), 4); // the line below is shorter
    EXPECT_EQ(layout.lineDown(4, 1), 5);
    EXPECT_EQ(layout.lineDown(6, 1), 8);
    EXPECT_EQ(layout.lineDown(8, -1), 6);
    EXPECT_EQ(layout.lineDown(0, -1), 0);
    EXPECT_EQ(layout.lineDown(14, 3), 14);
    EXPECT_EQ(layout.lineDown(1, 100), 12);
}

TEST_F(GridPlaces, OfNoPhotosHasNothing)
{
    layout.arrange(nullptr, metrics());
    EXPECT_EQ(layout.height(), 0);
    EXPECT_EQ(layout.at(QPoint(20, 20)), -1);
    EXPECT_EQ(layout.sectionAtHeight(0), -1);
    EXPECT_THAT(layout.touching(0, 100), Pair(0, 0));
    EXPECT_THAT(layout.inside(QRect(0, 0, 500, 500)), IsEmpty());
}

} // namespace
