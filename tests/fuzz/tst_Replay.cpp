#include "fixtures/SegyFormWriter.h"
#include "fixtures/SegyWriter.h"
#include "fuzz/Entry.h"

#include "OvSeismic/segy/OvSegyIndexCache.h"

#include <QtTest>

#include <random>

namespace {

constexpr int mostBytes = 20000;
constexpr int rounds = 150;

struct Seed
{
    QByteArray name;
    QByteArray bytes;
};

/// Bytes flipped, words set to odd values, pieces cut out, doubled and cut off; most of it in the
/// file headers and the first trace header, where words lie that are believed.
QByteArray mutated(const QByteArray& bytes, std::mt19937* random)
{
    QByteArray result = bytes;
    const auto below = [random](int limit) { return int((*random)() % unsigned(qMax(1, limit))); };
    for (int changes = 1 + below(6); changes > 0 && !result.isEmpty(); --changes) {
        const int words = result.size() > 4000 ? 3200 + below(800) : below(result.size());
        const int at = below(4) ? words : below(result.size());
        const int length = qMin(below(400), result.size() - at);
        switch (below(6)) {
        case 0:
            result.remove(at, length);
            break;
        case 1:
            result.insert(at, result.mid(at, length));
            break;
        case 2:
            result.replace(at, qMin(2, result.size() - at), below(2) ? "\x7F\xFF" : "\xFF\xFF", 2);
            break;
        case 3:
            result.truncate(at);
            break;
        default:
            result[at] = static_cast<char>((*random)());
        }
    }
    return result;
}

void addForm(std::vector<Seed>* seeds, const char* name, const SegyFormWriter& writer)
{
    seeds->push_back({name, writer.bytes()});
}

SegyFormWriter form(int traces, bool variable)
{
    SegyFormWriter writer;
    writer.samplesStated = 20;
    writer.fixedLength = variable ? 0 : 1;
    for (int i = 0; i < traces; ++i) {
        writer.traces.emplace_back();
        writer.traces.back().samples = SegyFormWriter::ramp(i, variable ? 10 + i % 20 : 20);
    }
    return writer;
}

std::vector<Seed> generatedSegy()
{
    std::vector<Seed> seeds;
    addForm(&seeds, "plain", form(9, false));
    addForm(&seeds, "variable", form(30, true));
    SegyFormWriter labelled = form(5, false);
    labelled.tapeLabel = true;
    labelled.order = SegyFormWriter::Order::Little;
    addForm(&seeds, "label", labelled);
    SegyFormWriter second = form(8, true);
    second.revision = 0x0201;
    second.order = SegyFormWriter::Order::Pairs;
    second.words16[3507] = 2;
    second.words32[3529] = 1;
    for (auto& trace : second.traces)
        trace.extraHeaders = 2;
    second.trailer = second.textRecord("((SEG: Data Trailer))");
    addForm(&seeds, "revision 2.1", second);
    SegyFormWriter texts = form(6, false);
    texts.format = 1;
    texts.extendedTexts = texts.textRecord("((SEG: x))") + texts.textRecord("((SEG: EndText))");
    texts.textsStated = -1;
    addForm(&seeds, "texts", texts);
    return seeds;
}

std::vector<Seed> recorded()
{
    std::vector<Seed> seeds;
    const QString root = qEnvironmentVariable("TARNPICK_TEST_DATA");
    for (const char* folder : {"formats", "odd", "gathers"}) {
        const QDir files(root + QLatin1Char('/') + QLatin1String(folder));
        for (const QFileInfo& entry : files.entryInfoList(QDir::Files)) {
            QFile file(entry.filePath());
            if (!root.isEmpty() && file.open(QIODevice::ReadOnly))
                seeds.push_back({entry.fileName().toUtf8(), file.read(mostBytes)});
        }
    }
    return seeds;
}

} // namespace

/// Calls what fuzzing runs call, with whole files and mutated ones, the same on every run.
class tst_Replay : public QObject
{
    Q_OBJECT

private slots:
    void segy_data();
    void segy();
    void recordedSegy_data();
    void recordedSegy();
    void firstBreaks();
    void locator();
    void index();
    void corpus();

private:
    static void replay(Fuzz::Entry entry, const QByteArray& bytes, int times);
};

void tst_Replay::replay(Fuzz::Entry entry, const QByteArray& bytes, int times)
{
    std::mt19937 random(qHash(bytes));
    entry(bytes);
    entry({});
    for (int round = 0; round < times; ++round)
        entry(mutated(bytes, &random));
}

void tst_Replay::segy_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const Seed& seed : generatedSegy())
        QTest::newRow(seed.name.constData()) << seed.bytes;
}

void tst_Replay::segy()
{
    QFETCH(QByteArray, bytes);
    replay(&Fuzz::segy, bytes, 2 * rounds);
}

void tst_Replay::recordedSegy_data()
{
    QTest::addColumn<QByteArray>("bytes");
    if (qEnvironmentVariableIsEmpty("TARNPICK_TEST_DATA"))
        QSKIP("TARNPICK_TEST_DATA does not name the folder of recorded files");
    for (const Seed& seed : recorded())
        QTest::newRow(seed.name.constData()) << seed.bytes;
}

void tst_Replay::recordedSegy()
{
    QFETCH(QByteArray, bytes);
    replay(&Fuzz::segy, bytes, rounds / 5);
}

void tst_Replay::firstBreaks()
{
    const QByteArray bytes = Fuzz::firstBreaksSeed();
    QVERIFY(bytes.startsWith("SQLite"));
    replay(&Fuzz::firstBreaks, bytes, rounds / 3);
}

void tst_Replay::locator()
{
    replay(&Fuzz::locator, Fuzz::locatorSeed(), 20 * rounds);
}

void tst_Replay::index()
{
    OvSegyIndex taken;
    QByteArray locator;
    OvSegyIndexCache::Key key;
    key.text = "key";
    const QByteArray seed = Fuzz::indexSeed();
    QVERIFY(OvSegyIndexCache::decode(seed.constData(), seed.size(), key, &taken, &locator));
    QCOMPARE(taken.gatherCount(), 3);
    replay(&Fuzz::index, seed, 20 * rounds);
}

/// What fuzzing runs have found, where one was run in this tree.
void tst_Replay::corpus()
{
    const QDir corpus(QStringLiteral(TARNPICK_FUZZ_CORPUS));
    const std::pair<const char*, Fuzz::Entry> targets[] = {
        {"fuzz_segy", &Fuzz::segy},
        {"fuzz_locator", &Fuzz::locator},
        {"fuzz_firstbreaks", &Fuzz::firstBreaks}};
    int files = 0;
    for (const auto& target : targets) {
        const QDir folder(corpus.filePath(QLatin1String(target.first)));
        // Many inputs of a long run differ in details only.
        for (const QFileInfo& entry : folder.entryInfoList(QDir::Files).mid(0, 300)) {
            QFile file(entry.filePath());
            QVERIFY(file.open(QIODevice::ReadOnly));
            target.second(file.readAll());
            ++files;
        }
    }
    if (files == 0)
        QSKIP("No fuzzing run has left a corpus in the build folder");
}

QTEST_GUILESS_MAIN(tst_Replay)
#include "tst_Replay.moc"
