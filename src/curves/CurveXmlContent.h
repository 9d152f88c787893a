#pragma once

#include "core/PointInfo.h"
#include "curves/CurveType.h"

#include <QString>

#include <memory>
#include <vector>

class FunctionFloatBase;
class FunctionParserBase;
class ParseMessage;
class ParserScope;
class SplineBase;

namespace curve_editor {

/// What an XML curve file says of a curve, before any of it reaches the curve.
struct CurveXmlContent
{
    int type = splineCurve; ///< never mixed
    QString expressionText;
    int firstNodeType = -1; ///< a SplineBase::nodeType, or -1 where the file has none
    int lastNodeType = -1;
    std::vector<std::unique_ptr<PointInfo>> points; ///< in file order

    /// The tree of the expression; null when the type has none or the text does not parse. The
    /// scope, which may be null, is whose names it reads first.
    std::unique_ptr<FunctionFloatBase> parseExpression(FunctionParserBase& parser,
                                                       const ParserScope* scope,
                                                       ParseMessage& message) const;

    /// Replaces keys and behaviours of the spline if the type has them, the expression in the
    /// slot if the type has one, and the add func flag. The points go over to the spline. Either
    /// may be null: what belongs there is dropped.
    void moveInto(SplineBase* spline, FunctionFloatBase** slot,
                  std::unique_ptr<FunctionFloatBase> expression);
};

} // namespace curve_editor
