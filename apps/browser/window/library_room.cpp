#include "apps/browser/window/library_room.h"

#include "apps/browser/exporting/export_window.h"
#include "apps/browser/library/background.h"
#include "apps/browser/page/library_page.h"
#include "apps/browser/viewer/viewer.h"
#include "apps/browser/window/notice_bar.h"
#include "apps/browser/window/presence_watch.h"

#include <QBoxLayout>
#include <QSettings>
#include <QStackedWidget>

#include <algorithm>
#include <utility>

namespace browser
{

namespace
{

const char pageGroup[] = "page";
const char exportSizeKey[] = "export/size";

} // namespace

LibraryRoom::LibraryRoom(Opened opened, QWidget *parent)
    : QWidget(parent), notice(new NoticeBar(this)), stack(new QStackedWidget(this)), presence(new PresenceWatch(this))
{
    setObjectName(QStringLiteral("libraryRoom"));
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(notice);
    layout->addWidget(stack, 1);
    connect(notice, &NoticeBar::pressed, this, &LibraryRoom::reopen);
    connect(presence, &PresenceWatch::gone, this, [this] {
        if (!gone && !reopener) // which tells
            tellDeviceGone();
    });
    take(std::move(opened));
    endViewing(0);
}

// Reads find the device by its name, also the one that is just being opened again: everything stops before anything is
// waited for.
LibraryRoom::~LibraryRoom()
{
    saveState();
    reopener.reset();
    now.library->stop();
    for (const Shown &one : earlier)
        one.library->stop();
    for (const Export &one : exports)
        if (one.window) {
            disconnect(one.window, nullptr, this, nullptr);
            one.window->giveUp();
        }
    exports.clear();
    leave();
}

QString LibraryRoom::deviceName() const
{
    return now.library->deviceName();
}

void LibraryRoom::leave()
{
    if (!now.library)
        return;
    disconnect(now.page, nullptr, this, nullptr);
    disconnect(now.viewer, nullptr, this, nullptr);
    earlier.push_back(std::exchange(now, {}));
    endUnused();
}

// An export window keeps the library that it was made for, and its reads.
void LibraryRoom::endUnused()
{
    exports.erase(std::remove_if(exports.begin(), exports.end(), [](const Export &one) { return one.window.isNull(); }),
                  exports.end());
    const auto firstUnused = std::stable_partition(earlier.begin(), earlier.end(), [this](const Shown &shown) {
        return std::any_of(exports.begin(), exports.end(),
                           [&shown](const Export &one) { return one.library.lock() == shown.library; });
    });
    std::for_each(firstUnused, earlier.end(), [](Shown &shown) { end(&shown); });
    earlier.erase(firstUnused, earlier.end());
}

void LibraryRoom::end(Shown *shown)
{
    shown->library->stop();
    delete shown->viewer;
    delete shown->page;
    retire(std::move(shown->library));
}

void LibraryRoom::take(Opened opened)
{
    leave();
    gone = false;
    name = opened.title;
    now = {opened.library, new LibraryPage(opened.library), new Viewer(opened.library)};
    stack->addWidget(now.page);
    stack->addWidget(now.viewer);
    connectPage();
    QSettings settings;
    settings.beginGroup(QLatin1String(pageGroup));
    now.page->restoreState(settings);
    tellShortcoming(opened);
    presence->watch(deviceName());
    retire(std::move(opened.library));
}

void LibraryRoom::renew(const Opened &opened)
{
    saveState();
    const PagePlace place = now.page->place();
    const bool wasViewing = isViewing();
    take(opened);
    now.page->goTo(place);
    QVector<qint64> left;
    for (const qint64 id : qAsConst(viewable))
        if (now.library->snapshot().find(id) != nullptr)
            left += id;
    if (wasViewing && left.contains(viewed))
        startViewing(left, left.indexOf(viewed));
    else
        endViewing(0);
}

void LibraryRoom::connectPage()
{
    connect(now.page, &LibraryPage::photosActivated, this, &LibraryRoom::startViewing);
    connect(now.page, &LibraryPage::exportRequested, this, &LibraryRoom::exportPhotos);
    connect(now.page, &LibraryPage::statusChanged, this, &LibraryRoom::statusChanged);
    connect(now.page, &LibraryPage::readsFailing, this, &LibraryRoom::checkDevice);
    connect(now.viewer, &Viewer::currentChanged, this, [this](qint64 id) { viewed = id; });
    connect(now.viewer, &Viewer::closed, this, &LibraryRoom::endViewing);
    connect(now.viewer, &Viewer::exportRequested, this, &LibraryRoom::exportPhotos);
    connect(now.viewer, &Viewer::readFailed, this, &LibraryRoom::checkDevice);
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
    case Shortcoming::UnfinishedBackup:
        notice->showNotice(
            Symbol::Warning,
            tr("This backup was interrupted before its end: photos may be missing or out of date. Make a "
               "new backup of the phone."),
            {}, opened.technical);
        break;
    }
    if (opened.shortcoming == Shortcoming::None && opened.library->snapshot().photos.empty())
        notice->showNotice(Symbol::Information, tr("There are no photos or videos on this phone."), tr("Read &Again"));
}

