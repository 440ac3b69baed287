import { keyAt, playerOf } from "./playback.js";

// What animation changes on materials: colours, images, and how these are placed.

const kColors = ["diffuse", "ambient", "specular", "emission"];

const colorLayout = Array.from({ length: 13 }, () => ({ pool: "color", unit: 1 }));
const placementLayout = [
    { pool: "scale", unit: 1 / 4096 },
    { pool: "scale", unit: 1 / 4096 },
    { pool: "rotate", unit: 1 / 4096, isAngle: true },
    { pool: "translate", unit: 1 / 4096 },
    { pool: "translate", unit: 1 / 4096 },
];

// Which thing of a motion moves a material, by the material's index.
function placesOf(materials) {
    return new Map(materials.map((material, place) => [material, place]));
}

/** Plays material, pattern and placement animation of the page's data. */
export class Finishes {
    constructor(data) {
        this.materials = data.materials;
        this.colors = this.prepare(data.colorMotion, colorLayout);
        this.placements = this.prepare(data.placementMotion, placementLayout);
        this.patterns = new Map((data.patterns ?? []).map((pattern) => [pattern.material, pattern.keys]));
    }

    prepare(motion, layout) {
        return motion === null
            ? { places: new Map(), player: null }
            : { places: placesOf(motion.materials), player: playerOf(motion, layout) };
    }

    /** Colours and alpha in steps of 1/31, image (-1 for none), and scale, rotate and translate of the texture. */
    at(index, frame) {
        const material = this.materials[index];
        const now = { ...material };
        if (this.colors.places.has(index)) {
            const values = this.colors.player(this.colors.places.get(index), frame);
            kColors.forEach((name, i) => (now[name] = values.slice(3 * i, 3 * i + 3)));
            now.alpha = values[12];
        }
        if (this.placements.places.has(index)) {
            const [scaleS, scaleT, rotate, translateS, translateT] = this.placements.player(
                this.placements.places.get(index), frame);
            Object.assign(now, { scale: [scaleS, scaleT], rotate, translate: [translateS, translateT] });
        }
        const keys = this.patterns.get(index);
        if (keys !== undefined) {
            now.image = keys[keyAt(keys, 2, frame) + 1];
        }
        return now;
    }
}
