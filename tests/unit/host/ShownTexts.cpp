#include "ShownTexts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileSystemModel>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QProgressBar>
#include <QRegularExpression>
#include <QSet>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabBar>
#include <QTextBrowser>
#include <QTextDocument>

namespace {

using ShownTexts::Text;

/// A device on which only words leave a mark.
class WordEngine : public QPaintEngine
{
public:
    QStringList words;

    WordEngine()
        : QPaintEngine(QPaintEngine::AllFeatures)
    {
    }
    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& /*state*/) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override
    {
    }
    void drawTiledPixmap(const QRectF&, const QPixmap&, const QPointF&) override {}
    void drawPath(const QPainterPath& /*path*/) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawTextItem(const QPointF& /*point*/, const QTextItem& item) override
    {
        words.append(item.text());
    }
    Type type() const override { return User; }
};

class WordDevice : public QPaintDevice
{
public:
    explicit WordDevice(QSize size)
        : m_size(size)
    {
    }
    QPaintEngine* paintEngine() const override { return &m_engine; }
    QStringList words() const { return m_engine.words; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return 96;
        }
    }

private:
    QSize m_size;
    mutable WordEngine m_engine;
};

QString plain(const QString& text)
{
    if (!Qt::mightBeRichText(text))
        return text;
    QTextDocument document;
    document.setHtml(text);
    return document.toPlainText();
}

class Collector
{
public:
    std::vector<Text> texts;

    void add(const QString& place, const QString& text)
    {
        const QString said = plain(text).trimmed();
        if (!said.isEmpty())
            texts.push_back({place, said});
    }

    void addWidget(QWidget* widget)
    {
        // Named for screen readers by the toolkit, once and for all.
        if (widget->objectName().startsWith(QLatin1String("Scroll")) &&
            qobject_cast<QTabBar*>(widget->parentWidget()))
            return;
        const QString place = placeOf(widget);
        const QStringList common = {widget->windowTitle(),    widget->toolTip(),
                                    widget->statusTip(),      widget->whatsThis(),
                                    widget->accessibleName(), widget->accessibleDescription()};
        for (const QString& text : common)
            add(place, text);
        for (const QAction* action : widget->actions())
            addAction(place, action);
        addControl(place, widget);
        addContainer(place, widget);
    }

    void addAction(const QString& place, const QAction* action)
    {
        if (!action->isVisible())
            return;
        const QString at = place + QLatin1Char('/') + action->objectName();
        for (const QString& text : {action->text(), action->toolTip(), action->statusTip(),
                                    action->whatsThis(), action->iconText()})
            add(at, text);
    }

    void addControl(const QString& place, QWidget* widget)
    {
        if (const auto* label = qobject_cast<QLabel*>(widget))
            add(place, label->text());
        if (const auto* button = qobject_cast<QAbstractButton*>(widget))
            add(place, button->text());
        if (const auto* edit = qobject_cast<QLineEdit*>(widget))
            add(place, edit->placeholderText());
        if (const auto* box = qobject_cast<QAbstractSpinBox*>(widget))
            add(place, box->specialValueText());
        if (const auto* box = qobject_cast<QSpinBox*>(widget))
            add(place, box->prefix() + QLatin1Char(' ') + box->suffix());
        if (const auto* box = qobject_cast<QDoubleSpinBox*>(widget))
            add(place, box->prefix() + QLatin1Char(' ') + box->suffix());
        if (const auto* bar = qobject_cast<QProgressBar*>(widget))
            add(place, bar->text());
    }

    void addContainer(const QString& place, QWidget* widget)
    {
        if (const auto* group = qobject_cast<QGroupBox*>(widget))
            add(place, group->title());
        if (const auto* menu = qobject_cast<QMenu*>(widget))
            add(place, menu->title());
        if (const auto* bar = qobject_cast<QStatusBar*>(widget))
            add(place, bar->currentMessage());
        if (const auto* browser = qobject_cast<QTextBrowser*>(widget))
            add(place, browser->toPlainText());
        if (const auto* tabs = qobject_cast<QTabBar*>(widget))
            for (int i = 0; i < tabs->count(); ++i)
                add(place, tabs->tabText(i) + QLatin1Char(' ') + tabs->tabToolTip(i));
        if (const auto* box = qobject_cast<QComboBox*>(widget))
            for (int i = 0; i < box->count(); ++i)
                add(place, box->itemText(i));
        if (const auto* view = qobject_cast<QAbstractItemView*>(widget))
            addModel(place, view->model(), qobject_cast<const QHeaderView*>(view) != nullptr);
    }

