// What a page can do beyond being read: tables are copied, pictures saved, their marks tell what they are, frames that need
// not scroll are no stops for the keyboard, and wide tables shrink to the paper. Nothing here is needed to read a report.
"use strict";
(() => {
  const words = document.body.dataset;
  const markup = { "&": "&amp;", "<": "&lt;", ">": "&gt;", "\"": "&quot;" };
  const escape = (text) => text.replace(/[&<>"]/g, (character) => markup[character]);

  // The content of an element as HTML of its own: texts, line breaks and raised letters, without links and classes.
  const contentOf = (element) => Array.from(element.childNodes, (node) => {
    if (node.nodeType === Node.TEXT_NODE) return escape(node.data);
    if (node.localName === "br") return "<br>";
    return node.localName === "sup" ? `<sup>${contentOf(node)}</sup>` : contentOf(node);
  }).join("");

  // The content as one line of plain text, without note letters.
  const lineOf = (element) => Array.from(element.childNodes, (node) => {
    if (node.nodeType === Node.TEXT_NODE) return node.data;
    if (node.localName === "br") return " ";
    return node.localName === "sup" ? "" : lineOf(node);
  }).join("").replace(/\s+/g, " ").trim();

  const rule = "1px solid #000";
  const styleOf = (cell, isFirst, isLast) => {
    const { textAlign } = getComputedStyle(cell);
    const isHead = Boolean(cell.closest("thead"));
    return `padding:2px 6px;text-align:${textAlign};vertical-align:${isHead ? "bottom" : "top"};`
      + `font-weight:${isHead ? "bold" : "normal"}`
      + (isFirst ? `;border-top:${rule}` : "") + (isLast ? `;border-bottom:${rule}` : "");
  };

  const cellAsHtml = (cell, isFirst, isLast) => {
    const spans = (cell.colSpan > 1 ? ` colspan="${cell.colSpan}"` : "")
      + (cell.rowSpan > 1 ? ` rowspan="${cell.rowSpan}"` : "");
    const { localName } = cell;
    return `<${localName}${spans} style="${styleOf(cell, isFirst, isLast)}">${contentOf(cell)}</${localName}>`;
  };

  // The rule below a section of rows belongs to every cell that reaches its end.
  const sectionAsHtml = (section, isTop, isBottom) => {
    const { rows } = section;
    const lines = Array.from(rows, (row, index) => {
      const cells = Array.from(row.cells, cell =>
        cellAsHtml(cell, isTop && index === 0, isBottom && index + cell.rowSpan >= rows.length));
      return `<tr>${cells.join("")}</tr>`;
    });
    return `<${section.localName}>${lines.join("")}</${section.localName}>`;
  };

  const tableAsHtml = (table) => {
    const sections = table.querySelectorAll("thead, tbody");
    const last = sections.length - 1;
    const parts = Array.from(sections, (section, index) =>
      sectionAsHtml(section, index === 0, index === last || section.localName === "thead"));
    return `<table style="border-collapse:collapse">${parts.join("")}</table>`;
  };

  const figureAsHtml = (figure) => {
    const table = figure.querySelector("table");
    const notes = Array.from(figure.querySelectorAll("figcaption p"), (note) => `<p>${contentOf(note)}</p>`);
    return `<p><b>${contentOf(table.caption)}</b></p>${tableAsHtml(table)}${notes.join("")}`;
  };

  // Each row has a field for each column. Of several columns a cell stands in the first; of several rows in the first, too,
  // but a header of columns in the last, right above its data.
  const tableAsText = (table) => {
    const lines = [];
    Array.from(table.rows, (row, index) => {
      const fields = lines[index] ??= [];
      let column = 0;
      for (const cell of row.cells) {
        while (fields[column] !== undefined) ++column;
        for (let below = 0; below < cell.rowSpan; ++below) {
          const line = lines[index + below] ??= [];
          for (let beside = 0; beside < cell.colSpan; ++beside) line[column + beside] = "";
        }
        const place = row.parentElement.localName === "thead" ? index + cell.rowSpan - 1 : index;
        lines[place][column] = lineOf(cell);
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

  // Pages opened from a disk may lack the clipboard, and browsers apply the page's policy, which allows no styles, to what
  // they put there. So it comes second, for browsers that raise the event with a selection only.
  const copyByClipboard = async (html, text) => {
    const asBlob = (type, content) => new Blob([content], { type });
    try {
      await navigator.clipboard.write([new ClipboardItem({
        "text/html": asBlob("text/html", html),
        "text/plain": asBlob("text/plain", text),
      })]);
      return true;
    } catch {
      return false;
    }
  };

  const status = document.createElement("div");
  status.className = "unseen";
  status.setAttribute("role", "status");

  const tell = (button, word) => {
    button.textContent = status.textContent = word;
    clearTimeout(button.timer);
    button.timer = setTimeout(() => {
      button.textContent = words.copy;
      status.textContent = "";
    }, 2000);
  };

  const makeButton = (name, act) => {
    const button = document.createElement("button");
    button.type = "button";
    button.className = name;
    button.textContent = words[name];
    button.addEventListener("click", () => act(button));
    return button;
  };

  const addCopyButton = (figure) => {
    figure.prepend(makeButton("copy", async (button) => {
      const html = figureAsHtml(figure);
      const text = tableAsText(figure.querySelector("table"));
      const isCopied = copyByEvent(html, text) || await copyByClipboard(html, text);
      tell(button, isCopied ? words.copied : words.notCopied);
    }));
  };

  const saveFile = (name, content) => {
    const link = document.createElement("a");
    link.href = URL.createObjectURL(content);
    link.download = name;
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
  };

  // ---- Pictures. A mark has a name, which is its tip, and keys; what shares a key goes together. An entry of a legend has
  // the keys that it explains.

  const marksIn = (picture) => picture.querySelectorAll("[role=img]");

  const unname = (element) => ["role", "aria-label"].forEach((name) => element.removeAttribute(name));

  // Without this script a mark's name is its title.
  const labelMarks = (drawing) => drawing.querySelectorAll("svg title").forEach((title) => {
    const mark = title.parentElement;
    mark.setAttribute("role", "img");
    mark.setAttribute("aria-label", title.textContent);
    title.remove();
  });

  // The layout for a phone has the marks of the other one, in the same order, and takes names and keys from them.
  const nameMarks = (drawing) => {
    const phone = drawing.querySelector(".phone[role]");
    if (!phone?.getClientRects().length) return;
    const named = marksIn(drawing.querySelector(".desk"));
    const marks = phone.querySelectorAll(".m");
    if (named.length !== marks.length) return;
    unname(phone);
    marks.forEach((mark, place) => {
      for (const name of ["role", "aria-label", "data-k"]) {
        const value = named[place].getAttribute(name);
        if (value !== null) mark.setAttribute(name, value);
      }
    });
  };

  // The picture as it would be on paper: its colours are attributes, and only the page's style makes dark ones of them.
  const savePicture = (figure) => {
    const picture = figure.querySelector(".desk").cloneNode(true);
    picture.removeAttribute("class");
    for (const element of picture.querySelectorAll(".on, .at")) element.classList.remove("on", "at");
    const addFirst = (parent, name, text, attributes = {}) => {
      const element = document.createElementNS(picture.namespaceURI, name);
      element.textContent = text;
      for (const [attribute, value] of Object.entries(attributes)) element.setAttribute(attribute, value);
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

  const tip = document.createElement("div");
  tip.className = "tip";
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

  const keysOf = ({ dataset }) => (dataset.k ?? dataset.e ?? "").split(" ").filter(Boolean);

  // An entry lights what it explains; a mark what it is tied to, but not all that a legend takes for the same.
  const light = (element) => {
    if (lit.includes(element)) return;
    dim();
    const picture = element.ownerSVGElement;
    const entries = Array.from(picture.querySelectorAll("[data-e]"));
    const isEntry = entries.includes(element);
    const explained = new Set(isEntry ? [] : entries.flatMap(keysOf));
    const keys = keysOf(element).filter((key) => !explained.has(key));
    if (keys.length === 0) return;
    const together = Array.from(picture.querySelectorAll(keys.map((key) => `[data-k~="${key}"]`).join()));
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
    const marks = Array.from(marksIn(picture));
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
    if (scrolls) {
      frame.tabIndex = 0;
      frame.setAttribute("aria-label", frame.dataset.label);
    } else {
      for (const name of ["tabindex", "aria-label"]) frame.removeAttribute(name);
    }
  };

  const frames = document.querySelectorAll(".scroll");
  const resizing = new ResizeObserver((changes) => changes.forEach((change) => setStop(change.target)));
  for (const frame of frames) {
    frame.dataset.label = frame.getAttribute("aria-label");
    addCopyButton(frame.parentElement);
    resizing.observe(frame);
  }
  document.querySelectorAll(".drawing").forEach(enliven);
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

  if (matchMedia("(max-width: 40rem)").matches) document.querySelector("nav details")?.removeAttribute("open");
})();
