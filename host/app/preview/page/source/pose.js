import { keyAt, playerOf } from "./playback.js";

// Where nodes, and what hangs on them, stand at a frame. Matrices are 16 numbers column by column, for column vectors.

const kRadians = Math.PI / 180;
const kIdentity = [1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1];
const kAxes = ["x", "y", "z"];

const nodeLayout = ["scale", "rotate", "translate"].flatMap((pool) =>
    kAxes.map(() => ({ pool, unit: 1 / 4096, isAngle: pool === "rotate" })),
);

/** a times b. */
export function product(a, b) {
    const result = new Array(16);
    for (let column = 0; column < 4; ++column) {
        for (let row = 0; row < 4; ++row) {
            let sum = 0;
            for (let i = 0; i < 4; ++i) {
                sum += a[4 * i + row] * b[4 * column + i];
            }
            result[4 * column + row] = sum;
        }
    }
    return result;
}

/** The inverse of a matrix whose last row is 0 0 0 1; null when it flattens space. */
export function inverse(m) {
    const [a, b, c, , d, e, f, , g, h, i, , x, y, z] = m;
    const determinant = a * (e * i - h * f) - d * (b * i - h * c) + g * (b * f - e * c);
    if (determinant === 0) {
        return null;
    }
    const r = [e * i - h * f, h * c - b * i, b * f - e * c, g * f - d * i, a * i - g * c, d * c - a * f]
        .concat([d * h - g * e, g * b - a * h, a * e - d * b])
        .map((part) => part / determinant);
    return [r[0], r[1], r[2], 0, r[3], r[4], r[5], 0, r[6], r[7], r[8], 0]
        .concat([0, 1, 2].map((row) => -(r[row] * x + r[3 + row] * y + r[6 + row] * z)))
        .concat(1);
}

/**
 * Scaled, turned about x, then y, then z, freed of the parent's scale, then moved.
 *   undone   the parent's scale, or null when it acts on the node as usual
 */
export function localMatrix(scale, rotate, translate, undone) {
    const [sx, sy, sz] = rotate.map((angle) => Math.sin(angle * kRadians));
    const [cx, cy, cz] = rotate.map((angle) => Math.cos(angle * kRadians));
    const turned = [
        [cy * cz, cy * sz, -sy],
        [sx * sy * cz - cx * sz, sx * sy * sz + cx * cz, sx * cy],
        [cx * sy * cz + sx * sz, cx * sy * sz - sx * cz, cx * cy],
    ];
    const free = (row) => (undone === null || undone[row] === 0 ? 1 : 1 / undone[row]);
    const columns = turned.map((column, i) => [...column.map((part, row) => part * scale[i] * free(row)), 0]);
    return [...columns[0], ...columns[1], ...columns[2], ...translate, 1];
}

// Turned to the eye, in every direction or about the y axis only, at the place and of the size that it has.
function facing(world, mode, eye) {
    const length = (column) => Math.hypot(world[4 * column], world[4 * column + 1], world[4 * column + 2]);
    const turn = mode === "on" ? eye.axes : eye.uprightAxes;
    const columns = turn.map((axis, i) => [...axis.map((part) => part * length(i)), 0]);
    return [...columns.flat(), ...world.slice(12)];
}

/** Plays node animation and visibility of the page's data. */
export class Pose {
    constructor(data) {
        this.nodes = data.nodes;
        this.matrices = data.matrices;
        this.player = data.nodeMotion === null ? null : playerOf(data.nodeMotion, nodeLayout);
        this.visibility = data.visibility;
        this.hasBillboards = data.nodes.some((node) => node.billboard !== "off");
        this.bindInverses = this.worldsOf(this.nodes, null).map(inverse);
    }

    /**
     * World matrices of all nodes at a frame.
     *   eye   axes and uprightAxes of the camera for billboards; null leaves these as they are
     */
    worldsAt(frame, eye) {
        return this.worldsOf(this.player === null ? this.nodes : this.placesAt(frame), eye);
    }

    placesAt(frame) {
        return this.nodes.map((node, i) => {
            const values = this.player(i, frame);
            return { ...node, scale: values.slice(0, 3), rotate: values.slice(3, 6), translate: values.slice(6, 9) };
        });
    }

    // Parents stand before their children.
    worldsOf(places, eye) {
        const worlds = [];
        for (const node of places) {
            const parent = node.parent < 0 ? null : places[node.parent];
            const undone = parent !== null && node.compensates ? parent.scale : null;
            const local = localMatrix(node.scale, node.rotate, node.translate, undone);
            const world = parent === null ? local : product(worlds[node.parent], local);
            worlds.push(eye === null || node.billboard === "off" ? world : facing(world, node.billboard, eye));
        }
        return worlds;
    }

    /** What carries the vertices on each matrix to the world: a node, or a blend of how nodes left their first place. */
    carriersOf(worlds) {
        return this.matrices.map((parts) => {
            if (parts.length === 2) {
                return worlds[parts[0]];
            }
            const sum = new Array(16).fill(0);
            let weights = 0;
            for (let i = 0; i < parts.length; i += 2) {
                const from = this.bindInverses[parts[i]] ?? kIdentity;
                const moved = product(worlds[parts[i]], from);
                moved.forEach((part, at) => (sum[at] += part * parts[i + 1]));
                weights += parts[i + 1];
            }
            return sum.map((part) => part / weights);
        });
    }

    isVisible(node, frame) {
        if (this.visibility === null) {
            return this.nodes[node].visible;
        }
        const keys = this.visibility[node];
        return keys[keyAt(keys, 2, frame) + 1] !== 0;
    }
}
