#include "OvGui/tools/OvPickTool.h"

#include "LineFixture.h"
#include "OvSeismic/firstbreak/OvFirstBreakFile.h"

#include <QUndoStack>

#include <cmath>
#include <numeric>

namespace {

constexpr double sampleMs = 2.0;

} // namespace

/// Hand picking on a shown view of a real file, and what is stored of it.
class tst_OvPickTool : public QObject, private LineFixture
{
    Q_OBJECT

private:
    OvFirstBreaks stored() const { return m_document->firstBreaks(m_view->currentGather()); }
    float timeOf(int row) const { return stored().timesMs[static_cast<std::size_t>(row)]; }
    OvPickState stateOf(int row) const { return stored().states[static_cast<std::size_t>(row)]; }
    // Fixed geometry: what one pixel is worth.
    double pixelMs() const { return 1.0 / canvas()->viewState().pixelsPerMs(); }
    QPoint at(int row, double timeMs) const { return canvas()->pointOf(row, timeMs).toPoint(); }
    double clickedMs(int row, double timeMs) const { return canvas()->timeAt(at(row, timeMs)); }

    void click(int row, double timeMs, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {}) const
    {
        Views::drag(canvas(), at(row, timeMs), at(row, timeMs), button, modifiers);
    }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(canvas(), code, modifiers);
    }
    void plant(float timeMs, OvPickState state = OvPickState::Automatic) const
    {
        QVERIFY(m_document->setFirstBreaks(m_view->currentGather(),
                                           Gathers::breaksAt(channels, timeMs, state)));
    }
    // What another program would read.
    OvFirstBreaks onDisk() const
    {
        OvFirstBreakFile file;
        OvFirstBreaks breaks;
        const OvStatus status = file.open(m_document->firstBreakPath(), m_document->file().info());
        std::vector<qint64> traces(channels, 0);
        std::iota(traces.begin(), traces.end(), 0); // of the first record
        const bool read = status && file.read(traces, &breaks);
        if (read)
            breaks.resize(channels);
        return breaks;
    }

