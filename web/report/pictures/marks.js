// A mark of a picture has a name, which is its tip, and keys; what shares a key goes together. An entry of a legend has
// the keys that it explains.

import { all, give } from "../shared/elements.js";

export const marksIn = (picture) => all("[role=img]", picture);

export const unname = (element) => give(element, { role: null, "aria-label": null });

// Without this script a mark's name is its title. Of very many marks a title is what the dots of their group stand for.
export const labelMarks = (drawing) => {
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
export const nameMarks = (drawing) => {
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
