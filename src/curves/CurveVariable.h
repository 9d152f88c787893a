#pragma once

#include <QString>

#include <string>

namespace curve_editor {

struct NodeStruct;

/// Lets expressions read a curve by its name: registers a record in the parser under its parser
/// form for as long as it lives. Reading it evaluates the record, on the canvas or not, at the
/// present "t", "f" and "fps", once within one outer evaluation.
class CurveVariable
{
public:
    /// The record is not owned and outlives this object.
    explicit CurveVariable(const NodeStruct* record);
    ~CurveVariable();
    CurveVariable(const CurveVariable&) = delete;
    CurveVariable& operator=(const CurveVariable&) = delete;

    /// Registers the record anew, under the name it has now.
    void rename();

private:
    void refresh();
    void evaluate();

    const NodeStruct* record;
    std::string registeredName;
    double value = 0.0;
    bool isEvaluating = false;
    unsigned long long epochOfValue = 0;
};

} // namespace curve_editor
