#pragma once

#include <QString>
#include <QtPlugin>

class QAction;

/// An extension: a plug-in with one action for the Tools menu. GUI thread.
class OvGeneralPlugin
{
public:
    virtual ~OvGeneralPlugin() = default;

    /// Unique among the extensions.
    virtual QString name() const = 0;
    /// Whether the action is of use only while a project is open.
    virtual bool needsProject() const = 0;
    /// The action, with texts in the present language. The caller may delete it; a later call then
    /// makes a new one.
    virtual QAction* action() = 0;
};

#define OvGeneralPlugin_iid "org.tarnpick.OvGeneralPlugin/1.0"
Q_DECLARE_INTERFACE(OvGeneralPlugin, OvGeneralPlugin_iid)
