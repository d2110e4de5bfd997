#ifndef APPS_BROWSER_EXPORTING_EXPORT_WINDOW_H
#define APPS_BROWSER_EXPORTING_EXPORT_WINDOW_H

#include "apps/browser/library/opened_library.h"

#include <QDialog>
#include <QVector>

namespace browser
{

/// Exports photos step by step: where and how, what would be done, progress, result. Not modal: the library can be
/// browsed meanwhile.
class ExportWindow : public QDialog
{
    Q_OBJECT

public:
    ExportWindow(std::shared_ptr<OpenedLibrary> library, const QVector<qint64> &ids, QWidget *parent = nullptr);
    ~ExportWindow() override;

    /// Whether an export is running; closing the window then asks first.
    bool isRunning() const;
    /// Ends a running export in good order, and waits for it: what is complete stays.
    void cancelAndWait();

private:
    const std::shared_ptr<OpenedLibrary> opened;
    const QVector<qint64> photos;
};

} // namespace browser

#endif
