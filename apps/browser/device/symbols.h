#ifndef APPS_BROWSER_DEVICE_SYMBOLS_H
#define APPS_BROWSER_DEVICE_SYMBOLS_H

#include <QIcon>

namespace browser
{

/// Pictures of the browser's own, for desktops whose theme has none.
enum class Symbol { Phone, Folder, Backup, Back, Export, Refresh, Warning, Information, Log };

/// Drawn in the text colour of the application's palette, at any size and pixel ratio.
QIcon symbolIcon(Symbol symbol);

/// The icon of the desktop's theme, or else the symbol.
QIcon themedIcon(const QString &name, Symbol fallback);

} // namespace browser

#endif
