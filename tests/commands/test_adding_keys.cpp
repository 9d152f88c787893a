#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/HostEar.h"

#include "commands/CommandAddPoint.h"
#include "commands/KeyLists.h"
#include "support/RefreshCounter.h"

using namespace curve_editor;

/// The command that adds a key.
class TestAddingKeys : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aNewKeyHoldsTheDefaults_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("broken");
        QTest::newRow("bezier, unified") << 1 << false;
        QTest::newRow("stepped, broken") << 3 << true;
    }

    void aNewKeyHoldsTheDefaults()
    {
        QFETCH(int, type);
        QFETCH(bool, broken);
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {9, 9}});
        fixture.logic().defaultNodeType = type;
        fixture.logic().defaultBrokenTangent = broken;
        NodeStruct* const record = fixture.editor.searchAllNodeList("n.a");
        QVERIFY(fixture.editor.getCmdManager()->doCommand(
            new CommandAddPoint(&fixture.editor, record, 5.0, 7.0)));
        const PointInfo* const key = curve.spline.at(1);
        QCOMPARE(key->time, 5.0);
        QCOMPARE(key->value, 7.0);
        QCOMPARE(int(key->type), type);
        QCOMPARE(key->unifiedTangents, !broken);
        QCOMPARE(key->bezier.tangentLeft, 0.0);
        QCOMPARE(key->bezier.tangentRight, 0.0);
        QCOMPARE(key->tcb.tension, 0.0);
        QCOMPARE(key->tcb.continuity, 0.0);
        QCOMPARE(key->tcb.bias, 0.0);
        QCOMPARE(key->tcb.easeTo, 0.0);
        QCOMPARE(key->tcb.easeFrom, 0.0);
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, key);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints.size(), 1);
    }

    void undoTakesOutTheVeryKeyAndRedoPutsItBack()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{5, 1}, {9, 9}});
        fixture.selectKeys("n.a", {0, 1});
        PointInfo* const old = curve.spline.at(0);
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        manager.doCommand(new CommandAddPoint(&fixture.editor,
                                              fixture.editor.searchAllNodeList("n.a"), 5.0, 7.0));
        QCOMPARE(keyTimes(curve.spline), (QList<double>{5, 5, 9}));
        PointInfo* const added = fixture.selectionOf("n.a").currentPoint;
        QVERIFY(added != old);
        QCOMPARE(QString::fromStdString(manager.undo()->getDescription()),
                 QString("Add New Control Point"));
        QCOMPARE(curve.spline.findIndex(added), -1);
        QCOMPARE(curve.spline.findIndex(old), 0);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints.size(), 2);
        manager.redo();
        QVERIFY(curve.spline.findIndex(added) >= 0);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints, QList<PointInfo*>{added});
    }

    void aMissingNodeOrSplineRefusesTheKey()
    {
        EditorFixture fixture;
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        QVERIFY(!manager.doCommand(new CommandAddPoint(&fixture.editor, nullptr, 1.0, 1.0)));
        fixture.editor.addCurve("n", "a", Qt::red, 0, nullptr, nullptr, 0, 1, true, true);
        QVERIFY(!manager.doCommand(new CommandAddPoint(
            &fixture.editor, fixture.editor.searchAllNodeList("n.a"), 1.0, 1.0)));
        QVERIFY(!manager.undo());
    }

    void addingTellsTheHostAndThenRefreshes()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a.b", {{1, 1}});
        HostEar host(fixture.editor);
        RefreshCounter refreshes(fixture.editor);
        fixture.editor.getCmdManager()->doCommand(new CommandAddPoint(
            &fixture.editor, fixture.editor.searchAllNodeList("n.a.b"), 5.0, 7.0));
        QCOMPARE(host.take(), QStringList{"n|a.b"});
        QCOMPARE(refreshes.taken(), 1);
        fixture.editor.getCmdManager()->undo();
        QCOMPARE(host.take(), QStringList{"n|a.b"});
        QCOMPARE(refreshes.taken(), 1);
        fixture.editor.getCmdManager()->redo();
        QCOMPARE(host.take(), QStringList{"n|a.b"});
        QCOMPARE(refreshes.taken(), 1);
    }

    void undoOfAKeyOnACurveThatLeftTheCanvasTellsNobodyButRefreshes()
    {
        EditorFixture fixture;
        fixture.addCurve("n.b", {{1, 1}});
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        fixture.editor.getCmdManager()->doCommand(new CommandAddPoint(
            &fixture.editor, fixture.editor.searchAllNodeList("n.a"), 5.0, 7.0));
        fixture.editor.removeCurveFromEditing("n.a");
        fixture.editor.selectNodes(QString("n.b"));
        HostEar host(fixture.editor);
        RefreshCounter refreshes(fixture.editor);
        fixture.editor.getCmdManager()->undo();
        QCOMPARE(keyTimes(curve.spline), QList<double>{1});
        QVERIFY(host.take().isEmpty());
        QCOMPARE(refreshes.taken(), 1);
        fixture.editor.getCmdManager()->redo();
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1, 5}));
        QVERIFY(host.take().isEmpty());
        QCOMPARE(refreshes.taken(), 1);
    }

    void aKeyThatTheHostTookIsNotTakenAgain()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        manager.doCommand(new CommandAddPoint(&fixture.editor,
                                              fixture.editor.searchAllNodeList("n.a"), 5.0, 7.0));
        fixture.selectionOf("n.a").clear();
        const std::unique_ptr<PointInfo> taken(curve.spline.at(1));
        curve.spline.remove(taken.get());
        manager.undo();
        manager.redo();
        QCOMPARE(keyTimes(curve.spline), QList<double>{1});
    }
};

QTEST_MAIN(TestAddingKeys)
#include "test_adding_keys.moc"
