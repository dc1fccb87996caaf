#pragma once

#include <QWidget>

class OvFieldRecordBox;
class QLabel;
class QSlider;
class QSpinBox;
class QToolButton;

/// The strip under a gather: paging, field record, zoom, and what lies under the mouse.
class OvPagingBar : public QWidget
{
    Q_OBJECT

public:
    explicit OvPagingBar(QWidget* parent = nullptr);

    /// gather counts from 0. Emits nothing.
    void setGather(int gather, int count, qint32 fieldRecord);
    /// Offers to read the headers (again).
    void setIndexOffered(bool offered);
    void setReadout(const QString& text);
    void retranslate();

signals:
    void gatherChosen(int gather);
    void fieldRecordChosen(int fieldRecord);
    void zoomInChosen();
    void zoomOutChosen();
    void fitChosen();
    void indexChosen();

private:
    void makeWidgets();
    void arrange();
    void connectWidgets();
    QToolButton* makeButton(const QString& name);

    int m_gather = 0;
    int m_count = 0;
    qint32 m_fieldRecord = 0;
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
