#ifndef APPS_CLI_SAMPLE_RANDOM_H
#define APPS_CLI_SAMPLE_RANDOM_H

#include <QtGlobal>

namespace sample
{

/// SplitMix64: the same numbers from the same seed with every compiler and standard library, which the distributions
/// of <random> do not promise. Pictures must not change between builds.
class Random
{
public:
    explicit Random(quint64 seed) : state(seed * 0x9E3779B97F4A7C15ULL + 0x1234567ULL) {}

    quint64 next()
    {
        state += 0x9E3779B97F4A7C15ULL;
        quint64 z = state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }

    double unit() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }
    double between(double low, double high) { return low + (high - low) * unit(); }
    int below(int bound) { return static_cast<int>(next() % static_cast<quint64>(bound)); }
    bool chance(double probability) { return unit() < probability; }

private:
    quint64 state;
};

} // namespace sample

#endif
