// Adding splines to expressions, and taking them out again.

#include "commands/ExpressionSteps.h"
#include "support/FailOnWarning.h"

using namespace curve_editor;

class TestAddingSplines : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theFirstCurveDecides_data();
    void theFirstCurveDecides();
    void aCurveOffTheCanvasIsAddedToo();
    void aSplineAmongThemKeepsAllAsTheyAre();
    void aRecordOfTheSameNameIsLeftAlone();
    void theHostHearsWhenTheButtonIsUpToDate();

private:
    LentCurve& curve(const QString& name) { return *fixture->curves.at(name); }

    std::unique_ptr<DocumentFixture> fixture;
    std::unique_ptr<ExpressionSteps> steps;
};

void TestAddingSplines::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<DocumentFixture>();
    steps = std::make_unique<ExpressionSteps>(*fixture);
}

void TestAddingSplines::cleanup()
{
    steps.reset();
    fixture.reset();
}

void TestAddingSplines::theFirstCurveDecides_data()
{
    QTest::addColumn<QList<bool>>("before");
    QTest::addColumn<bool>("after");
    QTest::newRow("an expression") << QList<bool>{false} << true;
    QTest::newRow("a sum") << QList<bool>{true} << false;
    QTest::newRow("an expression before a sum") << QList<bool>{false, true} << true;
    QTest::newRow("a sum before an expression") << QList<bool>{true, false, true} << false;
}

void TestAddingSplines::theFirstCurveDecides()
{
    QFETCH(QList<bool>, before);
    QFETCH(bool, after);
    QStringList names;
    for (const bool& added : before) {
        names.append(QStringLiteral("n.c%1x").arg(names.size()));
        fixture->addCurve(names.last(), {{1, 1}}, "t").spline.setAddFunc(added);
    }
    fixture->edit(names);
    fixture->takeCalls();
    const auto flags = [&] {
        QList<bool> result;
        for (const QString& name : names) {
            result.append(curve(name).spline.isAddFunc());
        }
        return result;
    };
    QVERIFY(steps->addFunc());
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(flags(), QList<bool>(before.size(), after));
        QCOMPARE(fixture->takeReports().size(), names.size());
        steps->undo();
        QCOMPARE(flags(), before);
        QCOMPARE(fixture->takeReports().size(), names.size());
        steps->redo();
    }
}

void TestAddingSplines::aCurveOffTheCanvasIsAddedToo()
{
    const LentCurve& a = fixture->editCurve("n.a", {{1, 1}}, "t");
    QVERIFY(steps->addFunc());
    fixture->leaveCanvas("n.a");
    steps->undo();
    QVERIFY(!a.spline.isAddFunc());
    steps->redo();
    QVERIFY(a.spline.isAddFunc());
}

void TestAddingSplines::aSplineAmongThemKeepsAllAsTheyAre()
{
    const LentCurve& a = fixture->addCurve("n.a", {{1, 1}});
    const LentCurve& b = fixture->addCurve("n.b", {{1, 1}}, "t");
    fixture->edit({"n.b", "n.a"});
    QVERIFY(steps->addFunc());
    QVERIFY(!a.spline.isAddFunc());
    QVERIFY(!b.spline.isAddFunc()); // the set counts as mixed
}

void TestAddingSplines::aRecordOfTheSameNameIsLeftAlone()
{
    // The curve on the canvas took the name of one that stands before it in the list.
    const LentCurve& hidden = fixture->addCurve("n.a", {{1, 1}});
    fixture->leaveCanvas("n.a");
    const LentCurve& shown = fixture->editCurve("n.b", {{2, 2}}, "t");
    fixture->renameCurve("n.b", "n.a");
    fixture->edit({"n.a"});
    QCOMPARE(fixture->editingSet().firstSpline(), &shown.spline);
    QVERIFY(steps->addFunc());
    QVERIFY(!hidden.spline.isAddFunc());
    steps->undo();
    QVERIFY(!hidden.spline.isAddFunc());
}

void TestAddingSplines::theHostHearsWhenTheButtonIsUpToDate()
{
    fixture->editCurve("n.a", {{1, 1}}, "t");
    const QStringList refreshFirst{"refresh", "n|a", "refresh"};
    QVERIFY(steps->addFunc());
    QCOMPARE(fixture->takeCalls(), refreshFirst);
    steps->undo();
    QCOMPARE(fixture->takeCalls(), refreshFirst);
    steps->redo();
    QCOMPARE(fixture->takeCalls(), refreshFirst);
}

QTEST_MAIN(TestAddingSplines)
#include "test_adding_splines.moc"
