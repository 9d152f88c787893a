// Steps on ten thousand curves, or on a hundred thousand keys, that a user waits for: their time
// may not grow with the square of the number.

#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include "commands/CommandDelPoints.h"
#include "commands/KeyLists.h"

using namespace curve_editor;

namespace {

/// Ten thousand curves of two keys, all of them being edited.
QStringList editManyCurves(EditorFixture& fixture)
{
    QStringList names;
    for (int i = 0; i < 10000; ++i) {
        names.append(QStringLiteral("n.%1").arg(i, 5, 10, QLatin1Char('0')));
        fixture.addCurve(names.last(), {{1, 1}, {2, 2}});
    }
    fixture.editor.selectNodes(names);
    return names;
}

} // namespace

class TestManyCurves : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theirKeysAreDeletedAndPutBack()
    {
        EditorFixture fixture;
        const QString name = editManyCurves(fixture).last();
        fixture.editor.selectAllKeys();
        LentCurve& last = *fixture.curves.at(name);
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        QVERIFY(manager.doCommand(new CommandDelPoints(&fixture.editor)));
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(keyTimes(last.spline), QList<double>{});
            manager.undo();
            QCOMPARE(keyTimes(last.spline), (QList<double>{1, 2}));
            QCOMPARE(fixture.selectionOf(name).selectedPoints.size(), 2);
            manager.redo();
        }
    }

    void theyLeaveTheEditingSetAndComeBackSelected()
    {
        EditorFixture fixture;
        const QStringList names = editManyCurves(fixture);
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        fixture.editor.removeCurvesFromEditing();
        for (int round = 0; round < 2; ++round) {
            QVERIFY(fixture.logic().topNodes().isEmpty());
            manager.undo();
            QCOMPARE(fixture.logic().editingCurveNames(), names);
            QCOMPARE(fixture.editor.getSelection(), names);
            manager.redo();
        }
    }

    void aHundredThousandKeysAreDeletedAndPutBack()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {});
        for (int i = 0; i < 100000; ++i) {
            curve.addKey(i, i);
        }
        const QList<double> before = keyTimes(curve.spline);
        fixture.editor.selectAllKeys();
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        QVERIFY(manager.doCommand(new CommandDelPoints(&fixture.editor)));
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
            manager.undo();
            QCOMPARE(keyTimes(curve.spline), before);
            manager.redo();
        }
    }
};

QTEST_MAIN(TestManyCurves)
#include "test_many_curves.moc"
