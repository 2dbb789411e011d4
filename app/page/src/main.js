// The page orbisett-host writes with --html: the composition after a run in 3D, to turn around,
// search and compare with the scene as it was.
import { Box3, BufferAttribute, BufferGeometry, LineBasicMaterial, LineLoop, Scene, Sphere, Vector3, WebGLRenderer } from 'three';
import WebGL from 'three/addons/capabilities/WebGL.js';
import { Details, Tooltip } from './details.js';
import { measureOrbit } from './frame_rate.js';
import { LayerMesh } from './layer_mesh.js';
import { palette, publishPalette } from './palette.js';
import { Picker } from './picking.js';
import { Resolution } from './resolution.js';
import { cornerArrays, cornersAt, isCopy, readSceneData } from './scene_data.js';
import { Search } from './search.js';
import { surroundings } from './surroundings.js';
import { StateSwitch } from './transition.js';
import { Views } from './views.js';

// A pointer that moves less than this between press and release clicks rather than drags.
const kClickSlop = 5;
const kOrbitStep = Math.PI / 36;
// Orbit controls take a dolly factor below 1, in or out.
const kZoomStep = 1 / 1.15;
// Above this many layers a software renderer's drawing time goes with the layers' count more than
// with their pixels: each layer is drawn as one triangle rather than two, and without
// multisampling, which costs several times the drawing time (outlines are smoothed by the layers'
// shader anyway).
const kManyLayers = 5000;

function showMessage(doc, text) {
  const message = doc.getElementById('message');
  message.textContent = text;
  message.hidden = false;
}

// What the views frame, both states of every layer, the frame and the surface (`box`, and the
// sphere `fit` around it), and a sphere around all that is drawn, the camera too (`extent`).
function sceneBounds(data, corners) {
  const box = new Box3().setFromArray(corners.before).union(new Box3().setFromArray(corners.after));
  box.expandByPoint(new Vector3(0, 0, 0)).expandByPoint(new Vector3(data.comp.width, data.comp.height, 0));
  if (data.surface.centre) {
    const [x, , z] = data.surface.centre;
    box.expandByPoint(new Vector3(x - data.surface.half_x, data.surface.top, z - data.surface.half_z));
    box.expandByPoint(new Vector3(x + data.surface.half_x, data.surface.bottom, z + data.surface.half_z));
  }
  const fit = box.getBoundingSphere(new Sphere());
  fit.radius = Math.max(fit.radius, 1);
  const all = box.clone();
  if (data.camera && data.camera.name) {
    all.expandByPoint(new Vector3().fromArray(data.camera.position));
  }
  return { box, fit, extent: all.getBoundingSphere(new Sphere()).union(fit) };
}

function summary(data) {
  const layers = data.layers;
  const count = (run) => layers.filter((layer) => layer.run === run).length;
  const parts = [`${count('arranged')} arranged`, `${layers.filter(isCopy).length} made as copies`];
  if (count('not_reached') > 0) {
    parts.push(`${count('not_reached')} not reached by the layout`);
  }
  return `"${data.comp.name}", ${data.comp.width} × ${data.comp.height}: ${layers.length} 3D layers, ` +
    `${parts.join(', ')}. ${data.surface.description}`;
}

class Page {
  constructor(doc, data) {
    this.doc = doc;
    this.data = data;
    this.canvas = doc.getElementById('view');
    this.renderer = new WebGLRenderer({ canvas: this.canvas, antialias: data.layers.length <= kManyLayers });
    this.renderer.setPixelRatio(window.devicePixelRatio);
    this.resolution = new Resolution((scale) => this.renderer.setPixelRatio(window.devicePixelRatio * scale));
    this.renderer.setClearColor(palette.background);
    this.scene = new Scene();
    this.needsRender = true;
    this.selected = -1;

    this.corners = cornerArrays(data.layers);
    this.bounds = sceneBounds(data, this.corners);
    this.layerMesh = new LayerMesh(data.layers, this.corners, this.bounds.fit, { oneTriangleEach: data.layers.length > kManyLayers });
    this.highlight = this.makeHighlight();
    const around = surroundings(data);
    this.cameraMarker = around.cameraMarker;
    this.scene.add(this.layerMesh.faces, around.group, this.highlight);

    this.views = new Views(this.canvas, this.bounds, data);
    this.views.onChange(() => this.viewChanged());
    this.stateSwitch = new StateSwitch((amount) => this.place(amount));
    this.picker = new Picker(this.views.camera, this.corners, this.canvas);
    this.details = new Details(doc, doc.getElementById('details'), () => this.select(-1));
    this.tooltip = new Tooltip(doc.getElementById('tooltip'));
    this.search = new Search(doc.getElementById('search'), doc.getElementById('search-result'), data.layers,
      (index) => this.select(index, true));

    this.fitCanvas();
    this.views.show('overview');
    this.wireControls();
    this.showState();
    requestAnimationFrame((now) => this.frame(now));
  }

