#ifndef DEVICEHOST_VDEV_POSIX_FILE_H
#define DEVICEHOST_VDEV_POSIX_FILE_H

#include "devicehost/vdev/backend.h"
#include "devicehost/vdev/unique_fd.h"

namespace devicehost
{

/// A file of this computer. What is allowed on it is decided by how the descriptor was opened.
class PosixFile final : public VFile
{
public:
    explicit PosixFile(UniqueFd opened);

    qint64 read(char *buffer, qint64 size, Error *error) override;
    qint64 write(const char *buffer, qint64 size, Error *error) override;
    qint64 seek(qint64 offset, int origin) override;
    qint64 tell() override;
    qint64 size() const override { return sizeAtOpening; }
    bool finish(Error *error) override;

private:
    UniqueFd file;
    qint64 sizeAtOpening = -1;
};

} // namespace devicehost

#endif
