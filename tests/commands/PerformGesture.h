#pragma once

#include "support/DocumentFixture.h"

#include <memory>

/// Runs a gesture; returns whether it became a step.
template <class Command, class Gesture>
bool perform(DocumentFixture& fixture, const Gesture& gesture)
{
    auto command = std::make_unique<Command>(fixture);
    gesture();
    return command->captureFinalState() && fixture.manager.doCommand(command.release());
}
