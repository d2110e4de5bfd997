#ifndef EXPORTER_RUN_H
#define EXPORTER_RUN_H

#include "exporter/exporter.h"
#include "exporter/file_operations.h"
#include "exporter/verify.h"

namespace exporter
{

/// run() and verify() on system calls of the caller's choice. For tests.
RunOutcome runWith(FileOperations &files, photo_manager_int &manager, IIPod &device, const QList<qint64> &ids,
                   const ExportOptions &options, ExportObserver &observer);
VerifyOutcome verifyWith(FileOperations &files, const QString &destination, VerifyObserver &observer);

} // namespace exporter

#endif
