#include "apps/browser/library/opener.h"

#include "apps/browser/library/background.h"
#include "apps/browser/library/opening_attempt.h"

namespace browser
{

Opener::Opener(const QString &argument, QObject *parent)
    : QObject(parent), given(argument), attempt(std::make_shared<OpeningAttempt>(this, argument))
{
    connect(this, &Opener::found, this, [this](const QString &name) { device = name; });
}

Opener::~Opener()
{
    attempt->mailbox->close();
    attempt->stop();
}

void Opener::setPassword(const QByteArray &password)
{
    attempt->setPassword(password);
}

void Opener::start()
{
    run(&OpeningAttempt::find);
}

void Opener::proceed()
{
    run(&OpeningAttempt::open);
}

void Opener::cancel()
{
    attempt->mailbox->close();
    attempt->stop();
    Q_EMIT cancelled();
}

void Opener::run(void (OpeningAttempt::*step)())
{
    const std::shared_ptr<OpeningAttempt> working = attempt;
    if (!startBackground([working, step] { working->run(step); }))
        attempt->failForWantOfMemory();
}

} // namespace browser
