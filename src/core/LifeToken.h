#pragma once

#include <memory>

/// Tells observers whether the object that holds it still lives. A copy of the holder gets a
/// token of its own: life is not copied.
class LifeToken
{
public:
    LifeToken()
        : token(std::make_shared<char>())
    {}
    LifeToken(const LifeToken&)
        : LifeToken()
    {}
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): nothing is assigned
    LifeToken& operator=(const LifeToken&) { return *this; }
    ~LifeToken() = default;

    /// Expired once the holder is destroyed.
    std::weak_ptr<const void> watch() const { return token; }

private:
    std::shared_ptr<char> token;
};
