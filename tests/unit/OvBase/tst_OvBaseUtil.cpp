#include "OvBase/OvBaseUtil.h"

#include "OvBase/OvDisplayDefine.h"
#include "OvBase/OvProjectDefineNode.h"
#include "OvBase/OvProjectManager.h"
#include "OvBase/OvTaskManager.h"
#include "unit/OvBase/LoginFixture.h"

#include <QSignalSpy>

namespace {

/// Gives TARNPICK_HOME back as the test program got it.
class HomeVariable
{
public:
    explicit HomeVariable(const QByteArray& value)
        : m_former(qgetenv("TARNPICK_HOME"))
    {
        value.isNull() ? qunsetenv("TARNPICK_HOME") : qputenv("TARNPICK_HOME", value);
    }
    ~HomeVariable() { qputenv("TARNPICK_HOME", m_former); }
    Q_DISABLE_COPY(HomeVariable)

private:
    QByteArray m_former;
};

} // namespace

class tst_OvBaseUtil : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture = std::make_unique<LoginFixture>(); }
    void cleanup();

    void theLocalFolderIsTheOneOfTheEnvironment();
    void aChosenFolderComesFirst();
    void otherwiseItIsTheDesktopsPlace();
    void aFolderThatCannotBeCreatedIsEmpty();
    void initializeReportsAMissingFolder();
    void newFoldersAreTheUsersOwn();
    void initializeRegistersTheTypes();
    void globalValuesLastBeyondALogin();
    void theRecentListIsAString();
    void anInvalidValueRemovesTheKey();
    void valuesBeforeLoginAreInMemory();
    void valuesOfAnUnknownTypeAreRefused();
    void projectsHaveValuesOfTheirOwn();
    void valuesOfAnUnknownProjectAreRefused();
    void clearingDropsOneProjectsValues();
    void dynamicPropertiesAreFound();
    void sampleFormatsHaveNames();
    void finishEndsEverything();
    void finishIsHarmlessAtAnyTime();

private:
    std::unique_ptr<LoginFixture> m_fixture;
};

void tst_OvBaseUtil::cleanup()
{
    OvBaseUtil::setLocalPath(QString());
    const QString problems = m_fixture->warnings.problems();
    m_fixture.reset();
    QCOMPARE(problems, QString());
}

void tst_OvBaseUtil::theLocalFolderIsTheOneOfTheEnvironment()
{
    const QString folder = m_fixture->folder() + QStringLiteral("/home 一");
    const HomeVariable home(folder.toUtf8());
    QCOMPARE(OvBaseUtil::localPath(), folder);
    QCOMPARE(OvBaseUtil::cachePath(), folder + QStringLiteral("/cache"));
    QVERIFY(QFileInfo(folder + QStringLiteral("/cache")).isDir());
}

void tst_OvBaseUtil::aChosenFolderComesFirst()
{
    const HomeVariable home("/nowhere");
    const QString folder = m_fixture->folder() + QStringLiteral("/a/b/c");
    OvBaseUtil::setLocalPath(folder);
    QCOMPARE(OvBaseUtil::localPath(), folder);
    QVERIFY(QFileInfo(folder).isDir());
}

