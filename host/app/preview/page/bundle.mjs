// Makes the page without its data, as a C++ source that holds it: node bundle.mjs MODULES PAGE.cpp
//   MODULES   folder with the node_modules that package.json names
import { createRequire } from "node:module";
import { readFileSync, writeFileSync } from "node:fs";
import { dirname, join, resolve } from "node:path";
import { fileURLToPath } from "node:url";

const kBytesPerLine = 32;
const here = dirname(fileURLToPath(import.meta.url));
const [modules, target] = process.argv.slice(2);
const esbuild = createRequire(resolve(modules, "package.json"))("esbuild");

const bundled = esbuild.buildSync({
    entryPoints: [join(here, "source/main.js")],
    nodePaths: [resolve(modules, "node_modules")],
    bundle: true,
    minify: true,
    write: false,
    charset: "ascii",
    format: "iife",
    legalComments: "inline",
    logLevel: "warning",
});

// The end tag of the element that the script stands in must not occur in it.
const script = bundled.outputFiles[0].text.replaceAll("</script", "<\\/script");
const style = readFileSync(join(here, "page.css"), "utf8");
const page = readFileSync(join(here, "page.html"), "utf8")
    .replace("@STYLE@", () => style)
    .replace("@SCRIPT@", () => script);
const [start, end] = page.split("@DATA@");

function arrayOf(name, text) {
    const bytes = Buffer.from(text, "utf8");
    const lines = [];
    for (let at = 0; at < bytes.length; at += kBytesPerLine) {
        lines.push(`${[...bytes.subarray(at, at + kBytesPerLine)].join(",")},`);
    }
    return `const unsigned char ${name}[] = {\n${lines.join("\n")}\n};\n`;
}

const viewOf = (name) => `std::string_view(reinterpret_cast<const char*>(${name}), sizeof ${name})`;

writeFileSync(target, `#include "host/app/preview/pageParts.h"

namespace host::app::preview {
namespace {

${arrayOf("kStart", start)}
${arrayOf("kEnd", end)}
} // namespace

std::optional<PageParts> pageParts() {
    return PageParts{${viewOf("kStart")}, ${viewOf("kEnd")}};
}

} // namespace host::app::preview
`);
