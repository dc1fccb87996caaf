#include "OvBase/OvTranslator.h"
#include "OvTarnpick/OvAboutDialog.h"
#include "OvTarnpick/OvLoginDlg.h"
#include "OvTarnpick/controller/OvProjectCreateDlg.h"
#include "OvTarnpick/controller/OvProjectManageDlg.h"
#include "OvTarnpick/gadget/OvMainBillBoard.h"
#include "OvTarnpick/gadget/OvMainGadget.h"
#include "OvTarnpick/gadget/OvObjectBoard.h"
#include "OvTarnpick/gadget/OvPickFBDefineWidget.h"
#include "OvTarnpick/utility/OvConsole.h"
#include "OvTarnpick/utility/OvSensitivityEditor.h"
#include "fixtures/ShellSession.h"

#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include <functional>
#include <memory>

using Maker = std::function<QWidget*()>;
Q_DECLARE_METATYPE(Maker)

/// The forms in both languages: each can be built and translated, and nothing on it is clipped.
/// Warnings end the program.
class tst_FormLayout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void builds_data();
    void builds();
    void nothingIsClipped_data();
    void nothingIsClipped();

private:
    static void addForms(const char* suffix, OvTranslator::LanguageType language);

    std::unique_ptr<ShellSession> m_session;
};

void tst_FormLayout::initTestCase()
{
    m_session = std::make_unique<ShellSession>();
    QVERIFY(m_session->isReady());
}

void tst_FormLayout::cleanup()
{
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
}

void tst_FormLayout::addForms(const char* suffix, OvTranslator::LanguageType language)
{
    const auto row = [&](const char* name, const Maker& maker) {
        QTest::newRow(QByteArray(name) + suffix) << maker << int(language);
    };
    row("login", [] { return new OvLoginDlg; });
    row("about", [] { return new OvAboutDialog; });
    row("new project", [] { return new OvProjectCreateDlg; });
    row("open project", [] { return new OvProjectManageDlg(OvProjectManageDlg::OpenProject); });
    row("manage projects",
        [] { return new OvProjectManageDlg(OvProjectManageDlg::ManageProjects); });
    row("billboard", [] { return new OvMainBillBoard; });
    row("object board", [] { return new OvObjectBoard(QString()); });
    row("main gadget", [] { return new OvMainGadget; });
    row("picking parameters", [] { return new OvPickFBDefineWidget; });
    row("sensitivity", [] { return new OvSensitivityEditor; });
    row("console", [] { return new OvConsole; });
}

void tst_FormLayout::builds_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::addColumn<int>("language");
    addForms("", OvTranslator::English);
    addForms(" in Chinese", OvTranslator::Chinese);
}

void tst_FormLayout::builds()
{
    QFETCH(Maker, maker);
    QFETCH(int, language);
    QCOMPARE(qgetenv("QT_FATAL_WARNINGS"), QByteArray("1"));
    OvTranslator::instance().setSessionLanguage(static_cast<OvTranslator::LanguageType>(language));
    const std::unique_ptr<QWidget> form(maker());
    QCOMPARE(form->objectName(), QLatin1String(form->metaObject()->className()));
    // A change of language and back reaches every text.
    for (int i = 0; i < 2; ++i) {
        QEvent event(QEvent::LanguageChange);
        QApplication::sendEvent(form.get(), &event);
    }
    QVERIFY(!form->grab().isNull());
}

void tst_FormLayout::nothingIsClipped_data()
{
    builds_data();
}

// Every label and button has room for its text.
void tst_FormLayout::nothingIsClipped()
{
    QFETCH(Maker, maker);
    QFETCH(int, language);
    OvTranslator::instance().setSessionLanguage(static_cast<OvTranslator::LanguageType>(language));
    const std::unique_ptr<QWidget> form(maker());
    form->resize(form->size().expandedTo(form->minimumSizeHint()));
    form->grab();
    for (const auto* label : form->findChildren<QLabel*>()) {
        const bool isShown = label->isVisibleTo(form.get()) && !label->text().isEmpty();
        const QSize needed = label->minimumSizeHint();
        QVERIFY2(!isShown || needed == needed.boundedTo(label->size()),
                 qPrintable(label->objectName()));
    }
    for (const auto* button : form->findChildren<QPushButton*>()) {
        const QSize needed = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
        QVERIFY2(!button->isVisibleTo(form.get()) || needed == needed.boundedTo(button->size()),
                 qPrintable(button->objectName()));
    }
}

int main(int argc, char** argv)
{
    qputenv("QT_FATAL_WARNINGS", "1");
    QApplication application(argc, argv);
    tst_FormLayout test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_FormLayout.moc"
