// What the address asks for behind its "#": name=value, between "&".

const kChoices = { show: ["console", "plain", "primitives"] };
const kFlags = ["wire", "bones", "grid", "panel", "play"];

function numbersOf(text, count) {
    const numbers = text.split(",").map(Number);
    return numbers.length === count && numbers.every(Number.isFinite) ? numbers : null;
}

/**
 * Reads them. What is not understood counts as absent.
 *   frame        number as the slider shows it
 *   camera       front, back, left, right, top, corner, or x,y,z of the eye, of what it looks at, and a height
 *   show         console, plain or primitives
 *   wire, bones, grid, panel, play   1 or 0
 *   background   rrggbb
 */
export function readParameters(hash) {
    const given = new URLSearchParams(hash.replace(/^#/, ""));
    const read = {};
    const frame = numbersOf(given.get("frame") ?? "?", 1);
    if (frame !== null) {
        read.frame = Math.round(frame[0]);
    }
    if (given.has("camera")) {
        read.camera = numbersOf(given.get("camera"), 7) ?? given.get("camera");
    }
    if (kChoices.show.includes(given.get("show"))) {
        read.show = given.get("show");
    }
    for (const name of kFlags) {
        if (given.get(name) === "1" || given.get(name) === "0") {
            read[name] = given.get(name) === "1";
        }
    }
    if (/^[0-9a-f]{6}$/i.test(given.get("background") ?? "")) {
        read.background = Number.parseInt(given.get("background"), 16);
    }
    return read;
}
