#include "OvBase/OvProjectDefineNode.h"

#include "fixtures/ForkedProgram.h"
#include "unit/OvBase/LoginFixture.h"

namespace {

constexpr int OpsPerStep = 5;

QString nameOf(int round, int step)
{
    return QStringLiteral("round %1 | step %2").arg(round).arg(step);
}

OvProjectDefine record(const QString& name)
{
    OvProjectDefine define;
    define.name = name;
    define.dataPath = QStringLiteral("/data/") + name;
    define.description = QStringLiteral("new");
    return define;
}

/// Number op of the endless work that is killed: makes a project, keeps a value for it, edits it,
/// keeps a global value, deletes the project before it.
bool doStep(int round, int op, OvProjectDefine* current)
{
    OvProjectDefineNode node;
    const int step = op / OpsPerStep;
    switch (op % OpsPerStep) {
    case 0:
        *current = record(nameOf(round, step));
        current->id = node.insertProject(*current);
        return current->id >= 0;
    case 1:
        return OvBaseUtil::setProjectValue(current->id, QStringLiteral("gain"), step).ok();
    case 2:
        current->description = QStringLiteral("edited");
        return node.updateProject(*current);
    case 3:
        return OvBaseUtil::setGlobalValue(QStringLiteral("step"), step).ok();
    default:
        return step == 0 || node.removeProject(node.projectByName(nameOf(round, step - 1)));
    }
}

/// What is wrong with a project when that many operations were acknowledged; one more may be done.
QString fault(int round, int step, int acknowledged)
{
    const int first = step * OpsPerStep;
    const int removal = first + 2 * OpsPerStep - 1;
    const OvProjectDefine found = OvProjectDefineNode().projectByName(nameOf(round, step));
    if (removal < acknowledged)
        return found.isValid() ? QStringLiteral("not deleted") : QString();
    if (!found.isValid())
        return removal == acknowledged ? QString() : QStringLiteral("lost");
    if (first + 2 < acknowledged && found.description != QLatin1String("edited"))
        return QStringLiteral("edit lost");
    const QVariant gain = OvBaseUtil::projectValue(found.id, QStringLiteral("gain"));
    if (first + 1 < acknowledged && gain != QVariant(step))
        return QStringLiteral("value lost");
    return {};
}

QStringList faults(int round, int acknowledged)
{
    QStringList list;
    for (int step = 0; step * OpsPerStep < acknowledged; ++step) {
        const QString text = fault(round, step, acknowledged);
        if (!text.isEmpty())
            list.append(nameOf(round, step) + QStringLiteral(": ") + text);
    }
    const int done = (acknowledged - 4 + OpsPerStep) / OpsPerStep - 1;
    const int step = OvBaseUtil::globalValue(QStringLiteral("step"), -1).toInt();
    if (done >= 0 && step != done && step != done + 1)
        list.append(QStringLiteral("global value %1 after step %2").arg(step).arg(done));
    return list;
}

constexpr int Rivals = 120;

ForkedProgram::Tell tellOfWarnings;

void warn(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    if (type == QtWarningMsg || type == QtCriticalMsg)
        tellOfWarnings("warning: " + text.toUtf8() + '\n');
}

/// Makes, edits and deletes projects of its own, and tries to make those that its rival makes, too.
/// Tells of each common one that it got, and of every failure.
void compete(const QString& path, const QString& who, const ForkedProgram::Tell& tell)
{
    tellOfWarnings = tell;
    qInstallMessageHandler(warn);
    if (!OvUserDefineNode::instance().login(path))
        return tell("no login\n");
    OvProjectDefineNode node;
    for (int i = 0; i < Rivals; ++i) {
        OvProjectDefine own = record(who + QString::number(i));
        own.id = node.insertProject(own);
        own.description = QStringLiteral("edited by ") + who;
        const bool kept = own.id >= 0 && node.updateProject(own) &&
                          OvBaseUtil::setProjectValue(own.id, QStringLiteral("who"), who).ok();
        if (!kept || (i % 3 == 0 && !node.removeProject(own)))
            tell("failed\n");
        if (node.insertProject(record(QStringLiteral("common %1").arg(i))) >= 0)
            tell("got " + QByteArray::number(i) + '\n');
    }
    OvUserDefineNode::instance().logout();
}

} // namespace

