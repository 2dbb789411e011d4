// How a layer's rectangle is painted: the side that faces the viewer in its colour, front light
// and back dark, copies warm, with an outline about a pixel wide along its edges, dashed for layers
// without a source. Drawing the outline here keeps every layer to two triangles and one draw call.
import { Color, DoubleSide, ShaderMaterial } from 'three';
import { palette } from './palette.js';

// The `look` attribute: 1 for a copy, plus 2 for a layer without a source.
export const kLookCopy = 1;
export const kLookNoSource = 2;
// Dashes along outlines without a source, in pixels.
const kDashPeriod = 9;

const vertexShader = /* glsl */ `
attribute vec2 corner;
attribute float look;
varying vec2 vCorner;
varying float vLook;
void main() {
  vCorner = corner;
  vLook = look;
  gl_Position = projectionMatrix * modelViewMatrix * vec4(position, 1.0);
}
`;

const fragmentShader = /* glsl */ `
uniform vec3 front;
uniform vec3 back;
uniform vec3 edge;
uniform vec3 copyFront;
uniform vec3 copyBack;
uniform vec3 copyEdge;
varying vec2 vCorner;
varying float vLook;
void main() {
  // Interpolation may bring the whole number a hair off.
  float look = floor(vLook + 0.5);
  bool dashed = look >= 2.0;
  bool copy = look - 2.0 * floor(look / 2.0) > 0.5;
  vec3 face = copy ? (gl_FrontFacing ? copyFront : copyBack) : (gl_FrontFacing ? front : back);
  // Distances in pixels: to the nearer of the two edges across each direction, and along them.
  vec2 perPixel = max(fwidth(vCorner), vec2(1e-6));
  vec2 toEdge = min(vCorner, 1.0 - vCorner) / perPixel;
  float along = toEdge.x < toEdge.y ? vCorner.y / perPixel.y : vCorner.x / perPixel.x;
  // A layer only a few pixels across shows its face rather than a blot of outline.
  float across = min(1.0 / perPixel.x, 1.0 / perPixel.y);
  float line = (1.0 - smoothstep(0.6, 1.4, min(toEdge.x, toEdge.y))) * smoothstep(4.0, 8.0, across);
  if (dashed && fract(along / ${kDashPeriod.toFixed(1)}) > 0.55) {
    line = 0.0;
  }
  gl_FragColor = vec4(mix(face, copy ? copyEdge : edge, line), 1.0);
  #include <colorspace_fragment>
}
`;

export function layerMaterial() {
  const uniforms = {};
  for (const name of ['front', 'back', 'edge', 'copyFront', 'copyBack', 'copyEdge']) {
    uniforms[name] = { value: new Color(palette[name]) };
  }
  return new ShaderMaterial({ uniforms, vertexShader, fragmentShader, side: DoubleSide });
}
