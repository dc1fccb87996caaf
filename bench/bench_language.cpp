#include "BenchProgram.h"
#include "BenchSegy.h"
#include "Figure.h"

#include "OvBase/OvProjectDefineNode.h"
#include "OvBase/OvProjectManager.h"
#include "OvBase/OvTranslator.h"
#include "OvBase/OvUserDefineNode.h"
#include "OvGui/OvGatherViewController.h"
#include "OvTarnpick/OvTarnpick.h"

#include <QDockWidget>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

// A change of the language with twenty open workspaces and all docks shown, against the same
// catalogues installed for the same widgets without what the program's own classes then do.

namespace {

constexpr int rounds = 9;
constexpr int workspaces = 20;
constexpr double goal = 3.0;

/// Keeps a change of the language from the program's own classes and hands it on to what is below.
class BareChange : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::LanguageChange || !watched->isWidgetType() ||
            !QByteArray(watched->metaObject()->className()).startsWith("Ov"))
            return false;
        const auto widgets = watched->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget* widget : widgets)
            QCoreApplication::sendEvent(widget, event);
        return true;
    }
};

double changeTime(OvTranslator::LanguageType language)
{
    return Figure::timed([language] {
        OvTranslator::instance().setSessionLanguage(language);
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    });
}

/// Both ways, so that either kind of round leaves English behind.
double thereAndBack()
{
    const double there = changeTime(OvTranslator::Chinese);
    return (there + changeTime(OvTranslator::English)) / 2;
}

bool openViews(const QString& path)
{
    for (int i = 0; i < workspaces; ++i) {
        OvStatus status;
        const auto document = OvSegyDocument::open(path, &status);
        if (!document)
            return false;
        auto* view = new OvGatherViewController(document);
        QEventLoop loop;
        QObject::connect(view, &OvGatherViewController::gatherShown, &loop, &QEventLoop::quit);
        QTimer::singleShot(10000, &loop, &QEventLoop::quit);
        OvProjectManager::instance().addWorkspace(view);
        loop.exec();
    }
    return true;
}

bool prepare(const QString& folder)
{
    BenchSegy line;
    line.tracesPerGather = 24;
    line.traces = 3LL * line.tracesPerGather;
    line.samples = 500;
    line.format = 5;
    OvProjectDefine define;
    define.name = QStringLiteral("Line");
    define.dataPath = folder;
    define.userId = OvUserDefineNode::instance().userID();
    define.id = OvProjectDefineNode().insertProject(define);
    return line.write(folder + QStringLiteral("/line.sgy")) &&
           OvProjectManager::instance().openProject(define) &&
           openViews(folder + QStringLiteral("/line.sgy"));
}

void benchChange()
{
    BareChange bare;
    const auto without = [&bare] {
        qApp->installEventFilter(&bare);
        const double time = thereAndBack();
        qApp->removeEventFilter(&bare);
        return time;
    };
    Figure::race("language", rounds, goal, thereAndBack, without);
}

} // namespace

int main(int argc, char** argv)
{
    const BenchProgram program(argc, argv);
    qputenv("TARNPICK_PLUGIN_PATH",
            QFile::encodeName(QCoreApplication::applicationDirPath() + "/../bin/plugins"));
    if (!OvBaseUtil::initialize() ||
        !OvUserDefineNode::instance().login(program.path(QStringLiteral("Tarnpick.db"))))
        return BenchProgram::fail("no login");
    OvTarnpick window;
    window.resize(1280, 800);
    window.show();
    const auto docks = window.findChildren<QDockWidget*>();
    for (QDockWidget* dock : docks)
        dock->show();
    if (!prepare(program.folder()))
        return BenchProgram::fail("the views cannot be opened");
    benchChange();
    window.close();
    return 0;
}
