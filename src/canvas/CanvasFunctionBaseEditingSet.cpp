// The set of curves being edited, and what it says of itself.

#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasGesture.h"
#include "canvas/FunctionEditor.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveVisit.h"

#include <QMessageBox>

#include <fstream>
#include <string>

namespace {

/// The piece of the message's text that its first span marks.
QString markedText(const ParseMessage& message)
{
    const auto [start, length] = message.errorSpans.front();
    const QByteArray text = QByteArray::fromStdString(message.expressionText);
    return QString::fromLocal8Bit(text.mid(start, length));
}

} // namespace

void CanvasFunctionBase::selectCurves(const QStringList& dotNames)
{
    const CurveVisit visit(&curveTree);
    const QStringList names = dotNames; // whoever hears the signal may change the caller's list
    endGestureUnlessEditing(names);
    curveTree.edit(curveTree.findAll(names));
    emit selectionChanged(names);
}

void CanvasFunctionBase::selectCurveObjects(const QList<CurveNode*>& curves)
{
    const CurveVisit visit(&curveTree);
    QList<CurveNode*> wanted = curves; // the argument may be our own list
    if (gesture->isOnKeys() && !editing.isExactly(wanted)) {
        endGestures(); // whoever hears of its steps may free some of these
        wanted.removeIf([this](CurveNode* node) { return !curveTree.isKnown(node); });
    }
    emit selectionChanged(curveTree.edit(wanted));
}

QList<CurveNode*> CanvasFunctionBase::editingCurves() const
{
    return editing.curves();
}

bool CanvasFunctionBase::isEditing() const
{
    return !editing.isEmpty();
}

QStringList CanvasFunctionBase::editingCurveNames() const
{
    return editing.names();
}

QList<SplineCurveGraph*> CanvasFunctionBase::keyContainers() const
{
    return editing.graphs();
}

SplineBase* CanvasFunctionBase::firstSpline() const
{
    return editing.firstSpline();
}

QString CanvasFunctionBase::firstCurveName() const
{
    return editing.firstName();
}

int CanvasFunctionBase::editingType() const
{
    return editing.type();
}

QString CanvasFunctionBase::commandLineText() const
{
    return editing.lineText();
}

void CanvasFunctionBase::markExpressionsChanged()
{
    for (CurveNode* curve : editing) {
        curve->markChanged();
    }
    emit changeCommandLine();
}

void CanvasFunctionBase::updateCanvas()
{
    if (editing.isNoticeDue()) {
        selectCurveObjects(editing.curves());
        editing.noticeGiven();
    }
    if (widget) {
        widget->update();
    }
}

void CanvasFunctionBase::saveCurvesXml(const QString& folder)
{
    for (CurveNode* node : editing) {
        if (auto* curve = dynamic_cast<CurveNodeBase*>(node)) {
            curve->saveXML(folder + QLatin1Char('/') + curve->dotName() + QLatin1String(".xml"));
        }
    }
}

void CanvasFunctionBase::saveCrvFile(std::ofstream& stream)
{
    saveCrvFile(static_cast<std::ostream&>(stream));
}

void CanvasFunctionBase::saveCrvFile(std::ostream& stream)
{
    auto* const curve = dynamic_cast<CurveNodeBase*>(editing.first());
    if (!curve) {
        return;
    }
    const QColor color = curve->curveColor();
    for (const int& part : {color.red(), color.green(), color.blue()}) {
        stream << std::to_string(part) << std::endl;
    }
    curve->saveCrv(stream);
}

FunctionFloatBase* CanvasFunctionBase::parseExpression(const QString& text, ParseMessage& message)
{
    FunctionFloatBase* expression = FunctionParserBase::instance()->parseString(
        text.toLocal8Bit().toStdString(), message, false);
    if (message.errorSpans.empty()) {
        return expression;
    }
    QString problem = tr("Unknown");
    if (message.errorKind == ParseMessage::unknownName) {
        problem = tr("Variable %1 not found").arg(markedText(message));
    } else if (message.errorKind == ParseMessage::openParenthesis) {
        problem = tr("Unmatched parenthesis");
    }
    QMessageBox::warning(nullptr, tr("Syntax error"), problem);
    return expression;
}
