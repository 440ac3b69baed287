#include "PluginSession.h"
#include "sceneText.h"

#include <maya/MFileObject.h>
#include <maya/MPxFileTranslator.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Translator : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(session.load(), "");
        session.errors.clear();
    }

    std::unique_ptr<MPxFileTranslator> create() {
        return std::unique_ptr<MPxFileTranslator>(
            static_cast<MPxFileTranslator*>(session.plugin()->translators.at(0).create()));
    }

    // `file -f -op … -typ … ` with the mode, as the dialog and every script do it.
    std::string command(const std::string& mode, const std::string& name, const std::string& options = "") {
        return "file -f -op \"" + options + "\" -typ \"KALDERA_ZEPHRA_System\" " + mode + " \"" +
               session.folder.path(name) + "\"";
    }

    decode::ModelFile model(const std::string& name) { return decode::readModelFile(session.fileText(name)); }

    PluginSession session;
};

// --- files it knows

TEST_F(Translator, KnowsItsFilesByTheirLastExtension) {
    struct Case {
        const char* name;
        bool mine;
    };
    const Case cases[] = {
        {"a.imd", true},
        {"a.ica", true},
        {"a.ima", true},
        {"a.itp", true},
        {"a.iva", true},
        {"a.ita", true},
        {"a.IMD", true},
        {"a.Iva", true},
        {".imd", true},
        {"a.b.imd", true},
        {"a.imd.bak", false},
        {"a", false},
        {"a.", false},
        {"a.im", false},
        {"a.imdx", false},
        {"a.ma", false},
        {"imd", false},
        {"a imd", false},
        {"\x83\x5C.imd", true} /* "so" in Shift_JIS */,
        {"a.\x83\x5Cimd", false},
        {"a.imd\\b", false} /* a folder of the name before */,
        {"a.imd\x95\x5C"
         "b",
         false},
        {"\xE3\x82\xBD.imd", true} /* the same in UTF-8 */,
    };
    const std::unique_ptr<MPxFileTranslator> translator = create();
    for (const Case& c : cases) {
        MFileObject file;
        file.setRawFullName((session.folder.path() + "/" + c.name).c_str());
        const MPxFileTranslator::MFileKind kind = translator->identifyFile(file, "//Maya ASCII", 12);
        EXPECT_EQ(kind, c.mine ? MPxFileTranslator::kIsMyFileType : MPxFileTranslator::kNotMyFileType) << c.name;
    }
}

TEST_F(Translator, DoesNotLookIntoFiles) {
    MFileObject file;
    file.setRawFullName("/somewhere/a.imd");
    EXPECT_EQ(create()->identifyFile(file, nullptr, 0), MPxFileTranslator::kIsMyFileType);
}

TEST_F(Translator, WritesAndDoesNotRead) {
    const std::unique_ptr<MPxFileTranslator> translator = create();
    EXPECT_NE(translator, create());
    EXPECT_FALSE(translator->haveReadMethod());
    EXPECT_TRUE(translator->haveWriteMethod());
    EXPECT_FALSE(translator->haveNamespaceSupport());
    EXPECT_TRUE(translator->canBeOpened());
    EXPECT_EQ(translator->defaultExtension(), MString("imd"));
    EXPECT_FALSE(translator->reader(MFileObject(), "", MPxFileTranslator::kImportAccessMode));
}

// --- the host's export command

TEST_F(Translator, AFailedExportIsAMelError) {
    session.open("");
    EXPECT_FALSE(session.melRuns(command("-ea", "model")));
    EXPECT_EQ(session.takeMessages(), "Error: No effective node\n\n");
    EXPECT_FALSE(session.hasFile("model.imd"));
}

TEST_F(Translator, ExportsEverything) {
    session.open(nodeText("transform", "a", "", set3("t", 1, 0, 0)) + nodeText("joint", "b", "a"));
    EXPECT_EQ(session.mel(command("-ea", "model", "magnify=2;")), session.folder.path("model.imd"));
    EXPECT_THAT(model("model.imd").names(), ElementsAre("a", "b"));
    EXPECT_EQ(model("model.imd").node("a").translate.x, 2.0);
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_THAT(session.infos.front(), HasSubstr("TVK_Export : model"));
}

TEST_F(Translator, ExportsTheSelection) {
    session.open(nodeText("transform", "a") + nodeText("transform", "b") + nodeText("transform", "c", "b"));
    session.mel("select -r b");
    EXPECT_EQ(session.mel(command("-es", "model")), session.folder.path("model.imd"));
    EXPECT_THAT(model("model.imd").names(), ElementsAre("b", "c"));
}

TEST_F(Translator, WithoutOptionsItsDefaultsCount) {
    session.open(nodeText("transform", "a"));
    session.mel("file -f -typ \"KALDERA_ZEPHRA_System\" -ea \"" + session.folder.path("model") + "\"");
    EXPECT_TRUE(session.hasFile("model.imd"));
    EXPECT_FALSE(session.hasFile("model.iva"));
}

TEST_F(Translator, APointInTheNameIsKept) {
    session.open(nodeText("transform", "a"));
    EXPECT_EQ(session.mel(command("-ea", "char.v2", "iva_file_out=1")), session.folder.path("char.v2.imd"));
    EXPECT_TRUE(session.hasFile("char.v2.imd") && session.hasFile("char.v2.iva"));
}

TEST_F(Translator, AnExtensionIsNotDoubled) {
    session.open(nodeText("transform", "a"));
    EXPECT_EQ(session.mel(command("-ea", "walk.imd")), session.folder.path("walk.imd"));
    EXPECT_TRUE(session.hasFile("walk.imd"));
    EXPECT_FALSE(session.hasFile("walk.imd.imd"));
}

TEST_F(Translator, AFolderThatIsNotThereIsReported) {
    session.open(nodeText("transform", "a"));
    EXPECT_FALSE(session.melRuns(command("-ea", "missing/model")));
    EXPECT_EQ(session.takeMessages(), "Error: Can't open file: " + session.folder.path("missing/model.imd") + "\n\n");
}

} // namespace
} // namespace tvk
