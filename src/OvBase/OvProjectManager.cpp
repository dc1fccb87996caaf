#include "OvBase/OvProjectManager.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvProjectDefineNode.h"

#include <QTimer>

namespace {

constexpr int DefaultIntervalSeconds = 60;
constexpr int LongestIntervalSeconds = 24 * 3600;

int intervalMs()
{
    bool isNumber = false;
    const int seconds =
        OvBaseUtil::globalValue(QStringLiteral("autoSaveInterval")).toInt(&isNumber);
    if (!isNumber || seconds < 1)
        return DefaultIntervalSeconds * 1000;
    return qMin(seconds, LongestIntervalSeconds) * 1000;
}

} // namespace

struct OvProjectManager::Private
{
    OvProjectDefine define;
    bool isOpening = false;
    bool isClosing = false;
    OvAbstractViewController* workspace = nullptr;
    std::unique_ptr<QTimer> autoSave;
};

OvProjectManager& OvProjectManager::instance()
{
    static OvProjectManager manager;
    return manager;
}

OvProjectManager::OvProjectManager()
    : d(std::make_unique<Private>())
{
    // By name: this library knows the view only as an opaque pointer, which a typed connection
    // refuses.
    connect(this, SIGNAL(activeWorkspace(OvAbstractViewController*)), this,
            SLOT(rememberWorkspace(OvAbstractViewController*)));
}

OvProjectManager::~OvProjectManager() = default;

void OvProjectManager::init()
{
    d->autoSave = std::make_unique<QTimer>(this);
    connect(d->autoSave.get(), &QTimer::timeout, this, [this] {
        if (d->autoSave->interval() != intervalMs())
            d->autoSave->setInterval(intervalMs());
        emit timeout();
    });
    d->autoSave->start(intervalMs());
}

void OvProjectManager::finish()
{
    d->autoSave.reset();
}

const OvProjectDefine& OvProjectManager::define() const
{
    return d->define;
}

bool OvProjectManager::openProject(const OvProjectDefine& define)
{
    if (!define.isValid() || d->isOpening || d->isClosing)
        return false;
    d->isOpening = true;
    // A copy: the argument may be our own record, which closing resets.
    OvProjectDefine opened = define;
    closeProject();
    opened.openTime = QDateTime::currentDateTime();
    OvProjectDefineNode().noteOpened(opened);
    d->define = opened;
    d->isOpening = false;
    emit projectChanged(opened);
    return true;
}

void OvProjectManager::closeProject()
{
    // A listener of the announcement may call this again.
    if (!d->define.isValid() || d->isClosing)
        return;
    d->isClosing = true;
    emit projectAboutToClose(OvProjectDefine(d->define));
    d->isClosing = false;
    d->define = OvProjectDefine();
    emit projectChanged(OvProjectDefine());
}

void OvProjectManager::addWorkspace(OvAbstractViewController* workspace)
{
    if (workspace)
        emit aboutToAddWorkspace(workspace);
}

OvAbstractViewController* OvProjectManager::currentWorkspace() const
{
    return d->workspace;
}

void OvProjectManager::rememberWorkspace(OvAbstractViewController* workspace)
{
    d->workspace = workspace;
}

void OvProjectManager::forgetWorkspace(const OvAbstractViewController* workspace)
{
    if (workspace && d->workspace == workspace)
        emit activeWorkspace(nullptr);
}
