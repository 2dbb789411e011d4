// How sharp the canvas is drawn. A software renderer can take longer than a frame to draw tens of
// thousands of layers at the canvas's full resolution. While the view moves, the canvas is then
// drawn at a lower resolution, as far as needed to keep up about 40 frames a second but no lower
// than half its size across; a single change, and the view once it has rested a moment, are drawn
// sharp. Where frames come quickly, as with a graphics card, nothing changes.
const kRestMs = 200;
// Frames coming further apart than this lower the resolution, aiming at kAimMs; frames closer
// than kFastMs raise it again, though not back to a resolution found too slow while moving.
const kSlowMs = 1000 / 36;
const kAimMs = 1000 / 40;
const kFastMs = 1000 / 50;
const kLowest = 0.5;
const kRaise = 1.15;
// Frames timed before each change of resolution; browsers space frames by whole display
// refreshes, so one frame says little.
const kWindow = 8;

export class Resolution {
  // `resize(scale)` draws the canvas at `scale` of its full resolution from then on.
  constructor(resize) {
    this.resize = resize;
    this.scale = 1;
    this.movingScale = 1;
    // The lowest resolution found too slow since the view last rested.
    this.tooSlow = Infinity;
    this.lastChange = -Infinity;
    this.previous = null;
    this.gaps = [];
  }

  get sharp() {
    return this.scale === 1;
  }

  // Called on every animation frame with whether the frame has a change to draw; returns whether
  // to draw it: a change always, at the resolution for moving if it follows another closely, and
  // an unchanged view once, sharp, when it has rested.
  frame(now, changed) {
    const previous = this.previous;
    let draw = changed;
    let resized = false;
    if (changed) {
      // Two changes drawn in successive frames at the resolution for moving, without a resize
      // between them: the time from one to the next is how long drawing takes, as far as the
      // browser shows it.
      if (previous && previous.drawn && !previous.resized && this.scale === this.movingScale) {
        this.time(now - previous.at);
      }
      resized = this.use(now - this.lastChange < kRestMs ? this.movingScale : 1);
      this.lastChange = now;
    } else if (!this.sharp && now - this.lastChange >= kRestMs) {
      this.use(1);
      this.tooSlow = Infinity;
      draw = true;
    }
    this.previous = { at: now, drawn: changed, resized };
    return draw;
  }

  time(gap) {
    this.gaps.push(gap);
    if (this.gaps.length < kWindow) {
      return;
    }
    const mean = this.gaps.reduce((sum, g) => sum + g, 0) / this.gaps.length;
    this.gaps = [];
    if (mean > kSlowMs) {
      this.tooSlow = Math.min(this.tooSlow, this.movingScale);
      // Drawing time goes roughly with the pixels drawn, the square of the scale.
      this.movingScale = Math.max(kLowest, this.movingScale * Math.max(0.7, Math.sqrt(kAimMs / mean)));
    } else if (mean < kFastMs && this.movingScale * kRaise < this.tooSlow) {
      this.movingScale = Math.min(1, this.movingScale * kRaise);
    }
  }

  // Returns whether the canvas was resized.
  use(scale) {
    if (scale === this.scale) {
      return false;
    }
    this.scale = scale;
    this.gaps = [];
    this.resize(scale);
    return true;
  }
}
