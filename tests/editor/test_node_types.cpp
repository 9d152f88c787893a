#include "commands/CurveCommand.h"
#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

class TestNodeTypes : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void behavioursAreSetInOneStepOfUndo_data();
    void behavioursAreSetInOneStepOfUndo();
    void indexesOutsideTheListMakeNoCommand_data();
    void indexesOutsideTheListMakeNoCommand();
    void selectedKeysGetTheirType_data();
    void selectedKeysGetTheirType();
    void withoutCurvesTypesMakeNoStep();
    void theBehaviourMenuSetsTheBehaviour();
};

void TestNodeTypes::behavioursAreSetInOneStepOfUndo_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<bool>("isFirst");
    QTest::addColumn<int>("behaviour");
    QTest::newRow("first zero") << QByteArray("setFirstNodeZero") << true << 0;
    QTest::newRow("first constant") << QByteArray("setFirstNodeConstant") << true << 1;
    QTest::newRow("last zero") << QByteArray("setLastNodeZero") << false << 0;
    QTest::newRow("last constant") << QByteArray("setLastNodeConstant") << false << 1;
    QTest::newRow("last loop") << QByteArray("setLastNodeLoop") << false << 2;
    QTest::newRow("last loop offset") << QByteArray("setLastNodeLoopOffset") << false << 3;
    QTest::newRow("last follow tangent") << QByteArray("setLastNodeFollowTangent") << false << 4;
}

void TestNodeTypes::behavioursAreSetInOneStepOfUndo()
{
    QFETCH(QByteArray, slot);
    QFETCH(bool, isFirst);
    QFETCH(int, behaviour);
    EditorFixture fixture;
    SplineBase& spline = fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}}).spline;
    // Start from another behaviour than the one to come.
    const auto other = behaviour == 2 ? SplineBase::zero : SplineBase::loop;
    spline.setFirstNodeType(other);
    spline.setLastNodeType(other);
    QVERIFY(QMetaObject::invokeMethod(&fixture.editor, slot.constData()));
    QCOMPARE(static_cast<int>(spline.firstNodeType()), isFirst ? behaviour : int(other));
    QCOMPARE(static_cast<int>(spline.lastNodeType()), isFirst ? int(other) : behaviour);
    QCOMPARE(fixture.undoAll().size(), 1);
    QCOMPARE(spline.firstNodeType(), other);
    QCOMPARE(spline.lastNodeType(), other);
}

void TestNodeTypes::indexesOutsideTheListMakeNoCommand_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("first");
    QTest::addColumn<bool>("last");
    QTest::newRow("-1") << -1 << false << false;
    QTest::newRow("0") << 0 << true << true;
    QTest::newRow("1") << 1 << true << true;
    QTest::newRow("2") << 2 << false << true;
    QTest::newRow("3") << 3 << false << true;
    QTest::newRow("4") << 4 << false << true;
    QTest::newRow("5") << 5 << false << false;
}

void TestNodeTypes::indexesOutsideTheListMakeNoCommand()
{
    QFETCH(int, index);
    QFETCH(bool, first);
    QFETCH(bool, last);
    EditorFixture fixture;
    SplineBase& spline = fixture.editCurve("n.c", {{10.0, 10.0}}).spline;
    const auto other = index == 2 ? SplineBase::zero : SplineBase::loop;
    spline.setFirstNodeType(other);
    spline.setLastNodeType(other);
    fixture.editor.changeNodeFirstType(index);
    QCOMPARE(static_cast<int>(spline.firstNodeType()), first ? index : int(other));
    QCOMPARE(fixture.undoAll().size(), first ? 1 : 0);
    fixture.editor.changeNodeLastType(index);
    QCOMPARE(static_cast<int>(spline.lastNodeType()), last ? index : int(other));
    QCOMPARE(fixture.undoAll().size(), last ? 1 : 0);
}

void TestNodeTypes::selectedKeysGetTheirType_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<int>("type");
    QTest::newRow("linear") << "Set Selected to Linear" << 0;
    QTest::newRow("bezier") << "Set Selected to Bezier" << 1;
    QTest::newRow("tcb") << "Set Selected to TCB" << 2;
    QTest::newRow("stepped") << "Set Selected to Stepped" << 3;
}

void TestNodeTypes::selectedKeysGetTheirType()
{
    QFETCH(QString, entry);
    QFETCH(int, type);
    EditorFixture fixture;
    const auto start = type == 0 ? zk_spline::stepped : zk_spline::linear;
    SplineBase& spline =
        fixture.editCurve("n.c", {{10.0, 10.0, start}, {20.0, 20.0, start}}).spline;
    fixture.selectKeys("n.c", {1});
    fixture.editor.refreshEditor();
    menuAction(fixture.editor, "Keys/Node Type/" + entry)->trigger();
    QCOMPARE(static_cast<int>(spline.at(1)->type), type);
    QCOMPARE(spline.at(0)->type, start);
    QCOMPARE(fixture.undoAll().size(), 1);
    QCOMPARE(spline.at(1)->type, start);
}

void TestNodeTypes::withoutCurvesTypesMakeNoStep()
{
    EditorFixture fixture;
    fixture.editor.setSelectedBezier();
    fixture.editor.setLastNodeLoop();
    QVERIFY(fixture.undoAll().isEmpty());
}

void TestNodeTypes::theBehaviourMenuSetsTheBehaviour()
{
    EditorFixture fixture;
    SplineBase& spline = fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}}).spline;
    menuAction(fixture.editor, "Keys/Last Node Behaviour/Loop offset")->trigger();
    QCOMPARE(spline.lastNodeType(), SplineBase::loopOffset);
    menuAction(fixture.editor, "Keys/Start Node Behaviour/Zero")->trigger();
    QCOMPARE(spline.firstNodeType(), SplineBase::zero);
}

QTEST_MAIN(TestNodeTypes)
#include "test_node_types.moc"
