// The chosen layer: outlined over everything, wherever a move between before and after has it,
// and its values in the side panel.
import { BufferAttribute, BufferGeometry, LineBasicMaterial, LineLoop } from 'three';
import { kCornerNumbers, layerCornersAt } from './scene_data.js';

export class Selection {
  constructor(layers, details, colour) {
    this.layers = layers;
    this.details = details;
    this.index = -1;
    this.amount = 1;
    const geometry = new BufferGeometry();
    geometry.setAttribute('position', new BufferAttribute(new Float32Array(kCornerNumbers), 3));
    // Drawn over everything, so that a chosen layer is found even behind others.
    this.outline = new LineLoop(geometry, new LineBasicMaterial({ color: colour, depthTest: false }));
    this.outline.renderOrder = 1;
    this.outline.visible = false;
    this.outline.frustumCulled = false;
  }

  // Chooses the layer of `index`, or none for -1.
  choose(index) {
    this.index = index;
    // A layer left out of the drawing has nowhere to be outlined.
    this.outline.visible = index >= 0 && this.layers.isDrawn(index);
    if (index < 0) {
      this.details.hide();
      return;
    }
    this.follow(this.amount);
    this.details.show(this.layers.layer(index));
  }

  // The layers are `amount` of the way from before to after.
  follow(amount) {
    this.amount = amount;
    if (this.index >= 0) {
      const position = this.outline.geometry.attributes.position;
      position.array.set(this.corners());
      position.needsUpdate = true;
    }
  }

  // The chosen layer's corners where it is shown.
  corners() {
    return layerCornersAt(this.layers.corners, this.amount, this.index);
  }
}
