#include "exporter/sha256.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>

using exporter::Sha256;

TEST(Sha256, IsTheStandardOne)
{
    Sha256 hash;
    hash.add("abc", 3);
    EXPECT_EQ(hash.result().toHex(), QByteArray("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"));
    EXPECT_EQ(Sha256().result().toHex(),
              QByteArray("e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"));
}

TEST(Sha256, DoesNotDependOnThePieces)
{
    QByteArray content;
    for (int i = 0; i < 1000; ++i)
        content.append(static_cast<char>(i * i));
    const QByteArray whole = QCryptographicHash::hash(content, QCryptographicHash::Sha256);
    for (const int piece : {1, 63, 64, 65, 999, 1000}) {
        Sha256 hash;
        for (int at = 0; at < content.size(); at += piece)
            hash.add(content.constData() + at, qMin(piece, content.size() - at));
        EXPECT_EQ(hash.result(), whole) << piece;
    }
}
