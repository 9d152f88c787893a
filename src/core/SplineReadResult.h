#pragma once

#include <cstddef>
#include <string>

/// How the reading of a spline's text went.
struct SplineReadResult
{
    bool isRead = false;
    /// What is wrong, in English; empty when all was read.
    std::string problem;
    /// Where: both count from 1, at the place where the reading began; columns count bytes.
    std::size_t line = 0;
    std::size_t column = 0;

    explicit operator bool() const { return isRead; }
};
