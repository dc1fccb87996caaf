#include "DemoSegy.h"

#include "DemoLine.h"
#include "DemoShot.h"

#include <QStringList>
#include <QtEndian>

#include <array>
#include <cmath>
#include <cstring>

namespace {

// Coordinates and elevations are stored in centimetres.
constexpr qint16 centimetres = -100;
constexpr int traceHeaderSize = 240;

// Writes big-endian words at the byte positions, counted from 1, that the format's tables give.
class Words
{
public:
    /// start holds the byte at position first.
    explicit Words(char* start, int first = 1)
        : m_start(start)
        , m_first(first)
    {
    }
    void set16(int position, int value)
    {
        qToBigEndian(static_cast<qint16>(value), m_start + (position - m_first));
    }
    void set32(int position, qint32 value) { qToBigEndian(value, m_start + (position - m_first)); }
    void setCentimetres(int position, double metres)
    {
        set32(position, static_cast<qint32>(std::lround(metres * 100.0)));
    }

private:
    char* m_start;
    int m_first;
};

// The characters that the text below uses; EBCDIC keeps letters in three runs.
char ebcdic(char letter)
{
    const auto in = [letter](char from, char to, int base) {
        return letter >= from && letter <= to ? base + (letter - from) : 0;
    };
    const int code = in('A', 'I', 0xC1) | in('J', 'R', 0xD1) | in('S', 'Z', 0xE2) |
                     in('0', '9', 0xF0) | in('.', '.', 0x4B) | in(',', ',', 0x6B) |
                     in(':', ':', 0x7A) | in('-', '-', 0x60) | in('/', '/', 0x61);
    constexpr int space = 0x40;
    return static_cast<char>(code == 0 ? space : code);
}

QStringList textLines(int shots)
{
    return {
        QStringLiteral("SYNTHETIC REFRACTION LINE FOR DEMONSTRATION, NO RECORDED DATA"),
        QStringLiteral("%1 SHOTS, %2 CHANNELS, STATION SPACING %3 M, SHOT SPACING %4 M")
            .arg(shots)
            .arg(DemoLine::channelCount)
            .arg(DemoLine::stationSpacing)
            .arg(2 * DemoLine::stationSpacing),
        QStringLiteral("SPLIT SPREAD ROLLING ALONG, OFF-END AT BOTH ENDS OF THE LINE"),
        QStringLiteral("%1 SAMPLES A TRACE, %2 US, RECORDING BEGINS %3 MS BEFORE THE SHOT")
            .arg(DemoShot::sampleCount)
            .arg(DemoShot::intervalUs)
            .arg(-DemoShot::delayMs),
        QStringLiteral("TWO REFRACTORS: %1 AND %2 M/S UNDER WEATHERING OF %3 M/S")
            .arg(DemoLine::firstVelocity)
            .arg(DemoLine::secondVelocity)
            .arg(DemoLine::weatheringVelocity),
        QStringLiteral("DEAD AND REVERSED STATIONS, MAINS HUM, ONE MISFIRED SHOT"),
        QStringLiteral("FIELD RECORD 9-12, CHANNEL 13-16, OFFSET 37-40 SIGNED, METRES"),
        QStringLiteral("ELEVATIONS 41-48 SCALAR 69, COORDINATES 73-88 SCALAR 71, DELAY 109"),
        QStringLiteral("TRUE FIRST BREAKS: IN THE CSV FILE BESIDE THIS ONE"),
    };
}

QByteArray textHeader(int shots)
{
    constexpr int rows = 40;
    constexpr int columns = 80;
    QStringList lines = textLines(shots);
    while (lines.size() < rows)
        lines.append(QString());
    lines[rows - 2] = QStringLiteral("SEG Y REV1");
    lines[rows - 1] = QStringLiteral("END TEXTUAL HEADER");
    QByteArray text;
    for (int row = 0; row < rows; ++row)
        text += QStringLiteral("C%1 %2")
                    .arg(row + 1, 2)
                    .arg(lines.at(row))
                    .toLatin1()
                    .leftJustified(columns, ' ', true);
    for (char& letter : text)
        letter = ebcdic(letter);
    return text;
}

QByteArray binaryHeader()
{
    constexpr int size = 400;
    std::array<char, size> header{};
    Words words(header.data(), 3201);
    words.set32(3201, 1);                      // job
    words.set32(3205, 1);                      // line
    words.set32(3209, 1);                      // reel
    words.set16(3213, DemoLine::channelCount); // traces an ensemble
    words.set16(3217, DemoShot::intervalUs);
    words.set16(3219, DemoShot::intervalUs);
    words.set16(3221, DemoShot::sampleCount);
    words.set16(3223, DemoShot::sampleCount);
    words.set16(3225, 5);                          // IEEE float
    words.set16(3227, DemoLine::channelCount / 4); // fold
    words.set16(3229, 1);                          // as recorded
    words.set16(3255, 1);                          // metres
    words.set16(3501, 0x0100);                     // revision 1.0
    words.set16(3503, 1);                          // all traces of one length
    return {header.data(), size};
}

double easting(double position)
{
    return 452000.0 + 0.8 * position;
}

double northing(double position)
{
    return 4182000.0 + 0.6 * position;
}

void setIdentity(int shot, int channel, Words* words)
{
    const int station = DemoLine::firstStation(shot) + channel;
    const int trace = shot * DemoLine::channelCount + channel + 1;
    words->set32(1, trace);
    words->set32(5, trace);
    words->set32(9, DemoSegy::firstFieldRecord + shot);
    words->set32(13, channel + 1);
    words->set32(17, shot + 1);
    words->set32(21, 2 * shot + 1 + station); // midpoints lie half a station apart
    words->set16(29, DemoLine::isDead(station) ? 2 : 1);
    words->set16(31, 1);
    words->set16(33, 1);
    words->set16(35, 1);
}

void setGeometry(const DemoLine& line, int source, int receiver, Words* words)
{
    words->set32(37, receiver - source);
    words->setCentimetres(41, line.elevation(receiver));
    words->setCentimetres(45, line.elevation(source));
    words->set16(69, centimetres);
    words->set16(71, centimetres);
    words->setCentimetres(73, easting(source));
    words->setCentimetres(77, northing(source));
    words->setCentimetres(81, easting(receiver));
    words->setCentimetres(85, northing(receiver));
    words->set16(89, 1);
    words->set16(91, static_cast<int>(DemoLine::weatheringVelocity));
    words->set16(93, static_cast<int>(DemoLine::firstVelocity));
    words->setCentimetres(181, easting(0.5 * (source + receiver)));
    words->setCentimetres(185, northing(0.5 * (source + receiver)));
}

void setRecording(Words* words)
{
    words->set16(109, DemoShot::delayMs);
    words->set16(115, DemoShot::sampleCount);
    words->set16(117, DemoShot::intervalUs);
}

} // namespace

