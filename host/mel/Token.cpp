#include "host/mel/Token.h"

#include "host/mel/numberText.h"

#include <array>
#include <charconv>
#include <system_error>

namespace host::mel {

namespace {

// In the order of TokenKind.
constexpr std::array<std::string_view, 46> kKindTexts = {
    "end of text", "broken text", "a name", "a string", "a number", "a number", "a variable", "a flag", "'('",  "')'",
    "'{'",         "'}'",         "'['",    "']'",      "','",      "';'",      "'+'",        "'-'",    "'*'",  "'/'",
    "'%'",         "'^'",         "'='",    "'+='",     "'-='",     "'*='",     "'/='",       "'%='",   "'^='", "'++'",
    "'--'",        "'=='",        "'!='",   "'<'",      "'<='",     "'>'",      "'>='",       "'&&'",   "'||'", "'!'",
    "'?'",         "':'",         "'.'",    "'`'",      "'<<'",     "'>>'",
};
static_assert(kKindTexts.size() == static_cast<std::size_t>(TokenKind::kVectorClose) + 1);

// Long strings and names would drown the message that names them.
std::string shortened(std::string_view text) {
    constexpr std::size_t kLimit = 40;
    return text.size() <= kLimit ? std::string(text) : std::string(text.substr(0, kLimit)) + "...";
}

} // namespace

std::string_view describeKind(TokenKind kind) {
    return kKindTexts[static_cast<std::size_t>(kind)];
}

std::string describeToken(const Token& token) {
    switch (token.kind) {
    case TokenKind::kWord:
    case TokenKind::kFlag:
    case TokenKind::kInt:
    case TokenKind::kFloat:
        return "'" + shortened(token.text) + "'";
    case TokenKind::kVariable:
        return "'$" + shortened(token.text) + "'";
    case TokenKind::kString:
        return "string \"" + shortened(token.text) + "\"";
    case TokenKind::kError:
        return std::string(token.text);
    default:
        return std::string(describeKind(token.kind));
    }
}

Value numberOf(const Token& token) {
    double value = 0.0;
    const char* last = token.text.data() + token.text.size();
    readNumberText(token.text.data(), last, value);
    if (token.is(TokenKind::kFloat)) {
        return value;
    }
    std::int64_t whole = 0;
    const auto [next, error] = std::from_chars(token.text.data() + (token.text.front() == '+' ? 1 : 0), last, whole);
    return error == std::errc() && next == last ? whole : truncateToInteger(value);
}

} // namespace host::mel
