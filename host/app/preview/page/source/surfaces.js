import * as THREE from "three";

import "./plainColors.js";

import { lineFragment, lineVertex, matricesPerRow, surfaceFragment, surfaceVertex } from "./shading.js";

// What the model file draws: a mesh of three.js per polygon, its vertices carried by matrices on the graphics card.

const kNoCorner = -1;
const kWrapping = { clamp: THREE.ClampToEdgeWrapping, repeat: THREE.RepeatWrapping, flip: THREE.MirroredRepeatWrapping };
const kSides = { front: THREE.FrontSide, back: THREE.BackSide, both: THREE.DoubleSide };
const kSources = { none: 0, tex: 1, nrm: 2, pos: 3 };
const kSteps = 31;

/** The matrices of all vertices, where shaders find them. */
export class Carriers {
    constructor(count) {
        const rows = Math.max(1, Math.ceil(count / matricesPerRow));
        this.numbers = new Float32Array(matricesPerRow * rows * 16);
        this.texture = new THREE.DataTexture(
            this.numbers, matricesPerRow * 4, rows, THREE.RGBAFormat, THREE.FloatType);
    }

    set(matrices) {
        matrices.forEach((matrix, i) => this.numbers.set(matrix, 16 * i));
        this.texture.needsUpdate = true;
    }
}

// Colours far apart for neighbours: each goes on by the golden part of the circle.
function colorOfPrimitive(number) {
    return new THREE.Color().setHSL((number * 0.61803399 + 0.02) % 1, 0.62, 0.42 + 0.2 * ((number * 0.37) % 1));
}

function trianglesOf(faces) {
    const places = [];
    for (let at = 0; at < faces.length; at += 4) {
        const [a, b, c, d] = faces.subarray(at, at + 4);
        places.push(a, b, c, ...(d === kNoCorner ? [] : [a, c, d]));
    }
    return places;
}

function edgesOf(faces) {
    const places = [];
    for (let at = 0; at < faces.length; at += 4) {
        const corners = [...faces.subarray(at, at + 4)].filter((corner) => corner !== kNoCorner);
        corners.forEach((corner, i) => places.push(corner, corners[(i + 1) % corners.length]));
    }
    return places;
}

function geometryOf(polygon, firstPrimitive) {
    const count = polygon.positions.length / 3;
    const geometry = new THREE.BufferGeometry();
    const add = (name, array, size) => geometry.setAttribute(name, new THREE.BufferAttribute(array, size));
    add("position", polygon.positions, 3);
    add("normal", polygon.normals ?? new Float32Array(count * 3).fill(1), 3);
    add("uv", polygon.texels ?? new Float32Array(count * 2), 2);
    add("carrier", Float32Array.from(polygon.matrices), 1);
    add("vertexColor", Float32Array.from(polygon.colors ?? new Uint8Array(count * 3), (part) => part / kSteps), 3);
    const colors = new Float32Array(count * 3);
    polygon.primitiveOfVertex.forEach((primitive, i) => colorOfPrimitive(firstPrimitive + primitive).toArray(colors, 3 * i));
    add("primitiveColor", colors, 3);
    geometry.setIndex(trianglesOf(polygon.faces));
    return geometry;
}

// Each corner with how far it is from the three sides of its triangle. A side within a quad is far from all.
function outlinedOf(geometry, faces) {
    const distances = [];
    for (let at = 0; at < faces.length; at += 4) {
        const isQuad = faces[at + 3] !== kNoCorner;
        const inner = isQuad ? 1 : 0;
        distances.push(1, inner, 0, 0, 1 + inner, 0, 0, inner, 1);
        if (isQuad) {
            distances.push(1, 0, 1, 0, 1, 1, 0, 0, 2);
        }
    }
    const outlined = geometry.toNonIndexed();
    outlined.setAttribute("edgeDistance", new THREE.BufferAttribute(Float32Array.from(distances), 3));
    return outlined;
}

function wiresOf(geometry, faces) {
    const wires = new THREE.BufferGeometry();
    wires.setAttribute("position", geometry.getAttribute("position"));
    wires.setAttribute("carrier", geometry.getAttribute("carrier"));
    wires.setIndex(edgesOf(faces));
    return wires;
}

const steps = (colors) => new THREE.Vector3(...colors.map((part) => Math.min(part, kSteps) / kSteps));

/** The surfaces of a model, and what a frame changes on them. */
export class Surfaces {
    constructor(data) {
        this.data = data;
        this.carriers = new Carriers(data.matrices.length);
        this.group = new THREE.Group();
        this.wires = new THREE.Group();
        this.textures = new Map();
        this.shading = { value: 0 };
        let primitives = 0;
        this.parts = data.polygons.map((polygon) => {
            const part = this.partOf(polygon, primitives);
            primitives += polygon.primitives.length;
            return part;
        });
    }

    partOf(polygon, firstPrimitive) {
        const geometry = geometryOf(polygon, firstPrimitive);
        const look = this.lookOf(polygon);
        const material = this.data.materials[polygon.material];
        const lines = wiresOf(geometry, polygon.faces);
        const surface = new THREE.Mesh(material.isWire ? outlinedOf(geometry, polygon.faces) : geometry, look);
        const wires = new THREE.LineSegments(lines, this.wireLook());
        for (const thing of [surface, wires]) {
            thing.frustumCulled = false; // only the graphics card knows where the vertices are
            thing.renderOrder = polygon.priority;
        }
        this.group.add(surface);
        this.wires.add(wires);
        return { polygon, surface, wires, look };
    }

