// The data orbisett-host embedded in the page: the composition, the surface, the camera, the
// colours, and every 3D layer as columns of numbers (its corners and values before and after the
// run, its keyframe counts, what the run did to it), which arrive as bytes in base64 and are read
// straight into typed arrays.

// Numbers a layer has in the corner columns: four corners of x, y and z, in the host's frame.
export const kCornerNumbers = 12;
// Position, Orientation, X, Y and Z Rotation, Scale.
const kValueNumbers = 12;
// Position, Orientation, Scale, X, Y and Z Rotation.
const kKeyCounts = 6;
const kKinds = ['footage', 'text', 'shape'];
const kRuns = ['arranged', 'not_reached', 'moved', 'kept', 'left_out'];
const kArrays = { u8: Uint8Array, u32: Uint32Array, f32: Float32Array, f64: Float64Array };

function bytesOf(base64) {
  if (Uint8Array.fromBase64) {
    return Uint8Array.fromBase64(base64);
  }
  const text = atob(base64);
  const bytes = new Uint8Array(text.length);
  for (let i = 0; i < text.length; i += 1) {
    bytes[i] = text.charCodeAt(i);
  }
  return bytes;
}

// A column of `width` numbers a layer, as the typed array of its type.
function column(layers, name, type, width) {
  const written = layers[name];
  if (!written || written.type !== type || written.width !== width || typeof written.base64 !== 'string') {
    throw new Error(`The scene data has no column "${name}" of ${width} ${type} a layer.`);
  }
  const TypedArray = kArrays[type];
  const bytes = bytesOf(written.base64);
  if (bytes.length !== layers.count * width * TypedArray.BYTES_PER_ELEMENT) {
    throw new Error(`The scene data's column "${name}" does not hold ${layers.count} layers.`);
  }
  return new TypedArray(bytes.buffer, bytes.byteOffset, layers.count * width);
}

function triples(values, at) {
  const row = Array.from(values.subarray(at, at + kValueNumbers));
  return { position: row.slice(0, 3), orientation: row.slice(3, 6), rotation: row.slice(6, 9), scale: row.slice(9, 12) };
}

// The page's layers, a column per fact, in layer order.
export class Layers {
  constructor(written) {
    if (!Number.isInteger(written.count) || !Array.isArray(written.names) || written.names.length !== written.count) {
      throw new Error('The scene data does not say which layers it holds.');
    }
    this.count = written.count;
    this.names = written.names;
    this.numbers = column(written, 'numbers', 'u32', 1);
    this.kinds = column(written, 'kinds', 'u8', 1);
    this.sources = column(written, 'sources', 'u8', 1);
    this.runs = column(written, 'runs', 'u8', 1);
    // 0 for a layer too large or not finite to draw: its corners are zeros, and it is not drawn.
    this.drawn = column(written, 'drawn', 'u8', 1);
    this.copyOf = column(written, 'copy_of', 'u32', 1);
    this.corners = {
      before: column(written, 'corners_before', 'f32', kCornerNumbers),
      after: column(written, 'corners_after', 'f32', kCornerNumbers),
    };
    this.values = {
      before: column(written, 'values_before', 'f64', kValueNumbers),
      after: column(written, 'values_after', 'f64', kValueNumbers),
    };
    this.keys = column(written, 'keys', 'u32', kKeyCounts);
    // 1 for a layer far from the rest, left out of the views' framing; set once the page knows.
    this.far = new Uint8Array(this.count);
  }

  isCopy(index) {
    return this.copyOf[index] !== 0;
  }

  hasSource(index) {
    return this.sources[index] !== 0;
  }

  // How many layers the run did `run` to ("arranged", "not_reached", ...).
  countRun(run) {
    const code = kRuns.indexOf(run);
    return this.runs.reduce((sum, r) => sum + (r === code ? 1 : 0), 0);
  }

  isDrawn(index) {
    return this.drawn[index] !== 0;
  }

  isFar(index) {
    return this.far[index] !== 0;
  }

  countFar() {
    return this.far.reduce((sum, f) => sum + f, 0);
  }

  countNotDrawn() {
    return this.drawn.reduce((sum, d) => sum + (d === 0 ? 1 : 0), 0);
  }

  countCopies() {
    return this.copyOf.reduce((sum, c) => sum + (c !== 0 ? 1 : 0), 0);
  }

  // One layer as the panels show it.
  layer(index) {
    const keys = this.keys.subarray(index * kKeyCounts, (index + 1) * kKeyCounts);
    return {
      name: this.names[index],
      number: this.numbers[index],
      kind: kKinds[this.kinds[index]],
      source: this.hasSource(index),
      drawn: this.isDrawn(index),
      far: this.isFar(index),
      run: kRuns[this.runs[index]],
      copyOf: this.isCopy(index) ? this.copyOf[index] : undefined,
      before: triples(this.values.before, index * kValueNumbers),
      after: triples(this.values.after, index * kValueNumbers),
      keys: { position: keys[0], orientation: keys[1], scale: keys[2], rotation: Array.from(keys.subarray(3)) },
    };
  }
}

export function readSceneData(doc) {
  const element = doc.getElementById('scene-data');
  if (!element) {
    throw new Error('The page holds no scene data.');
  }
  if (new Uint8Array(new Uint16Array([1]).buffer)[0] !== 1) {
    throw new Error('The scene data holds its numbers little-endian, and this browser reads them the other way round.');
  }
  const data = JSON.parse(element.textContent);
  if (!data.comp || !data.layers) {
    throw new Error('The scene data has no composition.');
  }
  data.layers = new Layers(data.layers);
  return data;
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

// One layer's corners, `amount` of the way from before to after.
export function layerCornersAt(corners, amount, index) {
  return cornersAt(corners, amount, index * kCornerNumbers, (index + 1) * kCornerNumbers);
}
