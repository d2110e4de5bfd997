#include "apps/browser/exporting/reading_window.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QProgressDialog>

namespace browser
{

namespace
{

constexpr int quickEnough = 400; // milliseconds: what takes less shows no window
constexpr int steps = 1000;      // of one photo

class DragTexts
{
    Q_DECLARE_TR_FUNCTIONS(browser::DragFiles)

public:
    static QString title() { return tr("Copy photos"); }

    static QString tooMany()
    {
        return tr("More than %Ln photo(s) are better exported. Choose Export instead of dragging or copying them.",
                  nullptr, mostDraggedPhotos);
    }

    static QString failure(const DragCopies &copies)
    {
        if (copies.failure == CopyEnd::NoRoom)
            return tr("There is not enough room for temporary files on this computer. Choose Export instead, with a "
                      "folder on another disk.");
        return tr("%Ln photo(s) could not be read from the device and are missing. Choose Export to see why.", nullptr,
                  copies.failures);
    }

    static QString reading(int count) { return tr("Reading %Ln photo(s) from the device…", nullptr, count); }
    static QString cancel() { return tr("Cancel"); }
};

void tell(const QString &text, QWidget *parent)
{
    auto *box = new QMessageBox(QMessageBox::Information, DragTexts::title(), text, QMessageBox::Ok, parent);
    box->setObjectName(QStringLiteral("dragMessage"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::NonModal);
    box->show();
}

} // namespace

QProgressDialog *makeReadingWindow(DragCopy &copy, int count, QWidget *parent)
{
    auto *const window = new QProgressDialog(DragTexts::reading(count), DragTexts::cancel(), 0, count * steps, parent);
    window->setObjectName(QStringLiteral("dragProgress"));
    window->setWindowModality(Qt::NonModal);
    window->setMinimumDuration(quickEnough);
    window->setAutoClose(false);
    window->setAutoReset(false);
    QObject::connect(&copy, &DragCopy::progress, window,
                     [window](int done, int part) { window->setValue(done * steps + part); });
    return window;
}

bool refusesSoMany(int count, QWidget *parent)
{
    if (count > mostDraggedPhotos)
        tell(DragTexts::tooMany(), parent);
    return count > mostDraggedPhotos;
}

void tellFailures(const DragCopies &copies, QWidget *parent)
{
    if (copies.failures > 0)
        tell(DragTexts::failure(copies), parent);
}

} // namespace browser
