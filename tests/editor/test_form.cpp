#include "support/FailOnWarning.h"
#include "ui_CurveEditorDialogBaseSetter.h"

#include <memory>

namespace {

/// The layout of the form of this name; layouts inside layouts are children of the widget.
QBoxLayout* layoutNamed(const QDialog& dialog, const QString& name)
{
    return dialog.findChild<QBoxLayout*>(name);
}

} // namespace

class TestForm : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void cleanupTestCase() { dialog.reset(); }

    void init() { failOnUnexpectedWarning(); }

    void theDialogHasItsNameSizeAndTitle();
    void aNameThatTheDialogHasAlreadyStays();
    void eachWidgetHasItsClassAndParent_data();
    void eachWidgetHasItsClassAndParent();
    void eachLayoutHasItsSpacingMarginsAndContents_data();
    void eachLayoutHasItsSpacingMarginsAndContents();
    void eachSettingIsAsTheTableSays_data();
    void eachSettingIsAsTheTableSays();
    void theMainMenuGrowsSidewaysOnly();
    void theExpressionLineHasTheArrowCursor();
    void theSplittersHoldTheirWidgetsInOrder();

private:
    std::unique_ptr<QDialog> dialog;
    Ui::CurveEditorDialogBaseSetter form;
};

void TestForm::initTestCase()
{
    dialog = std::make_unique<QDialog>();
    form.setupUi(dialog.get());
}

void TestForm::theDialogHasItsNameSizeAndTitle()
{
    QCOMPARE(dialog->objectName(), QStringLiteral("CurveEditorDialogBaseSetter"));
    QCOMPARE(dialog->size(), QSize(844, 550));
    QCOMPARE(dialog->minimumSize(), QSize(0, 0));
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Curve Editor"));
}

void TestForm::aNameThatTheDialogHasAlreadyStays()
{
    QDialog named;
    named.setObjectName(QStringLiteral("mine"));
    Ui::CurveEditorDialogBaseSetter other;
    other.setupUi(&named);
    QCOMPARE(named.objectName(), QStringLiteral("mine"));
}

void TestForm::eachWidgetHasItsClassAndParent_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QString>("parent");
    const auto row = [](const char* name, const char* className, const char* parent) {
        QTest::newRow(name) << QString::fromLatin1(name) << QByteArray(className)
                            << QString::fromLatin1(parent);
    };
    row("mainMenu", "CustomToolbar", "CurveEditorDialogBaseSetter");
    row("topToolbar", "QWidget", "CurveEditorDialogBaseSetter");
    row("splitter11", "QSplitter", "CurveEditorDialogBaseSetter");
    row("checkListsEditing", "EditingTree", "splitter11");
    row("splitter10", "QSplitter", "splitter11");
    row("functionView", "QFrame", "splitter10");
    row("tabExpresion", "QWidget", "splitter10");
    row("addToSpline", "QPushButton", "tabExpresion");
    row("commandLine", "CommandLine", "tabExpresion");
    row("deleteCurve", "QPushButton", "tabExpresion");
    row("expressionTool", "CustomToolbar", "tabExpresion");
}

void TestForm::eachWidgetHasItsClassAndParent()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, className);
    QFETCH(QString, parent);
    const auto* const widget = dialog->findChild<QWidget*>(name);
    QVERIFY(widget);
    QCOMPARE(QByteArray(widget->metaObject()->className()), className);
    QCOMPARE(widget->parentWidget()->objectName(), parent);
}

void TestForm::eachLayoutHasItsSpacingMarginsAndContents_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<int>("margin");
    QTest::addColumn<QStringList>("contents");
    const auto row = [](const char* name, const char* className, const int& margin,
                        const QStringList& contents) {
        QTest::newRow(name) << QString::fromLatin1(name) << QByteArray(className) << margin
                            << contents;
    };
    row("vboxLayout", "QVBoxLayout", 11, {"mainMenu", "topToolbar", "splitter11"});
    row("hboxLayout", "QHBoxLayout", 0, {"vboxLayout1"});
    row("vboxLayout1", "QVBoxLayout", 0, {});
    row("vboxLayout2", "QVBoxLayout", 0, {"hboxLayout1"});
    row("hboxLayout1", "QHBoxLayout", 0,
        {"addToSpline", "commandLine", "deleteCurve", "expressionTool"});
}

