#ifndef APPS_BROWSER_WINDOW_LIBRARY_ROOM_H
#define APPS_BROWSER_WINDOW_LIBRARY_ROOM_H

#include "apps/browser/library/opener.h"

#include <QPointer>
#include <QVector>
#include <QWidget>

class QStackedWidget;

namespace browser
{

class ExportWindow;
class LibraryPage;
class NoticeBar;
class Viewer;

/// An open library: its page, the viewer over it, the windows that export from it, and what is to be said about the
/// device. Stays usable when the device goes, and can open it again.
class LibraryRoom : public QWidget
{
    Q_OBJECT

public:
    explicit LibraryRoom(Opened opened, QWidget *parent = nullptr);
    /// Ends all reads and running exports; the library is freed on a thread of its own.
    ~LibraryRoom() override;

    const QString &title() const { return name; }
    QString deviceName() const;

    /// The photo in the viewer, else those that are selected.
    void exportSelected();
    void exportShown();
    bool isExporting() const;
    bool isViewing() const;

    /// Reads the device anew while this goes on showing what it has.
    void reopen();
    void saveState() const;

Q_SIGNALS:
    void statusChanged(const QString &text);
    /// The viewer came or went.
    void viewingChanged(bool viewing);

private:
    void take(Opened opened);
    void connectPage();
    void tellShortcoming(const Opened &opened);
    void leave();
    void exportPhotos(const QVector<qint64> &ids);
    void startViewing(const QVector<qint64> &ids, int current);
    void endViewing(qint64 id);
    void checkDevice();
    void tellDeviceGone();
    void tellFailure(const OpeningFailure &failure);

    QString name;
    std::shared_ptr<OpenedLibrary> library;
    NoticeBar *notice;
    QStackedWidget *stack;
    LibraryPage *page = nullptr;
    Viewer *viewer = nullptr;
    QVector<QPointer<ExportWindow>> exports;
    std::unique_ptr<Opener> reopener;
    qint64 viewed = 0; ///< in the viewer
    bool checking = false;
    bool gone = false;
};

} // namespace browser

#endif
