#include "LineFixture.h"

#include <QLabel>
#include <QToolButton>

/// What a view says of its file above the gather, and how it goes on when the file changes.
class tst_OvViewNotices : public QObject, private LineFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(startProgram()); }
    void cleanupTestCase() { endProgram(); }
    void init() { begin(); }
    void cleanup() { QCOMPARE(end(), QStringList()); }

    void saysNothingOfAGoodFile()
    {
        QVERIFY(openLine(3) && showView());
        QVERIFY(!banner()->isVisible());
        m_document->checkFile();
        QTest::qWait(50);
        QVERIFY(!banner()->isVisible());
    }

    void tellsOfAFileThatIsCutOff()
    {
        QVERIFY(Gathers::writeLine(path(), 3));
        QVERIFY(cutOff());
        QVERIFY(openFile() && showView());
        QVERIFY(banner()->isVisible());
        QVERIFY2(text().contains(QLatin1String("ends in the middle of a trace")),
                 qPrintable(text()));
        QVERIFY(!button("bannerReload")->isVisible());
        QSignalSpy details(m_view.get(), &OvGatherViewController::detailsRequested);
        button("bannerDetails")->click();
        QCOMPARE(details.size(), 1);
    }

    void whatIsPutAwayStaysAway()
    {
        QVERIFY(Gathers::writeLine(path(), 3));
        QVERIFY(cutOff());
        QVERIFY(openFile() && showView());
        button("bannerClose")->click();
        QVERIFY(!banner()->isVisible());
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(m_view.get(), &change);
        QVERIFY(!banner()->isVisible());
        // Something else is worth saying.
        QVERIFY(QFile::remove(path()));
        QTRY_VERIFY(banner()->isVisible());
    }

    void tellsThatThereIsNoGeometry()
    {
        QVERIFY(writeWithoutGeometry());
        QVERIFY(openFile() && showView());
        QTRY_COMPARE(text(),
                     QStringLiteral("The traces have no offsets and no usable coordinates."));
        QVERIFY(banner()->isVisible());
    }

    void countsWhatDoesNotFitIntoOneLine()
    {
        QVERIFY(writeWithoutGeometry());
        QVERIFY(cutOff());
        QVERIFY(openFile() && showView());
        QTRY_VERIFY2(text().endsWith(QLatin1String("(further remarks: 1)")), qPrintable(text()));
    }

    void aFileThatGrowsCanBeReloaded()
    {
        QVERIFY(openLine(3) && showView());
        m_view->setCurrentGather(2);
        QTRY_VERIFY(m_view->isShowingData());
        QVERIFY(Gathers::writeLine(path(QStringLiteral("more.sgy")), 6));
        append(path(QStringLiteral("more.sgy")));
        QTRY_VERIFY(banner()->isVisible());
        QVERIFY2(text().contains(QLatin1String("line.sgy has grown")), qPrintable(text()));
        QCOMPARE(m_view->gatherCount(), 3);
        QVERIFY(m_view->isShowingData());
        button("bannerReload")->click();
        QTRY_COMPARE(m_view->gatherCount(), 9);
        QTRY_VERIFY(m_view->isShowingData());
        QCOMPARE(m_view->currentGather(), 2); // the same traces
        QVERIFY(!banner()->isVisible());
    }

    void aReloadKeepsTheOrderOfTheWindow()
    {
        QVERIFY(openLine(3) && showView());
        OvGatherOrder order;
        order.key = OvGatherKey::Receiver;
        m_view->setGatherOrder(order);
        QTRY_VERIFY(m_view->gatherCount() == 24 && m_view->isShowingData());
        QVERIFY(Gathers::writeLine(path(), 4));
        m_document->checkFile();
        QTRY_VERIFY(banner()->isVisible());
        button("bannerReload")->click();
        QTRY_VERIFY(m_view->gatherIndex()->traceCount() == 96 &&
                    m_view->gatherIndex()->order() == order);
        QTRY_VERIFY(m_view->isShowingData());
        QCOMPARE(canvas()->gather()->traceCount(), 4);
    }

    void aFileThatShrinksIsNoEnd()
    {
        QVERIFY(openLine(40) && showView());
        QVERIFY(QFile::resize(path(), 3600 + 24 * (240 + 800)));
        QTRY_VERIFY(banner()->isVisible());
        QVERIFY2(text().contains(QLatin1String("shorter")), qPrintable(text()));
        QVERIFY(m_view->isShowingData()); // what was read stays
        QSignalSpy info(m_view.get(), &OvAbstractViewController::outputInfo);
        m_view->setCurrentGather(39);
        QTRY_VERIFY(!info.isEmpty());
        QTRY_VERIFY(!canvas()->gather());
        m_view->setCurrentGather(0);
        QTRY_VERIFY(m_view->isShowingData());
        button("bannerReload")->click();
        QTRY_COMPARE(m_view->gatherCount(), 1);
    }

    void aFileThatVanishesStaysShown()
    {
        QVERIFY(openLine(3) && showView());
        QVERIFY(QFile::rename(path(), path() + QStringLiteral(".away")));
        QTRY_VERIFY(banner()->isVisible());
        QVERIFY2(text().contains(QLatin1String("was deleted or moved")), qPrintable(text()));
        QVERIFY(m_view->isShowingData());
        QSignalSpy info(m_view.get(), &OvAbstractViewController::outputInfo);
        button("bannerReload")->click();
        QVERIFY(!info.isEmpty());
        QVERIFY2(info.last()[0].toString().contains(QLatin1String("line.sgy")),
                 qPrintable(info.last()[0].toString()));
        QVERIFY(m_view->isShowingData());
        QCOMPARE(m_view->gatherCount(), 3);
        // Back again, and the same.
        QVERIFY(QFile::rename(path() + QStringLiteral(".away"), path()));
        m_document->checkFile();
        QTRY_VERIFY(!banner()->isVisible());
    }

    void aFileWrittenAgainIsNoticed()
    {
        QVERIFY(openLine(3) && showView());
        QVERIFY(writeAgain());
        m_document->checkFile();
        QTRY_VERIFY(banner()->isVisible());
        QVERIFY2(text().contains(QLatin1String("written again")), qPrintable(text()));
    }

    void picksStay()
    {
        QVERIFY(openLine(3) && showView());
        QVERIFY(m_document->setFirstBreaks(1, Gathers::breaksAt(24, 40.0F)));
        QVERIFY(writeAgain());
        m_document->checkFile();
        QTRY_VERIFY(banner()->isVisible());
        button("bannerReload")->click();
        QTRY_VERIFY(m_document->isIndexComplete());
        QCOMPARE(m_document->firstBreaks(1).pickedCount(), 24);
    }

    void noReloadUnderAJob()
    {
        QVERIFY(openLine(3) && showView());
        m_document->beginJobStorage();
        const OvStatus status = m_document->reload();
        QVERIFY(!status);
        QVERIFY(status.message().contains(QLatin1String("A job is working")));
        m_document->endJobStorage();
        QVERIFY(m_document->reload());
        QTRY_VERIFY(m_document->isIndexComplete());
    }