private slots:
    void initTestCase() { QVERIFY(startProgram()); }
    void cleanupTestCase() { endProgram(); }
    void init()
    {
        begin();
        QVERIFY(openLine(3) && showView());
        m_view->setEditing(true);
        QVERIFY(m_view->isEditing());
    }

    void cleanup() { QCOMPARE(end(), QStringList()); }

    void aClickPicksExactlyWhereItIs()
    {
        click(5, 81.3);
        QVERIFY(std::abs(timeOf(5) - clickedMs(5, 81.3)) < 0.01);
        QVERIFY(std::abs(timeOf(5) - 81.3) <= pixelMs());
        QCOMPARE(stateOf(5), OvPickState::Manual);
        QCOMPARE(stored().pickedCount(), 1);
    }

    void aClickSnapsToTheArrival_data()
    {
        QTest::addColumn<int>("window");
        QTest::addColumn<bool>("snaps");
        QTest::newRow("8 ms") << 8 << true;
        QTest::newRow("20 ms") << 20 << true;
        QTest::newRow("60 ms") << 60 << true;
        QTest::newRow("too far for 2 ms") << 2 << false;
    }

    void aClickSnapsToTheArrival()
    {
        QFETCH(int, window);
        QFETCH(bool, snaps);
        m_view->setSnapWindow(window);
        constexpr int row = 12;
        const double onset =
            SegyWriter::firstBreakMs(std::abs(canvas()->gather()->headers[row].offset));
        const double click = onset - 6.0;
        this->click(row, click);
        const double error = std::abs(timeOf(row) - onset);
        QVERIFY2(snaps == (error < 5.0), qPrintable(QString::number(error)));
        if (!snaps)
            QVERIFY(std::abs(timeOf(row) - clickedMs(row, click)) < 0.01);
    }

    void aDragPicksAllTracesOnItsWay()
    {
        Views::drag(canvas(), at(3, 60.0), at(15, 180.0), Qt::LeftButton);
        QCOMPARE(stored().pickedCount(), 13);
        for (int row = 3; row <= 15; ++row) {
            QCOMPARE(stateOf(row), OvPickState::Manual);
            QVERIFY(std::abs(timeOf(row) - (60.0 + 10.0 * (row - 3))) <= 2.0 * pixelMs());
        }
        QCOMPARE(m_view->undoStack()->count(), 1);
    }

    void rightButtonAndShiftRemove()
    {
        plant(100.0F);
        click(4, 30.0, Qt::RightButton);
        QVERIFY(!stored().hasPick(4));
        QCOMPARE(stateOf(4), OvPickState::None);
        Views::drag(canvas(), at(10, 50.0), at(14, 50.0), Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(stored().pickedCount(), channels - 6);
        QVERIFY(!stored().hasPick(12));
    }

    void controlRejectsAndRestores()
    {
        plant(100.0F);
        Views::drag(canvas(), at(6, 50.0), at(8, 50.0), Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(stateOf(6), OvPickState::Rejected);
        QCOMPARE(stateOf(8), OvPickState::Rejected);
        QCOMPARE(stateOf(9), OvPickState::Automatic);
        QCOMPARE(timeOf(7), 100.0F);
        click(7, 50.0, Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(stateOf(7), OvPickState::Manual);
        click(7, 50.0, Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(stateOf(7), OvPickState::Rejected);
    }

    void rejectingNothingSaysWhy()
    {
        QSignalSpy info(m_view.get(), &OvAbstractViewController::outputInfo);
        const auto said = [&info] {
            return info.isEmpty() ? QString() : info.takeLast().first().toString();
        };
        m_view->toggleRejectedPick();
        QVERIFY(said().startsWith(QLatin1String("No pick is marked.")));
        m_view->setEditing(false);
        m_view->toggleRejectedPick();
        QVERIFY(said().endsWith(QLatin1String("Choose Edit Picks first.")));
        m_view->setEditing(true);
        click(5, 80.0);
        info.clear();
        m_view->toggleRejectedPick();
        QCOMPARE(said(), QString());
        QCOMPARE(stateOf(5), OvPickState::Rejected);
    }

    void undoAndRedoStoreToo()
    {
        click(5, 80.0);
        const float first = timeOf(5);
        click(5, 140.0);
        const float second = timeOf(5);
        QVERIFY(std::abs(first - second) > 50.0F);
        m_view->undoPickEdit();
        QCOMPARE(onDisk().timesMs[5], first);
        m_view->undoPickEdit();
        QVERIFY(std::isnan(onDisk().timesMs[5]));
        QVERIFY(!m_view->undoStack()->canUndo());
        m_view->redoPickEdit();
        m_view->redoPickEdit();
        QCOMPARE(onDisk().timesMs[5], second);
        QVERIFY(!m_view->undoStack()->canRedo());
    }

    void undoLeavesWhatAJobPickedSince()
    {
        click(5, 80.0);
        OvFirstBreaks breaks = stored();
        breaks.timesMs[9] = 33.0F;
        breaks.states[9] = OvPickState::Automatic;
        QVERIFY(m_document->setFirstBreaks(0, breaks));
        m_view->undoPickEdit();
        QVERIFY(!stored().hasPick(5));
        QCOMPARE(timeOf(9), 33.0F);
    }

    void undoGoesToTheGatherThatItChanges()
    {
        click(5, 80.0);
        m_view->setCurrentGather(2);
        QTRY_VERIFY(m_view->isShowingData());
        m_view->undoPickEdit();
        QCOMPARE(m_view->currentGather(), 0);
        QTRY_VERIFY(m_view->isShowingData());
        QVERIFY(!stored().hasPick(5));
    }

    void editsAreOnDiskAtOnce()
    {
        click(5, 80.0);
        QCOMPARE(onDisk().timesMs[5], timeOf(5));
        QCOMPARE(onDisk().states[5], OvPickState::Manual);
        const float time = timeOf(5);
        m_view.reset();
        m_document.reset();
        QVERIFY(openFile());
        QCOMPARE(m_document->firstBreaks(0).timesMs[5], time);
    }

    void keysEditAtTheTraceCursor()
    {
        click(5, 80.0);
        const float time = timeOf(5);
        key(Qt::Key_Down);
        QCOMPARE(timeOf(5), time + static_cast<float>(sampleMs));
        key(Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(timeOf(5), time - static_cast<float>(9 * sampleMs));
        key(Qt::Key_Right, Qt::ControlModifier);
        key(Qt::Key_Right, Qt::ControlModifier);
        QVERIFY(!stored().hasPick(7));
        key(Qt::Key_Space);
        QVERIFY(std::abs(timeOf(7) - timeOf(5)) < 0.01F); // where its neighbours point
        QCOMPARE(stateOf(7), OvPickState::Manual);
        key(Qt::Key_R);
        QCOMPARE(stateOf(7), OvPickState::Rejected);
        key(Qt::Key_R);
        QCOMPARE(stateOf(7), OvPickState::Manual);
        key(Qt::Key_Left, Qt::ControlModifier);
        key(Qt::Key_Return);
        QVERIFY(stored().hasPick(6));
        key(Qt::Key_Delete);
        QVERIFY(!stored().hasPick(6));
        QCOMPARE(m_view->currentGather(), 0);
    }

    void escapeGivesADragUp()
    {
        plant(100.0F);
        QTest::mousePress(canvas(), Qt::LeftButton, {}, at(5, 50.0));
        QTest::mouseMove(canvas(), at(9, 50.0));
        QVERIFY(canvas()->firstBreaks().states[5] == OvPickState::Manual);
        key(Qt::Key_Escape);
        QVERIFY(canvas()->firstBreaks().states[5] == OvPickState::Automatic);
        QTest::mouseRelease(canvas(), Qt::LeftButton, {}, at(9, 50.0));
        QCOMPARE(timeOf(5), 100.0F);
        QCOMPARE(m_view->undoStack()->count(), 0);
    }

    void pagingGivesADragUp()
    {
        QTest::mousePress(canvas(), Qt::LeftButton, {}, at(5, 50.0));
        m_view->setCurrentGather(1);
        QTRY_VERIFY(m_view->isShowingData());
        QTest::mouseRelease(canvas(), Qt::LeftButton, {}, at(9, 50.0));
        QCOMPARE(m_document->firstBreaks(0).pickedCount(), 0);
        QCOMPARE(m_document->firstBreaks(1).pickedCount(), 0);
    }

    void quickClicksAreClicks()
    {
        const QPoint point = at(5, 80.0);
        QTest::mouseDClick(canvas(), Qt::LeftButton, {}, point);
        QVERIFY(stored().hasPick(5));
    }

    void outsideEditModeTheMouseEditsNothing()
    {
        plant(100.0F);
        key(Qt::Key_E);
        QVERIFY(!m_view->isEditing());
        QVERIFY(canvas()->cursor().shape() != Qt::CrossCursor);
        click(5, 50.0);
        click(5, 50.0, Qt::RightButton);
        key(Qt::Key_Delete);
        QCOMPARE(timeOf(5), 100.0F);
        key(Qt::Key_E);
        QVERIFY(m_view->isEditing());
        QCOMPARE(canvas()->cursor().shape(), Qt::CrossCursor);
    }

    void theReadoutNamesThePick()
    {
        plant(100.0F);
        QSignalSpy info(m_view.get(), &OvAbstractViewController::outputInfo);
        Views::hover(canvas(), canvas()->pointOf(5, 50.0));
        QVERIFY(!info.isEmpty());
        QVERIFY2(info.last().first().toString().contains("First break 100.0 ms"),
                 qPrintable(info.last().first().toString()));
    }

    void classifyFBRejectsWhatIsWrong()
    {
        OvFirstBreaks breaks = Gathers::breaksAt(channels, 0.0F);
        for (int row = 0; row < channels; ++row)
            breaks.timesMs[static_cast<std::size_t>(row)] = 20.0F + 4.0F * static_cast<float>(row);
        breaks.timesMs[7] += 50.0F;
        breaks.timesMs[16] -= 30.0F;
        QVERIFY(m_document->setFirstBreaks(0, breaks));
        QSignalSpy info(m_view.get(), &OvAbstractViewController::outputInfo);
        QVERIFY(QMetaObject::invokeMethod(m_view.get(), "classifyFB"));
        for (int row = 0; row < channels; ++row)
            QCOMPARE(stateOf(row),
                     row == 7 || row == 16 ? OvPickState::Rejected : OvPickState::Automatic);
        QCOMPARE(timeOf(7), breaks.timesMs[7]);
        QVERIFY(info.last().first().toString().endsWith("look wrong: 2 of 24."));
        m_view->undoPickEdit();
        QCOMPARE(stateOf(7), OvPickState::Automatic);
        QCOMPARE(stateOf(16), OvPickState::Automatic);
    }

    void whereNothingCanBeWrittenEditingStaysOff()
    {
        m_view->setEditing(false);
        plant(100.0F);
        const QString file = m_document->firstBreakPath();
        m_view.reset();
        m_document.reset();
        QFile broken(file);
        QVERIFY(broken.open(QIODevice::WriteOnly));
        broken.write("this is no first-break file, whatever its name says");
        broken.close();
        QVERIFY(openFile() && showView());
        QSignalSpy info(m_view.get(), &OvAbstractViewController::outputInfo);
        m_view->setEditing(true);
        QVERIFY(!m_view->isEditing());
        QVERIFY(!m_view->editObstacle().isEmpty());
        QCOMPARE(info.last().first().toString(), m_view->editObstacle());
        click(5, 50.0);
        m_view->classifyFB();
        QCOMPARE(m_view->undoStack()->count(), 0);
        WarningTrap::take(); // the damaged file is logged
    }
};

QTEST_MAIN(tst_OvPickTool)
#include "tst_OvPickTool.moc"
