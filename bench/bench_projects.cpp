#include "Figure.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvProjectDefineNode.h"
#include "OvBase/OvProjectManager.h"
#include "OvBase/OvUserDefineNode.h"
#include "OvTarnpick/OvTarnpick.h"
#include "OvTarnpick/controller/OvProjectManageDlg.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringListModel>
#include <QTemporaryDir>

#include <functional>
#include <memory>

// Ten thousand projects: showing them against a bare list of the same strings, painting a screen of
// them against painting ten, and going from one project to another against one bare read of all.

namespace {

constexpr int many = 10000;
constexpr int few = 10;
constexpr int rounds = 15;
constexpr int paints = 40;

double timed(const std::function<void()>& work)
{
    QElapsedTimer clock;
    clock.start();
    work();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

QString nameOf(int number)
{
    return QStringLiteral("Line %1 north of the river").arg(number, 5, 10, QLatin1Char('0'));
}

QString timeOf(int minutes)
{
    const QDateTime first(QDate(2026, 1, 1), QTime(8, 0), Qt::UTC);
    return first.addSecs(60 * minutes).toString(Qt::ISODateWithMs);
}

/// Runs work on a connection of its own to the database.
bool onBareConnection(const QString& path, const std::function<bool(QSqlDatabase)>& work)
{
    const QString name = QStringLiteral("bare");
    bool done = false;
    {
        QSqlDatabase bare = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        bare.setDatabaseName(path);
        done = bare.open() && work(bare);
    }
    QSqlDatabase::removeDatabase(name);
    return done;
}

bool addProjects(QSqlDatabase bare, int count, const QString& folder)
{
    QSqlQuery query(bare);
    bare.transaction();
    query.prepare(QStringLiteral(
        "INSERT INTO projects (name, user_id, data_path, description, open_time, create_time) "
        "VALUES (?, 1, ?, 'first breaks of the spring survey', ?, ?)"));
    bool done = true;
    for (int i = 0; i < count; ++i) {
        query.bindValue(0, nameOf(i));
        query.bindValue(1, folder);
        query.bindValue(2, timeOf(i * 1777));
        query.bindValue(3, timeOf(i));
        done = done && query.exec();
    }
    return bare.commit() && done;
}

/// A new database with that many projects; its path.
QString makeDatabase(const QString& folder, int count)
{
    const QString path = folder + QStringLiteral("/%1.db").arg(count);
    const bool made = OvUserDefineNode::instance().login(path) &&
                      onBareConnection(path, [&](const QSqlDatabase& bare) {
                          return addProjects(bare, count, folder);
                      });
    return made ? path : QString();
}

/// Makes the next reading of the records start from the file.
void touchTable()
{
    const OvProjectDefine first = OvProjectDefineNode().projectByName(nameOf(0));
    OvProjectDefineNode().updateProject(first);
}

void present(QWidget* widget)
{
    widget->show();
    widget->repaint();
    QCoreApplication::processEvents();
}

void benchDialog()
{
    std::vector<double> ours;
    std::vector<double> theirs;
    QStringList names;
    for (int i = 0; i < many; ++i)
        names.append(nameOf(i));
    for (int round = -1; round < rounds; ++round) {
        touchTable();
        const double dialog = timed([] {
            OvProjectManageDlg manage(OvProjectManageDlg::ManageProjects);
            present(&manage);
        });
        const double bare = timed([&] {
            QStringListModel model(names);
            QListView list;
            list.setModel(&model);
            list.resize(260, 300);
            present(&list);
        });
        if (round < 0)
            continue;
        ours.push_back(dialog);
        theirs.push_back(bare);
    }
    Figure::report("project_dialog", Figure::median(ours), Figure::median(theirs), 3.0);
}

/// One screen of rows of the projects in the database at path.
double paintTime(const QString& path)
{
    if (!OvUserDefineNode::instance().login(path))
        return -1.0;
    OvProjectManageDlg manage(OvProjectManageDlg::ManageProjects);
    auto* list = manage.findChild<QListView*>(QStringLiteral("projectList"));
    present(&manage);
    list->setFixedHeight(few * list->sizeHintForRow(0) + 2 * list->frameWidth());
    present(&manage);
    list->scrollTo(list->model()->index(list->model()->rowCount() / 2, 0));
    std::vector<double> times;
    for (int i = 0; i < paints; ++i)
        times.push_back(timed([list] { list->viewport()->repaint(); }));
    return Figure::median(times);
}

void benchPaint(const QString& manyPath, const QString& fewPath)
{
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(paintTime(manyPath));
        theirs.push_back(paintTime(fewPath));
    }
    Figure::report("project_rows", Figure::median(ours), Figure::median(theirs), 1.5);
}

/// Every field of every record, by the database driver alone.
bool readBare(const QSqlDatabase& bare)
{
    QSqlQuery query(bare);
    query.setForwardOnly(true);
    query.exec(QStringLiteral("SELECT id, name, user_id, data_path, description, open_time, "
                              "create_time FROM projects ORDER BY id"));
    int fields = 0;
    while (query.next()) {
        for (int column = 0; column < 7; ++column)
            fields += query.value(column).isValid() ? 1 : 0;
    }
    return fields == many * 7;
}

void benchSwitch(const QString& path)
{
    OvProjectManager& manager = OvProjectManager::instance();
    OvTarnpick window;
    window.show();
    const OvProjectDefine projects[] = {OvProjectDefineNode().projectByName(nameOf(17)),
                                        OvProjectDefineNode().projectByName(nameOf(9500))};
    manager.openProject(projects[1]);
    std::vector<double> ours;
    std::vector<double> theirs;
    onBareConnection(path, [&](const QSqlDatabase& bare) {
        for (int round = 0; round < rounds; ++round) {
            ours.push_back(timed([&] { manager.openProject(projects[round % 2]); }));
            theirs.push_back(timed([&] {
                if (!readBare(bare))
                    qFatal("bench_projects: the records cannot be read");
            }));
        }
        return true;
    });
    Figure::report("project_switch", Figure::median(ours), Figure::median(theirs), 4.0);
    manager.closeProject();
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    OvBaseUtil::setLocalPath(folder.path());
    const QString fewPath = makeDatabase(folder.path(), few);
    const QString manyPath = makeDatabase(folder.path(), many);
    if (fewPath.isEmpty() || manyPath.isEmpty()) {
        QTextStream(stderr) << "bench_projects: the databases cannot be made\n";
        return 1;
    }
    benchDialog();
    benchPaint(manyPath, fewPath);
    OvUserDefineNode::instance().login(manyPath);
    benchSwitch(manyPath);
    OvBaseUtil::finish();
    return 0;
}
