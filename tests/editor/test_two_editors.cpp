// Two editors in one process, whose curves may bear the same names.

#include "commands/CommandDelExpr.h"
#include "commands/CommandLoadCurve.h"
#include "curves/CurveNodeBase.h"
#include "editor/EditorParts.h"
#include "support/BoxCatcher.h"
#include "support/ExpressionLine.h"
#include "support/FailOnWarning.h"
#include "support/ParserVariable.h"

#include <QTemporaryDir>

#include <fstream>

using curve_editor::CommandLoadCurve;

namespace {

double valueOf(EditorFixture& fixture, const QString& name, const double& time = 0.0)
{
    auto* const curve = dynamic_cast<CurveNodeBase*>(fixture.editor.curveFromDotName(name));
    return curve ? curve->evaluate(time) : std::nan("");
}

} // namespace

class TestTwoEditors : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void eachReadsItsOwnCurves();
    void theEndOfOneChangesNothingInTheOther();
    void curvesOfTheOtherAreUnknown();
    void whatAHostHasRegisteredIsReadByBoth();
    void ownCurvesComeBeforeWhatAHostHasRegistered();
    void dVarsListsTheCurvesOfItsOwnEditor();
    void undoAndRedoReadOwnCurves();
    void filesAreReadWithOwnNames_data();
    void filesAreReadWithOwnNames();
    void curvesOfTheOtherCloseNoRing();
    void ownRingsAreTold();
    void anEditorOpenedAnewReadsItsOwnCurves();
    void whatAHostParsesReadsTheCurvesOfBoth();

private:
    /// Types into the line of the second editor, whose curve is the one being edited.
    void enter(const QString& text) { ExpressionLine(*second).enter(text); }

    std::unique_ptr<EditorFixture> first;
    std::unique_ptr<EditorFixture> second;
    std::unique_ptr<BoxCatcher> boxes;
    LentCurve* edited = nullptr;
};

void TestTwoEditors::init()
{
    failOnUnexpectedWarning();
    first = std::make_unique<EditorFixture>();
    first->addCurve("body.w", {{0.0, 5.0}});
    second = std::make_unique<EditorFixture>();
    second->addCurve("body.w", {{0.0, 7.0}});
    edited = &second->editCurve("body.x", {});
    boxes = std::make_unique<BoxCatcher>();
}

void TestTwoEditors::cleanup()
{
    boxes.reset();
    second.reset();
    first.reset();
}

void TestTwoEditors::eachReadsItsOwnCurves()
{
    enter("body.w+1");
    QCOMPARE(expressionOf(*edited), QString("body.w+1"));
    QCOMPARE(valueOf(*second, "body.x"), 8.0);
    first->editCurve("body.x", {});
    ExpressionLine(*first).enter("body.w+1");
    QCOMPARE(valueOf(*first, "body.x"), 6.0);
    QVERIFY(boxes->titles.isEmpty());
}

void TestTwoEditors::theEndOfOneChangesNothingInTheOther()
{
    enter("body.w+1");
    first.reset();
    QCOMPARE(valueOf(*second, "body.x"), 8.0);
}

void TestTwoEditors::curvesOfTheOtherAreUnknown()
{
    first->addCurve("arm.y", {{0.0, 1.0}});
    enter("arm.y*2");
    QCOMPARE(boxes->texts, QStringList{"Variable arm.y not found"});
    QCOMPARE(expressionOf(*edited), QString("none"));
}

void TestTwoEditors::whatAHostHasRegisteredIsReadByBoth()
{
    const Variable wind("stage.wind", 3.0);
    enter("stage.wind");
    QCOMPARE(valueOf(*second, "body.x"), 3.0);
}

void TestTwoEditors::ownCurvesComeBeforeWhatAHostHasRegistered()
{
    auto wind = std::make_unique<Variable>("stage.wind", 3.0);
    second->addCurve("stage.wind", {{0.0, 4.0}});
    second->editor.selectNodes(QStringList("body.x"));
    enter("stage.wind");
    QCOMPARE(valueOf(*second, "body.x"), 4.0);
    second->editor.removeCurve("stage", "wind");
    QCOMPARE(valueOf(*second, "body.x"), 3.0);
    wind.reset();
    QCOMPARE(valueOf(*second, "body.x"), 0.0);
}

void TestTwoEditors::dVarsListsTheCurvesOfItsOwnEditor()
{
    first->addCurve("arm.y", {{0.0, 1.0}});
    const Variable wind("stage.wind", 3.0);
    QMenu* const menu = menuAt(second->editor, "Insert/D vars");
    QVERIFY(QMetaObject::invokeMethod(&second->editor, "populateDVarMenu"));
    QCOMPARE(menuTexts(menu), (QStringList{"body", "stage"}));
}

