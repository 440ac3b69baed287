#include <maya/MBoundingBox.h>

#include <maya/MMatrix.h>

#include <algorithm>

MBoundingBox::MBoundingBox(const MPoint& corner1, const MPoint& corner2) {
    expand(corner1);
    expand(corner2);
}

void MBoundingBox::expand(const MPoint& point) {
    if (empty_) {
        min_ = max_ = MPoint(point.x, point.y, point.z);
        empty_ = false;
        return;
    }
    for (unsigned int i = 0; i < 3; ++i) {
        min_[i] = std::min(min_[i], point[i]);
        max_[i] = std::max(max_[i], point[i]);
    }
}

void MBoundingBox::expand(const MBoundingBox& box) {
    if (!box.empty_) {
        expand(box.min_);
        expand(box.max_);
    }
}

void MBoundingBox::transformUsing(const MMatrix& matrix) {
    if (empty_) {
        return;
    }
    MBoundingBox around;
    for (unsigned int corner = 0; corner < 8; ++corner) {
        const MPoint point((corner & 1U) != 0 ? max_.x : min_.x, (corner & 2U) != 0 ? max_.y : min_.y,
                           (corner & 4U) != 0 ? max_.z : min_.z);
        around.expand((point * matrix).cartesianize());
    }
    *this = around;
}

bool MBoundingBox::contains(const MPoint& point) const {
    return !empty_ && min_.x <= point.x && point.x <= max_.x && min_.y <= point.y && point.y <= max_.y &&
           min_.z <= point.z && point.z <= max_.z;
}

bool MBoundingBox::intersects(const MBoundingBox& box, double tolerance) const {
    bool apart = empty_ || box.empty_;
    for (unsigned int i = 0; i < 3; ++i) {
        apart = apart || min_[i] > box.max_[i] + tolerance || box.min_[i] > max_[i] + tolerance;
    }
    return !apart;
}

MPoint MBoundingBox::center() const {
    return min_ + (max_ - min_) * 0.5;
}
