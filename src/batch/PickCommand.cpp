#include "PickCommand.h"

#include "GuideFile.h"
#include "Interrupt.h"
#include "ProgressLine.h"

#include "OvSeismic/firstbreak/OvFirstBreakText.h"
#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "OvSeismic/picking/OvPickDefine.h"
#include "OvSeismic/picking/OvPickRun.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cmath>
#include <new>

namespace {

class Pick
{
    Q_DECLARE_TR_FUNCTIONS(PickCommand)

public:
    static QString summary() { return tr("Picks the first breaks of a SEG-Y file into a table."); }
    static int run(const QStringList& arguments);

private:
    static void describe(QCommandLineParser* parser);
    OvStatus configure(const QCommandLineParser& parser);
    OvStatus setParameter(const QString& assignment);
    OvStatus setThreads(const QString& text);
    OvStatus setReal(const QCommandLineParser& parser, const QString& name, double* value);
    OvStatus setGuide(const QCommandLineParser& parser);
    OvStatus setPlaces(const QCommandLineParser& parser);
    OvStatus setParameters(const QCommandLineParser& parser);
    OvStatus execute();
    OvStatus prepare();
    OvStatus pickAll(OvFirstBreakTextWriter* table);
    OvStatus interrupted() const;
    QString report() const;

