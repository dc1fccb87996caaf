#pragma once

#include <QtGlobal>

#include <vector>

/// Field record and channel of many traces: which occur twice and which are missing. Eight bytes a
/// trace. Fill by add(), then sort() once, then ask.
class OvSegyTraceKeys
{
public:
    struct Duplicates
    {
        qint64 count = 0; ///< traces that repeat the key of another
        qint32 record = 0;
        qint32 channel = 0; ///< the smallest key that occurs twice
    };
    struct MissingChannels
    {
        qint64 records = 0; ///< field records with a hole between their first and last channel
        qint32 record = 0;
        qint32 channel = 0; ///< the first channel missing in the first of them
    };
    struct MissingRecords
    {
        qint64 count = 0;
        qint32 first = 0; ///< the first number that is missing
        qint32 from = 0;  ///< smallest and largest number that is there
        qint32 to = 0;
    };

    void add(qint32 record, qint32 channel);
    void sort();

    Duplicates duplicates() const;
    /// Nothing where the records hold one trace each.
    MissingChannels missingChannels() const;
    /// Against the usual distance between neighbours: 10, 20, 40 lacks 30.
    MissingRecords missingRecords() const;

private:
    static qint32 recordOf(quint64 key);
    static qint32 channelOf(quint64 key);
    std::vector<qint32> records() const;

    std::vector<quint64> m_keys;
};
