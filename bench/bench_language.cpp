#include "Figure.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvProjectDefineNode.h"
#include "OvBase/OvProjectManager.h"
#include "OvBase/OvTranslator.h"
#include "OvBase/OvUserDefineNode.h"
#include "OvGui/OvGatherViewController.h"
#include "OvTarnpick/OvTarnpick.h"
#include "fixtures/SegyWriter.h"

#include <QApplication>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QTemporaryDir>
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
        const QObjectList children = watched->children();
        for (QObject* child : children) {
            if (child->isWidgetType())
                QCoreApplication::sendEvent(child, event);
        }
        return true;
    }
};

double changeTime(OvTranslator::LanguageType language)
{
    QElapsedTimer clock;
    clock.start();
    OvTranslator::instance().setSessionLanguage(language);
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
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
    SegyWriter writer;
    writer.sampleCount = 500;
    for (int shot = 0; shot < 3; ++shot)
        writer.addShot(100 + shot, shot * 20.0, 24, 10.0);
    OvProjectDefine define;
    define.name = QStringLiteral("Line");
    define.dataPath = folder;
    define.userId = OvUserDefineNode::instance().userID();
    define.id = OvProjectDefineNode().insertProject(define);
    return writer.write(folder + QStringLiteral("/line.sgy")) &&
           OvProjectManager::instance().openProject(define) &&
           openViews(folder + QStringLiteral("/line.sgy"));
}

void benchChange()
{
    BareChange bare;
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = -1; round < rounds; ++round) {
        const double whole = thereAndBack();
        qApp->installEventFilter(&bare);
        const double without = thereAndBack();
        qApp->removeEventFilter(&bare);
        if (round < 0)
            continue;
        ours.push_back(whole);
        theirs.push_back(without);
    }
    Figure::report("language", Figure::median(ours), Figure::median(theirs), goal);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    OvBaseUtil::setLocalPath(folder.path());
    qputenv("TARNPICK_PLUGIN_PATH",
            QFile::encodeName(QCoreApplication::applicationDirPath() + "/../bin/plugins"));
    if (!OvBaseUtil::initialize().ok() ||
        !OvUserDefineNode::instance().login(folder.filePath(QStringLiteral("Tarnpick.db")))) {
        QTextStream(stderr) << "bench_language: no login\n";
        return 1;
    }
    OvTarnpick window;
    window.resize(1280, 800);
    window.show();
    const auto docks = window.findChildren<QDockWidget*>();
    for (QDockWidget* dock : docks)
        dock->show();
    if (!prepare(folder.path())) {
        QTextStream(stderr) << "bench_language: the views cannot be opened\n";
        return 1;
    }
    benchChange();
    window.close();
    return 0;
}