    void addModel(const QString& place, const QAbstractItemModel* model, bool isHeader)
    {
        if (!model)
            return;
        for (int column = 0; column < model->columnCount(); ++column)
            for (const int role : {Qt::DisplayRole, Qt::ToolTipRole})
                add(place, model->headerData(column, Qt::Horizontal, role).toString());
        if (isHeader || model->inherits("QFileSystemModel") || model->inherits("QUrlModel"))
            return;
        for (int row = 0; row < model->rowCount(); ++row)
            for (int column = 0; column < model->columnCount(); ++column)
                for (const int role : {Qt::DisplayRole, Qt::ToolTipRole, Qt::AccessibleTextRole})
                    add(place, model->index(row, column).data(role).toString());
    }

    /// What the classes of this program paint; the toolkit's own paint what addWidget() has asked.
    void addPainted(QWidget* widget)
    {
        WordDevice device(widget->size());
        QPainter painter(&device);
        widget->render(&painter, QPoint(), QRegion(),
                       QWidget::DrawWindowBackground | QWidget::IgnoreMask);
        painter.end();
        for (const QString& word : device.words())
            add(placeOf(widget) + QStringLiteral("/painted"), word);
    }

    static QString placeOf(const QWidget* widget)
    {
        QString place;
        for (; widget; widget = widget->parentWidget())
            place.prepend(QLatin1String(widget->metaObject()->className()) + QLatin1Char('(') +
                          widget->objectName() + QStringLiteral(") "));
        return place.trimmed();
    }
};

bool paintsItself(const QWidget* widget)
{
    return widget->isVisible() && !widget->size().isEmpty() &&
           QByteArray(widget->metaObject()->className()).startsWith("Ov") &&
           widget->inherits("OvGatherCanvas");
}

/// The window with all below it. A menu that a plug-in brings belongs to nobody in the window.
QList<QWidget*> ownAndMenus(QWidget* window)
{
    QList<QWidget*> widgets = window->findChildren<QWidget*>();
    widgets.prepend(window);
    for (int i = 0; i < widgets.size(); ++i) {
        for (const QAction* action : widgets.at(i)->actions()) {
            if (action->menu() && !widgets.contains(action->menu()))
                widgets.append(action->menu());
        }
    }
    return widgets;
}

} // namespace

std::vector<ShownTexts::Text> ShownTexts::of(QWidget* window)
{
    Collector collector;
    for (QWidget* widget : ownAndMenus(window)) {
        collector.addWidget(widget);
        if (paintsItself(widget))
            collector.addPainted(widget);
    }
    return collector.texts;
}

QStringList ShownTexts::withEnglish(const std::vector<Text>& texts, const QStringList& names)
{
    // Names, formats, units and keys that Chinese geophysicists write in Latin letters, too.
    static const QSet<QString> allowed = {
        "Maravel", "Tarnpick", "SEGY",  "SEG",  "FB",  "AGC",  "CDP",    "dB",       "ms",
        "MiB",     "EBCDIC",   "ASCII", "IEEE", "IBM", "Ctrl", "Shift",  "Alt",      "Home",
        "End",     "Page",     "Up",    "Down", "PNG", "png",  "sgy",    "segy",     "SGY",
        "csv",     "txt",      "SNR",   "kHz",  "Hz",  "Esc",  "Delete", "Copyright"};
    static const QRegularExpression word(QStringLiteral("[A-Za-z][A-Za-z]+"));
    QStringList found;
    for (const Text& shown : texts) {
        QString text = shown.text;
        for (const QString& name : names)
            text.remove(name);
        text.remove(QLatin1Char('&'));
        auto match = word.globalMatch(text);
        while (match.hasNext()) {
            if (!allowed.contains(match.next().captured())) {
                found.append(shown.place + QStringLiteral(": ") + shown.text);
                break;
            }
        }
    }
    found.removeDuplicates();
    return found;
}

QStringList ShownTexts::withChinese(const std::vector<Text>& texts)
{
    static const QRegularExpression character(
        QStringLiteral("[\\x{3000}-\\x{9fff}\\x{ff00}-\\x{ffef}]"));
    QStringList found;
    for (const Text& shown : texts) {
        QString text = shown.text;
        text.remove(QStringLiteral("简体中文"));
        if (text.contains(character))
            found.append(shown.place + QStringLiteral(": ") + shown.text);
    }
    found.removeDuplicates();
    return found;
}