private:
    bool writeWithoutGeometry() const
    {
        return SegyWriter::of(8, 100,
                              [](int i, SegyTrace* trace) { trace->fieldRecord = 1 + i / 4; })
            .write(path());
    }
    bool cutOff() const { return QFile::resize(path(), QFileInfo(path()).size() - 100); }
    bool writeAgain() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadWrite) &&
               file.setFileTime(QDateTime::currentDateTime().addSecs(5),
                                QFileDevice::FileModificationTime);
    }
    /// The traces of another file behind those of this one.
    void append(const QString& other)
    {
        QFile from(other);
        QVERIFY(from.open(QIODevice::ReadOnly));
        QFile to(path());
        QVERIFY(to.open(QIODevice::Append));
        // Other records than those that are there: 100 to 120 become 1000100 and so on.
        QByteArray traces = from.readAll().mid(3600);
        for (int at = 0; at < traces.size(); at += 240 + 800)
            traces[at + 9] = 15;
        QCOMPARE(to.write(traces), qint64(traces.size()));
    }
    QWidget* banner() const { return child<QWidget>("banner"); }
    QString text() const { return child<QLabel>("bannerText")->text(); }
    QToolButton* button(const char* name) const { return child<QToolButton>(name); }
};

QTEST_MAIN(tst_OvViewNotices)
#include "tst_OvViewNotices.moc"
