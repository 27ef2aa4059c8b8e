// Checks the HTML pages of the report program with the Nu HTML checker and in a headless Chromium.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { join } from "node:path";
import { test } from "node:test";
import { modules, open } from "./browser.mjs";
import { makePages } from "./documents.mjs";

const axe = modules.resolve("axe-core");
const checker = modules.resolve("vnu-jar/build/dist/vnu.jar");

const pages = makePages();
const all = [...pages.demo, pages.hostile, pages.large];
const shownLayers = (page, pivot) => page.locator(pivot + " > .layer").evaluateAll((layers) =>
  layers.map((layer) => getComputedStyle(layer).display !== "none"));

test("the Nu HTML checker has nothing against any page", () => {
  const report = execFileSync("java",
    ["-jar", checker, "--format", "json", "--exit-zero-always", "--stdout",
      ...all.map(({ page }) => page)], { encoding: "utf8", maxBuffer: 1 << 26 });
  assert.deepEqual(JSON.parse(report).messages, []);
});

for (const document of all) {
  for (const colorScheme of ["light", "dark"]) {
    test(`${document.name} is accessible in ${colorScheme}`, async () => {
      await open(document, async (page) => {
        await page.addScriptTag({ path: axe });
        const { violations } = await page.evaluate(() => window.axe.run());
        assert.deepEqual(violations.map(({ id, nodes }) =>
          ({ id, nodes: nodes.slice(0, 3).map((node) => node.html + ": " + node.failureSummary) })),
          []);
        await page.screenshot({
          path: join(process.env.LAKRESVOS_PAGES, `${document.name}-${colorScheme}.png`),
          fullPage: document.name !== "large",
        });
      }, { colorScheme });
    });
  }

  test(`${document.name} has unique ids and headers that are there`, async () => {
    await open(document, async (page) => {
      const faults = await page.evaluate(() => {
        const found = [];
        const ids = [...document.querySelectorAll("[id]")].map((element) => element.id);
        if (new Set(ids).size !== ids.length) {
          found.push("an id comes twice");
        }
        for (const cell of document.querySelectorAll("td[headers]")) {
          for (const id of cell.headers.split(" ")) {
            const header = document.getElementById(id);
            if (header?.tagName !== "TH" || header.closest("table") !== cell.closest("table")) {
              found.push(id + " is no header of its table");
            }
          }
        }
        for (const link of document.querySelectorAll("a[href^='#']")) {
          if (document.getElementById(link.getAttribute("href").slice(1)) === null) {
            found.push(link.href + " leads nowhere");
          }
        }
        return found;
      });
      assert.deepEqual(faults, []);
    });
  });
}

test("hostile labels are texts", async () => {
  await open(pages.hostile, async (page) => {
    await page.mouse.move(600, 450);
    assert.equal(await page.evaluate(() => window.harmed), undefined);
    assert.equal(await page.locator("main script, main b, td img, th img").count(), 0);
    const labels = await page.locator("tbody th").allTextContents();
    assert.ok(labels.includes("<script>window.harmed = 1</script>"));
    assert.ok(labels.includes("a\uFFFDb\uFFFD"));
  });
});

test("the keyboard chooses the layer that is shown", async () => {
  await open(pages.demo.find(({ name }) => name === "survival"), async (page) => {
    const select = page.getByLabel("Layer");
    const pivot = ".pivot:has(> .layer-switch)";
    assert.deepEqual(await shownLayers(page, pivot), [true, false]);
    await select.focus();
    await page.keyboard.press("ArrowDown");
    assert.deepEqual(await shownLayers(page, pivot), [false, true]);
    assert.equal(await page.locator(pivot + " .layer:not(.off) .layer-line").textContent(),
      "Age: Adult");
    await page.keyboard.press("ArrowUp");
    assert.deepEqual(await shownLayers(page, pivot), [true, false]);
  });
});

test("all layers are printed", async () => {
  await open(pages.demo.find(({ name }) => name === "survival"), async (page) => {
    await page.emulateMedia({ media: "print" });
    assert.deepEqual(await shownLayers(page, ".pivot:has(> .layer-switch)"), [true, true]);
    assert.equal(await page.locator("#outline").isVisible(), false);
    assert.equal(await page.locator(".layer-switch").isVisible(), false);
    assert.equal(await page.locator("thead").first().evaluate((head) =>
      getComputedStyle(head).display), "table-header-group");
  });
});

test("all layers are there without script", async () => {
  await open(pages.demo.find(({ name }) => name === "survival"), async (page) => {
    assert.equal(await page.locator(".layer-switch").count(), 0);
    assert.equal(await page.locator(".layer table:visible").count(), 3);
  }, { javaScriptEnabled: false });
});

test("outline entries lead to their items", async () => {
  await open(pages.demo.find(({ name }) => name === "survival"), async (page) => {
    const entry = page.locator("#outline a", { hasText: "Survival by class and sex" });
    await entry.click();
    const target = (await entry.getAttribute("href")).slice(1);
    assert.equal(await page.evaluate(() => location.hash.slice(1)), target);
    await page.waitForFunction((id) => {
      const box = document.getElementById(id).getBoundingClientRect();
      return box.top >= 0 && box.top < innerHeight;
    }, target);
  });
});

test("the outline folds by keyboard", async () => {
  await open(pages.demo[0], async (page) => {
    const entries = page.locator("#outline li > a");
    const before = await entries.count();
    assert.ok(before > 2);
    await page.locator("#outline > details > summary").focus();
    await page.keyboard.press("Enter");
    assert.equal(await page.locator("#outline li > a:visible").count(), 0);
    await page.keyboard.press("Enter");
    await page.locator("#outline li > details > summary").first().focus();
    await page.keyboard.press("Space");
    assert.equal(await page.locator("#outline li > a:visible").count(), 1);
  });
});

test("footnotes link to the note and back", async () => {
  await open(pages.demo.find(({ name }) => name === "ozone"), async (page) => {
    const mark = page.locator("sup a").nth(2);
    await mark.focus();
    await page.keyboard.press("Enter");
    const note = await page.evaluate(() => location.hash);
    assert.match(await page.locator(note).textContent(), /Ozone missing in 21 rows/);
    await page.locator(note + " a").first().click();
    assert.equal(await page.evaluate(() => location.hash), "#" + await mark.getAttribute("id"));
  });
});

test("headings stay in sight when a large table is scrolled", async () => {
  await open(pages.large, async (page) => {
    const scroll = page.locator(".layer:has(.title:text-is('Large')) > .scroll");
    const places = () => scroll.evaluate((box) => {
      const frame = box.getBoundingClientRect();
      const head = box.querySelector("thead th:last-child").getBoundingClientRect();
      const outer = box.querySelector("tbody:nth-of-type(3) th.h0").getBoundingClientRect();
      const inner = box.querySelector("tbody:nth-of-type(3) th.h1").getBoundingClientRect();
      return { head: head.top - frame.top, outer: outer.left - frame.left,
        inner: inner.left - outer.right };
    });
    await scroll.evaluate((box) => box.scrollTo(1500, 2000));
    const { head, outer, inner } = await places();
    assert.ok(head >= 0 && head < 60, "the column headings are at " + head);
    assert.ok(Math.abs(outer) < 2, "the outer row headings are at " + outer);
    assert.ok(Math.abs(inner) < 2, "the inner row headings are " + inner + " off the outer ones");
  });
});
