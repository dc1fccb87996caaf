#include "OvSeismic/picking/OvPickRun.h"
#include "OvSeismic/segy/OvSegyFile.h"

#include <QDir>
#include <QtTest>

#include <algorithm>
#include <cmath>

/// The picker on recorded gathers, against manual picks and what physics allows.
class tst_OvPickCorpus : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void shearWaveLineAgainstManualPicks();
    void compressionalLineAgainstManualPicks();
    void farBranchIsNotLostToNoise_data();
    void farBranchIsNotLostToNoise();
    void arrivalsGrowWithOffset_data();
    void arrivalsGrowWithOffset();
    void gatherWithoutGeometry();

private:
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    QDir m_folder;
};

namespace {

struct Picked
{
    OvGather headers;
    OvPickResult result;
};

std::vector<Picked> pickFile(const QString& path, const OvPickParameters& parameters = {},
                             double minimumConfidence = OvPickSettings::defaultConfidence)
{
    OvSegyFile file;
    OvSegyIndex index;
    std::vector<Picked> all;
    OvStatus status = file.open(path);
    if (status)
        status = index.build(file);
    OvPickRun::Request request;
    request.file = &file;
    request.index = &index;
    request.settings.parameters = parameters;
    request.settings.minimumConfidence = minimumConfidence;
    const auto keep = [&all](const OvGather& gather, const OvPickResult& result) {
        all.push_back({gather, result});
        return OvStatus::success();
    };
    if (status)
        status = OvPickRun::run(request, keep, {}, nullptr);
    if (!status)
        QTest::qFail(qPrintable(status.message()), __FILE__, __LINE__);
    return all;
}

struct ManualPick
{
    double source = 0.0;
    double receiver = 0.0;
    double timeMs = 0.0;
};

std::vector<ManualPick> readPicks(const QString& path)
{
    std::vector<ManualPick> picks;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        QTest::qFail(qPrintable(path), __FILE__, __LINE__);
    while (!file.atEnd()) {
        const QList<QByteArray> words = file.readLine().simplified().split(' ');
        if (words.size() == 3)
            picks.push_back(
                {words[0].toDouble(), words[1].toDouble(), 1000.0 * words[2].toDouble()});
    }
    return picks;
}

// Errors of the picks that have a manual one; NaN where the picker made none.
std::vector<double> errorsOf(const Picked& picked, const std::vector<ManualPick>& manual)
{
    std::vector<double> errors;
    for (const ManualPick& pick : manual) {
        for (std::size_t row = 0; row < picked.headers.headers.size(); ++row) {
            const OvTraceHeader& header = picked.headers.headers[row];
            if (std::abs(header.sourceX - pick.source) < 0.6 &&
                std::abs(header.receiverX - pick.receiver) < 0.01)
                errors.push_back(static_cast<double>(picked.result.timesMs[row]) - pick.timeMs);
        }
    }
    return errors;
}

double shareWithin(const std::vector<double>& errors, double toleranceMs)
{
    const auto good = std::count_if(errors.begin(), errors.end(),
                                    [&](double error) { return std::abs(error) <= toleranceMs; });
    return static_cast<double>(good) / static_cast<double>(errors.size());
}

double medianOf(std::vector<double> values)
{
    values.erase(
        std::remove_if(values.begin(), values.end(), [](double v) { return std::isnan(v); }),
        values.end());
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

void tst_OvPickCorpus::initTestCase()
{
    const QString folder = qEnvironmentVariable("TARNPICK_TEST_DATA");
    if (folder.isEmpty())
        QSKIP("TARNPICK_TEST_DATA names no folder of recorded files.");
    m_folder.setPath(folder);
}

void tst_OvPickCorpus::shearWaveLineAgainstManualPicks()
{
    const std::vector<ManualPick> manual = readPicks(path("picks/lineB_swave_picks.txt"));
    const QDir line(path("gathers/refr_line_B_swave"));
    std::vector<double> errors;
    std::vector<double> confident;
    const QStringList names = line.entryList({"*.sgy"});
    for (const QString& name : names) {
        for (const Picked& picked : pickFile(line.filePath(name), {}, 0.0)) {
            const std::vector<double> more = errorsOf(picked, manual);
            errors.insert(errors.end(), more.begin(), more.end());
        }
        for (const Picked& picked : pickFile(line.filePath(name))) {
            for (const double error : errorsOf(picked, manual)) {
                if (std::isfinite(error))
                    confident.push_back(error);
            }
        }
    }
    QVERIFY(errors.size() > 1000);
    const double within = 100.0 * shareWithin(errors, 5.0);
    const double bias = medianOf(errors);
    std::vector<double> sizes;
    for (const double error : errors)
        sizes.push_back(std::abs(error));
    qInfo("%.1f %% within 5 ms, bias %.2f ms, median error %.2f ms", within, bias, medianOf(sizes));
    QVERIFY(within >= 79.0);
    // Fewer picks with the least confidence that is set, and better ones.
    QVERIFY(10 * confident.size() > 9 * errors.size());
    QVERIFY2(100.0 * shareWithin(confident, 5.0) >= 80.0,
             qPrintable(QString::number(shareWithin(confident, 5.0))));
    QVERIFY(std::abs(bias) < 1.0);
    QVERIFY(medianOf(sizes) < 1.8);
}

void tst_OvPickCorpus::compressionalLineAgainstManualPicks()
{
    const std::vector<ManualPick> manual = readPicks(path("picks/lineA_shot918_picks.txt"));
    OvPickParameters parameters;
    parameters.polarity = OvPickParameters::Polarity::Negative;
    const auto picked = pickFile(path("gathers/refr_line_A/shot_00918m_stacked.sgy"), parameters);
    QCOMPARE(picked.size(), std::size_t(1));
    const std::vector<double> errors = errorsOf(picked.front(), manual);
    QVERIFY(errors.size() > 40);
    QVERIFY2(shareWithin(errors, 8.0) > 0.7, qPrintable(QString::number(shareWithin(errors, 8.0))));
    QVERIFY2(std::abs(medianOf(errors)) < 4.0, qPrintable(QString::number(medianOf(errors))));
}

void tst_OvPickCorpus::farBranchIsNotLostToNoise_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<double>("first"); // receivers, m
    QTest::addColumn<double>("last");
    QTest::addColumn<double>("firstMs"); // of the arrival at them
    QTest::addColumn<double>("lastMs");
    // Picks by hand of the shot at 918 m, 71 to 95 ms, and 24 m more at the 2000 m/s that they
    // show.
    QTest::newRow("894 m") << "shot_00894m_stacked.sgy" << 1026.0 << 1074.0 << 83.0 << 107.0;
}

void tst_OvPickCorpus::farBranchIsNotLostToNoise()
{
    QFETCH(QString, file);
    QFETCH(double, first);
    QFETCH(double, last);
    QFETCH(double, firstMs);
    QFETCH(double, lastMs);
    const auto picked = pickFile(m_folder.filePath("gathers/refr_line_A/" + file), {}, 0.0);
    QCOMPARE(picked.size(), std::size_t(1));
    std::vector<double> errors;
    for (std::size_t row = 0; row < picked.front().result.timesMs.size(); ++row) {
        const double share =
            (picked.front().headers.headers[row].receiverX - first) / (last - first);
        if (share >= 0.0 && share <= 1.0)
            errors.push_back(static_cast<double>(picked.front().result.timesMs[row]) - firstMs -
                             share * (lastMs - firstMs));
    }
    QCOMPARE(errors.size(), std::size_t(9));
    for (const double error : errors)
        QVERIFY2(std::abs(error) <= 11.0, qPrintable(QString::number(error)));
}

void tst_OvPickCorpus::arrivalsGrowWithOffset_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<double>("fastest"); // m/s, of the move-out over ten traces
    QTest::addColumn<double>("slowest");
    QTest::addColumn<double>("leastShare");
    QTest::newRow("marine") << "gathers/viking_small.segy" << 5000.0 << 1000.0 << 0.98;
    QTest::newRow("modelled") << "gathers/judi_shot_record_250.segy" << 20000.0 << 1000.0 << 0.8;
    QTest::newRow("spikes") << "formats/bigEndianIEEEFloat.sgy" << 20000.0 << 900.0 << 0.9;
}

