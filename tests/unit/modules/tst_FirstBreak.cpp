#include "PluginSession.h"
#include "fixtures/MessageLog.h"
#include "fixtures/ModalProbe.h"

#include "OvBase/OvTaskManager.h"
#include "OvBase/OvTranslator.h"
#include "OvGui/canvas/OvGatherCanvas.h"
#include "OvGui/document/OvPickHistory.h"
#include "OvSeismic/firstbreak/OvFirstBreakFile.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

#include <cmath>

namespace {

constexpr int ownActions = 9; // of the menu, separators included

} // namespace

class tst_FirstBreak : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void takesInTheWindowsExportActions();
    void worksWithoutAWindowAndWithASecondOne();
    void isUsableWithAViewOnly();
    void picksAllGathers();
    void readsHeadersThatWereGivenUp();
    void picksOneGather();
    void keepsManualPicks();
    void overwritesManualPicksWhenTold();
    void keepsWhatACancelledRunDelivered();
    void refusesASecondRunOnTheSameFile();
    void offersToContinueACancelledRun();
    void keepsAPickMadeWhileTheJobRuns();
    void guidesByVelocityAndByMyPicks();
    void namesTheGuideThatHasNothingToLearnFrom();
    void previewStoresNothing();
    void picksTheGatherShownInOneStep();
    void undoKeepsWhatAnotherProgramWroteMeanwhile();
    void thisGatherInTheDialogIsOneStep();
    void picksAndPreviewsInEveryOrder_data();
    void picksAndPreviewsInEveryOrder();
    void otherGathersGuideInEveryOrder();
    void aCancelledGatherIsNotPicked();
    void picksAGatherWhileARunIsAtWork();
    void picksAWalkawayAcrossItsRecords();
    void picksARecordedWalkaway();
    void closingTheProjectEndsTheRun();
    void deletingTheViewLeavesTheRunAlone();
    void namesTheParameterThatDoesNotFit();
    void savesTheParametersWithTheProject();
    void everyFieldOfThePanelIsAParameter();
    void everyFieldOfTheDialogExplainsItself();
    void fieldsStandInTheColumnsOfThePanel_data();
    void fieldsStandInTheColumnsOfThePanel();
    void exportsText();
    void exportsEmptyCellsWithoutPicks();
    void reportsAnExportThatFails();
    void leavesNothingOfACancelledExport();
    void reportsPicksThatCannotBeStored();
    void theBarSetsTheSnapWindowAndKeepsIt();
    void editsByHandThroughActionsAndBar();
    void editingFollowsTheActiveView();
    void whereNothingCanBeWrittenTheActionSaysWhy();
    void aJobKeepsPicksMadeByHand();
    void classifiesErrorPicks();
    void speaksChinese();

private:
    bool openLine(int shots, int channels = 24, int samples = 500);
    bool openFile(); // line.sgy
    bool showView();
    void clickOn(int row, double timeMs);
    QDialog* pickDialog() const
    {
        return m_session->window()->findChild<QDialog*>(QStringLiteral("OvPickDlg"));
    }
    QDialog* openPickDialog();
    void accept(QDialog* dialog);
    OvAbstractJob* startPicking();
    QSharedPointer<OvSegyDocument> document() const { return m_session->lastView()->document(); }
    OvFirstBreaks storedBreaks(int gather) const;
    OvGatherCanvas* canvas() const
    {
        return qobject_cast<OvGatherCanvas*>(m_session->lastView()->canvas());
    }
    int nearTruth(const OvFirstBreaks& breaks) const;
    OvAbstractJob* exportTo(const QString& path);

    QScopedPointer<PluginSession> m_session;
    QScopedPointer<MessageLog> m_log;
    OvModulePlugin* m_module = nullptr;
    QMenu* m_menu = nullptr;
};

void tst_FirstBreak::initTestCase()
{
    QVERIFY(PluginSession::start());
    m_module = PluginSession::module(QStringLiteral("FirstBreak"));
    QVERIFY(m_module);
    m_menu = m_module->menu();
    QCOMPARE(m_menu->objectName(), QStringLiteral("menu_FirstBreak"));
}

void tst_FirstBreak::init()
{
    m_log.reset(new MessageLog);
    m_session.reset(new PluginSession);
    m_menu = m_module->menu();
}

void tst_FirstBreak::cleanup()
{
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    m_module->changeLanguage();
    m_session.reset();
    const auto noJobs = [] { return PluginSession::actionJobs().isEmpty(); };
    const bool ended = QTest::qWaitFor(noJobs);
    const QStringList warnings = m_log->takeAll();
    m_log.reset();
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings.join(QLatin1Char('\n'))));
    QVERIFY(ended);
}

bool tst_FirstBreak::openLine(int shots, int channels, int samples)
{
    return m_session->writeLine(QStringLiteral("line.sgy"), shots, channels, samples) && openFile();
}

bool tst_FirstBreak::openFile()
{
    if (!m_session->openProject())
        return false;
    OvStatus status;
    const auto opened = OvSegyDocument::open(m_session->path(QStringLiteral("line.sgy")), &status);
    if (opened)
        OvProjectManager::instance().addWorkspace(new OvGatherViewController(opened));
    return status.ok();
}

QDialog* tst_FirstBreak::openPickDialog()
{
    PluginSession::action(m_menu, "actionAuto_Pick")->trigger();
    return pickDialog();
}

void tst_FirstBreak::accept(QDialog* dialog)
{
    auto* ok = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    // The other one where a run has stopped half-way.
    QVERIFY(ok->text() == QLatin1String("Pick") || ok->text() == QLatin1String("&Start Over"));
    ok->click();
}

OvAbstractJob* tst_FirstBreak::startPicking()
{
    accept(openPickDialog());
    const QList<OvAbstractJob*> jobs = PluginSession::actionJobs();
    return jobs.isEmpty() ? nullptr : jobs.last();
}

OvFirstBreaks tst_FirstBreak::storedBreaks(int gather) const
{
    OvFirstBreaks breaks;
    OvFirstBreakFile file;
    if (!file.open(document()->firstBreakPath(), document()->file().info()) ||
        !file.read(document()->index()->gatherTraces(gather), &breaks))
        return {};
    return breaks;
}

// How many of the picks of the gather on the screen are where the line has its first breaks.
int tst_FirstBreak::nearTruth(const OvFirstBreaks& breaks) const
{
    int near = 0;
    for (int row = 0; row < breaks.size(); ++row) {
        const auto at = static_cast<std::size_t>(row);
        const float offset = std::abs(canvas()->gather()->headers[at].offset);
        near += std::abs(breaks.timesMs[at] - SegyWriter::firstBreakMs(offset)) < 12.0 ? 1 : 0;
    }
    return near;
}

void tst_FirstBreak::takesInTheWindowsExportActions()
{
    auto* output = m_session->window()->findChild<QAction*>("actionFirstBreak_Output");
    auto* header = m_session->window()->findChild<QAction*>("actionFB_to_SEGY_Header");
    QVERIFY(m_menu->actions().contains(output));
    QVERIFY(m_menu->actions().contains(header));
    QCOMPARE(output->data(), QVariant(100));
    QVERIFY(!header->isEnabled());
    QCOMPARE(header->toolTip(),
             QStringLiteral("Writing first breaks to trace headers is not available yet."));
    // The main gadget deletes actions that leave the menus.
    m_module->changeLanguage();
    QVERIFY(m_module->menu()->actions().contains(output));
    QCOMPARE(m_menu->actions().count(output), 1);
}

