// What the views frame: the composition's frame, the surface as it is outlined, and both states of
// every layer that is drawn and lies near them. A layer far away would shrink the rest to a dot and
// push the near plane past it, so it is drawn but not framed, and counted, as the preview names
// such layers instead of shrinking the picture.
import { Box3, Sphere, Vector3 } from 'three';
import { kCornerNumbers } from './scene_data.js';

// How far beyond the frame and the surface a layer may lie and still be framed: this many times
// their largest size on every side, or this many times the median distance of the layers from
// their middle, so that a scene spread wide is framed whole.
const kReach = 2;
const kSpread = 8;

function frameAndSurface(data) {
  const box = new Box3().expandByPoint(new Vector3(0, 0, 0)).expandByPoint(new Vector3(data.comp.width, data.comp.height, 0));
  if (data.surface.outline) {
    // What is drawn of the surface: with a sector only the admitted halves.
    box.union(new Box3().setFromArray(data.surface.outline.flat()));
  } else if (data.surface.centre) {
    const [x, , z] = data.surface.centre;
    box.expandByPoint(new Vector3(x - data.surface.half_x, data.surface.top, z - data.surface.half_z));
    box.expandByPoint(new Vector3(x + data.surface.half_x, data.surface.bottom, z + data.surface.half_z));
  }
  return box;
}

// Both states of every drawn layer within `reach`; the drawn layers beyond it marked far.
function layersBox(layers, reach) {
  const box = new Box3();
  const state = new Box3();
  const point = new Vector3();
  const far = new Uint8Array(layers.count);
  for (let i = 0; i < layers.count; i += 1) {
    if (!layers.isDrawn(i)) {
      continue;
    }
    let near = true;
    for (const corners of [layers.corners.before, layers.corners.after]) {
      state.makeEmpty();
      for (let c = i * kCornerNumbers; c < (i + 1) * kCornerNumbers; c += 3) {
        state.expandByPoint(point.fromArray(corners, c));
      }
      if (reach.containsBox(state)) {
        box.union(state);
      } else {
        near = false;
      }
    }
    far[i] = near ? 0 : 1;
  }
  return { box, far };
}

// The median distance of the drawn layers' centres, in both states, from `centre`.
function medianDistance(layers, centre) {
  const distances = [];
  const point = new Vector3();
  for (let i = 0; i < layers.count; i += 1) {
    if (layers.isDrawn(i)) {
      for (const corners of [layers.corners.before, layers.corners.after]) {
        const c = i * kCornerNumbers;
        point.set(corners[c] + corners[c + 6], corners[c + 1] + corners[c + 7], corners[c + 2] + corners[c + 8]).multiplyScalar(0.5);
        distances.push(point.distanceTo(centre));
      }
    }
  }
  distances.sort((a, b) => a - b);
  return distances.length > 0 ? distances[Math.floor((distances.length - 1) / 2)] : 0;
}

// The box around what the views frame (`box`), the sphere `fit` around it, a sphere around all
// that is drawn near it, the scene's camera too when it is near (`extent`), and the number of
// layers left out of the framing (`far`, 1 for each such layer).
export function sceneBounds(data) {
  const core = frameAndSurface(data);
  const size = core.getSize(new Vector3());
  const spread = kSpread * medianDistance(data.layers, core.getCenter(new Vector3()));
  const reach = core.clone().expandByScalar(Math.max(kReach * Math.max(size.x, size.y, size.z, 1), spread));
  const { box: layers, far } = layersBox(data.layers, reach);
  const box = core.clone().union(layers);
  const fit = box.getBoundingSphere(new Sphere());
  fit.radius = Math.max(fit.radius, 1);
  const all = box.clone();
  if (data.camera && data.camera.name) {
    const eye = new Vector3().fromArray(data.camera.position);
    if (reach.containsPoint(eye)) {
      all.expandByPoint(eye);
    }
  }
  return { box, fit, extent: all.getBoundingSphere(new Sphere()).union(fit), far };
}
