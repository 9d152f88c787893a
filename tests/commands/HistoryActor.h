#pragma once

#include "commands/CurveEdits.h"
#include "commands/KeyEdits.h"

/// An editor, and a user who works in it.
struct HistoryActor
{
    HistoryActor(SessionCurves& curves, const CurveFiles& files)
        : session(curves)
        , keys(session)
        , whole(session, files)
    {}

    SessionEditor session;
    KeyEdits keys;
    CurveEdits whole;
    bool isEnabled = true;
    int limit = 10;
};
