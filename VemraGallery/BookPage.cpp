#include "VemraGallery/BookPage.hpp"

#include "VemraGallery/BookParts.hpp"

#include <array>

namespace vemra::gallery {
namespace {

/// A text as the content of an element or of an attribute.
std::string escaped(std::string_view text) {
  std::string safe;
  for (const char c : text) {
    switch (c) {
      case '&':
        safe += "&amp;";
        break;
      case '<':
        safe += "&lt;";
        break;
      case '>':
        safe += "&gt;";
        break;
      case '"':
        safe += "&quot;";
        break;
      default:
        safe += c;
    }
  }
  return safe;
}

/// A text as a word of an attribute: ASCII letters, digits and hyphens.
std::string slug(std::string_view text) {
  std::string word;
  for (const char c : text) {
    const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    if (isPlain) {
      word += c;
    } else if (!word.empty() && word.back() != '-') {
      word += '-';
    }
  }
  return word;
}

/// The colours as a word of an attribute.
std::string wordOf(Colours colours) {
  constexpr std::array<const char*, allColours.size()> words{"light", "dark", "contrast"};
  return words.at(static_cast<std::size_t>(colours));
}

std::string languageWord(const Gallery& gallery, std::size_t language) {
  return std::to_string(language) + '-' + slug(gallery.languages()[language].locale);
}

std::string variantWord(const Gallery& gallery, const Variant& variant) {
  return languageWord(gallery, variant.language) + '-' + wordOf(variant.colours) + '-' +
         std::to_string(variant.width);
}

void addDetails(std::string& html, const char* title, const std::vector<std::string>& lines) {
  if (lines.empty()) return;
  html += "<details><summary>" + std::string(title) + "</summary>\n<pre tabindex=\"0\">";
  for (const std::string& line : lines) html += escaped(line) + '\n';
  html += "</pre></details>\n";
}

void addEntry(std::string& html, const Gallery& gallery, const BookEntry& entry,
              std::size_t number) {
  const Specimen& specimen = *entry.specimen;
  const std::string id = "entry-" + std::to_string(number);
  html += "<article id=\"" + id + "\" aria-labelledby=\"" + id + "-name\">\n<h3 id=\"" + id +
          "-name\"><a href=\"#" + id + "\">" + escaped(specimen.name) + "</a></h3>\n";
  if (!specimen.description.empty()) html += "<p>" + escaped(specimen.description) + "</p>\n";
  bool isFirst = true;
  for (const BookPicture& picture : entry.pictures) {
    // A browser loads a picture when it comes into view.
    html += "<img loading=\"lazy\" src=\"" + escaped(picture.file) + "\" width=\"" +
            std::to_string(picture.width) + "\" height=\"" + std::to_string(picture.height) +
            "\" data-variant=\"" + variantWord(gallery, picture.variant) + "\" alt=\"" +
            escaped(specimen.section + ", " + specimen.name) + ": its outline is below\"" +
            (isFirst ? "" : " hidden") + ">\n";
    isFirst = false;
  }
  addDetails(html, "What assistive technology reads", entry.heard);
  addDetails(html, "Outline", entry.outline);
  addDetails(html, "Identifiers", entry.identifiers);
  html += "</article>\n";
}

/// A group of radio buttons.
void addSwitch(std::string& html, const char* title, const std::string& name,
               const std::vector<std::pair<std::string, std::string>>& choices) {
  html += "<fieldset><legend>" + std::string(title) + "</legend>";
  bool isFirst = true;
  for (const auto& [value, label] : choices) {
    html += "<label><input type=\"radio\" name=\"" + name + "\" value=\"" + escaped(value) + '"' +
            (isFirst ? " checked" : "") + "> " + escaped(label) + "</label>";
    isFirst = false;
  }
  html += "</fieldset>\n";
}

void addHeader(std::string& html, const Gallery& gallery, const std::vector<BookEntry>& entries) {
  html += "<header>\n<h1>" + escaped(gallery.title()) +
          "</h1>\n<form role=\"search\">\n"
          "<label>Find <input type=\"search\" id=\"search\" autocomplete=\"off\"></label>\n"
          "<output id=\"found\" for=\"search\">" +
          std::to_string(entries.size()) + " of " + std::to_string(entries.size()) +
          "</output>\n</form>\n";
  std::vector<std::pair<std::string, std::string>> languages;
  for (std::size_t i = 0; i < gallery.languages().size(); ++i) {
    languages.emplace_back(languageWord(gallery, i), gallery.languages()[i].name);
  }
  if (languages.size() > 1) addSwitch(html, "Language", "language", languages);
  addSwitch(html, "Colours", "colours",
            {{wordOf(Colours::light), "light"},
             {wordOf(Colours::dark), "dark"},
             {wordOf(Colours::highContrast), "high contrast"}});
  std::vector<std::pair<std::string, std::string>> widths;
  for (const int width : bookWidths) {
    widths.emplace_back(std::to_string(width), std::to_string(width) + " pixels");
  }
  addSwitch(html, "Width", "width", widths);
  html += "</header>\n";
}

void beginSection(std::string& html, const std::string& name, std::size_t number) {
  const std::string id = "section-" + std::to_string(number);
  html += "<section id=\"" + id + "\" aria-labelledby=\"" + id + "-name\">\n<h2 id=\"" + id +
          "-name\">" + escaped(name) + "</h2>\n<div class=\"entries\">\n";
}

void addContents(std::string& html, const std::vector<BookEntry>& entries) {
  html += "<nav aria-label=\"Sections\"><ul>\n";
  const std::string* section = nullptr;
  std::size_t number = 0;
  for (const BookEntry& entry : entries) {
    if (section == nullptr || *section != entry.specimen->section) {
      section = &entry.specimen->section;
      html += "<li><a href=\"#section-" + std::to_string(number) + "\">" + escaped(*section) +
              "</a></li>\n";
    }
    ++number;
  }
  html += "</ul></nav>\n";
}

}  // namespace

std::string pictureName(std::size_t entry, const Gallery& gallery, const Variant& variant) {
  return std::to_string(entry) + '-' + variantWord(gallery, variant);
}

std::string bookPage(const Gallery& gallery, const std::vector<BookEntry>& entries) {
  std::string html =
      "<!DOCTYPE html>\n<html lang=\"en\" data-colours=\"light\">\n<head>\n<meta "
      "charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
      "<link rel=\"icon\" href=\"data:,\">\n<title>" +
      escaped(gallery.title()) + "</title>\n<style>\n" + std::string(bookStyle) +
      "</style>\n</head>\n<body>\n";
  addHeader(html, gallery, entries);
  addContents(html, entries);
  html += "<main>\n";
  const std::string* section = nullptr;
  std::size_t number = 0;
  for (const BookEntry& entry : entries) {
    if (section == nullptr || *section != entry.specimen->section) {
      if (section != nullptr) html += "</div>\n</section>\n";
      section = &entry.specimen->section;
      beginSection(html, *section, number);
    }
    addEntry(html, gallery, entry, number++);
  }
  if (section != nullptr) html += "</div>\n</section>\n";
  return html + "</main>\n<script>\n" + std::string(bookProgram) + "</script>\n</body>\n</html>\n";
}

}  // namespace vemra::gallery
