#include "host/mel/Lexer.h"

#include "host/mel/characterClass.h"

#include <array>

namespace host::mel {

namespace {

struct Operator {
    std::string_view text;
    TokenKind kind;
};

// Longer operators stand before their own beginnings.
constexpr std::array<Operator, 38> kOperators = {{
    {"+=", TokenKind::kPlusAssign},
    {"++", TokenKind::kIncrement},
    {"+", TokenKind::kPlus},
    {"-=", TokenKind::kMinusAssign},
    {"--", TokenKind::kDecrement},
    {"-", TokenKind::kMinus},
    {"*=", TokenKind::kStarAssign},
    {"*", TokenKind::kStar},
    {"/=", TokenKind::kSlashAssign},
    {"/", TokenKind::kSlash},
    {"%=", TokenKind::kPercentAssign},
    {"%", TokenKind::kPercent},
    {"^=", TokenKind::kCaretAssign},
    {"^", TokenKind::kCaret},
    {"==", TokenKind::kEqual},
    {"=", TokenKind::kAssign},
    {"!=", TokenKind::kNotEqual},
    {"!", TokenKind::kNot},
    {"<<", TokenKind::kVectorOpen},
    {"<=", TokenKind::kLessEqual},
    {"<", TokenKind::kLess},
    {">>", TokenKind::kVectorClose},
    {">=", TokenKind::kGreaterEqual},
    {">", TokenKind::kGreater},
    {"&&", TokenKind::kAnd},
    {"||", TokenKind::kOr},
    {"?", TokenKind::kQuestion},
    {":", TokenKind::kColon},
    {".", TokenKind::kDot},
    {"`", TokenKind::kBacktick},
    {"(", TokenKind::kOpenParen},
    {")", TokenKind::kCloseParen},
    {"{", TokenKind::kOpenBrace},
    {"}", TokenKind::kCloseBrace},
    {"[", TokenKind::kOpenBracket},
    {"]", TokenKind::kCloseBracket},
    {",", TokenKind::kComma},
    {";", TokenKind::kSemicolon},
}};

// Behind the last byte of a class.
std::size_t skipClass(std::string_view text, std::size_t at, int classes) {
    while (at < text.size() && isOf(text[at], classes)) {
        ++at;
    }
    return at;
}

// A bracket group of an object name: vtx[0:3], f[*].
std::size_t objectIndexEnd(std::string_view text, std::size_t open) {
    const std::size_t close = text.find_first_not_of("0123456789:*-", open + 1);
    return close != std::string_view::npos && text[close] == ']' ? close + 1 : open;
}

} // namespace

Token Lexer::takeOperator() {
    const std::string_view rest = text_.substr(offset_, 2);
    for (const Operator& candidate : kOperators) {
        if (rest.substr(0, candidate.text.size()) == candidate.text) {
            return take(candidate.kind, candidate.text.size());
        }
    }
    return fail(offset_, "unexpected character", offset_ + 1);
}

Token Lexer::takeMelNumber() {
    const std::size_t start = offset_;
    std::size_t at = skipClass(text_, start, kDigitByte);
    TokenKind kind = TokenKind::kInt;
    if (at == start + 1 && text_[start] == '0' && at < text_.size() && (text_[at] | 32) == 'x') {
        at = skipClass(text_, at + 1, kNameByte);
        return take(kind, at - start);
    }
    if (at < text_.size() && text_[at] == '.') {
        kind = TokenKind::kFloat;
        at = skipClass(text_, at + 1, kDigitByte);
    }
    if (at < text_.size() && (text_[at] | 32) == 'e') {
        const bool hasSign = at + 1 < text_.size() && (text_[at + 1] == '-' || text_[at + 1] == '+');
        const std::size_t exponent = at + (hasSign ? 2 : 1);
        if (skipClass(text_, exponent, kDigitByte) != exponent) {
            kind = TokenKind::kFloat;
            at = skipClass(text_, exponent, kDigitByte);
        }
    }
    const std::size_t behind = skipClass(text_, at, kNameByte);
    if (behind != at) {
        return fail(start, "malformed number", behind);
    }
    return take(kind, at - start);
}

Token Lexer::takeVariable() {
    const std::size_t start = offset_;
    if (start + 1 >= text_.size() || !isNameStart(text_[start + 1])) {
        return fail(start, "'$' without a variable name", start + 1);
    }
    offset_ = skipClass(text_, start + 1, kNameByte);
    return {TokenKind::kVariable, false, start, text_.substr(start + 1, offset_ - start - 1)};
}

Token Lexer::nextToken() {
    Token error;
    if (!skipBlanks(error)) {
        return error;
    }
    if (offset_ == text_.size()) {
        return take(TokenKind::kEnd, 0);
    }
    const char first = text_[offset_];
    if (isNameStart(first)) {
        return take(TokenKind::kWord, skipClass(text_, offset_, kNameByte) - offset_);
    }
    const bool isFraction = first == '.' && offset_ + 1 < text_.size() && isOf(text_[offset_ + 1], kDigitByte);
    if (isOf(first, kDigitByte) || isFraction) {
        return takeMelNumber();
    }
    switch (first) {
    case '"':
        return takeString();
    case '$':
        return takeVariable();
    default:
        return takeOperator();
    }
}

Token Lexer::takeObjectName(std::size_t begin) {
    offset_ = begin;
    std::size_t at = begin;
    for (; at < text_.size(); ++at) {
        const bool isComment = text_.substr(at, 2) == "//" || text_.substr(at, 2) == "/*";
        if (isComment || !(isOf(text_[at], kObjectByte) || text_[at] == '[')) {
            break;
        }
        if (text_[at] == '[') {
            const std::size_t behind = objectIndexEnd(text_, at);
            if (behind == at) {
                break;
            }
            at = behind - 1;
        }
    }
    return take(TokenKind::kWord, at - begin);
}

Token Lexer::nextArgument() {
    Token error;
    if (!skipBlanks(error)) {
        return error;
    }
    const std::size_t start = offset_;
    const std::string_view rest = text_.substr(start);
    const bool hasSign = !rest.empty() && (rest[0] == '-' || rest[0] == '+');
    const std::size_t body = hasSign ? 1 : 0;
    if (hasSign && rest[0] == '-' && rest.size() > 1 && isNameStart(rest[1])) {
        return take(TokenKind::kFlag, skipClass(rest, 1, kNameByte));
    }
    const std::size_t digit = rest.size() > body && rest[body] == '.' ? body + 1 : body;
    if (rest.size() > digit && isOf(rest[digit], kDigitByte)) {
        offset_ = start + body;
        Token number = takeMelNumber();
        const bool isWhole = !number.is(TokenKind::kError);
        const bool goesOn = offset_ < text_.size() && isOf(text_[offset_], kObjectByte) && text_[offset_] != '/';
        if (hasSign || (isWhole && !goesOn)) {
            number.text = isWhole ? text_.substr(start, offset_ - start) : number.text;
            number.offset = start;
            return number;
        }
        return takeObjectName(start); // 3dView, 23.976fps, 4.0.1
    }
    if (!rest.empty() && isOf(rest[0], kObjectByte)) {
        const Token name = takeObjectName(start);
        return name.text.empty() ? nextToken() : name;
    }
    return nextToken();
}

} // namespace host::mel
