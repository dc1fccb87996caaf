#pragma once

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvUserDefineNode.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/// Collects the warnings of one test, so that an unexpected one fails it.
class WarningWatch
{
public:
    WarningWatch()
    {
        current() = this;
        m_former = qInstallMessageHandler(handle);
    }
    ~WarningWatch()
    {
        qInstallMessageHandler(m_former);
        current() = nullptr;
    }
    Q_DISABLE_COPY(WarningWatch)

    /// The next warning contains text.
    void expect(const QString& text) { m_expected.append(text); }
    /// Warnings that nobody expected, and expected ones that did not come.
    QString problems() const { return (m_unexpected + m_expected).join(QLatin1Char('\n')); }

private:
    static WarningWatch*& current()
    {
        static WarningWatch* watch = nullptr;
        return watch;
    }
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& message)
    {
        if (type != QtWarningMsg && type != QtCriticalMsg)
            return current()->m_former(type, context, message);
        // What the offscreen platform cannot do is nobody's fault.
        if (message.startsWith(QLatin1String("This plugin does not support")))
            return;
        QStringList& expected = current()->m_expected;
        if (!expected.isEmpty() && message.contains(expected.constFirst()))
            expected.removeFirst();
        else
            current()->m_unexpected.append(message);
    }

    QtMessageHandler m_former = nullptr;
    QStringList m_expected;
    QStringList m_unexpected;
};

/// A folder with blanks and Chinese characters in its name, and a login to a database in it.
class LoginFixture
{
public:
    LoginFixture() { QDir().mkpath(folder()); }
    ~LoginFixture() { OvBaseUtil::finish(); }
    Q_DISABLE_COPY(LoginFixture)

    QString folder() const { return m_folder.filePath(QStringLiteral("my data 地震 %2")); }
    QString path() const { return folder() + QStringLiteral("/Tarnpick.db"); }
    bool login() { return OvUserDefineNode::instance().login(path()); }

    WarningWatch warnings;

private:
    QTemporaryDir m_folder;
};
