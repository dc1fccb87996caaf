#include "SharedKeys.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMap>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>

namespace {

/// Who is called by which key, in one place.
using Users = QMap<QString, QStringList>;

void add(Users* users, const QKeySequence& key, const QString& text)
{
    if (!key.isEmpty())
        (*users)[key.toString()] += text;
}

QStringList textsOf(const QWidget* widget)
{
    QStringList texts;
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label && label->buddy())
        texts += label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        texts += button->text();
    if (const auto* group = qobject_cast<const QGroupBox*>(widget))
        texts += group->title();
    if (const auto* tabs = qobject_cast<const QTabBar*>(widget))
        for (int i = 0; i < tabs->count(); ++i)
            texts += tabs->tabText(i);
    return texts;
}

const QWidget* documentWindowOf(const QWidget* widget)
{
    while (widget && !qobject_cast<const QMdiSubWindow*>(widget))
        widget = widget->parentWidget();
    return widget;
}

class Survey
{
public:
    explicit Survey(QWidget* window)
    {
        if (const auto* bar = window->findChild<QMenuBar*>())
            addEntries(bar->actions(), &m_places[nullptr]);
        const auto widgets = window->findChildren<QWidget*>();
        for (QWidget* widget : widgets) {
            if (!widget->isVisible() || widget->window() != window)
                continue;
            for (const QString& text : textsOf(widget))
                add(&m_places[documentWindowOf(widget)], QKeySequence::mnemonic(text), text);
        }
    }

    QStringList shared() const
    {
        QStringList found = sharedIn(m_shortcuts);
        for (const Users& menu : m_menus)
            found += sharedIn(menu);
        // Parts of the main window are called from each document window, too.
        const Users whole = m_places.value(nullptr);
        for (auto place = m_places.begin(); place != m_places.end(); ++place) {
            Users users = place.value();
            for (auto key = whole.begin(); place.key() && key != whole.end(); ++key)
                users[key.key()] += key.value();
            found += sharedIn(users);
        }
        found.removeDuplicates();
        return found;
    }

private:
    void addEntries(const QList<QAction*>& actions, Users* users)
    {
        for (const QAction* action : actions) {
            if (!action->isVisible() || action->isSeparator())
                continue;
            add(users, QKeySequence::mnemonic(action->text()), action->text());
            for (const QKeySequence& key : action->shortcuts())
                add(&m_shortcuts, key, action->text());
            if (!action->menu())
                continue;
            Users below;
            addEntries(action->menu()->actions(), &below);
            m_menus.append(below);
        }
    }

    static QStringList sharedIn(const Users& users)
    {
        QStringList found;
        for (auto key = users.begin(); key != users.end(); ++key) {
            if (key.value().size() > 1)
                found += key.key() + QStringLiteral(": ") + key.value().join(QStringLiteral(", "));
        }
        return found;
    }

    QMap<const QWidget*, Users> m_places;
    QList<Users> m_menus;
    Users m_shortcuts;
};

} // namespace

QStringList SharedKeys::of(QWidget* window)
{
    return Survey(window).shared();
}
