// Pictures as files.

import { all, give, make, words } from "../shared/elements.js";
import { saveFile } from "../tools/saveFile.js";
import { marksIn, unname } from "./marks.js";

// The picture as it would be on paper: its colours are attributes, and only the page's style makes dark ones of them.
export const asSvg = (figure) => {
  const picture = figure.querySelector(".desk").cloneNode(true);
  picture.removeAttribute("class");
  for (const element of all(".on, .at", picture)) element.classList.remove("on", "at");
  const addFirst = (parent, name, text, attributes = {}) => {
    const element = document.createElementNS(picture.namespaceURI, name);
    element.textContent = text;
    give(element, attributes);
    parent.prepend(element);
  };
  for (const mark of marksIn(picture)) {
    addFirst(mark, "title", mark.getAttribute("aria-label"));
    unname(mark);
  }
  addFirst(picture, "rect", "", { width: "100%", height: "100%", fill: "#ffffff" });
  addFirst(picture, "desc", document.getElementById(`${figure.id}-sentence`)?.textContent ?? "");
  addFirst(picture, "title", figure.querySelector(".title").textContent);
  return new XMLSerializer().serializeToString(picture);
};

// Two pixels to each of the page, if a browser draws that much. The page's policy takes images from data alone.
export const savePng = async (figure) => {
  const image = new Image();
  image.src = `data:image/svg+xml,${encodeURIComponent(asSvg(figure))}`;
  try {
    await image.decode();
    const { width, height } = image;
    const scale = Math.min(2, 2 ** 12 / Math.sqrt(width * height));
    const canvas = Object.assign(make("canvas"), { width: width * scale, height: height * scale });
    canvas.getContext("2d").drawImage(image, 0, 0, canvas.width, canvas.height);
    const content = await new Promise((done) => { canvas.toBlob(done); });
    return content ? saveFile(figure, "png", "image/png", content) : words.notSaved;
  } catch {
    return words.notSaved;
  }
};
