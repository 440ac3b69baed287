#include "ExpectedPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <sstream>

namespace tvk {
namespace {

constexpr double kSteps = 31.0;
constexpr double kRadians = 3.14159265358979323846 / 180.0;

// As docs/preview.md has them.
const std::array<Imath::V3d, 4> kLightDirections = {Imath::V3d(-0.4, -0.6, -0.7), Imath::V3d(0.7, -0.3, -0.64),
                                                    Imath::V3d(0.2, -0.4, 0.9), Imath::V3d(0.0, 1.0, 0.0)};

std::optional<std::string> textOf(const std::string& path) {
    if (!std::filesystem::exists(path)) {
        return std::nullopt;
    }
    std::ifstream stream(path, std::ios::binary);
    return std::string{std::istreambuf_iterator<char>(stream), {}};
}

Imath::V3d colorOf(const std::vector<double>& parts) {
    return Imath::V3d(parts.at(0), parts.at(1), parts.at(2)) / kSteps;
}

// A billboard keeps its place and size; "y_on" turns about the y axis only. It has no children here.
Imath::M44d turnedToEye(const decode::ModelNode& node, const StraightCamera& camera) {
    EXPECT_EQ(node.child, -1);
    Imath::V3d back = camera.eye - camera.target;
    if (node.billboard == "y_on") {
        back.y = 0.0;
    }
    back.normalize();
    const Imath::V3d right = Imath::V3d(0.0, 1.0, 0.0).cross(back).normalized();
    const std::array<Imath::V3d, 3> axes = {right, back.cross(right), back};
    Imath::M44d turned = node.world;
    for (int row = 0; row < 3; ++row) {
        const Imath::V3d scaled(node.world[row][0], node.world[row][1], node.world[row][2]);
        for (int i = 0; i < 3; ++i) {
            turned[row][i] = axes.at(static_cast<std::size_t>(row))[i] * scaled.length();
        }
    }
    return turned;
}

// Of each face of a polygon the primitive that it is in, counted on from `first`.
std::vector<int> primitivesOf(const decode::ModelFile& model, const decode::DrawnPolygon& polygon, int first) {
    const decode::FileElement& array = model.root.child("body").child("polygon_array");
    std::vector<int> numbers;
    for (const decode::FileElement& group : array.children.at(static_cast<std::size_t>(polygon.index)).children) {
        for (const decode::FileElement& primitive : group.child("primitive_array").children) {
            const std::string& type = primitive.value("type");
            const int sent = primitive.integer("vertex_size");
            const int faces = type == "triangles"        ? sent / 3
                              : type == "quads"          ? sent / 4
                              : type == "triangle_strip" ? sent - 2
                                                         : (sent - 2) / 2;
            numbers.insert(numbers.end(), static_cast<std::size_t>(faces), first);
            ++first;
        }
    }
    return numbers;
}

double wrapped(double place, double size, const std::string& way) {
    if (way == "clamp") {
        return std::clamp(place, 0.0, size - 1e-6);
    }
    const double period = way == "flip" ? 2.0 * size : size;
    const double inside = place - std::floor(place / period) * period;
    return std::min(inside < size ? inside : period - inside, size - 1e-6);
}

} // namespace

struct ExpectedPicture::Finish {
    Imath::V3d diffuse, ambient, specular, emission; // 0 to 1
    std::array<bool, 4> lights{};
    bool isTranslucent = false, isDecal = false;
    std::string face;
    const decode::ModelTexture* texture = nullptr;
    std::string wrapS, wrapT;
    bool isPlaced = false;
    Imath::V2d scale, translate;
    double rotate = 0.0;

    Imath::V3d lit(const Imath::V3d& normal, const Imath::V3d& toEye) const {
        Imath::V3d sum = emission;
        for (std::size_t i = 0; i < lights.size(); ++i) {
            const Imath::V3d toLight = -kLightDirections.at(i).normalized();
            const double shine = std::max(0.0, normal.dot((toLight + toEye).normalized()));
            if (lights.at(i)) {
                sum += ambient + diffuse * std::max(0.0, normal.dot(toLight)) +
                       specular * std::max(0.0, 2.0 * shine * shine - 1.0);
            }
        }
        return {std::min(sum.x, 1.0), std::min(sum.y, 1.0), std::min(sum.z, 1.0)};
    }