void tst_OvBaseUtil::otherwiseItIsTheDesktopsPlace()
{
    const HomeVariable home{QByteArray()};
    QCOMPARE(OvBaseUtil::localPath(),
             QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    QCOMPARE(OvBaseUtil::cachePath(),
             QStandardPaths::writableLocation(QStandardPaths::CacheLocation));
    QVERIFY(QFileInfo(OvBaseUtil::localPath()).isDir());
}

void tst_OvBaseUtil::aFolderThatCannotBeCreatedIsEmpty()
{
    const QString blocked = m_fixture->folder() + QStringLiteral("/file");
    QVERIFY(QFile(blocked).open(QIODevice::WriteOnly));
    OvBaseUtil::setLocalPath(blocked);
    QCOMPARE(OvBaseUtil::localPath(), QString());
    OvBaseUtil::setLocalPath(blocked + QStringLiteral("/below"));
    QCOMPARE(OvBaseUtil::localPath(), QString());
    QCOMPARE(OvBaseUtil::cachePath(), QString());
}

void tst_OvBaseUtil::initializeReportsAMissingFolder()
{
    const QString blocked = m_fixture->folder() + QStringLiteral("/file");
    QVERIFY(QFile(blocked).open(QIODevice::WriteOnly));
    OvBaseUtil::setLocalPath(blocked);
    const OvStatus status = OvBaseUtil::initialize();
    QVERIFY(!status);
    QVERIFY2(status.message().contains(blocked), qPrintable(status.message()));
    QVERIFY(!OvBaseUtil::isInitialized());
}

void tst_OvBaseUtil::newFoldersAreTheUsersOwn()
{
    OvBaseUtil::setLocalPath(m_fixture->folder() + QStringLiteral("/mine"));
    const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(QFile::permissions(OvBaseUtil::localPath()) & others, QFile::Permissions());
}

void tst_OvBaseUtil::initializeRegistersTheTypes()
{
    QVERIFY(OvBaseUtil::initialize());
    QVERIFY(OvBaseUtil::isInitialized());
    QCOMPARE(QMetaType::type("OvProjectDefine"), qMetaTypeId<OvProjectDefine>());
    QCOMPARE(QMetaType::type("OvDisplayDefine"), qMetaTypeId<OvDisplayDefine>());
    QCOMPARE(QMetaType::type("OvFitDisplayDefine"), qMetaTypeId<OvFitDisplayDefine>());
    QCOMPARE(QMetaType::type("OvTraceHeaderDefine"), qMetaTypeId<OvTraceHeaderDefine>());
}

void tst_OvBaseUtil::globalValuesLastBeyondALogin()
{
    QVERIFY(m_fixture->login());
    const QVariantMap map{{QStringLiteral("a"), 1}, {QStringLiteral("b"), QStringLiteral("x")}};
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("map"), map));
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("map"), map));
    OvBaseUtil::finish();
    QVERIFY(m_fixture->login());
    QCOMPARE(OvBaseUtil::globalValue(QStringLiteral("map")), QVariant(map));
    QCOMPARE(OvBaseUtil::globalValue(QStringLiteral("Map"), 5), QVariant(5));
}

void tst_OvBaseUtil::theRecentListIsAString()
{
    QVERIFY(m_fixture->login());
    const QString key = QStringLiteral("recentFileList");
    QCOMPARE(OvBaseUtil::globalValue(key, QString()), QVariant(QString()));
    const QString list = QStringLiteral("A||O'Brien|初至 🌋|100%");
    QVERIFY(OvBaseUtil::setGlobalValue(key, list));
    const QVariant stored = OvBaseUtil::globalValue(key, QString());
    QCOMPARE(stored.userType(), static_cast<int>(QMetaType::QString));
    QCOMPARE(stored.toString(), list);
}

void tst_OvBaseUtil::anInvalidValueRemovesTheKey()
{
    for (const bool loggedIn : {false, true}) {
        if (loggedIn)
            QVERIFY(m_fixture->login());
        QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("k"), QStringLiteral("v")));
        QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("k"), QVariant()));
        QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("k"), QVariant()));
        QVERIFY(!OvBaseUtil::globalValue(QStringLiteral("k")).isValid());
        QCOMPARE(OvBaseUtil::globalValue(QStringLiteral("k"), 3), QVariant(3));
    }
}

void tst_OvBaseUtil::valuesBeforeLoginAreInMemory()
{
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("k"), 1));
    QVERIFY(OvBaseUtil::setProjectValue(1, QStringLiteral("p"), 2));
    QCOMPARE(OvBaseUtil::globalValue(QStringLiteral("k")), QVariant(1));
    QCOMPARE(OvBaseUtil::projectValue(1, QStringLiteral("p")), QVariant(2));
    QVERIFY(!OvBaseUtil::projectValue(2, QStringLiteral("p")).isValid());
    QVERIFY(m_fixture->login());
    QVERIFY(!OvBaseUtil::globalValue(QStringLiteral("k")).isValid());
    OvUserDefineNode::instance().logout();
    QVERIFY(!OvBaseUtil::globalValue(QStringLiteral("k")).isValid());
}

void tst_OvBaseUtil::valuesOfAnUnknownTypeAreRefused()
{
    QVERIFY(m_fixture->login());
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("k"), 1));
    const OvStatus status =
        OvBaseUtil::setGlobalValue(QStringLiteral("k"), QVariant::fromValue<QObject*>(this));
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QStringLiteral("QObject*")), qPrintable(status.message()));
    QCOMPARE(OvBaseUtil::globalValue(QStringLiteral("k")), QVariant(1));
}

