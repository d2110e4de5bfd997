#include "devicehost/backup/file_record.h"

#include "devicehost/backup/binary_plist.h"

#include <limits>

namespace devicehost
{

namespace
{

using Ref = BinaryPlist::Ref;

/// The objects of a keyed archive refer to each other by their place in one array.
class KeyedArchive
{
public:
    explicit KeyedArchive(const BinaryPlist &list) : plist(list), objects(list.value(list.top(), "$objects")) {}

    std::optional<Ref> root() const
    {
        const std::optional<Ref> top = plist.value(plist.top(), "$top");
        const std::optional<Ref> root = top ? plist.value(*top, "root") : std::nullopt;
        return root ? followed(*root) : std::nullopt;
    }

    /// A member of an object; where that is a reference, what it refers to.
    std::optional<Ref> member(Ref object, const char *name) const
    {
        const std::optional<Ref> value = plist.value(object, name);
        return value ? followed(*value) : std::nullopt;
    }

    std::optional<qint64> integer(Ref object, const char *name) const
    {
        const std::optional<Ref> value = member(object, name);
        return value ? plist.integer(*value) : std::nullopt;
    }

    /// Bytes, as they are or within an object of their own.
    std::optional<QByteArray> data(Ref object, const char *name) const
    {
        const std::optional<Ref> value = member(object, name);
        if (!value || !plist.isDictionary(*value))
            return value ? plist.data(*value) : std::nullopt;
        const std::optional<Ref> inner = member(*value, "NS.data");
        return inner ? plist.data(*inner) : std::nullopt;
    }

private:
    std::optional<Ref> followed(Ref value) const
    {
        const std::optional<quint64> index = plist.uid(value);
        if (!index)
            return value;
        return objects ? plist.element(*objects, *index) : std::nullopt;
    }

    const BinaryPlist &plist;
    std::optional<Ref> objects;
};

} // namespace

std::optional<FileRecord> FileRecord::parse(const QByteArray &bytes)
{
    const std::optional<BinaryPlist> list = BinaryPlist::parse(bytes);
    if (!list)
        return std::nullopt;
    const KeyedArchive archive(*list);
    const std::optional<Ref> root = archive.root();
    const std::optional<qint64> size = root ? archive.integer(*root, "Size") : std::nullopt;
    if (!size || *size < 0)
        return std::nullopt;
    FileRecord record;
    record.size = *size;
    const qint64 number = archive.integer(*root, "ProtectionClass").value_or(0);
    if (number >= 0 && number <= std::numeric_limits<std::uint32_t>::max())
        record.protectionClass = static_cast<std::uint32_t>(number);
    record.wrappedKey = archive.data(*root, "EncryptionKey").value_or(QByteArray());
    return record;
}

} // namespace devicehost
