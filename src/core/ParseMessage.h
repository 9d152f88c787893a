#pragma once

#include "zk_curve_core_export.h"

#include <string>
#include <utility>
#include <vector>

/// The result of a parse. Every field is defined from the start.
class ZK_CURVE_CORE_EXPORT ParseMessage
{
public:
    /// What kept a text from becoming an expression, or the expression from being sound.
    enum errorKinds : int
    {
        noError = 0,
        unknownName = 1,      ///< the span is the name
        cyclicDependency = 2, ///< not the parser's: whoever sets the expression finds it
        openParenthesis = 3,
        otherError = 4
    };

    ParseMessage();
    ParseMessage(const ParseMessage& other);
    ParseMessage& operator=(const ParseMessage& other);
    ParseMessage(ParseMessage&& other) noexcept;
    ParseMessage& operator=(ParseMessage&& other) noexcept;
    ~ParseMessage();

    bool ok = true;                              ///< the text was parsed into an expression
    int errorKind = noError;                     ///< see errorKinds
    int errorDetail = 0;                         ///< the byte where the error stands; 0 without one
    std::string expressionText;                  ///< the text that was parsed
    std::vector<std::pair<int, int>> errorSpans; ///< (start, length) in bytes of expressionText
};
