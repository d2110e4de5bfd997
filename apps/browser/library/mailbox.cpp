#include "apps/browser/library/mailbox.h"

#include <QMetaObject>

namespace browser
{

bool Mailbox::post(std::function<void()> letter)
{
    const std::lock_guard<std::mutex> lock(mutex);
    return receiver != nullptr && QMetaObject::invokeMethod(receiver, std::move(letter), Qt::QueuedConnection);
}

void Mailbox::close()
{
    const std::lock_guard<std::mutex> lock(mutex);
    receiver = nullptr;
}

} // namespace browser
