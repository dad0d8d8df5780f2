// What a page can do beyond being read.
"use strict";
(() => {
  const words = document.body.dataset;
  const isMirrored = document.documentElement.dir === "rtl";
  const all = (selector, root = document) => Array.from(root.querySelectorAll(selector));
  const give = (element, attributes) => Object.entries(attributes).forEach(([name, value]) => {
    if (value === null) element.removeAttribute(name);
    else element.setAttribute(name, value);
  });

  const isShown = (element) => getComputedStyle(element).display !== "none";
  // A figure's minus becomes that of a keyboard, so that programs know a number.
  const asTyped = (text) => text.replace(/(^|\()\u2212(?=[\d.])/, "$1-");

  const notesOf = (figure) => all("figcaption p:not(.switch)", figure).filter(isShown);

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

  // What a copy needs of a style, in words that all programs know.
  const pick = ({ display, direction, textAlign }) =>
    ({ display, direction, textAlign: textAlign !== "start" ? textAlign : isMirrored ? "right" : "left" });

  // What is shown of an element, with styles of its own.
  const copyOf = (element) => {
    const copy = element.cloneNode(true);
    const originals = all("*", element).map((original) => getComputedStyle(original));
    const styled = all("*", copy).map((part, index) => ({ part, ...pick(originals[index]) }));
    for (const { part, display } of styled) {
      if (display === "none" || part.matches("caption, colgroup")) part.remove();
      else if (part.matches("a, bdi:not([dir]), span")) part.replaceWith(...part.childNodes);
    }
    for (const { part, textAlign, direction } of styled) {
      for (const name of part.getAttributeNames()) if (!/span$|^dir$/.test(name)) part.removeAttribute(name);
      if (!part.matches("th, td") || !copy.contains(part)) continue;
      part.style.cssText = styleOf(part, textAlign);
      if (isMirrored && direction === "ltr") part.dir = direction;
      const text = part.firstChild;
      if (text?.data) text.data = asTyped(text.data);
    }
    return copy;
  };

  const copyRich = (figure) => {
    const table = copyOf(figure.querySelector("table"));
    table.style.borderCollapse = "collapse";
    const html = `<p><b>${copyOf(figure.querySelector("caption")).innerHTML}</b></p>${table.outerHTML}`
      + notesOf(figure).map((note) => `<p>${copyOf(note).innerHTML}</p>`).join("");
    return isMirrored ? `<div dir="rtl">${html}</div>` : html;
  };

  // ---- Tables as text. A spelling says how a format has a text, the end of a line and the letter of a note.

  const whole = { text: (text) => text, line: "\n", letter: () => "" };
  const markdown = {
    text: (text) => text.replace(/[\\`*_[\]<>|~$&]/g, "\\$&"),
    line: "<br>",
    letter: (letter) => `<sup>${letter}</sup>`,
  };
  const signs = { "\\": "\\textbackslash{}", "~": "\\textasciitilde{}", "^": "\\textasciicircum{}", "\"": "\\char34{}",
    "<": "$<$", ">": "$>$", "|": "$|$", "\u2212": "$-$", "\u2013": "--", "-": "-{}" };
  const latex = {
    text: (text) => text.replace(/[\\~^<>|"\u2212\u2013#$%&_{}]|-(?=-)/g, (sign) => signs[sign] ?? `\\${sign}`),
    line: " ",
    letter: (letter) => `\\textsuperscript{${letter}}`,
  };

  const spell = (element, spelling) => Array.from(element.childNodes, (node) => {
    if (node.localName === "br") return spelling.line;
    if (node.localName === "sup") return node.textContent.split(", ").map(spelling.letter).join("");
    return node.data === undefined ? spell(node, spelling) : spelling.text(node.data);
  }).join("");
  const wordsOf = (cell, spelling) => spell(cell, { ...spelling, letter: whole.letter });
  const lettersOf = (cell, spelling) => spell({ childNodes: all("sup", cell) }, spelling);

  // The cell in each place of the rows that are shown.
  const gridOf = (section) => {
    const rows = Array.from(section?.rows ?? []);
    const grid = rows.map(() => []);
    rows.forEach((row, index) => {
      let column = 0;
      for (const cell of row.cells) {
        while (grid[index][column]) ++column;
        for (const line of grid.slice(index, index + cell.rowSpan)) {
          for (let beside = 0; beside < cell.colSpan; ++beside) line[column + beside] = cell;
        }
      }
    });
    return grid.filter((line, index) => isShown(rows[index]));
  };

  const readTable = (figure) => {
    const { caption, tHead, tBodies, dataset: { fields } } = figure.querySelector("table");
    const groups = Array.from(tBodies, gridOf).filter((grid) => grid.length);
    const rows = groups.flat();
    const levels = rows.reduce((most, row) => Math.max(most, row.findLastIndex((cell) => cell.matches("th")) + 1), 0);
    const areTexts = rows[0].map((cell, column) => column < levels || rows.some((row) => row[column].matches(".t")));
    return { title: caption.firstChild, head: gridOf(tHead), groups, rows, levels, areTexts, fields, notes: notesOf(figure) };
  };

  const asLines = (list, end = "\n") => list.map((line) => line + end).join("");
  const isHeader = (cell) => cell.closest("thead");

  // As rows are laid out, what is several rows high stands in the first, a header in the last, right above its data.
  const layOut = (grid, divider, write) => grid.map((row, index) => row.flatMap((cell, column) => {
    if (cell === row[column - 1]) return [];
    const words = cell === grid[index + (isHeader(cell) ? 1 : -1)]?.[column] ? "" : write(cell);
    return [words || divider.repeat(cell.colSpan - 1)];
  }).join(divider));

  const asText = ({ head, groups }) => asLines([head, ...groups].flatMap((grid) => layOut(grid, "\t", (cell) => {
    const words = asTyped(spell(cell, whole).replace(/\s+/g, " ").trim());
    return words && words + "\t".repeat(cell.colSpan - 1);
  })));

  // Where nothing spans: names from the outermost inwards, labels in every row.
  const nameColumns = ({ head, rows, levels }, spelling) => rows[0].map((first, column) => {
    const cells = Array.from(new Set(head.map((row) => row[column])));
    const name = cells.map((cell) => wordsOf(cell, spelling)).filter(Boolean).join(", ");
    const level = name && column < levels ? column - head.at(-1).indexOf(cells.at(-1)) : 0;
    return name + (level ? ` ${level + 1}` : "") + cells.map((cell) => lettersOf(cell, spelling)).join("");
  });
  const spellRows = (rows, write) =>
    rows.map((row) => row.map((cell, column) => (cell === row[column - 1] ? "" : write(cell))));

  const asMarkdown = (table) => {
    const line = (fields) => `| ${fields.join(" | ")} |`;
    const begin = /^(\d+(?=[.)])|(?=[-+=:#]))/;  // of a list, a rule or a heading
    return asLines([
      `**${spell(table.title, markdown)}**\n`,
      line(nameColumns(table, markdown)),
      `|${asLines(table.areTexts.map((isText) => (isText ? ":---" : "---:")), "|")}`,
      ...spellRows(table.rows, (cell) => spell(cell, markdown)).map(line),
      ...table.notes.map((note) => `\n${spell(note, markdown).replace(begin, "$1\\")}`),
    ]);
  };

  const asLatex = ({ title, head, groups, areTexts, notes }) => {
    const write = (cell) => {
      const { pad } = cell.dataset;
      const letters = lettersOf(cell, latex);
      const words = wordsOf(cell, latex) + (letters && cell.matches("td:not(.t)") ? `\\rlap{${letters}}` : letters)
        + (pad ? `\\phantom{${latex.text(pad)}}` : "");
      if (!words || cell.colSpan === 1) return words;
      return `\\multicolumn{${cell.colSpan}}{${isHeader(cell) ? "c" : "l"}}{${words}}`;
    };
    // What begins a line must not be taken for an option of the end of the one before.
    const lay = (grid) => layOut(grid, " & ", write).map((line) => `${line.replace(/^[[*]/, "{$&}")} \\\\`);
    const underline = (row, next) => row.map((cell, column) =>
      (cell.scope === "colgroup" && cell !== row[column - 1] && cell !== next?.[column] && next
        ? `\\cmidrule(lr){${column + 1}-${column + cell.colSpan}}` : "")).join("");
    return asLines([
      `% \\usepackage{booktabs}${areTexts.length > 8 ? "; wide: \\small, or landscape of pdflscape" : ""}`,
      "\\begin{table}\n\\centering",
      `\\caption{${spell(title, latex)}}`,
      `\\begin{tabular}{${areTexts.map((isText) => (isText ? "l" : "r")).join("")}}\n\\toprule`,
      ...lay(head).flatMap((line, index) => [line, underline(head[index], head[index + 1])]),
      head.length ? "\\midrule" : "",
      groups.map((grid) => lay(grid).join("\n")).join("\n\\addlinespace\n"),
      "\\bottomrule\n\\end{tabular}",
      notes.length ? "\\par\\smallskip\\footnotesize" : "",
      ...notes.map((note) => `${spell(note, latex)}\\par`),
      "\\end{table}",
    ].filter(Boolean));
  };

  // A figure has all its digits where the page knows more than it shows; a missing one is an empty field. Names and labels
  // that are not shown stand ready as fields.
  const asCsv = (table) => {
    const { fields, rows, levels } = table;
    const write = (cell) => {
      const words = wordsOf(cell, whole);
      if (cell.localName === "th") return asTyped(words).replace(" \u2013 ", " - ");  // between levels that are compared
      return cell.dataset.value ?? (words === "." ? "" : asTyped(words));
    };
    const quote = (field) => (/[",\r\n]/.test(field) ? `"${field.replaceAll("\"", "\"\"")}"` : field);
    const records = spellRows(rows, write).map((record, index) => {
      const labels = rows[index].at(-1).parentElement.dataset.fields;
      const known = record.map(quote);
      return (labels === undefined ? known : [labels, ...known.slice(levels)]).join() || "\"\"";
    });
    return asLines([fields ?? nameColumns(table, whole).map(quote).join(), ...records]);
  };

  // ---- Copying and saving

  // The event that every copying raises takes what it is given as it is. It takes contents by their type.
  const copyByEvent = (contents) => {
    const fill = (event) => {
      for (const [type, content] of Object.entries(contents)) event.clipboardData.setData(type, content);
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
  const copyByClipboard = async (contents) => {
    const blobs = Object.entries(contents).map(([type, content]) => [type, new Blob([content], { type })]);
    try {
      await navigator.clipboard.write([new ClipboardItem(Object.fromEntries(blobs))]);
      return true;
    } catch {
      return false;
    }
  };

  const copy = async (text, html) => {
    const contents = { ...html && { "text/html": html }, "text/plain": text };
    return words[copyByEvent(contents) || await copyByClipboard(contents) ? "copied" : "notCopied"];
  };

  const make = (name, className = "") => Object.assign(document.createElement(name), { className });
  const status = make("div", "unseen");
  give(status, { role: "status" });
  const say = (text) => {
    clearTimeout(status.timer);
    status.textContent = text;
  };

  // A button keeps its width while it tells what became of it.
  const tell = (button, word) => {
    if (!word) return;
    button.style.minWidth = `${button.offsetWidth}px`;
    button.textContent = word;
    clearTimeout(button.timer);
    button.timer = setTimeout(() => { button.textContent = words[button.className]; }, 2000);
    say(word);
    status.timer = setTimeout(() => say(""), 2000);
  };

  const makeButton = (className, act, attributes, textContent = "") => {
    const button = Object.assign(make("button", className), { type: "button", textContent });
    give(button, attributes);
    button.addEventListener("click", act);
    return button;
  };

  // ---- A button for what is done most, and one beside it for a menu of all. The one menu goes where it is opened.

  const menu = make("div", "menu");
  give(menu, { role: "menu", tabindex: -1, "aria-label": words.more });

  // To remove what has the focus moves the focus, which closes the menu once more: what is said first ends that.
  const closeMenu = () => {
    const button = menu.previousSibling;
    if (button?.getAttribute("aria-expanded") !== "true") return;
    give(button, { "aria-expanded": false });
    menu.remove();
  };

  // Focus goes back before the menu goes, or it would be lost.
  const leaveMenu = () => {
    menu.previousSibling.focus();
    closeMenu();
  };

  const openMenu = (button, actions) => {
    closeMenu();
    menu.replaceChildren(...Object.entries(actions).map(([name, act]) => makeButton("", async () => {
      leaveMenu();
      tell(button.previousSibling, await act());
    }, { role: "menuitem", tabindex: -1 }, words[name])));
    button.after(menu);
    give(button, { "aria-expanded": true });
    menu.firstChild.focus();
  };

  menu.addEventListener("keydown", (event) => {
    const { key } = event;
    const items = Array.from(menu.children);
    const place = items.indexOf(document.activeElement);
    const next = { ArrowDown: (place + 1) % items.length, ArrowUp: place - 1, Home: 0, End: -1 }[key];
    if (key === "Tab" || key === "Escape") leaveMenu();
    if (next === undefined) return;
    event.preventDefault();
    items.at(next).focus();
  });
  menu.addEventListener("focusout", ({ relatedTarget }) => {
    if (relatedTarget !== menu.previousSibling && !menu.contains(relatedTarget)) closeMenu();
  });

  const makeTools = (name, actions) => {
    const tools = make("div", "tools");
    const button = makeButton(name, async () => tell(button, await Object.values(actions)[0]()), {}, words[name]);
    const more = makeButton("more", () => (more.nextSibling ? leaveMenu() : openMenu(more, actions)),
      { "aria-label": words.more, "aria-haspopup": "menu", "aria-expanded": false, tabindex: 0 });
    more.addEventListener("keydown", (event) => {
      if (event.key !== "ArrowDown") return;
      event.preventDefault();
      openMenu(more, actions);
    });
    tools.append(button, more);
    return tools;
  };

  const saveFile = (figure, ending, type, content) => {
    const href = URL.createObjectURL(new Blob([content], { type }));
    Object.assign(make("a"), { href, download: `${figure.closest("[id]").id}.${ending}` }).click();
    setTimeout(() => URL.revokeObjectURL(href), 60_000);
  };

  const addTableTools = (figure) => {
    const copyAs = (write) => () => copy(write(readTable(figure)));
    figure.prepend(makeTools("copy", {
      asTable: () => copy(asText(readTable(figure)), copyRich(figure)),
      asMarkdown: copyAs(asMarkdown),
      asLatex: copyAs(asLatex),
      asCsv: copyAs(asCsv),
      csv: () => saveFile(figure, "csv", "text/csv", asCsv(readTable(figure))),
    }));
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
  const asSvg = (figure) => {
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
    return new XMLSerializer().serializeToString(picture);
  };

  // Two pixels to each of the page, if a browser draws that much. The page's policy takes images from data alone.
  const savePng = async (figure) => {
    const image = new Image();
    image.src = `data:image/svg+xml,${encodeURIComponent(asSvg(figure))}`;
    try {
      await image.decode();
      const { width, height } = image;
      const scale = Math.min(2, 2 ** 12 / Math.sqrt(width * height));
      const canvas = Object.assign(make("canvas"), { width: width * scale, height: height * scale });
      canvas.getContext("2d").drawImage(image, 0, 0, canvas.width, canvas.height);
      const content = await new Promise((done) => { canvas.toBlob(done); });
      return content ? saveFile(figure, "png", "image/png", content) : words.notSaved;
    } catch {
      return words.notSaved;
    }
  };

  const makeChartTools = (figure) => {
    const values = all(".values", figure);
    return makeTools("save", {
      svg: () => saveFile(figure, "svg", "image/svg+xml", asSvg(figure)),
      png: () => savePng(figure),
      ...values.length && { values: () => copy(values.map((one) => asCsv(readTable(one))).join("\n")) },
    });
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

  // What the keyboard or a finger is at, and what the pointer is at.
  let mark = null;
  let hovered = null;
  let leaving;
  const stay = () => { leaving = clearTimeout(leaving); };
  const leave = () => {
    stay();
    mark?.classList.remove("at");
    mark = hovered = null;
    tip.hidden = true;
    dim();
  };

  // The pointer has time to go from a mark to its tip, which stays as long as it is there.
  const leaveSoon = () => { if (!mark) leaving ??= setTimeout(leave, 300); };
  tip.addEventListener("pointerenter", stay);
  tip.addEventListener("pointerleave", leaveSoon);

  const showBeside = () => {
    const { left, top, width, height } = mark.getBoundingClientRect();
    showTip(mark.getAttribute("aria-label") ?? mark.textContent, left + width / 2, top + height / 2);
  };

  const goTo = (next) => {
    leave();
    mark = next;
    mark.classList.add("at");
    mark.scrollIntoView({ block: "nearest", inline: "nearest" });
    showBeside();
    light(mark);
    say(tip.textContent);
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
    if (mark) leave();
    if (!found) return leaveSoon();
    stay();
    if (found === hovered) return;
    hovered = found;
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

  // With Shift the way leads through the legend.
  const walk = (event) => {
    const step = { ArrowRight: 1, ArrowDown: 1, ArrowLeft: -1, ArrowUp: -1 }[event.key];
    if (!step || event.ctrlKey || event.altKey || event.metaKey) return;
    const picture = Array.from(event.currentTarget.children).find((one) => one.getClientRects().length);
    const marks = event.shiftKey ? all("[data-e]", picture) : marksIn(picture);
    if (marks.length === 0) return;
    event.preventDefault();
    const place = marks.indexOf(mark);
    goTo(marks.at((place < 0 && step < 0 ? -1 : place + step) % marks.length));
  };

  const naming = new ResizeObserver((changes) => changes.forEach(({ target }) => nameMarks(target)));
  const enliven = (drawing) => {
    labelMarks(drawing);
    drawing.tabIndex = 0;
    give(drawing, { "aria-description": words.way });
    drawing.after(makeChartTools(drawing.parentElement));
    const listeners = {
      pointermove: point,
      pointerdown: touch,
      pointerleave: leaveSoon,
      keydown: walk,
      focusout: () => drawing.contains(mark) && leave(),
    };
    for (const [name, listener] of Object.entries(listeners)) drawing.addEventListener(name, listener);
    naming.observe(drawing);
  };

  // What is left by the keyboard while the pointer is there is left until that goes elsewhere.
  addEventListener("keydown", ({ key }) => {
    if (key !== "Escape") return;
    const left = hovered;
    leave();
    hovered = left;
  });

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
    addTableTools(frame.parentElement);
    resizing.observe(frame);
  }
  all(".drawing").forEach(enliven);
  document.body.append(tip, status);

  // An A4 page between its margins, in pixels at the size of printed text.
  const paper = 680;
  const printed = 10 * 96 / 72 / 16;
  addEventListener("beforeprint", () => {
    closeMenu();
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