    // The texel that is seen at a place that was sent, as the host places frames of textures.
    const decode::ShownTexel& texelAt(const Imath::V2d& sent) const {
        Imath::V2d at = sent;
        if (isPlaced) {
            const double w = texture->originalWidth;
            const double h = texture->originalHeight;
            const double u = sent.x / w - translate.x - 0.5;
            const double v = 1.0 - sent.y / h - translate.y - 0.5;
            const double c = std::cos(rotate * kRadians);
            const double s = std::sin(rotate * kRadians);
            at = {scale.x * (u * c + v * s + 0.5) * w, (1.0 - scale.y * (v * c - u * s + 0.5)) * h};
        }
        return texture->at(static_cast<int>(wrapped(at.x, texture->width, wrapS)),
                           static_cast<int>(wrapped(at.y, texture->height, wrapT)));
    }
};

DecodedExport readExport(const std::string& base) {
    DecodedExport files;
    files.model = decode::readModelFile(textOf(base + ".imd").value());
    files.geometry = decode::readModelGeometry(files.model);
    files.textures = decode::readModelTextures(files.model.root);
    const auto read = [&base](const char* ending, auto& file, auto readFile) {
        if (const std::optional<std::string> text = textOf(base + ending)) {
            file = readFile(*text);
        }
    };
    read(".ica", files.nodes, decode::readAnimationFile);
    read(".ima", files.colors, decode::readAnimationFile);
    read(".ita", files.placements, decode::readAnimationFile);
    read(".itp", files.patterns, decode::readPatternFile);
    read(".iva", files.visibility, decode::readVisibilityFile);
    return files;
}

std::string StraightCamera::parameter() const {
    std::ostringstream text;
    text << "camera=" << eye.x << ',' << eye.y << ',' << eye.z << ',' << target.x << ',' << target.y << ',' << target.z
         << ',' << height;
    return text.str();
}

Imath::V3d StraightCamera::place(const Imath::V3d& point, int width, int pictureHeight) const {
    const Imath::V3d back = (eye - target).normalized();
    const Imath::V3d right = Imath::V3d(0.0, 1.0, 0.0).cross(back).normalized();
    const Imath::V3d up = back.cross(right);
    const Imath::V3d from = point - eye;
    const double pixels = pictureHeight / height;
    return {width / 2.0 + from.dot(right) * pixels, pictureHeight / 2.0 - from.dot(up) * pixels, from.dot(back)};
}

ExpectedPicture::ExpectedPicture(DecodedExport& files, std::size_t frame, const StraightCamera& camera, int width,
                                 int height)
    : width_(width), height_(height), pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
      depths_(pixels_.size(), -std::numeric_limits<double>::infinity()), camera_(camera) {
    std::vector<Imath::M44d> worlds;
    for (const decode::ModelNode& node :
         files.nodes ? decode::posed(files.model, *files.nodes, frame) : files.model.nodes) {
        worlds.push_back(node.billboard == "off" ? node.world : turnedToEye(node, camera));
        nodePlaces_.push_back(node.world.translation());
    }
    decode::poseModel(files.model, worlds, files.geometry);
    int primitives = 0;
    for (const decode::DrawnPolygon& polygon : files.geometry.polygons) {
        const std::vector<int> primitiveOfFace = primitivesOf(files.model, polygon, primitives);
        const auto node = static_cast<std::size_t>(polygon.node);
        const bool isShown = files.visibility ? files.visibility->nodes.at(node).frames.at(frame) != 0
                                              : files.model.nodes.at(node).visibility;
        if (isShown) {
            draw(polygon, finishOf(files, frame, polygon.material), primitiveOfFace);
        }
        primitives += static_cast<int>(polygon.primitiveTypes.size());
    }
}

ExpectedPicture::Finish ExpectedPicture::finishOf(const DecodedExport& files, std::size_t frame, int material) const {
    const decode::FileElement& element =
        files.model.root.child("body").child("material_array").children.at(static_cast<std::size_t>(material));
    const std::string& name = element.value("name");
    Finish finish;
    finish.diffuse = colorOf(element.reals("diffuse"));
    finish.ambient = colorOf(element.reals("ambient"));
    finish.specular = colorOf(element.reals("specular"));
    finish.emission = colorOf(element.reals("emission"));
    for (std::size_t i = 0; i < 4; ++i) {
        finish.lights.at(i) = element.isOn("light" + std::to_string(i));
    }
    finish.face = element.value("face");
    finish.isDecal = element.value("polygon_mode") == "decal";
    const bool isComputed =
        (finish.isDecal || element.value("polygon_mode") == "modulate") && !element.isOn("wire_mode");
    finish.isTranslucent = !isComputed || element.integer("alpha") < 31;
    int image = element.integer("tex_image_idx");
    const auto isOfMaterial = [&](const auto& thing) { return thing.materialName == name; };
    if (files.colors) {
        const auto& things = files.colors->things;
        const auto thing = std::find_if(things.begin(), things.end(), isOfMaterial);
        const auto at = [&](const std::string& word) {
            const auto part = [&](const char* letter) { return thing->channel(word + "_" + letter).frames.at(frame); };
            return Imath::V3d(part("r"), part("g"), part("b")) / kSteps;
        };
        if (thing != things.end()) {
            finish.diffuse = at("diffuse");
            finish.ambient = at("ambient");
            finish.specular = at("specular");
            finish.emission = at("emission");
            finish.isTranslucent = thing->channel("polygon_alpha").frames.at(frame) < kSteps;
        }
    }
    if (files.patterns) {
        const auto& entries = files.patterns->entries;
        const auto entry = std::find_if(entries.begin(), entries.end(), isOfMaterial);
        image = entry == entries.end() ? image : files.textures.image(entry->images.at(frame)).index;
    }
    if (image < 0) {
        return finish;
    }
    finish.texture = &files.textures.images.at(static_cast<std::size_t>(image));
    for (const decode::ShownTexel& texel : finish.texture->texels) {
        finish.isTranslucent = finish.isTranslucent || (texel.a > 0 && texel.a < 31);
    }
    std::istringstream(element.value("tex_tiling")) >> finish.wrapS >> finish.wrapT;
    const std::vector<double> scale = element.reals("tex_scale");
    const std::vector<double> translate = element.reals("tex_translate");
    const std::string& mode = element.value("tex_gen_mode");
    finish.isPlaced = mode == "tex";
    finish.isTranslucent = finish.isTranslucent || mode == "nrm" || mode == "pos"; // not computed either
    finish.scale = {scale.at(0), scale.at(1)};
    finish.rotate = element.reals("tex_rotate").at(0);
    finish.translate = {translate.at(0), translate.at(1)};
    if (files.placements) {
        const auto& things = files.placements->things;
        const auto thing = std::find_if(things.begin(), things.end(), isOfMaterial);
        if (thing != things.end()) {
            const auto at = [&](const char* word) { return thing->channel(word).frames.at(frame); };
            finish.scale = {at("tex_scale_s"), at("tex_scale_t")};
            finish.rotate = at("tex_rotate");
            finish.translate = {at("tex_translate_s"), at("tex_translate_t")};
        }
    }
    return finish;
}

void ExpectedPicture::draw(const decode::DrawnPolygon& polygon, const Finish& finish,
                           const std::vector<int>& primitiveOfFace) {
    const Imath::V3d toEye = (camera_.eye - camera_.target).normalized();
    const bool isLit = polygon.hasNormals && std::count(finish.lights.begin(), finish.lights.end(), true) > 0;
    ExpectedPixel pixel;
    pixel.polygon = polygon.index;
    pixel.isTranslucent = finish.isTranslucent;
    for (std::size_t number = 0; number < polygon.faces.size(); ++number) {
        const decode::DrawnFace& face = polygon.faces[number];
        pixel.primitive = primitiveOfFace.at(number);
        std::vector<Corner> corners;
        for (const decode::DrawnVertex& vertex : face) {
            Finish own = finish;
            if (vertex.color) {
                const auto& [r, g, b] = *vertex.color;
                own.diffuse = Imath::V3d(r, g, b) / kSteps;
            }
            const Imath::V3d color =
                isLit ? own.lit(vertex.worldNormal.value_or(Imath::V3d(0.0)).normalized(), toEye) : own.diffuse;
            corners.push_back({camera_.place(vertex.world, width_, height_),
                               {color.x, color.y, color.z},
                               vertex.texCoord.value_or(Imath::V2d(0.0))});
        }
        for (std::size_t i = 1; i + 1 < corners.size(); ++i) {
            drawTriangle({corners[0], corners[i], corners[i + 1]}, finish, pixel);
        }
    }
}

std::optional<std::array<double, 3>> ExpectedPicture::colorAt(const std::array<Corner, 3>& corners,
                                                              const std::array<double, 3>& weights,
                                                              const Finish& finish) {
    std::array<double, 3> color{};
    Imath::V2d at(0.0);
    for (std::size_t corner = 0; corner < 3; ++corner) {
        at += corners.at(corner).texel * weights.at(corner);
        for (std::size_t i = 0; i < 3; ++i) {
            color.at(i) += 255.0 * corners.at(corner).color.at(i) * weights.at(corner);
        }
    }
    if (finish.texture == nullptr) {
        return color;
    }
    const decode::ShownTexel& seen = finish.texelAt(at);
    if (seen.a == 0) {
        return finish.isDecal ? std::optional(color) : std::nullopt;
    }
    const std::array<int, 3> texel = {seen.r, seen.g, seen.b};
    for (std::size_t i = 0; i < 3; ++i) {
        color.at(i) = texel.at(i) / kSteps * (finish.isDecal ? 255.0 : color.at(i));
    }
    return color;
}

void ExpectedPicture::drawTriangle(const std::array<Corner, 3>& corners, const Finish& finish,
                                   const ExpectedPixel& pixel) {
    const Imath::V3d& a = corners[0].place;
    const Imath::V3d& b = corners[1].place;
    const Imath::V3d& c = corners[2].place;
    const double area = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
    const bool isFront = area < 0.0; // rows go down, so what winds to the left has a negative area
    if (area == 0.0 || (finish.face == "front" && !isFront) || (finish.face == "back" && isFront)) {
        return;
    }
    const auto range = [](double low, double high, int size) {
        return std::pair{std::max(0, static_cast<int>(std::floor(low))),
                         std::min(size - 1, static_cast<int>(std::ceil(high)))};
    };
    const auto [left, right] = range(std::min({a.x, b.x, c.x}), std::max({a.x, b.x, c.x}), width_);
    const auto [top, bottom] = range(std::min({a.y, b.y, c.y}), std::max({a.y, b.y, c.y}), height_);
    for (int row = top; row <= bottom; ++row) {
        for (int column = left; column <= right; ++column) {
            const double x = column + 0.5;
            const double y = row + 0.5;
            const double ofB = ((x - a.x) * (c.y - a.y) - (y - a.y) * (c.x - a.x)) / area;
            const double ofC = ((b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x)) / area;
            const double ofA = 1.0 - ofB - ofC;
            const auto place =
                static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(column);
            const double depth = a.z * ofA + b.z * ofB + c.z * ofC;
            if (ofA < 0.0 || ofB < 0.0 || ofC < 0.0 || depth <= depths_[place]) {
                continue;
            }
            if (const auto color = colorAt(corners, {ofA, ofB, ofC}, finish)) {
                pixels_[place] = pixel;
                pixels_[place].color = *color;
                depths_[place] = depth;
            }
        }
    }
}

bool ExpectedPicture::isPlain(int column, int row) const {
    constexpr double kAlike = 20.0;
    const ExpectedPixel& middle = at(column, row);
    for (int y = row - 1; y <= row + 1; ++y) {
        for (int x = column - 1; x <= column + 1; ++x) {
            if (x < 0 || y < 0 || x >= width_ || y >= height_ || at(x, y).polygon < 0 || at(x, y).isTranslucent) {
                return false;
            }
            for (std::size_t i = 0; i < 3; ++i) {
                if (std::abs(at(x, y).color.at(i) - middle.color.at(i)) > kAlike) {
                    return false;
                }
            }
        }
    }
    return true;
}

} // namespace tvk
