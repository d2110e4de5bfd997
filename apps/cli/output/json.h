#ifndef APPS_CLI_OUTPUT_JSON_H
#define APPS_CLI_OUTPUT_JSON_H

#include "apps/cli/output/fields.h"
#include "apps/cli/output/output.h"

#include <rapidjson/writer.h>

namespace photocli
{

/// Makes an Output the stream that RapidJSON writes to.
class JsonStream
{
public:
    using Ch = char;
    explicit JsonStream(Output &target) : out(target) {}
    void Put(char byte)
    {
        if (lineBreak) {
            // What follows is either the comma before an element, or the start of the first one.
            lineBreak = false;
            if (byte == ',') {
                out.put(',');
                byte = '\n';
            } else {
                out.put('\n');
            }
        }
        out.put(byte);
    }
    void Flush() {} // called at the end of every document; the Output decides when bytes go out
    void breakLine() { lineBreak = true; }
    bool isTerminal() const { return out.isTerminal(); }

private:
    Output &out;
    bool lineBreak = false;
};

/// Writes one JSON document piece by piece; nothing is kept. `begin` and `end` calls must match.
class Json
{
public:
    explicit Json(Output &out) : stream(out), writer(stream) {}
    Json(const Json &) = delete;
    Json &operator=(const Json &) = delete;

    void beginObject() { writer.StartObject(); }
    void endObject() { writer.EndObject(); }
    void beginArray() { writer.StartArray(); }
    void endArray() { writer.EndArray(); }

    /// Puts what comes next on a line of its own.
    void newLine() { stream.breakLine(); }

    void name(const char *memberName) { writer.Key(memberName); }
    void value(bool value);
    void value(qint32 value);
    void value(qint64 value);
    void value(double value); ///< null for a NaN or an infinity
    void value(const QString &value);
    void value(const QByteArray &uuid);
    void value(const QDateTime &value); ///< null for no date
    void value(const QList<qint64> &ids);

    template <typename Value>
    void member(const char *memberName, const Value &memberValue)
    {
        name(memberName);
        value(memberValue);
    }

    /// All fields of a record as members of the object that is open.
    template <typename Record>
    void fields(const Record &record)
    {
        visitFields(record, [this](const char *fieldName, const auto &fieldValue) { member(fieldName, fieldValue); });
    }

    /// A record as an object, in an array or as a member's value.
    template <typename Record>
    void record(const Record &record)
    {
        beginObject();
        fields(record);
        endObject();
    }

private:
    void string(const QByteArray &utf8);

    JsonStream stream;
    rapidjson::Writer<JsonStream> writer;
};

} // namespace photocli

#endif
