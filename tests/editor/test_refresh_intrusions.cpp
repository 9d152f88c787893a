// A host whose refresh functions change the list of curves while these are evaluated.

#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/RefreshedVariable.h"

#include "core/EvaluationTime.h"
#include "curves/CurveNodeBase.h"
#include "support/ParsedExpression.h"

class TestRefreshIntrusions : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aRefreshFunctionTakesTheCurveOffTheList_data();
    void aRefreshFunctionTakesTheCurveOffTheList();
    void whatARefreshFunctionThrowsLeavesNoPaint();
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

QTEST_MAIN(TestRefreshIntrusions)
#include "test_refresh_intrusions.moc"
