#include "core/SamplerRig.h"
#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <map>

namespace {

using Sources = std::map<std::string, CurveSampler::Source>;

Sources texts(std::initializer_list<std::pair<const char*, const char*>> curves)
{
    Sources sources;
    for (const auto& [name, text] : curves) {
        sources[name].text = text;
    }
    return sources;
}

double valueOf(const SamplerRig& rig, const std::string& name, double time)
{
    const auto sampler = rig.sampler(name);
    return sampler ? sampler->value(time) : -1e9;
}

} // namespace

/// Curves that read one another, for evaluation in any thread.
class TestSamplerRig : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void curvesReadOneAnother();
    void namesThatNoCurveHasAreBound();
    void limitsHoldForWhoeverReads();
    void theRateIsThatOfTheCurveAsked();
    void samplersOutliveTheRig();
    void errorsAreTold();

    void theMentionThatClosesARingReadsZero();
    void eachCurveOfARingHasItsOwnValue();
    void ringsWithinRings();
    void aCurveMayMentionItself();

    void longChainsAreWorkedOut();
    void manyPathsTakeNoTime();
    void aSumOfThousandsOfCurvesIsWorkedOut();
};

void TestSamplerRig::curvesReadOneAnother()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 0.0));
    put(spline, makeKey(10.0, 20.0));
    Sources sources = texts({{"arm.height", "body.height*2+t"}, {"hand.height", "Arm.Height-1"}});
    sources["body.height"].spline = &spline;
    const SamplerRig rig(sources);
    QVERIFY(rig.errors().empty());
    QCOMPARE(valueOf(rig, "body.height", 3.0), 6.0);
    QCOMPARE(valueOf(rig, "arm.height", 3.0), 15.0);
    QCOMPARE(valueOf(rig, "hand.height", 3.0), 14.0);
    QVERIFY(!rig.sampler("leg.height"));
}

void TestSamplerRig::namesThatNoCurveHasAreBound()
{
    const SamplerRig rig(texts({{"a.x", "wind+a.y"}, {"a.y", "2*wind"}}),
                         CurveSampler::named({{"wind", 5.0}, {"a.y", 100.0}}));
    QCOMPARE(valueOf(rig, "a.x", 0.0), 15.0);
}

void TestSamplerRig::limitsHoldForWhoeverReads()
{
    Sources sources = texts({{"a.x", "t*10"}, {"a.y", "a.x+1"}});
    sources["a.x"].maximum = 20.0;
    const SamplerRig rig(sources);
    QCOMPARE(valueOf(rig, "a.y", 5.0), 21.0);
}

void TestSamplerRig::theRateIsThatOfTheCurveAsked()
{
    Sources sources = texts({{"a.x", "f"}, {"a.y", "a.x+fps"}});
    sources["a.x"].fps = 10.0;
    sources["a.y"].fps = 25.0;
    const SamplerRig rig(sources);
    QCOMPARE(valueOf(rig, "a.x", 2.0), 20.0);
    QCOMPARE(valueOf(rig, "a.y", 2.0), 75.0);
    QCOMPARE(rig.sampler("a.y")->fps(), 25.0);
}

void TestSamplerRig::samplersOutliveTheRig()
{
    CurveSampler::Pointer sampler;
    {
        const SamplerRig rig(texts({{"a.x", "t+1"}, {"a.y", "a.x*a.x"}}));
        sampler = rig.sampler("a.y");
    }
    QCOMPARE(sampler->value(2.0), 9.0);
    const auto reader =
        SamplerRig(texts({{"b.x", "a.y+1"}}), CurveSampler::named({{"a.y", sampler}}))
            .sampler("b.x");
    sampler.reset();
    QCOMPARE(reader->value(2.0), 10.0);
}

void TestSamplerRig::errorsAreTold()
{
    const SamplerRig rig(texts({{"a.x", "t+"}, {"a.y", "a.x+t"}, {"a.z", "nobody"}}));
    QCOMPARE(rig.errors().size(), std::size_t(2));
    QCOMPARE(rig.errors().at("a.x").errorKind, 4);
    QCOMPARE(rig.errors().at("a.z").errorKind, 1);
    QVERIFY(!rig.sampler("a.x"));
    QCOMPARE(valueOf(rig, "a.y", 3.0), 3.0);
}

