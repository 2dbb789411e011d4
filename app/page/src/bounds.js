// What the views frame: both states of every layer that is drawn, the composition's frame and the surface as
// it is outlined.
import { Box3, Sphere, Vector3 } from 'three';
import { kCornerNumbers } from './scene_data.js';

// Both states of every layer that is drawn.
function layersBox(layers) {
  const box = new Box3();
  const point = new Vector3();
  for (let i = 0; i < layers.count; i += 1) {
    if (layers.isDrawn(i)) {
      for (const corners of [layers.corners.before, layers.corners.after]) {
        for (let c = i * kCornerNumbers; c < (i + 1) * kCornerNumbers; c += 3) {
          box.expandByPoint(point.fromArray(corners, c));
        }
      }
    }
  }
  return box;
}

// The box around what the views frame (`box`), the sphere `fit` around it, and a sphere around
// all that is drawn, the camera too (`extent`).
export function sceneBounds(data) {
  const box = layersBox(data.layers);
  box.expandByPoint(new Vector3(0, 0, 0)).expandByPoint(new Vector3(data.comp.width, data.comp.height, 0));
  if (data.surface.outline) {
    // What is drawn of the surface: with a sector only the admitted halves.
    box.union(new Box3().setFromArray(data.surface.outline.flat()));
  } else if (data.surface.centre) {
    const [x, , z] = data.surface.centre;
    box.expandByPoint(new Vector3(x - data.surface.half_x, data.surface.top, z - data.surface.half_z));
    box.expandByPoint(new Vector3(x + data.surface.half_x, data.surface.bottom, z + data.surface.half_z));
  }
  const fit = box.getBoundingSphere(new Sphere());
  fit.radius = Math.max(fit.radius, 1);
  const all = box.clone();
  if (data.camera && data.camera.name) {
    all.expandByPoint(new Vector3().fromArray(data.camera.position));
  }
  return { box, fit, extent: all.getBoundingSphere(new Sphere()).union(fit) };
}
