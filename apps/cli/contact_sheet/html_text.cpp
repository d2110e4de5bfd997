#include "apps/cli/contact_sheet/html_text.h"

#include "apps/cli/output/text.h"

#include <QVector>

namespace photocli
{

namespace
{

// The last two code points of every plane, and a block of the first, stand for no character.
bool isNoncharacter(uint c)
{
    return (c & 0xFFFE) == 0xFFFE || (c >= 0xFDD0 && c <= 0xFDEF);
}

QString withoutNoncharacters(const QString &text)
{
    QVector<uint> points = text.toUcs4();
    for (uint &c : points) {
        if (isNoncharacter(c))
            c = QChar::ReplacementCharacter;
    }
    return QString::fromUcs4(points.constData(), points.size());
}

} // namespace

QByteArray htmlText(const QString &text)
{
    QString escaped = withoutNoncharacters(harmless(text)).toHtmlEscaped();
    escaped.replace(QChar('\''), QStringLiteral("&#39;"));
    return escaped.toUtf8();
}

} // namespace photocli
