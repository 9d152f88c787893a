#pragma once

#include <memory>

/// Tells observers whether the object that holds it still lives. A copy of the holder gets a
/// token of its own: life is not copied.
class LifeToken
{
public:
    LifeToken() noexcept = default;
    LifeToken(const LifeToken&) noexcept {}
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): nothing is assigned
    LifeToken& operator=(const LifeToken&) noexcept { return *this; }
    ~LifeToken() = default;

    /// Expired once the holder is destroyed.
    std::weak_ptr<const void> watch() const
    {
        // Made when somebody first asks, who may be one of several threads: so a holder can be
        // made and moved without an allocation.
        std::shared_ptr<char> watched = std::atomic_load(&token);
        if (!watched) {
            const auto made = std::make_shared<char>();
            if (std::atomic_compare_exchange_strong(&token, &watched, made)) {
                watched = made;
            }
        }
        return watched;
    }

private:
    mutable std::shared_ptr<char> token; ///< null until somebody watches
};
