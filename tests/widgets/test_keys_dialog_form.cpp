#include "support/FailOnWarning.h"
#include "widgets/KeysDialogFixture.h"

#include <QLabel>
#include <QMetaMethod>
#include <QPushButton>

namespace {

QStringList itemsOf(const QComboBox* combo)
{
    QStringList items;
    for (int i = 0; i < combo->count(); ++i) {
        items.append(combo->itemText(i));
    }
    return items;
}

} // namespace

class TestKeysDialogForm : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theFormHasItsSizeAndTitle();
    void theDialogIsAToolWindowOfTheEditor();
    void eachWidgetHasItsClass_data();
    void eachWidgetHasItsClass();
    void theLabelsHaveTheirTexts();
    void theListsHaveTheirEntries();
    void theNeighbourButtonsAreFlatAndTakeNoReturn();
    void thePagesHoldTheirFields();
    void thePreviewStandsAtTheRightEnd();
    void tabWalksTheFieldsInReadingOrder_data();
    void tabWalksTheFieldsInReadingOrder();
    void theSlotsHaveTheirSpellingsAndOrder();
};

void TestKeysDialogForm::theFormHasItsSizeAndTitle()
{
    QDialog plain;
    Ui::CurveKeysSetter form;
    form.setupUi(&plain);
    QCOMPARE(plain.windowTitle(), QString("Dialog"));
    QCOMPARE(plain.size(), QSize(830, 100));
}

void TestKeysDialogForm::theDialogIsAToolWindowOfTheEditor()
{
    CurveEditor editor(nullptr, QString());
    const CurveKeysDialog* const dialog = editor.getFunctionEditor()->keysDialog();
    QCOMPARE(dialog->windowTitle(), QString("Selected Keys Properties"));
    QCOMPARE(dialog->windowType(), Qt::Tool);
    QCOMPARE(dialog->parentWidget(), &editor);
    QVERIFY(!dialog->isVisible());
    QVERIFY(!dialog->isModal());
}

void TestKeysDialogForm::eachWidgetHasItsClass_data()
{
    QTest::addColumn<QByteArray>("className");
    for (const char* const line : {"node", "posX", "posY", "easeTo", "easeFrom", "tension",
                                   "continuity", "bias", "incoming", "outgoing"}) {
        QTest::newRow(line) << QByteArray("CustomEditLine");
    }
    for (const char* const combo : {"nodeFirst", "nodeLast", "nodeTypeCombo"}) {
        QTest::newRow(combo) << QByteArray("QComboBox");
    }
    QTest::newRow("prevNode") << QByteArray("QPushButton");
    QTest::newRow("nextNode") << QByteArray("QPushButton");
    QTest::newRow("nodeTypeWidgetStack") << QByteArray("QStackedWidget");
    QTest::newRow("tcbCurve") << QByteArray("TcbCurve");
}

void TestKeysDialogForm::eachWidgetHasItsClass()
{
    QFETCH(QByteArray, className);
    CurveEditor editor(nullptr, QString());
    const CurveKeysDialog* const dialog = editor.getFunctionEditor()->keysDialog();
    const auto* const widget = dialog->findChild<QWidget*>(QTest::currentDataTag());
    QVERIFY(widget);
    QCOMPARE(QByteArray(widget->metaObject()->className()), className);
    // Whoever does not see the form is told what a field is: by its label or by a name.
    bool isNamed = !widget->accessibleName().isEmpty() || className == "QStackedWidget";
    for (const QLabel* const label : dialog->findChildren<QLabel*>()) {
        isNamed = isNamed || label->buddy() == widget;
    }
    QVERIFY(isNamed);
}

void TestKeysDialogForm::theLabelsHaveTheirTexts()
{
    CurveEditor editor(nullptr, QString());
    const CurveKeysDialog* const dialog = editor.getFunctionEditor()->keysDialog();
    const QMap<QWidget*, QString> expected{{dialog->posX, "Frame:"},
                                           {dialog->posY, "Value:"},
                                           {dialog->nodeFirst, "Pre-behaviour:"},
                                           {dialog->nodeLast, "Post-behaviour:"},
                                           {dialog->easeTo, "Ease To:"},
                                           {dialog->easeFrom, "Ease From:"},
                                           {dialog->tension, "Tension:"},
                                           {dialog->continuity, "Continuity:"},
                                           {dialog->bias, "Bias:"},
                                           {dialog->incoming, "Incoming:"},
                                           {dialog->outgoing, "Outgoing:"}};
    QMap<QWidget*, QString> actual;
    for (const QLabel* const label : dialog->findChildren<QLabel*>()) {
        actual.insert(label->buddy(), label->text());
    }
    QCOMPARE(actual, expected);
}

