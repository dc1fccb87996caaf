#pragma once

#include "PluginSession.h"
#include "fixtures/MessageLog.h"

#include <QDialog>

#include <memory>

/// The base of tests of a module plug-in: a session anew for each test function. end() hands over
/// what was warned of meanwhile.
class ModuleFixture
{
protected:
    /// Once a test class.
    bool startModule(const char* name)
    {
        if (PluginSession::start())
            m_module = PluginSession::module(QLatin1String(name));
        m_menu = m_module ? m_module->menu() : nullptr;
        return m_menu;
    }

    void begin()
    {
        m_log = std::make_unique<MessageLog>();
        m_session = std::make_unique<PluginSession>();
    }
    QStringList end()
    {
        delete m_dialog.data();
        m_session.reset();
        QStringList warnings = m_log->takeAll();
        m_log.reset();
        return warnings;
    }

    QString path(const QString& name = QStringLiteral("line.sgy")) const
    {
        return m_session->path(name);
    }
    /// The document at path(); null, which end() tells of, when it cannot be opened.
    QSharedPointer<OvSegyDocument> openDocument() const
    {
        OvStatus status;
        auto document = OvSegyDocument::open(path(), &status);
        if (!document)
            qWarning("%s", qPrintable(status.message()));
        return document;
    }
    /// The same in a view of the program's.
    bool openView() const
    {
        const auto document = openDocument();
        if (document)
            OvProjectManager::instance().addWorkspace(new OvGatherViewController(document));
        return document;
    }
    QAction* action(const char* name) const { return PluginSession::action(m_menu, name); }
    /// The dialog that an action opens, which goes with the test.
    bool openDialog(const char* actionName, const char* dialogName)
    {
        action(actionName)->trigger();
        m_dialog = m_session->window()->findChild<QDialog*>(QLatin1String(dialogName));
        return m_dialog;
    }

    std::unique_ptr<MessageLog> m_log;
    std::unique_ptr<PluginSession> m_session;
    OvModulePlugin* m_module = nullptr;
    QMenu* m_menu = nullptr;
    QPointer<QDialog> m_dialog;
};
