#include "editor/CurveEditor.h"

#include "core/FunctionParserBase.h"
#include "editor/Catalogue.h"

#include <QSet>

#include <vector>

namespace {

/// A curve on the walk, and what its expression reads.
struct Step
{
    const curve_editor::NodeStruct* record;
    QStringList variables;
    qsizetype next = 0;
};

Step stepInto(const curve_editor::NodeStruct* record)
{
    Step step{record, {}};
    const FunctionFloatBase* const expression = record->livingExpression();
    if (!expression) {
        return step;
    }
    for (const auto* key : FunctionParserBase::instance()->getAllVars(expression)) {
        if (key) {
            step.variables.append(QString::fromLocal8Bit(key->name.c_str())
                                      .replace(QLatin1Char(' '), QLatin1Char('_')));
        }
    }
    return step;
}

/// The curve that is named to the user: where the first curve reads a curve that is part of the
/// way, the second step after the curve asked for; a shorter way ends with its last step.
const curve_editor::NodeStruct* culpritOf(const std::vector<Step>& way, const QString& variable)
{
    const curve_editor::NodeStruct* culprit = way.back().record;
    for (std::size_t i = way.size() - 1; i > 0; --i) {
        if (variable != curve_editor::parserForm(way[i - 1].record->dotName)) {
            culprit = way[i].record;
        }
    }
    return culprit;
}

} // namespace

// A walk in depth over the expressions, in the order in which each reads its variables. A curve
// once seen is not entered again: it gave no answer, or stands on the way and would only lead
// round in a circle. The way is kept in a list, for chains may be long.
bool CurveEditor::checkDependencies(const QString& variable, const QString& curve, QString& culprit)
{
    const NodeStruct* const start = searchAllNodeListCurveName(curve);
    if (!start) {
        return false;
    }
    QSet<const NodeStruct*> seen{start};
    std::vector<Step> way{stepInto(start)};
    while (!way.empty()) {
        Step& step = way.back();
        if (step.next >= step.variables.size()) {
            way.pop_back();
            continue;
        }
        const QString name = step.variables[step.next++];
        if (name == variable) {
            culprit = culpritOf(way, variable)->dotName;
            return true;
        }
        const NodeStruct* const read = searchAllNodeListCurveName(name);
        if (read && !seen.contains(read)) {
            seen.insert(read);
            way.push_back(stepInto(read));
        }
    }
    return false;
}
