// For the browser tests and anyone curious, as window.orbisettPage: the layers' count, the view,
// where the layers are between before and after, and a timed orbit.
import { measureOrbit } from './frame_rate.js';

export function testHooks(page) {
  const { doc, loop, stateSwitch, views } = page;
  return {
    layerCount: page.data.layers.count,
    view: () => views.describe(),
    state: () => ({ shown: stateSwitch.state, amount: stateSwitch.amount, moving: stateSwitch.moving, sharp: loop.resolution.sharp }),
    measureFrameRate: async (frames = 120) => {
      const result = await measureOrbit(views, loop.renderer, frames);
      const reduced = result.drawn[0] < result.canvas[0] * window.devicePixelRatio ? `, drawn at ${result.drawn.join(' × ')}` : '';
      doc.getElementById('frame-rate').textContent = `${result.fps.toFixed(0)} frames a second while turning${reduced}`;
      return result;
    },
  };
}
