#pragma once

#include <QDialog>

namespace Ui {
class OvAboutDialog;
}

/// The logo beside a short note on the program. A click anywhere but on the text closes it.
class OvAboutDialog : public QDialog
{
    Q_OBJECT

public:
    explicit OvAboutDialog(QWidget* parent = nullptr);
    ~OvAboutDialog() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void insertWordSize();

    Ui::OvAboutDialog* ui;
};
