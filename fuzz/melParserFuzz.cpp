#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "host/mel/Interpreter.h"

// Any bytes as a script: parsed and run without commands, with a step limit in place of patience.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::uint64_t kSteps = 5000;
    host::mel::Interpreter interpreter;
    interpreter.setStepLimit(kSteps);
    const std::string_view script(reinterpret_cast<const char*>(data), size);
    for (int round = 0; round < 2; ++round) { // the second meets the first one's globals and procedures
        const host::mel::EvalResult result = interpreter.eval(script, "fuzz");
        if (!result.ok() && !result.value.isNone()) {
            std::abort(); // a failure gives no value
        }
    }
    return 0;
}
