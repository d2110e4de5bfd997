#include "tests/browser/support/opening.h"

#include <QTest>

#include <algorithm>

using browser::Opener;

bool comesTrueSoon(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, 60'000);
}

Opening::Opening(const QString &argument) : opener(argument)
{
    QObject::connect(&opener, &Opener::found, &opener, &Opener::proceed);
    QObject::connect(&opener, &Opener::opened, &opener, [this](const browser::Opened &result) { opened = result; });
    QObject::connect(&opener, &Opener::failed, &opener,
                     [this](const browser::OpeningFailure &reason) { failure = reason; });
    QObject::connect(&opener, &Opener::passwordNeeded, &opener, [this](bool wasWrong) { passwordAsked = wasWrong; });
    QObject::connect(&opener, &Opener::cancelled, &opener, [this] { wasCancelled = true; });
    QObject::connect(&opener, &Opener::progressed, &opener,
                     [this](const browser::OpeningProgress &state) { progress += state; });
}

Opening::~Opening()
{
    if (opened)
        browser::retire(std::move(opened->library));
    browser::waitForRetired();
}

bool Opening::ends()
{
    return endsAfter([this] { opener.start(); });
}

bool Opening::endsAfter(const std::function<void()> &again)
{
    failure.reset();
    passwordAsked.reset();
    again();
    return comesTrueSoon([this] { return hasEnded(); });
}

bool Opening::hasReached(browser::OpeningProgress::Stage stage) const
{
    return std::any_of(progress.begin(), progress.end(),
                       [stage](const browser::OpeningProgress &state) { return state.stage == stage; });
}