    QString m_input;
    QString m_output;
    QString m_guide; // a file
    OvPickDefine m_define;
    OvPickSettings m_settings;
    int m_threads = 0;
    bool m_progress = false;
    OvSegyFile m_file;
    OvSegyIndex m_index;
    int m_gathers = 0;
    qint64 m_picks = 0;
};

OvFirstBreaks breaksOf(const OvPickResult& result)
{
    OvFirstBreaks breaks;
    breaks.timesMs = result.timesMs;
    breaks.confidences = result.confidences;
    for (const float time : result.timesMs)
        breaks.states.push_back(std::isnan(time) ? OvPickState::None : OvPickState::Automatic);
    return breaks;
}

void Pick::describe(QCommandLineParser* parser)
{
    parser->setApplicationDescription(summary());
    parser->addOptions({
        {{QStringLiteral("h"), QStringLiteral("help")}, tr("Shows this help.")},
        {QStringLiteral("out"), tr("The table that is written."), QStringLiteral("OUT.csv")},
        {QStringLiteral("param"),
         tr("Sets a picking parameter; may be given again: %1.")
             .arg(OvPickParameters::names().join(QStringLiteral(", "))),
         QStringLiteral("name=value")},
        {QStringLiteral("phase"),
         tr("The point of the first arrival that is picked: %1.")
             .arg(OvPickSettings::phaseNames().join(QStringLiteral(", "))),
         QStringLiteral("PHASE")},
        {QStringLiteral("min-confidence"),
         tr("Leaves out picks that are less likely right, 0 to 1; %1 without it.")
             .arg(OvPickSettings::defaultConfidence),
         QStringLiteral("N")},
        {QStringLiteral("guide"),
         tr("Picks to be guided by: a first-break file (.fb) of FILE or its text export."),
         QStringLiteral("PICKS")},
        {QStringLiteral("velocity"), tr("Guide: velocity of the first arrival, m/s."),
         QStringLiteral("V")},
        {QStringLiteral("intercept"), tr("Guide: its time at offset 0, ms; 0 without it."),
         QStringLiteral("T")},
        {QStringLiteral("threads"), tr("Threads that pick; one a core without it."),
         QStringLiteral("N")},
        {QStringLiteral("progress"),
         tr("Tells on the error output how far it is, also where that is no terminal.")},
    });
    parser->addPositionalArgument(QStringLiteral("pick"), summary(), QStringLiteral("pick"));
    parser->addPositionalArgument(QStringLiteral("FILE"), tr("The SEG-Y file."));
}

OvStatus Pick::setParameter(const QString& assignment)
{
    const int equals = assignment.indexOf(QLatin1Char('='));
    if (equals < 0)
        return OvStatus::failure(tr("--param %1 is not of the form name=value.").arg(assignment));
    return m_define.parameters.set(assignment.left(equals), assignment.mid(equals + 1));
}

OvStatus Pick::setThreads(const QString& text)
{
    constexpr int mostThreads = 1024;
    bool ok = false;
    m_threads = text.toInt(&ok);
    if (ok && m_threads >= 1 && m_threads <= mostThreads)
        return OvStatus::success();
    return OvStatus::failure(tr("--threads is \"%1\"; it must be a number from 1 to %2.")
                                 .arg(text, QString::number(mostThreads)));
}

OvStatus Pick::setReal(const QCommandLineParser& parser, const QString& name, double* value)
{
    if (!parser.isSet(name))
        return OvStatus::success();
    bool ok = false;
    *value = parser.value(name).toDouble(&ok);
    if (ok)
        return OvStatus::success();
    return OvStatus::failure(
        tr("--%1 is \"%2\"; it must be a number.").arg(name, parser.value(name)));
}

OvStatus Pick::setGuide(const QCommandLineParser& parser)
{
    const QString velocity = QStringLiteral("velocity");
    const QString intercept = QStringLiteral("intercept");
    m_guide = parser.value(QStringLiteral("guide"));
    if (!m_guide.isEmpty() && parser.isSet(velocity))
        return OvStatus::failure(tr("--guide and --velocity are two guides; give one of them."));
    if (parser.isSet(intercept) && !parser.isSet(velocity))
        return OvStatus::failure(tr("--intercept needs --velocity."));
    if (parser.isSet(velocity))
        m_define.guide = OvPickDefine::Guide::Velocity;
    OvStatus status = setReal(parser, velocity, &m_define.velocity);
    return status ? setReal(parser, intercept, &m_define.interceptMs) : status;
}

OvStatus Pick::setPlaces(const QCommandLineParser& parser)
{
    if (parser.positionalArguments().size() != 2)
        return OvStatus::failure(tr("Exactly one file is needed."));
    m_input = parser.positionalArguments().at(1);
    m_output = parser.value(QStringLiteral("out"));
    if (m_output.isEmpty())
        return OvStatus::failure(tr("--out is missing: the table needs a name."));
    const QString output = QFileInfo(m_output).canonicalFilePath();
    if (!output.isEmpty() && output == QFileInfo(m_input).canonicalFilePath())
        return OvStatus::failure(tr("--out names the SEG-Y file itself."));
    if (!output.isEmpty() &&
        output == QFileInfo(parser.value(QStringLiteral("guide"))).canonicalFilePath())
        return OvStatus::failure(tr("--out names the guide itself."));
    return OvStatus::success();
}

OvStatus Pick::setParameters(const QCommandLineParser& parser)
{
    OvStatus status;
    const QStringList assignments = parser.values(QStringLiteral("param"));
    for (const QString& assignment : assignments) {
        if (status)
            status = setParameter(assignment);
    }
    const QString phase = QStringLiteral("phase");
    if (status && parser.isSet(phase)) {
        OvPickSettings settings;
        status = settings.setPhase(parser.value(phase));
        m_define.phase = settings.phase;
    }
    if (status)
        status = setReal(parser, QStringLiteral("min-confidence"), &m_define.minimumConfidence);
    return status;
}

OvStatus Pick::configure(const QCommandLineParser& parser)
{
    OvStatus status = setPlaces(parser);
    if (status)
        status = setParameters(parser);
    if (status)
        status = setGuide(parser);
    const QString threads = parser.value(QStringLiteral("threads"));
    if (status && !threads.isNull())
        status = setThreads(threads);
    m_progress = parser.isSet(QStringLiteral("progress"));
    return status ? m_define.validate() : status;
}

OvStatus Pick::interrupted() const
{
    return OvStatus::failure(
        tr("Interrupted; %1 was left as it was.").arg(QDir::toNativeSeparators(m_output)));
}

OvStatus Pick::prepare()
{
    OvStatus status = m_file.open(m_input);
    if (status)
        status = m_index.build(m_file, [](qint64, qint64) { return !*Interrupt::flag(); });
    m_settings = m_define.settings();
    if (status && !m_guide.isEmpty())
        status = GuideFile::learn(m_guide, m_file, m_index, &m_settings.prior);
    return *Interrupt::flag() ? interrupted() : status;
}

OvStatus Pick::pickAll(OvFirstBreakTextWriter* table)
{
    OvPickRun::Request request;
    request.file = &m_file;
    request.index = &m_index;
    request.settings = m_settings;
    request.threads = m_threads;
    const auto keep = [this, table](const OvGather& gather, const OvPickResult& result) {
        const OvFirstBreaks breaks = breaksOf(result);
        ++m_gathers;
        m_picks += breaks.pickedCount();
        return table->add(gather.ordinal, breaks);
    };
    ProgressLine line(m_progress);
    const auto progress = [&line](int done, int total) { line.show(done, total); };
    return OvPickRun::run(request, keep, progress, Interrupt::flag());
}

OvStatus Pick::execute()
{
    const Interrupt interrupt;
    OvStatus status = prepare();
    if (!status)
        return status;
    OvFirstBreakTextWriter table(m_file, m_index);
    status = table.open(m_output);
    if (status)
        status = pickAll(&table);
    if (status && !*Interrupt::flag())
        status = table.finish([] { return !*Interrupt::flag(); });
    return *Interrupt::flag() ? interrupted() : status;
}

QString Pick::report() const
{
    return tr("Picked %1 of %2 traces in %3 of %4 gathers.\n")
        .arg(m_picks)
        .arg(m_index.traceCount())
        .arg(m_gathers)
        .arg(m_index.gatherCount());
}

int Pick::run(const QStringList& arguments)
{
    QCommandLineParser parser;
    describe(&parser);
    const bool parsed = parser.parse(QStringList(QString()) << QStringLiteral("pick") << arguments);
    if (parsed && parser.isSet(QStringLiteral("help"))) {
        printOut(parser.helpText());
        return ExitDone;
    }
    Pick pick;
    const OvStatus configured =
        parsed ? pick.configure(parser) : OvStatus::failure(parser.errorText());
    if (!configured) {
        printError(configured.message() + QLatin1String("\n\n") + parser.helpText());
        return ExitWrongArguments;
    }
    OvStatus status;
    try {
        status = pick.execute();
    } catch (const std::bad_alloc&) {
        status = OvStatus::failure(tr("%1: there is not enough memory.").arg(pick.m_input));
    }
    if (!status) {
        printError(status.message() + QLatin1Char('\n'));
        return ExitFailed;
    }
    printOut(pick.report());
    return ExitDone;
}

} // namespace

Command PickCommand::command()
{
    return {"pick", &Pick::summary, &Pick::run};
}
