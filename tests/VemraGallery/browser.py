"""Exports the gallery's book and reads it in headless Chromium as a person does: nothing on the console, every picture
is there, the search finds an identifier, switches change the picture, and the keyboard reaches and works all of it.

    browser.py VEMRA-GALLERY

Exit code 77 where there is no Chromium (or its name is not known): then nothing was tested.
"""
import book

SHOWN = 'Array.from(document.querySelectorAll("article:not([hidden]) img:not([hidden])"))'
FIND = 'document.getElementById("search")'
SAYS = 'document.getElementById("found").textContent'
COLOURS = "document.documentElement.dataset.colours"

# The elements that the Tab key reaches, in the order of the page; of a group of radio buttons the chosen one.
STOPS = """Array.from(document.querySelectorAll("a[href], input, summary, pre[tabindex]")).filter(
  (element) => element.checkVisibility() && (element.type !== "radio" || element.checked))"""

# What is wrong with how the focus looks; "" where nothing is.
FOCUS = """(() => {
  const element = document.activeElement, style = getComputedStyle(element), box = element.getBoundingClientRect();
  if (!element.matches(":focus-visible") || style.outlineStyle === "none" || parseFloat(style.outlineWidth) < 2) {
    return "has no ring";
  }
  if (box.top < 0 || box.bottom > innerHeight) return "is out of view";
  const front = document.elementFromPoint(box.left + box.width / 2, box.top + Math.min(box.height / 2, 8));
  return element === front || element.contains(front) || front.contains(element) ? "" : "is behind something";
})()"""

PAGE = f"""(async () => {{
  const all = (selector) => Array.from(document.querySelectorAll(selector));
  const loads = (picture) => new Promise((done) => {{
    const copy = new Image();
    copy.onload = () => done(copy.naturalWidth === Number(picture.getAttribute("width")));
    copy.onerror = () => done(false);
    copy.src = picture.src;
  }});
  const loaded = await Promise.all(all("img").map(loads));
  return {{
    articles: all("article").length, shown: {SHOWN}.length, says: {SAYS},
    pictures: loaded.length, broken: loaded.filter((isLoaded) => !isLoaded).length,
    overflow: document.documentElement.scrollWidth - document.documentElement.clientWidth,
  }};
}})()"""


def check_page(browser, width, system, wrong):
    report = browser.ask(PAGE)
    print(width, system, report)
    count = report["articles"]
    if count < 40:
        wrong.append(f"{count} specimens")
    # Two languages, three colours and two widths.
    for name, expected in (("shown", count), ("says", f"{count} of {count}"), ("pictures", 12 * count),
                           ("broken", 0), ("overflow", 0)):
        if report[name] != expected:
            wrong.append(f"at {width} pixels: {name} is {report[name]}, expected {expected}")
    colours = "contrast" if "contrast" in system else system["colours"]
    picture = f"-{colours}-{320 if width == 320 else 600}.png"
    if not browser.ask(f'{SHOWN}.every((image) => image.src.includes("-en-US-") && image.src.endsWith("{picture}"))'):
        wrong.append(f"at {width} pixels, {system}: not every picture shown is one of {picture}")


def check_tab(browser, width, wrong):
    """The Tab key visits everything in the order of the page, in view, with a ring around it."""
    browser.ask(f"window.stops = {STOPS}, stops.length")
    count = browser.ask("stops.length")
    for number in range(count):
        browser.press("Tab")
        what = browser.ask("document.activeElement.outerHTML.slice(0, 80)")
        if not browser.ask(f"document.activeElement === stops[{number}]"):
            wrong.append(f"at {width} pixels: stop {number} of the Tab key is {what}")
            return
        if problem := browser.ask(FOCUS):
            wrong.append(f"at {width} pixels: with the focus, {what} {problem}")
    browser.press("Tab", shift=True)
    if not browser.ask(f"document.activeElement === stops[{count - 2}]"):
        wrong.append("Shift and Tab do not go back")


def check_keys(browser, wrong):
    """The search, the switches, the links and what can be unfolded, by keys alone."""
    def expect(what, expression, expected):
        if (found := browser.ask(expression)) != expected:
            wrong.append(f"{what}: {expression} is {found!r}, expected {expected!r}")

    count = browser.ask("document.querySelectorAll('article').length")
    browser.press("/")
    browser.type("vemra.goal.person.p1.outcome.corrected-marker")
    expect("the search finds an identifier", SAYS, f"1 of {count}")
    expect("the search finds an identifier", f"{SHOWN}.length", 1)
    browser.press("Escape")
    expect("Escape ends the search", f"[{FIND}.value, {SAYS}].join()", f",{count} of {count}")
    browser.type("NOTHING recorded")
    expect("the search finds a name in any case", f"{SHOWN}.length", 1)
    browser.press("Tab")
    browser.press("ArrowRight")
    expect("the arrow keys choose a language", f'{SHOWN}.every((image) => image.src.includes("-de-DE-"))', True)
    browser.press("Tab")
    for colours in ("dark", "contrast"):
        browser.press("ArrowDown")
        expect("the arrow keys choose colours", COLOURS, colours)
        expect("the arrow keys choose colours", f'{SHOWN}.every((image) => image.src.includes("-{colours}-"))', True)
    browser.press("Tab")
    browser.press("ArrowRight")
    expect("the arrow keys choose a width", f'{SHOWN}.every((image) => image.src.endsWith("-320.png"))', True)
    browser.press("/")
    browser.press("Escape")
    while browser.ask("document.activeElement.textContent") != "Footer":
        browser.press("Tab")
    browser.press("Enter")
    expect("a section's link goes there", "document.querySelector(location.hash + ' h2').textContent", "Footer")
    expect("a section's link goes there",
           "document.querySelector(location.hash).getBoundingClientRect().top < innerHeight", True)
    while browser.ask("document.activeElement.localName") != "summary":
        browser.press("Tab")
    browser.press("Enter")
    expect("Enter unfolds", "document.activeElement.parentElement.open", True)
    browser.press("Tab")
    expect("what is unfolded can be scrolled by keys", "document.activeElement.localName", "pre")
    expect("it is what assistive technology reads",
           "document.activeElement.textContent.includes('\"Find a design lead\"')", True)


def main():
    wrong = []
    with book.opened() as (browser, page):
        for width, system in book.WINDOWS:
            browser.open(page, width, **system)
            check_page(browser, width, system, wrong)
            if system == {"colours": "light"}:
                check_tab(browser, width, wrong)
        browser.open(page, 1400)
        check_keys(browser, wrong)
        wrong += browser.problems
    book.end(wrong)


if __name__ == "__main__":
    main()
