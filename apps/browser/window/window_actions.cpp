#include "apps/browser/window/window_actions.h"

#include "apps/browser/device/symbols.h"

#include <QAction>
#include <QCoreApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace browser
{

namespace
{

class Maker
{
    Q_DECLARE_TR_FUNCTIONS(WindowActions)

public:
    explicit Maker(QMainWindow &forWindow) : window(forWindow) {}

    WindowActions make()
    {
        makeActions();
        fillMenus();
        fillToolBar();
        return made;
    }

private:
    QAction *add(const QString &name, const QString &text, const QKeySequence &shortcut, const QIcon &icon = {})
    {
        auto *const action = new QAction(icon, text, &window);
        action->setObjectName(name);
        action->setShortcut(shortcut);
        window.addAction(action); // for its keys while the menu bar is hidden
        return action;
    }

    void makeActions()
    {
        const auto key = [](int combination) { return QKeySequence(combination); };
        made.openFolder = add(QStringLiteral("openFolderAction"), tr("&Open Folder…"), QKeySequence::Open,
                              themedIcon(QStringLiteral("document-open-folder"), Symbol::Folder));
        made.choose = add(QStringLiteral("chooseAction"), tr("&Choose Another Phone"), key(Qt::ALT | Qt::Key_Home),
                          themedIcon(QStringLiteral("go-previous"), Symbol::Back));
        made.choose->setIconText(tr("Phones"));
        made.newWindow = add(QStringLiteral("newWindowAction"), tr("&New Window"), QKeySequence::New);
        made.exportSelected = add(QStringLiteral("exportAction"), tr("&Export Selected…"), key(Qt::CTRL | Qt::Key_E),
                                  themedIcon(QStringLiteral("document-export"), Symbol::Export));
        made.exportSelected->setIconText(tr("Export…"));
        made.exportShown = add(QStringLiteral("exportShownAction"), tr("Export &All That Is Shown…"),
                               key(Qt::CTRL | Qt::SHIFT | Qt::Key_E));
        made.readAgain = add(QStringLiteral("readAgainAction"), tr("&Read Again"), QKeySequence::Refresh,
                             themedIcon(QStringLiteral("view-refresh"), Symbol::Refresh));
        made.close = add(QStringLiteral("closeAction"), tr("Close &Window"), QKeySequence::Close);
        made.quit = add(QStringLiteral("quitAction"), tr("&Quit"), QKeySequence::Quit);
        made.quit->setMenuRole(QAction::QuitRole);
        made.fullScreen = add(QStringLiteral("fullScreenAction"), tr("&Full Screen"), key(Qt::Key_F11));
        made.fullScreen->setCheckable(true);
        made.log = add(QStringLiteral("logAction"), tr("&Log…"), key(Qt::CTRL | Qt::SHIFT | Qt::Key_L));
        made.about = add(QStringLiteral("aboutAction"), tr("&About This Program"), QKeySequence());
        made.about->setMenuRole(QAction::AboutRole);
        made.aboutQt = add(QStringLiteral("aboutQtAction"), tr("About &Qt"), QKeySequence());
        made.aboutQt->setMenuRole(QAction::AboutQtRole);
    }

    void fillMenus()
    {
        QMenu *const file = window.menuBar()->addMenu(tr("&File"));
        file->addAction(made.openFolder);
        made.recent = file->addMenu(tr("Open Re&cent"));
        made.recent->setObjectName(QStringLiteral("recentMenu"));
        file->addActions({made.choose, made.newWindow});
        file->addSeparator();
        file->addActions({made.exportSelected, made.exportShown});
        file->addSeparator();
        file->addAction(made.readAgain);
        file->addSeparator();
        file->addActions({made.close, made.quit});
        QMenu *const view = window.menuBar()->addMenu(tr("&View"));
        view->addActions({made.fullScreen, made.log});
        QMenu *const help = window.menuBar()->addMenu(tr("&Help"));
        help->addActions({made.about, made.aboutQt});
    }

    void fillToolBar()
    {
        made.toolBar = window.addToolBar(tr("Tool Bar"));
        made.toolBar->setObjectName(QStringLiteral("toolBar"));
        made.toolBar->setMovable(false);
        made.toolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        made.toolBar->setContextMenuPolicy(Qt::PreventContextMenu);
        made.toolBar->addActions({made.choose, made.exportSelected});
    }

    QMainWindow &window;
    WindowActions made = {};
};

} // namespace

WindowActions makeActions(QMainWindow &window)
{
    return Maker(window).make();
}

} // namespace browser
