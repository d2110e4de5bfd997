#include "exporter/safe_name.h"

#include <QChar>
#include <QSet>
#include <QVector>

namespace exporter
{

namespace
{

constexpr uint zeroWidthJoiner = 0x200D;

bool isReservedCharacter(uint c)
{
    return c < 0x20 || (c < 0x80 && QStringLiteral("/\\:*?\"<>|").contains(QChar(c)));
}

// Invisible characters that turn or hide text, as against those that emoji and some scripts are made of.
bool isDropped(uint c)
{
    const bool isPartOfSigns = c == 0x200C || c == zeroWidthJoiner || (c >= 0xE0020 && c <= 0xE007F);
    return QChar::category(c) == QChar::Other_Format && !isPartOfSigns;
}

bool isReplaced(uint c)
{
    switch (QChar::category(c)) {
    case QChar::Other_Control:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return isReservedCharacter(c) || QChar::isNonCharacter(c);
    }
}

QString withoutUnsafeCharacters(const QString &name)
{
    QString result;
    for (int i = 0; i < name.size(); ++i) {
        uint c = name[i].unicode();
        if (name[i].isHighSurrogate() && i + 1 < name.size() && name[i + 1].isLowSurrogate()) {
            c = QChar::surrogateToUcs4(name[i], name[i + 1]);
            ++i;
        }
        if (isReplaced(c))
            result += QLatin1Char('_');
        else if (!isDropped(c))
            result += QString::fromUcs4(&c, 1);
    }
    return result;
}

void trimEnd(QString &name)
{
    while (!name.isEmpty() &&
           (name.back() == QLatin1Char('.') || name.back().isSpace() || name.back().unicode() == zeroWidthJoiner))
        name.chop(1);
}

void cutToBytes(QString &name, int maximalBytes)
{
    while (name.toUtf8().size() > maximalBytes) {
        // Whatever is surely too much goes at once, a character is at most three bytes for each of its units.
        const int excess = name.toUtf8().size() - maximalBytes;
        name.chop(qMax(1, excess / 3));
        if (!name.isEmpty() && name.at(name.size() - 1).isHighSurrogate())
            name.chop(1);
    }
}

// Composing takes time by the square of the length, so a hostile name of megabytes is cut first. Nothing that could be
// in the result is lost: composing makes one unit of at most four.
QString composed(const QString &name, int maximalBytes)
{
    QString start = name.left(4 * maximalBytes);
    if (start.size() < name.size() && start.at(start.size() - 1).isHighSurrogate())
        start.chop(1);
    return start.normalized(QString::NormalizationForm_C);
}

bool isDeviceName(const QString &name)
{
    static const QSet<QString> names = [] {
        QSet<QString> set{QStringLiteral("CON"), QStringLiteral("PRN"),    QStringLiteral("AUX"),
                          QStringLiteral("NUL"), QStringLiteral("CONIN$"), QStringLiteral("CONOUT$")};
        for (const QChar digit : QStringLiteral("0123456789\u00B9\u00B2\u00B3")) {
            set.insert(QStringLiteral("COM") + digit);
            set.insert(QStringLiteral("LPT") + digit);
        }
        return set;
    }();
    return names.contains(name.section(QLatin1Char('.'), 0, 0).trimmed().toUpper());
}

} // namespace

QString safeName(const QString &name, int maximalBytes)
{
    QString result = composed(withoutUnsafeCharacters(name).trimmed(), maximalBytes).trimmed();
    if (result.startsWith(QLatin1Char('.')) && result != QLatin1String(".") && result != QLatin1String(".."))
        result[0] = QLatin1Char('_');
    cutToBytes(result, maximalBytes);
    trimEnd(result);
    if (isDeviceName(result)) {
        const int dot = result.indexOf(QLatin1Char('.'));
        result.insert(dot < 0 ? result.size() : dot, QLatin1Char('_'));
        cutToBytes(result, maximalBytes);
        trimEnd(result);
    }
    return result.isEmpty() ? QStringLiteral("_") : result;
}

QString safeExtension(const QString &extension)
{
    QString result = composed(withoutUnsafeCharacters(extension), maximalExtensionBytes);
    cutToBytes(result, maximalExtensionBytes);
    trimEnd(result);
    return result.trimmed();
}

QString stemOf(const QString &fileName)
{
    const int dot = fileName.lastIndexOf(QLatin1Char('.'));
    return dot <= 0 ? fileName : fileName.left(dot);
}

QString extensionOf(const QString &fileName)
{
    const int dot = fileName.lastIndexOf(QLatin1Char('.'));
    return dot <= 0 ? QString() : fileName.mid(dot + 1);
}

QString foldedName(const QString &name)
{
    // Capitals first: folding alone leaves "ß" and "SS" apart. Either can take a composed letter apart, hence composed
    // once more.
    return name.normalized(QString::NormalizationForm_C)
        .toUpper()
        .toCaseFolded()
        .normalized(QString::NormalizationForm_C);
}

} // namespace exporter