    lookOf(polygon) {
        const material = this.data.materials[polygon.material];
        const look = new THREE.ShaderMaterial({
            glslVersion: THREE.GLSL3,
            vertexShader: surfaceVertex,
            fragmentShader: surfaceFragment,
            side: kSides[material.face],
            depthFunc: material.decalsDepth ? THREE.LessEqualDepth : THREE.LessDepth,
            uniforms: {
                shading: this.shading,
                carriers: { value: this.carriers.texture },
                lights: { value: material.lights },
                isLit: { value: polygon.normals !== null && material.lights.includes(true) },
                hasColors: { value: polygon.colors !== null },
                isShadow: { value: material.mode === "shadow" },
                isWire: { value: material.isWire },
                isDecal: { value: material.mode === "decal" },
                hasTexture: { value: false },
                image: { value: null },
                coordinateSource: { value: kSources[material.coordinates] },
                centersCoordinates: { value: material.centersCoordinates },
                placement: { value: new THREE.Matrix3() },
                effect: { value: new THREE.Matrix4().fromArray(material.effect) },
                diffuse: { value: null },
                ambient: { value: null },
                specular: { value: null },
                emission: { value: null },
                alpha: { value: 1 },
            },
        });
        return look;
    }

    wireLook() {
        return new THREE.ShaderMaterial({
            glslVersion: THREE.GLSL3,
            vertexShader: lineVertex,
            fragmentShader: lineFragment,
            transparent: true,
            depthWrite: false,
            uniforms: {
                carriers: { value: this.carriers.texture },
                lineColor: { value: new THREE.Color(0x10202c) },
                lineAlpha: { value: 0.6 },
            },
        });
    }

    // Texels of 8 bits a component; the same image may tile differently for several materials.
    textureOf(image, tiling) {
        const key = `${image} ${tiling.join(" ")}`;
        if (!this.textures.has(key)) {
            const { rgba, width, height } = this.data.images[image];
            const texture = new THREE.DataTexture(rgba, width, height, THREE.RGBAFormat);
            [texture.wrapS, texture.wrapT] = tiling.map((word) => kWrapping[word]);
            texture.needsUpdate = true;
            this.textures.set(key, texture);
        }
        return this.textures.get(key);
    }

    /**
     * Shows a frame.
     *   carriers    matrices by index
     *   isVisible   tells whether a node is shown
     *   finish      tells colours, image and placement of a material
     */
    show(carriers, isVisible, finish) {
        this.carriers.set(carriers);
        for (const { polygon, surface, wires, look } of this.parts) {
            surface.visible = wires.visible = isVisible(polygon.node);
            this.finishLook(look, this.data.materials[polygon.material], finish(polygon.material), polygon);
        }
    }

    finishLook(look, material, now, polygon) {
        const { uniforms } = look;
        for (const name of ["diffuse", "ambient", "specular", "emission"]) {
            uniforms[name].value = steps(now[name]);
        }
        uniforms.alpha.value = Math.min(now.alpha, kSteps) / kSteps;
        const image = polygon.texels === null && kSources[material.coordinates] < 2 ? -1 : now.image;
        uniforms.hasTexture.value = image >= 0;
        let isTranslucent = now.alpha < kSteps || material.mode === "shadow";
        if (image >= 0) {
            const texture = this.data.images[image];
            uniforms.image.value = this.textureOf(image, material.tiling);
            uniforms.placement.value.copy(placementOf(texture, material.coordinates === "none" ? null : now));
            isTranslucent = isTranslucent || texture.isTranslucent;
        }
        look.transparent = isTranslucent;
        look.depthWrite = !isTranslucent || material.writesTranslucentDepth;
    }
}

/**
 * From texels as sent to places in the texture, 0 to 1 across its whole width and height.
 *   now   scale, rotate and translate of the texture's frame as Maya understands them; null for none
 */
export function placementOf({ width, height, originalWidth, originalHeight }, now) {
    const toFrame = new THREE.Matrix3().set(1 / originalWidth, 0, 0, 0, -1 / originalHeight, 1, 0, 0, 1);
    const toTexture = new THREE.Matrix3().set(
        originalWidth / width, 0, 0, 0, -originalHeight / height, originalHeight / height, 0, 0, 1);
    if (now === null) {
        return toTexture.multiply(toFrame);
    }
    const angle = (now.rotate * Math.PI) / 180;
    const [c, s] = [Math.cos(angle), Math.sin(angle)];
    const aside = new THREE.Matrix3().set(1, 0, -now.translate[0] - 0.5, 0, 1, -now.translate[1] - 0.5, 0, 0, 1);
    const turned = new THREE.Matrix3().set(c, s, 0.5, -s, c, 0.5, 0, 0, 1);
    const scaled = new THREE.Matrix3().set(now.scale[0], 0, 0, 0, now.scale[1], 0, 0, 0, 1);
    return toTexture.multiply(scaled).multiply(turned).multiply(aside).multiply(toFrame);
}
