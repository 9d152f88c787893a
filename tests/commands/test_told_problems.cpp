// What goes wrong while a command runs, and when the user is told of it.

#include "support/DocumentFixture.h"
#include "support/FailOnWarning.h"
#include "support/ParserVariable.h"

#include "commands/CommandDelCurves.h"
#include "commands/CommandDelExpr.h"
#include "commands/CommandLoadCurve.h"
#include "commands/CommandParseExpr.h"
#include "commands/CommandPasteCurve.h"
#include "curves/CurveNodeBase.h"

#include <QFile>
#include <QTemporaryDir>

using namespace curve_editor;

class TestToldProblems : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    /// A host may delete the editor in a box, and with it what the command would go on with.
    void aCommandThatABoxOutlivesAsksForNothingMore_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<bool>("undone");
        QTest::addColumn<QString>("left");
        QTest::newRow("setting") << "set" << true << "t";
        QTest::newRow("deleting") << "delete" << true << "none";
        QTest::newRow("deleting whole curves") << "delete curves" << true << "none";
        QTest::newRow("loading") << "load" << true << "t+7";
        QTest::newRow("pasting") << "paste" << false << "gone_soon";
    }

    void aCommandThatABoxOutlivesAsksForNothingMore()
    {
        QFETCH(QString, command);
        QFETCH(bool, undone);
        QFETCH(QString, left);
        auto variable = std::make_unique<Variable>("gone_soon", 2.0);
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}}, "gone_soon");
        const auto run = [&] { return fixture.manager.doCommand(newCommand(command, fixture)); };
        QVERIFY(!undone || run());
        variable.reset();
        fixture.survivesBoxes = false;
        fixture.takeCalls();
        if (undone) {
            fixture.manager.undo();
        } else {
            run();
        }
        QCOMPARE(fixture.takeCalls().last(), QString("box: Syntax error"));
        QCOMPARE(fixture.texts, QStringList{"Variable gone_soon not found"});
        QCOMPARE(expressionOf(curve), left);
    }

    void aTextWithAnErrorOutlivesItsBoxesToo()
    {
        DocumentFixture fixture;
        fixture.addCurve("n.b", {});
        fixture.editCurve("n.a", {});
        fixture.survivesBoxes = false;
        fixture.lineText = "t+";
        QVERIFY(!fixture.manager.doCommand(
            new CommandParseExpr(fixture, nullptr, fixture.recordsOf({"n.a", "n.b"}))));
        QCOMPARE(fixture.takeCalls(), QStringList{"box: Syntax error"});
    }

    /// Each box comes when its curve has the expression, and before the next one gets it.
    void aRingOfCurvesIsToldForEachOfThem()
    {
        DocumentFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}});
        LentCurve& b = fixture.addCurve("n.b", {{1, 1}});
        fixture.edit({"n.a", "n.b"});
        QStringList present;
        fixture.whenCalled = [&](const QString& call) {
            if (call.startsWith("box")) {
                present.append(expressionOf(a) + '|' + expressionOf(b));
            }
        };
        fixture.lineText = "n.a+n.b";
        QVERIFY(fixture.manager.doCommand(
            new CommandParseExpr(fixture, nullptr, fixture.recordsOf({"n.a", "n.b"}))));
        QCOMPARE(fixture.takeCalls(),
                 (QStringList{"box: Cyclical dependency", "box: Cyclical dependency", "n|a", "n|b",
                              "refresh"}));
        QCOMPARE(present, (QStringList{"n.a+n.b|none", "n.a+n.b|n.a+n.b"}));
        QVERIFY(fixture.texts.first().contains("n.a"));
        QCOMPARE(fixture.parsed.errorKind, int(ParseMessage::cyclicDependency));
        delete std::exchange(a.expression, nullptr); // which name each other's curves
        delete std::exchange(b.expression, nullptr);
    }

    void aBrokenFileIsToldOnceAndChangesNothing()
    {
        DocumentFixture fixture;
        fixture.addCurve("n.b", {{2, 2}});
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}}, "t");
        fixture.edit({"n.a", "n.b"});
        QVERIFY(!fixture.manager.doCommand(new CommandLoadCurve(fixture, file("<curve><keys"))));
        QCOMPARE(fixture.takeCalls(), QStringList{"box: Error Reading XML File"});
        QCOMPARE(expressionOf(a), QString("t"));
        QCOMPARE(a.spline.getControlPointsNumber(), 1u);
    }

private:
    CurveCommand* newCommand(const QString& name, DocumentFixture& fixture)
    {
        const QList<NodeStruct*> records = fixture.recordsOf({"n.a"});
        if (name == "set") {
            fixture.lineText = "t";
            return new CommandParseExpr(fixture, nullptr, records);
        }
        if (name == "delete") {
            return new CommandDelExpr(fixture, records);
        }
        if (name == "delete curves") {
            return new CommandDelCurves(fixture, records);
        }
        if (name == "load") {
            return new CommandLoadCurve(fixture, curveFile());
        }
        return new CommandPasteCurve(fixture, fixture.tree().findCurve("n.a"), 0.0, false);
    }

    /// An expression alone.
    QString curveFile()
    {
        DocumentFixture other;
        other.editCurve("m.c", {}, "t+7");
        const QString path = folder.filePath("curve.xml");
        dynamic_cast<CurveNodeBase*>(other.tree().findCurve("m.c"))->saveXML(path);
        return path;
    }

    QString file(const char* content)
    {
        const QString path = folder.filePath("broken.xml");
        QFile written(path);
        if (written.open(QIODevice::WriteOnly)) {
            written.write(content);
        }
        return path;
    }

    QTemporaryDir folder;
};

QTEST_MAIN(TestToldProblems)
#include "test_told_problems.moc"
