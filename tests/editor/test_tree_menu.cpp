// The menu of the tree, and the colours that it gives.

#include "editor/EditorParts.h"
#include "editor/FileActionsFixture.h"
#include "support/DialogUser.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "widgets/ControlMenu2.h"

#include <QColorDialog>
#include <QContextMenuEvent>
#include <QPointer>

#include <functional>

namespace {

/// What the toolkit sends for a right click on an item.
void rightClick(EditingTree& tree, const QString& name)
{
    const QPoint at = tree.visualItemRect(tree.findTreeItem(name)).center();
    QTest::mouseClick(tree.viewport(), Qt::RightButton, Qt::NoModifier, at);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, tree.viewport()->mapToGlobal(at));
    QApplication::sendEvent(tree.viewport(), &event);
}

/// Clicks an entry of the menu that a right click on an item opens; returns whether it was there.
bool chooseInTheMenuOf(CurveEditor& editor, const QString& name, const QString& entry)
{
    bool wasThere = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        const QPointer<QMenu> menu(qobject_cast<QMenu*>(QApplication::activePopupWidget()));
        if (!menu) {
            return;
        }
        watch.stop();
        const QList<QAction*> actions = menu->actions();
        for (QAction* const action : actions) {
            if (action->text() == entry) {
                wasThere = true;
                QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                                  menu->actionGeometry(action).center());
                break;
            }
        }
        if (menu) {
            menu->close();
        }
    });
    watch.start(0);
    rightClick(*editor.checkListsEditing, name);
    return wasThere;
}

/// Answers the colour dialog that `open` runs.
template <class Open>
void answerColourDialog(const Open& open, const std::function<void(QColorDialog*)>& answer)
{
    bool wasOpen = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        if (auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget())) {
            wasOpen = true;
            watch.stop();
            answer(dialog);
        }
    });
    watch.start(0);
    open();
    QVERIFY(wasOpen);
}

} // namespace

class TestTreeMenu : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { FileActionsFixture::keepAwayFromTheUsersSettings(); }
    void init() { failOnUnexpectedWarning(); }

    void theMenuEntryRemovesTheEditingCurvesNotItsItem();
    void aRightClickOpensTheMenuOnItsItem();
    void aSecondRequestWhileTheMenuIsOpenOpensNoOther();
    void aRightClickOnOneOfTheSelectedItemsRemovesThemAll();
    void theMenuSetsAColour();
    void aCancelledColourDialogLeavesAnInvalidColour();
    void anItemWithoutARecordGetsNoColourDialog();
    void theColourOfARecordOffTheCanvasIsOnlyNoted();

    void theEditorGoesWhileAColourIsChosen_data() { atOnceAndLater(); }

    void theEditorGoesWhileAColourIsChosen();

    void theEditorGoesWhileTheMenuOfTheTreeIsOpen_data() { atOnceAndLater(); }

    void theEditorGoesWhileTheMenuOfTheTreeIsOpen();

private:
    static CurveEditor* shownEditorOf(LentCurve& curve);
    static void atOnceAndLater();
};

void TestTreeMenu::theMenuEntryRemovesTheEditingCurvesNotItsItem()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.editCurve("n.b", {{1, 1}});
    fixture.editor.findChild<ControlMenu2*>()->itemName = "n.a";
    fixture.editor.slotMenuEditingNodeRemove();
    QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a"}));
    QCOMPARE(fixture.undoAll(), QStringList{"Remove Curves from Curve Editor"});
    QVERIFY(fixture.logic().findCurve("n.b"));
}

void TestTreeMenu::aRightClickOpensTheMenuOnItsItem()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    EditingTree* const tree = fixture.editor.checkListsEditing;
    QVERIFY(fixture.closesMenuOf([&] { rightClick(*tree, "n.a"); }));
    QCOMPARE(fixture.editor.findChild<ControlMenu2*>()->itemName, QString("n.a"));
    QVERIFY(fixture.closesMenuOf([&] { rightClick(*tree, "n"); }));
    QCOMPARE(fixture.editor.findChild<ControlMenu2*>()->itemName, QString("n"));
    fixture.editor.rightButtonPressedEditingItem(QModelIndex()); // opens nothing
    QCOMPARE(fixture.editor.findChild<ControlMenu2*>()->itemName, QString("n"));
}

void TestTreeMenu::aSecondRequestWhileTheMenuIsOpenOpensNoOther()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    EditingTree* const tree = fixture.editor.checkListsEditing;
    bool cameBack = false;
    QTimer watch;
    connect(&watch, &QTimer::timeout, &watch, [&] {
        if (QWidget* const menu = QApplication::activePopupWidget()) {
            watch.stop();
            rightClick(*tree, "n");
            cameBack = true;
            menu->close();
        }
    });
    watch.start(0);
    rightClick(*tree, "n.a");
    QVERIFY(cameBack);
    QCOMPARE(fixture.editor.findChild<ControlMenu2*>()->itemName, QString("n.a"));
}

