#include "host/mel/Pattern.h"

#include <algorithm>

namespace host::mel {

namespace {

using ByteSet = std::bitset<256>;

std::size_t byteIndex(char byte) {
    return static_cast<unsigned char>(byte);
}

// Reads a set whose '[' stands before at; at ends up behind the ']'. Nothing when it has no end.
std::optional<ByteSet> readSet(std::string_view source, std::size_t& at) {
    ByteSet bytes;
    const bool isInverted = at < source.size() && (source[at] == '^' || source[at] == '!');
    at += isInverted ? 1 : 0;
    for (bool isFirst = true; at < source.size() && (isFirst || source[at] != ']'); isFirst = false) {
        if (source[at] == '\\' && at + 1 < source.size()) {
            ++at;
        }
        std::size_t low = byteIndex(source[at++]);
        std::size_t high = low;
        if (at + 1 < source.size() && source[at] == '-' && source[at + 1] != ']') {
            high = byteIndex(source[at + 1]);
            at += 2;
        }
        for (; low <= high; ++low) {
            bytes.set(low);
        }
    }
    if (at >= source.size()) {
        return std::nullopt;
    }
    ++at;
    return isInverted ? ~bytes : bytes;
}

} // namespace

// Compiles piece by piece. Every piece is a run of instructions that ends by falling through to the next one, so a
// piece can be repeated by moving it one place and putting a split before it.
class Pattern::Compiler {
public:
    explicit Compiler(std::string_view source) : source_(source) {}

    bool compile(std::vector<Instruction>& program) {
        std::vector<std::size_t> groups;
        std::size_t piece = 0;
        bool hasPiece = false;
        while (at_ < source_.size()) {
            const char byte = source_[at_++];
            const bool isRepetition = byte == '*' || byte == '+' || byte == '?';
            if (isRepetition && !hasPiece) {
                return false;
            }
            if (isRepetition) {
                repeat(program, piece, byte);
                hasPiece = false;
            } else if (byte == '(') {
                groups.push_back(program.size());
                hasPiece = false;
            } else if (byte == ')') {
                if (groups.empty()) {
                    return false;
                }
                piece = groups.back();
                groups.pop_back();
                hasPiece = true;
            } else {
                piece = program.size();
                hasPiece = true;
                if (!addSimple(program, byte)) {
                    return false;
                }
            }
        }
        program.emplace_back();
        return groups.empty();
    }

private:
    bool addSimple(std::vector<Instruction>& program, char byte) {
        Instruction instruction;
        instruction.next = program.size() + 1;
        instruction.kind = Kind::kBytes;
        switch (byte) {
        case '.':
            instruction.bytes.set();
            break;
        case '^':
            instruction.kind = Kind::kTextStart;
            break;
        case '$':
            instruction.kind = Kind::kTextEnd;
            break;
        case '[': {
            const std::optional<ByteSet> bytes = readSet(source_, at_);
            if (!bytes.has_value()) {
                return false;
            }
            instruction.bytes = *bytes;
            break;
        }
        default:
            if (byte == '\\' && at_ < source_.size()) {
                byte = source_[at_++];
            }
            instruction.bytes.set(byteIndex(byte));
        }
        program.push_back(instruction);
        return true;
    }

    static void repeat(std::vector<Instruction>& program, std::size_t piece, char repetition) {
        Instruction split;
        split.kind = Kind::kSplit;
        if (repetition == '+') {
            split.next = piece;
            split.other = program.size() + 1;
            program.push_back(split);
            return;
        }
        for (std::size_t moved = piece; moved < program.size(); ++moved) {
            ++program[moved].next;
            program[moved].other += program[moved].kind == Kind::kSplit ? 1 : 0;
        }
        const bool isLoop = repetition == '*';
        split.next = piece + 1;
        split.other = program.size() + (isLoop ? 2 : 1);
        program.insert(program.begin() + static_cast<std::ptrdiff_t>(piece), split);
        if (isLoop) {
            Instruction back;
            back.kind = Kind::kSplit;
            back.next = piece;
            back.other = piece;
            program.push_back(back);
        }
    }

