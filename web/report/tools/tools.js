// A button for what is done most, and one beside it for a menu of all.

import { make, words } from "../shared/elements.js";
import { makeButton, tell } from "./buttons.js";
import { leaveMenu, openMenu } from "./menu.js";

export const makeTools = (name, actions) => {
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
