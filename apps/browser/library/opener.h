#ifndef APPS_BROWSER_LIBRARY_OPENER_H
#define APPS_BROWSER_LIBRARY_OPENER_H

#include "apps/browser/library/opened_library.h"
#include "apps/browser/library/opening_failure.h"

#include <QObject>

namespace browser
{

class OpeningAttempt;

/// How far an opening has come. A plain value.
struct OpeningProgress {
    enum class Stage {
        Finding,    ///< looking for the device
        Connecting, ///< opening it
        Unlocking,  ///< deriving the keys of a backup from its password; heeds a cancel only when it is done
        Reading,    ///< copying the photo database
        Sorting,    ///< reading the copy and grouping the photos
        Preparing,  ///< listing what there is
    };
    Stage stage = Stage::Finding;
    qint64 bytesRead = 0;
    qint64 totalBytes = -1; ///< -1 when not known
};

/// What a library that is open lacks all the same.
enum class Shortcoming {
    None,
    ReadInPart,       ///< the photo database is damaged; what could be read is there
    EmptyDatabase,    ///< the photo database is a file of 0 bytes
    NoTables,         ///< it is no photo database, or of a kind that nobody knows
    UnfinishedBackup, ///< the backup was interrupted: files may be missing or out of date
};

/// An open library and what to say of it.
struct Opened {
    std::shared_ptr<OpenedLibrary> library;
    QString title; ///< what people call the device
    Shortcoming shortcoming = Shortcoming::None;
    QString technical; ///< English; why there is a shortcoming
};

/// Opens one device, in two steps on threads of its own: start() finds out which device is meant, proceed() opens it.
/// Ends with opened(), failed() or cancelled(); a new one is made to try again. User-interface thread; destroying it
/// cancels and does not wait.
class Opener : public QObject
{
    Q_OBJECT

public:
    /// `argument` is what resolveDevice() takes.
    explicit Opener(const QString &argument, QObject *parent = nullptr);
    ~Opener() override;

    const QString &argument() const { return given; }
    /// With its scheme; empty before found().
    const QString &deviceName() const { return device; }

    /// For a backup that is encrypted; each is tried once. Tried ones are overwritten.
    void setPassword(const QByteArray &password);

    void start();
    void proceed();
    void cancel();

Q_SIGNALS:
    /// The device is there; proceed() goes on. `identity` is what deviceIdentity() says of it.
    void found(const QString &device, const QString &identity);
    void progressed(const browser::OpeningProgress &progress);
    /// setPassword() and proceed() go on. `wasWrong`: the last one did not fit.
    void passwordNeeded(bool wasWrong);
    void opened(const browser::Opened &result);
    void failed(const browser::OpeningFailure &failure);
    void cancelled();

private:
    void run(void (OpeningAttempt::*step)());

    const QString given;
    QString device;
    std::shared_ptr<OpeningAttempt> attempt;
};

} // namespace browser

#endif
