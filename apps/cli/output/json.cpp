#include "apps/cli/output/json.h"

#include "apps/cli/output/text.h"
#include "apps/cli/output/value_text.h"

#include <algorithm>

namespace photocli
{

namespace
{

// RapidJSON escapes the controls below U+0020 only; the others may start an escape sequence on a terminal.
bool holdsUpperControl(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() >= 0x7F && c.unicode() <= 0x9F; });
}

QString withoutUpperControls(QString text)
{
    for (QChar &c : text) {
        if (c.unicode() >= 0x7F && c.unicode() <= 0x9F)
            c = QChar(QChar::ReplacementCharacter);
    }
    return text;
}

} // namespace

void Json::value(bool value)
{
    writer.Bool(value);
}

void Json::value(qint32 value)
{
    writer.Int(value);
}

void Json::value(qint64 value)
{
    writer.Int64(value);
}

void Json::value(double value)
{
    const QByteArray text = numberText(value);
    if (text.isEmpty())
        writer.Null();
    else
        writer.RawValue(text.constData(), static_cast<size_t>(text.size()), rapidjson::kNumberType);
}

void Json::value(const QString &value)
{
    if (stream.isTerminal() && holdsUpperControl(value))
        string(withoutUpperControls(value).toUtf8());
    else
        string(value.toUtf8());
}

void Json::value(const QByteArray &uuid)
{
    if (stream.isTerminal())
        value(QString::fromUtf8(uuidText(uuid)));
    else
        string(uuidText(uuid));
}

void Json::value(const QDateTime &value)
{
    const QByteArray text = dateText(value);
    if (text.isEmpty())
        writer.Null();
    else
        string(text);
}

void Json::value(const QList<qint64> &ids)
{
    writer.StartArray();
    for (const qint64 id : ids)
        writer.Int64(id);
    writer.EndArray();
}

void Json::string(const QByteArray &utf8)
{
    writer.String(utf8.constData(), static_cast<rapidjson::SizeType>(utf8.size()));
}

} // namespace photocli
