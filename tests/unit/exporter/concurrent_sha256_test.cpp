#include "exporter/concurrent_sha256.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>

#include <cstring>

using exporter::ConcurrentSha256;

namespace
{

constexpr int block = ConcurrentSha256::blockSize;

QByteArray madeContent(int size)
{
    QByteArray content(size, '\0');
    for (int at = 0; at < size; ++at)
        content[at] = static_cast<char>(at * 31 / 7 + at / block);
    return content;
}

/// Overwrites each block as soon as it is given out again, as a reader does.
void addPieces(ConcurrentSha256 *hash, const QByteArray &content, int pieceSize)
{
    for (int at = 0; at < content.size(); at += pieceSize) {
        char *const target = hash->nextBlock();
        const int count = qMin(pieceSize, content.size() - at);
        std::memcpy(target, content.constData() + at, static_cast<std::size_t>(count));
        hash->add(count);
    }
}

} // namespace

TEST(ConcurrentSha256, IsTheStandardOneForAnyNumberOfBlocks)
{
    for (const int size : {0, 1, block - 1, block, block + 1, 2 * block, 3 * block + 7}) {
        const QByteArray content = madeContent(size);
        ConcurrentSha256 hash(size);
        addPieces(&hash, content, block);
        EXPECT_EQ(QCryptographicHash::hash(content, QCryptographicHash::Sha256), hash.result()) << size;
    }
}

TEST(ConcurrentSha256, DoesNotDependOnThePiecesNorOnTheExpectedSize)
{
    const QByteArray content = madeContent(100'000);
    const QByteArray expected = QCryptographicHash::hash(content, QCryptographicHash::Sha256);
    for (const qint64 told : {qint64(0), qint64(100'000), qint64(1) << 40}) {
        for (const int piece : {17, 1000, 100'000}) {
            ConcurrentSha256 hash(told);
            addPieces(&hash, content, piece);
            EXPECT_EQ(expected, hash.result()) << told << " bytes told, in pieces of " << piece;
        }
    }
}

TEST(ConcurrentSha256, EndsWithBlocksThatNobodyWaitedFor)
{
    const QByteArray content = madeContent(2 * block);
    for (int blocks = 0; blocks <= 2; ++blocks) {
        ConcurrentSha256 hash(10 * block);
        addPieces(&hash, content.left(blocks * block), block);
    }
}
