// The name of the layer under the pointer. Picking waits for the next frame, so that a burst of
// pointer moves costs one pick.
export class Hover {
  // `layerAt(x, y)` is the index of the layer at the client point, or -1.
  constructor(layers, tooltip, layerAt) {
    this.layers = layers;
    this.tooltip = tooltip;
    this.layerAt = layerAt;
    this.pending = null;
  }

  later(clientX, clientY) {
    this.pending = { clientX, clientY };
  }

  // No names while dragging: picking would only slow the turning down.
  cancel() {
    this.pending = null;
    this.tooltip.hide();
  }

  // Called once a frame.
  update() {
    if (!this.pending) {
      return;
    }
    const { clientX, clientY } = this.pending;
    this.pending = null;
    const index = this.layerAt(clientX, clientY);
    if (index < 0) {
      this.tooltip.hide();
    } else {
      this.tooltip.show(this.layers.layer(index), clientX, clientY);
    }
  }
}
