#ifndef DEVICEHOST_SQL_LIMITS_H
#define DEVICEHOST_SQL_LIMITS_H

#include <QtGlobal>

struct sqlite3;

namespace devicehost
{

/// What the database copied off a device may cost, all in one place. An opening of a database of N bytes (main file and
/// write-ahead log together) ends within A + B x N units of work and hands out at most C + D x N bytes; what asks for
/// more is read in part, or refused, with a message. Counted, not timed: the same database gives the same result on
/// every machine.

/// What SQLite may spend on one connection.
struct Allowance {
    qint64 steps;          ///< instructions of SQLite's virtual machine
    qint64 pageBytes;      ///< bytes of database pages looked at, each time anew
    qint64 deliveredBytes; ///< bytes that rows hand to the library: its memory follows from that
};

/// For reading the schema, which is parsed at once and cannot be left half read.
constexpr Allowance schemaAllowance = {100'000, 1LL << 30, 64LL << 20};

/// For everything after that. Photo libraries of 50 to 1,000,000 photos need a sixteenth of it or less (see
/// docs/reliability.md); joins without indices, forged trees that repeat a page, or one long value that a million rows
/// share need thousands of times as much.
constexpr Allowance readingAllowance(qint64 databaseBytes)
{
    return {(16LL << 20) + 4 * databaseBytes, (256LL << 20) + 64 * databaseBytes, (16LL << 20) + 8 * databaseBytes};
}

/// Steps between two looks at what was spent and at the stop request: some microseconds of ordinary statements, and
/// well within a second of values of the greatest length.
constexpr int stepsBetweenLooks = 250;

/// What a statement costs at least, however few rows it gives: making it is work, too.
constexpr qint64 stepsOfAStatement = 500;

/// SQLite's planner looks at every index of a table. Photo libraries have up to 113 on one.
constexpr int mostIndicesOfATable = 1000;

/// Bytes of one database file of a device. The copy ends there, so that a device cannot fill the local disk without
/// end. A library of a million photos takes less than 4 GiB.
constexpr qint64 largestDatabaseFile = 16LL << 30;

/// Switches off everything in SQLite that a database from a stranger could use against the program that reads it, and
/// sets the limits for reading the schema. Called before anything of the file is read. An SQLite result code.
int harden(sqlite3 *db);

/// Sets the limits for the library's own statements. Called when the schema was read.
void allowStatements(sqlite3 *db);

} // namespace devicehost

#endif
