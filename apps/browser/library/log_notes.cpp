#include "apps/browser/library/log_notes.h"

namespace browser
{

namespace
{

thread_local LogNotes *current = nullptr;

} // namespace

LogNotes::LogNotes()
{
    current = this;
}

LogNotes::~LogNotes()
{
    current = nullptr;
}

void noteLogLine(const QString &message)
{
    if (current != nullptr && (message.startsWith(QLatin1String("Can not parse camera album")) ||
                               message.startsWith(QLatin1String("photo sql error"))))
        current->lacking = true;
}

} // namespace browser