/// The project table under several programs, and under programs that die.
class tst_OvProjectDefineNode_shared : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture = std::make_unique<LoginFixture>(); }
    void cleanup();

    void twoProgramsLoseAndDoubleNothing();
    void acknowledgedWorkSurvivesKills();
    void anUpdateKeepsALaterOpening();
    void repeatedReadsSeeEveryChange();
    void recordsAreReadOnlyOnceWhileNothingChanges();

private:
    std::unique_ptr<LoginFixture> m_fixture;
};

void tst_OvProjectDefineNode_shared::cleanup()
{
    const QString problems = m_fixture->warnings.problems();
    m_fixture.reset();
    QCOMPARE(problems, QString());
}

void tst_OvProjectDefineNode_shared::twoProgramsLoseAndDoubleNothing()
{
    const QString path = m_fixture->path();
    ForkedProgram first([&](const auto& tell) { compete(path, QStringLiteral("first "), tell); });
    ForkedProgram second([&](const auto& tell) { compete(path, QStringLiteral("second "), tell); });
    QByteArrayList told = first.readAll().split('\n') + second.readAll().split('\n');
    QVERIFY(first.succeeded() && second.succeeded());
    told.removeAll(QByteArray());
    // Each common project went to exactly one of the two, and nothing else was told.
    QByteArrayList expected;
    QStringList names;
    for (int i = 0; i < Rivals; ++i) {
        expected.append("got " + QByteArray::number(i));
        names.append(QStringLiteral("common %1").arg(i));
        if (i % 3 != 0)
            names << QStringLiteral("first %1").arg(i) << QStringLiteral("second %1").arg(i);
    }
    std::sort(told.begin(), told.end());
    std::sort(expected.begin(), expected.end());
    QCOMPARE(told, expected);

    QVERIFY(m_fixture->login());
    QStringList found;
    const QList<OvProjectDefine> projects = OvProjectDefineNode().projects();
    for (const OvProjectDefine& project : projects) {
        found.append(project.name);
        const QString who = project.name.section(QLatin1Char(' '), 0, 0) + QLatin1Char(' ');
        const bool isCommon = who == QLatin1String("common ");
        QCOMPARE(OvBaseUtil::projectValue(project.id, QStringLiteral("who")).toString(),
                 isCommon ? QString() : who);
        QCOMPARE(project.description, isCommon ? QStringLiteral("new") : "edited by " + who);
    }
    std::sort(found.begin(), found.end());
    std::sort(names.begin(), names.end());
    QCOMPARE(found, names);
}

// Opening a damaged file is refused, so that each login is an integrity check as well.
void tst_OvProjectDefineNode_shared::acknowledgedWorkSurvivesKills()
{
    constexpr int Rounds = 250;
    const QString path = m_fixture->path();
    int total = 0;
    for (int round = 0; round < Rounds; ++round) {
        ForkedProgram victim([&](const ForkedProgram::Tell& tell) {
            OvProjectDefine current;
            bool done = OvUserDefineNode::instance().login(path);
            for (int op = 0; done; ++op) {
                done = doStep(round, op, &current);
                if (done)
                    tell(".");
            }
        });
        QVERIFY(!victim.read(1 + round % 13).isEmpty());
        const int acknowledged = victim.kill().size();
        QVERIFY2(!victim.succeeded(), "it was to be killed, not to end by itself");
        QVERIFY2(m_fixture->login(), qPrintable(OvUserDefineNode::instance().lastError()));
        QCOMPARE(faults(round, acknowledged), QStringList());
        OvUserDefineNode::instance().logout();
        total += acknowledged;
    }
    QVERIFY(total > Rounds);
    QVERIFY(m_fixture->login());
    QList<int> keys;
    const QList<OvProjectDefine> projects = OvProjectDefineNode().projects();
    for (const OvProjectDefine& project : projects)
        keys.append(project.id);
    // A round leaves the last one or two of its projects.
    QVERIFY(keys.size() >= Rounds / 2 && keys.size() <= 2 * Rounds);
    QVERIFY(std::is_sorted(keys.cbegin(), keys.cend(), std::less_equal<int>()));
}

