#ifndef APPS_BROWSER_WINDOW_TRANSLATIONS_H
#define APPS_BROWSER_WINDOW_TRANSLATIONS_H

class QCoreApplication;

namespace browser
{

/// Makes the program speak the language of the desktop, where there is a catalogue for it, and English where there is
/// none.
void installTranslations(QCoreApplication &application);

} // namespace browser

#endif
