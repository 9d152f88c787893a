// The menu "Insert" builds expressions in the line.

#include "editor/EditorParts.h"
#include "support/BoxCatcher.h"
#include "support/ExpressionLine.h"
#include "support/FailOnWarning.h"
#include "support/ParserVariable.h"

class TestInsertMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyEntryBuildsItsText_data();
    void everyEntryBuildsItsText();
    void aVariableOrConstantGoesToTheCursorAndLeavesTheRest();
    void theCursorStandsBehindWhatWasInserted();
    void aDVarIsInsertedByItsFullName();
    void aDVarIsQuotedWhereItWouldReadAsAnythingElse_data();
    void aDVarIsQuotedWhereItWouldReadAsAnythingElse();
    void aMissingOperandIsToldAndSelectedForTyping();
    void thePlaceHolderIsSelectedAlsoWhereXIsAVariable_data();
    void thePlaceHolderIsSelectedAlsoWhereXIsAVariable();
    void anErrorAheadOfThePlaceHolderStaysMarked();
    void anInsertIsOneStep();
    void anInsertIntoDotsFails();
    void aNullActionInsertsNothing();
    void anInsertPastTheLinesLimitIsCutShort();

    void aNameWithoutAPointIsNotListed();
    void dottedNamesStandInSubMenus();
    void emptyPartsAreKept();
    void openingTheDVarsTwiceGivesTheSameMenu();
    void theMenuFollowsTheCatalogue();
    void tenThousandCurvesAreListed();

private:
    CurveEditor& editor() { return fixture->editor; }
    QMenu* dVars() { return menuAt(editor(), "Insert/D vars"); }
    QMenu* openDVars();

    std::unique_ptr<EditorFixture> fixture;
    std::unique_ptr<ExpressionLine> line;
    std::unique_ptr<BoxCatcher> boxes;
};

void TestInsertMenu::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<EditorFixture>();
    line = std::make_unique<ExpressionLine>(*fixture);
    boxes = std::make_unique<BoxCatcher>();
}

void TestInsertMenu::cleanup()
{
    boxes.reset();
    line.reset();
    fixture.reset();
}

/// The menu as it is after it has opened.
QMenu* TestInsertMenu::openDVars()
{
    QMenu* const menu = dVars();
    EditorFixture::closesMenuOf([&] { menu->exec(editor().mapToGlobal(QPoint(10, 10))); });
    return menu;
}

void TestInsertMenu::everyEntryBuildsItsText_data()
{
    QTest::addColumn<QString>("subMenu");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("text");
    for (const char* const name :
         {"cos",  "sin",  "tan",  "exp",  "log",  "log10", "rnd",   "abs", "sqrt",  "acos",
          "asin", "atan", "cosh", "sinh", "tanh", "ceil",  "floor", "j0",  "logj1", "not"}) {
        QTest::newRow(name) << "Unary functions" << name << QString(" %1(t) ").arg(name);
    }
    for (const char* const sign : {"+", "-", "*", "/", "^", ">", "<", "|", "="}) {
        QTest::newRow(sign) << "Binary functions" << sign << QString(" t%1X ").arg(sign);
    }
    QTest::newRow("&&") << "Binary functions"
                        << "&&"
                        << " t&X ";
    for (const char* const name : {"min", "max"}) {
        QTest::newRow(name) << "Binary functions" << name << QString(" %1( t, X ) ").arg(name);
    }
    QTest::newRow("if") << "Ternary functions"
                        << "if"
                        << " if( X, t, X ) ";
    for (const char* const name : {"t", "f", "fps"}) {
        QTest::newRow(name) << "I vars" << name << QString("t %1 ").arg(name);
    }
    for (const char* const name : {"PI", "e", "EPSILON"}) {
        QTest::newRow(name) << "Constants" << name << QString("t %1 ").arg(name);
    }
}

void TestInsertMenu::everyEntryBuildsItsText()
{
    QFETCH(QString, subMenu);
    QFETCH(QString, entry);
    QFETCH(QString, text);
    fixture->editCurve("n.a", {}, "t");
    line->choose({subMenu, entry});
    QCOMPARE(line->text(), text);
    QVERIFY(line->line().hasFocus());
    // What stands at the cursor behind "t" makes no expression of the two.
    const bool isWhole = subMenu == "Unary functions";
    QCOMPARE(boxes->texts.size(), isWhole ? 0 : 1);
}

void TestInsertMenu::aVariableOrConstantGoesToTheCursorAndLeavesTheRest()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    line->type("2*+t");
    line->line().setCursorPosition(2);
    line->choose({"Constants", "PI"});
    QCOMPARE(line->text(), QString("2* PI +t"));
    QCOMPARE(expressionOf(a), QString("2*PI+t"));
    QVERIFY(boxes->texts.isEmpty());
}

void TestInsertMenu::theCursorStandsBehindWhatWasInserted()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    line->type("1+");
    line->choose({"I vars", "fps"});
    QCOMPARE(line->line().cursorPosition(), 7);
    line->typeKeys("*t");
    line->press(Qt::Key_Return);
    QCOMPARE(expressionOf(a), QString("1+fps*t"));
}

