#ifndef APPS_BROWSER_WINDOW_LOG_WINDOW_H
#define APPS_BROWSER_WINDOW_LOG_WINDOW_H

#include <QDialog>

class QPlainTextEdit;

namespace browser
{

class LogBook;

/// Shows the log while it grows, for reports of problems.
class LogWindow : public QDialog
{
    Q_OBJECT

public:
    explicit LogWindow(LogBook &book, QWidget *parent = nullptr);

private:
    void update();

    LogBook &book;
    QPlainTextEdit *text;
};

} // namespace browser

#endif
