#include "picWriter.h"

#include "ByteList.h"

#include <algorithm>

namespace tvk {
namespace {

using Value = std::vector<std::uint8_t>; // a pixel's channels of one packet

Value valueOf(const Rgba& pixel, std::uint8_t channels) {
    Value value;
    const std::uint8_t all[] = {pixel.r, pixel.g, pixel.b, pixel.a};
    for (unsigned int c = 0; c < 4; ++c) {
        if ((channels & (0x80U >> c)) != 0) {
            value.push_back(all[c]);
        }
    }
    return value;
}

std::size_t runLength(const std::vector<Value>& line, std::size_t at, std::size_t longest) {
    std::size_t run = 1;
    while (run < longest && at + run < line.size() && line[at + run] == line[at]) {
        ++run;
    }
    return run;
}

void putPureRuns(ByteList& out, const std::vector<Value>& line) {
    for (std::size_t at = 0; at < line.size();) {
        const std::size_t run = runLength(line, at, 255);
        out.byte(static_cast<unsigned int>(run)).all(line[at]);
        at += run;
    }
}

std::size_t putMixedRun(ByteList& out, const Value& value, std::size_t run) {
    if (run <= 128) {
        out.byte(static_cast<unsigned int>(127 + run)).all(value);
    } else {
        out.byte(128).big16(static_cast<unsigned int>(run)).all(value);
    }
    return run;
}

std::size_t putMixedLiterals(ByteList& out, const std::vector<Value>& line, std::size_t at, std::size_t longest) {
    std::size_t count = 1;
    while (count < longest && at + count < line.size() && runLength(line, at + count, 2) == 1) {
        ++count;
    }
    out.byte(static_cast<unsigned int>(count - 1));
    for (std::size_t i = 0; i < count; ++i) {
        out.all(line[at + i]);
    }
    return count;
}

void putMixedRuns(ByteList& out, const std::vector<Value>& line, const PicOptions& options) {
    for (std::size_t at = 0; at < line.size();) {
        const std::size_t run = runLength(line, at, options.longestRun);
        at += run > 1 ? putMixedRun(out, line[at], run) : putMixedLiterals(out, line, at, options.longestLiteral);
    }
}

void putLine(ByteList& out, const std::vector<Value>& line, std::uint8_t packing, const PicOptions& options) {
    if (packing == 1) {
        putPureRuns(out, line);
    } else if (packing == 2) {
        putMixedRuns(out, line, options);
    } else {
        std::for_each(line.begin(), line.end(), [&](const Value& value) { out.all(value); });
    }
}

} // namespace

std::vector<std::uint8_t> writePic(const Picture& picture, const PicOptions& options) {
    constexpr std::size_t kCommentBytes = 80;
    ByteList out;
    out.byte(0x53).byte(0x80).byte(0xF6).byte(0x34).zeros(4); // magic, version
    out.text(options.comment).zeros(kCommentBytes - options.comment.size()).text("PICT");
    out.big16(static_cast<unsigned int>(picture.width)).big16(static_cast<unsigned int>(picture.height));
    out.zeros(4).big16(3).zeros(2); // ratio, both fields, padding
    for (std::size_t i = 0; i < options.packets.size(); ++i) {
        const PicPacketOptions& packet = options.packets[i];
        const bool isLast = i + 1 == options.packets.size();
        out.byte(isLast ? 0 : 1).byte(packet.channelBits).byte(packet.packing).byte(packet.channels);
    }
    for (std::size_t row = 0; row < picture.height; ++row) {
        for (const PicPacketOptions& packet : options.packets) {
            std::vector<Value> line;
            for (std::size_t column = 0; column < picture.width; ++column) {
                line.push_back(valueOf(picture.at(column, row), packet.channels));
            }
            putLine(out, line, packet.packing, options);
        }
    }
    return out.bytes;
}

} // namespace tvk
