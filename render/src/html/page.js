
"use strict";
// One layer of a table at a time on the screen, chosen in a list that the keyboard works too.
for (const [number, pivot] of document.querySelectorAll(".pivot").entries()) {
  const layers = [...pivot.querySelectorAll(":scope > .layer")];
  if (layers.length > 1) {
    const select = document.createElement("select");
    select.id = "layers-" + number;
    for (const layer of layers) {
      select.add(new Option(layer.dataset.name));
    }
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