void LibraryRoom::saveState() const
{
    QSettings settings;
    settings.beginGroup(QLatin1String(pageGroup));
    now.page->saveState(settings);
}

void LibraryRoom::exportSelected()
{
    exportPhotos(isViewing() ? QVector<qint64>{viewed} : now.page->selectedPhotos());
}

void LibraryRoom::exportShown()
{
    exportPhotos(now.page->shownPhotos());
}

void LibraryRoom::exportPhotos(const QVector<qint64> &ids)
{
    if (ids.isEmpty()) {
        Q_EMIT statusChanged(tr("No photo is selected. Select some first, or all with Ctrl+A."));
        return;
    }
    auto *const window = new ExportWindow(now.library, ids, this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->resize(QSettings().value(QLatin1String(exportSizeKey), window->size()).toSize());
    connect(window, &QDialog::finished, window,
            [window] { QSettings().setValue(QLatin1String(exportSizeKey), window->size()); });
    connect(window, &QObject::destroyed, this, &LibraryRoom::endUnused, Qt::QueuedConnection);
    exports.push_back({window, now.library, false});
    window->show();
}

bool LibraryRoom::isExporting() const
{
    return std::any_of(exports.begin(), exports.end(),
                       [](const Export &one) { return one.window && !one.ended && one.window->isRunning(); });
}

void LibraryRoom::endExports()
{
    for (Export &one : exports)
        if (one.window && !std::exchange(one.ended, true))
            one.window->giveUp();
}

bool LibraryRoom::isViewing() const
{
    return stack->currentWidget() == now.viewer;
}

void LibraryRoom::startViewing(const QVector<qint64> &ids, int current)
{
    viewable = ids;
    viewed = ids.value(current);
    now.viewer->showPhotos(ids, current);
    stack->setCurrentWidget(now.viewer);
    now.viewer->setFocus();
    Q_EMIT viewingChanged(true);
}

void LibraryRoom::endViewing(qint64 id)
{
    stack->setCurrentWidget(now.page);
    if (id != 0)
        now.page->setCurrentPhoto(id);
    now.page->setFocus();
    Q_EMIT viewingChanged(false);
}

// A photo that cannot be read may be just that; the device says whether it is there. While it is being opened again,
// the opening tells.
void LibraryRoom::checkDevice()
{
    if (checking || gone || reopener)
        return;
    checking = true;
    const std::shared_ptr<OpenedLibrary> asked = now.library;
    inBackground<bool>(
        this, [asked] { return !asked->isAvailable(); },
        [this, watched = std::weak_ptr<OpenedLibrary>(now.library)](bool isGone) {
            checking = false;
            if (isGone && !reopener && watched.lock() == now.library)
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
        reopener->setParent(this); // and goes with the room, if that goes first, with what is on its way to it
        reopener.release()->deleteLater();
    };
    connect(reopener.get(), &Opener::found, reopener.get(), &Opener::proceed);
    connect(reopener.get(), &Opener::opened, this, [this, finished](const Opened &result) {
        finished();
        renew(result);
    });
    connect(reopener.get(), &Opener::failed, this, [this, finished](const OpeningFailure &failure) {
        finished();
        tellFailure(failure);
    });
    connect(reopener.get(), &Opener::passwordNeeded, this, [this, finished] {
        finished();
        notice->hide();
        Q_EMIT passwordNeeded();
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
