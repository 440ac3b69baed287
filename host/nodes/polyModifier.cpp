#include "host/nodes/polyModifier.h"

namespace host {

const ModifierAttributes& modifierAttributes(const Node& modifier) {
    // The same in all modifiers, since a type's own attributes come after those that it inherits.
    static const ModifierAttributes kAttributes{
        modifier.type().find("inputPolymesh"), modifier.type().find("inputComponents"),
        modifier.type().find("inputMatrix"), modifier.type().find("worldSpace")};
    return kAttributes;
}

std::shared_ptr<const ComponentList> componentsOf(Evaluation& evaluation, Node& node, AttrIndex attr) {
    const DataPtr data = evaluation.data(node, {attr, 0, {}});
    return data != nullptr && data->kind == DataKind::kComponentList
               ? std::static_pointer_cast<const ComponentList>(data)
               : std::make_shared<const ComponentList>();
}

std::shared_ptr<const ComponentList> chosenOf(Evaluation& evaluation, Node& modifier) {
    return componentsOf(evaluation, modifier, modifierAttributes(modifier).components);
}

Matrix44 workingSpace(Evaluation& evaluation, Node& modifier) {
    const ModifierAttributes& attr = modifierAttributes(modifier);
    const bool isInWorld = evaluation.number(modifier, attr.worldSpace) != 0.0;
    return isInWorld ? evaluation.matrix(modifier, {attr.matrix, 0, {}}) : Matrix44();
}

} // namespace host
