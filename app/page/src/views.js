// The viewer's camera and the named views. Orbiting turns about the host's vertical axis (its Y
// points down); every view keeps the whole scene, in both states, in sight.
import { MathUtils, PerspectiveCamera, Vector3 } from 'three';
import { OrbitControls } from 'three/addons/controls/OrbitControls.js';
import { cameraOfScene } from './surroundings.js';

const kFieldOfView = 35;
// Raised like the SVG preview's camera, so that rows and the ring both read.
const kOverviewElevation = 28;
const kHostUp = new Vector3(0, -1, 0);
// Through the scene's camera the composition's frame fills this much of the view, leaving room
// for the toolbar above and the status lines below; the other views fill as much with the scene.
export const kCameraViewFill = 0.8;
const kSceneFill = 0.8;

// Directions from the scene's centre to the eye.
const kDirections = {
  overview: new Vector3(0, -Math.sin(MathUtils.degToRad(kOverviewElevation)), -Math.cos(MathUtils.degToRad(kOverviewElevation))),
  front: new Vector3(0, 0, -1),
  // Straight down, leaned a hair toward the viewer so that the far side is at the top.
  top: new Vector3(0, -1, -1e-3).normalize(),
  side: new Vector3(1, 0, 0),
};

export class Views {
  // `bounds.box` is what the named views frame, `bounds.fit` a sphere around it; `bounds.extent`
  // holds all that is drawn.
  constructor(canvas, bounds, data) {
    this.canvas = canvas;
    this.box = bounds.box;
    this.bounds = bounds.fit;
    this.extent = bounds.extent;
    this.data = data;
    this.camera = new PerspectiveCamera(kFieldOfView, 1, 1, 2);
    this.controls = null;
    this.listeners = [];
    this.name = 'overview';
  }

  // Called whenever the view changes.
  onChange(listener) {
    this.listeners.push(listener);
  }

  changed() {
    this.fitDepthRange();
    for (const listener of this.listeners) {
      listener();
    }
  }

  // Orbit controls keep the camera's up as the axis they turn about; a new up needs new controls.
  controlsFor(up) {
    if (this.controls && this.camera.up.equals(up)) {
      return this.controls;
    }
    this.controls?.dispose();
    this.camera.up.copy(up);
    this.controls = new OrbitControls(this.camera, this.canvas);
    this.controls.zoomToCursor = true;
    this.controls.addEventListener('change', () => this.changed());
    return this.controls;
  }

  resize(width, height) {
    this.camera.aspect = width / height;
    if (this.name === 'camera') {
      this.show('camera');
    }
    this.camera.updateProjectionMatrix();
    this.changed();
  }

  // The distance from the scene's centre, along `direction`, at which the box around the scene
  // just fits the view: each corner's offset across the view over the tangent of half the angle
  // of view, plus its offset toward the eye.
  fitDistance(direction) {
    const centre = this.bounds.center;
    this.camera.position.copy(centre).add(direction);
    this.camera.lookAt(centre);
    this.camera.updateMatrixWorld();
    const right = new Vector3();
    const up = new Vector3();
    const back = new Vector3();
    this.camera.matrixWorld.extractBasis(right, up, back);
    const tanVertical = Math.tan(MathUtils.degToRad(this.camera.fov) / 2) * kSceneFill;
    const tanHorizontal = tanVertical * this.camera.aspect;
    const { min, max } = this.box;
    let distance = 0;
    for (const x of [min.x, max.x]) {
      for (const y of [min.y, max.y]) {
        for (const z of [min.z, max.z]) {
          const offset = new Vector3(x, y, z).sub(centre);
          const toward = offset.dot(back);
          distance = Math.max(distance, toward + Math.abs(offset.dot(right)) / tanHorizontal,
            toward + Math.abs(offset.dot(up)) / tanVertical);
        }
      }
    }
    return Math.max(distance, this.bounds.radius * 0.01);
  }

  show(name) {
    this.name = name;
    if (name === 'camera') {
      this.throughSceneCamera();
      return;
    }
    const controls = this.controlsFor(kHostUp);
    this.camera.fov = kFieldOfView;
    this.camera.updateProjectionMatrix();
    const eye = kDirections[name].clone().multiplyScalar(this.fitDistance(kDirections[name])).add(this.bounds.center);
    this.camera.position.copy(eye);
    controls.target.copy(this.bounds.center);
    controls.update();
    this.changed();
  }

  throughSceneCamera() {
    const seen = cameraOfScene(this.data.camera, this.data.comp, this.camera.aspect, kCameraViewFill);
    const controls = this.controlsFor(seen.up);
    this.camera.fov = seen.fov;
    this.camera.updateProjectionMatrix();
    this.camera.position.copy(seen.position);
    // Orbiting from here turns about the plane where the frame fills the view.
    const forward = new Vector3().fromArray(this.data.camera.forward);
    controls.target.copy(forward.multiplyScalar(this.data.camera.zoom).add(seen.position));
    controls.update();
    this.changed();
  }

  // Near and far planes that hold the scene wherever the eye is.
  fitDepthRange() {
    const distance = this.camera.position.distanceTo(this.extent.center);
    const far = distance + 2 * this.extent.radius;
    const near = Math.max(distance - 2 * this.extent.radius, far * 1e-4);
    if (near !== this.camera.near || far !== this.camera.far) {
      this.camera.near = near;
      this.camera.far = far;
      this.camera.updateProjectionMatrix();
    }
  }

  // Moves the eye and its target together so that `point` comes to the middle of the view.
  centreOn(point) {
    const shift = point.clone().sub(this.controls.target);
    this.camera.position.add(shift);
    this.controls.target.add(shift);
    this.controls.update();
  }

  // What the browser tests project with: the eye, the point looked at, the up direction, the
  // vertical angle of view (degrees) and the canvas's size in CSS pixels.
  describe() {
    return {
      name: this.name,
      eye: this.camera.position.toArray(),
      target: this.controls.target.toArray(),
      up: this.camera.up.toArray(),
      fov: this.camera.fov,
      width: this.canvas.clientWidth,
      height: this.canvas.clientHeight,
    };
  }
}
