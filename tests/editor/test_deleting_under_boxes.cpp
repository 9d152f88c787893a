#include "commands/CommandDelCurves.h"
#include "editor/EditorParts.h"
#include "support/DialogUser.h"
#include "support/ExpressionLine.h"
#include "support/FailOnWarning.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>

/// A host that deletes the editor while a box tells what is wrong with an expression.
class TestDeletingUnderBoxes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theEditorGoesUnderTheBoxOfAnError_data();
    void theEditorGoesUnderTheBoxOfAnError();
    void theEditorGoesWhenTheLineIsLeftForAnotherWindow();
    void theEditorGoesUnderTheBoxOfACycle();
    void theEditorGoesUnderTheBoxOfAnInsert();
    void theMenuOfAnInsertStaysUntilItHasReturned();
    void theEditorGoesUnderTheBoxOfAnUndo_data();
    void theEditorGoesUnderTheBoxOfAnUndo();
    void theEditorGoesUnderTheBoxOfAPaste();
    void theEditorGoesUnderTheBoxOfAnUndonePaste();
    void theCurveGoesUnderTheBoxOfACycle();

private:
    CommandLine& line() { return *editor->commandLine; }
    void lend(LentCurve& curve, const char* name);
    void enter(const QString& text, const Qt::Key& last = Qt::Key_Return);
    void actUnderTheBox(const std::function<void()>& action);

    LentCurve a;
    LentCurve b;
    QPointer<CurveEditor> editor;
    int boxes = 0;
    std::unique_ptr<DialogUser<QMessageBox>> user;
};

void TestDeletingUnderBoxes::init()
{
    failOnUnexpectedWarning();
    boxes = 0;
    editor = new CurveEditor(nullptr, QString());
    lend(a, "a");
    lend(b, "b");
    editor->selectNodes(QStringList{"n.a", "n.b"});
    editor->show();
    QApplication::setActiveWindow(editor);
    line().setFocus();
}

void TestDeletingUnderBoxes::cleanup()
{
    user.reset();
    delete editor;
    for (LentCurve* const curve : {&a, &b}) {
        delete std::exchange(curve->expression, nullptr);
        curve->spline.reset();
    }
}

void TestDeletingUnderBoxes::lend(LentCurve& curve, const char* name)
{
    editor->addCurve("n", name, Qt::red, 0, &curve.spline, &curve.expression, -100, 100, false,
                     true);
    editor->setCurveEditableOn(editor->searchAllNodeList(QStringLiteral("n.%1").arg(name)));
}

void TestDeletingUnderBoxes::enter(const QString& text, const Qt::Key& last)
{
    line().selectAll();
    QTest::keyClick(&line(), Qt::Key_Delete);
    QTest::keyClicks(&line(), text);
    QTest::keyClick(&line(), last);
}

/// Acts once a box is open, then closes it, if the action has not.
void TestDeletingUnderBoxes::actUnderTheBox(const std::function<void()>& action)
{
    user = std::make_unique<DialogUser<QMessageBox>>([this, action](QMessageBox& box) {
        const QPointer<QMessageBox> open(&box);
        ++boxes;
        action();
        if (open) {
            open->done(QMessageBox::Ok);
        }
    });
}

void TestDeletingUnderBoxes::theEditorGoesUnderTheBoxOfAnError_data()
{
    QTest::addColumn<bool>("later");
    QTest::newRow("at once") << false;
    QTest::newRow("by deleteLater") << true;
}

void TestDeletingUnderBoxes::theEditorGoesUnderTheBoxOfAnError()
{
    QFETCH(bool, later);
    actUnderTheBox([this, later] {
        if (later) {
            editor->deleteLater();
            QCoreApplication::sendPostedEvents(editor, QEvent::DeferredDelete);
        } else {
            delete editor;
        }
    });
    enter("t+foo");
    QCOMPARE(boxes, 1); // of two curves
    QVERIFY(!editor);
    QVERIFY(!a.expression && !b.expression);
}

void TestDeletingUnderBoxes::theEditorGoesWhenTheLineIsLeftForAnotherWindow()
{
    QLineEdit other;
    other.show();
    QApplication::setActiveWindow(editor);
    line().setFocus();
    QTest::keyClicks(&line(), "t+foo");
    actUnderTheBox([this] { delete editor; });
    QApplication::setActiveWindow(&other);
    QCOMPARE(boxes, 1);
    QVERIFY(!editor);
}

