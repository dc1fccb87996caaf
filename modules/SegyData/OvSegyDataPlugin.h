#pragma once

#include "OvPlugins/OvModulePlugin.h"

#include <QObject>
#include <QPointer>

class OvSegyDataMenu;
class OvSegyDisplayBar;

/// The module that opens SEG-Y files and sets how they are drawn.
class OvSegyDataPlugin : public QObject, public OvModulePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID OvModulePlugin_iid FILE "SegyData.json")
    Q_INTERFACES(OvModulePlugin)

public:
    OvSegyDataPlugin();
    ~OvSegyDataPlugin() override;

    QString name() const override;
    QMenu* menu() override;
    QWidget* toolBarWidget() override;
    void changeLanguage() override;

private:
    // Windows that took one of these in may delete it first.
    QPointer<OvSegyDataMenu> m_menu;
    QPointer<OvSegyDisplayBar> m_bar;
};
