// Every layer of the composition in one geometry, drawn in one call with one triangle a layer:
// the right triangle on a layer's first corner whose legs are its two edges doubled holds the
// layer's rectangle as the quarter at that corner, and the shader leaves out the rest. A software
// renderer's cost grows with the triangles it sets up more than with the pixels they cover, so
// one triangle a layer rather than two draws large scenes markedly faster. Both states are in the
// geometry; the shader moves between them. Corners come from the tool; nothing is turned here.
import { BufferAttribute, BufferGeometry, Mesh } from 'three';
import { kLookCopy, kLookNoSource, layerMaterial } from './layer_shader.js';
import { isCopy } from './scene_data.js';

// The layer coordinates of a triangle's vertices: the first corner, then twice the edge toward
// the last corner, then twice the edge toward the second, wound like the layer's own corners.
const kCorners = [0, 0, 0, 2, 2, 0];

// A layer's triangle from its four corners (12 numbers each, a rectangle, so that the fourth
// corner is the second and the last less the first).
function triangles(corners) {
  const count = corners.length / 12;
  const out = new Float32Array(count * 9);
  for (let i = 0; i < count; i += 1) {
    const c = i * 12;
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

function layerGeometry(layers, corners) {
  const count = layers.length;
  const geometry = new BufferGeometry();
  const corner = new Uint8Array(count * 6);
  const look = new Uint8Array(count * 3);
  layers.forEach((layer, i) => {
    corner.set(kCorners, i * 6);
    look.fill((isCopy(layer) ? kLookCopy : 0) + (layer.source ? 0 : kLookNoSource), i * 3, i * 3 + 3);
  });
  geometry.setAttribute('position', new BufferAttribute(triangles(corners.after), 3));
  geometry.setAttribute('before', new BufferAttribute(triangles(corners.before), 3));
  // Small whole numbers: bytes, read as floats by the shader.
  geometry.setAttribute('corner', new BufferAttribute(corner, 2));
  geometry.setAttribute('look', new BufferAttribute(look, 1));
  return geometry;
}

export class LayerMesh {
  // `corners` holds both states' corners; `bounds` is a sphere holding the layers in both.
  constructor(layers, corners, bounds) {
    const geometry = layerGeometry(layers, corners);
    geometry.boundingSphere = bounds.clone();
    this.faces = new Mesh(geometry, layerMaterial());
  }

  // Places the layers `amount` of the way from where the scene had them (0) to where the run put
  // them (1).
  show(amount) {
    this.faces.material.uniforms.toAfter.value = amount;
  }
}
