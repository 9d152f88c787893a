#include "curves/CurveXmlContent.h"

#include "core/ExpressionDisposal.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "core/SplineBase.h"
#include "core/TimeOrder.h"

#include <algorithm>
#include <utility>

namespace curve_editor {

std::unique_ptr<FunctionFloatBase> CurveXmlContent::parseExpression(FunctionParserBase& parser,
                                                                    const ParserScope* scope,
                                                                    ParseMessage& message) const
{
    if (type == splineCurve) {
        return nullptr;
    }
    const std::string text = expressionText.toLocal8Bit().toStdString();
    return std::unique_ptr<FunctionFloatBase>(parser.parseWithin(scope, text, message));
}

void CurveXmlContent::moveInto(SplineBase* spline, FunctionFloatBase** slot,
                               std::unique_ptr<FunctionFloatBase> expression)
{
    if (slot && type != splineCurve) {
        ExpressionDisposal::take(std::exchange(*slot, expression.release()));
    }
    if (!spline) {
        return;
    }
    if (hasKeys(type)) {
        spline->removeAllControlPoints();
        spline->setFirstNodeType(static_cast<SplineBase::nodeType>(firstNodeType));
        spline->setLastNodeType(static_cast<SplineBase::nodeType>(lastNodeType));
        // In order, so that each is appended: a file may hold its keys in any order.
        std::stable_sort(points.begin(), points.end(), [](const auto& a, const auto& b) {
            return TimeOrder()(a.get(), b.get());
        });
        for (std::unique_ptr<PointInfo>& point : points) {
            spline->addPointPtr(point.release(), 0);
        }
        points.clear();
    }
    spline->setAddFunc(type == splinePlusExpressionCurve);
}

} // namespace curve_editor
