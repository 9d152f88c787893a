#include "commands/CommandRemoveCurves.h"

#include "commands/CommandContext.h"
#include "commands/RecordKeys.h"
#include "curves/Catalogue.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveTree.h"

#include <utility>

namespace curve_editor {

namespace {

/// The object is put back only where it still fits: the host may have given the name to another
/// spline or slot in the meantime, with other limits, or another name to the object.
bool fits(CurveNode* curve, const NodeStruct* record)
{
    const auto* const leaf = dynamic_cast<CurveNodeBase*>(curve);
    return leaf && showsRecord(curve, record) && curve->expressionSlot() == record->livingSlot() &&
           curve->dotName() == record->dotName && leaf->minimumValue() == record->minValue &&
           leaf->maximumValue() == record->maxValue && leaf->notifiesHost() == record->notifyHost;
}

} // namespace

CommandRemoveCurves::CommandRemoveCurves(CurveEditor* editor, const QStringList& dotNames)
    : CommandRemoveCurves(contextOf(editor), dotNames)
{}

CommandRemoveCurves::CommandRemoveCurves(CommandContext& given, const QStringList& dotNames)
    : context(&given)
    , previousSelection(given.selection())
    , names(dotNames)
{}

bool CommandRemoveCurves::execute()
{
    const bool isFirst = curves.empty();
    for (const QString& name : std::as_const(names)) {
        if (isFirst) {
            curves.emplace_back(context->tree().findCurve(name));
        }
        context->leaveCanvas(name);
    }
    context->reportEditingCurves();
    return true;
}

void CommandRemoveCurves::undo()
{
    const qsizetype count = qMin(names.size(), static_cast<qsizetype>(curves.size()));
    for (qsizetype i = 0; i < count; ++i) {
        CurveNode* const curve = curves[static_cast<std::size_t>(i)].get();
        if (NodeStruct* const record = context->catalogue().find(names.at(i))) {
            context->enterCanvas(record, fits(curve, record) ? curve : nullptr);
            context->setColor(record, record->color);
        }
    }
    context->select(previousSelection);
    context->repaint();
    context->reportEditingCurves();
}

void CommandRemoveCurves::redo()
{
    execute();
}

ZK_String CommandRemoveCurves::getDescription()
{
    return "Remove Curves from Curve Editor";
}

} // namespace curve_editor