void TestDeletingUnderBoxes::theEditorGoesUnderTheBoxOfACycle()
{
    actUnderTheBox([this] { delete editor; });
    enter("n.a");
    QCOMPARE(boxes, 1);
    QVERIFY(!editor);
    QCOMPARE(expressionOf(a), QString("n.a"));
    QCOMPARE(expressionOf(b), QString("none")); // never came to its turn
}

void TestDeletingUnderBoxes::theEditorGoesUnderTheBoxOfAnInsert()
{
    enter("t");
    QAction plus("+", nullptr);
    actUnderTheBox([this] { delete editor; });
    editor->insertBinaryFunc(&plus);
    QCOMPARE(boxes, 1);
    QVERIFY(!editor);
    QCOMPARE(expressionOf(a), QString("t"));
}

/// The toolkit goes on with the menu of an entry when the entry's slot has returned.
void TestDeletingUnderBoxes::theMenuOfAnInsertStaysUntilItHasReturned()
{
    enter("t");
    const QPointer<QMenu> menu(menuAt(*editor, "Insert/Binary functions"));
    bool menuWasKept = false;
    menu->popup(QPoint(10, 10));
    actUnderTheBox([&] {
        delete editor;
        menuWasKept = menu;
    });
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                      menu->actionGeometry(menu->actions().first()).center());
    QCOMPARE(boxes, 1);
    QVERIFY(!editor);
    QVERIFY(menuWasKept);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!menu);
}

void TestDeletingUnderBoxes::theEditorGoesUnderTheBoxOfAnUndo_data()
{
    QTest::addColumn<QString>("step");
    QTest::addColumn<bool>("isCycle");
    for (const char* const step : {"change", "deletion", "whole curves"}) {
        QTest::addRow("%s, a missing variable", step) << step << false;
        QTest::addRow("%s, a cycle", step) << step << true;
    }
}

void TestDeletingUnderBoxes::theEditorGoesUnderTheBoxOfAnUndo()
{
    QFETCH(QString, step);
    QFETCH(bool, isCycle);
    LentCurve c;
    lend(c, "c");
    enter("n.c");
    if (step == "whole curves") {
        editor->getCmdManager()->doCommand(
            new curve_editor::CommandDelCurves(editor, QStringList{"n.a", "n.b"}));
    } else {
        enter(step == "change" ? "t" : "");
    }
    if (isCycle) {
        c.setExpression("n.a");
    } else {
        editor->removeCurve("n", "c");
    }
    actUnderTheBox([this] { delete editor; });
    QVERIFY(!editor->getCmdManager()->undo());
    QCOMPARE(boxes, 1);
    QVERIFY(!editor);
    QCOMPARE(expressionOf(b), QString(step == "change" ? "t" : "none"));
}

void TestDeletingUnderBoxes::theEditorGoesUnderTheBoxOfAPaste()
{
    editor->selectNodes(QStringList("n.a"));
    enter("n.b");
    a.addKey(1, 1);
    a.spline.setAddFunc(true); // a curve that is formula alone has no keys to copy
    editor->removeCurve("n", "b");
    editor->copy();
    actUnderTheBox([this] { delete editor; });
    editor->paste(); // parses the curve's expression anew
    QCOMPARE(boxes, 1);
    QVERIFY(!editor);
    QCOMPARE(a.spline.getControlPointsNumber(), 1u);
}

void TestDeletingUnderBoxes::theEditorGoesUnderTheBoxOfAnUndonePaste()
{
    editor->selectNodes(QStringList("n.a"));
    enter("n.b");
    a.addKey(1, 1);
    a.spline.setAddFunc(true); // a curve that is formula alone has no keys to copy
    editor->copy();
    editor->paste();
    editor->removeCurve("n", "b");
    actUnderTheBox([this] { delete editor; });
    QVERIFY(!editor->getCmdManager()->undo());
    QCOMPARE(boxes, 1);
    QVERIFY(!editor);
    QCOMPARE(a.spline.getControlPointsNumber(), 1u);
}

void TestDeletingUnderBoxes::theCurveGoesUnderTheBoxOfACycle()
{
    editor->selectNodes(QStringList("n.a"));
    actUnderTheBox([this] { editor->removeNode("n"); });
    enter("n.a");
    QCOMPARE(boxes, 1);
    QCOMPARE(expressionOf(a), QString("n.a"));
    QVERIFY(editor->getCmdManager()->undo());
    QCOMPARE(expressionOf(a), QString("none"));
}

QTEST_MAIN(TestDeletingUnderBoxes)
#include "test_deleting_under_boxes.moc"
