#pragma once

#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"
#include "curves/CurveNode.h"
#include "curves/CurveNodeBase.h"

#include <QString>

#include <memory>
#include <vector>

/// A group and its curves, each with a spline and a slot of its own.
struct CurveGroup
{
    struct Host
    {
        SplineBase spline;
        FunctionFloatBase* expression = nullptr;
        ~Host() { delete expression; }
    };

    CurveGroup()
        : top(std::make_unique<CurveNode>(nullptr, "n", ""))
    {}

    CurveNodeBase* add(CurveNode* group, const QString& name)
    {
        hosts.push_back(std::make_unique<Host>());
        auto* curve =
            new CurveNodeBase(nullptr, name, group->dotName(), Qt::red, 0.0f, &hosts.back()->spline,
                              &hosts.back()->expression, -10.0f, 10.0f, true);
        group->addChild(curve);
        return curve;
    }

    CurveNode* addGroup(CurveNode* group, const QString& name)
    {
        auto* child = new CurveNode(nullptr, name, group->dotName());
        group->addChild(child);
        return child;
    }

    std::vector<std::unique_ptr<Host>> hosts;
    std::unique_ptr<CurveNode> top;
};
