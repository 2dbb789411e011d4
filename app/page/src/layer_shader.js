// How a layer's rectangle is painted: the side that faces the viewer in its colour, front light
// and back dark, copies warm, with an outline about a pixel wide along its edges, dashed for layers
// without a source. Drawing the outline here keeps every layer to one or two triangles and all to
// one draw call. Kept short: a software renderer runs it for every pixel of every layer.
import { DoubleSide, ShaderMaterial } from 'three';
import { canvasColour } from './palette.js';

// The `look` attribute: 1 for a copy, plus 2 for a layer without a source.
export const kLookCopy = 1;
export const kLookNoSource = 2;
// Dashes along outlines without a source, in pixels.
const kDashPeriod = 9;

const vertexShader = /* glsl */ `
attribute vec3 before;
attribute vec2 corner;
attribute float look;
uniform float toAfter;
varying vec2 vCorner;
flat varying float vCopy;
flat varying float vDashed;
void main() {
  vCorner = corner;
  vCopy = mod(look, 2.0);
  vDashed = step(2.0, look);
  gl_Position = projectionMatrix * viewMatrix * vec4(mix(before, position, toAfter), 1.0);
}
`;

const fragmentShader = /* glsl */ `
uniform vec3 front;
uniform vec3 back;
uniform vec3 edge;
uniform vec3 copyFront;
uniform vec3 copyBack;
uniform vec3 copyEdge;
uniform vec3 backDash;
uniform vec3 copyBackDash;
varying vec2 vCorner;
flat varying float vCopy;
flat varying float vDashed;
void main() {
  vec2 perPixel = max(fwidth(vCorner), vec2(1e-6));
#ifdef ONE_TRIANGLE_EACH
  // The triangle beyond the layer's rectangle.
  if (max(vCorner.x, vCorner.y) > 1.0) {
    discard;
  }
#endif
  // Distances in pixels to the nearer of the two edges across each direction.
  vec2 toEdge = min(vCorner, 1.0 - vCorner) / perPixel;
  // A layer only a few pixels across shows its face rather than a blot of outline.
  float line = (1.0 - smoothstep(0.6, 1.4, min(toEdge.x, toEdge.y))) *
    smoothstep(4.0, 8.0, 1.0 / max(perPixel.x, perPixel.y));
  // Dashes run along the nearer edge. On a front face the face shows between them; on a dark back
  // face they are light, with the outline between them, so that the edge holds against the face
  // and the background alike.
  float along = toEdge.x < toEdge.y ? vCorner.y / perPixel.y : vCorner.x / perPixel.x;
  float dash = vDashed * (1.0 - step(0.55, fract(along / ${kDashPeriod.toFixed(1)})));
  vec3 face = gl_FrontFacing ? mix(front, copyFront, vCopy) : mix(back, copyBack, vCopy);
  vec3 ink = mix(edge, copyEdge, vCopy);
  if (gl_FrontFacing) {
    line *= 1.0 - vDashed + dash;
  } else {
    ink = mix(ink, mix(backDash, copyBackDash, vCopy), dash);
  }
  gl_FragColor = vec4(mix(face, ink, line), 1.0);
}
`;

// `oneTriangleEach`: each layer is drawn as the corner of a triangle twice its size.
export function layerMaterial({ oneTriangleEach, palette }) {
  const uniforms = { toAfter: { value: 1 } };
  for (const name of ['front', 'back', 'edge', 'copyFront', 'copyBack', 'copyEdge', 'backDash', 'copyBackDash']) {
    uniforms[name] = { value: canvasColour(palette[name]) };
  }
  const defines = oneTriangleEach ? { ONE_TRIANGLE_EACH: '' } : {};
  return new ShaderMaterial({ uniforms, defines, vertexShader, fragmentShader, side: DoubleSide });
}
