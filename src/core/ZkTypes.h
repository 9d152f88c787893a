#pragma once

#include <string>

/// The names under which plain types stand in signal and slot signatures. They are typedefs,
/// never macros: connections are made by these spellings.
typedef double ZK_DOUBLE;
typedef int ZK_INT;
typedef unsigned int ZK_UINT;
typedef bool ZK_BOOL;

/// The 8-bit string of command labels.
typedef std::string ZK_String;
