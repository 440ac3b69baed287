#pragma once

#include <maya/MPoint.h>
#include <maya/MStatus.h>

class MMatrix;

/// A box along the axes. An empty one holds nothing, has all sizes 0 and both corners at the origin, and takes the
/// first point that it is expanded by for itself.
class MBoundingBox {
public:
    MBoundingBox() = default;                                   // empty
    MBoundingBox(const MPoint& corner1, const MPoint& corner2); // any two opposite corners

    void clear() { *this = MBoundingBox(); }
    void expand(const MPoint& point);
    void expand(const MBoundingBox& box);
    /// Becomes the box around its eight transformed corners. An empty one stays empty.
    void transformUsing(const MMatrix& matrix);

    bool contains(const MPoint& point) const; // the surface belongs to it
    /// Whether the boxes touch or come nearer than the tolerance along every axis.
    bool intersects(const MBoundingBox& box, double tolerance = 0.0) const;

    double width() const { return max().x - min().x; }
    double height() const { return max().y - min().y; }
    double depth() const { return max().z - min().z; }
    MPoint center() const;
    MPoint min() const { return min_; }
    MPoint max() const { return max_; }

private:
    MPoint min_, max_;
    bool empty_ = true;
};
