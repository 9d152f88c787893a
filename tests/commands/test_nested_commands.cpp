#include "commands/ManagerFixture.h"

#include <stdexcept>

/// Commands, limits and listeners that break into a command that is running, undone or redone.
class TestNestedCommands : public QObject, ManagerFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        open();
    }

    void cleanup() { close(); }

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

    /// With its own command, a gesture is told of that one; it is not asked while undo has to wait.
    void aGestureIsEndedBeforeACommandRunsIsUndoneOrRedone()
    {
        QList<const CurveCommand*> told;
        manager->setGestureEnd([&](const CurveCommand* next) {
            told.append(next);
            journal.append("gesture ends");
        });
        Step* const a = step("a");
        a->onExecute = [&] { QVERIFY(!manager->undo()); };
        manager->doCommand(a);
        manager->undo();
        manager->redo();
        manager->endGestures();
        QCOMPARE(told, (QList<const CurveCommand*>{a, nullptr, nullptr, nullptr}));
        QCOMPARE(journal, QStringList({"gesture ends", "do a", "end a", "gesture ends", "undo a",
                                       "gesture ends", "redo a", "gesture ends"}));
        manager->clear(); // leaves it alone, as do limit and switch
        manager->setMaxStackSize(3);
        manager->setEnable(false);
        QCOMPARE(told.size(), qsizetype(4));
        manager->setGestureEnd({});
    }

    void aCommandThatThrowsLeavesUndoWorking()
    {
        run({"a"});
        Step* const outer = step("outer");
        outer->onExecute = [] { throw std::runtime_error("executing"); };
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, manager->doCommand(outer));
        Step* const outermost = step("outermost");
        outermost->onExecute = [this] {
            Step* const inner = step("inner");
            inner->onExecute = [] { throw std::runtime_error("nested"); };
            QVERIFY_THROWS_EXCEPTION(std::runtime_error, manager->doCommand(inner));
        };
        QVERIFY(manager->doCommand(outermost));
        Step* const late = step("late");
        late->onUndo = [] { throw std::runtime_error("undoing"); };
        manager->doCommand(late);
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, manager->undo());
        QCOMPARE(undoNames(), QStringList({"outermost", "a"}));
    }

    void aGestureThatIsEndedByUndoIsWhatIsUndone()
    {
        run({"a"});
        bool isPending = true;
        manager->setGestureEnd([&](const CurveCommand* next) {
            if (!next && std::exchange(isPending, false)) {
                manager->doCommand(step("drag"));
            }
        });
        QCOMPARE(nameOf(manager->undo()), QStringLiteral("drag"));
        QCOMPARE(nameOf(manager->nextUndo()), QStringLiteral("a"));
        manager->setGestureEnd({});
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

    void aManagerDestroyedByACommandThatRunsFreesEachOnce_data()
    {
        QTest::addColumn<bool>("result");
        QTest::newRow("executed") << true;
        QTest::newRow("refused") << false;
    }

    void aManagerDestroyedByACommandThatRunsFreesEachOnce()
    {
        QFETCH(bool, result);
        run({"a", "b"});
        manager->undo();
        journal.clear();
        Step* const outer = step("outer", result);
        outer->onExecute = [&] {
            manager->doCommand(step("inner"));
            close();
        };
        QCOMPARE(manager->doCommand(outer), result);
        QCOMPARE(journal, QStringList({"do outer", "do inner", "del a", "del b", "del inner",
                                       "end outer", "del outer"}));
    }

    void aManagerDestroyedByANestedCommandFreesEachOnce()
    {
        Step* const outer = step("outer");
        outer->onExecute = [&] {
            Step* const inner = step("inner");
            inner->onExecute = [&] { close(); };
            QVERIFY(manager->doCommand(inner));
        };
        QVERIFY(manager->doCommand(outer));
        QCOMPARE(journal, QStringList({"do outer", "do inner", "end inner", "del inner",
                                       "end outer", "del outer"}));
    }

    void aManagerDestroyedInAnUndoOrARedoFreesTheCommand_data()
    {
        QTest::addColumn<bool>("redo");
        QTest::newRow("undo") << false;
        QTest::newRow("redo") << true;
    }

    void aManagerDestroyedInAnUndoOrARedoFreesTheCommand()
    {
        QFETCH(bool, redo);
        Step* const outer = step("outer");
        manager->doCommand(outer);
        (redo ? outer->onRedo : outer->onUndo) = [&] { close(); };
        CurveCommand* moved = manager->undo();
        if (redo) {
            QCOMPARE(moved, outer);
            moved = manager->redo();
        }
        QVERIFY(!moved);
        QCOMPARE(journal.filter("del"), QStringList("del outer"));
    }
};

QTEST_GUILESS_MAIN(TestNestedCommands)
#include "test_nested_commands.moc"
