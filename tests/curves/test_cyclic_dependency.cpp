#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "core/EvaluationTime.h"
#include "core/ParseMessage.h"
#include "curves/CurveNodeBase.h"
#include "support/BoxCatcher.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include <cmath>
#include <memory>

using Spans = std::vector<std::pair<int, int>>;

/// Curves of a real editor that read each other.
class TestCyclicDependency : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void anExpressionWithoutACycleIsTakenSilently();
    void aCurveThatReadsItselfIsToldAndMarked();
    void theNewExpressionStaysInTheSlot();
    void aCycleThroughACurveWithBlanksMarksEveryOccurrence();
    void overlappingOccurrencesAreAllMarked();
    void spansAreCountedInBytes();
    void aCurveMayReadOneThatDependsOnACycle();
    void curvesThatDependOnEachOtherHaveOneValueAtATime();
    void repaintsOfCurvesThatDependOnEachOtherAreAlike_data();
    void repaintsOfCurvesThatDependOnEachOtherAreAlike();

private:
    CurveNode* curve(const QString& name) { return fixture->logic().findCurve(name); }
    ParseMessage setExpression(const QString& name, const QByteArray& text);

    std::unique_ptr<EditorFixture> fixture;
    std::unique_ptr<BoxCatcher> boxes;
};

void TestCyclicDependency::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<EditorFixture>();
    boxes = std::make_unique<BoxCatcher>();
}

void TestCyclicDependency::cleanup()
{
    boxes.reset();
    fixture.reset();
}

ParseMessage TestCyclicDependency::setExpression(const QString& name, const QByteArray& text)
{
    ParsedExpression parsed(text.toStdString());
    curve(name)->setExpression(parsed.tree.release(), parsed.message);
    return parsed.message;
}

void TestCyclicDependency::anExpressionWithoutACycleIsTakenSilently()
{
    fixture->addCurve("n.a", {});
    fixture->addCurve("n.b", {}, "t");
    const ParseMessage message = setExpression("n.a", "n.b*2");
    QCOMPARE(message.errorKind, 0);
    QVERIFY(message.errorSpans.empty());
    QVERIFY(boxes->texts.isEmpty());
}

void TestCyclicDependency::aCurveThatReadsItselfIsToldAndMarked()
{
    fixture->addCurve("n.a", {});
    const ParseMessage message = setExpression("n.a", "1+n.a*n.a");
    QCOMPARE(message.errorKind, 2);
    QCOMPARE(message.errorSpans, (Spans{{2, 3}, {6, 3}}));
    QCOMPARE(boxes->titles, QStringList{"Cyclical dependency"});
    QCOMPARE(boxes->texts, QStringList{"Cyclical dependency has been found for d-var n.a "});
}

void TestCyclicDependency::theNewExpressionStaysInTheSlot()
{
    LentCurve& lent = fixture->addCurve("n.a", {}, "t");
    setExpression("n.a", "n.a+1");
    QCOMPARE(QString::fromStdString(lent.expression->getString()), QString("n.a+1"));
    QVERIFY(dynamic_cast<CurveNodeBase*>(curve("n.a"))->hasChanged());
}

void TestCyclicDependency::aCycleThroughACurveWithBlanksMarksEveryOccurrence()
{
    fixture->addCurve("n.a", {});
    fixture->addCurve("n.My Curve", {});
    setExpression("n.My Curve", "n.a");
    const ParseMessage message = setExpression("n.a", "n.my_curve + 2*n.my_curve");
    QCOMPARE(message.errorKind, 2);
    QCOMPARE(message.errorSpans, (Spans{{0, 10}, {15, 10}}));
    QCOMPARE(boxes->texts, QStringList{"Cyclical dependency has been found for d-var n.My Curve "});
}

