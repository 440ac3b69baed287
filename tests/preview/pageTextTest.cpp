#include "Browser.h"

#include "host/app/preview/previewPage.h"

#include <fstream>
#include <iterator>

// What the page says in words.
namespace tvk {
namespace {

namespace fs = std::filesystem;

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
        ++count;
    }
    EXPECT_GT(count, 0U) << from;
    return text;
}

std::string contents(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::size_t countOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size()) {
        ++count;
    }
    return count;
}

/// What stands in the panel.
std::string panelOf(const std::string& elements) {
    const std::size_t start = elements.find("<aside");
    const std::size_t end = elements.find("</aside>");
    EXPECT_TRUE(start != std::string::npos && end != std::string::npos) << elements.substr(0, 2000);
    return start == std::string::npos ? "" : elements.substr(start, end - start);
}

} // namespace

TEST(PageText, TellsWhatTheFilesHold) {
    const Browser browser;
    browser.writePage(host::app::preview::previewPage(TVK_SAMPLES "/walk"));
    const std::string elements = browser.elements("");
    EXPECT_NE(elements.find("data-ready=\"yes\""), std::string::npos);
    EXPECT_NE(elements.find("<title>walk"), std::string::npos);
    const std::string panel = panelOf(elements);
    EXPECT_EQ(countOf(panel, "class=\"missing\""), 0U);
    for (const char* text :
         {"41 nodes, 5 materials, 4 textures", "60 frames, 41 nodes, linear", "60 frames, 2 materials",
          "60 frames, 1 material", "coat_mat", "eyes.2", "palette16", "from walk.ma"}) {
        EXPECT_NE(panel.find(text), std::string::npos) << text;
    }
}

TEST(PageText, TellsWhatIsMissingAndWhatFollows) {
    const Browser browser;
    browser.writePage(host::app::preview::previewPage(TVK_SAMPLES "/golem"));
    const std::string elements = browser.elements("");
    const std::string panel = panelOf(elements);
    EXPECT_EQ(countOf(panel, "class=\"missing\""), 5U);
    for (const char* text : {"Nodes and joints stand still in the model's pose.", "Material colours do not change.",
                             "Each material keeps its image.", "Nodes are shown or hidden as in the model.",
                             "Textures do not move on their surfaces."}) {
        EXPECT_NE(panel.find(text), std::string::npos) << text;
    }
    EXPECT_NE(elements.find("class=\"still\""), std::string::npos) << "there is nothing to play";
}

TEST(PageText, PlaysByItself) {
    const Browser browser;
    browser.writePage(host::app::preview::previewPage(TVK_SAMPLES "/walk"));
    const auto frameOf = [](const std::string& elements) {
        const std::string start = R"(<output id="frame" for="slider">)";
        const std::size_t at = elements.find(start);
        return at == std::string::npos ? -1 : std::atoi(elements.c_str() + at + start.size());
    };
    EXPECT_EQ(frameOf(browser.elements("frame=7", 1000)), 7);
    EXPECT_EQ(frameOf(browser.elements("frame=1000", 1000)), 60);
    EXPECT_EQ(frameOf(browser.elements("frame=-1000", 1000)), 1);
    EXPECT_GT(frameOf(browser.elements("frame=7&play=1", 1000)), 7);
    EXPECT_GT(frameOf(browser.elements("", 1000)), 1);
}

TEST(PageText, ShowsNamesAsTheyAre) {
    const Browser browser;
    const std::string base = browser.path("a'b<i>&lt;");
    const std::string script = "</script><script>document.body.dataset.caught='yes'</script><!--";
    const std::string japanese = "\x93\xfa\x96\x7b\x8c\xea\x83\x5c"; // ends with the byte of a backslash
    std::string model = contents(TVK_SAMPLES "/walk.imd");
    model = replaced(model, "name=\"coat_mat\"", "name=\"" + script + "\"");
    model = replaced(model, "name=\"skin_mat\"", "name=\"" + japanese + "\"");
    std::ofstream(base + ".imd", std::ios::binary) << model;
    browser.writePage(host::app::preview::previewPage(base));
    const std::string elements = browser.elements("");
    EXPECT_NE(elements.find("data-ready=\"yes\""), std::string::npos);
    EXPECT_EQ(elements.find("data-caught"), std::string::npos);
    const std::string panel = panelOf(elements);
    EXPECT_NE(panel.find("&lt;/script&gt;&lt;script&gt;document.body"), std::string::npos);
    EXPECT_NE(panel.find("\xe6\x97\xa5\xe6\x9c\xac\xe8\xaa\x9e\xe3\x82\xbd"), std::string::npos);
    EXPECT_NE(panel.find("<h1>a'b&lt;i&gt;&amp;lt;</h1>"), std::string::npos);
}

TEST(PageText, AsksForNothingFromOutside) {
    const std::string page = host::app::preview::previewPage(TVK_SAMPLES "/walk");
    EXPECT_EQ(countOf(page, "<script"), 2U) << "the data and the program";
    EXPECT_EQ(countOf(page, "</script"), 2U);
    EXPECT_EQ(countOf(page, "src="), countOf(page, "src=\"data:"));
    EXPECT_EQ(countOf(page, "<link"), 1U);
    EXPECT_EQ(countOf(page, R"(<link rel="icon" href="data:,">)"), 1U);
    EXPECT_EQ(countOf(page, "@import"), 0U);
    EXPECT_EQ(countOf(page, "url("), 0U);
}

} // namespace tvk
