#include "PickCommand.h"

#include "OvSeismic/firstbreak/OvFirstBreakText.h"
#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "OvSeismic/picking/OvPickRun.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

#include <cmath>
#include <map>
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
    OvStatus execute();
    OvStatus pickAll();
    QString report() const;

    QString m_input;
    QString m_output;
    OvPickParameters m_parameters;
    int m_threads = 0;
    OvSegyFile m_file;
    OvSegyIndex m_index;
    std::map<int, OvFirstBreaks> m_breaks; // by gather
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
        {QStringLiteral("threads"), tr("Threads that pick; one a core without it."),
         QStringLiteral("N")},
    });
    parser->addPositionalArgument(QStringLiteral("pick"), summary(), QStringLiteral("pick"));
    parser->addPositionalArgument(QStringLiteral("FILE"), tr("The SEG-Y file."));
}

OvStatus Pick::setParameter(const QString& assignment)
{
    const int equals = assignment.indexOf(QLatin1Char('='));
    if (equals < 0)
        return OvStatus::failure(tr("--param %1 is not of the form name=value.").arg(assignment));
    return m_parameters.set(assignment.left(equals), assignment.mid(equals + 1));
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

OvStatus Pick::configure(const QCommandLineParser& parser)
{
    if (parser.positionalArguments().size() != 2)
        return OvStatus::failure(tr("Exactly one file is needed."));
    m_input = parser.positionalArguments().at(1);
    m_output = parser.value(QStringLiteral("out"));
    if (m_output.isEmpty())
        return OvStatus::failure(tr("--out is missing: the table needs a name."));
    const QString input = QFileInfo(m_input).canonicalFilePath();
    if (!input.isEmpty() && input == QFileInfo(m_output).canonicalFilePath())
        return OvStatus::failure(tr("--out names the SEG-Y file itself."));
    const QStringList assignments = parser.values(QStringLiteral("param"));
    for (const QString& assignment : assignments) {
        OvStatus status = setParameter(assignment);
        if (!status)
            return status;
    }
    const QString threads = parser.value(QStringLiteral("threads"));
    OvStatus status = threads.isNull() ? OvStatus::success() : setThreads(threads);
    return status ? m_parameters.validate() : status;
}

OvStatus Pick::pickAll()
{
    OvPickRun::Request request;
    request.file = &m_file;
    request.index = &m_index;
    request.settings.parameters = m_parameters;
    request.threads = m_threads;
    const auto keep = [this](const OvGather& gather, const OvPickResult& result) {
        m_breaks[gather.ordinal] = breaksOf(result);
        return OvStatus::success();
    };
    return OvPickRun::run(request, keep, {}, nullptr);
}

OvStatus Pick::execute()
{
    OvStatus status = m_file.open(m_input);
    if (status)
        status = m_index.build(m_file);
    if (status)
        status = pickAll();
    if (!status)
        return status;
    const auto find = [this](int gather, OvFirstBreaks* breaks) {
        const auto found = m_breaks.find(gather);
        if (found != m_breaks.end())
            *breaks = found->second;
        return OvStatus::success();
    };
    return OvFirstBreakText::exportCsv(m_file, m_index, find, m_output);
}

QString Pick::report() const
{
    qint64 picked = 0;
    for (const auto& entry : m_breaks)
        picked += entry.second.pickedCount();
    return tr("Picked %1 of %2 traces in %3 of %4 gathers.\n")
        .arg(picked)
        .arg(m_index.traceCount())
        .arg(m_breaks.size())
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
