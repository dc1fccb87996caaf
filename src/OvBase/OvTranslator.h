#pragma once

#include "OvBase/OvBaseExport.h"

#include <QObject>

#include <memory>

/// The program's language. GUI thread.
///
/// Catalogues are the .qm files under :/resource/translations, brought by each library and plug-in:
/// <name>_en.qm for English, <name>_cn.qm and qt_zh_CN.qm for Simplified Chinese. The shell brings
/// Tarnpick_en.qm, Tarnpick_cn.qm and qt_zh_CN.qm together: where one is there, none may be
/// missing.
class OVBASE_EXPORT OvTranslator : public QObject
{
    Q_OBJECT

public:
    enum LanguageType { English = 0, Chinese = 1 };
    Q_ENUM(LanguageType)

    static OvTranslator& instance();
    ~OvTranslator() override;

    LanguageType languageType() const;
    /// Installs the catalogues of the language, so that every window gets a language-change event,
    /// and remembers the choice in the global value "language". Each switch reports the missing and
    /// damaged catalogues in one warning; their texts stay English. Without any catalogue the
    /// language stays what it was.
    void setLanguageType(LanguageType type);
    /// Sets the language without remembering it (a command-line choice), and keeps restore() from
    /// replacing it.
    void setSessionLanguage(LanguageType type);
    /// Takes the remembered language, if any. Called by each login.
    void restore();
    /// Installs catalogues that plug-ins have brought since the last call.
    void refreshCatalogues();

private:
    OvTranslator();
    struct Private;
    std::unique_ptr<Private> d;
};
