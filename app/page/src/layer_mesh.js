// Every layer of the composition in one geometry, drawn in one call. A layer is two triangles on
// its four corners; in large scenes, where a software renderer's time goes with the triangles it
// sets up rather than with the pixels they cover, it is one: the right triangle on the layer's
// first corner whose legs are its two edges doubled, which holds the layer's rectangle as the
// quarter at that corner, the shader leaving out the rest. Both states are in the geometry; the
// shader moves between them. Corners come from the tool; nothing is turned here.
import { BufferAttribute, BufferGeometry, Mesh } from 'three';
import { kLookCopy, kLookNoSource, layerMaterial } from './layer_shader.js';
import { kCornerNumbers } from './scene_data.js';

// The two ways of drawing a layer: the layer coordinates of their vertices, and for two
// triangles which vertices make them, wound so that the side facing the viewer is the front
// exactly when the layer's visible face is. One triangle's vertices are the first corner, twice
// the edge toward the last and twice the edge toward the second, wound alike.
const kTwoTriangles = { corners: [0, 0, 1, 0, 1, 1, 0, 1], index: [0, 3, 1, 1, 3, 2] };
const kOneTriangle = { corners: [0, 0, 0, 2, 2, 0], index: null };

// A layer's triangle from its four corners (a rectangle, so that the fourth corner is the second
// and the last less the first).
function oneTriangle(corners) {
  const count = corners.length / kCornerNumbers;
  const out = new Float32Array(count * 9);
  for (let i = 0; i < count; i += 1) {
    const c = i * kCornerNumbers;
    const t = i * 9;
    for (let k = 0; k < 3; k += 1) {
      const first = corners[c + k];
      out[t + k] = first;
      out[t + 3 + k] = 2 * corners[c + 9 + k] - first;
      out[t + 6 + k] = 2 * corners[c + 3 + k] - first;
    }
  }
  return out;
}

function layerGeometry(layers, shape) {
  const { count, corners } = layers;
  const perLayer = shape.corners.length / 2;
  const geometry = new BufferGeometry();
  const corner = new Uint8Array(count * perLayer * 2);
  const look = new Uint8Array(count * perLayer);
  for (let i = 0; i < count; i += 1) {
    corner.set(shape.corners, i * perLayer * 2);
    look.fill((layers.isCopy(i) ? kLookCopy : 0) + (layers.hasSource(i) ? 0 : kLookNoSource), i * perLayer, (i + 1) * perLayer);
  }
  if (shape.index) {
    const index = count * 4 > 65535 ? new Uint32Array(count * 6) : new Uint16Array(count * 6);
    for (let i = 0; i < count; i += 1) {
      shape.index.forEach((v, k) => {
        index[i * 6 + k] = i * 4 + v;
      });
    }
    geometry.setIndex(new BufferAttribute(index, 1));
  }
  const vertices = shape.index ? (c) => c : oneTriangle;
  geometry.setAttribute('position', new BufferAttribute(vertices(corners.after), 3));
  geometry.setAttribute('before', new BufferAttribute(vertices(corners.before), 3));
  // Small whole numbers: bytes, read as floats by the shader.
  geometry.setAttribute('corner', new BufferAttribute(corner, 2));
  geometry.setAttribute('look', new BufferAttribute(look, 1));
  return geometry;
}

export class LayerMesh {
  // `bounds` is a sphere holding the layers in both states.
  constructor(layers, bounds, { oneTriangleEach, palette }) {
    const geometry = layerGeometry(layers, oneTriangleEach ? kOneTriangle : kTwoTriangles);
    geometry.boundingSphere = bounds.clone();
    this.faces = new Mesh(geometry, layerMaterial({ oneTriangleEach, palette }));
  }

  // Places the layers `amount` of the way from where the scene had them (0) to where the run put
  // them (1).
  show(amount) {
    this.faces.material.uniforms.toAfter.value = amount;
  }
}
