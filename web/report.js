// What a page can do beyond being read: tables are copied, pictures saved, frames that need not scroll are no stops for the
// keyboard, and wide tables shrink to the paper. Nothing here is needed to read a report.
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

  // The picture as it would be on paper: its colours are attributes, and only the page's style makes dark ones of them.
  const savePicture = (figure) => {
    const picture = figure.querySelector(".drawing :is(svg, canvas)");
    if (picture.localName === "canvas") return picture.toBlob((image) => saveFile(`${figure.id}.png`, image));
    const text = new XMLSerializer().serializeToString(picture);
    saveFile(`${figure.id}.svg`, new Blob([text], { type: "image/svg+xml" }));
  };

  const addSaveButton = (drawing) => drawing.after(makeButton("save", () => savePicture(drawing.parentElement)));

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
  document.querySelectorAll(".drawing").forEach(addSaveButton);
  document.body.append(status);

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
