import assert from "node:assert/strict";
import test from "node:test";

import { readParameters } from "../../host/app/preview/page/source/parameters.js";

test("an address without parameters asks for nothing", () => {
    assert.deepEqual(readParameters(""), {});
    assert.deepEqual(readParameters("#"), {});
});

test("parameters are read by name", () => {
    assert.deepEqual(readParameters("#frame=12&camera=front&show=primitives&wire=1&grid=0&play=0&background=ff00Ff"), {
        frame: 12, camera: "front", show: "primitives", wire: true, grid: false, play: false, background: 0xff00ff,
    });
    assert.deepEqual(readParameters("#camera=1,2.5,-3,0,0,0,4").camera, [1, 2.5, -3, 0, 0, 0, 4]);
});

test("what is not understood counts as absent", () => {
    for (const hash of ["#frame=x", "#show=nothing", "#wire=yes", "#background=red", "#unknown=1", "#frame=1,2"]) {
        assert.deepEqual(readParameters(hash), {}, hash);
    }
});
