#include "apps/browser/window/log_window.h"

#include "apps/browser/window/log_book.h"

#include <QBoxLayout>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSettings>
#include <QTimer>

namespace browser
{

namespace
{

constexpr std::chrono::milliseconds updateInterval{250};
const char sizeKey[] = "log/size";

} // namespace

LogWindow::LogWindow(LogBook &log, QWidget *parent) : QDialog(parent), book(log), text(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("logWindow"));
    setWindowTitle(tr("Log"));
    setAttribute(Qt::WA_DeleteOnClose);
    text->setObjectName(QStringLiteral("logText"));
    text->setAccessibleName(tr("Log"));
    text->setReadOnly(true);
    text->setMaximumBlockCount(LogBook::mostLines);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton *const copy = buttons->addButton(tr("&Copy All"), QDialogButtonBox::ActionRole);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(copy, &QPushButton::clicked, this, [this] { QGuiApplication::clipboard()->setText(text->toPlainText()); });
    auto *const timer = new QTimer(this); // many lines, few changes of the picture
    timer->setSingleShot(true);
    timer->setInterval(updateInterval);
    connect(&book, &LogBook::grown, timer, qOverload<>(&QTimer::start));
    connect(timer, &QTimer::timeout, this, &LogWindow::update);
    const QSize usual(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 26);
    resize(QSettings().value(QLatin1String(sizeKey), usual).toSize());
    update();
}

LogWindow::~LogWindow()
{
    QSettings().setValue(QLatin1String(sizeKey), size());
}

// What is there stays, with what a person has selected in it.
void LogWindow::update()
{
    const QStringList lines = book.linesAfter(&seen);
    if (lines.isEmpty())
        return;
    QScrollBar *const bar = text->verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    text->appendPlainText(lines.join(QLatin1Char('\n')));
    if (atEnd)
        bar->setValue(bar->maximum());
}

} // namespace browser
