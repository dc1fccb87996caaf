#include "OvBase/OvTranslator.h"

#include "OvBase/OvBaseUtil.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QSet>
#include <QTranslator>

#include <map>

namespace {

const QString LanguageKey = QStringLiteral("language");
const QString CatalogueFolder = QStringLiteral(":/resource/translations");

QStringList catalogueNames(OvTranslator::LanguageType type)
{
    const QDir folder(CatalogueFolder);
    if (type == OvTranslator::English)
        return folder.entryList({QStringLiteral("*_en.qm")}, QDir::Files, QDir::Name);
    // The toolkit's own texts first: of two catalogues the later one wins.
    return folder.entryList({QStringLiteral("*_zh_CN.qm")}, QDir::Files, QDir::Name) +
           folder.entryList({QStringLiteral("*_cn.qm")}, QDir::Files, QDir::Name);
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
    QSet<QString> reported;

    std::unique_ptr<QTranslator> load(const QString& name);
    QStringList install(LanguageType type);
    bool change(LanguageType type);
};

/// Null, with one warning a catalogue, for a damaged one.
std::unique_ptr<QTranslator> OvTranslator::Private::load(const QString& name)
{
    auto translator = std::make_unique<QTranslator>();
    if (translator->load(name, CatalogueFolder))
        return translator;
    if (!reported.contains(name))
        qWarning("The translations %s cannot be read; their texts stay English.",
                 qUtf8Printable(name));
    reported.insert(name);
    return nullptr;
}

QStringList OvTranslator::Private::install(LanguageType type)
{
    QStringList added;
    const QStringList names = catalogueNames(type);
    for (const QString& name : names) {
        if (installed.count(name))
            continue;
        std::unique_ptr<QTranslator> translator = load(name);
        if (!translator)
            continue;
        QCoreApplication::installTranslator(translator.get());
        installed[name] = std::move(translator);
        added.append(name);
    }
    return added;
}

bool OvTranslator::Private::change(LanguageType type)
{
    if (type == language)
        return true;
    Catalogues former = std::move(installed);
    installed.clear();
    if (install(type).isEmpty() && type != English) {
        qWarning("No translations were found in %s; the language stays what it was.",
                 qUtf8Printable(CatalogueFolder));
        installed = std::move(former);
        return false;
    }
    language = type;
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
    d->install(English);
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
    d->install(d->language);
}
