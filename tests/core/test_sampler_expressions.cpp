#include "core/EvaluationTime.h"
#include "core/SamplerSources.h"
#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <array>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <new>
#include <random>

namespace {

std::atomic<long> allocations{0};

bool isSame(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

/// Text of any shape in the words of the language.
class RandomText
{
public:
    explicit RandomText(unsigned seed)
        : engine(seed)
    {}

    std::string next(int depth)
    {
        const auto shape = depth == 0 ? engine() % 2 : engine() % 9;
        const auto inner = [&] { return next(depth - 1); };
        switch (shape) {
        case 0:
            return pick({"t", "f", "fps", "PI", "EPSILON", "T"});
        case 1:
            return pick({"0", "1", "2.5", "24", "1e3", "0.1", "1e300"});
        case 2:
        case 3:
            return pick({"cos",  "sin",  "tan",   "exp",  "log",   "log10", "rnd",
                         "abs",  "sqrt", "acos",  "asin", "atan",  "cosh",  "sinh",
                         "tanh", "ceil", "floor", "j0",   "logj1", "not"}) +
                   "(" + inner() + ")";
        case 4:
            return pick({"min", "max"}) + "(" + inner() + "," + inner() + ")";
        case 5:
            return "if(" + inner() + "," + inner() + "," + inner() + ")";
        case 6:
            return "-" + next(0);
        default:
            return "(" + inner() + pick({"+", "-", "*", "/", "^", ">", "<", "&", "|", "="}) +
                   inner() + ")";
        }
    }

private:
    std::string pick(std::initializer_list<const char*> words)
    {
        return words.begin()[engine() % words.size()];
    }

    std::mt19937 engine;
};

} // namespace

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* const place = std::malloc(size)) {
        return place;
    }
    throw std::bad_alloc();
}

void operator delete(void* place) noexcept
{
    std::free(place);
}

void operator delete(void* place, std::size_t) noexcept
{
    std::free(place);
}

/// Expressions as samplers evaluate them, beside the tree of the parser.
class TestSamplerExpressions : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void anyExpressionHasTheValuesOfItsTree();
    void framesAreThoseOfTheLiveCurve();
    void aSplineWithAnExpressionAddsThem();
    void anExpressionAloneHidesTheKeys();
    void longSumsAndDeepNestsAreEvaluated();
    void theBranchThatNoTimeTakesIsNotNeeded();
    void theVariablesOfTheParserAreLeftAlone();
    void evaluationAllocatesNothing();

    void slopesOfExpressions();
    void boundsOfExpressions();
};

void TestSamplerExpressions::anyExpressionHasTheValuesOfItsTree()
{
    RandomText texts(5);
    std::mt19937 engine(6);
    for (int i = 0; i < 20000; ++i) {
        const std::string text = texts.next(1 + i % 5);
        const Tree tree = parsed(text);
        QVERIFY2(tree, text.c_str());
        const double fps = i % 2 == 0 ? 25.0 : 29.97;
        CurveSampler::Source source;
        source.expression = tree.get();
        source.fps = fps;
        const auto ofTree = CurveSampler::make(source);
        const auto ofText = CurveSampler::make(textSource(text, fps));
        std::vector<double> times;
        for (int sample = 0; sample < (i % 50 == 0 ? 600 : 5); ++sample) {
            times.push_back(sample % 3 == 0
                                ? static_cast<double>(engine() % 200) / fps
                                : std::ldexp(static_cast<double>(engine() % 1000) - 500.0, -6));
        }
        const std::vector<double> block = ofTree->values(times);
        for (std::size_t sample = 0; sample < times.size(); ++sample) {
            const EvaluationTime moment(times[sample], fps);
            const double live = tree->value();
            if (!isSame(block[sample], live) || !isSame(ofText->value(times[sample]), live)) {
                QFAIL(qPrintable(QString("%1 at %2: %3 and %4 for %5")
                                     .arg(text.c_str())
                                     .arg(times[sample], 0, 'g', 17)
                                     .arg(block[sample], 0, 'g', 17)
                                     .arg(ofText->value(times[sample]), 0, 'g', 17)
                                     .arg(live, 0, 'g', 17)));
            }
        }
    }
}

