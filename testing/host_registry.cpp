#include "testing/host_registry.h"

#include "testing/host_session.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <vector>

namespace testkit
{
namespace
{

struct Registry {
    std::mutex mutex;
    std::vector<HostSession *> sessions; ///< oldest first
    std::map<const void *, HostSession *> handles;
};

Registry &registry()
{
    static Registry instance;
    return instance;
}

thread_local quint64 threadSession = 0;

HostSession *findById(const Registry &all, quint64 id)
{
    const auto found = std::find_if(all.sessions.begin(), all.sessions.end(),
                                    [id](const HostSession *session) { return session->id() == id; });
    return found == all.sessions.end() ? nullptr : *found;
}

} // namespace

void registerSession(HostSession *session)
{
    Registry &all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    all.sessions.push_back(session);
    threadSession = session->id();
}

void unregisterSession(HostSession *session)
{
    Registry &all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    all.sessions.erase(std::remove(all.sessions.begin(), all.sessions.end(), session), all.sessions.end());
    for (auto entry = all.handles.begin(); entry != all.handles.end();)
        entry = entry->second == session ? all.handles.erase(entry) : std::next(entry);
}

HostSession *currentSession()
{
    Registry &all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    if (HostSession *session = findById(all, threadSession))
        return session;
    return all.sessions.empty() ? nullptr : all.sessions.back();
}

void useSession(const HostSession *session)
{
    threadSession = session->id();
}

HostSession *sessionNamed(const char *devicePath)
{
    Registry &all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const auto found = std::find_if(all.sessions.rbegin(), all.sessions.rend(),
                                    [devicePath](const HostSession *session) { return session->isNamed(devicePath); });
    return found == all.sessions.rend() ? nullptr : *found;
}

void registerHandle(const void *handle, HostSession *owner)
{
    Registry &all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    all.handles[handle] = owner;
}

HostSession *ownerOf(const void *handle)
{
    Registry &all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const auto found = all.handles.find(handle);
    return found == all.handles.end() ? nullptr : found->second;
}

HostSession *sessionWithId(quint64 id)
{
    Registry &all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    return findById(all, id);
}

} // namespace testkit
