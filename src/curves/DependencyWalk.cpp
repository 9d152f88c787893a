#include "curves/DependencyWalk.h"

#include "core/FunctionParserBase.h"
#include "curves/Catalogue.h"

#include <QSet>
#include <QStringList>

#include <vector>

namespace curve_editor {

namespace {

/// A curve on the walk, and what its expression reads.
struct Step
{
    const NodeStruct* record;
    QStringList variables;
    qsizetype next = 0;
};

Step stepInto(const NodeStruct* record)
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

const NodeStruct* culpritOf(const std::vector<Step>& way, const QString& variable)
{
    const NodeStruct* culprit = way.back().record;
    for (std::size_t i = way.size() - 1; i > 0; --i) {
        if (variable != parserForm(way[i - 1].record->dotName)) {
            culprit = way[i].record;
        }
    }
    return culprit;
}

} // namespace

// A walk in depth over the expressions, in the order in which each reads its variables. A curve
// once seen is not entered again: it gave no answer, or stands on the way and would only lead
// round in a circle. The way is kept in a list, for chains may be long.
const NodeStruct* dependencyCulprit(const Catalogue& catalogue, const QString& variable,
                                    const QString& curve)
{
    const NodeStruct* const start = catalogue.findParserName(curve);
    if (!start) {
        return nullptr;
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
            return culpritOf(way, variable);
        }
        const NodeStruct* const read = catalogue.findParserName(name);
        if (read && !seen.contains(read)) {
            seen.insert(read);
            way.push_back(stepInto(read));
        }
    }
    return nullptr;
}

} // namespace curve_editor
