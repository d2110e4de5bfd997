#include "devicehost/backup/property_list.h"

#include <QXmlStreamReader>

namespace devicehost
{

std::optional<PropertyList> PropertyList::parse(const QByteArray &bytes)
{
    if (!BinaryPlist::isOne(bytes))
        return parseXml(bytes);
    PropertyList list;
    list.binary = BinaryPlist::parse(bytes);
    if (!list.binary || !list.binary->isDictionary(list.binary->top()))
        return std::nullopt;
    return list;
}

std::optional<PropertyList> PropertyList::parseXml(const QByteArray &bytes)
{
    QXmlStreamReader reader(bytes);
    if (!reader.readNextStartElement() || reader.name() != QLatin1String("plist") || !reader.readNextStartElement() ||
        reader.name() != QLatin1String("dict"))
        return std::nullopt;
    PropertyList list;
    QString key;
    bool hasKey = false;
    while (reader.readNextStartElement()) {
        const QString kind = reader.name().toString();
        if (kind == QLatin1String("dict") || kind == QLatin1String("array")) {
            reader.skipCurrentElement();
            hasKey = false;
            continue;
        }
        const QString text = reader.readElementText(QXmlStreamReader::SkipChildElements);
        if (kind == QLatin1String("key")) {
            key = text;
        } else if (hasKey && !list.xml.contains(key)) { // the first one counts, as in binary lists
            list.xml.insert(key, {kind, text});
        }
        hasKey = kind == QLatin1String("key");
    }
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? std::nullopt : std::make_optional(list);
}

std::optional<QString> PropertyList::xmlText(const char *key, const char *kind) const
{
    const auto found = xml.constFind(QString::fromLatin1(key));
    if (found == xml.constEnd() || found->kind != QLatin1String(kind))
        return std::nullopt;
    return found->text;
}

std::optional<BinaryPlist::Ref> PropertyList::binaryValue(const char *key) const
{
    return binary->value(binary->top(), key);
}

std::optional<bool> PropertyList::flag(const char *key) const
{
    if (binary) {
        const auto ref = binaryValue(key);
        return ref ? binary->flag(*ref) : std::nullopt;
    }
    if (xmlText(key, "true"))
        return true;
    return xmlText(key, "false") ? std::make_optional(false) : std::nullopt;
}

std::optional<QByteArray> PropertyList::data(const char *key) const
{
    if (binary) {
        const auto ref = binaryValue(key);
        return ref ? binary->data(*ref) : std::nullopt;
    }
    const auto text = xmlText(key, "data");
    return text ? std::make_optional(QByteArray::fromBase64(text->toLatin1())) : std::nullopt;
}

std::optional<QString> PropertyList::text(const char *key) const
{
    if (!binary)
        return xmlText(key, "string");
    const auto ref = binaryValue(key);
    return ref ? binary->text(*ref) : std::nullopt;
}

std::optional<QDateTime> PropertyList::date(const char *key) const
{
    if (binary) {
        const auto ref = binaryValue(key);
        return ref ? binary->date(*ref) : std::nullopt;
    }
    const auto text = xmlText(key, "date");
    const QDateTime date = text ? QDateTime::fromString(text->trimmed(), Qt::ISODate) : QDateTime();
    return date.isValid() ? std::make_optional(date.toUTC()) : std::nullopt;
}

} // namespace devicehost
