#include "host/nodes/expressionText.h"

#include <algorithm>

namespace host {

namespace {

constexpr std::size_t kMostOutputs = 65536;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool isNamePart(char c) {
    return isNameStart(c) || isDigit(c);
}

/// Walks an expression piece by piece: strings and comments, `.I[` and `.O[`, words, and single bytes.
class Pieces {
public:
    explicit Pieces(std::string_view text) : text_(text) {}

    enum class Kind { kInput, kOutput, kWord, kOther };

    bool next() {
        if (at_ >= text_.size()) {
            return false;
        }
        const std::size_t length = lengthOfNext();
        piece_ = text_.substr(at_, length);
        previous_ = piece_.back();
        at_ += length;
        return true;
    }

    Kind kind() const { return kind_; }
    std::string_view piece() const { return piece_; }

    /// What follows, without blanks in front.
    std::string_view rest() const {
        const std::size_t begin = text_.find_first_not_of(" \t\r\n", at_);
        return begin == std::string_view::npos ? std::string_view() : text_.substr(begin);
    }

private:
    std::size_t lengthOfNext() {
        const std::string_view rest = text_.substr(at_);
        kind_ = Kind::kOther;
        if (rest.substr(0, 2) == "//") {
            return std::min(rest.find('\n'), rest.size());
        }
        if (rest.substr(0, 2) == "/*") {
            const std::size_t end = rest.find("*/", 2);
            return end == std::string_view::npos ? rest.size() : end + 2;
        }
        if (rest.front() == '"') {
            return lengthOfString(rest);
        }
        if (isAddress(rest)) {
            kind_ = rest[1] == 'I' ? Kind::kInput : Kind::kOutput;
            return 2;
        }
        if (rest.front() == '$' || isNameStart(rest.front())) {
            std::size_t length = 1;
            while (length < rest.size() && isNamePart(rest[length])) {
                ++length;
            }
            kind_ = rest.front() == '$' || previous_ == '.' || isNamePart(previous_) ? Kind::kOther : Kind::kWord;
            return length;
        }
        return 1;
    }

    static std::size_t lengthOfString(std::string_view rest) {
        std::size_t length = 1;
        while (length < rest.size() && rest[length] != '"') {
            length += rest[length] == '\\' ? 2 : 1;
        }
        return std::min(length + 1, rest.size());
    }

    bool isAddress(std::string_view rest) const {
        return rest.size() > 3 && rest[0] == '.' && (rest[1] == 'I' || rest[1] == 'O') && rest[2] == '[' &&
               isDigit(rest[3]) && !isNamePart(previous_) && previous_ != ']' && previous_ != ')';
    }

    std::string_view text_;
    std::string_view piece_;
    std::size_t at_ = 0;
    Kind kind_ = Kind::kOther;
    char previous_ = '\n'; // the last byte of what was before
};

} // namespace

std::string expressionProcedure(std::string_view text) {
    std::string result = "global proc float[] " + std::string(kExpressionProcedure) +
                         "(float $hostIn[], float $hostOut[], float $hostFrame, float $hostTime) {\n";
    for (Pieces pieces(text); pieces.next();) {
        const bool isCalled = pieces.rest().substr(0, 1) == "(";
        if (pieces.kind() == Pieces::Kind::kInput) {
            result += "$hostIn";
        } else if (pieces.kind() == Pieces::Kind::kOutput) {
            result += "$hostOut";
        } else if (pieces.kind() == Pieces::Kind::kWord && pieces.piece() == "frame" && !isCalled) {
            result += "$hostFrame";
        } else if (pieces.kind() == Pieces::Kind::kWord && pieces.piece() == "time" && !isCalled) {
            result += "$hostTime";
        } else {
            result += pieces.piece();
        }
    }
    return result + "\n;return $hostOut;\n}\n";
}

std::size_t expressionOutputCount(std::string_view text) {
    std::size_t count = 0;
    for (Pieces pieces(text); pieces.next();) {
        if (pieces.kind() != Pieces::Kind::kOutput) {
            continue;
        }
        std::size_t index = 0;
        for (const char digit : pieces.rest().substr(1)) {
            if (!isDigit(digit) || index >= kMostOutputs) {
                break;
            }
            index = index * 10 + static_cast<std::size_t>(digit - '0');
        }
        count = std::max(count, std::min(index + 1, kMostOutputs));
    }
    return count;
}

} // namespace host
