#ifndef APPS_BROWSER_LIBRARY_MAILBOX_H
#define APPS_BROWSER_LIBRARY_MAILBOX_H

#include <QObject>

#include <functional>
#include <memory>
#include <mutex>

namespace browser
{

/// The way from other threads to an object that may be gone before they are. Both sides share it.
class Mailbox : public std::enable_shared_from_this<Mailbox>
{
public:
    explicit Mailbox(QObject *addressee) : receiver(addressee) {}
    Mailbox(const Mailbox &) = delete;
    Mailbox &operator=(const Mailbox &) = delete;

    /// Has `letter` run on the receiver's thread, soon. False, and nothing happens, once the box is closed. Any thread.
    bool post(std::function<void()> letter);

    /// The receiver calls this, in its destructor at the latest; letters that have not run by then never do.
    void close();

private:
    bool isOpen() const;

    mutable std::mutex mutex;
    QObject *receiver;
};

} // namespace browser

#endif
