#include "apps/cli/sample/canvas.h"

namespace sample
{

Palette paletteOf(Hour hour)
{
    switch (hour) {
    case Hour::Dawn:
        return {QColor(0x6f8fc7), QColor(0xf3b8a6), QColor(0xffe3b5), QColor(0xfff3cf),
                QColor(0x9aa2c4), QColor(0x56618c), QColor(0x8fa6cf), QColor(0xffe9df)};
    case Hour::Day:
        return {QColor(0x2f7fd6), QColor(0x7fbdf0), QColor(0xd8eefb), QColor(0xfffbe6),
                QColor(0x8fb7a5), QColor(0x3f7f4c), QColor(0x2f86b8), QColor(0xffffff)};
    case Hour::Dusk:
        return {QColor(0x3a2f6b), QColor(0xc4577a), QColor(0xffb266), QColor(0xffe0a3),
                QColor(0x7a4a78), QColor(0x35244f), QColor(0x6a4a86), QColor(0xf7a58c)};
    case Hour::Night:
        break;
    }
    return {QColor(0x070b22), QColor(0x14204a), QColor(0x2c3f6e), QColor(0xf4f1dc),
            QColor(0x1d2c52), QColor(0x0c1530), QColor(0x122246), QColor(0x33456f)};
}

QColor mix(const QColor &from, const QColor &to, double share)
{
    const auto between = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return QColor(between(from.red(), to.red()), between(from.green(), to.green()), between(from.blue(), to.blue()),
                  between(from.alpha(), to.alpha()));
}

QColor faded(QColor colour, double alpha)
{
    colour.setAlphaF(alpha);
    return colour;
}

} // namespace sample
