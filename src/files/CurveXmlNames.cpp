#include "files/CurveXmlNames.h"

#include "core/InterpolationType.h"
#include "core/SplineBase.h"
#include "files/CurveType.h"

#include <algorithm>
#include <iterator>

namespace curve_files {

namespace {

struct Name
{
    int number;
    const char* text;
};

// Of several texts for a number the first is written.
const Name curveTypes[] = {
    {splineCurve, "spline"},
    {expressionCurve, "expression"},
    {splinePlusExpressionCurve, "spline-plus-expression"},
};

const Name nodeTypes[] = {
    {SplineBase::zero, "zero"},
    {SplineBase::constant, "constant"},
    {SplineBase::loop, "loop"},
    {SplineBase::loopOffset, "loop-offset"},
    {SplineBase::followTangent, "follow-tangent"},
};

const Name interpolationTypes[] = {
    {zk_spline::linear, "linear"}, {zk_spline::linear, "lineal"}, {zk_spline::bezier, "bezier"},
    {zk_spline::tcb, "tcb"},       {zk_spline::stepped, "step"},
};

template <std::size_t count>
QString textOf(const Name (&names)[count], const int& number)
{
    const auto found = std::find_if(std::begin(names), std::end(names),
                                    [&](const Name& name) { return name.number == number; });
    return QLatin1String(found == std::end(names) ? "unknown" : found->text);
}

template <std::size_t count>
int numberOf(const Name (&names)[count], const QString& text)
{
    const QString lowered = text.toLower();
    const auto found = std::find_if(std::begin(names), std::end(names), [&](const Name& name) {
        return lowered == QLatin1String(name.text);
    });
    return found == std::end(names) ? -1 : found->number;
}

} // namespace

QString curveTypeName(const int& type)
{
    return textOf(curveTypes, type);
}

int curveTypeFromName(const QString& name)
{
    return numberOf(curveTypes, name);
}

QString nodeTypeName(const int& type)
{
    return textOf(nodeTypes, type);
}

int nodeTypeFromName(const QString& name)
{
    return numberOf(nodeTypes, name);
}

QString interpolationTypeName(const int& type)
{
    return textOf(interpolationTypes, type);
}

int interpolationTypeFromName(const QString& name)
{
    return numberOf(interpolationTypes, name);
}

} // namespace curve_files
