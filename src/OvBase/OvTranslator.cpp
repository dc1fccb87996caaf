#include "OvBase/OvTranslator.h"

#include "OvBase/OvBaseUtil.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <map>

namespace {

const QString LanguageKey = QStringLiteral("language");
const QString CatalogueFolder = QStringLiteral(":/resource/translations");

QStringList shellCatalogues(OvTranslator::LanguageType type)
{
    if (type == OvTranslator::English)
        return {QStringLiteral("Tarnpick_en.qm")};
    return {QStringLiteral("qt_zh_CN.qm"), QStringLiteral("Tarnpick_cn.qm")};
}

bool isShellThere(const QDir& folder)
{
    const QStringList all =
        shellCatalogues(OvTranslator::English) + shellCatalogues(OvTranslator::Chinese);
    return std::any_of(all.begin(), all.end(),
                       [&folder](const QString& name) { return folder.exists(name); });
}

QStringList missingNames(OvTranslator::LanguageType type)
{
    const QDir folder(CatalogueFolder);
    QStringList missing;
    if (!isShellThere(folder))
        return missing;
    const QStringList needed = shellCatalogues(type);
    for (const QString& name : needed) {
        if (!folder.exists(name))
            missing.append(name);
    }
    return missing;
}

QStringList catalogueNames(OvTranslator::LanguageType type)
{
    const auto matching = [](const QString& pattern) {
        return QDir(CatalogueFolder)
            .entryList({pattern}, QDir::Files | QDir::CaseSensitive, QDir::Name);
    };
    if (type == OvTranslator::English)
        return matching(QStringLiteral("*_en.qm"));
    // The toolkit's own texts first: of two catalogues the later one wins.
    return matching(QStringLiteral("*_zh_CN.qm")) + matching(QStringLiteral("*_cn.qm"));
}

QLocale localeOf(OvTranslator::LanguageType type)
{
    return type == OvTranslator::Chinese ? QLocale(QLocale::Chinese, QLocale::China)
                                         : QLocale(QLocale::English, QLocale::UnitedStates);
}

} // namespace

struct OvTranslator::Private
{
    using Catalogues = std::map<QString, std::unique_ptr<QTranslator>>;

    LanguageType language = English;
    bool isSessionOnly = false;
    Catalogues installed; ///< by name
    QStringList reported; ///< catalogues of this language that are missing or damaged

    QStringList install(LanguageType type);
    void report(const QStringList& lost);
    bool change(LanguageType type);
};

/// The names of the catalogues that are missing or damaged.
QStringList OvTranslator::Private::install(LanguageType type)
{
    QStringList lost = missingNames(type);
    const QStringList names = catalogueNames(type);
    for (const QString& name : names) {
        if (installed.count(name))
            continue;
        auto translator = std::make_unique<QTranslator>();
        if (!translator->load(name, CatalogueFolder)) {
            lost.append(name);
            continue;
        }
        QCoreApplication::installTranslator(translator.get());
        installed[name] = std::move(translator);
    }
    return lost;
}

void OvTranslator::Private::report(const QStringList& lost)
{
    QStringList fresh;
    for (const QString& name : lost) {
        if (!reported.contains(name))
            fresh.append(name);
    }
    reported += fresh;
    if (!fresh.isEmpty())
        qWarning("The translations %s are missing or damaged; their texts stay English.",
                 qUtf8Printable(fresh.join(QStringLiteral(", "))));
}

bool OvTranslator::Private::change(LanguageType type)
{
    if (type == language)
        return true;
    Catalogues former = std::move(installed);
    installed.clear();
    const QStringList lost = install(type);
    if (installed.empty() && type != English) {
        qWarning("No translations can be read in %s (%s); the language stays what it was.",
                 qUtf8Printable(CatalogueFolder), qUtf8Printable(lost.join(QStringLiteral(", "))));
        installed = std::move(former);
        return false;
    }
    language = type;
    reported.clear();
    report(lost);
    QLocale::setDefault(localeOf(type));
    return true;
}

OvTranslator& OvTranslator::instance()
{
    static OvTranslator translator;
    return translator;
}

OvTranslator::OvTranslator()
    : d(std::make_unique<Private>())
{
    QLocale::setDefault(localeOf(English));
    d->report(d->install(English));
}

OvTranslator::~OvTranslator() = default;

OvTranslator::LanguageType OvTranslator::languageType() const
{
    return d->language;
}

void OvTranslator::setLanguageType(LanguageType type)
{
    if (!d->change(type))
        return;
    d->isSessionOnly = false;
    const OvStatus status = OvBaseUtil::setGlobalValue(LanguageKey, static_cast<int>(type));
    if (!status)
        qWarning("%s", qUtf8Printable(status.message()));
}

void OvTranslator::setSessionLanguage(LanguageType type)
{
    d->isSessionOnly = d->change(type);
}

void OvTranslator::restore()
{
    const QVariant stored = OvBaseUtil::globalValue(LanguageKey);
    if (d->isSessionOnly || !stored.isValid())
        return;
    d->change(stored.toInt() == English ? English : Chinese);
}

void OvTranslator::refreshCatalogues()
{
    d->report(d->install(d->language));
}
