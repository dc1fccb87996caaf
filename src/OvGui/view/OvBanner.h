#pragma once

#include <QFrame>

class OvElidedLabel;
class QLabel;
class QToolButton;

/// A slim strip over a view that says what the user should know of the data: a sentence, what can
/// be done, and a cross that puts it away. Hidden while there is nothing to say.
class OvBanner : public QFrame
{
    Q_OBJECT

public:
    explicit OvBanner(QWidget* parent = nullptr);

    /// Plain text; an empty one hides the strip. A text that was put away comes back only when it
    /// has been another one meanwhile. reloadable offers to read the file anew, details to tell
    /// more.
    void setNotice(const QString& text, bool reloadable);
    void retranslate();

signals:
    void reloadChosen();
    void detailsChosen();

protected:
    void changeEvent(QEvent* event) override;

private:
    QToolButton* makeButton(const QString& name);
    void putAway();
    void takeColors();

    QString m_text;
    QString m_putAway;
    QLabel* m_icon;
    OvElidedLabel* m_label;
    QToolButton* m_reload;
    QToolButton* m_details;
    QToolButton* m_close;
};
