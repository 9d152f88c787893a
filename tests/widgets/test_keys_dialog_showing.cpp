#include "support/FailOnWarning.h"
#include "widgets/KeysDialogFixture.h"

#include <cmath>
#include <memory>

namespace {

const QString several("...");

/// A TCB key at (10, 10), another at (20, 20), a Bezier key at (30, 30), a linear one at (40, 5).
LentCurve& editMixedCurve(KeysDialogFixture& fixture)
{
    LentCurve& curve = fixture.editCurve("n.c", {{10.0, 10.0, zk_spline::tcb},
                                                 {20.0, 20.0, zk_spline::tcb},
                                                 {30.0, 30.0, zk_spline::bezier},
                                                 {40.0, 5.0, zk_spline::linear}});
    curve.spline.at(0)->tcb = {0.5, -0.25, 1.0, 0.3, 0.1};
    curve.spline.at(1)->tcb = {0.5, 0.75, 2.0, 0.3, 0.2};
    curve.spline.at(2)->bezier = {-1.5, 2.25};
    curve.spline.at(3)->tcb = {3.0, 2.0, 1.0, 0.0, 1.0};
    fixture.editor.setShowTime();
    return curve;
}

QStringList textsOf(const QList<CustomEditLine*>& lines)
{
    QStringList texts;
    for (const CustomEditLine* const line : lines) {
        texts.append(line->text());
    }
    return texts;
}

} // namespace

class TestKeysDialogShowing : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { fixture.reset(); }

    void withoutASelectedKeyAllIsClosedAndThePositionEmpty();
    void oneKeyShowsItsIndexAndAllItsValues();
    void theButtonsWalkAroundBothEnds();
    void twoKeysOfOneCurveHaveNoOneIndexOrTime();
    void equalFieldsShowTheirValueAndDifferingOnesDots();
    void twoKeysOfOneTimeStillHaveNoOneTime();
    void keysOfTwoCurvesKeepTheTimeOpen();
    void oneKeyBesideACurveWithoutAnyHasNoNeighbours();
    void aBezierKeyAndAnotherLeaveOnlyWhatBothHave();
    void eachInterpolationHasItsEntryAndPage_data();
    void eachInterpolationHasItsEntryAndPage();
    void framesShowTheTimeTimesTheRate();
    void valuesThatAreNoNumberShowDots();
    void decimalsAreThoseOfTheEditor();
    void dotsCarryNoToolTipOfAnOlderValue();
    void thePreviewTakesOnTheKey();

private:
    CustomEditLine* twinX() const { return fixture->editor.positionX(); }
    CustomEditLine* twinY() const { return fixture->editor.positionY(); }

    QList<QWidget*> openable() const;

    std::unique_ptr<KeysDialogFixture> fixture;
    CurveKeysDialog* dialog = nullptr;
};

void TestKeysDialogShowing::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<KeysDialogFixture>();
    dialog = &fixture->dialog;
}

void TestKeysDialogShowing::withoutASelectedKeyAllIsClosedAndThePositionEmpty()
{
    editMixedCurve(*fixture);
    fixture->pick({{10.0, 10.0}});
    QVERIFY(dialog->tension->isEnabled());
    fixture->editor.selectNoneKeys();
    for (const QWidget* const widget : openable()) {
        QVERIFY2(!widget->isEnabled(), qPrintable(widget->objectName()));
    }
    QVERIFY(!dialog->node->isEnabled());
    for (const CustomEditLine* const line :
         {dialog->node, dialog->posX, dialog->posY, twinX(), twinY()}) {
        QVERIFY(line->text().isEmpty());
    }
}

void TestKeysDialogShowing::oneKeyShowsItsIndexAndAllItsValues()
{
    editMixedCurve(*fixture);
    fixture->pick({{20.0, 20.0}});
    QCOMPARE(dialog->node->text(), QString("1"));
    QVERIFY(!dialog->node->isEnabled());
    QCOMPARE(textsOf({dialog->posX, dialog->posY, dialog->tension, dialog->continuity, dialog->bias,
                      dialog->easeTo, dialog->easeFrom}),
             QStringList({"20.00", "20.00", "0.50", "0.75", "2.00", "0.30", "0.20"}));
    QCOMPARE(textsOf({twinX(), twinY()}), QStringList({"20.00", "20.00"}));
    QCOMPARE(dialog->nodeTypeCombo->currentIndex(), 0);
    for (const QWidget* const widget : openable()) {
        QVERIFY2(widget->isEnabled(), qPrintable(widget->objectName()));
    }
    fixture->pick({{30.0, 30.0}});
    QCOMPARE(textsOf({dialog->node, dialog->incoming, dialog->outgoing}),
             QStringList({"2", "-1.50", "2.25"}));
}

