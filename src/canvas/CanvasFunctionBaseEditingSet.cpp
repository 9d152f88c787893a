// The set of curves being edited, and what it says of itself.

#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasGestures.h"
#include "canvas/CanvasHost.h"
#include "canvas/FunctionEditor.h"
#include "core/FunctionFloatBase.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveVisit.h"
#include "curves/ExpressionProblems.h"
#include "curves/ExpressionText.h"
#include "files/CurveFormat.h"

#include <QSet>

#include <fstream>
#include <string>

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
    if (gestures->isOnKeys() && !editing.isExactly(wanted)) {
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

bool CanvasFunctionBase::isNoticeDue() const
{
    return editing.isNoticeDue();
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
    // Of names that differ in a "/" alone no file replaces another.
    const QStringList names = editing.names();
    QSet<QString> taken(names.begin(), names.end());
    for (CurveNode* node : editing) {
        if (auto* curve = dynamic_cast<CurveNodeBase*>(node)) {
            QString name = curve_files::fileNameOfCurve(curve->dotName());
            while (name != curve->dotName() && taken.contains(name)) {
                name += QLatin1Char('_');
            }
            taken.insert(name);
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

const ParserScope* CanvasFunctionBase::parserScope() const
{
    return host ? host->parserScope() : nullptr;
}

FunctionFloatBase* CanvasFunctionBase::parseExpression(const QString& text, ParseMessage& message)
{
    std::unique_ptr<FunctionFloatBase> expression =
        curve_editor::parseText(text, message, parserScope());
    showBoxes(curve_editor::syntaxProblems(message));
    return expression.release();
}
