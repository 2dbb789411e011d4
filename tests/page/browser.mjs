// Headless Chromium for the page tests, and what they read from it: screenshots' pixels, the
// page's own report of its view, console errors.
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { createRequire } from 'node:module';

const require = createRequire(path.join(process.env.ORBISETT_PAGE_DIR, 'package.json'));
const puppeteer = require('puppeteer-core');

// Without the networking flags this machine's closed network refuses Chromium's own connections.
const kFlags = [
  '--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
  '--disable-background-networking', '--disable-component-update', '--disable-sync',
  // WebGL on the software renderer, which Chromium offers without a GPU only when asked.
  '--enable-unsafe-swiftshader',
];

export const kViewport = { width: 1280, height: 720 };

export async function launch() {
  const profile = fs.mkdtempSync(path.join(os.tmpdir(), 'orbisett-chromium-'));
  const browser = await puppeteer.launch({
    executablePath: process.env.CHROMIUM || '/usr/bin/chromium',
    headless: true,
    args: [...kFlags, `--user-data-dir=${profile}`],
  });
  return {
    browser,
    async close() {
      await browser.close();
      fs.rmSync(profile, { recursive: true, force: true });
    },
  };
}

// Opens a page file and waits until it is drawn or has said why it cannot be; `errors` collects
// what the console and the page report as errors.
export async function open(browser, file, { beforeLoad } = {}) {
  const page = await browser.newPage();
  await page.setViewport(kViewport);
  const errors = [];
  page.on('console', (message) => {
    if (message.type() === 'error') {
      errors.push(message.text());
    }
  });
  page.on('pageerror', (error) => errors.push(error.message));
  if (beforeLoad) {
    await page.evaluateOnNewDocument(beforeLoad);
  }
  await page.goto(`file://${file}`, { timeout: 120000 });
  await page.waitForFunction(
    () => document.body.dataset.ready === 'true' || !document.getElementById('message').hidden,
    { timeout: 120000 });
  await frames(page, 2);
  return { page, errors };
}

// Lets the page draw `count` frames.
export function frames(page, count) {
  return page.evaluate((n) => new Promise((resolve) => {
    const step = () => (n-- <= 0 ? resolve() : requestAnimationFrame(step));
    step();
  }), count);
}

export function view(page) {
  return page.evaluate(() => window.orbisettPage.view());
}

// Waits until the layers have stopped moving and the view is drawn sharp.
export async function settle(page) {
  await page.waitForFunction(() => {
    const state = window.orbisettPage.state();
    return !state.moving && state.sharp;
  }, { timeout: 30000 });
  await frames(page, 2);
}

// Clicks a toolbar button by its data attribute and waits for the view, and any move, to settle.
export async function press(page, selector) {
  await page.click(selector);
  await settle(page);
}

// Where the page's own panels cover the canvas.
export function coveredRects(page) {
  return page.evaluate(() => ['toolbar', 'legend', 'details', 'tooltip']
    .map((id) => document.getElementById(id))
    .filter((e) => !e.hidden)
    .map((e) => e.getBoundingClientRect().toJSON()));
}

export function covered(rects, x, y, margin = 4) {
  return rects.some((r) => x >= r.left - margin && x <= r.right + margin && y >= r.top - margin && y <= r.bottom + margin);
}

// A screenshot's pixels at the given points, [r, g, b] each; the browser decodes the picture.
export async function pixels(page, points, saveAs) {
  const png = await page.screenshot({ type: 'png' });
  if (saveAs) {
    fs.writeFileSync(saveAs, png);
  }
  const decoder = await page.browser().newPage();
  try {
    return await decoder.evaluate(async (base64, at) => {
      const image = new Image();
      image.src = `data:image/png;base64,${base64}`;
      await image.decode();
      const canvas = new OffscreenCanvas(image.width, image.height);
      const context = canvas.getContext('2d');
      context.drawImage(image, 0, 0);
      const data = context.getImageData(0, 0, image.width, image.height).data;
      return at.map(({ x, y }) => {
        const i = (Math.floor(y) * image.width + Math.floor(x)) * 4;
        return [data[i], data[i + 1], data[i + 2]];
      });
    }, Buffer.from(png).toString('base64'), points);
  } finally {
    await decoder.close();
  }
}
