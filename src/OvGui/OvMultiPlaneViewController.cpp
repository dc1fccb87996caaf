#include "OvGui/OvMultiPlaneViewController.h"

#include "OvBase/OvAbstractJob.h"
#include "OvGui/OvGatherViewController.h"
#include "OvGui/canvas/OvGatherCanvas.h"
#include "OvGui/parallel/OvMirrorPanel.h"
#include "OvGui/view/OvPagingBar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr double zoomStep = 1.25;

} // namespace

struct OvMultiPlaneViewController::Private
{
    explicit Private(OvMultiPlaneViewController* view);

    OvMultiPlaneViewController* q;
    QHBoxLayout* columns;
    QLabel* emptyLabel;
    OvPagingBar* bar;
    QList<OvMirrorPanel*> panels;
    bool following = false;

    void connectBar();
    OvMirrorPanel* makePanel(OvPlaneViewController* source);
    void connectCanvas(OvMirrorPanel* panel);
    void dropPanel(OvMirrorPanel* panel);
    void rearrange();
    void shareTimes();
    void follow(const OvGatherCanvas* leader);
    void followRecord(const OvPlaneViewController* leader);
    OvPlaneViewController* first() const;
    void page(int gather);
    void updateBar();
    template <typename Action>
    void eachCanvas(Action action) const;
    void retranslate();
};

OvMultiPlaneViewController::Private::Private(OvMultiPlaneViewController* view)
    : q(view)
    , columns(new QHBoxLayout)
    , emptyLabel(new QLabel(view))
    , bar(new OvPagingBar(view))
{
    auto* layout = new QVBoxLayout(q);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    columns->setSpacing(2);
    layout->addLayout(columns, 1);
    layout->addWidget(bar);
    emptyLabel->setAlignment(Qt::AlignCenter);
    emptyLabel->setWordWrap(true);
    columns->addWidget(emptyLabel);
    connectBar();
}

template <typename Action>
void OvMultiPlaneViewController::Private::eachCanvas(Action action) const
{
    for (const OvMirrorPanel* panel : panels)
        if (panel->canvas() != nullptr)
            action(panel->canvas());
}

void OvMultiPlaneViewController::Private::connectBar()
{
    connect(bar, &OvPagingBar::gatherChosen, q, [this](int gather) { page(gather); });
    connect(bar, &OvPagingBar::keyChosen, q, [this](int value) {
        const auto* view = qobject_cast<OvGatherViewController*>(first());
        page(view != nullptr ? view->gatherIndex()->gatherOfKey(value) : -1);
    });
    const auto zoom = [this](double factor) {
        if (!panels.isEmpty() && panels.first()->canvas() != nullptr)
            panels.first()->canvas()->zoomBy(factor);
    };
    connect(bar, &OvPagingBar::zoomInChosen, q, [zoom] { zoom(zoomStep); });
    connect(bar, &OvPagingBar::zoomOutChosen, q, [zoom] { zoom(1.0 / zoomStep); });
    connect(bar, &OvPagingBar::fitChosen, q,
            [this] { eachCanvas([](OvGatherCanvas* canvas) { canvas->fit(); }); });
}

OvPlaneViewController* OvMultiPlaneViewController::Private::first() const
{
    return panels.isEmpty() ? nullptr : panels.first()->source();
}

void OvMultiPlaneViewController::Private::page(int gather)
{
    if (first() != nullptr && gather >= 0)
        first()->setCurrentGather(gather);
    updateBar();
}

OvMirrorPanel* OvMultiPlaneViewController::Private::makePanel(OvPlaneViewController* source)
{
    auto* panel = new OvMirrorPanel(source, q);
    connect(source, &QObject::destroyed, panel, [this, panel] { dropPanel(panel); });
    connect(source, &OvPlaneViewController::currentGatherChanged, panel,
            [this, source] { followRecord(source); });
    connect(panel, &OvMirrorPanel::readoutChanged, bar, &OvPagingBar::setReadout);
    connect(panel, &OvMirrorPanel::readoutChanged, q, &OvAbstractViewController::outputInfo);
    connect(panel, &OvMirrorPanel::gatherShown, q, [this] {
        shareTimes();
        updateBar();
    });
    if (panel->canvas() != nullptr)
        connectCanvas(panel);
    return panel;
}

void OvMultiPlaneViewController::Private::connectCanvas(OvMirrorPanel* panel)
{
    OvGatherCanvas* canvas = panel->canvas();
    canvas->fit();
    connect(canvas, &OvGatherCanvas::viewChanged, q, [this, canvas] { follow(canvas); });
}

void OvMultiPlaneViewController::Private::dropPanel(OvMirrorPanel* panel)
{
    panels.removeOne(panel);
    panel->hide();
    panel->deleteLater();
    rearrange();
}

