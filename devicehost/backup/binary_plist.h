#ifndef DEVICEHOST_BACKUP_BINARY_PLIST_H
#define DEVICEHOST_BACKUP_BINARY_PLIST_H

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

namespace devicehost
{

/// A binary property list ("bplist00"), read where it is asked for something: nothing is built of it. So lists that
/// refer to themselves, are nested without end or name one large value a million times cost nothing, and no depth
/// needs a bound. The parser that the library has for the device's own list builds trees recursively.
///
/// A plain value that shares the bytes. Every function answers with nothing for what is damaged or of another kind.
class BinaryPlist
{
public:
    /// The number of an object in the list. Any number may be asked for.
    using Ref = quint64;

    static bool isOne(const QByteArray &bytes) { return bytes.startsWith("bplist00"); }

    /// Nothing when the frame of the list is damaged; its objects may still be.
    static std::optional<BinaryPlist> parse(const QByteArray &bytes);

    Ref top() const { return topObject; }

    std::optional<bool> flag(Ref ref) const;
    std::optional<qint64> integer(Ref ref) const;
    std::optional<QByteArray> data(Ref ref) const;
    std::optional<QString> text(Ref ref) const;
    std::optional<QDateTime> date(Ref ref) const; ///< in UTC

    /// What a reference of a keyed archive counts.
    std::optional<quint64> uid(Ref ref) const;

    bool isDictionary(Ref ref) const { return object(ref).kind == dictionaryKind; }

    /// The first value with this key, ASCII, of a dictionary.
    std::optional<Ref> value(Ref dictionary, const char *key) const;

    /// An element of an array, counted from 0.
    std::optional<Ref> element(Ref array, quint64 index) const;

private:
    static constexpr int dictionaryKind = 0xd;

    /// `kind` is the upper half of the first byte, -1 for none; `begin` is where its content starts.
    struct Object {
        int kind = -1;
        int low = 0;
        quint64 count = 0;
        quint64 begin = 0;
    };

    BinaryPlist() = default;
    quint64 number(quint64 begin, quint64 size) const;
    bool holds(quint64 begin, quint64 count, quint64 size) const;
    Object object(Ref ref) const;

    QByteArray bytes;
    quint64 objectCount = 0;
    quint64 tableBegin = 0; ///< also the end of the objects
    quint64 offsetSize = 0;
    quint64 refSize = 0;
    Ref topObject = 0;
};

} // namespace devicehost

#endif
