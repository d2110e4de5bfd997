#ifndef APPS_BROWSER_WINDOW_LIBRARY_ROOM_H
#define APPS_BROWSER_WINDOW_LIBRARY_ROOM_H

#include "apps/browser/library/opener.h"

#include <QPointer>
#include <QVector>
#include <QWidget>

#include <vector>

class QStackedWidget;

namespace browser
{

class ExportWindow;
class LibraryPage;
class NoticeBar;
class PresenceWatch;
class Viewer;
struct PagePlace;

/// An open library: its page, the viewer over it, the windows that export from it, and what is to be said about the
/// device. Stays usable when the device goes, and can open it again.
class LibraryRoom : public QWidget
{
    Q_OBJECT

public:
    explicit LibraryRoom(Opened opened, QWidget *parent = nullptr);
    /// endExports(), and an end of all reads; libraries are freed on a thread of their own.
    ~LibraryRoom() override;

    const QString &title() const { return name; }
    QString deviceName() const;

    /// The photo in the viewer, else those that are selected.
    void exportSelected();
    void exportShown();
    /// Whether an export is running that nobody has ended.
    bool isExporting() const;
    /// Export windows go; those that run come to their end by themselves, see ExportWindow::giveUp().
    void endExports();
    bool isViewing() const;

    /// Reads the device anew while this goes on showing what it has.
    void reopen();
    /// Shows the device as it was read anew, at the place where a person is.
    void renew(const Opened &opened);
    void saveState() const;

Q_SIGNALS:
    void statusChanged(const QString &text);
    /// The viewer came or went.
    void viewingChanged(bool viewing);
    /// reopen() cannot go on: the device has to be opened with a password, for renew().
    void passwordNeeded();

private:
    /// What a device was shown with: before it was read anew, too, as long as there are export windows of it.
    struct Shown {
        std::shared_ptr<OpenedLibrary> library;
        LibraryPage *page = nullptr;
        Viewer *viewer = nullptr;
    };
    struct Export {
        QPointer<ExportWindow> window;
        std::weak_ptr<OpenedLibrary> library;
        bool ended = false;
    };

    void take(Opened opened);
    void connectPage();
    void tellShortcoming(const Opened &opened);
    void leave();
    void endUnused();
    static void end(Shown *shown);
    void exportPhotos(const QVector<qint64> &ids);
    void startViewing(const QVector<qint64> &ids, int current);
    void endViewing(qint64 id);
    void checkDevice();
    void tellDeviceGone();
    void tellFailure(const OpeningFailure &failure);

    QString name;
    NoticeBar *notice;
    QStackedWidget *stack;
    PresenceWatch *presence;
    Shown now;
    std::vector<Shown> earlier;
    std::vector<Export> exports;
    std::unique_ptr<Opener> reopener;
    QVector<qint64> viewable; ///< what the viewer goes through
    qint64 viewed = 0;        ///< in the viewer
    bool checking = false;
    bool gone = false;
};

} // namespace browser

#endif
