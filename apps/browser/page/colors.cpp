#include "apps/browser/page/colors.h"

#include <QPalette>

namespace browser
{

QColor blended(const QColor &one, const QColor &other, double share)
{
    const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

QColor fadedText(const QPalette &palette)
{
    return blended(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.6);
}

} // namespace browser
