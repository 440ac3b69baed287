#pragma once

#include <maya/MArgList.h>
#include <maya/MSyntax.h>

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace host {

/// What an MSyntax says: names without '-'.
struct CommandSyntax {
    struct Flag {
        std::string shortName, longName;
        std::vector<MSyntax::MArgType> arguments;
        bool multiUse = false;
        bool keepsArgumentsInQuery = false;
        bool lacksArgumentsInQuery = false; // may do without them
    };

    std::vector<Flag> flags;
    std::vector<MSyntax::MArgType> arguments;
    bool query = false, edit = false;
    MSyntax::MObjectFormat objects = MSyntax::kNone;
    std::size_t minimumObjects = 0, maximumObjects = std::numeric_limits<std::size_t>::max();
    bool selectionAsDefault = false;

    /// Position of a flag by either name, with or without '-'; flags.size() when there is none.
    std::size_t find(const std::string& name) const;
};

/// The arguments of one call, sorted out by a syntax.
struct ParsedArguments {
    struct Use {
        std::size_t flag = 0; // position in the syntax
        std::vector<MString> values;
    };

    CommandSyntax syntax;
    std::vector<Use> uses;          // in the order given
    std::vector<MString> arguments; // as many as the syntax declares
    std::vector<MString> objects;
    bool isQuery = false, isEdit = false;
    bool isValid = false;

    /// The n-th use of a flag; null when there is none.
    const Use* use(const std::string& flag, std::size_t number = 0) const;
};

/// Fills `parsed`, or tells in one line what is wrong. A flag takes as many arguments as it declares, whatever they
/// look like; every other text that begins with '-' and a letter is a flag.
std::optional<std::string> parseArguments(const CommandSyntax& syntax, const MArgList& list, ParsedArguments& parsed);

/// Texts as values; nothing when they are none. Booleans are 0, 1, on, off, true, false, yes, no.
std::optional<bool> booleanOf(const MString& text);
std::optional<int> intOf(const MString& text);
std::optional<unsigned int> unsignedOf(const MString& text);
std::optional<double> doubleOf(const MString& text);

} // namespace host
