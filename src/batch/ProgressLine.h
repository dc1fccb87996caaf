#pragma once

#include <QElapsedTimer>

/// Tells on the error output how far a command has come: on a terminal in one line that is written
/// over, elsewhere in lines of their own; either not too often. Ends the line when destroyed.
class ProgressLine
{
public:
    /// Off by itself where the error output is no terminal, unless wanted.
    explicit ProgressLine(bool wanted);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void show(int done, int total);

private:
    bool m_terminal;
    bool m_on;
    bool m_shown = false;
    QElapsedTimer m_sinceShown;
};