void tst_OvBaseUtil::projectsHaveValuesOfTheirOwn()
{
    QVERIFY(m_fixture->login());
    OvProjectDefine define;
    QList<int> ids;
    for (const char* name : {"a", "b"}) {
        define.name = QLatin1String(name);
        ids.append(OvProjectDefineNode().insertProject(define));
        QVERIFY(OvBaseUtil::setProjectValue(ids.constLast(), QStringLiteral("k"), ids.constLast()));
    }
    QVERIFY(m_fixture->login());
    for (const int id : qAsConst(ids))
        QCOMPARE(OvBaseUtil::projectValue(id, QStringLiteral("k")), QVariant(id));
    QVERIFY(OvBaseUtil::setProjectValue(ids.at(0), QStringLiteral("k"), QVariant()));
    QCOMPARE(OvBaseUtil::projectValue(ids.at(0), QStringLiteral("k"), 9), QVariant(9));
    QVERIFY(!OvBaseUtil::globalValue(QStringLiteral("k")).isValid());
}

void tst_OvBaseUtil::valuesOfAnUnknownProjectAreRefused()
{
    QVERIFY(m_fixture->login());
    QVERIFY(!OvBaseUtil::setProjectValue(4711, QStringLiteral("k"), 1));
    QVERIFY(!OvBaseUtil::setProjectValue(-1, QStringLiteral("k"), 1));
}

void tst_OvBaseUtil::clearingDropsOneProjectsValues()
{
    OvBaseUtil::clearAllProjectValues(1);
    QVERIFY(m_fixture->login());
    OvBaseUtil::clearAllProjectValues(-1);
    OvProjectDefine define;
    define.name = QStringLiteral("a");
    const int a = OvProjectDefineNode().insertProject(define);
    define.name = QStringLiteral("b");
    const int b = OvProjectDefineNode().insertProject(define);
    for (const int id : {a, b})
        QVERIFY(OvBaseUtil::setProjectValue(id, QStringLiteral("k"), 1));
    OvBaseUtil::clearAllProjectValues(a);
    QVERIFY(!OvBaseUtil::projectValue(a, QStringLiteral("k")).isValid());
    QVERIFY(OvBaseUtil::projectValue(b, QStringLiteral("k")).isValid());
}

void tst_OvBaseUtil::dynamicPropertiesAreFound()
{
    QObject object;
    QVERIFY(!OvBaseUtil::hasProperty(&object, "SegyFile"));
    QVERIFY(!OvBaseUtil::hasProperty(nullptr, "SegyFile"));
    object.setProperty("SegyFile", QString());
    QVERIFY(OvBaseUtil::hasProperty(&object, "SegyFile"));
    QVERIFY(!OvBaseUtil::hasProperty(&object, "objectName"));
    object.setProperty("SegyFile", QVariant());
    QVERIFY(!OvBaseUtil::hasProperty(&object, "SegyFile"));
}

void tst_OvBaseUtil::sampleFormatsHaveNames()
{
    QStringList names;
    for (const int code : {1, 2, 3, 5, 8, 99, -1})
        names.append(OvBaseUtil::segyFormatInfo(static_cast<short>(code)));
    QCOMPARE(names.toSet().size(), 7);
    QVERIFY2(names.at(0).contains(QStringLiteral("IBM")), qPrintable(names.at(0)));
    QVERIFY2(names.at(5).contains(QStringLiteral("99")), qPrintable(names.at(5)));
}

void tst_OvBaseUtil::finishEndsEverything()
{
    QVERIFY(m_fixture->login());
    OvProjectDefine define;
    define.name = QStringLiteral("a");
    define.id = OvProjectDefineNode().insertProject(define);
    QVERIFY(OvProjectManager::instance().openProject(define));
    OvAbstractJob job;
    job.start();
    OvTaskManager::instance().addTask(&job);
    bool couldStore = false;
    connect(&OvProjectManager::instance(), &OvProjectManager::projectAboutToClose, &job, [&] {
        couldStore = OvBaseUtil::setGlobalValue(QStringLiteral("recentFileList"), 1).ok();
    });
    OvBaseUtil::finish();
    QVERIFY2(couldStore, "the database was closed before the project");
    QVERIFY(!OvProjectManager::instance().define().isValid());
    QVERIFY(job.isCancelRequested());
    QVERIFY(!OvUserDefineNode::instance().isLoggedIn());
    QVERIFY(!OvBaseUtil::isInitialized());
    // Nothing of this program holds the file any more: it is one file again.
    QVERIFY(!QFile::exists(m_fixture->path() + QStringLiteral("-wal")));
}

void tst_OvBaseUtil::finishIsHarmlessAtAnyTime()
{
    OvBaseUtil::finish();
    QVERIFY(m_fixture->login());
    OvBaseUtil::finish();
    OvBaseUtil::finish();
    QVERIFY(m_fixture->login());
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("k"), 1));
}

QTEST_MAIN(tst_OvBaseUtil)
#include "tst_OvBaseUtil.moc"
