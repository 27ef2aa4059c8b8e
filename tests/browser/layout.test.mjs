// Measures how the HTML pages of the report program look in a headless Chromium.
import assert from "node:assert/strict";
import { join } from "node:path";
import { test } from "node:test";
import { modules, open } from "./browser.mjs";
import { makeLayoutPages } from "./documents.mjs";

const axe = modules.resolve("axe-core");
const pages = makeLayoutPages();
const { survey, rightToLeft, large, many, words, several } = pages;

// The second table of the survey has layers, the third one no further headings.
const kLayered = "[data-name^='year']";

// What a mistake of rounding may come to, in pixels.
const kNothing = 0.02;

const near = (value, expected, what) =>
  assert.ok(Math.abs(value - expected) < kNothing, `${what}: ${value}, expected ${expected}`);

// How far each row heading of each level is from the end of the one before it, or from the window's.
const gaps = (page, scroll, sign) => page.locator(scroll).evaluate((box, direction) => {
  const start = (rectangle) => direction > 0 ? rectangle.left : -rectangle.right;
  const end = (rectangle) => direction > 0 ? rectangle.right : -rectangle.left;
  const frame = start(box.getBoundingClientRect());
  return [...box.querySelectorAll("tbody tr:first-child")].flatMap((row) => {
    let last = frame;
    return [...row.querySelectorAll("[class^=h]")].map((cell) => {
      const rectangle = cell.getBoundingClientRect();
      const gap = start(rectangle) - last;
      last = end(rectangle);
      return gap;
    });
  });
}, sign);

for (const document of [survey, rightToLeft, many]) {
  test(`${document.name} is accessible`, async () => {
    await open(document, async (page) => {
      await page.addScriptTag({ path: axe });
      const { violations } = await page.evaluate(() => window.axe.run());
      assert.deepEqual(violations.map(({ id, nodes }) => [id, nodes[0].html]), []);
    });
  });
}

for (const [document, sign] of [[survey, 1], [rightToLeft, -1]]) {
  test(`row headings of every layer stay side by side: ${document.name}`, async () => {
    await open(document, async (page) => {
      const layers = page.locator(kLayered);
      assert.equal(await layers.count(), 2);
      await page.getByLabel("Layer").selectOption({ index: 1 });
      const scroll = `${kLayered}:not(.off) .scroll`;
      assert.equal(await page.locator(scroll).count(), 1);
      for (const offset of [150, 333.5]) {
        await page.locator(scroll).evaluate((box, x) => box.scrollTo(x, 0), sign * offset);
        for (const gap of await gaps(page, scroll, sign)) {
          near(gap, 0, "gap");
        }
      }
    }, { viewport: { width: 1203, height: 900 } });
  });

  test(`numbers line up at the right, marked or not: ${document.name}`, async () => {
    await open(document, async (page) => {
      const columns = await page.locator(".pivot-table").nth(1).evaluate((table) => {
        const ends = new Map();
        for (const cell of table.querySelectorAll("td.n")) {
          const digits = window.document.createRange();
          digits.selectNodeContents(cell.firstChild);
          const { right } = digits.getBoundingClientRect();
          const { right: edge, left } = cell.getBoundingClientRect();
          const column = ends.get(left) ?? ends.set(left, []).get(left);
          column.push({ right: right - edge, marked: cell.querySelector("sup") !== null,
            inside: (cell.querySelector("sup a")?.getBoundingClientRect().right ?? edge) - edge });
        }
        return [...ends.values()];
      });
      assert.ok(columns.some((column) => column.some(({ marked }) => marked) &&
        column.some(({ marked }) => !marked)));
      for (const column of columns) {
        for (const { right, inside } of column) {
          assert.ok(Math.abs(right - column[0].right) < 0.5, `${right} and ${column[0].right}`);
          assert.ok(right < 0 && right > -40, "the numbers are at the right");
          assert.ok(inside <= 0, "the mark is in its cell");
        }
      }
    });
  });
}

test("the Log is read from the left on any page", async () => {
  await open(rightToLeft, async (page) => {
    assert.equal(await page.locator("main").evaluate((box) => getComputedStyle(box).direction), "rtl");
    assert.equal(await page.locator("pre").evaluate((box) => getComputedStyle(box).direction), "ltr");
  });
});

