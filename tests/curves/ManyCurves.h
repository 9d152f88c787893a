#pragma once

#include "curves/CurveWithVariable.h"
#include "support/RefreshedVariable.h"

#include <deque>
#include <string>

using Curves = std::deque<CurveWithVariable>;

inline std::string nameOf(const int& number)
{
    return "n.c" + std::to_string(number);
}

/// Curves "n.c0" and so on, until there are so many.
inline void addCurves(Curves& curves, const int& count)
{
    while (curves.size() < static_cast<std::size_t>(count)) {
        curves.emplace_back(QString("c%1").arg(curves.size()));
    }
}
