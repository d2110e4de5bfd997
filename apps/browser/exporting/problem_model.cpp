#include "apps/browser/exporting/problem_model.h"

namespace browser
{

namespace
{

QString csvCell(QString text)
{
    text.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

void ProblemModel::setResult(std::shared_ptr<const ExportResult> newResult)
{
    beginResetModel();
    result = std::move(newResult);
    endResetModel();
}

int ProblemModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || result == nullptr ? 0 : static_cast<int>(result->problems.size());
}

int ProblemModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString ProblemModel::cell(int row, int column) const
{
    const ExportProblem &problem = result->problems[static_cast<std::size_t>(row)];
    switch (column) {
    case KindColumn:
        switch (problem.kind) {
        case ExportProblem::Kind::Failed:
            return tr("Failed");
        case ExportProblem::Kind::OnlyInCloud:
            return result->wasBackup ? tr("In the cloud") : tr("Only in the cloud");
        case ExportProblem::Kind::NotThere:
            return tr("Missing");
        case ExportProblem::Kind::Note:
            return tr("Note");
        }
        return {};
    case FileColumn:
        return problem.file;
    default:
        if (problem.kind == ExportProblem::Kind::OnlyInCloud)
            return tr("open it on the device once, so that it is downloaded, and export it again");
        if (problem.kind == ExportProblem::Kind::NotThere)
            return result->wasBackup ? tr("this backup does not hold it") : tr("the device does not hold it");
        return problem.text;
    }
}

QVariant ProblemModel::data(const QModelIndex &index, int role) const
{
    const bool isText = role == Qt::DisplayRole || role == Qt::ToolTipRole || role == Qt::AccessibleTextRole;
    return index.isValid() && isText ? QVariant(cell(index.row(), index.column())) : QVariant();
}

QVariant ProblemModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case KindColumn:
        return tr("What");
    case FileColumn:
        return tr("File on the device");
    default:
        return tr("Why");
    }
}

QString ProblemModel::asText() const
{
    QString text;
    for (int row = 0; row < rowCount(); ++row)
        text += cell(row, KindColumn) + QLatin1Char('\t') + cell(row, FileColumn) + QLatin1Char('\t') +
                cell(row, TextColumn) + QLatin1Char('\n');
    return text;
}

QByteArray ProblemModel::asCsv() const
{
    QString text;
    for (int row = -1; row < rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < ColumnCount; ++column)
            cells += csvCell(row < 0 ? headerData(column, Qt::Horizontal).toString() : cell(row, column));
        text += cells.join(QLatin1Char(',')) + QStringLiteral("\r\n");
    }
    return text.toUtf8();
}

} // namespace browser
