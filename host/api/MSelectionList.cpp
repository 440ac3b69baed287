#include <maya/MSelectionList.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/dagQueries.h"
#include "host/api/statusResult.h"

#include <algorithm>
#include <utility>

using host::ApiAccess;
using host::fail;
using host::Host;
using host::SelectionItem;
using host::succeed;

MSelectionList::MSelectionList() = default;
MSelectionList::MSelectionList(const MSelectionList& other) = default;
MSelectionList::~MSelectionList() = default;
MSelectionList& MSelectionList::operator=(const MSelectionList& other) = default;

bool MSelectionList::same(const Entry& a, const Entry& b) {
    return a.node == b.node && a.path == b.path && a.component == b.component && a.plug == b.plug;
}

std::size_t MSelectionList::find(const Entry& wanted) const {
    const auto found =
        std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return same(entry, wanted); });
    return static_cast<std::size_t>(found - entries_.begin());
}

MStatus MSelectionList::addEntry(const Entry& entry, bool mergeWithExisting) {
    if (!mergeWithExisting || find(entry) == entries_.size()) {
        entries_.push_back(entry);
    }
    return MStatus::kSuccess;
}

MStatus MSelectionList::add(const MString& matchString) {
    std::vector<SelectionItem> items;
    if (!Host::instance().scene().findItems(matchString.asChar(), items).ok() || items.empty()) {
        return MStatus::kInvalidParameter;
    }
    for (const SelectionItem& item : items) {
        ApiAccess::append(*this, item);
    }
    return MStatus::kSuccess;
}

MStatus MSelectionList::add(const MObject& node, bool mergeWithExisting) {
    const host::Node* target = ApiAccess::node(node);
    if (target == nullptr) {
        return MStatus::kInvalidParameter;
    }
    if (target->isDag()) {
        return add(ApiAccess::path(host::firstPath(*target)), MObject(), mergeWithExisting);
    }
    Entry entry;
    entry.node = node;
    return addEntry(entry, mergeWithExisting);
}

MStatus MSelectionList::add(const MDagPath& path, const MObject& component, bool mergeWithExisting) {
    const bool isComponent = component.hasFn(MFn::kComponent);
    if (!path.isValid() || path.length() == 0 || (!component.isNull() && !isComponent)) {
        return MStatus::kInvalidParameter;
    }
    Entry entry;
    entry.node = path.node();
    entry.path = path;
    entry.component = component;
    return addEntry(entry, mergeWithExisting);
}

MStatus MSelectionList::add(const MPlug& plug, bool mergeWithExisting) {
    if (plug.isNull()) {
        return MStatus::kInvalidParameter;
    }
    Entry entry;
    entry.node = plug.node();
    if (const host::Node* node = ApiAccess::node(entry.node); node->isDag()) {
        entry.path = ApiAccess::path(host::firstPath(*node));
    }
    entry.plug = plug;
    return addEntry(entry, mergeWithExisting);
}

MStatus MSelectionList::remove(unsigned int index) {
    if (index >= entries_.size()) {
        return MStatus::kInvalidParameter;
    }
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
    return MStatus::kSuccess;
}

MStatus MSelectionList::replace(unsigned int index, const MObject& node) {
    MSelectionList one;
    if (index >= entries_.size() || one.add(node) != MStatus::kSuccess) {
        return MStatus::kInvalidParameter;
    }
    entries_[index] = one.entries_.front();
    return MStatus::kSuccess;
}

MStatus MSelectionList::clear() {
    entries_.clear();
    return MStatus::kSuccess;
}

MStatus MSelectionList::merge(const MSelectionList& other, MergeStrategy strategy) {
    const std::vector<Entry> entries = other.entries_;
    for (const Entry& entry : entries) {
        const std::size_t position = find(entry);
        const bool isHere = position != entries_.size();
        if (isHere && strategy != kMergeNormal) {
            entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(position));
        } else if (!isHere && strategy != kRemoveFromList) {
            entries_.push_back(entry);
        }
    }
    return MStatus::kSuccess;
}

unsigned int MSelectionList::length(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, static_cast<unsigned int>(entries_.size()));
}

bool MSelectionList::isEmpty(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, entries_.empty());
}

MStatus MSelectionList::getDagPath(unsigned int index, MDagPath& path) const {
    MObject component;
    return getDagPath(index, path, component);
}

MStatus MSelectionList::getDagPath(unsigned int index, MDagPath& path, MObject& component) const {
    if (index >= entries_.size()) {
        return MStatus::kInvalidParameter;
    }
    const Entry& entry = entries_[index];
    if (!entry.path.isValid() || !entry.plug.isNull()) {
        return MStatus::kFailure;
    }
    path = entry.path;
    if (&component != &MObject::kNullObj) {
        component = entry.component;
    }
    return MStatus::kSuccess;
}

MStatus MSelectionList::getDependNode(unsigned int index, MObject& node) const {
    if (index >= entries_.size()) {
        return MStatus::kInvalidParameter;
    }
    if (entries_[index].node.isNull()) {
        return MStatus::kFailure;
    }
    node = entries_[index].node;
    return MStatus::kSuccess;
}

MStatus MSelectionList::getPlug(unsigned int index, MPlug& plug) const {
    if (index >= entries_.size()) {
        return MStatus::kInvalidParameter;
    }
    if (entries_[index].plug.isNull()) {
        return MStatus::kFailure;
    }
    plug = entries_[index].plug;
    return MStatus::kSuccess;
}

MStatus MSelectionList::getSelectionStrings(MStringArray& strings) const {
    for (unsigned int i = 0; i < entries_.size(); ++i) {
        getSelectionStrings(i, strings);
    }
    return MStatus::kSuccess;
}

MStatus MSelectionList::getSelectionStrings(unsigned int index, MStringArray& strings) const {
    if (index >= entries_.size()) {
        return MStatus::kInvalidParameter;
    }
    MSelectionList one;
    one.entries_.push_back(entries_[index]);
    const std::vector<SelectionItem> items = ApiAccess::items(one);
    if (items.empty()) {
        return MStatus::kFailure;
    }
    SelectionItem item = items.front();
    const std::vector<std::string> components = std::move(item.components);
    item.components.clear();
    std::string name = Host::instance().scene().itemName(item, false);
    if (components.empty()) {
        return strings.append(name.c_str());
    }
    name += ".";
    for (const std::string& component : components) {
        strings.append(MString(name.c_str()) + component.c_str());
    }
    return MStatus::kSuccess;
}

bool MSelectionList::hasItem(const MObject& node, MStatus* ReturnStatus) const {
    return succeed(ReturnStatus,
                   !node.isNull() && std::any_of(entries_.begin(), entries_.end(), [&](const Entry& entry) {
                       return entry.node == node && entry.component.isNull() && entry.plug.isNull();
                   }));
}

bool MSelectionList::hasItem(const MDagPath& path, const MObject& component, MStatus* ReturnStatus) const {
    return succeed(ReturnStatus,
                   path.isValid() && std::any_of(entries_.begin(), entries_.end(), [&](const Entry& entry) {
                       return entry.path == path && entry.component == component && entry.plug.isNull();
                   }));
}

bool MSelectionList::hasItem(const MPlug& plug, MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, !plug.isNull() && std::any_of(entries_.begin(), entries_.end(),
                                                               [&](const Entry& entry) { return entry.plug == plug; }));
}
