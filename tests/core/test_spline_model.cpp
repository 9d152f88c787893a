#include "support/KeyAddresses.h"

#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace {

/// What a spline should hold, told in the plainest way: a list that is sorted after each change.
class PlainModel
{
public:
    struct Key
    {
        PointInfo* key;
        double time;
        int age; ///< greater for the younger
    };

    std::vector<Key> keys;

    int add(PointInfo* key, const double& time, int age = 0)
    {
        age = age == 0 ? ++youngest : age;
        keys.push_back({key, time, age});
        sort();
        return age;
    }

    Key take(const std::size_t& index)
    {
        const Key key = keys[index];
        keys.erase(keys.begin() + static_cast<std::ptrdiff_t>(index));
        return key;
    }

    void retime(const std::size_t& index, const double& time)
    {
        keys[index].time = time;
        sort();
    }

    void sort()
    {
        std::sort(keys.begin(), keys.end(), [](const Key& a, const Key& b) {
            const double infinity = std::numeric_limits<double>::infinity();
            const bool aIsNan = std::isnan(a.time);
            const bool bIsNan = std::isnan(b.time);
            return std::make_tuple(aIsNan, aIsNan ? infinity : a.time, a.age) <
                   std::make_tuple(bIsNan, bIsNan ? infinity : b.time, b.age);
        });
    }

private:
    int youngest = 0;
};

} // namespace

/// Random edits of a spline, held against a plain model after each.
class TestSplineModel : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void randomEditsLeaveWhatThePlainModelHolds_data();
    void randomEditsLeaveWhatThePlainModelHolds();

private:
    double anyTime()
    {
        const int number = below(9);
        return number == 8 ? std::numeric_limits<double>::quiet_NaN() : number * 0.5;
    }
    int below(const std::size_t& count)
    {
        return std::uniform_int_distribution<int>(0, static_cast<int>(count) - 1)(random);
    }

    void takeStep()
    {
        const std::size_t index = model.keys.empty() ? 0 : std::size_t(below(model.keys.size()));
        const int what = below(12);
        if (what < 2 || model.keys.empty()) {
            addNew();
        } else if (what < 4) {
            const double time = anyTime();
            spline.setTime(model.keys[index].key, time);
            model.retime(index, time);
        } else if (what < 6) {
            serialsOfHand.push_back(spline.keySerial(model.keys[index].key));
            spline.remove(model.keys[index].key);
            hand.push_back(model.take(index));
        } else if (what < 9) {
            putBack();
        } else if (what < 10) {
            const PointInfo record = makeKey(anyTime(), below(100));
            spline.copyPoint(model.keys[index].key, &record);
            model.retime(index, record.time);
        } else if (what < 11 && model.keys.size() < 60) {
            combine();
        } else if (below(20) == 0) {
            spline.removeAllControlPoints();
            model.keys.clear();
        }
    }

    void addNew()
    {
        const double time = anyTime();
        PointInfo* key = nullptr;
        if (below(2) == 0) {
            key = put(spline, makeKey(time, 200 + steps)); // like no key that went before
        } else {
            const std::vector<PointInfo*> former = spline.getControlPoints();
            spline.addPoint(time, below(4));
            for (PointInfo* each : spline.getControlPoints()) {
                const bool isNew = std::find(former.begin(), former.end(), each) == former.end();
                key = isNew ? each : key;
            }
        }
        model.add(key, time);
    }

    void putBack()
    {
        if (hand.empty()) {
            return;
        }
        const auto place = below(hand.size());
        const PlainModel::Key key = hand[std::size_t(place)];
        const std::uint64_t serial = serialsOfHand[std::size_t(place)];
        hand.erase(hand.begin() + place);
        serialsOfHand.erase(serialsOfHand.begin() + place);
        switch (below(4)) {
        case 0:
            delete key.key; // the next new key lies there
            break;
        case 1:
            key.key->time = anyTime();
            QVERIFY(spline.addPointPtr(key.key, serial).serial == serial);
            model.add(key.key, key.key->time, key.age);
            break;
        default:
            spline.addPointPtr(key.key);
            QCOMPARE(spline.keySerial(key.key), serial);
            model.add(key.key, key.time, key.age);
            break;
        }
    }

    void combine()
    {
        SplineBase source;
        for (int i = 0; i < 3; ++i) {
            source.addPoint(anyTime(), i);
        }
        for (const PointInfo* key : spline.combine(source, 0.0)) {
            model.add(const_cast<PointInfo*>(key), key->time);
        }
    }

    void compare()
    {
        QCOMPARE(std::size_t(spline.getControlPointsNumber()), model.keys.size());
        for (std::size_t i = 0; i < model.keys.size(); ++i) {
            PointInfo* const key = model.keys[i].key;
            QVERIFY2(spline.at(unsigned(i)) == key, qPrintable(QString::number(steps)));
            QCOMPARE(spline.findIndex(key), int(i));
            QVERIFY(spline.keySerial(key) != 0);
        }
        for (const PlainModel::Key& key : hand) {
            QCOMPARE(spline.findIndex(key.key), -1);
        }
    }

    std::mt19937 random;
    SplineBase spline;
    PlainModel model;
    std::vector<PlainModel::Key> hand;
    std::vector<std::uint64_t> serialsOfHand;
    int steps = 0;
};

void TestSplineModel::randomEditsLeaveWhatThePlainModelHolds_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 20; ++seed) {
        QTest::addRow("seed %d", seed) << seed;
    }
}

void TestSplineModel::randomEditsLeaveWhatThePlainModelHolds()
{
    QFETCH(int, seed);
    random.seed(static_cast<unsigned>(seed));
    spline.removeAllControlPoints();
    model = PlainModel();
    for (steps = 0; steps < 2000 && !QTest::currentTestFailed(); ++steps) {
        takeStep();
        compare();
    }
    for (const PlainModel::Key& key : hand) {
        delete key.key;
    }
    hand.clear();
    serialsOfHand.clear();
}

QTEST_APPLESS_MAIN(TestSplineModel)
#include "test_spline_model.moc"