QByteArray DemoSegy::fileHeaders(int shots)
{
    return textHeader(shots) + binaryHeader();
}

QByteArray DemoSegy::traces(const DemoLine& line, int shot)
{
    const std::vector<float> samples = DemoShot::record(line, shot);
    constexpr int traceSize = traceHeaderSize + DemoShot::sampleCount * int(sizeof(float));
    QByteArray bytes;
    bytes.reserve(traceSize * DemoLine::channelCount);
    std::array<char, traceSize> trace;
    const float* sample = samples.data();
    for (int channel = 0; channel < DemoLine::channelCount; ++channel) {
        trace.fill('\0');
        Words words(trace.data());
        const int station = DemoLine::firstStation(shot) + channel;
        setIdentity(shot, channel, &words);
        setGeometry(line, DemoLine::shotPosition(shot), DemoLine::stationPosition(station), &words);
        setRecording(&words);
        char* sampleBytes = trace.data() + traceHeaderSize;
        for (int i = 0; i < DemoShot::sampleCount; ++i) {
            quint32 bits = 0;
            std::memcpy(&bits, sample++, sizeof bits);
            qToBigEndian(bits, sampleBytes + i * std::ptrdiff_t(sizeof bits));
        }
        bytes.append(trace.data(), traceSize);
    }
    return bytes;
}