void TestKeysDialogShowing::theButtonsWalkAroundBothEnds()
{
    editMixedCurve(*fixture);
    fixture->pick({{40.0, 5.0}});
    QCOMPARE(dialog->node->text(), QString("3"));
    QTest::mouseClick(dialog->nextNode, Qt::LeftButton);
    QCOMPARE(dialog->node->text(), QString("0"));
    QCOMPARE(dialog->posX->text(), QString("10.00"));
    QTest::mouseClick(dialog->nextNode, Qt::LeftButton);
    QCOMPARE(dialog->node->text(), QString("1"));
    QTest::mouseClick(dialog->prevNode, Qt::LeftButton);
    QTest::mouseClick(dialog->prevNode, Qt::LeftButton);
    QCOMPARE(dialog->node->text(), QString("3"));
    QCOMPARE(fixture->selectionOf("n.c").selectedPoints,
             QList<PointInfo*>{fixture->curves.at("n.c")->spline.at(3)});
}

void TestKeysDialogShowing::twoKeysOfOneCurveHaveNoOneIndexOrTime()
{
    editMixedCurve(*fixture);
    fixture->pick({{10.0, 10.0}, {20.0, 20.0}});
    QCOMPARE(dialog->node->text(), QString("#"));
    QCOMPARE(textsOf({dialog->posX, twinX(), dialog->posY, twinY()}),
             QStringList({several, several, several, several}));
    QVERIFY(!dialog->posX->isEnabled());
    QVERIFY(!twinX()->isEnabled());
    QVERIFY(!dialog->prevNode->isEnabled());
    QVERIFY(!dialog->nextNode->isEnabled());
    for (const QWidget* const widget :
         QList<QWidget*>{dialog->posY, twinY(), dialog->tension, dialog->continuity, dialog->bias,
                         dialog->incoming, dialog->outgoing, dialog->easeFrom, dialog->easeTo,
                         dialog->nodeTypeCombo}) {
        QVERIFY2(widget->isEnabled(), qPrintable(widget->objectName()));
    }
}

void TestKeysDialogShowing::equalFieldsShowTheirValueAndDifferingOnesDots()
{
    editMixedCurve(*fixture);
    fixture->pick({{10.0, 10.0}, {20.0, 20.0}});
    QCOMPARE(textsOf({dialog->tension, dialog->continuity, dialog->bias, dialog->easeTo,
                      dialog->easeFrom}),
             QStringList({"0.50", several, several, "0.30", several}));
}

void TestKeysDialogShowing::twoKeysOfOneTimeStillHaveNoOneTime()
{
    fixture->editCurve("n.c", {{10.0, 10.0}, {10.0, 20.0}, {20.0, 20.0}});
    fixture->selectKeys("n.c", {0, 1});
    fixture->editor.refreshEditor();
    QCOMPARE(textsOf({dialog->node, dialog->posX}), QStringList({"#", several}));
}

void TestKeysDialogShowing::keysOfTwoCurvesKeepTheTimeOpen()
{
    fixture->addCurve("n.c", {{10.0, 10.0}, {20.0, 5.0}});
    fixture->addCurve("n.d", {{10.0, 30.0}, {20.0, 35.0}});
    fixture->editor.selectNodes(QStringList({"n.c", "n.d"}));
    fixture->editor.setShowTime();
    fixture->pick({{10.0, 10.0}, {10.0, 30.0}});
    QCOMPARE(textsOf({dialog->node, dialog->posX, dialog->posY}),
             QStringList({"#", "10.00", several}));
    QVERIFY(dialog->posX->isEnabled());
    QVERIFY(twinX()->isEnabled());
    QVERIFY(!dialog->prevNode->isEnabled());
    QVERIFY(!dialog->nextNode->isEnabled());
}

void TestKeysDialogShowing::oneKeyBesideACurveWithoutAnyHasNoNeighbours()
{
    fixture->addCurve("n.c", {{10.0, 10.0}, {20.0, 5.0}});
    fixture->addCurve("n.d", {{10.0, 30.0}, {20.0, 35.0}});
    fixture->editor.selectNodes(QStringList({"n.c", "n.d"}));
    fixture->pick({{10.0, 10.0}});
    QCOMPARE(dialog->node->text(), QString("0"));
    QVERIFY(dialog->posX->isEnabled());
    QVERIFY(!dialog->nextNode->isEnabled());
}

void TestKeysDialogShowing::aBezierKeyAndAnotherLeaveOnlyWhatBothHave()
{
    editMixedCurve(*fixture);
    fixture->pick({{20.0, 20.0}, {30.0, 30.0}});
    for (const CustomEditLine* const line :
         {dialog->tension, dialog->continuity, dialog->bias, dialog->incoming, dialog->outgoing}) {
        QVERIFY2(!line->isEnabled(), qPrintable(line->objectName()));
    }
    QVERIFY(dialog->easeTo->isEnabled());
    QVERIFY(dialog->easeFrom->isEnabled());
    QVERIFY(dialog->posY->isEnabled());
    QVERIFY(dialog->nodeTypeCombo->isEnabled());
}