void TestInsertMenu::aDVarIsInsertedByItsFullName()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    fixture->addCurve("My Body.top.The Width", {{1, 1}});
    line->choose({"D vars", "my_body", "top", "the_width"});
    QCOMPARE(line->text(), QString(" my_body.top.the_width "));
    QCOMPARE(expressionOf(a), QString("my_body.top.the_width"));
    QVERIFY(line->line().hasFocus());
}

void TestInsertMenu::aDVarIsQuotedWhereItWouldReadAsAnythingElse_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("written");
    QTest::newRow("a minus") << "t-x"
                             << "'t-x.y'";
    QTest::newRow("an ampersand") << "r&d"
                                  << "'r&d.y'";
    QTest::newRow("a digit in front") << "2nd"
                                      << "'2nd.y'";
    QTest::newRow("a quote") << "it's"
                             << "'it\\'s.y'";
    QTest::newRow("a function") << "sin"
                                << "sin.y";
}

void TestInsertMenu::aDVarIsQuotedWhereItWouldReadAsAnythingElse()
{
    QFETCH(QString, node);
    QFETCH(QString, written);
    const LentCurve& a = fixture->editCurve("n.a", {});
    fixture->addCurve(node + ".y", {{1, 1}});
    line->choose({"D vars", node, "y"});
    QCOMPARE(line->text(), " " + written + " ");
    QCOMPARE(expressionOf(a), written);
    QVERIFY(boxes->titles.isEmpty());
    QCOMPARE(fixture->undoAll(), QStringList{"Set Expression"});
    editor().getCmdManager()->redo();
    QCOMPARE(expressionOf(a), written);
}

void TestInsertMenu::aMissingOperandIsToldAndSelectedForTyping()
{
    const LentCurve& a = fixture->editCurve("n.a", {}, "t");
    line->choose({"Ternary functions", "if"});
    QCOMPARE(boxes->titles, QStringList{"Syntax error"});
    QCOMPARE(boxes->texts, QStringList{"Variable X not found"});
    QCOMPARE(line->line().selectionStart(), 5);
    QCOMPARE(line->line().selectedText(), QString("X"));
    QVERIFY(line->line().isErrorShown());
    QCOMPARE(expressionOf(a), QString("t"));
    QVERIFY(!editor().getCmdManager()->nextUndo());
    line->typeKeys("f>9");
    QCOMPARE(line->text(), QString(" if( f>9, t, X ) "));
    line->press(Qt::Key_Return);
    QCOMPARE(line->line().selectionStart(), 13);
    line->typeKeys("0");
    line->press(Qt::Key_Return);
    QCOMPARE(expressionOf(a), QString("if(f>9,t,0)"));
}

void TestInsertMenu::thePlaceHolderIsSelectedAlsoWhereXIsAVariable_data()
{
    QTest::addColumn<QStringList>("path");
    QTest::addColumn<int>("start");
    QTest::newRow("+") << QStringList{"Binary functions", "+"} << 3;
    QTest::newRow("&&") << QStringList{"Binary functions", "&&"} << 3;
    QTest::newRow("min") << QStringList{"Binary functions", "min"} << 9;
    QTest::newRow("if") << QStringList{"Ternary functions", "if"} << 5;
}

void TestInsertMenu::thePlaceHolderIsSelectedAlsoWhereXIsAVariable()
{
    QFETCH(QStringList, path);
    const Variable x("X", 1.0);
    fixture->editCurve("n.a", {}, "t");
    line->choose(path);
    QVERIFY(boxes->texts.isEmpty());
    QTEST(line->line().selectionStart(), "start");
    QCOMPARE(line->line().selectedText(), QString("X"));
    QVERIFY(!line->line().isErrorShown());
    QCOMPARE(fixture->undoAll(), QStringList{"Set Expression"});
}

void TestInsertMenu::anErrorAheadOfThePlaceHolderStaysMarked()
{
    fixture->editCurve("n.a", {});
    line->type("foo");
    line->choose({"Binary functions", "*"});
    QCOMPARE(line->text(), QString(" foo*X "));
    QCOMPARE(boxes->texts, QStringList{"Variable foo not found"});
    QCOMPARE(line->line().selectedText(), QString("foo"));
}

void TestInsertMenu::anInsertIsOneStep()
{
    const LentCurve& a = fixture->addCurve("n.a", {}, "t");
    const LentCurve& b = fixture->addCurve("n.b", {}, "t");
    editor().selectNodes(QStringList{"n.a", "n.b"});
    line->choose({"Unary functions", "sin"});
    QCOMPARE(expressionOf(a), QString("sin(t)"));
    QCOMPARE(expressionOf(b), QString("sin(t)"));
    line->leave();
    QCOMPARE(fixture->undoAll(), QStringList{"Set Expression"});
    QCOMPARE(expressionOf(b), QString("t"));
}

void TestInsertMenu::anInsertIntoDotsFails()
{
    fixture->addCurve("n.a", {}, "t");
    const LentCurve& b = fixture->addCurve("n.b", {}, "f");
    editor().selectNodes(QStringList{"n.a", "n.b"});
    line->choose({"Unary functions", "sin"});
    QCOMPARE(line->text(), QString(" sin(...) "));
    QCOMPARE(boxes->texts.size(), 2);
    QCOMPARE(expressionOf(b), QString("f"));
}

