#include "OvGui/document/OvGatherCache.h"

#include "Gathers.h"

#include <QtTest>

namespace {

std::shared_ptr<const OvGather> gather(int samples)
{
    return std::make_shared<const OvGather>(Gathers::silent(10, samples, 1.0));
}

} // namespace

class tst_OvGatherCache : public QObject
{
    Q_OBJECT

private slots:
    void theLeastRecentlyUsedGoes()
    {
        OvGatherCache cache(130000);
        for (int i = 0; i < 3; ++i)
            cache.insert(i, gather(1000)); // some 41 kB each
        QVERIFY(cache.find(0) != nullptr);
        cache.insert(3, gather(1000));
        QVERIFY(cache.find(1) == nullptr);
        QVERIFY(cache.find(0) != nullptr);
        QVERIFY(cache.find(3) != nullptr);
        QVERIFY(cache.bytes() <= 130000);
    }

    void aGatherLargerThanTheCacheIsKeptAlone()
    {
        OvGatherCache cache(1000);
        cache.insert(1, gather(10));
        cache.insert(2, gather(1000));
        QVERIFY(cache.find(1) == nullptr);
        QVERIFY(cache.find(2) != nullptr);
    }

    void insertingAgainReplaces()
    {
        OvGatherCache cache(1 << 20);
        cache.insert(1, gather(1000));
        cache.insert(1, gather(10));
        QCOMPARE(cache.find(1)->sampleCount, 10);
        const std::size_t bytes = cache.bytes();
        QVERIFY(bytes < 10000);
        cache.clear();
        QCOMPARE(cache.bytes(), std::size_t(0));
        QVERIFY(cache.find(1) == nullptr);
    }
};

QTEST_GUILESS_MAIN(tst_OvGatherCache)
#include "tst_OvGatherCache.moc"
