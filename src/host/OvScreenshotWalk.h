#pragma once

#include "host/OvStepRunner.h"

class QWidget;

/// The tour through the program that writes a picture of each window. GUI thread.
///
/// It uses the windows as the user would: it finds actions and buttons by object name and waits for
/// what they bring about.
namespace OvScreenshotWalk {

/// The login window, before it is used.
void addLogin(OvStepRunner* runner, QWidget* loginWindow, const QString& folder);
/// The main window as it stands after login.
void addEmptyWindow(OvStepRunner* runner, const QString& folder);
/// Gather, automatic picking, picks, their correction, the other displays, SEG-Y information,
/// console, parallel view, project dialogs, about; needs a file that is being shown.
void addWork(OvStepRunner* runner, const QString& folder);

} // namespace OvScreenshotWalk
