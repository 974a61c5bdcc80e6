#pragma once

#include <functional>
#include <memory>

namespace quorvantel::platform {

/// Observes mouse clicks that go to other applications, without taking part in them.
class ClickMonitor {
public:
    /// The observation lasts as long as its token.
    class Token {
    public:
        Token() = default;
        Token(const Token&) = delete;
        Token& operator=(const Token&) = delete;
        virtual ~Token() = default;
    };

    virtual ~ClickMonitor() = default;

    /// Calls `handler` on the main thread for every press of the left or right button that is
    /// delivered to another application. The press does its own work there as well. No token when
    /// the system cannot tell.
    virtual std::unique_ptr<Token> observe(std::function<void()> handler) = 0;
};

} // namespace quorvantel::platform
