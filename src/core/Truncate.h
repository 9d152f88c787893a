#pragma once

#include "zk_curve_core_export.h"

/// The one way from a double to an int: truncation toward zero. NaN gives 0; what lies outside
/// the range of int gives its nearest end.
ZK_CURVE_CORE_EXPORT int truncateToInt(const double& number);

/// The same for pixel coordinates, held to +-(2^29 - 1), so that sums and differences of two
/// pixels, and rectangles and polygons made of them, stay in the range of int.
ZK_CURVE_CORE_EXPORT int truncateToPixel(const double& number);
