// Which curves are on the canvas and in the tree, and how they get there and leave.

#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include "commands/CurveCommand.h"
#include "curves/CurveNodeBase.h"
#include "widgets/ControlMenu2.h"

#include <QColorDialog>
#include <QStyleFactory>

#include <functional>

namespace {

/// The dotted names of all items, from the top down.
QStringList treeNames(const CurveEditor& editor)
{
    const EditingTree* const tree = editor.checkListsEditing;
    QStringList names;
    std::function<void(QTreeWidgetItem*)> collect = [&](QTreeWidgetItem* item) {
        names.append(tree->itemDotName(item));
        for (int i = 0; i < item->childCount(); ++i) {
            collect(item->child(i));
        }
    };
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        collect(tree->topLevelItem(i));
    }
    return names;
}

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
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu) {
            return;
        }
        watch.stop();
        for (QAction* const action : menu->actions()) {
            if (action->text() == entry) {
                wasThere = true;
                QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                                  menu->actionGeometry(action).center());
            }
        }
        menu->close();
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

class TestEditingSet : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void enteringMakesAnObjectAndAPathInTheTree()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a.b", {{1, 1}});
        QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a", "n.a.b"}));
        const auto* const curve = dynamic_cast<CurveNodeBase*>(fixture.logic().findCurve("n.a.b"));
        QVERIFY(curve);
        QCOMPARE(curve->curveColor(), QColor(Qt::green));
        QCOMPARE(curve->minimumValue(), -1000.0f);
        QCOMPARE(curve->maximumValue(), 1000.0f);
        QVERIFY(fixture.editor.searchAllNodeList("n.a.b")->isEditing);
    }

    void enteringDoesNotSelect()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        fixture.addCurve("n.b", {{1, 1}});
        QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});
        QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"n.a"});
    }

    void enteringTwiceMakesOneObjectAndOneItem()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a", {{1, 1}});
        CurveNode* const object = fixture.logic().findCurve("n.a");
        fixture.editor.setCurveEditableOn(fixture.editor.searchAllNodeList("n.a"));
        QCOMPARE(fixture.logic().findCurve("n.a"), object);
        QCOMPARE(fixture.logic().topNodes().first()->curves(), QList<CurveNode*>{object});
        QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a"}));
    }

    void childrenAreSortedTopItemsAreNot()
    {
        EditorFixture fixture;
        for (const char* name : {"n.c", "n.a", "b.z", "b.x.2", "b.x.1"}) {
            fixture.addCurve(name, {{1, 1}});
        }
        QCOMPARE(treeNames(fixture.editor),
                 (QStringList{"n", "n.a", "n.c", "b", "b.x", "b.x.1", "b.x.2", "b.z"}));
    }

    void childrenEnterWhereSortingWouldPutThem()
    {
        EditorFixture fixture;
        for (const char* name :
             {"b 10|", "B|", "b 2|", "|", "\u00e4|", "b|", "a|", "z|", "Z|", "b 1|"}) {
            fixture.addCurve(QStringLiteral("n.") + QString::fromUtf8(name), {{1, 1}});
        }
        const QStringList entered = treeNames(fixture.editor);
        QCOMPARE(entered.size(), 11);
        fixture.editor.getNodeItem("n")->sortChildren(0, Qt::AscendingOrder);
        QCOMPARE(entered, treeNames(fixture.editor));
    }

    void theParentsOfANewItemAreExpanded()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a.b", {{1, 1}});
        fixture.addCurve("n.a.c", {{1, 1}});
        QVERIFY(fixture.editor.checkListsEditing->findTreeItem("n")->isExpanded());
        QVERIFY(fixture.editor.checkListsEditing->findTreeItem("n.a")->isExpanded());
    }

    void emptyPartsOfANameAreLevelsToo()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a..b", {{1, 1}});
        QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a", "n.a.", "n.a..b"}));
    }

    void theLastCurveOfAGroupTakesTheGroupAlong()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a.b", {{1, 1}});
        fixture.editor.setCurveEditableOff(fixture.editor.searchAllNodeList("n.a.b"));
        QVERIFY(treeNames(fixture.editor).isEmpty());
        QVERIFY(!fixture.logic().findCurve("n.a.b"));
        QVERIFY(!fixture.logic().findCurve("n.a"));
        QVERIFY(!fixture.logic().findCurve("n"));
        QVERIFY(!fixture.editor.searchAllNodeList("n.a.b")->isEditing);
    }

    void curvesThatShareAnItemKeepItUntilTheLastGoes()
    {
        EditorFixture fixture;
        fixture.addCurve("n.x.1", {{1, 1}});
        fixture.addCurve("n.x.2", {{1, 1}});
        fixture.editor.removeCurveFromEditing("n.x.1");
        QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.x", "n.x.2"}));
        QVERIFY(fixture.logic().findCurve("n.x"));
        QVERIFY(fixture.logic().findCurve("n.x.2"));
        fixture.editor.removeCurveFromEditing("n.x.2");
        QVERIFY(treeNames(fixture.editor).isEmpty());
        QVERIFY(fixture.logic().topNodes().isEmpty());
    }

    void theLastItemOfANodeLeavesCurvesOfAnotherNodeThatStandUnderItsName()
    {
        LentCurve curve;
        EditorFixture fixture;
        fixture.addCurve("n.a", {{1, 1}});
        fixture.editor.addNewMainNode("n.k");
        fixture.editor.addNewNode("n.k", "b", Qt::red, 0, &curve.spline, nullptr, 0, 1, true);
        fixture.editor.setDefaultSelected("n.k", "b");
        CurveNode* const object = fixture.logic().findCurve("n.k.b");
        fixture.editor.removeCurveFromEditing("n.a");
        QCOMPARE(treeNames(fixture.editor), (QStringList{"n.k", "n.k.b"}));
        QCOMPARE(fixture.logic().findCurve("n.k.b"), object);
        QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"n.k.b"});
        fixture.editor.removeCurve("n.k", "b");
        QVERIFY(!fixture.logic().findCurve("n.k.b"));
    }

    void theLastItemOfANodeLeavesTheCurvesOfANodeThatWasRenamedToItsName()
    {
        EditorFixture fixture;
        fixture.editor.addNewMainNode("n");
        fixture.addCurve("m.a", {{1, 1}});
        fixture.addCurve("m.b", {{1, 1}});
        fixture.editor.renameNode("m", "n");
        fixture.editor.removeCurve("n", "a");
        QVERIFY(fixture.logic().findCurve("n.b"));
        QVERIFY(fixture.editor.checkListsEditing->findTreeItem("n.b"));
        fixture.editor.selectNodes(QString("n.b"));
        QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"n.b"});
    }

    void leavingKeepsTheListOfTheSelection()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        fixture.editor.setCurveEditableOff(fixture.editor.searchAllNodeList("n.a"));
        QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});
        QVERIFY(fixture.logic().editingCurves().isEmpty());
    }

    void anExistingObjectIsPutBack()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a.b", {{1, 1}});
        CurveNode* const object = fixture.logic().findCurve("n.a.b");
        CurveEditor::NodeStruct* const record = fixture.editor.searchAllNodeList("n.a.b");
        fixture.editor.setCurveEditableOff(record);
        fixture.editor.setCurveEditableOn(record, object);
        QCOMPARE(fixture.logic().findCurve("n.a.b"), object);
        QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a", "n.a.b"}));
    }

    void setDefaultSelectedEntersAndSelectsAlone()
    {
        EditorFixture fixture;
        LentCurve listed;
        fixture.editCurve("n.a", {{1, 1}});
        fixture.editor.addCurve("n", "b", Qt::red, 0, &listed.spline, nullptr, 0, 1, false, true);
        fixture.editor.setDefaultSelected("n", "b");
        QCOMPARE(fixture.editor.getSelection(), QStringList{"n.b"});
        QVERIFY(fixture.logic().findCurve("n.b"));
        fixture.editor.setDefaultSelected("n", "unknown");
        QCOMPARE(fixture.editor.getSelection(), QStringList{"n.b"});
    }

    void aNodeNameRemovesAllItsCurvesAndTheyStayCatalogued()
    {
        EditorFixture fixture;
        for (const char* name : {"n.a", "n.x.1", "n.x.2", "m.a"}) {
            fixture.addCurve(name, {{1, 1}});
        }
        fixture.editor.removeCurveFromEditing("n");
        QCOMPARE(treeNames(fixture.editor), (QStringList{"m", "m.a"}));
        QVERIFY(!fixture.logic().findCurve("n"));
        for (const char* name : {"n.a", "n.x.1", "n.x.2"}) {
            QVERIFY(!fixture.logic().findCurve(name));
            QVERIFY(fixture.editor.searchAllNodeList(name));
            QVERIFY(!fixture.editor.searchAllNodeList(name)->isEditing);
        }
        QVERIFY(fixture.logic().findCurve("m.a"));
    }

    void aGroupNameRemovesTheCurvesBelowIt()
    {
        EditorFixture fixture;
        for (const char* name : {"n.a", "n.x.1", "n.x.2"}) {
            fixture.addCurve(name, {{1, 1}});
        }
        fixture.editor.removeCurveFromEditing("n.x");
        QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a"}));
        QVERIFY(!fixture.logic().findCurve("n.x"));
    }

    void anEmptyNodeLeavesTheTree()
    {
        EditorFixture fixture;
        fixture.editor.addNewMainNode("n");
        fixture.editor.removeCurveFromEditing("n");
        QVERIFY(treeNames(fixture.editor).isEmpty());
        QVERIFY(fixture.editor.searchMainNode("n"));
        fixture.editor.removeCurveFromEditing("n");
        fixture.editor.removeCurveFromEditing("unknown.curve");
    }

    void removingANodeEndsWhenACurveOfItCannotBeFound()
    {
        EditorFixture fixture;
        LentCurve hidden;
        fixture.addCurve("n.a", {{1, 1}});
        fixture.addCurve("n.width", {{1, 1}});
        fixture.addCurve("n.x", {{1, 1}});
        CurveEditor& editor = fixture.editor;
        editor.addCurve("n", "width2", Qt::red, 0, &hidden.spline, nullptr, 0, 1, false, true);
        editor.setCurveEditableOn(editor.searchAllNodeListCurveName("n.width2"));
        QCOMPARE(treeNames(editor).size(), 5);
        editor.removeCurveFromEditing("n");
        QCOMPARE(treeNames(editor), (QStringList{"n", "n.width2"}));
        QVERIFY(fixture.logic().findCurve("n.width2"));
        QVERIFY(!fixture.logic().findCurve("n.x"));
    }

    void cleanSelectedsEmptiesTheSet()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a", {{1, 1}});
        fixture.editCurve("m.a.b", {{1, 1}});
        fixture.editor.cleanSelecteds();
        QVERIFY(treeNames(fixture.editor).isEmpty());
        QVERIFY(fixture.logic().topNodes().isEmpty());
        QVERIFY(fixture.editor.searchAllNodeList("n.a"));
    }

    void cleanSelectedsOfRecordsNeverEditedChangesNothingVisible()
    {
        EditorFixture fixture;
        LentCurve listed;
        fixture.editor.addCurve("n", "a", Qt::red, 0, &listed.spline, nullptr, 0, 1, false, true);
        fixture.editor.cleanSelecteds();
        QCOMPARE(treeNames(fixture.editor), QStringList{"n"});
    }

    void theMenuEntryRemovesTheEditingCurvesNotItsItem()
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

    void deleteInTheTreeRemovesTheSelectedItems()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a", {{1, 1}});
        fixture.addCurve("n.b", {{1, 1}});
        fixture.addCurve("n.c", {{1, 1}});
        fixture.editor.selectNodes(QStringList{"n.a", "n.c"});
        QTest::keyClick(fixture.editor.checkListsEditing, Qt::Key_Delete);
        QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.b"}));
        fixture.editor.getCmdManager()->undo();
        QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a", "n.b", "n.c"}));
        QCOMPARE(fixture.editor.getSelection(), (QStringList{"n.a", "n.c"}));
    }

    void aRightClickOpensTheMenuOnItsItem()
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

    void aRightClickOnOneOfTheSelectedItemsRemovesThemAll()
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

    void theMenuSetsAColour()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a", {{1, 1}});
        answerColourDialog(
            [&] { QVERIFY(chooseInTheMenuOf(fixture.editor, "n.a", "Change color")); },
            [](QColorDialog* dialog) {
                dialog->setCurrentColor(QColor(10, 20, 30));
                dialog->accept();
            });
        QCOMPARE(fixture.editor.searchAllNodeList("n.a")->color, QColor(10, 20, 30));
        QCOMPARE(fixture.logic().findCurve("n.a")->splineGraph()->mainColor(), QColor(10, 20, 30));
    }

    void aCancelledColourDialogLeavesAnInvalidColour()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a", {{1, 1}});
        fixture.editor.findChild<ControlMenu2*>()->itemName = "n.a";
        answerColourDialog([&] { fixture.editor.slotMenuEditingNodeColor(); },
                           [](QColorDialog* dialog) { dialog->reject(); });
        QVERIFY(!fixture.editor.searchAllNodeList("n.a")->color.isValid());
        QVERIFY(!fixture.logic().findCurve("n.a")->splineGraph()->mainColor().isValid());
    }

    void anItemWithoutARecordGetsNoColourDialog()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a", {{1, 1}});
        fixture.editor.findChild<ControlMenu2*>()->itemName = "n";
        fixture.editor.slotMenuEditingNodeColor();
        QCOMPARE(fixture.editor.searchAllNodeList("n.a")->color, QColor(Qt::green));
    }

    void theColourOfARecordOffTheCanvasIsOnlyNoted()
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

    void theTreeIsShownHiddenAndStyled()
    {
        EditorFixture fixture;
        QVERIFY(fixture.editor.isTreeVisible());
        fixture.editor.setTreeVisible(false);
        QVERIFY(!fixture.editor.isTreeVisible());
        fixture.editor.setTreeVisible(true);
        QVERIFY(fixture.editor.isTreeVisible());
        const std::unique_ptr<QStyle> style(QStyleFactory::create("Fusion"));
        fixture.editor.setCheckListStyle(style.get());
        QCOMPARE(fixture.editor.checkListsEditing->style(), style.get());
        fixture.editor.setCheckListStyle(nullptr);
    }

    void aRecordWhoseSplineTheHostDestroyedEntersEmpty()
    {
        EditorFixture fixture;
        auto curve = std::make_unique<LentCurve>();
        curve->addKey(1, 1);
        fixture.editor.addCurve("n", "a", Qt::red, 0, &curve->spline, &curve->expression, 0, 1,
                                false, true);
        curve.reset();
        fixture.editor.setDefaultSelected("n", "a");
        QVERIFY(!fixture.logic().findCurve("n.a")->spline());
        QVERIFY(!fixture.logic().findCurve("n.a")->expression());
        fixture.paint();
        fixture.editor.selectAllKeys();
        fixture.editor.deleteSelectedKeys();
        fixture.editor.removeNode("n");
    }
};

QTEST_MAIN(TestEditingSet)
#include "test_editing_set.moc"
