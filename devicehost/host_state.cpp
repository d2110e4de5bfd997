#include "devicehost/host_state.h"

#include "devicehost/database_errors.h"
#include "devicehost/device_host.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

namespace devicehost
{

namespace
{

constexpr qint64 progressIntervalMs = 200;

qint64 nowMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

HostState::HostState(const QString &devicePath) : path(devicePath) {}

void HostState::recordFailure(const QString &sentence, bool deviceUnreachable)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (!firstFailure.isEmpty())
        return;
    firstFailure = sentence;
    unreachable = deviceUnreachable;
}

bool HostState::failedForTheDevice() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return unreachable;
}

QString HostState::failure() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return firstFailure;
}

std::shared_ptr<BackendSession> HostState::session(const std::function<std::shared_ptr<BackendSession>()> &make)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (backendSession == nullptr)
        backendSession = make();
    return backendSession;
}

void HostState::keepBackup(std::shared_ptr<const Backup> opened)
{
    const std::lock_guard<std::mutex> lock(mutex);
    backup = std::move(opened);
}

std::shared_ptr<const Backup> HostState::openedBackup() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return backup;
}

void HostState::recordDatabaseError(int code) noexcept
{
    int none = 0;
    if (isDatabaseDamage(code))
        damage.compare_exchange_strong(none, code);
}

QString HostState::databaseDamage() const
{
    const int code = damage.load();
    return code == 0 ? QString() : databaseErrorText(code);
}

void HostState::setProgress(std::function<void(const Progress &)> callback)
{
    progressCallback = std::move(callback);
}

void HostState::reportProgress(const Progress &progress, bool last)
{
    if (!progressCallback)
        return;
    const qint64 now = nowMs();
    qint64 due = nextReport.load(std::memory_order_relaxed);
    if (!last && (now < due || !nextReport.compare_exchange_strong(due, now + progressIntervalMs)))
        return;
    progressCallback(progress);
}

namespace hosts
{

namespace
{

struct Entry {
    std::weak_ptr<HostState> state;
    const HostState *key;
    QByteArray utf8Name;
    QByteArray localName;
    std::vector<QByteArray> folders;
};

struct Registry {
    std::mutex mutex;
    std::vector<Entry> entries; ///< oldest first
};

Registry &registry()
{
    // Never destroyed: a host that lives in a static object may outlast every other one.
    static Registry &instance = *new Registry;
    return instance;
}

} // namespace

void add(const std::shared_ptr<HostState> &state)
{
    const QString &name = state->devicePath();
    const std::lock_guard<std::mutex> lock(registry().mutex);
    registry().entries.push_back({state, state.get(), name.toUtf8(), name.toLocal8Bit(), {}});
}

void addLocalFolder(const std::shared_ptr<HostState> &state, const QByteArray &folder)
{
    const std::lock_guard<std::mutex> lock(registry().mutex);
    for (Entry &entry : registry().entries)
        if (entry.key == state.get())
            entry.folders.push_back(folder);
}

void remove(const HostState *state)
{
    const std::lock_guard<std::mutex> lock(registry().mutex);
    auto &entries = registry().entries;
    entries.erase(std::remove_if(entries.begin(), entries.end(), [state](const Entry &e) { return e.key == state; }),
                  entries.end());
}

std::shared_ptr<HostState> forDevice(const char *name)
{
    const std::lock_guard<std::mutex> lock(registry().mutex);
    const auto &entries = registry().entries;
    // Two names may look the same in the local encoding, so the exact one comes first.
    for (const auto member : {&Entry::utf8Name, &Entry::localName})
        for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry)
            if ((*entry).*member == name)
                return entry->state.lock();
    return nullptr;
}

std::shared_ptr<HostState> forLocalPath(const char *path)
{
    const QByteArray wanted = QByteArray::fromRawData(path, static_cast<int>(qstrlen(path)));
    const std::lock_guard<std::mutex> lock(registry().mutex);
    for (const Entry &entry : registry().entries)
        for (const QByteArray &folder : entry.folders)
            if (wanted.startsWith(folder))
                return entry.state.lock();
    return nullptr;
}

} // namespace hosts
} // namespace devicehost
