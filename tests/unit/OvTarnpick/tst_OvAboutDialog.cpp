#include "OvTarnpick/OvAboutDialog.h"

#include "OvBase/OvTranslator.h"
#include "fixtures/WarningTrap.h"

#include <QLabel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBrowser>
#include <QTextCursor>
#include <QtTest>

class tst_OvAboutDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void clickOnTheLogoCloses();
    void clickOnTheMarginCloses();
    void clickOnTheTextDoesNot();
    void widthIsFixedHeightAlmost();
    void noteReadsFromTopToBottom();
    void noteFitsWithoutScrolling_data();
    void noteFitsWithoutScrolling();
    void logoIsThere();
    void retranslates();
};

void tst_OvAboutDialog::init()
{
    WarningTrap::start();
}

void tst_OvAboutDialog::cleanup()
{
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    QCOMPARE(WarningTrap::take(), QStringList());
}

void tst_OvAboutDialog::clickOnTheLogoCloses()
{
    OvAboutDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTest::mouseClick(dialog.findChild<QLabel*>(QStringLiteral("label")), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void tst_OvAboutDialog::clickOnTheMarginCloses()
{
    OvAboutDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTest::mouseClick(&dialog, Qt::RightButton, Qt::NoModifier, QPoint(2, 2));
    QVERIFY(!dialog.isVisible());
}

void tst_OvAboutDialog::clickOnTheTextDoesNot()
{
    OvAboutDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto* browser = dialog.findChild<QTextBrowser*>(QStringLiteral("textBrowser"));
    QTest::mouseClick(browser->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 60));
    QVERIFY(dialog.isVisible());
    QVERIFY(browser->openExternalLinks());
}

void tst_OvAboutDialog::widthIsFixedHeightAlmost()
{
    OvAboutDialog dialog;
    dialog.resize(900, 900);
    QCOMPARE(dialog.size(), QSize(460, 284));
    dialog.resize(10, 10);
    QCOMPARE(dialog.size(), QSize(460, 260));
}

void tst_OvAboutDialog::noteReadsFromTopToBottom()
{
    const OvAboutDialog dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("About Maravel"));
    auto* browser = dialog.findChild<QTextBrowser*>(QStringLiteral("textBrowser"));
    const QStringList lines = browser->toPlainText().split('\n');
    QCOMPARE(lines.size(), 9);
    QCOMPARE(lines.mid(0, 3), QStringList({QString(), QString(), QString()}));
    QCOMPARE(lines.at(3), QStringLiteral("Maravel v2.1 (build 20230303)"));
    QCOMPARE(lines.at(4), QString());
    QVERIFY(lines.at(5).contains(QLatin1String("Maravel Cloud")));
    QCOMPARE(lines.at(7), QStringLiteral("All rights reserved."));
    QCOMPARE(lines.at(8), QStringLiteral("https://tarnpick.example.org"));
    QVERIFY(browser->toHtml().contains(QLatin1String("href=\"https://tarnpick.example.org\"")));
    // The ground is white on every desktop, so the address may not take the desktop's tone.
    QTextCursor address = browser->textCursor();
    address.movePosition(QTextCursor::End);
    QCOMPARE(address.charFormat().foreground().color(), QColor(0x1c, 0x6a, 0xa8));
}

void tst_OvAboutDialog::noteFitsWithoutScrolling_data()
{
    QTest::addColumn<int>("language");
    QTest::newRow("English") << int(OvTranslator::English);
    QTest::newRow("Chinese") << int(OvTranslator::Chinese);
}

void tst_OvAboutDialog::noteFitsWithoutScrolling()
{
    QFETCH(int, language);
    OvTranslator::instance().setSessionLanguage(static_cast<OvTranslator::LanguageType>(language));
    OvAboutDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto* browser = dialog.findChild<QTextBrowser*>(QStringLiteral("textBrowser"));
    QCOMPARE(browser->verticalScrollBar()->maximum(), 0);
    QCOMPARE(browser->horizontalScrollBar()->maximum(), 0);
}

void tst_OvAboutDialog::logoIsThere()
{
    const OvAboutDialog dialog;
    auto* label = dialog.findChild<QLabel*>(QStringLiteral("label"));
    QVERIFY(label->pixmap());
    QCOMPARE(label->pixmap()->size(), QSize(100, 130));
    QCOMPARE(label->minimumSize(), QSize(160, 242));
}

void tst_OvAboutDialog::retranslates()
{
    OvAboutDialog dialog;
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    QTRY_COMPARE(dialog.windowTitle(), QStringLiteral("关于 Maravel"));
    auto* browser = dialog.findChild<QTextBrowser*>(QStringLiteral("textBrowser"));
    QVERIFY(browser->toPlainText().contains(QStringLiteral("保留所有权利。")));
    QVERIFY(browser->toPlainText().contains(QStringLiteral(" v2.1 (build 20230303)")));
}

QTEST_MAIN(tst_OvAboutDialog)
#include "tst_OvAboutDialog.moc"
