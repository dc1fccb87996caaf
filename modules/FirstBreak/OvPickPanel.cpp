#include "OvPickPanel.h"

OvPickParameters OvPickPanel::parametersOf(const OvPickFBDefine& define)
{
    OvPickParameters parameters;
    parameters.polarity = define.positivePolarity ? OvPickParameters::Polarity::Positive
                                                  : OvPickParameters::Polarity::Negative;
    parameters.processingLengthMs = define.processingLengthMs;
    parameters.quickSearchWindowMs = define.quickSearchWindowMs;
    parameters.tuningSearchWindowMs = define.tuningSearchWindowMs;
    parameters.minimumOffsetM = define.minimumOffsetM;
    parameters.maximumOffsetM = define.maximumOffsetM;
    parameters.amplitudeThreshold = define.amplitudeThreshold;
    parameters.snrThreshold = define.snrThreshold;
    parameters.totalShots = define.totalShots;
    parameters.shotIncrement = define.shotIncrement;
    return parameters;
}

OvPickFBDefine OvPickPanel::defineOf(const OvPickParameters& parameters)
{
    OvPickFBDefine define;
    define.positivePolarity = parameters.polarity == OvPickParameters::Polarity::Positive;
    define.processingLengthMs = parameters.processingLengthMs;
    define.quickSearchWindowMs = parameters.quickSearchWindowMs;
    define.tuningSearchWindowMs = parameters.tuningSearchWindowMs;
    define.minimumOffsetM = parameters.minimumOffsetM;
    define.maximumOffsetM = parameters.maximumOffsetM;
    define.amplitudeThreshold = parameters.amplitudeThreshold;
    define.snrThreshold = parameters.snrThreshold;
    define.totalShots = parameters.totalShots;
    define.shotIncrement = parameters.shotIncrement;
    return define;
}

QString OvPickPanel::fieldOf(const QString& parameter)
{
    static const QStringList fields = {QStringLiteral("polarity_2"), QStringLiteral("sbProl"),
                                       QStringLiteral("sbQwin"),     QStringLiteral("sbBwin"),
                                       QStringLiteral("sbMinOff"),   QStringLiteral("sbMaxOff"),
                                       QStringLiteral("dbFBAmp"),    QStringLiteral("dbSNR"),
                                       QStringLiteral("sbShots"),    QStringLiteral("sbShotStep")};
    return fields.value(OvPickParameters::names().indexOf(parameter));
}
