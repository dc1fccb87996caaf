#include "OvTarnpick/utility/OvSensitivityEditor.h"

#include "ui_OvSensitivityEditor.h"

#include <QEvent>
#include <QSettings>

namespace {

QString settingsKey()
{
    return QStringLiteral("Sensitivity");
}

} // namespace

class OvSensitivityEditorPrivate
{
public:
    explicit OvSensitivityEditorPrivate(OvSensitivityEditor* editor);
    ~OvSensitivityEditorPrivate();

    OvSensitivityEditor* q;
    Ui::OvSensitivityEditor ui;
};

OvSensitivityEditorPrivate::OvSensitivityEditorPrivate(OvSensitivityEditor* editor)
    : q(editor)
{
    ui.setupUi(q);
    QObject::connect(ui.sensitivity, QOverload<int>::of(&QSpinBox::valueChanged), q,
                     &OvSensitivityEditor::valueChanged);
}

OvSensitivityEditorPrivate::~OvSensitivityEditorPrivate()
{
    QSettings().setValue(settingsKey(), ui.sensitivity->value());
}

OvSensitivityEditor::OvSensitivityEditor(QWidget* parent)
    : OvAbstractGadget(parent)
    , d(new OvSensitivityEditorPrivate(this))
{
    // No default on purpose: a first run starts at 0 ms, not at the form's value.
    setValue(QSettings().value(settingsKey()).toInt());
}

OvSensitivityEditor::~OvSensitivityEditor() = default;

int OvSensitivityEditor::value() const
{
    return d->ui.sensitivity->value();
}

void OvSensitivityEditor::setValue(int value)
{
    d->ui.sensitivity->setValue(value);
}

void OvSensitivityEditor::notifyValue()
{
    emit valueChanged(value());
}

void OvSensitivityEditor::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        d->ui.retranslateUi(this);
    OvAbstractGadget::changeEvent(event);
}
