#ifndef TESTS_CLI_WRITTEN_H
#define TESTS_CLI_WRITTEN_H

#include "apps/cli/output/output.h"

#include <QTemporaryFile>

#include <functional>

namespace photocli
{

/// What `write` puts into an Output.
inline QByteArray written(const std::function<void(Output &)> &write)
{
    QTemporaryFile file;
    if (!file.open())
        return "no temporary file";
    Output out(file.handle());
    write(out);
    out.finish();
    file.seek(0);
    return file.readAll();
}

} // namespace photocli

#endif
