#ifndef APPS_BROWSER_WINDOW_WINDOW_KEEPER_H
#define APPS_BROWSER_WINDOW_WINDOW_KEEPER_H

#include "apps/browser/window/log_book.h"

#include <QObject>
#include <QPointer>
#include <QVector>

namespace browser
{

class MainWindow;

/// The windows of this process and what they share. They own themselves: a window that is closed goes. Deletes those
/// that are left, and tells exports that are still running to come to their end.
class WindowKeeper : public QObject
{
    Q_OBJECT

public:
    explicit WindowKeeper(QObject *parent = nullptr);
    ~WindowKeeper() override;

    /// A new window, on its start page and shown.
    MainWindow *open();
    /// Asks every window to close; those that export ask in turn.
    void closeAll();

    LogBook &log() { return book; }

private:
    LogBook book;
    QVector<QPointer<MainWindow>> windows;
};

} // namespace browser

#endif
