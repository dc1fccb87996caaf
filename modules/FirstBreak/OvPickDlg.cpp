#include "OvPickDlg.h"

#include "OvPickGuideFields.h"
#include "OvPickPanel.h"

#include "OvBase/OvBaseUtil.h"
#include "OvPlugins/OvPluginUtil.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

const QString storeKey = QStringLiteral("pickParameters");

// Typing a number changes the value with every digit.
constexpr int previewDelayMs = 150;

template <typename Widget>
Widget* named(Widget* widget, const char* name)
{
    widget->setObjectName(QLatin1String(name));
    return widget;
}

} // namespace

OvPickDlg::OvPickDlg(int projectId, int gather, QWidget* parent)
    : OvDialog(parent)
    , m_projectId(projectId)
    , m_gather(gather)
{
    setObjectName(QStringLiteral("OvPickDlg"));
    makeFields();
    layOut();
    connectButtons();
    retranslate();
    showValues(savedDefine(projectId));
    connectChanges();
    followValues();
}

OvPickDlg::~OvPickDlg() = default;

OvPickDefine OvPickDlg::savedDefine(int projectId)
{
    return OvPickDefine::fromMap(OvBaseUtil::projectValue(projectId, storeKey).toMap());
}

void OvPickDlg::makeFields()
{
    m_panel = new OvPickFBDefineWidget(this);
    m_guide = new OvPickGuideFields(m_panel->grid(), this);
    m_all = named(new QRadioButton(this), "allGathers");
    m_all->setChecked(true);
    m_one = named(new QRadioButton(this), "thisGather");
    m_one->setEnabled(m_gather >= 0);
    m_keepManual = named(new QCheckBox(this), "keepManualPicks");
    m_keepManual->setChecked(true);
    m_preview = named(new QCheckBox(this), "preview");
    m_preview->setEnabled(m_gather >= 0);
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_continue = named(new QPushButton(this), "continueButton");
    m_buttons->addButton(m_continue, QDialogButtonBox::ActionRole);
    m_previewDelay.setSingleShot(true);
    m_previewDelay.setInterval(previewDelayMs);
}

void OvPickDlg::layOut()
{
    auto* scope = new QHBoxLayout;
    scope->addWidget(m_all);
    scope->addWidget(m_one);
    scope->addStretch();
    scope->addWidget(m_keepManual);
    scope->addWidget(m_preview);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_panel);
    layout->addLayout(scope);
    layout->addWidget(m_buttons);
}

void OvPickDlg::connectButtons()
{
    connect(m_buttons, &QDialogButtonBox::accepted, this, &OvPickDlg::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &OvPickDlg::reject);
    connect(m_continue, &QAbstractButton::clicked, this, [this] {
        m_resume = true;
        accept();
    });
    connect(m_panel->defaultButton(), &QAbstractButton::clicked, this,
            [this] { showValues(OvPickDefine()); });
    connect(m_panel->saveButton(), &QAbstractButton::clicked, this, &OvPickDlg::saveValues);
    connect(m_preview, &QCheckBox::toggled, this, &OvPickDlg::setPreview);
    connect(&m_previewDelay, &QTimer::timeout, this, &OvPickDlg::requestPreview);
}

void OvPickDlg::connectChanges()
{
    const auto numbers = findChildren<QSpinBox*>();
    for (const QSpinBox* box : numbers)
        connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this, &OvPickDlg::followValues);
    const auto fractions = findChildren<QDoubleSpinBox*>();
    for (const QDoubleSpinBox* box : fractions)
        connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                &OvPickDlg::followValues);
    const auto choices = findChildren<QComboBox*>();
    for (const QComboBox* box : choices)
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                &OvPickDlg::followValues);
    connect(m_all, &QAbstractButton::toggled, this, &OvPickDlg::followValues);
}

QString OvPickDlg::helpPage() const
{
    return QStringLiteral("picking.html");
}

void OvPickDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        followValues();
    }
    if (event->type() == QEvent::FontChange && m_guide)
        m_guide->fitWidths();
    OvDialog::changeEvent(event);
}

