import * as THREE from "three";
import { OrbitControls } from "three/addons/controls/OrbitControls.js";

import "./plainColors.js";

// Camera, grid and the ways to look.

const kFieldOfView = 35;
const kWide = 0.86; // of the picture for the model; the rest is air and controls
const kHigh = 0.76;
const kDirections = {
    front: [0, 0, 1],
    back: [0, 0, -1],
    left: [1, 0, 0],
    right: [-1, 0, 0],
    top: [0, 1, 0.0001],
    corner: [0.62, 0.36, 1],
};

/**
 * The box around what is seen at some frames: all vertices, or the nodes where there are none.
 *   frames   for each the visible polygons, the matrices of all, and where nodes stand
 */
export function boxAround(frames) {
    const box = new THREE.Box3();
    const nodes = new THREE.Box3();
    const point = new THREE.Vector3();
    for (const { polygons, carriers, worlds } of frames) {
        const matrices = carriers.map((numbers) => new THREE.Matrix4().fromArray(numbers));
        for (const { positions, matrices: matrixOf } of polygons) {
            matrixOf.forEach((matrix, i) =>
                box.expandByPoint(point.fromArray(positions, 3 * i).applyMatrix4(matrices[matrix])));
        }
        worlds.forEach((world) => nodes.expandByPoint(point.set(world[12], world[13], world[14])));
    }
    const seen = box.isEmpty() ? nodes : box;
    return seen.isEmpty() || seen.getSize(point).length() === 0 ? seen.expandByPoint(point.set(0, 0, 0)).expandByScalar(1) : seen;
}

// Lines apart by a power of ten that suits the model, on the ground or where the model's lowest point is.
function gridFor(box) {
    const width = Math.max(box.max.x - box.min.x, box.max.z - box.min.z, (box.max.y - box.min.y) * 0.5, 1e-6);
    const step = 10 ** Math.round(Math.log10(width / 10));
    const count = Math.max(4, Math.ceil((width * 1.6) / step / 2) * 2);
    const grid = new THREE.GridHelper(step * count, count, 0x9fb0bf, 0xcdd7df);
    const center = box.getCenter(new THREE.Vector3());
    grid.position.set(Math.round(center.x / step) * step, Math.min(0, box.min.y), Math.round(center.z / step) * step);
    return grid;
}

// How far before the middle of a box the eye sees all of it. axes: to the right, up and to the eye, of length 1.
function distanceFor(box, axes, slopeAcross, slopeUp) {
    const center = box.getCenter(new THREE.Vector3());
    let distance = 0;
    for (let i = 0; i < 8; ++i) {
        const corner = new THREE.Vector3(
            i & 1 ? box.max.x : box.min.x, i & 2 ? box.max.y : box.min.y, i & 4 ? box.max.z : box.min.z).sub(center);
        const [across, up, near] = axes.map((axis) => axis.dot(corner));
        distance = Math.max(distance, near + Math.abs(across) / slopeAcross, near + Math.abs(up) / slopeUp);
    }
    return distance;
}

export class View {
    constructor(canvas, box) {
        this.box = box;
        this.renderer = new THREE.WebGLRenderer({ canvas, antialias: true, preserveDrawingBuffer: true });
        this.renderer.outputColorSpace = THREE.LinearSRGBColorSpace;
        this.scene = new THREE.Scene();
        this.scene.background = new THREE.Color(0xe9eef2);
        this.grid = gridFor(box);
        this.scene.add(this.grid);
        this.perspective = new THREE.PerspectiveCamera(kFieldOfView);
        this.orthographic = new THREE.OrthographicCamera();
        this.camera = this.perspective;
        this.seenFrom = null; // the name of the direction, while it is looked from there
        this.controls = new OrbitControls(this.camera, canvas);
        this.controls.addEventListener("change", () => this.onChange?.());
        this.controls.addEventListener("start", () => {
            this.seenFrom = null;
            this.onTurn?.();
        });
    }

    /** Looks at the whole model from a direction with a name. */
    lookFrom(name) {
        this.seenFrom = name;
        const center = this.box.getCenter(new THREE.Vector3());
        const radius = Math.max(this.box.getSize(new THREE.Vector3()).length() / 2, 1e-6);
        const away = new THREE.Vector3(...(kDirections[name] ?? kDirections.corner)).normalize();
        const right = new THREE.Vector3(0, 1, 0).cross(away).normalize();
        const slope = Math.tan((kFieldOfView * Math.PI) / 360);
        const distance = distanceFor(
            this.box, [right, away.clone().cross(right), away], slope * this.perspective.aspect * kWide, slope * kHigh);
        this.useCamera(this.perspective);
        this.camera.position.copy(center).addScaledVector(away, Math.max(distance, radius * 0.01));
        this.camera.near = radius / 100;
        this.camera.far = radius * 100;
        this.controls.target.copy(center);
        this.camera.updateProjectionMatrix();
        this.controls.update();
    }

    /** Looks without perspective. numbers: the eye, what it looks at, and the height of what is seen. */
    lookStraight(numbers) {
        this.seenFrom = null;
        const [eyeX, eyeY, eyeZ, atX, atY, atZ, height] = numbers;
        this.useCamera(this.orthographic);
        this.camera.position.set(eyeX, eyeY, eyeZ);
        this.controls.target.set(atX, atY, atZ);
        this.height = height;
        this.camera.near = 0;
        this.camera.far = 2 * this.camera.position.distanceTo(this.controls.target) + 2 * this.box.getSize(new THREE.Vector3()).length();
        this.resize();
        this.controls.update();
    }

    useCamera(camera) {
        this.camera = camera;
        this.controls.object = camera;
    }

    /** Fits the picture to its place, and the model to the picture until somebody turns it by hand. */
    resize() {
        const { clientWidth: width, clientHeight: height } = this.renderer.domElement;
        this.renderer.setPixelRatio(window.devicePixelRatio);
        this.renderer.setSize(width, height, false);
        this.perspective.aspect = width / height;
        if (this.camera === this.orthographic) {
            const half = this.height / 2;
            Object.assign(this.camera, { top: half, bottom: -half, right: (half * width) / height, left: (-half * width) / height });
        }
        this.camera.updateProjectionMatrix();
        if (this.seenFrom !== null) {
            this.lookFrom(this.seenFrom);
        }
    }

    /** Axes that a billboard takes to face the camera, and those if it may turn about y only. */
    eye() {
        this.camera.updateMatrixWorld();
        const [x, y, z] = [0, 1, 2].map((i) => new THREE.Vector3().setFromMatrixColumn(this.camera.matrixWorld, i));
        const level = new THREE.Vector3(z.x, 0, z.z);
        const ahead = level.lengthSq() > 1e-12 ? level.normalize() : new THREE.Vector3(0, 0, 1);
        const up = new THREE.Vector3(0, 1, 0);
        return {
            axes: [x.toArray(), y.toArray(), z.toArray()],
            uprightAxes: [up.clone().cross(ahead).toArray(), up.toArray(), ahead.toArray()],
        };
    }

    render() {
        this.renderer.render(this.scene, this.camera);
    }
}
