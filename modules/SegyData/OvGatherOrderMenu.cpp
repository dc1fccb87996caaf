#include "OvGatherOrderMenu.h"

#include "OvBase/OvProjectManager.h"
#include "OvGui/OvGatherViewController.h"
#include "OvPlugins/OvPluginUtil.h"

#include <QActionGroup>
#include <QInputDialog>
#include <QMainWindow>

namespace {

constexpr double leastBinWidth = 0.1;
constexpr double mostBinWidth = 100000.0;

QString keyName(OvGatherKey key)
{
    return QStringLiteral("actionGathers_By_%1").arg(OvGatherOrder::identifier(key));
}

QString sortName(OvGatherSort sort)
{
    return QStringLiteral("actionSort_By_%1").arg(OvGatherOrder::identifier(sort));
}

} // namespace

OvGatherOrderMenu::OvGatherOrderMenu(QWidget* parent)
    : QMenu(parent)
    , m_keys(new QActionGroup(this))
    , m_sorts(new QActionGroup(this))
{
    setObjectName(QStringLiteral("menuGather_Order"));
    setToolTipsVisible(true);
    makeKeys();
    addSeparator();
    makeSorts();
    const OvProjectManager* manager = &OvProjectManager::instance();
    connect(manager, &OvProjectManager::activeWorkspace, this, &OvGatherOrderMenu::followView);
    retranslate();
    followView(manager->currentWorkspace());
}

void OvGatherOrderMenu::makeKeys()
{
    for (int i = 0; i < OvGatherOrder::keyCount; ++i) {
        const auto key = static_cast<OvGatherKey>(i);
        QAction* action = addAction(QString(), this, [this, key] { setKey(key); });
        action->setObjectName(keyName(key));
        action->setShortcut(QKeySequence(QStringLiteral("Ctrl+%1").arg(i + 1)));
        action->setCheckable(true);
        m_keys->addAction(action);
    }
    m_binWidth = addAction(QString(), this, &OvGatherOrderMenu::askBinWidth);
    m_binWidth->setObjectName(QStringLiteral("actionOffset_Bin_Width"));
}

void OvGatherOrderMenu::makeSorts()
{
    m_sortMenu = addMenu(QString());
    m_sortMenu->setObjectName(QStringLiteral("menuSort_By"));
    for (int i = 0; i < OvGatherOrder::sortCount; ++i) {
        const auto sort = static_cast<OvGatherSort>(i);
        QAction* action = m_sortMenu->addAction(QString(), this, [this, sort] { setSort(sort); });
        action->setObjectName(sortName(sort));
        action->setCheckable(true);
        m_sorts->addAction(action);
    }
    m_sortMenu->addSeparator();
    m_descending = m_sortMenu->addAction(QString(), this, &OvGatherOrderMenu::setDescending);
    m_descending->setObjectName(QStringLiteral("actionSort_Descending"));
    m_descending->setCheckable(true);
}

void OvGatherOrderMenu::retranslate()
{
    setTitle(tr("&Gathers By"));
    const QStringList keys{tr("&Field Record"), tr("&Source Position"), tr("&Receiver Position"),
                           tr("&CDP"), tr("Common &Offset")};
    for (int i = 0; i < keys.size(); ++i)
        m_keys->actions().at(i)->setText(keys.at(i));
    for (int i = 0; i < OvGatherOrder::sortCount; ++i)
        m_sorts->actions().at(i)->setText(OvGatherOrder::name(static_cast<OvGatherSort>(i)));
    m_binWidth->setText(tr("Offset &Bin Width..."));
    m_binWidth->setToolTip(tr("Traces whose offsets fall into the same bin form a gather"));
    m_sortMenu->setTitle(tr("Sort &Traces By"));
    m_descending->setText(tr("&Descending"));
}

void OvGatherOrderMenu::followView(OvAbstractViewController* active)
{
    if (m_followed)
        m_followed->disconnect(this);
    m_followed = active;
    m_view = qobject_cast<OvGatherViewController*>(active);
    if (m_view)
        connect(m_view, &OvGatherViewController::gatherOrderChanged, this,
                &OvGatherOrderMenu::showOrder);
    showOrder();
}

void OvGatherOrderMenu::showOrder()
{
    const OvGatherOrder order = m_view ? m_view->gatherOrder() : OvGatherOrder();
    const QList<QAction*> own = actions();
    for (QAction* action : own)
        action->setEnabled(m_view);
    m_keys->actions().at(static_cast<int>(order.key))->setChecked(true);
    m_sorts->actions().at(static_cast<int>(order.sort))->setChecked(true);
    m_descending->setChecked(order.descending);
    m_descending->setEnabled(order.sort != OvGatherSort::FileOrder);
    m_binWidth->setEnabled(m_view && order.key == OvGatherKey::OffsetBin);
}

template <typename Change>
void OvGatherOrderMenu::change(Change change)
{
    if (!m_view)
        return;
    OvGatherOrder order = m_view->gatherOrder();
    change(&order);
    m_view->setGatherOrder(order);
    showOrder();
}

void OvGatherOrderMenu::setKey(OvGatherKey key)
{
    change([key](OvGatherOrder* order) {
        order->key = key;
        // What other gathers are looked at for; shots come in channel order from the file.
        const bool mixed = key == OvGatherKey::Receiver || key == OvGatherKey::Cdp;
        if (mixed && order->sort == OvGatherSort::FileOrder)
            order->sort = OvGatherSort::Offset;
    });
}

void OvGatherOrderMenu::setSort(OvGatherSort sort)
{
    change([sort](OvGatherOrder* order) { order->sort = sort; });
}

void OvGatherOrderMenu::setDescending(bool descending)
{
    change([descending](OvGatherOrder* order) { order->descending = descending; });
}

void OvGatherOrderMenu::askBinWidth()
{
    if (!m_view)
        return;
    QInputDialog dialog(OvPluginUtil::mainWindow());
    dialog.setWindowTitle(tr("Offset Bin Width"));
    dialog.setLabelText(tr("Width of a bin (m):"));
    dialog.setInputMode(QInputDialog::DoubleInput);
    dialog.setDoubleDecimals(1);
    dialog.setDoubleRange(leastBinWidth, mostBinWidth);
    dialog.setDoubleValue(m_view->gatherOrder().binWidthM);
    dialog.setOkButtonText(tr("OK"));
    dialog.setCancelButtonText(tr("Cancel"));
    if (dialog.exec() == QDialog::Accepted)
        change([&dialog](OvGatherOrder* order) { order->binWidthM = dialog.doubleValue(); });
}
