// The page's colours. Faces as the SVG preview paints them: front light, back dark; layers the run
// made as copies in warm tones. The browser tests compare pixels with these.
export const palette = {
  background: '#f6f7f9',
  front: '#a9cbef',
  back: '#56697f',
  edge: '#24496f',
  copyFront: '#f3cf9b',
  copyBack: '#8c6a43',
  copyEdge: '#6b4310',
  selected: '#e8590c',
  surface: '#8a94a3',
  compFrame: '#9c36b5',
  camera: '#2b8a3e',
};

// The legend and panels use the same colours through CSS variables.
export function publishPalette(root) {
  for (const [name, colour] of Object.entries(palette)) {
    root.style.setProperty(`--${name}`, colour);
  }
}
