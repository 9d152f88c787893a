#include "curves/CurveHold.h"

#include "curves/CurveNode.h"

#include <utility>

CurveHold::CurveHold(CurveNode* node)
    : tag(node ? node->holdTag() : nullptr)
{}

CurveHold& CurveHold::operator=(CurveHold other) noexcept
{
    std::swap(tag, other.tag);
    return *this;
}

CurveHold::~CurveHold()
{
    CurveNode* const node = get();
    tag.reset();
    if (node && !node->isHeld()) {
        node->holdEnded();
    }
}

CurveNode* CurveHold::get() const
{
    return tag ? *tag : nullptr;
}
