// What a page can do beyond being read.
"use strict";
(() => {
  const words = document.body.dataset;
  const all = (selector, root = document) => Array.from(root.querySelectorAll(selector));
  const give = (element, attributes) => Object.entries(attributes).forEach(([name, value]) => {
    if (value === null) element.removeAttribute(name);
    else element.setAttribute(name, value);
  });

  const rule = "1px solid #000";
  const styleOf = (cell, textAlign) => {
    const row = cell.parentElement;
    const section = row.parentElement;
    const isHead = section.localName === "thead";
    let end = row;
    for (let below = 1; below < cell.rowSpan; ++below) end = end.nextElementSibling ?? end;
    const isLast = !end.nextElementSibling && (isHead || !section.nextElementSibling);
    return `padding:2px 6px;text-align:${textAlign};vertical-align:${isHead ? "bottom" : "top"};`
      + `font-weight:${isHead ? "bold" : "normal"}`
      + (row.previousElementSibling || section.previousElementSibling ? "" : `;border-top:${rule}`)
      + (isLast ? `;border-bottom:${rule}` : "");
  };

  // What is shown of an element, with styles of its own. A figure's minus is that of a keyboard, so sheets know a number.
  const copyOf = (element) => {
    const copy = element.cloneNode(true);
    const originals = all("*", element).map((original) => getComputedStyle(original));
    const styled = all("*", copy).map((part, index) => [part, originals[index].textAlign, originals[index].display]);
    for (const [part, , display] of styled) {
      if (display === "none" || part.matches("caption, colgroup")) part.remove();
      else if (part.matches("a, bdi, span")) part.replaceWith(...part.childNodes);
    }
    for (const [part, textAlign] of styled) {
      for (const name of part.getAttributeNames()) if (!name.endsWith("span")) part.removeAttribute(name);
      if (!part.matches("th, td") || !copy.contains(part)) continue;
      part.style.cssText = styleOf(part, textAlign);
      const text = part.firstChild;
      if (text?.data) text.data = text.data.replace(/^\u2212(?=[\d.])/, "-");
    }
    return copy;
  };

  // The content as one line of plain text, without note letters.
  const lineOf = (element) => {
    const line = element.cloneNode(true);
    for (const part of all("br, sup", line)) part.replaceWith(part.matches("br") ? " " : "");
    return line.textContent.replace(/\s+/g, " ").trim();
  };

  // A cell of several columns or rows fills the first field, a header of several rows the last, right above its data.
  const sectionAsText = (section) => {
    const lines = Array.from(section.rows, () => []);
    Array.from(section.rows, (row, index) => {
      let column = 0;
      for (const cell of row.cells) {
        while (lines[index][column] !== undefined) ++column;
        const covered = lines.slice(index, index + cell.rowSpan);
        for (const line of covered) {
          for (let beside = 0; beside < cell.colSpan; ++beside) line[column + beside] = "";
        }
        covered.at(section.localName === "thead" ? -1 : 0)[column] = lineOf(cell);
      }
    });
    return lines.map((fields) => fields.join("\t") + "\n").join("");
  };

  // The event that every copying raises takes what it is given as it is.
  const copyByEvent = (html, text) => {
    const fill = (event) => {
      event.clipboardData.setData("text/html", html);
      event.clipboardData.setData("text/plain", text);
      event.preventDefault();
    };
    document.addEventListener("copy", fill, { once: true });
    try {
      return document.execCommand("copy");
    } finally {
      document.removeEventListener("copy", fill);
    }
  };

  // It comes second, since browsers apply the page's policy, which allows no styles, to what they put there.
  const copyByClipboard = async (html, text) => {
    const asBlob = (type, content) => ({ [type]: new Blob([content], { type }) });
    try {
      const item = { ...asBlob("text/html", html), ...asBlob("text/plain", text) };
      await navigator.clipboard.write([new ClipboardItem(item)]);
      return true;
    } catch {
      return false;
    }
  };

  const make = (name, className) => Object.assign(document.createElement(name), { className });
  const status = make("div", "unseen");
  give(status, { role: "status" });

  const tell = (button, word) => {
    button.textContent = status.textContent = word;
    clearTimeout(button.timer);
    button.timer = setTimeout(() => {
      button.textContent = words.copy;
      status.textContent = "";
    }, 2000);
  };

  const makeButton = (name, act) => {
    const button = Object.assign(make("button", name), { type: "button", textContent: words[name] });
    button.addEventListener("click", () => act(button));
    return button;
  };

  const addCopyButton = (figure) => {
    figure.prepend(makeButton("copy", async (button) => {
      const table = copyOf(figure.querySelector("table"));
      table.style.borderCollapse = "collapse";
      const notes = all("figcaption p:not(.switch)", figure).filter((note) => getComputedStyle(note).display !== "none");
      const title = copyOf(figure.querySelector("caption")).innerHTML;
      const html = `<p><b>${title}</b></p>${table.outerHTML}`
        + notes.map((note) => `<p>${copyOf(note).innerHTML}</p>`).join("");
      const text = all("thead, tbody", table).map(sectionAsText).join("");
      const isCopied = copyByEvent(html, text) || await copyByClipboard(html, text);
      tell(button, isCopied ? words.copied : words.notCopied);
    }));
  };

  const saveFile = (name, content) => {
    const link = Object.assign(document.createElement("a"), { href: URL.createObjectURL(content), download: name });
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
  };

  // ---- Pictures. A mark has a name, which is its tip, and keys; what shares a key goes together. An entry of a legend has
  // the keys that it explains.

  const marksIn = (picture) => all("[role=img]", picture);

  const unname = (element) => give(element, { role: null, "aria-label": null });

  // Without this script a mark's name is its title. Of very many marks a title is what the dots of their group stand for.
  const labelMarks = (drawing) => {
    for (const title of all("svg title", drawing)) {
      const mark = title.parentElement;
      const form = mark.parentElement.firstChild;
      const parts = title.textContent.split("\n");
      const name = form.localName === "desc" ? form.textContent.replace(/\u2026$/gm, () => parts.shift()) : title.textContent;
      give(mark, { role: "img", "aria-label": name });
    }
    for (const part of all("svg :is(title, desc)", drawing)) part.remove();
  };

  // The layout for a phone has the marks of the other one, in the same order, and takes names and keys from them.
  const nameMarks = (drawing) => {
    const phone = drawing.querySelector(".phone[role]");
    if (!phone?.getClientRects().length) return;
    const named = marksIn(drawing.querySelector(".desk"));
    const marks = all(".m", phone);
    if (named.length !== marks.length) return;
    unname(phone);
    marks.forEach((mark, place) => {
      for (const name of ["role", "aria-label", "data-k"]) give(mark, { [name]: named[place].getAttribute(name) });
    });
  };

  // The picture as it would be on paper: its colours are attributes, and only the page's style makes dark ones of them.
  const savePicture = (figure) => {
    const picture = figure.querySelector(".desk").cloneNode(true);
    picture.removeAttribute("class");
    for (const element of all(".on, .at", picture)) element.classList.remove("on", "at");
    const addFirst = (parent, name, text, attributes = {}) => {
      const element = document.createElementNS(picture.namespaceURI, name);
      element.textContent = text;
      give(element, attributes);
      parent.prepend(element);
    };
    for (const mark of marksIn(picture)) {
      addFirst(mark, "title", mark.getAttribute("aria-label"));
      unname(mark);
    }
    addFirst(picture, "rect", "", { width: "100%", height: "100%", fill: "#ffffff" });
    addFirst(picture, "desc", document.getElementById(`${figure.id}-sentence`)?.textContent ?? "");
    addFirst(picture, "title", figure.querySelector(".title").textContent);
    saveFile(`${figure.id}.svg`, new Blob([new XMLSerializer().serializeToString(picture)], { type: "image/svg+xml" }));
  };

  const tip = make("div", "tip");
  tip.hidden = true;
  const gap = 12;

  const showTip = (text, x, y) => {
    tip.textContent = text;
    tip.hidden = false;
    const { offsetWidth: width, offsetHeight: height } = tip;
    const right = document.documentElement.clientWidth;
    const left = x + gap + width > right ? x - gap - width : x + gap;
    const top = y + gap + height > innerHeight ? y - gap - height : y + gap;
    tip.style.left = `${Math.max(0, Math.min(left, right - width))}px`;
    tip.style.top = `${Math.max(0, top)}px`;
  };

  let lit = [];
  const dim = () => {
    for (const element of lit) element.classList.remove("lit", "on");
    lit = [];
  };

  // What all of very many marks have is their group's.
  const keysOf = (element) => [element, element.parentElement.closest("[data-k]")]
    .flatMap((one) => (one?.dataset.k ?? one?.dataset.e ?? "").split(" ")).filter(Boolean);

  // An entry lights what it explains; a mark what it is tied to, but not all that a legend takes for the same.
  const light = (element) => {
    if (lit.includes(element)) return;
    dim();
    const picture = element.ownerSVGElement;
    const entries = all("[data-e]", picture);
    const isEntry = entries.includes(element);
    const explained = new Set(isEntry ? [] : entries.flatMap(keysOf));
    const keys = keysOf(element).filter((key) => !explained.has(key));
    if (keys.length === 0) return;
    const together = all(keys.map((key) => `[data-k~="${key}"]`).join(), picture);
    if (!isEntry && together.length < 2) return;
    lit = [picture, ...together, ...isEntry ? [element] : entries];
    for (const one of lit) one.classList.add(one === picture ? "lit" : "on");
  };

  // What the keyboard or a finger is at.
  let mark = null;
  const leave = () => {
    mark?.classList.remove("at");
    mark = null;
    tip.hidden = true;
    dim();
  };

  const showBeside = () => {
    const { left, top, width, height } = mark.getBoundingClientRect();
    showTip(mark.getAttribute("aria-label"), left + width / 2, top + height / 2);
  };

  const goTo = (next) => {
    leave();
    mark = next;
    mark.classList.add("at");
    mark.scrollIntoView({ block: "nearest", inline: "nearest" });
    showBeside();
    light(mark);
    status.textContent = tip.textContent;
  };

  // Lines are thin, so what is next to the pointer counts, too.
  const around = [[0, 0], [0, -3], [3, 0], [0, 3], [-3, 0]];
  const findAt = (x, y, selector) => {
    for (const [right, down] of around) {
      const found = document.elementFromPoint(x + right, y + down)?.closest(selector);
      if (found) return found;
    }
    return null;
  };

  // When a picture moves below the pointer, that counts as a move, too, but not as one of the reader's.
  const point = ({ clientX, clientY, pointerType, movementX, movementY }) => {
    if (pointerType === "touch" || (mark && movementX === 0 && movementY === 0)) return;
    const found = findAt(clientX, clientY, ".drawing svg [role=img], .drawing [data-e]");
    if (mark || !found) leave();
    if (!found) return;
    const text = found.getAttribute("aria-label");
    if (text) showTip(text, clientX, clientY);
    else tip.hidden = true;
    light(found);
  };

  const touch = ({ clientX, clientY, pointerType }) => {
    if (pointerType !== "touch") return;
    const found = findAt(clientX, clientY, ".drawing svg [role=img]");
    if (found) goTo(found);
    else leave();
  };

  const walk = (event) => {
    if (event.key === "Escape") return leave();
    const step = { ArrowRight: 1, ArrowDown: 1, ArrowLeft: -1, ArrowUp: -1 }[event.key];
    if (!step || event.ctrlKey || event.altKey || event.metaKey) return;
    const picture = Array.from(event.currentTarget.children).find((one) => one.getClientRects().length);
    const marks = marksIn(picture);
    if (marks.length === 0) return;
    event.preventDefault();
    const place = marks.indexOf(mark);
    goTo(marks.at((place < 0 && step < 0 ? -1 : place + step) % marks.length));
  };

  const naming = new ResizeObserver((changes) => changes.forEach(({ target }) => nameMarks(target)));
  const enliven = (drawing) => {
    labelMarks(drawing);
    drawing.tabIndex = 0;
    drawing.after(makeButton("save", () => savePicture(drawing.parentElement)));
    const listeners = {
      pointermove: point,
      pointerdown: touch,
      pointerleave: () => mark || leave(),
      keydown: walk,
      focusout: () => drawing.contains(mark) && leave(),
    };
    for (const [name, listener] of Object.entries(listeners)) drawing.addEventListener(name, listener);
    naming.observe(drawing);
  };

  // A tip beside a mark goes with it, one by the pointer goes away.
  addEventListener("scroll", () => { mark ? showBeside() : leave(); }, { passive: true, capture: true });

  // ---- Frames

  const setStop = (frame) => {
    const scrolls = frame.scrollWidth > frame.clientWidth || frame.scrollHeight > frame.clientHeight;
    give(frame, scrolls ? { tabindex: 0, "aria-label": frame.dataset.label } : { tabindex: null, "aria-label": null });
  };

  const frames = all(".scroll");
  const resizing = new ResizeObserver((changes) => changes.forEach((change) => setStop(change.target)));
  for (const frame of frames) {
    frame.dataset.label = frame.getAttribute("aria-label");
    addCopyButton(frame.parentElement);
    resizing.observe(frame);
  }
  all(".drawing").forEach(enliven);
  document.body.append(tip, status);

  // An A4 page between its margins, in pixels at the size of printed text.
  const paper = 680;
  const printed = 10 * 96 / 72 / 16;
  addEventListener("beforeprint", () => {
    for (const frame of frames) {
      const width = frame.firstElementChild.offsetWidth * printed;
      frame.style.zoom = Math.min(1, paper / width);
    }
  });
  addEventListener("afterprint", () => frames.forEach((frame) => { frame.style.zoom = ""; }));

  // ---- Contents: a link opens the section that it leads to, and one of them tells where the reader is.

  const unfold = () => all("details:has(:target), :target > .fold").forEach((fold) => { fold.open = true; });
  addEventListener("hashchange", unfold);
  unfold();

  const nav = document.querySelector("nav");
  const links = all("nav a");
  const places = links.map(({ hash }) => document.getElementById(hash.slice(1)));
  const seen = new Set();
  const reading = new IntersectionObserver((changes) => {
    for (const { target, isIntersecting } of changes) seen[isIntersecting ? "add" : "delete"](target);
    const link = links[places.findLastIndex((place) => seen.has(place))];
    const current = nav.querySelector("[aria-current]");
    if (!link || link === current) return;
    if (current) give(current, { "aria-current": null });
    give(link, { "aria-current": "true" });
    nav.scrollTop = link.offsetTop - nav.clientHeight / 2;
  }, { rootMargin: "0px 0px -70%" });
  for (const place of places) reading.observe(place);

  if (matchMedia("(max-width: 40rem)").matches) document.querySelector("nav details")?.removeAttribute("open");
})();
