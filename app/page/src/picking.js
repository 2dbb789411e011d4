// Which layer is under a point of the canvas: a ray into the one face geometry, its triangle
// mapped back to the layer.
import { Raycaster, Vector2 } from 'three';

export class Picker {
  constructor(camera, layerMesh, canvas) {
    this.camera = camera;
    this.layerMesh = layerMesh;
    this.canvas = canvas;
    this.raycaster = new Raycaster();
  }

  // The layer's index under the client point, or -1.
  layerAt(clientX, clientY) {
    const rect = this.canvas.getBoundingClientRect();
    const ndc = new Vector2(
      ((clientX - rect.left) / rect.width) * 2 - 1,
      -((clientY - rect.top) / rect.height) * 2 + 1,
    );
    this.raycaster.setFromCamera(ndc, this.camera);
    const hit = this.raycaster.intersectObject(this.layerMesh.faces, false)[0];
    return hit ? this.layerMesh.layerOfFace(hit.faceIndex) : -1;
  }
}
