#include "HostSession.h"

#include "sceneText.h"

#include "host/api/Host.h"

#include <maya/MAnimControl.h>
#include <maya/MFnTransform.h>
#include <maya/MSelectionList.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace tvk {
namespace {

host::Host& theHost() {
    return host::Host::instance();
}

} // namespace

HostSession::HostSession() : oldBuffer(std::cerr.rdbuf(standardError.rdbuf())) {
    theHost().scene().newScene();
    theHost().messages() = {[this](const std::string& line) { infos.push_back(line); },
                            [this](const std::string& line) { warnings.push_back(line); },
                            [this](const std::string& line) { errors.push_back(line); }, [](const std::string&) {}};
    theHost().feedbackLine().onChange = [this] {
        const std::string text = theHost().feedbackLine().text();
        if (theHost().feedbackLine().shown() && !text.empty() && (progress.empty() || progress.back() != text)) {
            progress.push_back(text);
        }
    };
}

HostSession::~HostSession() {
    theHost().messages() = {};
    theHost().feedbackLine().onChange = nullptr;
    theHost().feedbackLine().clear();
    theHost().feedbackLine().setShown(false);
    theHost().plugins().refusedNames.clear();
    theHost().scene().newScene();
    std::cerr.rdbuf(oldBuffer);
}

std::string HostSession::takeMessages() {
    std::string text = standardError.str();
    standardError.str("");
    return text;
}

void HostSession::open(const std::string& statements) {
    const host::SceneResult result = theHost().scene().openText(sceneOf(statements), "scene.ma");
    EXPECT_TRUE(result.ok()) << result.error;
}

void HostSession::openFile(const std::string& fileName, const std::string& text) {
    const std::string path = folder.path(fileName);
    std::ofstream(std::filesystem::u8path(path), std::ios_base::binary) << text;
    const host::SceneResult result = theHost().scene().open(path);
    EXPECT_TRUE(result.ok()) << result.error;
}

std::string HostSession::mel(const std::string& script) {
    const host::mel::EvalResult result = theHost().execute(script);
    EXPECT_TRUE(result.ok()) << script << ": " << (result.ok() ? "" : result.error->describe());
    return result.value.toText();
}

bool HostSession::melRuns(const std::string& script) {
    return theHost().execute(script).ok();
}

std::string HostSession::fileText(const std::string& name) const {
    std::ifstream in(std::filesystem::u8path(folder.path(name)));
    EXPECT_TRUE(in.is_open()) << name;
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

bool HostSession::hasFile(const std::string& name) const {
    return std::filesystem::exists(std::filesystem::u8path(folder.path(name)));
}

MDagPath HostSession::path(const std::string& name) const {
    MSelectionList list;
    MDagPath result;
    EXPECT_TRUE(list.add(name.c_str())) << name;
    EXPECT_TRUE(list.getDagPath(0, result)) << name;
    return result;
}

MObject HostSession::node(const std::string& name) const {
    MSelectionList list;
    MObject result;
    EXPECT_TRUE(list.add(name.c_str())) << name;
    EXPECT_TRUE(list.getDependNode(0, result)) << name;
    return result;
}

double HostSession::currentTime() const {
    return MAnimControl::currentTime().as(MTime::uiUnit());
}

Imath::M44d HostSession::expectedWorld(const std::string& name, double magnify) {
    const MDagPath dagPath = path(name);
    const MMatrix world = dagPath.inclusiveMatrix();
    const bool isJoint = dagPath.hasFn(MFn::kJoint);
    const MPoint pivot = isJoint ? MPoint() : MFnTransform(dagPath).scalePivot(MSpace::kTransform);
    Imath::M44d result;
    for (unsigned int r = 0; r < 4; ++r) {
        for (unsigned int c = 0; c < 4; ++c) {
            result[r][c] = world(r, c);
        }
    }
    const Imath::V3d origin = Imath::V3d(pivot.x, pivot.y, pivot.z) * result;
    for (int i = 0; i < 3; ++i) {
        result[3][i] = origin[i] * magnify;
    }
    return result;
}

double distance(const Imath::M44d& a, const Imath::M44d& b) {
    double largest = 0.0;
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            largest = std::max(largest, std::abs(a[r][c] - b[r][c]));
        }
    }
    return largest;
}

} // namespace tvk