test("what scrolls under the row headings has an edge", async () => {
  await open(large, async (page) => {
    const scroll = page.locator(".scroll").nth(1);
    const edge = () => scroll.evaluate((box) => {
      const style = getComputedStyle(box.querySelector("tbody th.edge"));
      const fade = getComputedStyle(box.querySelector("tbody th.edge"), "::after");
      return { width: style.borderRightWidth, color: style.borderRightColor,
        fades: fade.backgroundImage !== "none" && fade.position === "absolute" };
    });
    const before = await edge();
    assert.equal(before.fades, false);
    await scroll.evaluate((box) => box.scrollTo(37, 0));
    await page.waitForSelector(".scroll.scrolled");
    const after = await edge();
    assert.equal(after.width, "1px");
    assert.notEqual(after.color, before.color);
    assert.equal(after.fades, true);
  });
});

test("what scrolls under the row headings has an edge on a page that is read from the right", async () => {
  await open(rightToLeft, async (page) => {
    const scroll = page.locator(".scroll").nth(1);
    await scroll.evaluate((box) => box.scrollTo(-137, 0));
    await page.waitForSelector(".scroll.scrolled");
    const seen = await scroll.evaluate((box) => {
      const heading = box.querySelector("tbody th.edge");
      const [style, fade] = [getComputedStyle(heading), getComputedStyle(heading, "::after")];
      const { left, right, top, height } = heading.getBoundingClientRect();
      const under = [...heading.parentElement.querySelectorAll("td")].filter((cell) =>
        cell.getBoundingClientRect().right > left && cell.getBoundingClientRect().left < right);
      return { widths: [style.borderLeftWidth, style.borderRightWidth],
        color: style.borderLeftColor, background: style.backgroundColor,
        text: getComputedStyle(box).color,
        covers: heading.contains(window.document.elementFromPoint((left + right) / 2,
          top + height / 2)),
        under: under.length, end: fade.right, gradient: fade.backgroundImage,
        outside: parseFloat(fade.left) < 0 };
    });
    assert.deepEqual(seen.widths, ["1px", "0px"]);
    assert.equal(seen.color, seen.text);
    assert.equal(seen.background, "rgb(255, 255, 255)");
    assert.ok(seen.under > 0 && seen.covers, "cells go under the row headings");
    assert.ok(seen.outside && seen.gradient.includes("to left"), JSON.stringify(seen));
  });
});

test("rules of neighboring spanners leave a gap", async () => {
  await open(survey, async (page) => {
    const rules = await page.locator(".pivot-table").nth(1).evaluate((table) =>
      [...table.tHead.rows[1].querySelectorAll("th[scope=colgroup]")].map((cell) => {
        const style = getComputedStyle(cell, "::after");
        const { left, right } = cell.getBoundingClientRect();
        const start = left + parseFloat(getComputedStyle(cell).paddingLeft) +
          parseFloat(style.marginLeft);
        return { start, end: start + parseFloat(style.width), left, right,
          line: style.borderBottomWidth, under: getComputedStyle(cell).borderBottomWidth };
      }));
    assert.ok(rules.length > 2);
    for (const [i, rule] of rules.entries()) {
      assert.equal(rule.line, "1px");
      assert.equal(rule.under, "0px");
      assert.ok(i === 0 || rule.start - rules[i - 1].end > 4, "there is a gap");
    }
  });
});

