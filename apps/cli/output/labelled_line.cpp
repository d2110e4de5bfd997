#include "apps/cli/output/labelled_line.h"

#include "apps/cli/output/text.h"

namespace photocli
{

void printLabelled(Output &out, const QString &label, int labelWidth, const QString &text)
{
    QString line = label.leftJustified(labelWidth) + harmless(text);
    while (line.endsWith(QChar(' ')))
        line.chop(1);
    out.write(line + QChar('\n'));
}

} // namespace photocli
