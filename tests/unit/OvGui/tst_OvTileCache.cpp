#include "OvGui/canvas/OvTileCache.h"

#include <QtTest>

namespace {

constexpr qint64 tileBytes = 16 * 16 * 4;

QImage tile()
{
    return QImage(16, 16, QImage::Format_RGB32);
}

} // namespace

class tst_OvTileCache : public QObject
{
    Q_OBJECT

private slots:
    void farthestFromTheViewportGoesFirst()
    {
        OvTileCache cache(3 * tileBytes);
        cache.setViewport(QRect(10, 10, 1, 1));
        cache.insert({10, 10}, tile());
        cache.insert({30, 10}, tile());
        cache.insert({12, 10}, tile());
        cache.insert({11, 10}, tile());
        QVERIFY(cache.find({10, 10}) != nullptr);
        QVERIFY(cache.find({11, 10}) != nullptr);
        QVERIFY(cache.find({12, 10}) != nullptr);
        QVERIFY(cache.find({30, 10}) == nullptr);
        cache.setViewport(QRect(13, 10, 1, 1));
        cache.insert({13, 10}, tile());
        QVERIFY(cache.find({10, 10}) == nullptr);
        QCOMPARE(cache.count(), 3);
        QCOMPARE(cache.bytes(), 3 * tileBytes);
    }

    void whatIsInViewStays()
    {
        OvTileCache cache(2 * tileBytes);
        cache.setViewport(QRect(0, 0, 3, 1));
        for (int x = 0; x < 3; ++x)
            cache.insert({x, 0}, tile());
        QVERIFY(cache.hasAll(QRect(0, 0, 3, 1)));
        cache.insert({9, 9}, tile());
        QVERIFY(cache.find({9, 9}) == nullptr);
    }

    void aTileInsertedAgainIsCountedOnce()
    {
        OvTileCache cache(10 * tileBytes);
        cache.insert({1, 1}, tile());
        cache.insert({1, 1}, tile());
        QCOMPARE(cache.bytes(), tileBytes);
        cache.clear();
        QCOMPARE(cache.bytes(), qint64(0));
        QVERIFY(cache.find({1, 1}) == nullptr);
    }

    void missingTilesComeNearestFirst()
    {
        OvTileCache cache(10 * tileBytes);
        cache.setViewport(QRect(4, 4, 3, 1));
        cache.insert({5, 4}, tile());
        const QVector<QPoint> missing = cache.missing(QRect(3, 3, 5, 3));
        QCOMPARE(missing.size(), 14);
        QVERIFY(!missing.contains({5, 4}));
        QCOMPARE(QSet<int>({missing[0].x(), missing[1].x()}), QSet<int>({4, 6}));
        QCOMPARE(missing[0].y(), 4);
        const QPoint last = missing.last();
        QVERIFY(last.x() == 3 || last.x() == 7);
        QVERIFY(cache.missing(QRect()).isEmpty());
    }
};

QTEST_MAIN(tst_OvTileCache)
#include "tst_OvTileCache.moc"
