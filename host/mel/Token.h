#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/mel/Value.h"

namespace host::mel {

// Place in a text, both counted from 1; a column is a byte within its line.
struct SourcePosition {
    std::size_t line = 1;
    std::size_t column = 1;
};

enum class TokenKind : std::uint8_t {
    kEnd,      // end of the text; repeats for ever
    kError,    // broken text; the reader has moved on by at least one byte
    kWord,     // scene face: any unquoted run, numbers and flags included; MEL face: an identifier or an object name
    kString,   // text between double quotes
    kInt,      // MEL face only
    kFloat,    // MEL face only
    kVariable, // MEL face only: $name
    kFlag,     // command arguments only: -name
    kOpenParen,
    kCloseParen,
    kOpenBrace,
    kCloseBrace,
    kOpenBracket,
    kCloseBracket,
    kComma,
    kSemicolon,
    kPlus, // last kind of punctuation that the scene face knows
    kMinus,
    kStar,
    kSlash,
    kPercent,
    kCaret,
    kAssign,
    kPlusAssign,
    kMinusAssign,
    kStarAssign,
    kSlashAssign,
    kPercentAssign,
    kCaretAssign,
    kIncrement,
    kDecrement,
    kEqual,
    kNotEqual,
    kLess,
    kLessEqual,
    kGreater,
    kGreaterEqual,
    kAnd,
    kOr,
    kNot,
    kQuestion,
    kColon,
    kDot,
    kBacktick,
    kVectorOpen,  // <<
    kVectorClose, // >>
};

// A view into the lexed text; valid as long as that text is.
struct Token {
    TokenKind kind = TokenKind::kEnd;
    bool hasEscapes = false; // strings only: the raw text holds a backslash
    std::size_t offset = 0;  // of the first byte (the opening quote of a string)
    std::string_view text;   // raw bytes: strings without their quotes, variables without '$', flags with '-';
                             // for kError a message in static storage

    bool is(TokenKind wanted) const { return kind == wanted; }
    bool isWord(std::string_view wanted) const { return kind == TokenKind::kWord && text == wanted; }
};

// How a token is named in a message: "';'", "end of text", "word 'x'".
std::string describeToken(const Token& token);

// The same for a kind that was expected: "';'", "a string".
std::string_view describeKind(TokenKind kind);

// The number that a kInt (decimal or hexadecimal, clamped to 64 bits) or kFloat token stands for, sign included.
Value numberOf(const Token& token);

} // namespace host::mel
