#include "devicehost/afc/lane.h"

namespace devicehost::afc
{

Lane::~Lane()
{
    session->giveBack(std::move(current));
}

std::shared_ptr<Client> Lane::client(VError *error)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (current == nullptr || !current->isUsable())
        current = session->take(error);
    return current;
}

std::shared_ptr<Client> Lane::replace(const std::shared_ptr<Client> &broken, VError *error)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (current == broken || current == nullptr || !current->isUsable())
        current = session->connect(error); // the idle ones are as old as the one that broke
    return current;
}

} // namespace devicehost::afc
