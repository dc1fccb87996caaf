#pragma once

#include <QString>

#include <functional>

class OvGatherCanvas;
class OvGatherViewController;
class QDialog;
class QWidget;
template <typename T>
class QList;

/// What the tour through the program does with its windows: it finds actions and widgets by object
/// name, and uses them as the user would. GUI thread; false where something is not there.
namespace OvWalkHands {

bool writePicture(QWidget* widget, const QString& folder, const QString& name);
bool pictureOfMain(const QString& folder, const QString& name);

/// The main window with the open dialog in its lower right corner, out of the way of the picks.
bool pictureWithDialog(const QString& folder, const QString& name);

/// Triggers the enabled menu entry of that object name.
bool trigger(const QString& actionName);
/// The modal dialog, if one is open.
QDialog* openDialog();
/// Presses OK.
bool confirm(QDialog* dialog);
/// Checks a check box of the dialog.
bool check(QDialog* dialog, const QString& boxName);
/// Shows or hides the dock window of that class.
bool setDockVisible(const char* className, bool visible);
/// Chooses an entry of a list on the tool bar.
bool choose(const QString& listName, int entry);

QList<OvGatherViewController*> gatherViews();
/// Whether every gather view has shown its gather, and those that can be seen are up to date.
bool allShown();
bool hasPicks();
/// Whether the first view shows picks that are only proposed.
bool hasPreview();
/// A second view of the first one's file, at its last gather.
bool addSecondView();

/// Zooms the first view to some traces around their picks.
bool zoomToPicks(int firstRow, int lastRow);
/// A left drag along the picks of some traces, later by shiftMs than they are.
bool dragAlongPicks(int firstRow, int lastRow, double shiftMs);
/// A click with Ctrl on a trace.
bool rejectPick(int row);
/// The mouse over a pick, no button held.
bool hoverAtPick(int row);
/// The first view at its full extent, the mouse away from it.
bool showWholeGather();

} // namespace OvWalkHands
