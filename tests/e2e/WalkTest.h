#pragma once

#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "Walker.h"

#include <QObject>

/// The base of tests that walk through the built program: one screen for all steps, a picture after
/// each, and what the program said when one fails.
class WalkTest : public QObject
{
    Q_OBJECT

protected:
    enum class Steps {
        InARow, ///< each goes on where the one before stopped: after a failure the others are
                ///< skipped
        Alone
    };

    explicit WalkTest(Steps steps = Steps::InARow)
        : m_steps(steps)
    {
    }

    /// A program of the build, run to its end; its exit code.
    static int run(const QString& program, const QStringList& arguments);
    /// Writes the demo line into surveyFolder().
    bool makeLine(int shots);
    QString surveyFolder() const { return m_walker.home() + "/survey"; }
    QString linePath() const { return surveyFolder() + "/demo_line.sgy"; }

    bool enter(const QStringList& arguments = {});
    /// Quits by key; whether the program ended well.
    bool leave();
    bool openProjectDialog();
    /// Through that dialog, by keyboard; false when that does not take what is typed.
    bool makeProject(const QString& name, const QString& folder);
    /// Opens a file of the project from the menu and waits until it is read and shown.
    bool openFile(const QString& name);
    /// What is kept of all traces of a file, as another program reads it; empty when it cannot.
    static OvFirstBreaks storedBreaks(const QString& segyPath);
    bool waitForText(const QString& widget, const QString& text);

    Walker m_walker;

private slots:
    void initTestCase();
    void init();
    void cleanup();

private:
    const Steps m_steps;
    bool m_broken = false;
};