void TestTreeMenu::aRightClickOnOneOfTheSelectedItemsRemovesThemAll()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.addCurve("n.b", {{1, 1}});
    fixture.addCurve("n.c", {{1, 1}});
    fixture.editor.selectNodes(QStringList{"n.a", "n.c"});
    QVERIFY(chooseInTheMenuOf(fixture.editor, "n.a", "Remove from editing list"));
    QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.b"}));
    QCOMPARE(fixture.undoAll(), QStringList{"Remove Curves from Curve Editor"});
    QCOMPARE(fixture.editor.getSelection(), (QStringList{"n.a", "n.c"}));
}

void TestTreeMenu::theMenuSetsAColour()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    answerColourDialog([&] { QVERIFY(chooseInTheMenuOf(fixture.editor, "n.a", "Change color")); },
                       [](QColorDialog* dialog) {
                           dialog->setCurrentColor(QColor(10, 20, 30));
                           dialog->accept();
                       });
    QCOMPARE(fixture.editor.searchAllNodeList("n.a")->color, QColor(10, 20, 30));
    QCOMPARE(fixture.logic().findCurve("n.a")->splineGraph()->mainColor(), QColor(10, 20, 30));
}

void TestTreeMenu::aCancelledColourDialogLeavesAnInvalidColour()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.editor.findChild<ControlMenu2*>()->itemName = "n.a";
    answerColourDialog([&] { fixture.editor.slotMenuEditingNodeColor(); },
                       [](QColorDialog* dialog) { dialog->reject(); });
    QVERIFY(!fixture.editor.searchAllNodeList("n.a")->color.isValid());
    QVERIFY(!fixture.logic().findCurve("n.a")->splineGraph()->mainColor().isValid());
}

void TestTreeMenu::anItemWithoutARecordGetsNoColourDialog()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.editor.findChild<ControlMenu2*>()->itemName = "n";
    fixture.editor.slotMenuEditingNodeColor();
    QCOMPARE(fixture.editor.searchAllNodeList("n.a")->color, QColor(Qt::green));
}

void TestTreeMenu::theColourOfARecordOffTheCanvasIsOnlyNoted()
{
    LentCurve outer;
    EditorFixture fixture;
    fixture.addCurve("n.a.b", {{1, 1}});
    fixture.editor.addNewNode("n", "a", Qt::red, 0, &outer.spline, nullptr, 0, 1, true);
    auto* const record = fixture.editor.searchAllNodeListCurveName("n.a");
    fixture.editor.setColorToEditingNode(record, Qt::blue);
    QCOMPARE(record->color, QColor(Qt::blue));
    QCOMPARE(fixture.logic().findCurve("n.a.b")->splineGraph()->mainColor(), QColor(Qt::green));
}

void TestTreeMenu::theEditorGoesWhileAColourIsChosen()
{
    QFETCH(bool, later);
    LentCurve curve;
    const QPointer<CurveEditor> editor = shownEditorOf(curve);
    const CurveEditor::NodeStruct* const record = editor->searchAllNodeList("n.c");
    DialogUser<QColorDialog> user([&editor, &later](QColorDialog& dialog) {
        if (later) {
            editor->deleteLater();
            dialog.accept();
        } else {
            delete editor.data();
        }
    });
    QVERIFY(chooseInTheMenuOf(*editor, "n.c", "Change color"));
    QVERIFY(user.hasActed());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!editor);
    QCOMPARE(record->color, QColor(Qt::green));
}

void TestTreeMenu::theEditorGoesWhileTheMenuOfTheTreeIsOpen()
{
    QFETCH(bool, later);
    LentCurve curve;
    const QPointer<CurveEditor> editor = shownEditorOf(curve);
    bool wasOpen = false;
    QTimer watch;
    connect(&watch, &QTimer::timeout, &watch, [&] {
        if (QApplication::activePopupWidget()) {
            watch.stop();
            wasOpen = true;
            later ? editor->deleteLater() : delete editor.data();
        }
    });
    watch.start(0);
    rightClick(*editor->checkListsEditing, "n.c");
    QVERIFY(wasOpen);
    QVERIFY(!editor);
    QVERIFY(!QApplication::activePopupWidget());
}

/// On the heap, with the curve "n.c".
CurveEditor* TestTreeMenu::shownEditorOf(LentCurve& curve)
{
    curve.addKey(10.0, 10.0);
    auto* const editor = new CurveEditor(nullptr, QString());
    editor->addCurve("n", "c", Qt::green, 0.0f, &curve.spline, &curve.expression, -100.0f, 100.0f,
                     true, true);
    editor->show();
    return editor;
}

void TestTreeMenu::atOnceAndLater()
{
    QTest::addColumn<bool>("later");
    QTest::newRow("at once") << false;
    QTest::newRow("by deleteLater") << true;
}

QTEST_MAIN(TestTreeMenu)
#include "test_tree_menu.moc"
