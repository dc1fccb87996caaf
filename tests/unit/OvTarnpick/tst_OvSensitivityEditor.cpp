#include "OvTarnpick/utility/OvSensitivityEditor.h"

#include "fixtures/WarningTrap.h"

#include <QChildEvent>
#include <QGridLayout>
#include <QSettings>
#include <QSignalSpy>
#include <QSpinBox>
#include <QtTest>

/// Hears what an editor announces while it is still being constructed: it joins the editor through
/// the child events that the editor's parent, and then the editor itself, get on the way.
class ConstructionListener : public QObject
{
    Q_OBJECT

public:
    explicit ConstructionListener(QWidget* parentOfEditor)
    {
        parentOfEditor->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::ChildAdded)
            return false;
        if (watched->metaObject()->indexOfSignal("valueChanged(int)") >= 0)
            connect(watched, SIGNAL(valueChanged(int)), this, SLOT(note(int)),
                    Qt::UniqueConnection);
        else
            static_cast<QChildEvent*>(event)->child()->installEventFilter(this);
        return false;
    }

    QList<int> values;

public slots:
    void note(int value) { values.append(value); }
};

class tst_OvSensitivityEditor : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void formIsBuilt();
    void firstRunShowsZero();
    void loadsAndAnnounces_data();
    void loadsAndAnnounces();
    void clampedValueIsWrittenBack();
    void storesOnDestructionOnly();
    void relaysAndRepeats();
    void languageChangeKeepsTheValue();

private:
    static QVariant stored() { return QSettings().value(QStringLiteral("Sensitivity")); }
    static QString shown(const OvSensitivityEditor& editor)
    {
        return editor.findChild<QSpinBox*>(QStringLiteral("sensitivity"))->text();
    }
};

void tst_OvSensitivityEditor::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("TarnpickTest"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_OvSensitivityEditor"));
}

void tst_OvSensitivityEditor::init()
{
    WarningTrap::start();
    QSettings().clear();
}

void tst_OvSensitivityEditor::cleanup()
{
    QCOMPARE(WarningTrap::take(), QStringList());
}

void tst_OvSensitivityEditor::formIsBuilt()
{
    OvSensitivityEditor editor;
    QCOMPARE(editor.objectName(), QStringLiteral("OvSensitivityEditor"));
    QCOMPARE(editor.size(), QSize(94, 23));
    auto* grid = qobject_cast<QGridLayout*>(editor.layout());
    QVERIFY(grid);
    QCOMPARE(grid->spacing(), 0);
    QCOMPARE(grid->contentsMargins(), QMargins(6, 0, 6, 0));
    auto* box = editor.findChild<QSpinBox*>(QStringLiteral("sensitivity"));
    QCOMPARE(box->minimum(), 0);
    QCOMPARE(box->maximum(), 9999);
    QCOMPARE(box->singleStep(), 1);
    QCOMPARE(box->alignment(), Qt::AlignCenter);
    QCOMPARE(box->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(box->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
}

void tst_OvSensitivityEditor::firstRunShowsZero()
{
    const OvSensitivityEditor editor;
    QCOMPARE(editor.value(), 0);
    QCOMPARE(shown(editor), QStringLiteral("0 ms"));
}

void tst_OvSensitivityEditor::loadsAndAnnounces_data()
{
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<int>("value");
    QTest::addColumn<QList<int>>("announced");
    QTest::newRow("other than the form's") << QVariant(40) << 40 << QList<int>{40};
    QTest::newRow("as the form's") << QVariant(16) << 16 << QList<int>{};
    QTest::newRow("missing") << QVariant() << 0 << QList<int>{0};
    QTest::newRow("too large") << QVariant(12345) << 9999 << QList<int>{9999};
    QTest::newRow("negative") << QVariant(-3) << 0 << QList<int>{0};
    QTest::newRow("not a number") << QVariant(QStringLiteral("fast")) << 0 << QList<int>{0};
}

void tst_OvSensitivityEditor::loadsAndAnnounces()
{
    QFETCH(QVariant, setting);
    QFETCH(int, value);
    QFETCH(QList<int>, announced);
    if (setting.isValid())
        QSettings().setValue(QStringLiteral("Sensitivity"), setting);
    QWidget parent;
    ConstructionListener listener(&parent);
    const OvSensitivityEditor editor(&parent);
    QCOMPARE(editor.value(), value);
    QCOMPARE(shown(editor), QString::number(value) + QStringLiteral(" ms"));
    QCOMPARE(listener.values, announced);
}

void tst_OvSensitivityEditor::clampedValueIsWrittenBack()
{
    QSettings().setValue(QStringLiteral("Sensitivity"), 123456);
    {
        const OvSensitivityEditor editor;
        QCOMPARE(editor.value(), 9999);
        QCOMPARE(stored().toInt(), 123456);
    }
    QCOMPARE(stored().toInt(), 9999);
}

void tst_OvSensitivityEditor::storesOnDestructionOnly()
{
    {
        OvSensitivityEditor editor;
        editor.setValue(250);
        QVERIFY(!stored().isValid());
    }
    QCOMPARE(stored().toInt(), 250);
}

void tst_OvSensitivityEditor::relaysAndRepeats()
{
    OvSensitivityEditor editor;
    QSignalSpy announced(&editor, &OvSensitivityEditor::valueChanged);
    editor.setValue(8);
    editor.setValue(8);
    QCOMPARE(announced.count(), 1);
    OvAbstractGadget& gadget = editor;
    gadget.notifyValue();
    QCOMPARE(announced.count(), 2);
    QCOMPARE(announced.last().first().toInt(), 8);
}

void tst_OvSensitivityEditor::languageChangeKeepsTheValue()
{
    OvSensitivityEditor editor;
    editor.setValue(32);
    auto* box = editor.findChild<QSpinBox*>(QStringLiteral("sensitivity"));
    box->setSuffix(QStringLiteral(" x"));
    QEvent event(QEvent::LanguageChange);
    QApplication::sendEvent(&editor, &event);
    QCOMPARE(shown(editor), QStringLiteral("32 ms"));
}

QTEST_MAIN(tst_OvSensitivityEditor)
#include "tst_OvSensitivityEditor.moc"
