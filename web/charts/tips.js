// What a mark says when it is pointed at, touched, or walked to by the arrow keys. Texts are data: they enter the page as
// text, whatever they hold.

const gap = 12;

const textOf = (value) => {
  if (value === null || typeof value !== "object") return String(value ?? "");
  return Object.entries(value).map(([name, content]) => `${name}: ${content}`).join("\n");
};

const makeTip = () => {
  const tip = document.createElement("div");
  tip.className = "tip";
  tip.hidden = true;
  tip.setAttribute("role", "status");
  document.body.append(tip);
  return tip;
};

const markOf = (element) => {
  const item = element?.__data__;
  const found = Array.isArray(item) ? item[0] : item;
  return found?.tooltip ? found : undefined;
};

/** The one tip of a page. */
export class Tip {
  #element = makeTip();
  #mark = null;

  /** Shows the tip of a mark's element beside it, and keeps it there. */
  showAt(mark) {
    const { left, top, width, height } = mark.getBoundingClientRect();
    this.#show(markOf(mark).tooltip, left + width / 2, top + height / 2);
    this.#mark = mark;
  }

  /** When the page was scrolled: a tip by a mark goes with it, one by the pointer goes away. */
  settle() {
    if (this.#mark) this.showAt(this.#mark);
    else this.hide();
  }

  #show(value, x, y) {
    this.#mark = null;
    const element = this.#element;
    element.textContent = textOf(value);
    element.hidden = false;
    const { offsetWidth: width, offsetHeight: height } = element;
    const right = document.documentElement.clientWidth;
    const left = x + gap + width > right ? x - gap - width : x + gap;
    const top = y + gap + height > innerHeight ? y - gap - height : y + gap;
    element.style.left = `${Math.max(0, Math.min(left, right - width))}px`;
    element.style.top = `${Math.max(0, top)}px`;
  }

  hide() {
    this.#mark = null;
    this.#element.hidden = true;
    this.#element.textContent = "";
  }

  /** Takes a view's own calls, which come as the pointer moves. */
  handler() {
    return (_, event, item, value) => {
      if (value === null || value === undefined || value === "" || isShrunk(event.target)) this.hide();
      else this.#show(value, event.clientX, event.clientY);
    };
  }
}

// A canvas that was shrunk to the page takes the pointer for elsewhere.
const isShrunk = ({ localName, offsetWidth, style }) => localName === "canvas" && offsetWidth < Number.parseInt(style.width, 10);

/** Lets the marks of a drawing be reached by touch and by the arrow keys. */
export function listenForTips(drawing, tip) {
  let marks;
  let place = -1;
  const leave = () => {
    marks?.[place]?.classList.remove("at");
    place = -1;
    tip.hide();
  };
  const goTo = (next) => {
    marks[place]?.classList.remove("at");
    place = (next + marks.length) % marks.length;
    marks[place].classList.add("at");
    marks[place].scrollIntoView({ block: "nearest", inline: "nearest" });
    tip.showAt(marks[place]);
  };

  drawing.addEventListener("pointerdown", (event) => {
    if (event.pointerType === "touch") markOf(event.target) ? tip.showAt(event.target) : leave();
  });
  drawing.addEventListener("keydown", (event) => {
    if (event.key === "Escape") return leave();
    const step = { ArrowRight: 1, ArrowDown: 1, ArrowLeft: -1, ArrowUp: -1 }[event.key];
    if (!step || event.ctrlKey || event.altKey || event.metaKey) return;
    marks ??= Array.from(drawing.querySelectorAll("svg [aria-label]")).filter(markOf);
    if (marks.length === 0) return;
    event.preventDefault();
    goTo(place < 0 && step < 0 ? marks.length - 1 : place + step);
  });
  drawing.addEventListener("focusout", leave);
}
