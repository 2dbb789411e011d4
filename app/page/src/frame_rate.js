// How smoothly the page turns: one full orbit about the scene, one step a frame, timed with
// requestAnimationFrame. The frame rate is the frames drawn over the time between the first and
// the last; the size drawn is the canvas's drawing buffer at the end of the orbit, before the view
// rests and is drawn sharp.
import { Vector2 } from 'three';

export function measureOrbit(views, renderer, frames) {
  return new Promise((resolve) => {
    const times = [];
    const step = (2 * Math.PI) / frames;
    const tick = (now) => {
      times.push(now);
      if (times.length > frames) {
        const ms = times[times.length - 1] - times[0];
        const info = renderer.info.render;
        const drawn = renderer.getDrawingBufferSize(new Vector2());
        resolve({
          fps: (1000 * frames) / ms, frames, ms, drawCalls: info.calls, triangles: info.triangles,
          drawn: [drawn.x, drawn.y], canvas: [views.canvas.clientWidth, views.canvas.clientHeight],
        });
        return;
      }
      views.controls.rotateLeft(step);
      requestAnimationFrame(tick);
    };
    requestAnimationFrame(tick);
  });
}
