// How the channels of animation files are played. Values are in the steps that the files store: 1/4096, or whole ones.

const kTurn = 360 * 4096;

// Between two stored values, rounded down. Angles take the short way round.
function mixed(before, after, part, step, isAngle) {
    const crosses = isAngle && Math.abs(before - after) >= kTurn / 2;
    if (crosses && before <= after) {
        before += kTurn;
    } else if (crosses) {
        after += kTurn;
    }
    const value = Math.floor((part * after + (step - part) * before) / step);
    return crosses && value >= kTurn / 2 ? value - kTurn : value;
}

// Every frameStep-th frame is stored; from the last of these on all of them.
function steppedAt(pool, channel, rule, frame) {
    if (channel.size === 1) {
        return pool[channel.head];
    }
    const step = channel.step;
    const dense = Math.floor((rule.frameCount - 1) / step) * step;
    if (frame >= dense) {
        return pool[channel.head + dense / step + frame - dense];
    }
    const place = channel.head + Math.floor(frame / step);
    const part = frame % step;
    return part === 0 || rule.filling === "frame"
        ? pool[place]
        : mixed(pool[place], pool[place + 1], part, step, channel.isAngle);
}

// Keys of frame, value, slope in and slope out; the cubic between two of them has the values and slopes of both.
function curveAt(pool, channel, frame) {
    const first = channel.head * 4;
    const count = channel.size;
    const frameOf = (key) => pool[first + 4 * key] / 4096;
    let after = 0;
    while (after < count && frameOf(after) <= frame) {
        ++after;
    }
    if (after === 0 || after === count) {
        return pool[first + 4 * (after === 0 ? 0 : count - 1) + 1];
    }
    const a = first + 4 * (after - 1);
    const b = first + 4 * after;
    const length = frameOf(after) - frameOf(after - 1);
    const t = (frame - frameOf(after - 1)) / length;
    const rise = pool[b + 1] - pool[a + 1];
    const slopeOut = pool[a + 3] * length;
    const slopeIn = pool[b + 2] * length;
    return pool[a + 1] + t * (slopeOut + t * (3 * rise - 2 * slopeOut - slopeIn + t * (slopeOut + slopeIn - 2 * rise)));
}

/**
 * A channel's value at a frame.
 *   pool      numbers that channels share
 *   channel   step, size and head as in the file, and isAngle
 *   rule      filling ("frame", "linear" or "key") and frameCount
 *   frame     0 to frameCount - 1
 */
export function channelAt(pool, channel, rule, frame) {
    return rule.filling === "key" ? curveAt(pool, channel, frame) : steppedAt(pool, channel, rule, frame);
}

/** The key that holds at a frame. keys: frames in ascending order from 0, each followed by width - 1 values. */
export function keyAt(keys, width, frame) {
    let at = 0;
    while (at + width < keys.length && keys[at + width] <= frame) {
        at += width;
    }
    return at;
}

/**
 * Plays things of one file that have the same channels.
 *   motion     filling, frameCount, pools, channels: step, size and head of each channel of each thing
 *   layout     per channel its pool's name, what a step is worth, and isAngle
 *   returns    (thing, frame) => values by channel
 */
export function playerOf(motion, layout) {
    const values = new Array(layout.length);
    const channel = { step: 0, size: 0, head: 0, isAngle: false };
    return (thing, frame) => {
        layout.forEach((entry, i) => {
            const at = (thing * layout.length + i) * 3;
            channel.step = motion.channels[at];
            channel.size = motion.channels[at + 1];
            channel.head = motion.channels[at + 2];
            channel.isAngle = entry.isAngle === true;
            const steps = channelAt(motion.pools[entry.pool], channel, motion, frame);
            values[i] = steps * (motion.filling === "key" ? 1 / 4096 : entry.unit);
        });
        return values;
    };
}
