#pragma once

#include "support/EditorFixture.h"

#include <memory>

/// Runs a gesture; returns whether it became a step.
template <class Command, class Gesture>
bool perform(EditorFixture& fixture, const Gesture& gesture)
{
    auto command = std::make_unique<Command>(&fixture.editor);
    gesture();
    return command->captureFinalState() &&
           fixture.editor.getCmdManager()->doCommand(command.release());
}