void tst_OvProjectDefineNode_shared::anUpdateKeepsALaterOpening()
{
    QVERIFY(m_fixture->login());
    OvProjectDefine shown = record(QStringLiteral("a"));
    shown.id = OvProjectDefineNode().insertProject(shown);
    OvProjectDefine opened = shown;
    opened.openTime = QDateTime::currentDateTime();
    QVERIFY(OvProjectDefineNode().noteOpened(opened));
    shown.description = QStringLiteral("edited");
    QVERIFY(OvProjectDefineNode().updateProject(shown));
    const OvProjectDefine found = OvProjectDefineNode().projectByName(shown.name);
    QCOMPARE(found.description, shown.description);
    QCOMPARE(found.openTime, opened.openTime);
}

void tst_OvProjectDefineNode_shared::repeatedReadsSeeEveryChange()
{
    const QString path = m_fixture->path();
    ForkedProgram other([&](const ForkedProgram::Tell& tell) {
        // Waits until the parent has read the empty table.
        while (!QFile::exists(path + QStringLiteral(".go")))
            ::usleep(1000);
        const bool done = OvUserDefineNode::instance().login(path) &&
                          OvProjectDefineNode().insertProject(record(QStringLiteral("b"))) >= 0;
        tell(done ? "done" : "failed");
    });
    QVERIFY(m_fixture->login());
    OvProjectDefineNode node;
    OvProjectDefine own = record(QStringLiteral("a"));
    QCOMPARE(node.projects().size(), 0);
    own.id = node.insertProject(own);
    QCOMPARE(node.projects().size(), 1);
    own.description = QStringLiteral("edited");
    QVERIFY(node.updateProject(own));
    QCOMPARE(node.projects().constFirst().description, own.description);
    own.openTime = QDateTime::currentDateTime();
    QVERIFY(node.noteOpened(own));
    QCOMPARE(node.projects().constFirst().openTime, own.openTime);
    QFile go(path + QStringLiteral(".go"));
    QVERIFY(go.open(QIODevice::WriteOnly));
    QCOMPARE(other.readAll(), QByteArray("done"));
    QCOMPARE(node.projects().size(), 2);
    QVERIFY(node.removeProject(own));
    QCOMPARE(node.projects().constFirst().name, QStringLiteral("b"));
    // Another file, another table.
    QVERIFY(OvUserDefineNode::instance().login(path + QStringLiteral(".other")));
    QCOMPARE(node.projects().size(), 0);
}

void tst_OvProjectDefineNode_shared::recordsAreReadOnlyOnceWhileNothingChanges()
{
    QVERIFY(m_fixture->login());
    OvProjectDefineNode node;
    QVERIFY(node.insertProject(record(QStringLiteral("a"))) >= 0);
    const QList<OvProjectDefine> first = node.projects();
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("k"), 1).ok());
    QVERIFY(node.projects().isSharedWith(first));
    QVERIFY(node.insertProject(record(QStringLiteral("b"))) >= 0);
    QVERIFY(!node.projects().isSharedWith(first));
}

QTEST_GUILESS_MAIN(tst_OvProjectDefineNode_shared)
#include "tst_OvProjectDefineNode_shared.moc"
