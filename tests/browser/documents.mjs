// Makes the pages that the tests look at with the report program.
import { execFileSync } from "node:child_process";
import { mkdirSync, readdirSync, readFileSync, writeFileSync } from "node:fs";
import { basename, join } from "node:path";

const source = process.env.LAKRESVOS_SOURCE;
const folder = process.env.LAKRESVOS_PAGES;

function makePage(name, args) {
  const page = join(folder, name + ".html");
  execFileSync(process.env.LAKRESVOS_REPORT, [...args, "--format", "html", "-o", page],
    { cwd: source });
  return { name, page, url: "file://" + page };
}

function writeData(name, text) {
  const file = join(folder, name);
  writeFileSync(file, text);
  return file;
}

// The documents of `./dev demo`.
function demoPages() {
  const demo = join(source, "examples", "demo");
  return readdirSync(demo).filter((file) => file.endsWith(".args")).sort().map((file) =>
    makePage(basename(file, ".args"),
      readFileSync(join(demo, file), "utf8").trimEnd().split("\n")));
}

// Labels that would run a script, close elements and leave attributes if they were not text.
function hostilePage() {
  const labels = ["<script>window.harmed = 1</script>", "<img src=x onerror=window.harmed=1>",
    "\"><b onmouseover=window.harmed=1>", "</td></table></main><h1>", "<!--", "'&quot;&amp;",
    "a\u0001b\u007f", "\u202Eright to left", "javascript:window.harmed=1", "]]>", "\uFFFE"];
  const quoted = (text) => "\"" + text.replaceAll("\"", "\"\"") + "\"";
  const rows = labels.flatMap((label, i) =>
    [1, 2].map((n) => [quoted(label), quoted(labels[(i + n) % labels.length]), n].join(",")));
  const data = writeData("hostile.csv", quoted(labels[0]) + ",b,n\n" + rows.join("\n") + "\n");
  return makePage("hostile", [data, "--table", "`" + labels[0] + "` ~ b",
    "--table", "b ~ | `" + labels[0] + "`", "--chart", "--title", labels[1], "--caption", labels[2],
    "--group", "b: `" + labels[2] + "` = `" + labels[4] + "`"]);
}

// A table that is far longer and wider than the window.
function largePage() {
  const rows = [];
  for (let r = 0; r < 200; ++r) {
    for (let c = 0; c < 60; ++c) {
      rows.push(`group ${r % 5},row ${r},column ${c},${r * c}`);
    }
  }
  const data = writeData("large.csv", "g,r,c,n\n" + rows.join("\n") + "\n");
  return makePage("large", [data, "--weight", "n", "--table", "g/r ~ c", "--title", "Large"]);
}

export function makePages() {
  mkdirSync(folder, { recursive: true });
  return { demo: demoPages(), hostile: hostilePage(), large: largePage() };
}
