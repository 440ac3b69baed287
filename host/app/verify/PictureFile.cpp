#include "host/app/verify/PictureFile.h"

#include <algorithm>
#include <array>

namespace host::app::verify {
namespace {

constexpr int kLongestSide = 1024;
constexpr std::size_t kTgaHead = 18;
constexpr std::size_t kPicHead = 104;

// Reads on through the bytes; a PictureError at their end.
class Bytes {
public:
    explicit Bytes(std::string_view all, std::size_t start = 0) : all_(all), at_(start) {}

    unsigned int next() {
        if (at_ >= all_.size()) {
            throw PictureError("it ends too early");
        }
        return static_cast<unsigned char>(all_[at_++]);
    }
    unsigned int next16() {
        const unsigned int low = next();
        return low | next() << 8U;
    }
    unsigned int nextBig16() {
        const unsigned int high = next();
        return high << 8U | next();
    }
    std::size_t next32() {
        const unsigned int low = next16();
        return low | static_cast<std::size_t>(next16()) << 16U;
    }
    std::string_view take(std::size_t count) {
        if (count > all_.size() - std::min(at_, all_.size())) {
            throw PictureError("it ends too early");
        }
        at_ += count;
        return all_.substr(at_ - count, count);
    }
    std::size_t left() const { return all_.size() - std::min(at_, all_.size()); }

private:
    std::string_view all_;
    std::size_t at_;
};

std::uint8_t eightBits(unsigned int five) {
    five &= 31U;
    return static_cast<std::uint8_t>(five << 3U | five >> 2U);
}

std::uint8_t byteOf(unsigned int value) {
    return static_cast<std::uint8_t>(value);
}

std::vector<std::uint16_t> wordsOf(std::string_view bytes) {
    Bytes reader(bytes);
    std::vector<std::uint16_t> words;
    while (reader.left() >= 2) {
        words.push_back(static_cast<std::uint16_t>(reader.next16()));
    }
    return words;
}

OwnTexels readOwnTexels(std::string_view bytes, std::size_t start) {
    OwnTexels own;
    Bytes reader(bytes, start);
    const std::size_t whole = reader.left();
    while (reader.left() >= 12) {
        const std::string tag(reader.take(8));
        const std::size_t size = reader.next32();
        if (size < 12 || size > whole || tag == "tvk_endb") {
            break;
        }
        const std::string_view payload = reader.take(size - 12);
        if (tag == "tvk_frmt") {
            own.format = std::string(payload);
        } else if (tag == "tvk_c0xp") {
            own.hasClearColor = true;
        } else if (tag == "tvk_txel") {
            own.texels = wordsOf(payload);
        } else if (tag == "tvk_pidx") {
            own.paletteEntries = wordsOf(payload);
        } else if (tag == "tvk_pnam") {
            own.paletteName = std::string(payload);
        } else if (tag == "tvk_pcol") {
            own.colors = wordsOf(payload);
        }
    }
    return own;
}

void findOwnTexels(std::string_view bytes, std::size_t textAt, std::string_view text, std::size_t offsetAt,
                   std::size_t least, PictureFile& picture) {
    if (bytes.size() < offsetAt + 4 || bytes.substr(textAt, text.size()) != text) {
        return;
    }
    const std::size_t offset = Bytes(bytes, offsetAt).next32();
    if (offset >= least && offset < bytes.size()) {
        picture.own = readOwnTexels(bytes, offset);
    }
}

void makeRoom(PictureFile& picture) {
    if (picture.width < 1 || picture.height < 1 || picture.width > kLongestSide || picture.height > kLongestSide) {
        throw PictureError("its size is none that a console has");
    }
    picture.pixels.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
}

class TgaReader {
public:
    explicit TgaReader(std::string_view bytes) : all_(bytes), reader_(bytes) {}

    PictureFile read() {
        const std::size_t idLength = reader_.next();
        const bool hasMap = reader_.next() != 0;
        type_ = reader_.next();
        const std::size_t first = reader_.next16();
        const std::size_t length = reader_.next16();
        const unsigned int mapBits = reader_.next();
        reader_.take(4);
        picture_.width = static_cast<int>(reader_.next16());
        picture_.height = static_cast<int>(reader_.next16());
        bits_ = reader_.next();
        descriptor_ = reader_.next();
        reader_.take(idLength);
        makeRoom(picture_);
        if (hasMap) {
            map_.resize(first);
            for (std::size_t i = 0; i < length; ++i) {
                map_.push_back(pixel(mapBits));
            }
        }
        hasAlpha_ = isMapped() ? mapBits == 32 : (descriptor_ & 15U) != 0;
        readPixels();
        if (idLength >= 20) {
            findOwnTexels(all_, kTgaHead, std::string_view("TVK_Tga Ver 1.0\0", 16), 34, 38, picture_);
        }
        return std::move(picture_);
    }

private:
    bool isMapped() const { return (type_ & 7U) == 1; }

    Pixel pixel(unsigned int bits) {
        if (bits == 8) {
            const std::uint8_t grey = byteOf(reader_.next());
            return {grey, grey, grey, 255};
        }
        if (bits == 15 || bits == 16) {
            const unsigned int word = reader_.next16();
            return {eightBits(word >> 10U), eightBits(word >> 5U), eightBits(word), 255};
        }
        if (bits != 24 && bits != 32) {
            throw PictureError("its pixels have a number of bits that no console tool reads");
        }
        Pixel result;
        result.b = byteOf(reader_.next());
        result.g = byteOf(reader_.next());
        result.r = byteOf(reader_.next());
        result.a = bits == 32 ? byteOf(reader_.next()) : std::uint8_t{255};
        return result;
    }

