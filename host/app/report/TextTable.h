#pragma once

#include <initializer_list>
#include <string>
#include <vector>

namespace host::app::report {

/// Lines of cells that stand under each other.
class TextTable {
public:
    /// A letter for each column: 'l' for text, which stands left, 'r' for numbers, which stand right.
    explicit TextTable(std::string columns) : columns_(std::move(columns)) {}

    /// As many cells as there are columns, in UTF-8.
    void add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

    /// The lines, each behind two blanks, with two blanks between cells and none at its end.
    std::string text() const;

private:
    std::string columns_;
    std::vector<std::vector<std::string>> rows_;
};

} // namespace host::app::report
