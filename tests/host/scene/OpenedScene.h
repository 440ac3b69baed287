#pragma once

#include "host/scene/Scene.h"
#include "host/scene/attributeValueResult.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace host {

// A scene made from a text, with what was said while it was read. The text goes behind the heading of a file, so that
// its first line is line 2.
struct OpenedScene {
    OpenedScene() {
        scene.onWarning = [this](const std::string& line) { warnings.push_back(line); };
    }
    explicit OpenedScene(const std::string& statements) : OpenedScene() { open(statements); }

    void open(const std::string& statements) {
        warnings.clear();
        result = scene.openText("//Maya ASCII 2018 scene\n" + statements, "s.ma");
    }

    Node* node(const std::string& name) { return scene.find(name).node; }
    mel::Value value(const std::string& plugName) {
        const Scene::PlugMatch match = scene.findPlug(plugName);
        EXPECT_TRUE(match.ok()) << match.error;
        return match.ok() ? attributeValue(scene, match.plug) : mel::Value();
    }
    double number(const std::string& plugName) { return value(plugName).toFloat(); }
    std::string text(const std::string& plugName) { return value(plugName).text(); }
    std::vector<double> numbers(const std::string& plugName) {
        const mel::Value read = value(plugName);
        if (read.type() == mel::ValueType::kIntArray) {
            return {read.ints().begin(), read.ints().end()};
        }
        return read.isNumber() ? std::vector<double>{read.toFloat()} : read.floats();
    }
    std::vector<std::string> texts(const std::string& plugName) { return value(plugName).strings(); }

    Scene scene;
    std::vector<std::string> warnings;
    SceneResult result;
};

} // namespace host
