// Setting off what belongs together.

import { all } from "../shared/elements.js";

let lit = [];

export const dim = () => {
  for (const element of lit) element.classList.remove("lit", "on");
  lit = [];
};

// What all of very many marks have is their group's.
const keysOf = (element) => [element, element.parentElement.closest("[data-k]")]
  .flatMap((one) => (one?.dataset.k ?? one?.dataset.e ?? "").split(" ")).filter(Boolean);

// An entry lights what it explains; a mark what it is tied to, but not all that a legend takes for the same.
export const light = (element) => {
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
