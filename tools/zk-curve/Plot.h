#pragma once

#include <QByteArray>

#include <vector>

/// A picture of a curve: its values over its times, between the lowest and the highest.
struct Plot
{
    const std::vector<double>& times;
    const std::vector<double>& values;
    int width;
    int height;

    QByteArray svg() const;
    /// Empty when there is no room for it.
    QByteArray png() const;

private:
    /// Where a sample lies in the picture, in pixels. Values that are no numbers end a line.
    std::vector<std::vector<std::pair<double, double>>> lines() const;
};