void TestSamplerExpressions::framesAreThoseOfTheLiveCurve()
{
    const Tree frame = parsed("f");
    std::mt19937_64 engine(9);
    for (const double fps : {24.0, 25.0, 29.97, 1.0, 0.0, -3.0, 1e10}) {
        std::vector<double> times = {0.0,
                                     -0.0,
                                     std::numeric_limits<double>::infinity(),
                                     std::numeric_limits<double>::quiet_NaN(),
                                     1e300,
                                     -1e300};
        for (int i = 0; i < 3000; ++i) {
            const double whole = static_cast<double>(engine() >> (engine() % 60));
            times.push_back(whole / (fps == 0.0 ? 1.0 : fps));
            times.push_back(-std::nextafter(times.back(), 0.0));
            times.push_back((whole + 0.5) / (fps == 0.0 ? 1.0 : fps));
        }
        const std::vector<double> frames = CurveSampler::make(textSource("f", fps))->values(times);
        for (std::size_t i = 0; i < times.size(); ++i) {
            const EvaluationTime moment(times[i], fps);
            QVERIFY2(isSame(frames[i], frame->value()), qPrintable(QString::number(times[i])));
        }
    }
}

void TestSamplerExpressions::aSplineWithAnExpressionAddsThem()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 1.0));
    put(spline, makeKey(4.0, 7.0));
    spline.setAddFunc(true);
    CurveSampler::Source source = textSource("sin(f)");
    source.spline = &spline;
    source.maximum = 6.0;
    const auto sampler = CurveSampler::make(source);
    const Tree tree = parsed("sin(f)");
    for (double time = -1.0; time < 6.0; time += 0.13) {
        const double live = std::min(spline(time, tree.get(), 25.0), 6.0);
        QCOMPARE(sampler->value(time), live);
        QCOMPARE(sampler->values({time, time}), std::vector<double>({live, live}));
    }
    QCOMPARE(sampler->keyTimes(), std::vector<double>({0.0, 4.0}));
    source.text.clear();
    QCOMPARE(CurveSampler::make(source)->value(2.0), 4.0);
}

void TestSamplerExpressions::anExpressionAloneHidesTheKeys()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 1.0));
    CurveSampler::Source source = textSource("t*2");
    source.spline = &spline;
    const auto sampler = CurveSampler::make(source);
    QCOMPARE(sampler->value(3.0), 6.0);
    QVERIFY(sampler->keyTimes().empty());
}

void TestSamplerExpressions::longSumsAndDeepNestsAreEvaluated()
{
    std::string sum = "t";
    for (int i = 0; i < 100000; ++i) {
        sum += "+1";
    }
    QCOMPARE(CurveSampler::make(textSource(sum))->value(2.0), 100002.0);
    const std::string nested = "1-(t*(2-(t/(3+(t-(4*t)))))";
    QCOMPARE(CurveSampler::make(textSource(nested + ")"))->value(2.0),
             1.0 - 2.0 * (2.0 - 2.0 / (3.0 + (2.0 - 8.0))));
    std::string choices = "t";
    for (int i = 0; i < 120; ++i) {
        choices = "if(t>" + std::to_string(i) + "," + choices + "*1.5,t+" + std::to_string(i) + ")";
    }
    const Tree choiceTree = parsed(choices);
    QVERIFY(choiceTree);
    const auto sampler = CurveSampler::make(textSource(choices));
    std::vector<double> times;
    for (int i = 0; i < 1000; ++i) {
        times.push_back(i * 0.15);
    }
    const std::vector<double> values = sampler->values(times);
    for (std::size_t i = 0; i < times.size(); ++i) {
        const EvaluationTime moment(times[i], 25.0);
        QCOMPARE(values[i], choiceTree->value());
    }
}

void TestSamplerExpressions::theBranchThatNoTimeTakesIsNotNeeded()
{
    const auto sampler = CurveSampler::make(textSource("if(t<0,log(t)+1,if(t>2,sqrt(t),t*t))"));
    QCOMPARE(sampler->values({3.0, 4.0}), std::vector<double>({std::sqrt(3.0), 2.0}));
    QCOMPARE(sampler->values({1.0, 1.5}), std::vector<double>({1.0, 2.25}));
    QCOMPARE(sampler->values({1.0, 4.0}), std::vector<double>({1.0, 2.0}));
    QVERIFY(std::isnan(sampler->values({-1.0, 4.0}).front()));
}

