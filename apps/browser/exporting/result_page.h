#ifndef APPS_BROWSER_EXPORTING_RESULT_PAGE_H
#define APPS_BROWSER_EXPORTING_RESULT_PAGE_H

#include "apps/browser/exporting/problem_model.h"

#include <QWidget>

class QLabel;
class QTableView;

namespace browser
{

/// What an export would do, or has done, and what people should know of it.
class ResultPage : public QWidget
{
    Q_OBJECT

public:
    explicit ResultPage(QWidget *parent = nullptr);

    /// `title` stands above the counts, `note` below them; both may be empty.
    void showResult(const std::shared_ptr<const ExportResult> &result, const QString &title, const QString &note);
    QString text() const;

private:
    void copyProblems() const;
    void saveProblems();

    QLabel *const title;
    QLabel *const counts;
    QLabel *const note;
    QWidget *const problems;
    QTableView *const table;
    QLabel *const further;
    ProblemModel *const model;
};

} // namespace browser

#endif
