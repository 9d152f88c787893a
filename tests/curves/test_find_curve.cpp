#include "curves/CurveHold.h"
#include "curves/CurveTreeTest.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

/// The rule itself: the first node that a walk of the tree meets.
CurveNode* walk(const CurveTree& tree, const QString& name)
{
    for (CurveNode* top : tree.topNodes()) {
        if (CurveNode* found = top->findNode(name)) {
            return found;
        }
    }
    return nullptr;
}

/// Few letters, so that elements repeat and names meet.
QString randomName(QRandomGenerator& random)
{
    static const QStringList elements{"a", "b", "c", ""};
    QStringList name{elements[random.bounded(3)]};
    const int more = random.bounded(4);
    for (int i = 0; i < more; ++i) {
        name.append(elements[random.bounded(4)]);
    }
    return name.join(QLatin1Char('.'));
}

} // namespace

/// A curve is found by name as by a walk of the tree, whatever happened to the tree.
class TestFindCurve : public CurveTreeTest
{
    Q_OBJECT

private slots:
    void init() { openTree(); }
    void cleanup() { closeTree(); }

    void theAnswerIsThatOfTheWalk();
};

void TestFindCurve::theAnswerIsThatOfTheWalk()
{
    QRandomGenerator random(7);
    QList<CurveNode*> known;
    std::vector<CurveHold> kept;
    int shared = 0;
    for (int step = 0; step < 3000; ++step) {
        CurveNode* const any = known.value(random.bounded(int(known.size()) + 1), nullptr);
        const int what = random.bounded(8);
        if (!any || what < 3) {
            CurveNode* const added = add(randomName(random));
            if (!known.contains(added)) {
                known.append(added);
                kept.emplace_back(added);
            }
        } else if (what < 4) {
            tree->remove(any->dotName());
        } else if (what < 5) {
            tree->attach(any->isCurve() ? any : nullptr);
        } else if (what < 6) {
            any->setDotName(randomName(random));
        } else if (what < 7) {
            any->setRootName(randomName(random));
        } else if (any->isCurve()) {
            any->unlink();
        }
        if (known.size() > 30) {
            tree->clear();
            known.clear();
            kept.clear();
        }
        for (int i = 0; i < 10; ++i) {
            const QString name = randomName(random);
            QCOMPARE(tree->findCurve(name), walk(*tree, name));
        }
        for (CurveNode* node : std::as_const(known)) {
            CurveNode* const found = walk(*tree, node->dotName());
            QCOMPARE(tree->findCurve(node->dotName()), found);
            shared += found && found != node ? 1 : 0;
        }
    }
    QVERIFY(shared > 0); // several nodes did share a name
}

QTEST_MAIN(TestFindCurve)
#include "test_find_curve.moc"
