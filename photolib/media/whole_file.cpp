#include "photolib/media/whole_file.h"

#include "photolib/host/handles.h"

#include <sys/mman.h>

#include <cstdint>

namespace photolib
{

namespace
{

// A new array is memory that the system clears when it is first written to. In large pages that takes half the time;
// below this size there is none, or one, in it.
constexpr int worthLargePages = 4 * 1024 * 1024;

void preferLargePages(QByteArray *array)
{
    if (array->size() < worthLargePages)
        return;
    constexpr std::uintptr_t page = 4096;
    const auto begin = reinterpret_cast<std::uintptr_t>(array->data());
    const std::uintptr_t first = (begin + page - 1) / page * page;
    const std::uintptr_t last = (begin + static_cast<std::uintptr_t>(array->size())) / page * page;
    // Where the system has no large pages, or larger small ones, everything is as without it.
    ::madvise(reinterpret_cast<void *>(first), last - first, MADV_HUGEPAGE);
}

} // namespace

bool readWholeFile(VFile *file, QByteArray *out)
{
    vFileSeek(file, 0, fromEnd);
    const qint64 size = vFileTell(file);
    if (size < 0 || size > largestByteArray)
        return false;
    QByteArray content(static_cast<int>(size), Qt::Uninitialized);
    preferLargePages(&content);
    vFileSeek(file, 0, fromStart);
    if (vFileRead(file, content.data(), content.size()) != content.size())
        return false;
    *out = content;
    return true;
}

} // namespace photolib
