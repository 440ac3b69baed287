#include "host/scene/rowValues.h"

#include "host/graph/numberConversion.h"
#include "host/scene/unitConversion.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace host {

namespace {

constexpr std::string_view kNumber = "a number";
constexpr std::size_t kBatch = 4096; // numbers read at once when they cannot be read in place

/// One number of each row.
struct Column {
    AttrKind kind;
    double missing; // the value of a number that no file gave
};

// Colours of a colour set have as many numbers in a file as the set's representation says: the alpha alone, no alpha,
// or all four. What is left out is as new.
constexpr std::string_view kColors = "colorSetPoints";
constexpr int kAlphaOnly = 1;
constexpr int kWithoutAlpha = 3;

// The attribute beside it in the same element.
PlugAddress withAttribute(PlugAddress at, AttrIndex attr) {
    at.attr = attr;
    return at;
}

std::vector<Column> columnsOf(const Node& node, AttrIndex attr) {
    const Attribute& array = node.attribute(attr);
    if (array.kind != AttrKind::kCompound) {
        return {{array.kind, array.defaultNumber}};
    }
    std::vector<Column> columns;
    for (const AttrIndex child : array.children) {
        columns.push_back({node.attribute(child).kind, node.attribute(child).defaultNumber});
    }
    return columns;
}

// Booleans may be words.
std::size_t takeNumbersOrWords(ArgumentStream& arguments, double* values, std::size_t count) {
    std::size_t taken = 0;
    for (bool value = false; taken < count; values[taken++] = value ? 1.0 : 0.0) {
        taken += arguments.takeNumbers(values + taken, count - taken);
        if (taken == count || !arguments.takeBoolean(value)) {
            break;
        }
    }
    return taken;
}

// The columns that a file gives numbers for, in their order.
std::vector<std::size_t> columnsInFile(Graph& graph, const Plug& array, std::size_t count) {
    const Attribute& attribute = array.node->attribute(array.at.attr);
    if (attribute.longName == kColors && attribute.parent != kNoAttr) {
        const AttrIndex representation = array.node->findAttribute("representation");
        const auto kind =
            representation == kNoAttr ? 0.0 : graph.number({array.node, withAttribute(array.at, representation)});
        if (kind == kAlphaOnly) {
            return {count - 1};
        }
        count -= kind == kWithoutAlpha ? 1 : 0;
    }
    std::vector<std::size_t> columns(count);
    std::iota(columns.begin(), columns.end(), std::size_t{0});
    return columns;
}

/// Reads rows of one array from a stream.
class RowReader {
public:
    RowReader(Scene& scene, const Plug& array)
        : units_(scene.units()), columns_(columnsOf(*array.node, array.at.attr)),
          given_(columnsInFile(scene.graph(), array, columns_.size())), rows_(scene.graph().rowsForWriting(array)) {
        isPlainFloat_ = rows_.storage() == NumberRows::Storage::kFloat && isWhole() &&
                        std::all_of(columns_.begin(), columns_.end(), [this](const Column& column) {
                            return toInternal(units_, column.kind, 1.0) == 1.0;
                        });
    }

    std::size_t numbersPerRow() const { return given_.size(); }
    NumberRows& rows() { return rows_; }

    // False when the numbers ended before the rows did.
    bool read(ArgumentStream& arguments, std::int32_t first, std::size_t count) {
        const std::size_t rowsAtOnce = std::max<std::size_t>(1, kBatch / given_.size());
        for (std::size_t done = 0; done < count;) {
            const std::size_t rows = std::min(rowsAtOnce, count - done);
            const auto at = static_cast<std::int32_t>(static_cast<std::size_t>(first) + done);
            if (!(isPlainFloat_ ? readInPlace(arguments, at, rows) : readThroughBuffer(arguments, at, rows))) {
                return false;
            }
            done += rows;
        }
        return true;
    }

private:
    bool isWhole() const { return given_.size() == columns_.size(); }

