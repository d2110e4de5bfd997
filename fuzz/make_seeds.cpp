// Writes the inputs that fuzzing begins with: fuzz_seeds FOLDER makes FOLDER/TARGET/NAME. They are made, not
// collected: small libraries of every release, and bytes for the targets that build their own data.

#include "fuzz/require.h"
#include "fuzz/small_library.h"
#include "testing/backup_builder.h"
#include "testing/backup_plists.h"
#include "testing/era.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>

namespace
{

class Seeds
{
public:
    explicit Seeds(const QString &folder) : root(folder) {}

    void add(const QString &target, const QString &name, const QByteArray &content) const
    {
        QDir().mkpath(root.filePath(target));
        QFile file(root.filePath(target + QLatin1Char('/') + name));
        fuzz::require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(),
                      "the folder for seeds can be written to");
    }

private:
    QDir root;
};

// The same on every run and every machine.
QByteArray noise(int size, std::uint32_t seed)
{
    QByteArray bytes(size, '\0');
    for (char &byte : bytes) {
        seed = seed * 1664525u + 1013904223u;
        byte = static_cast<char>(seed >> 24);
    }
    return bytes;
}

void addLibraries(const Seeds &seeds)
{
    for (const testkit::Era era : testkit::allEras()) {
        const QString name = QString::fromLatin1(testkit::factsOf(era).name);
        seeds.add(QStringLiteral("database"), name, fuzz::smallLibrary(era).database);
    }
    const fuzz::SmallLibrary library = fuzz::smallLibrary(testkit::Era::Ios16);
    seeds.add(QStringLiteral("wal"), QStringLiteral("mended"), QByteArray(1, '\0') + library.wal);
    seeds.add(QStringLiteral("wal"), QStringLiteral("as_it_stands"), QByteArray(1, '\1') + library.wal);
}

void addMarkers(const Seeds &seeds)
{
    const QByteArray head = QByteArray(1, '\0') + // as it stands
                            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                            "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                            "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">\n";
    seeds.add(QStringLiteral("marker"), QStringLiteral("usual"),
              head + "<dict>\n\t<key>libraryUUID</key>\n\t<string>B0000000-0000-4000-8000-000000000001</string>\n"
                     "</dict>\n</plist>\n");
    seeds.add(QStringLiteral("marker"), QStringLiteral("other_types"),
              head + "<dict><key>a</key><array><integer>-1</integer><real>1e9</real><true/><date>2020-01-01T00:00:00Z"
                     "</date><data>QUJD</data></array><key>libraryUUID</key><string>&lt;&#x41;&amp;<![CDATA[]]>"
                     "</string><!-- c --></dict></plist>");
}

/// The first byte says what the others are: see backup_fuzz.cpp.
void addBackups(const Seeds &seeds)
{
    const QTemporaryDir folder;
    const auto add = [&seeds](char what, const char *name, const QByteArray &content) {
        seeds.add(QStringLiteral("backup"), QString::fromLatin1(name), what + content);
    };
    for (const char what : {'\0', '\1'}) {
        testkit::BackupOptions options;
        options.pageSize = 512;
        options.password = what == 0 ? "" : "fuzz";
        testkit::BackupBuilder builder(folder.path(), options);
        builder.addFile("/DCIM/100APPLE/IMG_0001.JPG", "a photo");
        builder.addFile("/PhotoData/Photos.sqlite", QByteArray(100, 'd'));
        builder.write();
        add(what, what == 0 ? "plain_manifest" : "locked_manifest", builder.plainManifest());
    }
    const QByteArray bag = testkit::BackupKeyBag("fuzz", {}).bytes();
    const QByteArray key = testkit::BackupKeyBag::wrapped(testkit::madeUpKey("manifest"), 4);
    add('\2', "manifest_plist", testkit::manifestPlist(bag, key));
    add('\3', "key_bag", bag);
    add('\3', "old_key_bag", testkit::BackupKeyBag("fuzz", {3, 0}).bytes());
    const QByteArray fileKey =
        testkit::BackupKeyBag::wrapped(testkit::madeUpKey("/DCIM/100APPLE/IMG_0001.JPG"), 1 + 27 % 4);
    add('\4', "file_record", testkit::fileRecordPlist(7, 1 + 27 % 4, fileKey));
    add('\5', "info_plist", testkit::infoPlist(QStringLiteral("phone")));
    add('\5', "status_plist", testkit::statusPlist("finished"));
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: fuzz_seeds FOLDER\n");
        return 2;
    }
    const Seeds seeds(QFile::decodeName(argv[1]));
    addLibraries(seeds);
    addMarkers(seeds);
    addBackups(seeds);
    for (const char *target : {"schema", "marker", "container", "frame", "export_name"}) {
        seeds.add(QString::fromLatin1(target), QStringLiteral("zeros"), QByteArray(64, '\0'));
        for (int i = 0; i < 6; ++i)
            seeds.add(QString::fromLatin1(target), QStringLiteral("noise_%1").arg(i),
                      noise(32 << i, static_cast<std::uint32_t>(i) + 1));
    }
    return 0;
}
