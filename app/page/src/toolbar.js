// The toolbar's buttons: the named views, and "Before" and "After", pressed while their state is
// shown.
export class Toolbar {
  // `on.view(name)` and `on.state(state)` act on a click.
  constructor(doc, camera, on) {
    this.doc = doc;
    for (const button of doc.querySelectorAll('[data-view]')) {
      button.addEventListener('click', () => on.view(button.dataset.view));
    }
    for (const button of doc.querySelectorAll('[data-state]')) {
      button.addEventListener('click', () => on.state(button.dataset.state));
    }
    doc.querySelector('[data-view="camera"]').title = camera.name
      ? `Through the scene's camera "${camera.name}" (4)`
      : "Through the host's default camera: the scene has none (4)";
    this.shown = null;
  }

  showState(state) {
    if (state === this.shown) {
      return;
    }
    this.shown = state;
    for (const button of this.doc.querySelectorAll('[data-state]')) {
      button.setAttribute('aria-pressed', String(button.dataset.state === state));
    }
    this.doc.body.dataset.state = state;
  }
}