void TestSamplerRig::theMentionThatClosesARingReadsZero()
{
    const SamplerRig rig(texts({{"n.c0", "n.c1+1"}, {"n.c1", "n.c2*10+t"}, {"n.c2", "n.c0+5"}}));
    QCOMPARE(valueOf(rig, "n.c0", 2.0), 53.0);
    QCOMPARE(valueOf(rig, "n.c0", 3.0), 54.0);
    QCOMPARE(valueOf(rig, "n.c1", 2.0), 62.0);
    QCOMPARE(valueOf(rig, "n.c2", 2.0), 8.0);
}

void TestSamplerRig::eachCurveOfARingHasItsOwnValue()
{
    const SamplerRig rig(texts({{"n.c0", "n.c1+1"},
                                {"n.c1", "n.c0*10"},
                                {"n.a", "n.c0+100*n.c1"},
                                {"n.b", "n.c1*100+n.c0"},
                                {"n.d", "n.c1*100+n.c0+n.a+n.b"}}));
    // Alone 1 and 10.
    QCOMPARE(valueOf(rig, "n.c0", 0.0), 1.0);
    QCOMPARE(valueOf(rig, "n.c1", 0.0), 10.0);
    QCOMPARE(valueOf(rig, "n.a", 0.0), 1001.0);
    QCOMPARE(valueOf(rig, "n.b", 0.0), 1001.0);
    QCOMPARE(valueOf(rig, "n.d", 0.0), 3003.0);
}

void TestSamplerRig::ringsWithinRings()
{
    // a reads b and c, which read each other and a.
    const SamplerRig rig(texts({{"n.a", "n.b+10*n.c"},
                                {"n.b", "n.c*2+1+n.a"},
                                {"n.c", "n.b*3+1+n.a"},
                                {"n.z", "n.a+n.b"}}));
    // a: b asks c, which reads b and a as 0: c = 1, b = 3; c again is that 1: a = 13.
    QCOMPARE(valueOf(rig, "n.a", 0.0), 13.0);
    // b: c reads b as 0 and a, which reads b as 0 and c as 0: a = 0, c = 1; b = 2 + 1 + 10 * 0.
    QCOMPARE(valueOf(rig, "n.b", 0.0), 3.0);
    QCOMPARE(valueOf(rig, "n.z", 0.0), 16.0);
}

void TestSamplerRig::aCurveMayMentionItself()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 5.0));
    spline.setAddFunc(true);
    Sources sources = texts({{"a.x", "a.x+a.x+1"}});
    QCOMPARE(valueOf(SamplerRig(sources), "a.x", 0.0), 1.0);
    sources["a.x"].spline = &spline;
    QCOMPARE(valueOf(SamplerRig(sources), "a.x", 0.0), 6.0);
}

void TestSamplerRig::longChainsAreWorkedOut()
{
    constexpr int count = 20000;
    Sources sources = texts({{"n.c0", "t"}});
    for (int i = 1; i < count; ++i) {
        sources["n.c" + std::to_string(i)].text = "n.c" + std::to_string(i - 1) + "+1";
    }
    const SamplerRig rig(sources);
    QCOMPARE(valueOf(rig, "n.c" + std::to_string(count - 1), 2.0), 2.0 + count - 1);
}

void TestSamplerRig::manyPathsTakeNoTime()
{
    constexpr int count = 500;
    Sources sources = texts({{"n.c0", "1"}, {"n.c1", "1"}});
    for (int i = 2; i < count; ++i) {
        sources["n.c" + std::to_string(i)].text =
            "n.c" + std::to_string(i - 1) + "/2+n.c" + std::to_string(i - 2) + "/2";
    }
    QCOMPARE(valueOf(SamplerRig(sources), "n.c" + std::to_string(count - 1), 0.0), 1.0);
}

void TestSamplerRig::aSumOfThousandsOfCurvesIsWorkedOut()
{
    constexpr int count = 6000;
    Sources sources;
    std::string sum = "0";
    for (int i = 0; i < count; ++i) {
        const std::string name = "n.c" + std::to_string(i);
        sources[name].text = "t*" + std::to_string(i);
        sum += "+" + name;
    }
    sources["n.sum"].text = sum;
    const auto sampler = SamplerRig(sources).sampler("n.sum");
    std::vector<double> values(5);
    sampler->values(0.0, 1.0, values.size(), values.data());
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(values[static_cast<std::size_t>(i)], i * (count * (count - 1) / 2.0));
    }
}

QTEST_APPLESS_MAIN(TestSamplerRig)
#include "test_sampler_rig.moc"
