#ifndef APPS_BROWSER_WINDOW_PROGRAM_H
#define APPS_BROWSER_WINDOW_PROGRAM_H

class QApplication;

namespace browser
{

/// Names, icon and translations of the application.
void setUpApplication(QApplication &application);

/// What main() does once there is an application object: command line, first window, event loop, a quick end. Answers
/// the exit status: 2 for wrong usage.
int runProgram(QApplication &application);

/// What is printed before there is a screen: true when the arguments ask for help or the version, which are then on
/// standard output.
bool printedHelp(int argc, char **argv);

} // namespace browser

#endif
