#ifndef TESTING_HOST_REGISTRY_H
#define TESTING_HOST_REGISTRY_H

#include <QtGlobal>

namespace testkit
{

class HostSession;

// Which made-up device a call of the library belongs to: the host's functions are global and say it only in part.
// All functions may be called from any thread.

/// Makes a session findable. It becomes the one of this thread.
void registerSession(HostSession *session);
void unregisterSession(HostSession *session);

/// The session whose device was last used on this thread, else the newest one, else null.
HostSession *currentSession();
void useSession(const HostSession *session);

/// The newest session whose device bears this name, in UTF-8 or in the local 8-bit encoding; null when none does.
HostSession *sessionNamed(const char *devicePath);

/// Handles are remembered until their session ends, so that stale ones are recognised.
void registerHandle(const void *handle, HostSession *owner);

/// The session that gave out `handle`, or null.
HostSession *ownerOf(const void *handle);

/// The session with this number (HostSession::id()), or null when it has ended.
HostSession *sessionWithId(quint64 id);

} // namespace testkit

#endif
