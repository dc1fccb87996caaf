#include "OvBase/OvDialog.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvTranslator.h"

#include <QDesktopServices>
#include <QLineEdit>
#include <QtTest>

namespace {

class HelpfulDialog : public OvDialog
{
public:
    QString helpPage() const override { return QStringLiteral("w_cover.html"); }
};

} // namespace

/// Takes the place of the desktop's browser.
class Browser : public QObject
{
    Q_OBJECT

public:
    Browser() { QDesktopServices::setUrlHandler(QStringLiteral("http"), this, "open"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("http")); }

    QStringList pages;

public slots:
    void open(const QUrl& url) { pages.append(url.toString()); }
};

class tst_OvDialog : public QObject
{
    Q_OBJECT

private slots:
    void hasNoQuestionMark();
    void helpKeyOpensThePage();
    void helpKeyWorksInsideAField();
    void helpFollowsTheLanguage();
    void withoutAPageNothingOpens();
    void otherKeysGoOn();
};

void tst_OvDialog::hasNoQuestionMark()
{
    const OvDialog dialog;
    QVERIFY(!(dialog.windowFlags() & Qt::WindowContextHelpButtonHint));
    QVERIFY(dialog.windowFlags() & Qt::WindowCloseButtonHint);
}

void tst_OvDialog::helpKeyOpensThePage()
{
    Browser browser;
    HelpfulDialog dialog;
    QTest::keyClick(&dialog, Qt::Key_F1);
    QCOMPARE(browser.pages, QStringList{QStringLiteral(
                                "http://127.0.0.1:8642/ManualWeb/onlinehelp/en/w_cover.html")});
}

void tst_OvDialog::helpKeyWorksInsideAField()
{
    Browser browser;
    HelpfulDialog dialog;
    auto* const field = new QLineEdit(&dialog);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(field, Qt::Key_F1);
    QCOMPARE(browser.pages.size(), 1);
}

void tst_OvDialog::helpFollowsTheLanguage()
{
    Browser browser;
    HelpfulDialog dialog;
    OvTranslator::instance().setLanguageType(OvTranslator::Chinese);
    QTest::keyClick(&dialog, Qt::Key_F1);
    OvTranslator::instance().setLanguageType(OvTranslator::English);
    QCOMPARE(browser.pages, QStringList{QStringLiteral(
                                "http://127.0.0.1:8642/ManualWeb/onlinehelp/zh/w_cover.html")});
}

void tst_OvDialog::withoutAPageNothingOpens()
{
    Browser browser;
    OvDialog dialog;
    QTest::keyClick(&dialog, Qt::Key_F1);
    QTest::keyClick(&dialog, Qt::Key_F1, Qt::ShiftModifier);
    QCOMPARE(browser.pages, QStringList());
}

void tst_OvDialog::otherKeysGoOn()
{
    HelpfulDialog dialog;
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
}

QTEST_MAIN(tst_OvDialog)
#include "tst_OvDialog.moc"