void TestTwoEditors::undoAndRedoReadOwnCurves()
{
    enter("body.w+1");
    enter("t");
    second->editor.getCmdManager()->undo();
    QCOMPARE(expressionOf(*edited), QString("body.w+1"));
    QCOMPARE(valueOf(*second, "body.x"), 8.0);
    second->editor.deleteCurveClicked();
    QCOMPARE(expressionOf(*edited), QString("none"));
    second->editor.getCmdManager()->undo();
    QCOMPARE(valueOf(*second, "body.x"), 8.0);
    second->editor.getCmdManager()->undo();
    second->editor.getCmdManager()->redo();
    QCOMPARE(valueOf(*second, "body.x"), 8.0);
}

void TestTwoEditors::filesAreReadWithOwnNames_data()
{
    QTest::addColumn<QString>("ending");
    QTest::newRow("xml") << ".xml";
    QTest::newRow("older") << ".crv";
}

void TestTwoEditors::filesAreReadWithOwnNames()
{
    QFETCH(QString, ending);
    const QTemporaryDir folder;
    const QString path = folder.filePath("curve" + ending);
    second->addCurve("arm-left.y", {{0.0, 2.0}});
    second->editor.selectNodes(QStringList("body.x"));
    enter("body.w+'arm-left.y'");
    auto* const curve = dynamic_cast<CurveNodeBase*>(second->editor.curveFromDotName("body.x"));
    if (ending == ".xml") {
        curve->saveXML(path);
    } else {
        std::ofstream stream(path.toLocal8Bit().constData());
        stream << "1\n2\n3\n";
        curve->saveCrv(stream);
    }
    enter("t");
    QVERIFY(second->editor.getCmdManager()->doCommand(new CommandLoadCurve(&second->editor, path)));
    QCOMPARE(expressionOf(*edited), QString("body.w+'arm-left.y'"));
    QCOMPARE(valueOf(*second, "body.x"), 9.0);
    second->editor.getCmdManager()->undo();
    second->editor.getCmdManager()->redo();
    QCOMPARE(valueOf(*second, "body.x"), 9.0);
}

void TestTwoEditors::curvesOfTheOtherCloseNoRing()
{
    second->addCurve("body.y", {{0.0, 2.0}});
    second->editor.selectNodes(QStringList("body.x"));
    enter("body.y");
    first->addCurve("body.x", {{0.0, 3.0}});
    first->editCurve("body.y", {});
    ExpressionLine(*first).enter("body.x");
    QVERIFY(boxes->titles.isEmpty());
    QCOMPARE(valueOf(*first, "body.y"), 3.0);
    QCOMPARE(valueOf(*second, "body.x"), 2.0);
}

void TestTwoEditors::ownRingsAreTold()
{
    second->editor.selectNodes(QStringList("body.w"));
    enter("body.x");
    second->editor.selectNodes(QStringList("body.x"));
    enter("body.w");
    QCOMPARE(boxes->titles, QStringList{"Cyclical dependency"});
    QCOMPARE(valueOf(*second, "body.x"), 0.0);
}

void TestTwoEditors::anEditorOpenedAnewReadsItsOwnCurves()
{
    LentCurve width;
    width.addKey(0.0, 7.0);
    LentCurve height;
    {
        EditorFixture former;
        former.editor.addCurve("body", "w", Qt::red, 0, &width.spline, &width.expression, -100, 100,
                               true, true);
        former.editor.addCurve("body", "h", Qt::red, 0, &height.spline, &height.expression, -100,
                               100, true, true);
        former.editor.setCurveEditableOn(former.editor.searchAllNodeList("body.h"));
        former.editor.selectNodes(QStringList("body.h"));
        ExpressionLine(former).enter("body.w+1");
    }
    QCOMPARE(expressionOf(height), QString("body.w+1"));
    EditorFixture next;
    next.editor.addCurve("body", "h", Qt::red, 0, &height.spline, &height.expression, -100, 100,
                         true, true);
    next.editor.addCurve("body", "w", Qt::red, 0, &width.spline, &width.expression, -100, 100, true,
                         true);
    QCOMPARE(valueOf(next, "body.h"), 8.0);
    first.reset();
    QCOMPARE(valueOf(next, "body.h"), 8.0);
}

void TestTwoEditors::whatAHostParsesReadsTheCurvesOfBoth()
{
    second->addCurve("arm.y", {{0.0, 1.0}});
    ParseMessage message;
    const std::unique_ptr<FunctionFloatBase> tree(
        parser()->parseString("body.w+arm.y", message, false));
    QVERIFY(tree);
    QCOMPARE(tree->value(), 6.0);
    first.reset();
    QCOMPARE(tree->value(), 8.0);
}

QTEST_MAIN(TestTwoEditors)
#include "test_two_editors.moc"
