#include "core/CurveSampler.h"

#include "core/ParseMessage.h"
#include "core/SamplerGraphMaker.h"
#include "core/SamplerPlan.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::size_t blockLength = 512;

// Of a curve with an expression.
constexpr int slopeStep = -13; // powers of two, of a second and of the time
constexpr int slopeStepOfTime = -26;
constexpr int boundsSteps = 1024;

constexpr const char* onlyCurve = ""; // its name, which no expression can mention

} // namespace

CurveSampler::Bindings CurveSampler::named(std::map<std::string, Binding> bindings)
{
    return [all = std::move(bindings)](const std::string& name) {
        const auto found = all.find(name);
        return found == all.end() ? std::nullopt : std::optional<Binding>(found->second);
    };
}

CurveSampler::Pointer CurveSampler::make(const Source& source, const Bindings& bindings,
                                         ParseMessage* message)
{
    const std::shared_ptr<const SamplerGraph> graph =
        SamplerGraphMaker(bindings).make({{onlyCurve, source}});
    const SamplerCurve* const curve = graph->curve(onlyCurve);
    if (message) {
        *message = curve ? ParseMessage() : graph->errors.at(onlyCurve);
        message->expressionText = curve ? source.text : message->expressionText;
    }
    return curve
               ? Pointer(new CurveSampler(std::make_unique<SamplerPlan>(graph, *curve), source.fps))
               : nullptr;
}

CurveSampler::CurveSampler(std::unique_ptr<const SamplerPlan> samplerPlan, double framesPerSecond)
    : plan(std::move(samplerPlan))
    , own(&plan->root())
    , rate(framesPerSecond)
{}

CurveSampler::~CurveSampler() = default;

double CurveSampler::value(double time) const
{
    if (!own->expression && own->keys) {
        return own->held(own->keys->value(time));
    }
    double result = 0.0;
    plan->run(&time, &result, 1, rate);
    return result;
}

void CurveSampler::values(const double* times, double* out, std::size_t count) const
{
    double block[blockLength];
    for (std::size_t done = 0; done < count; done += blockLength) {
        const std::size_t length = std::min(blockLength, count - done);
        std::copy_n(times + done, length, block);
        plan->run(block, out + done, length, rate);
    }
}

std::vector<double> CurveSampler::values(const std::vector<double>& times) const
{
    std::vector<double> all(times.size());
    values(times.data(), all.data(), times.size());
    return all;
}

void CurveSampler::values(double first, double step, std::size_t count, double* out) const
{
    double block[blockLength];
    for (std::size_t done = 0; done < count; done += blockLength) {
        const int length = static_cast<int>(std::min(blockLength, count - done));
        const double before = static_cast<double>(done);
        for (int i = 0; i < length; ++i) {
            block[i] = first + (before + i) * step;
        }
        if (done == 0) {
            block[0] = first; // also where the step is infinite
        }
        plan->run(block, out + done, static_cast<std::size_t>(length), rate);
    }
}

double CurveSampler::derivative(double time) const
{
    const double unheld = own->keys && !own->expression ? own->keys->value(time) : 0.0;
    if (own->expression) {
        return slopeOfSamples(time);
    }
    const bool isHeld = unheld < own->minimum || unheld > own->maximum;
    return own->keys && !isHeld ? own->keys->derivative(time) : 0.0;
}

/// The slope that a polynomial of the fourth degree has in the middle of four of its values.
double CurveSampler::slopeOfSamples(double time) const
{
    // A power of two, so that the steps are exact.
    const int power = std::isfinite(time) && time != 0.0 ? std::ilogb(time) : 0;
    const double step = std::ldexp(1.0, std::max(slopeStep, power + slopeStepOfTime));
    double samples[4] = {time - 2.0 * step, time - step, time + step, time + 2.0 * step};
    values(samples, samples, 4);
    return (8.0 * (samples[2] - samples[1]) - (samples[3] - samples[0])) / (12.0 * step);
}

ValueBounds CurveSampler::bounds(double from, double to) const
{
    if (std::isnan(from) || std::isnan(to)) {
        return ValueBounds();
    }
    if (from > to) {
        std::swap(from, to);
    }
    if (own->expression) {
        return boundsOfSamples(from, to);
    }
    ValueBounds found;
    if (own->keys) {
        found = own->keys->bounds(from, to);
    } else {
        found.take(0.0);
    }
    // Limits may cross.
    ValueBounds held;
    held.take(own->held(found.lowest));
    held.take(own->held(found.highest));
    return held;
}

ValueBounds CurveSampler::boundsOfSamples(double from, double to) const
{
    ValueBounds found;
    if (!std::isfinite(from) || !std::isfinite(to)) {
        return found;
    }
    double block[blockLength];
    std::size_t length = 0;
    const auto work = [&] {
        values(block, block, length);
        for (std::size_t i = 0; i < length; ++i) {
            found.take(block[i]);
        }
        length = 0;
    };
    const auto add = [&](double time) {
        block[length++] = time;
        if (length == blockLength) {
            work();
        }
    };
    for (int i = 0; i <= boundsSteps; ++i) {
        const double share = static_cast<double>(i) / boundsSteps;
        add((1.0 - share) * from + share * to);
    }
    const std::vector<double>& keys = keyTimes();
    for (auto key = std::lower_bound(keys.begin(), keys.end(), from);
         key != keys.end() && *key <= to; ++key) {
        add(*key);
    }
    work();
    return found;
}

const std::vector<double>& CurveSampler::keyTimes() const
{
    static const std::vector<double> none;
    return own->keys ? own->keys->keyTimes() : none;
}

double CurveSampler::fps() const
{
    return rate;
}

const std::vector<std::string>& CurveSampler::unboundNames() const
{
    return own->unboundNames;
}
