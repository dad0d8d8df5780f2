// One bundle for both: in a page it draws the charts, elsewhere it offers to make pictures of them.
import { drawPage } from "./page.js";
import { drawPicture } from "./picture.js";

if (typeof document === "undefined") globalThis.drawPicture = drawPicture;
else drawPage();
