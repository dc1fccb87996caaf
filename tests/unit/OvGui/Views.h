#pragma once

#include "Gathers.h"
#include "OvGui/OvGatherViewController.h"
#include "OvGui/canvas/OvGatherCanvas.h"

#include <QApplication>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>

/// Shown gather views, and the mouse on them.
namespace Views {

inline QSharedPointer<OvSegyDocument> openComplete(const QString& path)
{
    OvStatus status;
    auto document = OvSegyDocument::open(path, &status);
    if (!document || document->isIndexComplete())
        return document;
    QSignalSpy complete(document.data(), &OvSegyDocument::indexComplete);
    complete.wait();
    return document;
}

inline OvGatherCanvas* canvasOf(const OvPlaneViewController& view)
{
    return qobject_cast<OvGatherCanvas*>(view.canvas());
}

/// Shows a view, fitted, and waits until its gather is on the screen.
inline bool show(OvGatherViewController& view)
{
    OvFitDisplayDefine scale;
    scale.fitted = true;
    view.setProperty("FitDisplayDefine", QVariant::fromValue(scale));
    view.resize(900, 600);
    view.show();
    return QTest::qWaitFor([&view] { return view.isShowingData(); });
}

inline void wheel(QWidget* widget, const QPointF& at, int delta,
                  Qt::KeyboardModifiers modifiers = {})
{
    QWheelEvent event(at, widget->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, delta),
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

inline void drag(QWidget* widget, const QPoint& from, const QPoint& to, Qt::MouseButton button,
                 Qt::KeyboardModifiers modifiers = {})
{
    const auto send = [&](QEvent::Type type, const QPoint& at, Qt::MouseButton changed,
                          Qt::MouseButtons held) {
        QMouseEvent event(type, at, widget->mapToGlobal(at), changed, held, modifiers);
        QApplication::sendEvent(widget, &event);
    };
    send(QEvent::MouseButtonPress, from, button, button);
    send(QEvent::MouseMove, (from + to) / 2, Qt::NoButton, button);
    send(QEvent::MouseMove, to, Qt::NoButton, button);
    send(QEvent::MouseButtonRelease, to, button, Qt::NoButton);
}

inline void hover(QWidget* widget, const QPointF& at)
{
    QMouseEvent event(QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

} // namespace Views
