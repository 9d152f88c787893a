// Thousands of random steps of a user and a host, mixed with undo and redo. Wherever the history
// stands, the curves are what they were when it stood there before; and whatever happens, no key
// and no expression is lost, freed twice or read after its end.
//
// scripts/histories runs more of them than fit here.

#include "support/FailOnWarning.h"

#include "commands/RandomHistory.h"

#include <cstdio>

class TestRandomHistory : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void manyShortHistories()
    {
        const int count = fromEnvironment("ZK_HISTORIES", 100);
        const int first = fromEnvironment("ZK_FIRST_HISTORY", 1);
        counts.isTelling = qEnvironmentVariableIsSet("ZK_TELL_STEPS");
        for (int seed = first; seed < first + count; ++seed) {
            runHistory(seed, 50);
            if (QTest::currentTestFailed()) {
                return;
            }
        }
    }

    void aFewLongHistories()
    {
        if (qEnvironmentVariableIsSet("ZK_HISTORIES")) {
            return;
        }
        for (int seed = -12; seed < 0; ++seed) {
            runHistory(seed, 500);
            if (QTest::currentTestFailed()) {
                return;
            }
        }
    }

    void cleanupTestCase() { counts.print(); }

private:
    static int fromEnvironment(const char* name, const int& otherwise)
    {
        return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
    }

    /// The line stands before anything can go wrong: it names the seed also of a crash.
    void runHistory(const int& seed, const int& steps)
    {
        std::printf("history\t%d\n", seed);
        std::fflush(stdout);
        // Half of the histories are pure: they say most.
        const int kind = qMax(0, qAbs(seed) % 4 - 1);
        RandomHistory history(static_cast<unsigned>(seed), static_cast<RandomHistory::kinds>(kind),
                              files, counts);
        const QString failure = history.run(steps);
        QVERIFY2(failure.isEmpty(), qPrintable(QStringLiteral("history %1, %2 (again: "
                                                              "scripts/histories --first %1 1)")
                                                   .arg(seed)
                                                   .arg(failure)));
    }

    CurveFiles files;
    HistoryCounts counts;
};

QTEST_MAIN(TestRandomHistory)
#include "test_random_history.moc"
