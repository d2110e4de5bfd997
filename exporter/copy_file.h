#ifndef EXPORTER_COPY_FILE_H
#define EXPORTER_COPY_FILE_H

#include "exporter/asset_files.h"
#include "exporter/run_state.h"
#include "exporter/temp_file.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <optional>

namespace exporter
{

/// A complete file in the destination that has no name yet.
struct CopiedFile {
    std::unique_ptr<TempFile> temporary;
    qint64 size = 0;
    QByteArray sha256; ///< 32 bytes
    qint64 mtimeNs = 0;
};

/// Copies one file off the device, with its size checked and its SHA-256 taken on the way. Failures of the device are
/// tried again as the options say; the last one is thrown as DeviceProblem. Throws also FileProblem and RunEnded.
/// Whatever is thrown, no temporary file stays. `mtimeNs` is the time that the file gets.
CopiedFile copyFromDevice(DeviceSource &source, const AssetFile &file, std::optional<qint64> mtimeNs,
                          Destination &destination, RunState &state);

/// Copies a file of the destination with its time. Throws FileProblem when the content is not `sha256` any more.
CopiedFile copyInside(Destination &destination, const QString &path, const QByteArray &sha256, RunState &state);

/// SHA-256 of a file of the destination. `onBlock` is called after each block with its bytes, and may throw.
QByteArray hashOf(Destination &destination, const QString &path, const std::function<void(qint64)> &onBlock);

} // namespace exporter

#endif
