// The formats inside a backup: property lists, key bags, ciphers; and what damage does to them.

#include "devicehost/backup/binary_plist.h"
#include "devicehost/backup/ciphers.h"
#include "devicehost/backup/file_record.h"
#include "devicehost/backup/key_bag.h"
#include "devicehost/backup/property_list.h"
#include "testing/backup_key_bag.h"
#include "testing/backup_plists.h"

#include <gtest/gtest.h>

#include <algorithm>

using devicehost::BinaryPlist;
using devicehost::FileRecord;
using devicehost::KeyBag;
using devicehost::PropertyList;
using devicehost::SecretBytes;

namespace
{

SecretBytes secret(const QByteArray &bytes)
{
    SecretBytes copy(static_cast<std::size_t>(bytes.size()));
    std::copy(bytes.begin(), bytes.end(), copy.data());
    return copy;
}

QByteArray plain(const SecretBytes &bytes)
{
    return QByteArray(reinterpret_cast<const char *>(bytes.data()), static_cast<int>(bytes.size()));
}

QByteArray hex(const char *digits)
{
    return QByteArray::fromHex(digits);
}

// RFC 3394, 4.6: 256 bits of key data with a 256-bit key.
TEST(BackupCiphers, AKeyOfTheStandardIsUnwrapped)
{
    const SecretBytes key = secret(hex("000102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F"));
    const QByteArray wrapped = hex("28C9F404C4B810F4CBCCB35CFB87F8263F5786E2D80ED326CBC7F0E71A99F43BFB988B9B7A02DD21");
    EXPECT_EQ(plain(devicehost::unwrappedKey(key, wrapped)),
              hex("00112233445566778899AABBCCDDEEFF000102030405060708090A0B0C0D0E0F"));
}

TEST(BackupCiphers, AWrappedKeyWithAnyChangedBitIsRefused)
{
    const SecretBytes key = secret(testkit::madeUpKey("class 3"));
    const QByteArray wrapped = testkit::BackupKeyBag::wrapped(testkit::madeUpKey("file"), 3).mid(4);
    EXPECT_EQ(plain(devicehost::unwrappedKey(key, wrapped)), testkit::madeUpKey("file"));
    for (int i = 0; i < wrapped.size(); ++i) {
        QByteArray changed = wrapped;
        changed[i] = static_cast<char>(changed[i] ^ 1);
        EXPECT_TRUE(devicehost::unwrappedKey(key, changed).isEmpty()) << i;
        EXPECT_TRUE(devicehost::unwrappedKey(key, wrapped.left(i)).isEmpty()) << i;
    }
}

// RFC 6070 gives 20 bytes with SHA-1; the 32 bytes that a key takes begin with them.
TEST(BackupCiphers, PasswordsAreStretchedAsTheStandardDoes)
{
    const unsigned char password[] = {'p', 'a', 's', 's', 'w', 'o', 'r', 'd'};
    const SecretBytes key = devicehost::derivedKey(devicehost::Digest::Sha1, password, sizeof password, "salt", 4096);
    EXPECT_EQ(plain(key).left(20), hex("4b007901b765489abead49d926f721d065a429c1"));
    // RFC 7914, 11.
    EXPECT_EQ(plain(devicehost::derivedKey(devicehost::Digest::Sha256,
                                           reinterpret_cast<const unsigned char *>("passwd"), 6, "salt", 1)),
              hex("55ac046e56e3089fec1691c22544b605f94185216dde0465e68b9d57c20dacbc"));
}

TEST(KeyBagTest, ThePasswordOpensTheKeysOfFiles)
{
    for (const std::uint32_t inner : {5U, 0U}) {
        const testkit::BackupKeyBag made("secret", {3, inner});
        auto bag = KeyBag::parse(made.bytes());
        ASSERT_TRUE(bag);
        EXPECT_TRUE(bag->fileKey(testkit::BackupKeyBag::wrapped(testkit::madeUpKey("a"), 4)).isEmpty());
        EXPECT_EQ(bag->unlock("secret"), KeyBag::Unlocking::Unlocked);
        for (const std::uint32_t number : {1U, 4U, 10U})
            EXPECT_EQ(plain(bag->fileKey(testkit::BackupKeyBag::wrapped(testkit::madeUpKey("a"), number))),
                      testkit::madeUpKey("a"));
        EXPECT_TRUE(bag->fileKey(testkit::BackupKeyBag::wrapped(testkit::madeUpKey("a"), 11)).isEmpty());
        EXPECT_TRUE(bag->fileKey(3, testkit::BackupKeyBag::wrapped(testkit::madeUpKey("a"), 4)).isEmpty());
        EXPECT_TRUE(bag->fileKey("abc").isEmpty());
    }
}

TEST(KeyBagTest, AnotherPasswordOpensNothing)
{
    for (const char *password : {"", "secreT", "secret ", "secret\n"}) {
        auto bag = KeyBag::parse(testkit::BackupKeyBag("secret", {}).bytes());
        ASSERT_TRUE(bag);
        EXPECT_EQ(bag->unlock(password), KeyBag::Unlocking::WrongPassword) << password;
        EXPECT_TRUE(bag->fileKey(testkit::BackupKeyBag::wrapped(testkit::madeUpKey("a"), 4)).isEmpty());
    }
}

TEST(KeyBagTest, ABagThatAsksForHoursOfWorkIsRefusedAtOnce)
{
    const testkit::BackupKeyBag made("secret", {});
    for (const char *tag : {"ITER", "DPIC"}) {
        QByteArray bytes = made.bytes();
        bytes.replace(bytes.indexOf(tag) + 8, 4, QByteArray(4, '\xff'));
        auto bag = KeyBag::parse(bytes);
        ASSERT_TRUE(bag);
        EXPECT_EQ(bag->unlock("secret"), KeyBag::Unlocking::TooManyRounds);
    }
}

// Whatever is missing: no crash, no endless work, and never a key that was not there.
TEST(KeyBagTest, ABagCutAnywhereOpensWhatIsLeft)
{
    const QByteArray bytes = testkit::BackupKeyBag("secret", {}).bytes();
    int opened = 0;
    for (int size = 0; size < bytes.size(); ++size) {
        auto bag = KeyBag::parse(bytes.left(size));
        if (!bag)
            continue;
        EXPECT_EQ(bag->unlock("secret"), KeyBag::Unlocking::Unlocked) << size;
        ++opened;
        EXPECT_TRUE(bag->fileKey(testkit::BackupKeyBag::wrapped(testkit::madeUpKey("a"), 11)).isEmpty());
    }
    EXPECT_EQ(opened, 10 * 5); // cut in front of an entry of the ten classes behind the first
}

TEST(KeyBagTest, ABagWithAnyChangedByteNeverGivesAWrongKey)
{
    const QByteArray bytes = testkit::BackupKeyBag("secret", {}).bytes();
    const QByteArray wrapped = testkit::BackupKeyBag::wrapped(testkit::madeUpKey("a"), 4);
    for (int i = 0; i < bytes.size(); ++i) {
        const QByteArray before = bytes.mid(qMax(0, i - 11), 12);
        if (before.contains("ITER") || before.contains("DPIC"))
            continue; // millions of rounds of derivation, see above
        QByteArray changed = bytes;
        changed[i] = static_cast<char>(changed[i] ^ 1);
        auto bag = KeyBag::parse(changed);
        if (!bag)
            continue;
        bag->unlock("secret");
        const QByteArray key = plain(bag->fileKey(wrapped));
        EXPECT_TRUE(key.isEmpty() || key == testkit::madeUpKey("a")) << i;
    }
}

TEST(FileRecordTest, AnArchiveIsRead)
{
    const auto record = FileRecord::parse(testkit::fileRecordPlist(5'000'000'000, 4, "wrapped"));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->size, 5'000'000'000);
    EXPECT_EQ(record->protectionClass, 4U);
    EXPECT_EQ(record->wrappedKey, "wrapped");
    const auto open = FileRecord::parse(testkit::fileRecordPlist(0, 0, {}));
    ASSERT_TRUE(open);
    EXPECT_EQ(open->size, 0);
    EXPECT_TRUE(open->wrappedKey.isEmpty());
}

TEST(FileRecordTest, ANegativeSizeIsDamage)
{
    EXPECT_FALSE(FileRecord::parse(testkit::fileRecordPlist(-1, 4, {})));
}

TEST(FileRecordTest, AnArchiveCutOrChangedAnywhereIsReadWithinItsBounds)
{
    const QByteArray bytes = testkit::fileRecordPlist(1000, 4, QByteArray(44, 'k'));
    for (int i = 0; i < bytes.size(); ++i) {
        EXPECT_FALSE(FileRecord::parse(bytes.left(i))) << i;
        for (const int mask : {1, 0x0f, 0x80, 0xff}) {
            QByteArray changed = bytes;
            changed[i] = static_cast<char>(changed[i] ^ mask);
            const auto record = FileRecord::parse(changed);
            EXPECT_TRUE(!record || (record->size >= 0 && record->wrappedKey.size() <= bytes.size())) << i;
        }
    }
}

// 30 bytes of objects: an array that holds itself, and a dictionary whose value is the dictionary.
TEST(BinaryPlistTest, AListThatHoldsItselfIsNoTrap)
{
    QByteArray bytes = "bplist00";
    const QByteArray trailer(6, '\0');
    bytes += QByteArray("\xd1\x01\x00", 3) +
             QByteArray("\x51"
                        "a") +
             QByteArray("\xa1\x02", 2);
    const QByteArray table("\x08\x0b\x0d", 3);
    const QByteArray numbers = QByteArray(7, '\0') + '\x03' + QByteArray(8, '\0') + QByteArray(7, '\0') + '\x0f';
    bytes += table + trailer + "\x01\x01" + numbers;
    const auto list = BinaryPlist::parse(bytes);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->value(list->top(), "a"), list->top());
    EXPECT_EQ(list->element(2, 0), BinaryPlist::Ref{2});
    EXPECT_FALSE(list->element(2, 1));
    EXPECT_FALSE(list->text(3));
    EXPECT_FALSE(list->integer(2));
}

TEST(PropertyListTest, BothFormatsAreRead)
{
    const auto xml = PropertyList::parse(testkit::infoPlist(QStringLiteral("Müllers <Fön> 写真")));
    ASSERT_TRUE(xml);
    EXPECT_EQ(xml->text("Device Name"), QStringLiteral("Müllers <Fön> 写真"));
    EXPECT_EQ(xml->date("Last Backup Date"), QDateTime(QDate(2023, 4, 1), QTime(18, 30), Qt::UTC));
    EXPECT_FALSE(xml->text("Installed Applications"));
    EXPECT_FALSE(xml->text("org.example.app"));
    EXPECT_FALSE(xml->flag("Device Name"));
    const auto binary = PropertyList::parse(testkit::manifestPlist("bag", "key"));
    ASSERT_TRUE(binary);
    EXPECT_EQ(binary->flag("IsEncrypted"), true);
    EXPECT_EQ(binary->data("BackupKeyBag"), "bag");
    EXPECT_EQ(binary->text("Version"), QStringLiteral("10.0"));
    EXPECT_FALSE(binary->text("Lockdown"));
    EXPECT_FALSE(binary->text("ProductVersion"));
    const auto written = PropertyList::parse("<plist version='1.0'><dict><key>a</key><false/><key>d</key><data>\n"
                                             "QUJD\n</data><key>d</key><string>second</string></dict></plist>");
    ASSERT_TRUE(written);
    EXPECT_EQ(written->flag("a"), false);
    EXPECT_EQ(written->data("d"), "ABC");
}

TEST(PropertyListTest, WhatIsNestedWithoutEndIsRefused)
{
    const QByteArray begin = "<plist><dict><key>a</key>";
    EXPECT_FALSE(PropertyList::parse(begin + QByteArray("<array>").repeated(1'000'000)));
    EXPECT_FALSE(PropertyList::parse(""));
    EXPECT_FALSE(PropertyList::parse("<plist><array/></plist>"));
    EXPECT_FALSE(PropertyList::parse("<plist><dict><key>a</key><true/>"));
}

TEST(PropertyListTest, AListCutAnywhereIsRefused)
{
    for (const QByteArray &bytes : {testkit::infoPlist(QStringLiteral("phone")), testkit::manifestPlist("bag", "key")})
        for (int size = 0; size < bytes.trimmed().size() - 1; ++size)
            EXPECT_FALSE(PropertyList::parse(bytes.left(size))) << size;
}

} // namespace