  makeHighlight() {
    const geometry = new BufferGeometry();
    geometry.setAttribute('position', new BufferAttribute(new Float32Array(12), 3));
    // Drawn over everything, so that a chosen layer is found even behind others.
    const line = new LineLoop(geometry, new LineBasicMaterial({ color: palette.selected, depthTest: false }));
    line.renderOrder = 1;
    line.visible = false;
    line.frustumCulled = false;
    return line;
  }

  // Places the layers `amount` of the way from before (0) to after (1).
  place(amount) {
    this.layerMesh.show(amount);
    if (this.selected >= 0) {
      const position = this.highlight.geometry.attributes.position;
      position.array.set(this.shownCorners(this.selected));
      position.needsUpdate = true;
    }
    this.requestRender();
  }

  shownCorners(index) {
    return cornersAt(this.corners, this.stateSwitch.amount, index * 12, index * 12 + 12);
  }

  // Seen from its own eye, the camera's pyramid would only frame the view.
  viewChanged() {
    if (this.cameraMarker) {
      const eye = new Vector3().fromArray(this.data.camera.position);
      this.cameraMarker.visible = this.views.camera.position.distanceTo(eye) > this.data.camera.zoom / 100;
    }
    this.requestRender();
  }

  requestRender() {
    this.needsRender = true;
  }

  frame(now) {
    const moving = this.stateSwitch.tick(now);
    if (this.pendingHover) {
      this.hover(this.pendingHover);
      this.pendingHover = null;
    }
    if (this.resolution.frame(now, this.needsRender || moving)) {
      this.renderer.render(this.scene, this.views.camera);
      this.needsRender = false;
    }
    if (!moving && this.stateSwitch.state !== this.shownState) {
      this.showState();
    }
    requestAnimationFrame((t) => this.frame(t));
  }

  fitCanvas() {
    const width = this.canvas.clientWidth;
    const height = this.canvas.clientHeight;
    this.renderer.setSize(width, height, false);
    this.views.resize(width, height);
  }

  select(index, centre = false) {
    this.selected = index;
    this.highlight.visible = index >= 0;
    if (index < 0) {
      this.details.hide();
      this.requestRender();
      return;
    }
    this.place(this.stateSwitch.amount);
    this.details.show(this.data.layers[index]);
    if (centre) {
      const box = new Box3().setFromArray(this.shownCorners(index));
      this.views.centreOn(box.getCenter(new Vector3()));
    }
  }

  hover(event) {
    const index = this.picker.layerAt(event.clientX, event.clientY, this.stateSwitch.amount);
    if (index < 0) {
      this.tooltip.hide();
    } else {
      this.tooltip.show(this.data.layers[index], event.clientX, event.clientY);
    }
  }

  showState() {
    this.shownState = this.stateSwitch.state;
    for (const button of this.doc.querySelectorAll('[data-state]')) {
      button.setAttribute('aria-pressed', String(button.dataset.state === this.shownState));
    }
    this.doc.body.dataset.state = this.shownState;
  }

  switchState(state) {
    if (state === 'toggle') {
      this.stateSwitch.toggle(performance.now());
    } else {
      this.stateSwitch.show(state, performance.now());
    }
    this.showState();
  }

