// Which layer is under a point of the canvas: the nearest layer rectangle that the ray through the
// point crosses, with the layers where they are shown.
import { Raycaster, Vector2 } from 'three';
import { cornersAt, kCornerNumbers } from './scene_data.js';

export class Picker {
  // `corners` holds both states' corners.
  constructor(camera, corners, canvas) {
    this.camera = camera;
    this.corners = corners;
    this.canvas = canvas;
    this.raycaster = new Raycaster();
  }

  // The layer's index under the client point, or -1, with the layers `amount` of the way from
  // before to after.
  layerAt(clientX, clientY, amount) {
    const rect = this.canvas.getBoundingClientRect();
    const ndc = new Vector2(
      ((clientX - rect.left) / rect.width) * 2 - 1,
      -((clientY - rect.top) / rect.height) * 2 + 1,
    );
    this.raycaster.setFromCamera(ndc, this.camera);
    const { origin, direction } = this.raycaster.ray;
    return nearestCrossed([origin.x, origin.y, origin.z], [direction.x, direction.y, direction.z], this.corners, amount);
  }
}

// The index of the nearest rectangle in front of `origin` that the ray crosses, or -1: the ray
// against each rectangle's plane, in the rectangle's own coordinates along its first corner's
// two edges.
function nearestCrossed(origin, direction, corners, amount) {
  const shown = amount === 1 ? corners.after : amount === 0 ? corners.before : cornersAt(corners, amount);
  const [ox, oy, oz] = origin;
  const [dx, dy, dz] = direction;
  let nearest = -1;
  let distance = Infinity;
  for (let i = 0, c = 0; c < shown.length; i += 1, c += kCornerNumbers) {
    const x0 = shown[c];
    const y0 = shown[c + 1];
    const z0 = shown[c + 2];
    // Edges toward the second corner (u) and the last (v).
    const ux = shown[c + 3] - x0;
    const uy = shown[c + 4] - y0;
    const uz = shown[c + 5] - z0;
    const vx = shown[c + 9] - x0;
    const vy = shown[c + 10] - y0;
    const vz = shown[c + 11] - z0;
    const px = dy * vz - dz * vy;
    const py = dz * vx - dx * vz;
    const pz = dx * vy - dy * vx;
    const det = ux * px + uy * py + uz * pz;
    if (det === 0 || !Number.isFinite(det)) {
      continue;
    }
    const sx = ox - x0;
    const sy = oy - y0;
    const sz = oz - z0;
    const u = (sx * px + sy * py + sz * pz) / det;
    if (u < 0 || u > 1) {
      continue;
    }
    const qx = sy * uz - sz * uy;
    const qy = sz * ux - sx * uz;
    const qz = sx * uy - sy * ux;
    const v = (dx * qx + dy * qy + dz * qz) / det;
    if (v < 0 || v > 1) {
      continue;
    }
    const t = (vx * qx + vy * qy + vz * qz) / det;
    if (t > 0 && t < distance) {
      distance = t;
      nearest = i;
    }
  }
  return nearest;
}
