#include "OvSeismic/picking/OvPickTeacher.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "fixtures/SegyWriter.h"

#include <QtTest>

class tst_OvPickTeacher : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void gathersWithPicksByHandTeachAlone();
    void withoutPicksByHandAllTeach();
    void leavesOutTheGatherAskedFor();
    void rejectedPicksNeverTeach();
    void tooFewPicksTeachNothing();
    void cancels();

private:
    // Picks of a gather along intercept + offset * slope.
    void plant(int gather, float slope, OvPickState state, OvPickState ofFirst);
    double expectedAt(const OvPickTeacher& teacher, int gather, int row) const;
    float offsetOf(int gather, int row) const
    {
        return std::abs(m_index.gatherHeaders(m_segy, gather).headers[std::size_t(row)].offset);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    OvSegyFile m_segy;
    OvSegyIndex m_index;
    OvFirstBreakFile m_file;
};

void tst_OvPickTeacher::init()
{
    m_file.close();
    m_folder = std::make_unique<QTemporaryDir>();
    SegyWriter writer;
    writer.sampleCount = 10;
    for (int shot = 0; shot < 3; ++shot)
        writer.addShot(10 + shot, 0.0, 24, 25.0);
    const QString line = m_folder->filePath(QStringLiteral("line.sgy"));
    QVERIFY(writer.write(line));
    QVERIFY(m_segy.open(line));
    QVERIFY(m_index.build(m_segy));
    QVERIFY(m_file.open(line + QStringLiteral(".fb"), m_segy.info()));
}

void tst_OvPickTeacher::plant(int gather, float slope, OvPickState state, OvPickState ofFirst)
{
    OvFirstBreaks breaks;
    breaks.resize(24);
    for (int row = 0; row < 24; ++row) {
        breaks.timesMs[std::size_t(row)] = 20.0F + slope * offsetOf(gather, row);
        breaks.states[std::size_t(row)] = row == 0 ? ofFirst : state;
    }
    QVERIFY(m_file.write(m_index.gatherTraces(gather), breaks));
}

double tst_OvPickTeacher::expectedAt(const OvPickTeacher& teacher, int gather, int row) const
{
    const auto prior = teacher.prior();
    if (!prior)
        return -1.0;
    return prior->expected(m_index.gatherHeaders(m_segy, gather).headers)[std::size_t(row)].timeMs;
}

void tst_OvPickTeacher::gathersWithPicksByHandTeachAlone()
{
    plant(0, 0.5F, OvPickState::Automatic, OvPickState::Manual);
    plant(1, 2.0F, OvPickState::Automatic, OvPickState::Automatic);
    OvPickTeacher teacher(m_segy, m_index);
    QVERIFY(teacher.learn(m_file, -1, nullptr));
    const double truth = 20.0 + 0.5 * double(offsetOf(2, 15));
    QVERIFY2(std::abs(expectedAt(teacher, 2, 15) - truth) < 10.0,
             qPrintable(QString::number(expectedAt(teacher, 2, 15))));
}

void tst_OvPickTeacher::withoutPicksByHandAllTeach()
{
    plant(1, 2.0F, OvPickState::Automatic, OvPickState::Automatic);
    OvPickTeacher teacher(m_segy, m_index);
    QVERIFY(teacher.learn(m_file, -1, nullptr));
    const double truth = 20.0 + 2.0 * double(offsetOf(2, 15));
    QVERIFY(std::abs(expectedAt(teacher, 2, 15) - truth) < 20.0);
}

void tst_OvPickTeacher::leavesOutTheGatherAskedFor()
{
    plant(0, 0.5F, OvPickState::Manual, OvPickState::Manual);
    OvPickTeacher teacher(m_segy, m_index);
    QVERIFY(teacher.learn(m_file, 0, nullptr));
    QVERIFY(!teacher.prior());
    QVERIFY(teacher.learnGather(m_file, 0));
    QVERIFY(teacher.prior());
}

void tst_OvPickTeacher::rejectedPicksNeverTeach()
{
    plant(0, 0.5F, OvPickState::Rejected, OvPickState::Rejected);
    OvPickTeacher teacher(m_segy, m_index);
    QVERIFY(teacher.learn(m_file, -1, nullptr));
    QVERIFY(!teacher.prior());
}

void tst_OvPickTeacher::tooFewPicksTeachNothing()
{
    OvFirstBreaks breaks;
    breaks.resize(2);
    breaks.timesMs = {10.0F, 11.0F};
    breaks.states.assign(2, OvPickState::Manual);
    QVERIFY(m_file.write({3, 4}, breaks));
    OvPickTeacher teacher(m_segy, m_index);
    QVERIFY(teacher.learn(m_file, -1, nullptr));
    QVERIFY(!teacher.prior());
}

void tst_OvPickTeacher::cancels()
{
    plant(0, 0.5F, OvPickState::Manual, OvPickState::Manual);
    const std::atomic<bool> cancel{true};
    OvPickTeacher teacher(m_segy, m_index);
    QVERIFY(teacher.learn(m_file, -1, &cancel));
    QVERIFY(!teacher.prior());
}

QTEST_GUILESS_MAIN(tst_OvPickTeacher)
#include "tst_OvPickTeacher.moc"
