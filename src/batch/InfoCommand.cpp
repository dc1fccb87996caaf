#include "InfoCommand.h"

#include "OvSeismic/segy/OvSegyDoctor.h"
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
    OvStatus read(const QString& path, OvSegyDoctor::Depth depth);
    QString text() const;
    QString json() const;

    static QString summary()
    {
        return tr("Shows what the headers of a SEG-Y file say and what is odd about it.");
    }
    static int run(const QStringList& arguments);

private:
    const OvSegyFileInfo& info() const { return m_file.info(); }
    QString revision() const;
    QString offsetRange() const;
    QString coordinateScalar() const;
    QString findingLines() const;
    QJsonArray findingObjects() const;
    static QString severityLabel(OvSegyFinding::Severity severity);
    QStringList warnings() const { return info().warnings + m_index.warnings(); }

    OvSegyFile m_file;
    OvSegyIndex m_index;
    std::vector<OvSegyFinding> m_findings;
};

QJsonValue offsetValue(float offset)
{
    return std::isnan(offset) ? QJsonValue() : QJsonValue(static_cast<double>(offset));
}

QString line(const QString& label, const QString& value)
{
    return label.leftJustified(20) + value + QLatin1Char('\n');
}

/// The same in every language, for programs that read them.
QString severityName(OvSegyFinding::Severity severity)
{
    if (severity == OvSegyFinding::Severity::Error)
        return QStringLiteral("error");
    return severity == OvSegyFinding::Severity::Warning ? QStringLiteral("warning")
                                                        : QStringLiteral("info");
}

QString byteOrderName(OvByteOrder order)
{
    if (order == OvByteOrder::BigEndian)
        return QStringLiteral("big");
    return order == OvByteOrder::LittleEndian ? QStringLiteral("little")
                                              : QStringLiteral("pair-swapped");
}

/// What the lines above the findings say already.
bool isTold(const OvSegyFinding& finding)
{
    static const QStringList told = {QStringLiteral("revision"), QStringLiteral("byte-order"),
                                     QStringLiteral("text"),     QStringLiteral("format"),
                                     QStringLiteral("traces"),   QStringLiteral("layout")};
    return told.contains(finding.code);
}

QJsonObject findingObject(const OvSegyFinding& finding)
{
    QJsonObject object = {{QStringLiteral("severity"), severityName(finding.severity)},
                          {QStringLiteral("code"), finding.code},
                          {QStringLiteral("text"), finding.text}};
    if (!finding.advice.isEmpty())
        object.insert(QStringLiteral("advice"), finding.advice);
    if (finding.firstByte >= 0) {
        object.insert(QStringLiteral("first_byte"), finding.firstByte);
        object.insert(QStringLiteral("last_byte"), finding.lastByte);
    }
    // Counted from 1, as in the text.
    if (finding.firstTrace >= 0)
        object.insert(QStringLiteral("first_trace"), finding.firstTrace + 1);
    if (finding.count > 0)
        object.insert(QStringLiteral("count"), finding.count);
    return object;
}

OvStatus Info::read(const QString& path, OvSegyDoctor::Depth depth)
{
    OvStatus status = m_file.open(path);
    if (status)
        status = m_index.build(m_file);
    return status ? OvSegyDoctor::examine(m_file, depth, &m_findings) : status;
}

QString Info::severityLabel(OvSegyFinding::Severity severity)
{
    if (severity == OvSegyFinding::Severity::Error)
        return tr("Error:");
    return severity == OvSegyFinding::Severity::Warning ? tr("Warning:") : tr("Note:");
}

QString Info::findingLines() const
{
    QString lines;
    for (const OvSegyFinding& finding : m_findings) {
        if (isTold(finding))
            continue;
        lines += line(severityLabel(finding.severity), finding.text);
        if (!finding.advice.isEmpty())
            lines += line(QString(), finding.advice);
    }
    return lines;
}

QJsonArray Info::findingObjects() const
{
    QJsonArray objects;
    for (const OvSegyFinding& finding : m_findings)
        objects.append(findingObject(finding));
    return objects;
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
    const bool ebcdic = info().textEncoding == OvTextEncoding::Ebcdic;
    QString text = line(tr("File:"), QDir::toNativeSeparators(info().path));
    text += line(tr("Size:"), tr("%1 bytes").arg(info().fileSize));
    text += line(tr("Revision:"), revision());
    text += line(tr("Byte order:"), ovSegyByteOrderName(info().byteOrder));
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
    const QStringList sentences = warnings();
    for (const QString& warning : sentences)
        text += line(severityLabel(OvSegyFinding::Severity::Warning), warning);
    return text + findingLines();
}

QString Info::json() const
{
    QJsonObject object;
    object.insert(QStringLiteral("file"), info().path);
    object.insert(QStringLiteral("size"), info().fileSize);
    object.insert(QStringLiteral("revision"), revision());
    object.insert(QStringLiteral("byte_order"), byteOrderName(info().byteOrder));
    object.insert(QStringLiteral("format"), info().formatCode);
    object.insert(QStringLiteral("declared_format"), info().declaredFormatCode);
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
    object.insert(QStringLiteral("findings"), findingObjects());
    return QString::fromUtf8(QJsonDocument(object).toJson());
}

int Info::run(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(summary());
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  tr("Shows this help."));
    const QCommandLineOption json(QStringLiteral("json"), tr("Writes JSON."));
    const QCommandLineOption full(QStringLiteral("full"),
                                  tr("Examines every trace, not only some of them."));
    parser.addOptions({help, full, json});
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
    const auto depth = parser.isSet(full) ? OvSegyDoctor::Depth::Full : OvSegyDoctor::Depth::Quick;
    const OvStatus status = info.read(parser.positionalArguments().at(1), depth);
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
