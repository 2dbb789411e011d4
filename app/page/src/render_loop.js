// Drawing on demand: every animation frame first lets the page advance what moves, then draws the
// scene if anything changed, at the resolution the frame rate allows.
import { WebGLRenderer } from 'three';
import { Resolution } from './resolution.js';

export class RenderLoop {
  constructor(canvas, scene, { antialias, background }) {
    this.canvas = canvas;
    this.scene = scene;
    this.renderer = new WebGLRenderer({ canvas, antialias });
    this.renderer.setPixelRatio(window.devicePixelRatio);
    this.renderer.setClearColor(background);
    this.resolution = new Resolution((scale) => this.renderer.setPixelRatio(window.devicePixelRatio * scale));
    this.needsRender = true;
  }

  requestRender() {
    this.needsRender = true;
  }

  // Draws through `camera`; `step(now)` runs at the start of every frame and says whether
  // something is moving.
  start(camera, step) {
    const frame = (now) => {
      const moving = step(now);
      if (this.resolution.frame(now, this.needsRender || moving)) {
        this.renderer.render(this.scene, camera);
        this.needsRender = false;
      }
      requestAnimationFrame(frame);
    };
    requestAnimationFrame(frame);
  }

  // Sizes the drawing buffer to the canvas as the page lays it out; returns that size.
  fit() {
    const width = this.canvas.clientWidth;
    const height = this.canvas.clientHeight;
    this.renderer.setSize(width, height, false);
    return { width, height };
  }
}
