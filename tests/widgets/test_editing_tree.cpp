#include "widgets/EditingTreeFixture.h"

namespace {

/// What the whole tree holds, searched for the last element of the path: the rule in its plainest
/// form.
QTreeWidgetItem* searchWholeTree(const EditingTree& tree, const QString& path)
{
    const QString last = path.split(QLatin1Char('.')).last();
    for (QTreeWidgetItem* item : tree.findItems(last, Qt::MatchExactly | Qt::MatchRecursive)) {
        if (tree.itemDotName(item) == path) {
            return item;
        }
    }
    return nullptr;
}

QStringList selectedNames(const EditingTree& tree)
{
    QStringList names = tree.treeDotNames(tree.selectionModel()->selectedIndexes());
    names.sort();
    return names;
}

} // namespace

/// Items found, selected and removed by their dotted names.
class TestEditingTree : public QObject, EditingTreeFixture
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { close(); }

    void aDottedNameJoinsTheTextsFromTheRoot();
    void textsThatLookLikePlaceHoldersStayAsTheyAre();
    void theDottedNamesOfIndexesKeepTheirOrder();
    void theWholePathDecidesBetweenTwoBranchesWithTheSameLastElement();
    void findTreeItemAnswersAsASearchOfTheWholeTreeDoes_data();
    void findTreeItemAnswersAsASearchOfTheWholeTreeDoes();
    void findTreeItemFollowsEveryChangeOfTheTree();
    void selectTreeItemsSelectsExactlyTheNamed();
    void selectingFewOfManyItemsSelectsAllOfTheirNames();
    void selectTreeItemsWithAnEmptyListDeselectsEveryItem();
    void selectTreeItemsReachesHiddenAndCollapsedItemsAndItemsOfTheSameName();
    void selectingThroughSelectTreeItemsFiresTheSelectionSignal();
    void removingTheOnlyCurveUnderAMainNodeRemovesTheNodeToo();
    void removingOneOfTwoCurvesLeavesTheNode();
    void removingACurveWhoseNameHasPointsListsTheEmptyBranchesDeepestFirst();
    void anAncestorWithOtherChildrenStaysWithAllAboveIt();
    void removingNullDoesNothing();
};

void TestEditingTree::init()
{
    failOnUnexpectedWarning();
    open();
}

void TestEditingTree::aDottedNameJoinsTheTextsFromTheRoot()
{
    QTreeWidgetItem* const item = addPath(*tree, "n.a.b");
    QCOMPARE(tree->itemDotName(item), QStringLiteral("n.a.b"));
    QCOMPARE(tree->itemDotName(item->parent()->parent()), QStringLiteral("n"));
    QCOMPARE(tree->itemDotName(nullptr), QString());
    QCOMPARE(tree->indexDotName(tree->indexFromItem(item)), QStringLiteral("n.a.b"));
    QCOMPARE(tree->indexDotName(QModelIndex()), QString());
}

void TestEditingTree::textsThatLookLikePlaceHoldersStayAsTheyAre()
{
    QTreeWidgetItem* const item = addPath(*tree, "%2.%1.%2");
    QCOMPARE(tree->itemDotName(item), QStringLiteral("%2.%1.%2"));
}

void TestEditingTree::theDottedNamesOfIndexesKeepTheirOrder()
{
    const QModelIndex second = tree->indexFromItem(addPath(*tree, "n.b"));
    const QModelIndex first = tree->indexFromItem(addPath(*tree, "n.a"));
    QCOMPARE(tree->treeDotNames({first, second}), QStringList({"n.a", "n.b"}));
    QCOMPARE(tree->treeDotNames({second, first, second}), QStringList({"n.b", "n.a", "n.b"}));
    QCOMPARE(tree->treeDotNames({}), QStringList());
}

void TestEditingTree::theWholePathDecidesBetweenTwoBranchesWithTheSameLastElement()
{
    addPath(*tree, "a.x.c");
    QTreeWidgetItem* const wanted = addPath(*tree, "a.b.c");
    QCOMPARE(tree->findTreeItem(QStringLiteral("a.b.c")), wanted);
}

