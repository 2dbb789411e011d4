// The page's colours come with its data, from the same table the tool's SVG preview paints with.
import { Vector3 } from 'three';

const kNames = [
  'background', 'front', 'back', 'edge', 'backDash', 'copyFront', 'copyBack', 'copyEdge', 'copyBackDash',
  'selected', 'surface', 'compFrame', 'camera',
];

// The data's palette, checked for every colour the page paints with.
export function readPalette(data) {
  const palette = data.palette ?? {};
  for (const name of kNames) {
    if (!/^#[0-9a-f]{6}$/i.test(palette[name] ?? '')) {
      throw new Error(`The scene data has no colour "${name}".`);
    }
  }
  return palette;
}

// The legend and panels use the same colours through CSS variables.
export function publishPalette(root, palette) {
  for (const [name, colour] of Object.entries(palette)) {
    root.style.setProperty(`--${name}`, colour);
  }
}

// A colour as the canvas stores it, for shaders that write colours as they are, without the round
// trip through linear light that other materials take.
export function canvasColour(hex) {
  const value = parseInt(hex.slice(1), 16);
  return new Vector3((value >> 16) / 255, ((value >> 8) & 255) / 255, (value & 255) / 255);
}
