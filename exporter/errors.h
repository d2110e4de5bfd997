#ifndef EXPORTER_ERRORS_H
#define EXPORTER_ERRORS_H

#include "exporter/outcome.h"

#include <QString>

#include <exception>
#include <utility>

// What parts of the exporter throw at each other. None of these leaves run() or verify().

namespace exporter
{

/// Nothing more can be done, or is wanted: the run ends.
class RunEnded final : public std::exception
{
public:
    RunEnded(RunEnd how, QString sentences) : end(how), message(std::move(sentences)) {}
    RunEnd end;
    QString message;
};

/// One file cannot be exported; the others can. Another try would not help.
class FileProblem : public std::exception
{
public:
    explicit FileProblem(QString clause) : text(std::move(clause)) {}
    QString text; ///< one line without full stop
};

/// The device did not give a file as it should. Worth another try.
class DeviceProblem final : public FileProblem
{
public:
    using FileProblem::FileProblem;
};

/// The system's words for an errno value.
QString errnoText(int code);

/// Throws what a failed operation on the destination means: the end of the run when the file system is full, read-only
/// or gone, else a FileProblem "`what`: `words of the system`".
[[noreturn]] void throwDestinationError(int code, const QString &what);

/// Whether the operation failed for lack of space.
bool isLackOfSpace(int code);

[[noreturn]] void throwDestinationFull();

/// Ends the run because of the record. `why` continues "The record of earlier exports ...".
[[noreturn]] void throwRecordUnusable(const QString &why);

} // namespace exporter

#endif
