#include "exporter/concurrent_sha256.h"

#include <csignal>
#include <system_error>

namespace exporter
{

namespace
{

/// While it lives, a new thread takes no signals: they are for the threads of the program.
class SignalsBlocked
{
public:
    SignalsBlocked()
    {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &before);
    }
    SignalsBlocked(const SignalsBlocked &) = delete;
    SignalsBlocked &operator=(const SignalsBlocked &) = delete;
    ~SignalsBlocked() { ::pthread_sigmask(SIG_SETMASK, &before, nullptr); }

private:
    sigset_t before = {};
};

} // namespace

ConcurrentSha256::ConcurrentSha256(qint64 expectedBytes)
{
    blocks[0].bytes.reset(new char[blockSize]);
    if (expectedBytes <= blockSize)
        return;
    blocks[1].bytes.reset(new char[blockSize]);
    start();
}

void ConcurrentSha256::start()
{
    try {
        const SignalsBlocked blocked;
        thread = std::thread([this] { hashBlocks(); });
    } catch (const std::system_error &) {
        // No more threads: the caller's has to do.
    }
}

ConcurrentSha256::~ConcurrentSha256()
{
    if (!thread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ending = true;
    }
    changed.notify_all();
    thread.join();
}

void ConcurrentSha256::hashBlocks()
{
    std::unique_lock<std::mutex> lock(mutex);
    for (;;) {
        changed.wait(lock, [this] { return ending || hashed < added; });
        if (ending)
            return;
        const Block &block = blocks[hashed % blocks.size()];
        lock.unlock();
        hash.add(block.bytes.get(), block.size);
        lock.lock();
        ++hashed;
        changed.notify_all();
    }
}

char *ConcurrentSha256::nextBlock()
{
    if (!thread.joinable())
        return blocks[0].bytes.get();
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return added - hashed < blocks.size(); });
    return blocks[added % blocks.size()].bytes.get();
}

void ConcurrentSha256::add(int size)
{
    if (!thread.joinable()) {
        hash.add(blocks[0].bytes.get(), size);
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(mutex);
        blocks[added % blocks.size()].size = size;
        ++added;
    }
    changed.notify_all();
}

QByteArray ConcurrentSha256::result()
{
    if (thread.joinable()) {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [this] { return hashed == added; });
    }
    return hash.result();
}

} // namespace exporter
