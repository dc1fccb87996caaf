#pragma once

#include "OvGui/document/OvBackground.h"
#include "OvGui/document/OvGatherCache.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <QObject>
#include <QSet>
#include <QString>
#include <QVector>

#include <memory>

/// Reads the gathers of one file in worker threads, the one asked for last first, and keeps the
/// last used. GUI thread.
class OvGatherReader : public QObject
{
    Q_OBJECT

public:
    explicit OvGatherReader(std::shared_ptr<const OvSegyFile> file, QObject* parent = nullptr);

    /// From now on gathers are read by this index; what was read by another one is forgotten, and
    /// read again where somebody waits for it.
    void setIndex(std::shared_ptr<const OvSegyIndex> index);
    /// loaded() answers once, whether or not the gather is asked for again meanwhile.
    void request(int gather);
    std::shared_ptr<const OvGather> cached(int gather);

signals:
    void loaded(int gather, std::shared_ptr<const OvGather> data, const QString& message);

private:
    using Index = std::shared_ptr<const OvSegyIndex>;
    /// Why a gather cannot be read; empty when it can.
    QString refusal(int gather) const;
    void answer(int gather, const std::shared_ptr<const OvGather>& data, const QString& message);
    void startReads();
    void read(int gather);
    void take(int gather, const Index& index, const std::shared_ptr<const OvGather>& data,
              const QString& message);

    std::shared_ptr<const OvSegyFile> m_file;
    Index m_index;
    OvGatherCache m_cache;
    QVector<int> m_waiting; // asked for last at the end
    QSet<int> m_reading;
    OvBackground m_background;
};
