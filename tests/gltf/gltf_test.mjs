// The glTF files of `orbisett-host --gltf`: the Khronos validator finds no error and no warning in
// them, and three.js's loader in headless Chromium puts every layer's quad on the corners that the
// written scene gives (worked out here from the scene alone, in glTF's frame), its front facing
// where the layer's visible face looks, in the page's colours; the animation's first and last keys
// put the layers where the scene had them and where the run put them.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { after, before, test } from 'node:test';
import { launch } from '../page/browser.mjs';
import { rectangles, sceneCamera } from '../page/scene_geometry.mjs';
import { readInBrowser } from './gltf_reader.mjs';
import { validate } from './validate.mjs';


const kTool = process.env.ORBISETT_HOST;
const kCards = path.join(process.env.ORBISETT_SOURCE_DIR, 'docs', 'cards.json');
const work = fs.mkdtempSync(path.join(os.tmpdir(), 'orbisett-gltf-'));

// glTF's frame: Y up, Z toward the viewer, metres; the host's: Y down, Z away, pixels.
const point = ([x, y, z]) => [x / 100, -y / 100, -z / 100];
const direction = ([x, y, z]) => [x, -y, -z];
const distance = (a, b) => Math.hypot(...a.map((v, i) => v - b[i]));
const kTypes = { av: 'footage', text: 'text', vector: 'shape' };
const kColours = { plain: ['a9cbef', '56697f'], copy: ['f3cf9b', '8c6a43'] };

let chromium;

before(async () => {
  chromium = await launch();
});

after(async () => {
  await chromium?.close();
  fs.rmSync(work, { recursive: true, force: true });
});

const readJson = (file) => JSON.parse(fs.readFileSync(file, 'utf8'));

// The file of a run, the scene after it and the scene before it (the same run without Apply).
function runTool(name, sceneArgs, ending) {
  const file = path.join(work, `${name}.${ending}`);
  const out = path.join(work, `${name}.json`);
  const was = path.join(work, `${name}-in.json`);
  const started = Date.now();
  execFileSync(kTool, [...sceneArgs, '--quiet', '--gltf', file, '--out', out], { stdio: ['ignore', 'ignore', 'inherit'] });
  const ms = Date.now() - started;
  execFileSync(kTool, [...sceneArgs, '--quiet', '--no-apply', '--out', was], { stdio: ['ignore', 'ignore', 'inherit'] });
  return { file, bytes: fs.readFileSync(file), after: readJson(out), before: readJson(was), ms };
}

// The document's JSON, read from the binary container or the text.
function documentOf(file, bytes) {
  if (file.endsWith('.gltf')) {
    return JSON.parse(bytes.toString('utf8'));
  }
  assert.equal(bytes.toString('latin1', 0, 4), 'glTF');
  assert.equal(bytes.readUInt32LE(8), bytes.length);
  assert.equal(bytes.toString('latin1', 16, 20), 'JSON');
  return JSON.parse(bytes.toString('utf8', 20, 20 + bytes.readUInt32LE(12)));
}

// The scene as it was, each layer of the scene after the run given the values it had before:
// a copy its original's, the others their own (copies are the only layers a run adds).
function beforeScene(run) {
  const originals = run.after.layers.filter((l) => l.copy_of === undefined);
  const was = (layer) => (layer.copy_of !== undefined ? run.before.layers[layer.copy_of - 1] : run.before.layers[originals.indexOf(layer)]);
  const layers = run.after.layers.map((layer) => {
    const { position, orientation, rotation, scale } = was(layer);
    return { ...layer, position, orientation, rotation, scale };
  });
  return { ...run.after, layers };
}

// Checks `got` (twelve numbers a layer) against the rectangles, corner by corner; `slack` adds an
// allowance for a corner's size of coordinate.
function compareCorners(got, rects, what, slack = 0) {
  const failed = [];
  rects.forEach((rect, i) => {
    const want = rect.corners.map(point);
    const size = distance(want[0], want[2]);
    want.forEach((corner, k) => {
      const seen = got.slice(12 * i + 3 * k, 12 * i + 3 * k + 3);
      const allowed = 1e-6 * size + slack * Math.max(...corner.map(Math.abs));
      if (!(distance(seen, corner) <= allowed)) {
        failed.push(`${what}: layer ${rect.number} corner ${k} at ${seen}, wanted ${corner}`);
      }
    });
  });
  return failed.slice(0, 5);
}

