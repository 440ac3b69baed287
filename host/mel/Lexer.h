#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/mel/Token.h"

namespace host::mel {

// Streaming lexer over text that it neither owns nor copies (a memory-mapped file may be gigabytes long).
//
// It has two faces on one position, free to be mixed:
//   scene face  nextSceneToken and the read… functions: the statements of Maya ASCII files;
//   MEL face    nextToken (expressions, statements) and nextArgument (arguments of a command statement).
// Blanks, line feeds and both kinds of comments are skipped everywhere. Any bytes may be fed: broken text gives kError
// tokens (unterminated string or comment, stray byte) and the position always moves on, so that a loop until kEnd ends.
// Strings end on their line, as in MEL, unless the line feed follows a backslash.
class Lexer {
public:
    explicit Lexer(std::string_view text) : text_(text) {}

    std::string_view text() const { return text_; }

    // Byte offset of the next unread byte; seek takes any offset that a token or offset() gave.
    std::size_t offset() const { return offset_; }
    void seek(std::size_t offset) { offset_ = offset; }

    // Line and column of an offset. Costs a scan from the last asked-for offset (from the start when going back).
    SourcePosition position(std::size_t offset);

    // --- scene face: kWord, kString, ( ) { } , ; + kEnd kError ---
    Token nextSceneToken();
    Token peekSceneToken();

    // Reads one number if the next token is one, else leaves the position alone and returns false. Takes C forms with
    // either sign, hexadecimal integers, and what Windows and other C libraries write: 1e+020, 1.#INF,
    // -1.#IND, 1.#QNAN, nan, inf, -nan(ind). Too large gives infinity, too small zero. A number ends at a blank, ; , (
    // ) { } or a comment.
    bool readNumber(double& value);

    // The same for integers; a number with a fraction is cut towards zero, one beyond 64 bits or NaN is refused.
    bool readInteger(std::int64_t& value);

    // Fills values[0 … count) as far as numbers follow each other; returns how many were read.
    std::size_t readNumbers(double* values, std::size_t count);
    std::size_t readNumbers(float* values, std::size_t count);

    // Reads "text" or ( "piece" + "piece" … ) if one of them is next, else leaves the position alone and returns false.
    // The view points into the lexed text when no byte had to change, else into storage.
    bool readString(std::string_view& value, std::string& storage);

    // Skips to behind the next ';' that stands outside strings, comments, parentheses and braces. Returns that
    // semicolon, or kEnd when the text ended first, or kError (unterminated string or comment).
    Token skipStatement();

    // --- MEL face ---
    Token nextToken();

    // The next argument of a command statement: flags (-name), signed numbers, object names (|a|b:c.vtx[0:3], a*) as
    // kWord, else what nextToken gives. A minus before anything else than a letter or a number is a kMinus.
    Token nextArgument();

private:
    bool skipBlanks(Token& error);
    Token take(TokenKind kind, std::size_t length);
    Token fail(std::size_t offset, std::string_view message, std::size_t next);
    Token takeString();
    Token takeWord();
    Token skipStringOrComment();
    Token takeMelNumber();
    Token takeVariable();
    Token takeOperator();
    Token takeObjectName(std::size_t begin);
    const char* begin() const { return text_.data(); }
    const char* end() const { return text_.data() + text_.size(); }

    std::string_view text_;
    std::size_t offset_ = 0;
    std::size_t knownOffset_ = 0; // a line start whose line number is known
    std::size_t knownLine_ = 1;
};

// The value of a kString token: escapes \n \t \r \" \\ are replaced, any other escaped byte stands for itself, an
// escaped line feed vanishes. Without escapes the result is the token's own view and storage stays untouched.
std::string_view decodeString(const Token& token, std::string& storage);

} // namespace host::mel
