// Giving a curve an expression, and telling the user when the curve then depends on itself.

#include "core/ExpressionDisposal.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveHost.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveTree.h"
#include "curves/ExpressionProblems.h"
#include "curves/NodeStruct.h"

#include <QPointer>

#include <algorithm>
#include <utility>

using curve_editor::Problems;

namespace {

/// Marks every place where the message's text names the variable, overlapping ones included.
void markVariable(const QString& parserName, ParseMessage& message)
{
    std::string name = parserName.toLocal8Bit().toStdString();
    const std::string written = FunctionParserBase::writtenName(name);
    std::string text = message.expressionText;
    std::replace(text.begin(), text.end(), ' ', '_');
    if (written.find(name) == std::string::npos) {
        name = written; // with quotes or backslashes in it
    }
    if (name.empty()) {
        return;
    }
    for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at + 1)) {
        message.errorSpans.emplace_back(static_cast<int>(at), static_cast<int>(name.size()));
        message.errorKind = ParseMessage::cyclicDependency;
    }
}

} // namespace

void CurveNodeBase::setExpression(FunctionFloatBase* expression, ParseMessage& message)
{
    FunctionFloatBase** const living = livingSlot();
    if (living && *living == expression) {
        *living = nullptr; // the same comes back, and is not to be deleted on the way
    }
    // A box runs an event loop, in which this curve may be drawn, or taken away.
    const QPointer<CurveNodeBase> self(this);
    showBoxes(takeExpression(std::unique_ptr<FunctionFloatBase>(expression), message));
    if (self) {
        changed = true;
    }
}

Problems CurveNodeBase::takeExpression(std::unique_ptr<FunctionFloatBase> expression,
                                       ParseMessage& message)
{
    FunctionFloatBase* const taken = expression.release();
    FunctionFloatBase** const living = livingSlot();
    ExpressionDisposal::take(living ? std::exchange(*living, taken) : taken);
    changed = true;
    QString offender;
    if (!dependsOnItself(offender)) {
        return {};
    }
    markVariable(curve_editor::parserForm(offender), message);
    return {curve_editor::cyclicProblem(offender)};
}

const ParserScope* CurveNodeBase::parserScope() const
{
    const CurveHost* const host = tree ? tree->host() : nullptr;
    return host ? host->parserScope() : scopeWithoutCanvas;
}

void CurveNodeBase::readNamesAs(const CurveNodeBase& other)
{
    scopeWithoutCanvas = other.parserScope();
}

bool CurveNodeBase::dependsOnItself(QString& offender) const
{
    const CurveHost* const host = tree ? tree->host() : nullptr;
    return host && host->dependsOnItself(curve_editor::parserForm(dotName()), offender);
}
