#ifndef APPS_BROWSER_EXPORTING_CHOICES_PAGE_H
#define APPS_BROWSER_EXPORTING_CHOICES_PAGE_H

#include "apps/browser/exporting/destination_check.h"
#include "apps/browser/exporting/export_choices.h"
#include "photolib/photo_item.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace browser
{

/// Where and how to export.
class ChoicesPage : public QWidget
{
    Q_OBJECT

public:
    /// `example`: a photo that is exported. `bytes`: of all photos, by the library; 0 when not known.
    ChoicesPage(const QString &deviceName, photoItem example, qint64 bytes, QWidget *parent = nullptr);

    ExportChoices choices() const;
    void setChoices(const ExportChoices &choices, const QStringList &recentDestinations);

    /// How many photos of the library are left out though everything seems to be exported; 0 says nothing.
    void setLeftOut(int count);

    /// Whether an export with these choices can begin. False, too, until the destination was looked at.
    bool isValid() const { return layoutIsValid && destinationIsValid; }

    /// Of the destination; -1 when not known.
    qint64 freeBytes() const { return freeAtDestination; }

Q_SIGNALS:
    void validityChanged();

private:
    void addDestination(QFormLayout *form);
    void addLayoutChoice(QFormLayout *form);
    void addFurtherChoices(QFormLayout *form);
    void chooseDestination();
    void destinationEdited();
    void destinationChecked(const DestinationState &state);
    void layoutChosen();
    void layoutEdited();
    void showDestinationNote(const DestinationState &state);

    const photoItem example;
    const qint64 bytes;
    qint64 freeAtDestination = -1;
    bool layoutIsValid = false;
    bool destinationIsValid = false;

    QComboBox *const destination;
    QLabel *const destinationNote;
    QLabel *const leftOutNote;
    QComboBox *const layouts;
    QLineEdit *const ownLayout;
    QLabel *const layoutNote;
    QCheckBox *const edited;
    QCheckBox *const albums;
    DestinationChecker *const checker;
};

} // namespace browser

#endif
