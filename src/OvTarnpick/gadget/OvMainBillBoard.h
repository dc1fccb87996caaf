#pragma once

#include <QScopedPointer>
#include <QWidget>

class OvMainBillBoardPrivate;

/// Shows the two data files of the active view: the SEG-Y file and the first-break file. GUI
/// thread.
class OvMainBillBoard : public QWidget
{
    Q_OBJECT

public:
    explicit OvMainBillBoard(QWidget* parent = nullptr);
    ~OvMainBillBoard() override;

    QString segyFile() const;
    void setSegyFile(const QString& fileName);
    QString fbFile() const;
    /// Also disables the field for an empty name and enables it for any other.
    void setFbFile(const QString& fileName);
    /// Empties both fields; their enabled state stays.
    void clear();

protected:
    void changeEvent(QEvent* event) override;

private:
    QScopedPointer<OvMainBillBoardPrivate> d;
};
