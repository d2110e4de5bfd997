#ifndef FUZZ_REQUIRE_H
#define FUZZ_REQUIRE_H

namespace fuzz
{

/// What must hold for every input, however hostile: says `what` did not and ends the program, as a crash would, so
/// that the fuzzer keeps the input.
void require(bool condition, const char *what);

} // namespace fuzz

#endif
