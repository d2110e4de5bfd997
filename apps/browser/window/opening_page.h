#ifndef APPS_BROWSER_WINDOW_OPENING_PAGE_H
#define APPS_BROWSER_WINDOW_OPENING_PAGE_H

#include "apps/browser/library/opener.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class QToolButton;

namespace browser
{

/// What is to be seen while a device opens: progress, the question for a password, or what went wrong and what to do.
class OpeningPage : public QWidget
{
    Q_OBJECT

public:
    explicit OpeningPage(QWidget *parent = nullptr);

    void showProgress(const OpeningProgress &progress);
    void askForPassword(bool wasWrong);
    void showFailure(const OpeningFailure &failure);
    /// While phone and computer are paired again.
    void showPairing();

Q_SIGNALS:
    /// UTF-8; the receiver overwrites it.
    void passwordGiven(QByteArray password);
    void cancelRequested();
    void retryRequested();
    void pairRequested();
    void backRequested();

private:
    QWidget *makeProgress();
    QWidget *makePassword();
    QWidget *makeFailure();
    void takePassword();

    QStackedWidget *stack;
    QLabel *stageLabel = nullptr;
    QProgressBar *bar = nullptr;
    QPushButton *cancelButton = nullptr;
    QLabel *passwordHint = nullptr;
    QLineEdit *passwordEdit = nullptr;
    QLabel *failureTitle = nullptr;
    QLabel *failureText = nullptr;
    QToolButton *detailsButton = nullptr;
    QLabel *detailsText = nullptr;
    QPushButton *retryButton = nullptr;
    QPushButton *pairButton = nullptr;
};

} // namespace browser

#endif
