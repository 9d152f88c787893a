#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

namespace {

/// Curves of node "n" that read each other, made from their names and expressions.
class Curves
{
public:
    void add(const QString& name, const char* expression)
    {
        auto& curve = lent.emplace_back(std::make_unique<LentCurve>());
        editor.addCurve("n", name, Qt::red, 0, &curve->spline, &curve->expression, -1, 1, false,
                        true);
        texts.append(expression);
    }

    /// Parses all expressions: by now each name is known.
    void link()
    {
        for (qsizetype i = 0; i < texts.size(); ++i) {
            lent[static_cast<std::size_t>(i)]->setExpression(texts[i]);
        }
    }

    std::vector<std::unique_ptr<LentCurve>> lent;
    QByteArrayList texts;
    CurveEditor editor{nullptr, qEnvironmentVariable("ZK_ICONS_DIR")};
};

using Table = QList<QPair<QString, QByteArray>>;

} // namespace

Q_DECLARE_METATYPE(Table)

class TestDependencies : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theCulpritIsNamed_data();
    void theCulpritIsNamed();
    void nullSlotsReadNothing();
    void aChainOfTenThousandCurvesIsWalked();
    void manyWaysToOneCurveAreWalkedOnce();
};

void TestDependencies::theCulpritIsNamed_data()
{
    QTest::addColumn<Table>("table");
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("curve");
    QTest::addColumn<bool>("answer");
    QTest::addColumn<QString>("culprit");
    QTest::newRow("itself") << Table{{"A", "n.a+1"}} << "n.a"
                            << "n.a" << true << "n.A";
    QTest::newRow("nothing") << Table{{"A", "t"}, {"B", "n.a"}} << "n.a"
                             << "n.a" << false << "";
    QTest::newRow("no expression") << Table{{"A", ""}} << "n.a"
                                   << "n.a" << false << "";
    QTest::newRow("a to b to a") << Table{{"A", "n.b"}, {"B", "n.a"}} << "n.a"
                                 << "n.a" << true << "n.B";
    QTest::newRow("a to b to c to a") << Table{{"A", "n.b"}, {"B", "n.c"}, {"C", "n.a"}} << "n.a"
                                      << "n.a" << true << "n.C";
    QTest::newRow("a to b to c to d to a")
        << Table{{"A", "n.b"}, {"B", "n.c"}, {"C", "n.d"}, {"D", "n.a"}} << "n.a"
        << "n.a" << true << "n.C";
    QTest::newRow("another variable, one step")
        << Table{{"A", "n.b"}, {"B", "n.c"}, {"C", "t"}} << "n.c"
        << "n.a" << true << "n.B";
    QTest::newRow("another variable, two steps")
        << Table{{"A", "n.b"}, {"B", "n.c"}, {"C", "n.d"}, {"D", "t"}} << "n.d"
        << "n.a" << true << "n.B";
    QTest::newRow("the first way found")
        << Table{{"A", "n.x+n.b+n.c"}, {"B", "n.a"}, {"C", "n.a"}, {"X", "t"}} << "n.a"
        << "n.a" << true << "n.B";
    QTest::newRow("a blank in the name") << Table{{"My Curve", "n.my_curve"}} << "n.my_curve"
                                         << "n.my_curve" << true << "n.My Curve";
    QTest::newRow("a plain variable") << Table{{"A", "t"}} << "t"
                                      << "n.a" << true << "n.A";
    QTest::newRow("a curve behind a prefix") << Table{{"w", "n.w2"}, {"w2", "n.w"}} << "n.w"
                                             << "n.w" << true << "n.w2";
    QTest::newRow("a stored cycle beside the way")
        << Table{{"A", "n.b"}, {"B", "n.c"}, {"C", "n.b"}} << "n.a"
        << "n.a" << false << "";
    QTest::newRow("a stored cycle before the way")
        << Table{{"A", "n.b+n.d"}, {"B", "n.c"}, {"C", "n.b"}, {"D", "n.a"}} << "n.a"
        << "n.a" << true << "n.D";
    QTest::newRow("a curve that reads itself on the way")
        << Table{{"A", "n.b"}, {"B", "n.b+n.a"}} << "n.a"
        << "n.a" << true << "n.B";
    QTest::newRow("an unknown curve") << Table{{"A", "n.a"}} << "n.a"
                                      << "n.z" << false << "";
}

void TestDependencies::theCulpritIsNamed()
{
    QFETCH(Table, table);
    QFETCH(QString, variable);
    QFETCH(QString, curve);
    QFETCH(bool, answer);
    QFETCH(QString, culprit);
    Curves curves;
    for (const auto& [name, expression] : table) {
        curves.add(name, expression.constData());
    }
    curves.link();
    QString found;
    QCOMPARE(curves.editor.checkDependencies(variable, curve, found), answer);
    QCOMPARE(found, culprit);
}

void TestDependencies::nullSlotsReadNothing()
{
    Curves curves;
    SplineBase spline;
    curves.editor.addCurve("n", "a", Qt::red, 0, &spline, nullptr, 0, 1, false, true);
    QString culprit;
    QVERIFY(!curves.editor.checkDependencies("n.a", "n.a", culprit));
}

void TestDependencies::aChainOfTenThousandCurvesIsWalked()
{
    Curves curves;
    const int count = 10000;
    for (int i = 0; i < count; ++i) {
        const QByteArray next = QByteArray::number((i + 1) % count);
        curves.add(QStringLiteral("c%1").arg(i), QByteArray("n.c" + next).constData());
    }
    curves.link();
    QString culprit;
    QVERIFY(curves.editor.checkDependencies("n.c0", "n.c0", culprit));
    QCOMPARE(culprit, QString("n.c2"));
}

void TestDependencies::manyWaysToOneCurveAreWalkedOnce()
{
    // Each of 60 layers reads both curves of the next: 2^60 ways.
    Curves curves;
    const int layers = 60;
    for (int i = 0; i < layers; ++i) {
        const QByteArray next = QByteArray::number(i + 1);
        const QByteArray text = i + 1 < layers ? "n.a" + next + "x+n.b" + next + "x" : "t";
        curves.add(QStringLiteral("a%1x").arg(i), text.constData());
        curves.add(QStringLiteral("b%1x").arg(i), text.constData());
    }
    curves.link();
    QString culprit;
    QVERIFY(!curves.editor.checkDependencies("n.a0x", "n.a0x", culprit));
}

QTEST_MAIN(TestDependencies)
#include "test_dependencies.moc"
