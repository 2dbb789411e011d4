// "Before" and "after": the layers where the scene had them and where the run put them, with an
// eased move between the two.
import { MathUtils } from 'three';

const kDurationMs = 900;

export class StateSwitch {
  // `apply(corners)` places the layers.
  constructor(corners, apply) {
    this.corners = corners;
    this.apply = apply;
    this.state = 'after';
    this.current = new Float32Array(corners.after.length);
    this.from = null;
    this.started = 0;
    apply(corners.after);
  }

  get moving() {
    return this.from !== null;
  }

  show(state, now) {
    if (state === this.state) {
      return;
    }
    // A switch during a move starts from where the layers are.
    this.from = this.moving ? this.current.slice() : this.corners[this.state];
    this.state = state;
    this.started = now;
  }

  toggle(now) {
    this.show(this.state === 'after' ? 'before' : 'after', now);
  }

  // Advances a move; true while one is under way.
  tick(now) {
    if (!this.moving) {
      return false;
    }
    const to = this.corners[this.state];
    const t = MathUtils.smootherstep(now - this.started, 0, kDurationMs);
    if (t >= 1) {
      this.from = null;
      this.apply(to);
      return false;
    }
    const from = this.from;
    const current = this.current;
    for (let i = 0; i < current.length; i += 1) {
      current[i] = from[i] + (to[i] - from[i]) * t;
    }
    this.apply(current);
    return true;
  }
}
