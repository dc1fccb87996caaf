#pragma once

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvProjectDefineNode.h"
#include "OvBase/OvProjectManager.h"
#include "OvBase/OvTaskManager.h"
#include "OvBase/OvUserDefineNode.h"
#include "OvGui/OvGatherViewController.h"
#include "OvPlugins/OvGeneralFactory.h"
#include "OvPlugins/OvGeneralPlugin.h"
#include "OvPlugins/OvModuleFactory.h"
#include "OvPlugins/OvModulePlugin.h"
#include "fixtures/SegyWriter.h"

#include <QAction>
#include <QDir>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QTemporaryDir>

/// A logged-in program without its shell: a real database, a window with the actions that the shell
/// leaves to plug-ins, and one project with a folder of its own.
class PluginSession : public QObject
{
public:
    PluginSession()
    {
        m_window.setObjectName(QStringLiteral("OvTarnpick"));
        for (const char* name : {"actionFirstBreak_Output", "actionFB_to_SEGY_Header"})
            (new QAction(&m_window))->setObjectName(QLatin1String(name));
        connect(&OvProjectManager::instance(), &OvProjectManager::aboutToAddWorkspace, this,
                [this](OvAbstractViewController* view) { take(view); });
    }
    ~PluginSession() override
    {
        closeViews();
        OvProjectManager::instance().closeProject();
    }

    /// Once a process: opens the database and names the folder of the real plug-ins.
    static bool start()
    {
        static const QTemporaryDir home;
        const QString plugins =
            QString::fromLocal8Bit(qgetenv("TARNPICK_BUILD_DIR")) + QStringLiteral("/bin/plugins");
        qputenv("TARNPICK_PLUGIN_PATH", plugins.toLocal8Bit());
        return OvBaseUtil::initialize().ok() &&
               OvUserDefineNode::instance().login(home.filePath(QStringLiteral("Tarnpick.db")));
    }

    QString folder() const { return QDir(m_folder.path()).canonicalPath(); }
    QString path(const QString& name) const { return QDir(folder()).filePath(name); }

    /// A file of shots of a straight line with known first breaks.
    bool writeLine(const QString& name, int shots, int channels = 24, int samples = 500) const
    {
        SegyWriter writer;
        writer.sampleCount = samples;
        for (int shot = 0; shot < shots; ++shot)
            writer.addShot(100 + shot, shot * 20.0, channels, 10.0);
        return writer.write(path(name));
    }

    bool openProject()
    {
        OvProjectDefine define;
        static int count = 0;
        define.name = QStringLiteral("Line %1").arg(++count);
        define.dataPath = folder();
        define.userId = OvUserDefineNode::instance().userID();
        define.id = OvProjectDefineNode().insertProject(define);
        return OvProjectManager::instance().openProject(define);
    }

    QMainWindow* window() { return &m_window; }
    const QList<QPointer<OvGatherViewController>>& views() const { return m_views; }
    OvGatherViewController* lastView() const
    {
        return m_views.isEmpty() ? nullptr : m_views.last().data();
    }
    void activate(OvAbstractViewController* view)
    {
        emit OvProjectManager::instance().activeWorkspace(view);
    }
    void closeViews()
    {
        activate(nullptr);
        for (const auto& view : qAsConst(m_views))
            delete view.data();
        m_views.clear();
    }

    static OvModulePlugin* module(const QString& name)
    {
        const QList<OvModulePlugin*> plugins = OvModuleFactory::instance().plugins();
        for (OvModulePlugin* plugin : plugins) {
            if (plugin->name() == name)
                return plugin;
        }
        return nullptr;
    }

    static QAction* action(const QMenu* menu, const char* name)
    {
        return menu->findChild<QAction*>(QLatin1String(name));
    }

    /// The picking and export jobs in the task list; others, such as reading headers, may be there
    /// too.
    static QList<OvAbstractJob*> actionJobs()
    {
        QList<OvAbstractJob*> jobs;
        for (OvAbstractJob* job : OvTaskManager::instance().tasks()) {
            const QByteArray type = job->metaObject()->className();
            if (type == "OvPickJob" || type == "OvExportJob")
                jobs.append(job);
        }
        return jobs;
    }

private:
    void take(OvAbstractViewController* view)
    {
        m_views.append(qobject_cast<OvGatherViewController*>(view));
        activate(view);
    }

    QTemporaryDir m_folder;
    QMainWindow m_window;
    QList<QPointer<OvGatherViewController>> m_views;
};
