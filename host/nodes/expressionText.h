#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

/// The name of the procedure that an expression becomes.
constexpr std::string_view kExpressionProcedure = "hostExpression";

/// An expression as scenes store it, as MEL: a procedure hostExpression(float[] inputs, float[] outputs, float frame,
/// float time) that returns the outputs. `.I[n]` and `.O[n]` become elements of the two arrays, the words frame and
/// time the two numbers; strings, comments, and all other text stay. Whether it is MEL shows when it is parsed.
std::string expressionProcedure(std::string_view text);

/// One more than the highest n of `.O[n]` in the text, at most 65536; 0 when it has none.
std::size_t expressionOutputCount(std::string_view text);

} // namespace host
