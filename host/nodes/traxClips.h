#pragma once

#include "host/graph/Evaluation.h"
#include "host/nodes/characterMapping.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace host {

/// A character whose channels a library's clips move: element by element, the number of the curve within a clip.
struct ClipCharacter {
    Node* character = nullptr;
    std::shared_ptr<const CharacterMapping> mapping; // never null
    std::vector<std::int32_t> curves;                // one per channel of the mapping
};

/// A clip on the timeline.
struct ScheduledClip {
    Node* clip = nullptr;
    Node* source = nullptr;     // whose curves it plays; null: its own
    std::int32_t element = -1;  // in the scheduler's arrays; -1: none
    std::int32_t curveList = 0; // which list of the library's clipEvalList
    bool isByName = false;      // nothing but its name tells the source
};

/// The nodes of one timeline as files connect them: a scheduler, the library behind its clipFunction, the characters
/// that its characterdata come from, and the clips that are connected to either beside the library's sources.
struct ClipTimeline {
    Node* scheduler = nullptr;
    Node* library = nullptr; // null: no clips
    std::vector<ClipCharacter> characters;
    std::vector<ScheduledClip> clips;
    std::vector<Node*> lost; // clips of which not even the name tells what they play
};

ClipTimeline findTimeline(Graph& graph, Node& scheduler);

/// The scheduler behind a character: its own, or that of the character that its clips belong to; null when none.
Node* schedulerOf(const Node& character);

/// The curve of a list; null when there is none.
Node* clipCurve(const ClipTimeline& timeline, std::int32_t list, std::int32_t curve);

} // namespace host
