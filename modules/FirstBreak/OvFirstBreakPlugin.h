#pragma once

#include "OvPickJob.h"

#include "OvPlugins/OvModulePlugin.h"

#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QUndoGroup>

class OvFirstBreakBar;
class OvFirstBreakMenu;
class OvGatherViewController;
class OvPickDlg;

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
    void askForPicking();
    static OvPickJob::Options gatherShown(const OvGatherViewController& view);
    void connectPreview(OvPickDlg* dialog, OvGatherViewController* view,
                        const OvPickJob::Options& shown);
    void pickGather();
    void pick(const OvPickJob::Options& options, const QSharedPointer<OvSegyDocument>& document);
    void retireGatherJobs(const QSharedPointer<OvSegyDocument>& document);
    static bool isAside(const OvDocumentJob* job);
    static void retire(OvDocumentJob* job);
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
    bool m_editing = false;
};
