#include "host/scene/typedValues.h"

#include "host/geometry/ArrayData.h"
#include "host/geometry/ComponentList.h"
#include "host/geometry/LatticeData.h"
#include "host/geometry/NurbsCurve.h"
#include "host/graph/numberConversion.h"
#include "host/nodes/characterMapping.h"
#include "host/nodes/transformMatrix.h"
#include "host/scene/sceneMessages.h"

#include <Imath/ImathQuat.h>

#include <algorithm>
#include <limits>

namespace host {

namespace {

constexpr std::string_view kNumber = "a number";
constexpr std::string_view kCount = "a count";

std::int32_t narrowed(std::int64_t value) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

// The way of convertNumber, with its common case at hand: faces have millions of these.
std::int32_t wholeNumber(double value) {
    constexpr double kSafe = 2147483647.0;
    return value > -kSafe && value < kSafe ? static_cast<std::int32_t>(value)
                                           : static_cast<std::int32_t>(convertNumber(value, AttrKind::kInt));
}

// Each reads one item of a list.
bool readItem(ArgumentStream& arguments, std::string& item) {
    std::string_view text;
    if (!arguments.takeText(text)) {
        return false;
    }
    item = text;
    return true;
}

bool readItem(ArgumentStream& arguments, double& item) {
    return arguments.takeNumber(item);
}

bool readItem(ArgumentStream& arguments, float& item) {
    return arguments.takeNumbers(&item, 1) == 1;
}

bool readItem(ArgumentStream& arguments, std::int32_t& item) {
    std::int64_t value = 0;
    const bool isNumber = arguments.takeInteger(value);
    item = narrowed(value);
    return isNumber;
}

bool readItem(ArgumentStream& arguments, Imath::V4d& item) {
    return arguments.takeNumbers(&item.x, 4) == 4;
}

bool readItem(ArgumentStream& arguments, Imath::V3d& item) {
    return arguments.takeNumbers(&item.x, 3) == 3;
}

bool readItem(ArgumentStream& arguments, Matrix44& item) {
    return arguments.takeNumbers(&item[0][0], 16) == 16;
}

bool readCount(ArgumentStream& arguments, std::size_t& count, Outcome& outcome) {
    std::int64_t value = 0;
    if (!arguments.takeInteger(value) || value < 0) {
        outcome = Outcome::broken(arguments, kCount);
        return false;
    }
    count = static_cast<std::size_t>(value);
    return true;
}

bool readSwitch(ArgumentStream& arguments, bool& isOn) {
    double number = 0.0;
    if (arguments.takeNumber(number)) {
        isOn = number != 0.0;
        return true;
    }
    return arguments.takeBoolean(isOn);
}

template <typename ArrayType>
DataPtr readList(ArgumentStream& arguments, Outcome& outcome, std::string_view expected) {
    std::size_t count = 0;
    if (!readCount(arguments, count, outcome)) {
        return nullptr;
    }
    auto data = std::make_shared<ArrayType>();
    using Item = typename decltype(data->values)::value_type;
    data->values.reserve(std::min(count, arguments.mostArguments() / (1 + sizeof(Item) / 8)));
    for (Item item; data->values.size() < count; data->values.push_back(std::move(item))) {
        if (!readItem(arguments, item)) {
            outcome = Outcome::broken(arguments, expected);
            return nullptr;
        }
    }
    return data;
}

DataPtr readComponents(StatementContext& context, ArgumentStream& arguments, Outcome& outcome) {
    std::size_t count = 0;
    if (!readCount(arguments, count, outcome)) {
        return nullptr;
    }
    auto list = std::make_shared<ComponentList>();
    for (; count > 0; --count) {
        std::string_view text;
        ComponentRange range;
        if (!arguments.takeText(text)) {
            outcome = Outcome::broken(arguments, "a component");
            return nullptr;
        }
        if (parseComponent(text, range)) {
            list->ranges.push_back(range);
        } else {
            context.warn(messages::text(messages::kUnknownComponent, {text}));
        }
    }
    return list;
}

// The parts of a transform in the order of the file.
struct TransformParts {
    Imath::V3d scale, rotate;
    double order = 0.0;
    Imath::V3d translate, shear, scalePivot, scalePivotTranslate, rotatePivot, rotatePivotTranslate;
    Imath::Quatd rotateOrient, jointOrient; // the file gives x y z w
    Imath::V3d inverseScale;
    bool compensates = false;
};

bool readPart(ArgumentStream& arguments, Imath::V3d& part) {
    return readItem(arguments, part);
}

bool readPart(ArgumentStream& arguments, Imath::Quatd& part) {
    return arguments.takeNumbers(&part.v.x, 3) == 3 && arguments.takeNumber(part.r);
}

bool readParts(ArgumentStream& arguments, TransformParts& parts) {
    const bool isWhole = readPart(arguments, parts.scale) && readPart(arguments, parts.rotate) &&
                         arguments.takeNumber(parts.order) && readPart(arguments, parts.translate) &&
                         readPart(arguments, parts.shear) && readPart(arguments, parts.scalePivot) &&
                         readPart(arguments, parts.scalePivotTranslate) && readPart(arguments, parts.rotatePivot) &&
                         readPart(arguments, parts.rotatePivotTranslate) && readPart(arguments, parts.rotateOrient) &&
                         readPart(arguments, parts.jointOrient) && readPart(arguments, parts.inverseScale);
    return isWhole && readSwitch(arguments, parts.compensates);
}

Matrix44 translation(const Imath::V3d& by) {
    return Matrix44().setTranslation(by);
}

Matrix44 asMatrix44(const Imath::M33d& rotation) {
    return Matrix44(rotation, Imath::V3d(0.0));
}

Matrix44 shearing(const Imath::V3d& shear) {
    Matrix44 matrix;
    matrix[1][0] = shear.x;
    matrix[2][0] = shear.y;
    matrix[2][1] = shear.z;
    return matrix;
}

Matrix44 scaling(const Imath::V3d& factors) {
    return Matrix44().setScale(factors);
}

double reciprocal(double value) {
    return value == 0.0 ? 1.0 : 1.0 / value;
}

Matrix44 composed(const TransformParts& parts) {
    Matrix44 compensation;
    if (parts.compensates) {
        // The file holds the parent's scale; what it divides by is guarded as the joint's own matrix is.
        compensation = scaling(
            {reciprocal(parts.inverseScale.x), reciprocal(parts.inverseScale.y), reciprocal(parts.inverseScale.z)});
    }
    return translation(-parts.scalePivot) * scaling(parts.scale) * shearing(parts.shear) *
           translation(parts.scalePivot + parts.scalePivotTranslate - parts.rotatePivot) *
           parts.rotateOrient.normalized().toMatrix44() *
           asMatrix44(rotationMatrix(parts.rotate, rotateOrderOf(parts.order))) *
           parts.jointOrient.normalized().toMatrix44() * compensation *
           translation(parts.rotatePivot + parts.rotatePivotTranslate + parts.translate);
}

} // namespace

std::optional<Matrix44> readMatrix(ArgumentStream& arguments, Outcome& outcome) {
    std::string_view word;
    Matrix44 matrix;
    const std::size_t count = arguments.takeNumbers(&matrix[0][0], 16);
    if (count == 16) {
        return matrix;
    }
    if (count != 0 || !arguments.takeString(word) || word != "xform") {
        outcome = Outcome::broken(arguments, kNumber);
        return std::nullopt;
    }
    TransformParts parts;
    if (!readParts(arguments, parts)) {
        outcome = Outcome::broken(arguments, kNumber);
        return std::nullopt;
    }
    return composed(parts);
}

DataPtr readArrayData(StatementContext& context, ArgumentStream& arguments, ValueForm form, Outcome& outcome) {
    switch (form) {
    case ValueForm::kStringArray:
        return readList<StringArrayData>(arguments, outcome, "a string");
    case ValueForm::kDoubleArray:
        return readList<DoubleArrayData>(arguments, outcome, kNumber);
    case ValueForm::kFloatArray:
        return readList<FloatArrayData>(arguments, outcome, kNumber);
    case ValueForm::kIntArray:
        return readList<IntArrayData>(arguments, outcome, kNumber);
    case ValueForm::kPointArray:
        return readList<PointArrayData>(arguments, outcome, kNumber);
    case ValueForm::kVectorArray:
        return readList<VectorArrayData>(arguments, outcome, kNumber);
    case ValueForm::kMatrixArray:
        return readList<MatrixArrayData>(arguments, outcome, kNumber);
    default:
        return readComponents(context, arguments, outcome);
    }
}

DataPtr readCharacterMapping(ArgumentStream& arguments, Outcome& outcome) {
    std::size_t count = 0;
    if (!readCount(arguments, count, outcome)) {
        return nullptr;
    }
    auto mapping = std::make_shared<CharacterMapping>();
    while (mapping->channels.size() < count) {
        CharacterChannel channel;
        std::int32_t kind = 0;
        if (!readItem(arguments, channel.attribute)) {
            outcome = Outcome::broken(arguments, "the name of a channel");
            return nullptr;
        }
        if (!readItem(arguments, kind) || !readItem(arguments, channel.element)) {
            outcome = Outcome::broken(arguments, kNumber);
            return nullptr;
        }
        channel.kind = static_cast<ChannelKind>(kind);
        mapping->channels.push_back(std::move(channel));
    }
    return mapping;
}

DataPtr readLattice(ArgumentStream& arguments, Outcome& outcome) {
    auto lattice = std::make_shared<LatticeData>();
    std::size_t divisions[3] = {};
    for (std::size_t& division : divisions) {
        if (!readCount(arguments, division, outcome)) {
            return nullptr;
        }
    }
    const DataPtr points = readList<VectorArrayData>(arguments, outcome, kNumber);
    if (points == nullptr) {
        return nullptr;
    }
    lattice->points = static_cast<const VectorArrayData&>(*points).values;
    lattice->s = divisions[0];
    lattice->t = divisions[1];
    lattice->u = divisions[2];
    if (!lattice->isWhole()) {
        outcome = Outcome{
            Outcome::Kind::kBroken, "expected 2 to 100 points along each side of a lattice, and as many in all", {}};
        return nullptr;
    }
    return lattice;
}

DataPtr readNurbsCurve(ArgumentStream& arguments, Outcome& outcome) {
    auto curve = std::make_shared<NurbsCurve>();
    std::int64_t degree = 0, spans = 0, form = 0, dimension = 0;
    bool isRational = false;
    const bool hasHead = arguments.takeInteger(degree) && arguments.takeInteger(spans) && arguments.takeInteger(form) &&
                         readSwitch(arguments, isRational) && arguments.takeInteger(dimension);
    if (!hasHead || degree < 1 || dimension < 2 || dimension > 3) {
        outcome = Outcome::broken(arguments, "degree, spans, form, rational and dimension of a curve");
        return nullptr;
    }
    const DataPtr knots = readList<DoubleArrayData>(arguments, outcome, kNumber);
    std::size_t count = 0;
    if (knots == nullptr || !readCount(arguments, count, outcome)) {
        return nullptr;
    }
    curve->degree = static_cast<std::size_t>(degree);
    curve->form = form == 0 ? CurveForm::kOpen : form == 1 ? CurveForm::kClosed : CurveForm::kPeriodic;
    curve->knots = static_cast<const DoubleArrayData&>(*knots).values;
    while (curve->points.size() < count) {
        double numbers[4] = {0.0, 0.0, 0.0, 1.0};
        if (arguments.takeNumbers(numbers, static_cast<std::size_t>(dimension)) !=
                static_cast<std::size_t>(dimension) ||
            (isRational && !arguments.takeNumber(numbers[3]))) {
            outcome = Outcome::broken(arguments, kNumber);
            return nullptr;
        }
        curve->points.emplace_back(numbers[0], numbers[1], numbers[2]);
        curve->weights.push_back(numbers[3]);
    }
    return curve;
}

DataPtr readAliases(ArgumentStream& arguments, Outcome& outcome) {
    std::vector<std::string> texts;
    if (!arguments.takeStringList(texts) || texts.size() % 2 != 0) {
        outcome = Outcome::broken(arguments, "pairs of strings in braces");
        return nullptr;
    }
    auto data = std::make_shared<AttributeAliasData>();
    for (std::size_t at = 0; at < texts.size(); at += 2) {
        data->values.push_back({std::move(texts[at]), std::move(texts[at + 1])});
    }
    return data;
}

Outcome readFaces(ArgumentStream& arguments, PolyFacesBuilder& builder, std::int32_t firstFace) {
    const auto failed = [&] { return Outcome{Outcome::Kind::kBroken, builder.error(), {}}; };
    if (!builder.startChunk(firstFace)) {
        return failed();
    }
    constexpr std::size_t kBatch = 64;
    double numbers[kBatch];
    std::string_view word;
    while (!arguments.atEnd()) {
        if (!arguments.takeText(word)) {
            return Outcome::broken(arguments, "a face");
        }
        if (!builder.token(word)) {
            return failed();
        }
        for (std::size_t count = kBatch; count == kBatch;) {
            count = arguments.takeNumbers(numbers, kBatch);
            for (std::size_t at = 0; at < count; ++at) {
                if (!builder.number(wholeNumber(numbers[at]))) {
                    return failed();
                }
            }
        }
    }
    return builder.endChunk() ? Outcome::done() : failed();
}

DataPtr readDataValue(StatementContext& context, ArgumentStream& arguments, ValueForm form, Outcome& outcome) {
    switch (form) {
    case ValueForm::kCharacterMapping:
        return readCharacterMapping(arguments, outcome);
    case ValueForm::kLattice:
        return readLattice(arguments, outcome);
    case ValueForm::kNurbsCurve:
        return readNurbsCurve(arguments, outcome);
    default:
        return readArrayData(context, arguments, form, outcome);
    }
}

} // namespace host