void tst_FirstBreak::worksWithoutAWindowAndWithASecondOne()
{
    auto* first = m_session->window()->findChild<QAction*>("actionFirstBreak_Output");
    {
        PluginSession second;
        auto* newer = second.window()->findChild<QAction*>("actionFirstBreak_Output");
        QCOMPARE(m_module->menu(), m_menu);
        QVERIFY(m_menu->actions().contains(newer));
        QVERIFY(!m_menu->actions().contains(first));
    }
    m_session.reset();
    QCOMPARE(m_module->menu(), m_menu);
    QVERIFY(PluginSession::action(m_menu, "actionAuto_Pick"));
    QCOMPARE(m_menu->actions().size(), ownActions);
}

void tst_FirstBreak::isUsableWithAViewOnly()
{
    auto* output = m_session->window()->findChild<QAction*>("actionFirstBreak_Output");
    QAction* pick = PluginSession::action(m_menu, "actionAuto_Pick");
    QVERIFY(!pick->isEnabled());
    QVERIFY(!output->isEnabled());
    QVERIFY(openLine(1));
    QVERIFY(pick->isEnabled());
    QVERIFY(output->isEnabled());
    m_session->closeViews();
    QVERIFY(!pick->isEnabled());
    QVERIFY(!output->isEnabled());
}

void tst_FirstBreak::picksAllGathers()
{
    QVERIFY(openLine(5));
    QPointer<OvAbstractJob> job = startPicking();
    QVERIFY(job);
    QVERIFY(job->isRunning());
    QVERIFY(job->isCancellable());
    QVERIFY(job->taskName().contains(QLatin1String("line.sgy")));
    QTRY_COMPARE(job->state(), OvAbstractJob::Finished);
    QCOMPARE(job->progress(), 100);
    int close = 0;
    for (int gather = 0; gather < 5; ++gather) {
        const OvFirstBreaks breaks = storedBreaks(gather);
        QCOMPARE(breaks.size(), 24);
        const OvGather headers = document()->index()->gatherHeaders(document()->file(), gather);
        for (int row = 0; row < breaks.size(); ++row) {
            const auto i = static_cast<std::size_t>(row);
            const double truth = SegyWriter::firstBreakMs(std::abs(headers.headers[i].offset));
            close += std::abs(breaks.timesMs[i] - truth) < 12.0 ? 1 : 0;
            if (breaks.hasPick(row))
                QCOMPARE(breaks.states[i], OvPickState::Automatic);
        }
        QCOMPARE(document()->firstBreaks(gather).pickedCount(), breaks.pickedCount());
    }
    QVERIFY2(close >= 108, qPrintable(QStringLiteral("%1 of 120 near the truth").arg(close)));
    QVERIFY2(job->message().contains(QLatin1String(" of 120. Gathers: 5.")),
             qPrintable(job->message()));
}

void tst_FirstBreak::readsHeadersThatWereGivenUp()
{
    QVERIFY(openLine(3));
    for (OvAbstractJob* task : OvTaskManager::instance().tasks())
        task->requestCancel(); // only the reading of the headers runs
    QSignalSpy failed(document().data(), &OvSegyDocument::indexFailed);
    QVERIFY(failed.wait());
    QVERIFY(!document()->isIndexComplete());
    // The gather on the screen can be chosen before it is known.
    QDialog* dialog = openPickDialog();
    QVERIFY(dialog->findChild<QRadioButton*>(QStringLiteral("thisGather"))->isEnabled());
    dialog->reject();
    const QPointer<OvAbstractJob> job(startPicking());
    QVERIFY(job);
    QTRY_VERIFY_WITH_TIMEOUT(document()->isIndexComplete() && (!job || !job->isRunning()), 30000);
    QVERIFY(storedBreaks(2).pickedCount() > 0);
}

void tst_FirstBreak::picksOneGather()
{
    QVERIFY(openLine(3));
    QTRY_COMPARE(m_session->lastView()->gatherCount(), 3);
    m_session->lastView()->setCurrentGather(1);
    QDialog* dialog = openPickDialog();
    dialog->findChild<QRadioButton*>(QStringLiteral("thisGather"))->setChecked(true);
    accept(dialog);
    QTRY_COMPARE(PluginSession::actionJobs().last()->state(), OvAbstractJob::Finished);
    QVERIFY(document()->firstBreaks(0).isEmpty());
    QVERIFY(document()->firstBreaks(1).pickedCount() > 12);
    QVERIFY(document()->firstBreaks(2).isEmpty());
}

void tst_FirstBreak::keepsManualPicks()
{
    QVERIFY(openLine(2));
    QTRY_VERIFY(document()->isIndexComplete());
    OvFirstBreaks byHand;
    byHand.resize(24);
    byHand.timesMs[7] = 333.0F;
    byHand.states[7] = OvPickState::Manual;
    QVERIFY(document()->setFirstBreaks(1, byHand).ok());
    OvAbstractJob* job = startPicking();
    QTRY_COMPARE(job->state(), OvAbstractJob::Finished);
    const OvFirstBreaks breaks = storedBreaks(1);
    QCOMPARE(breaks.timesMs[7], 333.0F);
    QCOMPARE(breaks.states[7], OvPickState::Manual);
    QCOMPARE(breaks.states[8], OvPickState::Automatic);
}

void tst_FirstBreak::overwritesManualPicksWhenTold()
{
    QVERIFY(openLine(1));
    QTRY_VERIFY(document()->isIndexComplete());
    OvFirstBreaks byHand;
    byHand.resize(24);
    byHand.timesMs[7] = 333.0F;
    byHand.states[7] = OvPickState::Manual;
    QVERIFY(document()->setFirstBreaks(0, byHand).ok());
    QDialog* dialog = openPickDialog();
    auto* keep = dialog->findChild<QCheckBox*>(QStringLiteral("keepManualPicks"));
    QVERIFY(keep->isChecked());
    keep->setChecked(false);
    accept(dialog);
    QTRY_COMPARE(PluginSession::actionJobs().last()->state(), OvAbstractJob::Finished);
    QCOMPARE(storedBreaks(0).states[7], OvPickState::Automatic);
}

void tst_FirstBreak::keepsWhatACancelledRunDelivered()
{
    QVERIFY(openLine(200, 48, 500));
    OvAbstractJob* job = startPicking();
    QTRY_VERIFY(job->progress() > 0);
    QTRY_VERIFY(document()->firstBreaks(0).pickedCount() > 0);
    QVERIFY(job->isRunning());
    job->requestCancel();
    QTRY_COMPARE(job->state(), OvAbstractJob::Cancelled);
    QVERIFY(storedBreaks(0).pickedCount() > 0);
    QVERIFY(document()->firstBreaks(199).isEmpty());
    QVERIFY(job->message().startsWith(QLatin1String("Cancelled.")));
}

