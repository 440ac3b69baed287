// The words beside the picture. Text from files goes in as text only.

/** An element with attributes and children; strings become text. */
export function element(name, attributes = {}, ...children) {
    const made = document.createElement(name);
    for (const [key, value] of Object.entries(attributes)) {
        made.setAttribute(key, value);
    }
    made.append(...children);
    return made;
}

function section(title, ...children) {
    return element("section", {}, element("h2", {}, title), ...children);
}

function table(rows) {
    const lines = rows.map(([name, value]) => element("tr", {}, element("th", {}, name), element("td", {}, value)));
    return element("table", {}, ...lines);
}

const kUnits = [["MB", 1 << 20], ["KB", 1 << 10]];

export function sizeText(bytes) {
    const unit = kUnits.find(([, size]) => bytes >= size);
    return unit === undefined ? `${bytes} bytes` : `${(bytes / unit[1]).toFixed(1)} ${unit[0]}`;
}

function countText(count, one, many) {
    return `${count} ${count === 1 ? one : many}`;
}

function fileLine(file) {
    const head = element(
        "div", { class: "head" },
        element("span", { class: "kind" }, file.kind),
        element("span", { class: "what" }, file.title),
        element("span", { class: "size" }, file.isThere ? sizeText(file.bytes) : "missing"));
    const note = element("div", { class: "note" }, file.isThere ? file.facts : file.consequence);
    return element("li", { class: file.isThere ? "there" : "missing", "data-kind": file.kind }, head, note);
}

function filesSection(data) {
    return section("Files", element("ul", { class: "files" }, ...data.files.map(fileLine)));
}

function modelSection(data) {
    const joints = data.nodes.filter((node) => node.kind === "joint").length;
    const blends = data.matrices.filter((parts) => parts.length > 2).length;
    const primitives = data.polygons.reduce((sum, polygon) => sum + polygon.primitives.length, 0);
    return section("Model", table([
        ["Nodes", `${data.nodes.length}, ${countText(joints, "joint", "joints")}`],
        ["Matrices", `${data.matrices.length}, ${countText(blends, "blend", "blends")}`],
        ["Polygon groups", String(data.polygons.length)],
        ["Primitives", String(primitives)],
        ["Vertices sent", String(data.totals.vertices)],
        ["Triangles", String(data.totals.triangles)],
        ["Quads", String(data.totals.quads)],
    ]));
}

// A picture of a texture, each texel at least one pixel.
function thumbnail(image) {
    const canvas = element("canvas", { width: image.width, height: image.height, class: "texture" });
    const pixels = new ImageData(new Uint8ClampedArray(image.rgba), image.width, image.height);
    canvas.getContext("2d").putImageData(pixels, 0, 0);
    return canvas;
}

function texturesSection(data) {
    if (data.images.length === 0) {
        return section("Textures", element("p", { class: "note" }, "The model has none."));
    }
    const lines = data.images.map((image) => element(
        "li", {}, thumbnail(image),
        element("div", {}, element("div", {}, image.name),
            element("div", { class: "note" }, `${image.originalWidth} × ${image.originalHeight}, ${image.format}`))));
    return section("Textures", element("ul", { class: "textures" }, ...lines));
}

function swatch(color) {
    const [r, g, b] = color.map((part) => Math.round((part * 255) / 31));
    return element("span", { class: "swatch", style: `background: rgb(${r}, ${g}, ${b})` });
}

function materialsSection(data) {
    const lines = data.materials.map((material) => {
        const lights = material.lights.flatMap((isOn, i) => (isOn ? [String(i)] : []));
        const words = [
            lights.length === 0 ? "unlit" : `light ${lights.join(", ")}`,
            ...(material.face === "front" ? [] : [material.face]),
            ...(material.mode === "modulate" ? [] : [material.mode]),
            ...(material.alpha < 31 ? [`alpha ${material.alpha}`] : []),
            ...(material.image < 0 ? [] : [data.images[material.image].name]),
        ];
        return element("li", {}, swatch(material.diffuse), element("div", {}, element("div", {}, material.name),
            element("div", { class: "note" }, words.join(" · "))));
    });
    return section("Materials", element("ul", { class: "materials" }, ...lines));
}

function notesSection(data) {
    return data.notes.length === 0
        ? ""
        : section("Not shown here", element("ul", { class: "notes" }, ...data.notes.map((note) => element("li", {}, note))));
}

/** Fills the panel from the page's data. */
export function fillPanel(panel, data) {
    const title = element("header", {}, element("h1", {}, data.title), element("p", { class: "note" }, data.origin));
    panel.append(title, ...[filesSection, modelSection, materialsSection, texturesSection, notesSection].map((fill) => fill(data)));
}
