// Pages as readers set them: dark, narrow or enlarged, with words further apart, by the keyboard alone.

const sizes = { desk: { width: 1280, height: 900 }, phone: { width: 360, height: 740 },
  enlarged: { width: 320, height: 256 } };

/** Lets what was done be drawn. */
const settle = (page) =>
  page.evaluate(() => new Promise((done) => { requestAnimationFrame(() => requestAnimationFrame(done)); }));

/** No finding of axe, with a menu open. The dark differs by its colours alone. */
async function checkByAxe(page, axeSource) {
  await page.evaluate(axeSource);
  await page.evaluate(() => {  // what is out of sight has no places of its own yet
    for (const figure of document.querySelectorAll("figure")) figure.style.contentVisibility = "visible";
  });
  const faults = [];
  for (const [size, place] of [["desk", 0], ["phone", -1]]) {
    await page.setViewportSize(sizes[size]);
    await settle(page);
    await page.locator(".more").filter({ visible: true }).nth(place).click();
    for (const colorScheme of ["light", "dark"]) {
      await page.emulateMedia({ colorScheme });
      const violations = await page.evaluate(async (isDark) => {
        const chosen = isDark ? { runOnly: ["color-contrast"] } : { rules: { "target-size": { enabled: true } } };
        return (await globalThis.axe.run(document, { resultTypes: ["violations"], ...chosen })).violations;
      }, colorScheme === "dark");
      faults.push(...violations
        .map(({ id, nodes }) => `${id}, ${size}, ${colorScheme}: ${nodes[0].html.slice(0, 200)}`));
    }
    await page.keyboard.press("Escape");
  }
  await page.emulateMedia({ colorScheme: null });
  return faults;
}

/** At 400 % nothing but tables, which have frames of their own, is wider than the window. */
async function checkEnlarged(page) {
  await page.setViewportSize(sizes.enlarged);
  await settle(page);
  return page.evaluate(() => {
    const isBeyond = (element) => {
      const { right, width } = element.getBoundingClientRect();
      return right > innerWidth + 1 && width > 1;
    };
    const beyond = Array.from(document.querySelectorAll("body *"))
      .filter((element) => !element.closest(".scroll, svg, .skip") && isBeyond(element));
    const page = document.documentElement.scrollWidth > innerWidth ? ["the page scrolls sideways"] : [];
    return [...page, ...beyond.map((element) => `${element.localName}.${element.className} goes beyond`)].slice(0, 3);
  });
}

/** With lines, words and letters further apart no words are cut off. */
async function checkSpacing(page) {
  const faults = [];
  for (const size of ["desk", "phone"]) {
    await page.setViewportSize(sizes[size]);
    faults.push(...await page.evaluate(() => {
      const sheet = new CSSStyleSheet();
      sheet.replaceSync("* { line-height: 1.5 !important; letter-spacing: .12em !important; "
        + "word-spacing: .16em !important } p { margin-bottom: 2em !important }");
      document.adoptedStyleSheets = [sheet];
      const cuts = (element) => {
        const { overflowX, overflowY } = getComputedStyle(element);
        return (overflowX === "hidden" && element.scrollWidth > element.clientWidth + 1)
          || (overflowY === "hidden" && element.scrollHeight > element.clientHeight + 1);
      };
      // What is not for eyes is cut off; so are long titles in the contents and above long tables, which stand whole
      // elsewhere.
      const cut = Array.from(document.querySelectorAll("body *"))
        .filter((element) => element.offsetWidth > 1 && !element.closest(".unseen, .skip, .long caption")
          && cuts(element) && element.textContent.length < 100);
      document.adoptedStyleSheets = [];
      return cut.slice(0, 3).map((element) => `${element.localName} cuts off "${element.textContent}"`);
    }));
  }
  return faults;
}

/**
 * Marks stand out by 3:1 against the ground, words of pictures by 4.5:1, as they are painted. Where paleness is what is
 * shown, as that of fewer records, of many lines that are not set off, or of a band behind marks, it may go below.
 */
