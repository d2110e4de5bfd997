#include "apps/cli/commands/commands.h"
#include "apps/cli/commands/listing.h"
#include "apps/cli/device_place.h"
#include "apps/cli/messages.h"
#include "apps/cli/output/output_file.h"
#include "apps/cli/output/text.h"
#include "apps/cli/picture.h"
#include "apps/cli/selection/photo_lookup.h"

#include <CLI/CLI.hpp>

#include <unistd.h>

namespace photocli
{

namespace
{

struct ThumbnailOptions : DeviceOptions {
    std::string id;
    std::string file;
    bool png = false;
    bool force = false;

    Existing existing() const { return force ? Existing::Replace : Existing::Keep; }
};

qint64 photoNamed(photo_manager_int &library, const QString &name)
{
    const QList<qint64> ids = photosNamed(library, name);
    if (ids.isEmpty())
        throw Failure{ExitSomeFailed, noSuchPhoto(name)};
    if (ids.size() > 1)
        throw Failure{ExitSomeFailed,
                      QStringLiteral("%1 photos have the UUID %2; give the id of one, such as %3")
                          .arg(QString::number(ids.size()), quoted(name), QString::number(ids.first()))};
    return ids.first();
}

QByteArray thumbnailOf(LibrarySession &session, qint64 id)
{
    QByteArray picture;
    const int result = session.library().getThumbnail(&id, &picture);
    endIfInterrupted();
    if (result == 0 && !picture.isEmpty())
        return picture;
    if (!session.device().isAvailable()) {
        endIfInterrupted(); // which ends what is asked of the device, too
        throw Failure{ExitDeviceUnreachable, QStringLiteral("%1: the device cannot be reached any more; connect it "
                                                            "again and try again")
                                                 .arg(session.deviceName())};
    }
    session.noteOnMissingFiles();
    photoItem photo;
    session.library().getPhotoItem(&id, &photo);
    throw Failure{
        ExitSomeFailed,
        QStringLiteral("photo %1 (%2) has no thumbnail on the device; if it was added just now, look at it on "
                       "the device, then connect or copy the device again; \"photolib export\" copies the "
                       "photo itself")
            .arg(QString::number(id), quoted(photo.fileName))};
}

QByteArray asPng(const QByteArray &picture)
{
    const QByteArray png = converted(picture, PictureFormat::Png);
    if (png.isEmpty())
        throw Failure{ExitSomeFailed, QStringLiteral("the thumbnail cannot be decoded and so not be converted; leave "
                                                     "out --png to get its bytes as the device has them")};
    return png;
}

QString description(const QByteArray &picture)
{
    const QSize size = sizeOf(picture);
    const QString pixels =
        size.isValid() ? QStringLiteral(", %1x%2 pixels").arg(size.width()).arg(size.height()) : QString();
    return formatName(formatOf(picture)) + pixels + QStringLiteral(", ") + humanSize(picture.size());
}

void write(const ThumbnailOptions &options, const QByteArray &picture)
{
    const QString name = QString::fromStdString(options.file);
    OutputFile file(name, options.existing());
    file.out().write(picture);
    file.commit();
    if (file.isStandardOutput())
        return printNote(QStringLiteral("photolib: ") + description(picture));
    Output report;
    report.write(harmless(QStringLiteral("%1: %2").arg(name, description(picture))) + QChar('\n'));
    report.finish();
}

ExitCode runThumbnail(const ThumbnailOptions &options)
{
    const QString file = QString::fromStdString(options.file);
    if (file == QChar('-') && ::isatty(STDOUT_FILENO) == 1)
        throw Failure{ExitUsage, QStringLiteral("a picture is nothing for a terminal; name a file with -o, or send "
                                                "standard output to one")};
    OutputFile::check(file, options.existing());
    LibrarySession session(options);
    refuseToWriteToDevice(file, session.deviceName());
    const qint64 id = photoNamed(session.library(), QString::fromStdString(options.id));
    const QByteArray picture = thumbnailOf(session, id);
    write(options, options.png ? asPng(picture) : picture);
    endIfInterrupted();
    return session.status();
}

} // namespace

void addThumbnailCommand(CLI::App &app, Action &action)
{
    const auto options = std::make_shared<ThumbnailOptions>();
    CLI::App *command = app.add_subcommand("thumbnail", "Write the device's small picture of one photo to a file");
    addDeviceOptions(*command, *options);
    command->add_option("ID", options->id, "Id number or UUID of the photo")->required()->type_name("");
    command->add_option("-o,--output", options->file, "The file to write, or - for standard output")
        ->required()
        ->type_name("FILE");
    command->add_flag("--png", options->png, "Convert to PNG; otherwise JPEG or BMP, as the device has it");
    command->add_flag("--force", options->force, "Replace FILE when it is there");
    command->callback([options, &action] { action = [options] { return runThumbnail(*options); }; });
}

} // namespace photocli
