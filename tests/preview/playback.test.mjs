import assert from "node:assert/strict";
import test from "node:test";

import { channelAt, keyAt, playerOf } from "../../host/app/preview/page/source/playback.js";
import { inverse, localMatrix, product } from "../../host/app/preview/page/source/pose.js";

const framesOf = (pool, channel, filling, frameCount) =>
    Array.from({ length: frameCount }, (_, frame) => channelAt(pool, channel, { filling, frameCount }, frame));

test("a single value stands at every frame", () => {
    assert.deepEqual(framesOf([7, 8], { step: 1, size: 1, head: 1 }, "linear", 3), [8, 8, 8]);
});

test("stored frames are held or mixed, and the last ones stand by themselves", () => {
    const pool = [0, 0, 40, 80, 82];
    const channel = { step: 4, size: 4, head: 1 };
    assert.deepEqual(framesOf(pool, channel, "linear", 10), [0, 10, 20, 30, 40, 50, 60, 70, 80, 82]);
    assert.deepEqual(framesOf(pool, channel, "frame", 10), [0, 0, 0, 0, 40, 40, 40, 40, 80, 82]);
});

test("mixed values are rounded down", () => {
    assert.deepEqual(framesOf([0, -3, 0], { step: 2, size: 2, head: 0 }, "linear", 3), [0, -2, -3]);
});

test("mixed angles take the short way round", () => {
    const degrees = (value) => value * 4096;
    const pool = [degrees(179), degrees(-179), degrees(-175)];
    const angle = { step: 2, size: 3, head: 0, isAngle: true };
    assert.deepEqual(framesOf(pool, angle, "linear", 5), [179, -180, -179, -177, -175].map(degrees));
    assert.deepEqual(framesOf(pool, { ...angle, isAngle: false }, "linear", 5)[1], 0);
});

test("curves have the values and slopes of their keys", () => {
    const one = 4096;
    // From 0 with slope 0 to 16 with slope 8 in four frames: f(t) = 16 t² for t from 0 to 1.
    const pool = [0, 0, 0, 0, 4 * one, 16 * one, 8 * one, 0];
    const frames = framesOf(pool, { step: 1, size: 2, head: 0 }, "key", 7);
    assert.deepEqual(frames.map((value) => value / one), [0, 1, 4, 9, 16, 16, 16]);
});

test("a change holds until the next", () => {
    const keys = [0, 1, 24, 0, 32, 1];
    assert.deepEqual([0, 23, 24, 31, 32, 59].map((frame) => keys[keyAt(keys, 2, frame) + 1]), [1, 1, 0, 0, 1, 1]);
});

test("things take their channels from the pools of their layout", () => {
    const motion = {
        filling: "linear", frameCount: 2, pools: { a: [4096, 8192], b: [5, 6] },
        channels: [1, 1, 0, 1, 1, 1, 1, 1, 1, 1, 2, 0],
    };
    const layout = [{ pool: "a", unit: 1 / 4096 }, { pool: "b", unit: 1 }];
    const player = playerOf(motion, layout);
    assert.deepEqual([...player(0, 0)], [1, 6]);
    assert.deepEqual([...player(1, 1)], [2, 6]);
});

const near = (actual, expected) =>
    actual.forEach((value, i) => assert.ok(Math.abs(value - expected[i]) < 1e-9, `${actual} instead of ${expected}`));
const moved = (m, [x, y, z]) => [0, 1, 2].map((row) => m[row] * x + m[4 + row] * y + m[8 + row] * z + m[12 + row]);

test("a node scales, turns about x, then y, then z, and moves", () => {
    const one = [1, 1, 1];
    near(moved(localMatrix([2, 3, 4], [0, 0, 0], [1, 2, 3], null), one), [3, 5, 7]);
    near(moved(localMatrix(one, [90, 0, 0], [0, 0, 0], null), [0, 1, 0]), [0, 0, 1]);
    near(moved(localMatrix(one, [0, 90, 0], [0, 0, 0], null), [0, 0, 1]), [1, 0, 0]);
    near(moved(localMatrix(one, [0, 0, 90], [0, 0, 0], null), [1, 0, 0]), [0, 1, 0]);
    near(moved(localMatrix(one, [90, 90, 0], [0, 0, 0], null), [0, 1, 0]), [1, 0, 0]);
});

test("the parent's scale is undone before the node moves", () => {
    near(moved(localMatrix([1, 1, 1], [0, 0, 0], [1, 0, 0], [2, 4, 0]), [2, 4, 5]), [2, 1, 5]);
});

test("an inverse undoes its matrix", () => {
    const matrix = localMatrix([2, -1, 0.5], [30, 40, 50], [1, 2, 3], null);
    near(product(matrix, inverse(matrix)), [1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1]);
    assert.equal(inverse(localMatrix([1, 0, 1], [0, 0, 0], [0, 0, 0], null)), null);
});