    std::string_view source_;
    std::size_t at_ = 0;
};

// The instructions that are reached at one place of the text.
class Pattern::Matcher {
public:
    Matcher(const std::vector<Instruction>& program, std::string_view text)
        : program_(program), text_(text), lastSeen_(program.size(), 0) {}

    std::optional<std::size_t> matchAt(std::size_t start, std::size_t& work) {
        std::optional<std::size_t> end;
        current_.clear();
        ++generation_;
        enter(0, start);
        for (std::size_t at = start; !current_.empty(); ++at) {
            work += current_.size();
            ++generation_;
            const std::vector<std::size_t> reached = std::move(current_);
            current_.clear();
            for (std::size_t instruction : reached) {
                const Instruction& taken = program_[instruction];
                if (taken.kind == Kind::kAccept) {
                    end = at;
                } else if (at < text_.size() && taken.bytes.test(byteIndex(text_[at]))) {
                    enter(taken.next, at + 1);
                }
            }
        }
        return end;
    }

private:
    // Adds what is reached from an instruction without reading a byte.
    void enter(std::size_t first, std::size_t at) {
        std::vector<std::size_t> open = {first};
        while (!open.empty()) {
            const std::size_t index = open.back();
            open.pop_back();
            if (lastSeen_[index] == generation_) {
                continue;
            }
            lastSeen_[index] = generation_;
            const Instruction& instruction = program_[index];
            switch (instruction.kind) {
            case Kind::kSplit:
                open.push_back(instruction.other);
                open.push_back(instruction.next);
                break;
            case Kind::kTextStart:
            case Kind::kTextEnd:
                if (at == (instruction.kind == Kind::kTextStart ? 0 : text_.size())) {
                    open.push_back(instruction.next);
                }
                break;
            default:
                current_.push_back(index);
            }
        }
    }

    const std::vector<Instruction>& program_;
    std::string_view text_;
    std::vector<std::size_t> lastSeen_; // generation in which an instruction was entered last
    std::size_t generation_ = 0;
    std::vector<std::size_t> current_;
};

std::optional<Pattern> Pattern::compile(std::string_view source) {
    constexpr std::size_t kMostBytes = 4096;
    Pattern pattern;
    if (source.size() > kMostBytes || !Compiler(source).compile(pattern.program_)) {
        return std::nullopt;
    }
    return pattern;
}

std::optional<Pattern::Range> Pattern::find(std::string_view text,
                                            const std::function<void(std::size_t)>& onStart) const {
    Matcher matcher(program_, text);
    for (std::size_t start = 0; start <= text.size(); ++start) {
        std::size_t work = 1;
        const std::optional<std::size_t> end = matcher.matchAt(start, work);
        onStart(work);
        if (end.has_value()) {
            return Range{start, *end - start};
        }
    }
    return std::nullopt;
}

bool matchesWildcard(std::string_view text, std::string_view pattern) {
    std::size_t at = 0;
    std::size_t next = 0;
    std::size_t star = std::string_view::npos; // the last * passed, and the text from where it may take more
    std::size_t starText = 0;
    while (at < text.size() || next < pattern.size()) {
        bool fits = false;
        std::size_t behind = next;
        if (next < pattern.size()) {
            const char byte = pattern[behind++];
            if (byte == '*') {
                star = next++;
                starText = at;
                continue;
            }
            const bool isSet = byte == '[';
            const bool isEscape = byte == '\\' && behind < pattern.size();
            const char literal = isEscape ? pattern[behind++] : byte;
            const std::optional<ByteSet> bytes = isSet ? readSet(pattern, behind) : std::nullopt;
            const bool isThere = at < text.size();
            fits = isThere && (isSet ? bytes.has_value() && bytes->test(byteIndex(text[at]))
                                     : (byte == '?' || literal == text[at]));
        }
        if (fits) {
            ++at;
            next = behind;
        } else if (star != std::string_view::npos && starText < text.size()) {
            at = ++starText;
            next = star + 1;
        } else {
            return false;
        }
    }
    return true;
}

} // namespace host::mel
