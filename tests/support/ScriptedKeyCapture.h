#pragma once

#include "platform/KeyCapture.h"

namespace quorvantel::testing {

/// A keyboard whose presses the test makes up; counts the captures in force.
class ScriptedKeyCapture : public platform::KeyCapture {
public:
    class CountedToken : public Token {
    public:
        explicit CountedToken(int& count) : m_count(count) { ++m_count; }
        ~CountedToken() override { --m_count; }

    private:
        int& m_count;
    };

    std::unique_ptr<Token> capture(QWindow& /*window*/, Handler handler) override {
        press = std::move(handler);
        return std::make_unique<CountedToken>(captures);
    }

    Handler press;
    int captures = 0;
};

} // namespace quorvantel::testing