void TestKeysDialogForm::theListsHaveTheirEntries()
{
    CurveEditor editor(nullptr, QString());
    const CurveKeysDialog* const dialog = editor.getFunctionEditor()->keysDialog();
    QCOMPARE(itemsOf(dialog->nodeFirst), QStringList({"Zero", "Constant"}));
    QCOMPARE(itemsOf(dialog->nodeLast),
             QStringList({"Zero", "Constant", "Loop", "Loop offset", "Follow Tangent"}));
    QCOMPARE(itemsOf(dialog->nodeTypeCombo),
             QStringList({"Tcb node", "Bezier node", "Linear node", "Stepped node"}));
    QCOMPARE(dialog->nodeTypeCombo->currentIndex(), 0);
}

void TestKeysDialogForm::theNeighbourButtonsAreFlatAndTakeNoReturn()
{
    CurveEditor editor(nullptr, QString());
    const CurveKeysDialog* const dialog = editor.getFunctionEditor()->keysDialog();
    for (const QPushButton* const button : {dialog->prevNode, dialog->nextNode}) {
        QVERIFY(button->isFlat());
        QVERIFY(!button->autoDefault());
    }
    QCOMPARE(dialog->prevNode->text(), QString("<<"));
    QCOMPARE(dialog->nextNode->text(), QString(">>"));
    QCOMPARE(dialog->prevNode->toolTip(), QString("Select previous node"));
    QCOMPARE(dialog->nextNode->toolTip(), QString("Select next node"));
}

void TestKeysDialogForm::thePagesHoldTheirFields()
{
    CurveEditor editor(nullptr, QString());
    const CurveKeysDialog* const dialog = editor.getFunctionEditor()->keysDialog();
    QCOMPARE(dialog->nodeTypeWidgetStack->widget(0), dialog->tcbPage);
    QCOMPARE(dialog->nodeTypeWidgetStack->widget(1), dialog->ioPage);
    for (const QWidget* const field : {dialog->tension, dialog->continuity, dialog->bias}) {
        QCOMPARE(field->parentWidget(), dialog->tcbPage);
    }
    for (const QWidget* const field : {dialog->incoming, dialog->outgoing}) {
        QCOMPARE(field->parentWidget(), dialog->ioPage);
    }
}

void TestKeysDialogForm::thePreviewStandsAtTheRightEnd()
{
    KeysDialogFixture fixture;
    const CurveKeysDialog& dialog = fixture.dialog;
    const QRect preview = dialog.tcbCurve->geometry();
    for (const QWidget* const widget : dialog.findChildren<QWidget*>()) {
        if (widget != dialog.tcbCurve && widget->isVisible()) {
            const QPoint right = widget->mapTo(&dialog, widget->rect().topRight());
            QVERIFY2(right.x() < preview.left(), qPrintable(widget->objectName()));
        }
    }
}

void TestKeysDialogForm::tabWalksTheFieldsInReadingOrder_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("ofItsPage");
    QTest::newRow("TCB") << int(zk_spline::tcb) << QStringList({"tension", "continuity", "bias"});
    QTest::newRow("Bezier") << int(zk_spline::bezier) << QStringList({"incoming", "outgoing"});
}

void TestKeysDialogForm::tabWalksTheFieldsInReadingOrder()
{
    QFETCH(int, type);
    QFETCH(QStringList, ofItsPage);
    KeysDialogFixture fixture;
    const auto interpolation = static_cast<zk_spline::interpolationType>(type);
    fixture.editCurve("n.c", {{10.0, 10.0, interpolation}, {20.0, 20.0}});
    fixture.pick({{10.0, 10.0}});
    const QStringList expected = QStringList({"prevNode", "nextNode", "posX", "posY",
                                              "nodeTypeCombo", "easeTo", "easeFrom"}) +
                                 ofItsPage + QStringList({"nodeFirst", "nodeLast"});
    QApplication::setActiveWindow(&fixture.dialog);
    fixture.dialog.prevNode->setFocus();
    QStringList walked;
    for (int i = 0; i < expected.size(); ++i) {
        walked.append(fixture.dialog.focusWidget()->objectName());
        QTest::keyClick(fixture.dialog.focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(walked, expected);
    QCOMPARE(fixture.undoSteps(), QStringList("Select Control Points"));
}

void TestKeysDialogForm::theSlotsHaveTheirSpellingsAndOrder()
{
    const QMetaObject& meta = CurveKeysDialog::staticMetaObject;
    QList<QByteArray> signatures;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        signatures.append(meta.method(i).methodSignature());
    }
    QCOMPARE(signatures, QList<QByteArray>(
                             {"nodeTcbChanged()", "clickedNext()", "clickedPrev()",
                              "changeNodeType(int)", "valueChangedTyped(ZK_DOUBLE,CustomEditLine*)",
                              "valueChanged(ZK_DOUBLE,CustomEditLine*)", "startChangePoints()",
                              "endChangePoints()", "startMovePoints()", "endMovePoints()",
                              "setPosX(ZK_DOUBLE)", "focusInEvent(QFocusEvent*)"}));
}

QTEST_MAIN(TestKeysDialogForm)
#include "test_keys_dialog_form.moc"
