#include "host/OvWalkHands.h"

#include "OvBase/OvProjectManager.h"
#include "OvGui/OvGatherViewController.h"
#include "OvGui/canvas/OvGatherCanvas.h"
#include "host/OvHostSession.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>

#include <algorithm>

namespace {

QAction* findAction(const QList<QAction*>& actions, const QString& name)
{
    for (QAction* action : actions) {
        if (action->objectName() == name)
            return action;
        QAction* below = action->menu() ? findAction(action->menu()->actions(), name) : nullptr;
        if (below)
            return below;
    }
    return nullptr;
}

OvGatherCanvas* firstCanvas()
{
    const auto views = OvWalkHands::gatherViews();
    return views.isEmpty() ? nullptr : qobject_cast<OvGatherCanvas*>(views.first()->canvas());
}

// Whether a canvas that can be seen shows all of what it is asked for by now.
bool isDrawn(const QWidget* widget)
{
    const auto* canvas = qobject_cast<const OvGatherCanvas*>(widget);
    return !canvas || !canvas->isVisible() || canvas->isComplete();
}

bool isPicked(const OvGatherCanvas* canvas, int row)
{
    return canvas && row < canvas->firstBreaks().size() && canvas->firstBreaks().hasPick(row);
}

QPointF pickPoint(const OvGatherCanvas* canvas, int row, double shiftMs)
{
    const float timeMs = canvas->firstBreaks().timesMs.at(static_cast<std::size_t>(row));
    return canvas->pointOf(row, static_cast<double>(timeMs) + shiftMs);
}

void sendMouse(QWidget* widget, QEvent::Type type, Qt::MouseButtons held, const QPointF& point,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, point, widget->mapToGlobal(point.toPoint()), button, held, modifiers);
    QApplication::sendEvent(widget, &event);
}

} // namespace

bool OvWalkHands::writePicture(QWidget* widget, const QString& folder, const QString& name)
{
    return widget && QDir().mkpath(folder) &&
           widget->grab().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
}

bool OvWalkHands::pictureOfMain(const QString& folder, const QString& name)
{
    return writePicture(OvHostSession::mainWindow(), folder, name);
}

bool OvWalkHands::pictureWithDialog(const QString& folder, const QString& name)
{
    constexpr int margin = 8;
    QWidget* window = OvHostSession::mainWindow();
    QWidget* dialog = openDialog();
    if (!window || !dialog || !QDir().mkpath(folder))
        return false;
    QPixmap picture = window->grab();
    QRect place(QPoint(), dialog->size());
    place.moveBottomRight(window->rect().bottomRight() - QPoint(margin, margin));
    QPainter painter(&picture);
    painter.drawPixmap(place.topLeft(), dialog->grab());
    painter.setPen(dialog->palette().color(QPalette::Shadow));
    painter.drawRect(place.adjusted(-1, -1, 0, 0));
    painter.end();
    return picture.save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
}

bool OvWalkHands::trigger(const QString& actionName)
{
    QMainWindow* window = OvHostSession::mainWindow();
    QAction* action = window ? findAction(window->menuBar()->actions(), actionName) : nullptr;
    if (!action || !action->isEnabled())
        return false;
    action->trigger();
    return true;
}

QDialog* OvWalkHands::openDialog()
{
    return qobject_cast<QDialog*>(QApplication::activeModalWidget());
}

bool OvWalkHands::confirm(QDialog* dialog)
{
    auto* box = dialog ? dialog->findChild<QDialogButtonBox*>() : nullptr;
    QPushButton* button = box ? box->button(QDialogButtonBox::Ok) : nullptr;
    if (button)
        button->click();
    return button != nullptr;
}

bool OvWalkHands::check(QDialog* dialog, const QString& boxName)
{
    auto* box = dialog ? dialog->findChild<QCheckBox*>(boxName) : nullptr;
    if (!box || !box->isEnabled())
        return false;
    box->setChecked(true);
    return true;
}

