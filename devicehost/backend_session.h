#ifndef DEVICEHOST_BACKEND_SESSION_H
#define DEVICEHOST_BACKEND_SESSION_H

namespace devicehost
{

/// What a backend keeps for a device from one opening to the next, as long as the device's host lives.
class BackendSession
{
public:
    virtual ~BackendSession() = default;
};

} // namespace devicehost

#endif
