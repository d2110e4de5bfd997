#include "apps/cli/output/text.h"

#include <QTextCodec>

#include <algorithm>
#include <iterator>

namespace photocli
{

namespace
{

constexpr ushort replacement = 0xFFFD;

struct Range {
    uint first;
    uint last;
};

// The blocks whose characters take two cells in the fonts of terminals.
constexpr Range wideRanges[] = {
    {0x1100, 0x115F},   {0x231A, 0x231B},   {0x23E9, 0x23EC},   {0x2614, 0x2615},   {0x26A1, 0x26A1},
    {0x2705, 0x2705},   {0x2728, 0x2728},   {0x274C, 0x274C},   {0x2B50, 0x2B50},   {0x2E80, 0x303E},
    {0x3041, 0x33FF},   {0x3400, 0x4DBF},   {0x4E00, 0x9FFF},   {0xA000, 0xA4CF},   {0xA960, 0xA97F},
    {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},
    {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF}, {0x1FA70, 0x1FAFF}, {0x20000, 0x3FFFD},
};

bool isWide(uint c)
{
    if (c < wideRanges[0].first)
        return false;
    return std::any_of(std::begin(wideRanges), std::end(wideRanges),
                       [c](const Range &range) { return c >= range.first && c <= range.last; });
}

int cells(uint c)
{
    switch (QChar::category(c)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
    case QChar::Other_Control:
        return 0;
    default:
        return isWide(c) ? 2 : 1;
    }
}

// Line and paragraph separators, and the marks that turn the direction of writing.
bool disturbsLine(ushort c)
{
    return c == 0x2028 || c == 0x2029 || c == 0x200E || c == 0x200F || c == 0x061C || (c >= 0x202A && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069);
}

ushort harmlessUnit(ushort c)
{
    if (c < 0x20)
        return static_cast<ushort>(0x2400 + c); // the symbol for that control character
    if (c == 0x7F)
        return 0x2421;
    if ((c >= 0x80 && c <= 0x9F) || disturbsLine(c))
        return replacement;
    return c;
}

bool isPair(const QString &text, int i)
{
    return text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
}

int unitsAt(const QString &text, int i)
{
    return isPair(text, i) ? 2 : 1;
}

uint codePointAt(const QString &text, int i)
{
    return isPair(text, i) ? QChar::surrogateToUcs4(text.at(i), text.at(i + 1)) : text.at(i).unicode();
}

} // namespace

QString harmless(const QString &text)
{
    QString result = text;
    for (int i = 0; i < text.size(); ++i) {
        if (isPair(text, i)) {
            ++i;
            continue;
        }
        const ushort unit = text.at(i).isSurrogate() ? replacement : harmlessUnit(text.at(i).unicode());
        if (unit != text.at(i).unicode())
            result[i] = QChar(unit);
    }
    return result;
}

int displayWidth(const QString &text)
{
    int width = 0;
    for (int i = 0; i < text.size(); i += unitsAt(text, i))
        width += cells(codePointAt(text, i));
    return width;
}

QString cutToWidth(const QString &text, int width)
{
    int end = 0;
    while (end < text.size()) {
        width -= cells(codePointAt(text, end));
        if (width < 0)
            break;
        end += unitsAt(text, end);
    }
    return text.left(end);
}

bool isUtf8(const QByteArray &bytes)
{
    static QTextCodec *const codec = QTextCodec::codecForName("UTF-8");
    // Without the flag a leading byte order mark would be dropped.
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    codec->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

QByteArray uuidText(const QByteArray &uuid)
{
    return isUtf8(uuid) ? uuid : "hex:" + uuid.toHex();
}

QString humanSize(qint64 bytes)
{
    if (bytes > -1000 && bytes < 1000)
        return QString::number(bytes) + QStringLiteral(" B");
    const char *const units[] = {"kB", "MB", "GB", "TB", "PB", "EB"};
    double value = static_cast<double>(bytes) / 1000.0;
    size_t unit = 0;
    while ((value >= 999.95 || value <= -999.95) && unit + 1 < std::size(units)) {
        value /= 1000.0;
        ++unit;
    }
    return QString::number(value, 'f', 1) + QChar(' ') + QLatin1String(units[unit]);
}

QString counted(qint64 count, const char *one, const char *more)
{
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : more));
}

} // namespace photocli
