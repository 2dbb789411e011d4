// The page's parts put together: the layers and their surroundings drawn by the render loop, the
// views, the move between before and after, the chosen layer, the name under the pointer, the
// search box, the toolbar and the keys.
import { Box3, Scene, Vector3 } from 'three';
import { Details, Tooltip } from './details.js';
import { Hover } from './hover.js';
import { wireKeys, wirePointer } from './input.js';
import { LayerMesh } from './layer_mesh.js';
import { Picker } from './picking.js';
import { RenderLoop } from './render_loop.js';
import { Search } from './search.js';
import { Selection } from './selection.js';
import { surroundings } from './surroundings.js';
import { Toolbar } from './toolbar.js';
import { StateSwitch } from './transition.js';
import { Views } from './views.js';

// Above this many layers a software renderer's drawing time goes with the layers' count more than
// with their pixels: each layer is drawn as one triangle rather than two, and without
// multisampling, which costs several times the drawing time (outlines are smoothed by the layers'
// shader anyway).
const kManyLayers = 5000;

export class Page {
  // `bounds` is what sceneBounds(data) gives.
  constructor(doc, data, bounds) {
    this.doc = doc;
    this.data = data;
    const { layers, palette } = data;
    const canvas = doc.getElementById('view');
    const scene = new Scene();
    const many = layers.count > kManyLayers;
    this.loop = new RenderLoop(canvas, scene, { antialias: !many, background: palette.background });

    this.layerMesh = new LayerMesh(layers, bounds.fit, { oneTriangleEach: many, palette });
    this.selection = new Selection(layers, new Details(doc, doc.getElementById('details'), () => this.choose(-1)), palette.selected);
    const around = surroundings(data);
    this.cameraMarker = around.cameraMarker;
    scene.add(this.layerMesh.faces, around.group, this.selection.outline);

    this.views = new Views(canvas, bounds, data);
    this.views.onChange(() => this.viewChanged());
    this.stateSwitch = new StateSwitch((amount) => this.place(amount));
    const picker = new Picker(this.views.camera, layers.corners, canvas);
    const layerAt = (x, y) => picker.layerAt(x, y, this.stateSwitch.amount);
    this.hover = new Hover(layers, new Tooltip(doc.getElementById('tooltip')), layerAt);
    this.search = new Search(doc.getElementById('search'), doc.getElementById('search-result'), layers.names,
      (index) => this.choose(index, true));
    this.toolbar = new Toolbar(doc, data.camera, { view: (name) => this.showView(name), state: (state) => this.switchState(state) });

    this.fitCanvas();
    this.views.show('overview');
    wirePointer(canvas, {
      click: (x, y) => this.choose(layerAt(x, y)),
      hover: (x, y) => this.hover.later(x, y),
      drag: () => this.hover.cancel(),
      leave: () => this.hover.cancel(),
    });
    wireKeys(window, this.views, this);
    window.addEventListener('resize', () => this.fitCanvas());
    this.toolbar.showState(this.stateSwitch.state);
    this.loop.start(this.views.camera, (now) => this.step(now));
  }

  // Each frame: the move goes on, the pointer's layer is named, and once the layers rest the
  // toolbar shows the state they are in.
  step(now) {
    const moving = this.stateSwitch.tick(now);
    this.hover.update();
    if (!moving) {
      this.toolbar.showState(this.stateSwitch.state);
    }
    return moving;
  }

  // Places the layers `amount` of the way from before (0) to after (1).
  place(amount) {
    this.layerMesh.show(amount);
    this.selection.follow(amount);
    this.loop.requestRender();
  }

  // Seen from its own eye, the camera's pyramid would only frame the view.
  viewChanged() {
    if (this.cameraMarker) {
      const eye = new Vector3().fromArray(this.data.camera.position);
      this.cameraMarker.visible = this.views.camera.position.distanceTo(eye) > this.data.camera.zoom / 100;
    }
    this.loop.requestRender();
  }

  fitCanvas() {
    const { width, height } = this.loop.fit();
    this.views.resize(width, height);
  }

  // Chooses the layer of `index` (none for -1), and with `centre` turns the view to it.
  choose(index, centre = false) {
    this.selection.choose(index);
    this.loop.requestRender();
    // A layer far from the rest lies beyond the views' depth range: the view stays.
    if (index >= 0 && centre && this.data.layers.isDrawn(index) && !this.data.layers.isFar(index)) {
      const box = new Box3().setFromArray(this.selection.corners());
      this.views.centreOn(box.getCenter(new Vector3()));
    }
  }

  showView(name) {
    this.views.show(name);
  }

  switchState(state) {
    this.stateSwitch.show(state, performance.now());
    this.toolbar.showState(this.stateSwitch.state);
  }

  toggleState() {
    this.stateSwitch.toggle(performance.now());
    this.toolbar.showState(this.stateSwitch.state);
  }

  find() {
    this.doc.getElementById('search').focus();
  }

  closePanel() {
    this.choose(-1);
  }
}