test("totals look different from categories", async () => {
  await open(survey, async (page) => {
    for (const media of ["screen", "print"]) {
      await page.emulateMedia({ media });
      const rows = await page.locator(".pivot-table").nth(1).evaluate((table) =>
        [...table.querySelectorAll("tbody tr")].map((row) => {
          const looks = [...row.cells].map((cell) => ({ style: getComputedStyle(cell), cell }));
          const weights = (tag, wanted) => [...new Set(looks.filter(({ cell }) =>
            cell.matches(tag) && wanted(cell)).map(({ style }) => Number(style.fontWeight)))];
          return { total: [...row.cells].some((cell) => cell.matches("[class^=h].t")),
            labels: [...row.cells].filter((cell) => cell.matches("th")).map((cell) =>
              cell.textContent),
            ruled: [...new Set(looks.map(({ style }) => style.borderTopWidth !== "0px"))],
            headings: weights("th", (cell) => cell.rowSpan === 1),
            numbers: weights("td", (cell) => !cell.matches(".t")),
            inColumn: weights("td", (cell) => cell.matches(".t")) };
        }));
      const outer = rows.findIndex(({ labels }) => labels[0] === "Total" && labels.length > 1);
      assert.ok(outer > 3 && rows.length === outer + 4);
      for (const [i, { total, labels, ruled, headings, numbers, inColumn }] of rows.entries()) {
        // A total starts and a group starts: a rule over the headings and the numbers.
        assert.deepEqual(ruled, [total || (i > 0 && labels.length > 1)], labels.join());
        const bold = total || i > outer;
        assert.deepEqual(numbers, [bold ? 650 : 400], labels.join());
        assert.deepEqual(headings, [bold ? 650 : 500], labels.join());
        assert.deepEqual(inColumn, [650], labels.join());
      }
    }
  });
});

test("every other row is shaded across groups, in the page's text color", async () => {
  await open(survey, async (page) => {
    const rows = await page.locator(".pivot-table").nth(1).evaluate((table) =>
      [...table.querySelectorAll("tbody td.n:nth-last-child(4)")].map((cell) => {
        const { backgroundColor, color } = getComputedStyle(cell);
        return { shaded: backgroundColor === "rgb(232, 238, 245)", color };
      }));
    assert.ok(rows.length > 8);
    assert.deepEqual(rows.map(({ shaded }) => shaded), rows.map((_, i) => i % 2 === 1));
    assert.equal(new Set(rows.map(({ color }) => color)).size, 1);
  });
});

test("labels of wide and tall blocks stay in view while their block is", async () => {
  await open(large, async (page) => {
    const scroll = page.locator(".scroll").nth(1);
    await scroll.evaluate((box) => box.scrollTo(1777, 2222));
    const seen = await scroll.evaluate((box) => {
      const frame = box.getBoundingClientRect();
      const head = box.querySelector("thead").getBoundingClientRect();
      const edge = box.querySelector("thead .edge").getBoundingClientRect();
      const wide = box.querySelector("thead th[scope=colgroup] .stay").getBoundingClientRect();
      const tall = [...box.querySelectorAll("tbody th[rowspan]")].map((cell) => ({
        cell: cell.getBoundingClientRect(),
        label: cell.querySelector(".stay").getBoundingClientRect() }))
        .filter(({ cell }) => cell.bottom > head.bottom + 60 && cell.top < frame.bottom - 60);
      return { wide: wide.left >= edge.right && wide.right <= frame.right,
        tall: tall.map(({ label }) => label.top >= head.bottom && label.bottom <= frame.bottom) };
    });
    assert.equal(seen.wide, true);
    assert.ok(seen.tall.length > 0);
    assert.ok(seen.tall.every((visible) => visible));
  });
});

// The lines of each label of a table, as the words and pieces of words that are on them.
const linesOfLabels = (page, table) => page.locator(".pivot-table").nth(table).evaluate((one) =>
  [...one.querySelectorAll("th")].map((cell) => {
    const lines = [];
    const walker = window.document.createTreeWalker(cell, NodeFilter.SHOW_TEXT);
    for (let node = walker.nextNode(); node !== null; node = walker.nextNode()) {
      for (let i = 0; i < node.length; ++i) {
        const range = window.document.createRange();
        range.setStart(node, i);
        range.setEnd(node, i + 1);
        const at = Math.round(range.getBoundingClientRect().bottom);
        if (lines.at(-1)?.at === at) {
          lines.at(-1).text += node.data[i];
        } else if (node.data[i].trim() !== "") {
          lines.push({ at, text: node.data[i] });
        }
      }
    }
    return { label: cell.textContent, lines: lines.map(({ text }) => text.trim()),
      cut: cell.scrollWidth > cell.clientWidth + 1 };
  }));

