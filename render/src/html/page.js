
"use strict";
// One layer of a table at a time on the screen, chosen in a list that the keyboard works too.
for (const [number, pivot] of document.querySelectorAll(".pivot").entries()) {
  const layers = [...pivot.querySelectorAll(":scope > .layer")];
  if (layers.length > 1) {
    const select = document.createElement("select");
    select.id = "layers-" + number;
    layers.forEach((layer, i) => select.add(new Option(layer.dataset.name || String(i + 1))));
    const label = document.createElement("label");
    label.htmlFor = select.id;
    label.textContent = "Layer";
    const bar = document.createElement("div");
    bar.className = "layer-switch";
    bar.append(label, select);
    const show = () => layers.forEach((layer, i) =>
      layer.classList.toggle("off", i !== select.selectedIndex));
    select.addEventListener("change", show);
    pivot.prepend(bar);
    pivot.classList.add("switched");
    show();
  }
}

// Row headings of several levels stay in sight side by side, each as far in as those before it reach,
// unless they would leave too little room for the numbers.
const kMaxHeadingShare = 0.6;
const width = (element) => element.getBoundingClientRect().width;
const place = (scroll) => {
  const table = scroll.querySelector(":scope > .pivot-table");
  let reach = 0;
  for (let level = 0; ; ++level) {
    const heading = table.querySelector(`tbody .h${level}:not([colspan])`);
    if (heading === null) {
      break;
    }
    table.style.setProperty("--h" + level, reach + "px");
    reach += width(heading);
  }
  const stuck = reach <= kMaxHeadingShare * scroll.clientWidth;
  scroll.classList.toggle("unstuck", !stuck);
  table.style.setProperty("--heads-width", (stuck ? reach : 0) + "px");
  table.style.setProperty("--head-height", (table.tHead?.getBoundingClientRect().height ?? 0) + "px");
};
const sizes = new ResizeObserver((entries) => {
  new Set(entries.map(({ target }) => target.closest(".scroll"))).forEach(place);
});
for (const table of document.querySelectorAll(".scroll > .pivot-table")) {
  sizes.observe(table);
  sizes.observe(table.parentElement);
  table.parentElement.addEventListener("scroll", ({ target }) =>
    target.classList.toggle("scrolled", target.scrollLeft !== 0), { passive: true });
}

// A note leads back to the mark that led to it.
document.addEventListener("click", ({ target }) => {
  const mark = target.closest("a[role=doc-noteref]");
  const note = mark && document.getElementById(mark.hash.slice(1));
  note?.querySelector("a[role=doc-backlink]").setAttribute("href", "#" + mark.id);
});

// Printed, a table that is wider than the page goes on below, its row headings repeated.
const kPageWidth = 672;  // of A4 within its margins, in pixels, less a little; Letter is wider
const kPrintFontSize = 40 / 3;
const partOf = (table, first, end, columns) => {
  const part = document.createElement("table");
  part.className = "pivot-table part";
  part.setAttribute("aria-labelledby", table.getAttribute("aria-labelledby") ?? "");
  const copy = (cell, span) => {
    const twin = cell.cloneNode(true);
    twin.colSpan = span;
    twin.removeAttribute("id");
    twin.removeAttribute("headers");
    twin.querySelectorAll("[id]").forEach((element) => element.removeAttribute("id"));
    return twin;
  };
  for (const section of table.children) {
    const sectionCopy = section.cloneNode(false);
    const taken = new Array(columns.count).fill(0);  // rows that cells from above still reach into
    for (const row of section.rows ?? []) {
      const rowCopy = row.cloneNode(false);
      let column = 0;
      for (const cell of row.cells) {
        for (; taken[column] > 0; ++column);
        const last = column + cell.colSpan;
        const inside = column < columns.headings ? cell.colSpan
          : Math.min(last, end) - Math.max(column, first);
        if (inside > 0) {
          rowCopy.append(copy(cell, inside));
        }
        taken.fill(cell.rowSpan, column, last);
        column = last;
      }
      for (let i = 0; i < taken.length; ++i) {
        taken[i] = Math.max(0, taken[i] - 1);
      }
      sectionCopy.append(rowCopy);
    }
    if (section.rows) {
      part.append(sectionCopy);
    }
  }
  return part;
};
const divide = (table) => {
  const scale = parseFloat(getComputedStyle(document.documentElement).fontSize) / kPrintFontSize;
  const room = kPageWidth * scale;
  const row = table.tBodies[0]?.rows[0];
  if (!row || width(table) <= room) {
    return;
  }
  const numbers = [...row.cells].filter((cell) => !/^h\d/.test(cell.className));
  const all = [...row.cells].reduce((sum, cell) => sum + cell.colSpan, 0);
  const columns = { count: all, headings: all - numbers.length };
  const headings = width(table) - numbers.reduce((sum, cell) => sum + width(cell), 0);
  let last = table;
  for (let first = 0; first < numbers.length;) {
    let end = first;
    for (let used = headings; end < numbers.length; ++end) {
      used += width(numbers[end]);
      if (used > room && end > first) {
        break;
      }
    }
    const part = partOf(table, columns.headings + first, columns.headings + end, columns);
    last.after(part);
    last = part;
    first = end;
  }
  table.classList.add("divided");
};
// A picture that would become less than half as large goes on below, in strips as wide as the page.
const kMinScale = .5;
const cut = (image) => {
  const strips = Math.ceil(image.naturalWidth * kMinScale / kPageWidth);
  if (strips <= 1) {
    return;
  }
  const parts = Array.from({ length: strips }, (_, i) => {
    const part = document.createElement("div");
    part.className = "part";
    part.style.maxWidth = image.naturalWidth / strips + "px";
    const picture = image.cloneNode();
    picture.alt = i === 0 ? image.alt : "";
    picture.style.width = 100 * strips + "%";
    picture.style.marginLeft = -100 * i + "%";
    part.append(picture);
    return part;
  });
  image.after(...parts);
  image.classList.add("divided");
};
addEventListener("beforeprint", () => {
  document.body.classList.add("printing");
  document.querySelectorAll(".scroll > .pivot-table").forEach(divide);
  document.querySelectorAll(".chart .scroll > img").forEach(cut);
});
addEventListener("afterprint", () => {
  document.querySelectorAll(".part").forEach((part) => part.remove());
  document.querySelectorAll(".divided").forEach((table) => table.classList.remove("divided"));
  document.body.classList.remove("printing");
});
