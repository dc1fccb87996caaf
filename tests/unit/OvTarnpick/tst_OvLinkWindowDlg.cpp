#include "OvTarnpick/controller/OvLinkWindowDlg.h"

#include "TestSession.h"
#include "TestView.h"
#include "fixtures/ModalProbe.h"

#include <QAbstractItemModel>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QtTest>

#include <memory>

class tst_OvLinkWindowDlg : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void declaresItsMethodsInOrder();
    void hasTheFormsTexts();
    void listsTheViews();
    void linksAllInReverse();
    void linksSelectedRowsFromTheLast();
    void delinksSelectedRowsFromTheLast();
    void delinksAllInReverse();
    void movesWithoutSelectionDoNothing();
    void movesUp();
    void movesDown();
    void movesTheLastOfSeveralSelected();
    void refusesMixedViews();
    void acceptsViewsOfOneKind_data();
    void acceptsViewsOfOneKind();
    void acceptsNone();
    void cancelRejects();
    void retranslatesItsHeaders();
    void leadsToItsPageOfTheManual();

private:
    void make(const QString& available, const QString& linked);
    void click(const char* button);
    QTableView* table(const char* name) const;
    /// The names of a table's first column, one letter each.
    QString names(const char* tableName) const;
    QString available() const { return names("aViewControllers"); }
    QString chosen() const { return names("sViewControllers"); }
    static void select(QTableView* view, const QList<int>& rows);
    static QList<int> selected(const QTableView* view);

    std::vector<std::unique_ptr<TestView>> m_views;
    std::unique_ptr<OvLinkWindowDlg> m_dialog;
};

void tst_OvLinkWindowDlg::init()
{
    m_views.clear();
}

void tst_OvLinkWindowDlg::cleanup()
{
    m_dialog.reset();
    m_views.clear();
}

/// Views named by single letters; capitals are editable.
void tst_OvLinkWindowDlg::make(const QString& available, const QString& linked)
{
    const auto views = [this](const QString& letters) {
        QList<OvPlaneViewController*> list;
        for (const QChar letter : letters) {
            m_views.push_back(std::make_unique<TestView>(QString(letter), letter.isUpper()));
            list.append(m_views.back().get());
        }
        return list;
    };
    const auto first = views(available);
    m_dialog = std::make_unique<OvLinkWindowDlg>(first, views(linked), nullptr);
    m_dialog->show();
}

void tst_OvLinkWindowDlg::click(const char* button)
{
    auto* widget = m_dialog->findChild<QAbstractButton*>(QString::fromLatin1(button));
    QVERIFY2(widget, button);
    QTest::mouseClick(widget, Qt::LeftButton);
}

QTableView* tst_OvLinkWindowDlg::table(const char* name) const
{
    return m_dialog->findChild<QTableView*>(QString::fromLatin1(name));
}

QString tst_OvLinkWindowDlg::names(const char* tableName) const
{
    const QAbstractItemModel* model = table(tableName)->model();
    QString letters;
    for (int row = 0; row < model->rowCount(); ++row)
        letters += model->index(row, 0).data().toString();
    return letters;
}

