#include "InfoCommand.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "OvSeismic/segy/OvSegySampleFormat.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace {

class Info
{
    Q_DECLARE_TR_FUNCTIONS(InfoCommand)

public:
    OvStatus read(const QString& path);
    QString text() const;
    QString json() const;

    static QString summary() { return tr("Shows what the headers of a SEG-Y file say."); }
    static int run(const QStringList& arguments);

private:
    const OvSegyFileInfo& info() const { return m_file.info(); }
    QString revision() const;
    QString offsetRange() const;
    QString coordinateScalar() const;
    QStringList warnings() const { return info().warnings + m_index.warnings(); }

    OvSegyFile m_file;
    OvSegyIndex m_index;
};

QJsonValue offsetValue(float offset)
{
    return std::isnan(offset) ? QJsonValue() : QJsonValue(static_cast<double>(offset));
}

QString line(const QString& label, const QString& value)
{
    return label.leftJustified(20) + value + QLatin1Char('\n');
}

OvStatus Info::read(const QString& path)
{
    const OvStatus status = m_file.open(path);
    return status ? m_index.build(m_file) : status;
}

QString Info::revision() const
{
    return QStringLiteral("%1.%2").arg(info().revisionMajor).arg(info().revisionMinor);
}

QString Info::offsetRange() const
{
    const float smallest = m_index.minimumOffset();
    if (std::isnan(smallest))
        return tr("unknown");
    return tr("%1 to %2 m").arg(smallest).arg(m_index.maximumOffset());
}

QString Info::coordinateScalar() const
{
    const int scalar = info().coordinateScalar;
    if (scalar == 0)
        return tr("0 (coordinates are used as they are)");
    return scalar < 0 ? tr("%1 (coordinates are divided by %2)").arg(scalar).arg(-scalar)
                      : tr("%1 (coordinates are multiplied by it)").arg(scalar);
}

QString Info::text() const
{
    const bool big = info().byteOrder == OvByteOrder::BigEndian;
    const bool ebcdic = info().textEncoding == OvTextEncoding::Ebcdic;
    QString text = line(tr("File:"), QDir::toNativeSeparators(info().path));
    text += line(tr("Size:"), tr("%1 bytes").arg(info().fileSize));
    text += line(tr("Revision:"), revision());
    text += line(tr("Byte order:"), big ? tr("big-endian") : tr("little-endian"));
    text +=
        line(tr("Textual header:"), ebcdic ? QStringLiteral("EBCDIC") : QStringLiteral("ASCII"));
    text += line(
        tr("Sample format:"),
        QStringLiteral("%1 (%2)").arg(info().formatCode).arg(ovSegyFormatName(info().formatCode)));
    text += line(tr("Samples a trace:"), QString::number(info().sampleCount));
    text += line(tr("Sample interval:"), tr("%1 µs").arg(info().intervalUs));
    text += line(tr("Traces:"), QString::number(info().traceCount));
    text += line(tr("Gathers:"), QString::number(m_index.gatherCount()));
    text += line(tr("Offsets:"), offsetRange());
    text += line(tr("Coordinate scalar:"), coordinateScalar());
    for (const QString& warning : warnings())
        text += line(tr("Warning:"), warning);
    return text;
}

QString Info::json() const
{
    QJsonObject object;
    object.insert(QStringLiteral("file"), info().path);
    object.insert(QStringLiteral("size"), info().fileSize);
    object.insert(QStringLiteral("revision"), revision());
    const bool big = info().byteOrder == OvByteOrder::BigEndian;
    object.insert(QStringLiteral("byte_order"), QLatin1String(big ? "big" : "little"));
    object.insert(QStringLiteral("format"), info().formatCode);
    object.insert(QStringLiteral("format_name"), ovSegyFormatName(info().formatCode));
    const bool ebcdic = info().textEncoding == OvTextEncoding::Ebcdic;
    object.insert(QStringLiteral("text_encoding"), QLatin1String(ebcdic ? "EBCDIC" : "ASCII"));
    object.insert(QStringLiteral("samples"), info().sampleCount);
    object.insert(QStringLiteral("interval_us"), info().intervalUs);
    object.insert(QStringLiteral("traces"), info().traceCount);
    object.insert(QStringLiteral("gathers"), m_index.gatherCount());
    object.insert(QStringLiteral("offset_min_m"), offsetValue(m_index.minimumOffset()));
    object.insert(QStringLiteral("offset_max_m"), offsetValue(m_index.maximumOffset()));
    object.insert(QStringLiteral("warnings"), QJsonArray::fromStringList(warnings()));
    return QString::fromUtf8(QJsonDocument(object).toJson());
}

int Info::run(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(summary());
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  tr("Shows this help."));
    const QCommandLineOption json(QStringLiteral("json"), tr("Writes JSON."));
    parser.addOptions({help, json});
    parser.addPositionalArgument(QStringLiteral("info"), summary(), QStringLiteral("info"));
    parser.addPositionalArgument(QStringLiteral("FILE"), tr("The SEG-Y file."));
    const bool parsed = parser.parse(QStringList(QString()) << QStringLiteral("info") << arguments);
    if (parsed && parser.isSet(help)) {
        printOut(parser.helpText());
        return ExitDone;
    }
    if (!parsed || parser.positionalArguments().size() != 2) {
        printError((parsed ? tr("Exactly one file is needed.") : parser.errorText()) +
                   QLatin1String("\n\n") + parser.helpText());
        return ExitWrongArguments;
    }
    Info info;
    const OvStatus status = info.read(parser.positionalArguments().at(1));
    if (!status) {
        printError(status.message() + QLatin1Char('\n'));
        return ExitFailed;
    }
    printOut(parser.isSet(json) ? info.json() : info.text());
    return ExitDone;
}

} // namespace

Command InfoCommand::command()
{
    return {"info", &Info::summary, &Info::run};
}
