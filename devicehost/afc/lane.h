#ifndef DEVICEHOST_AFC_LANE_H
#define DEVICEHOST_AFC_LANE_H

#include "devicehost/afc/session.h"

#include <memory>
#include <mutex>

namespace devicehost::afc
{

/// The connection that one opened device and its files go over, and the next one when it breaks. Opened devices have
/// lanes of their own, so those who read on several threads do not wait for one another. Any thread may use it.
class Lane
{
public:
    explicit Lane(std::shared_ptr<Session> deviceSession) : session(std::move(deviceSession)) {}
    ~Lane();
    Lane(const Lane &) = delete;
    Lane &operator=(const Lane &) = delete;

    /// The client to use now. Null, with `*error` filled, when there is none and no connection can be made.
    std::shared_ptr<Client> client(VError *error);

    /// What to use in place of `broken`: the one that another file has made meanwhile, or one with a new connection.
    std::shared_ptr<Client> replace(const std::shared_ptr<Client> &broken, VError *error);

private:
    const std::shared_ptr<Session> session;
    std::mutex mutex; ///< guards `current`; held while a connection is made
    std::shared_ptr<Client> current;
};

} // namespace devicehost::afc

#endif