void OvMultiPlaneViewController::Private::rearrange()
{
    bool first = true;
    for (OvMirrorPanel* panel : qAsConst(panels)) {
        columns->removeWidget(panel);
        columns->addWidget(panel, 1);
        if (panel->canvas() != nullptr)
            panel->canvas()->setTimeAxisVisible(first);
        first = false;
        panel->show();
    }
    emptyLabel->setVisible(panels.isEmpty());
    shareTimes();
    updateBar();
}

void OvMultiPlaneViewController::Private::shareTimes()
{
    OvGatherExtent all;
    eachCanvas([&all](const OvGatherCanvas* canvas) {
        if (canvas->gather())
            all.uniteTimes(OvGatherExtent::of(*canvas->gather()));
    });
    eachCanvas([&all](OvGatherCanvas* canvas) { canvas->setLeastTimes(all); });
}

void OvMultiPlaneViewController::Private::follow(const OvGatherCanvas* leader)
{
    if (following)
        return;
    following = true;
    eachCanvas([leader](OvGatherCanvas* canvas) {
        if (canvas != leader)
            canvas->followView(leader->viewState());
    });
    following = false;
}

void OvMultiPlaneViewController::Private::followRecord(const OvPlaneViewController* leader)
{
    const auto* view = qobject_cast<const OvGatherViewController*>(leader);
    if (view == nullptr || !view->document() || view->currentGather() >= view->gatherCount())
        return;
    const auto index = view->gatherIndex();
    const double key = index->keyValue(view->currentGather());
    for (const OvMirrorPanel* panel : qAsConst(panels)) {
        OvGatherViewController* other = panel->gatherSource();
        if (other == nullptr || other == leader || !other->document())
            continue;
        // Another kind of gathers has nothing that corresponds.
        const auto others = other->gatherIndex();
        const int gather =
            others->order().key == index->order().key ? others->gatherOfKey(key) : -1;
        if (gather >= 0)
            other->setCurrentGather(gather);
    }
    updateBar();
}

void OvMultiPlaneViewController::Private::updateBar()
{
    const OvPlaneViewController* view = first();
    const auto* gatherView = qobject_cast<const OvGatherViewController*>(view);
    bar->setVisible(view != nullptr);
    if (view == nullptr)
        return;
    const bool known = gatherView != nullptr && gatherView->document() &&
                       view->currentGather() < view->gatherCount();
    const auto index = known ? gatherView->gatherIndex() : std::make_shared<const OvSegyIndex>();
    bar->setGather(view->currentGather(), view->gatherCount(), index->order().key,
                   known ? index->keyValue(view->currentGather()) : 0.0);
}

void OvMultiPlaneViewController::Private::retranslate()
{
    emptyLabel->setText(OvMultiPlaneViewController::tr(
        "No view is linked. Choose the views to link in the Parallel View dialog."));
    bar->retranslate();
    for (OvMirrorPanel* panel : qAsConst(panels))
        panel->retranslate();
    q->delegateJob()->setTaskName(q->description());
}

OvMultiPlaneViewController::OvMultiPlaneViewController(QWidget* parent)
    : OvAbstractViewController(parent)
    , d(std::make_unique<Private>(this))
{
    d->retranslate();
    d->rearrange();
}

OvMultiPlaneViewController::~OvMultiPlaneViewController()
{
    // Before the private part, which their signals use.
    qDeleteAll(d->panels);
}

void OvMultiPlaneViewController::setUsedViewControllers(const QList<OvPlaneViewController*>& views)
{
    QList<OvMirrorPanel*> kept;
    for (OvPlaneViewController* view : views) {
        const auto known =
            std::find_if(d->panels.begin(), d->panels.end(),
                         [view](const OvMirrorPanel* panel) { return panel->source() == view; });
        if (view == nullptr)
            continue;
        kept.append(known == d->panels.end() ? d->makePanel(view) : *known);
        if (known != d->panels.end())
            d->panels.erase(known);
    }
    qDeleteAll(d->panels);
    d->panels = kept;
    d->rearrange();
}

QList<OvPlaneViewController*> OvMultiPlaneViewController::usedViewControllers() const
{
    QList<OvPlaneViewController*> views;
    for (const OvMirrorPanel* panel : qAsConst(d->panels))
        if (panel->source() != nullptr)
            views.append(panel->source());
    return views;
}

bool OvMultiPlaneViewController::isShowingData() const
{
    return !d->panels.isEmpty() &&
           std::all_of(d->panels.begin(), d->panels.end(),
                       [](const OvMirrorPanel* panel) { return panel->isShowing(); });
}

QString OvMultiPlaneViewController::description() const
{
    return tr("Parallel View");
}

void OvMultiPlaneViewController::handleKeyEvent(QKeyEvent* event)
{
    if (d->first() != nullptr)
        d->first()->handleKeyEvent(event);
}

void OvMultiPlaneViewController::keyPressEvent(QKeyEvent* event)
{
    event->ignore();
    handleKeyEvent(event);
}

void OvMultiPlaneViewController::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        d->retranslate();
    OvAbstractViewController::changeEvent(event);
}
