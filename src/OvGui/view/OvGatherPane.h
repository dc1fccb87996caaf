#pragma once

#include "OvGui/document/OvGatherSource.h"

#include <QObject>
#include <QTimer>

#include <unordered_map>

class OvGatherCanvas;

/// Keeps a canvas showing one gather of a document: loads, prefetches the neighbours, follows the
/// first breaks, and says on the canvas what is going on. GUI thread.
class OvGatherPane : public QObject
{
    Q_OBJECT

public:
    /// document may be null; canvas is the parent.
    OvGatherPane(QSharedPointer<OvSegyDocument> document, OvGatherCanvas* canvas);
    ~OvGatherPane() override;

    QSharedPointer<OvSegyDocument> document() const { return m_document; }
    /// Null without a document.
    OvGatherSource* source() const { return m_source; }
    int currentGather() const { return m_current; }
    int gatherCount() const;
    /// "Field record 12", "Common offset 25 - 50 m": the key of the current gather.
    QString gatherName() const { return nameOf(m_current); }
    /// Goes to the gather that a trace of the file is in.
    void showTrace(qint64 trace);
    /// Keeps the trace in view that came first before.
    void setOrder(const OvGatherOrder& order);
    /// Bounded to the gathers there are.
    void setCurrentGather(int gather);
    /// Shows proposed picks whenever one of their traces is on the canvas; empty ones end it.
    void setPreviewPicks(const std::vector<qint64>& traces, const OvFirstBreaks& breaks);
    /// Whether the canvas has the current gather, painted or not.
    bool isOnCanvas() const;
    /// Whether the current gather stands on the screen.
    bool isShowing() const;
    void retranslate();

signals:
    void currentGatherChanged(int gather);
    void gatherCountChanged();
    void gatherShown(int gather);
    /// The answer of isShowing() may be another one.
    void showingChanged();
    /// A line for the status bar.
    void info(const QString& text);

private:
    void connectDocument();
    void load();
    void takeLoaded(int gather, const std::shared_ptr<const OvGather>& data,
                    const QString& message);
    void show(const std::shared_ptr<const OvGather>& data);
    void takeIndex();
    bool isSame(const OvGather& shown) const;
    QString nameOf(int gather) const;
    void prefetch();
    /// Says once that the first breaks cannot be used, if so.
    void reportFirstBreaks();
    void updateBreaks();
    OvFirstBreaks previewPicks() const;
    void updateTitle();
    void updateMessage();
    QString message() const;
    QString indexingMessage() const;

    QSharedPointer<OvSegyDocument> m_document;
    OvGatherCanvas* m_canvas;
    OvGatherSource* m_source = nullptr;
    int m_current = 0;
    int m_onCanvas = -1;
    OvGatherOrder m_shownOrder; // of what is on the canvas
    OvTraceHeaderMapping m_shownMapping;
    std::shared_ptr<const OvSegyFile> m_shownFile;
    int m_requested = -1;
    qint64 m_anchor = -1; // the trace to go to once its gather is known
    OvFirstBreaks m_preview;
    std::unordered_map<qint64, int> m_previewRows; // of each trace in m_preview
    bool m_painted = false;
    bool m_firstBreaksReported = false;
    QString m_error;   // why the current gather cannot be shown
    QTimer m_patience; // what is over sooner is not worth a message
    QString m_lastInfo;
};
