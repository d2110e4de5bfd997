#include "apps/cli/messages.h"

#include "apps/cli/output/descriptor.h"
#include "apps/cli/output/text.h"

#include <unistd.h>

namespace photocli
{

namespace
{

void print(const QByteArray &bytes)
{
    // All of it at once, so that lines of several processes on one terminal do not mix. Nothing can be done about a
    // standard error that cannot be written.
    writeAll(STDERR_FILENO, bytes.constData(), static_cast<size_t>(bytes.size()));
}

} // namespace

void printNote(const QString &line)
{
    print(harmless(line).toUtf8() + '\n');
}

void printPrompt(const QString &question)
{
    print(harmless(question).toUtf8());
}

void printError(const QString &message)
{
    printNote(QStringLiteral("photolib: ") + message);
}

void printWarning(const QString &message)
{
    printNote(QStringLiteral("photolib: warning: ") + message);
}

QString quoted(const QString &name)
{
    const int longest = 200;
    const QString shown = name.size() > longest ? name.left(longest) + QChar(0x2026) : name;
    return QChar('"') + shown + QChar('"');
}

} // namespace photocli
