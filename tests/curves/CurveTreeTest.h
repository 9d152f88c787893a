#pragma once

#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveTree.h"
#include "curves/EditingSet.h"
#include "curves/NodeStruct.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QObject>

#include <map>
#include <memory>

/// A tree that nobody shows, its editing set, and hosts that lend splines and expression slots.
class CurveTreeTest : public QObject
{
protected:
    struct Host
    {
        SplineBase spline;
        FunctionFloatBase* expression = nullptr;
        ~Host() { delete expression; }
    };

    void openTree(CurveHost* host = nullptr)
    {
        failOnUnexpectedWarning();
        editing = std::make_unique<EditingSet>();
        tree = std::make_unique<CurveTree>(*editing, host);
    }

    void closeTree()
    {
        tree.reset();
        editing.reset();
        hosts.clear();
    }

    /// What the host of that name lends, who is made where there is none yet.
    curve_editor::NodeStruct recordOf(const QString& name)
    {
        auto& host = hosts[name];
        if (!host) {
            host = std::make_unique<Host>();
        }
        curve_editor::NodeStruct record;
        record.dotName = name;
        record.setSpline(&host->spline);
        record.function = &host->expression;
        record.color = Qt::red;
        record.minValue = -10.0f;
        record.maxValue = 10.0f;
        return record;
    }

    CurveNode* add(const QString& name) { return tree->add(recordOf(name)); }

    CurveNodeBase* addCurve(const QString& name) { return dynamic_cast<CurveNodeBase*>(add(name)); }

    /// The same with an expression, and with keys added to it where `isSum`.
    CurveNode* addExpression(const QString& name, const std::string& text,
                             const bool& isSum = false)
    {
        CurveNode* const curve = add(name);
        ParseMessage message;
        curve->setExpression(ParsedExpression(text).tree.release(), message);
        curve->setAddFunc(isSum);
        return curve;
    }

    std::map<QString, std::unique_ptr<Host>> hosts;
    std::unique_ptr<EditingSet> editing;
    std::unique_ptr<CurveTree> tree;
};
