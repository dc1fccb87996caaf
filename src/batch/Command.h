#pragma once

#include <QStringList>

/// What the program returns to the shell.
enum ExitCode {
    ExitDone = 0,
    ExitFailed = 1,         ///< with a message on the error output
    ExitWrongArguments = 2, ///< likewise, with the usage
};

/// One command of the headless program: its name, a line of help, and what it does with the
/// arguments that follow the name.
struct Command
{
    const char* name;
    QString (*summary)();
    int (*run)(const QStringList& arguments);
};

/// Text to the standard output or error output, in UTF-8.
void printOut(const QString& text);
void printError(const QString& text);
