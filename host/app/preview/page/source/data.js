// What the exporter put into the page, as arrays and strings.

function bytesOf(characters) {
    return Uint8Array.from(characters, (character) => character.charCodeAt(0));
}

function textWith(encoding) {
    const decoder = new TextDecoder(encoding);
    return (characters) => decoder.decode(bytesOf(characters));
}

function arrayOf(type) {
    return (base64) => new type(bytesOf(atob(base64)).buffer);
}

// An object of one of these members alone stands for a text, of one character for each byte, or for an array.
const kinds = new Map([
    ["text", textWith("shift_jis")],
    ["path", textWith("utf-8")],
    ["u8", arrayOf(Uint8Array)],
    ["i32", arrayOf(Int32Array)],
    ["f32", arrayOf(Float32Array)],
]);

function unpacked(value) {
    if (Array.isArray(value)) {
        return value.map(unpacked);
    }
    if (value === null || typeof value !== "object") {
        return value;
    }
    const members = Object.entries(value);
    const unpack = members.length === 1 ? kinds.get(members[0][0]) : undefined;
    return unpack === undefined
        ? Object.fromEntries(members.map(([name, member]) => [name, unpacked(member)]))
        : unpack(members[0][1]);
}

/** Reads the page's data: JSON whose arrays and texts are packed. */
export function readData(json) {
    return unpacked(JSON.parse(json));
}
