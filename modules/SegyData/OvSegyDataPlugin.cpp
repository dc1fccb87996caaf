#include "OvSegyDataPlugin.h"

#include "OvSegyDataMenu.h"
#include "OvSegyDisplayBar.h"

OvSegyDataPlugin::OvSegyDataPlugin() = default;

OvSegyDataPlugin::~OvSegyDataPlugin()
{
    delete m_menu.data();
    delete m_bar.data();
}

QString OvSegyDataPlugin::name() const
{
    return QStringLiteral("SegyData");
}

QMenu* OvSegyDataPlugin::menu()
{
    if (!m_menu)
        m_menu = new OvSegyDataMenu;
    return m_menu;
}

QWidget* OvSegyDataPlugin::toolBarWidget()
{
    if (!m_bar)
        m_bar = new OvSegyDisplayBar;
    return m_bar;
}

void OvSegyDataPlugin::changeLanguage()
{
    if (m_menu)
        m_menu->retranslate();
    if (m_bar)
        m_bar->retranslate();
}
