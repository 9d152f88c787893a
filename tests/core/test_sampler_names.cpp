#include "core/SamplerSources.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <stdexcept>

/// What the names in the expression of a sampler stand for, and what makes no sampler.
class TestSamplerNames : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void namesAreBoundToConstantsFunctionsAndSamplers();
    void namesAreLookedUpAsTheParserDoes();
    void aFunctionIsAskedOnceForEachTime();
    void whatAFunctionThrowsReachesTheCaller();
    void aTextWithAnErrorMakesNoSampler_data();
    void aTextWithAnErrorMakesNoSampler();
    void unknownNamesOfATreeReadZero();
    void foreignNodesMakeNoSampler();
    void samplersNestWithinBounds();
};

void TestSamplerNames::namesAreBoundToConstantsFunctionsAndSamplers()
{
    CurveSampler::Source limited = textSource("f*10");
    limited.maximum = 100.0;
    limited.fps = 7.0; // it is read at the rate of its reader
    const auto other = CurveSampler::make(limited);
    const CurveSampler::Bindings bindings = CurveSampler::named(
        {{"a", 0.25},
         {"b", [](double time) { return time * time; }},
         {"c", CurveSampler::MomentFunction([](const CurveSampler::Moment& moment) {
              return moment.time + 1000.0 * moment.frame + 1e6 * moment.fps;
          })},
         {"body.width", other},
         {"none", CurveSampler::Pointer()},
         {"empty", CurveSampler::Function()}});
    const auto valueAt = [&](const char* text, double time) {
        const auto sampler = CurveSampler::make(textSource(text, 2.0), bindings);
        return sampler ? sampler->value(time) : -1.0;
    };
    QCOMPARE(valueAt("a+t", 2.0), 2.25);
    QCOMPARE(valueAt("b+b*a", 4.0), 20.0);
    QCOMPARE(valueAt("c", 3.0), 2006003.0);
    QCOMPARE(valueAt("body.width", 3.0), 60.0);
    QCOMPARE(valueAt("body.width", 8.0), 100.0);
    QCOMPARE(valueAt("body.width/body.width+b-b", 1.0), 1.0);
    QCOMPARE(valueAt("none", 1.0), -1.0);
    QCOMPARE(valueAt("empty", 1.0), -1.0);
}

void TestSamplerNames::namesAreLookedUpAsTheParserDoes()
{
    const CurveSampler::Bindings bindings = CurveSampler::named(
        {{"body.width", 3.0}, {"Wind", 4.0}, {"wind", 5.0}, {"pi", 6.0}, {"t", 7.0}, {"e", 8.0}});
    const auto valueOf = [&](const char* text) {
        const auto sampler = CurveSampler::make(textSource(text), bindings);
        return sampler ? sampler->value(1.0) : -1.0;
    };
    QCOMPARE(valueOf("Body.Width"), 3.0);
    QCOMPARE(valueOf("Wind"), 4.0);
    QCOMPARE(valueOf("WIND"), 5.0);
    QCOMPARE(valueOf("pi"), 6.0);
    QCOMPARE(valueOf("t"), 1.0);
    QCOMPARE(valueOf("T"), 1.0);
    QCOMPARE(valueOf("E"), -1.0); // would read back as the constant
}

void TestSamplerNames::aFunctionIsAskedOnceForEachTime()
{
    int calls = 0;
    const auto sampler = CurveSampler::make(textSource("wind*2+if(wind>1,wind,WIND)"),
                                            CurveSampler::named({{"wind", [&](double time) {
                                                                      ++calls;
                                                                      return time;
                                                                  }}}));
    QCOMPARE(sampler->values({1.0, 2.0, 3.0}), std::vector<double>({3.0, 6.0, 9.0}));
    QCOMPARE(calls, 3);
}

void TestSamplerNames::whatAFunctionThrowsReachesTheCaller()
{
    const auto sampler = CurveSampler::make(
        textSource("wind+1"), CurveSampler::named({{"wind", [](double time) {
                                                        if (time > 1.0) {
                                                            throw std::runtime_error("gone");
                                                        }
                                                        return time;
                                                    }}}));
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, sampler->value(2.0));
    QCOMPARE(sampler->value(1.0), 2.0);
}

void TestSamplerNames::aTextWithAnErrorMakesNoSampler_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"sin(t)*width", "2*(t+1", "t+", "2t", "1e999", "", " "}) {
        QTest::newRow(text) << text;
    }
    QTest::newRow("endless") << QString(1000001, 't');
    QTest::newRow("too deep") << QString(300, '(') + "t" + QString(300, ')');
}

void TestSamplerNames::aTextWithAnErrorMakesNoSampler()
{
    QFETCH(QString, text);
    ParseMessage message;
    message.errorKind = 77;
    const auto sampler =
        CurveSampler::make(textSource(text.toStdString()), CurveSampler::Bindings(), &message);
    if (text.isEmpty()) {
        QVERIFY(sampler && message.ok && message.errorKind == 0);
        return;
    }
    ParseMessage expected;
    QVERIFY(!FunctionParserBase::instance()->parseString(text.toStdString(), expected, false));
    QVERIFY(!sampler);
    QCOMPARE(message.ok, expected.ok);
    QCOMPARE(message.errorKind, expected.errorKind);
    QCOMPARE(message.errorDetail, expected.errorDetail);
    QCOMPARE(message.expressionText, expected.expressionText);
    QCOMPARE(message.errorSpans, expected.errorSpans);
}

void TestSamplerNames::unknownNamesOfATreeReadZero()
{
    FunctionParserBase* const parser = FunctionParserBase::instance();
    double first = 3.0;
    double second = 4.0;
    parser->registerKey("stage.first", 3, &first);
    parser->registerKey("stage.second", 3, &second);
    const Tree tree = parsed("t+stage.second+stage.first+stage.second");
    CurveSampler::Source source;
    source.expression = tree.get();
    const auto sampler = CurveSampler::make(source, CurveSampler::named({{"stage.first", 10.0}}));
    QCOMPARE(sampler->value(1.0), 11.0);
    QCOMPARE(sampler->unboundNames(), std::vector<std::string>({"stage.second"}));
    parser->unregisterKey("stage.first", &first);
    parser->unregisterKey("stage.second", &second);
}

void TestSamplerNames::foreignNodesMakeNoSampler()
{
    class Foreign : public FunctionFloatBase
    {
        double value() const override { return 1.0; }
        std::string getString() const override { return "foreign"; }
    };
    const Foreign foreign;
    CurveSampler::Source source;
    source.expression = &foreign;
    ParseMessage message;
    QVERIFY(!CurveSampler::make(source, CurveSampler::Bindings(), &message));
    QCOMPARE(message.errorKind, 4);
    QCOMPARE(message.expressionText, std::string("foreign"));
}

void TestSamplerNames::samplersNestWithinBounds()
{
    CurveSampler::Pointer inner = CurveSampler::make(textSource("t"));
    int depth = 1;
    ParseMessage message;
    while (const auto outer =
               CurveSampler::make(textSource("inner+inner-inner+1"),
                                  CurveSampler::named({{"inner", inner}}), &message)) {
        inner = outer;
        ++depth;
    }
    QCOMPARE(depth, 1000);
    QCOMPARE(message.errorKind, 4);
    QCOMPARE(inner->value(2.0), 2.0 + 999.0);
}

QTEST_APPLESS_MAIN(TestSamplerNames)
#include "test_sampler_names.moc"
