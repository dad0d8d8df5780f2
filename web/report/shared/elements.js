// Finding, making and describing elements.

export const words = document.body.dataset;
export const isMirrored = document.documentElement.dir === "rtl";
export const all = (selector, root = document) => Array.from(root.querySelectorAll(selector));
export const give = (element, attributes) => Object.entries(attributes).forEach(([name, value]) => {
  if (value === null) element.removeAttribute(name);
  else element.setAttribute(name, value);
});

export const make = (name, className = "") => Object.assign(document.createElement(name), { className });
export const isShown = (element) => getComputedStyle(element).display !== "none";
