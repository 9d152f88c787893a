// Thousands of random steps of a user and a host, mixed with undo and redo. Wherever the history
// stands, the curves are what they were when it stood there before; and whatever happens, no key
// and no expression is lost, freed twice or read after its end.
//
// scripts/histories runs more of them than fit here.

#include "support/FailOnWarning.h"

#include "commands/MouseSession.h"
#include "commands/RandomHistory.h"

#include <cstdio>

class TestRandomHistory : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void manyShortHistories()
    {
        counts.isTelling = isTelling();
        for (int seed = firstSeed(); seed < firstSeed() + seedCount(100); ++seed) {
            runHistory(seed, 50);
            if (QTest::currentTestFailed()) {
                return;
            }
        }
    }

    void aFewLongHistories()
    {
        if (isOneOfManyRuns()) {
            return;
        }
        for (int seed = -12; seed < 0; ++seed) {
            runHistory(seed, 500);
            if (QTest::currentTestFailed()) {
                return;
            }
        }
    }

    void mouseSessions()
    {
        for (int seed = firstSeed(); seed < firstSeed() + seedCount(60); ++seed) {
            runSession(seed);
            if (QTest::currentTestFailed()) {
                return;
            }
        }
    }

    void cleanupTestCase()
    {
        counts.print();
        mouseCounts.print();
    }

private:
    static int fromEnvironment(const char* name, const int& otherwise)
    {
        return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
    }
    static int firstSeed() { return fromEnvironment("ZK_FIRST_HISTORY", 1); }
    static int seedCount(const int& otherwise)
    {
        return fromEnvironment("ZK_HISTORIES", otherwise);
    }
    static bool isOneOfManyRuns() { return qEnvironmentVariableIsSet("ZK_HISTORIES"); }
    static bool isTelling() { return qEnvironmentVariableIsSet("ZK_TELL_STEPS"); }

    /// The line stands before anything can go wrong: it names the seed also of a crash.
    static void announce(const int& seed)
    {
        std::printf("history\t%d\n", seed);
        std::fflush(stdout);
    }

    /// What ZK_HISTORY_KIND names, else by seed: half of the histories are pure, as they say most.
    static RandomHistory::kinds kindOf(const int& seed)
    {
        static const QStringList names{"pure", "refilled", "shared", "ruthless"};
        const qsizetype named = names.indexOf(qEnvironmentVariable("ZK_HISTORY_KIND"));
        return static_cast<RandomHistory::kinds>(named >= 0 ? named : qMax(0, qAbs(seed) % 6 - 2));
    }

    void runHistory(const int& seed, const int& steps)
    {
        announce(seed);
        RandomHistory history(static_cast<unsigned>(seed), kindOf(seed), files, counts);
        const QString failure = history.run(steps);
        QVERIFY2(failure.isEmpty(),
                 qPrintable(QStringLiteral("history %1, %2").arg(seed).arg(failure)));
    }

    /// A session that fails is tried again without one step after the other: told is the shortest
    /// course that was found to fail as well.
    void runSession(const int& seed)
    {
        announce(seed);
        constexpr int length = 60;
        MouseSession::Course course{{}, isTelling(), &mouseCounts};
        const QString failure = MouseSession(seed, course).run(length);
        if (failure.isEmpty()) {
            return;
        }
        course = MouseSession::Course();
        for (int step = 2 * length; step > 0; --step) { // each twice: a later one may go first
            const int omitted = (step - 1) % length + 1;
            if (!course.omitted.contains(omitted)) {
                course.omitted.insert(omitted);
                if (MouseSession(seed, course).run(length).isEmpty()) {
                    course.omitted.remove(omitted);
                }
            }
        }
        course.isTold = true;
        const QString shortest = MouseSession(seed, course).run(length);
        QFAIL(qPrintable(QStringLiteral("mouse session %1: %2\nOf the steps above: %3")
                             .arg(seed)
                             .arg(failure, shortest)));
    }

    CurveFiles files;
    HistoryCounts counts;
    MouseCounts mouseCounts;
};

QTEST_MAIN(TestRandomHistory)
#include "test_random_history.moc"
