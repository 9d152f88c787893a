#include "core/ExpressionDisposal.h"

#include "core/EvaluationTime.h"
#include "core/FunctionFloatBase.h"
#include "core/ParserKeyEntry.h"

#include <memory>
#include <vector>

namespace {

std::vector<std::unique_ptr<FunctionFloatBase>>& keptTrees()
{
    static auto* const trees = new std::vector<std::unique_ptr<FunctionFloatBase>>;
    return *trees; // outlives static objects
}

// A host may evaluate a tree without an EvaluationTime. Only a refresh function tells of it then.
bool isAnythingEvaluated()
{
    return EvaluationTime::epoch() != 0 || ParserKeyEntry::isAnyRefreshed();
}

} // namespace

void ExpressionDisposal::take(FunctionFloatBase* tree)
{
    if (tree) {
        keptTrees().emplace_back(tree);
    }
    freeKept();
}

void ExpressionDisposal::freeKept()
{
    if (!isAnythingEvaluated()) {
        keptTrees().clear();
    }
}
