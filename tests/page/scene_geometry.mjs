// The browser tests' own reading of a scene file: where each 3D layer's rectangle lies, which way
// it faces, and what a camera sees at a pixel. Written from the host's conventions, apart from
// the tool, so that the page is checked against the numbers and not against itself.

const kDefaultAngleOfView = 39.6;

const deg = (a) => (a * Math.PI) / 180;
const add = (a, b) => [a[0] + b[0], a[1] + b[1], a[2] + b[2]];
const sub = (a, b) => [a[0] - b[0], a[1] - b[1], a[2] - b[2]];
const mul = (k, a) => [k * a[0], k * a[1], k * a[2]];
const dot = (a, b) => a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
const cross = (a, b) => [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]];
const unit = (a) => mul(1 / Math.hypot(...a), a);

// Host frame: X right, Y down, Z away. Right-handed turns about X, then Y, then Z.
function turnXYZ(p, [ax, ay, az]) {
  let [x, y, z] = p;
  [y, z] = [y * Math.cos(deg(ax)) - z * Math.sin(deg(ax)), y * Math.sin(deg(ax)) + z * Math.cos(deg(ax))];
  [x, z] = [x * Math.cos(deg(ay)) + z * Math.sin(deg(ay)), -x * Math.sin(deg(ay)) + z * Math.cos(deg(ay))];
  [x, y] = [x * Math.cos(deg(az)) - y * Math.sin(deg(az)), x * Math.sin(deg(az)) + y * Math.cos(deg(az))];
  return [x, y, z];
}

const turnLayer = (p, layer) => turnXYZ(turnXYZ(p, layer.orientation), layer.rotation);

const kSurfaceTypes = new Set(['av', 'text', 'vector']);

// The extent a text or shape layer is given: the largest source among the selected 3D layers
// while "Crop Text Layers To Size Of Other 3D Layers" is on (its initial state), else the
// composition's size.
function sourcelessSize(scene) {
  const selected = new Set(scene.selection ?? scene.layers.flatMap((layer, i) => (layer.selected ? [i + 1] : [])));
  const area = (size) => size.width * size.height;
  const sources = scene.layers.filter((layer, i) => selected.has(i + 1) && layer.three_d && layer.source);
  const largest = sources.reduce((a, layer) => (!a || area(layer.source) > area(a) ? layer.source : a), null);
  return scene.settings?.CHECK_CROP_TEXT_LAYERS !== false && largest ? largest : scene.comp;
}

// Every 3D footage, text and shape layer as a rectangle: its corners, centre and the direction
// its visible face looks to (unturned, toward the viewer: -Z).
export function rectangles(scene) {
  const sourceless = sourcelessSize(scene);
  return scene.layers.flatMap((layer, i) => {
    if (!layer.three_d || !kSurfaceTypes.has(layer.type)) {
      return [];
    }
    const size = layer.source ?? sourceless;
    const hx = (size.width * layer.scale[0]) / 200;
    const hy = (size.height * layer.scale[1]) / 200;
    const corners = [[-hx, -hy, 0], [hx, -hy, 0], [hx, hy, 0], [-hx, hy, 0]].map((c) => add(layer.position, turnLayer(c, layer)));
    return [{ number: i + 1, layer, corners, centre: layer.position, normal: turnLayer([0, 0, -1], layer) }];
  });
}

// The rectangles `amount` of the way from `before` (0) to `after` (1), each corner on the straight
// line between its two places, as the page moves them; both scenes hold the same layers.
export function rectanglesBetween(before, after, amount) {
  const was = rectangles(before);
  return rectangles(after).map((rect, i) => {
    const corners = rect.corners.map((c, k) => add(mul(1 - amount, was[i].corners[k]), mul(amount, c)));
    const normal = unit(cross(sub(corners[3], corners[0]), sub(corners[1], corners[0])));
    return { ...rect, corners, centre: mul(0.5, add(corners[0], corners[2])), normal };
  });
}

// A camera of the page's view description: eye, target, up, vertical angle of view, canvas size.
export function viewCamera(view) {
  const forward = unit(sub(view.target, view.eye));
  const right = unit(cross(forward, view.up));
  return {
    eye: view.eye, forward, right, down: cross(forward, right),
    focal: view.height / 2 / Math.tan(deg(view.fov) / 2),
    width: view.width, height: view.height,
  };
}

