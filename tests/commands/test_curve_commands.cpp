// Adding curves and taking them out of the editing set.

#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/HostEar.h"

#include "commands/CommandAddCurve.h"
#include "commands/CommandAddPoint.h"
#include "commands/CommandRemoveCurves.h"
#include "curves/CurveNodeBase.h"

using namespace curve_editor;

namespace {

QStringList selectedItems(const CurveEditor& editor)
{
    QStringList names;
    for (QTreeWidgetItem* item : editor.checkListsEditing->selectedItems()) {
        names.append(editor.checkListsEditing->itemDotName(item));
    }
    return names;
}

std::unique_ptr<CommandAddCurve> addCommand(CurveEditor& editor, LentCurve& curve, bool select)
{
    return std::make_unique<CommandAddCurve>(&editor, "n", "a", QColor(Qt::red), 0.0f,
                                             &curve.spline, &curve.expression, -10.0f, 10.0f,
                                             select, true);
}

} // namespace

class TestCurveCommands : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void addingReportsTheEditingCurves()
    {
        LentCurve curve;
        EditorFixture fixture;
        fixture.editCurve("n.b", {{1, 1}});
        curve.addKey(1, 1);
        HostEar host(fixture.editor);
        QVERIFY(addCommand(fixture.editor, curve, false)->execute());
        QCOMPARE(host.take(), QStringList{"n|b"});
        QVERIFY(addCommand(fixture.editor, curve, true)->execute());
        QCOMPARE(host.take(), QStringList{"n|a"});
    }

    void addingACurveThatIsOnTheCanvasIsRefused()
    {
        LentCurve curve;
        EditorFixture fixture;
        curve.addKey(1, 1);
        QVERIFY(addCommand(fixture.editor, curve, true)->execute());
        fixture.editor.selectNodes(QStringList());
        HostEar host(fixture.editor);
        QVERIFY(!addCommand(fixture.editor, curve, false)->execute());
        QVERIFY(fixture.editor.getSelection().isEmpty());
        QVERIFY(!addCommand(fixture.editor, curve, true)->execute());
        QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});
        QVERIFY(host.take().isEmpty());
    }

    void anAddedCurveIsTakenBackAndPutBackAsTheSameObject()
    {
        LentCurve curve;
        EditorFixture fixture;
        fixture.editCurve("n.b", {{1, 1}});
        curve.addKey(1, 1);
        const auto command = addCommand(fixture.editor, curve, true);
        QVERIFY(command->execute());
        CurveNode* const object = fixture.logic().findCurve("n.a");
        QVERIFY(object);
        command->undo();
        QVERIFY(!fixture.editor.searchAllNodeList("n.a"));
        QVERIFY(!fixture.logic().findCurve("n.a"));
        QCOMPARE(fixture.editor.getSelection(), QStringList{"n.b"});
        command->redo();
        QVERIFY(fixture.editor.searchAllNodeList("n.a"));
        QCOMPARE(fixture.logic().findCurve("n.a"), object);
        QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});
        command->undo(); // the command now frees the object
    }

    void aListedCurveThatWasAddedAgainStaysListedAfterUndo()
    {
        LentCurve curve;
        EditorFixture fixture;
        curve.addKey(1, 1);
        QVERIFY(addCommand(fixture.editor, curve, false)->execute());
        const auto command = addCommand(fixture.editor, curve, true);
        QVERIFY(command->execute());
        QVERIFY(fixture.logic().findCurve("n.a"));
        command->undo();
        QVERIFY(!fixture.logic().findCurve("n.a"));
        QVERIFY(fixture.editor.searchAllNodeList("n.a"));
    }

    void redoOfACurveWhoseSplineIsDestroyedListsItWithoutOne()
    {
        EditorFixture fixture;
        auto curve = std::make_unique<LentCurve>();
        curve->addKey(1, 1);
        const auto command = addCommand(fixture.editor, *curve, true);
        QVERIFY(command->execute());
        command->undo();
        curve.reset();
        command->redo();
        QVERIFY(fixture.editor.searchAllNodeList("n.a"));
        QVERIFY(!fixture.editor.searchAllNodeList("n.a")->livingSpline());
        QVERIFY(!fixture.logic().findCurve("n.a"));
    }

    void aCurveIsAddedUnderTheNameOfAGroup()
    {
        LentCurve curve;
        EditorFixture fixture;
        fixture.addCurve("n.a.b", {{1, 1}});
        curve.addKey(1, 1);
        QVERIFY(addCommand(fixture.editor, curve, true)->execute());
        QVERIFY(fixture.editor.searchAllNodeListCurveName("n.a"));
        QVERIFY(fixture.logic().findCurve("n.a.b"));
        fixture.editor.removeCurve("n", "a");
    }

    void removedCurvesComeBackAsTheyWere()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}, {2, 2}});
        fixture.addCurve("n.x.b", {{1, 1}});
        fixture.addCurve("n.c", {{1, 1}});
        fixture.editor.selectNodes(QStringList{"n.a", "n.x.b"});
        fixture.selectKeys("n.a", {0, 1});
        fixture.editor.setColorToEditingNode(fixture.editor.searchAllNodeList("n.a"), Qt::magenta);
        CurveNode* const object = fixture.logic().findCurve("n.a");
        CurveNode* const other = fixture.logic().findCurve("n.x.b");
        HostEar host(fixture.editor);

        fixture.editor.removeCurvesFromEditing();
        QVERIFY(!fixture.logic().findCurve("n.a"));
        QVERIFY(!fixture.logic().findCurve("n.x"));
        QVERIFY(fixture.logic().findCurve("n.c"));
        QVERIFY(fixture.editor.searchAllNodeList("n.a"));
        QVERIFY(host.take().isEmpty()); // nothing is being edited any more

        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        for (int round = 0; round < 3; ++round) {
            QCOMPARE(QString::fromStdString(manager.undo()->getDescription()),
                     QString("Remove Curves from Curve Editor"));
            QCOMPARE(fixture.logic().findCurve("n.a"), object);
            QCOMPARE(fixture.logic().findCurve("n.x.b"), other);
            QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                     (QList<PointInfo*>{a.spline.at(0), a.spline.at(1)}));
            QCOMPARE(object->splineGraph()->mainColor(), QColor(Qt::magenta));
            QCOMPARE(fixture.editor.getSelection(), (QStringList{"n.a", "n.x.b"}));
            QCOMPARE(selectedItems(fixture.editor).size(), 2);
            QCOMPARE(fixture.logic().editingCurves(), (QList<CurveNode*>{object, other}));
            QCOMPARE(host.take(), (QStringList{"n|a", "n|x.b"}));
            manager.redo();
            QVERIFY(!fixture.logic().findCurve("n.a"));
            host.take();
        }
    }

    void theCurvesOfARemovedBranchDoNotComeBack()
    {
        EditorFixture fixture;
        fixture.addCurve("n.x.a", {{1, 1}});
        fixture.addCurve("n.x.b", {{1, 1}});
        fixture.addCurve("n.c", {{1, 1}});
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        manager.doCommand(new CommandRemoveCurves(&fixture.editor, {"n.x"}));
        QVERIFY(!fixture.logic().findCurve("n.x.a"));
        QVERIFY(!fixture.editor.checkListsEditing->findTreeItem("n.x"));
        manager.undo();
        QVERIFY(!fixture.logic().findCurve("n.x.a"));
        QVERIFY(fixture.logic().findCurve("n.c"));
        manager.redo();
        manager.undo();
    }

    void removingNothingIsAStepToo()
    {
        EditorFixture fixture;
        fixture.editor.removeCurvesFromEditing();
        QCOMPARE(fixture.undoAll(), QStringList{"Remove Curves from Curve Editor"});
        fixture.editor.getCmdManager()->redo();
    }

    void anUnknownNameIsPassedOver()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a", {{1, 1}});
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        manager.doCommand(new CommandRemoveCurves(&fixture.editor, {"unknown", "n.a"}));
        QVERIFY(!fixture.logic().findCurve("n.a"));
        manager.undo();
        QVERIFY(fixture.logic().findCurve("n.a"));
    }

    void aRemovedCurveThatTheHostDroppedDoesNotComeBack()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        fixture.editor.removeCurvesFromEditing();
        fixture.editor.removeNode("n");
        fixture.editor.getCmdManager()->undo();
        QVERIFY(!fixture.logic().findCurve("n.a"));
        QVERIFY(!fixture.editor.searchAllNodeList("n.a"));
        fixture.editor.getCmdManager()->redo();
    }

    /// A removed curve is known by its name.
    void aRemovedCurveThatTheHostRenamedDoesNotComeBack()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        fixture.editor.removeCurvesFromEditing();
        fixture.editor.renameNode("n", "m");
        fixture.editor.getCmdManager()->undo();
        QVERIFY(fixture.logic().topNodes().isEmpty());
        QVERIFY(fixture.editor.searchAllNodeList("m.a"));
        fixture.editor.getCmdManager()->redo();
    }

    void aRemovedCurveWhoseSplineIsDestroyedComesBackEmpty()
    {
        EditorFixture fixture;
        auto curve = std::make_unique<LentCurve>();
        curve->addKey(1, 1);
        fixture.editor.addCurve("n", "a", Qt::red, 0, &curve->spline, &curve->expression, 0, 1,
                                true, true);
        fixture.editor.selectAllKeys();
        fixture.editor.removeCurvesFromEditing();
        curve.reset();
        fixture.editor.getCmdManager()->undo();
        QVERIFY(fixture.logic().findCurve("n.a"));
        fixture.paint();
        fixture.editor.getCmdManager()->redo();
        QVERIFY(!fixture.logic().findCurve("n.a"));
    }

    void anObjectDoesNotComeBackUnderARecordWithAnotherSpline()
    {
        LentCurve other;
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        CurveNode* const object = fixture.logic().findCurve("n.a");
        fixture.editor.removeCurvesFromEditing();
        fixture.editor.removeCurve("n", "a");
        other.addKey(1, 1);
        fixture.editor.addCurve("n", "a", Qt::red, 0, &other.spline, nullptr, 0, 1, false, true);
        fixture.editor.getCmdManager()->undo();
        QVERIFY(fixture.logic().findCurve("n.a"));
        QVERIFY(fixture.logic().findCurve("n.a") != object);
        QCOMPARE(fixture.logic().findCurve("n.a")->spline(), &other.spline);
        fixture.editor.removeCurve("n", "a");
    }

    void anObjectThatBearsAnotherNameByNowStaysWhereItIs()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        CurveNode* const object = fixture.logic().findCurve("n.a");
        fixture.editor.removeCurvesFromEditing();
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        manager.undo();
        fixture.editor.renameCurve("n", "a", "b");
        manager.redo(); // finds no curve of the old name
        fixture.editor.addCurve("n", "a", Qt::red, 0, &curve.spline, &curve.expression, 0, 1, false,
                                true);
        manager.undo();
        QCOMPARE(fixture.logic().findCurve("n.b"), object);
        QVERIFY(fixture.logic().findCurve("n.a"));
        QVERIFY(fixture.logic().findCurve("n.a") != object);
    }

    void afterARedoTheObjectThatTheFirstExecuteTookOutComesBack()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        CurveNode* const first = fixture.logic().findCurve("n.a");
        fixture.editor.removeCurvesFromEditing();
        fixture.editor.setDefaultSelected("n", "a");
        CurveNode* const second = fixture.logic().findCurve("n.a");
        QVERIFY(second != first);
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        manager.undo();
        QCOMPARE(fixture.logic().findCurve("n.a"), second); // it is on the canvas already
        manager.redo();
        QVERIFY(!fixture.logic().findCurve("n.a"));
        manager.undo();
        QCOMPARE(fixture.logic().findCurve("n.a"), first);
    }

    void editsOfARemovedCurveAreTakenBackInItsAbsence()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.editor.selectAllKeys();
        fixture.editor.deleteSelectedKeys();
        fixture.editor.removeNode("n");
        QCOMPARE(fixture.undoAll(),
                 (QStringList{"Delete Control Points", "Select Control Points"}));
        QCOMPARE(curve.spline.getControlPointsNumber(), 2u);
    }

    void anAddedKeyIsTakenBackThroughARemovedCurve()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        fixture.editor.getCmdManager()->doCommand(new CommandAddPoint(
            &fixture.editor, fixture.editor.searchAllNodeList("n.a"), 5.0, 5.0));
        fixture.editor.removeCurvesFromEditing();
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(fixture.undoAll().size(), 2);
            QCOMPARE(curve.spline.getControlPointsNumber(), 1u);
            QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
            while (fixture.editor.getCmdManager()->redo()) {
            }
            QCOMPARE(curve.spline.getControlPointsNumber(), 2u);
        }
    }

    void labels()
    {
        LentCurve curve;
        EditorFixture fixture;
        QCOMPARE(QString::fromStdString(addCommand(fixture.editor, curve, false)->getDescription()),
                 QString("Add Curve to Curve Editor"));
    }
};

QTEST_MAIN(TestCurveCommands)
#include "test_curve_commands.moc"
