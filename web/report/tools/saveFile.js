// Saving.

import { make } from "../shared/elements.js";

export const saveFile = (figure, ending, type, content) => {
  const href = URL.createObjectURL(new Blob([content], { type }));
  Object.assign(make("a"), { href, download: `${figure.closest("[id]").id}.${ending}` }).click();
  setTimeout(() => URL.revokeObjectURL(href), 60_000);
};
