#include "host/app/report/TextTable.h"

#include "host/app/report/nameText.h"

#include <algorithm>

namespace host::app::report {

std::string TextTable::text() const {
    std::vector<std::size_t> widths(columns_.size(), 0);
    for (const std::vector<std::string>& row : rows_) {
        for (std::size_t i = 0; i < widths.size(); ++i) {
            widths[i] = std::max(widths[i], columnsOf(row.at(i)));
        }
    }
    std::string text;
    for (const std::vector<std::string>& row : rows_) {
        std::string line;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const std::string blanks(widths[i] - columnsOf(row.at(i)), ' ');
            line += "  " + (columns_[i] == 'r' ? blanks + row.at(i) : row.at(i) + blanks);
        }
        text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return text;
}

} // namespace host::app::report
