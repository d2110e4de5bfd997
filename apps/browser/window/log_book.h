#ifndef APPS_BROWSER_WINDOW_LOG_BOOK_H
#define APPS_BROWSER_WINDOW_LOG_BOOK_H

#include <QObject>
#include <QStringList>

#include <deque>
#include <memory>
#include <mutex>

namespace devicehost
{
struct LogLine;
}

namespace browser
{

class Mailbox;

/// The newest lines of the library's log. One at a time: it takes the process-wide listener of the host. Lines come
/// from any thread; everything else is for the user-interface thread.
class LogBook : public QObject
{
    Q_OBJECT

public:
    static constexpr int mostLines = 5000;
    static constexpr int longestLine = 2000; ///< characters; the rest of a line is left out

    explicit LogBook(QObject *parent = nullptr);
    ~LogBook() override;

    /// The lines behind the first `*seen` that there ever were, as far as they are kept; `*seen` becomes the number of
    /// all.
    QStringList linesAfter(qint64 *seen) const;

Q_SIGNALS:
    /// Lines came since the last time that linesAfter() was called. Not sent for each of them.
    void grown();

private:
    // Outlives the book in a listener that is just being called.
    struct Store {
        std::mutex mutex;
        std::deque<QString> lines; ///< the last ones of `count`
        qint64 count = 0;
        bool announced = false;
    };

    static void take(Store &store, Mailbox &mailbox, LogBook *book, const devicehost::LogLine &line);

    const std::shared_ptr<Store> store;
    const std::shared_ptr<Mailbox> mailbox;
};

} // namespace browser

#endif
