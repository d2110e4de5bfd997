#ifndef APPS_BROWSER_WINDOW_WINDOW_ACTIONS_H
#define APPS_BROWSER_WINDOW_WINDOW_ACTIONS_H

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace browser
{

/// The actions of a window with its menus and tool bar. The window owns them all; nothing is connected.
struct WindowActions {
    QAction *openFolder;
    QAction *choose; ///< back to the start page
    QAction *newWindow;
    QAction *exportSelected;
    QAction *exportShown;
    QAction *readAgain;
    QAction *close;
    QAction *quit;
    QAction *fullScreen;
    QAction *log;
    QAction *about;
    QAction *aboutQt;
    QMenu *recent;
    QToolBar *toolBar;
};

WindowActions makeActions(QMainWindow &window);

} // namespace browser

#endif
