#include "apps/browser/exporting/drag_folder.h"

#include "apps/browser/library/background.h"

#include <QCoreApplication>
#include <QTimer>

#include <list>
#include <mutex>

namespace browser
{

namespace
{

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds shortestStay = std::chrono::minutes(15);
constexpr std::chrono::seconds longestStay = std::chrono::hours(24);
constexpr qint64 slowestReader = 1024 * 1024; // bytes in a second: onto an old memory stick

// Folders that nobody here needs any more.
class Leftovers
{
public:
    void add(devicehost::PrivateFolder folder, Clock::time_point end)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        folders.push_back({std::move(folder), end});
    }

    void remove(Clock::time_point now)
    {
        const std::lock_guard<std::mutex> removing(oneRemover);
        std::list<Leftover> over; // removed without the other lock: that can take a while
        {
            const std::lock_guard<std::mutex> lock(mutex);
            for (auto next = folders.begin(); next != folders.end();) {
                const auto folder = next++;
                if (folder->end <= now)
                    over.splice(over.end(), folders, folder);
            }
        }
    }

private:
    struct Leftover {
        devicehost::PrivateFolder folder;
        Clock::time_point end;
    };

    std::mutex oneRemover;
    std::mutex mutex;
    std::list<Leftover> folders;
};

Leftovers &leftovers()
{
    static Leftovers instance;
    return instance;
}

void removeAfter(std::chrono::seconds stay)
{
    QCoreApplication *const application = QCoreApplication::instance();
    if (application == nullptr)
        return;
    QMetaObject::invokeMethod(application, [application, stay] {
        QTimer::singleShot(stay + std::chrono::seconds(1), application,
                           [] { startBackground([] { removeDragFolders(Clock::now()); }); });
    });
}

} // namespace

DragFolder::DragFolder()
{
    leftovers(); // outlives the folder
}

DragFolder::~DragFolder()
{
    if (!isLent)
        return;
    leftovers().add(std::move(folder), Clock::now() + stay);
    removeAfter(stay);
}

void DragFolder::lend(qint64 bytes)
{
    isLent = true;
    stay = qBound(shortestStay, std::chrono::seconds(bytes / slowestReader), longestStay);
}

void removeDragFolders(Clock::time_point now)
{
    leftovers().remove(now);
}

} // namespace browser
