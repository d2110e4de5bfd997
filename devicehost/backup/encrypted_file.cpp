#include "devicehost/backup/encrypted_file.h"

#include "devicehost/backup/small_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <utility>

namespace devicehost
{

namespace
{

constexpr qint64 block = blockBytes;

qint64 roundedDown(qint64 value)
{
    return value / block * block;
}

} // namespace

EncryptedFile::EncryptedFile(UniqueFd opened, const SecretBytes &key, qint64 bytes)
    : file(std::move(opened)), decryptor(key), plainSize(bytes)
{
}

qint64 EncryptedFile::encryptedSize(qint64 plainSize)
{
    return plainSize > std::numeric_limits<qint64>::max() - block ? -1 : roundedDown(plainSize + block - 1);
}

qint64 EncryptedFile::read(char *buffer, qint64 wanted, Error *error)
{
    if (position >= plainSize)
        return 0;
    const qint64 count = std::min(wanted, plainSize - position);
    const qint64 begin = roundedDown(position);
    const qint64 cipherBytes = encryptedSize(position + count) - begin;
    const qint64 lead = begin == 0 ? 0 : block; // each block is mixed with the one before
    piece.resize(static_cast<std::size_t>(lead + cipherBytes));
    const qint64 found = readAt(file, begin - lead, piece.data(), lead + cipherBytes, error);
    if (found < 0)
        return -1;
    if (found < lead + cipherBytes) {
        *error = {ENODATA, QStringLiteral("the backup holds a part of it only")};
        return -1;
    }
    CipherBlock before = {};
    std::copy_n(piece.data(), lead, before.data());
    if (!decryptor.decrypt(before, piece.data() + lead, static_cast<std::size_t>(cipherBytes))) {
        *error = {EIO, QStringLiteral("it cannot be decrypted")};
        return -1;
    }
    std::copy_n(piece.data() + lead + (position - begin), count, buffer);
    position += count;
    return count;
}

qint64 EncryptedFile::seek(qint64 offset, int origin)
{
    if (origin < SEEK_SET || origin > SEEK_END)
        return -1;
    const qint64 base = origin == SEEK_SET ? 0 : origin == SEEK_CUR ? position : plainSize;
    if (offset < -base || offset > std::numeric_limits<qint64>::max() - base)
        return -1;
    position = base + offset;
    return position;
}

} // namespace devicehost
