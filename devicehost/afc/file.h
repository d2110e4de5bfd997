#ifndef DEVICEHOST_AFC_FILE_H
#define DEVICEHOST_AFC_FILE_H

#include "devicehost/afc/lane.h"
#include "devicehost/vdev/backend.h"

#include <QByteArray>

#include <memory>

namespace devicehost::afc
{

/// A file of a device, opened for reading. When the connection breaks, it is opened once more over a new one and
/// reading goes on where it was, provided that it is the same file still.
class File final : public VFile
{
public:
    /// Null, with `*error` filled, on failure.
    static std::unique_ptr<File> open(std::shared_ptr<Lane> lane, const QByteArray &path, Error *error);

    ~File() override;

    qint64 read(char *buffer, qint64 size, Error *error) override;
    qint64 seek(qint64 offset, int origin) override;
    qint64 tell() override { return position; }
    qint64 size() const override { return info.size; }
    qint64 pieceSize() const override { return 4 * Client::largestRequest; }

private:
    static constexpr qint64 unknown = -1;

    File(std::shared_ptr<Lane> deviceLane, QByteArray devicePath) : lane(std::move(deviceLane)), path(devicePath) {}

    Outcome openOn(std::shared_ptr<Client> newClient, FileInfo *found);
    Outcome openFirst();
    Outcome openAgain();
    Outcome readHere(char *buffer, qint64 size, qint64 *count);
    Outcome confirmEnd();

    const std::shared_ptr<Lane> lane;
    const QByteArray path;
    FileInfo info; ///< when it was opened
    std::shared_ptr<Client> client;
    quint64 handle = 0;
    qint64 position = 0;
    qint64 devicePosition = 0; ///< where the device would read on, or `unknown`
    bool mayReconnect = true;  ///< not twice without a byte in between
};

} // namespace devicehost::afc

#endif
