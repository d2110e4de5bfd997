#ifndef APPS_CLI_OUTPUT_TEXT_H
#define APPS_CLI_OUTPUT_TEXT_H

#include <QByteArray>
#include <QString>

namespace photocli
{

/// `text` as it may be shown on a terminal: control characters become visible symbols, and characters that reorder
/// or break a line become U+FFFD. A title of the device can thus neither move the cursor nor disguise a line.
QString harmless(const QString &text);

/// How many cells of a terminal `text` takes: two for East Asian wide characters and emoji, none for combining marks.
int displayWidth(const QString &text);

/// As much of the start of `text` as fits into so many cells.
QString cutToWidth(const QString &text, int cells);

/// Whether `bytes` are UTF-8 throughout.
bool isUtf8(const QByteArray &bytes);

/// A UUID as text: its bytes when they are UTF-8, otherwise "hex:" and the bytes in lower-case hexadecimal.
QByteArray uuidText(const QByteArray &uuid);

/// A size in bytes for people, such as "3.4 MB".
QString humanSize(qint64 bytes);

/// A number of things, such as "1 file" or "2 files".
QString counted(qint64 count, const char *one, const char *more);

} // namespace photocli

#endif
