#pragma once

#include "decode/ModelFile.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace decode {

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

    /// The channel of that word; throws a FileError when there is none.
    const AnimatedChannel& channel(std::string_view word) const;
    /// Values of three channels, "scale_" and so on with x, y, z behind it, at a frame of the range.
    Imath::V3d vectorAt(const std::string& word, std::size_t frame) const;
};

/// An ica, ima or ita file as a reader plays it: skipped frames are held, mixed, or taken from curves, as the file's
/// own header says.
/// Moved, never copied: `info` points into `root`.
struct AnimationFile {
    AnimationFile() = default;
    AnimationFile(AnimationFile&&) = default;
    AnimationFile& operator=(AnimationFile&&) = default;
    AnimationFile(const AnimationFile&) = delete;
    AnimationFile& operator=(const AnimationFile&) = delete;
    ~AnimationFile() = default;

    FileElement root;
    const FileElement* info = nullptr; // never null in a file that was read
    int frameCount = 0;
    std::map<std::string, std::vector<double>> pools; // by element name, as printed; absent ones are missing
    std::vector<AnimatedThing> things;

    /// The one of that index; throws a FileError when there is none.
    const AnimatedThing& thing(int index) const;
    /// The one of that material; throws a FileError when there is none.
    const AnimatedThing& of(std::string_view materialName) const;
};

/// Reads a file of one of the three kinds. Throws a FileError for whatever a reader could stumble over: bad text, a
/// size that is not the number of its values, numbers between the steps of the fixed point, things that are not
/// numbered in order, missing or surplus channels, steps other than 1, 2 and 4, sizes that do not fit the step and the
/// range, references outside of the pool, keys whose frames do not ascend from 0 to the end of the range, more frames
/// than PlayedFrames allows.
AnimationFile readAnimationFile(std::string_view text);

/// The model's nodes as they stand at a frame of the animation: channels, local and world matrices.
///   nodes   of an ica file of the same export; a FileError when it has another number of nodes
std::vector<ModelNode> posed(const ModelFile& model, const AnimationFile& nodes, std::size_t frame);

} // namespace decode
