#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace curve_editor {

/// What "t", "f" and "fps" hold, in this order.
using Moment = std::array<double, 3>;

/// By bits, so that not a number is the same time as itself.
bool isSameMoment(const Moment& a, const Moment& b);

/// The value of a curve at a moment.
struct KnownValue
{
    double number = 0.0;
    unsigned long long epoch = 0; ///< of EvaluationTime; 0: nothing is known
    Moment moment = {};
    unsigned long long order = 0; ///< of its evaluation
    unsigned long long until = 0; ///< good until the evaluation of that order ends
};

/// The values of a curve that are known within one epoch. There is one for most curves; refresh
/// functions that evaluate at other moments make it several.
class KnownValues
{
public:
    /// Null where nothing is known. Good until the next change.
    const KnownValue* at(const unsigned long long& epoch, const Moment& moment) const;
    /// Takes the place of a value at the same moment. Those of other epochs are forgotten.
    void add(const KnownValue& value);
    void clear();

private:
    /// Beyond it all but the latest are forgotten: a refresh function may go through any number.
    static constexpr std::size_t mostFormer = 256;

    KnownValue latest;
    std::vector<KnownValue> former; ///< at other moments of the same epoch
};

} // namespace curve_editor
