#ifndef APPS_BROWSER_EXPORTING_DESTINATION_CHECK_H
#define APPS_BROWSER_EXPORTING_DESTINATION_CHECK_H

#include <QMetaType>
#include <QObject>
#include <QString>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace browser
{

/// Whether a folder can receive an export.
struct DestinationState {
    QString path;
    QString problem;       ///< a sentence for people; empty when all is well
    qint64 freeBytes = -1; ///< -1 when not known
};

/// Looks at the folder, which need not be there. Blocks: it may be on a slow disk. Any thread.
DestinationState checkDestination(const QString &path, const QString &deviceName);

/// The same on a thread of its own: only the newest request is answered. User-interface thread; the destructor waits
/// for the look in hand.
class DestinationChecker : public QObject
{
    Q_OBJECT

public:
    explicit DestinationChecker(QString deviceName, QObject *parent = nullptr);
    ~DestinationChecker() override;

    void request(const QString &path);

Q_SIGNALS:
    void checked(const browser::DestinationState &state);

private:
    void work();

    const QString device;
    std::mutex mutex;
    std::condition_variable changed;
    QString wanted; ///< guarded by `mutex`, as the rest
    bool asked = false;
    bool closing = false;
    std::thread worker;
};

} // namespace browser

Q_DECLARE_METATYPE(browser::DestinationState)

#endif
