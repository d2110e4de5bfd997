#include "apps/browser/window/window_keeper.h"

#include "apps/browser/window/main_window.h"

namespace browser
{

WindowKeeper::WindowKeeper(QObject *parent) : QObject(parent) {}

WindowKeeper::~WindowKeeper()
{
    const QVector<QPointer<MainWindow>> left = windows;
    for (const QPointer<MainWindow> &window : left)
        delete window.data();
}

MainWindow *WindowKeeper::open()
{
    auto *const window = new MainWindow(*this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    windows.removeAll(nullptr);
    windows.append(window);
    window->show();
    return window;
}

void WindowKeeper::closeAll()
{
    const QVector<QPointer<MainWindow>> open = windows;
    for (const QPointer<MainWindow> &window : open)
        if (window)
            window->close();
}

} // namespace browser
