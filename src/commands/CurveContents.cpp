#include "commands/CurveContents.h"

#include "commands/CommandContext.h"
#include "commands/RecordExpression.h"
#include "commands/RecordKeys.h"
#include "core/FunctionFloatBase.h"
#include "core/ParseMessage.h"
#include "core/SplineBase.h"
#include "curves/Catalogue.h"
#include "curves/CurveNode.h"
#include "curves/ExpressionProblems.h"

#include <utility>

namespace curve_editor {

void exchangeContents(SplineBase& a, SplineBase& b)
{
    SplineBase formerA;
    formerA.copyRefs(a);
    a.copyRefs(b);
    b.copyRefs(formerA);
    formerA.clearCtrlPoints();
}

CurveContents::CurveContents(CommandContext& given)
    : context(&given)
{}

CurveContents::~CurveContents() = default;

qsizetype CurveContents::copyCurveForUndo(NodeStruct* node, std::unique_ptr<SplineBase> keys,
                                          const std::optional<QString>& expression)
{
    Entry entry;
    entry.node = node;
    entry.oldText = expressionTextOf(node);
    entry.newText = expression;
    const auto own = static_cast<qsizetype>(entries.size());
    qsizetype place = own;
    if (const SplineBase* const spline = node->livingSpline()) {
        place = keysPlaces.value(spline, own);
        if (place == own) {
            keysPlaces.insert(spline, own);
            entry.otherKeys = std::move(keys);
        } else if (keys->isAddFunc()) {
            // Any of the curves that share the spline may be a sum.
            entries[static_cast<std::size_t>(place)].otherKeys->setAddFunc(true);
        }
    }
    entries.push_back(std::move(entry));
    records.append(node);
    return place;
}

bool CurveContents::restoreCurveContent(const Version& version)
{
    for (const std::size_t& i : exchangeKeys(version)) {
        const NodeStruct* const node = entries[i].node;
        const std::optional<QString>& text = textOf(i, version);
        if (!text) {
            writeExpression(node, nullptr);
        } else if (!restoreExpression(*context, node, *text)) {
            return false;
        }
    }
    return true;
}

bool CurveContents::restoreRecordContent(const Version& version)
{
    for (const std::size_t& i : exchangeKeys(version)) {
        std::unique_ptr<FunctionFloatBase> expression;
        if (const std::optional<QString>& text = textOf(i, version)) {
            ParseMessage message;
            expression = parseText(*text, message, &context->catalogue().parserScope());
            if (!context->tell(syntaxProblems(message))) {
                return false;
            }
        }
        writeExpression(entries[i].node, std::move(expression));
    }
    return true;
}

const QList<NodeStruct*>& CurveContents::nodes() const
{
    return records;
}

/// Of all curves before the first expression is restored: its box lets the curves be painted.
/// Returns the entries whose version changes.
std::vector<std::size_t> CurveContents::exchangeKeys(const Version& version)
{
    const bool activate = version == newCurves;
    std::vector<std::size_t> exchanged;
    QSet<const SplineBase*> changed;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        Entry& entry = entries[i];
        SplineBase* const spline = entry.node->livingSpline();
        if (entry.newCurveActive == activate || !(spline || entry.node->livingSlot())) {
            continue;
        }
        if (spline && entry.otherKeys) {
            exchangeContents(*spline, *entry.otherKeys);
            changed.insert(spline);
        }
        entry.newCurveActive = activate;
        exchanged.push_back(i);
    }
    dropDepartedKeys(*context, changed);
    return exchanged;
}

const std::optional<QString>& CurveContents::textOf(const std::size_t& entry,
                                                    const Version& version) const
{
    return version == newCurves ? entries[entry].newText : entries[entry].oldText;
}

/// The mark of an added expression is the spline's, and came with its content.
void CurveContents::writeExpression(const NodeStruct* node,
                                    std::unique_ptr<FunctionFloatBase> expression)
{
    emptySlot(node);
    if (FunctionFloatBase** const slot = node->livingSlot()) {
        *slot = expression.release();
    }
    if (CurveNode* const curve = findExpressionCurve(*context, node)) {
        curve->markChanged();
    }
}

} // namespace curve_editor
