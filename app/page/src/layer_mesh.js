// Every layer of the composition in one face geometry and one outline geometry, so that tens of
// thousands of layers are two draw calls. Corners come from the tool; nothing is turned here.
import {
  BufferAttribute,
  BufferGeometry,
  Color,
  FrontSide,
  LineBasicMaterial,
  LineDashedMaterial,
  LineSegments,
  Mesh,
  MeshBasicMaterial,
} from 'three';
import { palette } from './palette.js';
import { isCopy } from './scene_data.js';

// Per layer, vertices 0-3 carry the front colour and 4-7 the back colour, at the same corners. The
// back triangles are wound the other way, so each side is drawn only where it faces the viewer.
const kFaceIndices = [0, 3, 1, 1, 3, 2, 4, 5, 7, 5, 6, 7];
const kTrianglesPerLayer = 4;
// The outline's segments by corner: 0-1, 1-2, 2-3, 3-0.
const kEdgeCorners = [0, 1, 1, 2, 2, 3, 3, 0];

function rgb(hex) {
  // Color keeps linear values, which is what vertex colours are read as.
  const c = new Color(hex);
  return [c.r, c.g, c.b];
}

function faceGeometry(layers) {
  const count = layers.length;
  const geometry = new BufferGeometry();
  const index = count * 8 > 65535 ? new Uint32Array(count * 12) : new Uint16Array(count * 12);
  const colours = new Float32Array(count * 24);
  const plain = [rgb(palette.front), rgb(palette.back)];
  const copy = [rgb(palette.copyFront), rgb(palette.copyBack)];
  layers.forEach((layer, i) => {
    const [front, back] = isCopy(layer) ? copy : plain;
    for (let v = 0; v < 8; v += 1) {
      colours.set(v < 4 ? front : back, (i * 8 + v) * 3);
    }
    for (let k = 0; k < 12; k += 1) {
      index[i * 12 + k] = i * 8 + kFaceIndices[k];
    }
  });
  geometry.setIndex(new BufferAttribute(index, 1));
  geometry.setAttribute('position', new BufferAttribute(new Float32Array(count * 24), 3));
  geometry.setAttribute('color', new BufferAttribute(colours, 3));
  return geometry;
}

// Layers with a source first, drawn solid; those without one after them, dashed.
function outlineOrder(layers) {
  const withSource = [];
  const without = [];
  layers.forEach((layer, i) => (layer.source ? withSource : without).push(i));
  return { order: withSource.concat(without), solidCount: withSource.length };
}

function outlineGeometry(layers, order, solidCount) {
  const geometry = new BufferGeometry();
  const colours = new Float32Array(order.length * 24);
  const plain = rgb(palette.edge);
  const copy = rgb(palette.copyEdge);
  order.forEach((layerIndex, slot) => {
    const colour = isCopy(layers[layerIndex]) ? copy : plain;
    for (let v = 0; v < 8; v += 1) {
      colours.set(colour, (slot * 8 + v) * 3);
    }
  });
  geometry.setAttribute('position', new BufferAttribute(new Float32Array(order.length * 24), 3));
  geometry.setAttribute('color', new BufferAttribute(colours, 3));
  geometry.addGroup(0, solidCount * 8, 0);
  geometry.addGroup(solidCount * 8, (order.length - solidCount) * 8, 1);
  return geometry;
}

export class LayerMesh {
  // `bounds` is a sphere holding the layers in every state they are shown in.
  constructor(layers, bounds) {
    this.count = layers.length;
    const faces = faceGeometry(layers);
    faces.boundingSphere = bounds.clone();
    this.faces = new Mesh(faces, new MeshBasicMaterial({ vertexColors: true, side: FrontSide }));
    // The outlines sit a hair in front of the faces they border.
    this.faces.material.polygonOffset = true;
    this.faces.material.polygonOffsetFactor = 1;
    this.faces.material.polygonOffsetUnits = 1;

    const { order, solidCount } = outlineOrder(layers);
    this.order = order;
    const outline = outlineGeometry(layers, order, solidCount);
    outline.boundingSphere = bounds.clone();
    const dash = Math.max(bounds.radius / 150, 1e-6);
    this.outlines = new LineSegments(outline, [
      new LineBasicMaterial({ vertexColors: true }),
      new LineDashedMaterial({ vertexColors: true, dashSize: dash, gapSize: dash * 0.7 }),
    ]);
    // Only the faces are picked.
    this.outlines.raycast = () => {};
  }

  // Places every layer at the given corners (12 numbers per layer).
  setCorners(corners) {
    const faces = this.faces.geometry.attributes.position.array;
    for (let i = 0; i < this.count; i += 1) {
      const from = corners.subarray(i * 12, i * 12 + 12);
      faces.set(from, i * 24);
      faces.set(from, i * 24 + 12);
    }
    const lines = this.outlines.geometry.attributes.position.array;
    this.order.forEach((layerIndex, slot) => {
      for (let v = 0; v < 8; v += 1) {
        const c = layerIndex * 12 + kEdgeCorners[v] * 3;
        lines[slot * 24 + v * 3] = corners[c];
        lines[slot * 24 + v * 3 + 1] = corners[c + 1];
        lines[slot * 24 + v * 3 + 2] = corners[c + 2];
      }
    });
    this.faces.geometry.attributes.position.needsUpdate = true;
    this.outlines.geometry.attributes.position.needsUpdate = true;
  }

  // Dashes follow the outlines' lengths; worth redoing only when the layers come to rest.
  measureDashes() {
    this.outlines.computeLineDistances();
  }

  layerOfFace(faceIndex) {
    return Math.floor(faceIndex / kTrianglesPerLayer);
  }
}
