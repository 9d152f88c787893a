#pragma once

#include "graphs/EvaluatedCurve.h"

#include <memory>
#include <string>
#include <vector>

class ParserScope;

namespace curve_editor {

struct NodeStruct;

/// Lets expressions read a curve by its name: registers a record in the parser under its parser
/// form for as long as it lives. Reading it evaluates the record, on the canvas or not, at the
/// present "t", "f" and "fps", once within one outer evaluation. What another editor parses does
/// not see it. In a ring of curves the mention that closes it reads 0, see EvaluatedCurve.
class CurveVariable
{
public:
    /// Neither is owned; both outlive this object. Without a scope all expressions may read it.
    explicit CurveVariable(const NodeStruct* record, const ParserScope* scope = nullptr);
    ~CurveVariable();
    CurveVariable(const CurveVariable&) = delete;
    CurveVariable& operator=(const CurveVariable&) = delete;

    /// Registers the record anew, under the name it has now.
    void rename();

    /// Ends a variable whose record leaves. It may be on the stack, when a refresh function of a
    /// host takes curves off the list: then it reads 0 from now on, and is freed later.
    static void end(std::unique_ptr<CurveVariable> variable);

private:
    friend class CurveTurns;

    void leave();
    void registerName();
    void refresh();
    void read(const KnownValue& known);
    unsigned long long closingEvaluation() const;
    double computed(const Moment& now) const;
    std::vector<CurveVariable*> dependencies() const;

    const NodeStruct* record; ///< not owned; null once it has left
    const ParserScope* scope; ///< not owned
    std::string registeredName;
    CurveValue value;
};

} // namespace curve_editor
