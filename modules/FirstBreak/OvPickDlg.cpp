#include "OvPickDlg.h"

#include "OvBase/OvBaseUtil.h"
#include "OvPlugins/OvPluginUtil.h"
#include "OvTarnpick/gadget/OvPickFBDefineWidget.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

const QString storeKey = QStringLiteral("pickParameters");

} // namespace

OvPickDlg::OvPickDlg(int projectId, int gather, QWidget* parent)
    : OvDialog(parent)
    , m_projectId(projectId)
    , m_gather(gather)
    , m_panel(new OvPickFBDefineWidget(this))
{
    setObjectName(QStringLiteral("OvPickDlg"));
    makeFields();
    connectButtons();
    retranslate();
    showValues(OvPickParameters::fromMap(OvBaseUtil::projectValue(projectId, storeKey).toMap()));
}

OvPickDlg::~OvPickDlg() = default;

void OvPickDlg::makeFields()
{
    m_all = new QRadioButton(this);
    m_all->setObjectName(QStringLiteral("allGathers"));
    m_all->setChecked(true);
    m_one = new QRadioButton(this);
    m_one->setObjectName(QStringLiteral("thisGather"));
    m_one->setEnabled(m_gather >= 0);
    m_keepManual = new QCheckBox(this);
    m_keepManual->setObjectName(QStringLiteral("keepManualPicks"));
    m_keepManual->setChecked(true);
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* scope = new QHBoxLayout;
    scope->addWidget(m_all);
    scope->addWidget(m_one);
    scope->addStretch();
    scope->addWidget(m_keepManual);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_panel);
    layout->addLayout(scope);
    layout->addWidget(m_buttons);
}

void OvPickDlg::connectButtons()
{
    connect(m_buttons, &QDialogButtonBox::accepted, this, &OvPickDlg::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &OvPickDlg::reject);
    connect(m_panel->defaultButton(), &QAbstractButton::clicked, this,
            [this] { showValues(OvPickParameters()); });
    connect(m_panel->saveButton(), &QAbstractButton::clicked, this, &OvPickDlg::saveValues);
}

QString OvPickDlg::helpPage() const
{
    return QStringLiteral("picking.html");
}

void OvPickDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    OvDialog::changeEvent(event);
}

void OvPickDlg::retranslate()
{
    setWindowTitle(tr("Automatic Picking"));
    m_all->setText(tr("&All gathers"));
    m_one->setText(tr("&This gather"));
    m_keepManual->setText(tr("&Keep manual picks"));
    m_keepManual->setToolTip(tr("Picks made or moved by hand stay as they are"));
    m_buttons->button(QDialogButtonBox::Ok)->setText(tr("Pick"));
    m_buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
}

OvPickParameters OvPickDlg::parameters() const
{
    const OvPickFBDefine define = m_panel->define();
    OvPickParameters parameters;
    parameters.polarity = define.positivePolarity ? OvPickParameters::Polarity::Positive
                                                  : OvPickParameters::Polarity::Negative;
    parameters.processingLengthMs = define.processingLengthMs;
    parameters.quickSearchWindowMs = define.quickSearchWindowMs;
    parameters.tuningSearchWindowMs = define.tuningSearchWindowMs;
    parameters.minimumOffsetM = define.minimumOffsetM;
    parameters.maximumOffsetM = define.maximumOffsetM;
    parameters.amplitudeThreshold = define.amplitudeThreshold;
    parameters.snrThreshold = define.snrThreshold;
    parameters.totalShots = define.totalShots;
    parameters.shotIncrement = define.shotIncrement;
    return parameters;
}

void OvPickDlg::showValues(const OvPickParameters& parameters)
{
    OvPickFBDefine define;
    define.positivePolarity = parameters.polarity == OvPickParameters::Polarity::Positive;
    define.processingLengthMs = parameters.processingLengthMs;
    define.quickSearchWindowMs = parameters.quickSearchWindowMs;
    define.tuningSearchWindowMs = parameters.tuningSearchWindowMs;
    define.minimumOffsetM = parameters.minimumOffsetM;
    define.maximumOffsetM = parameters.maximumOffsetM;
    define.amplitudeThreshold = parameters.amplitudeThreshold;
    define.snrThreshold = parameters.snrThreshold;
    define.totalShots = parameters.totalShots;
    define.shotIncrement = parameters.shotIncrement;
    m_panel->setDefine(define);
}

OvPickJob::Options OvPickDlg::options() const
{
    OvPickJob::Options options;
    options.parameters = parameters();
    options.gather = m_one->isChecked() ? m_gather : -1;
    options.keepManualPicks = m_keepManual->isChecked();
    return options;
}

bool OvPickDlg::checkValues()
{
    const OvStatus status = parameters().validate();
    if (!status)
        OvPluginUtil::showWarning(status.message(), this);
    return status.ok();
}

void OvPickDlg::saveValues()
{
    if (!checkValues())
        return;
    const OvStatus status =
        OvBaseUtil::setProjectValue(m_projectId, storeKey, parameters().toMap());
    if (!status)
        OvPluginUtil::showWarning(status.message(), this);
}

void OvPickDlg::accept()
{
    if (checkValues())
        OvDialog::accept();
}