void TestInsertMenu::aNullActionInsertsNothing()
{
    fixture->editCurve("n.a", {}, "t");
    for (const char* const slot : {"insertUnaryFunc", "insertBinaryFunc", "insertTernaryFunc",
                                   "insertIVarFunc", "insertDVarFunc"}) {
        QAction* const none = nullptr;
        QVERIFY(QMetaObject::invokeMethod(&editor(), slot, Q_ARG(QAction*, none)));
        QCOMPARE(line->text(), QString("t"));
    }
    QVERIFY(fixture->undoAll().isEmpty());
}

void TestInsertMenu::anInsertPastTheLinesLimitIsCutShort()
{
    const LentCurve& a = fixture->editCurve("n.a", {}, "f");
    line->paste(QString(16383, QLatin1Char(' ')) + "t");
    line->choose({"Unary functions", "sin"});
    QCOMPARE(line->text().size(), 16384);
    QCOMPARE(boxes->texts, QStringList{"Unmatched parenthesis"});
    QCOMPARE(expressionOf(a), QString("f"));
}

void TestInsertMenu::aNameWithoutAPointIsNotListed()
{
    const Variable plain("wind", 1.0);
    const Variable dotted("stage.wind", 1.0);
    QCOMPARE(menuTexts(openDVars()), QStringList{"stage"});
}

void TestInsertMenu::dottedNamesStandInSubMenus()
{
    for (const char* const name :
         {"body.density", "body.x.a", "body.x.b", "body.x", "x.body.x", "x.a"}) {
        fixture->addCurve(name, {});
    }
    QMenu* const menu = openDVars();
    QCOMPARE(menuTexts(menu), (QStringList{"body", "x"}));
    QMenu* const body = menu->actions().at(0)->menu();
    QCOMPARE(menuTexts(body), (QStringList{"density", "x", "x"}));
    QCOMPARE(body->objectName(), QString("body"));
    QCOMPARE(body->actions().at(0)->objectName(), QString("body.density"));
    QVERIFY(!body->actions().at(1)->menu());
    QCOMPARE(body->actions().at(1)->objectName(), QString("body.x"));
    QCOMPARE(menuTexts(body->actions().at(2)->menu()), (QStringList{"a", "b"}));
    QMenu* const x = menu->actions().at(1)->menu();
    QCOMPARE(menuTexts(x), (QStringList{"a", "body"}));
    QCOMPARE(x->actions().at(1)->menu()->actions().at(0)->objectName(), QString("x.body.x"));
}

void TestInsertMenu::emptyPartsAreKept()
{
    const Variable before(".a", 1.0);
    const Variable between("b..a", 1.0);
    const Variable behind("b.", 1.0);
    QMenu* const menu = openDVars();
    QCOMPARE(menuTexts(menu), (QStringList{"", "b"}));
    QCOMPARE(menuTexts(menu->actions().at(0)->menu()), QStringList{"a"});
    QMenu* const b = menu->actions().at(1)->menu();
    QCOMPARE(menuTexts(b), (QStringList{"", ""}));
    QCOMPARE(b->actions().at(0)->objectName(), QString("b."));
    QCOMPARE(menuTexts(b->actions().at(1)->menu()), QStringList{"a"});
}

void TestInsertMenu::openingTheDVarsTwiceGivesTheSameMenu()
{
    fixture->addCurve("n.a", {});
    fixture->addCurve("n.b.c", {});
    const auto texts = [this] {
        QStringList all;
        for (const QMenu* const menu : openDVars()->findChildren<QMenu*>()) {
            all += menuTexts(menu);
        }
        return all;
    };
    QCOMPARE(texts(), (QStringList{"a", "b", "c"}));
    QCOMPARE(texts(), (QStringList{"a", "b", "c"}));
    QCOMPARE(dVars()->actions().size(), 1);
}

void TestInsertMenu::theMenuFollowsTheCatalogue()
{
    fixture->addCurve("n.a", {});
    openDVars();
    editor().renameCurve("n", "a", "New Name");
    QCOMPARE(menuTexts(openDVars()->actions().at(0)->menu()), QStringList{"new_name"});
    editor().removeNode("n");
    QVERIFY(openDVars()->actions().isEmpty());
    QVERIFY(dVars()->findChildren<QMenu*>().isEmpty());
}

void TestInsertMenu::tenThousandCurvesAreListed()
{
    std::vector<std::unique_ptr<Variable>> variables;
    for (int i = 0; i < 10000; ++i) {
        const std::string number = std::to_string(i);
        variables.push_back(std::make_unique<Variable>("node" + number + ".curve", 1.0));
    }
    QMenu* const menu = dVars();
    QVERIFY(QMetaObject::invokeMethod(&editor(), "populateDVarMenu"));
    QCOMPARE(menu->actions().size(), 10000);
}

QTEST_MAIN(TestInsertMenu)
#include "test_insert_menu.moc"
