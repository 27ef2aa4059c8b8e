
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
    show();
  }
}

// Row headings of several levels stay in sight side by side: each as far in as those before it reach.
for (const table of document.querySelectorAll(".pivot-table")) {
  for (let level = 1, offset = 0; ; ++level) {
    const before = table.querySelector(`tbody .h${level - 1}:not([colspan])`);
    const cells = table.querySelectorAll(`.h${level}`);
    if (before === null || cells.length === 0) {
      break;
    }
    offset += before.offsetWidth;
    for (const cell of cells) {
      cell.style.position = "sticky";
      cell.style.insetInlineStart = offset + "px";
      cell.style.zIndex = "1";
    }
  }
}
