#include "OvBase/OvBaseUtil.h"
#include "Views.h"
#include "fixtures/WarningTrap.h"

#include <QLabel>
#include <QTemporaryDir>
#include <QToolButton>

/// What a view says of its file above the gather, and how it goes on when the file changes.
class tst_OvViewNotices : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        OvBaseUtil::setLocalPath(m_home.path());
        QVERIFY(OvBaseUtil::initialize());
    }

    void init()
    {
        WarningTrap::start();
        m_folder.reset(new QTemporaryDir);
    }

    void cleanup()
    {
        m_view.reset();
        m_document.reset();
        QCOMPARE(WarningTrap::take(), QStringList());
    }

    void saysNothingOfAGoodFile()
    {
        openLine();
        QVERIFY(!banner()->isVisible());
        m_document->checkFile();
        QTest::qWait(50);
        QVERIFY(!banner()->isVisible());
    }

    void tellsOfAFileThatIsCutOff()
    {
        QVERIFY(Gathers::writeLine(path(), 3));
        QVERIFY(QFile::resize(path(), QFileInfo(path()).size() - 100));
        openFile();
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
        QVERIFY(QFile::resize(path(), QFileInfo(path()).size() - 100));
        openFile();
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
        SegyWriter writer;
        for (int i = 0; i < 8; ++i) {
            SegyTrace trace;
            trace.fieldRecord = 1 + i / 4;
            writer.add(trace);
        }
        QVERIFY(writer.write(path()));
        openFile();
        QTRY_COMPARE(text(),
                     QStringLiteral("The traces have no offsets and no usable coordinates."));
        QVERIFY(banner()->isVisible());
    }

    void countsWhatDoesNotFitIntoOneLine()
    {
        SegyWriter writer;
        for (int i = 0; i < 8; ++i) {
            SegyTrace trace;
            trace.fieldRecord = 1 + i / 4;
            writer.add(trace);
        }
        QVERIFY(writer.write(path()));
        QVERIFY(QFile::resize(path(), QFileInfo(path()).size() - 100));
        openFile();
        QTRY_VERIFY2(text().endsWith(QLatin1String("(further remarks: 1)")), qPrintable(text()));
    }

    void aFileThatGrowsCanBeReloaded()
    {
        openLine();
        m_view->setCurrentGather(2);
        QTRY_VERIFY(m_view->isShowingData());
        QVERIFY(Gathers::writeLine(m_folder->filePath(QStringLiteral("more.sgy")), 6));
        append(m_folder->filePath(QStringLiteral("more.sgy")));
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
        openLine();
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
        QCOMPARE(Views::canvasOf(*m_view)->gather()->traceCount(), 4);
    }

    void aFileThatShrinksIsNoEnd()
    {
        openLine(40);
        QVERIFY(QFile::resize(path(), 3600 + 24 * (240 + 800)));
        QTRY_VERIFY(banner()->isVisible());
        QVERIFY2(text().contains(QLatin1String("shorter")), qPrintable(text()));
        QVERIFY(m_view->isShowingData()); // what was read stays
        QSignalSpy info(m_view.get(), &OvAbstractViewController::outputInfo);
        m_view->setCurrentGather(39);
        QTRY_VERIFY(!info.isEmpty());
        QTRY_VERIFY(!Views::canvasOf(*m_view)->gather());
        m_view->setCurrentGather(0);
        QTRY_VERIFY(m_view->isShowingData());
        button("bannerReload")->click();
        QTRY_COMPARE(m_view->gatherCount(), 1);
    }

    void aFileThatVanishesStaysShown()
    {
        openLine();
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
        openLine();
        QFile file(path());
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(5),
                                 QFileDevice::FileModificationTime));
        file.close();
        m_document->checkFile();
        QTRY_VERIFY(banner()->isVisible());
        QVERIFY2(text().contains(QLatin1String("written again")), qPrintable(text()));
    }

    void picksStay()
    {
        openLine();
        QVERIFY(m_document->setFirstBreaks(1, Gathers::breaksAt(24, 40.0F)));
        QFile file(path());
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(5),
                                 QFileDevice::FileModificationTime));
        file.close();
        m_document->checkFile();
        QTRY_VERIFY(banner()->isVisible());
        button("bannerReload")->click();
        QTRY_VERIFY(m_document->isIndexComplete());
        QCOMPARE(m_document->firstBreaks(1).pickedCount(), 24);
    }

    void noReloadUnderAJob()
    {
        openLine();
        m_document->beginJobStorage();
        const OvStatus status = m_document->reload();
        QVERIFY(!status);
        QVERIFY(status.message().contains(QLatin1String("A job is working")));
        m_document->endJobStorage();
        QVERIFY(m_document->reload());
        QTRY_VERIFY(m_document->isIndexComplete());
    }

private:
    QString path() const { return m_folder->filePath(QStringLiteral("line.sgy")); }
    void openLine(int shots = 3)
    {
        QVERIFY(Gathers::writeLine(path(), shots));
        openFile();
    }
    void openFile()
    {
        m_document = Views::openComplete(path());
        QVERIFY(m_document);
        m_view = std::make_unique<OvGatherViewController>(m_document);
        QVERIFY(Views::show(*m_view));
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
    QWidget* banner() const { return m_view->findChild<QWidget*>(QStringLiteral("banner")); }
    QString text() const
    {
        return m_view->findChild<QLabel*>(QStringLiteral("bannerText"))->text();
    }
    QToolButton* button(const char* name) const
    {
        return m_view->findChild<QToolButton*>(QLatin1String(name));
    }

    QTemporaryDir m_home;
    QScopedPointer<QTemporaryDir> m_folder;
    QSharedPointer<OvSegyDocument> m_document;
    std::unique_ptr<OvGatherViewController> m_view;
};

QTEST_MAIN(tst_OvViewNotices)
#include "tst_OvViewNotices.moc"
