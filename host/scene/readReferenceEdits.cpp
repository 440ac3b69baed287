#include "host/scene/readReferenceEdits.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

namespace host {

namespace {

/// How many texts each kind of edit has at most. What follows is the name of the next block.
constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();
constexpr std::array<std::size_t, 10> kMostTexts = {3, 4, 3, 3, 3, 7, kAnyNumber, kAnyNumber, 2, 2};

struct Item {
    bool isNumber = false;
    std::int64_t number = 0;
    std::string text;
};

Outcome readItems(ArgumentStream& arguments, std::vector<Item>& items) {
    while (!arguments.atEnd()) {
        Item item;
        std::string_view text;
        const bool isQuoted = arguments.takeString(text);
        item.isNumber = !isQuoted && arguments.takeInteger(item.number);
        if (!isQuoted && !item.isNumber && !arguments.takeText(text)) {
            return Outcome::broken(arguments, "an edit of a reference");
        }
        item.text = item.isNumber ? std::string() : std::string(text);
        items.push_back(std::move(item));
    }
    return Outcome::done();
}

class EditSorter {
public:
    explicit EditSorter(std::vector<Item> items) : items_(std::move(items)) {}

    std::vector<ReferenceEditBlock> run() {
        blocks_.push_back({items_.front().text, {}}); // for edits before the first block
        for (at_ = 1; at_ < items_.size();) {
            if (items_[at_].isNumber) {
                takeEdit();
            } else {
                takeHeading();
            }
        }
        return std::move(blocks_);
    }

private:
    bool isNumber(std::size_t at) const { return at < items_.size() && items_[at].isNumber; }
    bool isText(std::size_t at) const { return at < items_.size() && !items_[at].isNumber; }

    void takeHeading() {
        if (isNumber(at_ + 1)) {
            blocks_.push_back({std::move(items_[at_].text), {}});
            left_ = std::max<std::int64_t>(items_[at_ + 1].number, 0);
            ++at_;
        }
        ++at_;
    }

    void takeEdit() {
        ReferenceEdit edit;
        const std::int64_t kind = items_[at_++].number;
        edit.kind = kind >= 0 && kind < static_cast<std::int64_t>(kMostTexts.size()) ? static_cast<int>(kind) : -1;
        at_ += edit.kind == ReferenceEdit::kConnect && isNumber(at_) ? 1 : 0; // which end is the reference's
        takeTexts(edit);
        if (edit.kind == ReferenceEdit::kRelationship || edit.kind == ReferenceEdit::kRelationshipToo) {
            takeMembers(edit);
        }
        --left_;
        const std::size_t most = edit.kind < 0 ? kAnyNumber : kMostTexts[static_cast<std::size_t>(edit.kind)];
        if (isNumber(at_) && !edit.texts.empty() && (left_ == 0 || edit.texts.size() > most)) {
            items_[--at_].text = std::move(edit.texts.back());
            edit.texts.pop_back();
        }
        blocks_.back().edits.push_back(std::move(edit));
    }

    void takeTexts(ReferenceEdit& edit) {
        for (; isText(at_); ++at_) {
            edit.texts.push_back(std::move(items_[at_].text));
        }
    }

    // A relationship counts its members in its midst: a number with just as many texts behind it.
    void takeMembers(ReferenceEdit& edit) {
        std::size_t count = 0;
        while (isNumber(at_) && isText(at_ + 1 + count)) {
            ++count;
        }
        if (count > 0 && items_[at_].number == static_cast<std::int64_t>(count)) {
            ++at_;
            takeTexts(edit);
        }
    }

    std::vector<Item> items_;
    std::size_t at_ = 0;
    std::int64_t left_ = 0; // edits of the block that is read
    std::vector<ReferenceEditBlock> blocks_;
};

} // namespace

Outcome readReferenceEdits(ArgumentStream& arguments, std::vector<ReferenceEditBlock>& blocks) {
    std::vector<Item> items;
    Outcome outcome = readItems(arguments, items);
    if (outcome.ok() && (items.empty() || items.front().isNumber)) {
        return Outcome::broken(arguments, "the name of a reference node");
    }
    if (outcome.ok()) {
        blocks = EditSorter(std::move(items)).run();
    }
    return outcome;
}

} // namespace host
