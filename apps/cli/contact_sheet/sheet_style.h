#ifndef APPS_CLI_CONTACT_SHEET_SHEET_STYLE_H
#define APPS_CLI_CONTACT_SHEET_SHEET_STYLE_H

namespace photocli
{

/// The style sheet of a contact sheet, ready to stand in a style element.
extern const char *const sheetStyle;

} // namespace photocli

#endif
