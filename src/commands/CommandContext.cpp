#include "commands/CommandContext.h"

#include "commands/EligibleCurves.h"
#include "curves/CurveNode.h"

namespace curve_editor {

CommandContext::~CommandContext() = default;

QStringList CommandContext::editingCurveNames() const
{
    QStringList names;
    const QList<CurveNode*> curves = editingCurves();
    for (const CurveNode* curve : curves) {
        names.append(curve->dotName());
    }
    return names;
}

void CommandContext::report(const QList<NodeStruct*>& records)
{
    QStringList names;
    for (const NodeStruct* record : records) {
        if (record) {
            names.append(dotNameOf(*record));
        }
    }
    report(names);
}

void CommandContext::reportEditingCurves()
{
    report(editingCurveNames());
}

} // namespace curve_editor
