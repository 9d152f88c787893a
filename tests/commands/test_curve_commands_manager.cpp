#include "commands/ManagerFixture.h"

class TestCurveCommandsManager : public QObject, ManagerFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        open();
    }

    void cleanup() { close(); }

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

    void aDescriptionSetFromOutsideDoesNotReplaceTheLabel()
    {
        const std::unique_ptr<Step> command(step("label"));
        command->setDescription("other");
        QCOMPARE(nameOf(command.get()), QStringLiteral("label"));
    }
};

QTEST_GUILESS_MAIN(TestCurveCommandsManager)
#include "test_curve_commands_manager.moc"
