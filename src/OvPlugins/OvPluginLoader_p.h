#pragma once

#include "OvPlugins/OvPluginsExport.h"

#include <QCoreApplication>
#include <QList>
#include <QPointer>
#include <QStringList>

class QJsonObject;

/// Finds and loads the plug-ins of one kind. Private to the factories and their tests. GUI thread.
///
/// A plug-in's description is read before any of its code runs: a JSON object with "name" (unique
/// within the kind), "version", "kind" ("module" or "extension") and "order" (a number). What
/// cannot be used is skipped with one warning in the log that names the file and the reason. A
/// plug-in that throws from its constructor is skipped too; one that crashes, or throws while its
/// library's own statics are set up, takes the program with it.
class OVPLUGINS_EXPORT OvPluginLoader
{
    Q_DECLARE_TR_FUNCTIONS(OvPluginLoader)

public:
    struct Kind
    {
        QString name;   ///< as in the description
        QString folder; ///< of the search folders
        QString iid;    ///< interface name, a slash, version
    };
    struct Plugin
    {
        QString file;
        QString name;
        int order = 0;
        QPointer<QObject> instance;
    };

    explicit OvPluginLoader(const Kind& kind);

    /// The folders that a running program searches: below the executable's, the install folder, and
    /// those of the environment variable TARNPICK_PLUGIN_PATH, in this order. Of two plug-ins of
    /// one name the first found stays.
    QStringList searchFolders() const;
    /// Loads what lies in folders; by order number, then by name.
    QList<Plugin> load(const QStringList& folders);

    /// Warns about a file, once in the life of the process.
    static void warn(const QString& file, const QString& reason);

private:
    void loadFile(const QString& file);
    bool describe(const QString& file, const QJsonObject& metaData, Plugin* plugin) const;
    bool checkInterface(const QString& file, const QString& iid) const;
    bool isOfOtherKindInSharedFolder(const QString& file, const QString& iid) const;
    bool isNameTaken(const Plugin& plugin) const;

    Kind m_kind;
    QList<Plugin> m_plugins;
};

/// The plug-ins of a factory: loaded when first asked for, deleted before the application object.
template <typename Interface>
class OvPluginSet
{
public:
    explicit OvPluginSet(const OvPluginLoader::Kind& kind)
        : m_kind(kind)
    {
    }

    /// Loads on the first call; true then.
    bool load()
    {
        if (m_loaded)
            return false;
        m_loaded = true;
        OvPluginLoader loader(m_kind);
        m_plugins = loader.load(loader.searchFolders());
        return true;
    }

    QList<Interface*> plugins() const
    {
        QList<Interface*> list;
        for (const OvPluginLoader::Plugin& plugin : m_plugins) {
            if (auto* interface = qobject_cast<Interface*>(plugin.instance.data()))
                list.append(interface);
        }
        return list;
    }

    /// Drops those that fit does not accept, with its reason in the log.
    template <typename Fit>
    void keepIf(Fit fit)
    {
        QList<OvPluginLoader::Plugin> kept;
        for (const OvPluginLoader::Plugin& plugin : qAsConst(m_plugins)) {
            auto* interface = qobject_cast<Interface*>(plugin.instance.data());
            const QString reason =
                interface ? fit(interface) : OvPluginLoader::tr("it lacks the interface it claims");
            if (reason.isEmpty())
                kept.append(plugin);
            else
                OvPluginLoader::warn(plugin.file, reason);
        }
        m_plugins = kept;
    }

    void clear()
    {
        for (const OvPluginLoader::Plugin& plugin : qAsConst(m_plugins))
            delete plugin.instance.data();
        m_plugins.clear();
    }

private:
    OvPluginLoader::Kind m_kind;
    QList<OvPluginLoader::Plugin> m_plugins;
    bool m_loaded = false;
};
