#include "core/FunctionFloatTernary.h"

#include <utility>

FunctionFloatTernary::FunctionFloatTernary(std::unique_ptr<FunctionFloatBase> conditionNode,
                                           std::unique_ptr<FunctionFloatBase> trueNode,
                                           std::unique_ptr<FunctionFloatBase> falseNode)
    : question(std::move(conditionNode))
    , answerTrue(std::move(trueNode))
    , answerFalse(std::move(falseNode))
{}

FunctionFloatTernary::~FunctionFloatTernary() = default;

bool FunctionFloatTernary::isTernary() const
{
    return true;
}

const FunctionFloatTernary* FunctionFloatTernary::getTernaryRef() const
{
    return this;
}

double FunctionFloatTernary::value() const
{
    return question.value() != 0.0 ? answerTrue.value() : answerFalse.value();
}

const FunctionFloatBase& FunctionFloatTernary::condition() const
{
    return question.node();
}

const FunctionFloatBase& FunctionFloatTernary::whenTrue() const
{
    return answerTrue.node();
}

const FunctionFloatBase& FunctionFloatTernary::whenFalse() const
{
    return answerFalse.node();
}
