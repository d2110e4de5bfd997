#ifndef DEVICEHOST_BACKUP_PROPERTY_LIST_H
#define DEVICEHOST_BACKUP_PROPERTY_LIST_H

#include "devicehost/backup/binary_plist.h"

#include <QHash>

#include <optional>

namespace devicehost
{

/// The values of a property list, binary or XML, whose top is a dictionary. What is nested is passed over. Hostile
/// lists are answered within time and memory of their own size.
class PropertyList
{
public:
    /// Nothing when it is no such list, or an XML one that does not end properly.
    static std::optional<PropertyList> parse(const QByteArray &bytes);

    // Nothing when there is no such key, or its value is of another kind.
    std::optional<bool> flag(const char *key) const;
    std::optional<QByteArray> data(const char *key) const;
    std::optional<QString> text(const char *key) const;
    std::optional<QDateTime> date(const char *key) const;

private:
    struct Value {
        QString kind; ///< the element's name
        QString text;
    };

    static std::optional<PropertyList> parseXml(const QByteArray &bytes);
    std::optional<QString> xmlText(const char *key, const char *kind) const;
    std::optional<BinaryPlist::Ref> binaryValue(const char *key) const;

    std::optional<BinaryPlist> binary;
    QHash<QString, Value> xml;
};

} // namespace devicehost

#endif
