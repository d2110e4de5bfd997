#ifndef APPS_BROWSER_WINDOW_MAIN_WINDOW_H
#define APPS_BROWSER_WINDOW_MAIN_WINDOW_H

#include "apps/browser/library/opener.h"
#include "apps/browser/window/window_actions.h"

#include <QByteArray>
#include <QMainWindow>
#include <QPointer>

#include <functional>
#include <memory>

class QLabel;
class QMessageBox;
class QStackedWidget;

namespace browser
{

class DeviceClaim;
class LibraryRoom;
class LogWindow;
class OpeningPage;
class StartPage;
class WindowKeeper;

/// A window with one device: the page to choose it, its opening, its library.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(WindowKeeper &keeper);
    ~MainWindow() override;

    /// `argument` is what resolveDevice() takes. What is open in this window closes once the other device is open; a
    /// running export is asked about at once.
    void openDevice(const QString &argument);
    /// For the next opening: the password of an encrypted backup, and whether this window closes when another one has
    /// the device.
    void setPassword(const QByteArray &password);
    void closeWhenTaken() { closesWhenTaken = true; }

    void comeToFront();

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void connectActions();
    void connectPages();
    void fillRecentMenu();
    void updateActions();
    void updateTitle();
    void updateBars();
    bool isRoomShown() const;
    void turnTo(QWidget *page);
    void showStart();
    void showRoom();
    void goBack();
    void startOpening(const QString &argument);
    void connectOpener();
    void claimDevice(const QString &device, const QString &identity);
    void refuseTaken();
    void takeLibrary(const Opened &opened);
    void makeRoom(const Opened &opened);
    void askForPassword(bool wasWrong);
    void fail(const OpeningFailure &failure);
    void pairAgain();
    void endOpening();
    void closeLibrary();
    /// Calls `then` at once, or when the user agrees to end the exports.
    void whenExportsMayEnd(const std::function<void()> &then);
    void showLog();
    void restoreWindow();
    void saveWindow() const;

    WindowKeeper &keeper;
    WindowActions actions;
    QStackedWidget *stack;
    StartPage *start;
    OpeningPage *opening;
    QLabel *status;
    QPointer<LibraryRoom> room;
    QPointer<LogWindow> logWindow;
    QPointer<QMessageBox> question;
    std::unique_ptr<Opener> opener;
    std::unique_ptr<DeviceClaim> claim;       ///< on what is open
    std::unique_ptr<DeviceClaim> wantedClaim; ///< on what is being opened, unless it is the same
    QString wanted;                           ///< what is being opened
    QString wantedDevice;                     ///< its name with a scheme, once it is known
    QString roomStatus;                       ///< what the room has said last
    QByteArray password;
    bool isPairing = false; ///< trying again means to pair again, until that succeeds
    int attempt = 0;        ///< number of the opening or pairing that counts
    bool closesWhenTaken = false;
    bool mayEndExports = false;
};

} // namespace browser

#endif
