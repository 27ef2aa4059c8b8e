// A headless Chromium for the tests of a file.
import assert from "node:assert/strict";
import { mkdtempSync, rmSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before } from "node:test";

export const modules = createRequire(join(process.env.LAKRESVOS_MODULES, "package.json"));
const { chromium } = modules("playwright-core");

const profile = mkdtempSync(join(tmpdir(), "lakresvos-browser-"));
let browser;

before(async () => {
  browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
    args: ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
      "--disable-background-networking", "--disable-component-update", "--disable-sync",
      "--disk-cache-dir=" + profile],
  });
});

after(async () => {
  await browser?.close();
  rmSync(profile, { recursive: true, force: true });
});

// Opens a page that may load nothing but itself, hands it to `look` and closes it.
export async function open(document, look, options = {}) {
  const context = await browser.newContext({ viewport: { width: 1200, height: 900 }, ...options });
  try {
    const page = await context.newPage();
    const requests = [];
    const errors = [];
    page.on("request", (request) => {
      if (request.url() !== document.url && !request.url().startsWith("data:")) {
        requests.push(request.url());
      }
    });
    page.on("pageerror", (error) => errors.push(String(error)));
    await page.goto(document.url);
    await look(page);
    assert.deepEqual(requests, [], "the page asks for something else");
    assert.deepEqual(errors, [], "the page's script fails");
  } finally {
    await context.close();
  }
}