// The scene's camera as the page shows it: its topmost camera layer (or the default camera), the
// composition's frame filling `fill` of the canvas at the zoom distance.
export function sceneCamera(scene, width, height, fill) {
  const zoom = scene.comp.width / 2 / Math.tan(deg(kDefaultAngleOfView) / 2);
  const layer = scene.layers.find((l) => l.type === 'camera');
  const eye = layer ? layer.position : [scene.comp.width / 2, scene.comp.height / 2, -zoom];
  const axes = layer ? [[1, 0, 0], [0, 1, 0], [0, 0, 1]].map((a) => turnLayer(a, layer)) : [[1, 0, 0], [0, 1, 0], [0, 0, 1]];
  const halfHeight = Math.max(scene.comp.height / 2, (scene.comp.width / 2) * (height / width)) / fill;
  return { eye, right: axes[0], down: axes[1], forward: axes[2], focal: ((height / 2) * zoom) / halfHeight, width, height };
}

export function project(camera, point) {
  const d = sub(point, camera.eye);
  const depth = dot(d, camera.forward);
  return {
    x: camera.width / 2 + (camera.focal * dot(d, camera.right)) / depth,
    y: camera.height / 2 + (camera.focal * dot(d, camera.down)) / depth,
    depth,
  };
}

// The nearest rectangle under a pixel and the side of it that faces the camera; null for none.
export function seenAt(camera, rects, x, y) {
  const ray = unit(add(camera.forward, add(
    mul((x - camera.width / 2) / camera.focal, camera.right),
    mul((y - camera.height / 2) / camera.focal, camera.down))));
  let best = null;
  for (const rect of rects) {
    const [c0, c1, , c3] = rect.corners;
    const n = cross(sub(c3, c0), sub(c1, c0));
    const along = dot(ray, n);
    if (Math.abs(along) < 1e-12) {
      continue;
    }
    const t = dot(sub(c0, camera.eye), n) / along;
    if (t <= 0 || (best && t >= best.distance)) {
      continue;
    }
    const q = sub(add(camera.eye, mul(t, ray)), c0);
    const u = dot(q, sub(c1, c0)) / dot(sub(c1, c0), sub(c1, c0));
    const v = dot(q, sub(c3, c0)) / dot(sub(c3, c0), sub(c3, c0));
    if (u >= 0 && u <= 1 && v >= 0 && v <= 1) {
      best = { rect, distance: t, front: dot(rect.normal, ray) < 0 };
    }
  }
  return best;
}

// The rectangles that can lie under a pixel, by a grid of the canvas: each rectangle in the cells
// its projected corners span, or in every cell when it reaches behind the eye. Spares `seenAt`
// the scene's other rectangles when a screenshot of thousands is checked.
export function screenIndex(camera, rects, cell = 32) {
  const columns = Math.ceil(camera.width / cell) + 1;
  const rows = Math.ceil(camera.height / cell) + 1;
  const cells = Array.from({ length: columns * rows }, () => []);
  const everywhere = [];
  const clamp = (v, n) => Math.min(n - 1, Math.max(0, Math.floor(v / cell)));
  for (const rect of rects) {
    const seen = rect.corners.map((c) => project(camera, c));
    if (seen.some((p) => p.depth <= 0)) {
      everywhere.push(rect);
      continue;
    }
    const xs = seen.map((p) => p.x);
    const ys = seen.map((p) => p.y);
    if (Math.max(...xs) < 0 || Math.max(...ys) < 0 || Math.min(...xs) > camera.width || Math.min(...ys) > camera.height) {
      continue;
    }
    for (let row = clamp(Math.min(...ys), rows); row <= clamp(Math.max(...ys), rows); row += 1) {
      for (let column = clamp(Math.min(...xs), columns); column <= clamp(Math.max(...xs), columns); column += 1) {
        cells[row * columns + column].push(rect);
      }
    }
  }
  return (x, y) => {
    if (x < 0 || y < 0 || x > camera.width || y > camera.height) {
      return [];
    }
    return everywhere.concat(cells[clamp(y, rows) * columns + clamp(x, columns)]);
  };
}
