#pragma once

#include "host/mel/Parser.h"
#include "host/mel/messages.h"

// Belongs to the parts of the parser.
namespace host::mel {

// Counts levels of nesting, so that hostile text cannot exhaust the stack of the parser or of what walks its tree.
class Parser::Nesting {
public:
    explicit Nesting(Parser& parser) : parser_(parser) {
        if (++parser_.nesting_ > kLimit) {
            fail(std::string(messages::kNestedTooDeeply), parser_.behindTaken_);
        }
    }
    ~Nesting() { --parser_.nesting_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    static constexpr std::size_t kLimit = 500;
    Parser& parser_;
};

} // namespace host::mel
