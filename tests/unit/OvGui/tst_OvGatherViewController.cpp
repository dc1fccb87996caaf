#include "OvGui/OvGatherViewController.h"

#include "LineFixture.h"
#include "OvBase/OvAbstractJob.h"
#include "OvBase/OvDisplayDefineNode.h"
#include "OvBase/OvProjectManager.h"
#include "OvBase/OvTaskManager.h"
#include "OvBase/OvTranslator.h"
#include "OvGui/canvas/OvPickPainter.h"
#include "PoolBlock.h"
#include "fixtures/ModalProbe.h"

#include <QFileDialog>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>
#include <QToolButton>

class tst_OvGatherViewController : public QObject, private LineFixture
{
    Q_OBJECT

private:
    void key(int code, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(m_view->canvas(), Qt::Key(code), modifiers);
    }

private slots:
    void initTestCase() { QVERIFY(startProgram()); }
    void cleanupTestCase() { endProgram(); }
    void init()
    {
        begin();
        QVERIFY(openLine(5) && showView());
    }
    void cleanup() { QCOMPARE(end(), QStringList()); }

    void carriesItsProperties()
    {
        OvGatherViewController view(m_document);
        QCOMPARE(view.property("SegyFile").toString(), m_document->segyPath());
        QCOMPARE(view.property("FBFile").toString(), QString());
        QCOMPARE(qvariant_cast<OvDisplayDefine>(view.property("DisplayDefine")),
                 OvDisplayDefineNode().define());
        QCOMPARE(qvariant_cast<OvFitDisplayDefine>(view.property("FitDisplayDefine")),
                 OvFitDisplayDefineNode().define());
        QVERIFY(OvBaseUtil::hasProperty(&view, "TraceHeaderDefine"));
        QCOMPARE(view.description(), QString("line.sgy"));
        QCOMPARE(view.delegateJob()->taskName(), QString("line.sgy"));
        QVERIFY(!view.saveable());
        QVERIFY(view.editable());
    }

    void isEnabledOnlyWhileDataIsShown()
    {
        OvGatherViewController view(m_document);
        QVERIFY(!view.delegateJob()->isEnabled());
        QVERIFY(!view.isShowingData());
        QSignalSpy shown(&view, &OvGatherViewController::gatherShown);
        QVERIFY(Views::show(view));
        QVERIFY(view.delegateJob()->isEnabled());
        QCOMPARE(view.delegateJob()->state(), OvAbstractJob::Ready);
        QTRY_COMPARE(shown.size(), 1);
        QCOMPARE(shown[0][0].toInt(), 0);
    }

    void titleAndStripNameTheGather()
    {
        QCOMPARE(canvas()->title(), QString("line.sgy - Field record 100 - gather 1 of 5"));
        QCOMPARE(child<QSlider>("gatherSlider")->maximum(), 4);
        QCOMPARE(child<QSpinBox>("gatherBox")->value(), 1);
        QCOMPARE(child<QSpinBox>("fieldRecordBox")->value(), 100);
        QCOMPARE(child<QLabel>("gatherCountLabel")->text(), QString("of 5"));
        QVERIFY(!child<QToolButton>("previousButton")->isEnabled());
    }

    void keysPage()
    {
        QSignalSpy changed(m_view.get(), &OvPlaneViewController::currentGatherChanged);
        key(Qt::Key_Right);
        QCOMPARE(m_view->currentGather(), 1);
        key(Qt::Key_PageDown);
        QCOMPARE(m_view->currentGather(), 2);
        key(Qt::Key_Left);
        QCOMPARE(m_view->currentGather(), 1);
        key(Qt::Key_End);
        QCOMPARE(m_view->currentGather(), 4);
        key(Qt::Key_Right);
        QCOMPARE(m_view->currentGather(), 4);
        key(Qt::Key_Home);
        QCOMPARE(m_view->currentGather(), 0);
        key(Qt::Key_PageUp);
        QCOMPARE(m_view->currentGather(), 0);
        QCOMPARE(changed.size(), 5);
        QTRY_VERIFY(m_view->isShowingData());
        QVERIFY(canvas()->title().contains("gather 1 of 5"));
    }

