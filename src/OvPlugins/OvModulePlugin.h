#pragma once

#include <QString>
#include <QtPlugin>

class QMenu;
class QWidget;

/// A module: a plug-in with a menu for the menu bar and, if it likes, a widget for the tool bar.
///
/// The plug-in owns its menu; the tool bar takes the widget in. The widget's meta-method "reset",
/// if it has one, brings it back to the state of the open project. GUI thread.
class OvModulePlugin
{
public:
    virtual ~OvModulePlugin() = default;

    /// Unique among the modules.
    virtual QString name() const = 0;
    /// Never null. Actions with integer data get a button on the main gadget, ordered by it.
    virtual QMenu* menu() = 0;
    /// May be null. The same object on every call.
    virtual QWidget* toolBarWidget() = 0;
    /// The language has changed: set all texts anew.
    virtual void changeLanguage() = 0;
};

#define OvModulePlugin_iid "org.tarnpick.OvModulePlugin/1.0"
Q_DECLARE_INTERFACE(OvModulePlugin, OvModulePlugin_iid)