void tst_OvPickCorpus::arrivalsGrowWithOffset()
{
    QFETCH(QString, file);
    QFETCH(double, fastest);
    QFETCH(double, slowest);
    QFETCH(double, leastShare);
    for (const Picked& picked : pickFile(m_folder.filePath(file))) {
        const auto& headers = picked.headers.headers;
        int compared = 0;
        int plausible = 0;
        for (std::size_t row = 10; row < headers.size(); ++row) {
            const double near = std::abs(static_cast<double>(headers[row - 10].offset));
            const double far = std::abs(static_cast<double>(headers[row].offset));
            // Across the shot the two sides say nothing about velocity.
            if (std::abs(far - near) <
                0.9 * 10.0 * std::abs(static_cast<double>(headers[1].offset - headers[0].offset)))
                continue;
            const double seconds =
                static_cast<double>(picked.result.timesMs[row] - picked.result.timesMs[row - 10]) /
                1000.0;
            const double velocity = (far - near) / seconds;
            ++compared;
            plausible += velocity > slowest && velocity < fastest;
        }
        QVERIFY(compared > 50);
        QVERIFY2(plausible >= leastShare * compared,
                 qPrintable(QStringLiteral("%1 of %2").arg(plausible).arg(compared)));
    }
}

void tst_OvPickCorpus::gatherWithoutGeometry()
{
    const auto picked = pickFile(path("gathers/sardine_test.segy"));
    QCOMPARE(picked.size(), std::size_t(1));
    const std::vector<float>& times = picked.front().result.timesMs;
    int good = 0;
    // The arrival runs from about 5 ms on the first channels to about 55 ms on the last.
    for (std::size_t row = 0; row < times.size(); ++row)
        good += times[row] > 0.0F && times[row] < 15.0F + 1.1F * static_cast<float>(row + 1);
    QVERIFY2(good >= 45, qPrintable(QString::number(good)));
    // Single traces may be a lobe late.
    const auto about = [&times](std::ptrdiff_t row) {
        std::vector<float> near(times.begin() + row - 2,
                                times.begin() +
                                    std::min<std::ptrdiff_t>(row + 3, times.end() - times.begin()));
        std::nth_element(near.begin(), near.begin() + near.size() / 2, near.end());
        return near[near.size() / 2];
    };
    QVERIFY(about(10) < 25.0F && about(47) > 40.0F);
}

QTEST_GUILESS_MAIN(tst_OvPickCorpus)
#include "tst_OvPickCorpus.moc"
