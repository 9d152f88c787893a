// What hosts and users do to curves between and within the steps that exchange whole contents.

#include "commands/WholeCurves.h"
#include "support/FailOnWarning.h"
#include "widgets/KeysDialogFixture.h"

#include "commands/CommandDelCurves.h"
#include "commands/CommandLoadCurve.h"
#include "curves/CurveFile.h"

#include <QTemporaryDir>

#include <limits>

using namespace curve_editor;

namespace {

using Deed = void (*)(EditorFixture&, std::unique_ptr<LentCurve>&);

const char* const steps[] = {"paste",          "pasteKeysOffset",  "load",
                             "resetSelectedF", "resetAllCheckedF", "delete"};

} // namespace

Q_DECLARE_METATYPE(Deed)

class TestWholeCurvesAndHosts : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { writeFile(); }
    void init() { failOnUnexpectedWarning(); }

    void aCurveThatWasRemovedAndAddedAgainGetsItsContentBack_data() { addSteps(); }
    void aCurveThatWasRemovedAndAddedAgainGetsItsContentBack()
    {
        QFETCH(QString, step);
        const bool isReset = step.startsWith("reset");
        EditorFixture fixture;
        LentCurve& a = editSum(fixture, "n.a", {{1, 1}, {2, 2}}, "t*2");
        const QList<PointInfo*> keys = keysOf(a.spline);
        fixture.editor.copy();
        fixture.selectKeys("n.a", {0, 1});
        take(fixture, step);
        fixture.editor.removeCurve("n", "a");
        fixture.editor.addCurve("n", "a", Qt::red, 0, &a.spline, &a.expression, -9, 9, false, true);
        fixture.editor.setCurveEditableOn(fixture.editor.searchAllNodeList("n.a"));
        fixture.editor.selectNodes("n.a");
        for (int round = 0; round < 2; ++round) {
            managerOf(fixture).undo();
            QCOMPARE(keysOf(a.spline), keys);
            QCOMPARE(textOf(a), isReset ? QString("none") : QString("t*2"));
            QCOMPARE(fixture.selectionOf("n.a").selectedPoints, keys);
            managerOf(fixture).redo();
            QVERIFY(keysOf(a.spline) != keys);
            QVERIFY(selectionsAreSound(fixture));
        }
    }

    /// The step is over when the host hears of it.
    void theHostHearsOfAFinishedStep_data() { addSteps(); }
    void theHostHearsOfAFinishedStep()
    {
        QFETCH(QString, step);
        // A reset also tells of each curve as it is emptied.
        const int notices = step.startsWith("reset") ? 2 : 1;
        EditorFixture fixture;
        LentCurve& a = editSum(fixture, "n.a", {{1, 1}}, "t*2");
        fixture.editor.copy();
        fixture.selectKeys("n.a", {0});
        QStringList heard;
        const auto state = [&] {
            return QString("%1 %2 %3 %4")
                .arg(a.spline.getControlPointsNumber())
                .arg(textOf(a), commandLineText(fixture.editor))
                .arg(fixture.selectionOf("n.a").selectedPoints.size());
        };
        QObject::connect(&fixture.editor, &CurveEditor::curveHasChanged, &fixture.editor,
                         [&](QString&, QString&) { heard.append(state()); });
        take(fixture, step);
        QCOMPARE(heard.size(), notices);
        for (int round = 0; round < 2; ++round) {
            heard.clear();
            managerOf(fixture).undo();
            QCOMPARE(heard, QStringList{state()});
            heard.clear();
            managerOf(fixture).redo();
            QCOMPARE(heard, QStringList(notices, state()));
        }
        QVERIFY(!fixture.editor.signalsBlocked());
    }

    void aHostThatMeddlesInItsSlotLosesNothingOfOurs_data()
    {
        QTest::addColumn<Deed>("deed");
        const auto row = [](const char* name, const Deed& deed) { QTest::newRow(name) << deed; };
        using Doomed = std::unique_ptr<LentCurve>;
        row("destroys a spline", [](EditorFixture&, Doomed& doomed) { doomed.reset(); });
        row("removes all", [](EditorFixture& fixture, Doomed&) { fixture.editor.removeNode("n"); });
        row("removes a curve",
            [](EditorFixture& fixture, Doomed&) { fixture.editor.removeCurve("n", "b"); });
        row("renames",
            [](EditorFixture& fixture, Doomed&) { fixture.editor.renameNode("n", "m"); });
        row("undoes", [](EditorFixture& fixture, Doomed&) { managerOf(fixture).undo(); });
        row("replaces the keys", [](EditorFixture& fixture, Doomed&) {
            fixture.curves.at("n.b")->spline.removeAllControlPoints();
            fixture.curves.at("n.b")->addKey(9, 9);
        });
        row("selects nothing",
            [](EditorFixture& fixture, Doomed&) { fixture.editor.selectNodes(QStringList()); });
        row("takes the curves off the canvas",
            [](EditorFixture& fixture, Doomed&) { fixture.editor.removeCurvesFromEditing(); });
    }

    void aHostThatMeddlesInItsSlotLosesNothingOfOurs()
    {
        QFETCH(Deed, deed);
        for (const char* const step : steps) {
            auto doomed = std::make_unique<LentCurve>();
            EditorFixture fixture;
            lend(fixture, *doomed);
            fixture.addCurve("n.b", {{1, 1}});
            fixture.addCurve("n.x.c", {{1, 1}}, "t");
            fixture.editor.selectNodes("n.b");
            fixture.editor.copy();
            fixture.editor.selectNodes({"n.a", "n.b", "n.x.c"});
            fixture.editor.selectAllKeys();
            int deeds = 0;
            bool isBusy = false;
            QObject::connect(&fixture.editor, &CurveEditor::curveHasChanged, &fixture.editor,
                             [&](QString&, QString&) {
                                 if (!isBusy && ++deeds < 6) {
                                     isBusy = true;
                                     deed(fixture, doomed);
                                     isBusy = false;
                                 }
                             });
            take(fixture, step);
            fixture.paint();
            QVERIFY(deeds > 0);
            deeds = 0;
            managerOf(fixture).undo();
            managerOf(fixture).redo();
            managerOf(fixture).undo();
            fixture.paint();
            fixture.editor.clearStack();
            QVERIFY(selectionsAreSound(fixture));
            fixture.paint();
        }
    }

    /// Without undo the keys that a step replaces are freed at once.
    void withUndoOffTheKeysOfADragAreReplacedUnderIt_data() { addSteps(); }
    void withUndoOffTheKeysOfADragAreReplacedUnderIt()
    {
        QFETCH(QString, step);
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.copy();
        fixture.editor.setEnableUndo(false);
        fixture.paint();
        fixture.press(EditorFixture::pixel(10, 10));
        fixture.moveTo(EditorFixture::pixel(12, 12));
        take(fixture, step);
        QVERIFY(selectionsAreSound(fixture));
        fixture.moveTo(EditorFixture::pixel(14, 14));
        fixture.paint();
        fixture.release(EditorFixture::pixel(14, 14));
        QVERIFY(selectionsAreSound(fixture));
    }

    void withUndoOffTheKeyOfTheDialogIsReplacedUnderIt_data() { addSteps(); }
    void withUndoOffTheKeyOfTheDialogIsReplacedUnderIt()
    {
        QFETCH(QString, step);
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
        KeysDialogFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.copy();
        fixture.editor.setEnableUndo(false);
        fixture.paint();
        fixture.pick({{10, 10}});
        fixture.pressField(fixture.dialog.posX);
        fixture.dragField(fixture.dialog.posX, 20);
        take(fixture, step);
        const SplineState after(a.spline);
        fixture.dragField(fixture.dialog.posX, 40);
        fixture.releaseField(fixture.dialog.posX);
        if (step != "pasteKeysOffset") { // which selects the pasted ones
            QVERIFY(SplineState(a.spline) == after);
        }
        fixture.turnWheel(fixture.dialog.posX, 120);
        fixture.paint();
        QVERIFY(selectionsAreSound(fixture));
    }

    void wildTimesArePastedAndTakenBack_data()
    {
        QTest::addColumn<double>("time");
        QTest::newRow("not a number") << qQNaN();
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
        QTest::newRow("huge") << 1e308;
        QTest::newRow("far back") << -1e308;
    }

    void wildTimesArePastedAndTakenBack()
    {
        QFETCH(double, time);
        EditorFixture fixture;
        fixture.editor.setUndoLevels(100);
        fixture.editCurve("n.s", {{time, 1}, {5, 5}});
        fixture.editor.copy();
        LentCurve& b = fixture.editCurve("n.b", {{1, 1}, {time, 2}});
        const QList<PointInfo*> keys = keysOf(b.spline);
        for (const double& line : {1e308, 0.0, -1e308}) {
            fixture.editor.setTimeLine(line);
            fixture.editor.pasteKeysOnTimeline();
            fixture.editor.pasteKeysOffset();
            fixture.paint();
            fixture.editor.pasteOnTimeline();
            fixture.paint();
        }
        fixture.undoAll();
        QCOMPARE(keysOf(b.spline), keys);
    }

