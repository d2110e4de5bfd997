#ifndef APPS_CLI_MESSAGES_H
#define APPS_CLI_MESSAGES_H

#include <QString>

namespace photocli
{

/// Print one line on standard error, "photolib: MESSAGE" or "photolib: warning: MESSAGE". Whatever a device's text
/// brings along, the result is a single line without control characters.
void printError(const QString &message);
void printWarning(const QString &message);

/// Prints `line` alone, made safe in the same way.
void printNote(const QString &line);

/// Prints a question, made safe in the same way: the answer follows on the same line.
void printPrompt(const QString &question);

/// A name as it stands in a message: in quotes and, when very long, cut.
QString quoted(const QString &name);

} // namespace photocli

#endif
