// The one tip.

import { make } from "../shared/elements.js";

export const tip = make("div", "tip");
tip.hidden = true;
document.body.append(tip);
const gap = 12;  // between the pointer and the tip

export const showTip = (text, x, y) => {
  tip.textContent = text;
  tip.hidden = false;
  const { offsetWidth: width, offsetHeight: height } = tip;
  const right = document.documentElement.clientWidth;
  const left = x + gap + width > right ? x - gap - width : x + gap;
  const top = y + gap + height > innerHeight ? y - gap - height : y + gap;
  tip.style.left = `${Math.max(0, Math.min(left, right - width))}px`;
  tip.style.top = `${Math.max(0, top)}px`;
};
