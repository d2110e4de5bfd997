#include "apps/cli/output/csv.h"

#include "apps/cli/output/text.h"

#include <algorithm>

namespace photocli
{

QString csvCell(const QString &text)
{
    const bool plain = std::none_of(text.begin(), text.end(), [](QChar c) {
        return c == QChar(',') || c == QChar('"') || c == QChar('\n') || c == QChar('\r');
    });
    if (plain)
        return text;
    QString quotedText = text;
    quotedText.replace(QChar('"'), QStringLiteral("\"\""));
    return QChar('"') + quotedText + QChar('"');
}

void Csv::line(const QStringList &cells)
{
    QString text;
    for (int i = 0; i < cells.size(); ++i) {
        if (i > 0)
            text += QChar(',');
        text += csvCell(out.isTerminal() ? harmless(cells.at(i)) : cells.at(i));
    }
    text += QStringLiteral("\r\n");
    out.write(text);
}

} // namespace photocli
