#pragma once

#include "OvSeismic/segy/OvGatherOrder.h"

#include <QWidget>

class OvFieldRecordBox;
class QLabel;
class QSlider;
class QSpinBox;
class QToolButton;

/// The strip under a gather: paging, the key of the gather, zoom, and what lies under the mouse.
class OvPagingBar : public QWidget
{
    Q_OBJECT

public:
    explicit OvPagingBar(QWidget* parent = nullptr);

    /// gather counts from 0; value is that of its key, NaN where that is unknown. Emits nothing.
    void setGather(int gather, int count, OvGatherKey key, double value);
    /// Offers to read the headers (again).
    void setIndexOffered(bool offered);
    void setReadout(const QString& text);
    void retranslate();

signals:
    void gatherChosen(int gather);
    /// A value of the key: field record, CDP, number of a position, offset in m.
    void keyChosen(int value);
    void zoomInChosen();
    void zoomOutChosen();
    void fitChosen();
    void indexChosen();

private:
    void makeWidgets();
    void arrange();
    void connectWidgets();
    void retranslateKey();
    QToolButton* makeButton(const QString& name);

    int m_gather = 0;
    int m_count = 0;
    OvGatherKey m_key = OvGatherKey::FieldRecord;
    QToolButton* m_previous;
    QToolButton* m_next;
    QSlider* m_slider;
    QLabel* m_gatherLabel;
    QSpinBox* m_gatherBox;
    QLabel* m_countLabel;
    QLabel* m_recordLabel;
    OvFieldRecordBox* m_recordBox;
    QToolButton* m_zoomIn;
    QToolButton* m_zoomOut;
    QToolButton* m_fit;
    QToolButton* m_index;
    QLabel* m_readout;
};
