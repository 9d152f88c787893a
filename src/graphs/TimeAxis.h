#pragma once

namespace curve_editor {

/// How times are shown, and which time is marked.
struct TimeAxis
{
    bool showFrames = true; ///< the x axis and x read-outs are in frames
    double fps = 10.0;      ///< frames per second
    int frameDigits = 1;    ///< digits of fps, written by setFps
    double timeLine = 0.0;  ///< seconds
};

} // namespace curve_editor
