#include "apps/cli/output/output.h"

#include "apps/cli/failure.h"
#include "apps/cli/interrupt.h"
#include "apps/cli/output/descriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unistd.h>
#include <utility>

namespace photocli
{

Output::Output(int descriptor, QString name)
    : fd(descriptor), title(std::move(name)), terminal(::isatty(descriptor) == 1),
      buffer(std::make_unique<char[]>(capacity))
{
}

void Output::write(const QByteArray &bytes)
{
    const char *at = bytes.constData();
    auto left = static_cast<size_t>(bytes.size());
    while (left > 0) {
        if (used == capacity)
            flush();
        const size_t part = std::min(left, capacity - used);
        std::memcpy(buffer.get() + used, at, part);
        used += part;
        at += part;
        left -= part;
    }
}

void Output::flush()
{
    if (error == 0)
        error = writeAll(fd, buffer.get(), used);
    used = 0;
}

bool Output::wanted() const
{
    return error == 0 && !interruptRequested();
}

void Output::finish()
{
    flush();
    if (error != 0 && error != EPIPE && error != EINTR)
        throw Failure{ExitOutputFailed, QStringLiteral("%1 cannot be written: %2; free some space or "
                                                       "write to another place")
                                            .arg(title, QString::fromLocal8Bit(std::strerror(error)))};
}

} // namespace photocli