void TestEditingTree::findTreeItemAnswersAsASearchOfTheWholeTreeDoes_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("found");
    QTest::newRow("a main node") << "n" << true;
    QTest::newRow("a leaf") << "n.a.b" << true;
    QTest::newRow("a deep leaf") << "n.a.b.c.d" << true;
    QTest::newRow("the same name under another node") << "m.a.b" << true;
    QTest::newRow("an unknown last element") << "n.a.x" << false;
    QTest::newRow("an unknown node") << "x.a.b" << false;
    QTest::newRow("a tail of a path") << "a.b" << false;
    QTest::newRow("a beginning of a text") << "nod" << false;
    QTest::newRow("other case") << "N" << false;
    QTest::newRow("empty, with an item of empty text") << "" << true;
    QTest::newRow("an empty element inside") << "n..e" << true;
    QTest::newRow("an empty element at the end") << "n." << true;
    QTest::newRow("an empty element that is missing") << "m.." << false;
    QTest::newRow("a text with a point is never found") << "x.y" << false;
    QTest::newRow("below a text with a point") << "x.y.z" << true;
    QTest::newRow("the later of two readings of one path") << "p.q.r" << true;
    QTest::newRow("the first of two equal paths") << "twin.t" << true;
}

void TestEditingTree::findTreeItemAnswersAsASearchOfTheWholeTreeDoes()
{
    QFETCH(QString, path);
    QFETCH(bool, found);
    addPath(*tree, "node");
    for (const char* known : {"n", "n.a.b", "n.a.b.c.d", "m.a.b", "", "n..e"}) {
        addPath(*tree, QString::fromLatin1(known));
    }
    addPath(*tree, QStringList({"x.y", "z"}));
    addPath(*tree, QStringList({"p", "q.r"}));
    addPath(*tree, QStringList({"p.q", "s"}));
    addPath(*tree, QStringList({"p", "q", "r"}));
    auto* const twin = new QTreeWidgetItem(tree, QStringList("twin"));
    new QTreeWidgetItem(twin, QStringList("t"));
    new QTreeWidgetItem(twin, QStringList("t"));

    QTreeWidgetItem* const item = tree->findTreeItem(path);
    QCOMPARE(item != nullptr, found);
    QCOMPARE(item, searchWholeTree(*tree, path));
}

void TestEditingTree::findTreeItemFollowsEveryChangeOfTheTree()
{
    const auto compareAll = [&] {
        for (const char* path : {"n", "n.a", "n.b", "n.c", "m", "m.a", "m.b", "n.b.x", "m.b.x"}) {
            const QString name = QString::fromLatin1(path);
            QCOMPARE(tree->findTreeItem(name), searchWholeTree(*tree, name));
        }
    };
    QTreeWidgetItem* const node = addPath(*tree, "n.a")->parent();
    QTreeWidgetItem* const branch = addPath(*tree, "n.b.x")->parent();
    compareAll();
    node->child(0)->setText(0, "c");
    compareAll();
    QVERIFY(tree->findTreeItem("n.c"));
    node->setText(0, "m");
    compareAll();
    QVERIFY(tree->findTreeItem("m.b.x"));
    const std::unique_ptr<QTreeWidgetItem> taken(node->takeChild(node->indexOfChild(branch)));
    compareAll();
    QVERIFY(!tree->findTreeItem("m.b"));
    taken->setText(0, "a");
    compareAll();
    node->addChild(new QTreeWidgetItem(*taken));
    compareAll();
    QVERIFY(tree->findTreeItem("m.a"));
    new QTreeWidgetItem(node, QStringList("a"));
    tree->sortItems(0, Qt::DescendingOrder);
    compareAll();
    delete tree->findTreeItem("m.a");
    compareAll();
    QVERIFY(tree->findTreeItem("m.a"));
    node->addChildren(
        {new QTreeWidgetItem(QStringList("p")), new QTreeWidgetItem(QStringList("b"))});
    compareAll();
    qDeleteAll(node->takeChildren());
    compareAll();
    tree->clear();
    compareAll();
    addPath(*tree, "n.a");
    compareAll();
    QVERIFY(tree->findTreeItem("n.a"));
}

void TestEditingTree::selectTreeItemsSelectsExactlyTheNamed()
{
    for (const char* path : {"n.a", "n.b", "n.c", "m.a", "m.b.c"}) {
        addPath(*tree, QString::fromLatin1(path));
    }
    tree->selectTreeItems({"n.a", "n.b", "m.b.c", "unknown", "m"});
    QCOMPARE(selectedNames(*tree), QStringList({"m", "m.b.c", "n.a", "n.b"}));
    tree->selectTreeItems({"n.c", "n.b"});
    QCOMPARE(selectedNames(*tree), QStringList({"n.b", "n.c"}));
}

