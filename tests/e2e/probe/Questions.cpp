#include "Questions.h"

#include "OvBase/OvProjectManager.h"
#include "OvBase/OvTaskManager.h"
#include "OvGui/OvGatherViewController.h"
#include "OvGui/canvas/OvGatherCanvas.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QJsonArray>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QToolButton>

#include <algorithm>

namespace {

QJsonArray toJson(const QRect& rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

QRect globalRect(const QWidget* widget, const QRect& rect)
{
    return {widget->mapToGlobal(rect.topLeft()), rect.size()};
}

/// The widget of a name, a visible one and one of the modal dialog before others.
QWidget* findWidget(const QString& name)
{
    QWidgetList widgets;
    const QWidgetList all = QApplication::allWidgets();
    std::copy_if(all.begin(), all.end(), std::back_inserter(widgets),
                 [&](const QWidget* widget) { return widget->objectName() == name; });
    const QWidget* modal = QApplication::activeModalWidget();
    const auto rank = [modal](const QWidget* widget) {
        return (modal && modal->isAncestorOf(widget) ? 2 : 0) + (widget->isVisible() ? 1 : 0);
    };
    const auto best = std::max_element(widgets.begin(), widgets.end(),
                                       [&](QWidget* a, QWidget* b) { return rank(a) < rank(b); });
    return best == widgets.end() ? nullptr : *best;
}

QString textOf(const QObject* object)
{
    for (const char* name : {"plainText", "text", "currentText", "title", "windowTitle"}) {
        const QVariant value = object->property(name);
        if (value.isValid() && !value.toString().isEmpty())
            return value.toString();
    }
    return {};
}

QJsonObject aboutWidget(const QJsonObject& question)
{
    const QWidget* widget = findWidget(question["name"].toString());
    if (!widget)
        return {{"found", false}};
    return {{"found", true},
            {"visible", widget->isVisible()},
            {"enabled", widget->isEnabled()},
            {"focus", widget->hasFocus()},
            {"rect", toJson(globalRect(widget, widget->rect()))},
            {"text", textOf(widget)},
            {"checked", widget->property("checked").toBool()},
            {"value", QJsonValue::fromVariant(widget->property("value"))}};
}

QMainWindow* mainWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window->inherits("OvTarnpick"))
            return qobject_cast<QMainWindow*>(window);
    }
    return nullptr;
}

/// The first action below a menu or menu bar that fits, with the widget that shows it.
template <typename Fits>
QAction* findAction(QWidget* host, QWidget** shownBy, const Fits& fits)
{
    const QList<QAction*> actions = host->actions();
    for (QAction* action : actions) {
        *shownBy = host;
        if (fits(action))
            return action;
        QAction* below = action->menu() ? findAction(action->menu(), shownBy, fits) : nullptr;
        if (below)
            return below;
    }
    return nullptr;
}

QRect rectOf(QWidget* host, QAction* action)
{
    if (auto* menu = qobject_cast<QMenu*>(host))
        return globalRect(menu, menu->actionGeometry(action));
    if (auto* bar = qobject_cast<QMenuBar*>(host))
        return globalRect(bar, bar->actionGeometry(action));
    return {};
}

QJsonObject describe(QAction* action, QWidget* host)
{
    if (!action)
        return {{"found", false}};
    return {{"found", true},
            {"visible", action->isVisible() && host->isVisible()},
            {"enabled", action->isEnabled()},
            {"checked", action->isChecked()},
            {"text", action->text()},
            {"toolTip", action->toolTip()},
            {"rect", toJson(rectOf(host, action))}};
}

QString plainText(const QAction* action)
{
    return QString(action->text()).remove('&');
}

/// By object name, of the action or of its menu, or by visible text.
QJsonObject aboutAction(const QJsonObject& question)
{
    QMainWindow* window = mainWindow();
    if (!window)
        return {{"found", false}};
    const QString name = question["name"].toString();
    const QString text = question["text"].toString();
    QWidget* host = nullptr;
    QAction* action = findAction(window->menuBar(), &host, [&](const QAction* candidate) {
        if (!text.isEmpty())
            return plainText(candidate) == text;
        return candidate->objectName() == name ||
               (candidate->menu() && candidate->menu()->objectName() == name);
    });
    return describe(action, host);
}

