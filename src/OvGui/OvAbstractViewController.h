#pragma once

#include "OvGui/OvGuiExport.h"

#include <QWidget>

#include <memory>

class OvAbstractJob;
class QKeyEvent;

/// A workspace: one view of data in a sub-window of the main window. GUI thread.
///
/// Carries its data-file names as the dynamic properties "SegyFile" and "FBFile", and takes part in
/// the project's display settings by carrying "DisplayDefine", "FitDisplayDefine" and
/// "TraceHeaderDefine". Views that can save offer the meta-method "save", views of picks
/// "classifyFB".
class OVGUI_EXPORT OvAbstractViewController : public QWidget
{
    Q_OBJECT

public:
    explicit OvAbstractViewController(QWidget* parent = nullptr);
    ~OvAbstractViewController() override;

    /// The job that stands for this view in the task list. Owned by the view; never null.
    OvAbstractJob* delegateJob() const;
    /// What the view shows, for titles: translated, short.
    virtual QString description() const = 0;
    /// Whether the auto-save clock should call "save".
    virtual bool saveable() const;
    /// Reacts to a key that the main window received.
    virtual void handleKeyEvent(QKeyEvent* event);
    /// Asks for a file name and writes a picture of the view there.
    virtual void captureScreenshot();

signals:
    /// The view's data files have changed.
    void populate();
    /// A line for the status bar.
    void outputInfo(const QString& text);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