async function checkFile(run, { surface = true } = {}) {
  const validation = validate(run.bytes, path.basename(run.file));
  const rects = rectangles(run.after);
  const document = documentOf(run.file, run.bytes);

  const loading = Date.now();
  const { read, errors } = await readInBrowser(chromium.browser, run.bytes);
  const loaded = Date.now() - loading;
  const report = await validation;
  console.log(`${path.basename(run.file)}: ${rects.length} layers, ${(run.bytes.length / 1e6).toFixed(2)} MB ` +
    `(${(run.bytes.length / rects.length).toFixed(0)} bytes a layer); tool ${run.ms} ms, validator ${report.ms} ms ` +
    `(${report.numInfos} infos, ${report.numHints} hints), loader ${loaded} ms`);
  assert.deepEqual([report.numErrors, report.numWarnings, report.problems], [0, 0, []]);
  assert.deepEqual(errors, []);

  // Named after the layer; extras: its number, type, copy and values as the written scene holds them.
  assert.deepEqual(read.names, rects.map((r) => r.layer.name));
  assert.deepEqual(read.extras, rects.map((r) => {
    // The page hands values over as JSON, which has no -0.
    const [position, orientation, rotation, scale] = ['position', 'orientation', 'rotation', 'scale'].map((k) => r.layer[k].map((v) => v + 0));
    const copyOf = r.layer.copy_of;
    return { number: r.number, type: kTypes[r.layer.type], ...(copyOf !== undefined && { copy_of: copyOf }), position, orientation, rotation, scale };
  }));
  // Where the quads are, which way their fronts face, how they look.
  assert.deepEqual(compareCorners(read.placed, rects, 'at rest'), []);
  const turned = rects.flatMap((r, i) => (distance(read.normals[i], direction(r.normal)) <= 1e-6 ? [] : [`layer ${r.number} faces ${read.normals[i]}`]));
  assert.deepEqual(turned.slice(0, 5), []);
  assert.deepEqual(read.colours, rects.map((r) => kColours[r.layer.copy_of === undefined ? 'plain' : 'copy']));
  assert.deepEqual(read.outlines, rects.map((r) => (r.layer.source ? 'loop' : 'dashes')));

  // The animation: two keys to a track, before at the first and after at the last; keys are single
  // precision, as glTF keeps them, which the allowance's second part covers.
  assert.equal(read.clip.name, 'Before \u2192 After');
  assert.ok(read.clip.keys.length > 0 && read.clip.keys.every(([first, last]) => first === 0 && last === 2), 'keys at 0 and 2 s');
  assert.equal(read.clip.longWay, 0, 'rotations that take the long way round');
  assert.deepEqual(compareCorners(read.first, rectangles(beforeScene(run)), 'first key', 2 ** -22), []);
  assert.deepEqual(compareCorners(read.last, rects, 'last key', 2 ** -22), []);

  // The camera sees the composition's frame as the page does; the frame lies where the host has it.
  const { comp } = run.after;
  const camera = sceneCamera(run.after, comp.width, comp.height, 1);
  assert.ok(distance(read.camera.position, point(camera.eye)) <= 1e-9 * (1 + Math.hypot(...camera.eye)));
  assert.ok(distance(read.camera.forward, direction(camera.forward)) <= 1e-9);
  assert.ok(distance(read.camera.up, direction(camera.down.map((v) => -v))) <= 1e-9);
  assert.ok(Math.abs(read.camera.fov - (2 * Math.atan(comp.height / 2 / camera.focal) * 180) / Math.PI) < 1e-9);
  assert.ok(Math.abs(read.camera.aspect - comp.width / comp.height) < 1e-12);
  const frame = [[0, 0, 0], [comp.width, 0, 0], [comp.width, comp.height, 0], [0, comp.height, 0]].map(point);
  assert.ok(read.frame.every((c, i) => distance(c, frame[i]) < 1e-6), `the frame at ${read.frame}`);
  assert.equal(read.surfaceLines, surface ? 1 : 0);
  return document;
}

test('the demo: a camera, a text layer and 24 cards', async () => {
  const demo = runTool('demo', [], 'glb');
  assert.ok(demo.after.layers.some((l) => l.type === 'text') && demo.after.layers.some((l) => l.type === 'camera'));
  const document = await checkFile(demo);
  assert.equal(document.asset.extras.pixels_per_metre, 100);
  assert.equal(document.buffers[0].uri, undefined, 'a binary file keeps its buffer in its own chunk');
});

test('a ring, as JSON with the buffer inside', async () => {
  const ring = runTool('ring', [kCards, '--set', 'RADIO_EQUATOR_ONLY=on', '--set', 'CHECK_CREATE_RING=on'], 'gltf');
  const document = await checkFile(ring);
  assert.match(document.buffers[0].uri, /^data:application\/octet-stream;base64,/);
});

test('repeats: copies in warm colours start where their originals stood', async () => {
  const repeats = runTool('repeats', [kCards, '--set', 'CHECK_REPEAT_LAYERS=on', '--set', 'EDIT_REPEAT_COUNT=3'], 'glb');
  assert.equal(repeats.after.layers.filter((l) => l.copy_of !== undefined).length, 21);
  await checkFile(repeats);
});

test('30,000 layers', async () => {
  const count = 30000;
  const layers = Array.from({ length: count }, (_, i) => ({
    name: `Tile ${i + 1}`, type: 'av', three_d: true, source: { width: 120 + (i % 7) * 10, height: 80 },
    position: [(i % 200) * 130, Math.floor(i / 200) * 90, (i % 13) * 10], scale: [100, 100, 100],
    // Turned every way before the run, half turns included.
    orientation: [(i * 37) % 360, (i * 53) % 360, (i * 71) % 360], rotation: [0, 0, (i % 5) * 45], selected: true,
  }));
  const scene = path.join(work, 'wall-scene.json');
  fs.writeFileSync(scene, JSON.stringify({
    comp: { name: 'Wall', width: 1920, height: 1080 }, layers,
    settings: { CHECK_DISTRIBUTE_EVENLY: true, EDIT_DIM_X: 40000, EDIT_DIM_Z: 40000, EDIT_DIM_Y: 20000 },
  }));
  const wall = runTool('wall', [scene], 'glb');
  assert.ok(wall.bytes.length <= 3000 * count, `${wall.bytes.length} bytes`);
  await checkFile(wall);
});
