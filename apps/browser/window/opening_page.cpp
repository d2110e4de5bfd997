#include "apps/browser/window/opening_page.h"

#include "apps/browser/device/symbols.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>

namespace browser
{

namespace
{

constexpr int widest = 520; ///< of the column, in pixels of the desktop's scale

QLabel *makeLabel(const QString &name, double scale, QWidget *parent)
{
    auto *const label = new QLabel(parent);
    label->setObjectName(name);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    label->setFont(font);
    return label;
}

QPushButton *makeButton(const QString &name, const QString &text, QWidget *parent)
{
    auto *const button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setAutoDefault(true);
    button->setMinimumWidth(button->fontMetrics().averageCharWidth() * 16);
    return button;
}

// Centred, not wider than can be read well.
QWidget *centred(QWidget *content)
{
    auto *const around = new QWidget;
    content->setMaximumWidth(widest);
    auto *const across = new QHBoxLayout(around);
    across->addStretch(1);
    auto *const down = new QVBoxLayout;
    down->addStretch(2);
    down->addWidget(content);
    down->addStretch(3);
    across->addLayout(down, 100);
    across->addStretch(1);
    return around;
}

// Drawn anew when the palette changes.
class SymbolLabel : public QLabel
{
public:
    SymbolLabel(Symbol shown, QWidget *parent) : QLabel(parent), symbol(shown)
    {
        const int side = fontMetrics().height() * 3;
        setFixedSize(side, side);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        symbolIcon(symbol).paint(&painter, rect());
    }

private:
    const Symbol symbol;
};

QHBoxLayout *besideSymbol(Symbol symbol, std::initializer_list<QWidget *> contents)
{
    QWidget *const page = (*contents.begin())->parentWidget();
    auto *const column = new QVBoxLayout;
    column->addStretch(1);
    for (QWidget *const widget : contents)
        column->addWidget(widget);
    column->addStretch(1);
    auto *const row = new QHBoxLayout;
    row->setSpacing(page->fontMetrics().height());
    row->addWidget(new SymbolLabel(symbol, page), 0, Qt::AlignTop);
    row->addLayout(column, 1);
    return row;
}

QHBoxLayout *atTheEnd(std::initializer_list<QWidget *> buttons)
{
    auto *const row = new QHBoxLayout;
    row->addStretch(1);
    for (QWidget *const button : buttons)
        row->addWidget(button);
    return row;
}

} // namespace

OpeningPage::OpeningPage(QWidget *parent) : QWidget(parent), stack(new QStackedWidget(this))
{
    setObjectName(QStringLiteral("openingPage"));
    stack->addWidget(centred(makeProgress()));
    stack->addWidget(centred(makePassword()));
    stack->addWidget(centred(makeFailure()));
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(stack);
}

QWidget *OpeningPage::makeProgress()
{
    auto *const page = new QWidget;
    stageLabel = makeLabel(QStringLiteral("stageLabel"), 1.2, page);
    bar = new QProgressBar(page);
    bar->setObjectName(QStringLiteral("openingBar"));
    bar->setTextVisible(false);
    cancelButton = makeButton(QStringLiteral("cancelButton"), tr("&Cancel"), page);
    cancelButton->setShortcut(QKeySequence::Cancel);
    auto *const layout = new QVBoxLayout(page);
    layout->setSpacing(fontMetrics().height() / 2);
    layout->addLayout(besideSymbol(Symbol::Phone, {stageLabel, bar}));
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addLayout(atTheEnd({cancelButton}));
    connect(cancelButton, &QPushButton::clicked, this, &OpeningPage::cancelRequested);
    return page;
}

QWidget *OpeningPage::makePassword()
{
    auto *const page = new QWidget;
    auto *const title = makeLabel(QStringLiteral("passwordTitle"), 1.5, page);
    title->setText(tr("This backup is protected by a password"));
    passwordHint = makeLabel(QStringLiteral("passwordHint"), 1, page);
    passwordEdit = new QLineEdit(page);
    passwordEdit->setObjectName(QStringLiteral("passwordEdit"));
    passwordEdit->setEchoMode(QLineEdit::Password);
    passwordEdit->setAccessibleName(tr("Password of the backup"));
    QPushButton *const back = makeButton(QStringLiteral("passwordBack"), tr("&Back"), page);
    QPushButton *const unlock = makeButton(QStringLiteral("unlockButton"), tr("&Unlock"), page);
    auto *const layout = new QVBoxLayout(page);
    layout->setSpacing(fontMetrics().height() / 2);
    layout->addLayout(besideSymbol(Symbol::Backup, {title, passwordHint, passwordEdit}));
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addLayout(atTheEnd({back, unlock}));
    connect(passwordEdit, &QLineEdit::returnPressed, this, &OpeningPage::takePassword);
    connect(unlock, &QPushButton::clicked, this, &OpeningPage::takePassword);
    connect(back, &QPushButton::clicked, this, &OpeningPage::cancelRequested);
    return page;
}

QWidget *OpeningPage::makeFailure()
{
    auto *const page = new QWidget;
    failureTitle = makeLabel(QStringLiteral("failureTitle"), 1.5, page);
    failureText = makeLabel(QStringLiteral("failureText"), 1, page);
    detailsButton = new QToolButton(page);
    detailsButton->setObjectName(QStringLiteral("detailsButton"));
    detailsButton->setText(tr("Details"));
    detailsButton->setCheckable(true);
    detailsButton->setAutoRaise(true);
    detailsButton->setArrowType(Qt::RightArrow);
    detailsButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    detailsButton->setFocusPolicy(Qt::StrongFocus);
    detailsText = makeLabel(QStringLiteral("detailsText"), 0.9, page);
    detailsText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    detailsText->setAccessibleName(tr("Details"));
    detailsText->hide();
    QPushButton *const back = makeButton(QStringLiteral("failureBack"), tr("&Back"), page);
    pairButton = makeButton(QStringLiteral("pairButton"), tr("&Pair Again"), page);
    retryButton = makeButton(QStringLiteral("retryButton"), tr("&Try Again"), page);
    auto *const layout = new QVBoxLayout(page);
    layout->setSpacing(fontMetrics().height() / 2);
    layout->addLayout(besideSymbol(Symbol::Warning, {failureTitle, failureText}));
    layout->addWidget(detailsButton);
    layout->addWidget(detailsText);
    layout->addSpacing(fontMetrics().height());
    layout->addLayout(atTheEnd({back, pairButton, retryButton}));
    connect(detailsButton, &QToolButton::toggled, this, [this](bool open) {
        detailsText->setVisible(open);
        detailsButton->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
    });
    connect(back, &QPushButton::clicked, this, &OpeningPage::backRequested);
    connect(pairButton, &QPushButton::clicked, this, &OpeningPage::pairRequested);
    connect(retryButton, &QPushButton::clicked, this, &OpeningPage::retryRequested);
    return page;
}

namespace
{

QString withSizes(const QString &sentence, const OpeningProgress &progress)
{
    const QLocale locale;
    return sentence.arg(locale.formattedDataSize(progress.bytesRead, 1, QLocale::DataSizeSIFormat),
                        locale.formattedDataSize(progress.totalBytes, 1, QLocale::DataSizeSIFormat));
}

} // namespace

void OpeningPage::showProgress(const OpeningProgress &progress)
{
    using Stage = OpeningProgress::Stage;
    constexpr int steps = 1000;
    const bool measured = progress.stage == Stage::Reading && progress.totalBytes > 0;
    switch (progress.stage) {
    case Stage::Finding:
        stageLabel->setText(tr("Looking for the phone…"));
        break;
    case Stage::Connecting:
        stageLabel->setText(tr("Connecting…"));
        break;
    case Stage::Unlocking:
        stageLabel->setText(tr("Unlocking the backup…"));
        break;
    case Stage::Reading:
        stageLabel->setText(measured ? withSizes(tr("Reading the list of photos: %1 of %2"), progress)
                                     : tr("Reading the list of photos…"));
        break;
    case Stage::Sorting:
        stageLabel->setText(tr("Sorting the photos…"));
        break;
    case Stage::Preparing:
        stageLabel->setText(tr("Preparing the albums…"));
        break;
    }
    bar->setRange(0, measured ? steps : 0);
    bar->setValue(measured ? static_cast<int>(static_cast<double>(progress.bytesRead) /
                                              static_cast<double>(progress.totalBytes) * steps)
                           : 0);
    bar->setAccessibleName(stageLabel->text());
    if (stack->currentIndex() != 0) {
        stack->setCurrentIndex(0);
        cancelButton->setFocus();
    }
}

void OpeningPage::showPairing()
{
    showProgress({});
    stageLabel->setText(tr("Pairing: unlock the phone, and tap “Trust” on its screen…"));
}

void OpeningPage::askForPassword(bool wasWrong)
{
    passwordHint->setText(wasWrong ? tr("This password does not fit. The passcode that unlocks the phone is another "
                                        "one: give the password that was set for backups.")
                                   : tr("Give the password that was set when the backups of this phone were turned on. "
                                        "It is not kept."));
    passwordEdit->clear();
    stack->setCurrentIndex(1);
    passwordEdit->setFocus();
}

void OpeningPage::takePassword()
{
    if (passwordEdit->text().isEmpty())
        return;
    QByteArray password = passwordEdit->text().toUtf8();
    passwordEdit->clear();
    Q_EMIT passwordGiven(password);
    password.fill('\0');
}

void OpeningPage::showFailure(const OpeningFailure &failure)
{
    const FailureText text = browser::failureText(failure.kind);
    failureTitle->setText(text.title);
    failureText->setText(text.nextStep);
    detailsText->setText(failure.technical);
    detailsButton->setChecked(false);
    detailsButton->setVisible(!failure.technical.isEmpty());
    pairButton->setVisible(failure.kind == FailureKind::Forgotten);
    retryButton->setVisible(failure.kind != FailureKind::SeveralChoices);
    stack->setCurrentIndex(2);
    (failure.kind == FailureKind::Forgotten ? pairButton : retryButton)->setFocus();
}

} // namespace browser
