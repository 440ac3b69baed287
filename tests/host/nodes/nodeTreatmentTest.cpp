#include "host/nodes/nodeTreatment.h"

#include "GraphFixture.h"

#include <fstream>
#include <map>

namespace host {
namespace {

class NodeTreatment : public GraphFixture {
protected:
    Treatment of(const char* type) { return treatmentOf(*types.find(type)); }
};

TEST_F(NodeTreatment, IsThatOfTheTables) {
    EXPECT_EQ(of("skinCluster"), Treatment::kEvaluated);
    EXPECT_EQ(of("lambert"), Treatment::kHeld);
    EXPECT_EQ(of("pointOnPolyConstraint"), Treatment::kKept);
    EXPECT_EQ(of("wrap"), Treatment::kRefused);
    EXPECT_EQ(treatmentOf(types.addUnknown("fancyRig", "transform")), Treatment::kKept);
}

/// Rows "| `type` | treatment |" of the page.
std::map<std::string, std::string> pageRows() {
    std::ifstream page(TVK_SOURCE_DIR "/docs/node-types.md");
    EXPECT_TRUE(page.is_open());
    std::map<std::string, std::string> rows;
    for (std::string line; std::getline(page, line);) {
        const std::size_t nameEnd = line.find("` | ");
        const std::size_t end = line.rfind(" |");
        if (line.rfind("| `", 0) == 0 && nameEnd != std::string::npos && end > nameEnd) {
            const std::string name = line.substr(3, nameEnd - 3);
            EXPECT_TRUE(rows.emplace(name, line.substr(nameEnd + 4, end - nameEnd - 4)).second) << name << " twice";
        }
    }
    return rows;
}

TEST_F(NodeTreatment, IsWhatThePageTells) {
    std::map<std::string, std::string> rows = pageRows();
    for (const auto& type : types.all()) {
        const std::string expected(treatmentName(treatmentOf(*type)));
        const auto row = rows.find(type->name());
        if (row == rows.end()) {
            ADD_FAILURE() << "docs/node-types.md lacks the row\n| `" << type->name() << "` | " << expected << " |";
            continue;
        }
        EXPECT_EQ(row->second, expected) << "docs/node-types.md, the row of " << type->name();
        rows.erase(row);
    }
    for (const auto& [name, treatment] : rows) {
        ADD_FAILURE() << "docs/node-types.md tells of " << name << ", which no table has";
    }
}

} // namespace
} // namespace host
