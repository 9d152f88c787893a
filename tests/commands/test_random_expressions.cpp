// Hundreds of random edits of expressions mixed with undo and redo: wherever the history stands,
// slots and flags are what they were when it stood there before.

#include "support/BoxCatcher.h"
#include "support/ExpressionLine.h"
#include "support/FailOnWarning.h"

#include <QRandomGenerator>

namespace {

using State = QStringList;

/// Curves on the canvas, and a user who gives them expressions.
class Session
{
public:
    explicit Session(unsigned seed)
        : random(seed)
    {
        for (const QString& name : names) {
            fixture.addCurve(name, {{1, 1}});
        }
        fixture.curves.at(names.last())->setExpression("f");
        states = {state()};
        fixture.editor.setUndoLevels(1000);
        QObject::connect(fixture.editor.getCmdManager(),
                         &curve_editor::CurveCommandsManager::curveEditorCmdExec,
                         [this] { wasExecuted = true; });
    }

    State state()
    {
        State all;
        for (const QString& name : names) {
            const LentCurve& curve = *fixture.curves.at(name);
            all.append(expressionOf(curve) + (curve.spline.isAddFunc() ? "+spline" : ""));
        }
        return all;
    }

    /// Returns whether the history stands on a state that it knows.
    bool step()
    {
        curve_editor::CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        switch (random.bounded(8)) {
        case 0:
            selectSome();
            return true;
        case 1:
        case 2:
            place -= manager.undo() ? 1 : 0;
            return state() == states[place];
        case 3:
            place += manager.redo() ? 1 : 0;
            return state() == states[place];
        default:
            wasExecuted = false;
            edit();
            break;
        }
        if (!wasExecuted) {
            return state() == states[place]; // it was refused
        }
        states.resize(++place);
        states.append(state());
        return true;
    }

private:
    void selectSome()
    {
        QStringList some;
        for (const QString& name : names) {
            if (random.bounded(2)) {
                some.append(name);
            }
        }
        fixture.editor.selectNodes(some.isEmpty() ? names : some);
    }

    void edit()
    {
        static const QStringList texts{"t", "t*2+1", " sin( t ) ", "", "t+", "n.a", "n.b*2", "foo"};
        switch (random.bounded(4)) {
        case 0:
            fixture.editor.deleteCurveClicked();
            break;
        case 1:
            fixture.editor.switchAddFuncToSpline();
            break;
        default:
            fixture.editor.commandLine->setText(texts[random.bounded(int(texts.size()))]);
            fixture.editor.executeCommand();
            break;
        }
    }

    const QStringList names{"n.a", "n.b", "n.c"};
    QRandomGenerator random;
    EditorFixture fixture;
    QList<State> states;
    qsizetype place = 0;
    bool wasExecuted = false;
};

} // namespace

class TestRandomExpressions : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void everyStepLeadsBackAndForth_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 4; ++seed) {
            QTest::addRow("seed %u", seed) << seed;
        }
    }

    void everyStepLeadsBackAndForth()
    {
        QFETCH(unsigned, seed);
        BoxCatcher boxes;
        Session session(seed);
        for (int step = 0; step < 200; ++step) {
            QVERIFY2(session.step(), qPrintable(QString::number(step)));
        }
    }
};

QTEST_MAIN(TestRandomExpressions)
#include "test_random_expressions.moc"
