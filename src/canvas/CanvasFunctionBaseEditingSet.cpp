// The set of curves being edited, and what it says of itself.

#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasGesture.h"
#include "canvas/CanvasVisit.h"
#include "canvas/FunctionEditor.h"
#include "canvas/SplineCurveGraph.h"
#include "commands/CommandAddFunc.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveType.h"
#include "editor/CurveEditor.h"
#include "files/CurveFormat.h"

#include <QMessageBox>
#include <QSet>

#include <fstream>
#include <string>
#include <utility>

namespace {

QString expressionText(CurveNode* curve)
{
    const FunctionFloatBase* expression = curve->expression();
    return expression ? QString::fromLocal8Bit(expression->getString().c_str()) : QString();
}

/// The piece of the message's text that its first span marks.
QString markedText(const ParseMessage& message)
{
    const auto [start, length] = message.errorSpans.front();
    const QByteArray text = QByteArray::fromStdString(message.expressionText);
    return QString::fromLocal8Bit(text.mid(start, length));
}

/// A curve that was deselected loses its selection of keys.
void dropSelections(const QList<CurveNode*>& former, const QList<CurveNode*>& editing)
{
    const QSet<CurveNode*> staying(editing.cbegin(), editing.cend());
    for (CurveNode* curve : former) {
        if (!staying.contains(curve) && curve->splineGraph()) {
            curve->splineGraph()->selection().clear();
        }
    }
}

} // namespace

/// To be called during a visit: curves that had left with their group may end after it.
void CanvasFunctionBase::leaveEditing()
{
    const QList<CurveNode*> former = std::exchange(editing, {});
    for (CurveNode* curve : former) {
        curve->setActive(false);
        unlinked.nameDropped(curve);
    }
}

/// Takes a leaf, or all leaves of a group, into the set, each once. Returns the names of those
/// that were not in it.
QStringList CanvasFunctionBase::enterEditing(CurveNode* node)
{
    QStringList entered;
    const QList<CurveNode*> leaves = node->curves();
    for (CurveNode* leaf : leaves) {
        if (!editing.contains(leaf)) {
            editing.append(leaf);
            entered.append(leaf->dotName());
        }
    }
    node->setActive(true);
    return entered;
}

void CanvasFunctionBase::selectCurves(const QStringList& dotNames)
{
    const CanvasVisit visit(this);
    const QStringList names = dotNames; // whoever hears the signal may change the caller's list
    endGestureUnlessEditing(names);
    const QList<CurveNode*> former = editing;
    leaveEditing();
    for (const QString& name : names) {
        if (CurveNode* node = findCurve(name)) {
            enterEditing(node);
        }
    }
    dropSelections(former, editing);
    selectionPending = true;
    emit selectionChanged(names);
}

void CanvasFunctionBase::selectCurveObjects(const QList<CurveNode*>& curves)
{
    const CanvasVisit visit(this);
    QList<CurveNode*> wanted = curves; // the argument may be our own list
    if (gesture->isOnKeys() && !areExactlyEdited(wanted)) {
        endGestures(); // whoever hears of its steps may free some of these
        wanted.removeIf([this](CurveNode* node) { return !nodes.contains(node); });
    }
    const QList<CurveNode*> former = editing;
    leaveEditing();
    QStringList names;
    for (CurveNode* node : wanted) {
        if (node) {
            names += enterEditing(node);
        }
    }
    dropSelections(former, editing);
    selectionPending = true;
    emit selectionChanged(names);
}

QList<CurveNode*> CanvasFunctionBase::editingCurves() const
{
    return editing;
}

bool CanvasFunctionBase::isEditing() const
{
    return !editing.isEmpty();
}

QStringList CanvasFunctionBase::editingCurveNames() const
{
    QStringList names;
    for (const CurveNode* curve : editing) {
        names.append(curve->dotName());
    }
    return names;
}

QList<SplineCurveGraph*> CanvasFunctionBase::keyContainers() const
{
    QList<SplineCurveGraph*> graphs;
    for (CurveNode* curve : editing) {
        graphs.append(curve->splineGraph());
    }
    return graphs;
}

SplineBase* CanvasFunctionBase::firstSpline() const
{
    return editing.isEmpty() ? nullptr : editing.first()->spline();
}

QString CanvasFunctionBase::firstCurveName() const
{
    return editing.isEmpty() ? tr("None") : editing.first()->dotName();
}

int CanvasFunctionBase::editingType() const
{
    if (editing.isEmpty()) {
        return expressionCurve;
    }
    const int firstType = editing.first()->curveType();
    for (CurveNode* curve : editing) {
        const int type = curve->curveType();
        const bool mixes = firstType == splineCurve || type == splineCurve || type == mixedCurves;
        if (type != firstType && mixes) {
            return mixedCurves;
        }
    }
    return firstType;
}

QString CanvasFunctionBase::commandLineText() const
{
    const int type = editingType();
    if (editing.isEmpty() || type == splineCurve) {
        return QString();
    }
    if (type != expressionCurve && type != splinePlusExpressionCurve) {
        return tr("Multiple Types");
    }
    QString text = expressionText(editing.first());
    for (CurveNode* curve : editing) {
        if (expressionText(curve) != text) {
            return QStringLiteral("...");
        }
    }
    return text;
}

void CanvasFunctionBase::markExpressionsChanged()
{
    for (CurveNode* curve : std::as_const(editing)) {
        curve->markChanged();
    }
    emit changeCommandLine();
}

void CanvasFunctionBase::switchAddFuncToSpline()
{
    endGestures();
    const int type = editingType();
    if (type == expressionCurve || type == splinePlusExpressionCurve) {
        editor->getCmdManager()->doCommand(new curve_editor::CommandAddFunc(editor));
    }
}

void CanvasFunctionBase::updateCanvas()
{
    if (selectionPending) {
        selectCurveObjects(editing);
        selectionPending = false;
    }
    if (widget) {
        widget->update();
    }
}

void CanvasFunctionBase::saveCurvesXml(const QString& folder)
{
    for (CurveNode* node : std::as_const(editing)) {
        if (auto* curve = dynamic_cast<CurveNodeBase*>(node)) {
            const QString name = curve_files::fileNameOfCurve(curve->dotName());
            curve->saveXML(folder + QLatin1Char('/') + name + QLatin1String(".xml"));
        }
    }
}

void CanvasFunctionBase::saveCrvFile(std::ofstream& stream)
{
    saveCrvFile(static_cast<std::ostream&>(stream));
}

void CanvasFunctionBase::saveCrvFile(std::ostream& stream)
{
    auto* const curve = dynamic_cast<CurveNodeBase*>(editing.isEmpty() ? nullptr : editing.first());
    if (!curve) {
        return;
    }
    const QColor color = curve->curveColor();
    for (const int& part : {color.red(), color.green(), color.blue()}) {
        stream << std::to_string(part) << std::endl;
    }
    curve->saveCrv(stream);
}

const ParserScope* CanvasFunctionBase::parserScope() const
{
    return editor ? editor->parserScope() : nullptr;
}

FunctionFloatBase* CanvasFunctionBase::parseExpression(const QString& text, ParseMessage& message)
{
    FunctionFloatBase* expression = FunctionParserBase::instance()->parseWithin(
        parserScope(), text.toLocal8Bit().toStdString(), message);
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
