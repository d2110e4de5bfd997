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
    ~LogWindow() override;

private:
    void update();

    LogBook &book;
    QPlainTextEdit *text;
    qint64 seen = 0; ///< lines of the book
};

} // namespace browser

#endif