for (const width of [1400, 390]) {
  test(`labels break between words and not after each, at ${width} pixels`, async () => {
    await open(words, async (page) => {
      const [notes, table] = [await linesOfLabels(page, 0), await linesOfLabels(page, 1)];
      assert.ok(notes.some(({ label }) => label === "Satisfaction"));
      assert.ok(table.some(({ label }) => label === "INTERNATIONALIZATION"));
      for (const { label, lines, cut } of [...notes, ...table]) {
        assert.equal(cut, false, label);
        if (label.startsWith("https:")) {
          assert.ok(lines.length > 1 && lines.length < 7, lines.join(" / "));
        } else {
          assert.equal(lines.join(" "), label, "an ordinary word is broken");
          const most = Math.min(label.split(" ").length - 1, label.length / 12);
          assert.ok(lines.length <= Math.max(1, most), lines.join(" / "));
        }
      }
      assert.ok(await page.evaluate(() =>
        window.document.documentElement.scrollWidth <= window.innerWidth), "the page scrolls");
    }, { viewport: { width, height: 800 } });
  });
}

test("a note has one link back, to the mark that led to it", async () => {
  await open(survey, async (page) => {
    const notes = page.locator(".layer .notes li");
    assert.ok(await notes.count() > 2);
    assert.deepEqual(new Set(await notes.evaluateAll((all) =>
      all.map((note) => note.querySelectorAll("[role=doc-backlink]").length))), new Set([1]));
    const mark = page.locator("td sup a").nth(5);
    await mark.click();
    const note = await page.evaluate(() => window.location.hash);
    await page.locator(note + " a").click();
    assert.equal(await page.evaluate(() => window.location.hash),
      "#" + await mark.getAttribute("id"));
  });
});

test("the switch is below the title and says the layer alone", async () => {
  await open(survey, async (page) => {
    const pivot = page.locator(".pivot.switched");
    const title = await pivot.locator(".title:visible").boundingBox();
    const bar = await pivot.locator(".layer-switch").boundingBox();
    const table = await pivot.locator(".pivot-table:visible").boundingBox();
    assert.equal(await pivot.locator(".title:visible").count(), 1);
    assert.ok(title.y + title.height <= bar.y && bar.y + bar.height <= table.y);
    assert.equal(await pivot.locator(".layer-line:visible").count(), 0);
    await page.emulateMedia({ media: "print" });
    assert.equal(await pivot.locator(".layer-line:visible").count(), 2);
  });
});

test("title, notes and caption stay in view when a table scrolls", async () => {
  await open(large, async (page) => {
    const box = () => page.locator(".title").nth(1).boundingBox();
    const before = await box();
    await page.locator(".scroll").nth(1).evaluate((scroll) => scroll.scrollTo(900, 900));
    assert.deepEqual(await box(), before);
  });
  await open(survey, async (page) => {
    const foot = page.locator(".layer .notes, .table-caption");
    assert.ok(await foot.count() > 1);
    for (const one of await foot.locator("visible=true").all()) {
      const { x, width } = await one.boundingBox();
      assert.ok(x >= 0 && x + width <= 1200);
    }
  });
});

test("the page is named by its document", async () => {
  await open(survey, async (page) => assert.equal(await page.title(), "Survey"));
  await open(several, async (page) => {
    const titles = await page.locator(".title").allTextContents();
    assert.equal(titles.length, 3);
    assert.equal(titles[0], "Notes");
    assert.notEqual(titles[1], titles[2]);
    assert.equal(await page.title(), titles[1]);
  });
});

test("outline entries of a table and its chart differ", async () => {
  await open(many, async (page) => {
    const entries = await page.locator("#outline li > a").allTextContents();
    assert.equal(new Set(entries).size, entries.length);
    assert.ok(entries.includes("Many"));
  });
});

test("a chart of many categories scrolls at its own size", async () => {
  await open(many, async (page) => {
    const image = await page.locator(".chart img").evaluate((one) => ({
      natural: one.naturalWidth, shown: one.getBoundingClientRect().width,
      room: one.closest(".scroll").clientWidth, all: one.closest(".scroll").scrollWidth }));
    assert.ok(image.natural > 150 * 20);
    assert.ok(Math.abs(image.shown - image.natural) < 1);
    assert.ok(image.room < 1200 && image.all >= image.natural);
  });
});

