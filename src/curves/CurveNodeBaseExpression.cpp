// Giving a curve an expression, and telling the user when the curve then depends on itself.

#include "canvas/CanvasFunctionBase.h"
#include "core/ExpressionDisposal.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveNodeBase.h"
#include "curves/NodeStruct.h"
#include "editor/CurveEditor.h"

#include <QMessageBox>
#include <QPointer>

#include <algorithm>
#include <utility>

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
    FunctionFloatBase** living = livingSlot();
    if (!living) {
        ExpressionDisposal::take(expression);
    } else if (*living != expression) {
        ExpressionDisposal::take(std::exchange(*living, expression));
    }
    changed = true;
    QString offender;
    if (dependsOnItself(offender)) {
        markVariable(curve_editor::parserForm(offender), message);
        // The box runs an event loop, in which this curve may be drawn, or taken away.
        const QPointer<CurveNodeBase> self(this);
        const QString text = tr("Cyclical dependency has been found for d-var %1 ").arg(offender);
        QMessageBox::warning(nullptr, tr("Cyclical dependency"), text);
        if (self) {
            changed = true;
        }
    }
}

const ParserScope* CurveNodeBase::parserScope() const
{
    return canvas ? canvas->parserScope() : scopeWithoutCanvas;
}

void CurveNodeBase::readNamesAs(const CurveNodeBase& other)
{
    scopeWithoutCanvas = other.parserScope();
}

bool CurveNodeBase::dependsOnItself(QString& offender) const
{
    CurveEditor* editor = canvas ? canvas->curveEditor() : nullptr;
    const QString name = curve_editor::parserForm(dotName());
    return editor && editor->checkDependencies(name, name, offender);
}