  wireControls() {
    const doc = this.doc;
    for (const button of doc.querySelectorAll('[data-view]')) {
      button.addEventListener('click', () => this.views.show(button.dataset.view));
    }
    for (const button of doc.querySelectorAll('[data-state]')) {
      button.addEventListener('click', () => this.switchState(button.dataset.state));
    }
    const cameraButton = doc.querySelector('[data-view="camera"]');
    cameraButton.title = this.data.camera.name
      ? `Through the scene's camera "${this.data.camera.name}" (4)`
      : "Through the host's default camera: the scene has none (4)";

    let pressed = null;
    this.canvas.addEventListener('pointerdown', (event) => {
      pressed = { x: event.clientX, y: event.clientY };
    });
    this.canvas.addEventListener('pointerup', (event) => {
      if (pressed && Math.hypot(event.clientX - pressed.x, event.clientY - pressed.y) < kClickSlop) {
        this.select(this.picker.layerAt(event.clientX, event.clientY, this.stateSwitch.amount));
      }
      pressed = null;
    });
    // No names while dragging: picking would only slow the turning down.
    this.canvas.addEventListener('pointermove', (event) => {
      if (event.buttons !== 0) {
        this.pendingHover = null;
        this.tooltip.hide();
        return;
      }
      this.pendingHover = { clientX: event.clientX, clientY: event.clientY };
    });
    this.canvas.addEventListener('pointerleave', () => this.tooltip.hide());
    window.addEventListener('resize', () => this.fitCanvas());
    window.addEventListener('keydown', (event) => this.key(event));
  }

  key(event) {
    if (event.target instanceof HTMLInputElement || event.ctrlKey || event.metaKey || event.altKey) {
      return;
    }
    const controls = this.views.controls;
    const actions = {
      ArrowLeft: () => (event.shiftKey ? controls.pan(40, 0) : controls.rotateLeft(kOrbitStep)),
      ArrowRight: () => (event.shiftKey ? controls.pan(-40, 0) : controls.rotateLeft(-kOrbitStep)),
      ArrowUp: () => (event.shiftKey ? controls.pan(0, 40) : controls.rotateUp(kOrbitStep)),
      ArrowDown: () => (event.shiftKey ? controls.pan(0, -40) : controls.rotateUp(-kOrbitStep)),
      '+': () => controls.dollyIn(kZoomStep),
      '=': () => controls.dollyIn(kZoomStep),
      '-': () => controls.dollyOut(kZoomStep),
      1: () => this.views.show('front'),
      2: () => this.views.show('top'),
      3: () => this.views.show('side'),
      4: () => this.views.show('camera'),
      0: () => this.views.show('overview'),
      r: () => this.views.show('overview'),
      b: () => this.switchState('toggle'),
      '/': () => this.doc.getElementById('search').focus(),
      Escape: () => this.select(-1),
    };
    const action = actions[event.key];
    if (action) {
      event.preventDefault();
      action();
    }
  }

  // For the browser tests and anyone curious: the view, the state, and a timed orbit.
  api() {
    return {
      layerCount: this.data.layers.length,
      view: () => this.views.describe(),
      state: () => ({ shown: this.stateSwitch.state, moving: this.stateSwitch.moving, sharp: this.resolution.sharp }),
      measureFrameRate: async (frames = 120) => {
        const result = await measureOrbit(this.views, this.renderer, frames);
        const reduced = result.drawn[0] < result.canvas[0] * window.devicePixelRatio ? `, drawn at ${result.drawn.join(' × ')}` : '';
        this.doc.getElementById('frame-rate').textContent = `${result.fps.toFixed(0)} frames a second while turning${reduced}`;
        return result;
      },
    };
  }
}

function start() {
  const doc = document;
  publishPalette(doc.documentElement);
  let data;
  try {
    data = readSceneData(doc);
  } catch (error) {
    showMessage(doc, `This page cannot show its scene: ${error.message}`);
    return;
  }
  doc.getElementById('summary').textContent = summary(data);
  if (!WebGL.isWebGL2Available()) {
    showMessage(doc, 'This page draws the composition with WebGL 2, which this browser does not offer ' +
      '(it may be turned off in its settings, or the graphics driver may be blocked). Open the page in ' +
      'a browser with WebGL 2 turned on.');
    return;
  }
  let page;
  try {
    page = new Page(doc, data);
  } catch (error) {
    showMessage(doc, `This page cannot draw the composition: ${error.message}`);
    return;
  }
  window.orbisettPage = page.api();
  doc.body.dataset.ready = 'true';
}

start();
