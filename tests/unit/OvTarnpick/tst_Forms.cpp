#include "OvTarnpick/OvAboutDialog.h"
#include "OvTarnpick/OvLoginDlg.h"
#include "OvTarnpick/OvTarnpick.h"
#include "OvTarnpick/controller/OvLinkWindowDlg.h"
#include "OvTarnpick/controller/OvProjectCreateDlg.h"
#include "OvTarnpick/controller/OvProjectManageDlg.h"
#include "OvTarnpick/gadget/OvObjectBoard.h"
#include "OvTarnpick/gadget/OvPickFBDefineWidget.h"
#include "OvTarnpick/utility/OvSensitivityEditor.h"

#include "ConsoleLines.h"
#include "TestSession.h"
#include "TestView.h"

#include <QAction>
#include <QMdiSubWindow>
#include <QtTest>

#include <memory>

/// Every form is made while each warning ends the program: a slot that no longer fits the name of
/// its widget warns.
class tst_Forms : public QObject
{
    Q_OBJECT

private slots:
    void warningsAreFatal();
    void makesEveryForm();
    void makesTheMainWindow();
};

void tst_Forms::warningsAreFatal()
{
    QCOMPARE(qgetenv("QT_FATAL_WARNINGS"), QByteArray("1"));
}

void tst_Forms::makesEveryForm()
{
    const TestSession session;
    QVERIFY(session.isReady());
    TestView view(QStringLiteral("A"));
    const OvLoginDlg login;
    const OvAboutDialog about;
    const OvLinkWindowDlg link({&view}, {}, nullptr);
    const OvProjectCreateDlg create;
    const OvProjectManageDlg open(OvProjectManageDlg::OpenProject);
    const OvProjectManageDlg manage(OvProjectManageDlg::ManageProjects);
    const OvObjectBoard board(QStringLiteral("caption"));
    const OvPickFBDefineWidget pick;
    const OvSensitivityEditor sensitivity;
    for (const QWidget* form :
         {static_cast<const QWidget*>(&login), static_cast<const QWidget*>(&about),
          static_cast<const QWidget*>(&link), static_cast<const QWidget*>(&create),
          static_cast<const QWidget*>(&open), static_cast<const QWidget*>(&manage),
          static_cast<const QWidget*>(&board), static_cast<const QWidget*>(&pick),
          static_cast<const QWidget*>(&sensitivity)})
        QVERIFY2(!form->findChildren<QWidget*>().isEmpty(), form->metaObject()->className());
}

void tst_Forms::makesTheMainWindow()
{
    const TestSession session;
    OvTarnpick window;
    QVERIFY(window.findChild<QAction*>(QStringLiteral("actionTile")));
    QCOMPARE(consoleWarnings(), QStringList());
}

int main(int argc, char* argv[])
{
    qputenv("QT_FATAL_WARNINGS", "1");
    const QApplication application(argc, argv);
    tst_Forms test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_Forms.moc"
