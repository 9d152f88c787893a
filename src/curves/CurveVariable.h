#pragma once

#include <array>
#include <string>
#include <vector>

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
    /// What "t", "f" and "fps" hold, in this order.
    using Moment = std::array<double, 3>;

    void registerName();
    void refresh();
    bool isUpToDate(const Moment& moment) const;
    void evaluate(const Moment& moment);
    void evaluateWithDependencies(const Moment& moment);
    std::vector<CurveVariable*> dependencies() const;

    const NodeStruct* record;
    std::string registeredName;
    double value = 0.0;
    /// The value is being worked out; whoever asks meanwhile is part of a cycle and gets the last
    /// one.
    bool isEvaluating = false;
    unsigned long long epochOfValue = 0; ///< 0: there is no value yet
    Moment momentOfValue = {};
};

} // namespace curve_editor
