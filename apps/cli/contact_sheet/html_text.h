#ifndef APPS_CLI_CONTACT_SHEET_HTML_TEXT_H
#define APPS_CLI_CONTACT_SHEET_HTML_TEXT_H

#include <QByteArray>
#include <QString>

namespace photocli
{

/// `text` as it may stand in HTML, between tags and inside a quoted attribute alike: what is markup is escaped, and
/// characters that HTML does not allow, or that reorder a line, are made visible. In UTF-8.
QByteArray htmlText(const QString &text);

} // namespace photocli

#endif
