// Finding layers by name: every layer whose name holds the typed text, case aside; Enter goes to
// the next one.
export class Search {
  constructor(input, result, names, onFound) {
    this.input = input;
    this.result = result;
    this.names = names.map((name) => name.toLowerCase());
    this.matches = [];
    this.next = 0;
    input.addEventListener('input', () => this.update());
    input.addEventListener('keydown', (event) => {
      if (event.key === 'Enter') {
        event.preventDefault();
        this.goToNext(onFound);
      } else if (event.key === 'Escape') {
        input.blur();
      }
      event.stopPropagation();
    });
  }

  update() {
    const text = this.input.value.trim().toLowerCase();
    this.matches = [];
    this.next = 0;
    if (text) {
      this.names.forEach((name, i) => {
        if (name.includes(text)) {
          this.matches.push(i);
        }
      });
    }
    this.result.textContent = !text ? '' : this.matches.length === 0 ? 'no such layer' : `${this.matches.length} found`;
  }

  goToNext(onFound) {
    if (this.matches.length === 0) {
      return;
    }
    const index = this.matches[this.next];
    this.result.textContent = `${this.next + 1} of ${this.matches.length}`;
    this.next = (this.next + 1) % this.matches.length;
    onFound(index);
  }
}
