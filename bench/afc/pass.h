#ifndef BENCH_AFC_PASS_H
#define BENCH_AFC_PASS_H

#include "bench/afc/reader.h"

#include "testing/simulated_phone.h"

namespace bench
{

/// What it took to read one file from its opening to its closing. Seconds.
struct Pass {
    double elapsed = 0;
    double readersProcessor = 0; ///< of this process and the reader's helper
    double phonesProcessor = 0;
};

/// Makes a file in which every block says where it lies.
void makeFile(const QString &path, qint64 size);

/// Reads the file in requests of `requestSize` bytes. Throws std::runtime_error when the bytes are not those of
/// makeFile(), or did not come from the phone.
Pass readFile(Reader &reader, const testkit::SimulatedPhone &phone, const std::string &path, qint64 size,
              qint64 requestSize);

} // namespace bench

#endif
