#pragma once

#include "files/CurveType.h"
