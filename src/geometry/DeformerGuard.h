#pragma once

#include <maya/MObject.h>
#include <maya/MPlug.h>

#include <vector>

namespace tvk {

/// Lets geometry pass by deformers while it lives: their node state is "has no effect". Puts every state back that it
/// changed, whichever way the scope is left.
class DeformerGuard {
public:
    explicit DeformerGuard(const std::vector<MObject>& deformers);
    ~DeformerGuard();
    DeformerGuard(const DeformerGuard&) = delete;
    DeformerGuard& operator=(const DeformerGuard&) = delete;

    /// Whether no deformer is left working: false when a node state is locked or set by a connection.
    bool areAllOff() const { return allOff; }

private:
    struct SavedState {
        MPlug plug;
        int state;
    };
    std::vector<SavedState> saved;
    bool allOff = true;
};

} // namespace tvk
