#pragma once

#include "OvPlugins/OvModulePlugin.h"

#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QUndoGroup>

class OvDocumentJob;
class OvFirstBreakBar;
class OvFirstBreakMenu;
class OvGatherPicker;
class OvGatherViewController;
class OvPickDlg;
class OvSegyDocument;
struct OvFirstBreaks;

/// The module that picks first breaks and exports them. Its jobs belong to it: they stay in the
/// task list, with their outcome, until a like job on the same file starts or the project is
/// closed.
class OvFirstBreakPlugin : public QObject, public OvModulePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID OvModulePlugin_iid FILE "FirstBreak.json")
    Q_INTERFACES(OvModulePlugin)

public:
    OvFirstBreakPlugin();
    ~OvFirstBreakPlugin() override;

    QString name() const override;
    QMenu* menu() override;
    QWidget* toolBarWidget() override;
    void changeLanguage() override;

private:
    void followWorkspace();
    void connectMenu();
    void connectEditing();
    void followView(OvGatherViewController* view);
    void setEditing(bool editing);
    void setSnapWindow(int windowMs);
    /// Why the gather shown cannot be picked alone.
    static QString needsRecords();
    void askForPicking();
    void pick(const OvPickDlg* dialog, const QSharedPointer<OvSegyDocument>& document);
    void connectPreview(OvPickDlg* dialog, OvGatherViewController* view);
    void pickGather();
    void takeGather(const QSharedPointer<OvSegyDocument>& document, int gather,
                    const OvFirstBreaks& breaks);
    void askForExport();
    void launch(OvDocumentJob* job);
    void report(OvDocumentJob* job);
    void closeJobs();
    template <typename Job>
    bool makeRoomFor(const QSharedPointer<OvSegyDocument>& document);
    OvGatherViewController* activeView() const;

    QPointer<OvFirstBreakMenu> m_menu;
    QPointer<OvFirstBreakBar> m_bar;
    // Plain on purpose: a view that is being destroyed is no gather view any more.
    QPointer<QObject> m_followed;
    QUndoGroup m_undo; // of the active view
    QPointer<OvGatherPicker> m_gatherPicker;
    bool m_editing = false;
};
