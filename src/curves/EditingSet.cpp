#include "curves/EditingSet.h"

#include "core/FunctionFloatBase.h"
#include "curves/CurveNode.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace {

QString expressionText(CurveNode* curve)
{
    const FunctionFloatBase* expression = curve->expression();
    return expression ? QString::fromLocal8Bit(expression->getString().c_str()) : QString();
}

/// A curve that was deselected loses its selection of keys.
void dropSelections(const QList<CurveNode*>& former, const QList<CurveNode*>& editing)
{
    const QSet<CurveNode*> staying(editing.cbegin(), editing.cend());
    for (CurveNode* curve : former) {
        if (!staying.contains(curve) && curve->splineGraph()) {
            curve->splineGraph()->selection().clear();
        }
    }
}

} // namespace

const QList<CurveNode*>& EditingSet::curves() const
{
    return editing;
}

QList<CurveNode*>::const_iterator EditingSet::begin() const
{
    return editing.cbegin();
}

QList<CurveNode*>::const_iterator EditingSet::end() const
{
    return editing.cend();
}

bool EditingSet::isEmpty() const
{
    return editing.isEmpty();
}

qsizetype EditingSet::size() const
{
    return editing.size();
}

bool EditingSet::contains(const CurveNode* curve) const
{
    return std::find(editing.cbegin(), editing.cend(), curve) != editing.cend();
}

CurveNode* EditingSet::first() const
{
    return editing.isEmpty() ? nullptr : editing.first();
}

bool EditingSet::isExactly(const QList<CurveNode*>& nodes) const
{
    QList<CurveNode*> leaves;
    for (CurveNode* node : nodes) {
        const QList<CurveNode*> curves = node ? node->curves() : QList<CurveNode*>();
        for (CurveNode* curve : curves) {
            if (!leaves.contains(curve)) {
                leaves.append(curve);
            }
        }
    }
    return leaves == editing;
}

QStringList EditingSet::replace(const QList<CurveNode*>& nodes)
{
    const QList<CurveNode*> wanted = nodes; // the argument may be our own list
    const QList<CurveNode*> former = leave();
    QStringList entered;
    for (CurveNode* node : wanted) {
        if (node) {
            entered += enter(node);
        }
    }
    dropSelections(former, editing);
    noticeDue = true;
    return entered;
}

QList<CurveNode*> EditingSet::leave()
{
    QList<CurveNode*> former = std::exchange(editing, {});
    for (CurveNode* curve : std::as_const(former)) {
        curve->setActive(false);
    }
    return former;
}

/// Takes a leaf, or all leaves of a group, into the set, each once. Returns the names of those
/// that were not in it.
QStringList EditingSet::enter(CurveNode* node)
{
    QStringList entered;
    const QList<CurveNode*> leaves = node->curves();
    for (CurveNode* leaf : leaves) {
        if (!editing.contains(leaf)) {
            editing.append(leaf);
            entered.append(leaf->dotName());
        }
    }
    node->setActive(true);
    return entered;
}

void EditingSet::remove(CurveNode* curve)
{
    editing.removeAll(curve);
}

bool EditingSet::isNoticeDue() const
{
    return noticeDue;
}

void EditingSet::noticeGiven()
{
    noticeDue = false;
}

QStringList EditingSet::names() const
{
    QStringList names;
    for (const CurveNode* curve : editing) {
        names.append(curve->dotName());
    }
    return names;
}

QList<SplineCurveGraph*> EditingSet::graphs() const
{
    QList<SplineCurveGraph*> graphs;
    for (CurveNode* curve : editing) {
        graphs.append(curve->splineGraph());
    }
    return graphs;
}

QList<SplineCurveGraph*> EditingSet::editableGraphs() const
{
    QList<SplineCurveGraph*> graphs;
    for (CurveNode* curve : editing) {
        if (hasKeys(curve->curveType()) && curve->splineGraph()) {
            graphs.append(curve->splineGraph());
        }
    }
    return graphs;
}

SplineBase* EditingSet::firstSpline() const
{
    return editing.isEmpty() ? nullptr : editing.first()->spline();
}

QString EditingSet::firstName() const
{
    return editing.isEmpty() ? tr("None") : editing.first()->dotName();
}

int EditingSet::type() const
{
    if (editing.isEmpty()) {
        return expressionCurve;
    }
    const int firstType = editing.first()->curveType();
    for (CurveNode* curve : editing) {
        const int type = curve->curveType();
        const bool mixes = firstType == splineCurve || type == splineCurve || type == mixedCurves;
        if (type != firstType && mixes) {
            return mixedCurves;
        }
    }
    return firstType;
}

QString EditingSet::lineText() const
{
    const int setType = type();
    if (editing.isEmpty() || setType == splineCurve) {
        return QString();
    }
    if (setType != expressionCurve && setType != splinePlusExpressionCurve) {
        return tr("Multiple Types");
    }
    QString text = expressionText(editing.first());
    for (CurveNode* curve : editing) {
        if (expressionText(curve) != text) {
            return QStringLiteral("...");
        }
    }
    return text;
}
