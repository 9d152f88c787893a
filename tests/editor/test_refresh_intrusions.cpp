// A host whose refresh functions change curves while these are evaluated.

#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/RefreshedVariable.h"

#include "core/EvaluationTime.h"
#include "curves/CurveFile.h"
#include "curves/CurveNodeBase.h"
#include "support/ParsedExpression.h"
#include "widgets/CommandLine.h"

#include <QTemporaryDir>

class TestRefreshIntrusions : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aRefreshFunctionTakesTheCurveOffTheList_data();
    void aRefreshFunctionTakesTheCurveOffTheList();
    void whatARefreshFunctionThrowsLeavesNoPaint();
    void aRefreshFunctionChangesTheExpressionThatCallsIt_data();
    void aRefreshFunctionChangesTheExpressionThatCallsIt();
    void aRefreshFunctionDestroysTheSplineThatIsPainted_data();
    void aRefreshFunctionDestroysTheSplineThatIsPainted();
    void aRefreshFunctionDeletesTheEditor_data();
    void aRefreshFunctionDeletesTheEditor();
};

void TestRefreshIntrusions::aRefreshFunctionTakesTheCurveOffTheList_data()
{
    QTest::addColumn<int>("chain");
    QTest::addColumn<QString>("road");
    QTest::newRow("by name") << 1 << "expression";
    QTest::newRow("by name, with its node") << 1 << "node";
    QTest::newRow("by name, through more curves than may nest") << 120 << "expression";
    QTest::newRow("in a paint") << 1 << "paint";
    QTest::newRow("renamed") << 1 << "rename";
}

void TestRefreshIntrusions::aRefreshFunctionTakesTheCurveOffTheList()
{
    QFETCH(int, chain);
    QFETCH(QString, road);
    EditorFixture fixture;
    bool isDue = false;
    int calls = 0;
    const RefreshedVariable intruder("intruder", [&](double& value) {
        value = 2.0;
        ++calls;
        if (std::exchange(isDue, false)) {
            if (road == "node") {
                fixture.editor.removeNode("n");
            } else if (road == "rename") {
                fixture.editor.renameCurve("n", "c0", "other");
            } else {
                fixture.editor.removeCurve("n", "c0");
            }
        }
    });
    const int last = chain - 1;
    for (int i = last; i >= 0; --i) {
        const std::string text = i == last ? "intruder+1" : "n.c" + std::to_string(i + 1);
        fixture.addCurve(QString("n.c%1").arg(i), {}, text.c_str());
    }
    fixture.editCurve("m.b", {}, "n.c0*2");
    isDue = true;
    if (road == "paint") {
        fixture.paint();
    } else {
        const ParsedExpression parsed("n.c0*2");
        const EvaluationTime moment(1.0, 10.0);
        parsed.tree->value();
    }
    QVERIFY(!isDue);
    QVERIFY(calls > 0);
    fixture.paint();
}

void TestRefreshIntrusions::whatARefreshFunctionThrowsLeavesNoPaint()
{
    EditorFixture fixture;
    bool throws = false;
    const RefreshedVariable thrower("thrower", [&](double& value) {
        value = 2.0;
        if (throws) {
            throw std::runtime_error("refreshing");
        }
    });
    fixture.editCurve("n.a", {}, "thrower+t");
    throws = true;
    fixture.paint();
    fixture.moveTo(QPoint(50, 50), Qt::NoButton);
    throws = false;
    fixture.paint();
    auto* const curve = dynamic_cast<CurveNodeBase*>(fixture.logic().findCurve("n.a"));
    QCOMPARE(curve->evaluate(1.0), 3.0);
}

void TestRefreshIntrusions::aRefreshFunctionChangesTheExpressionThatCallsIt_data()
{
    QTest::addColumn<QString>("road");
    QTest::addColumn<QString>("deed");
    for (const char* const road : {"name", "name without a moment", "slot", "paint",
                                   "paint of a sum", "cursor", "cursor over a sum"}) {
        for (const char* const deed :
             {"delete", "delete out of sight", "replace", "undo", "load"}) {
            QTest::addRow("%s: %s", road, deed) << road << deed;
        }
    }
}

