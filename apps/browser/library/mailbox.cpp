#include "apps/browser/library/mailbox.h"

#include <QMetaObject>

namespace browser
{

bool Mailbox::post(std::function<void()> letter)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (receiver == nullptr)
        return false;
    const auto runUnlessClosed = [self = shared_from_this(), run = std::move(letter)] {
        if (self->isOpen())
            run();
    };
    return QMetaObject::invokeMethod(receiver, runUnlessClosed, Qt::QueuedConnection);
}

bool Mailbox::isOpen() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return receiver != nullptr;
}

void Mailbox::close()
{
    const std::lock_guard<std::mutex> lock(mutex);
    receiver = nullptr;
}

} // namespace browser
