#include "host/OvDemoSurvey.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvProjectDefineNode.h"
#include "OvBase/OvUserDefineNode.h"

#include <QDir>
#include <QEventLoop>
#include <QProcess>
#include <QProgressDialog>

#include <memory>

namespace {

/// Shown while the generator runs; it has no end that could be foretold.
std::unique_ptr<QProgressDialog> busyWindow(const QString& text)
{
    auto window = std::make_unique<QProgressDialog>(text, QString(), 0, 0);
    window->setWindowTitle(OvDemoSurvey::tr("Maravel"));
    window->setMinimumDuration(200);
    window->setValue(0);
    return window;
}

/// Runs a program to its end while the event loop goes on.
OvStatus runToEnd(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    QEventLoop loop;
    const auto quit = [&loop] { loop.quit(); };
    QObject::connect(&process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), &loop,
                     quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, quit);
    process.start(program, arguments);
    if (process.state() != QProcess::NotRunning)
        loop.exec();
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 &&
        process.error() == QProcess::UnknownError)
        return OvStatus::success();
    const QString output = QString::fromLocal8Bit(process.readAll()).trimmed();
    return OvStatus::failure(OvDemoSurvey::tr("%1 could not make the demo line: %2")
                                 .arg(QDir::toNativeSeparators(program),
                                      output.isEmpty() ? process.errorString() : output));
}

} // namespace

QString OvDemoSurvey::projectName()
{
    return QStringLiteral("Demo");
}

QString OvDemoSurvey::folder()
{
    return OvBaseUtil::localPath() + QStringLiteral("/demo");
}

QString OvDemoSurvey::file()
{
    return folder() + QStringLiteral("/demo_line.sgy");
}

OvStatus OvDemoSurvey::make()
{
    const auto window = busyWindow(tr("Making the demo line..."));
    const QString generator =
        QCoreApplication::applicationDirPath() + QStringLiteral("/tarnpick-demo");
    return runToEnd(generator, {folder()});
}

OvStatus OvDemoSurvey::ensureProject()
{
    OvProjectDefineNode table;
    if (table.projectByName(projectName()).isValid())
        return OvStatus::success();
    OvProjectDefine define;
    define.name = projectName();
    define.userId = OvUserDefineNode::instance().userID();
    define.dataPath = folder();
    define.description = tr("A synthetic refraction line with known first breaks.");
    define.createTime = QDateTime::currentDateTime();
    if (table.insertProject(define) < 0)
        return OvStatus::failure(tr("The project \"%1\" cannot be stored.").arg(projectName()));
    return OvStatus::success();
}
