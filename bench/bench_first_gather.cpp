#include "Figure.h"

#include "OvBase/OvBaseUtil.h"
#include "OvGui/OvGatherViewController.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <QtEndian>

#include <array>
#include <memory>

// From the choice of a file to its first gather on the screen: a million traces against a thousand,
// the same gather in both. No index is cached: each measurement has a folder of its own.

namespace {

constexpr int rounds = 5;
constexpr double goal = 3.0;
constexpr int tracesPerGather = 100;
constexpr int samples = 100;
constexpr int smallFile = 1000;
constexpr int largeFile = 1000000;

/// A record of the file while its words are set; bytes count from 1.
template <std::size_t Size>
struct Record
{
    std::array<char, Size> bytes{};

    template <typename T>
    void put(int byte, T value)
    {
        qToBigEndian<T>(value, bytes.data() + byte - 1);
    }
    QByteArray toByteArray() const { return {bytes.data(), static_cast<int>(Size)}; }
};

QByteArray fileHeader()
{
    Record<400> binary;
    binary.put<qint16>(17, 2000); // sample interval, us
    binary.put<qint16>(21, samples);
    binary.put<qint16>(25, 8); // one-byte integers
    return QByteArray(3200, ' ') + binary.toByteArray();
}

QByteArray trace(int number)
{
    Record<240 + samples> record;
    record.put<qint32>(1, number + 1);
    record.put<qint32>(9, 1 + number / tracesPerGather);  // field record
    record.put<qint32>(13, 1 + number % tracesPerGather); // channel
    record.put<qint16>(29, 1);
    record.put<qint32>(37, 5 * (number % tracesPerGather)); // offset, m
    record.put<qint16>(115, samples);
    record.put<qint16>(117, 2000);
    for (int sample = 0; sample < samples; ++sample)
        record.bytes[240 + static_cast<std::size_t>(sample)] =
            static_cast<char>((sample * 37 + number * 11) % 101 - 50);
    return record.toByteArray();
}

bool write(const QString& path, int traces)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(fileHeader());
    for (int number = 0; number < traces; ++number)
        file.write(trace(number));
    return file.flush();
}

/// Milliseconds; NaN when no gather came.
double firstGather(const QString& path)
{
    const QTemporaryDir home;
    OvBaseUtil::setLocalPath(home.path());
    qputenv("XDG_CACHE_HOME", home.path().toLocal8Bit());
    QElapsedTimer clock;
    clock.start();
    OvStatus status;
    const auto document = OvSegyDocument::open(path, &status);
    if (!document) {
        QTextStream(stderr) << status.message() << '\n';
        return std::nan("");
    }
    OvGatherViewController view(document);
    QEventLoop loop;
    double elapsed = std::nan("");
    QObject::connect(&view, &OvGatherViewController::gatherShown, &loop, [&] {
        elapsed = static_cast<double>(clock.nsecsElapsed()) / 1e6;
        loop.quit();
    });
    QTimer::singleShot(60000, &loop, &QEventLoop::quit);
    view.resize(900, 600);
    view.show();
    loop.exec();
    return elapsed;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString small = folder.filePath("small.sgy");
    const QString large = folder.filePath("large.sgy");
    if (!write(small, smallFile) || !write(large, largeFile) || !OvBaseUtil::initialize()) {
        QTextStream(stderr) << "bench_first_gather: cannot write the files\n";
        return 1;
    }
    firstGather(small); // fonts and libraries are loaded now
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = 0; round < rounds; ++round) {
        theirs.push_back(firstGather(small));
        ours.push_back(firstGather(large));
    }
    Figure::report("first_gather", Figure::median(ours), Figure::median(theirs), goal);
    OvBaseUtil::finish();
    return 0;
}
