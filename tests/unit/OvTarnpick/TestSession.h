#pragma once

#include "OvGui/OvAbstractViewController.h"
#include "fixtures/ShellSession.h"

#include <QMetaMethod>

/// A session that makes projects whose data folders exist.
class TestSession : public ShellSession
{
public:
    TestSession()
    {
        // What a QSignalSpy notes of a workspace needs it.
        qRegisterMetaType<OvAbstractViewController*>();
    }

    OvProjectDefine addProject(const QString& name) const
    {
        return ShellSession::addProject(name, makeFolder(QStringLiteral("data/") + name));
    }

    /// Opens and closes a project of that name, which is made when there is none.
    void visitProject(const QString& name) const
    {
        OvProjectDefine define = OvProjectDefineNode().projectByName(name);
        if (!define.isValid())
            define = addProject(name);
        OvProjectManager::instance().openProject(define);
        OvProjectManager::instance().closeProject();
    }
};

/// The signals and slots that a class itself declares, in index order.
inline QStringList ownMethods(const QMetaObject& metaObject)
{
    QStringList signatures;
    for (int i = metaObject.methodOffset(); i < metaObject.methodCount(); ++i)
        signatures.append(QString::fromLatin1(metaObject.method(i).methodSignature()));
    return signatures;
}
