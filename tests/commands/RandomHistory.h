#pragma once

#include "support/BoxCatcher.h"

#include "commands/ExpectedHistory.h"
#include "commands/HistoryActor.h"
#include "commands/HistoryCounts.h"
#include "commands/RandomHost.h"
#include "commands/RefillWatch.h"

/// A session in which anything happens at random, and all that must hold whatever happens.
class RandomHistory : public QObject
{
public:
    /// What else happens beside the commands of the first editor.
    enum kinds : int
    {
        pure = 0,     ///< nothing that changes a curve: each state is known
        refilled = 1, ///< the host puts other keys into splines, also from its slots
        shared = 2,   ///< a second editor edits the same curves
        ruthless = 3  ///< the host breaks in as well, also from its slots and while a box is open
    };

    RandomHistory(const unsigned& seed, const kinds& historyKind, const CurveFiles& files,
                  HistoryCounts& historyCounts)
        : curves(seed)
        , kind(historyKind)
        , counts(historyCounts)
    {
        const int editors = kind == shared || curves.chance(30) ? 2 : 1;
        for (int i = 0; i < editors; ++i) {
            actors.push_back(std::make_unique<Actor>(curves, files));
            actors.back()->keys.walksOnSeveralCurves = !isTold();
        }
        host = std::make_unique<RandomHost>(curves, sessions(), files);
        expected = std::make_unique<ExpectedHistory>(curves.state());
        for (const auto& actor : actors) {
            connect(&actor->session.manager(),
                    &curve_editor::CurveCommandsManager::curveEditorCmdExec, this,
                    [this, each = actor.get()] { noteCommand(*each); });
        }
        setLimit(first(), curves.oneOf(QList<int>{3, 10, 40}));
        if (kind == ruthless || kind == refilled) {
            connect(&first().session.editor(), &CurveEditor::curveHasChanged, this,
                    [this] { breakIn(10); });
            boxes.whileOpen = [this] { breakIn(30); };
        }
    }

    ~RandomHistory() override
    {
        boxes.whileOpen = nullptr;
        if (kind == ruthless && curves.chance(50)) {
            curves.lent.clear(); // the editors outlive what they show
        }
        counts.boxes += static_cast<unsigned long>(boxes.titles.size());
    }

    /// What went wrong; empty when all is well.
    QString run(const int& steps)
    {
        for (int step = 0; step < steps && failure.isEmpty(); ++step) {
            ++counts.steps;
            expected->nextStepBegins();
            takeStep();
            check("step " + std::to_string(step + 1));
        }
        goBackAndForth(first());
        ++counts.histories;
        return failure;
    }

private:
    using Actor = HistoryActor;

    Actor& first() { return *actors.front(); }
    Actor& anyActor() { return *actors[static_cast<std::size_t>(curves.below(actors.size()))]; }
    /// The states that undo and redo of the first editor lead to are known.
    bool isTold() const { return kind == pure || kind == refilled; }
    bool isExpected(const Actor& actor) const { return isTold() && &actor == actors.front().get(); }

    std::vector<SessionEditor*> sessions()
    {
        std::vector<SessionEditor*> all;
        for (const auto& actor : actors) {
            all.push_back(&actor->session);
        }
        return all;
    }

    void takeStep()
    {
        Actor& actor = anyActor();
        const int what = curves.below(100);
        if (isTold() && !isExpected(actor)) {
            watch(actor);
        } else if ((kind == ruthless || kind == refilled) && what < 8) {
            expected->gestureBegins();
            actor.keys.gestureAround([this] { intrude(); });
        } else if ((kind == ruthless || kind == refilled) && what < 18) {
            intrude();
        } else if (what < 32) {
            actor.keys.edit();
        } else if (what < 44) {
            actor.keys.select();
        } else if (what < 66) {
            actor.whole.edit();
        } else if (what < 73) {
            host->changeSet(actor.session, !isTold());
        } else if (what < 75) {
            host->rename(!isTold());
        } else if (what < 76) {
            watch(actor);
        } else if (what < 85) {
            for (int i = curves.below(6); i >= 0 && undo(actor); --i) {
            }
        } else if (what < 94) {
            for (int i = curves.below(6); i >= 0 && redo(actor); --i) {
            }
        } else if (what < 95) {
            setLimit(actor, curves.below(30));
        } else if (what < 96) {
            clear(actor);
        } else if (what < 97) {
            setEnabled(actor, curves.chance(70));
        } else {
            goBackAndForth(actor);
        }
    }