void TestSamplerExpressions::theVariablesOfTheParserAreLeftAlone()
{
    FunctionParserBase* const parser = FunctionParserBase::instance();
    double wind = 3.0;
    parser->registerKey("stage.wind", 3, &wind);
    const EvaluationTime moment(7.0, 12.0);
    // What is registered with the parser is no name of a sampler's.
    QVERIFY(!CurveSampler::make(textSource("stage.wind")));
    const auto sampler = CurveSampler::make(textSource("t+f"));
    QCOMPARE(sampler->value(1.0), 26.0);
    QCOMPARE(EvaluationTime::now(), (std::array<double, 3>{7.0, 84.0, 12.0}));
    parser->unregisterKey("stage.wind", &wind);
}

void TestSamplerExpressions::evaluationAllocatesNothing()
{
    SplineBase spline;
    for (int i = 0; i < 100; ++i) {
        put(spline, makeKey(i, i % 5, zk_spline::tcb));
    }
    spline.setAddFunc(true);
    CurveSampler::Source source = textSource("sin(f)*wind+gust+if(t>50,other,min(t,other*2))");
    source.spline = &spline;
    const auto other = CurveSampler::make(textSource("t*t"));
    // Too much for a function object to hold in itself: a copy of it would allocate.
    const std::array<double, 8> table = {0.5, 0.6, 0.7, 0.8, 0.9, 1.0, 1.1, 1.2};
    const auto wind = [table](double time) { return time * table[0]; };
    const auto gust = [table](const CurveSampler::Moment& moment) {
        return moment.frame * table[1];
    };
    const auto sampler = CurveSampler::make(
        source, CurveSampler::named({{"wind", CurveSampler::Function(wind)},
                                     {"gust", CurveSampler::MomentFunction(gust)},
                                     {"other", other}}));
    QVERIFY(sampler);
    std::vector<double> values(1000);
    const long before = allocations;
    double sum = 0.0;
    for (int i = 0; i < 100; ++i) {
        sum += sampler->value(i * 0.9) + sampler->derivative(i * 0.9);
    }
    sampler->values(-5.0, 0.2, values.size(), values.data());
    sampler->values(values.data(), values.data(), values.size());
    QVERIFY(std::isfinite(sampler->bounds(0.0, 9.0).highest));
    QCOMPARE(allocations.load(), before);
    QVERIFY(sum != 0.0);
}

void TestSamplerExpressions::slopesOfExpressions()
{
    const auto slope = [](const char* text, double time) {
        return CurveSampler::make(textSource(text))->derivative(time);
    };
    QVERIFY(std::abs(slope("sin(t)", 0.3) - std::cos(0.3)) < 1e-9);
    QVERIFY(std::abs(slope("f", 1000.3) - 25.0) < 1e-7);
    QVERIFY(std::abs(slope("exp(t)", 3.0) / std::exp(3.0) - 1.0) < 1e-9);
    QVERIFY(std::abs(slope("sin(100*t)", 0.0) - 100.0) < 1e-6);
    QVERIFY(std::abs(slope("t*t", 1e9) / 2e9 - 1.0) < 1e-6);
    QVERIFY(std::isnan(slope("t", std::numeric_limits<double>::quiet_NaN())));
}

void TestSamplerExpressions::boundsOfExpressions()
{
    const auto sampler = CurveSampler::make(textSource("4*sin(t)"));
    const ValueBounds bounds = sampler->bounds(0.0, 6.0);
    QVERIFY(std::abs(bounds.highest - 4.0) < 1e-4);
    QVERIFY(std::abs(bounds.lowest + 4.0) < 1e-4);
    QCOMPARE(sampler->bounds(1.0, 1.0).lowest, 4.0 * std::sin(1.0));
    QVERIFY(std::isnan(sampler->bounds(0.0, std::numeric_limits<double>::infinity()).lowest));
}

QTEST_APPLESS_MAIN(TestSamplerExpressions)
#include "test_sampler_expressions.moc"
