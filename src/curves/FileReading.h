#pragma once

#include "curves/Problem.h"

namespace curve_editor {

/// How the reading of a curve file ended. A file that cannot be opened is not read, without a word.
struct FileReading
{
    bool isRead = false;
    Problems problems;
};

} // namespace curve_editor
