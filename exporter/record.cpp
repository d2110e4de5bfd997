// Opening the record: made, checked, or copied.
#include "exporter/record.h"

#include "exporter/errors.h"
#include "exporter/record_statements.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <vector>

namespace exporter
{

namespace
{

constexpr qint64 applicationId = 0x70684578; // "phEx"
constexpr qint64 formatVersion = 1;

// Numbers of files are never given again: links in album folders are tied to them, also to those of files that are
// gone.
const char *const schema = R"(
    BEGIN;
    CREATE TABLE fileset(
        id INTEGER PRIMARY KEY, photo TEXT NOT NULL, stem_path TEXT NOT NULL, folded TEXT NOT NULL UNIQUE);
    CREATE INDEX fileset_photo ON fileset(photo);
    CREATE TABLE file(
        id INTEGER PRIMARY KEY AUTOINCREMENT, fileset INTEGER NOT NULL REFERENCES fileset(id), uuid BLOB NOT NULL,
        role INTEGER NOT NULL, device_path TEXT NOT NULL, size INTEGER NOT NULL, sha256 BLOB NOT NULL,
        modified INTEGER, path TEXT NOT NULL, folded TEXT NOT NULL UNIQUE, mtime_ns INTEGER NOT NULL,
        state TEXT NOT NULL CHECK(state IN ('intent', 'done')));
    CREATE INDEX file_fileset ON file(fileset);
    CREATE INDEX file_intent ON file(id) WHERE state = 'intent';
    CREATE TABLE album(
        id INTEGER PRIMARY KEY, album TEXT NOT NULL UNIQUE, title TEXT NOT NULL, folder TEXT NOT NULL,
        folded TEXT NOT NULL UNIQUE);
    CREATE TABLE entry(
        id INTEGER PRIMARY KEY, album INTEGER NOT NULL REFERENCES album(id), file INTEGER NOT NULL, path TEXT NOT NULL,
        folded TEXT NOT NULL UNIQUE, size INTEGER NOT NULL, mtime_ns INTEGER NOT NULL,
        state TEXT NOT NULL CHECK(state IN ('intent', 'done')));
    CREATE INDEX entry_album ON entry(album);
    PRAGMA application_id = 1885881720;
    PRAGMA user_version = 1;
    COMMIT;
)";

const char *const companions[] = {"-wal", "-shm", "-journal"};

QString path(const Destination &destination, const QString &name)
{
    return destination.rootPath() + QLatin1Char('/') + name;
}

qint64 pragma(Sql &sql, const char *text)
{
    Statement statement(sql, text);
    return statement.step() ? statement.integer(0) : 0;
}

void createAt(const QString &file)
{
    Sql fresh(file, Sql::Mode::Create);
    fresh.exec("PRAGMA journal_mode = MEMORY; PRAGMA synchronous = FULL");
    fresh.exec(schema);
}

// The new record appears complete or not at all, so that an empty one is never a beginning, always a damage.
void createIn(Destination &destination)
{
    for (const char *companion : companions)
        destination.remove(Record::fileName() + QLatin1String(companion));
    const QByteArray name = destination.temporaryName();
    bool published = false;
    try {
        createAt(path(destination, QString::fromLatin1(name)));
        published = destination.publish(name, Record::fileName());
    } catch (...) {
        destination.operations().unlinkAt(destination.rootFd(), name.constData(), 0);
        throw;
    }
    if (!published) {
        destination.operations().unlinkAt(destination.rootFd(), name.constData(), 0);
        throw RunEnded(
            RunEnd::DestinationRefused,
            QStringLiteral("Another program is writing to %1 at the same time.").arg(destination.rootPath()));
    }
    destination.syncFolder(QString());
}

void copyOut(Destination &destination, const QString &name, const QString &target)
{
    const UniqueFd source = destination.openForReading(name);
    QFile copy(target);
    bool good = copy.open(QIODevice::WriteOnly);
    std::vector<char> block(1024 * 1024);
    while (good) {
        const ssize_t count = destination.operations().read(source.get(), block.data(), block.size());
        if (count < 0)
            throwDestinationError(errno, name);
        if (count == 0)
            break;
        good = copy.write(block.data(), count) == count;
    }
    copy.close();
    if (!good || copy.error() != QFile::NoError)
        throw RunEnded(RunEnd::DestinationRefused,
                       QStringLiteral("The record cannot be copied to the folder for temporary files: %1.")
                           .arg(copy.errorString()));
}

} // namespace

Record::Record(Destination &destination, RecordUse use)
{
    static_assert(applicationId == 1885881720, "written into the schema");
    const auto found = destination.exists() ? destination.stat(fileName()) : std::nullopt;
    if (found && !found->regular)
        throwRecordUnusable(QStringLiteral("is not a plain file"));
    if (found && found->size == 0)
        throwRecordUnusable(QStringLiteral("is empty"));
    if (!found && use == RecordUse::ReadOnly)
        throw RunEnded(RunEnd::DestinationRefused,
                       QStringLiteral("Nothing was exported to this folder yet: there is no "
                                      "record (%1) in it.")
                           .arg(fileName()));
    if (!found && use == RecordUse::Keep)
        createIn(destination);
    if (use == RecordUse::Keep)
        openKept(destination);
    else
        openCopy(destination, found.has_value());
    statements = std::make_unique<Statements>(*sql);
}

Record::~Record() = default;

void Record::openKept(Destination &destination)
{
    for (const char *companion : companions) {
        const auto found = destination.stat(fileName() + QLatin1String(companion));
        if (found && !found->regular)
            throwRecordUnusable(QStringLiteral("has a companion (%1) that is not a plain file")
                                    .arg(fileName() + QLatin1String(companion)));
    }
    sql = std::make_unique<Sql>(path(destination, fileName()), Sql::Mode::Open);
    // Exclusive: the log then needs no memory shared with others, which network file systems do not have.
    sql->exec("PRAGMA locking_mode = EXCLUSIVE");
    check(); // before the first change of a file that may be somebody else's
    sql->exec("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL");
}

void Record::openCopy(Destination &destination, bool exists)
{
    privateFolder = std::make_unique<QTemporaryDir>();
    if (!privateFolder->isValid())
        throw RunEnded(
            RunEnd::DestinationRefused,
            QStringLiteral("No folder for temporary files can be made: %1.").arg(privateFolder->errorString()));
    const QString copy = QFileInfo(privateFolder->path()).canonicalFilePath() + QStringLiteral("/record.sqlite");
    if (!exists) {
        createAt(copy);
    } else {
        copyOut(destination, fileName(), copy);
        const QString log = fileName() + QLatin1String("-wal");
        if (destination.stat(log))
            copyOut(destination, log, copy + QLatin1String("-wal"));
    }
    sql = std::make_unique<Sql>(copy, Sql::Mode::Open);
    sql->exec("PRAGMA locking_mode = EXCLUSIVE; PRAGMA synchronous = OFF");
    check();
}

void Record::check()
{
    if (pragma(*sql, "PRAGMA application_id") != applicationId)
        throwRecordUnusable(QStringLiteral("is not a record of an export"));
    if (pragma(*sql, "PRAGMA user_version") != formatVersion)
        throwRecordUnusable(QStringLiteral("was written by a newer version of this program; better use that version"));
    Statement test(*sql, "PRAGMA quick_check(1)");
    if (!test.step() || test.text(0) != QLatin1String("ok"))
        throwRecordUnusable(QStringLiteral("is damaged (%1)").arg(test.text(0)));
}

} // namespace exporter