test("a printed chart keeps half its size and goes on below", async () => {
  await open(many, async (page) => {
    await page.evaluate(() => window.dispatchEvent(new Event("beforeprint")));
    await page.emulateMedia({ media: "print" });
    await page.setViewportSize({ width: 680, height: 950 });
    const { natural, whole, strips } = await page.locator(".chart").evaluate((chart) => ({
      natural: chart.querySelector("img").naturalWidth,
      whole: getComputedStyle(chart.querySelector("img")).display,
      strips: [...chart.querySelectorAll(".part")].map((part) => {
        const [frame, image] = [part, part.firstChild].map((one) => one.getBoundingClientRect());
        return { top: frame.top, bottom: frame.bottom, width: frame.width, right: frame.right,
          height: frame.height - image.height, from: frame.left - image.left, size: image.width };
      }) }));
    assert.equal(whole, "none");
    assert.ok(strips.length > 1);
    for (const [i, { top, width, right, height, from, size }] of strips.entries()) {
      assert.ok(size >= natural / 2, `${size} pixels are left of ${natural}`);
      assert.ok(right <= 680 && Math.abs(height) < 8);
      assert.ok(Math.abs(from - i * width) < 1 && Math.abs(size - strips.length * width) < 1,
        "the strips are all of the picture");
      assert.ok(i === 0 || top >= strips[i - 1].bottom);
    }
    await page.emulateMedia({ media: "screen" });
    await page.evaluate(() => window.dispatchEvent(new Event("afterprint")));
    assert.equal(await page.locator(".part, .divided").count(), 0);
  });
  await open(survey, async (page) => {
    await page.evaluate(() => window.dispatchEvent(new Event("beforeprint")));
    assert.equal(await page.locator(".chart .part").count(), 0);
  });
});

for (const document of [large, survey, rightToLeft]) {
  test(`no column is lost in print: ${document.name}`, async () => {
    await open(document, async (page) => {
      await page.evaluate(() => window.addEventListener("afterprint", () => {
        window.printed = true;
      }));
      // What is laid out for the printer, in a window as wide as an A4 page within its margins.
      await page.evaluate(() => window.dispatchEvent(new Event("beforeprint")));
      await page.emulateMedia({ media: "print" });
      await page.setViewportSize({ width: 680, height: 950 });
      const tables = await page.locator(".scroll:has(> .divided)").evaluateAll((scrolls) =>
        scrolls.map((scroll) => {
          const columns = (table) => {
            const row = table.tBodies[0].rows[0];
            return [...row.cells].filter((cell) => !cell.className.startsWith("h")).length;
          };
          const rows = (table) => [...table.tBodies].map((body) => body.rows.length);
          const labels = (table) =>
            [...table.querySelectorAll("tbody [class^=h]")].map((cell) => cell.textContent);
          const [table, ...parts] = scroll.querySelectorAll(".pivot-table");
          return { columns: columns(table), hidden: getComputedStyle(table).display === "none",
            parts: parts.map((part) => ({ columns: columns(part),
              whole: JSON.stringify([rows(part), labels(part)]) ===
                JSON.stringify([rows(table), labels(table)]),
              left: part.getBoundingClientRect().left,
              right: part.getBoundingClientRect().right })) };
        }));
      assert.ok(tables.length > 0);
      for (const { columns, hidden, parts } of tables) {
        assert.equal(hidden, true);
        assert.equal(parts.reduce((sum, part) => sum + part.columns, 0), columns);
        for (const { left, right, whole } of parts) {
          assert.ok(left >= 0 && right <= 680.5, `a part reaches from ${left} to ${right}`);
          assert.equal(whole, true, "the row headings are repeated");
        }
      }
      await page.emulateMedia({ media: "screen" });
      await page.evaluate(() => window.dispatchEvent(new Event("afterprint")));
      assert.equal(await page.locator(".part, .divided, .printing").count(), 0);
      await page.evaluate(() => { window.printed = false; });
      await page.pdf({ path: join(process.env.LAKRESVOS_PAGES, document.name + ".pdf") });
      assert.equal(await page.evaluate(() => window.printed), true, "printing calls the script");
    });
  });
}

test("no column is lost in print without script", async () => {
  await open(survey, async (page) => {
    await page.emulateMedia({ media: "print" });
    await page.setViewportSize({ width: 680, height: 950 });
    const rights = await page.locator(".pivot-table").evaluateAll((tables) =>
      tables.map((table) => table.getBoundingClientRect().right));
    assert.ok(rights.every((right) => right <= 681), String(rights));
  }, { javaScriptEnabled: false });
});