    bool readInPlace(ArgumentStream& arguments, std::int32_t first, std::size_t count) {
        const std::size_t place = rows_.appendDense(first, count);
        if (place == NumberRows::npos) {
            return readThroughBuffer(arguments, first, count);
        }
        return arguments.takeNumbers(rows_.floats().data() + place, count * columns_.size()) == count * columns_.size();
    }

    bool readThroughBuffer(ArgumentStream& arguments, std::int32_t first, std::size_t count) {
        const std::size_t width = given_.size();
        buffer_.resize(count * width);
        if (takeNumbersOrWords(arguments, buffer_.data(), buffer_.size()) != buffer_.size()) {
            return false;
        }
        // Rows made one by one begin with their defaults; a block of them does not.
        const std::size_t place = isWhole() ? rows_.appendDense(first, count) : NumberRows::npos;
        const double* next = buffer_.data();
        for (std::size_t row = 0; row < count; ++row) {
            const std::size_t made =
                place != NumberRows::npos ? place / width + row : makeRow(first + static_cast<std::int32_t>(row));
            for (const std::size_t column : given_) {
                const AttrKind kind = columns_[column].kind;
                rows_.setValue(made, static_cast<int>(column), convertNumber(toInternal(units_, kind, *next++), kind));
            }
        }
        return true;
    }

    std::size_t makeRow(std::int32_t logical) {
        missing_.clear();
        for (const Column& column : columns_) {
            missing_.push_back(column.missing);
        }
        return rows_.makeRow(logical, missing_.data());
    }

    const Units& units_;
    std::vector<Column> columns_;
    std::vector<std::size_t> given_;
    NumberRows& rows_;
    bool isPlainFloat_ = false;
    std::vector<double> buffer_, missing_;
};

// The elements of one inner array: a count, then pairs of index and row.
bool readPairs(ArgumentStream& arguments, RowReader& reader, std::string_view& expected) {
    std::int64_t pairs = 0;
    expected = "a count";
    if (!arguments.takeInteger(pairs) || pairs < 0) {
        return false;
    }
    for (; pairs > 0; --pairs) {
        std::int64_t logical = 0;
        expected = "an element index";
        if (!arguments.takeInteger(logical) || logical < 0 || logical > std::numeric_limits<std::int32_t>::max()) {
            return false;
        }
        expected = kNumber;
        if (!reader.read(arguments, static_cast<std::int32_t>(logical), 1)) {
            return false;
        }
    }
    return true;
}

} // namespace

Outcome readRows(StatementContext& context, ArgumentStream& arguments, const Plug& array, std::int32_t first,
                 std::size_t count, std::size_t sizeHint) {
    Graph& graph = context.scene.graph();
    RowReader reader(context.scene, array);
    const std::size_t known = reader.rows().rowCount();
    const std::size_t possible = arguments.mostArguments() / (2 * reader.numbersPerRow()); // a number and a blank each
    if (sizeHint > known && reader.rows().isDense()) {
        reader.rows().reserve(std::min(sizeHint, known + possible));
    }
    const bool isWhole = reader.read(arguments, first, count);
    graph.changed(array);
    return isWhole ? Outcome::done() : Outcome::broken(arguments, kNumber);
}

Outcome readRaggedRows(StatementContext& context, ArgumentStream& arguments, const Plug& outer, std::int32_t first,
                       std::int32_t last, AttrIndex inner) {
    Graph& graph = context.scene.graph();
    std::string_view expected;
    for (std::int64_t logical = first; logical <= last; ++logical) {
        RowReader reader(context.scene,
                         {outer.node, withAttribute(outer.at.element(static_cast<std::int32_t>(logical)), inner)});
        if (!readPairs(arguments, reader, expected)) {
            return Outcome::broken(arguments, expected);
        }
    }
    graph.changed(outer);
    return Outcome::done();
}

} // namespace host
