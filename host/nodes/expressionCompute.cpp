#include "host/nodes/expressionCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/expressionText.h"
#include "host/nodes/keptValue.h"

#include "host/graph/Evaluation.h"
#include "host/mel/Interpreter.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

namespace host {

namespace {

/// No expression that means to end takes so many steps; reaching it costs some tenths of a second.
constexpr std::uint64_t kMostSteps = 200000;

/// What `.I[n]` and `.O[n]` may be; a larger n in a scene would only take memory.
constexpr std::size_t kMostElements = 65536;

struct ExpressionAttributes {
    explicit ExpressionAttributes(const NodeType& type)
        : expression(type.find("expression")), internalExpression(type.find("internalExpression")),
          input(type.find("input")), output(type.find("output")), time(type.find("time")),
          compiled(type.find("compiled")) {}

    AttrIndex expression, internalExpression, input, output, time, compiled;
};

const ExpressionAttributes& expressionAttributes(const Node& node) {
    static const ExpressionAttributes kAttributes(node.type());
    return kAttributes;
}

struct ExpressionData final : Data {
    ExpressionData() : Data(DataKind::kOther), interpreter(std::make_unique<mel::Interpreter>()) {}

    std::unique_ptr<mel::Interpreter> interpreter; // null when the text is empty or no MEL
    std::size_t outputCount = 0;
};

void warnOfFailure(Evaluation& evaluation, const Node& node, const mel::ScriptError& error) {
    evaluation.warn("The expression of " + node.name() +
                    " cannot be evaluated (its outputs keep their values): " + error.text);
}

void compile(Evaluation& evaluation, Node& node) {
    const ExpressionAttributes& attr = expressionAttributes(node);
    std::string text = evaluation.string(node, address(attr.internalExpression));
    if (text.empty()) {
        text = evaluation.string(node, address(attr.expression));
    }
    auto data = std::make_shared<ExpressionData>();
    data->outputCount = expressionOutputCount(text);
    data->interpreter->setStepLimit(kMostSteps);
    const mel::EvalResult result = data->interpreter->eval(expressionProcedure(text), node.name());
    if (!result.ok()) {
        warnOfFailure(evaluation, node, *result.error);
    }
    if (!result.ok() || data->outputCount == 0) {
        data->interpreter.reset();
    }
    evaluation.putData(node, address(attr.compiled), std::move(data));
}

mel::FloatArray readInputs(Evaluation& evaluation, Node& node) {
    const PlugAddress input = address(expressionAttributes(node).input);
    mel::FloatArray values;
    for (const std::int32_t index : evaluation.graph().elementIndices({&node, input})) {
        const auto place = static_cast<std::size_t>(index);
        if (place < kMostElements) {
            values.resize(place + 1);
            values[place] = evaluation.number(node, input.element(index));
        }
    }
    return values;
}

/// The outputs as a run of the text makes them from what they are without it.
std::optional<mel::FloatArray> run(Evaluation& evaluation, Node& node, const ExpressionData& data,
                                   const mel::FloatArray& kept) {
    const auto ticks = evaluation.number(node, expressionAttributes(node).time);
    const double seconds = ticks / static_cast<double>(kTicksPerSecond);
    const double frame = seconds * evaluation.graph().framesPerSecond();
    const mel::EvalResult result =
        data.interpreter->call(kExpressionProcedure, {readInputs(evaluation, node), kept, frame, seconds});
    if (!result.ok()) {
        warnOfFailure(evaluation, node, *result.error);
        return std::nullopt;
    }
    return result.value.floats();
}

} // namespace

void computeExpression(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const ExpressionAttributes& attr = expressionAttributes(node);
    if (output.attr == attr.compiled) {
        compile(evaluation, node);
        return;
    }
    const DataPtr held = evaluation.data(node, address(attr.compiled));
    const auto& data = static_cast<const ExpressionData&>(*held);
    mel::FloatArray kept(std::max(data.outputCount, static_cast<std::size_t>(1)));
    for (std::size_t i = 0; i < kept.size(); ++i) {
        kept[i] = keptValue(evaluation.graph(), {&node, address(attr.output).element(static_cast<std::int32_t>(i))});
    }
    std::optional<mel::FloatArray> made;
    if (data.interpreter != nullptr) {
        made = run(evaluation, node, data, kept);
    }
    for (std::size_t i = 0; i < kept.size(); ++i) {
        const bool isMade = made && i < made->size() && std::isfinite((*made)[i]);
        evaluation.putNumber(node, address(attr.output).element(static_cast<std::int32_t>(i)),
                             isMade ? (*made)[i] : kept[i]);
    }
    if (static_cast<std::size_t>(output.index[0]) >= kept.size()) {
        evaluation.putNumber(node, output, keptValue(evaluation.graph(), {&node, output}));
    }
}

void fillExpressionAffects(NodeType& type) {
    type.affects.assign(type.attributes().size(), {});
    for (const char* name : {"input", "time", "frame"}) {
        type.affects[static_cast<std::size_t>(type.find(name))] = {type.find("output")};
    }
}

} // namespace host