    void keysOfTheMainWindowDoTheSame()
    {
        QKeyEvent next(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
        m_view->handleKeyEvent(&next);
        QVERIFY(next.isAccepted());
        QCOMPARE(m_view->currentGather(), 1);
        QKeyEvent other(QEvent::KeyPress, Qt::Key_F7, Qt::NoModifier);
        m_view->handleKeyEvent(&other);
        QVERIFY(!other.isAccepted());
    }

    void stripPages()
    {
        child<QSlider>("gatherSlider")->setValue(3);
        QCOMPARE(m_view->currentGather(), 3);
        QCOMPARE(child<QSpinBox>("fieldRecordBox")->value(), 130);
        child<QSpinBox>("gatherBox")->setValue(2);
        QCOMPARE(m_view->currentGather(), 1);
        child<QToolButton>("nextButton")->click();
        QCOMPARE(m_view->currentGather(), 2);
        child<QToolButton>("previousButton")->click();
        QCOMPARE(m_view->currentGather(), 1);
        QCOMPARE(child<QSlider>("gatherSlider")->value(), 1);
    }

    void fieldRecordBoxJumpsAndSteps()
    {
        auto* box = child<QSpinBox>("fieldRecordBox");
        box->setValue(140);
        QCOMPARE(m_view->currentGather(), 4);
        box->stepDown();
        QCOMPARE(m_view->currentGather(), 3);
        QCOMPARE(box->value(), 130);
        QSignalSpy info(m_view.get(), &OvAbstractViewController::outputInfo);
        box->setValue(77);
        QCOMPARE(m_view->currentGather(), 3);
        QCOMPARE(box->value(), 130);
        QVERIFY(info.last()[0].toString().contains("77"));
    }

    void neighboursAreReadAhead()
    {
        m_view->setCurrentGather(2);
        QTRY_VERIFY(m_document->cachedGather(1) && m_document->cachedGather(3));
    }

    void quickLeafingEndsAtTheLastGatherAskedFor()
    {
        for (const int gather : {1, 2, 3, 4, 3, 2, 4})
            m_view->setCurrentGather(gather);
        QTRY_VERIFY(m_view->isShowingData());
        QCOMPARE(canvas()->gather()->fieldRecord, 140);
    }

    void zoomKeysWork()
    {
        const double fitted = canvas()->viewState().traceSpacing();
        key(Qt::Key_Plus);
        QVERIFY(canvas()->viewState().traceSpacing() > fitted * 1.2);
        key(Qt::Key_Down);
        QVERIFY(canvas()->viewState().topMs() > 0.0);
        key(Qt::Key_Minus);
        key(Qt::Key_Minus);
        QVERIFY(canvas()->viewState().traceSpacing() < fitted);
        key(Qt::Key_0);
        QVERIFY(canvas()->viewState().isFitted());
        QCOMPARE(canvas()->viewState().traceSpacing(), fitted);
    }

    void settingsArriveThroughTheProperties()
    {
        const QImage wiggles = m_view->picture();
        OvDisplayDefine define;
        define.mode = OvDisplayDefine::VariableDensity;
        m_view->setProperty("DisplayDefine", QVariant::fromValue(define));
        QCOMPARE(canvas()->displayDefine().mode, int(OvDisplayDefine::VariableDensity));
        QVERIFY(m_view->picture() != wiggles);
        OvFitDisplayDefine scale;
        scale.traceSpacing = 30.0;
        scale.pixelsPerSecond = 2500.0;
        m_view->setProperty("FitDisplayDefine", QVariant::fromValue(scale));
        QCOMPARE(canvas()->viewState().traceSpacing(), 30.0);
        QCOMPARE(canvas()->viewState().pixelsPerMs(), 2.5);
        const QImage channelAxis = m_view->picture();
        OvTraceHeaderDefine header;
        header.axisWord = OvTraceHeaderDefine::Offset;
        m_view->setProperty("TraceHeaderDefine", QVariant::fromValue(header));
        QVERIFY(m_view->picture() != channelAxis);
    }

    void aNewMappingReachesEveryView()
    {
        OvTraceHeaderDefine own;
        own.axisWord = OvTraceHeaderDefine::Offset;
        m_view->setProperty("TraceHeaderDefine", QVariant::fromValue(own));
        OvTraceHeaderDefine project = OvTraceHeaderDefineNode().define();
        project.mapping = OvTraceHeaderMapping::preset(OvTraceHeaderMapping::SourceAndReceiver);
        QVERIFY(OvTraceHeaderDefineNode().setDefine(project));
        own.mapping = project.mapping;
        QCOMPARE(qvariant_cast<OvTraceHeaderDefine>(m_view->property("TraceHeaderDefine")), own);
        QVERIFY(OvTraceHeaderDefineNode().setDefine(OvTraceHeaderDefine()));
    }

    void aScaleThatNobodyChoseFitsTheWindow()
    {
        OvFitDisplayDefineNode().setDefine(OvFitDisplayDefine());
        OvGatherViewController view(m_document);
        view.setProperty("FitDisplayDefine", QVariant::fromValue(OvFitDisplayDefine()));
        view.resize(700, 500);
        view.show();
        QTRY_VERIFY(view.isShowingData());
        QVERIFY(Views::canvasOf(view)->viewState().isFitted());
        QCOMPARE(qvariant_cast<OvFitDisplayDefine>(view.property("FitDisplayDefine")),
                 OvFitDisplayDefine());
    }

    void aScaleThatWasChosenIsKept()
    {
        OvFitDisplayDefine chosen;
        chosen.traceSpacing = 20.0;
        OvGatherViewController view(m_document);
        view.setProperty("FitDisplayDefine", QVariant::fromValue(chosen));
        view.resize(700, 500);
        view.show();
        QTRY_VERIFY(view.isShowingData());
        QCOMPARE(Views::canvasOf(view)->viewState().traceSpacing(), 20.0);
    }

    void aZoomIsStoredOnTheViewAndReachesTheProject()
    {
        emit OvProjectManager::instance().activeWorkspace(m_view.get());
        m_view->zoomIn();
        const auto stored = qvariant_cast<OvFitDisplayDefine>(m_view->property("FitDisplayDefine"));
        QVERIFY(!stored.fitted);
        QCOMPARE(stored.traceSpacing, canvas()->viewState().traceSpacing());
        QTRY_COMPARE(OvFitDisplayDefineNode().define(), stored);
        m_view->zoomToFit();
        QVERIFY(qvariant_cast<OvFitDisplayDefine>(m_view->property("FitDisplayDefine")).fitted);
    }

    void picksAppearGatherByGather()
    {
        const QPoint at = canvas()->pointOf(11, 150.0).toPoint();
        QSignalSpy populate(m_view.get(), &OvAbstractViewController::populate);
        QVERIFY(m_document->setFirstBreaks(1, Gathers::breaksAt(channels, 150.0F)));
        QVERIFY(canvas()->firstBreaks().isEmpty());
        QCOMPARE(populate.size(), 1);
        QCOMPARE(m_view->property("FBFile").toString(), m_document->firstBreakPath());
        QVERIFY(m_document->setFirstBreaks(0, Gathers::breaksAt(channels, 150.0F)));
        QCOMPARE(populate.size(), 1);
        QCOMPARE(QColor(m_view->picture().pixel(at)), OvPickPainter::color(OvPickState::Automatic));
        m_view->setCurrentGather(2);
        QVERIFY(QTest::qWaitFor([this] { return m_view->isShowingData(); }));
        QVERIFY(canvas()->firstBreaks().isEmpty());
        m_view->setCurrentGather(1);
        QVERIFY(QTest::qWaitFor([this] { return m_view->isShowingData(); }));
        QCOMPARE(canvas()->firstBreaks().pickedCount(), channels);
    }

    void populateSaysThatFilesChanged()
    {
        QSignalSpy populate(m_view.get(), &OvAbstractViewController::populate);
        m_view->setProperty("FBFile", "/data/other.fb");
        QCOMPARE(populate.size(), 1);
        m_view->setProperty("Other", 1);
        QCOMPARE(populate.size(), 1);
    }

    void readoutReachesStripAndStatusBar()
    {
        QSignalSpy info(m_view.get(), &OvAbstractViewController::outputInfo);
        Views::hover(m_view->canvas(), canvas()->pointOf(5, 100.0));
        QVERIFY(info.last()[0].toString().contains("Channel 6"));
        QCOMPARE(child<QLabel>("readoutLabel")->text(), info.last()[0].toString());
    }

    void aDamagedFirstBreakFileLeavesTheViewReadOnly()
    {
        QVERIFY(Gathers::writeLine(path("b.sgy"), 1, channels));
        const QString breaks = Views::openComplete(path("b.sgy"))->firstBreakPath();
        QVERIFY(SegyWriter::writeBytes(breaks, QByteArray("no database").repeated(500)));
        const auto document = Views::openComplete(path("b.sgy"));
        OvGatherViewController view(document);
        QSignalSpy info(&view, &OvAbstractViewController::outputInfo);
        QVERIFY(Views::show(view));
        QVERIFY(!view.editable());
        bool said = false;
        for (const auto& line : info)
            said = said || line[0].toString() == document->firstBreakStatus().message();
        QVERIFY2(said, "the status bar says what is wrong");
    }

    void headersStillBeingReadAreAnnouncedOnTheView()
    {
        QVERIFY(Gathers::writeLine(path("slow.sgy"), 3, channels));
        PoolBlock block(OvBackground::scanPool());
        OvStatus status;
        const auto document = OvSegyDocument::open(path("slow.sgy"), &status);
        OvGatherViewController view(document);
        QSignalSpy info(&view, &OvAbstractViewController::outputInfo);
        QVERIFY(Views::show(view));
        QCOMPARE(view.gatherCount(), 1);
        const OvGatherCanvas* canvas = Views::canvasOf(view);
        QTRY_COMPARE(canvas->message(), QString("Reading headers… 0 %; showing the first gather"));
        block.release();
        QTRY_COMPARE(view.gatherCount(), 3);
        QTRY_COMPARE(canvas->message(), QString());
        QCOMPARE(view.findChild<QSlider*>("gatherSlider")->maximum(), 2);
        QVERIFY(canvas->title().contains("gather 1 of 3"));
        int said = 0;
        for (const auto& line : info)
            said += line[0].toString().startsWith("Reading headers") ? 1 : 0;
        QCOMPARE(said, 1);
    }

    void anIndexThatFailsIsAnnouncedOnTheView()
    {
        QVERIFY(Gathers::writeLine(path("cut.sgy"), 3, channels));
        PoolBlock block(OvBackground::scanPool());
        OvStatus status;
        const auto document = OvSegyDocument::open(path("cut.sgy"), &status);
        OvGatherViewController view(document);
        QVERIFY(Views::show(view));
        OvTaskManager::instance().tasks().last()->requestCancel();
        block.release();
        QTRY_VERIFY(Views::canvasOf(view)->message().contains("cancelled"));
        QVERIFY(view.isShowingData());
    }

    void aGatherThatCannotBeReadSaysWhy()
    {
        QVERIFY(QFile::resize(path(), 30000));
        QSignalSpy info(m_view.get(), &OvAbstractViewController::outputInfo);
        m_view->setCurrentGather(4);
        QTRY_VERIFY(canvas()->message().contains("line.sgy"));
        QVERIFY(!canvas()->gather());
        QVERIFY(!m_view->delegateJob()->isEnabled());
        QVERIFY(info.last()[0].toString().contains("line.sgy"));
        m_view->setCurrentGather(0);
        QTRY_VERIFY(m_view->isShowingData());
        QCOMPARE(canvas()->message(), QString());
    }

    void aViewOfNothingSaysSo()
    {
        OvGatherViewController view({});
        view.resize(600, 400);
        view.show();
        QVERIFY(!view.isShowingData());
        QVERIFY(!view.editable());
        QCOMPARE(view.gatherCount(), 0);
        QVERIFY(Views::canvasOf(view)->message().contains("Open a SEG-Y file"));
        view.setCurrentGather(3);
        QCOMPARE(view.currentGather(), 0);
    }

    void languageChangesAtRunTime()
    {
        OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
        QTRY_COMPARE(child<QLabel>("gatherCountLabel")->text(), QString("共 5 个"));
        QVERIFY(canvas()->title().contains("野外文件号"));
        OvTranslator::instance().setSessionLanguage(OvTranslator::English);
        QTRY_COMPARE(child<QLabel>("gatherCountLabel")->text(), QString("of 5"));
    }

    void screenshotAsksAndWrites()
    {
        ModalProbe probe;
        const QString target = path("shot.png");
        QString offered;
        probe.next([&](QWidget* window) {
            auto* dialog = qobject_cast<QFileDialog*>(window);
            offered = dialog->selectedFiles().value(0);
            dialog->selectFile(target);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        QSignalSpy info(m_view.get(), &OvAbstractViewController::outputInfo);
        m_view->captureScreenshot();
        QVERIFY(probe.isDone());
        QVERIFY(offered.endsWith("line_100.png"));
        const QImage written(target);
        QCOMPARE(written.size(), m_view->picture().size());
        QVERIFY(info.last()[0].toString().contains("shot.png"));
    }

    void aPictureThatCannotBeWrittenSaysWhy()
    {
        const OvStatus status = m_view->savePicture(path("missing/shot.png"));
        QVERIFY(!status);
        QVERIFY(status.message().contains("shot.png"));
        QVERIFY(!QFile::exists(path("missing/shot.png")));
    }

    void closingWhileLoadingIsSafe()
    {
        for (int i = 0; i < 10; ++i) {
            const QString name = QString("close%1.sgy").arg(i);
            QVERIFY(Gathers::writeLine(path(name), 3, channels));
            OvStatus status;
            auto document = OvSegyDocument::open(path(name), &status);
            auto view = std::make_unique<OvGatherViewController>(document);
            document.reset();
            view->show();
            for (int turn = 0; turn < i; ++turn)
                QCoreApplication::processEvents();
            view->setCurrentGather(2);
        }
        OvBackground::paintPool()->waitForDone();
        QCoreApplication::processEvents();
    }

    void realRecordingsAreShown()
    {
        const QString corpus = qEnvironmentVariable("TARNPICK_TEST_DATA");
        if (corpus.isEmpty())
            QSKIP("TARNPICK_TEST_DATA is not set");
        const auto document = Views::openComplete(corpus + "/gathers/viking_small.segy");
        QVERIFY(document);
        OvGatherViewController view(document);
        QVERIFY(Views::show(view));
        QCOMPARE(view.gatherCount(), 4);
        QCOMPARE(Views::canvasOf(view)->gather()->traceCount(), 120);
    }
};

QTEST_MAIN(tst_OvGatherViewController)
#include "tst_OvGatherViewController.moc"
