#include "curves/CurveFile.h"

#include "core/ExpressionDisposal.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "files/CurveContent.h"

#include <QCoreApplication>

#include <utility>

using curve_files::CurveContent;
using curve_files::CurveFileResult;

namespace curve_editor {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("CurveFile", text);
}

} // namespace

bool readCurveFile(const QString& path, SplineBase* spline, FunctionFloatBase** slot,
                   QString& error, int* type)
{
    CurveContent content;
    const CurveFileResult result = content.readFile(path);
    if (!result) {
        error = result.text();
        return false;
    }
    // An empty text stands for no expression, which is what a curve without one is saved as.
    std::unique_ptr<FunctionFloatBase> expression;
    if (!content.expressionText.isEmpty()) {
        ParseMessage message;
        expression = content.parseExpression(*FunctionParserBase::instance(), message);
        if (message.errorKind != ParseMessage::noError) {
            constexpr qsizetype longest = 200; // no box can lay out a text of some megabytes
            error =
                tr("The expression cannot be parsed: %1").arg(content.expressionText.left(longest));
            return false;
        }
    }
    if (slot && content.type == splineCurve) {
        ExpressionDisposal::take(std::exchange(*slot, nullptr));
    }
    content.copyTo(spline, slot, std::move(expression));
    if (type) {
        *type = content.type;
    }
    error.clear();
    return true;
}

bool writeCurveFile(const QString& path, SplineBase* spline, const FunctionFloatBase* expression,
                    QString& error, int* type)
{
    const CurveContent content = CurveContent::of(spline, expression);
    const CurveFileResult result = content.writeFile(path);
    if (type) {
        *type = content.type;
    }
    error = result.message;
    return static_cast<bool>(result);
}

} // namespace curve_editor
