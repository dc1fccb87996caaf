#include "OvTarnpick/controller/OvMdiArea.h"

#include "OvGui/OvAbstractViewController.h"
#include "OvGui/OvMultiPlaneViewController.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPainter>
#include <QPointer>

#include <array>

namespace {

// The toolkit makes the window menu of a sub-window once and keeps its language.
void retranslateWindowMenu(const QMdiSubWindow* subWindow)
{
    static const std::array<const char*, 8> entries = {
        "&Restore", "&Move", "&Size", "Mi&nimize", "Ma&ximize", "Stay on &Top", "", "&Close"};
    const auto actions = subWindow->systemMenu()->actions();
    if (actions.size() != static_cast<int>(entries.size()))
        return;
    for (int i = 0; i < actions.size(); ++i) {
        if (!actions.at(i)->isSeparator())
            actions.at(i)->setText(
                QCoreApplication::translate("QMdiSubWindow", entries[static_cast<std::size_t>(i)]));
    }
}

} // namespace

class OvMdiAreaPrivate
{
public:
    explicit OvMdiAreaPrivate(OvMdiArea* owner)
        : q(owner)
    {
    }

    OvAbstractViewController* topMostWorkspace() const;
    QList<QMdiSubWindow*> tiledSubWindows() const;
    void tile(Qt::Orientation direction);
    void deleteSubWindows(bool parallelOnly);

    OvMdiArea* q;
    OvAbstractViewController* active = nullptr; ///< as last announced; for comparison only
    QPointer<OvAbstractViewController> alive;   ///< the same, null when it was deleted since
};

OvAbstractViewController* OvMdiAreaPrivate::topMostWorkspace() const
{
    const auto subWindows = q->subWindowList(QMdiArea::StackingOrder);
    if (subWindows.isEmpty())
        return nullptr;
    return qobject_cast<OvAbstractViewController*>(subWindows.constLast()->widget());
}

QList<QMdiSubWindow*> OvMdiAreaPrivate::tiledSubWindows() const
{
    QList<QMdiSubWindow*> tiled;
    const auto subWindows = q->subWindowList(QMdiArea::StackingOrder);
    for (QMdiSubWindow* subWindow : subWindows) {
        if (!subWindow->isShaded() && !subWindow->isHidden())
            tiled.append(subWindow);
    }
    return tiled;
}

void OvMdiAreaPrivate::tile(Qt::Orientation direction)
{
    const auto subWindows = tiledSubWindows();
    if (subWindows.isEmpty())
        return;
    const bool sideBySide = direction == Qt::Horizontal;
    const int count = subWindows.size();
    const QRect cell(0, 0, sideBySide ? q->width() / count : q->width(),
                     sideBySide ? q->height() : q->height() / count);
    QPoint position;
    for (QMdiSubWindow* subWindow : subWindows) {
        subWindow->showNormal();
        subWindow->setGeometry(cell);
        subWindow->move(position);
        // A sub-window may be larger than its cell.
        position += sideBySide ? QPoint(subWindow->width(), 0) : QPoint(0, subWindow->height());
    }
}

void OvMdiAreaPrivate::deleteSubWindows(bool parallelOnly)
{
    const auto subWindows = q->subWindowList(QMdiArea::CreationOrder);
    for (QMdiSubWindow* subWindow : subWindows) {
        if (!parallelOnly || qobject_cast<OvMultiPlaneViewController*>(subWindow->widget()))
            delete subWindow;
    }
}

OvMdiArea::OvMdiArea(QWidget* parent)
    : QMdiArea(parent)
    , d(new OvMdiAreaPrivate(this))
{
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    connect(this, &QMdiArea::subWindowActivated, this, &OvMdiArea::slotActiveSubWindowChanged);
}

OvMdiArea::~OvMdiArea()
{
    // The parallel view first: it mirrors the others.
    d->deleteSubWindows(true);
    d->deleteSubWindows(false);
}

OvAbstractViewController* OvMdiArea::activeWorkspace() const
{
    return d->alive;
}

QSize OvMdiArea::sizeHint() const
{
    return QSize(800, 600);
}

void OvMdiArea::tileHorizontally()
{
    d->tile(Qt::Horizontal);
}

void OvMdiArea::tileVertically()
{
    d->tile(Qt::Vertical);
}

void OvMdiArea::slotActiveSubWindowChanged(QMdiSubWindow* subWindow)
{
    Q_UNUSED(subWindow)
    OvAbstractViewController* candidate = d->topMostWorkspace();
    // A new workspace may stand at the address of a deleted one.
    const bool sameObject = !candidate || d->alive;
    if (candidate == d->active && sameObject)
        return;
    d->active = candidate;
    d->alive = candidate;
    emit workspaceActivated(candidate);
}

void OvMdiArea::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        const auto subWindows = subWindowList();
        for (const QMdiSubWindow* subWindow : subWindows)
            retranslateWindowMenu(subWindow);
    }
    QMdiArea::changeEvent(event);
}

void OvMdiArea::paintEvent(QPaintEvent* event)
{
    QMdiArea::paintEvent(event);
    QPainter painter(viewport());
    const QPixmap logo(QStringLiteral(":/resource/images/Maravel_logo_200x260_trans.png"));
    const QPoint topLeft((rect().width() - logo.width()) / 2,
                         (rect().height() - logo.height()) / 2);
    painter.drawPixmap(viewport()->mapFromParent(topLeft), logo);
}
