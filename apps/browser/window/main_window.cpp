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
#include <QFileInfo>
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
    connect(opening, &OpeningPage::cancelRequested, this, &MainWindow::goBack);
    connect(opening, &OpeningPage::backRequested, this, &MainWindow::goBack);
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

bool MainWindow::isRoomShown() const
{
    return room && stack->currentWidget() == room.data();
}

void MainWindow::updateActions()
{
    const bool isOpen = isRoomShown();
    for (QAction *const action : {actions.exportSelected, actions.readAgain})
        action->setEnabled(isOpen);
    actions.exportShown->setEnabled(isOpen && !room->isViewing());
    actions.choose->setEnabled(stack->currentWidget() != start);
    updateBars();
}

void MainWindow::updateBars()
{
    const bool isOpen = isRoomShown();
    const bool isViewing = isOpen && room->isViewing();
    actions.toolBar->setVisible(isOpen && !isViewing);
    statusBar()->setVisible(!isViewing);
    menuBar()->setVisible(!isViewing || !isFullScreen());
}

void MainWindow::updateTitle()
{
    const LibraryRoom *const shown = isRoomShown() ? room.data() : nullptr;
    setWindowTitle(shown != nullptr ? shown->title() : QString());
}

void MainWindow::turnTo(QWidget *page)
{
    stack->setCurrentWidget(page);
    updateActions();
    updateTitle();
}

void MainWindow::showStart()
{
    endOpening();
    wantedClaim.reset();
    closeLibrary();
    claim.reset();
    status->clear();
    turnTo(start);
}

void MainWindow::showRoom()
{
    endOpening();
    wantedClaim.reset();
    status->setText(roomStatus);
    turnTo(room.data());
}

// From an opening that came to nothing.
void MainWindow::goBack()
{
    if (room)
        showRoom();
    else
        showStart();
}

void MainWindow::openDevice(const QString &argument)
{
    whenExportsMayEnd([this, argument] {
        if (room)
            room->endExports();
        startOpening(argument);
    });
}

void MainWindow::setPassword(const QByteArray &given)
{
    password = given;
}

void MainWindow::startOpening(const QString &argument)
{
    endOpening();
    wanted = argument;
    isPairing = false;
    status->clear();
    opening->showProgress({});
    turnTo(opening);
    opener = std::make_unique<Opener>(argument);
    connectOpener();
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

void MainWindow::claimDevice(const QString &device, const QString &identity)
{
    wantedDevice = device;
    if (wantedClaim && wantedClaim->identity() != identity)
        wantedClaim.reset();
    const bool isOurs = wantedClaim || (claim && claim->identity() == identity);
    if (!isOurs)
        wantedClaim = DeviceClaim::take(identity);
    if (!isOurs && !wantedClaim)
        return refuseTaken();
    if (wantedClaim)
        connect(wantedClaim.get(), &DeviceClaim::raiseRequested, this, &MainWindow::comeToFront, Qt::UniqueConnection);
    opener->proceed();
}

void MainWindow::refuseTaken()
{
    if (closesWhenTaken) {
        close();
        return;
    }
    goBack();
    status->setText(tr("This one is open in another window already."));
}

void MainWindow::takeLibrary(const Opened &opened)
{
    endOpening();
    closesWhenTaken = false;
    if (room && room->deviceName() == opened.library->deviceName())
        room->renew(opened);
    else
        makeRoom(opened);
    if (wantedClaim)
        claim = std::move(wantedClaim);
    recent::add(room->deviceName(), room->title());
    fillRecentMenu();
    status->setText(roomStatus);
    turnTo(room.data());
}

void MainWindow::makeRoom(const Opened &opened)
{
    closeLibrary();
    room = new LibraryRoom(opened);
    connect(room, &LibraryRoom::statusChanged, this, [this](const QString &text) {
        roomStatus = text;
        if (isRoomShown())
            status->setText(text);
    });
    connect(room, &LibraryRoom::viewingChanged, this, &MainWindow::updateActions);
    connect(room, &LibraryRoom::passwordNeeded, this, [this] { startOpening(room->deviceName()); });
    stack->addWidget(room);
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
    const QString udid = wantedDevice.section(QLatin1Char(':'), 1);
    endOpening();
    isPairing = true;
    opening->showPairing();
    inBackground<QString>(
        opening, [udid] { return devicehost::pairUsbDevice(udid); },
        [this, asked = attempt](const QString &problem) {
            if (asked != attempt)
                return; // somebody went on to something else
            if (problem.isEmpty())
                startOpening(wanted);
            else
                opening->showFailure({kindOfHostFailure(problem), wanted, problem});
        });
}

void MainWindow::endOpening()
{
    ++attempt;
    if (!opener)
        return;
    opener->cancel();
    opener->setParent(this);         // and goes with the window, if that goes first, with what is on its way to it
    opener.release()->deleteLater(); // it may be the one that calls
}

void MainWindow::closeLibrary()
{
    delete room.data();
    roomStatus.clear();
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
    endOpening();
    if (room)
        room->endExports();
    claim.reset(); // another window may have the device at once
    wantedClaim.reset();
    saveWindow();
    QMainWindow::closeEvent(event);
}

void MainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange)
        return;
    actions.fullScreen->setChecked(isFullScreen());
    updateBars();
}

namespace
{

// The one thing that is dragged, which may be a folder; empty when there are more.
QString draggedPath(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 && urls.front().isLocalFile() ? urls.front().toLocalFile() : QString();
}

} // namespace

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->source() == nullptr && !draggedPath(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    const QString folder = draggedPath(event->mimeData());
    if (folder.isEmpty())
        return;
    event->acceptProposedAction();
    inBackground<bool>(
        this, [folder] { return QFileInfo(folder).isDir(); },
        [this, folder](bool isFolder) {
            if (isFolder)
                openDevice(folder);
        });
}

} // namespace browser
