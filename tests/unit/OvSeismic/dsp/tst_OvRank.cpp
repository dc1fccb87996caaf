#include "OvSeismic/dsp/OvRank.h"

#include <QtTest>

#include <algorithm>
#include <random>
#include <vector>

/// Values of every rank against sorted ones.
class tst_OvRank : public QObject
{
    Q_OBJECT

private slots:
    void everyRank_data();
    void everyRank();
    void equalValues();
    void medianIsTheUpperOne();
};

void tst_OvRank::everyRank_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {1, 2, 8, 9, 16, 17, 44, 63, 64, 65, 200})
        QTest::newRow(qPrintable(QString::number(count))) << count;
}

void tst_OvRank::everyRank()
{
    QFETCH(int, count);
    std::mt19937 random(17);
    std::vector<float> values;
    for (int i = 0; i < count; ++i)
        values.push_back(static_cast<float>(static_cast<int>(random() % 1000U)) - 500.0F);
    const std::vector<double> exact(values.begin(), values.end());
    std::vector<float> sorted = values;
    std::sort(sorted.begin(), sorted.end());
    for (int rank = 0; rank < count; ++rank) {
        const float expected = sorted[static_cast<std::size_t>(rank)];
        QCOMPARE(OvRank::of(values.data(), count, rank), expected);
        QCOMPARE(OvRank::of(exact.data(), count, rank), static_cast<double>(expected));
    }
}

void tst_OvRank::equalValues()
{
    const std::vector<double> values{2.0, 7.0, 2.0, 2.0, -1.0};
    QCOMPARE(OvRank::of(values.data(), 5, 0), -1.0);
    for (const int rank : {1, 2, 3})
        QCOMPARE(OvRank::of(values.data(), 5, rank), 2.0);
    QCOMPARE(OvRank::of(values.data(), 5, 4), 7.0);
}

void tst_OvRank::medianIsTheUpperOne()
{
    const std::vector<double> values{4.0, 1.0, 3.0, 2.0};
    QCOMPARE(OvRank::median(values.data(), 1), 4.0);
    QCOMPARE(OvRank::median(values.data(), 2), 4.0);
    QCOMPARE(OvRank::median(values.data(), 3), 3.0);
    QCOMPARE(OvRank::median(values.data(), 4), 3.0);
}

QTEST_GUILESS_MAIN(tst_OvRank)
#include "tst_OvRank.moc"