void TestRefreshIntrusions::aRefreshFunctionChangesTheExpressionThatCallsIt()
{
    QFETCH(QString, road);
    QFETCH(QString, deed);
    EditorFixture fixture;
    LentCurve& curve = fixture.editCurve("n.c", {{5.0, 1.0}, {25.0, 1.0}}, "t*3");
    curve.spline.setAddFunc(road.endsWith("sum"));
    QTemporaryDir folder;
    const QString path = folder.filePath("curve.xml");
    dynamic_cast<CurveNodeBase*>(fixture.logic().findCurve("n.c"))->saveXML(path);
    fixture.paint();
    bool isDue = false;
    const RefreshedVariable intruder("intruder", [&](double& value) {
        value = 2.0;
        if (!std::exchange(isDue, false)) {
            return;
        }
        if (deed.startsWith("delete")) {
            fixture.editor.setVisible(!deed.endsWith("sight"));
            fixture.editor.deleteExpression("n", "c", &curve.expression);
        } else if (deed == "replace") {
            fixture.editor.commandLine->setText("t*4");
            fixture.editor.executeCommand();
        } else if (deed == "undo") {
            fixture.editor.getCmdManager()->undo();
        } else {
            QString error;
            QVERIFY(curve_editor::readCurveFile(path, &curve.spline, &curve.expression, error));
        }
    });
    fixture.editor.commandLine->setText("(intruder+t)*(t+intruder)-t");
    fixture.editor.executeCommand();
    isDue = true;
    if (road.startsWith("paint")) {
        fixture.paint();
    } else if (road.startsWith("cursor")) {
        fixture.moveTo(QPoint(50, 50), Qt::NoButton);
    } else if (road == "slot") {
        QCOMPARE(curve.expression->value(), 4.0);
    } else {
        const ParsedExpression parsed("n.c*2+intruder");
        std::unique_ptr<EvaluationTime> moment;
        if (road == "name") {
            moment = std::make_unique<EvaluationTime>(1.0, 10.0);
        }
        parsed.tree->value();
    }
    QVERIFY(!isDue);
    auto* const node = dynamic_cast<CurveNodeBase*>(fixture.logic().findCurve("n.c"));
    const bool isToldToCurve = deed == "delete" || deed == "replace" || deed == "undo";
    if (road.startsWith("paint") && isToldToCurve) {
        QVERIFY(node->hasChanged()); // what was painted is what stood there before
    }
    const std::map<QString, double> values = {{"delete", 0.0},
                                              {"delete out of sight", 0.0},
                                              {"replace", 4.0},
                                              {"undo", 3.0},
                                              {"load", 3.0}};
    fixture.editor.show();
    fixture.paint();
    const double atOne = values.at(deed);
    const double keys = road.endsWith("sum") || atOne == 0.0 ? 1.0 : 0.0;
    QCOMPARE(node->evaluate(1.0), atOne + keys);
}

void TestRefreshIntrusions::aRefreshFunctionDestroysTheSplineThatIsPainted_data()
{
    QTest::addColumn<bool>("isSum");
    QTest::addColumn<double>("due");
    QTest::newRow("expression") << false << 5.0;
    QTest::newRow("sum, between the keys") << true << 5.0;
    QTest::newRow("sum, behind the keys") << true << 30.0;
}

void TestRefreshIntrusions::aRefreshFunctionDestroysTheSplineThatIsPainted()
{
    QFETCH(bool, isSum);
    QFETCH(double, due);
    auto spline = std::make_unique<SplineBase>();
    spline->addPoint(2.0, 1.0);
    spline->addPoint(20.0, 5.0);
    spline->setAddFunc(isSum);
    const RefreshedVariable intruder("intruder", [&](double& value) {
        value = 2.0;
        if (EvaluationTime::now()[0] > due) {
            spline.reset();
        }
    });
    ParsedExpression parsed("(intruder+t)*(t+intruder)-t");
    FunctionFloatBase* slot = parsed.tree.get();
    EditorFixture fixture;
    fixture.editor.addCurve("n", "c", Qt::green, 0.0f, spline.get(), &slot, -1000.0f, 1000.0f,
                            false, true);
    fixture.editor.setCurveEditableOn(fixture.editor.searchAllNodeList("n.c"));
    fixture.editor.selectNodes(QStringList("n.c"));
    fixture.paint();
    QVERIFY(!spline);
    fixture.paint();
    fixture.moveTo(QPoint(50, 50), Qt::NoButton);
}

void TestRefreshIntrusions::aRefreshFunctionDeletesTheEditor_data()
{
    QTest::addColumn<QString>("road");
    for (const char* const road : {"name", "move", "press", "evaluate"}) {
        QTest::newRow(road) << road;
    }
}

/// At once; in a paint it would have to wait.
void TestRefreshIntrusions::aRefreshFunctionDeletesTheEditor()
{
    QFETCH(QString, road);
    LentCurve curve;
    curve.setExpression("t");
    auto editor = std::make_unique<CurveEditor>(nullptr, qEnvironmentVariable("ZK_ICONS_DIR"));
    editor->show();
    editor->addCurve("n", "c", Qt::green, 0.0f, &curve.spline, &curve.expression, -1000.0f, 1000.0f,
                     false, true);
    editor->setCurveEditableOn(editor->searchAllNodeList("n.c"));
    editor->selectNodes(QStringList("n.c"));
    FunctionEditor* const canvas = editor->getFunctionEditor();
    canvas->repaint();
    bool isDue = false;
    const RefreshedVariable intruder("intruder", [&](double& value) {
        value = 2.0;
        if (isDue) {
            editor.reset();
        }
    });
    curve.setExpression("(intruder+t)*(t+intruder)-t");
    isDue = true;
    if (road == "name") {
        const ParsedExpression parsed("n.c*2+intruder");
        const EvaluationTime moment(1.0, 10.0);
        QCOMPARE(parsed.tree->value(), 2.0); // the curve is gone and reads 0
    } else if (road == "evaluate") {
        auto* const node = dynamic_cast<CurveNodeBase*>(canvas->canvas().findCurve("n.c"));
        QCOMPARE(node->evaluate(1.0), 8.0);
    } else {
        const QEvent::Type type = road == "press" ? QEvent::MouseButtonPress : QEvent::MouseMove;
        const Qt::MouseButton button = road == "press" ? Qt::MiddleButton : Qt::NoButton;
        QMouseEvent event(type, QPointF(50.0, 50.0), canvas->mapToGlobal(QPointF(50.0, 50.0)),
                          button, button, Qt::NoModifier);
        QApplication::sendEvent(canvas, &event);
    }
    QVERIFY(!editor);
}

QTEST_MAIN(TestRefreshIntrusions)
#include "test_refresh_intrusions.moc"
