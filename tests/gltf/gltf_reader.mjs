// What three.js makes of a glTF file in headless Chromium: its loader, GLTFLoader, reads the file
// and the page reports every layer node's quad in world space (at rest, and at the animation's
// first and last key), the side its front faces, its colours and extras, the camera and the
// composition's frame.
import path from 'node:path';
import { createRequire } from 'node:module';

const require = createRequire(path.join(process.env.ORBISETT_PAGE_DIR, 'package.json'));
const esbuild = require('esbuild');

// Runs in the page. Corners come back flat, twelve numbers a layer, in the order of the layers'
// nodes in the file.
const kReader = `
import { PropertyBinding, Vector3 } from 'three';
import { GLTFLoader } from 'three/addons/loaders/GLTFLoader.js';

const parts = (node) => (node.isGroup ? node.children : [node]);
const front = (node) => parts(node).find((p) => p.isMesh && /front/i.test(p.material.name));
const back = (node) => parts(node).find((p) => p.isMesh && /back/i.test(p.material.name));
const outline = (node) => parts(node).find((p) => p.isLine);
const world = (mesh, i) => new Vector3().fromBufferAttribute(mesh.geometry.attributes.position, i).applyMatrix4(mesh.matrixWorld);

function corners(nodes) {
  const out = [];
  for (const node of nodes) {
    const mesh = front(node);
    for (let i = 0; i < 4; i += 1) {
      out.push(...world(mesh, i).toArray());
    }
  }
  return out;
}

// The side the front triangles face, from their winding (counter-clockwise is glTF's front).
function frontNormal(node) {
  const mesh = front(node);
  const [a, b, c] = [0, 1, 2].map((k) => world(mesh, mesh.geometry.index.getX(k)));
  return b.sub(a).cross(c.sub(a)).normalize().toArray();
}

// Sets every animated property to its value at time t, as the loader read the tracks.
function pose(scene, clip, t) {
  const byName = new Map();
  scene.traverse((o) => { if (!byName.has(o.name)) byName.set(o.name, o); });
  for (const track of clip.tracks) {
    const { nodeName, propertyName } = PropertyBinding.parseTrackName(track.name);
    const value = track.createInterpolant().evaluate(t);
    byName.get(nodeName)[propertyName].fromArray(value);
  }
  scene.updateMatrixWorld(true);
}

// Rotation tracks whose two keys are more than half a turn apart as quaternions: interpolated,
// they would take the long way round.
function turnsTheLongWay(clip) {
  return clip.tracks.filter((t) => t.name.endsWith('.quaternion')).filter((t) => {
    const v = t.values;
    return v[0] * v[4] + v[1] * v[5] + v[2] * v[6] + v[3] * v[7] < 0;
  }).length;
}

window.readGltf = async (url) => {
  const bytes = await (await fetch(url)).arrayBuffer();
  const gltf = await new GLTFLoader().parseAsync(bytes, '');
  const scene = gltf.scene;
  scene.updateMatrixWorld(true);
  const nodes = [];
  scene.traverse((o) => { if (o.userData.number !== undefined) nodes.push(o); });
  const placed = corners(nodes);
  const clip = gltf.animations[0];
  const times = clip.tracks.map((t) => [t.times[0], t.times[t.times.length - 1]]);
  pose(scene, clip, times[0][0]);
  const first = corners(nodes);
  pose(scene, clip, times[0][1]);
  const last = corners(nodes);
  const camera = gltf.cameras[0];
  const lines = scene.getObjectByName(PropertyBinding.sanitizeNodeName('Surface and composition frame'));
  const frame = lines.children.find((o) => o.isLineLoop);
  return {
    // The loader keeps a node's own name beside its extras.
    names: nodes.map((n) => n.userData.name),
    extras: nodes.map(({ userData: { name, ...extras } }) => extras),
    placed, first, last,
    normals: nodes.map(frontNormal),
    colours: nodes.map((n) => [front(n).material.color.getHexString(), back(n).material.color.getHexString()]),
    outlines: nodes.map((n) => (outline(n).isLineLoop ? 'loop' : outline(n).isLineSegments ? 'dashes' : '?')),
    clip: { name: clip.name, keys: times, longWay: turnsTheLongWay(clip) },
    camera: {
      position: camera.getWorldPosition(new Vector3()).toArray(),
      forward: camera.getWorldDirection(new Vector3()).toArray(),
      up: new Vector3(0, 1, 0).transformDirection(camera.matrixWorld).toArray(),
      fov: camera.fov, aspect: camera.aspect,
    },
    frame: [0, 1, 2, 3].map((i) => world(frame, i).toArray()),
    surfaceLines: lines.children.filter((o) => o.isLineSegments).length,
  };
};
`;

let bundled;

// The reader with three.js, bundled once for the test's pages.
async function readerScript() {
  if (!bundled) {
    const result = await esbuild.build({
      stdin: { contents: kReader, resolveDir: process.env.ORBISETT_PAGE_DIR, loader: 'js' },
      bundle: true, format: 'iife', write: false, logLevel: 'warning', target: 'es2020',
    });
    bundled = result.outputFiles[0].text;
  }
  return bundled;
}

// The page's own address and the file's, both answered by the test: the page is not opened from
// a file, so that it may fetch the file, which is handed over as it is rather than as text.
const kPage = 'http://gltf.test/';
const kFile = 'http://gltf.test/file';

// Reads a glTF file's bytes in a new page of `browser`.
export async function readInBrowser(browser, bytes) {
  const page = await browser.newPage();
  const errors = [];
  page.on('pageerror', (error) => errors.push(error.message));
  const script = await readerScript();
  await page.setRequestInterception(true);
  page.on('request', (request) => {
    if (request.url() === kPage) {
      request.respond({ status: 200, contentType: 'text/html', body: `<!doctype html><title>glTF</title><script>${script}</script>` });
    } else if (request.url() === kFile) {
      request.respond({ status: 200, contentType: 'application/octet-stream', body: bytes });
    } else {
      request.abort();
    }
  });
  try {
    await page.goto(kPage);
    return { read: await page.evaluate((url) => window.readGltf(url), kFile), errors };
  } finally {
    await page.close();
  }
}