void OvPickDlg::retranslate()
{
    m_guide->retranslate();
    setWindowTitle(tr("Automatic Picking"));
    m_panel->defaultButton()->setToolTip(
        tr("Shows the default values again. Nothing is stored by that"));
    m_panel->saveButton()->setToolTip(
        tr("Keeps the values shown with the project, for the next time"));
    m_all->setText(tr("&All gathers"));
    m_all->setToolTip(tr("Picks the gathers that the number of shots and their increment choose"));
    m_one->setText(tr("&This gather"));
    m_one->setToolTip(tr("Picks the gather on the screen, and no other"));
    m_keepManual->setText(tr("&Keep manual picks"));
    m_keepManual->setToolTip(tr("Picks made or moved by hand stay as they are"));
    m_preview->setText(tr("Previe&w"));
    m_preview->setToolTip(
        tr("Shows in the view behind what these values lead to. Nothing is stored"));
    m_continue->setToolTip(tr("Goes on where the last run with these values stopped"));
    m_buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
}

void OvPickDlg::setUnfinishedRun(const OvFirstBreakRun& run, const QString& gatheringText)
{
    m_run = run;
    m_gatheringText = gatheringText;
    followValues();
}

bool OvPickDlg::canContinue() const
{
    return m_all->isChecked() && m_run.exists() && m_run.left() > 0 &&
           m_run.settings == OvPickWork::runText(define(), m_gatheringText);
}

void OvPickDlg::followValues()
{
    const bool canGoOn = canContinue();
    QPushButton* pick = m_buttons->button(QDialogButtonBox::Ok);
    pick->setText(canGoOn ? tr("&Start Over") : tr("Pick"));
    m_continue->setText(tr("&Continue (gathers left: %1)").arg(m_run.left()));
    m_continue->setVisible(canGoOn);
    (canGoOn ? m_continue : pick)->setDefault(true);
    if (m_preview->isChecked())
        m_previewDelay.start();
}

void OvPickDlg::setPreview(bool on)
{
    m_previewDelay.stop();
    if (on)
        requestPreview();
    else
        emit previewEnded();
}

void OvPickDlg::requestPreview()
{
    const OvPickDefine values = define();
    if (values.validate())
        emit previewRequested(values);
    else
        emit previewEnded();
}

OvPickDefine OvPickDlg::define() const
{
    OvPickDefine define;
    define.parameters = OvPickPanel::parametersOf(m_panel->define());
    m_guide->readValues(&define);
    return define;
}

void OvPickDlg::showValues(const OvPickDefine& define)
{
    m_panel->setDefine(OvPickPanel::defineOf(define.parameters));
    m_guide->showValues(define);
}

OvPickJob::Options OvPickDlg::options() const
{
    OvPickJob::Options options;
    options.define = define();
    options.gather = m_one->isChecked() ? m_gather : -1;
    options.keepManualPicks = m_keepManual->isChecked();
    options.resume = m_resume;
    return options;
}

void OvPickDlg::focusOn(const QString& parameter)
{
    const QString panelField = OvPickPanel::fieldOf(parameter);
    auto* field = findChild<QWidget*>(panelField.isEmpty() ? parameter : panelField);
    if (!field)
        return;
    field->setFocus(Qt::OtherFocusReason);
    if (auto* number = qobject_cast<QAbstractSpinBox*>(field))
        number->selectAll();
}

bool OvPickDlg::checkValues()
{
    const OvStatus status = define().validate();
    if (status)
        return true;
    // First, so that the focus is there when the message has gone.
    focusOn(define().offender());
    OvPluginUtil::showWarning(status.message(), this);
    return false;
}

void OvPickDlg::saveValues()
{
    if (!checkValues())
        return;
    const OvStatus status = OvBaseUtil::setProjectValue(m_projectId, storeKey, define().toMap());
    if (!status)
        OvPluginUtil::showWarning(status.message(), this);
}

void OvPickDlg::accept()
{
    if (checkValues())
        OvDialog::accept();
    else
        m_resume = false;
}

void OvPickDlg::done(int result)
{
    m_previewDelay.stop();
    emit previewEnded();
    OvDialog::done(result);
}
