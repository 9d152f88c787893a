// Thousands of random edits mixed with undo and redo. Wherever the history stands, the splines
// are what they were when it stood there before; and no key is lost or freed twice.

#include "support/FailOnWarning.h"

#include "commands/RandomSession.h"

class TestRandomHistory : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void everyStepLeadsBackAndForth_data() { addSeeds(8); }

    void everyStepLeadsBackAndForth()
    {
        QFETCH(unsigned, seed);
        RandomSession session(seed);
        session.setLimit(40);
        for (int step = 0; step < 500; ++step) {
            const int what = session.random.bounded(100);
            if (what < 45) {
                session.edit();
            } else if (what < 65) {
                session.select();
            } else if (what < 75) {
                session.changeSet();
            } else if (what < 87) {
                for (int i = session.random.bounded(6); i >= 0; --i) {
                    session.undo();
                }
            } else if (what < 95) {
                for (int i = session.random.bounded(6); i >= 0; --i) {
                    session.redo();
                }
            } else if (what < 96) {
                session.setLimit(static_cast<std::size_t>(session.random.bounded(50)));
            } else if (what < 97) {
                session.clear();
            } else if (what < 98) {
                session.setEnabled(session.chance(70));
            } else {
                while (session.undo()) {
                    QVERIFY(session.state() == session.last);
                }
                QVERIFY(session.before.empty());
                while (session.redo()) {
                    QVERIFY(session.state() == session.last);
                }
                QVERIFY(session.after.empty());
            }
            QVERIFY2(session.state() == session.last, qPrintable(QString::number(step)));
            QVERIFY2(session.selectionsAreSound(), qPrintable(QString::number(step)));
        }
    }

    /// Here the host breaks in: it destroys splines, empties them, edits in the middle of
    /// gestures and from its slots. Nothing is promised but that no key is lost or freed twice.
    void aRuthlessHostLosesNoKeyAndCrashesNothing_data() { addSeeds(8); }

    void aRuthlessHostLosesNoKeyAndCrashesNothing()
    {
        QFETCH(unsigned, seed);
        RandomSession session(seed + 1000);
        bool isInside = false;
        connect(&session.editor(), &CurveEditor::curveHasChanged, &session,
                [&](QString&, QString&) {
                    if (!isInside && session.chance(10)) {
                        isInside = true;
                        intrude(session);
                        isInside = false;
                    }
                });
        for (int step = 0; step < 500; ++step) {
            const int what = session.random.bounded(100);
            if (what < 40) {
                session.edit();
            } else if (what < 60) {
                session.select();
            } else if (what < 70) {
                session.changeSet();
            } else if (what < 80) {
                session.manager().undo();
            } else if (what < 88) {
                session.manager().redo();
            } else if (what < 92) {
                session.logic().beginMoveCommand();
                session.logic().beginChangeCommand();
                session.logic().beginSelectCommand();
                session.dragKeys();
                intrude(session);
                session.dragKeys();
                session.logic().commitMoveCommand();
                session.logic().commitChangeCommand();
                session.logic().commitSelectCommand();
            } else if (what < 93) {
                session.editor().setUndoLevels(static_cast<unsigned>(session.random.bounded(20)));
            } else if (what < 94) {
                session.editor().clearStack();
            } else {
                intrude(session);
            }
            if (step % 20 == 0) {
                session.fixture.paint();
            }
        }
    }

private:
    static void addSeeds(unsigned count)
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= count; ++seed) {
            QTest::addRow("seed %u", seed) << seed;
        }
    }

    static void intrude(RandomSession& session)
    {
        auto& curve =
            session
                .lent[static_cast<std::size_t>(session.random.bounded(RandomSession::splineCount))];
        switch (session.random.bounded(7)) {
        case 0:
            curve.reset(); // the curves that show it stay in the editor
            break;
        case 1:
            if (!curve) {
                for (int i = 0; i < RandomSession::names().size(); ++i) {
                    if (&session.lent[RandomSession::splineIndex(i)] == &curve) {
                        session.remove(i);
                    }
                }
                curve = std::make_unique<LentCurve>();
                curve->addKey(session.number(), session.number());
            }
            break;
        case 2:
            if (curve) {
                curve->spline.removeAllControlPoints();
            }
            break;
        case 3:
            if (curve) {
                curve->addKey(session.number(), session.number());
            }
            break;
        case 4:
            session.edit();
            break;
        case 5:
            session.manager().undo();
            break;
        default:
            session.changeSet();
            break;
        }
    }
};

QTEST_MAIN(TestRandomHistory)
#include "test_random_history.moc"
