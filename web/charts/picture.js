// Static pictures, for where there is no page: a view's JSON becomes the text of an SVG image.
import { makeView } from "./view.js";

/** Hands the picture of a view, given as JSON text, to `take`, or says to `fail` why there is none. */
export function drawPicture(json, take, fail) {
  Promise.resolve(json).then(JSON.parse).then(makeView).then((view) => view.toSVG())
    .then(take, (error) => fail(String(error)));
}
