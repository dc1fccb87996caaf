#include "DemoSurvey.h"

#include "DemoLine.h"
#include "DemoSegy.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <functional>

namespace {

// To be raised with every change that alters a byte of the survey.
constexpr int surveyVersion = 1;

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(DemoSurvey)
};

QString segyPath(const QString& folder)
{
    return QDir(folder).filePath(QStringLiteral("demo_line.sgy"));
}

QString truthPath(const QString& folder)
{
    return QDir(folder).filePath(QStringLiteral("demo_line_truth.csv"));
}

QString stampPath(const QString& folder)
{
    return QDir(folder).filePath(QStringLiteral("demo_line_version.txt"));
}

QByteArray stamp(const QString& folder, int shots)
{
    return QStringLiteral("version %1\nshots %2\nsegy %3\ntruth %4\n")
        .arg(surveyVersion)
        .arg(shots)
        .arg(QFileInfo(segyPath(folder)).size())
        .arg(QFileInfo(truthPath(folder)).size())
        .toLatin1();
}

QByteArray truthRows(const DemoLine& line, int shot)
{
    QByteArray rows;
    for (int channel = 0; channel < DemoLine::channelCount; ++channel) {
        const int station = DemoLine::firstStation(shot) + channel;
        const bool hasBreak = !DemoLine::isMisfire(shot) && !DemoLine::isDead(station);
        const int offset = DemoLine::stationPosition(station) - DemoLine::shotPosition(shot);
        rows += QByteArray::number(shot * DemoLine::channelCount + channel) + ',' +
                QByteArray::number(DemoSegy::firstFieldRecord + shot) + ',' +
                QByteArray::number(channel + 1) + ',' + QByteArray::number(offset) + ',';
        if (hasBreak)
            rows += QByteArray::number(line.firstBreak(shot, station) * 1000.0, 'f', 3) + ",1.000";
        else
            rows += ',';
        rows += '\n';
    }
    return rows;
}

OvStatus save(const QString& path, const std::function<void(QSaveFile*)>& fill)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        fill(&file);
        if (file.commit())
            return OvStatus::success();
    }
    return OvStatus::failure(
        Texts::tr("Cannot write %1: %2").arg(QDir::toNativeSeparators(path), file.errorString()));
}

} // namespace

bool DemoSurvey::isComplete(const QString& folder, int shots)
{
    QFile file(stampPath(folder));
    return file.open(QIODevice::ReadOnly) && QFileInfo::exists(segyPath(folder)) &&
           QFileInfo::exists(truthPath(folder)) && file.readAll() == stamp(folder, shots);
}

OvStatus DemoSurvey::write(const QString& folder, int shots)
{
    if (!QDir().mkpath(folder))
        return OvStatus::failure(
            Texts::tr("Cannot make the folder %1.").arg(QDir::toNativeSeparators(folder)));
    const DemoLine line;
    OvStatus status = save(segyPath(folder), [&](QSaveFile* file) {
        file->write(DemoSegy::fileHeaders(shots));
        for (int shot = 0; shot < shots; ++shot)
            file->write(DemoSegy::traces(line, shot));
    });
    if (!status)
        return status;
    status = save(truthPath(folder), [&](QSaveFile* file) {
        file->write("trace,field_record,channel,offset_m,time_ms,confidence\n");
        for (int shot = 0; shot < shots; ++shot)
            file->write(truthRows(line, shot));
    });
    if (!status)
        return status;
    return save(stampPath(folder), [&](QSaveFile* file) { file->write(stamp(folder, shots)); });
}
