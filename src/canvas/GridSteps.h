#pragma once

/// Where the lines of the grid stand.
struct GridSteps
{
    double stepX = 0.0; ///< between lines, in displayed units
    double stepY = 0.0;
    double firstX = 0.0; ///< displayed value of the first line
    double firstY = 0.0;
    double snapStepX = 0.0; ///< stepX in seconds
    double snapStepY = 0.0;
    int countX = 0; ///< lines
    int countY = 0;
    int zeroIndexX = -1; ///< the line standing on zero, or -1
    int zeroIndexY = -1;
};
