#include "curves/Catalogue.h"

#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <QRandomGenerator>

#include <memory>

using curve_editor::Catalogue;
using curve_editor::MainNodeStruct;
using curve_editor::NodeStruct;
using curve_editor::parserForm;

namespace {

NodeStruct named(const QString& dotName)
{
    NodeStruct record;
    record.mainNodeName = dotName.section(QLatin1Char('.'), 0, 0);
    record.curveName = dotName.section(QLatin1Char('.'), 1);
    record.dotName = dotName;
    return record;
}

/// The rule itself: a walk that ends at the first record in a prefix relation to the name.
NodeStruct* walk(const QList<NodeStruct*>& records, const QString& name)
{
    for (NodeStruct* record : records) {
        if (record->dotName == name) {
            return record;
        }
        if (name.startsWith(record->dotName) || record->dotName.startsWith(name)) {
            return nullptr;
        }
    }
    return nullptr;
}

NodeStruct* walkExactly(const QList<NodeStruct*>& records, const QString& name)
{
    for (NodeStruct* record : records) {
        if (record->dotName == name) {
            return record;
        }
    }
    return nullptr;
}

NodeStruct* walkParserNames(const QList<NodeStruct*>& records, const QString& name)
{
    for (NodeStruct* record : records) {
        if (parserForm(record->dotName) == name) {
            return record;
        }
    }
    return nullptr;
}

/// Few letters and short, so that prefixes and equal names are common.
QString randomName(QRandomGenerator& random)
{
    static const QString letters = QStringLiteral("aaAb ..");
    QString name = QStringLiteral("n.");
    const int length = random.bounded(6);
    for (int i = 0; i < length; ++i) {
        name.append(letters[random.bounded(int(letters.size()))]);
    }
    return name;
}

} // namespace

class TestCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void recordsStandInOrderOfInsertion()
    {
        Catalogue catalogue;
        NodeStruct* const first = catalogue.addNode(named("n.b"));
        NodeStruct* const second = catalogue.addNode(named("n.a"));
        QCOMPARE(catalogue.allNodes(), (QList<NodeStruct*>{first, second}));
    }

    void aPrefixAheadInTheListHidesARecord_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("asked");
        QTest::addColumn<int>("answer");
        QTest::newRow("the name itself") << QStringList{"n.width"} << "n.width" << 0;
        QTest::newRow("a shorter name ahead")
            << QStringList{"n.width", "n.width2"} << "n.width2" << -1;
        QTest::newRow("a shorter name behind")
            << QStringList{"n.width2", "n.width"} << "n.width2" << 0;
        QTest::newRow("a longer name ahead")
            << QStringList{"n.width2", "n.width"} << "n.width" << -1;
        QTest::newRow("a longer name behind")
            << QStringList{"n.width", "n.width2"} << "n.width" << 0;
        QTest::newRow("a node") << QStringList{"n.width"} << "n" << -1;
        QTest::newRow("a group") << QStringList{"n.a.b"} << "n.a" << -1;
        QTest::newRow("nothing") << QStringList{"n.width"} << "" << -1;
        QTest::newRow("no records") << QStringList{} << "n.width" << -1;
        QTest::newRow("case counts") << QStringList{"n.Width", "n.width"} << "n.width" << 1;
        QTest::newRow("the first of two") << QStringList{"n.a", "n.b", "n.b"} << "n.b" << 1;
    }

    void aPrefixAheadInTheListHidesARecord()
    {
        QFETCH(QStringList, names);
        QFETCH(QString, asked);
        QFETCH(int, answer);
        Catalogue catalogue;
        for (const QString& name : names) {
            catalogue.addNode(named(name));
        }
        QCOMPARE(catalogue.find(asked), catalogue.allNodes().value(answer, nullptr));
    }

    void lookUpsAnswerAsTheWalkWould()
    {
        QRandomGenerator random(20);
        for (int round = 0; round < 60; ++round) {
            Catalogue catalogue;
            for (int step = 0; step < 60; ++step) {
                const int what = random.bounded(10);
                const qsizetype count = catalogue.allNodes().size();
                NodeStruct* const any =
                    count ? catalogue.allNodes()[random.bounded(int(count))] : nullptr;
                if (what < 7 || !any) {
                    catalogue.addNode(named(randomName(random)));
                } else if (what < 8) {
                    catalogue.removeNode(any);
                } else {
                    any->dotName = randomName(random);
                    catalogue.nameHasChanged(any);
                }
                const QString name = randomName(random).left(1 + random.bounded(8));
                const QList<NodeStruct*>& records = catalogue.allNodes();
                QCOMPARE(catalogue.find(name), walk(records, name));
                QCOMPARE(catalogue.findExactly(name), walkExactly(records, name));
                QCOMPARE(catalogue.findParserName(parserForm(name)),
                         walkParserNames(records, parserForm(name)));
                for (const NodeStruct* record : records) {
                    QCOMPARE(catalogue.find(record->dotName), walk(records, record->dotName));
                }
            }
        }
    }

    void aRenamedRecordKeepsItsPlace()
    {
        Catalogue catalogue;
        NodeStruct* const first = catalogue.addNode(named("n.x"));
        NodeStruct* const second = catalogue.addNode(named("n.y"));
        first->dotName = "n.yy";
        catalogue.nameHasChanged(first);
        QCOMPARE(catalogue.allNodes(), (QList<NodeStruct*>{first, second}));
        QVERIFY(!catalogue.find("n.y")); // the longer name still stands ahead
        QCOMPARE(catalogue.find("n.yy"), first);
        QVERIFY(!catalogue.findExactly("n.x"));
    }

    void aRemovedRecordLivesAsLongAsTheCatalogue()
    {
        Catalogue catalogue;
        NodeStruct* const record = catalogue.addNode(named("n.x"));
        MainNodeStruct* const node = catalogue.addMainNode("n");
        catalogue.removeNode(record);
        catalogue.removeMainNode(node);
        QVERIFY(catalogue.allNodes().isEmpty());
        QVERIFY(!catalogue.find("n.x"));
        catalogue.removeNode(record); // not in the list: passed over
        catalogue.removeMainNode(node);
        QCOMPARE(record->dotName, QString("n.x"));
        QCOMPARE(node->name, QString("n"));
    }

    void whatIsListedAnewFindsItsFormerRecord()
    {
        SplineBase spline;
        FunctionFloatBase* slot = nullptr;
        NodeStruct content = named("n.x");
        content.setSpline(&spline);
        content.function = &slot;
        Catalogue catalogue;
        NodeStruct* const record = catalogue.addNode(content);
        NodeStruct* const other = catalogue.addNode(named("n.y"));
        MainNodeStruct* const node = catalogue.addMainNode("n");
        catalogue.removeNode(record);
        catalogue.removeMainNode(node);
        content.maxValue = 7.0f;
        QCOMPARE(catalogue.addNode(content), record);
        QCOMPARE(record->maxValue, 7.0f);
        QCOMPARE(catalogue.allNodes(), (QList<NodeStruct*>{other, record}));
        QCOMPARE(catalogue.find("n.x"), record);
        QCOMPARE(catalogue.addMainNode("n"), node);
        QVERIFY(catalogue.addNode(content) != record); // which stands in the list
    }

    void anotherCurveOfTheNameGetsARecordOfItsOwn_data()
    {
        QTest::addColumn<bool>("splineEnds");
        QTest::addColumn<bool>("slotDiffers");
        QTest::newRow("another slot") << false << true;
        QTest::newRow("a spline at the place of the one that ended") << true << false;
    }

    void anotherCurveOfTheNameGetsARecordOfItsOwn()
    {
        QFETCH(bool, splineEnds);
        QFETCH(bool, slotDiffers);
        alignas(SplineBase) std::array<unsigned char, sizeof(SplineBase)> place;
        auto* spline = new (place.data()) SplineBase;
        FunctionFloatBase* slot = nullptr;
        FunctionFloatBase* otherSlot = nullptr;
        NodeStruct content = named("n.x");
        content.setSpline(spline);
        content.function = &slot;
        Catalogue catalogue;
        NodeStruct* const record = catalogue.addNode(content);
        catalogue.removeNode(record);
        if (splineEnds) {
            spline->~SplineBase();
            spline = new (place.data()) SplineBase;
            content.setSpline(spline);
        }
        content.function = slotDiffers ? &otherSlot : &slot;
        QVERIFY(catalogue.addNode(content) != record);
        QCOMPARE(record->function, &slot);
        QCOMPARE(record->isSplineLost(), splineEnds);
        spline->~SplineBase();
    }

    void mainNodesAreFoundByNameAndKeepTheirOrder()
    {
        Catalogue catalogue;
        MainNodeStruct* const a = catalogue.addMainNode("a");
        MainNodeStruct* const b = catalogue.addMainNode("b");
        QCOMPARE(catalogue.findMainNode("b"), b);
        b->name = "a";
        catalogue.nameHasChanged(b);
        QCOMPARE(catalogue.findMainNode("a"), a);
        QVERIFY(!catalogue.findMainNode("b"));
        catalogue.removeMainNode(a);
        QCOMPARE(catalogue.findMainNode("a"), b);
        QCOMPARE(catalogue.mainNodes(), QList<MainNodeStruct*>{b});
    }

    void tenThousandRecordsAreAddedAndFound()
    {
        Catalogue catalogue;
        for (int i = 0; i < 10000; ++i) {
            const QString name = QStringLiteral("node%1.curve").arg(i);
            QVERIFY(!catalogue.find(name));
            catalogue.addNode(named(name));
        }
        for (int i = 0; i < 10000; ++i) {
            QCOMPARE(catalogue.find(QStringLiteral("node%1.curve").arg(i)),
                     catalogue.allNodes()[i]);
        }
    }

    void recordsAreReadByExpressionsUnderTheirParserForm()
    {
        SplineBase spline;
        spline.addPoint(0.0, 3.0);
        NodeStruct content = named("My Node.My Curve");
        content.setSpline(&spline);
        content.minValue = -10.0f;
        content.maxValue = 10.0f;
        FunctionParserBase* const parser = FunctionParserBase::instance();
        QVERIFY(!parser->getKey("my_node.my_curve"));
        {
            Catalogue catalogue;
            NodeStruct* const record = catalogue.addNode(content);
            ParseMessage message;
            const std::unique_ptr<FunctionFloatBase> expression(
                parser->parseString("my_node.my_curve+1", message, false));
            QVERIFY(expression);
            QCOMPARE(expression->value(), 4.0);
            record->dotName = "Other.Curve";
            catalogue.nameHasChanged(record);
            QVERIFY(!parser->getKey("my_node.my_curve"));
            QVERIFY(parser->getKey("other.curve"));
            catalogue.removeNode(record);
            QVERIFY(!parser->getKey("other.curve"));
            catalogue.addNode(content);
            QVERIFY(parser->getKey("my_node.my_curve"));
        }
        QVERIFY(!parser->getKey("my_node.my_curve"));
    }
};

QTEST_MAIN(TestCatalogue)
#include "test_catalogue.moc"