void TestEditingTree::selectingFewOfManyItemsSelectsAllOfTheirNames()
{
    for (int i = 0; i < 100; ++i) {
        addPath(*tree, QStringLiteral("n.%1").arg(i));
    }
    addPath(*tree, QStringList({"m", "a.b", "c"}));
    addPath(*tree, QStringList({"m", "a", "b.c"}));
    addPath(*tree, QStringList({"m", "a", "b", "c"}));
    addPath(*tree, QStringList({"m.a", "b", "c"}));
    new QTreeWidgetItem(tree, QStringList("m.a.b.c"));
    tree->selectAll();
    tree->selectTreeItems({"m.a.b.c", "unknown"});
    QCOMPARE(selectedNames(*tree), QStringList(5, "m.a.b.c"));
    tree->selectTreeItems({"n.5", "n", "n.5"});
    QCOMPARE(selectedNames(*tree), QStringList({"n", "n.5"}));
    QVERIFY(tree->updatesEnabled());
}

void TestEditingTree::selectTreeItemsWithAnEmptyListDeselectsEveryItem()
{
    addPath(*tree, "n.a");
    addPath(*tree, "n.b");
    tree->selectAll();
    tree->selectTreeItems({});
    QCOMPARE(selectedNames(*tree), QStringList());
}

void TestEditingTree::selectTreeItemsReachesHiddenAndCollapsedItemsAndItemsOfTheSameName()
{
    addPath(*tree, "n.a")->setHidden(true);
    tree->collapseAll();
    new QTreeWidgetItem(tree->topLevelItem(0), QStringList("a"));
    tree->selectTreeItems({"n.a"});
    QCOMPARE(selectedNames(*tree), QStringList({"n.a", "n.a"}));
}

void TestEditingTree::selectingThroughSelectTreeItemsFiresTheSelectionSignal()
{
    addPath(*tree, "n.a");
    const QSignalSpy spy(tree->selectionModel(), &QItemSelectionModel::selectionChanged);
    tree->selectTreeItems({"n.a"});
    QCOMPARE(spy.count(), 1);
    tree->selectTreeItems({});
    QCOMPARE(spy.count(), 2);
}

void TestEditingTree::removingTheOnlyCurveUnderAMainNodeRemovesTheNodeToo()
{
    QTreeWidgetItem* const item = addPath(*tree, "n.a");
    addPath(*tree, "m.a");
    QCOMPARE(tree->removeTreeItem(QStringLiteral("n.a"), item), QStringList("n"));
    QCOMPARE(tree->topLevelItemCount(), 1);
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("m"));
}

void TestEditingTree::removingOneOfTwoCurvesLeavesTheNode()
{
    QTreeWidgetItem* const item = addPath(*tree, "n.a");
    addPath(*tree, "n.b");
    QCOMPARE(tree->removeTreeItem(QStringLiteral("n.a"), item), QStringList());
    QVERIFY(tree->findTreeItem(QStringLiteral("n.b")));
    QVERIFY(!tree->findTreeItem(QStringLiteral("n.a")));
}

void TestEditingTree::removingACurveWhoseNameHasPointsListsTheEmptyBranchesDeepestFirst()
{
    QTreeWidgetItem* const item = addPath(*tree, "n.a.b");
    QCOMPARE(tree->removeTreeItem(QStringLiteral("n.a.b"), item), QStringList({"n.a", "n"}));
    QCOMPARE(tree->topLevelItemCount(), 0);
}

void TestEditingTree::anAncestorWithOtherChildrenStaysWithAllAboveIt()
{
    QTreeWidgetItem* const item = addPath(*tree, "n.a.b.c");
    addPath(*tree, "n.a.x");
    QCOMPARE(tree->removeTreeItem(QStringLiteral("n.a.b.c"), item), QStringList("n.a.b"));
    QVERIFY(tree->findTreeItem(QStringLiteral("n.a.x")));
}

void TestEditingTree::removingNullDoesNothing()
{
    addPath(*tree, "n.a");
    QCOMPARE(tree->removeTreeItem(QStringLiteral("n.a"), nullptr), QStringList());
    QVERIFY(tree->findTreeItem(QStringLiteral("n.a")));
}

QTEST_MAIN(TestEditingTree)
#include "test_editing_tree.moc"

#include <QSignalSpy>
