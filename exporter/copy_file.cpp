#include "exporter/copy_file.h"

#include "exporter/concurrent_sha256.h"
#include "exporter/errors.h"
#include "exporter/sha256.h"

#include <cerrno>
#include <vector>

namespace exporter
{

namespace
{

QString wrongSize(qint64 told, const QString &got)
{
    return QStringLiteral("the device says that the file has %1 bytes and gave %2").arg(told).arg(got);
}

CopiedFile copyOnce(DeviceSource &source, const AssetFile &file, std::optional<qint64> mtimeNs,
                    Destination &destination, RunState &state)
{
    const auto input = source.open(file.devicePath);
    if (input == nullptr)
        throw DeviceProblem(QStringLiteral("the file has vanished from the device"));
    destination.requireRoom(input->size(), state.options.reserve);
    CopiedFile copy;
    copy.temporary = std::make_unique<TempFile>(destination);
    ConcurrentSha256 hash(input->size());
    for (;;) {
        state.requireGoOn();
        char *const block = hash.nextBlock();
        const int count = input->read(block, ConcurrentSha256::blockSize);
        if (count == 0)
            break;
        copy.size += count;
        if (copy.size > input->size())
            throw DeviceProblem(wrongSize(input->size(), QStringLiteral("more")));
        hash.add(count);
        copy.temporary->write(block, count);
        state.advance(count);
    }
    if (copy.size != input->size())
        throw DeviceProblem(wrongSize(input->size(), QString::number(copy.size)));
    copy.mtimeNs = copy.temporary->finish(mtimeNs).mtimeNs;
    copy.sha256 = hash.result();
    return copy;
}

void readAll(Destination &destination, const QString &path, const std::function<void(const char *, qint64)> &take)
{
    const UniqueFd input = destination.openForReading(path);
    std::vector<char> block(ConcurrentSha256::blockSize);
    for (;;) {
        const ssize_t count = destination.operations().read(input.get(), block.data(), block.size());
        if (count < 0)
            throw FileProblem(path + QStringLiteral(": ") + errnoText(errno));
        if (count == 0)
            return;
        take(block.data(), count);
    }
}

} // namespace

CopiedFile copyFromDevice(DeviceSource &source, const AssetFile &file, std::optional<qint64> mtimeNs,
                          Destination &destination, RunState &state)
{
    CopiedFile copy;
    const qint64 before = state.progress.bytesDone;
    state.progress.currentFile = file.devicePath;
    source.withRetries([&] {
        state.progress.bytesDone = before;
        copy = copyOnce(source, file, mtimeNs, destination, state);
    });
    return copy;
}

CopiedFile copyInside(Destination &destination, const QString &path, const QByteArray &sha256, RunState &state)
{
    const auto found = destination.stat(path);
    if (!found)
        throw FileProblem(path + QStringLiteral(": not there"));
    destination.requireRoom(found->size, state.options.reserve);
    CopiedFile copy;
    copy.temporary = std::make_unique<TempFile>(destination);
    Sha256 hash;
    readAll(destination, path, [&](const char *data, qint64 size) {
        state.requireGoOn();
        hash.add(data, size);
        copy.temporary->write(data, size);
        copy.size += size;
    });
    copy.sha256 = hash.result();
    if (copy.sha256 != sha256)
        throw FileProblem(path + QStringLiteral(": has another content than when it was exported"));
    copy.mtimeNs = copy.temporary->finish(found->mtimeNs).mtimeNs;
    return copy;
}

QByteArray hashOf(Destination &destination, const QString &path, const std::function<void(qint64)> &onBlock)
{
    Sha256 hash;
    readAll(destination, path, [&](const char *data, qint64 size) {
        hash.add(data, size);
        onBlock(size);
    });
    return hash.result();
}

} // namespace exporter
