#pragma once

#include "OvBase/OvDialog.h"
#include "OvGui/document/OvSegyDocument.h"

#include <QPair>

class QFormLayout;
class QPlainTextEdit;
class QTabWidget;

/// What is known of one SEG-Y file: its headers at once, its geometry as soon as the index is
/// complete. Text from the file is shown without markup.
class OvSegyInfoDlg : public OvDialog
{
    Q_OBJECT

public:
    explicit OvSegyInfoDlg(const QSharedPointer<OvSegyDocument>& document,
                           QWidget* parent = nullptr);
    ~OvSegyInfoDlg() override;

    QString helpPage() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    QPlainTextEdit* makeTextView(const QString& objectName);
    QWidget* makeFactsPage();
    void connectIndex();
    void retranslate();
    QList<QPair<QString, QString>> fileFacts() const;
    QList<QPair<QString, QString>> traceFacts() const;
    QList<QPair<QString, QString>> geometryFacts() const;
    QString offsetRange() const;
    void showFacts();
    void showGeometryFailure(const QString& message);

    QSharedPointer<OvSegyDocument> m_document;
    QString m_failure;
    QFormLayout* m_facts = nullptr;
    QPlainTextEdit* m_textHeader = nullptr;
    QPlainTextEdit* m_warnings = nullptr;
    QTabWidget* m_tabs = nullptr;
};
