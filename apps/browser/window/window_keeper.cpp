#include "apps/browser/window/window_keeper.h"

#include "apps/browser/exporting/export_window.h"
#include "apps/browser/window/main_window.h"

#include <QApplication>

namespace browser
{

WindowKeeper::WindowKeeper(QObject *parent) : QObject(parent) {}

WindowKeeper::~WindowKeeper()
{
    const QVector<QPointer<MainWindow>> left = windows;
    for (const QPointer<MainWindow> &window : left)
        delete window.data();
    QVector<ExportWindow *> ending;
    for (QWidget *const window : QApplication::topLevelWidgets())
        if (auto *const exporting = qobject_cast<ExportWindow *>(window))
            ending += exporting;
    qDeleteAll(ending);
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
