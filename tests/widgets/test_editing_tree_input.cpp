#include "widgets/EditingTreeFixture.h"

/// Keys and context menus of the tree.
class TestEditingTreeInput : public QObject, EditingTreeFixture
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { close(); }

    void deleteWithASelectionAsksForRemovalAndDoesNotClimb();
    void aListenerMayRemoveTheItemsItIsTold();
    void deleteWithNothingSelectedSendsNothingAndGoesOnToTheBase();
    void otherKeysWorkAsInAnyTree();
    void theContextMenuOfAnItemIsToldAndDoesNotClimb();
    void theContextMenuOnEmptySpaceGoesToTheBase();
    void theMenuKeyOpensTheMenuOfTheCurrentItem();
};

void TestEditingTreeInput::init()
{
    failOnUnexpectedWarning();
    open();
}

void TestEditingTreeInput::deleteWithASelectionAsksForRemovalAndDoesNotClimb()
{
    QTreeWidgetItem* const item = addPath(*tree, "n.a");
    item->setSelected(true);
    QModelIndexList asked;
    connect(tree, &EditingTree::removeFromEditing, this,
            [&](const QModelIndexList& indexes) { asked = indexes; });
    tree->setFocus();
    QTest::keyClick(tree, Qt::Key_Delete);
    QCOMPARE(tree->treeDotNames(asked), QStringList("n.a"));
    QCOMPARE(frame->keys, 0);
}

void TestEditingTreeInput::aListenerMayRemoveTheItemsItIsTold()
{
    addPath(*tree, "n.a")->setSelected(true);
    addPath(*tree, "m.b")->setSelected(true);
    connect(tree, &EditingTree::removeFromEditing, this, [&](const QModelIndexList& indexes) {
        for (const QString& name : tree->treeDotNames(indexes)) {
            tree->removeTreeItem(name, tree->findTreeItem(name));
        }
    });
    QTest::keyClick(tree, Qt::Key_Delete);
    QCOMPARE(tree->topLevelItemCount(), 0);
}

void TestEditingTreeInput::deleteWithNothingSelectedSendsNothingAndGoesOnToTheBase()
{
    addPath(*tree, "n.a");
    tree->setCurrentItem(nullptr);
    tree->clearSelection();
    const QSignalSpy spy(tree, SIGNAL(removeFromEditing(const QModelIndexList&)));
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QCoreApplication::sendEvent(tree, &event);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(frame->keys, 1);
}

void TestEditingTreeInput::otherKeysWorkAsInAnyTree()
{
    addPath(*tree, "n");
    addPath(*tree, "m");
    tree->setCurrentItem(tree->topLevelItem(0));
    const QSignalSpy spy(tree, &EditingTree::removeFromEditing);
    QTest::keyClick(tree, Qt::Key_Down);
    QCOMPARE(tree->currentItem(), tree->topLevelItem(1));
    QCOMPARE(spy.count(), 0);
}

void TestEditingTreeInput::theContextMenuOfAnItemIsToldAndDoesNotClimb()
{
    QTreeWidgetItem* const item = addPath(*tree, "n");
    QModelIndex told;
    connect(tree, &EditingTree::rightButtonPressed, this,
            [&](const QModelIndex& index) { told = index; });
    const QPoint position = tree->visualItemRect(item).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, position,
                            tree->viewport()->mapToGlobal(position));
    QCoreApplication::sendEvent(tree->viewport(), &event);
    QCOMPARE(tree->itemFromIndex(QModelIndex(told)), item);
    QCOMPARE(frame->menus, 0);
}

void TestEditingTreeInput::theContextMenuOnEmptySpaceGoesToTheBase()
{
    addPath(*tree, "n");
    const QSignalSpy spy(tree, SIGNAL(rightButtonPressed(const QModelIndex&)));
    const QPoint position = tree->viewport()->rect().bottomLeft() - QPoint(-5, 5);
    QContextMenuEvent event(QContextMenuEvent::Mouse, position,
                            tree->viewport()->mapToGlobal(position));
    QCoreApplication::sendEvent(tree->viewport(), &event);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(frame->menus, 1);
}

void TestEditingTreeInput::theMenuKeyOpensTheMenuOfTheCurrentItem()
{
    addPath(*tree, "n");
    QTreeWidgetItem* const current = addPath(*tree, "m");
    tree->setCurrentItem(current);
    QModelIndex told;
    connect(tree, &EditingTree::rightButtonPressed, this,
            [&](const QModelIndex& index) { told = index; });
    // What the toolkit sends for the menu key.
    const QPoint position = tree->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, position, tree->mapToGlobal(position));
    QCoreApplication::sendEvent(tree, &event);
    QCOMPARE(tree->itemFromIndex(told), current);
    QCOMPARE(frame->menus, 0);
}

QTEST_MAIN(TestEditingTreeInput)
#include "test_editing_tree_input.moc"

#include <QSignalSpy>
