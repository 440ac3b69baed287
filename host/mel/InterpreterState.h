#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>

#include "host/mel/Ast.h"
#include "host/mel/CommandTable.h"
#include "host/mel/Interpreter.h"
#include "host/mel/ScriptFailure.h"
#include "host/mel/Variable.h"
#include "host/mel/messages.h"

namespace host::mel {

// Everything that outlives one evaluation. Only the parts of the interpreter include this.
struct Interpreter::State {
    CommandTable commands;
    MessageSinks sinks;
    ScriptLoader loader;
    GlobalVariables globals;
    std::map<std::string, std::shared_ptr<const Procedure>, std::less<>>
        procedures;                                              // global ones; they own their units
    std::map<std::string, std::string, std::less<>> environment; // what putenv set
    std::deque<std::string> deferred;
    std::mt19937_64 random;

    std::function<bool()> stepHook;
    std::uint64_t stepLimit = 0;
    std::uint64_t steps = 0;
    std::uint64_t nextHook = 0;
    bool isInterrupted = false;
    std::size_t running = 0; // evaluations inside each other
    std::size_t depth = 0;   // nested expressions and statements of all of them

    // Where a failure without a place of its own is put.
    const Unit* placeUnit = nullptr;
    std::size_t placeOffset = 0;

    void step(std::uint64_t count = 1) {
        steps += count;
        if (steps >= nextHook) {
            checkSteps();
        }
    }

    void checkSteps();
    void beginSteps();
};

// Runs down with the C++ stack, which it guards against scripts that call themselves for ever.
class DepthGuard {
public:
    explicit DepthGuard(std::size_t& depth, std::size_t cost = 1) : depth_(depth), cost_(cost) {
        if (depth_ + cost_ > kLimit) {
            throw ScriptFailure(messages::kStackOverflow);
        }
        depth_ += cost_;
    }
    ~DepthGuard() { depth_ -= cost_; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

private:
    static constexpr std::size_t kLimit = 4000;
    std::size_t& depth_;
    std::size_t cost_;
};

} // namespace host::mel
