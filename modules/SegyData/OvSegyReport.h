#pragma once

#include "OvGui/document/OvSegyDocument.h"
#include "OvSeismic/segy/OvHeaderSurvey.h"
#include "OvSeismic/segy/OvSegyDoctor.h"

#include <QCoreApplication>
#include <QList>
#include <QPair>

/// What is known of a SEG-Y file, in words of the present language.
class OvSegyReport
{
    Q_DECLARE_TR_FUNCTIONS(OvSegyReport)

public:
    using Fact = QPair<QString, QString>;

    explicit OvSegyReport(QSharedPointer<OvSegyDocument> document)
        : m_document(std::move(document))
    {
    }

    void setFindings(std::vector<OvSegyFinding> findings) { m_findings = std::move(findings); }
    void setSurvey(const OvHeaderSurvey& survey, const OvTraceHeaderMapping& mapping);

    /// Name and value, the name with a colon.
    QList<Fact> facts() const;
    /// What the examination found, and what the index has to say, worst first.
    std::vector<OvSegyFinding> findings() const;
    /// How many of them are more than a description.
    int remarkCount() const;
    static QString severityName(OvSegyFinding::Severity severity);
    /// "trace 12, bytes 3225 to 3226"; empty for the file as a whole.
    static QString placeOf(const OvSegyFinding& finding);
    /// All of it as plain text with line ends.
    QString text() const;

private:
    QList<Fact> fileFacts() const;
    QList<Fact> traceFacts() const;
    QList<Fact> geometryFacts() const;
    QString offsetRange() const;
    QStringList findingLines() const;
    QStringList wordLines() const;

    QSharedPointer<OvSegyDocument> m_document;
    std::vector<OvSegyFinding> m_findings;
    OvHeaderSurvey m_survey;
    OvTraceHeaderMapping m_mapping;
};
