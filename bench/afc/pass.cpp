#include "bench/afc/pass.h"

#include <QFile>

#include <algorithm>
#include <cstring>
#include <random>
#include <stdexcept>
#include <vector>

#include <time.h>

namespace bench
{
namespace
{

constexpr qint64 blockSize = 4096;

double seconds(clockid_t clock)
{
    timespec time{};
    if (::clock_gettime(clock, &time) != 0)
        throw std::runtime_error("the processor time of a process cannot be read");
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double processorOf(pid_t process)
{
    if (process == 0)
        return 0;
    clockid_t clock = 0;
    if (::clock_getcpuclockid(process, &clock) != 0)
        throw std::runtime_error("a process that was measured has ended");
    return seconds(clock);
}

/// Each block begins with its position in the file.
void checkBlocks(const char *data, qint64 position, qint64 count)
{
    for (qint64 block = (position + blockSize - 1) / blockSize * blockSize;
         block + qint64(sizeof block) <= position + count; block += blockSize) {
        qint64 found = 0;
        std::memcpy(&found, data + (block - position), sizeof found);
        if (found != block)
            throw std::runtime_error("wrong bytes were read");
    }
}

} // namespace

void makeFile(const QString &path, qint64 size)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error(file.errorString().toStdString());
    std::mt19937_64 random; // NOLINT(cert-msc51-cpp): the same file each time
    std::vector<quint64> block(static_cast<size_t>(blockSize) / sizeof(quint64));
    for (quint64 &word : block)
        word = random();
    for (qint64 position = 0; position < size; position += blockSize) {
        std::memcpy(block.data(), &position, sizeof position);
        const qint64 count = std::min(blockSize, size - position);
        if (file.write(reinterpret_cast<const char *>(block.data()), count) != count)
            throw std::runtime_error(file.errorString().toStdString());
    }
}

Pass readFile(Reader &reader, const testkit::SimulatedPhone &phone, const std::string &path, qint64 size,
              qint64 requestSize)
{
    std::vector<char> buffer(static_cast<size_t>(requestSize));
    const qint64 sentBefore = phone.counters().value("bytes");
    Pass pass;
    const double readers = seconds(CLOCK_PROCESS_CPUTIME_ID) + processorOf(reader.helper());
    const double phones = processorOf(phone.processId());
    const double start = seconds(CLOCK_MONOTONIC);
    reader.open(path);
    qint64 position = 0;
    while (const qint64 count = reader.read(buffer.data(), requestSize)) {
        checkBlocks(buffer.data(), position, count);
        position += count;
    }
    reader.close();
    pass.elapsed = seconds(CLOCK_MONOTONIC) - start;
    pass.readersProcessor = seconds(CLOCK_PROCESS_CPUTIME_ID) + processorOf(reader.helper()) - readers;
    pass.phonesProcessor = processorOf(phone.processId()) - phones;
    if (position != size)
        throw std::runtime_error("the file was not read to its end");
    if (phone.counters().value("bytes") - sentBefore < size)
        throw std::runtime_error("the bytes did not come from the phone");
    return pass;
}

} // namespace bench
