"use strict";
const search = document.getElementById("search");
const found = document.getElementById("found");
const articles = Array.from(document.querySelectorAll("article"));
// Case and accents do not matter to a reader who looks for something.
const folded = (text) => text.normalize("NFKD").replace(/\p{M}/gu, "").toLowerCase();
const texts = articles.map((article) =>
  folded(article.closest("section").querySelector("h2").textContent + "\n" + article.textContent));

function find() {
  const words = folded(search.value).split(/\s+/).filter(Boolean);
  let count = 0;
  articles.forEach((article, index) => {
    article.hidden = !words.every((word) => texts[index].includes(word));
    if (!article.hidden) ++count;
  });
  for (const section of document.querySelectorAll("main section")) {
    section.hidden = !section.querySelector("article:not([hidden])");
  }
  found.textContent = count + " of " + articles.length;
}

function choose() {
  const value = (name) => {
    const radio = document.querySelector(`input[name="${name}"]:checked`);
    return radio ? radio.value : null;
  };
  const colours = value("colours");
  const language = value("language");
  document.documentElement.dataset.colours = colours;
  for (const image of document.querySelectorAll("img[data-variant]")) {
    const variant = image.dataset.variant;
    image.hidden = !(variant.endsWith(`-${colours}-${value("width")}`) &&
      (language === null || variant.startsWith(`${language}-${colours}-`)));
  }
}

search.addEventListener("input", find);
search.form.addEventListener("submit", (event) => event.preventDefault());
for (const radio of document.querySelectorAll('input[type="radio"]')) radio.addEventListener("change", choose);
document.addEventListener("keydown", (event) => {
  const types = event.target.matches('input[type="search"]');
  if (event.key === "/" && !types && !event.ctrlKey && !event.metaKey && !event.altKey) {
    event.preventDefault();
    search.focus();
  } else if (event.key === "Escape" && types) {
    search.value = "";
    find();
  }
});
// The system's colours are the first choice, and again when the system's choice changes.
const isDark = matchMedia("(prefers-color-scheme: dark)");
const isContrast = ["(prefers-contrast: more)", "(forced-colors: active)"].map((query) => matchMedia(query));
function followSystem() {
  const colours = isContrast.some((query) => query.matches) ? "contrast" : isDark.matches ? "dark" : "light";
  document.querySelector(`input[name="colours"][value="${colours}"]`).checked = true;
  choose();
}
for (const query of [isDark, ...isContrast]) query.addEventListener("change", followSystem);
// A wide picture in a narrow window would be too small to read.
if (matchMedia("(max-width: 40rem)").matches) {
  Array.from(document.querySelectorAll('input[name="width"]')).pop().checked = true;
}
followSystem();
find();
