#ifndef TESTS_BROWSER_SUPPORT_OPENING_H
#define TESTS_BROWSER_SUPPORT_OPENING_H

#include "apps/browser/library/opener.h"

#include <functional>
#include <optional>

/// Runs the event loop until `condition` holds. False after a minute.
bool comesTrueSoon(const std::function<bool()> &condition);

/// An Opener whose answers are kept. It proceeds by itself once its device is found.
class Opening
{
public:
    explicit Opening(const QString &argument);
    ~Opening();
    Opening(const Opening &) = delete;
    Opening &operator=(const Opening &) = delete;

    /// Starts, and runs the event loop until there is an answer.
    bool ends();
    /// Runs the event loop until the next answer after `again` was called.
    bool endsAfter(const std::function<void()> &again);
    bool hasEnded() const { return opened || failure || passwordAsked || wasCancelled; }

    browser::Opener opener;
    std::optional<browser::Opened> opened;
    std::optional<browser::OpeningFailure> failure;
    std::optional<bool> passwordAsked; ///< whether the last one was wrong
    bool wasCancelled = false;
    QList<browser::OpeningProgress> progress;

    bool hasReached(browser::OpeningProgress::Stage stage) const;
};

#endif
