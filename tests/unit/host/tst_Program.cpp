#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// Runs the built program from outside, without a screen.
class tst_Program : public QObject
{
    Q_OBJECT

private slots:
    void helpAndVersion();
    void wrongArguments();
    void screenshotsShowEveryWindow();
    void screenshotsOfAMissingFileFail();

private:
    struct Run
    {
        int code;
        QString output;
        QString errors;
    };
    static Run run(const QStringList& arguments);
};

tst_Program::Run tst_Program::run(const QStringList& arguments)
{
    QProcess process;
    process.start(qEnvironmentVariable("TARNPICK_BUILD_DIR") + "/bin/tarnpick", arguments);
    if (!process.waitForFinished(500000)) {
        process.kill();
        process.waitForFinished();
        return {-1, {}, "did not end: " + process.errorString()};
    }
    const int code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    return {code, QString::fromLocal8Bit(process.readAllStandardOutput()),
            QString::fromLocal8Bit(process.readAllStandardError())};
}

void tst_Program::helpAndVersion()
{
    const Run help = run({"--help"});
    QCOMPARE(help.code, 0);
    QVERIFY2(help.output.contains("--screenshots"), qPrintable(help.output));
    const Run version = run({"--version"});
    QCOMPARE(version.code, 0);
    QVERIFY2(version.output.startsWith("Tarnpick 2."), qPrintable(version.output));
}

void tst_Program::wrongArguments()
{
    const Run run = tst_Program::run({"--frobnicate"});
    QCOMPARE(run.code, 2);
    QVERIFY(run.output.isEmpty());
    QVERIFY2(run.errors.contains("frobnicate"), qPrintable(run.errors));
}

void tst_Program::screenshotsShowEveryWindow()
{
    const QTemporaryDir folder;
    const Run run = tst_Program::run(
        {"--home", folder.filePath("home"), "--screenshots", folder.filePath("shots")});
    QVERIFY2(run.code == 0, qPrintable(run.errors));
    for (const char* name :
         {"01-login", "02-main", "03-gather", "04-picking", "05-preview", "06-picks", "07-editing",
          "08-variable-density", "09-receiver-gather", "10-segy-information", "11-header-mapping",
          "12-console", "13-link-windows", "14-parallel-view", "15-new-project",
          "16-manage-projects", "17-about"}) {
        const QImage picture(folder.filePath(QString("shots/%1.png").arg(name)));
        QVERIFY2(picture.width() > 100 && picture.height() > 100, name);
    }
    QSet<QByteArray> different;
    for (const char* name : {"03-gather", "05-preview", "06-picks", "07-editing",
                             "08-variable-density", "09-receiver-gather"}) {
        QFile file(folder.filePath(QString("shots/%1.png").arg(name)));
        QVERIFY(file.open(QIODevice::ReadOnly));
        different.insert(file.readAll());
    }
    QCOMPARE(different.size(), 6);
}

void tst_Program::screenshotsOfAMissingFileFail()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath("shots"));
    const Run run =
        tst_Program::run({"--home", folder.filePath("home"), "--demo", "--open",
                          folder.filePath("none.sgy"), "--screenshots", folder.filePath("shots")});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.errors.contains("none.sgy"), qPrintable(run.errors));
}

QTEST_GUILESS_MAIN(tst_Program)
#include "tst_Program.moc"