    /// Looks that change no curve.
    void watch(Actor& actor)
    {
        CurveEditor& editor = actor.session.editor();
        switch (curves.below(6)) {
        case 0:
            actor.keys.select();
            break;
        case 1:
            editor.selectNodes(curves.oneOf(curves.names));
            break;
        case 2:
            editor.completeViewport();
            break;
        case 3:
            editor.setExpression();
            editor.refreshCommandLine();
            break;
        case 4:
            actor.session.fixture.paint();
            break;
        default:
            actor.session.fixture.setView(0.0, 50.0, 0.0, 40.0);
            break;
        }
    }

    bool undo(Actor& actor)
    {
        const bool isDone = walk(actor, true);
        return isDone && isExpected(actor) && expected->isAmidDrag() ? undo(actor) : isDone;
    }

    bool redo(Actor& actor) { return walk(actor, false); }

    /// A step back or forth; false when there is none, or it went wrong.
    bool walk(Actor& actor, const bool& back)
    {
        SessionEditor& session = actor.session;
        const std::string label = back ? session.nextUndo() : session.nextRedo();
        refills.noteKeys(first().session);
        if (curves.chance(20)) {
            back ? session.editor().undo() : session.editor().redo();
        } else {
            back ? session.manager().undo() : session.manager().redo();
        }
        counts.add(label, back ? HistoryCounts::undone : HistoryCounts::redone);
        if (!isExpected(actor)) {
            return !label.empty();
        }
        const std::string step = back ? "undo" : "redo";
        demand(label == (back ? expected->nextUndo() : expected->nextRedo()),
               "another step to " + step + " than expected: " + label);
        if (label.empty() || !failure.isEmpty()) {
            return false;
        }
        const std::string wrong = refills.differences(
            session, back ? expected->refilledAfterUndo() : expected->refilledAfterRedo(), label);
        demand(wrong.empty(), step + " of " + wrong);
        back ? expected->undid(curves.state()) : expected->redid(curves.state());
        check(step + " of " + label);
        return true;
    }

    /// A listener may undo on the way: the number of steps is bounded.
    void goBackAndForth(Actor& actor)
    {
        for (int i = 0; i < 200 && failure.isEmpty() && undo(actor); ++i) {
        }
        for (int i = 0; i < 200 && failure.isEmpty() && redo(actor); ++i) {
        }
    }

    void setLimit(Actor& actor, const int& limit)
    {
        actor.limit = limit;
        actor.session.editor().setUndoLevels(static_cast<unsigned>(limit));
        if (isExpected(actor)) {
            expected->setLimit(static_cast<std::size_t>(limit));
        }
    }

    void clear(Actor& actor)
    {
        actor.session.editor().clearStack();
        if (isExpected(actor)) {
            expected->clear();
        }
    }

    void setEnabled(Actor& actor, const bool& on)
    {
        actor.isEnabled = on;
        actor.session.editor().setEnableUndo(on);
        if (isExpected(actor)) {
            expected->setEnabled(on);
        }
    }

    void noteCommand(Actor& actor)
    {
        const bool isKept = actor.isEnabled && actor.limit > 0;
        const std::string label = isKept ? actor.session.nextUndo() : std::string();
        counts.add(label, HistoryCounts::executed);
        if (isExpected(actor)) {
            expected->executed(label, curves.state());
            refills.executed(expected->refilledMeanwhile());
        }
    }

    void breakIn(const int& percent)
    {
        if (!isInside && curves.chance(percent)) {
            isInside = true;
            intrude();
            isInside = false;
        }
    }

    void intrude()
    {
        if (kind == ruthless) {
            host->intrude();
            return;
        }
        const std::size_t spline = host->refill();
        counts.tell("the host refills spline " + std::to_string(spline));
        expected->refilled(spline, curves.state());
        refills.refilled(spline);
        demand(!refills.areSelected(first().session, spline),
               "a key is selected that the host has just put into its spline");
    }

    void check(const std::string& moment)
    {
        demand(curves.keysAreSound(), moment + ": keys in disorder, or of two splines");
        if (isTold()) {
            const std::string difference = expected->differenceTo(curves.state());
            demand(difference.empty(), moment + ": " + difference);
        }
        if (kind == pure) {
            demand(first().session.selectionsAreSound(),
                   moment + ": a key is selected that is not in its spline");
        }
    }

    void demand(const bool& holds, const std::string& otherwise)
    {
        if (!holds && failure.isEmpty()) {
            failure = QString::fromStdString(otherwise);
        }
    }

    SessionCurves curves; ///< destroyed after the editors
    kinds kind;
    HistoryCounts& counts;
    BoxCatcher boxes;
    std::vector<std::unique_ptr<Actor>> actors;
    std::unique_ptr<RandomHost> host;
    std::unique_ptr<ExpectedHistory> expected;
    RefillWatch refills{curves};
    bool isInside = false;
    QString failure;
};
