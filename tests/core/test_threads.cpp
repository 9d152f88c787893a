#include "core/CurveSampler.h"
#include "core/RandomCurves.h"
#include "core/SamplerRig.h"
#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <atomic>
#include <functional>
#include <thread>

namespace {

constexpr int threadsNumber = 8;

/// Runs the work in all threads at once; it is told the number of its thread.
void inThreads(const std::function<void(int)>& work)
{
    std::atomic<int> waiting{threadsNumber};
    std::vector<std::thread> threads;
    for (int i = 0; i < threadsNumber; ++i) {
        threads.emplace_back([&, i] {
            --waiting;
            while (waiting > 0) {
                std::this_thread::yield();
            }
            work(i);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

void addKeys(SplineBase& spline)
{
    for (int i = 0; i < 200; ++i) {
        PointInfo key = makeKey(i, i % 7, static_cast<zk_spline::interpolationType>(i % 4));
        key.bezier = {1.0, -2.0};
        key.tcb.easeTo = i % 5 == 0 ? 0.5 : 0.0;
        put(spline, key);
    }
    spline.setFirstNodeType(SplineBase::loop);
    spline.setLastNodeType(SplineBase::loopOffset);
}

/// What each thread finds is what one finds alone.
void compareInThreads(const std::function<double(double)>& evaluate)
{
    constexpr int count = 5000;
    const auto timeOf = [](int thread, int i) {
        return thread % 2 == 0 ? i * 0.17 - 300.0 : (i * 7919 % count) * 0.2 - 400.0;
    };
    std::vector<std::vector<double>> expected(threadsNumber);
    for (int thread = 0; thread < threadsNumber; ++thread) {
        for (int i = 0; i < count; ++i) {
            expected[static_cast<std::size_t>(thread)].push_back(evaluate(timeOf(thread, i)));
        }
    }
    std::atomic<int> differences{0};
    inThreads([&](int thread) {
        for (int i = 0; i < count; ++i) {
            const double value = evaluate(timeOf(thread, i));
            differences +=
                value == expected[static_cast<std::size_t>(thread)][static_cast<std::size_t>(i)]
                    ? 0
                    : 1;
        }
    });
    QCOMPARE(differences.load(), 0);
}

} // namespace

/// What several threads may do at once; of most use with the thread sanitizer.
class TestThreads : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void eightThreadsReadOneSpline();
    void eightThreadsReadOneSampler();
    void eightThreadsReadOneRig();
    void eightThreadsMakeSamplersOfOneSpline();
    void theLastThreadFreesTheSampler();
};

void TestThreads::eightThreadsReadOneSpline()
{
    SplineBase spline;
    addKeys(spline);
    const SplineBase& read = spline;
    compareInThreads([&](double time) { return read(time); });
}

void TestThreads::eightThreadsReadOneSampler()
{
    SplineBase spline;
    addKeys(spline);
    spline.setAddFunc(true);
    CurveSampler::Source source;
    source.spline = &spline;
    source.text = "sin(f)+if(t>100,wind,rnd(t))";
    source.fps = 24.0;
    const auto sampler = CurveSampler::make(
        source, CurveSampler::named({{"wind", [](double time) { return time * 0.01; }}}));
    QVERIFY(sampler);
    compareInThreads([&](double time) { return sampler->value(time); });
    compareInThreads([&](double time) {
        double values[100];
        sampler->values(time, 0.01, 100, values);
        return values[99];
    });
    compareInThreads([&](double time) {
        return sampler->derivative(time) +
               (time > 500.0 ? sampler->bounds(time, 505.0).highest : 0.0);
    });
}

void TestThreads::eightThreadsReadOneRig()
{
    SplineBase spline;
    addKeys(spline);
    std::map<std::string, CurveSampler::Source> sources;
    sources["a.keys"].spline = &spline;
    sources["a.x"].text = "a.keys*2+a.ring";
    sources["a.ring"].text = "a.x+t";
    const SamplerRig rig(sources);
    compareInThreads([&](double time) { return rig.sampler("a.x")->value(time); });
}

void TestThreads::eightThreadsMakeSamplersOfOneSpline()
{
    SplineBase spline;
    addKeys(spline);
    const auto other = [] {
        CurveSampler::Source source;
        source.text = "t*3";
        return CurveSampler::make(source);
    }();
    inThreads([&](int thread) {
        for (int i = 0; i < 50; ++i) {
            CurveSampler::Source source;
            source.spline = &spline;
            source.text = i % 2 == 0 ? "" : "other+" + std::to_string(thread);
            const auto sampler =
                CurveSampler::make(source, CurveSampler::named({{"other", other}}));
            if (sampler->value(1.0) != (i % 2 == 0 ? spline(1.0) : 3.0 + thread)) {
                qFatal("another value");
            }
        }
    });
}

void TestThreads::theLastThreadFreesTheSampler()
{
    CurveSampler::Source source;
    source.text = "t";
    CurveSampler::Pointer shared = CurveSampler::make(source);
    std::vector<CurveSampler::Pointer> own(threadsNumber, shared);
    shared.reset();
    inThreads([&](int thread) {
        CurveSampler::Pointer& sampler = own[static_cast<std::size_t>(thread)];
        if (sampler->value(2.0) != 2.0) {
            qFatal("another value");
        }
        sampler.reset();
    });
}

QTEST_APPLESS_MAIN(TestThreads)
#include "test_threads.moc"
