#pragma once

#include "zk_curve_core_export.h"

#include <string>
#include <utility>
#include <vector>

/// The result of a parse. Every field is defined from the start.
class ZK_CURVE_CORE_EXPORT ParseMessage
{
public:
    ParseMessage();
    ParseMessage(const ParseMessage& other);
    ParseMessage& operator=(const ParseMessage& other);
    ParseMessage(ParseMessage&& other) noexcept;
    ParseMessage& operator=(ParseMessage&& other) noexcept;
    ~ParseMessage();

    bool ok = true;    ///< the text was parsed into an expression
    int errorKind = 0; ///< 0 none, 1 unknown name, 2 cyclic dependency, 3 open parenthesis, 4 other
    int errorDetail = 0;                         ///< the byte where the error stands; 0 without one
    std::string expressionText;                  ///< the text that was parsed
    std::vector<std::pair<int, int>> errorSpans; ///< (start, length) in bytes of expressionText
};
