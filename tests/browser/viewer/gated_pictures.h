#ifndef TESTS_BROWSER_VIEWER_GATED_PICTURES_H
#define TESTS_BROWSER_VIEWER_GATED_PICTURES_H

#include "apps/browser/viewer/picture_source.h"
#include "tests/browser/viewer/test_pictures.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <new>
#include <set>
#include <vector>

/// Pictures that come only when a test lets them.
class GatedPictures final : public browser::PictureSource
{
public:
    /// The picture hangs until release(), or until it is given up.
    void hold(qint64 id)
    {
        change([&] { held.insert(id); });
    }
    void release(qint64 id)
    {
        change([&] { held.erase(id); });
    }
    /// Whether a picture that hangs does so even when it is given up.
    void beDeaf(bool on)
    {
        change([&] { deaf = on; });
    }
    void failWithNoMemory(qint64 id)
    {
        change([&] { starved = id; });
    }
    void failWith(qint64 id, browser::PictureProblem problem)
    {
        change([&] { failing = id, failure = problem; });
    }

    bool waitUntilHeld(qint64 id)
    {
        std::unique_lock<std::mutex> lock(mutex);
        return changed.wait_for(lock, std::chrono::seconds(30), [&] { return waiting == id; });
    }

    std::vector<qint64> reads() const
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return all;
    }

    browser::PictureVersion lastVersion() const
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return versions.back();
    }

    QImage thumbnail(qint64) override { return cornersPicture({32, 16}); }

    browser::SharedPicture picture(qint64 id, browser::PictureVersion version, const browser::GiveUp &givenUp) override
    {
        std::unique_lock<std::mutex> lock(mutex);
        all.push_back(id);
        versions.push_back(version);
        if (id == starved)
            throw std::bad_alloc();
        if (id == failing)
            return browser::noPicture(failure);
        while (held.count(id) != 0) {
            waiting = id;
            changed.notify_all();
            if (givenUp() && !deaf)
                return browser::noPicture(browser::PictureProblem::GivenUp);
            changed.wait_for(lock, std::chrono::milliseconds(5));
        }
        waiting = 0;
        auto picture = std::make_shared<browser::Picture>();
        picture->levels.push_back(cornersPicture({640, 320}));
        picture->size = {640, 320};
        return picture;
    }

private:
    template <class Change>
    void change(const Change &how)
    {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            how();
        }
        changed.notify_all();
    }

    mutable std::mutex mutex;
    std::condition_variable changed;
    std::set<qint64> held;
    std::vector<qint64> all;
    std::vector<browser::PictureVersion> versions;
    bool deaf = false;
    qint64 waiting = 0, starved = 0, failing = 0;
    browser::PictureProblem failure = browser::PictureProblem::None;
};

#endif
