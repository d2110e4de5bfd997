#ifndef APPS_BROWSER_PAGE_QUERY_RUNNER_H
#define APPS_BROWSER_PAGE_QUERY_RUNNER_H

#include "apps/browser/page/photo_query.h"

#include <QObject>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace browser
{

/// Answers queries beside the user interface. Only the latest one counts: one that is running is given up.
class QueryRunner : public QObject
{
    Q_OBJECT

public:
    explicit QueryRunner(std::shared_ptr<const Snapshot> snapshot, QObject *parent = nullptr);
    ~QueryRunner() override;

    /// Small libraries are answered before this returns, others by and by.
    void run(const PhotoQuery &query);
    /// Whether an answer is still to come.
    bool isBusy() const { return busy; }

Q_SIGNALS:
    void found(const std::shared_ptr<const browser::PhotoList> &photos);

private:
    void work();
    void deliver(quint64 number, const std::shared_ptr<const PhotoList> &photos);

    const std::shared_ptr<const Snapshot> snapshot;
    quint64 latest = 0; ///< number of the query that counts
    bool busy = false;

    std::mutex mutex;
    std::condition_variable wake;
    std::optional<PhotoQuery> waiting;
    quint64 waitingNumber = 0;
    bool ending = false;
    std::atomic<bool> giveUp{false};
    std::thread thread;
};

} // namespace browser

#endif
