#pragma once

#include "ModelFile.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tvk {

/// One channel of an animation file: where its data stands, and the value that a reader finds at every frame.
struct AnimatedChannel {
    int frameStep = 0, dataSize = 0, dataHead = 0;
    std::vector<double> frames; // in the file's units: factors, degrees, scene units, colour steps
};

/// A node (ica), material (ima) or texture placement (ita) and its channels by their words in the file.
struct AnimatedThing {
    int index = -1;
    std::string materialName; // empty in ica
    std::vector<std::pair<std::string, AnimatedChannel>> channels;

    /// The channel of that word, or a test failure and an empty one.
    const AnimatedChannel& channel(std::string_view word) const;
    /// Values of three channels, "scale_" and so on with x, y, z behind it, at a frame.
    Imath::V3d vectorAt(const std::string& word, std::size_t frame) const;
};

/// An ica, ima or ita file as a reader plays it: skipped frames are held, mixed, or taken from curves, as the file's
/// own header says.
struct AnimationFile {
    FileElement root;
    const FileElement* info = nullptr;
    int frameCount = 0;
    std::map<std::string, std::vector<double>> pools; // by element name, as printed; absent ones are missing
    std::vector<AnimatedThing> things;

    /// The one of that index, or a test failure and an empty one.
    const AnimatedThing& thing(int index) const;
    /// The one of that material, or a test failure and an empty one.
    const AnimatedThing& of(std::string_view materialName) const;
};

/// Reads a file of one of the three kinds. Gives a test failure for whatever a reader could stumble over: bad text, a
/// size that is not the number of its values, numbers between the steps of the fixed point, things that are not
/// numbered in order, missing or surplus channels, steps other than 1, 2 and 4, sizes that do not fit the step and
/// the range, references outside of the pool, keys whose frames do not ascend from 0 to the end of the range.
AnimationFile readAnimationFile(std::string_view text);

/// The model's nodes as they stand at a frame of the animation: channels, local and world matrices.
///   nodes   of an ica file of the same export
std::vector<ModelNode> posed(const ModelFile& model, const AnimationFile& nodes, std::size_t frame);

} // namespace tvk