void tst_FirstBreak::refusesASecondRunOnTheSameFile()
{
    QVERIFY(openLine(200, 48, 500));
    OvAbstractJob* job = startPicking();
    ModalProbe probe;
    probe.next([](QWidget* dialog) {
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    probe.nextBox(QMessageBox::Ok);
    openPickDialog();
    QTRY_VERIFY(probe.isDone());
    QTRY_COMPARE(probe.boxes().size(), std::size_t(1));
    QVERIFY(probe.boxes().front().text.contains(job->taskName()));
    QCOMPARE(PluginSession::actionJobs().size(), 1);
    job->requestCancel();
    QTRY_VERIFY(!job->isRunning());
    // A run that has ended makes room for the next.
    QPointer<OvAbstractJob> ended = job;
    OvAbstractJob* next = startPicking();
    QVERIFY(next && next != job);
    QTRY_VERIFY(!ended);
    next->requestCancel();
    QTRY_VERIFY(!next->isRunning());
}

void tst_FirstBreak::offersToContinueACancelledRun()
{
    QVERIFY(openLine(60, 48, 1000));
    OvAbstractJob* job = startPicking();
    QTRY_VERIFY(document()->firstBreaks(0).pickedCount() > 0);
    job->requestCancel();
    QTRY_COMPARE(job->state(), OvAbstractJob::Cancelled);
    const int left = document()->unfinishedRun().left();
    QVERIFY(left > 0 && left < 60);
    // What a run that goes on would have to leave alone.
    OvFirstBreaks marked = document()->firstBreaks(0);
    marked.timesMs[3] = 444.0F;
    QVERIFY(document()->setFirstBreaks(0, marked));

    QDialog* dialog = openPickDialog();
    auto* next = dialog->findChild<QPushButton*>(QStringLiteral("continueButton"));
    QVERIFY(next->isVisible() && next->isDefault());
    QCOMPARE(next->text(), QStringLiteral("&Continue (gathers left: %1)").arg(left));
    auto* ok = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    QCOMPARE(ok->text(), QStringLiteral("&Start Over"));
    // Other values are another run.
    auto* shots = dialog->findChild<QSpinBox*>(QStringLiteral("sbMaxOff"));
    shots->setValue(9000);
    QVERIFY(!next->isVisible());
    QCOMPARE(ok->text(), QStringLiteral("Pick"));
    shots->setValue(0);
    QVERIFY(next->isVisible());
    next->click();
    job = PluginSession::actionJobs().last();
    QTRY_COMPARE_WITH_TIMEOUT(job->state(), OvAbstractJob::Finished, 60000);
    QVERIFY2(job->message().contains(QStringLiteral(" Gathers: %1.").arg(left)),
             qPrintable(job->message()));
    QCOMPARE(document()->firstBreaks(0).timesMs[3], 444.0F);
    QVERIFY(document()->firstBreaks(59).pickedCount() > 0);
    QVERIFY(!document()->unfinishedRun().exists());
}

void tst_FirstBreak::keepsAPickMadeWhileTheJobRuns()
{
    QVERIFY(openLine(60, 48, 1000));
    OvAbstractJob* job = startPicking();
    QTRY_VERIFY(job->progress() > 0);
    // Neither of them has been reached, or has, or is at it: the pick stays in any case.
    for (const int gather : {0, 1, 2, 30, 59})
        QVERIFY(document()->pickHistory()->edit(gather, {OvTracePick::manual(7, 333.0)}, "pick"));
    QTRY_COMPARE_WITH_TIMEOUT(job->state(), OvAbstractJob::Finished, 60000);
    for (const int gather : {0, 1, 2, 30, 59}) {
        const OvFirstBreaks stored = storedBreaks(gather);
        QCOMPARE(stored.timesMs[7], 333.0F);
        QCOMPARE(stored.states[7], OvPickState::Manual);
        QVERIFY(stored.pickedCount() > 24);
        QCOMPARE(document()->firstBreaks(gather).timesMs, stored.timesMs);
    }
}

void tst_FirstBreak::guidesByVelocityAndByMyPicks()
{
    QVERIFY(openLine(3));
    QTRY_VERIFY(document()->isIndexComplete());
    QDialog* dialog = openPickDialog();
    auto* guide = dialog->findChild<QComboBox*>(QStringLiteral("guide"));
    auto* velocity = dialog->findChild<QDoubleSpinBox*>(QStringLiteral("velocity"));
    QVERIFY(!velocity->isEnabled());
    QCOMPARE(velocity->suffix(), QStringLiteral(" m/s"));
    guide->setCurrentIndex(1);
    QVERIFY(velocity->isEnabled());
    velocity->setValue(2500.0);
    accept(dialog);
    QTRY_COMPARE(PluginSession::actionJobs().last()->state(), OvAbstractJob::Finished);
    QVERIFY(document()->firstBreaks(1).pickedCount() > 12);

    dialog = openPickDialog();
    dialog->findChild<QComboBox*>(QStringLiteral("guide"))->setCurrentIndex(2);
    accept(dialog);
    QTRY_COMPARE(PluginSession::actionJobs().last()->state(), OvAbstractJob::Finished);
    QVERIFY(document()->firstBreaks(2).pickedCount() > 12);
    dialog = openPickDialog();
    dialog->findChild<QComboBox*>(QStringLiteral("guide"))->setCurrentIndex(3);
    accept(dialog);
    QTRY_COMPARE(PluginSession::actionJobs().last()->state(), OvAbstractJob::Finished);
    QVERIFY(document()->firstBreaks(2).pickedCount() > 12);
}

void tst_FirstBreak::namesTheGuideThatHasNothingToLearnFrom()
{
    QVERIFY(openLine(2));
    QTRY_VERIFY(document()->isIndexComplete());
    ModalProbe probe;
    probe.next([](QWidget* dialog) {
        dialog->findChild<QComboBox*>(QStringLiteral("guide"))->setCurrentIndex(2);
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    probe.nextBox(QMessageBox::Ok);
    openPickDialog();
    QTRY_VERIFY(probe.isDone());
    QTRY_COMPARE(probe.boxes().size(), std::size_t(1));
    QVERIFY2(probe.boxes().front().text.contains(QStringLiteral("too few picks")),
             qPrintable(probe.boxes().front().text));
    QCOMPARE(PluginSession::actionJobs().last()->state(), OvAbstractJob::Failed);
    QVERIFY(document()->firstBreaks(0).isEmpty());
}

void tst_FirstBreak::previewStoresNothing()
{
    QVERIFY(openLine(2));
    QVERIFY(showView());
    auto* canvas = qobject_cast<OvGatherCanvas*>(m_session->lastView()->canvas());
    QVERIFY(canvas);
    QDialog* dialog = openPickDialog();
    auto* preview = dialog->findChild<QCheckBox*>(QStringLiteral("preview"));
    preview->setChecked(true);
    QTRY_VERIFY(canvas->previewPicks().pickedCount() > 12);
    // The last of several changes is what is shown.
    auto* farthest = dialog->findChild<QSpinBox*>(QStringLiteral("sbMaxOff"));
    for (const int metres : {1, 2, 30})
        farthest->setValue(metres);
    const auto* gather = canvas->gather().get();
    int near = 0;
    for (const OvTraceHeader& header : gather->headers)
        near += std::abs(header.offset) <= 30.0F ? 1 : 0;
    QVERIFY(near > 0 && near < 12);
    QTRY_COMPARE(canvas->previewPicks().pickedCount(), near);
    preview->setChecked(false);
    QVERIFY(canvas->previewPicks().isEmpty());
    preview->setChecked(true);
    QTRY_VERIFY(!canvas->previewPicks().isEmpty());
    dialog->reject();
    QVERIFY(canvas->previewPicks().isEmpty());
    QVERIFY(canvas->firstBreaks().isEmpty());
    QVERIFY(!QFileInfo::exists(document()->firstBreakPath()));
}

void tst_FirstBreak::picksTheGatherShownInOneStep()
{
    QVERIFY(openLine(2));
    QVERIFY(showView());
    QTRY_COMPARE(m_session->lastView()->gatherCount(), 2);
    QAction* pick = PluginSession::action(m_menu, "actionPick_Gather");
    QCOMPARE(pick->shortcut(), QKeySequence(QStringLiteral("Ctrl+Shift+P")));
    QVERIFY(document()->pickHistory()->edit(1, {OvTracePick::manual(7, 333.0)}, "pick"));
    m_session->lastView()->setCurrentGather(1);
    pick->trigger();
    QTRY_VERIFY(storedBreaks(1).pickedCount() > 12);
    QCOMPARE(storedBreaks(1).timesMs[7], 333.0F);
    QVERIFY(storedBreaks(0).isEmpty());
    QTRY_COMPARE(PluginSession::actionJobs().last()->state(), OvAbstractJob::Finished);
    QVERIFY(PluginSession::actionJobs().last()->message().startsWith(
        QLatin1String("Picked traces of the gather: ")));
    QCOMPARE(document()->pickHistory()->stack()->undoText(), QStringLiteral("Pick This Gather"));
    m_session->lastView()->undoPickEdit();
    QCOMPARE(storedBreaks(1).pickedCount(), 1);
    QCOMPARE(storedBreaks(1).timesMs[7], 333.0F);
    m_session->lastView()->redoPickEdit();
    QVERIFY(storedBreaks(1).pickedCount() > 12);
}

void tst_FirstBreak::undoKeepsWhatAnotherProgramWroteMeanwhile()
{
    QVERIFY(openLine(1));
    QVERIFY(showView());
    const auto pick = [this] {
        PluginSession::action(m_menu, "actionPick_Gather")->trigger();
        return QTest::qWaitFor(
            [] { return PluginSession::actionJobs().last()->state() == OvAbstractJob::Finished; });
    };
    // Nothing but the picks is left to be written by the second one.
    QVERIFY(pick());
    m_session->lastView()->undoPickEdit();
    QVERIFY(document()->pickHistory()->edit(0, {OvTracePick::manual(7, 333.0)}, "pick"));
    const QString name = QStringLiteral("another program");
    {
        auto other = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        other.setDatabaseName(document()->firstBreakPath());
        QVERIFY(other.open());
        QSqlQuery query(other);
        QVERIFY(query.exec(QStringLiteral("BEGIN IMMEDIATE")));
        // The picks are found, and have to wait until the other has erased all that there was.
        QTimer timer;
        connect(&timer, &QTimer::timeout, &timer, [&] {
            timer.stop();
            QVERIFY(PluginSession::actionJobs().last()->isRunning());
            QVERIFY(query.exec(QStringLiteral("DELETE FROM trace_block")));
            QVERIFY(query.exec(QStringLiteral("COMMIT")));
        });
        timer.start(500);
        QVERIFY(pick());
        QVERIFY(!timer.isActive());
    }
    QSqlDatabase::removeDatabase(name);
    QVERIFY(storedBreaks(0).pickedCount() > 12);
    QCOMPARE(storedBreaks(0).states[7], OvPickState::Automatic);
    m_session->lastView()->undoPickEdit();
    QCOMPARE(storedBreaks(0).pickedCount(), 0);
}

void tst_FirstBreak::thisGatherInTheDialogIsOneStep()
{
    QVERIFY(openLine(2));
    QVERIFY(showView());
    QVERIFY(document()->pickHistory()->edit(0, {OvTracePick::manual(7, 333.0)}, "pick"));
    QDialog* dialog = openPickDialog();
    dialog->findChild<QRadioButton*>(QStringLiteral("thisGather"))->setChecked(true);
    dialog->findChild<QCheckBox*>(QStringLiteral("keepManualPicks"))->setChecked(false);
    accept(dialog);
    QTRY_COMPARE(PluginSession::actionJobs().last()->state(), OvAbstractJob::Finished);
    QCOMPARE(document()->firstBreaks(0).states[7], OvPickState::Automatic);
    QCOMPARE(document()->pickHistory()->stack()->count(), 2);
    m_session->lastView()->undoPickEdit();
    QCOMPARE(storedBreaks(0).pickedCount(), 1);
    QCOMPARE(storedBreaks(0).states[7], OvPickState::Manual);
    QCOMPARE(storedBreaks(0).timesMs[7], 333.0F);
    QCOMPARE(document()->firstBreaks(0).pickedCount(), 1);
}

void tst_FirstBreak::picksAndPreviewsInEveryOrder_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("gather");
    QTest::newRow("source") << static_cast<int>(OvGatherKey::Source) << 3;
    QTest::newRow("receiver") << static_cast<int>(OvGatherKey::Receiver) << 12;
    QTest::newRow("CDP") << static_cast<int>(OvGatherKey::Cdp) << 20;
    QTest::newRow("offset") << static_cast<int>(OvGatherKey::OffsetBin) << 2;
    QTest::newRow("record, sorted") << static_cast<int>(OvGatherKey::FieldRecord) << 5;
}

void tst_FirstBreak::picksAndPreviewsInEveryOrder()
{
    QFETCH(int, key);
    QFETCH(int, gather);
    SegyWriter writer;
    writer.sampleCount = 500;
    writer.cdpSpacing = 10.0;
    for (int shot = 0; shot < 30; ++shot)
        writer.addShot(100 + shot, shot * 20.0, 24, 10.0);
    QVERIFY(writer.write(m_session->path(QStringLiteral("line.sgy"))));
    QVERIFY(openFile());
    QVERIFY(showView());
    OvGatherViewController* view = m_session->lastView();
    OvGatherOrder order;
    order.key = static_cast<OvGatherKey>(key);
    order.sort = OvGatherSort::AbsoluteOffset;
    order.descending = true;
    view->setGatherOrder(order);
    QTRY_VERIFY(view->gatherIndex()->order() == order && view->isShowingData());
    view->setCurrentGather(gather);
    QTRY_VERIFY(view->isShowingData());
    const std::vector<qint64> traces = view->gatherIndex()->gatherTraces(gather);
    const auto count = static_cast<int>(traces.size());
    QVERIFY(count >= 12);
    if (order.key == OvGatherKey::Cdp) {
        for (const OvTraceHeader& header : canvas()->gather()->headers)
            QCOMPARE(header.cdp, gather + 1);
    }

    QDialog* dialog = openPickDialog();
    dialog->findChild<QCheckBox*>(QStringLiteral("preview"))->setChecked(true);
    QTRY_VERIFY(!canvas()->previewPicks().isEmpty());
    QVERIFY2(nearTruth(canvas()->previewPicks()) >= 8 * count / 10,
             qPrintable(QString::number(nearTruth(canvas()->previewPicks()))));
    dialog->reject();
    QVERIFY(canvas()->previewPicks().isEmpty());

    QVERIFY(document()->pickHistory()->edit(std::vector<qint64>{traces[4]},
                                            {OvTracePick::manual(0, 333.0)}, "pick"));
    PluginSession::action(m_menu, "actionPick_Gather")->trigger();
    QTRY_COMPARE(PluginSession::actionJobs().last()->state(), OvAbstractJob::Finished);
    const OvFirstBreaks picked = document()->firstBreaksOf(traces);
    QVERIFY2(nearTruth(picked) >= 8 * count / 10 - 1,
             qPrintable(QString::number(nearTruth(picked))));
    QCOMPARE(picked.timesMs[4], 333.0F);
    int all = 0;
    for (int record = 0; record < 30; ++record)
        all += storedBreaks(record).pickedCount();
    QCOMPARE(all, picked.pickedCount());
    QCOMPARE(canvas()->firstBreaks().pickedCount(), all);
    view->undoPickEdit();
    QCOMPARE(document()->firstBreaksOf(traces).pickedCount(), 1);
}

void tst_FirstBreak::otherGathersGuideInEveryOrder()
{
    QVERIFY(openLine(30));
    QVERIFY(showView());
    OvGatherViewController* view = m_session->lastView();
    OvGatherOrder order;
    order.key = OvGatherKey::Receiver;
    view->setGatherOrder(order);
    QTRY_VERIFY(view->gatherIndex()->order() == order && view->isShowingData());
    view->setCurrentGather(12);
    QTRY_VERIFY(view->isShowingData());
    QVector<OvTracePick> picks;
    for (int row = 0; row < 30; ++row)
        picks.append(OvTracePick::manual(row, 200.0));
    const auto pickGatherOf = [&](int gather) {
        return document()->pickHistory()->edit(view->gatherIndex()->gatherTraces(gather), picks,
                                               "pick");
    };
    // A gather does not guide itself: these are in every record, but in no other receiver gather.
    QVERIFY(pickGatherOf(12));
    QDialog* dialog = openPickDialog();
    dialog->findChild<QCheckBox*>(QStringLiteral("preview"))->setChecked(true);
    QTRY_VERIFY(nearTruth(canvas()->previewPicks()) >= 24);
    auto* guide = dialog->findChild<QComboBox*>(QStringLiteral("guide"));
    guide->setCurrentIndex(2);
    QTRY_VERIFY(canvas()->previewPicks().isEmpty());
    QVERIFY(pickGatherOf(11));
    guide->setCurrentIndex(0);
    QTRY_VERIFY(nearTruth(canvas()->previewPicks()) >= 24);
    canvas()->setPreviewPicks({});
    guide->setCurrentIndex(2);
    QTRY_VERIFY(!canvas()->previewPicks().isEmpty());
    dialog->reject();
}

void tst_FirstBreak::aCancelledGatherIsNotPicked()
{
    QVERIFY(openLine(1, 2000, 2000));
    QVERIFY(showView());
    PluginSession::action(m_menu, "actionPick_Gather")->trigger();
    const QPointer<OvAbstractJob> first = PluginSession::actionJobs().last();
    QVERIFY(first->isRunning());
    // Asking again takes the place of what is not done yet.
    PluginSession::action(m_menu, "actionPick_Gather")->trigger();
    QTRY_VERIFY(!first);
    OvAbstractJob* second = PluginSession::actionJobs().last();
    QVERIFY(second->isRunning());
    second->requestCancel();
    QElapsedTimer sinceCancel;
    sinceCancel.start();
    QTRY_COMPARE(second->state(), OvAbstractJob::Cancelled);
    QVERIFY2(sinceCancel.elapsed() < 3000, qPrintable(QString::number(sinceCancel.elapsed())));
    QVERIFY(storedBreaks(0).isEmpty());
    QCOMPARE(document()->pickHistory()->stack()->count(), 0);
}

void tst_FirstBreak::picksAGatherWhileARunIsAtWork()
{
    QVERIFY(openLine(200, 48, 500));
    QVERIFY(showView());
    OvAbstractJob* run = startPicking();
    m_session->lastView()->setCurrentGather(12);
    PluginSession::action(m_menu, "actionPick_Gather")->trigger();
    QCOMPARE(PluginSession::actionJobs().size(), 2);
    OvAbstractJob* one = PluginSession::actionJobs().last();
    QTRY_COMPARE_WITH_TIMEOUT(one->state(), OvAbstractJob::Finished, 20000);
    QVERIFY(document()->firstBreaks(12).pickedCount() > 24);
    QCOMPARE(document()->pickHistory()->stack()->count(), 1);
    QVERIFY(run->isRunning());
    run->requestCancel();
    QTRY_VERIFY(!run->isRunning());
}

// Field records of one trace each: the shot walks away from one receiver.
void tst_FirstBreak::picksAWalkawayAcrossItsRecords()
{
    SegyWriter writer;
    writer.sampleCount = 500;
    for (int record = 0; record < 40; ++record)
        writer.addShot(500 + (record * 17) % 40, -10.0 * record, 1, 10.0);
    QVERIFY(writer.write(m_session->path(QStringLiteral("line.sgy"))));
    QVERIFY(openFile());
    QVERIFY(showView());
    OvGatherViewController* view = m_session->lastView();
    QTRY_COMPARE(view->gatherCount(), 1);
    QTRY_VERIFY(canvas()->gather() && canvas()->gather()->traceCount() == 40);
    QDialog* dialog = openPickDialog();
    dialog->findChild<QCheckBox*>(QStringLiteral("preview"))->setChecked(true);
    QTRY_VERIFY(nearTruth(canvas()->previewPicks()) >= 36);
    dialog->reject();
    PluginSession::action(m_menu, "actionPick_Gather")->trigger();
    QTRY_COMPARE(PluginSession::actionJobs().last()->state(), OvAbstractJob::Finished);
    QVERIFY(nearTruth(storedBreaks(0)) >= 36);
    view->undoPickEdit();
    QCOMPARE(storedBreaks(0).pickedCount(), 0);
    OvAbstractJob* job = startPicking();
    QTRY_COMPARE(job->state(), OvAbstractJob::Finished);
    QVERIFY(nearTruth(storedBreaks(0)) >= 36);
}

void tst_FirstBreak::picksARecordedWalkaway()
{
    const QDir data(QString::fromLocal8Bit(qgetenv("TARNPICK_TEST_DATA")));
    const QString source = data.filePath(QStringLiteral("gathers/walkaway_9B.sgy"));
    if (!qEnvironmentVariableIsSet("TARNPICK_TEST_DATA") || !QFileInfo::exists(source))
        QSKIP("Without TARNPICK_TEST_DATA there are no recordings.");
    QVERIFY(QFile::copy(source, m_session->path(QStringLiteral("line.sgy"))));
    QVERIFY(openFile());
    QVERIFY(showView());
    PluginSession::action(m_menu, "actionPick_Gather")->trigger();
    QTRY_COMPARE(PluginSession::actionJobs().last()->state(), OvAbstractJob::Finished);
    const OvFirstBreaks breaks = storedBreaks(0);
    QCOMPARE(breaks.size(), 29);
    QVERIFY2(breaks.pickedCount() >= 15, qPrintable(QString::number(breaks.pickedCount())));
    // At the near offsets the arrival can be seen on each trace: it comes at 6 to 10 ms, later with
    // every step.
    for (std::size_t row = 1; row < 7; ++row) {
        QVERIFY(breaks.timesMs[row] > breaks.timesMs[row - 1]);
        QVERIFY(breaks.timesMs[row] > 6.0F && breaks.timesMs[row] < 10.0F);
    }
}

void tst_FirstBreak::closingTheProjectEndsTheRun()
{
    QVERIFY(openLine(200, 48, 500));
    QPointer<OvAbstractJob> job = startPicking();
    QTRY_VERIFY(job->progress() >= 0);
    m_session->closeViews();
    OvProjectManager::instance().closeProject();
    QVERIFY(job.isNull() || job->isCancelRequested());
    QTRY_VERIFY(job.isNull());
    QVERIFY(!OvTaskManager::instance().hasRunningJob());
}

void tst_FirstBreak::deletingTheViewLeavesTheRunAlone()
{
    QVERIFY(openLine(3));
    const auto held = document();
    OvAbstractJob* job = startPicking();
    m_session->closeViews();
    QTRY_COMPARE(job->state(), OvAbstractJob::Finished);
    QVERIFY(held->firstBreaks(2).pickedCount() > 12);
}

void tst_FirstBreak::namesTheParameterThatDoesNotFit()
{
    QVERIFY(openLine(1));
    QPointer<QDialog> dialog = openPickDialog();
    dialog->findChild<QSpinBox*>(QStringLiteral("sbMinOff"))->setValue(500);
    dialog->findChild<QSpinBox*>(QStringLiteral("sbMaxOff"))->setValue(100);
    // Looked for first: the probe would take the dialog itself for the next window.
    accept(dialog);
    auto* box = dialog->findChild<QMessageBox*>();
    QVERIFY(box);
    QVERIFY2(box->text().contains(QLatin1String("offset"), Qt::CaseInsensitive),
             qPrintable(box->text()));
    box->button(QMessageBox::Ok)->click();
    QVERIFY(dialog->isVisible());
    QVERIFY(dialog->focusWidget());
    QCOMPARE(dialog->focusWidget()->objectName(), QStringLiteral("sbMinOff"));
    QVERIFY(PluginSession::actionJobs().isEmpty());
    dialog->reject();
    QTRY_VERIFY(!dialog);
}

void tst_FirstBreak::savesTheParametersWithTheProject()
{
    QVERIFY(openLine(1));
    QPointer<QDialog> dialog = openPickDialog();
    dialog->findChild<QSpinBox*>(QStringLiteral("sbMaxOff"))->setValue(1234);
    dialog->findChild<QDoubleSpinBox*>(QStringLiteral("dbSNR"))->setValue(2.5);
    dialog->findChild<QPushButton*>(QStringLiteral("btnSave"))->click();
    dialog->findChild<QSpinBox*>(QStringLiteral("sbShotStep"))->setValue(9);
    dialog->reject();
    QTRY_VERIFY(!dialog);

    dialog = openPickDialog();
    QCOMPARE(dialog->findChild<QSpinBox*>(QStringLiteral("sbMaxOff"))->value(), 1234);
    QCOMPARE(dialog->findChild<QDoubleSpinBox*>(QStringLiteral("dbSNR"))->value(), 2.5);
    QCOMPARE(dialog->findChild<QSpinBox*>(QStringLiteral("sbShotStep"))->value(), 1);
    dialog->findChild<QPushButton*>(QStringLiteral("btnDefault"))->click();
    QCOMPARE(dialog->findChild<QSpinBox*>(QStringLiteral("sbMaxOff"))->value(), 0);
    QCOMPARE(dialog->findChild<QDoubleSpinBox*>(QStringLiteral("dbSNR"))->value(), 0.0);
    dialog->reject();
    QTRY_VERIFY(!dialog);

    const QVariantMap stored =
        OvBaseUtil::projectValue(OvProjectManager::instance().define().id, "pickParameters")
            .toMap();
    QCOMPARE(stored.size(), 15);
    QVERIFY(m_session->openProject());
    m_session->activate(m_session->lastView());
    dialog = openPickDialog();
    QCOMPARE(dialog->findChild<QSpinBox*>(QStringLiteral("sbMaxOff"))->value(), 0);
    dialog->reject();
    QTRY_VERIFY(!dialog);
}

// Each field of the panel alone changes the parameter of its name, there and back.
void tst_FirstBreak::everyFieldOfThePanelIsAParameter()
{
    QVERIFY(openLine(1));
    const QMap<QString, QString> fields = {
        {"processing_length_ms", "sbProl"}, {"quick_window_ms", "sbQwin"},
        {"tuning_window_ms", "sbBwin"},     {"min_offset_m", "sbMinOff"},
        {"max_offset_m", "sbMaxOff"},       {"amplitude_threshold", "dbFBAmp"},
        {"snr_threshold", "dbSNR"},         {"total_shots", "sbShots"},
        {"shot_increment", "sbShotStep"},
    };
    const int project = OvProjectManager::instance().define().id;
    QPointer<QDialog> dialog = openPickDialog();
    int value = 900; // the processing length first, which the windows may not exceed
    for (const char* name : {"processing_length_ms", "quick_window_ms", "tuning_window_ms",
                             "min_offset_m", "max_offset_m", "total_shots", "shot_increment"})
        dialog->findChild<QSpinBox*>(fields.value(QLatin1String(name)))
            ->setValue(QLatin1String(name) == QLatin1String("max_offset_m") ? 5000 : value--);
    for (const char* name : {"amplitude_threshold", "snr_threshold"})
        dialog->findChild<QDoubleSpinBox*>(fields.value(QLatin1String(name)))
            ->setValue(0.01 * value--);
    dialog->findChild<QComboBox*>(QStringLiteral("polarity_2"))->setCurrentIndex(0);
    dialog->findChild<QPushButton*>(QStringLiteral("btnSave"))->click();
    const QVariantMap stored = OvBaseUtil::projectValue(project, "pickParameters").toMap();
    QCOMPARE(stored.value(QStringLiteral("polarity")).toString(), QStringLiteral("negative"));
    dialog->reject();
    QTRY_VERIFY(!dialog);
    dialog = openPickDialog();
    for (auto field = fields.begin(); field != fields.end(); ++field) {
        const double saved = stored.value(field.key()).toDouble();
        QVERIFY2(saved > 1.0, qPrintable(field.key()));
        const auto* box = dialog->findChild<QWidget*>(field.value());
        QCOMPARE(box->property("value").toDouble(), saved);
    }
    QCOMPARE(dialog->findChild<QComboBox*>(QStringLiteral("polarity_2"))->currentIndex(), 0);
    dialog->reject();
    QTRY_VERIFY(!dialog);
}

void tst_FirstBreak::everyFieldOfTheDialogExplainsItself()
{
    QVERIFY(openLine(1));
    const auto toolTips = [this] {
        QMap<QString, QString> texts;
        QPointer<QDialog> dialog = openPickDialog();
        const auto widgets = dialog->findChildren<QWidget*>();
        for (const QWidget* widget : widgets) {
            const bool isField = widget->inherits("QAbstractSpinBox") ||
                                 widget->inherits("QComboBox") ||
                                 widget->inherits("QAbstractButton");
            const QString name = widget->objectName();
            // The toolkit's own, and the standard buttons, explain themselves.
            if (isField && !name.isEmpty() && !name.startsWith(QLatin1String("qt_")))
                texts.insert(name, widget->toolTip());
        }
        delete dialog.data();
        return texts;
    };
    const QMap<QString, QString> english = toolTips();
    for (auto text = english.begin(); text != english.end(); ++text)
        QVERIFY2(!text.value().isEmpty(), qPrintable(text.key()));
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    m_module->changeLanguage();
    const QMap<QString, QString> chinese = toolTips();
    // The panel's ten fields speak with the shell's catalogue, which is not here.
    const QStringList names = {"phase",      "min_confidence", "guide",           "velocity",
                               "intercept",  "btnDefault",     "btnSave",         "allGathers",
                               "thisGather", "preview",        "keepManualPicks", "continueButton"};
    QCOMPARE(english.size(), 10 + names.size());
    for (const QString& name : names) {
        QVERIFY2(!chinese.value(name).isEmpty(), qPrintable(name));
        QVERIFY2(chinese.value(name) != english.value(name), qPrintable(name));
    }
    const QPointer<QDialog> dialog = openPickDialog();
    for (const char* name : {"min_confidence", "velocity", "intercept"}) {
        const auto* field = dialog->findChild<QDoubleSpinBox*>(QLatin1String(name));
        const QString range =
            QStringLiteral("%1 to %2").arg(field->minimum()).arg(field->maximum());
        const QString value = QStringLiteral("Default: %1").arg(field->value());
        const QString text = english.value(QLatin1String(name));
        QVERIFY2(text.contains(range) && text.endsWith(value), qPrintable(text));
    }
    delete dialog.data();
}

void tst_FirstBreak::fieldsStandInTheColumnsOfThePanel_data()
{
    QTest::addColumn<bool>("chinese");
    QTest::addColumn<double>("fontScale");
    QTest::newRow("English") << false << 1.0;
    QTest::newRow("English, 150 %") << false << 1.5;
    QTest::newRow("Chinese") << true << 1.0;
    QTest::newRow("Chinese, 150 %") << true << 1.5;
}

void tst_FirstBreak::fieldsStandInTheColumnsOfThePanel()
{
    QFETCH(bool, chinese);
    QFETCH(double, fontScale);
    QVERIFY(openLine(1));
    QVERIFY(showView());
    OvTranslator::instance().setSessionLanguage(chinese ? OvTranslator::Chinese
                                                        : OvTranslator::English);
    m_module->changeLanguage();
    QPointer<QDialog> dialog = openPickDialog();
    QVERIFY(dialog->findChild<QWidget*>(QStringLiteral("thisGather"))->isEnabled());
    QFont font = dialog->font();
    font.setPointSizeF(font.pointSizeF() * fontScale);
    dialog->setFont(font);
    dialog->adjustSize();
    QTRY_VERIFY(dialog->isVisible());
    const auto leftOf = [&](const char* name) {
        const auto* widget = dialog->findChild<QWidget*>(QLatin1String(name));
        return widget->mapTo(dialog, QPoint(0, 0)).x();
    };
    for (const char* name : {"phase", "guide"}) {
        QCOMPARE(leftOf(name), leftOf("sbShotStep"));
        QCOMPARE(leftOf(qPrintable(QStringLiteral("label_") + name)), leftOf("label_11"));
    }
    for (const char* name : {"min_confidence", "velocity", "intercept"}) {
        QCOMPARE(leftOf(name), leftOf("dbSNR"));
        QCOMPARE(leftOf(qPrintable(QStringLiteral("label_") + name)), leftOf("label_19"));
    }
    QCOMPARE(dialog->findChild<QWidget*>(QStringLiteral("phase"))->width(),
             dialog->findChild<QWidget*>(QStringLiteral("guide"))->width());
    // Whoever fills them in goes through them row by row.
    const QStringList rows = {QStringLiteral("sbShotStep"),     QStringLiteral("phase"),
                              QStringLiteral("min_confidence"), QStringLiteral("guide"),
                              QStringLiteral("velocity"),       QStringLiteral("intercept")};
    QStringList visited;
    const auto* first = dialog->findChild<QWidget*>(rows.front());
    for (const QWidget* next = first; visited.isEmpty() || next != first;
         next = next->nextInFocusChain()) {
        if (rows.contains(next->objectName()))
            visited += next->objectName();
    }
    QCOMPARE(visited, rows);
    dialog->reject();
    QTRY_VERIFY(!dialog);
}

OvAbstractJob* tst_FirstBreak::exportTo(const QString& path)
{
    ModalProbe probe;
    QString proposed;
    probe.next([&](QWidget* window) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        proposed = dialog->selectedFiles().value(0);
        dialog->selectFile(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    m_session->window()->findChild<QAction*>("actionFirstBreak_Output")->trigger();
    if (!probe.isDone() || QFileInfo(proposed).fileName() != QLatin1String("line_fb.csv"))
        return nullptr;
    const QList<OvAbstractJob*> jobs = PluginSession::actionJobs();
    return jobs.isEmpty() ? nullptr : jobs.last();
}

void tst_FirstBreak::exportsText()
{
    QVERIFY(openLine(2));
    QTRY_VERIFY(document()->isIndexComplete());
    OvFirstBreaks breaks;
    breaks.resize(24);
    breaks.timesMs[0] = 12.5F;
    breaks.states[0] = OvPickState::Manual;
    breaks.timesMs[1] = 14.5F;
    breaks.states[1] = OvPickState::Rejected;
    QVERIFY(document()->setFirstBreaks(1, breaks).ok());
    const QString path = m_session->path(QStringLiteral("out.csv"));
    OvAbstractJob* job = exportTo(path);
    QVERIFY(job);
    QTRY_COMPARE(job->state(), OvAbstractJob::Finished);
    QVERIFY2(job->message().startsWith(QLatin1String("1 first breaks exported")),
             qPrintable(job->message()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    QCOMPARE(lines.first().trimmed(),
             QStringLiteral("trace,field_record,channel,offset_m,time_ms,confidence"));
    QCOMPARE(lines.filter(QStringLiteral(",12.500,")).size(), 1);
    QVERIFY(lines.filter(QStringLiteral(",12.500,")).first().startsWith(QLatin1String("24,101,")));
    QCOMPARE(lines.filter(QStringLiteral("14.500")).size(), 0);
    QCOMPARE(lines.size() - (lines.last().isEmpty() ? 1 : 0), 49);
}

void tst_FirstBreak::exportsEmptyCellsWithoutPicks()
{
    QVERIFY(openLine(1));
    const QString path = m_session->path(QStringLiteral("none.csv"));
    OvAbstractJob* job = exportTo(path);
    QVERIFY(job);
    QTRY_COMPARE(job->state(), OvAbstractJob::Finished);
    QVERIFY(job->message().startsWith(QLatin1String("0 first breaks")));
    QVERIFY(QFileInfo::exists(path));
}

void tst_FirstBreak::reportsAnExportThatFails()
{
    QVERIFY(openLine(1));
    const QString path = m_session->path(QStringLiteral("gone/out.csv"));
    QVERIFY(QDir().mkpath(QFileInfo(path).absolutePath()));
    ModalProbe probe;
    probe.next([&path](QWidget* window) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        dialog->selectFile(path);
        QMetaObject::invokeMethod(dialog, "accept");
        // The folder goes between the question and the export.
        QDir(QFileInfo(path).absolutePath()).removeRecursively();
    });
    probe.nextBox(QMessageBox::Ok);
    m_session->window()->findChild<QAction*>("actionFirstBreak_Output")->trigger();
    QTRY_COMPARE(probe.boxes().size(), std::size_t(1));
    QVERIFY(probe.isDone());
    QVERIFY2(probe.boxes().front().text.contains(QLatin1String("out.csv")),
             qPrintable(probe.boxes().front().text));
    QCOMPARE(PluginSession::actionJobs().last()->state(), OvAbstractJob::Failed);
}

void tst_FirstBreak::leavesNothingOfACancelledExport()
{
    QVERIFY(openLine(200, 48, 200));
    const QString path = m_session->path(QStringLiteral("out.csv"));
    OvAbstractJob* job = exportTo(path);
    QVERIFY(job);
    if (job->isRunning())
        job->requestCancel();
    QTRY_COMPARE(job->state(), OvAbstractJob::Cancelled);
    QVERIFY(!QFileInfo::exists(path));
    QCOMPARE(QDir(m_session->folder()).entryList({QStringLiteral("out.csv*")}, QDir::Files),
             QStringList());
}

void tst_FirstBreak::reportsPicksThatCannotBeStored()
{
    QFile damaged(m_session->path(QStringLiteral("line.sgy.fb")));
    QVERIFY(damaged.open(QIODevice::WriteOnly));
    const QByteArray content(5000, 'x');
    QCOMPARE(damaged.write(content), qint64(content.size()));
    damaged.close();
    QVERIFY(openLine(3));
    QCOMPARE(document()->firstBreakPath(), damaged.fileName());
    ModalProbe probe;
    probe.next([this](QWidget* dialog) { accept(qobject_cast<QDialog*>(dialog)); });
    probe.nextBox(QMessageBox::Ok);
    openPickDialog();
    QTRY_COMPARE(probe.boxes().size(), std::size_t(1));
    QVERIFY2(probe.boxes().front().text.contains(QLatin1String("line.sgy.fb")),
             qPrintable(probe.boxes().front().text));
    QCOMPARE(PluginSession::actionJobs().last()->state(), OvAbstractJob::Failed);
    QVERIFY(damaged.open(QIODevice::ReadOnly));
    QCOMPARE(damaged.readAll(), content);
}

void tst_FirstBreak::clickOn(int row, double timeMs)
{
    const auto* canvas = qobject_cast<OvGatherCanvas*>(m_session->lastView()->canvas());
    QTest::mouseClick(m_session->lastView()->canvas(), Qt::LeftButton, {},
                      canvas->pointOf(row, timeMs).toPoint());
}

bool tst_FirstBreak::showView()
{
    OvGatherViewController* view = m_session->lastView();
    view->resize(800, 600);
    view->show();
    return QTest::qWaitFor(
        [view] { return view->isShowingData() && view->document()->isIndexComplete(); });
}

void tst_FirstBreak::theBarSetsTheSnapWindowAndKeepsIt()
{
    QSettings().remove(QStringLiteral("Sensitivity"));
    QWidget* bar = m_module->toolBarWidget();
    QVERIFY(bar);
    QCOMPARE(m_module->toolBarWidget(), bar);
    auto* editor = bar->findChild<QSpinBox*>(QStringLiteral("sensitivity"));
    QCOMPARE(editor->value(), 0);
    QVERIFY(bar->sizeHint().height() <= 64);
    QVERIFY(openLine(1));
    QVERIFY(showView());
    m_session->lastView()->setEditing(true);
    const double onset = SegyWriter::firstBreakMs(100.0);
    clickOn(10, onset - 10.0);
    const float exact = document()->firstBreaks(0).timesMs[10];
    QVERIFY(std::abs(exact - (onset - 10.0)) < 2.0);
    editor->setValue(24);
    clickOn(10, onset - 10.0);
    const float snapped = document()->firstBreaks(0).timesMs[10];
    QVERIFY2(std::abs(snapped - onset) < 5.0, qPrintable(QString::number(snapped)));
    delete bar;
    QCOMPARE(QSettings().value(QStringLiteral("Sensitivity")).toInt(), 24);
    auto* next = m_module->toolBarWidget()->findChild<QSpinBox*>(QStringLiteral("sensitivity"));
    QCOMPARE(next->value(), 24);
    next->setValue(0);
    m_session->lastView()->setEditing(false);
}

void tst_FirstBreak::editsByHandThroughActionsAndBar()
{
    QAction* edit = PluginSession::action(m_menu, "actionEdit_Picks");
    QAction* undo = PluginSession::action(m_menu, "actionUndo_Pick_Edit");
    QAction* redo = PluginSession::action(m_menu, "actionRedo_Pick_Edit");
    QVERIFY(!edit->isEnabled() && !undo->isEnabled() && !redo->isEnabled());
    QVERIFY(openLine(1));
    QVERIFY(showView());
    QVERIFY(edit->isEnabled());
    edit->trigger();
    QVERIFY(m_session->lastView()->isEditing());
    clickOn(5, 90.0);
    QVERIFY(document()->firstBreaks(0).hasPick(5));
    QVERIFY(undo->isEnabled());
    PluginSession::action(m_menu, "actionReject_Pick")->trigger();
    QCOMPARE(document()->firstBreaks(0).states[5], OvPickState::Rejected);
    undo->trigger();
    undo->trigger();
    QVERIFY(!document()->firstBreaks(0).hasPick(5));
    QVERIFY(!undo->isEnabled() && redo->isEnabled());
    redo->trigger();
    QVERIFY(document()->firstBreaks(0).hasPick(5));
    edit->trigger();
    QVERIFY(!m_session->lastView()->isEditing());
}

void tst_FirstBreak::editingFollowsTheActiveView()
{
    QVERIFY(openLine(1));
    QVERIFY(showView());
    QPointer<OvGatherViewController> first = m_session->lastView();
    QAction* edit = PluginSession::action(m_menu, "actionEdit_Picks");
    first->setEditing(true); // as its key does
    QVERIFY(edit->isChecked());
    OvProjectManager::instance().addWorkspace(new OvGatherViewController(document()));
    QVERIFY(m_session->lastView() != first && m_session->lastView()->isEditing());
    edit->trigger();
    QVERIFY(!m_session->lastView()->isEditing());
    m_session->activate(first);
    QVERIFY(!first->isEditing() && !edit->isChecked());
}

void tst_FirstBreak::whereNothingCanBeWrittenTheActionSaysWhy()
{
    const QString name = QStringLiteral("line.sgy.fb");
    QVERIFY(SegyWriter::writeBytes(m_session->path(name), QByteArray(200, 'x')));
    QVERIFY(openLine(1));
    QAction* edit = PluginSession::action(m_menu, "actionEdit_Picks");
    QVERIFY(!edit->isEnabled());
    QVERIFY2(edit->toolTip().contains(name), qPrintable(edit->toolTip()));
    m_log->takeAll();
}

void tst_FirstBreak::aJobKeepsPicksMadeByHand()
{
    QVERIFY(openLine(1));
    QVERIFY(showView());
    m_session->lastView()->setEditing(true);
    clickOn(5, 300.0);
    const float time = document()->firstBreaks(0).timesMs[5];
    OvAbstractJob* job = startPicking();
    QVERIFY(job);
    QTRY_COMPARE(job->state(), OvAbstractJob::Finished);
    QCOMPARE(document()->firstBreaks(0).timesMs[5], time);
    QVERIFY(document()->firstBreaks(0).pickedCount() > 20);
    m_session->lastView()->setEditing(false);
}

void tst_FirstBreak::classifiesErrorPicks()
{
    QVERIFY(openLine(1));
    QVERIFY(showView());
    OvFirstBreaks breaks;
    breaks.resize(24);
    for (int row = 0; row < 24; ++row) {
        const auto i = static_cast<std::size_t>(row);
        breaks.timesMs[i] = 20.0F + 4.0F * static_cast<float>(row) + (row == 9 ? 60.0F : 0.0F);
        breaks.states[i] = OvPickState::Automatic;
        breaks.confidences[i] = 0.9F;
    }
    QVERIFY(document()->setFirstBreaks(0, breaks));
    PluginSession::action(m_menu, "actionClassify_Error_Picks")->trigger();
    for (std::size_t row = 0; row < 24; ++row)
        QCOMPARE(document()->firstBreaks(0).states[row],
                 row == 9 ? OvPickState::Rejected : OvPickState::Automatic);
}

void tst_FirstBreak::speaksChinese()
{
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    m_module->changeLanguage();
    QCOMPARE(m_menu->title(), QStringLiteral("初至(&B)"));
    QCOMPARE(m_session->window()->findChild<QAction*>("actionFB_to_SEGY_Header")->toolTip(),
             QStringLiteral("目前尚不能将初至写入道头。"));
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    m_module->changeLanguage();
    QCOMPARE(m_menu->title(), QStringLiteral("First &Break"));
}

QTEST_MAIN(tst_FirstBreak)
#include "tst_FirstBreak.moc"
