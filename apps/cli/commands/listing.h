#ifndef APPS_CLI_COMMANDS_LISTING_H
#define APPS_CLI_COMMANDS_LISTING_H

#include "apps/cli/failure.h"
#include "apps/cli/library_session.h"
#include "apps/cli/output/csv.h"
#include "apps/cli/output/json.h"

namespace photocli
{

/// Writes records one by one as a JSON array or as CSV lines, for Format::Json and Format::Csv.
template <typename Record>
class RecordList
{
public:
    RecordList(Output &target, Format chosen) : out(target), format(chosen), json(target), csv(target)
    {
        if (format == Format::Json)
            json.beginArray();
        else
            csv.header(Record{});
    }

    void add(const Record &record)
    {
        if (format == Format::Csv)
            return csv.record(record);
        json.newLine();
        json.record(record);
    }

    void end()
    {
        if (format != Format::Json)
            return;
        json.newLine();
        json.endArray();
        out.put('\n');
    }

private:
    Output &out;
    Format format;
    Json json;
    Csv csv;
};

/// Throws the Failure of a command that the user interrupts.
inline void endIfInterrupted()
{
    if (interruptRequested())
        throw Failure{ExitInterrupted, QStringLiteral("interrupted")};
}

/// Ends a command that read a library: flushes, and gives the status to exit with.
inline ExitCode conclude(Output &out, LibrarySession &session)
{
    out.finish();
    endIfInterrupted();
    return session.status();
}

} // namespace photocli

#endif
