// Contents: a link opens the section that it leads to, and one of them tells where the reader is.

import { all, give } from "../shared/elements.js";

const unfold = () => all("details:has(:target), :target > .fold").forEach((fold) => { fold.open = true; });
addEventListener("hashchange", unfold);
unfold();

const nav = document.querySelector("nav");
const links = all("nav a");
const places = links.map(({ hash }) => document.getElementById(hash.slice(1)));
const seen = new Set();
const reading = new IntersectionObserver((changes) => {
  for (const { target, isIntersecting } of changes) seen[isIntersecting ? "add" : "delete"](target);
  const link = links[places.findLastIndex((place) => seen.has(place))];
  const current = nav.querySelector("[aria-current]");
  if (!link || link === current) return;
  if (current) give(current, { "aria-current": null });
  give(link, { "aria-current": "true" });
  nav.scrollTop = link.offsetTop - nav.clientHeight / 2;
}, { rootMargin: "0px 0px -70%" });
for (const place of places) reading.observe(place);

if (matchMedia("(max-width: 40rem)").matches) document.querySelector("nav details")?.removeAttribute("open");
