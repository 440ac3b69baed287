#include "host/graph/storedValues.h"

#include "host/graph/numberConversion.h"
#include "host/graph/plugSteps.h"

#include <algorithm>
#include <array>
#include <memory>

namespace host {

namespace {

/// The arrays from the top down to an attribute, itself included.
struct ArrayWay {
    std::array<AttrIndex, PlugAddress::kMaxDepth> arrays{};
    int count = 0;

    ArrayWay(const Node& node, AttrIndex attr) : count(node.attribute(attr).arrayDepth) {
        int left = count;
        for (AttrIndex at = attr; left > 0; at = node.attribute(at).parent) {
            if (node.attribute(at).array) {
                arrays[static_cast<std::size_t>(--left)] = at;
            }
        }
    }
    AttrIndex operator[](int level) const { return arrays[static_cast<std::size_t>(level)]; }
};

const NumberRows* rowsIn(const Value* value) {
    const auto* rows = value != nullptr ? std::get_if<std::unique_ptr<NumberRows>>(value) : nullptr;
    return rows != nullptr ? rows->get() : nullptr;
}

const Block* elementIn(const Value* value, std::int32_t logical) {
    const auto* elements = value != nullptr ? std::get_if<std::unique_ptr<ElementArray>>(value) : nullptr;
    return elements != nullptr ? (*elements)->find(logical) : nullptr;
}

Block& makeElement(Value& value, std::int32_t logical) {
    if (!std::holds_alternative<std::unique_ptr<ElementArray>>(value)) {
        value = std::make_unique<ElementArray>();
    }
    return std::get<std::unique_ptr<ElementArray>>(value)->at(logical);
}

bool isFloatKind(const Attribute& attribute) {
    return attribute.kind == AttrKind::kFloat || attribute.fileType == "floatLinear" ||
           attribute.fileType == "floatAngle";
}

/// The columns of a `rows` array: its children, or itself.
std::vector<AttrIndex> columnsOf(const Node& node, AttrIndex array) {
    const Attribute& attribute = node.attribute(array);
    return attribute.kind == AttrKind::kCompound ? attribute.children : std::vector<AttrIndex>{array};
}

NumberRows::Storage storageOf(const Node& node, const std::vector<AttrIndex>& columns) {
    const auto all = [&](auto&& holds) {
        return std::all_of(columns.begin(), columns.end(), [&](AttrIndex attr) { return holds(node.attribute(attr)); });
    };
    if (all(isFloatKind)) {
        return NumberRows::Storage::kFloat;
    }
    const bool whole = all([](const Attribute& attribute) { return isWholeNumberKind(attribute.kind); });
    return whole ? NumberRows::Storage::kInt : NumberRows::Storage::kDouble;
}

/// The block that holds an address's innermost element, or that holds its whole array. Stops before a `rows` array.
Block& makeBlock(const Node& node, Block& values, const ArrayWay& way, const PlugAddress& at) {
    Block* block = &values;
    for (int level = 0; level < at.depth && !node.attribute(way[level]).rows; ++level) {
        block = &makeElement(block->at(way[level]), at.index[static_cast<std::size_t>(level)]);
    }
    return *block;
}

} // namespace

StoredPlace findStored(const Node& node, const Block& values, const PlugAddress& at) {
    StoredPlace place;
    const ArrayWay way(node, at.attr);
    const Block* block = &values;
    for (int level = 0; level < at.depth && block != nullptr; ++level) {
        const std::int32_t logical = at.index[static_cast<std::size_t>(level)];
        const Value* value = block->find(way[level]);
        if (node.attribute(way[level]).rows) {
            const NumberRows* rows = rowsIn(value);
            const std::ptrdiff_t row = rows != nullptr ? rows->findRow(logical) : -1;
            if (row >= 0) {
                place.rows = rows;
                place.row = static_cast<std::size_t>(row);
                place.column = at.attr == way[level] ? 0 : childPosition(node, at.attr);
            }
            return place;
        }
        block = elementIn(value, logical);
    }
    place.value = block != nullptr ? block->find(at.attr) : nullptr;
    return place;
}

Value& makeStored(const Node& node, Block& values, const PlugAddress& at) {
    return makeBlock(node, values, ArrayWay(node, at.attr), at).at(at.attr);
}

NumberRows& makeStoredRows(const Node& node, Block& values, const PlugAddress& array) {
    Value& value = makeStored(node, values, array);
    if (!std::holds_alternative<std::unique_ptr<NumberRows>>(value)) {
        const std::vector<AttrIndex> columns = columnsOf(node, array.attr);
        value = std::make_unique<NumberRows>(static_cast<int>(columns.size()), storageOf(node, columns));
    }
    return *std::get<std::unique_ptr<NumberRows>>(value);
}

void storeNumber(const Node& node, Block& values, const PlugAddress& at, double value) {
    const double held = convertNumber(value, node.attribute(at.attr).kind);
    const ArrayWay way(node, at.attr);
    const AttrIndex innermost = way.count > 0 ? way[way.count - 1] : kNoAttr;
    if (innermost == kNoAttr || !node.attribute(innermost).rows) {
        makeStored(node, values, at) = held;
        return;
    }
    PlugAddress array{innermost, at.depth, at.index};
    array = ownerOf(node, array);
    NumberRows& rows = makeStoredRows(node, values, array);
    const std::int32_t logical = at.index[static_cast<std::size_t>(at.depth - 1)];
    std::ptrdiff_t row = rows.findRow(logical);
    if (row < 0) {
        std::vector<double> fill;
        for (const AttrIndex column : columnsOf(node, innermost)) {
            fill.push_back(node.attribute(column).defaultNumber);
        }
        row = static_cast<std::ptrdiff_t>(rows.makeRow(logical, fill.data()));
    }
    rows.setValue(static_cast<std::size_t>(row), innermost == at.attr ? 0 : childPosition(node, at.attr), held);
}

bool isElementStored(const Node& node, const Block& values, const PlugAddress& element) {
    const StoredPlace array = findStored(node, values, ownerOf(node, element));
    const std::int32_t logical = element.index[static_cast<std::size_t>(element.depth - 1)];
    if (const NumberRows* rows = rowsIn(array.value)) {
        return rows->findRow(logical) >= 0;
    }
    return elementIn(array.value, logical) != nullptr;
}

} // namespace host
