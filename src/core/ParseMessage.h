#pragma once

#include <string>
#include <utility>
#include <vector>

/// The result of a parse. Every field is defined from the start.
class ParseMessage
{
public:
    bool ok = true;
    int errorKind = 0; ///< 0 none, 1 unknown name, 2 cyclic dependency, 3 open parenthesis, 4 other
    int errorDetail = 0;
    std::string expressionText;                  ///< the text that was parsed
    std::vector<std::pair<int, int>> errorSpans; ///< (start, length) in bytes of expressionText
};
