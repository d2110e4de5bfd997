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
    int latencyMegabytes = 100;
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

void measure(const Way &way, const testkit::SimulatedPhone &phone, bool tls, int latency, int megabytes, int repeat)
{
    const qint64 size = megabytes * megabyte;
    const std::string path = "/DCIM/" + std::to_string(megabytes) + ".MOV";
    std::vector<double> rates;
    std::vector<double> readers;
    std::vector<double> phones;
    const std::unique_ptr<Reader> reader = way.make();
    for (int run = 0; run < repeat; ++run) {
        const Pass pass = readFile(*reader, phone, path, size, way.requestSize);
        const double gigabytes = static_cast<double>(size) / 1e9;
        rates.push_back(gigabytes * 1000 / pass.elapsed);
        readers.push_back(pass.readersProcessor / gigabytes);
        phones.push_back(pass.phonesProcessor / gigabytes);
    }
    std::printf("| %s | %d | %d | %s | %.0f | %.0f to %.0f | %.2f | %.2f |\n", tls ? "TLS" : "plain", latency,
                megabytes, way.name, median(rates), *std::min_element(rates.begin(), rates.end()),
                *std::max_element(rates.begin(), rates.end()), median(readers), median(phones));
    std::fflush(stdout);
}

void measureAll(const Settings &settings, const QString &root)
{
    std::printf("| | latency, ms | file, MB | way | MB/s | least to most | reader, s/GB | phone, s/GB |\n"
                "| --- | ---: | ---: | --- | ---: | --- | ---: | ---: |\n");
    std::set<std::string> missing;
    for (const bool tls : {false, true}) {
        testkit::SimulatedPhoneOptions options;
        options.tls = tls;
        testkit::SimulatedPhone phone(root, options);
        phone.useHere();
        for (const int latency : settings.latencies) {
            phone.command("slow latency=" + QByteArray::number(latency));
            const auto sizes = latency == 0 ? settings.megabytes : std::vector<int>{settings.latencyMegabytes};
            for (const int megabytes : sizes) {
                for (const Way &way : ways()) {
                    if (!settings.only.empty() && std::none_of(settings.only.begin(), settings.only.end(),
                                                               [&](const auto &name) { return name == way.name; }))
                        continue;
                    try {
                        measure(way, phone, tls, latency, megabytes, settings.repeat);
                    } catch (const std::runtime_error &error) {
                        missing.insert(std::string(way.name) + ": " + error.what());
                    }
                }
            }
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
    app.add_option("--latency-megabytes", settings.latencyMegabytes, "size of the file with latency")
        ->capture_default_str();
    app.add_option("--repeat", settings.repeat, "runs, of which the median counts")->check(CLI::PositiveNumber);
    app.add_option("--only", settings.only, "names of ways");
    CLI11_PARSE(app, argc, argv);

    try {
        const QTemporaryDir root;
        QDir(root.path()).mkpath(QStringLiteral("DCIM"));
        std::set<int> sizes(settings.megabytes.begin(), settings.megabytes.end());
        sizes.insert(settings.latencyMegabytes);
        for (const int megabytes : sizes)
            makeFile(root.filePath(QStringLiteral("DCIM/%1.MOV").arg(megabytes)), megabytes * megabyte);
        measureAll(settings, root.path());
    } catch (const std::runtime_error &error) {
        std::fprintf(stderr, "bench_afc: %s\n", error.what());
        return 1;
    }
    return 0;
}
