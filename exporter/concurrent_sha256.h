#ifndef EXPORTER_CONCURRENT_SHA256_H
#define EXPORTER_CONCURRENT_SHA256_H

#include "exporter/sha256.h"

#include <QByteArray>

#include <array>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace exporter
{

/// The SHA-256 of a file that comes block by block, taken on a thread of its own while the caller writes the block and
/// reads the next one. A file of a single block is hashed by the caller's thread, and so is one for which the system
/// gives no thread.
///
/// One thread at a time. The constructor and result() throw std::bad_alloc, the other functions nothing.
class ConcurrentSha256
{
public:
    static constexpr int blockSize = 2 * 1024 * 1024;

    explicit ConcurrentSha256(qint64 expectedBytes);
    ConcurrentSha256(const ConcurrentSha256 &) = delete;
    ConcurrentSha256 &operator=(const ConcurrentSha256 &) = delete;
    /// Waits for a block that is being hashed, and leaves out those behind it.
    ~ConcurrentSha256();

    /// `blockSize` bytes to fill, this object's. Waits until what they held before is hashed.
    char *nextBlock();

    /// Has the first `size` bytes of the block hashed that nextBlock() gave last. Nobody may change them until
    /// nextBlock() gives the block again.
    void add(int size);

    /// The 32 bytes of the hash, after the last block.
    QByteArray result();

private:
    struct Block {
        std::unique_ptr<char[]> bytes;
        int size = 0;
    };

    void start();
    void hashBlocks();

    // The thread has those from `hashed` on, up to `added`; the caller has the others.
    std::array<Block, 2> blocks;
    std::size_t added = 0;
    std::size_t hashed = 0;
    bool ending = false;
    Sha256 hash;
    std::mutex mutex;
    std::condition_variable changed;
    std::thread thread;
};

} // namespace exporter

#endif
