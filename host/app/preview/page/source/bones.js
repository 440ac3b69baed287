import * as THREE from "three";

import "./plainColors.js";

// The skeleton: a slim double pyramid from each joint to each of its children, a dot on every joint.

const kBone = new THREE.Color(0xf28c28);
const kJoint = new THREE.Color(0xffffff);
const kJointRim = new THREE.Color(0x7a4310);
const kLink = new THREE.Color(0x3c7fb1);

// Corners of a bone of length 1 along x: root, four around, tip.
const kThickAt = 0.16;
const kThickness = 0.07;
const kRing = [[1, 0], [0, 1], [-1, 0], [0, -1]];

function bonePlaces(from, to) {
    const along = to.clone().sub(from);
    const length = along.length();
    const side = new THREE.Vector3(Math.abs(along.y) > 0.9 * length ? 1 : 0, Math.abs(along.y) > 0.9 * length ? 0 : 1, 0);
    const u = side.cross(along).setLength(length * kThickness);
    const v = u.clone().cross(along).setLength(length * kThickness);
    const thick = from.clone().addScaledVector(along, kThickAt);
    const ring = kRing.map(([a, b]) => thick.clone().addScaledVector(u, a).addScaledVector(v, b));
    return ring.flatMap((corner, i) => [from, corner, corner, to, corner, ring[(i + 1) % 4]]);
}

export class Bones {
    constructor(nodes) {
        this.nodes = nodes;
        this.group = new THREE.Group();
        this.bones = this.addLines(kBone, 0.95);
        this.links = this.addLines(kLink, 0.7);
        this.dots = [this.addPoints(kJointRim, 8), this.addPoints(kJoint, 5)];
        this.group.children.forEach((child, i) => {
            child.frustumCulled = false;
            child.renderOrder = 1000 + i;
        });
    }

    addPoints(color, size) {
        const look = new THREE.PointsMaterial({
            color, size, sizeAttenuation: false, transparent: true, depthTest: false, depthWrite: false });
        const points = new THREE.Points(new THREE.BufferGeometry(), look);
        this.group.add(points);
        return points;
    }

    addLines(color, opacity) {
        const look = new THREE.LineBasicMaterial({ color, opacity, transparent: true, depthTest: false, depthWrite: false });
        const lines = new THREE.LineSegments(new THREE.BufferGeometry(), look);
        this.group.add(lines);
        return lines;
    }

    /** Joints are drawn as bones; other nodes hang on their parents by thin lines. */
    show(worlds) {
        const places = worlds.map((world) => new THREE.Vector3(world[12], world[13], world[14]));
        const isJoint = (i) => this.nodes[i].kind === "joint";
        const bones = [];
        const links = [];
        this.nodes.forEach((node, i) => {
            if (node.parent < 0) {
                return;
            }
            if (isJoint(i) && isJoint(node.parent)) {
                bones.push(...bonePlaces(places[node.parent], places[i]));
            } else {
                links.push(places[node.parent], places[i]);
            }
        });
        this.bones.geometry.setFromPoints(bones);
        this.links.geometry.setFromPoints(links);
        this.dots.forEach((dots) => dots.geometry.setFromPoints(places.filter((place, i) => isJoint(i))));
    }
}
