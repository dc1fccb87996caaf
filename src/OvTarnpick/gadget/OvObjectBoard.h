#pragma once

#include <QScopedPointer>
#include <QWidget>

class OvObjectBoardPrivate;

/// One caption and one value side by side, for example the name of the selected object. GUI thread.
class OvObjectBoard : public QWidget
{
    Q_OBJECT

public:
    explicit OvObjectBoard(const QString& caption, QWidget* parent = nullptr);
    ~OvObjectBoard() override;

    /// Both setters do nothing when the text is the stored one; else they refresh both labels.
    void setCaption(const QString& caption);
    void setValue(const QString& value);
    const QString& value() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    QScopedPointer<OvObjectBoardPrivate> d;
};
