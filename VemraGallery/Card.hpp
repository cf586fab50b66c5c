#pragma once

#include "VemraGallery/Gallery.hpp"

#include <memory>

#include <QFrame>

namespace vemra::qt {
class ViewWidget;
}

namespace vemra::gallery {

/// A specimen with its name, in a window of the gallery.
class Card : public QFrame {
 public:
  /// `specimen` must outlive the card.
  Card(const Specimen& specimen, QWidget* parent);
  ~Card() override;

  /// Shows the specimen in an environment and so many pixels wide. For another language it is
  /// mounted again, and typed text is lost.
  void show(const ui::Environment& environment, int width);

  /// Makes the card as high as its view, within bounds. Only a visible card knows that height.
  void fit();

  const Specimen& specimen() const { return specimen_; }
  /// Whether name, section, description, texts or identifiers contain the text, in any case.
  bool contains(const QString& text) const;
  const qt::ViewWidget& view() const { return *view_; }

 private:
  void mountAnew(const ui::Environment& environment);

  const Specimen& specimen_;
  QString searched_;  ///< the texts that `contains` searches
  std::unique_ptr<testing::Screen> screen_;
  qt::ViewWidget* view_ = nullptr;
};

}  // namespace vemra::gallery
