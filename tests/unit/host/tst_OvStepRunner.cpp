#include "host/OvStepRunner.h"

#include <QDialog>
#include <QtTest>

class tst_OvStepRunner : public QObject
{
    Q_OBJECT

private slots:
    void emptyRunSucceeds();
    void stepsRunInOrderEachWhenReady();
    void failedActionEndsTheRun();
    void unreachedStepEndsTheRun();
    void stepsGoOnInsideAModalDialog();
};

void tst_OvStepRunner::emptyRunSucceeds()
{
    OvStepRunner runner;
    QSignalSpy finished(&runner, &OvStepRunner::finished);
    runner.start();
    QTRY_COMPARE(finished.size(), 1);
    QVERIFY(finished.first().first().toBool());
}

void tst_OvStepRunner::stepsRunInOrderEachWhenReady()
{
    OvStepRunner runner;
    QSignalSpy finished(&runner, &OvStepRunner::finished);
    QStringList done;
    bool gate = false;
    int asked = 0;
    runner.add({"a", {}, [&] {
                    done << "a";
                    return true;
                }});
    runner.add({"b",
                [&] {
                    ++asked;
                    return gate;
                },
                [&] {
                    done << "b";
                    return true;
                }});
    runner.add({"c", {}, {}});
    runner.start();
    QTRY_VERIFY(asked > 2);
    QCOMPARE(done, QStringList{"a"});
    gate = true;
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(done, (QStringList{"a", "b"}));
}

void tst_OvStepRunner::failedActionEndsTheRun()
{
    OvStepRunner runner;
    QSignalSpy finished(&runner, &OvStepRunner::finished);
    bool later = false;
    runner.add({"breaks", {}, [] { return false; }});
    runner.add({"later", {}, [&] { return later = true; }});
    runner.start();
    QTRY_COMPARE(finished.size(), 1);
    QVERIFY(!finished.first().first().toBool());
    QCOMPARE(finished.first().at(1).toString(), QString("The step \"breaks\" failed."));
    QVERIFY(!later);
}

void tst_OvStepRunner::unreachedStepEndsTheRun()
{
    OvStepRunner runner;
    QSignalSpy finished(&runner, &OvStepRunner::finished);
    runner.add({"never", [] { return false; }, {}, 50});
    runner.start();
    QTRY_COMPARE(finished.size(), 1);
    QVERIFY(!finished.first().first().toBool());
    QCOMPARE(finished.first().at(1).toString(),
             QString("The step \"never\" was not reached in time."));
}

void tst_OvStepRunner::stepsGoOnInsideAModalDialog()
{
    OvStepRunner runner;
    QSignalSpy finished(&runner, &OvStepRunner::finished);
    int result = -1;
    runner.add({"open", {}, [&] {
                    QDialog dialog;
                    result = dialog.exec();
                    return true;
                }});
    const auto modal = [] { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); };
    runner.add({"accept", [=] { return modal() != nullptr; },
                [=] {
                    modal()->accept();
                    return true;
                }});
    runner.start();
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(result, int(QDialog::Accepted));
}

QTEST_MAIN(tst_OvStepRunner)
#include "tst_OvStepRunner.moc"