/// The visible tool button of an action.
QJsonObject aboutTool(const QJsonObject& question)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget* widget : widgets) {
        auto* button = qobject_cast<QToolButton*>(widget);
        QAction* action = button && button->isVisible() ? button->defaultAction() : nullptr;
        if (action && action->objectName() == question["name"].toString())
            return {{"found", true},
                    {"enabled", button->isEnabled()},
                    {"rect", toJson(globalRect(button, button->rect()))}};
    }
    return {{"found", false}};
}

/// A row of an item view: its texts and the place of its first cell.
QJsonObject aboutRow(const QJsonObject& question)
{
    auto* view = qobject_cast<QAbstractItemView*>(findWidget(question["name"].toString()));
    if (!view || !view->model())
        return {{"found", false}};
    const int row = question["row"].toInt();
    QJsonArray texts;
    for (int column = 0; column < view->model()->columnCount(view->rootIndex()); ++column)
        texts.append(view->model()->index(row, column, view->rootIndex()).data().toString());
    const QModelIndex first = view->model()->index(row, 0, view->rootIndex());
    return {{"found", first.isValid()},
            {"rows", view->model()->rowCount(view->rootIndex())},
            {"texts", texts},
            {"rect", toJson(globalRect(view->viewport(), view->visualRect(first)))}};
}

QJsonObject aboutWindows()
{
    const QWidget* modal = QApplication::activeModalWidget();
    const auto* box = qobject_cast<const QMessageBox*>(modal);
    const QMainWindow* window = mainWindow();
    return {{"main", window && window->isVisible()},
            {"active", window && window->isActiveWindow()},
            {"rect", window ? toJson(globalRect(window, window->rect())) : QJsonArray()},
            {"title", window ? window->windowTitle() : QString()},
            {"popup", QApplication::activePopupWidget() != nullptr},
            {"modal", modal ? modal->objectName() : QString()},
            {"modalClass", modal ? modal->metaObject()->className() : ""},
            {"modalActive", modal && modal->isActiveWindow()},
            {"modalRect", modal ? toJson(globalRect(modal, modal->rect())) : QJsonArray()},
            {"modalTitle", modal ? modal->windowTitle() : QString()},
            {"message", box ? box->text() : QString()}};
}

QJsonObject aboutView()
{
    auto* view =
        qobject_cast<OvGatherViewController*>(OvProjectManager::instance().currentWorkspace());
    if (!view)
        return {{"found", false}};
    const auto document = view->document();
    int picks = 0;
    const int gathers = document->isIndexComplete() ? document->gatherCount() : 0;
    for (int gather = 0; gather < gathers; ++gather)
        picks += document->firstBreaks(gather).pickedCount();
    const QWidget* canvas = view->canvas();
    const auto* gatherCanvas = qobject_cast<const OvGatherCanvas*>(canvas);
    return {{"found", true},
            {"shown", view->isShowingData()},
            {"complete", document->isIndexComplete()},
            {"gather", view->currentGather()},
            {"gathers", view->gatherCount()},
            {"picks", picks},
            {"preview", gatherCanvas ? gatherCanvas->previewPicks().pickedCount() : 0},
            {"file", document->segyPath()},
            {"firstBreakFile", document->firstBreakPath()},
            {"rect", toJson(globalRect(canvas, canvas->rect()))}};
}

} // namespace

QJsonObject Questions::answer(const QJsonObject& question)
{
    const QString what = question["what"].toString();
    if (what == "widget")
        return aboutWidget(question);
    if (what == "action")
        return aboutAction(question);
    if (what == "tool")
        return aboutTool(question);
    if (what == "row")
        return aboutRow(question);
    if (what == "window")
        return aboutWindows();
    if (what == "view")
        return aboutView();
    if (what == "tasks")
        return {{"running", OvTaskManager::instance().hasRunningJob()},
                {"count", OvTaskManager::instance().tasks().size()}};
    if (what == "picture")
        return {{"written", QGuiApplication::primaryScreen()->grabWindow(0).save(
                                question["name"].toString())}};
    return {{"error", "unknown question"}};
}
