#ifndef APPS_BROWSER_EXPORTING_PROBLEM_MODEL_H
#define APPS_BROWSER_EXPORTING_PROBLEM_MODEL_H

#include "apps/browser/exporting/export_job.h"

#include <QAbstractTableModel>

namespace browser
{

/// What people should read after an export: one row for each, in the order in which they came.
class ProblemModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { KindColumn, FileColumn, TextColumn, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void setResult(std::shared_ptr<const ExportResult> newResult);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /// All rows as text: cells separated by tabs, or by commas as RFC 4180 has it, with a header.
    QString asText() const;
    QByteArray asCsv() const;

private:
    QString cell(int row, int column) const;

    std::shared_ptr<const ExportResult> result;
};

} // namespace browser

#endif
