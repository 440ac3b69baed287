#pragma once

#include "host/geometry/PolyFaces.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

/// Makes PolyFaces from the tokens of a scene file as they are read: f, h, mu, mf, mh, mc, fc and their numbers.
/// A list cut into chunks ("fc[0:499]", "fc[500:999]") goes through one builder, startChunk() before each.
/// Every step returns false when the input cannot be right; error() then says what was wrong, one line without a full
/// stop ("face 3: 4 corners but 3 ids in set 0"), and every later step fails too.
class PolyFacesBuilder {
public:
    PolyFacesBuilder() : faces_(std::make_unique<PolyFaces>()) {}
    /// Goes on where an earlier builder ended.
    explicit PolyFacesBuilder(const PolyFaces& soFar) : faces_(std::make_unique<PolyFaces>(soFar)) {}

    /// `firstFace` is the lower index of the chunk: 0 begins anew, the number of faces so far goes on; anything else is
    /// an error.
    [[nodiscard]] bool startChunk(std::int32_t firstFace);
    [[nodiscard]] bool token(std::string_view word);
    /// The next number after the last token.
    [[nodiscard]] bool number(std::int32_t value) {
        if (wanted_ == Wanted::kItems && remaining_ > 0) { // false after an error too
            items_->push_back(value);
            --remaining_;
            return true;
        }
        return header(value);
    }
    /// No chunk may end within a face.
    [[nodiscard]] bool endChunk();

    const std::string& error() const { return error_; }
    std::int32_t faceCount() const;

    /// The faces of all chunks, or null after an error. The builder is empty afterwards.
    std::shared_ptr<const PolyFaces> finish();

private:
    enum class Wanted : std::uint8_t { kToken, kLoopCount, kSetIndex, kIdCount, kItems };

    bool header(std::int32_t value);
    bool fail(const std::string& text);
    bool closeList();
    bool closeFace();
    bool openLoop();
    bool openIds(std::map<std::int32_t, FaceIds>& sets, bool namesSet);
    bool openIdList(std::int32_t count);

    std::unique_ptr<PolyFaces> faces_;
    std::vector<std::int32_t>* items_ = nullptr;               // where the numbers of the current list go
    std::map<std::int32_t, FaceIds>* sets_ = nullptr;          // the sets that the current ids belong to
    std::int32_t set_ = 0;                                     // and which of them
    std::vector<std::pair<std::int32_t, FaceIds*>> idsOfFace_; // what the current face has ids in, checked at its end
    std::int32_t remaining_ = 0;
    Wanted wanted_ = Wanted::kToken;
    bool faceOpen_ = false;
    std::string error_;
};

} // namespace host
