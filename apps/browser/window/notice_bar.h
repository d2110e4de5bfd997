#ifndef APPS_BROWSER_WINDOW_NOTICE_BAR_H
#define APPS_BROWSER_WINDOW_NOTICE_BAR_H

#include "apps/browser/device/symbols.h"

#include <QFrame>

class QLabel;
class QPushButton;
class QToolButton;

namespace browser
{

/// A calm line above the library: something that people should know, and perhaps a button that helps. Hidden until
/// there is one.
class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget *parent = nullptr);

    /// Replaces what is shown. `button` is left out when it is empty; `details` is a tool tip.
    void showNotice(Symbol symbol, const QString &text, const QString &button = {}, const QString &details = {});

    QString text() const;

Q_SIGNALS:
    void pressed();
    void dismissed();

protected:
    void changeEvent(QEvent *event) override;

private:
    void updateColors();

    Symbol shown = Symbol::Information;
    QLabel *icon;
    QLabel *label;
    QPushButton *action;
    QToolButton *closing;
};

} // namespace browser

#endif
