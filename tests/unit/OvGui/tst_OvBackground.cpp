#include "OvGui/document/OvBackground.h"

#include <QThreadPool>
#include <QtTest>

#include <atomic>
#include <condition_variable>
#include <mutex>

namespace {

// Holds workers back until the test lets them go.
class Gate
{
public:
    void open()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_open = true;
        m_changed.notify_all();
    }
    void pass()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait(lock, [this] { return m_open; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_open = false;
};

} // namespace

class tst_OvBackground : public QObject
{
    Q_OBJECT

private slots:
    void outcomesArriveInOrderOnTheOwnersThread()
    {
        OvBackground background(OvBackground::readPool());
        QVector<int> seen;
        Qt::HANDLE worker = nullptr;
        background.run([&seen, &worker](const OvBackground::Post& post) {
            const Qt::HANDLE thread = QThread::currentThreadId();
            for (int i = 0; i < 100; ++i)
                post([&seen, i] { seen.append(i); });
            post([&worker, thread] { worker = thread; });
        });
        QTRY_VERIFY(worker != nullptr);
        QCOMPARE(seen.size(), 100);
        for (int i = 0; i < 100; ++i)
            QCOMPARE(seen[i], i);
        QVERIFY(worker != QThread::currentThreadId());
    }

    void outcomesOfADeletedOwnerAreDropped()
    {
        auto gate = std::make_shared<Gate>();
        auto ended = std::make_shared<std::atomic<bool>>(false);
        bool arrived = false;
        auto background = std::make_unique<OvBackground>(OvBackground::readPool());
        background->run([gate, ended, &arrived](const OvBackground::Post& post) {
            gate->pass();
            post([&arrived] { arrived = true; });
            ended->store(true);
        });
        background.reset();
        gate->open();
        QTRY_VERIFY(ended->load());
        QCoreApplication::processEvents();
        QVERIFY(!arrived);
    }

    void anOutcomeMayDeleteTheOwner()
    {
        auto* background = new OvBackground(OvBackground::readPool());
        const QPointer<OvBackground> watched(background);
        bool later = false;
        const auto post = background->poster();
        post([background] { delete background; });
        post([&later] { later = true; });
        QTRY_VERIFY(watched.isNull());
        QCoreApplication::processEvents();
        QVERIFY(!later);
    }
};

QTEST_GUILESS_MAIN(tst_OvBackground)
#include "tst_OvBackground.moc"
