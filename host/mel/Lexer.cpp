#include "host/mel/Lexer.h"

#include "host/mel/characterClass.h"

#include <algorithm>
#include <cstring>

namespace host::mel {

namespace {

constexpr std::string_view kUnterminatedString = "unterminated string";
constexpr std::string_view kUnterminatedComment = "unterminated comment";
constexpr std::string_view kStrayByte = "unexpected character";

// Where the line ends, or last.
const char* findLineEnd(const char* first, const char* last) {
    if (first == last) {
        return last;
    }
    const void* found = std::memchr(first, '\n', static_cast<std::size_t>(last - first));
    return found != nullptr ? static_cast<const char*>(found) : last;
}

// Behind a string whose opening quote stands before first; null when it does not end on its line.
const char* skipString(const char* first, const char* last, bool& hasEscapes) {
    for (; first != last && *first != '"'; ++first) {
        if (*first == '\\') {
            hasEscapes = true;
            ++first;
            if (first != last && *first == '\r' && first + 1 != last && first[1] == '\n') {
                ++first;
            }
            if (first == last) {
                return nullptr;
            }
        } else if (*first == '\n') {
            return nullptr;
        }
    }
    return first == last ? nullptr : first + 1;
}

// Behind a comment that starts at first; first itself when there is none, null when it does not end.
const char* skipComment(const char* first, const char* last) {
    if (last - first < 2 || *first != '/' || (first[1] != '/' && first[1] != '*')) {
        return first;
    }
    if (first[1] == '/') {
        return findLineEnd(first, last);
    }
    const std::string_view rest(first + 2, static_cast<std::size_t>(last - first - 2));
    const std::size_t close = rest.find("*/");
    return close == std::string_view::npos ? nullptr : rest.data() + close + 2;
}

bool startsComment(const char* first, const char* last) {
    return last - first >= 2 && *first == '/' && (first[1] == '/' || first[1] == '*');
}

TokenKind scenePunctuation(char byte) {
    switch (byte) {
    case '(':
        return TokenKind::kOpenParen;
    case ')':
        return TokenKind::kCloseParen;
    case '{':
        return TokenKind::kOpenBrace;
    case '}':
        return TokenKind::kCloseBrace;
    case ',':
        return TokenKind::kComma;
    case ';':
        return TokenKind::kSemicolon;
    case '+':
        return TokenKind::kPlus;
    default:
        return TokenKind::kError;
    }
}

bool startsUnsignedNumber(const char* first, const char* last) {
    if (first != last && *first == '.') {
        ++first;
    }
    return first != last && isOf(*first, kDigitByte);
}

// The (ind) of nan(ind) belongs to the word, though parentheses end words.
bool isNanWord(std::string_view word) {
    if (!word.empty() && (word.front() == '-' || word.front() == '+')) {
        word.remove_prefix(1);
    }
    return word.size() == 3 && (word[0] | 32) == 'n' && (word[1] | 32) == 'a' && (word[2] | 32) == 'n';
}

} // namespace

SourcePosition Lexer::position(std::size_t offset) {
    offset = std::min(offset, text_.size());
    if (offset < knownOffset_) {
        knownOffset_ = 0;
        knownLine_ = 1;
    }
    const char* target = begin() + offset;
    const char* line = begin() + knownOffset_;
    for (const char* next = findLineEnd(line, target); next != target; next = findLineEnd(line, target)) {
        line = next + 1;
        ++knownLine_;
    }
    knownOffset_ = static_cast<std::size_t>(line - begin());
    return {knownLine_, offset - knownOffset_ + 1};
}

Token Lexer::take(TokenKind kind, std::size_t length) {
    const Token token{kind, false, offset_, text_.substr(offset_, length)};
    offset_ += length;
    return token;
}

Token Lexer::fail(std::size_t offset, std::string_view message, std::size_t next) {
    offset_ = next;
    return {TokenKind::kError, false, offset, message};
}

bool Lexer::skipBlanks(Token& error) {
    const char* next = begin() + offset_;
    if (offset_ == 0 && text_.substr(0, 3) == "\xEF\xBB\xBF") {
        next += 3; // editors on Windows put a byte order mark before UTF-8
    }
    while (next != end()) {
        if (isOf(*next, kBlankByte)) {
            ++next;
            continue;
        }
        const char* behind = skipComment(next, end());
        if (behind == nullptr) {
            error = fail(static_cast<std::size_t>(next - begin()), kUnterminatedComment, text_.size());
            return false;
        }
        if (behind == next) {
            break;
        }
        next = behind;
    }
    offset_ = static_cast<std::size_t>(next - begin());
    return true;
}

Token Lexer::takeString() {
    const std::size_t opening = offset_;
    bool hasEscapes = false;
    const char* behind = skipString(begin() + opening + 1, end(), hasEscapes);
    if (behind == nullptr) {
        const char* lineEnd = findLineEnd(begin() + opening, end());
        return fail(opening, kUnterminatedString, static_cast<std::size_t>(lineEnd - begin()));
    }
    offset_ = static_cast<std::size_t>(behind - begin());
    return {TokenKind::kString, hasEscapes, opening, text_.substr(opening + 1, offset_ - opening - 2)};
}

Token Lexer::takeWord() {
    const char* first = begin() + offset_;
    const char* next = first + (*first == '+' ? 1 : 0);
    const bool isNumber = startsUnsignedNumber(first + (*first == '+' || *first == '-' ? 1 : 0), end());
    for (; next != end(); ++next) {
        const bool isExponentSign = *next == '+' && isNumber && (next[-1] | 32) == 'e';
        if (!(isOf(*next, kSceneWordByte) || isExponentSign) || (*next == '/' && startsComment(next, end()))) {
            break;
        }
    }
    if (next != end() && *next == '(' && isNanWord({first, static_cast<std::size_t>(next - first)})) {
        const std::string_view rest(next, static_cast<std::size_t>(end() - next));
        next += rest.substr(0, 5) == "(ind)" ? 5 : rest.substr(0, 6) == "(snan)" ? 6 : 0;
    }
    return take(TokenKind::kWord, static_cast<std::size_t>(next - first));
}

Token Lexer::nextSceneToken() {
    Token error;
    if (!skipBlanks(error)) {
        return error;
    }
    if (offset_ == text_.size()) {
        return take(TokenKind::kEnd, 0);
    }
    const char* first = begin() + offset_;
    if (*first == '"') {
        return takeString();
    }
    if (isOf(*first, kSceneWordByte) || (*first == '+' && startsUnsignedNumber(first + 1, end()))) {
        return takeWord();
    }
    const TokenKind kind = scenePunctuation(*first);
    return kind != TokenKind::kError ? take(kind, 1) : fail(offset_, kStrayByte, offset_ + 1);
}

Token Lexer::peekSceneToken() {
    const std::size_t start = offset_;
    const Token token = nextSceneToken();
    offset_ = start;
    return token;
}

bool Lexer::readString(std::string_view& value, std::string& storage) {
    const std::size_t start = offset_;
    Token token = nextSceneToken();
    if (token.is(TokenKind::kString)) {
        value = decodeString(token, storage);
        return true;
    }
    std::string joined;
    std::string piece;
    bool isExpected = token.is(TokenKind::kOpenParen);
    while (isExpected) {
        token = nextSceneToken();
        isExpected = token.is(TokenKind::kString);
        if (isExpected) {
            joined += decodeString(token, piece);
            token = nextSceneToken();
        }
        if (isExpected && token.is(TokenKind::kCloseParen)) {
            storage = std::move(joined);
            value = storage;
            return true;
        }
        isExpected = isExpected && token.is(TokenKind::kPlus);
    }
    offset_ = start;
    return false;
}

Token Lexer::skipStatement() {
    std::size_t depth = 0;
    const char* next = begin() + offset_;
    while (next != end()) {
        const char* at = next++;
        switch (*at) {
        case '(':
        case '{':
            ++depth;
            break;
        case ')':
        case '}':
            depth -= depth > 0 ? 1 : 0;
            break;
        case ';':
            if (depth == 0) {
                offset_ = static_cast<std::size_t>(at - begin());
                return take(TokenKind::kSemicolon, 1);
            }
            break;
        case '"':
        case '/':
            offset_ = static_cast<std::size_t>(at - begin());
            if (const Token token = skipStringOrComment(); token.is(TokenKind::kError)) {
                return token;
            }
            next = begin() + offset_;
            break;
        default:
            break;
        }
    }
    offset_ = text_.size();
    return take(TokenKind::kEnd, 0);
}

// Skips what starts at the position: a string, a comment, or else one byte.
Token Lexer::skipStringOrComment() {
    const std::size_t start = offset_;
    if (text_[start] == '"') {
        return takeString();
    }
    Token error;
    if (skipBlanks(error) && offset_ == start) {
        ++offset_;
    }
    return error;
}

std::string_view decodeString(const Token& token, std::string& storage) {
    if (!token.hasEscapes) {
        return token.text;
    }
    storage.clear();
    storage.reserve(token.text.size());
    for (std::size_t at = 0; at < token.text.size(); ++at) {
        if (token.text[at] != '\\' || at + 1 == token.text.size()) {
            storage += token.text[at];
            continue;
        }
        const char escaped = token.text[++at];
        switch (escaped) {
        case 'n':
            storage += '\n';
            break;
        case 't':
            storage += '\t';
            break;
        case 'r':
            storage += '\r';
            break;
        case '\r':
            at += token.text.substr(at + 1, 1) == "\n" ? 1 : 0;
            break;
        case '\n':
            break;
        default:
            storage += escaped;
        }
    }
    return storage;
}

} // namespace host::mel
