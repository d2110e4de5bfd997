#include "fuzz/require.h"

#include <cstdio>
#include <cstdlib>

namespace fuzz
{

void require(bool condition, const char *what)
{
    if (condition)
        return;
    std::fprintf(stderr, "requirement broken: %s\n", what);
    std::abort();
}

} // namespace fuzz
