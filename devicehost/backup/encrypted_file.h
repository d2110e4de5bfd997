#ifndef DEVICEHOST_BACKUP_ENCRYPTED_FILE_H
#define DEVICEHOST_BACKUP_ENCRYPTED_FILE_H

#include "devicehost/backup/ciphers.h"
#include "devicehost/vdev/backend.h"
#include "devicehost/vdev/unique_fd.h"

#include <vector>

namespace devicehost
{

/// A file of an encrypted backup, decrypted piece by piece where it is read.
class EncryptedFile final : public VFile
{
public:
    /// `plainSize` bytes, not negative, are in it when it is decrypted with `key`; the rest of its last block is
    /// padding.
    EncryptedFile(UniqueFd opened, const SecretBytes &key, qint64 plainSize);

    /// Bytes that a file of so many takes at least when it is encrypted; -1 when there is no such number.
    static qint64 encryptedSize(qint64 plainSize);

    qint64 read(char *buffer, qint64 wanted, Error *error) override;
    qint64 seek(qint64 offset, int origin) override;
    qint64 tell() override { return position; }
    qint64 size() const override { return plainSize; }

private:
    UniqueFd file;
    CbcDecryptor decryptor;
    const qint64 plainSize;
    qint64 position = 0;
    std::vector<unsigned char> piece; ///< cipher text, with the block in front of it, and then what was in it
};

} // namespace devicehost

#endif
