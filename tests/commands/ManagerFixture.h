#pragma once

#include "commands/CurveCommand.h"
#include "commands/CurveCommandsManager.h"
#include "support/FailOnWarning.h"

#include <QSignalSpy>

#include <functional>
#include <memory>

/// A command that writes what happens to it into a journal: "do", "undo", "redo" and "del", each
/// with its name.
class Step : public curve_editor::CurveCommand
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

/// The name of a step; "null" when there is none.
inline QString nameOf(curve_editor::CurveCommand* const command)
{
    return command ? QString::fromStdString(command->getDescription()) : QStringLiteral("null");
}

/// A history of at most ten steps, the journal of its commands, and an ear for its signal.
class ManagerFixture
{
protected:
    using CurveCommand = curve_editor::CurveCommand;
    using CurveCommandsManager = curve_editor::CurveCommandsManager;

    void open()
    {
        journal.clear();
        manager = std::make_unique<CurveCommandsManager>(CurveCommandsManager::instance());
        manager->setMaxStackSize(10);
        executed = std::make_unique<QSignalSpy>(manager.get(), SIGNAL(curveEditorCmdExec()));
    }

    void close()
    {
        executed.reset();
        manager.reset();
    }

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
    std::unique_ptr<curve_editor::CurveCommandsManager> manager;
    std::unique_ptr<QSignalSpy> executed;
};
