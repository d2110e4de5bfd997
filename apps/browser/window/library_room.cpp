#include "apps/browser/window/library_room.h"

#include "apps/browser/exporting/export_window.h"
#include "apps/browser/library/background.h"
#include "apps/browser/page/library_page.h"
#include "apps/browser/viewer/viewer.h"
#include "apps/browser/window/notice_bar.h"

#include <QBoxLayout>
#include <QSettings>
#include <QStackedWidget>

#include <algorithm>

namespace browser
{

namespace
{

const char pageGroup[] = "page";

} // namespace

LibraryRoom::LibraryRoom(Opened opened, QWidget *parent)
    : QWidget(parent), notice(new NoticeBar(this)), stack(new QStackedWidget(this))
{
    setObjectName(QStringLiteral("libraryRoom"));
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(notice);
    layout->addWidget(stack, 1);
    connect(notice, &NoticeBar::pressed, this, &LibraryRoom::reopen);
    take(std::move(opened));
}

LibraryRoom::~LibraryRoom()
{
    saveState();
    library->stop(); // a read that hangs would keep an export from ending
    for (const QPointer<ExportWindow> &window : qAsConst(exports)) {
        if (window)
            window->cancelAndWait();
        delete window.data();
    }
    leave();
}

QString LibraryRoom::deviceName() const
{
    return library->deviceName();
}

// Exports that still run keep the earlier library, and its reads.
void LibraryRoom::leave()
{
    if (!library)
        return;
    if (!isExporting())
        library->stop();
    delete viewer;
    delete page;
    viewer = nullptr;
    page = nullptr;
    retire(std::move(library));
}

void LibraryRoom::take(Opened opened)
{
    if (page != nullptr)
        saveState();
    leave();
    gone = false;
    library = opened.library;
    name = opened.title;
    page = new LibraryPage(library);
    viewer = new Viewer(library);
    stack->addWidget(page);
    stack->addWidget(viewer);
    connectPage();
    QSettings settings;
    settings.beginGroup(QLatin1String(pageGroup));
    page->restoreState(settings);
    endViewing(0);
    tellShortcoming(opened);
    retire(std::move(opened.library));
}

void LibraryRoom::connectPage()
{
    connect(page, &LibraryPage::photosActivated, this, &LibraryRoom::startViewing);
    connect(page, &LibraryPage::exportRequested, this, &LibraryRoom::exportPhotos);
    connect(page, &LibraryPage::statusChanged, this, &LibraryRoom::statusChanged);
    connect(page, &LibraryPage::readsFailing, this, &LibraryRoom::checkDevice);
    connect(viewer, &Viewer::currentChanged, this, [this](qint64 id) { viewed = id; });
    connect(viewer, &Viewer::closed, this, &LibraryRoom::endViewing);
    connect(viewer, &Viewer::exportRequested, this, &LibraryRoom::exportPhotos);
    connect(viewer, &Viewer::readFailed, this, &LibraryRoom::checkDevice);
}

void LibraryRoom::tellShortcoming(const Opened &opened)
{
    switch (opened.shortcoming) {
    case Shortcoming::None:
        notice->hide();
        break;
    case Shortcoming::ReadInPart:
        notice->showNotice(Symbol::Warning,
                           tr("The list of photos is damaged: some photos and albums may be missing. Unlock the phone, "
                              "connect it again, and read it again."),
                           tr("Read &Again"), opened.technical);
        break;
    case Shortcoming::EmptyDatabase:
        notice->showNotice(Symbol::Warning,
                           tr("The list of photos is empty, as after a copy that was broken off. Connect the phone "
                              "again or copy it again, and read it again."),
                           tr("Read &Again"));
        break;
    case Shortcoming::NoTables:
        notice->showNotice(Symbol::Warning,
                           tr("The list of photos is of a kind that is not known, so photos or albums are missing. "
                              "Check that this is the folder of a phone, the one that holds “DCIM” and “PhotoData”."));
        break;
    }
    if (opened.shortcoming == Shortcoming::None && opened.library->snapshot().photos.empty())
        notice->showNotice(Symbol::Information, tr("There are no photos or videos on this phone."), tr("Read &Again"));
}

void LibraryRoom::saveState() const
{
    QSettings settings;
    settings.beginGroup(QLatin1String(pageGroup));
    page->saveState(settings);
}

void LibraryRoom::exportSelected()
{
    exportPhotos(isViewing() ? QVector<qint64>{viewed} : page->selectedPhotos());
}

void LibraryRoom::exportShown()
{
    exportPhotos(page->shownPhotos());
}

void LibraryRoom::exportPhotos(const QVector<qint64> &ids)
{
    if (ids.isEmpty()) {
        Q_EMIT statusChanged(tr("No photo is selected. Select some first, or all with Ctrl+A."));
        return;
    }
    auto *const window = new ExportWindow(library, ids, this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    exports.erase(std::remove_if(exports.begin(), exports.end(), [](const auto &one) { return one.isNull(); }),
                  exports.end());
    exports.append(window);
    window->show();
}

bool LibraryRoom::isExporting() const
{
    return std::any_of(exports.begin(), exports.end(), [](const auto &one) { return one && one->isRunning(); });
}

bool LibraryRoom::isViewing() const
{
    return stack->currentWidget() == viewer;
}

void LibraryRoom::startViewing(const QVector<qint64> &ids, int current)
{
    viewed = ids.value(current);
    viewer->showPhotos(ids, current);
    stack->setCurrentWidget(viewer);
    viewer->setFocus();
    Q_EMIT viewingChanged(true);
}

void LibraryRoom::endViewing(qint64 id)
{
    stack->setCurrentWidget(page);
    page->setCurrentPhoto(id);
    page->setFocus();
    Q_EMIT viewingChanged(false);
}

// A photo that cannot be read may be just that; the device says whether it is there. While it is being opened again,
// the opening tells.
void LibraryRoom::checkDevice()
{
    if (checking || gone || reopener)
        return;
    checking = true;
    const std::shared_ptr<OpenedLibrary> asked = library;
    inBackground<bool>(
        this, [asked] { return !asked->isAvailable(); },
        [this, watched = std::weak_ptr<OpenedLibrary>(library)](bool isGone) {
            checking = false;
            if (isGone && !reopener && watched.lock() == library)
                tellDeviceGone();
        });
}

void LibraryRoom::tellDeviceGone()
{
    gone = true;
    notice->showNotice(Symbol::Information,
                       tr("The phone is no longer connected. You can still look at what is loaded."), tr("&Try Again"));
}

void LibraryRoom::reopen()
{
    if (reopener)
        return;
    notice->showNotice(Symbol::Refresh, tr("Reading the phone again…"));
    reopener = std::make_unique<Opener>(deviceName());
    const auto finished = [this] {
        reopener->cancel();
        reopener.release()->deleteLater();
    };
    connect(reopener.get(), &Opener::found, reopener.get(), &Opener::proceed);
    connect(reopener.get(), &Opener::opened, this, [this, finished](const Opened &result) {
        finished();
        take(result);
    });
    connect(reopener.get(), &Opener::failed, this, [this, finished](const OpeningFailure &failure) {
        finished();
        tellFailure(failure);
    });
    connect(reopener.get(), &Opener::passwordNeeded, this, [this, finished] {
        finished();
        notice->showNotice(Symbol::Information,
                           tr("The backup is protected by a password. Close it and open it again to give it."));
    });
    reopener->start();
}

void LibraryRoom::tellFailure(const OpeningFailure &failure)
{
    const FailureText text = failureText(failure.kind);
    notice->showNotice(Symbol::Information,
                       tr("%1. %2", "what happened, and what to do").arg(text.title, text.nextStep), tr("&Try Again"),
                       failure.technical);
}

} // namespace browser
