// The side panel with a chosen layer's values, and the name shown under the pointer; a layer as
// Layers.layer() gives it.

const kRows = [
  ['Position', (v) => v.position],
  ['Orientation', (v) => v.orientation],
  ['X, Y, Z Rotation', (v) => v.rotation],
  ['Scale', (v) => v.scale],
];

function triple(values) {
  // One decimal, as the tool's table prints them; no sign on zero.
  return values.map((v) => (Math.abs(v) < 0.05 ? 0 : v).toFixed(1)).join(', ');
}

function element(doc, tag, text, className) {
  const e = doc.createElement(tag);
  if (text !== undefined) {
    e.textContent = text;
  }
  if (className) {
    e.className = className;
  }
  return e;
}

function describeKind(layer) {
  const kind = { footage: 'Footage layer', text: 'Text layer', shape: 'Shape layer' }[layer.kind] ?? 'Layer';
  return `${kind} ${layer.number}${layer.source ? '' : ', no source'}`;
}

const kRuns = {
  arranged: 'Put on the surface by the run',
  not_reached: 'Taken by the run, but not reached by the layout',
  moved: 'Changed by the run',
  kept: 'Not changed by the run',
  left_out: 'Taken by the run, but not written by it: exactly as it was',
};

function describeRun(layer) {
  const run = kRuns[layer.run] ?? '';
  return layer.copyOf !== undefined ? `Made by the run as a copy of layer ${layer.copyOf} of the scene; ${run.toLowerCase()}` : run;
}

function keyLine(keys) {
  return (
    `Keyframes: Position ${keys.position}, Orientation ${keys.orientation}, Scale ${keys.scale}, ` +
    `Rotation ${keys.rotation.join('/')}`
  );
}

export class Details {
  constructor(doc, panel, onClose) {
    this.doc = doc;
    this.panel = panel;
    panel.addEventListener('click', (event) => {
      if (event.target.closest('[data-close]')) {
        onClose();
      }
    });
  }

  show(layer) {
    const doc = this.doc;
    const body = doc.createDocumentFragment();
    const close = element(doc, 'button', '×', 'close');
    close.dataset.close = '';
    close.title = 'Close (Esc)';
    body.append(close, element(doc, 'h2', layer.name), element(doc, 'p', describeKind(layer), 'meta'));
    body.append(element(doc, 'p', describeRun(layer), layer.copyOf !== undefined ? 'meta copy' : 'meta'));
    if (!layer.drawn) {
      body.append(element(doc, 'p', 'Left out of the drawing: too large or not finite to draw', 'meta not-drawn'));
    } else if (layer.far) {
      body.append(element(doc, 'p', 'Far from the rest before or after the run: out of view', 'meta not-drawn'));
    }
    const table = element(doc, 'table');
    const head = element(doc, 'tr');
    head.append(element(doc, 'th'), element(doc, 'th', 'before'), element(doc, 'th', 'after'));
    table.append(head);
    for (const [label, pick] of kRows) {
      const row = element(doc, 'tr');
      row.append(
        element(doc, 'th', label),
        element(doc, 'td', triple(pick(layer.before))),
        element(doc, 'td', triple(pick(layer.after))),
      );
      table.append(row);
    }
    body.append(table, element(doc, 'p', keyLine(layer.keys), 'keys'));
    this.panel.replaceChildren(body);
    this.panel.hidden = false;
  }

  hide() {
    this.panel.hidden = true;
    this.panel.replaceChildren();
  }
}

export class Tooltip {
  constructor(tip) {
    this.tip = tip;
  }

  show(layer, clientX, clientY) {
    this.tip.textContent = `${layer.name}  (layer ${layer.number})`;
    this.tip.style.left = `${clientX + 14}px`;
    this.tip.style.top = `${clientY + 12}px`;
    this.tip.hidden = false;
  }

  hide() {
    this.tip.hidden = true;
  }
}
