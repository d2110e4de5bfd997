#include "apps/browser/library/background.h"

#include <algorithm>
#include <condition_variable>
#include <list>
#include <mutex>
#include <system_error>
#include <thread>

namespace browser
{

namespace
{

class Crew
{
public:
    bool start(std::function<void()> work)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        reap();
        members.emplace_back();
        Member &member = members.back();
        try {
            member.thread = std::thread([this, &member, doIt = std::move(work)]() mutable {
                try {
                    doIt();
                } catch (const std::bad_alloc &) {
                }
                doIt = nullptr; // what it owns goes before the thread counts as ended
                const std::lock_guard<std::mutex> done(mutex);
                member.ended = true;
                changed.notify_all();
            });
        } catch (const std::system_error &) {
            members.pop_back();
            return false;
        }
        return true;
    }

    bool wait(std::chrono::milliseconds patience)
    {
        std::unique_lock<std::mutex> lock(mutex);
        const bool allEnded = changed.wait_for(lock, patience, [this] {
            return std::all_of(members.begin(), members.end(), [](const Member &member) { return member.ended; });
        });
        reap();
        return allEnded;
    }

private:
    struct Member {
        std::thread thread;
        bool ended = false;
    };

    void reap()
    {
        members.remove_if([](Member &member) {
            if (member.ended)
                member.thread.join(); // it has left the lock, or is about to
            return member.ended;
        });
    }

    std::mutex mutex;
    std::condition_variable changed;
    std::list<Member> members;
};

Crew &crew()
{
    static auto *const instance = new Crew; // outlives threads that hang at the end of the program
    return *instance;
}

} // namespace

bool startBackground(std::function<void()> work)
{
    return crew().start(std::move(work));
}

bool waitForBackground(std::chrono::milliseconds patience)
{
    return crew().wait(patience);
}

} // namespace browser
