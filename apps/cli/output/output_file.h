#ifndef APPS_CLI_OUTPUT_OUTPUT_FILE_H
#define APPS_CLI_OUTPUT_OUTPUT_FILE_H

#include "apps/cli/output/output.h"

#include <QString>

#include <memory>

namespace photocli
{

/// What becomes of a file that bears the name already.
enum class Existing { Keep, Replace };

/// A file that appears under its name only when it is complete: until then it bears a name of its own in the same
/// folder, and goes when the object goes. "-" stands for standard output; what is no regular file, such as a pipe or
/// a device, is written to directly. Used by one thread.
class OutputFile
{
public:
    /// Throws a Failure that says what is in the way when the file cannot be written, or is there and to be kept.
    /// Writes nothing: to be called before work that takes long.
    static void check(const QString &name, Existing existing);

    /// As check(), and begins the file.
    OutputFile(const QString &name, Existing existing);
    ~OutputFile();
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    Output &out() { return *output; }
    bool isStandardOutput() const { return target.isEmpty(); }

    /// Ends the file, brings it safely to the disk and gives it its name. Throws a Failure when that fails.
    void commit();

private:
    void begin();
    void takeName();

    QByteArray target;    ///< empty: standard output
    QByteArray temporary; ///< empty: the target is written to directly
    QString title;
    Existing existing;
    int descriptor = -1;
    std::unique_ptr<Output> output;
};

} // namespace photocli

#endif