void TestForm::eachLayoutHasItsSpacingMarginsAndContents()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, className);
    QFETCH(int, margin);
    QFETCH(QStringList, contents);
    QBoxLayout* const layout = layoutNamed(*dialog, name);
    QVERIFY(layout);
    QCOMPARE(QByteArray(layout->metaObject()->className()), className);
    QCOMPARE(layout->spacing(), 6);
    QCOMPARE(layout->contentsMargins(), QMargins(margin, margin, margin, margin));
    QStringList names;
    for (int place = 0; place < layout->count(); ++place) {
        QLayoutItem* const item = layout->itemAt(place);
        names.append(item->widget() ? item->widget()->objectName() : item->layout()->objectName());
    }
    QCOMPARE(names, contents);
}

void TestForm::eachSettingIsAsTheTableSays_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char* name, const char* property, const QVariant& value) {
        QTest::addRow("%s %s", name, property)
            << QString::fromLatin1(name) << QByteArray(property) << value;
    };
    row("splitter11", "orientation", int(Qt::Horizontal));
    row("splitter10", "orientation", int(Qt::Vertical));
    row("checkListsEditing", "selectionMode", int(QAbstractItemView::ExtendedSelection));
    row("checkListsEditing", "alternatingRowColors", true);
    row("checkListsEditing", "minimumSize", QSize(120, 0));
    row("checkListsEditing", "toolTip", "Selected variables");
    row("checkListsEditing", "whatsThis",
        "Here you can select the variables to be edited as curves");
    row("functionView", "minimumSize", QSize(100, 150));
    row("functionView", "mouseTracking", true);
    row("functionView", "focusPolicy", int(Qt::StrongFocus));
    row("functionView", "frameShape", int(QFrame::NoFrame));
    row("functionView", "frameShadow", int(QFrame::Plain));
    row("tabExpresion", "maximumSize", QSize(16777215, 25));
    row("addToSpline", "text", " + ");
    row("addToSpline", "minimumSize", QSize(20, 20));
    row("addToSpline", "maximumSize", QSize(20, 20));
    row("addToSpline", "focusPolicy", int(Qt::NoFocus));
    row("addToSpline", "checkable", true);
    row("addToSpline", "flat", true);
    row("addToSpline", "autoDefault", false);
    row("addToSpline", "toolTip", "Add expression to current spline");
    row("addToSpline", "whatsThis", "Enable to add the expression value to the current spline");
    row("commandLine", "minimumSize", QSize(0, 20));
    row("commandLine", "mouseTracking", true);
    row("commandLine", "focusPolicy", int(Qt::StrongFocus));
    row("commandLine", "acceptDrops", true);
    row("commandLine", "toolTip", "Here appears the expression");
    row("commandLine", "whatsThis", "This's the expression parsed");
    row("deleteCurve", "text", "Delete Expression");
    row("deleteCurve", "minimumSize", QSize(80, 20));
    row("deleteCurve", "focusPolicy", int(Qt::NoFocus));
    row("deleteCurve", "autoDefault", false);
}

void TestForm::eachSettingIsAsTheTableSays()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    const auto* const widget = dialog->findChild<QWidget*>(name);
    QVERIFY(widget);
    const QVariant actual = widget->property(property.constData());
    QVERIFY(actual.isValid());
    if (value.typeId() == QMetaType::Int) {
        QCOMPARE(actual.toInt(), value.toInt());
    } else {
        QCOMPARE(actual, value);
    }
}

void TestForm::theMainMenuGrowsSidewaysOnly()
{
    QCOMPARE(form.mainMenu->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(form.mainMenu->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
}

void TestForm::theExpressionLineHasTheArrowCursor()
{
    QCOMPARE(form.commandLine->cursor().shape(), Qt::ArrowCursor);
}

void TestForm::theSplittersHoldTheirWidgetsInOrder()
{
    QCOMPARE(form.splitter11->count(), 2);
    QCOMPARE(form.splitter11->widget(0), form.checkListsEditing);
    QCOMPARE(form.splitter11->widget(1), form.splitter10);
    QCOMPARE(form.splitter10->count(), 2);
    QCOMPARE(form.splitter10->widget(0), form.functionView);
    QCOMPARE(form.splitter10->widget(1), form.tabExpresion);
}

QTEST_MAIN(TestForm)
#include "test_form.moc"
