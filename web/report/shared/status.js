// What is read out.

import { give, make } from "./elements.js";

export const status = make("div", "unseen");
give(status, { role: "status" });
document.body.append(status);

export const say = (text) => {
  clearTimeout(status.timer);
  status.textContent = text;
};
