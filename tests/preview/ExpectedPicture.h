#pragma once

#include "decode/AnimationFile.h"
#include "decode/ModelFile.h"
#include "decode/ModelGeometry.h"
#include "decode/ModelTextures.h"
#include "decode/PatternFile.h"
#include "decode/VisibilityFile.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tvk {

/// The files of an export, decoded.
struct DecodedExport {
    decode::ModelFile model;
    decode::ModelGeometry geometry;
    decode::ModelTextures textures;
    std::optional<decode::AnimationFile> nodes, colors, placements;
    std::optional<decode::PatternFile> patterns;
    std::optional<decode::VisibilityFile> visibility;
};

/// Reads BASE.imd and what is beside it.
DecodedExport readExport(const std::string& base);

/// A camera without perspective, y upwards.
struct StraightCamera {
    Imath::V3d eye, target;
    double height = 1.0; // of what is seen, in units

    /// As the page's address asks for it.
    std::string parameter() const;
    /// Column and row of a point in a picture of that size, and how near it is to the eye.
    Imath::V3d place(const Imath::V3d& point, int width, int pictureHeight) const;
};

/// A pixel as the console should show it.
struct ExpectedPixel {
    int polygon = -1, primitive = -1; // primitive counted through the polygons; -1: nothing is drawn
    std::array<double, 3> color{};    // 0 to 255
    bool isTranslucent = false;       // or of a kind whose colour is not computed here
};

/// What should be seen of decoded files: posed, coloured and drawn triangle by triangle, by a program that shares
/// nothing with the page.
class ExpectedPicture {
public:
    /// The export at a frame, counted from 0.
    ExpectedPicture(DecodedExport& files, std::size_t frame, const StraightCamera& camera, int width, int height);

    const ExpectedPixel& at(int column, int row) const {
        return pixels_.at(static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) +
                          static_cast<std::size_t>(column));
    }
    /// Whether all pixels around are drawn, opaque, and of about the same colour: neither an edge nor a texel's border.
    bool isPlain(int column, int row) const;
    int width() const { return width_; }
    int height() const { return height_; }
    /// Where nodes stand.
    const std::vector<Imath::V3d>& nodePlaces() const { return nodePlaces_; }

private:
    struct Corner {
        Imath::V3d place; // on the picture
        std::array<double, 3> color{};
        Imath::V2d texel;
    };
    struct Finish;

    void draw(const decode::DrawnPolygon& polygon, const Finish& finish, const std::vector<int>& primitiveOfFace);
    /// Nothing where a texture has a hole.
    static std::optional<std::array<double, 3>> colorAt(const std::array<Corner, 3>& corners,
                                                        const std::array<double, 3>& weights, const Finish& finish);
    void drawTriangle(const std::array<Corner, 3>& corners, const Finish& finish, const ExpectedPixel& pixel);
    Finish finishOf(const DecodedExport& files, std::size_t frame, int material) const;

    int width_, height_;
    std::vector<ExpectedPixel> pixels_;
    std::vector<double> depths_;
    StraightCamera camera_;
    std::vector<Imath::V3d> nodePlaces_;
};

} // namespace tvk
