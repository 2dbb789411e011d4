// What the pointer and the keys do: a click chooses the layer under it, hovering names one, and
// keys turn, pan and zoom the view, pick a named view, switch between before and after, find a
// layer or close the panel. Dragging, the wheel and right-dragging are the orbit controls' own.

// A pointer that moves less than this between press and release clicks rather than drags.
const kClickSlop = 5;
const kOrbitStep = Math.PI / 36;
const kPanStep = 40;
// Orbit controls take a dolly factor below 1, in or out.
const kZoomStep = 1 / 1.15;

// `on.click(x, y)` for a click, `on.hover(x, y)` when the pointer moves with no button down,
// `on.drag()` when it moves with one, `on.leave()` when it leaves the canvas.
export function wirePointer(canvas, on) {
  let pressed = null;
  canvas.addEventListener('pointerdown', (event) => {
    pressed = { x: event.clientX, y: event.clientY };
  });
  canvas.addEventListener('pointerup', (event) => {
    if (pressed && Math.hypot(event.clientX - pressed.x, event.clientY - pressed.y) < kClickSlop) {
      on.click(event.clientX, event.clientY);
    }
    pressed = null;
  });
  canvas.addEventListener('pointermove', (event) => {
    if (event.buttons !== 0) {
      on.drag();
    } else {
      on.hover(event.clientX, event.clientY);
    }
  });
  canvas.addEventListener('pointerleave', () => on.leave());
}

// The keys of the page; `page` offers showView(name), toggleState(), find() and closePanel().
function keyActions(controls, page, shift) {
  return {
    ArrowLeft: () => (shift ? controls.pan(kPanStep, 0) : controls.rotateLeft(kOrbitStep)),
    ArrowRight: () => (shift ? controls.pan(-kPanStep, 0) : controls.rotateLeft(-kOrbitStep)),
    ArrowUp: () => (shift ? controls.pan(0, kPanStep) : controls.rotateUp(kOrbitStep)),
    ArrowDown: () => (shift ? controls.pan(0, -kPanStep) : controls.rotateUp(-kOrbitStep)),
    '+': () => controls.dollyIn(kZoomStep),
    '=': () => controls.dollyIn(kZoomStep),
    '-': () => controls.dollyOut(kZoomStep),
    1: () => page.showView('front'),
    2: () => page.showView('top'),
    3: () => page.showView('side'),
    4: () => page.showView('camera'),
    0: () => page.showView('overview'),
    r: () => page.showView('overview'),
    b: () => page.toggleState(),
    '/': () => page.find(),
    Escape: () => page.closePanel(),
  };
}

// Keys typed into a field, or with a modifier other than Shift, are the browser's.
export function wireKeys(target, views, page) {
  target.addEventListener('keydown', (event) => {
    if (event.target instanceof HTMLInputElement || event.ctrlKey || event.metaKey || event.altKey) {
      return;
    }
    const action = keyActions(views.controls, page, event.shiftKey)[event.key];
    if (action) {
      event.preventDefault();
      action();
    }
  });
}
