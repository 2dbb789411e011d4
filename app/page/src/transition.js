// "Before" and "after": the layers where the scene had them and where the run put them, with an
// eased move between the two. Where the layers are is one number, how far they are along the way
// from before (0) to after (1); the layers' shader places them by it.
import { MathUtils } from 'three';

const kDurationMs = 900;
const kAmounts = { before: 0, after: 1 };

export class StateSwitch {
  // `apply(amount)` places the layers.
  constructor(apply) {
    this.apply = apply;
    this.state = 'after';
    this.amount = 1;
    this.from = null;
    this.started = 0;
    apply(this.amount);
  }

  get moving() {
    return this.from !== null;
  }

  show(state, now) {
    if (state === this.state) {
      return;
    }
    // A switch during a move starts from where the layers are.
    this.from = this.amount;
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
    const to = kAmounts[this.state];
    const t = MathUtils.smootherstep(now - this.started, 0, kDurationMs);
    this.amount = t >= 1 ? to : this.from + (to - this.from) * t;
    if (t >= 1) {
      this.from = null;
    }
    this.apply(this.amount);
    return this.moving;
  }
}
