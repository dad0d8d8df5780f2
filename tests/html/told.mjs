// What a page tells of what was done, in a place that is read out, and for a while alone.

/** Acts, and gives the word that follows. */
export async function tellAfter(page, act) {
  await page.evaluate(() => {
    const status = document.querySelector("[role=status]");
    globalThis.told = new Promise((done) => {
      const observer = new MutationObserver(() => {
        if (!status.textContent) return;
        observer.disconnect();
        done(status.textContent);
      });
      observer.observe(status, { childList: true });
    });
  });
  await act();
  return page.evaluate(() => globalThis.told);
}
