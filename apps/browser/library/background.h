#ifndef APPS_BROWSER_LIBRARY_BACKGROUND_H
#define APPS_BROWSER_LIBRARY_BACKGROUND_H

#include "apps/browser/library/mailbox.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>
#include <new>
#include <utility>

namespace browser
{

/// Runs `work` on a thread of its own that waitForBackground() knows of. False when this computer starts no more
/// threads; `work` is then gone. A std::bad_alloc that leaves `work` ends it quietly.
bool startBackground(std::function<void()> work);

/// Waits until everything that was begun has ended, but not longer than `patience`. False when something still runs: a
/// call that hangs on a device that is gone. The program then ends without destructors (std::_Exit()).
bool waitForBackground(std::chrono::milliseconds patience);

/// A receiver that closes its mailbox when it goes; its parent takes it along.
class Reply : public QObject
{
public:
    explicit Reply(QObject *parent) : QObject(parent), mailbox(std::make_shared<Mailbox>(this)) {}
    ~Reply() override { mailbox->close(); }
    Reply(const Reply &) = delete;
    Reply &operator=(const Reply &) = delete;

    const std::shared_ptr<Mailbox> mailbox;
};

/// Runs `work` on a thread of its own, then `done` with its result on the thread of `receiver`, unless that is gone by
/// then. Where memory or threads run short `done` gets a default result. `work` must own all that it uses.
template <class Result, class Work, class Done>
void inBackground(QObject *receiver, Work work, Done done)
{
    auto *const reply = new Reply(receiver);
    const std::shared_ptr<Mailbox> mailbox = reply->mailbox;
    const auto finish = [reply, done](const std::shared_ptr<Result> &result) {
        reply->deleteLater();
        done(std::move(*result)); // which may delete the receiver
    };
    const bool started = startBackground([mailbox, finish, work]() mutable {
        auto result = std::make_shared<Result>();
        try {
            *result = work();
        } catch (const std::bad_alloc &) {
        }
        mailbox->post([finish, result] { finish(result); });
    });
    if (!started)
        mailbox->post([finish] { finish(std::make_shared<Result>()); });
}

} // namespace browser

#endif
