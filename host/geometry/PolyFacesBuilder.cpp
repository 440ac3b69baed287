#include "host/geometry/PolyFacesBuilder.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace host {

namespace {

enum class Action : std::uint8_t { kOuterLoop, kHole, kUvsOfSet, kUvs, kColorsOfSet, kColors };

struct Word {
    std::string_view text;
    Action action;
};

constexpr Word kWords[] = {
    {"f", Action::kOuterLoop}, {"h", Action::kHole},         {"mu", Action::kUvsOfSet}, {"mf", Action::kUvs},
    {"mh", Action::kUvs},      {"mc", Action::kColorsOfSet}, {"fc", Action::kColors},
};

constexpr std::int32_t kFewestEdges = 3;

std::int32_t sizeOf(const std::vector<std::int32_t>& list) {
    return static_cast<std::int32_t>(list.size());
}

} // namespace

std::int32_t PolyFacesBuilder::faceCount() const {
    return faces_->faceCount() + (faceOpen_ ? 1 : 0);
}

bool PolyFacesBuilder::fail(const std::string& text) {
    if (error_.empty()) {
        error_ = "face " + std::to_string(faces_->faceCount()) + ": " + text;
    }
    wanted_ = Wanted::kToken;
    remaining_ = 0;
    return false;
}

bool PolyFacesBuilder::startChunk(std::int32_t firstFace) {
    if (!error_.empty()) {
        return false;
    }
    if (firstFace == 0) {
        *faces_ = PolyFaces();
        return true;
    }
    return firstFace == faces_->faceCount() || fail("expected the faces from " + std::to_string(faces_->faceCount()) +
                                                    " on, got those from " + std::to_string(firstFace) + " on");
}

bool PolyFacesBuilder::token(std::string_view word) {
    if (!error_.empty() || !closeList()) {
        return false;
    }
    const auto row =
        std::find_if(std::begin(kWords), std::end(kWords), [&](const Word& each) { return each.text == word; });
    if (row == std::end(kWords)) {
        return fail("unknown word '" + std::string(word) + "'");
    }
    if (row->action != Action::kOuterLoop && !faceOpen_) {
        return fail("'" + std::string(word) + "' before the first 'f'");
    }
    switch (row->action) {
    case Action::kOuterLoop:
        return closeFace() && openLoop();
    case Action::kHole:
        return openLoop();
    case Action::kUvsOfSet:
    case Action::kUvs:
        return openIds(faces_->uvIds, row->action == Action::kUvsOfSet);
    case Action::kColorsOfSet:
    case Action::kColors:
        return openIds(faces_->colorIds, row->action == Action::kColorsOfSet);
    }
    return false;
}

bool PolyFacesBuilder::openLoop() {
    faceOpen_ = true;
    wanted_ = Wanted::kLoopCount;
    return true;
}

bool PolyFacesBuilder::openIds(std::map<std::int32_t, FaceIds>& sets, bool namesSet) {
    sets_ = &sets;
    set_ = 0;
    wanted_ = namesSet ? Wanted::kSetIndex : Wanted::kIdCount;
    return true;
}

bool PolyFacesBuilder::openIdList(std::int32_t count) {
    FaceIds& ids = (*sets_)[set_];
    const std::int32_t face = faces_->faceCount();
    if (ids.faces.empty() || ids.faces.back() != face) {
        ids.faces.push_back(face);
        ids.starts.push_back(sizeOf(ids.ids));
        idsOfFace_.emplace_back(set_, &ids);
    }
    items_ = &ids.ids;
    remaining_ = count;
    wanted_ = Wanted::kItems;
    return true;
}

bool PolyFacesBuilder::header(std::int32_t value) {
    if (!error_.empty()) {
        return false;
    }
    const std::string got = ", got " + std::to_string(value);
    switch (wanted_) {
    case Wanted::kLoopCount:
        if (value < kFewestEdges) {
            return fail("expected a number of edges of at least 3" + got);
        }
        items_ = &faces_->edges;
        remaining_ = value;
        wanted_ = Wanted::kItems;
        return true;
    case Wanted::kSetIndex:
        if (value < 0) {
            return fail("expected the index of a set" + got);
        }
        set_ = value;
        wanted_ = Wanted::kIdCount;
        return true;
    case Wanted::kIdCount:
        return value < 0 ? fail("expected a number of ids" + got) : openIdList(value);
    case Wanted::kItems:
    case Wanted::kToken:
        break;
    }
    return fail("expected one of f, h, mu, mf, mh, mc, fc" + got);
}

bool PolyFacesBuilder::closeList() {
    if (wanted_ == Wanted::kToken) {
        return true;
    }
    if (wanted_ != Wanted::kItems) {
        return fail("expected a count");
    }
    if (remaining_ > 0) {
        return fail(std::to_string(remaining_) + " numbers are missing");
    }
    if (items_->size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        return fail("more than 2147483647 corners");
    }
    if (items_ == &faces_->edges) {
        faces_->loopStarts.push_back(sizeOf(faces_->edges));
    } else {
        (*sets_)[set_].starts.back() = sizeOf(*items_);
    }
    wanted_ = Wanted::kToken;
    return true;
}

bool PolyFacesBuilder::closeFace() {
    if (!faceOpen_) {
        return true;
    }
    const std::int32_t corners =
        sizeOf(faces_->edges) - faces_->loopStarts[static_cast<std::size_t>(faces_->faceStarts.back())];
    for (const auto& [set, ids] : idsOfFace_) {
        const std::int32_t count = ids->starts.back() - *(ids->starts.end() - 2);
        if (count != corners) {
            return fail(std::to_string(corners) + " corners but " + std::to_string(count) + " ids in set " +
                        std::to_string(set));
        }
    }
    idsOfFace_.clear();
    faces_->faceStarts.push_back(sizeOf(faces_->loopStarts) - 1);
    faceOpen_ = false;
    return true;
}

bool PolyFacesBuilder::endChunk() {
    return error_.empty() && closeList() && closeFace();
}

std::shared_ptr<const PolyFaces> PolyFacesBuilder::finish() {
    std::shared_ptr<const PolyFaces> result;
    if (endChunk()) {
        result = std::move(faces_);
    }
    *this = PolyFacesBuilder();
    return result;
}

} // namespace host