    Pixel nextPixel() {
        Pixel result;
        if (isMapped()) {
            const std::size_t index = bits_ == 8 ? reader_.next() : reader_.next16();
            result = index < map_.size() ? map_[index] : Pixel{};
        } else {
            result = pixel(bits_);
        }
        result.a = hasAlpha_ ? result.a : std::uint8_t{255};
        return result;
    }

    void readPixels() {
        const bool hasRuns = type_ >= 9;
        for (std::size_t at = 0; at < picture_.pixels.size();) {
            const unsigned int head = hasRuns ? reader_.next() : 0;
            const bool repeats = (head & 128U) != 0;
            Pixel value = nextPixel();
            for (unsigned int i = 0; i <= (head & 127U) && at < picture_.pixels.size(); ++i) {
                value = i == 0 || repeats ? value : nextPixel();
                picture_.pixels[placeOf(at++)] = value;
            }
        }
    }

    // Where the file's n-th pixel stands in the picture.
    std::size_t placeOf(std::size_t number) const {
        const auto width = static_cast<std::size_t>(picture_.width);
        const auto height = static_cast<std::size_t>(picture_.height);
        std::size_t row = number / width;
        std::size_t column = number % width;
        const unsigned int interleave = descriptor_ >> 6U;
        const std::size_t ways = interleave == 1 ? 2 : interleave == 2 ? 4 : 1;
        std::size_t pass = 0;
        for (std::size_t left = row; ways > 1; ++pass) {
            const std::size_t rows = (height - std::min(pass, height) + ways - 1) / ways;
            if (left < rows || pass + 1 == ways) {
                row = pass + left * ways;
                break;
            }
            left -= rows;
        }
        row = (descriptor_ & 32U) != 0 ? row : height - 1 - row;
        column = (descriptor_ & 16U) != 0 ? width - 1 - column : column;
        return row * width + column;
    }

    std::string_view all_;
    Bytes reader_;
    PictureFile picture_;
    std::vector<Pixel> map_;
    unsigned int type_ = 0, bits_ = 0, descriptor_ = 0;
    bool hasAlpha_ = false;
};

class PicReader {
public:
    explicit PicReader(std::string_view bytes) : all_(bytes), reader_(bytes) {}

    PictureFile read() {
        reader_.take(92);
        picture_.width = static_cast<int>(reader_.nextBig16());
        picture_.height = static_cast<int>(reader_.nextBig16());
        reader_.take(kPicHead - 96);
        makeRoom(picture_);
        for (bool isChained = true; isChained;) {
            isChained = reader_.next() != 0;
            reader_.next();
            const unsigned int type = reader_.next() & 15U;
            packets_.push_back({type, reader_.next()});
        }
        for (int row = 0; row < picture_.height; ++row) {
            for (const Packet& packet : packets_) {
                readLine(packet, row);
            }
        }
        findOwnTexels(all_, 8, "TVK_Pic Ver 1.0", 24, kPicHead, picture_);
        return std::move(picture_);
    }

private:
    struct Packet {
        unsigned int type, channels;
    };

    void readLine(const Packet& packet, int row) {
        for (int column = 0; column < picture_.width;) {
            const unsigned int head = packet.type == 0 ? 0 : reader_.next();
            const bool isLiteral = packet.type == 0 || (packet.type == 2 && head < 128);
            unsigned int count = packet.type == 1 ? head : head == 128 ? reader_.nextBig16() : head - 127;
            count = packet.type == 0 ? static_cast<unsigned int>(picture_.width) : isLiteral ? head + 1 : count;
            if (count == 0) {
                throw PictureError("a run of no pixels");
            }
            std::array<unsigned int, 4> values{};
            for (unsigned int i = 0; i < count && column < picture_.width; ++i) {
                if (i == 0 || isLiteral) {
                    readChannels(packet.channels, values);
                }
                set(packet.channels, values, column++, row);
            }
        }
    }

    void readChannels(unsigned int channels, std::array<unsigned int, 4>& values) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            if ((channels & 0x80U >> i) != 0) {
                values.at(i) = reader_.next();
            }
        }
    }

    void set(unsigned int channels, const std::array<unsigned int, 4>& values, int column, int row) {
        Pixel& pixel = picture_.pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(picture_.width) +
                                       static_cast<std::size_t>(column)];
        std::uint8_t* const parts[] = {&pixel.r, &pixel.g, &pixel.b, &pixel.a};
        for (std::size_t i = 0; i < values.size(); ++i) {
            if ((channels & 0x80U >> i) != 0) {
                *parts[i] = byteOf(values.at(i));
            }
        }
    }

    std::string_view all_;
    Bytes reader_;
    PictureFile picture_;
    std::vector<Packet> packets_;
};

} // namespace

const Pixel& PictureFile::at(int column, int row) const {
    const auto x = static_cast<std::size_t>(std::clamp(column, 0, width - 1));
    const auto y = static_cast<std::size_t>(std::clamp(row, 0, height - 1));
    return pixels[y * static_cast<std::size_t>(width) + x];
}

PictureFile readPicture(std::string_view bytes) {
    const bool isPic = bytes.substr(0, 4) == std::string_view("\x53\x80\xF6\x34", 4);
    return isPic ? PicReader(bytes).read() : TgaReader(bytes).read();
}

} // namespace host::app::verify
