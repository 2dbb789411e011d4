// The data orbisett-host embedded in the page: the composition, every 3D layer with its corners
// before and after the run, the surface, the camera.

export function readSceneData(doc) {
  const element = doc.getElementById('scene-data');
  if (!element) {
    throw new Error('The page holds no scene data.');
  }
  const data = JSON.parse(element.textContent);
  if (!data.comp || !Array.isArray(data.layers)) {
    throw new Error('The scene data has no composition.');
  }
  return data;
}

// Both states' corners as flat arrays: 4 corners of x, y, z per layer, in the host's frame.
export function cornerArrays(layers) {
  const before = new Float32Array(layers.length * 12);
  const after = new Float32Array(layers.length * 12);
  layers.forEach((layer, i) => {
    before.set(layer.before, i * 12);
    after.set(layer.after, i * 12);
  });
  return { before, after };
}

// Both states' corners `amount` of the way from before (0) to after (1), as one flat array; from
// and to pick a part of it.
export function cornersAt(corners, amount, from = 0, to = corners.after.length) {
  const { before, after } = corners;
  const out = new Float32Array(to - from);
  for (let i = from; i < to; i += 1) {
    // Exactly one state or the other at the ends.
    out[i - from] = before[i] * (1 - amount) + after[i] * amount;
  }
  return out;
}

export function isCopy(layer) {
  return layer.copy_of !== undefined;
}