bool OvWalkHands::setDockVisible(const char* className, bool visible)
{
    QMainWindow* window = OvHostSession::mainWindow();
    const auto docks = window ? window->findChildren<QDockWidget*>() : QList<QDockWidget*>();
    for (QDockWidget* dock : docks) {
        if (!dock->inherits(className))
            continue;
        dock->setVisible(visible);
        return true;
    }
    return false;
}

bool OvWalkHands::choose(const QString& listName, int entry)
{
    QMainWindow* window = OvHostSession::mainWindow();
    auto* list = window ? window->findChild<QComboBox*>(listName) : nullptr;
    if (!list || !list->isEnabled() || entry >= list->count())
        return false;
    list->setCurrentIndex(entry);
    return true;
}

QList<OvGatherViewController*> OvWalkHands::gatherViews()
{
    QMainWindow* window = OvHostSession::mainWindow();
    return window ? window->findChildren<OvGatherViewController*>()
                  : QList<OvGatherViewController*>();
}

bool OvWalkHands::allShown()
{
    const auto views = gatherViews();
    return !views.isEmpty() &&
           std::all_of(views.begin(), views.end(), [](OvGatherViewController* view) {
               return view->document()->isIndexComplete() && view->isShowingData() &&
                      isDrawn(view->canvas());
           });
}

bool OvWalkHands::hasPicks()
{
    const auto views = gatherViews();
    return !views.isEmpty() &&
           views.first()->document()->firstBreaks(views.first()->currentGather()).pickedCount() > 0;
}

bool OvWalkHands::hasPreview()
{
    const OvGatherCanvas* canvas = firstCanvas();
    return canvas && canvas->previewPicks().pickedCount() > 0;
}

bool OvWalkHands::addSecondView()
{
    const auto views = gatherViews();
    if (views.isEmpty())
        return false;
    auto* second = new OvGatherViewController(views.first()->document());
    OvProjectManager::instance().addWorkspace(second);
    second->setCurrentGather(second->gatherCount() - 1);
    return true;
}

bool OvWalkHands::zoomToPicks(int firstRow, int lastRow)
{
    constexpr double aboveMs = 60.0;
    constexpr double belowMs = 90.0;
    OvGatherCanvas* canvas = firstCanvas();
    if (!isPicked(canvas, firstRow) || !isPicked(canvas, lastRow))
        return false;
    canvas->zoomTo(
        QRectF(pickPoint(canvas, firstRow, -aboveMs), pickPoint(canvas, lastRow, belowMs)));
    return true;
}

bool OvWalkHands::dragAlongPicks(int firstRow, int lastRow, double shiftMs)
{
    OvGatherCanvas* canvas = firstCanvas();
    QVector<QPointF> way;
    for (int row = firstRow; row <= lastRow; ++row) {
        if (!isPicked(canvas, row))
            return false;
        way.append(pickPoint(canvas, row, shiftMs));
    }
    sendMouse(canvas, QEvent::MouseButtonPress, Qt::LeftButton, way.first());
    for (const QPointF& point : qAsConst(way))
        sendMouse(canvas, QEvent::MouseMove, Qt::LeftButton, point);
    sendMouse(canvas, QEvent::MouseButtonRelease, Qt::NoButton, way.last());
    return true;
}

bool OvWalkHands::hoverAtPick(int row)
{
    OvGatherCanvas* canvas = firstCanvas();
    if (!isPicked(canvas, row))
        return false;
    sendMouse(canvas, QEvent::MouseMove, Qt::NoButton, pickPoint(canvas, row, 0.0));
    return true;
}

bool OvWalkHands::showWholeGather()
{
    OvGatherCanvas* canvas = firstCanvas();
    if (!canvas)
        return false;
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(canvas, &leave);
    canvas->fit();
    return true;
}

bool OvWalkHands::rejectPick(int row)
{
    OvGatherCanvas* canvas = firstCanvas();
    if (!isPicked(canvas, row))
        return false;
    const QPointF point = pickPoint(canvas, row, 0.0);
    sendMouse(canvas, QEvent::MouseButtonPress, Qt::LeftButton, point, Qt::ControlModifier);
    sendMouse(canvas, QEvent::MouseButtonRelease, Qt::NoButton, point, Qt::ControlModifier);
    return true;
}
