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

// Long texts, long words, marks, totals and layers, in a table that is wider than the window.
function surveyArguments() {
  const questions = ["How satisfied are you with the services that are offered in your town?",
    "Donaudampfschifffahrtselektrizitaetenhauptbetriebswerkbauunterbeamtengesellschaft", "Age"];
  const answers = ["Not at all satisfied with it", "Somewhat", "Very"];
  const rows = ["question,answer,region,year,x"];
  for (const [q, question] of questions.entries()) {
    for (const [a, answer] of answers.entries()) {
      for (let r = 0; r < 12; ++r) {
        rows.push(`${question},${answer},Region number ${r},${2020 + r % 2},${q * 100 + a * 10 + r}`);
        if (r % 3 === a) {
          rows.push(`${question},${answer},Region number ${r},${2020 + r % 2},`);
        }
      }
    }
  }
  const data = writeData("survey.csv", rows.join("\n") + "\n");
  return ["--table", "question * answer ~ region", "--table", "question * answer ~ region | year",
    "--table", "region ~ answer", "--statistics", "mean:x,count", "--totals", "--chart",
    "--style", writeData("survey.json",
      '{"data": {"alternateRows": true, "alternateBackgroundColor": "#e8eef5"}}'),
    "--title", "Survey", "--caption", "Source: a survey.", data];
}

// The same in a language that is read from the right.
function rightToLeftPage(args) {
  const saved = join(folder, "survey-document.json");
  execFileSync(process.env.LAKRESVOS_REPORT, [...args, "--format", "json", "-o", saved],
    { cwd: source });
  const document = JSON.parse(readFileSync(saved, "utf8"));
  document.parts.filter(({ type }) => type === "table").forEach((table) => {
    table.locale = "ar_EG";
  });
  writeFileSync(saved, JSON.stringify(document));
  return makePage("right-to-left", ["--from", saved]);
}

// Labels of several words and long ordinary ones, in a table that is wider than a small window and
// in one of notes that is not.
function wordsPage() {
  const questions = ["Satisfaction with public transportation",
    "Telecommunications", "INTERNATIONALIZATION", "https://example.org/" + "a".repeat(40)];
  const answers = ["Not at all satisfied with everything", "Satisfaction"];
  const rows = ["q,a,Satisfaction,x"];
  for (const question of questions) {
    for (const answer of answers) {
      for (const [c, column] of [...answers, "Responsibilities"].entries()) {
        rows.push(`${question},${answer},${column},${c}`, `${question},${answer},${column},`);
      }
    }
  }
  const data = writeData("words.csv", rows.join("\n") + "\n");
  return makePage("words", [data, "--table", "q * a ~ Satisfaction", "--statistics", "count,mean:x",
    "--title", "Words"]);
}

// A chart that is wider than the window.
function manyPage() {
  const rows = Array.from({ length: 150 }, (_, i) => `category number ${i},${i * 7 % 101}`);
  const data = writeData("many.csv", "c,n\n" + rows.join("\n") + "\n");
  return makePage("many", [data, "--weight", "n", "--table", "c ~", "--chart", "--title", "Many"]);
}

// Tables that nobody gave a title.
function severalPage() {
  return makePage("several", ["data/titanic.csv", "--weight", "Freq", "--table", "Class ~ Survived",
    "--table", "Sex ~ Survived"]);
}

export function makeLayoutPages() {
  mkdirSync(folder, { recursive: true });
  const survey = surveyArguments();
  return { survey: makePage("survey", survey), rightToLeft: rightToLeftPage(survey),
    large: largePage(), many: manyPage(), words: wordsPage(), several: severalPage() };
}

export function makePages() {
  mkdirSync(folder, { recursive: true });
  return { demo: demoPages(), hostile: hostilePage(), large: largePage() };
}