void tst_OvLinkWindowDlg::select(QTableView* view, const QList<int>& rows)
{
    view->clearSelection();
    for (const int row : rows)
        view->selectionModel()->select(view->model()->index(row, 0),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

QList<int> tst_OvLinkWindowDlg::selected(const QTableView* view)
{
    QList<int> rows;
    for (const QModelIndex& index : view->selectionModel()->selectedRows())
        rows.append(index.row());
    return rows;
}

void tst_OvLinkWindowDlg::declaresItsMethodsInOrder()
{
    const QStringList expected{
        QStringLiteral("on_selAllBtn_clicked()"),
        QStringLiteral("on_selectBtn_clicked()"),
        QStringLiteral("on_unselectBtn_clicked()"),
        QStringLiteral("on_resetBtn_clicked()"),
        QStringLiteral("on_moveUpButton_clicked()"),
        QStringLiteral("on_moveDownButton_clicked()"),
        QStringLiteral("accept()"),
    };
    QCOMPARE(ownMethods(OvLinkWindowDlg::staticMetaObject), expected);
}

void tst_OvLinkWindowDlg::hasTheFormsTexts()
{
    make({}, {});
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Parallel View"));
    const auto button = [this](const char* name) {
        return m_dialog->findChild<QAbstractButton*>(QString::fromLatin1(name));
    };
    QCOMPARE(button("selAllBtn")->text(), QStringLiteral("Link all"));
    QCOMPARE(button("resetBtn")->text(), QStringLiteral("Delink all"));
    QVERIFY(qobject_cast<QToolButton*>(button("selectBtn")));
    QVERIFY(qobject_cast<QToolButton*>(button("unselectBtn")));
    QCOMPARE(button("selectBtn")->text(), QStringLiteral("..."));
    QCOMPARE(button("unselectBtn")->text(), QStringLiteral("..."));
    QCOMPARE(button("moveUpButton")->text(), QString());
    QCOMPARE(button("moveUpButton")->styleSheet(),
             QStringLiteral("border-image: url(:/resource/images/arrow_up.png);"));
    QCOMPARE(button("moveDownButton")->styleSheet(),
             QStringLiteral("border-image: url(:/resource/images/arrow_down.png);"));
    QVERIFY(!QImage(QStringLiteral(":/resource/images/arrow_up.png")).isNull());
    QVERIFY(!QImage(QStringLiteral(":/resource/images/arrow_down.png")).isNull());
    for (const char* name : {"aViewControllers", "sViewControllers"}) {
        const QTableView* view = table(name);
        QCOMPARE(view->selectionBehavior(), QAbstractItemView::SelectRows);
        QVERIFY(view->alternatingRowColors());
        QCOMPARE(view->verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
        QCOMPARE(view->horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
        QVERIFY(view->horizontalHeader()->stretchLastSection());
    }
}

void tst_OvLinkWindowDlg::listsTheViews()
{
    TestView first(QStringLiteral("first"));
    TestView second(QStringLiteral("second"));
    TestView linked(QStringLiteral("linked"));
    second.setProperty("SegyFile", QStringLiteral("line7.sgy"));
    m_dialog = std::make_unique<OvLinkWindowDlg>(QList<OvPlaneViewController*>{&first, &second},
                                                 QList<OvPlaneViewController*>{&linked}, nullptr);
    const QAbstractItemModel* model = table("aViewControllers")->model();
    QCOMPARE(model->columnCount(), 2);
    QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Name"));
    QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("SEGY File"));
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("first"));
    QCOMPARE(model->index(0, 1).data().toString(), QString());
    QCOMPARE(model->index(1, 1).data().toString(), QStringLiteral("line7.sgy"));
    QCOMPARE(model->index(1, 0).data(257).value<OvPlaneViewController*>(), &second);
    QCOMPARE(table("sViewControllers")->model()->headerData(1, Qt::Horizontal).toString(),
             QStringLiteral("SEGY File"));
    QCOMPARE(m_dialog->chosenViewControllers(), QList<OvPlaneViewController*>{&linked});
    m_dialog.reset();
}

void tst_OvLinkWindowDlg::linksAllInReverse()
{
    make(QStringLiteral("ABC"), QStringLiteral("X"));
    click("selAllBtn");
    QCOMPARE(chosen(), QStringLiteral("XCBA"));
    QCOMPARE(available(), QString());
    QList<OvPlaneViewController*> expected{m_views[3].get(), m_views[2].get(), m_views[1].get(),
                                           m_views[0].get()};
    QCOMPARE(m_dialog->chosenViewControllers(), expected);
}

void tst_OvLinkWindowDlg::linksSelectedRowsFromTheLast()
{
    make(QStringLiteral("ABCDE"), {});
    select(table("aViewControllers"), {1, 3});
    click("selectBtn");
    QCOMPARE(chosen(), QStringLiteral("DB"));
    QCOMPARE(available(), QStringLiteral("ACE"));
}

void tst_OvLinkWindowDlg::delinksSelectedRowsFromTheLast()
{
    make(QStringLiteral("A"), QStringLiteral("BCDE"));
    select(table("sViewControllers"), {2, 0, 1});
    click("unselectBtn");
    QCOMPARE(available(), QStringLiteral("ADCB"));
    QCOMPARE(chosen(), QStringLiteral("E"));
}

void tst_OvLinkWindowDlg::delinksAllInReverse()
{
    make(QStringLiteral("A"), QStringLiteral("BCD"));
    click("resetBtn");
    QCOMPARE(available(), QStringLiteral("ADCB"));
    QCOMPARE(chosen(), QString());
    click("resetBtn");
    QCOMPARE(available(), QStringLiteral("ADCB"));
}

void tst_OvLinkWindowDlg::movesWithoutSelectionDoNothing()
{
    make(QStringLiteral("AB"), QStringLiteral("CD"));
    for (const char* button : {"selectBtn", "unselectBtn", "moveUpButton", "moveDownButton"})
        click(button);
    QCOMPARE(available(), QStringLiteral("AB"));
    QCOMPARE(chosen(), QStringLiteral("CD"));
}

void tst_OvLinkWindowDlg::movesUp()
{
    make({}, QStringLiteral("ABC"));
    QTableView* view = table("sViewControllers");
    select(view, {2});
    click("moveUpButton");
    QCOMPARE(chosen(), QStringLiteral("ACB"));
    QCOMPARE(selected(view), QList<int>{1});
    click("moveUpButton");
    QCOMPARE(chosen(), QStringLiteral("CAB"));
    QCOMPARE(selected(view), QList<int>{0});
    click("moveUpButton");
    QCOMPARE(chosen(), QStringLiteral("CAB"));
    QCOMPARE(selected(view), QList<int>{0});
}

void tst_OvLinkWindowDlg::movesDown()
{
    make({}, QStringLiteral("ABC"));
    QTableView* view = table("sViewControllers");
    select(view, {1});
    click("moveDownButton");
    QCOMPARE(chosen(), QStringLiteral("ACB"));
    QCOMPARE(selected(view), QList<int>{2});
    click("moveDownButton");
    QCOMPARE(chosen(), QStringLiteral("ACB"));
    QCOMPARE(selected(view), QList<int>{2});
}

void tst_OvLinkWindowDlg::movesTheLastOfSeveralSelected()
{
    make({}, QStringLiteral("ABCD"));
    select(table("sViewControllers"), {0, 2});
    click("moveUpButton");
    QCOMPARE(chosen(), QStringLiteral("ACBD"));
    QCOMPARE(selected(table("sViewControllers")), QList<int>{1});
    select(table("sViewControllers"), {0, 2});
    click("moveDownButton");
    QCOMPARE(chosen(), QStringLiteral("ACDB"));
    QCOMPARE(selected(table("sViewControllers")), QList<int>{3});
}

void tst_OvLinkWindowDlg::refusesMixedViews()
{
    make(QStringLiteral("Z"), QStringLiteral("Ab"));
    ModalProbe probe;
    probe.nextBox(QMessageBox::Ok);
    QTest::mouseClick(m_dialog->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))
                          ->button(QDialogButtonBox::Ok),
                      Qt::LeftButton);
    QVERIFY2(probe.isDone(), qPrintable(probe.unexpected().join(QLatin1Char('\n'))));
    QCOMPARE(probe.boxes().front().title, QStringLiteral("Warning"));
    QCOMPARE(probe.boxes().front().text,
             QStringLiteral("Different type of data can not be displayed in a parallel view."));
    QCOMPARE(probe.boxes().front().buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(probe.boxes().front().icon, QMessageBox::Warning);
    QCOMPARE(probe.boxes().front().parent, m_dialog.get());
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(available(), QStringLiteral("Z"));
    QCOMPARE(chosen(), QStringLiteral("Ab"));
}

void tst_OvLinkWindowDlg::acceptsViewsOfOneKind_data()
{
    QTest::addColumn<QString>("linked");
    QTest::newRow("editable") << QStringLiteral("AB");
    QTest::newRow("not editable") << QStringLiteral("ab");
    QTest::newRow("one") << QStringLiteral("a");
}

void tst_OvLinkWindowDlg::acceptsViewsOfOneKind()
{
    QFETCH(QString, linked);
    make(QStringLiteral("zZ"), linked);
    m_dialog->accept();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QVERIFY(!m_dialog->isVisible());
}

void tst_OvLinkWindowDlg::acceptsNone()
{
    make(QStringLiteral("Ab"), {});
    m_dialog->accept();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QVERIFY(m_dialog->chosenViewControllers().isEmpty());
}

void tst_OvLinkWindowDlg::cancelRejects()
{
    make({}, QStringLiteral("Ab"));
    m_dialog->setResult(QDialog::Accepted);
    QTest::mouseClick(m_dialog->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))
                          ->button(QDialogButtonBox::Cancel),
                      Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QVERIFY(!m_dialog->isVisible());
}

void tst_OvLinkWindowDlg::retranslatesItsHeaders()
{
    make(QStringLiteral("A"), {});
    QTranslator chinese;
    QVERIFY(chinese.load(QStringLiteral("Tarnpick_cn"), QStringLiteral(":/resource/translations")));
    QCoreApplication::installTranslator(&chinese);
    QTRY_COMPARE(m_dialog->windowTitle(), QStringLiteral("并列显示"));
    const QAbstractItemModel* model = table("aViewControllers")->model();
    QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("名称"));
    QCOMPARE(available(), QStringLiteral("A"));
    QCoreApplication::removeTranslator(&chinese);
    QTRY_COMPARE(m_dialog->windowTitle(), QStringLiteral("Parallel View"));
}

void tst_OvLinkWindowDlg::leadsToItsPageOfTheManual()
{
    make(QStringLiteral("A"), {});
    QCOMPARE(m_dialog->helpPage(), QStringLiteral("parallel.html"));
}

QTEST_MAIN(tst_OvLinkWindowDlg)
#include "tst_OvLinkWindowDlg.moc"
