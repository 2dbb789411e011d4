// The page orbisett-host writes with --html: the composition after a run in 3D, to turn around,
// search and compare with the scene as it was.
import WebGL from 'three/addons/capabilities/WebGL.js';
import { sceneBounds } from './bounds.js';
import { Page } from './page.js';
import { publishPalette, readPalette } from './palette.js';
import { readSceneData } from './scene_data.js';
import { testHooks } from './test_hooks.js';

function showMessage(doc, text) {
  const message = doc.getElementById('message');
  message.textContent = text;
  message.hidden = false;
}

function summary(data) {
  const { layers } = data;
  const parts = [`${layers.countRun('arranged')} arranged`, `${layers.countCopies()} made as copies`];
  const notReached = layers.countRun('not_reached');
  if (notReached > 0) {
    parts.push(`${notReached} not reached by the layout`);
  }
  const leftOut = layers.countRun('left_out');
  if (leftOut > 0) {
    parts.push(`${leftOut} taken but not written, exactly as they were`);
  }
  const notDrawn = layers.countNotDrawn();
  if (notDrawn > 0) {
    parts.push(`${notDrawn} not drawn: too large or not finite to draw`);
  }
  const far = layers.countFar();
  if (far > 0) {
    parts.push(`${far} far from the rest before or after the run, out of view there`);
  }
  return `"${data.comp.name}", ${data.comp.width} × ${data.comp.height}: ${layers.count} 3D layers, ` +
    `${parts.join(', ')}. ${data.surface.description}`;
}

function start() {
  const doc = document;
  let data;
  try {
    data = readSceneData(doc);
    data.palette = readPalette(data);
  } catch (error) {
    showMessage(doc, `This page cannot show its scene: ${error.message}`);
    return;
  }
  publishPalette(doc.documentElement, data.palette);
  const bounds = sceneBounds(data);
  data.layers.far = bounds.far;
  doc.getElementById('summary').textContent = summary(data);
  if (!WebGL.isWebGL2Available()) {
    showMessage(doc, 'This page draws the composition with WebGL 2, which this browser does not offer ' +
      '(it may be turned off in its settings, or the graphics driver may be blocked). Open the page in ' +
      'a browser with WebGL 2 turned on.');
    return;
  }
  let page;
  try {
    page = new Page(doc, data, bounds);
  } catch (error) {
    showMessage(doc, `This page cannot draw the composition: ${error.message}`);
    return;
  }
  window.orbisettPage = testHooks(page);
  doc.body.dataset.ready = 'true';
}

start();
