#include "apps/browser/page/grid_layout.h"

#include <algorithm>

namespace browser
{

void GridLayout::arrange(const PhotoList *photos, const GridMetrics &metrics)
{
    sizes = metrics;
    sections.clear();
    hasHeadings = photos != nullptr && photos->hasHeadings;
    const int room = sizes.width - 2 * sizes.margin;
    perLine = std::max(1, (room + sizes.spacing) / linePitch());
    left = sizes.margin + std::max(0, (room - perLine * linePitch() + sizes.spacing) / 2);
    total = 0;
    if (photos == nullptr)
        return;
    sections.reserve(photos->sections.size());
    for (const PhotoSection &section : photos->sections) {
        sections.push_back({section.first, section.count, total});
        total += headingHeight() + linesOf(sections.back()) * linePitch();
    }
    total += sizes.margin;
}

QRect GridLayout::cell(int position) const
{
    if (sections.empty())
        return {};
    const Placed &section = placed(sectionOf(position));
    const int at = position - section.first;
    return {left + at % perLine * linePitch(), firstLineTop(section) + at / perLine * linePitch(), sizes.cell,
            sizes.cell};
}

QRect GridLayout::heading(int section) const
{
    if (!hasHeadings)
        return {};
    return {left, placed(section).top, perLine * linePitch() - sizes.spacing, headingHeight()};
}

std::pair<int, int> GridLayout::range(int section) const
{
    return {placed(section).first, placed(section).first + placed(section).count};
}

std::pair<int, int> GridLayout::extent(int section) const
{
    const Placed &one = placed(section);
    return {one.top, firstLineTop(one) + linesOf(one) * linePitch()};
}

int GridLayout::at(const QPoint &point) const
{
    const int number = sectionAtHeight(point.y());
    if (number < 0)
        return -1;
    const Placed &section = placed(number);
    const int x = point.x() - left, y = point.y() - firstLineTop(section);
    if (x < 0 || y < 0 || x % linePitch() >= sizes.cell || y % linePitch() >= sizes.cell || x / linePitch() >= perLine)
        return -1;
    const int found = y / linePitch() * perLine + x / linePitch();
    return found < section.count ? section.first + found : -1;
}

int GridLayout::headingAt(const QPoint &point) const
{
    const int section = hasHeadings ? sectionAtHeight(point.y()) : -1;
    return section >= 0 && heading(section).contains(point) ? section : -1;
}

int GridLayout::sectionOf(int position) const
{
    const auto next = std::upper_bound(sections.begin(), sections.end(), position,
                                       [](int value, const Placed &section) { return value < section.first; });
    return std::max(0, static_cast<int>(next - sections.begin()) - 1);
}

int GridLayout::sectionAtHeight(int y) const
{
    if (sections.empty())
        return -1;
    const auto next = std::upper_bound(sections.begin(), sections.end(), y,
                                       [](int value, const Placed &section) { return value < section.top; });
    return std::max(0, static_cast<int>(next - sections.begin()) - 1);
}

std::pair<int, int> GridLayout::touching(int top, int bottom) const
{
    if (sections.empty() || bottom < top)
        return {0, 0};
    const auto lineAt = [this](const Placed &section, int y) {
        return std::clamp((y - firstLineTop(section)) / linePitch(), 0, linesOf(section));
    };
    const Placed &upper = placed(sectionAtHeight(top)), &lower = placed(sectionAtHeight(bottom));
    const int first = upper.first + std::min(upper.count, lineAt(upper, top) * perLine);
    int behind = lower.first;
    if (bottom >= firstLineTop(lower))
        behind += std::min(lower.count, (lineAt(lower, bottom) + 1) * perLine);
    return {first, std::max(first, behind)};
}

std::pair<int, int> GridLayout::columnsTouching(int from, int to) const
{
    const int pitch = linePitch();
    const int first = std::max(0, (from - left + sizes.spacing) / pitch);
    const int last = to < left ? -1 : std::min(perLine - 1, (to - left) / pitch);
    return {first, last};
}

std::vector<std::pair<int, int>> GridLayout::inside(const QRect &rectangle) const
{
    std::vector<std::pair<int, int>> runs;
    const auto [firstColumn, lastColumn] = columnsTouching(rectangle.left(), rectangle.right());
    const auto [begin, end] = touching(rectangle.top(), rectangle.bottom());
    if (firstColumn > lastColumn || begin >= end)
        return runs;
    for (int line = begin; line < end;) {
        const auto [sectionBegin, sectionEnd] = range(sectionOf(line));
        const int lineEnd = std::min(sectionEnd, line + perLine);
        const int first = line + firstColumn, last = std::min(lineEnd - 1, line + lastColumn);
        const QRect stretch = cell(line);
        if (first <= last && stretch.bottom() >= rectangle.top() && stretch.top() <= rectangle.bottom()) {
            if (!runs.empty() && runs.back().second + 1 == first)
                runs.back().second = last;
            else
                runs.emplace_back(first, last);
        }
        line = lineEnd;
    }
    return runs;
}

int GridLayout::lineDown(int position, int lines) const
{
    if (sections.empty())
        return -1;
    int number = sectionOf(position);
    const int column = (position - placed(number).first) % perLine;
    int line = (position - placed(number).first) / perLine + lines;
    while (line < 0 && number > 0)
        line += linesOf(placed(--number));
    while (line >= linesOf(placed(number)) && number + 1 < sectionCount())
        line -= linesOf(placed(number++));
    const Placed &section = placed(number);
    if (line < 0 || line >= linesOf(section)) // beyond the first or last line of all
        line = line < 0 ? 0 : linesOf(section) - 1;
    return section.first + std::min(section.count - 1, line * perLine + column);
}

} // namespace browser
