// The one menu, which goes where it is opened.

import { give, make, words } from "../shared/elements.js";
import { makeButton, tell } from "./buttons.js";

const menu = make("div", "menu");
give(menu, { role: "menu", tabindex: -1, "aria-label": words.more });

// To remove what has the focus moves the focus, which closes the menu once more: what is said first ends that.
export const closeMenu = () => {
  const button = menu.previousSibling;
  if (button?.getAttribute("aria-expanded") !== "true") return;
  give(button, { "aria-expanded": false });
  menu.remove();
};

// Focus goes back before the menu goes, or it would be lost.
export const leaveMenu = () => {
  menu.previousSibling.focus();
  closeMenu();
};

export const openMenu = (button, actions) => {
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
