// Runs a fuzz target over files that are there already, for compilers without a fuzzer: the kept inputs are tests.
// Arguments: files and folders of files. Fails when there is none, since that would test nothing.

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <cstdio>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int *argc, char ***argv);

namespace
{

QStringList inputsOf(const QString &path)
{
    if (!QFileInfo(path).isDir())
        return {path};
    QStringList files;
    for (QDirIterator entry(path, QDir::Files); entry.hasNext();)
        files.append(entry.next());
    files.sort();
    return files;
}

bool replay(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s cannot be read\n", qUtf8Printable(path));
        return false;
    }
    const QByteArray content = file.readAll();
    // A copy without the terminator that a byte array carries: a step behind the end is seen.
    const auto size = static_cast<std::size_t>(content.size());
    const std::unique_ptr<std::uint8_t[]> exact(new std::uint8_t[size]);
    std::copy(content.begin(), content.end(), exact.get());
    std::fprintf(stderr, "%s\n", qUtf8Printable(path)); // the last line before a crash names the input
    LLVMFuzzerTestOneInput(exact.get(), size);
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    if (LLVMFuzzerInitialize)
        LLVMFuzzerInitialize(&argc, &argv);
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        for (const QString &path : inputsOf(QFile::decodeName(argv[i]))) {
            if (!replay(path))
                return 1;
            ++count;
        }
    }
    std::printf("%d inputs\n", count);
    return count == 0 ? 1 : 0;
}
