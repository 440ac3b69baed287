#include "geometry/primitiveOrder.h"

#include "geometry/MatrixSet.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <utility>

namespace tvk {

namespace {

using Vertices = std::vector<Corner>;
using VertexLists = std::vector<Vertices>;

// The vertex of a face that a later group can begin with, face.end() when there is none.
Vertices::iterator findOtherMatrix(Vertices& face, int32_t lastMatrix) {
    return std::find_if(face.begin(), face.end(), [&](const Corner& corner) { return corner.matrix != lastMatrix; });
}

// Moves the first face that can begin a group to the front and turns it so that it does.
bool openList(VertexLists& list, int32_t lastMatrix) {
    for (std::size_t i = 0; i < list.size(); ++i) {
        const auto first = findOtherMatrix(list[i], lastMatrix);
        if (first == list[i].end())
            continue;
        std::rotate(list[i].begin(), first, list[i].end());
        std::rotate(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(i),
                    list.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        return true;
    }
    return false;
}

// Adds a stretch of a triangle strip that begins at an even place: a strip, a single triangle or nothing.
void addTriangles(LooseFaces& faces, Vertices vertices) {
    if (vertices.size() > 3)
        faces.triangleStrips.push_back(std::move(vertices));
    else if (vertices.size() == 3)
        faces.triangles.push_back(std::move(vertices));
}

void addQuads(LooseFaces& faces, Vertices vertices) {
    if (vertices.size() > 4)
        faces.quadStrips.push_back(std::move(vertices));
    else if (vertices.size() == 4)
        faces.quads.push_back({vertices[0], vertices[1], vertices[3], vertices[2]});
}

Vertices triangleOfStrip(const Vertices& strip, std::size_t k) {
    if (k % 2 == 0)
        return {strip[k], strip[k + 1], strip[k + 2]};
    return {strip[k + 1], strip[k], strip[k + 2]};
}

// Takes triangle k out of a strip. What follows begins with a turned triangle when k is even; a stretch of odd length
// can then be sent from its other end, one of even length gives up a triangle first.
void breakTriangleStrip(LooseFaces& faces, const Vertices& strip, std::size_t k) {
    const std::size_t count = strip.size() - 2;
    faces.triangles.push_back(triangleOfStrip(strip, k));
    addTriangles(faces, {strip.begin(), strip.begin() + static_cast<std::ptrdiff_t>(k > 0 ? k + 2 : 0)});
    std::size_t next = k + 1;
    if (next >= count)
        return;
    if (next % 2 == 1 && (count - next) % 2 == 0)
        faces.triangles.push_back(triangleOfStrip(strip, next++));
    Vertices rest(strip.begin() + static_cast<std::ptrdiff_t>(next), strip.end());
    if (next % 2 == 1)
        std::reverse(rest.begin(), rest.end());
    addTriangles(faces, std::move(rest));
}

void breakQuadStrip(LooseFaces& faces, const Vertices& strip, std::size_t k) {
    const auto place = static_cast<std::ptrdiff_t>(2 * k);
    addQuads(faces, {strip.begin() + place, strip.begin() + place + 4});
    addQuads(faces, {strip.begin(), strip.begin() + (k > 0 ? place + 2 : 0)});
    if (2 * k + 4 < strip.size())
        addQuads(faces, {strip.begin() + place + 2, strip.end()});
}

// Breaks the first strip that has a vertex on another matrix, so that the face there stands alone.
void breakOneStrip(LooseFaces& faces, int32_t lastMatrix) {
    for (VertexLists* strips : {&faces.quadStrips, &faces.triangleStrips}) {
        for (std::size_t i = 0; i < strips->size(); ++i) {
            const auto found = findOtherMatrix((*strips)[i], lastMatrix);
            if (found == (*strips)[i].end())
                continue;
            const auto at = static_cast<std::size_t>(found - (*strips)[i].begin());
            const Vertices strip = std::move((*strips)[i]);
            strips->erase(strips->begin() + static_cast<std::ptrdiff_t>(i));
            if (strips == &faces.quadStrips)
                breakQuadStrip(faces, strip, std::min(at / 2, strip.size() / 2 - 2));
            else
                breakTriangleStrip(faces, strip, std::min(at, strip.size() - 3));
            return;
        }
    }
}

MatrixSet matricesOf(const Vertices& face) {
    MatrixSet set;
    for (const Corner& corner : face)
        set.add(corner.matrix);
    return set;
}

class Sender {
public:
    Sender(int32_t currentMatrix, bool sortsLists) : matrix(currentMatrix), sortLists(sortsLists) {}

    // One strip after the other, as the current matrix asks for.
    void sendStrips(VertexLists& strips, PrimitiveType type) {
        std::unordered_map<int32_t, std::vector<std::size_t>> byFirstMatrix;
        for (std::size_t i = strips.size(); i-- > 0;)
            byFirstMatrix[strips[i][0].matrix].push_back(i);
        std::size_t lowest = 0;
        for (std::size_t sent = 0; sent < strips.size(); ++sent) {
            std::size_t next = strips.size();
            if (const auto found = byFirstMatrix.find(matrix); found != byFirstMatrix.end()) {
                while (!found->second.empty() && strips[found->second.back()].empty())
                    found->second.pop_back();
                if (!found->second.empty())
                    next = found->second.back();
            }
            while (next == strips.size()) {
                if (!strips[lowest].empty())
                    next = lowest;
                else
                    ++lowest;
            }
            send(type, std::move(strips[next]));
            strips[next].clear();
        }
    }

    //   keepsFirst   the first face begins a later group and stays as it is
    void sendList(VertexLists& list, PrimitiveType type, bool keepsFirst) {
        if (list.empty())
            return;
        if (sortLists) {
            std::vector<std::pair<MatrixSet, std::size_t>> order;
            for (std::size_t i = keepsFirst ? 1 : 0; i < list.size(); ++i)
                order.emplace_back(matricesOf(list[i]), i);
            std::sort(order.begin(), order.end());
            VertexLists sorted;
            if (keepsFirst)
                sorted.push_back(std::move(list[0]));
            for (const auto& entry : order)
                sorted.push_back(std::move(list[entry.second]));
            list = std::move(sorted);
        }
        Vertices vertices;
        for (std::size_t i = 0; i < list.size(); ++i) {
            Vertices& face = list[i];
            if (sortLists && !(keepsFirst && i == 0)) {
                const auto first = std::find_if(face.begin(), face.end(),
                                                [&](const Corner& corner) { return corner.matrix == matrix; });
                if (first != face.end())
                    std::rotate(face.begin(), first, face.end());
            }
            matrix = face.back().matrix;
            vertices.insert(vertices.end(), face.begin(), face.end());
        }
        send(type, std::move(vertices));
        list.clear();
    }

    void send(PrimitiveType type, Vertices vertices) {
        matrix = vertices.back().matrix;
        primitives.push_back({type, std::move(vertices)});
    }

    std::vector<Primitive> primitives;

private:
    int32_t matrix;
    bool sortLists;
};

// Sends the strip with which a later group can begin.
bool openWithStrip(VertexLists& strips, PrimitiveType type, int32_t lastMatrix, Sender& sender) {
    const auto found = std::find_if(strips.begin(), strips.end(),
                                    [&](const Vertices& strip) { return strip[0].matrix != lastMatrix; });
    if (found == strips.end())
        return false;
    sender.send(type, std::move(*found));
    strips.erase(found);
    return true;
}

void openGroup(LooseFaces& faces, int32_t lastMatrix, Sender& sender) {
    if (openWithStrip(faces.quadStrips, PrimitiveType::kQuadStrip, lastMatrix, sender) ||
        openWithStrip(faces.triangleStrips, PrimitiveType::kTriangleStrip, lastMatrix, sender))
        return;
    for (const bool broken : {false, true}) {
        if (broken)
            breakOneStrip(faces, lastMatrix);
        if (openList(faces.quads, lastMatrix)) {
            sender.sendList(faces.quads, PrimitiveType::kQuads, true);
            return;
        }
        if (openList(faces.triangles, lastMatrix)) {
            sender.sendList(faces.triangles, PrimitiveType::kTriangles, true);
            return;
        }
    }
}

} // namespace

std::vector<Primitive> orderPrimitives(LooseFaces faces, int32_t lastMatrix, bool sortLists) {
    Sender sender(lastMatrix, sortLists);
    if (lastMatrix >= 0)
        openGroup(faces, lastMatrix, sender);
    sender.sendStrips(faces.quadStrips, PrimitiveType::kQuadStrip);
    sender.sendStrips(faces.triangleStrips, PrimitiveType::kTriangleStrip);
    sender.sendList(faces.quads, PrimitiveType::kQuads, false);
    sender.sendList(faces.triangles, PrimitiveType::kTriangles, false);
    return std::move(sender.primitives);
}

} // namespace tvk
