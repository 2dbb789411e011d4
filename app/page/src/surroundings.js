// What the layers are judged against: the composition's frame, the surface the layout used and
// the camera the composition is seen through.
import {
  BufferGeometry,
  Float32BufferAttribute,
  Group,
  LineBasicMaterial,
  LineLoop,
  LineSegments,
  PerspectiveCamera,
  Vector3,
} from 'three';

// The frame at depth 0, where a 2D layer of the composition's size would lie.
function compFrame(comp, palette) {
  const corners = [
    new Vector3(0, 0, 0),
    new Vector3(comp.width, 0, 0),
    new Vector3(comp.width, comp.height, 0),
    new Vector3(0, comp.height, 0),
  ];
  return new LineLoop(new BufferGeometry().setFromPoints(corners), new LineBasicMaterial({ color: palette.compFrame }));
}

// The surface as the SVG preview outlines it, from the pieces the tool worked out: its rims, only
// the halves a sector admits with the edges where they end, and its axis.
function surfaceOutline(outline, palette) {
  const isPiece = (piece) => Array.isArray(piece) && piece.length === 6 && piece.every(Number.isFinite);
  if (!Array.isArray(outline) || !outline.every(isPiece)) {
    throw new Error('The scene data\'s surface outline is not a list of pieces of six numbers each.');
  }
  const geometry = new BufferGeometry().setAttribute('position', new Float32BufferAttribute(outline.flat(), 3));
  return new LineSegments(geometry, new LineBasicMaterial({ color: palette.surface, transparent: true, opacity: 0.75 }));
}

// The scene's camera as a three.js camera: vertical angle of view such that the composition's
// frame fills the given part of the view at the zoom distance, looking along its forward axis,
// its down axis down.
export function cameraOfScene(sceneCamera, comp, aspect = comp.width / comp.height, fill = 1) {
  const halfHeight = Math.max(comp.height / 2, comp.width / 2 / aspect) / fill;
  const fov = (2 * Math.atan(halfHeight / sceneCamera.zoom) * 180) / Math.PI;
  const camera = new PerspectiveCamera(fov, aspect, sceneCamera.zoom / 12, sceneCamera.zoom);
  const [x, y, z] = sceneCamera.position;
  camera.position.set(x, y, z);
  camera.up.fromArray(sceneCamera.down).negate();
  camera.lookAt(new Vector3().fromArray(sceneCamera.forward).add(camera.position));
  camera.updateMatrixWorld();
  return camera;
}

// The camera's pyramid: lines from the eye to the corners of the plane where the composition's
// frame fills its view, and a small outline of its view near the eye.
function cameraMarker(sceneCamera, comp, palette) {
  const camera = cameraOfScene(sceneCamera, comp);
  const corners = (z) => [[-1, -1], [1, -1], [1, 1], [-1, 1]].map(([x, y]) => new Vector3(x, y, z).unproject(camera));
  const far = corners(1);
  const near = corners(-1);
  const points = [];
  far.forEach((corner, i) => points.push(camera.position, corner, near[i], near[(i + 1) % 4]));
  return new LineSegments(new BufferGeometry().setFromPoints(points), new LineBasicMaterial({ color: palette.camera }));
}

// The frame, the surface and the camera's pyramid, which is also returned on its own (null when
// the scene has no camera).
export function surroundings(data) {
  const group = new Group();
  group.add(compFrame(data.comp, data.palette));
  if (data.surface.outline) {
    group.add(surfaceOutline(data.surface.outline, data.palette));
  }
  const marker = data.camera && data.camera.name ? cameraMarker(data.camera, data.comp, data.palette) : null;
  if (marker) {
    group.add(marker);
  }
  return { group, cameraMarker: marker };
}