void TestKeysDialogShowing::eachInterpolationHasItsEntryAndPage_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("entry");
    QTest::addColumn<int>("page");
    QTest::newRow("linear") << int(zk_spline::linear) << 2 << 0;
    QTest::newRow("Bezier") << int(zk_spline::bezier) << 1 << 1;
    QTest::newRow("TCB") << int(zk_spline::tcb) << 0 << 0;
    QTest::newRow("stepped") << int(zk_spline::stepped) << 3 << 0;
}

void TestKeysDialogShowing::eachInterpolationHasItsEntryAndPage()
{
    QFETCH(int, type);
    const auto interpolation = static_cast<zk_spline::interpolationType>(type);
    LentCurve& curve =
        fixture->editCurve("n.c", {{10.0, 10.0, interpolation}, {20.0, 20.0, interpolation}});
    curve.spline.at(0)->tcb = {3.0, 2.0, 1.0, 0.0, 0.0};
    fixture->pick({{10.0, 10.0}});
    QTEST(dialog->nodeTypeCombo->currentIndex(), "entry");
    QTEST(dialog->nodeTypeWidgetStack->currentIndex(), "page");
    // Linear and stepped keys show the TCB values that they store.
    QCOMPARE(textsOf({dialog->tension, dialog->continuity, dialog->bias}),
             QStringList({"3.00", "2.00", "1.00"}));
}

void TestKeysDialogShowing::framesShowTheTimeTimesTheRate()
{
    fixture->editCurve("n.c", {{2.0, 10.0}, {20.0, 20.0}});
    fixture->editor.setFps(25.0);
    fixture->pick({{2.0, 10.0}});
    QCOMPARE(textsOf({dialog->posX, twinX()}), QStringList({"50.00", "50.00"}));
    fixture->editor.setShowTime();
    QCOMPARE(textsOf({dialog->posX, twinX()}), QStringList({"2.00", "2.00"}));
    dialog->setPosX(3.0);
    QCOMPARE(textsOf({dialog->posX, twinX()}), QStringList({"3.00", "3.00"}));
}

void TestKeysDialogShowing::valuesThatAreNoNumberShowDots()
{
    LentCurve& curve = fixture->editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    fixture->pick({{10.0, 10.0}});
    curve.spline.at(0)->value = std::nan("");
    fixture->editor.refreshEditor();
    QCOMPARE(textsOf({dialog->posY, twinY()}), QStringList({several, several}));
    QCOMPARE(dialog->node->text(), QString("0"));
}

void TestKeysDialogShowing::decimalsAreThoseOfTheEditor()
{
    editMixedCurve(*fixture);
    fixture->pick({{20.0, 20.0}});
    fixture->editor.setNumberOfDecimals(4);
    QCOMPARE(textsOf({dialog->posX, twinX(), dialog->tension}),
             QStringList({"20.0000", "20.0000", "0.5000"}));
    QCOMPARE(dialog->tension->toolTip(), QString("0.5000"));
}

void TestKeysDialogShowing::dotsCarryNoToolTipOfAnOlderValue()
{
    editMixedCurve(*fixture);
    fixture->pick({{10.0, 10.0}});
    QCOMPARE(dialog->bias->toolTip(), QString("1.00"));
    fixture->pick({{10.0, 10.0}, {20.0, 20.0}});
    QCOMPARE(dialog->bias->text(), several);
    QVERIFY(dialog->bias->toolTip().isEmpty());
}

void TestKeysDialogShowing::thePreviewTakesOnTheKey()
{
    editMixedCurve(*fixture);
    fixture->pick({{20.0, 20.0}});
    const QImage first = dialog->tcbCurve->grab().toImage();
    fixture->pick({{30.0, 30.0}});
    QVERIFY(dialog->tcbCurve->grab().toImage() != first);
    fixture->pick({{20.0, 20.0}});
    QCOMPARE(dialog->tcbCurve->grab().toImage(), first);
}

QList<QWidget*> TestKeysDialogShowing::openable() const
{
    return {dialog->prevNode, dialog->nextNode,
            dialog->posX,     dialog->posY,
            twinX(),          twinY(),
            dialog->tension,  dialog->continuity,
            dialog->bias,     dialog->easeFrom,
            dialog->easeTo,   dialog->incoming,
            dialog->outgoing, dialog->nodeTypeCombo};
}

QTEST_MAIN(TestKeysDialogShowing)
#include "test_keys_dialog_showing.moc"
