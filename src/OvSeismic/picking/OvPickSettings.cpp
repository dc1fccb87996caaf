#include "OvSeismic/picking/OvPickSettings.h"

#include <QCoreApplication>

namespace {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(OvPickSettings)
};

OvStatus unknownPhase(const QString& value)
{
    return OvStatus::failure(
        Texts::tr("phase is \"%1\"; it must be one of: %2.")
            .arg(value, OvPickSettings::phaseNames().join(QStringLiteral(", "))));
}

} // namespace

QStringList OvPickSettings::phaseNames()
{
    return {QStringLiteral("onset"), QStringLiteral("peak"), QStringLiteral("trough"),
            QStringLiteral("zero-crossing")};
}

OvStatus OvPickSettings::setPhase(const QString& name)
{
    const int index = phaseNames().indexOf(name.trimmed().toLower());
    if (index < 0)
        return unknownPhase(name);
    phase = static_cast<OvPickPhase>(index);
    return OvStatus::success();
}

OvStatus OvPickSettings::validate() const
{
    OvStatus status = parameters.validate();
    if (!status)
        return status;
    const int index = static_cast<int>(phase);
    if (index < 0 || index >= phaseNames().size())
        return unknownPhase(QString::number(index));
    // Written so that NaN is outside.
    if (!(minimumConfidence >= 0.0 && minimumConfidence <= 1.0))
        return OvStatus::failure(Texts::tr("min_confidence is \"%1\"; it must be a number from 0 "
                                           "to 1.")
                                     .arg(minimumConfidence));
    return OvStatus::success();
}
