"""Exports the gallery's book and reads it in headless Chromium: no error on the console, every picture is there, the
search finds an identifier, switches change the picture, and the keyboard reaches all of it.

    browser.py VEMRA-GALLERY

Exit code 77 where there is no Chromium (or its name is not known): then nothing was tested.
"""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

# Runs in the page, after the page's own script; writes its findings into an element that --dump-dom
# shows.
PROBE = r"""
<script>
{
const report = {errors: window.errorsSeen};
const shown = () => Array.from(document.querySelectorAll("article:not([hidden]) img:not([hidden])"));
const search = document.getElementById("search");
const say = (text) => { search.value = text; search.dispatchEvent(new Event("input")); };
const choose = (name, value) => {
  const radio = document.querySelector(`input[name="${name}"][value="${value}"]`);
  radio.checked = true;
  radio.dispatchEvent(new Event("change"));
};
report.articles = document.querySelectorAll("article").length;
report.shownAtFirst = shown().length;
say("vemra.goal.person.p1.outcome.corrected-marker");
report.foundByIdentifier = shown().length;
report.foundSays = document.getElementById("found").textContent;
say("NOTHING RECORDED");
report.foundByName = shown().length;
say("");
choose("scheme", "dark");
choose("width", "320");
report.dark = shown().every((image) => image.src.endsWith("-dark-320.png"));
const slash = new KeyboardEvent("keydown", {key: "/", bubbles: true, cancelable: true});
document.body.dispatchEvent(slash);
report.slashFocuses = document.activeElement === search;
const usable = "a[href], input, summary, [tabindex]";
report.unnamed = Array.from(document.querySelectorAll("input")).filter((input) => !input.labels.length).length;
report.negativeTabs = Array.from(document.querySelectorAll(usable)).filter((element) => element.tabIndex < 0).length;
report.withoutAlt = Array.from(document.images).filter((image) => !image.alt).length;
report.sameIds = document.querySelectorAll("[id]").length -
  new Set(Array.from(document.querySelectorAll("[id]")).map((element) => element.id)).size;
// A page that is wider than its window must be scrolled to and fro.
report.overflow = document.documentElement.scrollWidth - document.documentElement.clientWidth;
const pictures = Array.from(document.images);
const loaded = (picture) => new Promise((done) => {
  const copy = new Image();
  copy.onload = () => done(copy.naturalWidth === Number(picture.getAttribute("width")) ? 0 : 1);
  copy.onerror = () => done(1);
  copy.src = picture.src;
});
Promise.all(pictures.map(loaded)).then((broken) => {
  report.pictures = pictures.length;
  report.broken = broken.reduce((a, b) => a + b, 0);
  const element = document.createElement("script");
  element.type = "application/json";
  element.id = "report";
  element.textContent = JSON.stringify(report);
  document.body.append(element);
});
}
</script>
"""
WATCH = "<script>window.errorsSeen = []; addEventListener('error', (e) => errorsSeen.push(e.message));</script>"


def look(chromium, page, profile, width):
    command = [chromium, "--headless", "--no-sandbox", "--disable-gpu", "--allow-file-access-from-files",
               f"--user-data-dir={profile}", f"--window-size={width},900", "--virtual-time-budget=30000",
               "--enable-logging=stderr", "--dump-dom", page.as_uri()]
    done = subprocess.run(command, capture_output=True, text=True, timeout=100, check=False)
    console = [line for line in done.stderr.splitlines() if ":CONSOLE" in line]
    marker = '<script type="application/json" id="report">'
    if marker not in done.stdout:
        raise SystemExit(f"the page did not report; Chromium ended with {done.returncode}:\n{done.stderr[-3000:]}")
    return json.loads(done.stdout.split(marker)[1].split("</script>")[0]), console


def main():
    chromium = next(filter(None, map(shutil.which, ("chromium", "chromium-browser", "google-chrome"))), None)
    if chromium is None:
        print("there is no Chromium: the book was not read in a browser")
        sys.exit(77)
    with tempfile.TemporaryDirectory() as folder:
        book = pathlib.Path(folder) / "book"
        subprocess.run([sys.argv[1], "--export", book], check=True, stderr=subprocess.DEVNULL)
        text = (book / "index.html").read_text(encoding="utf-8")
        probed = book / "probed.html"
        probed.write_text(text.replace("<head>", "<head>" + WATCH, 1).replace("</body>", PROBE + "</body>", 1),
                          encoding="utf-8")
        os.environ["HOME"] = folder
        wrong = []
        for width in (1400, 320):
            report, console = look(chromium, probed, pathlib.Path(folder) / "profile", width)
            print(width, report)
            expected = {"errors": [], "shownAtFirst": report["articles"], "foundByIdentifier": 1,
                        "foundSays": f"1 of {report['articles']}", "foundByName": 1, "dark": True,
                        "slashFocuses": True, "unnamed": 0, "negativeTabs": 0, "withoutAlt": 0,
                        "sameIds": 0, "broken": 0, "overflow": 0}
            wrong += [f"at {width} pixels: {key} is {report[key]}, expected {value}"
                      for key, value in expected.items() if report[key] != value]
            wrong += console
            if report["pictures"] < report["articles"] or report["articles"] < 40:
                wrong.append(f"at {width} pixels: {report['pictures']} pictures of {report['articles']} specimens")
        if wrong:
            sys.exit("\n".join(wrong))


if __name__ == "__main__":
    main()