void TestCyclicDependency::overlappingOccurrencesAreAllMarked()
{
    fixture->addCurve("a.a", {});
    ParsedExpression parsed("a.a");
    // The text need not be one that parses: it is searched as it stands, blanks as underscores.
    parsed.message.expressionText = "a.a.a a.a";
    curve("a.a")->setExpression(parsed.tree.release(), parsed.message);
    QCOMPARE(parsed.message.errorSpans, (Spans{{0, 3}, {2, 3}, {6, 3}}));
    QCOMPARE(boxes->texts.size(), 1);
}

void TestCyclicDependency::spansAreCountedInBytes()
{
    const QString name = QString::fromUtf8("n.\xc3\xb6");
    fixture->addCurve(name, {});
    const QByteArray bytes = name.toLocal8Bit();
    const ParseMessage message = setExpression(name, bytes + "+" + bytes);
    const int length = int(bytes.size());
    QCOMPARE(message.errorSpans, (Spans{{0, length}, {length + 1, length}}));
}

void TestCyclicDependency::aCurveMayReadOneThatDependsOnACycle()
{
    fixture->addCurve("n.a", {});
    fixture->addCurve("n.b", {});
    setExpression("n.a", "n.a");
    boxes->texts.clear();
    const ParseMessage message = setExpression("n.b", "n.a");
    QCOMPARE(message.errorKind, 0);
    QVERIFY(boxes->texts.isEmpty());
}

void TestCyclicDependency::curvesThatDependOnEachOtherHaveOneValueAtATime()
{
    fixture->addCurve("n.a", {});
    fixture->addCurve("n.b", {});
    setExpression("n.a", "n.b+1");
    setExpression("n.b", "n.a*10");
    QCOMPARE(boxes->texts.size(), 1);
    auto* a = dynamic_cast<CurveNodeBase*>(curve("n.a"));
    auto* b = dynamic_cast<CurveNodeBase*>(curve("n.b"));
    for (int round = 0; round < 3; ++round) {
        QCOMPARE(a->evaluate(0.0), 1.0);
        QCOMPARE(b->evaluate(0.0), 10.0);
        const EvaluationTime moment(0.0, 10.0);
        QCOMPARE(ParsedExpression("n.b*100+n.a").tree->value(), 1001.0);
    }
}

void TestCyclicDependency::repaintsOfCurvesThatDependOnEachOtherAreAlike_data()
{
    QTest::addColumn<bool>("isSum");
    QTest::newRow("expressions") << false;
    QTest::newRow("splines plus expressions") << true;
}

void TestCyclicDependency::repaintsOfCurvesThatDependOnEachOtherAreAlike()
{
    QFETCH(bool, isSum);
    fixture->addCurve("n.a", {{0.0, 1.0}, {3.0, 2.0}});
    fixture->addCurve("n.b", {{0.0, 1.0}, {3.0, 2.0}});
    setExpression("n.a", "n.b*0.5+sin(t)");
    setExpression("n.b", "n.a*0.5+1");
    curve("n.a")->setAddFunc(isSum);
    curve("n.b")->setAddFunc(isSum);
    const auto painted = [&](const char* name) {
        QImage image(500, 400, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::black);
        QPainter painter(&image);
        curve(name)->setActive(true);
        curve(name)->markChanged();
        curve(name)->draw(fixture->logic().viewPort(), &painter);
        return image;
    };
    const QImage a = painted("n.a");
    const QImage b = painted("n.b");
    QVERIFY(a != b);
    for (int round = 0; round < 3; ++round) {
        QCOMPARE(painted("n.a"), a);
        QCOMPARE(painted("n.b"), b);
        // What is drawn is what is read: half of b, in which a reads 0, and the wave.
        const double half = 0.5 * (1.0 + (isSum ? 1.5 : 0.0));
        QCOMPARE(dynamic_cast<CurveNodeBase*>(curve("n.a"))->evaluate(1.5),
                 half + std::sin(1.5) + (isSum ? 1.5 : 0.0));
    }
}

QTEST_MAIN(TestCyclicDependency)
#include "test_cyclic_dependency.moc"
