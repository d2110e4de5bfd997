#include "apps/browser/window/main_window.h"

#include "apps/browser/device/recent_devices.h"
#include "apps/browser/device/start_page.h"
#include "apps/browser/library/background.h"
#include "apps/browser/library/device_title.h"
#include "apps/browser/window/about.h"
#include "apps/browser/window/device_claim.h"
#include "apps/browser/window/library_room.h"
#include "apps/browser/window/log_window.h"
#include "apps/browser/window/opening_page.h"
#include "apps/browser/window/window_keeper.h"
#include "devicehost/usb_devices.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>

namespace browser
{

MainWindow::MainWindow(WindowKeeper &windows)
    : keeper(windows), actions(makeActions(*this)), stack(new QStackedWidget(this)), start(new StartPage),
      opening(new OpeningPage), status(new QLabel(this))
{
    setObjectName(QStringLiteral("mainWindow"));
    stack->addWidget(start);
    stack->addWidget(opening);
    setCentralWidget(stack);
    status->setObjectName(QStringLiteral("statusText"));
    statusBar()->addWidget(status, 1);
    setAcceptDrops(true);
    connectActions();
    connectPages();
    restoreWindow();
    showStart();
}

MainWindow::~MainWindow()
{
    endOpening();
    closeLibrary();
    password.fill('\0');
}

void MainWindow::connectActions()
{
    connect(actions.openFolder, &QAction::triggered, start, &StartPage::chooseFolder);
    connect(actions.choose, &QAction::triggered, this, [this] { whenExportsMayEnd([this] { showStart(); }); });
    connect(actions.newWindow, &QAction::triggered, this, [this] { keeper.open(); });
    connect(actions.exportSelected, &QAction::triggered, this, [this] { room->exportSelected(); });
    connect(actions.exportShown, &QAction::triggered, this, [this] { room->exportShown(); });
    connect(actions.readAgain, &QAction::triggered, this, [this] { room->reopen(); });
    connect(actions.close, &QAction::triggered, this, &QWidget::close);
    connect(actions.quit, &QAction::triggered, &keeper, &WindowKeeper::closeAll);
    connect(actions.fullScreen, &QAction::triggered, this, [this](bool on) {
        setWindowState(on ? windowState() | Qt::WindowFullScreen : windowState() & ~Qt::WindowFullScreen);
    });
    connect(actions.log, &QAction::triggered, this, &MainWindow::showLog);
    connect(actions.about, &QAction::triggered, this, [this] { browser::showAbout(this); });
    connect(actions.aboutQt, &QAction::triggered, qApp, &QApplication::aboutQt);
    connect(actions.recent, &QMenu::aboutToShow, this, &MainWindow::fillRecentMenu);
    fillRecentMenu();
}

void MainWindow::connectPages()
{
    connect(start, &StartPage::chosen, this, &MainWindow::openDevice);
    connect(opening, &OpeningPage::cancelRequested, this, &MainWindow::showStart);
    connect(opening, &OpeningPage::backRequested, this, &MainWindow::showStart);
    connect(opening, &OpeningPage::retryRequested, this, [this] {
        if (isPairing)
            pairAgain();
        else
            startOpening(wanted);
    });
    connect(opening, &OpeningPage::pairRequested, this, &MainWindow::pairAgain);
    connect(opening, &OpeningPage::passwordGiven, this, [this](const QByteArray &given) {
        if (!opener)
            return;
        opener->setPassword(given);
        opener->proceed();
    });
}

void MainWindow::fillRecentMenu()
{
    actions.recent->clear();
    for (const FoundDevice &device : recent::devices()) {
        QString text = device.title;
        if (!device.detail.isEmpty())
            text = tr("%1 (%2)", "a device and its folder").arg(device.title, device.detail);
        text.replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction *const action = actions.recent->addAction(text);
        connect(action, &QAction::triggered, this, [this, name = device.device] { openDevice(name); });
    }
    actions.recent->setEnabled(!actions.recent->isEmpty());
}

void MainWindow::updateActions()
{
    const bool isOpen = !room.isNull();
    const bool isViewing = isOpen && room->isViewing();
    for (QAction *const action : {actions.exportSelected, actions.readAgain})
        action->setEnabled(isOpen);
    actions.exportShown->setEnabled(isOpen && !isViewing);
    actions.choose->setEnabled(stack->currentWidget() != start);
    actions.toolBar->setVisible(isOpen && !isViewing);
    statusBar()->setVisible(!isViewing);
}

void MainWindow::updateTitle()
{
    const LibraryRoom *const shown = room.data();
    setWindowTitle(shown != nullptr ? shown->title() : QString());
}

void MainWindow::showStart()
{
    endOpening();
    closeLibrary();
    claim.reset();
    status->clear();
    stack->setCurrentWidget(start);
    updateActions();
    updateTitle();
}

void MainWindow::openDevice(const QString &argument)
{
    whenExportsMayEnd([this, argument] { startOpening(argument); });
}

void MainWindow::setPassword(const QByteArray &given)
{
    password = given;
}

void MainWindow::startOpening(const QString &argument)
{
    endOpening();
    closeLibrary();
    wanted = argument;
    isPairing = false;
    status->clear();
    opening->showProgress({});
    stack->setCurrentWidget(opening);
    opener = std::make_unique<Opener>(argument);
    connectOpener();
    updateActions();
    updateTitle();
    opener->start();
}

void MainWindow::connectOpener()
{
    connect(opener.get(), &Opener::found, this, &MainWindow::claimDevice);
    connect(opener.get(), &Opener::progressed, opening, &OpeningPage::showProgress);
    connect(opener.get(), &Opener::passwordNeeded, this, &MainWindow::askForPassword);
    connect(opener.get(), &Opener::opened, this, &MainWindow::takeLibrary);
    connect(opener.get(), &Opener::failed, this, &MainWindow::fail);
}

void MainWindow::claimDevice(const QString &device)
{
    if (!claim || claim->device() != device) {
        claim.reset();
        claim = DeviceClaim::take(device);
    }
    if (claim) {
        connect(claim.get(), &DeviceClaim::raiseRequested, this, &MainWindow::comeToFront, Qt::UniqueConnection);
        opener->proceed();
        return;
    }
    if (closesWhenTaken) {
        close();
        return;
    }
    showStart();
    status->setText(tr("This one is open in another window already."));
}

void MainWindow::takeLibrary(const Opened &opened)
{
    endOpening();
    closesWhenTaken = false;
    room = new LibraryRoom(opened);
    connect(room, &LibraryRoom::statusChanged, status, &QLabel::setText);
    connect(room, &LibraryRoom::viewingChanged, this, &MainWindow::updateActions);
    stack->addWidget(room);
    stack->setCurrentWidget(room);
    recent::add(room->deviceName(), room->title());
    fillRecentMenu();
    updateActions();
    updateTitle();
}

void MainWindow::askForPassword(bool wasWrong)
{
    if (!wasWrong && !password.isEmpty()) {
        opener->setPassword(password);
        password.fill('\0');
        password.clear();
        opener->proceed();
        return;
    }
    opening->askForPassword(wasWrong);
}

void MainWindow::fail(const OpeningFailure &failure)
{
    endOpening();
    if (failure.kind == FailureKind::SeveralChoices) {
        const QString path = localPathOf(wanted);
        if (wanted != QLatin1String("usb"))
            recent::addFolder(path.isEmpty() ? wanted : path);
        showStart();
        status->setText(tr("There is more than one. Choose one from the list."));
        return;
    }
    opening->showFailure(failure);
}

void MainWindow::pairAgain()
{
    const QString udid = claim ? claim->device().section(QLatin1Char(':'), 1) : QString();
    isPairing = true;
    opening->showPairing();
    inBackground<QString>(
        opening, [udid] { return devicehost::pairUsbDevice(udid); },
        [this](const QString &problem) {
            if (opener || stack->currentWidget() != opening)
                return; // somebody went on to something else
            if (problem.isEmpty())
                startOpening(wanted);
            else
                opening->showFailure({kindOfHostFailure(problem), wanted, problem});
        });
}

void MainWindow::endOpening()
{
    if (!opener)
        return;
    opener->cancel();
    opener.release()->deleteLater(); // it may be the one that calls
}

void MainWindow::closeLibrary()
{
    delete room.data();
}

void MainWindow::whenExportsMayEnd(const std::function<void()> &then)
{
    if (!room || !room->isExporting()) {
        then();
        return;
    }
    if (question)
        return question->raise();
    auto *const box = new QMessageBox(QMessageBox::Question, tr("Stop the export?"),
                                      tr("Photos are still being exported. What is complete stays where it is."),
                                      QMessageBox::NoButton, this);
    question = box;
    box->setObjectName(QStringLiteral("exportQuestion"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    const QPushButton *const stop = box->addButton(tr("&Stop the Export"), QMessageBox::AcceptRole);
    box->setDefaultButton(box->addButton(tr("&Go On Exporting"), QMessageBox::RejectRole));
    connect(stop, &QPushButton::clicked, this, then);
    box->open();
}

void MainWindow::showLog()
{
    if (!logWindow)
        logWindow = new LogWindow(keeper.log(), this);
    logWindow->show();
    logWindow->raise();
    logWindow->activateWindow();
}

void MainWindow::comeToFront()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    QApplication::alert(this);
}

void MainWindow::restoreWindow()
{
    const QSettings settings;
    if (!restoreGeometry(settings.value(QStringLiteral("window/geometry")).toByteArray()))
        resize(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 45);
}

void MainWindow::saveWindow() const
{
    QSettings settings;
    settings.setValue(QStringLiteral("window/geometry"), saveGeometry());
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!mayEndExports && room && room->isExporting()) {
        event->ignore();
        whenExportsMayEnd([this] {
            mayEndExports = true;
            close();
        });
        return;
    }
    saveWindow();
    QMainWindow::closeEvent(event);
}

void MainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        actions.fullScreen->setChecked(isFullScreen());
}

namespace
{

// The one folder that is dragged; empty when it is something else.
QString draggedFolder(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 && urls.front().isLocalFile() ? urls.front().toLocalFile() : QString();
}

} // namespace

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->source() == nullptr && !draggedFolder(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    const QString folder = draggedFolder(event->mimeData());
    if (folder.isEmpty())
        return;
    event->acceptProposedAction();
    openDevice(folder);
}

} // namespace browser
