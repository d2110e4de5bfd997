#include "apps/cli/sample/property_lists.h"

#include <QXmlStreamWriter>

namespace sample
{

namespace
{

struct Item {
    const char *key;
    const char *element; // "string", "integer" or "date"
    QString value;
};

QByteArray dictionary(const QVector<Item> &items)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeDTD(QStringLiteral("<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">"));
    xml.writeStartElement(QStringLiteral("plist"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
    xml.writeStartElement(QStringLiteral("dict"));
    for (const Item &item : items) {
        xml.writeTextElement(QStringLiteral("key"), QString::fromLatin1(item.key));
        xml.writeTextElement(QString::fromLatin1(item.element), item.value);
    }
    xml.writeEndDocument();
    return bytes;
}

} // namespace

QByteArray currentLibraryList(const QString &libraryUuid)
{
    return dictionary({{"libraryUUID", "string", libraryUuid}});
}

QByteArray adjustmentList(const QDateTime &time)
{
    return dictionary({{"adjustmentBaseVersion", "integer", QStringLiteral("0")},
                       {"adjustmentFormatIdentifier", "string", QStringLiteral("com.apple.photo")},
                       {"adjustmentFormatVersion", "string", QStringLiteral("1.4")},
                       {"adjustmentTimestamp", "date", time.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ssZ"))}});
}

} // namespace sample
