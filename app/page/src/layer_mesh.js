// Every layer of the composition in one geometry, drawn in one call: four corners and two
// triangles a layer, whichever its size. Corners come from the tool; nothing is turned here.
import { BufferAttribute, BufferGeometry, Mesh } from 'three';
import { kLookCopy, kLookNoSource, layerMaterial } from './layer_shader.js';
import { isCopy } from './scene_data.js';

// Wound so that the side facing the viewer is the front exactly when the layer's visible face is.
const kTriangles = [0, 3, 1, 1, 3, 2];
const kCorners = [0, 0, 1, 0, 1, 1, 0, 1];

function layerGeometry(layers) {
  const count = layers.length;
  const geometry = new BufferGeometry();
  const index = count * 4 > 65535 ? new Uint32Array(count * 6) : new Uint16Array(count * 6);
  const corner = new Uint8Array(count * 8);
  const look = new Uint8Array(count * 4);
  layers.forEach((layer, i) => {
    kTriangles.forEach((v, k) => {
      index[i * 6 + k] = i * 4 + v;
    });
    corner.set(kCorners, i * 8);
    look.fill((isCopy(layer) ? kLookCopy : 0) + (layer.source ? 0 : kLookNoSource), i * 4, i * 4 + 4);
  });
  geometry.setIndex(new BufferAttribute(index, 1));
  geometry.setAttribute('position', new BufferAttribute(new Float32Array(count * 12), 3));
  // Small whole numbers: bytes, read as floats by the shader.
  geometry.setAttribute('corner', new BufferAttribute(corner, 2));
  geometry.setAttribute('look', new BufferAttribute(look, 1));
  return geometry;
}

export class LayerMesh {
  // `bounds` is a sphere holding the layers in every state they are shown in.
  constructor(layers, bounds) {
    const geometry = layerGeometry(layers);
    geometry.boundingSphere = bounds.clone();
    this.faces = new Mesh(geometry, layerMaterial());
  }

  // Places every layer at the given corners (12 numbers per layer).
  setCorners(corners) {
    const position = this.faces.geometry.attributes.position;
    position.array.set(corners);
    position.needsUpdate = true;
  }

  layerOfFace(faceIndex) {
    return Math.floor(faceIndex / 2);
  }
}
