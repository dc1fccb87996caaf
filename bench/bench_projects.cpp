#include "BenchProgram.h"
#include "Figure.h"

#include "OvBase/OvProjectDefineNode.h"
#include "OvBase/OvProjectManager.h"
#include "OvBase/OvUserDefineNode.h"
#include "OvTarnpick/OvTarnpick.h"
#include "OvTarnpick/controller/OvProjectManageDlg.h"

#include <QListView>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringListModel>

#include <functional>

// Ten thousand projects: showing them against a bare list of the same strings, painting a screen of
// them against painting ten, and going from one project to another against one bare read of all.

namespace {

constexpr int many = 10000;
constexpr int few = 10;
constexpr int rounds = 15;
constexpr int paints = 40;

QString nameOf(int number)
{
    return QStringLiteral("Line %1 north of the river").arg(number, 5, 10, QLatin1Char('0'));
}

QString timeOf(int minutes)
{
    const QDateTime first(QDate(2026, 1, 1), QTime(8, 0), Qt::UTC);
    return first.addSecs(60LL * minutes).toString(Qt::ISODateWithMs);
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

double dialogTime()
{
    touchTable();
    return Figure::timed([] {
        OvProjectManageDlg manage(OvProjectManageDlg::ManageProjects);
        present(&manage);
    });
}

double bareListTime(const QStringList& names)
{
    return Figure::timed([&names] {
        QStringListModel model(names);
        QListView list;
        list.setModel(&model);
        list.resize(260, 300);
        present(&list);
    });
}

void benchDialog()
{
    QStringList names;
    for (int i = 0; i < many; ++i)
        names.append(nameOf(i));
    Figure::race("project_dialog", rounds, 3.0, dialogTime, [&] { return bareListTime(names); });
}

/// One screen of rows of the projects in the database at path.
double paintTime(const QString& path)
{
    if (!OvUserDefineNode::instance().login(path))
        return std::nan("");
    OvProjectManageDlg manage(OvProjectManageDlg::ManageProjects);
    auto* list = manage.findChild<QListView*>(QStringLiteral("projectList"));
    present(&manage);
    list->setFixedHeight(few * list->sizeHintForRow(0) + 2 * list->frameWidth());
    present(&manage);
    list->scrollTo(list->model()->index(list->model()->rowCount() / 2, 0));
    return Figure::medianOf(
        paints, [list] { return Figure::timed([list] { list->viewport()->repaint(); }); });
}

void benchPaint(const QString& manyPath, const QString& fewPath)
{
    Figure::race(
        "project_rows", rounds, 1.5, [&] { return paintTime(manyPath); },
        [&] { return paintTime(fewPath); });
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
    int turn = 0;
    const auto change = [&] {
        return Figure::timed([&] { manager.openProject(projects[turn++ % 2]); });
    };
    onBareConnection(path, [&](const QSqlDatabase& bare) {
        const auto read = [&bare] {
            bool complete = false;
            const double time = Figure::timed([&] { complete = readBare(bare); });
            return complete ? time : std::nan("");
        };
        return Figure::race("project_switch", rounds, 4.0, change, read);
    });
    manager.closeProject();
}

} // namespace

int main(int argc, char** argv)
{
    const BenchProgram program(argc, argv);
    const QString fewPath = makeDatabase(program.folder(), few);
    const QString manyPath = makeDatabase(program.folder(), many);
    if (fewPath.isEmpty() || manyPath.isEmpty())
        return BenchProgram::fail("the databases cannot be made");
    benchDialog();
    benchPaint(manyPath, fewPath);
    OvUserDefineNode::instance().login(manyPath);
    benchSwitch(manyPath);
    return 0;
}
