#include "OvPlugins/OvPluginLoader_p.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QSet>

#include <algorithm>
#include <exception>

namespace {

struct Instance
{
    QObject* object = nullptr;
    QString error;
};

Instance instantiate(const QString& file)
{
    QPluginLoader loader(file);
    Instance result;
    try {
        result.object = loader.instance();
        if (!result.object)
            result.error = loader.errorString();
        return result;
    } catch (const std::exception& exception) {
        // Copied: the text may lie in the library that is unloaded below.
        result.error = OvPluginLoader::tr("it failed to start: %1")
                           .arg(QString::fromLocal8Bit(exception.what()));
    } catch (...) {
        result.error = OvPluginLoader::tr("it failed to start");
    }
    loader.unload();
    return result;
}

QStringList librariesIn(const QString& folder)
{
    QStringList files;
    const QFileInfoList entries = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo& entry : entries) {
        if (QLibrary::isLibrary(entry.fileName()))
            files.append(entry.canonicalFilePath());
    }
    return files;
}

QStringList environmentFolders()
{
    const QString value = QString::fromLocal8Bit(qgetenv("TARNPICK_PLUGIN_PATH"));
    QStringList folders = value.split(QDir::listSeparator());
    folders.removeAll(QString());
    return folders;
}

} // namespace

OvPluginLoader::OvPluginLoader(const Kind& kind)
    : m_kind(kind)
{
}

QStringList OvPluginLoader::searchFolders() const
{
    const QDir executable(QCoreApplication::applicationDirPath());
    QStringList folders{
        executable.filePath(QStringLiteral("plugins/") + m_kind.folder),
        QDir::cleanPath(
            executable.filePath(QStringLiteral(TARNPICK_PLUGIN_DIR "/") + m_kind.folder)),
    };
    const QStringList named = environmentFolders();
    for (const QString& folder : named)
        folders << folder + QLatin1Char('/') + m_kind.folder << folder;
    return folders;
}

QList<OvPluginLoader::Plugin> OvPluginLoader::load(const QStringList& folders)
{
    QStringList files;
    for (const QString& folder : folders)
        files += librariesIn(folder);
    files.removeDuplicates();
    for (const QString& file : qAsConst(files))
        loadFile(file);
    std::sort(m_plugins.begin(), m_plugins.end(), [](const Plugin& a, const Plugin& b) {
        return a.order != b.order ? a.order < b.order : a.name < b.name;
    });
    return m_plugins;
}

void OvPluginLoader::loadFile(const QString& file)
{
    const QPluginLoader loader(file);
    Plugin plugin;
    if (!describe(file, loader.metaData(), &plugin))
        return;
    if (isNameTaken(plugin)) {
        warn(file, tr("another %1 is called \"%2\" already").arg(m_kind.name, plugin.name));
        return;
    }
    const Instance instance = instantiate(file);
    plugin.instance = instance.object;
    if (plugin.instance)
        m_plugins.append(plugin);
    else
        warn(file, instance.error);
}

bool OvPluginLoader::describe(const QString& file, const QJsonObject& metaData,
                              Plugin* plugin) const
{
    const QString iid = metaData.value(QLatin1String("IID")).toString();
    if (isOfOtherKindInSharedFolder(file, iid) || !checkInterface(file, iid))
        return false;
    const QJsonObject description = metaData.value(QLatin1String("MetaData")).toObject();
    const QString kind = description.value(QLatin1String("kind")).toString();
    plugin->file = file;
    plugin->name = description.value(QLatin1String("name")).toString();
    plugin->order = description.value(QLatin1String("order")).toInt();
    if (plugin->name.isEmpty() || kind.isEmpty())
        warn(file, tr("its description lacks the name or the kind"));
    else if (kind != m_kind.name)
        warn(file, tr("its description calls it \"%1\", not \"%2\"").arg(kind, m_kind.name));
    else
        return true;
    return false;
}

bool OvPluginLoader::checkInterface(const QString& file, const QString& iid) const
{
    if (iid == m_kind.iid)
        return true;
    const QLatin1Char slash('/');
    if (iid.isEmpty())
        warn(file, tr("it is no plug-in"));
    else if (iid.section(slash, 0, 0) != m_kind.iid.section(slash, 0, 0))
        warn(file, tr("it is no %1 but of the interface \"%2\"").arg(m_kind.name, iid));
    else
        warn(file, tr("it is made for version %1 of the interface, this program has version %2")
                       .arg(iid.section(slash, 1), m_kind.iid.section(slash, 1)));
    return false;
}

bool OvPluginLoader::isOfOtherKindInSharedFolder(const QString& file, const QString& iid) const
{
    // A folder that is not named after a kind may hold both; the other factory sees to this one.
    const QString folder = QFileInfo(file).dir().dirName();
    if (folder == QLatin1String("modules") || folder == QLatin1String("extensions"))
        return false;
    const QString interface = iid.section(QLatin1Char('/'), 0, 0);
    return interface.startsWith(QLatin1String("org.tarnpick.")) &&
           interface != m_kind.iid.section(QLatin1Char('/'), 0, 0);
}

bool OvPluginLoader::isNameTaken(const Plugin& plugin) const
{
    return std::any_of(m_plugins.cbegin(), m_plugins.cend(),
                       [&plugin](const Plugin& known) { return known.name == plugin.name; });
}

void OvPluginLoader::warn(const QString& file, const QString& reason)
{
    static QSet<QString> known;
    if (known.contains(file))
        return;
    known.insert(file);
    qWarning(
        "%s",
        qUtf8Printable(
            tr("The plug-in \"%1\" is skipped: %2.").arg(QDir::toNativeSeparators(file), reason)));
}
