#include "commands/CurveCommand.h"
#include "commands/CurveCommandsManager.h"
#include "support/FailOnWarning.h"

#include <QSignalSpy>

#include <functional>
#include <memory>

using curve_editor::CurveCommand;
using curve_editor::CurveCommandsManager;

namespace {

/// A command that writes what happens to it into a journal: "do", "undo", "redo" and "del", each
/// with its name.
class Step : public CurveCommand
{
public:
    using Action = std::function<void()>;

    Step(QStringList& target, const QString& stepName, const bool& executeResult = true)
        : journal(target)
        , name(stepName)
        , result(executeResult)
    {}
    ~Step() override { journal.append("del " + name); }

    bool execute() override
    {
        run("do ", onExecute);
        return result;
    }
    void undo() override { run("undo ", onUndo); }
    void redo() override { run("redo ", onRedo); }
    ZK_String getDescription() override { return name.toStdString(); }

    Action onExecute;
    Action onUndo;
    Action onRedo;

private:
    void run(const char* what, const Action& action)
    {
        journal.append(what + name);
        if (action) {
            action();
        }
        if (action) {
            journal.append("end " + name);
        }
    }

    QStringList& journal;
    QString name;
    bool result;
};

QString nameOf(CurveCommand* const command)
{
    return command ? QString::fromStdString(command->getDescription()) : QStringLiteral("null");
}

} // namespace

