#include "OvPlugins/OvPluginUtil.h"

#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QStatusBar>

namespace {

constexpr int statusTimeMs = 5000;

} // namespace

QMainWindow* OvPluginUtil::mainWindow()
{
    QMainWindow* found = nullptr;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        auto* window = qobject_cast<QMainWindow*>(widget);
        if (window && window->objectName() == QLatin1String("OvTarnpick") &&
            (!found || window->isVisible()))
            found = window;
    }
    return found;
}

void OvPluginUtil::showStatus(const QString& text)
{
    if (QMainWindow* window = mainWindow())
        window->statusBar()->showMessage(text, statusTimeMs);
    qInfo("%s", qUtf8Printable(text));
}

void OvPluginUtil::showWarning(const QString& text, QWidget* parent)
{
    auto* box = new QMessageBox(QMessageBox::Warning, QObject::tr("Warning"), text, QMessageBox::Ok,
                                parent ? parent : mainWindow());
    // File names and messages from files may look like markup.
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}
