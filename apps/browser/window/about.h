#ifndef APPS_BROWSER_WINDOW_ABOUT_H
#define APPS_BROWSER_WINDOW_ABOUT_H

class QWidget;

namespace browser
{

/// What program this is, over `parent`. Returns at once.
void showAbout(QWidget *parent);

} // namespace browser

#endif
