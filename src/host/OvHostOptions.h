#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

/// What the command line asks for.
struct OvHostOptions
{
    Q_DECLARE_TR_FUNCTIONS(OvHostOptions)

public:
    enum class Action {
        Run,   ///< start the program
        Print, ///< print text and leave with 0
        Refuse ///< print text as an error and leave with 2
    };

    Action action = Action::Run;
    QString text;        ///< what Print and Refuse print
    QString language;    ///< "en", "zh", or empty for the remembered one
    QString home;        ///< folder of the user database; empty for the usual place
    QString project;     ///< name of the project to open after login
    QString file;        ///< SEG-Y file to show once a project is open
    QString screenshots; ///< folder for the pictures of the walk; empty for no walk
    bool demo = false;
    bool login = false;

    /// Whether the user database is entered without the button.
    bool entersByItself() const;

    /// Reads arguments, the program's name first. Needs an application object.
    static OvHostOptions parse(const QStringList& arguments);
    /// Whether the arguments only ask for text, so that no display is needed.
    static bool asksForText(int argc, const char* const* argv);
};