async function checkContrast(page) {
  await page.setViewportSize(sizes.desk);
  const faults = [];
  for (const colorScheme of ["light", "dark"]) {
    await page.emulateMedia({ colorScheme });
    const found = await page.evaluate(() => {
      const context = document.createElement("canvas").getContext("2d", { willReadFrequently: true });
      const channelsOf = (color) => {
        context.fillStyle = color;
        context.fillRect(0, 0, 1, 1);
        return Array.from(context.getImageData(0, 0, 1, 1).data).slice(0, 3);
      };
      const curve = (value) => (value <= 0.04045 ? value / 12.92 : ((value + 0.055) / 1.055) ** 2.4);
      const luminanceOf = (channels) => {
        const [red, green, blue] = channels.map((channel) => curve(channel / 255));
        return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
      };
      const ground = channelsOf(getComputedStyle(document.body).backgroundColor);
      const contrastOf = (paint, opacity) => {
        if (paint === "none") return 1;
        const painted = channelsOf(paint).map((channel, at) => channel * opacity + ground[at] * (1 - opacity));
        const [dark, light] = [luminanceOf(painted), luminanceOf(ground)].sort((a, b) => a - b);
        return (light + 0.05) / (dark + 0.05);
      };
      const opacityOf = (element) => {
        let opacity = 1;
        for (let at = element; at.localName !== "div"; at = at.parentElement) opacity *= getComputedStyle(at).opacity;
        return opacity;
      };
      const best = (element) => Math.max(...[element, ...element.querySelectorAll("*")].flatMap((part) => {
        const { fill, stroke } = getComputedStyle(part);
        const opacity = opacityOf(part);
        return [contrastOf(fill, opacity), contrastOf(stroke, opacity)];
      }));
      const isSeen = (element) => element.getClientRects().length > 0;
      const faint = Array.from(document.querySelectorAll(".drawing svg [role=img]"))
        .filter((mark) => isSeen(mark)
          && !/\n.*\nFrequency: /.test(mark.getAttribute("aria-label")) && best(mark) < 2.995)
        .map((mark) => `${mark.closest("figure").id}: ${best(mark).toFixed(2)}:1 has ${mark.ariaLabel}`);
      const pale = Array.from(document.querySelectorAll(".drawing svg text"))
        .filter((text) => isSeen(text) && contrastOf(getComputedStyle(text).fill, opacityOf(text)) < 4.5)
        .map((text) => `${text.closest("figure").id}: "${text.textContent}" is pale`);
      return [...faint.slice(0, 3), ...pale.slice(0, 3)];
    });
    faults.push(...found.map((fault) => `${fault} (${colorScheme})`));
  }
  await page.emulateMedia({ colorScheme: null });
  return faults;
}

/** By the keyboard each place is seen, has an outline, and something of it is on top. */
async function checkFocus(page) {
  await page.setViewportSize(sizes.desk);
  await page.evaluate(() => scrollTo(0, 0));
  const faults = [];
  for (let stop = 0; stop < 120 && faults.length < 3; ++stop) {
    await page.keyboard.press("Tab");
    const [name, isOutlined, isOnTop] = await page.evaluate(() => {
      const element = document.activeElement;
      const { left, top, width, height } = element.getBoundingClientRect();
      const parts = [0.02, 0.25, 0.5, 0.75, 0.98];
      const seen = parts.some((x) => parts.some((y) => {
        const at = document.elementFromPoint(left + x * width, top + y * height);
        return at && (element.contains(at) || at.contains(element));
      }));
      const { outlineStyle } = getComputedStyle(element);
      const name = `${element.localName}.${element.className} ${element.textContent.slice(0, 40)}`;
      return [name, outlineStyle !== "none", seen];
    });
    if (name.startsWith("body")) break;
    if (!isOutlined) faults.push(`${name} has focus and no outline`);
    if (!isOnTop) faults.push(`${name} has focus and is not seen`);
  }
  return faults;
}

export async function checkStates(page, axeSource) {
  return [...await checkByAxe(page, axeSource), ...await checkEnlarged(page), ...await checkSpacing(page),
    ...await checkContrast(page), ...await checkFocus(page)];
}
