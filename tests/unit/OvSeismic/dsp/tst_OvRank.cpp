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
    void runningMedians_data();
    void runningMedians();
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
    QCOMPARE(OvRank::median(values), 3.0);
}

void tst_OvRank::runningMedians_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("reach");
    for (const int count : {0, 1, 3, 8, 9, 10, 17, 40}) {
        for (const int reach : {0, 1, 3, 4, 5, 12})
            QTest::newRow(qPrintable(QStringLiteral("%1 by %2").arg(count).arg(reach)))
                << count << reach;
    }
}

void tst_OvRank::runningMedians()
{
    QFETCH(int, count);
    QFETCH(int, reach);
    std::mt19937 random(5);
    std::vector<double> values;
    for (int i = 0; i < count; ++i)
        values.push_back(static_cast<double>(random() % 20U));
    std::vector<double> out(values.size() + 1, -99.0);
    OvRank::runningMedians(values.data(), count, reach, out.data());
    for (int i = 0; i < count; ++i) {
        std::vector<double> window(values.begin() + std::max(i - reach, 0),
                                   values.begin() + std::min(i + reach + 1, count));
        std::sort(window.begin(), window.end());
        QCOMPARE(out[static_cast<std::size_t>(i)], window[window.size() / 2]);
    }
    QCOMPARE(out.back(), -99.0);
}

QTEST_GUILESS_MAIN(tst_OvRank)
#include "tst_OvRank.moc"
