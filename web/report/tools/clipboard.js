// Copying.

import { words } from "../shared/elements.js";

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

export const copy = async (text, html) => {
  const contents = { ...html && { "text/html": html }, "text/plain": text };
  return words[copyByEvent(contents) || await copyByClipboard(contents) ? "copied" : "notCopied"];
};
