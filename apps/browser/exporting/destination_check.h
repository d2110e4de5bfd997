#ifndef APPS_BROWSER_EXPORTING_DESTINATION_CHECK_H
#define APPS_BROWSER_EXPORTING_DESTINATION_CHECK_H

#include <QMetaType>
#include <QObject>
#include <QString>

#include <functional>

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

/// The same on threads of its own: only the newest request is answered. A folder that does not answer, such as one of a
/// network that is gone, keeps neither later requests nor the destructor waiting. User-interface thread.
class DestinationChecker : public QObject
{
    Q_OBJECT

public:
    /// Runs on other threads, also after the checker is gone.
    using Look = std::function<DestinationState(const QString &path)>;

    explicit DestinationChecker(QString deviceName, QObject *parent = nullptr);
    explicit DestinationChecker(Look howToLook, QObject *parent = nullptr);

    void request(const QString &path);

Q_SIGNALS:
    void checked(const browser::DestinationState &state);

private:
    void next();

    const Look look;
    QString wanted;
    bool isWaiting = false; ///< `wanted` is not looked at yet
    int running = 0;
    int newest = 0; ///< number of the look that began last
};

} // namespace browser

Q_DECLARE_METATYPE(browser::DestinationState)

#endif
