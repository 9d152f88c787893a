// What a paste does to its targets, and what undo and redo make of it.

#include "commands/WholeCurves.h"
#include "support/BoxCatcher.h"
#include "support/FailOnWarning.h"
#include "support/HostEar.h"
#include "support/ParserVariable.h"

#include "commands/CommandPasteCurve.h"
#include "files/CurveType.h"

using namespace curve_editor;

namespace {

/// A clipboard with keys at 3 and 5.
void fillClipboard(EditorFixture& fixture)
{
    fixture.editCurve("z.source", {{3, 3}, {5, 5}});
    fixture.editor.copy();
}

} // namespace

class TestPastingCurves : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void pastedKeysAreSelectedAndUndoBringsKeysAndSelectionBack()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        LentCurve& target = fixture.editCurve("n.a", {{1, 1}, {4, 4}, {9, 9}});
        fixture.selectKeys("n.a", {0, 2});
        const QList<PointInfo*> keys = keysOf(target.spline);
        const SplineState before(target.spline);
        fixture.editor.pasteKeys();
        const SplineState after(target.spline);
        QCOMPARE(keyTimes(target.spline), (QList<double>{1, 3, 4, 5, 9}));
        const QList<PointInfo*> pasted{target.spline.at(1), target.spline.at(3)};
        for (int round = 0; round < 3; ++round) {
            QCOMPARE(fixture.selectionOf("n.a").selectedPoints, pasted);
            QCOMPARE(fixture.selectionOf("n.a").currentPoint, pasted.first());
            managerOf(fixture).undo();
            QCOMPARE(keysOf(target.spline), keys); // the keys themselves
            QVERIFY(SplineState(target.spline) == before);
            QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                     (QList<PointInfo*>{keys[0], keys[2]}));
            managerOf(fixture).redo();
            QVERIFY(SplineState(target.spline) == after);
        }
    }

    void replacingClearsTheSelection()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        LentCurve& target = fixture.editCurve("n.a", {{1, 1}});
        fixture.selectKeys("n.a", {0});
        fixture.editor.paste();
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        QVERIFY(!fixture.selectionOf("n.a").currentPoint);
        managerOf(fixture).undo();
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints, keysOf(target.spline));
    }

    void anExpressionCurveGetsTheKeysAndStaysAnExpression_data()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QList<double>>("times");
        QTest::newRow("replacing") << "paste" << QList<double>{3, 5};
        QTest::newRow("combining") << "pasteKeys" << QList<double>{1, 3, 5};
    }

    void anExpressionCurveGetsTheKeysAndStaysAnExpression()
    {
        QFETCH(QString, form);
        QFETCH(QList<double>, times);
        EditorFixture fixture;
        fillClipboard(fixture);
        LentCurve& target = fixture.editCurve("n.e", {{1, 1}}, "t*2");
        const QString text = textOf(target);
        QVERIFY(QMetaObject::invokeMethod(&fixture.editor, form.toUtf8().constData()));
        QCOMPARE(keyTimes(target.spline), times);
        QCOMPARE(textOf(target), text);
        QVERIFY(!target.spline.isAddFunc());
        QCOMPARE(fixture.logic().editingType(), int(expressionCurve));
        fixture.undoAll();
        QCOMPARE(keyTimes(target.spline), QList<double>{1});
        QCOMPARE(textOf(target), text);
        managerOf(fixture).redo();
        QCOMPARE(textOf(target), text);
        QCOMPARE(commandLineText(fixture.editor), text);
    }

    void aSumStaysASum()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        LentCurve& target = editSum(fixture, "n.s", {{1, 1}}, "t*2");
        const QString text = textOf(target);
        for (const bool keysOnly : {false, true}) {
            keysOnly ? fixture.editor.pasteKeys() : fixture.editor.paste();
            QVERIFY(target.spline.isAddFunc());
            QCOMPARE(textOf(target), text);
            QCOMPARE(fixture.logic().editingType(), int(splinePlusExpressionCurve));
            managerOf(fixture).undo();
            QVERIFY(target.spline.isAddFunc());
            QCOMPARE(textOf(target), text);
            QCOMPARE(keyTimes(target.spline), QList<double>{1});
        }
    }

    void aSumWithoutExpressionStaysASum()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        LentCurve& target = fixture.editCurve("n.s", {{1, 1}});
        target.spline.setAddFunc(true);
        const int type = fixture.logic().editingType();
        for (const bool keysOnly : {false, true}) {
            keysOnly ? fixture.editor.pasteKeys() : fixture.editor.paste();
            QVERIFY(target.spline.isAddFunc());
            QCOMPARE(fixture.logic().editingType(), type);
            managerOf(fixture).undo();
            QVERIFY(target.spline.isAddFunc());
            QCOMPARE(keyTimes(target.spline), QList<double>{1});
        }
    }

    void severalCurvesAreOneStep()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}});
        LentCurve& b = fixture.addCurve("n.b.c", {{2, 2}}, "t");
        LentCurve& c = fixture.addCurve("m.c", {});
        fixture.editor.selectNodes({"n.a", "n.b.c", "m.c"});
        HostEar host(fixture.editor);
        fixture.editor.pasteKeys();
        QCOMPARE(host.take(), (QStringList{"n|a", "n|b.c", "m|c"}));
        QCOMPARE(keyTimes(a.spline), (QList<double>{1, 3, 5}));
        QCOMPARE(keyTimes(b.spline), (QList<double>{2, 3, 5}));
        QCOMPARE(keyTimes(c.spline), (QList<double>{3, 5}));
        QCOMPARE(QString::fromStdString(managerOf(fixture).undo()->getDescription()),
                 QString("Paste Control Points"));
        QCOMPARE(host.take(), (QStringList{"n|a", "n|b.c", "m|c"}));
        QCOMPARE(keyTimes(a.spline), QList<double>{1});
        QCOMPARE(keyTimes(b.spline), QList<double>{2});
        QVERIFY(keyTimes(c.spline).isEmpty());
        QVERIFY(!managerOf(fixture).undo());
    }

    /// The search of the list does not find it.
    void aCurveWhoseNameStartsLikeAnotherIsATargetToo()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        fixture.addCurve("n.width", {{1, 1}});
        LentCurve& target = fixture.addCurve("n.width2", {{1, 1}});
        fixture.editor.setCurveEditableOn(fixture.editor.searchAllNodeListCurveName("n.width2"));
        fixture.editor.selectNodes("n.width2");
        fixture.editor.paste();
        QCOMPARE(keyTimes(target.spline), (QList<double>{3, 5}));
        fixture.undoAll();
        QCOMPARE(keyTimes(target.spline), QList<double>{1});
    }

    void aSplineOfTwoRecordsIsPastedOntoOnce()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}});
        FunctionFloatBase* otherSlot = nullptr;
        fixture.editor.addCurve("n", "b", Qt::red, 0, &a.spline, &otherSlot, -9, 9, true, true);
        fixture.editor.selectNodes({"n.a", "n.b"});
        const QList<PointInfo*> keys = keysOf(a.spline);
        for (const bool keysOnly : {true, false}) {
            keysOnly ? fixture.editor.pasteKeys() : fixture.editor.paste();
            QCOMPARE(keyTimes(a.spline),
                     keysOnly ? (QList<double>{1, 3, 5}) : (QList<double>{3, 5}));
            if (keysOnly) {
                QCOMPARE(fixture.selectionOf("n.a").selectedPoints, keysOf(a.spline).mid(1));
                QCOMPARE(fixture.selectionOf("n.b").selectedPoints, keysOf(a.spline).mid(1));
            }
            managerOf(fixture).undo();
            QCOMPARE(keysOf(a.spline), keys);
        }
        fixture.editor.removeNode("n");
    }

    void aCurveThatSharesTheSplineButIsNotEditedNamesNoKeyThatIsGone()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}});
        fixture.editor.addCurve("n", "b", Qt::red, 0, &a.spline, nullptr, -9, 9, true, true);
        fixture.editor.selectNodes("n.a");
        fixture.selectionOf("n.b").selectPoints(keysOf(a.spline));
        fixture.editor.paste();
        QVERIFY(selectionsAreSound(fixture));
        fixture.undoAll();
        QVERIFY(selectionsAreSound(fixture));
        fixture.editor.removeNode("n");
    }

    void twoEditorsOnOneSplineLoseNoKey()
    {
        LentCurve shared;
        shared.addKey(1, 1);
        shared.addKey(2, 2);
        EditorFixture first;
        EditorFixture second;
        for (EditorFixture* fixture : {&first, &second}) {
            fixture->editor.addCurve("n", "a", Qt::red, 0, &shared.spline, &shared.expression, -9,
                                     9, true, true);
            fixture->editor.selectAllKeys();
            fixture->editor.clearStack();
        }
        second.editor.deleteSelectedKeys();
        second.editor.getCmdManager()->undo();
        first.editor.copy();
        first.editor.paste();
        second.editor.deleteSelectedKeys(); // names keys that the first editor holds
        second.paint();
        second.editor.getCmdManager()->redo();
        first.undoAll();
        second.undoAll();
        QCOMPARE(shared.spline.getControlPointsNumber(), 2u);
        first.editor.clearStack();
        QCOMPARE(shared.spline.getControlPointsNumber(), 2u);
    }

    void aRenamedCurveGetsItsKeysBack()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        LentCurve& a = editSum(fixture, "n.a", {{1, 1}}, "t*2");
        const QList<PointInfo*> keys = keysOf(a.spline);
        fixture.editor.paste();
        fixture.editor.renameNode("n", "m");
        fixture.editor.renameCurve("m", "a", "b");
        HostEar host(fixture.editor);
        managerOf(fixture).undo();
        QCOMPARE(host.take(), QStringList{"m|b"});
        QCOMPARE(keysOf(a.spline), keys);
        QCOMPARE(textOf(a), QString("t*2"));
        managerOf(fixture).redo();
        QCOMPARE(keyTimes(a.spline), (QList<double>{3, 5}));
    }

    void aRemovedCurveGetsItsKeysBackInItsAbsence_data()
    {
        QTest::addColumn<bool>("isDropped");
        QTest::newRow("taken out of the editing set") << false;
        QTest::newRow("dropped by the host") << true;
    }

    void aRemovedCurveGetsItsKeysBackInItsAbsence()
    {
        QFETCH(bool, isDropped);
        EditorFixture fixture;
        fillClipboard(fixture);
        LentCurve& a = editSum(fixture, "n.a", {{1, 1}}, "t*2");
        const QList<PointInfo*> keys = keysOf(a.spline);
        fixture.editor.pasteKeys();
        if (isDropped) {
            fixture.editor.removeNode("n");
        } else {
            fixture.editor.removeCurveFromEditing("n.a");
        }
        for (int round = 0; round < 2; ++round) {
            managerOf(fixture).undo();
            QCOMPARE(keysOf(a.spline), keys);
            QCOMPARE(textOf(a), QString("t*2"));
            QVERIFY(a.spline.isAddFunc());
            managerOf(fixture).redo();
            QCOMPARE(keyTimes(a.spline), (QList<double>{1, 3, 5}));
            QCOMPARE(textOf(a), QString("t*2"));
            QVERIFY(a.spline.isAddFunc());
        }
    }

    /// The removed object keeps its selection of keys for its return.
    void aCurveThatComesBackNamesNoKeyThatWasReplaced()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}});
        fixture.editor.pasteKeys();
        fixture.editor.removeCurvesFromEditing();
        a.spline.removeAllControlPoints(); // by the host
        managerOf(fixture).undo();
        QVERIFY(fixture.logic().findCurve("n.a"));
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        QVERIFY(!fixture.selectionOf("n.a").currentPoint);
    }

    void aSplineThatDiedMeanwhileIsPassedOver_data()
    {
        QTest::addColumn<bool>("afterUndo");
        QTest::newRow("while pasted") << false;
        QTest::newRow("while taken back") << true;
    }

    void aSplineThatDiedMeanwhileIsPassedOver()
    {
        QFETCH(bool, afterUndo);
        EditorFixture fixture;
        fillClipboard(fixture);
        auto doomed = std::make_unique<LentCurve>();
        doomed->addKey(1, 1);
        doomed->setExpression("t");
        fixture.editor.addCurve("n", "a", Qt::red, 0, &doomed->spline, &doomed->expression, -9, 9,
                                false, true);
        LentCurve& b = fixture.addCurve("n.b", {{1, 1}});
        fixture.editor.setCurveEditableOn(fixture.editor.searchAllNodeList("n.a"));
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.editor.paste();
        if (afterUndo) {
            managerOf(fixture).undo();
            doomed.reset();
            managerOf(fixture).redo();
            QCOMPARE(keyTimes(b.spline), (QList<double>{3, 5}));
        } else {
            doomed.reset();
        }
        managerOf(fixture).undo();
        QCOMPARE(keyTimes(b.spline), QList<double>{1});
        managerOf(fixture).redo();
        QCOMPARE(keyTimes(b.spline), (QList<double>{3, 5}));
    }

    /// What the host does to the keys while they are pasted belongs to that version.
    void aKeyThatTheHostAddedIsNotLost()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}});
        fixture.editor.paste();
        a.addKey(30, 30);
        managerOf(fixture).undo();
        QCOMPARE(keyTimes(a.spline), QList<double>{1});
        a.addKey(40, 40);
        managerOf(fixture).redo();
        QCOMPARE(keyTimes(a.spline), (QList<double>{3, 5, 30}));
        managerOf(fixture).undo();
        QCOMPARE(keyTimes(a.spline), (QList<double>{1, 40}));
    }

    void aNewCopyDoesNotChangeWhatAnOlderPasteHolds()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}});
        fixture.editor.paste();
        fixture.editCurve("n.b", {{8, 8}});
        fixture.editor.copy();
        managerOf(fixture).undo();
        managerOf(fixture).redo();
        QCOMPARE(keyTimes(a.spline), (QList<double>{3, 5}));
    }

    void anExpressionThatNoLongerParsesSaysSo()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        auto variable = std::make_unique<Variable>("gone_soon", 2.0);
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}}, "gone_soon*2");
        fixture.editor.paste();
        variable.reset();
        BoxCatcher boxes;
        managerOf(fixture).undo();
        QCOMPARE(boxes.titles, QStringList{"Syntax error"});
        QCOMPARE(boxes.texts, QStringList{"Variable gone_soon not found"});
        QCOMPARE(keyTimes(a.spline), QList<double>{1});
        // The text is kept: once the variable is back, so is the expression.
        const Variable again("gone_soon", 2.0);
        managerOf(fixture).redo();
        QCOMPARE(textOf(a), QString("gone_soon*2"));
        delete std::exchange(a.expression, nullptr); // before the variable goes
    }

    void aCommandWithoutAClipboardPastesNothingAndIsAStep()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}});
        QVERIFY(managerOf(fixture).doCommand(
            new CommandPasteCurve(&fixture.editor, nullptr, 0.0, true)));
        QCOMPARE(keyTimes(a.spline), QList<double>{1});
        QCOMPARE(fixture.undoAll(), QStringList{"Paste Control Points"});
    }

    void theTargetsAreThoseOfTheMomentItWasBuilt()
    {
        EditorFixture fixture;
        fillClipboard(fixture);
        CurveNode* const source = fixture.logic().findCurve("z.source");
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}});
        auto* const command = new CommandPasteCurve(&fixture.editor, source, 10.0, false);
        LentCurve& b = fixture.editCurve("n.b", {{2, 2}});
        QVERIFY(managerOf(fixture).doCommand(command));
        QCOMPARE(keyTimes(a.spline), (QList<double>{13, 15}));
        QCOMPARE(keyTimes(b.spline), QList<double>{2});
    }
};

QTEST_MAIN(TestPastingCurves)
#include "test_pasting_curves.moc"
