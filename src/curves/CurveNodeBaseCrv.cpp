// A curve and the older curve file: three numbers of a colour, the curve type, the expression and
// the spline, each on lines of its own.

#include "core/ExpressionDisposal.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "core/SplineBase.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveType.h"
#include "curves/PipeOrDevice.h"
#include "graphs/SplineCurveGraph.h"

#include <fstream>
#include <locale>
#include <string>
#include <utility>

using curve_editor::Problem;
using curve_editor::Problems;

namespace {

/// Passes over the colour, which never reaches the curve. What is no type gives -1.
int readCurveType(std::ifstream& stream)
{
    int red = 0;
    int green = 0;
    int blue = 0;
    char type = '\0';
    stream >> red >> green >> blue >> type;
    switch (type) {
    case '0':
        return splineCurve;
    case '1':
        return expressionCurve;
    case '2':
        return splinePlusExpressionCurve;
    default:
        return -1;
    }
}

} // namespace

void CurveNodeBase::loadCrv(const QString& path, FunctionParserBase* parser)
{
    showBoxes(readCrv(path, parser));
}

Problems CurveNodeBase::readCrv(const QString& path, FunctionParserBase* parser)
{
    if (curve_editor::isPipeOrDevice(path)) {
        return {};
    }
    std::ifstream stream(path.toLocal8Bit().constData());
    if (!stream) {
        return {};
    }
    stream.imbue(std::locale::classic());
    const int type = readCurveType(stream);
    if (type < 0) {
        return {{Problem::warning, tr("Error Loading Curve File"), tr("Curve type not valid")}};
    }
    if (type != splineCurve) {
        readExpression(stream, parser ? *parser : *FunctionParserBase::instance());
    }
    if (hasKeys(type)) {
        keysGraph->selection().clear(); // its keys are about to be freed
        SplineBase::load(spline(), stream);
        keysGraph->setSpline(spline());
    }
    // The type of the curve as it stands now: an expression that a spline file left in place makes
    // it one of type expression.
    if (curveType() != splineCurve) {
        setAddFunc(type == splinePlusExpressionCurve);
    }
    changed = true;
    return {};
}

/// The first word alone; an expression that does not parse leaves the slot empty, without a word.
void CurveNodeBase::readExpression(std::ifstream& stream, FunctionParserBase& parser)
{
    std::string word;
    stream >> word;
    ParseMessage message;
    std::unique_ptr<FunctionFloatBase> read(parser.parseWithin(parserScope(), word, message));
    if (FunctionFloatBase** living = livingSlot()) {
        ExpressionDisposal::take(std::exchange(*living, read.release()));
    }
}

void CurveNodeBase::saveCrv(std::ofstream& stream)
{
    saveCrv(static_cast<std::ostream&>(stream));
}

void CurveNodeBase::saveCrv(std::ostream& stream)
{
    const int type = curveType();
    stream << std::to_string(type) << std::endl;
    if (type != splineCurve) {
        const FunctionFloatBase* function = expression();
        const std::string text = function ? function->getString() : std::string();
        // Without a word of its own the expression would be read from the first of the spline's.
        const bool needsWord = text.empty() && hasKeys(type);
        stream << (needsWord ? "0" : text) << std::endl;
    }
    if (hasKeys(type)) {
        SplineBase none;
        SplineBase* keys = spline();
        SplineBase::save(keys ? *keys : none, stream);
    }
}