private:
    static void addSteps()
    {
        QTest::addColumn<QString>("step");
        for (const char* const step : steps) {
            QTest::newRow(step) << step;
        }
    }

    static void lend(EditorFixture& fixture, LentCurve& curve)
    {
        curve.addKey(1, 1);
        curve.setExpression("t");
        curve.spline.setAddFunc(true);
        fixture.editor.addCurve("n", "a", Qt::red, 0, &curve.spline, &curve.expression, -9, 9, true,
                                true);
    }

    void take(EditorFixture& fixture, const QString& step)
    {
        if (step == "delete") {
            managerOf(fixture).doCommand(
                new CommandDelCurves(&fixture.editor, fixture.logic().editingCurveNames()));
        } else if (step == "load") {
            managerOf(fixture).doCommand(
                new CommandLoadCurve(&fixture.editor, folder.filePath("c.xml")));
        } else {
            QVERIFY(QMetaObject::invokeMethod(&fixture.editor, step.toUtf8().constData()));
        }
    }

    /// A sum with keys at 3 and 5.
    void writeFile()
    {
        LentCurve curve;
        curve.addKey(3, 3);
        curve.addKey(5, 5);
        curve.setExpression("t+7");
        curve.spline.setAddFunc(true);
        QString error;
        QVERIFY(writeCurveFile(folder.filePath("c.xml"), &curve.spline, curve.expression, error));
    }

    QTemporaryDir folder;
};

QTEST_MAIN(TestWholeCurvesAndHosts)
#include "test_whole_curves_and_hosts.moc"
