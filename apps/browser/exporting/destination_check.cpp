#include "apps/browser/exporting/destination_check.h"

#include "apps/browser/library/background.h"
#include "apps/browser/media/free_space.h"
#include "devicehost/device_place.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace browser
{

namespace
{

class DestinationTexts
{
    Q_DECLARE_TR_FUNCTIONS(browser::DestinationChecker)

public:
    static QString problemOf(const QString &path, const QFileInfo &existing, const QString &deviceName)
    {
        if (path.isEmpty())
            return tr("Choose a folder for the export.");
        if (QDir::isRelativePath(path))
            return tr("The name of the folder must begin with “/”. Choose the folder with the button beside it.");
        switch (devicehost::placeOf(path, deviceName)) {
        case devicehost::Place::Within:
            return tr("This folder belongs to the device, to which nothing is ever written. Choose another folder.");
        case devicehost::Place::Around:
            return tr("This folder holds the device's own folder, to which nothing is ever written. Choose a folder "
                      "beside that.");
        case devicehost::Place::Apart:
            break;
        }
        if (!existing.isDir())
            return tr("“%1” is a file, not a folder. Choose another folder.").arg(existing.filePath());
        if (!existing.isWritable())
            return tr("You may not write into “%1”. Choose another folder.").arg(existing.filePath());
        return {};
    }
};

// The path, or the first folder above it that is there.
QFileInfo existingPartOf(const QString &path)
{
    QFileInfo part(path);
    while (!part.exists() && part.path() != part.filePath())
        part = QFileInfo(part.path());
    return part;
}

} // namespace

DestinationState checkDestination(const QString &path, const QString &deviceName)
{
    const QString cleaned = path.isEmpty() ? path : QDir::cleanPath(path);
    const QFileInfo existing = existingPartOf(cleaned);
    DestinationState state{path, DestinationTexts::problemOf(cleaned, existing, deviceName), -1};
    if (state.problem.isEmpty())
        state.freeBytes = freeSpace(existing.filePath());
    return state;
}

DestinationChecker::DestinationChecker(QString deviceName, QObject *parent)
    : DestinationChecker(
          [device = std::move(deviceName)](const QString &path) { return checkDestination(path, device); }, parent)
{
}

DestinationChecker::DestinationChecker(Look howToLook, QObject *parent) : QObject(parent), look(std::move(howToLook)) {}

void DestinationChecker::request(const QString &path)
{
    wanted = path;
    isWaiting = true;
    next();
}

// Looks at folders that do not answer are left behind, but not any number of them.
void DestinationChecker::next()
{
    constexpr int mostAtOnce = 4;
    if (!isWaiting || running >= mostAtOnce)
        return;
    isWaiting = false;
    ++running;
    inBackground<DestinationState>(
        this, [look = look, path = wanted] { return look(path); },
        [this, number = ++newest](const DestinationState &state) {
            --running;
            if (number == newest && !isWaiting)
                Q_EMIT checked(state);
            next();
        });
}

} // namespace browser
