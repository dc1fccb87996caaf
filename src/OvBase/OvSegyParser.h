#pragma once

#include "OvBase/OvBaseExport.h"
#include "OvSeismic/OvStatus.h"

#include <QObject>

#include <memory>

/// The file headers of one SEG-Y file, as numbers for display. Reads once, when constructed.
class OVBASE_EXPORT OvSegyParser : public QObject
{
    Q_OBJECT

public:
    explicit OvSegyParser(const QString& fileName, QObject* parent = nullptr);
    ~OvSegyParser() override;

    /// Why the file could not be read; success otherwise. The values are 0 on failure.
    OvStatus status() const;
    qint16 traceLength() const; ///< samples a trace
    qint16 sampleRate() const;  ///< sample interval, microseconds
    qint16 formatCode() const;
    qint32 totalTraces() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
