#include "commands/CommandContext.h"

#include "commands/RecordKeys.h"
#include "curves/EditingSet.h"

namespace curve_editor {

CommandContext::~CommandContext() = default;

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
    report(editingSet().names());
}

} // namespace curve_editor
