#pragma once

#include "OvSeismic/OvStatus.h"

#include <QCoreApplication>
#include <QString>

/// The synthetic line that the program can make for a first look. GUI thread.
class OvDemoSurvey
{
    Q_DECLARE_TR_FUNCTIONS(OvDemoSurvey)

public:
    /// Name of the project that points at the line.
    static QString projectName();
    /// Folder that holds the line, in the program's local folder.
    static QString folder();
    /// The SEG-Y file of the line.
    static QString file();

    /// Runs the generator beside the program, behind a progress window; quick when the line is
    /// there.
    static OvStatus make();
    /// Stores the project record, unless there is one of that name.
    static OvStatus ensureProject();
};
