#ifndef APPS_BROWSER_PAGE_GRID_LAYOUT_H
#define APPS_BROWSER_PAGE_GRID_LAYOUT_H

#include "apps/browser/page/photo_query.h"

#include <QRect>

#include <utility>
#include <vector>

namespace browser
{

/// Sizes in device-independent pixels.
struct GridMetrics {
    int width = 0; ///< of the whole grid
    int cell = 160;
    int spacing = 4;
    int margin = 12;
    int heading = 40; ///< height; ignored where sections have no headings
};

/// Places square cells in lines of equal cells, below a heading for each section. Positions are counted over all
/// sections; coordinates begin at the top of the first heading. Arranging takes time by sections, questions by their
/// logarithm.
class GridLayout
{
public:
    void arrange(const PhotoList *photos, const GridMetrics &metrics);

    int columns() const { return perLine; }
    int height() const { return total; }
    int linePitch() const { return sizes.cell + sizes.spacing; }
    const GridMetrics &metrics() const { return sizes; }
    int sectionCount() const { return static_cast<int>(sections.size()); }

    QRect cell(int position) const;
    /// With the margins left and right of it.
    QRect heading(int section) const;
    /// Positions of a section: the first one, and the one behind its last.
    std::pair<int, int> range(int section) const;
    /// From the top of its heading to the top of the next one.
    std::pair<int, int> extent(int section) const;

    /// The cell at a point, -1 for none.
    int at(const QPoint &point) const;
    /// The section whose heading is at a point, -1 for none.
    int headingAt(const QPoint &point) const;
    /// The section of a position.
    int sectionOf(int position) const;
    /// The section that covers a height; the first or last one beyond them, -1 when there is none.
    int sectionAtHeight(int y) const;

    /// Positions in lines that touch [top, bottom]: the first one, and the one behind the last.
    std::pair<int, int> touching(int top, int bottom) const;
    /// Runs of positions whose cells touch a rectangle, each the first and the last one.
    std::vector<std::pair<int, int>> inside(const QRect &rectangle) const;

    /// The position as many lines further down, or up for a negative number, in the same column or the last one there.
    int lineDown(int position, int lines) const;

private:
    struct Placed {
        int first;
        int count;
        int top; ///< of its heading
    };

    int headingHeight() const { return hasHeadings ? sizes.heading : sizes.margin; }
    int linesOf(const Placed &section) const { return (section.count + perLine - 1) / perLine; }
    const Placed &placed(int section) const { return sections[static_cast<std::size_t>(section)]; }
    int firstLineTop(const Placed &section) const { return section.top + headingHeight(); }
    std::pair<int, int> columnsTouching(int left, int right) const;

    GridMetrics sizes;
    bool hasHeadings = false;
    int perLine = 1;
    int left = 0;
    int total = 0;
    std::vector<Placed> sections;
};

} // namespace browser

#endif
