#include "OvTarnpick/OvTarnpickHelper.h"
#include "OvTarnpick/OvTarnpickHelper_p.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvProjectDefineNode.h"
#include "OvBase/OvProjectManager.h"

#include <QAction>
#include <QDir>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr int recentLimit = 5;
constexpr QLatin1Char separator('|');
constexpr QLatin1Char standIn('\x1f'); // nobody can type it
const QLatin1String recentKey("recentFileList");

QStringList storedNames()
{
    const QString stored = OvBaseUtil::globalValue(recentKey, QString()).toString();
    return stored.split(separator).replaceInStrings(QString(standIn), QString(separator));
}

/// The stored names that have at least one letter, digit or underscore, of any script.
QStringList readableNames()
{
    static const QRegularExpression wordCharacter(QStringLiteral("\\w+"),
                                                  QRegularExpression::UseUnicodePropertiesOption);
    return storedNames().filter(wordCharacter);
}

void storeValue(const QVariant& value)
{
    const OvStatus status = OvBaseUtil::setGlobalValue(recentKey, value);
    if (!status)
        qWarning("%s", qUtf8Printable(status.message()));
}

/// An empty list is stored as no value at all.
void storeNames(QStringList names)
{
    names.replaceInStrings(QString(separator), QString(standIn));
    storeValue(names.isEmpty() ? QVariant() : QVariant(names.join(separator)));
}

QMenu* lastMenu(const QObject* parent, const QString& name)
{
    const auto menus = parent->findChildren<QMenu*>(name, Qt::FindDirectChildrenOnly);
    return menus.isEmpty() ? nullptr : menus.constLast();
}

} // namespace

QMenu* OvTarnpickHelperPrivate::findRecentMenu() const
{
    const QMenu* fileMenu = lastMenu(mainWindow->menuBar(), QStringLiteral("menu_File"));
    return fileMenu ? lastMenu(fileMenu, QStringLiteral("menuRecently_Projects")) : nullptr;
}

void OvTarnpickHelperPrivate::pruneRecentList()
{
    QStringList names = readableNames();
    QStringList known;
    const auto projects = OvProjectDefineNode().projects();
    for (const OvProjectDefine& project : projects)
        known.append(project.name);
    for (int i = names.size() - 1; i >= 0; --i) {
        if (!known.contains(names.at(i)))
            names.removeAt(i);
    }
    storeNames(names);
}

void OvTarnpickHelperPrivate::rebuildRecentMenu()
{
    deleteRecentActions();
    QMenu* menu = findRecentMenu();
    if (!menu)
        return;
    pruneRecentList();
    const QStringList names = readableNames().mid(0, recentLimit);
    menu->setEnabled(!names.isEmpty());
    if (names.isEmpty())
        return;
    QAction* first = menu->actions().value(0);
    for (const QString& name : names)
        insertRecentAction(menu, first, name);
}

void OvTarnpickHelperPrivate::insertRecentAction(QMenu* menu, QAction* before, const QString& name)
{
    auto* action = new QAction(q);
    recentActions.append(action);
    QObject::connect(action, &QAction::triggered, q, &OvTarnpickHelper::slotRecentlyProject);
    action->setText(name);
    menu->insertAction(before, action);
}

void OvTarnpickHelperPrivate::deleteRecentActions()
{
    qDeleteAll(recentActions);
    recentActions.clear();
}

void OvTarnpickHelperPrivate::clearRecentProjects()
{
    if (!findRecentMenu())
        return;
    deleteRecentActions();
    storeNames({});
    rebuildRecentMenu();
}

void OvTarnpickHelperPrivate::addRecentProject(const OvProjectDefine& define)
{
    clearBillBoard();
    if (define.name.isEmpty())
        return;
    QStringList names = storedNames();
    names.removeAll(define.name);
    names.prepend(define.name);
    while (names.size() > recentLimit)
        names.removeLast();
    clearRecentProjects();
    storeNames(names);
    rebuildRecentMenu();
}

void OvTarnpickHelperPrivate::openRecentProject(const QString& name)
{
    const auto projects = OvProjectDefineNode().projects();
    const auto hasName = [&](const OvProjectDefine& project) { return project.name == name; };
    const auto project = std::find_if(projects.begin(), projects.end(), hasName);
    if (project == projects.end())
        return;
    if (QDir(project->dataPath).exists())
        OvProjectManager::instance().openProject(*project);
    else
        QMessageBox::warning(
            mainWindow, QObject::tr("Warning"),
            OvTarnpickHelper::tr("The data folder does not exist, the project cannot be opened."),
            QMessageBox::Ok);
}

void OvTarnpickHelper::slotRecentlyProject()
{
    // Opening a project rebuilds the menu, which deletes the sending action.
    if (const auto* action = qobject_cast<QAction*>(sender()))
        d->openRecentProject(action->text().trimmed());
}

void OvTarnpickHelper::slotProjectAboutToClose(const OvProjectDefine& define)
{
    if (define.isValid())
        d->addRecentProject(define);
}
