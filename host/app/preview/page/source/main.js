import { Bones } from "./bones.js";
import { readData } from "./data.js";
import { Finishes } from "./finishes.js";
import { fillPanel } from "./panel.js";
import { readParameters } from "./parameters.js";
import { Pose } from "./pose.js";
import { shadings } from "./shading.js";
import { Surfaces } from "./surfaces.js";
import { boxAround, View } from "./view.js";

const kFramedFrames = 8; // of the animation, that must fit the first picture
const kKeys = { " ": "play", ArrowLeft: "back", ArrowRight: "on", w: "wire", b: "bones", g: "grid", f: "look" };

const cameras = ["corner", "front", "back", "left", "right", "top"];

const find = (id) => document.getElementById(id);

// Whether a control does something itself with a key.
function hasOwnUse(control, key) {
    const kind = control.tagName === "INPUT" ? control.type : control.tagName;
    return kind === "SELECT" || (key === " " && (kind === "BUTTON" || kind === "checkbox")) ||
        (key.startsWith("Arrow") && kind === "range");
}

class Page {
    constructor(data) {
        this.data = data;
        this.frameCount = data.frames.count;
        this.frame = 0;
        this.isPlaying = false;
        this.pose = new Pose(data);
        this.finishes = new Finishes(data);
        this.surfaces = new Surfaces(data);
        this.bones = new Bones(data.nodes);
        this.view = new View(find("picture"), boxAround(this.someFrames()));
        this.view.scene.add(this.surfaces.group, this.surfaces.wires, this.bones.group);
        this.view.onChange = () => this.draw();
        this.view.onTurn = () => (find("camera").value = "");
    }

    someFrames() {
        const count = Math.min(kFramedFrames, this.frameCount);
        return Array.from({ length: count }, (_, i) => {
            const frame = Math.floor((i * this.frameCount) / count);
            const worlds = this.pose.worldsAt(frame, null);
            const polygons = this.data.polygons.filter(({ node }) => this.pose.isVisible(node, frame));
            return { polygons, carriers: this.pose.carriersOf(worlds), worlds };
        });
    }

    start(parameters) {
        this.set("show", parameters.show ?? "console");
        this.set("wire", parameters.wire ?? false);
        this.set("bones", parameters.bones ?? this.data.polygons.length === 0);
        this.set("grid", parameters.grid ?? true);
        document.body.classList.toggle("bare", parameters.panel === false);
        if (parameters.background !== undefined) {
            this.view.scene.background.setHex(parameters.background);
        }
        this.view.resize();
        if (Array.isArray(parameters.camera)) {
            this.view.lookStraight(parameters.camera);
            find("camera").value = "";
        } else {
            this.lookFrom(parameters.camera);
        }
        this.listen();
        this.goTo((parameters.frame ?? this.data.frames.first) - this.data.frames.first);
        this.play(parameters.play ?? (parameters.frame === undefined && this.frameCount > 1));
    }

    lookFrom(name) {
        find("camera").value = cameras.includes(name) ? name : cameras[0];
        this.view.lookFrom(find("camera").value);
    }

    set(name, value) {
        if (name === "show") {
            this.surfaces.shading.value = shadings[value];
            find("show").value = value;
        } else {
            find(name).checked = value;
            const shown = { wire: this.surfaces.wires, bones: this.bones.group, grid: this.view.grid };
            shown[name].visible = value;
        }
        this.draw();
    }

    listen() {
        find("show").addEventListener("change", (event) => this.set("show", event.target.value));
        for (const name of ["wire", "bones", "grid"]) {
            find(name).addEventListener("change", (event) => this.set(name, event.target.checked));
        }
        find("camera").addEventListener("change", (event) => this.view.lookFrom(event.target.value));
        find("slider").addEventListener("input", (event) => {
            this.play(false);
            this.goTo(Number(event.target.value) - this.data.frames.first);
        });
        find("play").addEventListener("click", () => this.play(!this.isPlaying));
        window.addEventListener("keydown", (event) => this.onKey(event));
        window.addEventListener("resize", () => {
            this.view.resize();
            this.draw();
        });
    }

    onKey(event) {
        const action = kKeys[event.key];
        const isTaken = event.ctrlKey || event.altKey || event.metaKey || hasOwnUse(event.target, event.key);
        if (action === undefined || isTaken) {
            return;
        }
        event.preventDefault();
        if (action === "play") {
            this.play(!this.isPlaying);
        } else if (action === "back" || action === "on") {
            this.play(false);
            this.goTo((this.frame + (action === "on" ? 1 : this.frameCount - 1)) % this.frameCount);
        } else if (action === "look") {
            this.lookFrom(find("camera").value);
        } else {
            this.set(action, !find(action).checked);
        }
    }

    play(isPlaying) {
        this.isPlaying = isPlaying && this.frameCount > 1;
        find("play").textContent = this.isPlaying ? "Pause" : "Play";
        if (this.isPlaying) {
            this.startTime = performance.now();
            this.startFrame = this.frame;
            requestAnimationFrame((time) => this.step(time));
        }
    }

    step(time) {
        if (!this.isPlaying) {
            return;
        }
        const passed = Math.floor((Math.max(0, time - this.startTime) * Number(find("speed").value)) / 1000);
        const frame = (this.startFrame + passed) % this.frameCount;
        if (frame !== this.frame) {
            this.goTo(frame);
        }
        requestAnimationFrame((next) => this.step(next));
    }

    goTo(frame) {
        this.frame = Math.min(Math.max(frame, 0), this.frameCount - 1);
        this.isPosed = false;
        const { first } = this.data.frames;
        find("slider").min = first;
        find("slider").max = first + this.frameCount - 1;
        find("slider").value = first + this.frame;
        find("frame").textContent = `${first + this.frame} / ${first + this.frameCount - 1}`;
        this.draw();
    }

    draw() {
        if (!this.isPosed || this.pose.hasBillboards) {
            const worlds = this.pose.worldsAt(this.frame, this.view.eye());
            this.surfaces.show(
                this.pose.carriersOf(worlds),
                (node) => this.pose.isVisible(node, this.frame),
                (material) => this.finishes.at(material, this.frame));
            this.bones.show(worlds);
            this.isPosed = true;
        }
        this.view.render();
    }
}

function start() {
    const data = readData(find("data").textContent);
    document.title = `${data.title} – preview`;
    fillPanel(find("panel"), data);
    document.body.classList.toggle("still", data.frames.count === 1);
    try {
        new Page(data).start(readParameters(window.location.hash));
    } catch (error) {
        find("problem").textContent = `The model cannot be drawn: this needs a browser with WebGL 2. (${error.message})`;
        document.body.classList.add("failed");
    }
    document.body.dataset.ready = "yes";
}

start();
