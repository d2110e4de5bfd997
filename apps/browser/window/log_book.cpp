#include "apps/browser/window/log_book.h"

#include "apps/browser/library/log_notes.h"
#include "apps/browser/library/mailbox.h"
#include "devicehost/log_sink.h"

#include <QTime>

#include <algorithm>

namespace browser
{

LogBook::LogBook(QObject *parent)
    : QObject(parent), store(std::make_shared<Store>()), mailbox(std::make_shared<Mailbox>(this))
{
    devicehost::setLogListener(
        [kept = store, box = mailbox, this](const devicehost::LogLine &line) { take(*kept, *box, this, line); });
}

LogBook::~LogBook()
{
    devicehost::setLogListener({});
    mailbox->close();
}

void LogBook::take(Store &store, Mailbox &mailbox, LogBook *book, const devicehost::LogLine &line)
{
    noteLogLine(line.message);
    const QString text =
        QStringLiteral("%1  %2  %3")
            .arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz")),
                 line.level > 1 ? QStringLiteral("!") : QStringLiteral(" "), line.message.left(longestLine));
    {
        const std::lock_guard<std::mutex> lock(store.mutex);
        store.lines.push_back(text);
        ++store.count;
        if (store.lines.size() > static_cast<std::size_t>(mostLines))
            store.lines.pop_front();
        if (store.announced)
            return;
        store.announced = true;
    }
    mailbox.post([book] { Q_EMIT book->grown(); }); // which runs only while the book is there
}

QStringList LogBook::linesAfter(qint64 *seen) const
{
    const std::lock_guard<std::mutex> lock(store->mutex);
    store->announced = false;
    const auto kept = static_cast<qint64>(store->lines.size());
    const qint64 wanted = std::min(kept, store->count - *seen);
    *seen = store->count;
    return {store->lines.end() - wanted, store->lines.end()};
}

} // namespace browser
