#include "photolib/db/key_set.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using photolib::KeySet;

namespace
{

constexpr std::size_t keyCount = 20000;

/// Places that this many keys get in a set.
std::size_t placesOf(std::size_t keys)
{
    KeySet set;
    for (std::size_t key = 0; key < keys; ++key)
        set.insert(static_cast<qint64>(key));
    return set.bucket_count();
}

/// How many keys are compared with an absent one of the fullest place.
std::size_t longestSearch(const std::vector<qint64> &keys)
{
    const KeySet set(keys.begin(), keys.end());
    EXPECT_EQ(set.size(), keyCount);
    std::size_t longest = 0;
    for (std::size_t place = 0; place < set.bucket_count(); ++place)
        longest = std::max(longest, set.bucket_size(place));
    return longest;
}

constexpr quint64 undoShift(quint64 value, unsigned bits)
{
    quint64 result = value;
    for (unsigned done = bits; done < 64; done += bits)
        result = value ^ (result >> bits);
    return result;
}

constexpr quint64 inverseOf(quint64 odd)
{
    quint64 inverse = odd;
    for (int step = 0; step < 6; ++step)
        inverse *= 2 - odd * inverse;
    return inverse;
}

/// The key that KeyHash would give this hash if it had no secret.
qint64 keyWithPublicHash(quint64 hash)
{
    quint64 value = undoShift(hash, 31) * inverseOf(0x94D049BB133111EBU);
    value = undoShift(value, 27) * inverseOf(0xBF58476D1CE4E5B9U);
    return static_cast<qint64>(undoShift(value, 30));
}

/// `keyCount` hashes that all fall on the first place.
std::vector<quint64> hashesOfOnePlace()
{
    const std::size_t places = placesOf(keyCount);
    std::vector<quint64> hashes;
    for (std::size_t number = 1; number <= keyCount; ++number)
        hashes.push_back(static_cast<quint64>(number * places));
    return hashes;
}

// A random spread has some eight on its fullest place.
constexpr std::size_t fewKeys = 40;

} // namespace

TEST(KeySet, SpreadsKeysThatWereMadeToCollideUnderItsOwnFunction)
{
    std::vector<qint64> keys;
    for (const quint64 hash : hashesOfOnePlace())
        keys.push_back(keyWithPublicHash(hash));
    EXPECT_LT(longestSearch(keys), fewKeys);
}

TEST(KeySet, SpreadsKeysThatAreMultiplesOfTheNumberOfItsPlaces)
{
    std::vector<qint64> keys;
    for (const quint64 hash : hashesOfOnePlace())
        keys.push_back(static_cast<qint64>(hash));
    EXPECT_LT(longestSearch(keys), fewKeys);
}

TEST(KeySet, SpreadsKeysWhoseHalvesFoldToTheSame)
{
    std::vector<qint64> keys;
    for (quint64 half = 0; half < keyCount; ++half)
        keys.push_back(static_cast<qint64>(half << 32U | half));
    EXPECT_LT(longestSearch(keys), fewKeys);
}
