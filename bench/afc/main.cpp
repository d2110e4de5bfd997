/// Reads files of a simulated phone in several ways, and prints a table of rates and processor times.
#include "bench/afc/pass.h"
#include "bench/afc/reader.h"

#include <CLI/CLI.hpp>

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <set>
#include <stdexcept>
#include <vector>

namespace
{

using namespace bench;

struct Way {
    const char *name;
    std::function<std::unique_ptr<Reader>()> make;
    qint64 requestSize;
};

struct Settings {
    std::vector<int> megabytes{10, 100, 1000};
    std::vector<int> latencies{0, 1, 5};
    std::vector<int> latencyMegabytes{100, 1000};
    double seconds = 60;
    int repeat = 5;
    std::vector<std::string> only;
};

constexpr qint64 megabyte = 1000 * 1000;

std::vector<Way> ways()
{
    const QString udid = QString::fromUtf8(testkit::SimulatedPhone::defaultUdid());
    return {{"reference host", [udid] { return hostReader(udid); }, 4 << 20},
            {"afc_file_read 64 KiB", libraryReader, 64 << 10},
            {"afc_file_read 1 MiB", libraryReader, 1 << 20},
            {"ifuse", mountReader, 1 << 20},
            {"ceiling", ceilingReader, 1 << 20}};
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// What was measured of one way, over all runs.
struct Result {
    const Way *way;
    std::unique_ptr<Reader> reader;
    std::vector<double> rates;   ///< megabytes a second
    std::vector<double> readers; ///< processor seconds a gigabyte
    std::vector<double> phones;
    double seconds = 0; ///< that the passes took together
};

struct Conditions {
    bool tls;
    int latency;
    int megabytes;
};

void print(const Result &result, const Conditions &conditions)
{
    if (result.rates.empty())
        return;
    std::printf("| %s | %d | %d | %s | %zu | %.0f | %.0f to %.0f | %.2f | %.2f |\n", conditions.tls ? "TLS" : "plain",
                conditions.latency, conditions.megabytes, result.way->name, result.rates.size(), median(result.rates),
                *std::min_element(result.rates.begin(), result.rates.end()),
                *std::max_element(result.rates.begin(), result.rates.end()), median(result.readers),
                median(result.phones));
    std::fflush(stdout);
}

/// Runs take turns, so that what else the computer does meets all ways alike.
void measure(const std::vector<Way> &ways, const testkit::SimulatedPhone &phone, const Conditions &conditions,
             const Settings &settings, std::set<std::string> *missing)
{
    const qint64 size = conditions.megabytes * megabyte;
    const double gigabytes = static_cast<double>(size) / 1e9;
    const std::string path = "/DCIM/" + std::to_string(conditions.megabytes) + ".MOV";
    std::vector<Result> results;
    for (const Way &way : ways)
        results.push_back({&way, nullptr, {}, {}, {}, 0});
    for (int run = 0; run < settings.repeat; ++run) {
        for (Result &result : results) {
            if (result.seconds >= settings.seconds)
                continue;
            try {
                if (result.reader == nullptr)
                    result.reader = result.way->make();
                const Pass pass = readFile(*result.reader, phone, path, size, result.way->requestSize);
                result.seconds += pass.elapsed;
                result.rates.push_back(gigabytes * 1000 / pass.elapsed);
                result.readers.push_back(pass.readersProcessor / gigabytes);
                result.phones.push_back(pass.phonesProcessor / gigabytes);
            } catch (const std::runtime_error &error) {
                missing->insert(std::string(result.way->name) + ": " + error.what());
            }
        }
    }
    for (const Result &result : results)
        print(result, conditions);
}

void measureAll(const Settings &settings, const QString &root)
{
    std::vector<Way> wanted;
    for (const Way &way : ways()) {
        const auto &only = settings.only;
        if (only.empty() || std::find(only.begin(), only.end(), way.name) != only.end())
            wanted.push_back(way);
    }
    std::printf("| | latency, ms | file, MB | way | passes | MB/s | least to most | reader, s/GB | phone, s/GB |\n"
                "| --- | ---: | ---: | --- | ---: | ---: | --- | ---: | ---: |\n");
    std::set<std::string> missing;
    for (const bool tls : {false, true}) {
        testkit::SimulatedPhoneOptions options;
        options.tls = tls;
        testkit::SimulatedPhone phone(root, options);
        phone.useHere();
        for (const int latency : settings.latencies) {
            phone.command("slow latency=" + QByteArray::number(latency));
            for (const int megabytes : latency == 0 ? settings.megabytes : settings.latencyMegabytes)
                measure(wanted, phone, {tls, latency, megabytes}, settings, &missing);
        }
    }
    for (const std::string &text : missing)
        std::printf("\nNot measured: %s\n", text.c_str());
}

} // namespace

int main(int argc, char **argv)
{
    CLI::App app("Reads files of a simulated phone in several ways");
    Settings settings;
    app.add_option("--megabytes", settings.megabytes, "sizes of the files without latency")->capture_default_str();
    app.add_option("--latency", settings.latencies, "milliseconds a request")->capture_default_str();
    app.add_option("--latency-megabytes", settings.latencyMegabytes, "sizes of the files with latency")
        ->capture_default_str();
    app.add_option("--repeat", settings.repeat, "runs, of which the median counts")->check(CLI::PositiveNumber);
    app.add_option("--seconds", settings.seconds, "a way that took so long for a file is not repeated any more")
        ->capture_default_str();
    app.add_option("--only", settings.only, "names of ways");
    CLI11_PARSE(app, argc, argv);

    try {
        const QTemporaryDir root;
        QDir(root.path()).mkpath(QStringLiteral("DCIM"));
        std::set<int> sizes(settings.megabytes.begin(), settings.megabytes.end());
        sizes.insert(settings.latencyMegabytes.begin(), settings.latencyMegabytes.end());
        for (const int megabytes : sizes)
            makeFile(root.filePath(QStringLiteral("DCIM/%1.MOV").arg(megabytes)), megabytes * megabyte);
        measureAll(settings, root.path());
    } catch (const std::runtime_error &error) {
        std::fprintf(stderr, "bench_afc: %s\n", error.what());
        return 1;
    }
    return 0;
}
