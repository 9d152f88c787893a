// Which curves are on the canvas, and which of them are being edited.

#include "canvas/CanvasCurveHost.h"
#include "canvas/CanvasFunctionBase.h"
#include "canvas/CanvasGestures.h"
#include "canvas/CanvasHost.h"
#include "canvas/CanvasPainter.h"
#include "canvas/FunctionEditor.h"
#include "curves/CurveVisit.h"
#include "curves/DottedName.h"
#include "curves/NodeStruct.h"

using curve_editor::DottedName;
using curve_editor::NodeStruct;

CanvasFunctionBase::CanvasFunctionBase(FunctionEditor* functionEditor, CurveEditor* dialog)
    : QObject(functionEditor)
    , widget(functionEditor)
    , editor(dialog)
    , view(functionEditor)
    , host(curve_editor::canvasHostOf(dialog))
    , gestures(std::make_unique<CanvasGestures>(*this, dialog, host.get(), functionEditor))
    , ground(std::make_unique<CanvasPainter>(functionEditor, functionEditor))
    , curveHost(std::make_unique<CanvasCurveHost>(*this, host.get()))
    , curveTree(editing, curveHost.get())
{}

CanvasFunctionBase::~CanvasFunctionBase()
{
    clearCurves();
}

CurveTree* treeOf(CanvasFunctionBase* canvas)
{
    return canvas ? &canvas->tree() : nullptr;
}

CurveTree& CanvasFunctionBase::tree()
{
    return curveTree;
}

const EditingSet& CanvasFunctionBase::editingSet() const
{
    return editing;
}

CurveEditor* CanvasFunctionBase::curveEditor() const
{
    return editor;
}

ViewPort* CanvasFunctionBase::viewPort() const
{
    return view;
}

QList<CurveNode*> CanvasFunctionBase::topNodes() const
{
    return curveTree.topNodes();
}

CurveNode* CanvasFunctionBase::findCurve(const QString& dotName) const
{
    return curveTree.findCurve(dotName);
}

CurveNode* CanvasFunctionBase::findLeaf(const QString& dotName) const
{
    return curveTree.findLeaf(dotName);
}

CurveNode* CanvasFunctionBase::ensurePath(const QString& dotName)
{
    return curveTree.ensurePath(dotName);
}

CurveNode* CanvasFunctionBase::addCanvasCurve(const QString& dotName, const QColor& color,
                                              const float& curveValue, SplineBase* spline,
                                              FunctionFloatBase** expressionSlot,
                                              const float& minValue, const float& maxValue,
                                              const bool& notifyHost)
{
    const DottedName name = DottedName::fromText(dotName);
    NodeStruct record = NodeStruct::lent(name.node, name.curve, color, curveValue, spline,
                                         expressionSlot, minValue, maxValue, notifyHost);
    record.dotName = dotName; // which may have one element
    return addCanvasCurve(record);
}

CurveNode* CanvasFunctionBase::addCanvasCurve(const NodeStruct& record)
{
    return curveTree.add(record);
}

CurveNode* CanvasFunctionBase::attachCanvasCurve(CurveNode* curve)
{
    return curveTree.attach(curve);
}

void CanvasFunctionBase::removeCanvasCurve(const QString& dotName)
{
    const QString name = dotName; // perhaps the node's own
    endGestureOn(name);
    curveTree.remove(name);
}

void CanvasFunctionBase::discardUnlinked(CurveNode* node)
{
    curveTree.discardUnlinked(node);
}

void CanvasFunctionBase::clearCurves()
{
    endGestures();
    const CurveVisit visit(&curveTree);
    curveTree.clear();
    selectCurves({});
}