class TestCurveCommandsManager : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        journal.clear();
        manager = std::make_unique<CurveCommandsManager>(CurveCommandsManager::instance());
        manager->setMaxStackSize(10);
        executed = std::make_unique<QSignalSpy>(manager.get(), SIGNAL(curveEditorCmdExec()));
    }

    void cleanup()
    {
        executed.reset();
        manager.reset();
    }

    void theNextStepsAreShownWithoutMovingThem()
    {
        QCOMPARE(manager->nextUndo(), nullptr);
        QCOMPARE(manager->nextRedo(), nullptr);
        manager->doCommand(new Step(journal, "a"));
        manager->doCommand(new Step(journal, "b"));
        QCOMPARE(nameOf(manager->nextUndo()), QString("b"));
        QCOMPARE(manager->nextRedo(), nullptr);
        manager->undo();
        QCOMPARE(nameOf(manager->nextUndo()), QString("a"));
        QCOMPARE(nameOf(manager->nextRedo()), QString("b"));
        QCOMPARE(journal, QStringList({"do a", "do b", "undo b"}));
    }

    void aCopyStartsEnabledEmptyAndWithoutParent()
    {
        QVERIFY(manager->isEnabled());
        QVERIFY(!manager->parent());
        QVERIFY(!manager->undo());
        QVERIFY(!manager->redo());
    }

    void aCopySharesNothingWithItsOriginal()
    {
        run({"a"});
        CurveCommandsManager copy(*manager);
        QVERIFY(!copy.undo());
        QCOMPARE(undoNames(), QStringList("a"));
    }

    void theObjectOfTheProcessIsOneAndEnabled()
    {
        QCOMPARE(&CurveCommandsManager::instance(), &CurveCommandsManager::instance());
        QVERIFY(CurveCommandsManager::instance().isEnabled());
        QVERIFY(!CurveCommandsManager::instance().undo());
    }

    void aKeptCommandIsExecutedOnceAndTold()
    {
        QVERIFY(manager->doCommand(step("a")));
        QCOMPARE(journal, QStringList("do a"));
        QCOMPARE(executed->count(), 1);
    }

    void undoAndRedoMoveOneCommandAndReturnIt()
    {
        run({"a", "b"});
        journal.clear();
        QCOMPARE(nameOf(manager->undo()), QStringLiteral("b"));
        QCOMPARE(nameOf(manager->undo()), QStringLiteral("a"));
        QVERIFY(!manager->undo());
        QCOMPARE(nameOf(manager->redo()), QStringLiteral("a"));
        QCOMPARE(nameOf(manager->redo()), QStringLiteral("b"));
        QVERIFY(!manager->redo());
        QCOMPARE(journal, QStringList({"undo b", "undo a", "redo a", "redo b"}));
        QCOMPARE(executed->count(), 2);
    }

    void undoOnAnEmptyStackReturnsNullAndChangesNothing()
    {
        run({"a"});
        manager->undo();
        journal.clear();
        QVERIFY(!manager->undo());
        QVERIFY(journal.isEmpty());
        QCOMPARE(redoNames(), QStringList("a"));
    }

    void aRefusedCommandIsDeletedAndLeavesBothStacks()
    {
        run({"a", "b"});
        manager->undo();
        executed->clear();
        journal.clear();
        QVERIFY(!manager->doCommand(step("no", false)));
        QCOMPARE(journal, QStringList({"do no", "del no"}));
        QCOMPARE(executed->count(), 0);
        QCOMPARE(redoNames(), QStringList("b"));
        QCOMPARE(undoNames(), QStringList({"b", "a"}));
    }

    void theEleventhKeptCommandDeletesTheFirst()
    {
        for (int number = 1; number <= 11; ++number) {
            manager->doCommand(step(QString::number(number)));
        }
        QCOMPARE(journal.filter("del"), QStringList("del 1"));
        QCOMPARE(undoNames().size(), 10);
    }

    void aKeptCommandClearsTheRedoStackEvenIfItEqualsTheUndoneOne()
    {
        run({"a"});
        manager->undo();
        run({"a"});
        QCOMPARE(journal.filter("del"), QStringList("del a"));
        QVERIFY(!manager->redo());
    }

    void aNewCommandAfterUndoAndRedoDropsTheRestOfTheRedoStack()
    {
        run({"a", "b", "c", "d"});
        manager->undo();
        manager->undo();
        manager->undo();
        manager->redo();
        run({"new"});
        QCOMPARE(journal.filter("del"), QStringList({"del c", "del d"}));
        QCOMPARE(undoNames(), QStringList({"new", "b", "a"}));
    }

    void aLowerLimitDropsTheOldestAndTheFarthestUndone()
    {
        run({"1", "2", "3", "4", "5", "6", "7", "8", "9"});
        for (int count = 0; count < 4; ++count) {
            manager->undo();
        }
        journal.clear();
        manager->setMaxStackSize(2);
        QCOMPARE(journal, QStringList({"del 1", "del 2", "del 3", "del 9", "del 8"}));
        QCOMPARE(redoNames(), QStringList({"6", "7"}));
        QCOMPARE(undoNames(), QStringList({"7", "6", "5", "4"}));
    }

    void redoCarriesTheUndoStackPastALoweredLimitForGood()
    {
        run({"1", "2", "3", "4"});
        manager->undo();
        manager->undo();
        manager->setMaxStackSize(2);
        manager->redo();
        run({"5"});
        QCOMPARE(journal.filter("del"), QStringList("del 4"));
        QCOMPARE(undoNames(), QStringList({"5", "3", "2", "1"}));
        manager->setMaxStackSize(2);
        QCOMPARE(journal.filter("del").size(), 3);
    }

    void clearDeletesFromTheEarliestToTheLatest()
    {
        run({"a", "b", "c", "d"});
        manager->undo();
        manager->undo();
        journal.clear();
        manager->clear();
        QCOMPARE(journal, QStringList({"del a", "del b", "del c", "del d"}));
        QVERIFY(!manager->undo());
        QVERIFY(!manager->redo());
    }

    void clearDoesNotTouchACommandThatIsOnNoStack()
    {
        auto pending = std::make_unique<Step>(journal, "pending");
        run({"a"});
        manager->clear();
        QCOMPARE(journal.filter("del"), QStringList("del a"));
        QVERIFY(manager->doCommand(pending.release()));
        QCOMPARE(undoNames(), QStringList("pending"));
    }

    void disablingEmptiesBothStacksAndEnablingStartsEmpty()
    {
        run({"a", "b"});
        manager->undo();
        journal.clear();
        manager->setEnable(false);
        QVERIFY(!manager->isEnabled());
        QCOMPARE(journal, QStringList({"del a", "del b"}));
        manager->setEnable(true);
        QVERIFY(manager->isEnabled());
        QVERIFY(!manager->undo());
        QVERIFY(!manager->redo());
        run({"c"});
        manager->setEnable(true);
        QCOMPARE(undoNames(), QStringList("c"));
    }

    void aDisabledManagerExecutesAndTellsButKeepsNothing()
    {
        manager->setEnable(false);
        QVERIFY(manager->doCommand(step("a")));
        QVERIFY(!manager->doCommand(step("no", false)));
        QCOMPARE(journal, QStringList({"do a", "del a", "do no", "del no"}));
        QCOMPARE(executed->count(), 1);
        QVERIFY(!manager->undo());
    }

    void aLimitOfZeroKeepsNoCommand()
    {
        run({"a", "b"});
        manager->undo();
        journal.clear();
        manager->setMaxStackSize(0);
        QVERIFY(manager->doCommand(step("c")));
        QCOMPARE(journal, QStringList({"del a", "del b", "do c", "del c"}));
        QCOMPARE(executed->count(), 3);
        QVERIFY(!manager->undo());
        QVERIFY(!manager->redo());
    }

    void nullIsPassedOver()
    {
        QVERIFY(!manager->doCommand(nullptr));
        QCOMPARE(executed->count(), 0);
    }

    void destroyingTheManagerDeletesBothStacks()
    {
        run({"a", "b"});
        manager->undo();
        journal.clear();
        executed.reset();
        manager.reset();
        QCOMPARE(journal, QStringList({"del a", "del b"}));
    }

    void theSignalComesWhenTheCommandHasItsPlace()
    {
        QString undone;
        connect(manager.get(), &CurveCommandsManager::curveEditorCmdExec, this,
                [&] { undone = nameOf(manager->undo()); });
        run({"a"});
        QCOMPARE(undone, QStringLiteral("a"));
        QCOMPARE(redoNames(), QStringList("a"));
    }

    void undoAndRedoInsideARunningCommandReturnNull()
    {
        run({"a", "b"});
        manager->undo();
        Step* const outer = step("outer");
        outer->onExecute = outer->onUndo = outer->onRedo = [&] {
            QVERIFY(!manager->undo());
            QVERIFY(!manager->redo());
        };
        QVERIFY(manager->doCommand(outer));
        QCOMPARE(nameOf(manager->undo()), QStringLiteral("outer"));
        QCOMPARE(nameOf(manager->redo()), QStringLiteral("outer"));
        QCOMPARE(undoNames(), QStringList({"outer", "a"}));
    }

    void aNestedCommandRunsAtOnceAndTakesItsPlaceAfterTheOuterOne()
    {
        Step* const outer = step("outer");
        outer->onExecute = [&] {
            Step* const first = step("first");
            first->onExecute = [&] { QVERIFY(manager->doCommand(step("inner"))); };
            QVERIFY(manager->doCommand(first));
            QVERIFY(manager->doCommand(step("second")));
            QCOMPARE(executed->count(), 0);
        };
        QVERIFY(manager->doCommand(outer));
        QCOMPARE(journal, QStringList({"do outer", "do first", "do inner", "end first", "do second",
                                       "end outer"}));
        QCOMPARE(executed->count(), 4);
        QCOMPARE(undoNames(), QStringList({"second", "inner", "first", "outer"}));
    }

    void aRefusedNestedCommandIsDeletedAtOnce()
    {
        Step* const outer = step("outer");
        outer->onExecute = [&] { QVERIFY(!manager->doCommand(step("no", false))); };
        QVERIFY(manager->doCommand(outer));
        QCOMPARE(journal, QStringList({"do outer", "do no", "del no", "end outer"}));
        QCOMPARE(executed->count(), 1);
        QCOMPARE(undoNames(), QStringList("outer"));
    }

    void aNestedCommandIsKeptEvenIfTheOuterOneIsRefused()
    {
        Step* const outer = step("outer", false);
        outer->onExecute = [&] { manager->doCommand(step("inner")); };
        QVERIFY(!manager->doCommand(outer));
        QCOMPARE(executed->count(), 1);
        QCOMPARE(undoNames(), QStringList("inner"));
    }

    // The running command is older than the nested one and may name what the nested one owns.
    void aNestedCommandThatIsNotKeptOutlivesTheOuterOne()
    {
        manager->setEnable(false);
        Step* const outer = step("outer");
        outer->onExecute = [&] { manager->doCommand(step("inner")); };
        QVERIFY(manager->doCommand(outer));
        QCOMPARE(journal,
                 QStringList({"do outer", "do inner", "end outer", "del outer", "del inner"}));
        QCOMPARE(executed->count(), 2);
    }

    void aNestedCommandAtALimitOfOneDisplacesTheOuterOne()
    {
        manager->setMaxStackSize(1);
        Step* const outer = step("outer");
        outer->onExecute = [&] { manager->doCommand(step("inner")); };
        QVERIFY(manager->doCommand(outer));
        QCOMPARE(journal.filter("del"), QStringList("del outer"));
        QCOMPARE(undoNames(), QStringList("inner"));
    }

    void clearingInsideARunningCommandSparesItAndItsNestedOnes()
    {
        run({"a", "b"});
        manager->undo();
        Step* const outer = step("outer");
        outer->onExecute = [&] {
            manager->doCommand(step("inner"));
            manager->clear();
        };
        QVERIFY(manager->doCommand(outer));
        QCOMPARE(journal.filter("del"), QStringList({"del a", "del b"}));
        QCOMPARE(undoNames(), QStringList({"inner", "outer"}));
    }

    void disablingInsideARunningCommandKeepsNothing()
    {
        run({"a"});
        Step* const outer = step("outer");
        outer->onExecute = [&] {
            manager->doCommand(step("inner"));
            manager->setEnable(false);
        };
        QVERIFY(manager->doCommand(outer));
        QCOMPARE(journal.filter("del"), QStringList({"del a", "del outer", "del inner"}));
        QVERIFY(!manager->undo());
    }

    void loweringTheLimitInsideARunningCommandCountsForItsPlace()
    {
        run({"a", "b"});
        Step* const outer = step("outer");
        outer->onExecute = [&] { manager->setMaxStackSize(1); };
        QVERIFY(manager->doCommand(outer));
        QCOMPARE(journal.filter("del"), QStringList({"del a", "del b"}));
        QCOMPARE(undoNames(), QStringList("outer"));
    }

    void whatCannotBeKeptWhileItIsUndoneIsDeletedAndNotReturned_data()
    {
        QTest::addColumn<bool>("disable");
        QTest::newRow("disabled") << true;
        QTest::newRow("limit 0") << false;
    }

    void whatCannotBeKeptWhileItIsUndoneIsDeletedAndNotReturned()
    {
        QFETCH(bool, disable);
        Step* const outer = step("outer");
        outer->onUndo = [&] {
            if (disable) {
                manager->setEnable(false);
            } else {
                manager->setMaxStackSize(0);
            }
        };
        manager->doCommand(outer);
        journal.clear();
        QVERIFY(!manager->undo());
        QCOMPARE(journal, QStringList({"undo outer", "end outer", "del outer"}));
        QVERIFY(!manager->redo());
    }

    void clearingInsideAnUndoSparesTheCommandThatIsBeingUndone()
    {
        run({"a"});
        Step* const outer = step("outer");
        outer->onUndo = [&] { manager->clear(); };
        manager->doCommand(outer);
        QCOMPARE(nameOf(manager->undo()), QStringLiteral("outer"));
        QVERIFY(!manager->undo());
        QCOMPARE(redoNames(), QStringList("outer"));
    }

    // The nested command is newer than the undone one, so there is nothing left to redo.
    void aCommandNestedInAnUndoClearsTheRedoStackAfterwards()
    {
        run({"a"});
        Step* const outer = step("outer");
        outer->onUndo = [&] { manager->doCommand(step("inner")); };
        manager->doCommand(outer);
        journal.clear();
        QVERIFY(!manager->undo());
        QCOMPARE(journal, QStringList({"undo outer", "do inner", "end outer", "del outer"}));
        QCOMPARE(executed->count(), 3);
        QVERIFY(!manager->redo());
        QCOMPARE(undoNames(), QStringList({"inner", "a"}));
    }

    void aRefusedCommandNestedInAnUndoLeavesTheRedoStack()
    {
        Step* const outer = step("outer");
        outer->onUndo = [&] { manager->doCommand(step("no", false)); };
        manager->doCommand(outer);
        QCOMPARE(nameOf(manager->undo()), QStringLiteral("outer"));
        QCOMPARE(redoNames(), QStringList("outer"));
    }

    void aCommandNestedInARedoTakesItsPlaceAfterTheRedoneOne()
    {
        Step* const outer = step("outer");
        outer->onRedo = [&] { manager->doCommand(step("inner")); };
        manager->doCommand(outer);
        run({"later"});
        manager->undo();
        manager->undo();
        QCOMPARE(nameOf(manager->redo()), QStringLiteral("outer"));
        QCOMPARE(journal.filter("del"), QStringList("del later"));
        QCOMPARE(undoNames(), QStringList({"inner", "outer"}));
    }

    void aRedoneCommandThatItsNestedOneDisplacedIsNotReturned()
    {
        manager->setMaxStackSize(1);
        Step* const outer = step("outer");
        outer->onRedo = [&] { manager->doCommand(step("inner")); };
        manager->doCommand(outer);
        manager->undo();
        QVERIFY(!manager->redo());
        QCOMPARE(undoNames(), QStringList("inner"));
    }

    void aListenerMayRunCommandsAndClearWithoutHarm()
    {
        Step* const outer = step("outer");
        outer->onRedo = [&] { manager->doCommand(step("inner")); };
        manager->doCommand(outer);
        manager->undo();
        connect(manager.get(), &CurveCommandsManager::curveEditorCmdExec, this,
                [&] { manager->clear(); });
        QVERIFY(!manager->redo());
        QVERIFY(!manager->undo());
    }

    void aListenerMayUndoAgainWhileAnUndoIsBeingTold()
    {
        run({"a"});
        Step* const outer = step("outer");
        outer->onRedo = [&] { manager->doCommand(step("inner")); };
        manager->doCommand(outer);
        manager->undo();
        QStringList undone;
        connect(manager.get(), &CurveCommandsManager::curveEditorCmdExec, this,
                [&] { undone.append(nameOf(manager->undo())); });
        QCOMPARE(nameOf(manager->redo()), QStringLiteral("outer"));
        QCOMPARE(undone, QStringList("inner"));
    }

    void aListenerMayDestroyTheManager()
    {
        executed.reset();
        connect(manager.get(), &CurveCommandsManager::curveEditorCmdExec, this,
                [&] { manager.reset(); });
        Step* const outer = step("outer");
        outer->onExecute = [&] { manager->doCommand(step("inner")); };
        QVERIFY(manager->doCommand(outer));
        QVERIFY(!manager);
        QCOMPARE(journal.filter("del"), QStringList({"del outer", "del inner"}));
    }

    void aDescriptionSetFromOutsideDoesNotReplaceTheLabel()
    {
        const std::unique_ptr<Step> command(step("label"));
        command->setDescription("other");
        QCOMPARE(nameOf(command.get()), QStringLiteral("label"));
    }

private:
    Step* step(const QString& name, const bool& result = true)
    {
        return new Step(journal, name, result);
    }

    void run(const QStringList& names)
    {
        for (const QString& name : names) {
            QVERIFY(manager->doCommand(step(name)));
        }
    }

    /// Undoes all that can be undone: the names, newest first.
    QStringList undoNames()
    {
        QStringList names;
        while (CurveCommand* const command = manager->undo()) {
            names.append(nameOf(command));
        }
        return names;
    }

    /// Redoes all that can be redone: the names in that order.
    QStringList redoNames()
    {
        QStringList names;
        while (CurveCommand* const command = manager->redo()) {
            names.append(nameOf(command));
        }
        return names;
    }

    // Declared first: the manager's commands write into it until they are gone.
    QStringList journal;
    std::unique_ptr<CurveCommandsManager> manager;
    std::unique_ptr<QSignalSpy> executed;
};

QTEST_GUILESS_MAIN(TestCurveCommandsManager)
#include "test_curve_commands_manager.moc"
