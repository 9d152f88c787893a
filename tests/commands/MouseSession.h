#pragma once

#include "commands/MouseCounts.h"
#include "commands/MouseSteps.h"
#include "commands/PopupUser.h"

#include <QSet>

/// A session of events on a shown editor, and what must hold at its end: whatever runs is ended by
/// the release of all buttons, undoing all leads to the state before the session, redoing all to
/// the state after it, again and again.
class MouseSession : public QObject
{
public:
    /// Steps by number that are left out, and whether the others are told.
    struct Course
    {
        QSet<int> omitted;
        bool isTold = false;
        MouseCounts* counts = nullptr; ///< not owned; null when this course has been counted
    };

    MouseSession(const int& seed, const Course& theCourse)
        : session(static_cast<unsigned>(seed))
        , start(session, 0)
        , stage(start)
        , steps(stage)
        , course(theCourse)
    {
        connect(&stage.editor(), &CurveEditor::curveHasChanged, this, [this] { listen(); });
    }

    /// What went wrong; empty when all is well.
    QString run(const int& count)
    {
        const MouseStage::Seen first = stage.see();
        for (int step = 1; step <= count; ++step) {
            if (course.omitted.contains(step)) {
                continue;
            }
            take(step);
            if (!stage.keysAscend()) {
                return QStringLiteral("step %1: keys in disorder").arg(step);
            }
        }
        return check(first);
    }

private:
    void take(const int& step)
    {
        Chance chance(session, static_cast<unsigned>(step));
        const bool isInGesture = stage.isInGesture();
        const MouseSteps::Kind& kind = MouseSteps::anyKind(chance, isInGesture);
        if (course.counts) {
            course.counts->add(kind.name, isInGesture);
        }
        if (course.isTold) {
            std::printf("step\t%d\t%s", step, kind.name);
            std::fflush(stdout); // it may be the last one
        }
        const int served = popups.served;
        isInterrupted = false;
        now = popups.chance = &chance;
        (steps.*kind.take)(chance);
        now = popups.chance = nullptr;
        if (popups.served != served && chance.chance(70)) {
            stage.hand.loseButtons(); // they went up over the menu or the dialog
        }
        if (course.isTold) {
            tell();
        }
    }

    void tell()
    {
        std::printf("%s; mode %d, %d buttons down, modifiers %x; %s\n",
                    isInterrupted ? ", and the host in its slot" : "",
                    static_cast<int>(stage.editor().getCurrentMode()),
                    static_cast<int>(stage.hand.held().size()),
                    static_cast<unsigned>(stage.hand.heldModifiers().toInt()),
                    qPrintable(stage.text()));
        std::fflush(stdout);
    }

    /// Now and then the host does something in its slot.
    void listen()
    {
        if (now && !isInterrupted && now->chance(6)) {
            isInterrupted = true;
            if (course.counts) {
                course.counts->add("the host in its slot", stage.isInGesture());
            }
            steps.interrupt(*now);
        }
    }

    QString check(const MouseStage::Seen& first)
    {
        steps.endGestures();
        if (stage.isInGesture()) {
            return QStringLiteral("a gesture goes on without a button, in mode %1")
                .arg(stage.editor().getCurrentMode());
        }
        const MouseStage::Seen end = stage.see();
        int done = 0;
        while (stage.manager().undo()) {
            ++done;
        }
        if (course.counts) {
            ++course.counts->sessions;
            course.counts->steps += static_cast<unsigned long>(done);
        }
        QString text = told("after undo of all", first);
        for (int i = 0; i < done; ++i) {
            stage.manager().redo();
        }
        text += told("back at the end", end);
        while (stage.manager().redo()) {
        }
        const MouseStage::Seen last = stage.see();
        while (stage.manager().undo()) {
        }
        text += told("after undo of all, again", first);
        while (stage.manager().redo()) {
        }
        return text + told("after redo of all, again", last);
    }

    QString told(const char* moment, const MouseStage::Seen& expected)
    {
        const QString difference = stage.difference(expected, stage.see());
        return difference.isEmpty() ? QString() : QLatin1String(moment) + ": " + difference;
    }

    unsigned session;
    Chance start;
    MouseStage stage;
    MouseSteps steps;
    Course course;
    PopupUser popups;
    Chance* now = nullptr; ///< of the step that runs; not owned
    bool isInterrupted = false;
};
